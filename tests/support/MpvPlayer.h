#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <QLocalSocket>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace orvex {

/// A real mpv without picture and sound, paused, and a connection to it that is nobody else's. A
/// player that does not do what a test needs of it ends the test program.
class MpvPlayer {
 public:
  /// Starts it with `arguments` (options, files) and waits until it listens.
  explicit MpvPlayer(const QStringList& arguments = {});
  ~MpvPlayer();

  [[nodiscard]] QString socketPath() const;

  void start();
  /// Ends it at once, its socket's file left behind.
  void kill();

  /// Runs a command; returns the reply's "data". `error` gets "success" or the player's words.
  QJsonValue command(const QJsonArray& command, QString* error = nullptr);
  [[nodiscard]] QJsonValue property(const QString& name);

 private:
  QTemporaryDir folder_;
  QStringList arguments_;
  QProcess process_;
  QLocalSocket socket_;
};

/// A clip of ten seconds at `rate` ("24000/1001") in the container `format`, one of
/// those that CMakeLists.txt makes. "mpegts" stores how long the last frame is, "nut" does not.
[[nodiscard]] QString testClip(const QString& rate,
                               const QString& format = QStringLiteral("mpegts"));

}  // namespace orvex
