#include "Output.h"

#include "base/Text.h"

#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace orvex {

void printLine(const QString& text) {
  std::printf("%s\n", qUtf8Printable(text));
}

void printError(const QString& text) {
  std::fprintf(stderr, "%s\n", qUtf8Printable(printable(text, u"\n")));
}

void printJson(const QJsonDocument& document) {
  std::fputs(document.toJson(QJsonDocument::Indented).constData(), stdout);
}

void printTable(const QList<std::pair<QString, QString>>& rows) {
  qsizetype width = 0;
  for (const auto& [label, value] : rows) width = std::max(width, label.size());
  for (const auto& [label, value] : rows)
    printLine(label.leftJustified(width) + QStringLiteral("  ") + printable(value));
}

void printColumns(const QList<QStringList>& rows) {
  QList<qsizetype> widths(rows.value(0).size(), 0);
  for (const QStringList& row : rows)
    for (qsizetype i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  for (const QStringList& row : rows) {
    QString line;
    for (qsizetype i = 0; i + 1 < row.size(); ++i)
      line += printable(row[i]).leftJustified(widths[i]) + QStringLiteral("  ");
    printLine(line + printable(row.last()));
  }
}

}  // namespace orvex
