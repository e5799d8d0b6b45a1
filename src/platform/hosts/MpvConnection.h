#pragma once

#include "platform/hosts/MpvMessage.h"

#include <QByteArray>
#include <QHash>
#include <QJsonArray>
#include <QObject>
#include <QSocketNotifier>

#include <expected>
#include <functional>
#include <memory>

namespace orvex {

/// A connection to the IPC socket of an mpv: one JSON object a line in both directions. Never
/// blocks. What the player sends is not trusted: a line that is no message, or one without end,
/// closes the connection. Main thread only.
class MpvConnection final : public QObject {
  Q_OBJECT

 public:
  using ReplyHandler = std::function<void(const MpvReply&)>;

  /// A line longer than this, or more than this waiting to be sent, closes the connection.
  static constexpr qsizetype kMaximumBytes = 1 << 20;
  /// The longest path of a socket, in bytes of the file system's encoding.
  static constexpr qsizetype kMaximumPathBytes = 107;

  /// Connects to the socket at `path`; the error, in Turkish, says why not.
  [[nodiscard]] static std::expected<std::unique_ptr<MpvConnection>, QString> open(
      const QString& path);
  ~MpvConnection() override;

  /// Sends a command; `handler` is called with its reply, or never if the connection closes first.
  void send(const QJsonArray& command, ReplyHandler handler = {});
  /// Ends the connection. `closed` follows from the event loop.
  void close();

 Q_SIGNALS:
  void eventReceived(const orvex::MpvEvent& event);
  /// Nothing is received any more. Comes once, from the event loop, never from within a call.
  void closed();

 private:
  explicit MpvConnection(int descriptor);
  void receive();
  void flush();
  void handle(const MpvMessage& message);

  int descriptor_;
  QSocketNotifier readable_;
  QSocketNotifier writable_;
  QByteArray received_;
  QByteArray toSend_;
  qint64 lastRequestId_ = 0;
  QHash<qint64, ReplyHandler> handlers_;
};

}  // namespace orvex
