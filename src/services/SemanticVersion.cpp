#include "services/SemanticVersion.h"

#include <QString>

#include <algorithm>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace orvex {
namespace {

// Where the characters end that have a numeric property, which letters such as "五" can have too.
qsizetype numericPrefix(QStringView text) {
  const qsizetype size = text.size();
  const auto* const units = reinterpret_cast<const UChar*>(text.utf16());
  for (qsizetype next = 0; next < size;) {
    const qsizetype at = next;
    UChar32 character = 0;
    U16_NEXT(units, next, size, character);
    if (u_getNumericValue(character) == U_NO_NUMERIC_VALUE) return at;
  }
  return size;
}

std::int64_t component(QStringView piece) {
  const QStringView digits = piece.first(numericPrefix(piece));
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
