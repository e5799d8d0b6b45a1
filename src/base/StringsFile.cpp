#include "base/StringsFile.h"

#include "base/PropertyList.h"

#include <QStringDecoder>

namespace orvex {
namespace {

// Walks over a table's text.
class Reader {
 public:
  explicit Reader(QStringView text) : text_(text) {}

  // The next line's key and text.
  [[nodiscard]] std::expected<std::pair<QString, QString>, QString> line() {
    const auto key = word();
    if (!key) return std::unexpected(key.error());
    skipBlank();
    std::pair<QString, QString> result(*key, *key);
    if (take(u'=')) {
      const auto value = word();
      if (!value) return std::unexpected(value.error());
      result.second = *value;
      skipBlank();
    }
    if (!take(u';')) return std::unexpected(QStringLiteral("a line of the table has no end"));
    return result;
  }

  [[nodiscard]] bool atEnd() {
    skipBlank();
    return at_ == text_.size();
  }

 private:
  bool take(char16_t c) {
    if (at_ == text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }

  // White space and comments.
  void skipBlank() {
    while (at_ < text_.size()) {
      if (text_[at_].isSpace()) {
        ++at_;
        continue;
      }
      const QStringView rest = text_.sliced(at_);
      qsizetype end = 0;
      if (rest.startsWith(u"//"))
        end = rest.indexOf(u'\n');
      else if (rest.startsWith(u"/*"))
        end = rest.indexOf(u"*/", 2) + 1;
      else
        return;
      at_ = end > 0 ? at_ + end + 1 : text_.size();
    }
  }

  [[nodiscard]] std::expected<QString, QString> word() {
    skipBlank();
    for (const char16_t quote : {u'"', u'\''})
      if (take(quote)) return quoted(quote);
    const qsizetype begin = at_;
    while (at_ < text_.size() && isPlain(text_[at_])) ++at_;
    if (at_ == begin) return std::unexpected(QStringLiteral("a word is missing in the table"));
    return text_.sliced(begin, at_ - begin).toString();
  }

  static bool isPlain(QChar c) {
    return c.isLetterOrNumber() || QStringView(u"_$/:.-").contains(c);
  }

  [[nodiscard]] std::expected<QString, QString> quoted(char16_t quote) {
    QString result;
    while (at_ < text_.size()) {
      const QChar c = text_[at_++];
      if (c == quote) return result;
      if (c == u'\\' && at_ < text_.size())
        result.append(escaped());
      else
        result.append(c);
    }
    return std::unexpected(QStringLiteral("a text of the table has no end"));
  }

  QChar escaped() {
    const QChar c = text_[at_++];
    switch (c.unicode()) {
      case u'a':
        return u'\a';
      case u'b':
        return u'\b';
      case u'f':
        return u'\f';
      case u'n':
        return u'\n';
      case u'r':
        return u'\r';
      case u't':
        return u'\t';
      case u'v':
        return u'\v';
      case u'U':
      case u'u':
        return numbered(4, 16).value_or(c);
      default:
        break;
    }
    if (c < u'0' || c > u'7') return c;
    --at_;
    return numbered(3, 8).value_or(c);
  }

  // A character written as a number of up to `digits` digits.
  std::optional<QChar> numbered(qsizetype digits, int base) {
    char16_t value = 0;
    const qsizetype begin = at_;
    for (; at_ < text_.size() && at_ - begin < digits; ++at_) {
      bool valid = false;
      const uint digit = text_.sliced(at_, 1).toUInt(&valid, base);
      if (!valid) break;
      value = static_cast<char16_t>(value * base + static_cast<int>(digit));
    }
    if (at_ == begin) return std::nullopt;
    return QChar(value);
  }

  QStringView text_;
  qsizetype at_ = 0;
};

// UTF-16 is told by its mark, or by the zero byte of its first character: a table begins with
// ASCII.
QString decoded(const QByteArray& bytes) {
  const auto first = static_cast<uchar>(bytes.startsWith('\0') ? bytes.at(1) : bytes.at(0));
  const auto encoding = QStringConverter::encodingForData(bytes, char16_t{first});
  QStringDecoder decoder(encoding.value_or(QStringConverter::Utf8));
  return decoder(bytes);
}

}  // namespace

std::expected<QMap<QString, QString>, QString> StringsFile::parse(const QByteArray& bytes) {
  if (bytes.size() > PropertyList::kMaximumBytes)
    return std::unexpected(QStringLiteral("the table is too large"));
  QMap<QString, QString> texts;
  if (const auto list = PropertyList::parse(bytes)) {
    const QVariantMap values = list->toMap();
    for (auto value = values.begin(); value != values.end(); ++value)
      if (value->typeId() == QMetaType::QString) texts.insert(value.key(), value->toString());
    return texts;
  }
  if (bytes.size() < 2) return texts;
  const QString text = decoded(bytes);
  Reader reader(text);
  while (!reader.atEnd()) {
    const auto line = reader.line();
    if (!line) return std::unexpected(line.error());
    texts.insert(line->first, line->second);
  }
  return texts;
}

}  // namespace orvex
