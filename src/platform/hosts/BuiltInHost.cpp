#include "platform/hosts/BuiltInHost.h"

#include "platform/TimelineActions.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvex {
namespace {

constexpr std::array<FrameRate, 8> kRates{
    {{24000, 1001}, {24, 1}, {25, 1}, {30000, 1001}, {30, 1}, {50, 1}, {60000, 1001}, {60, 1}}};
constexpr double kLengthSeconds = 60;

const FrameRate* findRate(const QString& text) {
  const auto found = std::ranges::find(kRates, text, &FrameRate::text);
  return found == kRates.end() ? nullptr : found;
}

struct ClipBeginning {
  double seconds;
  QString name;
};

const std::array<ClipBeginning, 6>& clipBeginnings() {
  static const std::array<ClipBeginning, 6> beginnings{{
      {0, QStringLiteral("Açılış")},
      {8, QStringLiteral("Röportaj 1")},
      {21, QStringLiteral("Sokak, gündüz")},
      {30, QStringLiteral("Sahil, hava çekimi")},
      {41, QStringLiteral("Röportaj 2")},
      {53, QStringLiteral("Kapanış")},
  }};
  return beginnings;
}

}  // namespace

BuiltInHost::BuiltInHost(const QString& rate) {
  if (const FrameRate* known = findRate(rate)) rate_ = *known;
  tick_.setSingleShot(true);
  tick_.setTimerType(Qt::PreciseTimer);
  connect(&tick_, &QTimer::timeout, this, &BuiltInHost::advance);
}

QString BuiltInHost::name() const {
  return QStringLiteral("Orvex Built-in Host");
}
QString BuiltInHost::versionString() const {
  return QStringLiteral("1.0");
}
QString BuiltInHost::bundleIdentifier() const {
  return QStringLiteral("com.vantrelo.orvex.builtin-host");
}

QStringList BuiltInHost::frameRates() {
  QStringList rates;
  for (const FrameRate& rate : kRates) rates.append(rate.text());
  return rates;
}

QString BuiltInHost::sequenceName() const {
  return QStringLiteral("Orvex Demo");
}

void BuiltInHost::setFrameRate(const QString& rate) {
  const FrameRate* known = findRate(rate);
  if (known == nullptr || *known == rate_) return;
  const FrameRate old = std::exchange(rate_, *known);
  const auto converted = [&](std::int64_t frame) {
    return std::min(rate_.frameNearest(old.timeOfFrame(frame).seconds()), frameCount());
  };
  frame_ = converted(frame_);
  std::ranges::transform(speedPoints_, speedPoints_.begin(), converted);
  speedPoints_.erase(std::unique(speedPoints_.begin(), speedPoints_.end()), speedPoints_.end());
  if (playing_) restartClock();
  observers_.changed(TimelineObservers::ActiveSequence);
  observers_.changed(TimelineObservers::Playhead);
  Q_EMIT frameRateChanged();
  Q_EMIT clipsChanged();
  Q_EMIT playheadChanged();
  Q_EMIT speedPointsChanged();
}

std::int64_t BuiltInHost::frameCount() const noexcept {
  return rate_.frameNearest(kLengthSeconds);
}

double BuiltInHost::durationSeconds() const {
  return rate_.timeOfFrame(frameCount()).seconds();
}

void BuiltInHost::setPlaying(bool playing) {
  if (playing_ == playing) return;
  playing_ = playing;
  if (playing_) {
    if (frame_ == frameCount()) showFrame(0);
    restartClock();
  } else {
    tick_.stop();
  }
  Q_EMIT playingChanged();
}

void BuiltInHost::setSpeedPercent(int percent) {
  percent = std::clamp(percent, 1, 10000);
  if (speedPercent_ == percent) return;
  speedPercent_ = percent;
  if (playing_) restartClock();
  Q_EMIT speedPercentChanged();
}

QVariantList BuiltInHost::speedPoints() const {
  QVariantList seconds;
  for (const std::int64_t frame : speedPoints_) seconds.append(rate_.timeOfFrame(frame).seconds());
  return seconds;
}

