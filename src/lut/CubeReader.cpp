#include "base/ByteOrderMark.h"
#include "lut/CubeLattice.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <span>

namespace orvex {
namespace {

constexpr int kMinimumSize = 2;
constexpr int kMaximumSize = 256;
constexpr int kMaximumShaperSize = 65536;
// The shortest row there can be, "0 0 0", and its end.
constexpr qsizetype kShortestRow = 6;
// What is shown of a text that is not understood, in bytes.
constexpr std::size_t kShownBytes = 24;

bool isBlank(char c) noexcept {
  return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

bool beginsKeyword(char c) noexcept {
  return (c >= 'A' && c <= 'Z') || c == '_';
}

bool isKeywordCharacter(char c) noexcept {
  return beginsKeyword(c) || (c >= '0' && c <= '9');
}

QString shown(std::string_view text) {
  QString copy = QString::fromUtf8(QByteArrayView(text.substr(0, kShownBytes)));
  for (QChar& c : copy)
    if (!c.isPrint()) c = QChar::ReplacementCharacter;
  if (text.size() > kShownBytes) copy += u'…';
  return u'“' + copy + u'”';
}

// Walks through the lines of a text; CR LF, LF and CR end one.
class Lines {
 public:
  explicit Lines(QByteArrayView text) : rest_(text.data(), static_cast<std::size_t>(text.size())) {}

  [[nodiscard]] bool next() {
    if (rest_.empty()) return false;
    std::size_t end = 0;
    while (end < rest_.size() && rest_[end] != '\n' && rest_[end] != '\r') ++end;
    line_ = rest_.substr(0, end);
    const bool pair = rest_.substr(end).starts_with("\r\n");
    rest_.remove_prefix(std::min(end + (pair ? 2 : 1), rest_.size()));
    ++number_;
    return true;
  }
  [[nodiscard]] std::string_view line() const noexcept { return line_; }
  /// Counted from 1.
  [[nodiscard]] int number() const noexcept { return number_; }

 private:
  std::string_view rest_;
  std::string_view line_;
  int number_ = 0;
};

class CubeReader {
 public:
  explicit CubeReader(QByteArrayView text) : text_(text), lines_(text) {}

  /// Throws `CubeError`.
  CubeLattice read() {
    while (lines_.next()) {
      rest_ = lines_.line();
      skipBlanks();
      if (atEnd()) continue;
      if (beginsKeyword(rest_.front()) && !isNonNumber(peek()))
        readKeyword();
      else
        readRow();
    }
    finish();
    return std::move(lattice_);
  }

 private:
  struct Range {
    Rgb minimum;
    Rgb maximum;
  };

  // What programs write for a value that is none.
  static bool isNonNumber(std::string_view token) {
    if (token.starts_with('-') || token.starts_with('+')) token.remove_prefix(1);
    const QByteArray text = QByteArray(token.data(), std::ssize(token)).toLower();
    return text == "nan" || text.startsWith("nan(") || text == "inf" || text == "infinity" ||
           text.startsWith("1.#");
  }

  [[noreturn]] void fail(const QString& reason) const { throw CubeError{lines_.number(), reason}; }

  void skipBlanks() noexcept {
    while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
  }
  // Of the line; what comes after a number sign is a comment.
  [[nodiscard]] bool atEnd() const noexcept { return rest_.empty() || rest_.front() == '#'; }

  [[nodiscard]] std::string_view peek() const noexcept {
    std::size_t length = 0;
    while (length < rest_.size() && !isBlank(rest_[length])) ++length;
    return rest_.substr(0, length);
  }
  std::string_view token() noexcept {
    const std::string_view token = peek();
    rest_.remove_prefix(token.size());
    skipBlanks();
    return token;
  }

  void readKeyword() {
    const std::string_view keyword = token();
    if (keyword == "LUT_3D_SIZE")
      readLatticeSize();
    else if (keyword == "LUT_1D_SIZE")
      readShaperSize();
    else if (keyword == "DOMAIN_MIN")
      readOnce(domainMin_, keyword, row(keyword));
    else if (keyword == "DOMAIN_MAX")
      readOnce(domainMax_, keyword, row(keyword));
    else if (keyword == "LUT_3D_INPUT_RANGE")
      readOnce(latticeRange_, keyword, range(keyword));
    else if (keyword == "LUT_1D_INPUT_RANGE")
      readOnce(shaperRange_, keyword, range(keyword));
    else if (!std::ranges::all_of(keyword, isKeywordCharacter))
      fail(QStringLiteral("Satır anlaşılmadı: ") + shown(keyword) + u'.');
    // TITLE and what other programs add say nothing of the colours.
  }

  template <typename Value>
  void readOnce(std::optional<Value>& place, std::string_view keyword, const Value& value) const {
    if (place) failTwice(keyword);
    place = value;
  }
  [[noreturn]] void failTwice(std::string_view keyword) const {
    fail(QString::fromLatin1(keyword) + QStringLiteral(" ikinci kez yazılmış."));
  }

  void readLatticeSize() {
    if (lattice_.size != 0) failTwice("LUT_3D_SIZE");
    if (!lattice_.shaper.empty() && std::ssize(lattice_.shaper) < shaperSize_)
      fail(QStringLiteral("LUT_3D_SIZE tablodan önce gelmeli."));
    lattice_.size = count("LUT_3D_SIZE", kMaximumSize);
    lattice_.sizeLine = lines_.number();
    reserve(lattice_.points, latticeRows());
  }

  void readShaperSize() {
    if (shaperSize_ != 0) failTwice("LUT_1D_SIZE");
    if (!lattice_.points.empty()) fail(QStringLiteral("LUT_1D_SIZE tablodan önce gelmeli."));
    shaperSize_ = count("LUT_1D_SIZE", kMaximumShaperSize);
    shaperLine_ = lines_.number();
    reserve(lattice_.shaper, shaperSize_);
  }

  // A size costs no more memory than the rows that the file has room for.
  void reserve(std::vector<Rgb>& rows, qsizetype declared) const {
    rows.reserve(static_cast<std::size_t>(std::min(declared, text_.size() / kShortestRow + 1)));
  }

  [[nodiscard]] qsizetype latticeRows() const noexcept {
    return qsizetype{lattice_.size} * lattice_.size * lattice_.size;
  }

  int count(std::string_view keyword, int maximum) {
    const std::string_view text = token();
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < kMinimumSize ||
        value > maximum || !atEnd())
      fail(QStringLiteral("%1 için %2–%3 arası tek bir tam sayı yazılmalı.")
               .arg(QString::fromLatin1(keyword))
               .arg(kMinimumSize)
               .arg(maximum));
    return value;
  }

  Rgb row(std::string_view keyword) {
    Rgb values{};
    readNumbers(values, keyword);
    return values;
  }

  Range range(std::string_view keyword) {
    std::array<float, 2> ends{};
    readNumbers(ends, keyword);
    return {{ends[0], ends[0], ends[0]}, {ends[1], ends[1], ends[1]}};
  }

  // `keyword` is empty in a row of the table.
  void readNumbers(std::span<float> values, std::string_view keyword) {
    for (float& value : values) {
      if (atEnd()) failCount(values.size(), keyword);
      value = number(token());
    }
    if (!atEnd()) failCount(values.size(), keyword);
  }
  [[noreturn]] void failCount(std::size_t wanted, std::string_view keyword) const {
    if (keyword.empty()) fail(QStringLiteral("Tablo satırında %1 sayı olmalı.").arg(wanted));
    fail(
        QStringLiteral("%1 için %2 sayı yazılmalı.").arg(QString::fromLatin1(keyword)).arg(wanted));
  }

  float number(std::string_view text) const {
    std::string_view digits = text;
    if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
    // The wider type, so that a number too small for the narrower one is zero and no error.
    double value = 0;
    const char* last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, value);
    const bool fits = std::abs(value) <= double{std::numeric_limits<float>::max()};
    if (error == std::errc() && end == last && fits) return static_cast<float>(value);
    if (isNonNumber(text)) fail(shown(text) + QStringLiteral(" geçerli bir renk değeri değil."));
    if (text.find(',') != std::string_view::npos)
      fail(shown(text) + QStringLiteral(": ondalık ayırıcı virgül değil nokta olmalı."));
    if (end == last && error != std::errc::invalid_argument)
      fail(shown(text) + QStringLiteral(" çok büyük veya çok küçük bir sayı."));
    fail(shown(text) + QStringLiteral(" bir sayı değil."));
  }

