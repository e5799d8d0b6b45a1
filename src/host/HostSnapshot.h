#pragma once

#include <QObject>
#include <QString>

namespace orvex {

/// The last known state of the host and its timeline. Times are in seconds.
struct HostSnapshot {
  Q_GADGET
  Q_PROPERTY(bool connected MEMBER connected)
  Q_PROPERTY(QString hostName MEMBER hostName)
  Q_PROPERTY(QString hostVersion MEMBER hostVersion)
  Q_PROPERTY(QString bundleIdentifier MEMBER bundleIdentifier)
  Q_PROPERTY(bool sequenceAvailable MEMBER sequenceAvailable)
  Q_PROPERTY(QString sequenceName MEMBER sequenceName)
  Q_PROPERTY(double sequenceStartSeconds MEMBER sequenceStartSeconds)
  Q_PROPERTY(double sequenceDurationSeconds MEMBER sequenceDurationSeconds)
  Q_PROPERTY(double frameDurationSeconds MEMBER frameDurationSeconds)
  Q_PROPERTY(double fps MEMBER fps)
  Q_PROPERTY(double playheadSeconds MEMBER playheadSeconds)

 public:
  /// A host object was obtained.
  bool connected = false;
  QString hostName = QStringLiteral("Final Cut Pro");
  QString hostVersion = QStringLiteral("—");
  QString bundleIdentifier = QStringLiteral("—");
  /// A sequence, or a timeline range of positive length, is open.
  bool sequenceAvailable = false;
  QString sequenceName = QStringLiteral("NO SEQUENCE");
  double sequenceStartSeconds = 0;
  double sequenceDurationSeconds = 0;
  /// 0 when unknown.
  double frameDurationSeconds = 0;
  /// Frames per second, the reciprocal of `frameDurationSeconds`; 0 when unknown.
  double fps = 0;
  double playheadSeconds = 0;

  /// The snapshot shown while no host is reachable; the same as a default-constructed one.
  [[nodiscard]] static HostSnapshot disconnected() { return {}; }

  friend bool operator==(const HostSnapshot&, const HostSnapshot&) = default;
};

}  // namespace orvex
