#pragma once

#include <QList>
#include <QStringList>

#include <utility>

class QJsonDocument;

namespace orvex {

/// Writes `text` and a line break to standard output, as UTF-8.
void printLine(const QString& text);
/// Writes `text`, printable but for its line breaks, and a line break to standard error, as UTF-8.
void printError(const QString& text);
/// Writes the document to standard output.
void printJson(const QJsonDocument& document);
/// Writes rows of a label and a value, the values in one column and printable.
void printTable(const QList<std::pair<QString, QString>>& rows);
/// Writes rows of as many texts each, printable, in columns as wide as they need.
void printColumns(const QList<QStringList>& rows);

}  // namespace orvex
