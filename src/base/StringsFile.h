#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <expected>

namespace orvex {

/// Reading of `.strings` files, the tables of a bundle's localized texts.
namespace StringsFile {

/// Parses a table of `key = "text";` lines with comments, in UTF-8 or UTF-16, or a property list in
/// either form that is a dictionary, of which the texts are taken. No more than
/// `PropertyList::kMaximumBytes` are looked at. The error is one sentence for a log.
[[nodiscard]] std::expected<QMap<QString, QString>, QString> parse(const QByteArray& bytes);

}  // namespace StringsFile
}  // namespace orvex
