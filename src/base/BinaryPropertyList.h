#pragma once

#include <QByteArray>
#include <QString>

#include <expected>

namespace orvex {

/// Whether `bytes` claim to be a property list in the binary form.
[[nodiscard]] bool isBinaryPropertyList(const QByteArray& bytes);

/// Looks through a property list in the binary form before a parser that trusts it does: every
/// object lies within the file, nothing is a date, nothing is nested deeper than `maximumDepth`
/// (which an object that holds itself would be), and what is shared does not multiply beyond all
/// bounds when it is written out. The error is one sentence for a log.
[[nodiscard]] std::expected<void, QString> checkBinaryPropertyList(const QByteArray& bytes,
                                                                   int maximumDepth);

}  // namespace orvex
