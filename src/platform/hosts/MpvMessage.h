#pragma once

#include <QByteArrayView>
#include <QJsonValue>
#include <QString>

#include <optional>
#include <variant>

namespace orvex {

/// The player's answer to one command.
struct MpvReply {
  qint64 requestId = 0;
  /// "success", or the player's own words for what went wrong.
  QString error;
  QJsonValue data;

  [[nodiscard]] bool succeeded() const { return error == u"success"; }
};

/// Something that happened in the player.
struct MpvEvent {
  QString name;
  /// Of "property-change": the number that the observer chose, and the value, null while the player
  /// has none.
  qint64 observerId = 0;
  QJsonValue data;
};

using MpvMessage = std::variant<MpvReply, MpvEvent>;

/// Reads one line of the player's protocol; nothing when it is not of that protocol. Names of files
/// that are not UTF-8 come as the player sends them, with the bytes at fault replaced.
[[nodiscard]] std::optional<MpvMessage> parseMpvMessage(QByteArrayView line);

}  // namespace orvex
