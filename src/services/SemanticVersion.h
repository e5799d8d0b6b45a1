#pragma once

#include <QList>
#include <QStringView>

#include <cstdint>

namespace orvex {

/// The numbers of a version text, compared position by position; missing ones count as 0. Lenient
/// on purpose: what follows the digits of a piece has no say, so "2.0.0-rc1" equals "2.0.0".
class SemanticVersion {
 public:
  /// Never fails: a piece between dots without leading digits, or beyond 64 bits, counts as 0, and
  /// empty pieces count for nothing.
  explicit SemanticVersion(QStringView text);

  friend bool operator<(const SemanticVersion& a, const SemanticVersion& b);
  friend bool operator>(const SemanticVersion& a, const SemanticVersion& b) { return b < a; }

 private:
  QList<std::int64_t> components_;
};

}  // namespace orvex
