#pragma once

#include "speed/SpeedCurve.h"

#include <QList>
#include <QObject>
#include <QString>

namespace orvex {

/// The curve that a Speed Lab page edits, with the preset that it shows as chosen and the way back.
/// It lives as long as its page.
class SpeedCurveEditing : public QObject {
  Q_OBJECT
  /// x1, y1, x2, y2.
  Q_PROPERTY(QList<double> curve READ curve NOTIFY changed FINAL)
  Q_PROPERTY(QString selectedPreset READ selectedPreset NOTIFY changed FINAL)
  Q_PROPERTY(QString bezierCode READ bezierCode NOTIFY changed FINAL)
  Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed FINAL)
  Q_PROPERTY(bool canRedo READ canRedo NOTIFY changed FINAL)

 public:
  using QObject::QObject;

  [[nodiscard]] QList<double> curve() const;
  [[nodiscard]] const QString& selectedPreset() const noexcept { return now_.preset; }
  [[nodiscard]] QString bezierCode() const { return now_.curve.bezierCode(); }
  [[nodiscard]] bool canUndo() const noexcept { return !undo_.isEmpty(); }
  [[nodiscard]] bool canRedo() const noexcept { return !redo_.isEmpty(); }

  /// Takes the preset's points; an unknown `id` changes nothing.
  Q_INVOKABLE void selectPreset(const QString& id);
  /// Back to the default curve and preset.
  Q_INVOKABLE void reset();
  /// Moves control point 0 or 1; the chosen preset stays. Moves up to `endGesture` are one step.
  Q_INVOKABLE void moveControlPoint(int index, double x, double y);
  /// Ends a drag: the next move is a step of its own.
  Q_INVOKABLE void endGesture() { inGesture_ = false; }
  /// Takes a curve from its text form. Returns the error, in Turkish, or nothing.
  Q_INVOKABLE QString paste(const QString& text);
  Q_INVOKABLE void undo();
  Q_INVOKABLE void redo();

 Q_SIGNALS:
  void changed();

 private:
  struct Step {
    SpeedCurve curve;
    QString preset = QStringLiteral("smooth");

    friend bool operator==(const Step&, const Step&) = default;
  };

  // Goes to `next`, remembering where it came from unless that continues a gesture.
  void change(const Step& next, bool continues = false);

  Step now_;
  QList<Step> undo_;
  QList<Step> redo_;
  bool inGesture_ = false;
};

}  // namespace orvex
