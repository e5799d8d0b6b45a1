#include "Output.h"

#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace orvex {

void printLine(const QString& text) {
  std::printf("%s\n", qUtf8Printable(text));
}

void printError(const QString& text) {
  std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

void printJson(const QJsonDocument& document) {
  std::fputs(document.toJson(QJsonDocument::Indented).constData(), stdout);
}

void printTable(const QList<std::pair<QString, QString>>& rows) {
  qsizetype width = 0;
  for (const auto& [label, value] : rows) width = std::max(width, label.size());
  for (const auto& [label, value] : rows)
    printLine(label.leftJustified(width) + QStringLiteral("  ") + value);
}

}  // namespace orvex
