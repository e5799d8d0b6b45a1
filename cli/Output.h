#pragma once

#include <QList>
#include <QStringList>

#include <utility>

class QJsonDocument;

namespace orvex {

/// Writes `text` and a line break to standard output, as UTF-8.
void printLine(const QString& text);
/// Writes `text` and a line break to standard error, as UTF-8.
void printError(const QString& text);
/// Writes the document to standard output.
void printJson(const QJsonDocument& document);
/// Writes rows of a label and a value, the values in one column.
void printTable(const QList<std::pair<QString, QString>>& rows);
/// Writes rows of as many texts each, in columns as wide as they need. Control characters, which
/// file names may hold and terminals obey, are shown as replacement characters.
void printColumns(const QList<QStringList>& rows);

}  // namespace orvex
