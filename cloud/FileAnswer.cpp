#include "cloud/FileAnswer.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <limits>
#include <optional>

namespace orvex {
namespace {

const QString kDateFormat = QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'");

std::optional<qint64> readDate(const QByteArray& text) {
  QDateTime date = QLocale::c().toDateTime(QString::fromLatin1(text.trimmed()), kDateFormat);
  if (!date.isValid()) return std::nullopt;
  date.setTimeSpec(Qt::UTC);
  return date.toSecsSinceEpoch();
}

// For a copy to be used as it is, a tag that says "much the same" is good enough.
bool namesTag(const QByteArray& field, const QByteArray& tag) {
  if (field.trimmed() == "*") return true;
  const QList<QByteArray> tags = field.split(',');
  return std::ranges::any_of(tags, [&tag](const QByteArray& one) {
    const QByteArray trimmed = one.trimmed();
    return trimmed == tag || trimmed == "W/" + tag;
  });
}

bool isCurrent(const FileConditions& conditions, const QByteArray& tag, qint64 modified) {
  if (!conditions.ifNoneMatch.isEmpty()) return namesTag(conditions.ifNoneMatch, tag);
  const auto since = readDate(conditions.ifModifiedSince);
  return since && modified <= *since;
}

// A part may only be put to what the client has of the very same file.
bool mayBeSentInPart(const FileConditions& conditions, const QByteArray& tag, qint64 modified) {
  if (conditions.ifRange.isEmpty()) return true;
  return conditions.ifRange.startsWith('"') ? conditions.ifRange == tag
                                            : readDate(conditions.ifRange) == modified;
}

// Digits only: no signs, no blanks.
std::optional<qint64> readCount(const QByteArray& text) {
  if (text.isEmpty() || !std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; }))
    return std::nullopt;
  bool ok = false;
  const qint64 value = text.toLongLong(&ok);
  // A count beyond 64 bits lies behind the end of any file.
  return ok ? value : std::numeric_limits<qint64>::max();
}

// Nothing when the field asks for no single range.
std::optional<FileAnswer> answerRange(const QByteArray& field, qint64 bytes) {
  constexpr QByteArrayView kUnit("bytes=");
  const qsizetype dash = field.indexOf('-');
  if (!field.startsWith(kUnit) || dash < 0) return std::nullopt;
  const QByteArray first = field.first(dash).sliced(kUnit.size());
  const QByteArray last = field.sliced(dash + 1);
  const auto begin = readCount(first);
  const auto end = readCount(last);
  if ((!begin && !first.isEmpty()) || (!end && !last.isEmpty()) || (!begin && !end) ||
      (begin && end && *end < *begin))
    return std::nullopt;
  // "bytes=-500" are the last 500.
  if (!begin) {
    const qint64 count = std::min(*end, bytes);
    return count > 0 ? FileAnswer{206, bytes - count, count} : FileAnswer{416};
  }
  if (*begin >= bytes) return FileAnswer{416};
  return FileAnswer{206, *begin, std::min(end.value_or(bytes - 1), bytes - 1) - *begin + 1};
}

}  // namespace

FileAnswer answerFor(const FileConditions& conditions, const QByteArray& entityTag, qint64 modified,
                     qint64 bytes) {
  if (isCurrent(conditions, entityTag, modified)) return {304};
  if (!conditions.range.isEmpty() && mayBeSentInPart(conditions, entityTag, modified))
    if (const auto answer = answerRange(conditions.range, bytes)) return *answer;
  return {200, 0, bytes};
}

QByteArray httpDate(qint64 seconds) {
  return QLocale::c()
      .toString(QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC), kDateFormat)
      .toLatin1();
}

}  // namespace orvex
