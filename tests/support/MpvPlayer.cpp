#include "support/MpvPlayer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

#include <array>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orvex {
namespace {

const QStringList kQuiet{QStringLiteral("--no-config"), QStringLiteral("--really-quiet")};

int connectTo(const QByteArray& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
  const QDeadlineTimer deadline(10'000);
  while (!deadline.hasExpired()) {
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
      return descriptor;
    ::close(descriptor);
    QThread::msleep(2);
  }
  qFatal("no player listens at %s", path.constData());
}

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
  descriptor_ = connectTo(QFile::encodeName(socketPath()));
}

void MpvPlayer::kill() {
  process_.kill();
  process_.waitForFinished();
  ::close(std::exchange(descriptor_, -1));
  received_.clear();
}

QJsonValue MpvPlayer::command(const QJsonArray& command, QString* error) {
  const QByteArray message = QJsonDocument(QJsonObject{{QStringLiteral("command"), command},
                                                       {QStringLiteral("request_id"), 1}})
                                 .toJson(QJsonDocument::Compact) +
                             '\n';
  if (::send(descriptor_, message.constData(), static_cast<std::size_t>(message.size()),
             MSG_NOSIGNAL) != message.size())
    qFatal("the player takes no command");
  for (;;) {
    qsizetype end = 0;
    while ((end = received_.indexOf('\n')) < 0) {
      std::array<char, 4096> chunk;
      const ssize_t count = ::recv(descriptor_, chunk.data(), chunk.size(), 0);
      if (count <= 0) qFatal("the player hung up");
      received_.append(chunk.data(), count);
    }
    const QJsonObject reply = QJsonDocument::fromJson(received_.first(end)).object();
    received_.remove(0, end + 1);
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
