#include "ui/OrvexMotion.h"

#include <QEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace orvex {
namespace {

/// The one preference that all attached objects share.
class MotionPreference final : public QObject {
  Q_OBJECT

 public:
  [[nodiscard]] bool reduced() const noexcept { return reduced_; }
  void setReduced(bool reduced) {
    if (reduced_ == reduced) return;
    reduced_ = reduced;
    Q_EMIT changed();
  }

 Q_SIGNALS:
  void changed();

 private:
  bool reduced_ = qEnvironmentVariableIntValue("ORVEX_REDUCED_MOTION") == 1;
};

MotionPreference& preference() {
  static MotionPreference instance;
  return instance;
}

/// Whether one window can be seen; lives as its child.
class WindowActivity final : public QObject {
  Q_OBJECT

 public:
  explicit WindowActivity(QQuickWindow* window) : QObject(window), window_(window) {
    window->installEventFilter(this);
    connect(window, &QWindow::visibilityChanged, this, &WindowActivity::update);
    update();
  }

  static WindowActivity* of(QQuickWindow* window) {
    auto* activity = window->findChild<WindowActivity*>({}, Qt::FindDirectChildrenOnly);
    return activity != nullptr ? activity : new WindowActivity(window);
  }

  [[nodiscard]] bool seen() const noexcept { return seen_; }

  bool eventFilter(QObject*, QEvent* event) override {
    // The window learns of its exposure by this event: look at it afterwards.
    if (event->type() == QEvent::Expose || event->type() == QEvent::Hide)
      QMetaObject::invokeMethod(this, &WindowActivity::update, Qt::QueuedConnection);
    return false;
  }

 Q_SIGNALS:
  void changed();

 private:
  void update() {
    const bool seen =
        window_->isVisible() && window_->isExposed() && window_->visibility() != QWindow::Minimized;
    if (seen_ == seen) return;
    seen_ = seen;
    Q_EMIT changed();
  }

  QQuickWindow* window_;
  bool seen_ = false;
};

QQuickItem* nearestItem(QObject* object) {
  for (; object != nullptr; object = object->parent())
    if (auto* item = qobject_cast<QQuickItem*>(object)) return item;
  return nullptr;
}

}  // namespace

OrvexMotion::OrvexMotion(QObject* object) : QObject(object) {
  connect(&preference(), &MotionPreference::changed, this, [this] {
    Q_EMIT reducedChanged();
    update();
  });
  if (auto* item = nearestItem(object)) {
    connect(item, &QQuickItem::windowChanged, this, &OrvexMotion::follow);
    follow(item->window());
  }
}

OrvexMotion* OrvexMotion::qmlAttachedProperties(QObject* object) {
  return new OrvexMotion(object);
}

bool OrvexMotion::reduced() {
  return preference().reduced();
}

void OrvexMotion::setReduced(bool reduced) {
  preference().setReduced(reduced);
}

void OrvexMotion::follow(QQuickWindow* window) {
  if (activity_ != nullptr) activity_->disconnect(this);
  auto* activity = window != nullptr ? WindowActivity::of(window) : nullptr;
  if (activity != nullptr) connect(activity, &WindowActivity::changed, this, &OrvexMotion::update);
  activity_ = activity;
  update();
}

void OrvexMotion::update() {
  const auto* activity = static_cast<const WindowActivity*>(activity_.data());
  const bool running = activity != nullptr && activity->seen();
  const bool animated = running && !reduced();
  if (std::exchange(running_, running) != running) Q_EMIT runningChanged();
  if (std::exchange(animated_, animated) != animated) Q_EMIT animatedChanged();
}

}  // namespace orvex

#include "OrvexMotion.moc"
