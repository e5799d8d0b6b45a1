#include "base/Json.h"

#include "base/ByteOrderMark.h"

#include <QJsonDocument>

#include <algorithm>

namespace orvex {
namespace {

// Keys come from others and may be of any length.
constexpr qsizetype kShownKey = 40;

[[noreturn]] void fail(const QString& reason) {
  throw JsonError(QStringLiteral("JSON belgesi geçersiz: %1").arg(reason));
}

// What people who write such documents get wrong has its own words.
QString syntaxReason(QJsonParseError::ParseError error) {
  switch (error) {
    case QJsonParseError::IllegalUTF8String:
      return QStringLiteral("UTF-8 olmayan bir bayt var");
    case QJsonParseError::DeepNesting:
    case QJsonParseError::DocumentTooLarge:
      return QStringLiteral("belge çok büyük ya da çok derin");
    case QJsonParseError::GarbageAtEnd:
      return QStringLiteral("belgenin sonundan sonra fazlalık var");
    case QJsonParseError::IllegalValue:
    case QJsonParseError::IllegalNumber:
      return QStringLiteral("geçerli bir değer yok");
    default:
      return QStringLiteral("yazım bozuk");
  }
}

// The parser takes what a text begins with for a signature, too, where it is not escaped.
QByteArray keepingMarks(const QByteArray& document) {
  // Searched for by its first byte, which texts seldom have.
  if (!document.contains('\xEF')) return document;
  return QByteArray(document).replace("\"\xEF\xBB\xBF", "\"\\ufeff");
}

QJsonValue parsed(const QByteArray& document) {
  // The parser would pass over it; the standard has nobody send one.
  if (document.startsWith(kByteOrderMark)) fail(QStringLiteral("başında bir imza (BOM) var."));
  const QByteArray text = keepingMarks(document);
  QJsonParseError error;
  const QJsonDocument json = QJsonDocument::fromJson(text, &error);
  if (error.error != QJsonParseError::NoError) {
    const QByteArrayView before =
        QByteArrayView(text).first(std::min<qsizetype>(std::max(error.offset, 0), text.size()));
    fail(QStringLiteral("%1. satır, %2. sütun: %3.")
             .arg(before.count('\n') + 1)
             .arg(before.size() - before.lastIndexOf('\n'))
             .arg(syntaxReason(error.error)));
  }
  return json.isArray() ? QJsonValue(json.array()) : QJsonValue(json.object());
}

QString found(const QJsonValue& value) {
  switch (value.type()) {
    case QJsonValue::Null:
      return QStringLiteral("null");
    case QJsonValue::Bool:
      return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
      return QString::number(value.toDouble(), 'g', 17);
    case QJsonValue::String:
      return QStringLiteral("metin");
    case QJsonValue::Array:
      return QStringLiteral("dizi");
    default:
      return QStringLiteral("nesne");
  }
}

}  // namespace

JsonReader::JsonReader(const QByteArray& document) : value_(parsed(document)) {}

JsonReader::JsonReader(QJsonValue value, const JsonReader* parent, QStringView key, qsizetype index)
    : value_(std::move(value)), parent_(parent), key_(key), index_(index) {}

QString JsonReader::path() const {
  if (parent_ == nullptr) return {};
  const QString parent = parent_->path();
  if (index_ >= 0) return parent + u'[' + QString::number(index_) + u']';
  QString key = key_.first(std::min(key_.size(), kShownKey)).toString();
  if (key.size() < key_.size()) key += u'…';
  return parent.isEmpty() ? key : parent + u'.' + key;
}

void JsonReader::refuse(const QString& expected) const {
  const QString place = path();
  const QString shown =
      place.isEmpty() ? QStringLiteral("belgenin kendisi") : QStringLiteral("\"%1\"").arg(place);
  if (value_.isUndefined()) fail(QStringLiteral("%1 eksik.").arg(shown));
  fail(QStringLiteral("%1 %2 olmalı, %3 bulundu.").arg(shown, expected, found(value_)));
}

QString JsonReader::string() const {
  if (!value_.isString()) refuse(QStringLiteral("metin"));
  return value_.toString();
}

bool JsonReader::boolean() const {
  if (!value_.isBool()) refuse(QStringLiteral("true ya da false"));
  return value_.toBool();
}

std::int64_t JsonReader::integer() const {
  // What is no whole number of 64 bits gives the default, so two of them tell it apart.
  const qint64 value = value_.toInteger(0);
  if (value == 0 && value_.toInteger(1) != 0) refuse(QStringLiteral("64 bitlik bir tam sayı"));
  return value;
}

double JsonReader::number() const {
  if (!value_.isDouble()) refuse(QStringLiteral("sayı"));
  return value_.toDouble();
}

JsonReader JsonReader::operator[](QStringView key) const& {
  JsonReader value = member(key);
  if (value.value_.isUndefined()) value.refuse({});
  return value;
}

JsonReader JsonReader::member(QStringView key) const {
  return {toObject().value(key), this, key};
}

QJsonArray JsonReader::toArray() const {
  if (!value_.isArray()) refuse(QStringLiteral("dizi"));
  return value_.toArray();
}

QJsonObject JsonReader::toObject() const {
  if (!value_.isObject()) refuse(QStringLiteral("nesne"));
  return value_.toObject();
}

}  // namespace orvex
