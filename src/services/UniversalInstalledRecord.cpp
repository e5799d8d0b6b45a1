#include "services/UniversalInstalledRecord.h"

#include "base/Json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace orvex {
namespace {

// Moments are counted in seconds since the beginning of 2001, UTC; this many after that of 1970.
constexpr double kEpoch = 978'307'200;

}  // namespace

UniversalInstalledRecord UniversalInstalledRecord::decode(const QByteArray& json) {
  const JsonReader record(json);
  const double milliseconds = (record[u"installedAt"].number() + kEpoch) * 1000;
  return {.id = record[u"id"].string(),
          .name = record[u"name"].string(),
          .version = record[u"version"].string(),
          // A moment that no calendar reaches is none, and no reason to refuse the rest.
          .installedAt = std::abs(milliseconds) < 1e17
                             ? QDateTime::fromMSecsSinceEpoch(std::llround(milliseconds), Qt::UTC)
                             : QDateTime(),
          .files = record[u"files"].list(&JsonReader::string)};
}

QByteArray UniversalInstalledRecord::encode() const {
  const auto moment = static_cast<double>(installedAt.toMSecsSinceEpoch()) / 1000 - kEpoch;
  // Objects are written with their keys in order.
  return QJsonDocument(QJsonObject{{QStringLiteral("id"), id},
                                   {QStringLiteral("name"), name},
                                   {QStringLiteral("version"), version},
                                   {QStringLiteral("installedAt"), moment},
                                   {QStringLiteral("files"), QJsonArray::fromStringList(files)}})
      .toJson(QJsonDocument::Indented);
}

}  // namespace orvex
