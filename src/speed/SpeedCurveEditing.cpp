#include "speed/SpeedCurveEditing.h"

#include "speed/SpeedCurvePreset.h"

namespace orvex {
namespace {

// Far more steps than anybody retraces by hand; a bound all the same.
constexpr qsizetype kMaximumSteps = 1000;

}  // namespace

QList<double> SpeedCurveEditing::curve() const {
  const auto& points = now_.curve.points();
  return {points.begin(), points.end()};
}

void SpeedCurveEditing::selectPreset(const QString& id) {
  for (const SpeedCurvePreset& preset : SpeedCurvePreset::all())
    if (preset.id == id) change({preset.points, preset.id});
}

void SpeedCurveEditing::reset() {
  change({});
}

void SpeedCurveEditing::moveControlPoint(int index, double x, double y) {
  const Step next{now_.curve.withControlPoint(index, x, y), now_.preset};
  if (next == now_) return;
  change(next, inGesture_);
  inGesture_ = true;
}

QString SpeedCurveEditing::paste(const QString& text) {
  const auto parsed = SpeedCurve::fromBezierCode(text);
  if (!parsed) return parsed.error();
  change({*parsed, now_.preset});
  return {};
}

void SpeedCurveEditing::undo() {
  if (undo_.isEmpty()) return;
  redo_.append(std::exchange(now_, undo_.takeLast()));
  inGesture_ = false;
  Q_EMIT changed();
}

void SpeedCurveEditing::redo() {
  if (redo_.isEmpty()) return;
  undo_.append(std::exchange(now_, redo_.takeLast()));
  inGesture_ = false;
  Q_EMIT changed();
}

void SpeedCurveEditing::change(const Step& next, bool continues) {
  inGesture_ = continues;
  if (next == now_) return;
  if (!continues) {
    undo_.append(now_);
    if (undo_.size() > kMaximumSteps) undo_.removeFirst();
  }
  redo_.clear();
  now_ = next;
  Q_EMIT changed();
}

}  // namespace orvex
