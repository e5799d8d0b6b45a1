#include "services/SemanticVersion.h"

#include <QString>

#include <algorithm>

namespace orvex {
namespace {

// Whether the character at `at`, which may be a pair, has a numeric property; moves past it if so.
bool takeNumeric(QStringView text, qsizetype& at) {
  const bool isPair =
      at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
  const char32_t character =
      isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode();
  if (!QChar::isNumber(character)) return false;
  at += isPair ? 2 : 1;
  return true;
}

std::int64_t component(QStringView piece) {
  qsizetype end = 0;
  while (end < piece.size() && takeNumeric(piece, end)) continue;
  const QStringView digits = piece.first(end);
  // Numbers of other scripts, fractions and the like have no say.
  if (!std::ranges::all_of(digits, [](QChar c) { return c >= u'0' && c <= u'9'; })) return 0;
  return digits.toLongLong();
}

}  // namespace

SemanticVersion::SemanticVersion(QStringView text) {
  for (const QStringView piece : text.tokenize(u'.', Qt::SkipEmptyParts))
    components_.append(component(piece));
}

bool operator<(const SemanticVersion& a, const SemanticVersion& b) {
  const qsizetype count = std::max(a.components_.size(), b.components_.size());
  for (qsizetype i = 0; i < count; ++i) {
    const std::int64_t left = a.components_.value(i);
    const std::int64_t right = b.components_.value(i);
    if (left != right) return left < right;
  }
  return false;
}

}  // namespace orvex
