#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <expected>

namespace orvex {

/// Property lists: reading them in the XML and in the binary form, writing small ones.
///
/// What is read keeps the types of the file apart: a Boolean is a `bool`, an integer a `qlonglong`,
/// a real a `double`, text a `QString`, data a `QByteArray`, an array a `QVariantList`, a
/// dictionary a `QVariantMap` and a date, which nothing here uses, null. Callers that want a type
/// must compare `typeId()`, never convert.
namespace PropertyList {

/// The largest input that is looked at, in bytes.
inline constexpr qsizetype kMaximumBytes = qsizetype{256} * 1024;
/// The deepest nesting that is accepted.
inline constexpr int kMaximumDepth = 64;

/// Parses `bytes`; the XML form is taken for UTF-8. The error is one sentence for a log: too large,
/// too deep, a date that is not written like 2026-01-31T23:59:59Z (the parser below handles others
/// unsafely), a document type with declarations of its own, or malformed.
[[nodiscard]] std::expected<QVariant, QString> parse(const QByteArray& bytes);

/// `dictionary`, whose values are Booleans and texts, in the binary form: bytes from which `parse`
/// gives it back. The error is one sentence for a log: a value of another type, a text that no
/// property list can hold, or too large.
[[nodiscard]] std::expected<QByteArray, QString> binary(const QVariantMap& dictionary);

}  // namespace PropertyList
}  // namespace orvex
