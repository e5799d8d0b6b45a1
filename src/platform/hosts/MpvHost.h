#pragma once

#include "platform/FCPXHost.h"
#include "platform/hosts/FrameRate.h"
#include "platform/hosts/MpvConnection.h"
#include "platform/hosts/TimelineObservers.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <bitset>
#include <chrono>
#include <memory>
#include <optional>

namespace orvex {

/// A running mpv as a host: the file it plays is the sequence. What it is asked for is answered
/// from its properties, which it reports as they change. Main thread only.
class MpvHost final : public QObject, public FCPXHost, private FCPXTimeline {
  Q_OBJECT

 public:
  /// How long the player may take to report itself, a file being loaded included.
  static constexpr std::chrono::milliseconds kReportDeadline{3000};
  /// How long the player may take to show a frame it was asked for.
  static constexpr std::chrono::milliseconds kSeekDeadline{5000};

  explicit MpvHost(std::unique_ptr<MpvConnection> connection);
  ~MpvHost() override;

  [[nodiscard]] QString name() const override;
  [[nodiscard]] QString versionString() const override;
  [[nodiscard]] QString bundleIdentifier() const override;
  [[nodiscard]] FCPXTimeline* timeline() override { return this; }

 Q_SIGNALS:
  /// The first complete state is known. Comes once, unless `lost` comes before.
  void ready();
  /// The player is gone, did not report in time or does not speak the protocol. From here on there
  /// is no sequence.
  void lost();

 private:
  enum Property : std::size_t {
    Version,
    Path,
    MediaTitle,
    FileName,
    IdleActive,
    KeepOpen,
    RebaseStartTime,
    StartTime,
    Duration,
    ContainerFps,
    // The last, because the player reports in this order: once it says where it is in a newly
    // loaded file, it has said the rest.
    TimePos,
    PropertyCount
  };
  struct Observed;
  static const std::array<Observed, PropertyCount> kObserved;

  /// Where the playhead is to be, and the time that makes the player show it.
  struct Target {
    MediaTime time;
    double seekSeconds = 0;
  };
  /// What has come of the seek that was sent last: accepted, begun, and done but for the reading of
  /// where it led.
  enum class Seek { None, Sent, Accepted, Begun, Done };

  [[nodiscard]] std::optional<FCPXSequence> activeSequence() const override;
  [[nodiscard]] MediaTime playheadTime() const override;
  [[nodiscard]] MediaTimeRange sequenceTimeRange() const override;
  void addTimelineObserver(FCPXTimelineObserver* observer) override { observers_.add(observer); }
  void removeTimelineObserver(FCPXTimelineObserver* observer) override {
    observers_.remove(observer);
  }
  void movePlayheadTo(MediaTime time) override;

  [[nodiscard]] bool isOpen() const;
  [[nodiscard]] std::optional<FrameRate> frameRate() const;
  [[nodiscard]] double startSeconds() const;
  [[nodiscard]] MediaTime duration() const;
  [[nodiscard]] MediaTime timeOfFrame(const FrameRate& rate, std::int64_t frame) const;
  [[nodiscard]] Target target(double seconds) const;

  void handleEvent(const MpvEvent& event);
  void setProperty(std::size_t index, const QJsonValue& value);
  void checkReady();
  void startSeek();
  void readPosition();
  void settle();
  void endMove();
  void handleClosed();

  std::unique_ptr<MpvConnection> connection_;
  std::array<QJsonValue, PropertyCount> values_;
  std::bitset<PropertyCount> answered_;
  bool ready_ = false;
  QTimer reportDeadline_;

  // A move that is under way. One seek is in flight at a time; `wanted_` may be newer than it.
  std::optional<Target> wanted_;
  double soughtSeconds_ = 0;
  Seek seek_ = Seek::None;
  quint64 seekNumber_ = 0;
  QTimer seekDeadline_;

  TimelineObservers observers_;
};

}  // namespace orvex
