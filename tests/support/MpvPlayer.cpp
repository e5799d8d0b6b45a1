#include "support/MpvPlayer.h"

#include <QDeadlineTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

namespace orvex {
MpvPlayer::MpvPlayer(const QStringList& arguments) : arguments_(arguments) {
  start();
}

MpvPlayer::~MpvPlayer() {
  kill();
}

QString MpvPlayer::socketPath() const {
  return folder_.filePath(QStringLiteral("mpv.sock"));
}

void MpvPlayer::start() {
  const QString options = QStringLiteral(
      "--no-config --really-quiet --idle=yes --keep-open=yes --vo=null --ao=null --pause");
  const QStringList arguments = options.split(u' ')
                                << QStringLiteral("--input-ipc-server=") + socketPath();
  process_.setProcessChannelMode(QProcess::ForwardedChannels);
  process_.start(QStringLiteral("mpv"), arguments + arguments_);
  const QDeadlineTimer deadline(10'000);
  do {
    QThread::msleep(2);
    socket_.connectToServer(socketPath());
  } while (!socket_.waitForConnected() && !deadline.hasExpired());
}

void MpvPlayer::kill() {
  process_.kill();
  process_.waitForFinished();
  socket_.abort();
}

QJsonValue MpvPlayer::command(const QJsonArray& command, QString* error) {
  const QJsonObject message{{QStringLiteral("command"), command},
                            {QStringLiteral("request_id"), 1}};
  socket_.write(QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n');
  for (;;) {
    while (!socket_.canReadLine())
      if (!socket_.waitForReadyRead()) qFatal("the player does not answer");
    const QJsonObject reply = QJsonDocument::fromJson(socket_.readLine()).object();
    if (!reply.contains(u"request_id")) continue;
    if (error != nullptr) *error = reply.value(u"error").toString();
    return reply.value(u"data");
  }
}

QJsonValue MpvPlayer::property(const QString& name) {
  return command({QStringLiteral("get_property"), name});
}

QString testClip(const QString& rate, const QString& format) {
  return QStringLiteral(ORVEX_TEST_CLIPS "/") + QString(rate).replace(u'/', u'-') + u'.' + format;
}

}  // namespace orvex
