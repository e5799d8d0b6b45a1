#pragma once

#include <QStringList>

#include <expected>

namespace orvex {

/// What `orvex host` is asked to do.
struct HostRequest {
  enum class Verb { Status, Start, End, Seconds, Frames, Action };

  Verb verb = Verb::Status;
  /// How far to move, in seconds; finite.
  double seconds = 0;
  /// How far to move, in frames.
  qint64 frames = 0;
  /// One of `kTimelineActions`.
  QString action{};
  bool json = false;

  /// Reads the arguments after "host"; the error, in Turkish, says what can be written.
  [[nodiscard]] static std::expected<HostRequest, QString> parse(const QStringList& arguments);
  /// What `parse` reads.
  [[nodiscard]] static QString usage();

  friend bool operator==(const HostRequest&, const HostRequest&) = default;
};

}  // namespace orvex
