#include "speed/SpeedCurve.h"

#include "base/Text.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvex {
namespace {

// Adding zero turns a negative zero, which would print as "-0.00", into zero.
double unit(double value) noexcept {
  return std::isnan(value) ? 0 : std::clamp(value, 0.0, 1.0) + 0.0;
}

// a + b·t + c·t², the derivative of one coordinate of the curve divided by 3.
struct Quadratic {
  double a;
  double b;
  double c;

  // Of the coordinate whose inner control points are p and q; the outer ones are 0 and 1.
  static constexpr Quadratic derivative(double p, double q) noexcept {
    return {p, 2 * (q - 2 * p), 1 + 3 * p - 3 * q};
  }
  [[nodiscard]] constexpr double at(double t) const noexcept { return a + t * (b + t * c); }
  [[nodiscard]] constexpr double slopeAt(double t) const noexcept { return b + 2 * c * t; }
};

// Below this a derivative counts as zero; coordinates are of the order of 1.
constexpr double kTiny = 1e-9;

double ratioAt(const Quadratic& dy, const Quadratic& dx, double t) noexcept {
  double numerator = dy.at(t);
  double denominator = dx.at(t);
  if (std::abs(denominator) < kTiny && std::abs(numerator) < kTiny) {
    // Both stand still: the direction is that of the next derivative (l'Hôpital).
    numerator = dy.slopeAt(t);
    denominator = dx.slopeAt(t);
    if (std::abs(denominator) < kTiny && std::abs(numerator) < kTiny) {
      numerator = dy.c;
      denominator = dx.c;
    }
  }
  if (std::abs(denominator) < kTiny) return std::numeric_limits<double>::infinity();
  return std::max(0.0, numerator / denominator);
}

}  // namespace

SpeedCurve::SpeedCurve(double x1, double y1, double x2, double y2) noexcept
    : points_{unit(x1), unit(y1), unit(x2), unit(y2)} {}

SpeedCurve SpeedCurve::withControlPoint(int index, double x, double y) const noexcept {
  return index == 0 ? SpeedCurve(x, y, points_[2], points_[3])
                    : SpeedCurve(points_[0], points_[1], x, y);
}

QString SpeedCurve::bezierCode() const {
  QStringList texts;
  for (const double value : points_) texts.append(fixedText(value, 2));
  return QStringLiteral("cubic-bezier(%1)").arg(texts.join(QStringLiteral(", ")));
}

std::expected<SpeedCurve, QString> SpeedCurve::fromBezierCode(const QString& text) {
  static const QRegularExpression form(
      QStringLiteral("^\\s*cubic-bezier\\s*\\(([^()]*)\\)\\s*;?\\s*$"),
      QRegularExpression::CaseInsensitiveOption);
  std::array<double, 4> values{};
  // A clipboard may hold anything of any length; what is far too long is not even looked at.
  constexpr qsizetype kLongest = 1000;
  const QRegularExpressionMatch match =
      text.size() <= kLongest ? form.match(text) : QRegularExpressionMatch();
  const QStringList parts = match.captured(1).split(u',');
  bool valid = match.hasMatch() && parts.size() == 4;
  for (std::size_t i = 0; valid && i < values.size(); ++i) {
    values[i] = parts[static_cast<qsizetype>(i)].trimmed().toDouble(&valid);
    valid = valid && std::isfinite(values[i]);
  }
  if (!valid)
    return std::unexpected(
        QStringLiteral("Eğri metni anlaşılmadı. Örnek: cubic-bezier(0.20, 0.20, 0.80, 0.80)"));
  return SpeedCurve(values[0], values[1], values[2], values[3]);
}

SpeedCurve::Point SpeedCurve::pointAt(double t) const noexcept {
  const double s = 1 - t;
  const double first = 3 * s * s * t;
  const double second = 3 * s * t * t;
  const double last = t * t * t;
  return {first * points_[0] + second * points_[2] + last,
          first * points_[1] + second * points_[3] + last};
}

double SpeedCurve::speedPercentAt(double t) const noexcept {
  return 100 * ratioAt(Quadratic::derivative(points_[1], points_[3]),
                       Quadratic::derivative(points_[0], points_[2]), t);
}

SpeedCurve::SpeedRange SpeedCurve::speedRange() const noexcept {
  const auto dy = Quadratic::derivative(points_[1], points_[3]);
  const auto dx = Quadratic::derivative(points_[0], points_[2]);
  // The slope dy/dx is extreme at the ends, where dy'·dx − dy·dx' vanishes (the cubic terms
  // cancel), and, with dx never negative, where dx touches zero.
  const double a = dy.b * dx.a - dy.a * dx.b;
  const double b = 2 * (dy.c * dx.a - dy.a * dx.c);
  const double c = dy.c * dx.b - dy.b * dx.c;
  std::array<double, 5> candidates{0, 1, 0, 0, 0};
  std::size_t count = 2;
  const auto add = [&](double t) {
    if (t > 0 && t < 1) candidates[count++] = t;
  };
  if (std::abs(c) > kTiny) {
    const double discriminant = b * b - 4 * a * c;
    if (discriminant >= 0) {
      add((-b + std::sqrt(discriminant)) / (2 * c));
      add((-b - std::sqrt(discriminant)) / (2 * c));
    }
  } else if (std::abs(b) > kTiny) {
    add(-a / b);
  }
  if (std::abs(dx.c) > kTiny) add(-dx.b / (2 * dx.c));

  SpeedRange range{std::numeric_limits<double>::infinity(), 0};
  for (std::size_t i = 0; i < count; ++i) {
    const double percent = 100 * ratioAt(dy, dx, candidates[i]);
    range.minimumPercent = std::min(range.minimumPercent, percent);
    range.maximumPercent = std::max(range.maximumPercent, percent);
  }
  return range;
}

}  // namespace orvex