  void readRow() {
    const Rgb values = row({});
    if (std::ssize(lattice_.shaper) < shaperSize_) {
      lattice_.shaper.push_back(values);
    } else if (lattice_.size == 0) {
      if (shaperSize_ != 0) failRows(shaperSize_);
      fail(QStringLiteral("Tablodan önce LUT_3D_SIZE satırı yok."));
    } else if (std::ssize(lattice_.points) == latticeRows()) {
      failRows(shaperSize_ + latticeRows());
    } else {
      lattice_.points.push_back(values);
    }
  }
  [[noreturn]] void failRows(qsizetype wanted) const {
    fail(QStringLiteral("Tabloda fazla satır var: %1 satır olmalı.").arg(wanted));
  }

  void finish() {
    if (lattice_.size == 0) {
      if (shaperSize_ == 0) throw CubeError{0, QStringLiteral("LUT_3D_SIZE satırı yok.")};
      throw CubeError{shaperLine_, QStringLiteral("Yalnız 1D tablo var; 3D tablo gerekli.")};
    }
    const qsizetype rows = std::ssize(lattice_.shaper) + std::ssize(lattice_.points);
    if (const qsizetype wanted = shaperSize_ + latticeRows(); rows < wanted)
      fail(QStringLiteral("Tablo eksik: %1 satır olmalı, %2 satır var.").arg(wanted).arg(rows));
    setDomain();
    if (shaperRange_) {
      lattice_.shaperMin = shaperRange_->minimum;
      lattice_.shaperMax = shaperRange_->maximum;
    }
    check(lattice_.domainMin, lattice_.domainMax);
    check(lattice_.shaperMin, lattice_.shaperMax);
  }

