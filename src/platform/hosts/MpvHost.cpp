#include "platform/hosts/MpvHost.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvex {
namespace {

// What the player resolves times to.
constexpr std::int32_t kMicroseconds = 1'000'000;

// An exact seek of the player shows the first frame that begins no earlier than this before the
// time asked for.
constexpr double kSeekTolerance = 0.005;

// Containers round the times they store, some to milliseconds.
constexpr double kTimestampError = 0.001;

MediaTime timeFromSeconds(double seconds) {
  return MediaTime::fromSeconds(seconds, kMicroseconds);
}

MediaTime timeFromValue(const QJsonValue& value) {
  return value.isDouble() ? timeFromSeconds(value.toDouble()) : MediaTime();
}

}  // namespace

struct MpvHost::Observed {
  QLatin1StringView name;
  TimelineObservers::Change change;
};

// In the order of `Property`.
constexpr std::array<MpvHost::Observed, MpvHost::PropertyCount> MpvHost::kObserved{{
    {QLatin1StringView("mpv-version"), TimelineObservers::ActiveSequence},
    {QLatin1StringView("path"), TimelineObservers::ActiveSequence},
    {QLatin1StringView("media-title"), TimelineObservers::ActiveSequence},
    {QLatin1StringView("filename/no-ext"), TimelineObservers::ActiveSequence},
    {QLatin1StringView("idle-active"), TimelineObservers::ActiveSequence},
    {QLatin1StringView("options/keep-open"), TimelineObservers::TimeRange},
    {QLatin1StringView("options/rebase-start-time"), TimelineObservers::TimeRange},
    {QLatin1StringView("demuxer-start-time"), TimelineObservers::TimeRange},
    {QLatin1StringView("duration"), TimelineObservers::TimeRange},
    {QLatin1StringView("container-fps"), TimelineObservers::ActiveSequence},
    {QLatin1StringView("time-pos"), TimelineObservers::Playhead},
}};

MpvHost::MpvHost(std::unique_ptr<MpvConnection> connection) : connection_(std::move(connection)) {
  connect(connection_.get(), &MpvConnection::eventReceived, this, &MpvHost::handleEvent);
  connect(connection_.get(), &MpvConnection::closed, this, &MpvHost::handleClosed);
  reportDeadline_.setSingleShot(true);
  seekDeadline_.setSingleShot(true);
  connect(&reportDeadline_, &QTimer::timeout, this, &MpvHost::checkReady);
  connect(&seekDeadline_, &QTimer::timeout, this, &MpvHost::endMove);
  reportDeadline_.start(kReportDeadline);
  for (std::size_t i = 0; i < PropertyCount; ++i)
    connection_->send(
        {QStringLiteral("observe_property"), static_cast<int>(i) + 1, QString(kObserved[i].name)});
}

MpvHost::~MpvHost() = default;

QString MpvHost::name() const {
  return QStringLiteral("mpv");
}
// The player puts its name before its version, as in "mpv 0.35.1".
QString MpvHost::versionString() const {
  const QString version = values_[Version].toString();
  const QString prefix = name() + u' ';
  return version.startsWith(prefix) ? version.mid(prefix.size()) : version;
}
QString MpvHost::bundleIdentifier() const {
  return QStringLiteral("io.mpv.Mpv");
}

bool MpvHost::isOpen() const {
  return values_[Path].isString() && !values_[IdleActive].toBool();
}

std::optional<FrameRate> MpvHost::frameRate() const {
  return FrameRate::fromContainer(values_[ContainerFps].toDouble());
}

// `time-pos` and seeks count from the same origin. With `rebase-start-time`, the player's default,
// that is the beginning of the file, whatever `demuxer-start-time` says; without it, both count
// from zero of the file's own times, and the file begins at `demuxer-start-time` (seen with version
// 0.35.1 on a transport stream that begins at 4.8 s: 0 to 5.16 s with it, 4.8 to 9.96 s without).
double MpvHost::startSeconds() const {
  return values_[RebaseStartTime].toBool(true) ? 0 : values_[StartTime].toDouble();
}

// Exact where the file begins at zero, as it does but for the case above.
MediaTime MpvHost::timeOfFrame(const FrameRate& rate, std::int64_t frame) const {
  const MediaTime time = rate.timeOfFrame(frame);
  const double start = startSeconds();
  return start == 0 ? time : timeFromSeconds(start + time.seconds());
}

// In whole frames where the container means them.
MediaTime MpvHost::duration() const {
  const MediaTime time = timeFromValue(values_[Duration]);
  const auto rate = frameRate();
  if (!rate || !time.isNumber()) return time;
  const MediaTime frames = rate->timeOfFrame(rate->frameNearest(time.seconds()));
  return std::abs(frames.seconds() - time.seconds()) <= kTimestampError ? frames : time;
}

std::optional<FCPXSequence> MpvHost::activeSequence() const {
  if (!isOpen()) return std::nullopt;
  const QString title = values_[MediaTitle].toString();
  const auto rate = frameRate();
  return FCPXSequence{title.isEmpty() ? values_[FileName].toString() : title,
                      timeFromSeconds(startSeconds()), duration(),
                      rate ? rate->frameDuration() : MediaTime()};
}

MediaTimeRange MpvHost::sequenceTimeRange() const {
  if (!isOpen()) return {};
  return {timeFromSeconds(startSeconds()), duration()};
}

