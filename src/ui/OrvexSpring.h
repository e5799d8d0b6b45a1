#pragma once

#include "ui/SpringCurve.h"

#include <QAbstractAnimation>
#include <QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

namespace orvex {

class OrvexMotion;

/// A number that follows `to` as if hung on a spring. It keeps its velocity when `to` changes on
/// the way and takes the same course at any frame rate. Where nothing may move (a hidden window,
/// reduced motion) it jumps; at rest it does not tick.
class OrvexSpring : public QObject, public QQmlParserStatus {
  Q_OBJECT
  Q_INTERFACES(QQmlParserStatus)
  QML_ELEMENT

  /// The first value of it is taken over at once.
  Q_PROPERTY(double to READ to WRITE setTo NOTIFY toChanged FINAL)
  Q_PROPERTY(double value READ value NOTIFY valueChanged FINAL)
  /// Per second.
  Q_PROPERTY(double velocity READ velocity NOTIFY valueChanged FINAL)
  /// Seconds, above 0.
  Q_PROPERTY(double response MEMBER response_ NOTIFY curveChanged FINAL)
  /// At least 0, below 1.
  Q_PROPERTY(double dampingFraction MEMBER dampingFraction_ NOTIFY curveChanged FINAL)
  /// How near to `to` counts as arrived, in the unit of the value.
  Q_PROPERTY(double precision MEMBER precision_ NOTIFY precisionChanged FINAL)
  Q_PROPERTY(bool running READ isRunning NOTIFY runningChanged FINAL)

 public:
  explicit OrvexSpring(QObject* parent = nullptr);
  ~OrvexSpring() override;

  [[nodiscard]] double to() const noexcept { return to_; }
  void setTo(double to);
  [[nodiscard]] double value() const noexcept { return now_.value; }
  [[nodiscard]] double velocity() const noexcept { return now_.velocity; }
  [[nodiscard]] bool isRunning() const noexcept;

  /// Takes `value` over at once, as its aim and as its place.
  Q_INVOKABLE void jump(double value);

  void classBegin() override {}
  void componentComplete() override;

 Q_SIGNALS:
  void toChanged();
  void valueChanged();
  void curveChanged();
  void precisionChanged();
  void runningChanged();

 private:
  class Ticks;

  void start();
  void tick(double seconds);
  void arrive();

  std::unique_ptr<Ticks> ticks_;
  OrvexMotion* motion_ = nullptr;
  double to_ = 0;
  double response_ = 0.34;
  double dampingFraction_ = 0.8;
  double precision_ = 0.001;
  // The course in progress: where it began, and where it is.
  SpringCurve curve_{};
  SpringCurve::Point start_{};
  SpringCurve::Point now_{};
};

}  // namespace orvex
