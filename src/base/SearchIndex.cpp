#include "base/SearchIndex.h"

#include <QString>

#include <algorithm>
#include <cstring>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

namespace orvex {
namespace {

constexpr char kEnd = '\xff';

bool isAscii(QStringView text) {
  return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

QString composed(QStringView text) {
  UErrorCode status = U_ZERO_ERROR;
  const UNormalizer2* normalizer = unorm2_getNFCInstance(&status);
  const auto* characters = reinterpret_cast<const UChar*>(text.utf16());
  const auto length = static_cast<int32_t>(text.size());
  if (unorm2_isNormalized(normalizer, characters, length, &status)) return text.toString();
  status = U_ZERO_ERROR;
  // Composition makes no text longer than three times its length.
  QString result(text.size() * 3, Qt::Uninitialized);
  const int32_t size =
      unorm2_normalize(normalizer, characters, length, reinterpret_cast<UChar*>(result.data()),
                       static_cast<int32_t>(result.size()), &status);
  if (U_FAILURE(status)) return text.toString();
  result.truncate(size);
  return result;
}

QString caseFolded(QStringView text, uint32_t options) {
  UErrorCode status = U_ZERO_ERROR;
  // Case folding makes no text longer than three times its length.
  QString result(text.size() * 3, Qt::Uninitialized);
  const int32_t size =
      u_strFoldCase(reinterpret_cast<UChar*>(result.data()), static_cast<int32_t>(result.size()),
                    reinterpret_cast<const UChar*>(text.utf16()), static_cast<int32_t>(text.size()),
                    options, &status);
  if (U_FAILURE(status)) return text.toString();
  result.truncate(size);
  return result;
}

// Whether the character at `at` belongs to the one before it.
bool isCombining(const char* at, const char* end) {
  // All of them lie beyond U+0300.
  if (at == end || static_cast<unsigned char>(*at) < 0xCC || *at == kEnd) return false;
  UChar32 character = 0;
  qsizetype offset = 0;
  U8_NEXT(reinterpret_cast<const uint8_t*>(at), offset, end - at, character);
  return character >= 0 && (U_GET_GC_MASK(character) & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0;
}

// The next place from `from` on where `text` occurs whole; `end` when there is none.
const char* findWhole(const char* from, const char* end, const QByteArray& text) {
  while (const auto* hit = static_cast<const char*>(
             ::memmem(from, static_cast<std::size_t>(end - from), text.constData(),
                      static_cast<std::size_t>(text.size())))) {
    if (!isCombining(hit + text.size(), end)) return hit;
    from = hit + 1;
  }
  return end;
}

}  // namespace

// Turkish and Azerbaijani have an I with a dot and one without in both cases.
SearchIndex::SearchIndex(const QLocale& locale)
    : dottedI_(locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani) {
}

QByteArray SearchIndex::folded(QStringView text) const {
  if (isAscii(text) && !(dottedI_ && text.contains(u'I'))) {
    QByteArray bytes = text.toLatin1();
    for (char& c : bytes)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return bytes;
  }
  // Composed before as well, so that a dot that stands apart from its I is seen by the folding.
  return composed(caseFolded(composed(text),
                             dottedI_ ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT))
      .toUtf8();
}

void SearchIndex::add(std::initializer_list<QStringView> texts) {
  for (const QStringView text : texts) texts_.append(folded(text)).append(kEnd);
  ends_.append(texts_.size());
}

QList<qsizetype> SearchIndex::find(QStringView query) const {
  QList<qsizetype> found;
  found.reserve(count());
  const QByteArray text = folded(query.trimmed());
  if (text.isEmpty()) {
    for (qsizetype i = 0; i < count(); ++i) found.append(i);
    return found;
  }
  const char* const begin = texts_.constData();
  const char* const end = begin + texts_.size();
  auto item = ends_.begin();
  for (const char* at = begin; (at = findWhole(at, end, text)) != end;) {
    item = std::upper_bound(item, ends_.end(), at - begin);
    found.append(item - ends_.begin());
    // One occurrence in an item is enough.
    at = begin + *item;
  }
  return found;
}

}  // namespace orvex
