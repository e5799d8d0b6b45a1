#include "ui/OrvexSpring.h"

#include "ui/OrvexMotion.h"

#include <QtQml/qqml.h>

namespace orvex {

/// The toolkit's animation clock, in step with the frames of the window.
class OrvexSpring::Ticks final : public QAbstractAnimation {
 public:
  explicit Ticks(OrvexSpring& spring) : spring_(spring) {}

  [[nodiscard]] int duration() const override { return -1; }

 private:
  void updateCurrentTime(int milliseconds) override { spring_.tick(milliseconds / 1000.0); }

  OrvexSpring& spring_;
};

OrvexSpring::OrvexSpring(QObject* parent)
    : QObject(parent), ticks_(std::make_unique<Ticks>(*this)) {
  connect(ticks_.get(), &QAbstractAnimation::stateChanged, this, &OrvexSpring::runningChanged);
}

OrvexSpring::~OrvexSpring() {
  ticks_->disconnect(this);
}

bool OrvexSpring::isRunning() const noexcept {
  return ticks_->state() == QAbstractAnimation::Running;
}

void OrvexSpring::setTo(double to) {
  if (to_ == to) return;
  to_ = to;
  if (motion_ != nullptr && motion_->animated())
    start();
  else
    arrive();
  Q_EMIT toChanged();
}

void OrvexSpring::jump(double value) {
  const bool changed = to_ != value;
  to_ = value;
  arrive();
  if (changed) Q_EMIT toChanged();
}

void OrvexSpring::componentComplete() {
  motion_ = qobject_cast<OrvexMotion*>(
      qmlAttachedPropertiesObject<OrvexMotion>(static_cast<QObject*>(this)));
  connect(motion_, &OrvexMotion::animatedChanged, this, [this] {
    if (!motion_->animated()) arrive();
  });
}

void OrvexSpring::start() {
  ticks_->stop();
  curve_ = {response_, dampingFraction_};
  start_ = now_;
  ticks_->start();
}

void OrvexSpring::tick(double seconds) {
  const SpringCurve::Point point = curve_.at(seconds, start_, to_);
  if (curve_.settled(point, to_, precision_)) {
    arrive();
    return;
  }
  now_ = point;
  Q_EMIT valueChanged();
}

void OrvexSpring::arrive() {
  ticks_->stop();
  if (now_.value == to_ && now_.velocity == 0) return;
  now_ = {to_, 0};
  Q_EMIT valueChanged();
}

}  // namespace orvex
