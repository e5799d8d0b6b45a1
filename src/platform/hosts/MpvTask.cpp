#include "platform/hosts/MpvTask.h"

namespace orvex {

MpvTask::MpvTask(std::unique_ptr<MpvConnection> connection, Done done, QObject* parent,
                 std::chrono::milliseconds limit)
    : QObject(parent), connection_(std::move(connection)), done_(std::move(done)) {
  connect(connection_.get(), &MpvConnection::closed, this,
          [this] { fail(QStringLiteral("mpv bağlantıyı kapattı; komut tamamlanmadı.")); });
  deadline_.setSingleShot(true);
  connect(&deadline_, &QTimer::timeout, this,
          [this] { fail(QStringLiteral("mpv süresi içinde yanıt vermedi.")); });
  deadline_.start(limit);
}

void MpvTask::ask(QStringView property, Then then) {
  connection_->send({QStringLiteral("get_property"), property.toString()},
                    [this, then = std::move(then)](const MpvReply& reply) {
                      if (isRunning()) then(reply.data);
                    });
}

void MpvTask::run(const QJsonArray& command, Then then) {
  connection_->send(command, [this, then = std::move(then)](const MpvReply& reply) {
    if (!isRunning()) return;
    if (!reply.succeeded())
      return fail(QStringLiteral("mpv komutu yerine getiremedi (%1).").arg(reply.error));
    then(reply.data);
  });
}

void MpvTask::finish(std::expected<QString, QString> outcome) {
  if (!isRunning()) return;
  deadline_.stop();
  deleteLater();
  std::exchange(done_, nullptr)(std::move(outcome));
}

}  // namespace orvex