QVariantList BuiltInHost::clips() const {
  QVariantList clips;
  const auto& beginnings = clipBeginnings();
  for (std::size_t i = 0; i < beginnings.size(); ++i) {
    const std::int64_t begin = rate_.frameNearest(beginnings[i].seconds);
    const std::int64_t end =
        i + 1 < beginnings.size() ? rate_.frameNearest(beginnings[i + 1].seconds) : frameCount();
    clips.append(QVariant::fromValue(BuiltInClip{
        beginnings[i].name, rate_.timeOfFrame(begin).seconds(),
        rate_.timeOfFrame(end - begin).seconds(), luts_.value(static_cast<qsizetype>(i))}));
  }
  return clips;
}

bool BuiltInHost::performTimelineAction(const QString& action) {
  if (action == kToggleRetime) {
    retimeEditorOpen_ = !retimeEditorOpen_;
    Q_EMIT retimeEditorOpenChanged();
    return true;
  }
  if (action == kBladeSpeed) {
    const auto place = std::ranges::lower_bound(speedPoints_, frame_);
    if (place == speedPoints_.end() || *place != frame_) {
      speedPoints_.insert(place, frame_);
      Q_EMIT speedPointsChanged();
    }
    return true;
  }
  if (action == kNormalSpeed) {
    setSpeedPercent(100);
    if (!speedPoints_.isEmpty()) {
      speedPoints_.clear();
      Q_EMIT speedPointsChanged();
    }
    return true;
  }
  return false;
}

QString BuiltInHost::applyLUT(const QString& name) {
  const auto& beginnings = clipBeginnings();
  const auto next = std::ranges::upper_bound(
      beginnings, frame_, {},
      [this](const ClipBeginning& clip) { return rate_.frameNearest(clip.seconds); });
  const auto index = std::distance(beginnings.begin(), next) - 1;
  luts_.resize(static_cast<qsizetype>(beginnings.size()));
  luts_[index] = name;
  Q_EMIT clipsChanged();
  return std::prev(next)->name;
}

void BuiltInHost::seek(double seconds) {
  if (std::isnan(seconds)) return;
  showFrame(std::clamp(rate_.frameNearest(seconds), std::int64_t{0}, frameCount()));
  if (playing_) restartClock();
}

std::optional<FCPXSequence> BuiltInHost::activeSequence() const {
  const MediaTimeRange range = sequenceTimeRange();
  return FCPXSequence{sequenceName(), range.start, range.duration, rate_.frameDuration()};
}

MediaTimeRange BuiltInHost::sequenceTimeRange() const {
  return {rate_.timeOfFrame(0), rate_.timeOfFrame(frameCount())};
}

void BuiltInHost::movePlayheadTo(MediaTime time) {
  seek(time.seconds());
  // A move that leads nowhere ends as well.
  observers_.changed(TimelineObservers::Playhead);
}

void BuiltInHost::showFrame(std::int64_t frame) {
  if (frame_ == frame) return;
  frame_ = frame;
  observers_.changed(TimelineObservers::Playhead);
  Q_EMIT playheadChanged();
}

void BuiltInHost::restartClock() {
  clockFrame_ = frame_;
  clock_.start();
  advance();
}

void BuiltInHost::advance() {
  const double framesPerSecond = rate_.framesPerSecond() * speedPercent_ / 100;
  const double seconds = static_cast<double>(clock_.nsecsElapsed()) / 1e9;
  const auto passed = static_cast<std::int64_t>(seconds * framesPerSecond);
  showFrame(std::min(clockFrame_ + passed, frameCount()));
  if (frame_ == frameCount()) {
    setPlaying(false);
    return;
  }
  // Wakes at the next frame, but no more often than observers are told.
  const double wait = static_cast<double>(passed + 1) / framesPerSecond - seconds;
  tick_.start(std::max(TimelineObservers::kInterval,
                       std::chrono::milliseconds(static_cast<int>(std::ceil(wait * 1000)))));
}

}  // namespace orvex
