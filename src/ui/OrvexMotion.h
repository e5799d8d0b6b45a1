#pragma once

#include <QObject>
#include <QPointer>
#include <QtQml/qqml.h>

class QQuickItem;
class QQuickWindow;

namespace orvex {

/// Whether things may move, as an attached property of any item: everything that ticks is gated on
/// it, so that a hidden window wakes nobody and a user who asked for calm gets it.
class OrvexMotion final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Use it as an attached property.")
  QML_ATTACHED(orvex::OrvexMotion)

  /// The user wants no motion. One value for the whole program; at first, whether the environment
  /// variable ORVEX_REDUCED_MOTION is 1.
  Q_PROPERTY(bool reduced READ reduced WRITE setReduced NOTIFY reducedChanged FINAL)
  /// The item's window can be seen.
  Q_PROPERTY(bool running READ running NOTIFY runningChanged FINAL)
  /// The window can be seen and motion is wanted.
  Q_PROPERTY(bool animated READ animated NOTIFY animatedChanged FINAL)

 public:
  explicit OrvexMotion(QObject* object);

  [[nodiscard]] static OrvexMotion* qmlAttachedProperties(QObject* object);

  [[nodiscard]] static bool reduced();
  static void setReduced(bool reduced);
  [[nodiscard]] bool running() const noexcept { return running_; }
  [[nodiscard]] bool animated() const noexcept { return animated_; }

 Q_SIGNALS:
  void reducedChanged();
  void runningChanged();
  void animatedChanged();

 private:
  void follow(QQuickWindow* window);
  void update();

  QPointer<QObject> activity_;
  bool running_ = false;
  bool animated_ = false;
};

}  // namespace orvex
