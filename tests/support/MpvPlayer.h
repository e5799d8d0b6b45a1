#pragma once

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

namespace orvex {

/// A real mpv without picture and sound, paused, and a connection to it that is nobody else's. A
/// player that does not do what a test needs of it ends the test program.
class MpvPlayer {
 public:
  /// Starts it with `arguments` (options, files) and waits until it listens.
  explicit MpvPlayer(const QStringList& arguments = {}) : arguments_(arguments) { start(); }
  ~MpvPlayer() { kill(); }

  [[nodiscard]] QString socketPath() const { return folder_.filePath(QStringLiteral("mpv.sock")); }

  void start() {
    const QString options = QStringLiteral(
        "--no-config --really-quiet --idle=yes --keep-open=yes --vo=null --ao=null --pause");
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    process_.start(QStringLiteral("mpv"),
                   options.split(u' ')
                       << QStringLiteral("--input-ipc-server=") + socketPath() << arguments_);
    const QDeadlineTimer deadline(10'000);
    do {
      QThread::msleep(2);
      socket_.connectToServer(socketPath());
    } while (!socket_.waitForConnected() && !deadline.hasExpired());
  }
  /// Ends it at once, its socket's file left behind.
  void kill() {
    process_.kill();
    process_.waitForFinished();
    socket_.abort();
  }

  /// Runs a command; returns the reply's "data", null where it was refused.
  QJsonValue command(const QJsonArray& command) {
    const QJsonObject message{{QStringLiteral("command"), command},
                              {QStringLiteral("request_id"), 1}};
    socket_.write(QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n');
    for (;;) {
      while (!socket_.canReadLine())
        if (!socket_.waitForReadyRead()) qFatal("the player does not answer");
      const QJsonObject reply = QJsonDocument::fromJson(socket_.readLine()).object();
      if (reply.contains(u"request_id")) return reply[u"data"];
    }
  }
  [[nodiscard]] QJsonValue property(const QString& name) {
    return command({QStringLiteral("get_property"), name});
  }

 private:
  QTemporaryDir folder_;
  QStringList arguments_;
  QProcess process_;
  QLocalSocket socket_;
};

/// A clip of ten seconds at `rate` ("24000/1001") in the container `format`, one of
/// those that CMakeLists.txt makes. "mpegts" stores how long the last frame is, "nut" does not.
[[nodiscard]] inline QString testClip(const QString& rate,
                                      const QString& format = QStringLiteral("mpegts")) {
  return QStringLiteral(ORVEX_TEST_CLIPS "/") + QString(rate).replace(u'/', u'-') + u'.' + format;
}

}  // namespace orvex
