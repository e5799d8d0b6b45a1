#pragma once

#include "platform/FCPXHost.h"
#include "platform/hosts/FrameRate.h"
#include "platform/hosts/TimelineObservers.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVariantList>

namespace orvex {

/// A clip of the built-in host's sequence. Times are in seconds.
struct BuiltInClip {
  Q_GADGET
  Q_PROPERTY(QString name MEMBER name CONSTANT)
  Q_PROPERTY(double start MEMBER start CONSTANT)
  Q_PROPERTY(double duration MEMBER duration CONSTANT)
  Q_PROPERTY(QString lut MEMBER lut CONSTANT)

 public:
  QString name;
  double start = 0;
  double duration = 0;
  /// The name of the LUT that was applied to it last; empty without one.
  QString lut;
};

/// A host in the panel's own process: a sequence of about a minute with a clock that plays it, and
/// the timeline commands done visibly. The playhead always stands at the beginning of a frame, or,
/// after the last one, at the very end. Main thread only.
class BuiltInHost : public QObject, public FCPXHost, private FCPXTimeline {
  Q_OBJECT
  Q_PROPERTY(QString sequenceName READ sequenceName CONSTANT FINAL)
  Q_PROPERTY(QStringList frameRates READ frameRates CONSTANT FINAL)
  Q_PROPERTY(QString frameRate READ frameRate WRITE setFrameRate NOTIFY frameRateChanged FINAL)
  Q_PROPERTY(double frameDurationSeconds READ frameDurationSeconds NOTIFY frameRateChanged FINAL)
  Q_PROPERTY(double durationSeconds READ durationSeconds NOTIFY frameRateChanged FINAL)
  Q_PROPERTY(double playheadSeconds READ playheadSeconds NOTIFY playheadChanged FINAL)
  Q_PROPERTY(bool playing READ playing WRITE setPlaying NOTIFY playingChanged FINAL)
  Q_PROPERTY(bool retimeEditorOpen READ retimeEditorOpen NOTIFY retimeEditorOpenChanged FINAL)
  Q_PROPERTY(
      int speedPercent READ speedPercent WRITE setSpeedPercent NOTIFY speedPercentChanged FINAL)
  Q_PROPERTY(QVariantList speedPoints READ speedPoints NOTIFY speedPointsChanged FINAL)
  Q_PROPERTY(QVariantList clips READ clips NOTIFY clipsChanged FINAL)

 public:
  /// `rate` is one of `frameRates`; anything else counts as 25.
  explicit BuiltInHost(const QString& rate = QStringLiteral("25"));

  [[nodiscard]] QString name() const override;
  [[nodiscard]] QString versionString() const override;
  [[nodiscard]] QString bundleIdentifier() const override;
  [[nodiscard]] FCPXTimeline* timeline() override { return this; }

  [[nodiscard]] static QStringList frameRates();

  [[nodiscard]] QString sequenceName() const;
  [[nodiscard]] QString frameRate() const { return rate_.text(); }
  /// Takes one of `frameRates`, ignores anything else. Playhead and speed points move to the
  /// nearest frames.
  void setFrameRate(const QString& rate);
  [[nodiscard]] double frameDurationSeconds() const { return rate_.frameDuration().seconds(); }
  [[nodiscard]] double durationSeconds() const;
  [[nodiscard]] double playheadSeconds() const { return playheadTime().seconds(); }
  [[nodiscard]] bool playing() const noexcept { return playing_; }
  /// Playing stops at the end; from there it begins again at the start.
  void setPlaying(bool playing);
  [[nodiscard]] bool retimeEditorOpen() const noexcept { return retimeEditorOpen_; }
  /// The pace of the clock.
  [[nodiscard]] int speedPercent() const noexcept { return speedPercent_; }
  /// `percent` is brought into 1 to 10,000.
  void setSpeedPercent(int percent);
  /// Seconds (double), ascending.
  [[nodiscard]] QVariantList speedPoints() const;
  /// `BuiltInClip`s, one after another over the whole sequence.
  [[nodiscard]] QVariantList clips() const;

  /// One of `kTimelineActions`; false for anything else.
  Q_INVOKABLE bool performTimelineAction(const QString& action);
  /// Puts the LUT called `name` on the clip under the playhead, in place of the one before; returns
  /// the clip's name. The host has no picture that it could change.
  Q_INVOKABLE QString applyLUT(const QString& name);
  /// Moves to the frame nearest to `seconds` within the sequence; not-a-number is ignored.
  Q_INVOKABLE void seek(double seconds);

 Q_SIGNALS:
  void frameRateChanged();
  void playheadChanged();
  void playingChanged();
  void retimeEditorOpenChanged();
  void speedPercentChanged();
  void speedPointsChanged();
  void clipsChanged();

 private:
  [[nodiscard]] std::optional<FCPXSequence> activeSequence() const override;
  [[nodiscard]] MediaTime playheadTime() const override { return rate_.timeOfFrame(frame_); }
  [[nodiscard]] MediaTimeRange sequenceTimeRange() const override;
  void addTimelineObserver(FCPXTimelineObserver* observer) override { observers_.add(observer); }
  void removeTimelineObserver(FCPXTimelineObserver* observer) override {
    observers_.remove(observer);
  }
  void movePlayheadTo(MediaTime time) override;

  [[nodiscard]] std::int64_t frameCount() const noexcept;
  void showFrame(std::int64_t frame);
  void advance();
  void restartClock();

  FrameRate rate_;
  std::int64_t frame_ = 0;
  bool playing_ = false;
  bool retimeEditorOpen_ = false;
  int speedPercent_ = 100;
  /// Frames, ascending, each once.
  QList<std::int64_t> speedPoints_;
  /// Of the clips, in their order.
  QStringList luts_;
  TimelineObservers observers_;

  // The clock: `clock_` runs since the playhead stood at `clockFrame_`, at an unchanged pace.
  std::int64_t clockFrame_ = 0;
  QElapsedTimer clock_;
  QTimer tick_;
};

}  // namespace orvex
