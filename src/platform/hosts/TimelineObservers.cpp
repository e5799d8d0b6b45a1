#include "platform/hosts/TimelineObservers.h"

#include <algorithm>

namespace orvex {

TimelineObservers::TimelineObservers() {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tell(); });
}

void TimelineObservers::add(FCPXTimelineObserver* observer) {
  if (!observers_.contains(observer)) observers_.append(observer);
}

void TimelineObservers::remove(FCPXTimelineObserver* observer) {
  observers_.removeOne(observer);
}

void TimelineObservers::changed(Change change) {
  waiting_ |= change;
  schedule();
}

void TimelineObservers::schedule() {
  if (waiting_ == 0 || timer_.isActive()) return;
  const auto elapsed =
      sinceLast_.isValid() ? std::chrono::milliseconds(sinceLast_.elapsed()) : kInterval;
  timer_.start(std::max(kInterval - elapsed, std::chrono::milliseconds::zero()));
}

void TimelineObservers::tell() {
  if (waiting_ == 0) return;
  auto callback = &FCPXTimelineObserver::playheadTimeChanged;
  if (waiting_ & ActiveSequence) {
    callback = &FCPXTimelineObserver::activeSequenceChanged;
    waiting_ &= ~(ActiveSequence | TimeRange);
  } else if (waiting_ & TimeRange) {
    callback = &FCPXTimelineObserver::sequenceTimeRangeChanged;
    waiting_ &= ~TimeRange;
  } else {
    waiting_ = 0;
  }
  sinceLast_.start();
  schedule();
  const QList<FCPXTimelineObserver*> told = observers_;
  for (FCPXTimelineObserver* observer : told)
    if (observers_.contains(observer)) (observer->*callback)();
}

}  // namespace orvex