  // Two ways to say it, which must not contradict each other: programs disagree on which one holds.
  void setDomain() {
    const Range unit{{0, 0, 0}, {1, 1, 1}};
    const Range domain{domainMin_.value_or(unit.minimum), domainMax_.value_or(unit.maximum)};
    const Range chosen = latticeRange_.value_or(domain);
    const auto differ = [&domain](const Range& other) {
      return domain.minimum != other.minimum || domain.maximum != other.maximum;
    };
    if ((domainMin_ || domainMax_) && (differ(chosen) || (shaperSize_ != 0 && differ(unit))))
      throw CubeError{0, QStringLiteral("DOMAIN_MIN ve DOMAIN_MAX, öteki giriş aralığıyla veya 1D "
                                        "tabloyla çelişiyor.")};
    lattice_.domainMin = chosen.minimum;
    lattice_.domainMax = chosen.maximum;
  }

  static void check(const Rgb& minimum, const Rgb& maximum) {
    for (std::size_t i = 0; i < 3; ++i)
      if (minimum[i] >= maximum[i])
        throw CubeError{0, QStringLiteral("Giriş aralığının başı sonundan küçük olmalı.")};
  }

  QByteArrayView text_;
  Lines lines_;
  std::string_view rest_;
  CubeLattice lattice_;
  int shaperSize_ = 0;
  int shaperLine_ = 0;
  std::optional<Rgb> domainMin_;
  std::optional<Rgb> domainMax_;
  std::optional<Range> latticeRange_;
  std::optional<Range> shaperRange_;
};

// Of the first line that is not UTF-8; the ends of lines never lie within a character.
int badLine(QByteArrayView text) {
  Lines lines(text);
  while (lines.next() && QByteArrayView(lines.line()).isValidUtf8()) {
  }
  return lines.number();
}

}  // namespace

std::expected<CubeLattice, CubeError> readCube(QByteArrayView text) {
  if (text.startsWith(kByteOrderMark)) text = text.sliced(kByteOrderMark.size());
  if (!text.isValidUtf8())
    return std::unexpected(CubeError{badLine(text), QStringLiteral("UTF-8 metin değil.")});
  try {
    return CubeReader(text).read();
  } catch (CubeError& error) {
    return std::unexpected(std::move(error));
  }
}

}  // namespace orvex
