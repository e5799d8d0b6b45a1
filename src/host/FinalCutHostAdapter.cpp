#include "host/FinalCutHostAdapter.h"

#include "platform/HostRuntime.h"
#include "platform/SystemLog.h"
#include "platform/TimelineActions.h"
#include "platform/Workspace.h"

#include <QUrl>
#include <QUrlQuery>

#include <cmath>

namespace orvex {
namespace {

// Host times may be anything; only a valid and finite one becomes a number.
double secondsOrZero(const MediaTime& time) {
  const double seconds = time.seconds();
  return std::isfinite(seconds) ? seconds : 0;
}

// The snapshot of a host that has no timeline.
HostSnapshot connectedTo(const FCPXHost& host) {
  HostSnapshot snapshot;
  snapshot.connected = true;
  snapshot.hostName = host.name();
  snapshot.hostVersion = host.versionString();
  snapshot.bundleIdentifier = host.bundleIdentifier();
  return snapshot;
}

void describe(const FCPXSequence& sequence, HostSnapshot& snapshot) {
  snapshot.sequenceAvailable = true;
  snapshot.sequenceName = sequence.name;
  snapshot.sequenceStartSeconds = secondsOrZero(sequence.startTime);
  snapshot.sequenceDurationSeconds = secondsOrZero(sequence.duration);
  snapshot.frameDurationSeconds = secondsOrZero(sequence.frameDuration);
  if (snapshot.frameDurationSeconds > 0) snapshot.fps = 1 / snapshot.frameDurationSeconds;
}

// A timeline without a sequence still has a range; frames are unknown then.
void describe(const MediaTimeRange& range, HostSnapshot& snapshot) {
  if (!range.isValid()) return;
  const double duration = range.duration.seconds();
  snapshot.sequenceAvailable = std::isfinite(duration) && duration > 0;
  if (snapshot.sequenceAvailable) snapshot.sequenceName = QStringLiteral("ACTIVE TIMELINE");
  snapshot.sequenceStartSeconds = secondsOrZero(range.start);
  snapshot.sequenceDurationSeconds = secondsOrZero(range.duration);
}

// What is told of a command that was sent; null for what is none.
QString sentMessage(QStringView action) {
  if (action == kToggleRetime)
    return QStringLiteral("Retime Editor komutu Final Cut'a gönderildi.");
  if (action == kBladeSpeed) return QStringLiteral("Playhead konumuna Speed Point eklendi.");
  if (action == kNormalSpeed) return QStringLiteral("Seçili klip Normal Speed %100 yapıldı.");
  return {};
}

}  // namespace

FinalCutHostAdapter::FinalCutHostAdapter(std::weak_ptr<HostState> state, HostRuntime& runtime,
                                         Workspace& workspace, SystemLog& log)
    : state_(std::move(state)), runtime_(runtime), workspace_(workspace), log_(log) {}

FinalCutHostAdapter::~FinalCutHostAdapter() {
  stopObserving();
}

void FinalCutHostAdapter::connect() {
  std::shared_ptr<FCPXHost> host = runtime_.hostSingleton();
  if (!host) {
    // Whoever was held went away without us; nothing may be read from it any more.
    stopObserving();
    host_.reset();
    publish(HostSnapshot::disconnected());
    notice(QStringLiteral("Final Cut Pro host proxy bulunamadı."), HostState::Notice::Error);
    return;
  }
  stopObserving();
  host_ = std::move(host);
  if (FCPXTimeline* timeline = host_->timeline()) {
    timeline->addTimelineObserver(this);
    observing_ = true;
    refresh(QStringLiteral("connect"));
  } else {
    publish(connectedTo(*host_));
  }
}

void FinalCutHostAdapter::disconnect() {
  stopObserving();
  host_.reset();
}

void FinalCutHostAdapter::stopObserving() {
  if (observing_ && host_)
    if (FCPXTimeline* timeline = host_->timeline()) timeline->removeTimelineObserver(this);
  observing_ = false;
}

void FinalCutHostAdapter::refresh(const QString& reason) {
  if (!host_) {
    publish(HostSnapshot::disconnected());
    return;
  }
  const FCPXTimeline* timeline = host_->timeline();
  if (timeline == nullptr) {
    publish(connectedTo(*host_));
    return;
  }
  const std::optional<FCPXSequence> sequence = timeline->activeSequence();
  const MediaTime playhead = timeline->playheadTime();
  const MediaTimeRange range = timeline->sequenceTimeRange();
  HostSnapshot snapshot = connectedTo(*host_);
  if (sequence)
    describe(*sequence, snapshot);
  else
    describe(range, snapshot);
  snapshot.playheadSeconds = secondsOrZero(playhead);
  publish(snapshot);
  log_.line(QStringLiteral("[Vantrelo Orvex] host refresh %1 • %2 • %3")
                .arg(reason, snapshot.hostVersion, snapshot.sequenceName));
}

void FinalCutHostAdapter::moveToStart() {
  const HostSnapshot host = snapshot();
  if (host.sequenceAvailable)
    movePlayhead(host.sequenceStartSeconds);
  else
    notice(QStringLiteral("Aktif timeline yok."), HostState::Notice::Error);
}

void FinalCutHostAdapter::moveToEnd() {
  const HostSnapshot host = snapshot();
  if (host.sequenceAvailable)
    movePlayhead(host.sequenceStartSeconds + host.sequenceDurationSeconds);
  else
    notice(QStringLiteral("Aktif timeline yok."), HostState::Notice::Error);
}

void FinalCutHostAdapter::moveBy(double seconds) {
  const HostSnapshot host = snapshot();
  if (host.sequenceAvailable)
    movePlayhead(host.playheadSeconds + seconds);
  else
    notice(QStringLiteral("Aktif timeline yok."), HostState::Notice::Error);
}

void FinalCutHostAdapter::moveByFrames(qint64 count) {
  const HostSnapshot host = snapshot();
  if (host.sequenceAvailable && host.frameDurationSeconds > 0)
    moveBy(host.frameDurationSeconds * static_cast<double>(count));
  else
    notice(QStringLiteral("Final Cut frameDuration henüz hazır değil."), HostState::Notice::Info);
}

void FinalCutHostAdapter::movePlayhead(double seconds) {
  FCPXTimeline* timeline = host_ ? host_->timeline() : nullptr;
  if (timeline == nullptr) {
    notice(QStringLiteral("Final Cut timeline proxy hazır değil."), HostState::Notice::Error);
    return;
  }
  const HostSnapshot host = snapshot();
  const double lower = host.sequenceStartSeconds;
  const double upper = lower + host.sequenceDurationSeconds;
  const double a = seconds <= lower ? lower : seconds;
  const double b = lower <= upper ? upper : lower;
  // The host's interface takes times in units of 1/600 s and rounds them to its own frames.
  timeline->movePlayheadTo(MediaTime::fromSeconds(b < a ? b : a, 600));
  refresh(QStringLiteral("movePlayhead"));
}

void FinalCutHostAdapter::performTimelineAction(const QString& action) {
  const QString message = sentMessage(action);
  if (message.isNull()) {
    notice(QStringLiteral("Geçersiz timeline komutu."), HostState::Notice::Error);
    return;
  }
  QUrl url(QStringLiteral("vantrelo-finalcut://timeline-action"));
  QUrlQuery query;
  query.addQueryItem(QStringLiteral("action"), action);
  url.setQuery(query);
  if (workspace_.open(url))
    notice(message, HostState::Notice::Info);
  else
    notice(QStringLiteral("Vantrelo yardımcı motoru açılamadı."), HostState::Notice::Error);
}

void FinalCutHostAdapter::activeSequenceChanged() {
  refreshLater(ActiveSequence);
}
void FinalCutHostAdapter::playheadTimeChanged() {
  refreshLater(PlayheadTime);
}
void FinalCutHostAdapter::sequenceTimeRangeChanged() {
  refreshLater(SequenceTimeRange);
}

void FinalCutHostAdapter::refreshLater(Callback callback) {
  if (waiting_[callback].exchange(true)) return;
  QMetaObject::invokeMethod(
      this,
      [this, callback] {
        static constexpr std::array names{"activeSequenceChanged", "playheadTimeChanged",
                                          "sequenceTimeRangeChanged"};
        // Cleared before the host is read, so that a change during the reading is not lost.
        waiting_[callback] = false;
        refresh(QLatin1String(names[callback]));
      },
      Qt::QueuedConnection);
}

void FinalCutHostAdapter::publish(const HostSnapshot& snapshot) {
  if (const auto state = state_.lock()) state->setHost(snapshot);
}

HostSnapshot FinalCutHostAdapter::snapshot() const {
  const auto state = state_.lock();
  return state ? state->host() : HostSnapshot{};
}

void FinalCutHostAdapter::notice(const QString& message, HostState::Notice kind) {
  if (const auto state = state_.lock()) state->showHostNotice(message, kind);
}

}  // namespace orvex
