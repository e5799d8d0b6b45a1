#include "base/Collation.h"

#include "base/Threads.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <unicode/ucol.h>
#include <vector>

namespace orvex {
namespace {

// Texts that one thread turns into keys before it asks for more.
constexpr qsizetype kBatch = 1024;

// The beginning of a key as a number that orders like it: it decides nearly all comparisons of a
// sort without a look at the key itself.
quint64 beginningOf(const QByteArray& key) {
  std::array<char, sizeof(quint64)> bytes{};
  std::memcpy(bytes.data(), key.constData(),
              std::min(bytes.size(), static_cast<std::size_t>(key.size())));
  return qFromBigEndian<quint64>(bytes.data());
}

}  // namespace

QLocale Collation::userLocale() {
  return QLocale::system().collation();
}

void Collation::Close::operator()(UCollator* collator) const noexcept {
  ucol_close(collator);
}

Collation::Collation(const QLocale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  // A language without rules of its own, and the absence of one, has the rules of the root.
  const QByteArray name =
      locale.language() == QLocale::C ? QByteArray() : locale.bcp47Name().toLatin1();
  collator_.reset(ucol_open(name.constData(), &status));
  if (U_FAILURE(status)) qFatal("no collation rules: %s", u_errorName(status));
  ucol_setStrength(collator_.get(), UCOL_SECONDARY);
  ucol_setAttribute(collator_.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
}

QByteArray Collation::key(QStringView text) const {
  std::array<uint8_t, 256> room;
  const auto* characters = reinterpret_cast<const UChar*>(text.utf16());
  const auto length = static_cast<int32_t>(text.size());
  const int32_t size = ucol_getSortKey(collator_.get(), characters, length, room.data(),
                                       static_cast<int32_t>(room.size()));
  if (size <= static_cast<int32_t>(room.size()))
    return {reinterpret_cast<const char*>(room.data()), size};
  QByteArray key(size, Qt::Uninitialized);
  ucol_getSortKey(collator_.get(), characters, length, reinterpret_cast<uint8_t*>(key.data()),
                  size);
  return key;
}

QList<qsizetype> Collation::sorted(std::span<const QString> names) const {
  struct Keyed {
    quint64 beginning;
    QByteArray key;
    qsizetype position;
  };
  const auto count = static_cast<qsizetype>(names.size());
  std::vector<Keyed> keyed(names.size());
  std::atomic<qsizetype> next = 0;
  const auto makeKeys = [&] {
    for (qsizetype from = 0; (from = next.fetch_add(kBatch)) < count;) {
      for (qsizetype i = from; i < std::min(from + kBatch, count); ++i) {
        QByteArray whole = key(names[static_cast<std::size_t>(i)]);
        const quint64 beginning = beginningOf(whole);
        keyed[static_cast<std::size_t>(i)] = {beginning, std::move(whole), i};
      }
    }
  };
  if (count > 2 * kBatch)
    onWorkers(makeKeys);
  else
    makeKeys();
  std::ranges::sort(keyed, [](const Keyed& a, const Keyed& b) {
    if (a.beginning != b.beginning) return a.beginning < b.beginning;
    const int order = std::strcmp(a.key.constData(), b.key.constData());
    return order != 0 ? order < 0 : a.position < b.position;
  });
  QList<qsizetype> positions;
  positions.reserve(count);
  for (const Keyed& one : keyed) positions.append(one.position);
  return positions;
}

}  // namespace orvex