MediaTime MpvHost::playheadTime() const {
  if (wanted_) return wanted_->time;
  const QJsonValue& position = values_[TimePos];
  const auto rate = frameRate();
  if (!position.isDouble() || !rate) return timeFromValue(position);
  return timeOfFrame(*rate, rate->frameNearest(position.toDouble() - startSeconds()));
}

MpvHost::Target MpvHost::target(double seconds) const {
  const double start = startSeconds();
  const double length =
      std::max(values_[Duration].toDouble(std::numeric_limits<double>::infinity()), 0.0);
  const auto rate = frameRate();
  if (!rate) {
    const double time = std::clamp(seconds, start, start + length);
    return {timeFromSeconds(time), time};
  }
  // Nothing begins at `end` in a file whose duration is right. Some tell a duration that lacks the
  // last frame; a player that stays open at the end finds that frame there, or stays at the one
  // before. A player that does not would close the file. Where it stands already, there is a frame.
  const double fps = rate->framesPerSecond();
  const auto end =
      static_cast<std::int64_t>(std::floor(std::min((length + kTimestampError) * fps, 9e15)));
  const std::int64_t here = rate->frameNearest(values_[TimePos].toDouble(start) - start);
  const std::int64_t last = std::max({end - 1, std::min(here, end), std::int64_t{0}});
  const bool staysOpen = values_[KeepOpen].isString() || values_[KeepOpen].toBool();
  const std::int64_t frame = std::clamp(rate->frameNearest(seconds - start), std::int64_t{0},
                                        staysOpen ? std::max(end, last) : last);
  // Aimed between this frame and the one before, so that the frame that counts as this one is the
  // first that is not too early: also when files store their times rounded or a little late, and
  // when frames are shorter than the tolerance (at 240 frames a second, aiming at the frame's own
  // time shows the one before).
  const double between = (static_cast<double>(frame) - 0.5) / fps + kSeekTolerance;
  return {timeOfFrame(*rate, std::min(frame, last)), start + std::max(between, 0.0)};
}

void MpvHost::movePlayheadTo(MediaTime time) {
  const double seconds = time.seconds();
  if (!isOpen() || std::isnan(seconds)) {
    observers_.changed(TimelineObservers::Playhead);
    return;
  }
  wanted_ = target(seconds);
  // What observers would be told of now is not where this move ends.
  observers_.withdrawPlayhead();
  if (seek_ == Seek::None) startSeek();
}

void MpvHost::startSeek() {
  seek_ = Seek::Sent;
  soughtSeconds_ = wanted_->seekSeconds;
  seekDeadline_.start(kSeekDeadline);
  connection_->send({QStringLiteral("seek"), soughtSeconds_, QStringLiteral("absolute+exact")},
                    [this, number = ++seekNumber_](const MpvReply& reply) {
                      if (number != seekNumber_ || seek_ != Seek::Sent) return;
                      if (reply.succeeded())
                        seek_ = Seek::Accepted;
                      else
                        endMove();
                    });
}

// The position is asked for: its own change may be reported after the event, or not at all when it
// is the same as before.
void MpvHost::readPosition() {
  seek_ = Seek::Done;
  connection_->send({QStringLiteral("get_property"), QString(kObserved[TimePos].name)},
                    [this, number = seekNumber_](const MpvReply& reply) {
                      if (number != seekNumber_ || seek_ != Seek::Done) return;
                      values_[TimePos] = reply.data;
                      settle();
                    });
}

void MpvHost::settle() {
  if (wanted_->seekSeconds == soughtSeconds_)
    endMove();
  else
    startSeek();
}

void MpvHost::endMove() {
  wanted_.reset();
  seek_ = Seek::None;
  seekDeadline_.stop();
  observers_.changed(TimelineObservers::Playhead);
}

void MpvHost::handleEvent(const MpvEvent& event) {
  if (event.name == u"property-change") {
    const auto index = static_cast<std::size_t>(event.observerId) - 1;
    if (index < PropertyCount) setProperty(index, event.data);
  } else if (event.name == u"seek") {
    if (seek_ == Seek::Accepted) seek_ = Seek::Begun;
  } else if (event.name == u"playback-restart") {
    // Only the seek's own: one that the player began before may end in between.
    if (seek_ == Seek::Begun) readPosition();
  } else if (event.name == u"end-file") {
    if (wanted_) endMove();
  } else if (event.name == u"shutdown") {
    connection_->close();
  }
}

void MpvHost::setProperty(std::size_t index, const QJsonValue& value) {
  const MediaTime playhead = playheadTime();
  const bool changed = values_[index] != value;
  values_[index] = value;
  answered_.set(index);
  // While it plays, several reports may fall into one frame; while it seeks, the playhead stands
  // where it is to be.
  if (changed && (index != TimePos || playheadTime() != playhead))
    observers_.changed(kObserved[index].change);
  if (!ready_) checkReady();
}

// A file that is being loaded has no position yet. It is waited for, so that whoever takes the host
// finds the file there; but not for ever, it may come from a slow network.
void MpvHost::checkReady() {
  const bool loaded = values_[IdleActive].toBool() || values_[TimePos].isDouble();
  const bool late = !reportDeadline_.isActive();
  if (answered_.all() && (loaded || late)) {
    ready_ = true;
    reportDeadline_.stop();
    Q_EMIT ready();
  } else if (late) {
    connection_->close();
  }
}

void MpvHost::handleClosed() {
  reportDeadline_.stop();
  values_.fill(QJsonValue());
  if (wanted_) {
    wanted_.reset();
    seek_ = Seek::None;
    seekDeadline_.stop();
  }
  Q_EMIT lost();
}

}  // namespace orvex
