#pragma once

#include "base/DescribedError.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QStringView>

#include <cstdint>
#include <functional>
#include <optional>
#include <type_traits>

namespace orvex {

/// A JSON document that is not well formed, or not of the shape that was asked for; says where and
/// what was expected there.
class JsonError final : public DescribedError {
 public:
  using DescribedError::DescribedError;
};

/// A value of a JSON document, read as what its reader expects it to be and nothing else: numbers
/// are not texts and truth values are not numbers. Every reading throws `JsonError`.
///
/// A value within another refers to that one for its place in the document and must not outlive it.
class JsonReader {
 public:
  /// The outermost value of the document. Of equal keys the last one counts.
  explicit JsonReader(const QByteArray& document);

  [[nodiscard]] QString string() const;
  [[nodiscard]] bool boolean() const;
  /// A whole number of 64 bits, however it is written: "1.0" and "1e0" are 1. One with a fraction
  /// or an exponent is read as a number first, and so is exact up to 2^53.
  [[nodiscard]] std::int64_t integer() const;
  [[nodiscard]] double number() const;

  /// The value of a key that must be there.
  [[nodiscard]] JsonReader operator[](QStringView key) const&;
  JsonReader operator[](QStringView key) const&& = delete;

  /// What `read` makes of the value of a key that may be absent or null.
  template <typename Read>
  [[nodiscard]] auto optional(QStringView key, Read read) const
      -> std::optional<std::invoke_result_t<Read, const JsonReader&>> {
    const JsonReader value = member(key);
    if (value.value_.isUndefined() || value.value_.isNull()) return std::nullopt;
    return std::invoke(read, value);
  }

  /// What `read` makes of every element of an array.
  template <typename Read>
  [[nodiscard]] auto list(Read read) const -> QList<std::invoke_result_t<Read, const JsonReader&>> {
    QList<std::invoke_result_t<Read, const JsonReader&>> result;
    const QJsonArray array = toArray();
    result.reserve(array.size());
    for (qsizetype i = 0; i < array.size(); ++i)
      result.append(std::invoke(read, JsonReader(array.at(i), this, {}, i)));
    return result;
  }

  /// What `read` makes of every value of an object.
  template <typename Read>
  [[nodiscard]] auto map(Read read) const
      -> QHash<QString, std::invoke_result_t<Read, const JsonReader&>> {
    QHash<QString, std::invoke_result_t<Read, const JsonReader&>> result;
    const QJsonObject object = toObject();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
      const QString key = entry.key();
      result.insert(key, std::invoke(read, JsonReader(entry.value(), this, key)));
    }
    return result;
  }

 private:
  JsonReader(QJsonValue value, const JsonReader* parent, QStringView key, qsizetype index = -1);

  [[nodiscard]] JsonReader member(QStringView key) const;
  [[nodiscard]] QJsonArray toArray() const;
  [[nodiscard]] QJsonObject toObject() const;
  [[nodiscard]] QString path() const;
  [[noreturn]] void refuse(const QString& expected) const;

  QJsonValue value_;
  const JsonReader* parent_ = nullptr;
  /// The place within the parent: a key, or an index that is not negative.
  QStringView key_;
  qsizetype index_ = -1;
};

/// Sets the key to the value, if there is one.
template <typename Value>
void insert(QJsonObject& object, QStringView key, const std::optional<Value>& value) {
  if (!value) return;
  if constexpr (std::is_integral_v<Value> && !std::is_same_v<Value, bool>)
    object.insert(key, qint64{*value});
  else
    object.insert(key, *value);
}

}  // namespace orvex
