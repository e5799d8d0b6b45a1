#include "engines/LUTHeader.h"

#include "base/Text.h"

#include <array>

namespace orvex {
namespace {

struct SizeLine {
  QLatin1StringView keyword;
  QLatin1StringView prefix;
};
constexpr std::array kSizeLines{
    SizeLine{QLatin1StringView("LUT_3D_SIZE"), QLatin1StringView("3D ")},
    SizeLine{QLatin1StringView("LUT_1D_SIZE"), QLatin1StringView("1D ")}};

template <typename Predicate>
QStringView trimmedOf(QStringView text, Predicate isOuter) {
  while (!text.isEmpty() && isOuter(text.front())) text = text.sliced(1);
  while (!text.isEmpty() && isOuter(text.back())) text.chop(1);
  return text;
}

bool isQuoteOrSpace(QChar c) {
  return c == u'"' || c == u' ';
}

bool isHorizontalSpace(QChar c) {
  return c == u'\t' || c.category() == QChar::Separator_Space;
}

}  // namespace

LUTHeader LUTHeader::parse(const QByteArray& text) {
  LUTHeader header;
  int lines = 0;
  for (qsizetype begin = 0; begin < text.size() && lines < kLines;) {
    qsizetype end = text.indexOf('\n', begin);
    if (end < 0) end = text.size();
    const QByteArrayView bytes = QByteArrayView(text).sliced(begin, end - begin);
    begin = end + 1;
    if (bytes.isEmpty()) continue;
    ++lines;
    const QString line = utf8Text(bytes).trimmed();
    if (constexpr QLatin1StringView kTitle("TITLE "); line.startsWith(kTitle))
      header.title = trimmedOf(QStringView(line).sliced(kTitle.size()), isQuoteOrSpace).toString();
    for (const SizeLine& size : kSizeLines) {
      if (!line.startsWith(size.keyword) || line.size() == size.keyword.size() ||
          line[size.keyword.size()] != u' ')
        continue;
      const QString rest = QString(line).remove(size.keyword);
      header.dimension = size.prefix + trimmedOf(rest, isHorizontalSpace).toString();
    }
  }
  return header;
}

}  // namespace orvex
