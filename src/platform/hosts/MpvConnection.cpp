#include "platform/hosts/MpvConnection.h"

#include "base/FileError.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>

#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orvex {
namespace {

static_assert(sizeof(sockaddr_un::sun_path) > MpvConnection::kMaximumPathBytes);

}  // namespace

std::expected<std::unique_ptr<MpvConnection>, QString> MpvConnection::open(const QString& path) {
  const QByteArray encoded = QFile::encodeName(path);
  if (encoded.isEmpty() || encoded.size() > kMaximumPathBytes || encoded.contains('\0'))
    return std::unexpected(
        QStringLiteral("\"%1\" bir soket yolu olamaz: en az 1, en çok %2 bayt olmalı. Daha kısa "
                       "bir yol seç.")
            .arg(path)
            .arg(kMaximumPathBytes));
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::memcpy(address.sun_path, encoded.constData(), static_cast<std::size_t>(encoded.size()));

  const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  std::unique_ptr<MpvConnection> connection;
  if (descriptor >= 0) connection.reset(new MpvConnection(descriptor));
  // A local connection is made at once or not at all.
  if (!connection ||
      ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    return std::unexpected(QStringLiteral("mpv'ye \"%1\" soketinden bağlanılamadı (%2). mpv'yi "
                                          "--input-ipc-server=%1 ile başlat.")
                               .arg(path, reasonOf(errno)));
  connection->readable_.setEnabled(true);
  return connection;
}

MpvConnection::MpvConnection(int descriptor)
    : descriptor_(descriptor),
      readable_(descriptor, QSocketNotifier::Read),
      writable_(descriptor, QSocketNotifier::Write) {
  readable_.setEnabled(false);
  writable_.setEnabled(false);
  connect(&readable_, &QSocketNotifier::activated, this, &MpvConnection::receive);
  connect(&writable_, &QSocketNotifier::activated, this, &MpvConnection::flush);
}

MpvConnection::~MpvConnection() {
  readable_.setEnabled(false);
  writable_.setEnabled(false);
  ::close(descriptor_);
}

void MpvConnection::send(const QJsonArray& command, ReplyHandler handler) {
  const qint64 requestId = ++lastRequestId_;
  if (handler) handlers_.insert(requestId, std::move(handler));
  const QJsonObject message{{QStringLiteral("command"), command},
                            {QStringLiteral("request_id"), requestId}};
  toSend_ += QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
  flush();
}

void MpvConnection::close() {
  if (!readable_.isEnabled()) return;
  readable_.setEnabled(false);
  writable_.setEnabled(false);
  handlers_.clear();
  QMetaObject::invokeMethod(this, &MpvConnection::closed, Qt::QueuedConnection);
}

void MpvConnection::flush() {
  if (!readable_.isEnabled()) return;
  while (!toSend_.isEmpty()) {
    const ssize_t sent = ::send(descriptor_, toSend_.constData(),
                                static_cast<std::size_t>(toSend_.size()), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent < 0 && errno == EAGAIN) break;
    if (sent < 0) return close();
    toSend_.remove(0, sent);
  }
  if (toSend_.size() > kMaximumBytes) return close();
  writable_.setEnabled(!toSend_.isEmpty());
}

void MpvConnection::receive() {
  std::array<char, 65536> chunk;
  const ssize_t count = ::recv(descriptor_, chunk.data(), chunk.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count <= 0) return close();
  received_.append(chunk.data(), count);

  // A handler may close the connection, or end its life.
  const QPointer<MpvConnection> alive(this);
  qsizetype begin = 0;
  for (qsizetype end = 0; (end = received_.indexOf('\n', begin)) >= 0; begin = end + 1) {
    const QByteArray line = received_.mid(begin, end - begin);
    const auto message = line.size() <= kMaximumBytes ? parseMpvMessage(line) : std::nullopt;
    if (!message) return close();
    handle(*message);
    if (!alive || !readable_.isEnabled()) return;
  }
  received_.remove(0, begin);
  if (received_.size() > kMaximumBytes) close();
}

void MpvConnection::handle(const MpvMessage& message) {
  if (const auto* event = std::get_if<MpvEvent>(&message)) {
    Q_EMIT eventReceived(*event);
  } else if (const ReplyHandler handler = handlers_.take(std::get<MpvReply>(message).requestId)) {
    handler(std::get<MpvReply>(message));
  }
}

}  // namespace orvex
