#include "support/MpvPlayer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

namespace orvex {
namespace {

const QStringList kQuiet{QStringLiteral("--no-config"), QStringLiteral("--really-quiet")};

}  // namespace

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
  QStringList arguments = kQuiet;
  arguments += {QStringLiteral("--idle=yes"), QStringLiteral("--keep-open=yes"),
                QStringLiteral("--vo=null"),  QStringLiteral("--ao=null"),
                QStringLiteral("--pause"),    QStringLiteral("--input-ipc-server=") + socketPath()};
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
  const QDir folder(QStringLiteral(ORVEX_TEST_CLIPS));
  folder.mkpath(QStringLiteral("."));
  QString name = rate + u'.' + format;
  const QString path = folder.filePath(name.replace(u'/', u'-'));
  if (QFile::exists(path)) return path;
  // Tests that run at the same time may make the same clip; each renames its own.
  const QString part = path + QString::number(QCoreApplication::applicationPid());
  QProcess encoder;
  encoder.setProcessChannelMode(QProcess::ForwardedChannels);
  encoder.start(
      QStringLiteral("mpv"),
      kQuiet +
          QStringList{QStringLiteral("av://lavfi:testsrc2=size=64x36:duration=10:rate=") + rate,
                      QStringLiteral("--o=") + part, QStringLiteral("--of=") + format,
                      QStringLiteral("--ovc=mpeg4"), QStringLiteral("--no-audio")});
  encoder.waitForFinished();
  if (encoder.exitCode() != 0) qFatal("the player cannot make a clip");
  std::ignore = std::rename(qPrintable(part), qPrintable(path));
  return path;
}

}  // namespace orvex
