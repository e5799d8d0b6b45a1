#include "platform/hosts/MpvMessage.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace orvex {

std::optional<MpvMessage> parseMpvMessage(QByteArrayView line) {
  QJsonParseError error;
  QJsonDocument document =
      QJsonDocument::fromJson(QByteArray::fromRawData(line.data(), line.size()), &error);
  if (error.error == QJsonParseError::IllegalUTF8String)
    document = QJsonDocument::fromJson(QString::fromUtf8(line).toUtf8(), &error);
  if (error.error != QJsonParseError::NoError || !document.isObject()) return std::nullopt;

  const QJsonObject object = document.object();
  const QJsonValue data = object.value(u"data");
  const QJsonValue value = data.isUndefined() ? QJsonValue(QJsonValue::Null) : data;
  if (const QJsonValue event = object.value(u"event"); event.isString())
    return MpvEvent{event.toString(), object.value(u"id").toInteger(), value};
  const QJsonValue requestId = object.value(u"request_id");
  const QJsonValue outcome = object.value(u"error");
  if (!requestId.isDouble() || !outcome.isString()) return std::nullopt;
  return MpvReply{requestId.toInteger(), outcome.toString(), value};
}

}  // namespace orvex
