#include "base/BinaryPropertyList.h"

namespace orvex {
namespace {

// The form: "bplist00", objects, a table of their offsets, and a trailer of 32 bytes with (each a
// big-endian number) the widths of an offset and of a reference in bytes 6 and 7, then in 8 bytes
// each the number of objects, the one at the top and where the table of offsets begins. An object
// begins with a byte of its type and a 4-bit length, 15 meaning that the length follows as a
// number.
constexpr qsizetype kTrailerSize = 32;
constexpr qsizetype kMagicSize = 8;

enum Type : quint8 {
  Simple = 0x0,
  Integer = 0x1,
  Real = 0x2,
  Date = 0x3,
  Data = 0x4,
  Ascii = 0x5,
  Utf16 = 0x6,
  Array = 0xA,
  Dictionary = 0xD,
};
constexpr quint8 kFalse = 0x08;
constexpr quint8 kTrue = 0x09;

// An object may be referred to many times, and a parser makes a copy each time. All copies together
// may cost this much, one object costing its bytes and a little.
constexpr quint64 kMaximumCost = 2 * 1024 * 1024;
constexpr quint64 kObjectCost = 16;

bool isWidth(qsizetype width) {
  return width == 1 || width == 2 || width == 4 || width == 8;
}

// Throws the reason, a QString, why the list is refused.
class Checker {
 public:
  Checker(const QByteArray& bytes, int maximumDepth) : bytes_(bytes), maximumDepth_(maximumDepth) {
    require(bytes_.size() >= kMagicSize + kTrailerSize, u"it is too short");
    const qsizetype trailer = bytes_.size() - kTrailerSize;
    offsetWidth_ = static_cast<qsizetype>(number(trailer + 6, 1));
    referenceWidth_ = static_cast<qsizetype>(number(trailer + 7, 1));
    count_ = number(trailer + 8, 8);
    const quint64 table = number(trailer + 24, 8);
    require(
        isWidth(offsetWidth_) && isWidth(referenceWidth_) && table >= kMagicSize &&
            table <= static_cast<quint64>(trailer) &&
            count_ <= (static_cast<quint64>(trailer) - table) / static_cast<quint64>(offsetWidth_),
        u"its trailer is wrong");
    table_ = static_cast<qsizetype>(table);
    visit(number(trailer + 16, 8), 1);
  }

 private:
  static void require(bool condition, QStringView reason) {
    if (!condition) throw reason.toString();
  }

  // `at` and `width` lie within the bytes.
  [[nodiscard]] quint64 number(qsizetype at, qsizetype width) const {
    quint64 value = 0;
    for (qsizetype i = 0; i < width; ++i) value = value << 8 | static_cast<quint8>(bytes_[at + i]);
    return value;
  }

  // That `count` pieces of `width` bytes fit between `at` and the table of offsets.
  void requireRoom(qsizetype at, quint64 count, qsizetype width) const {
    require(at <= table_ && count <= static_cast<quint64>((table_ - at) / width),
            u"an object is cut off");
  }

  [[nodiscard]] qsizetype offsetOf(quint64 object) const {
    require(object < count_, u"a reference leads nowhere");
    const quint64 offset =
        number(table_ + static_cast<qsizetype>(object) * offsetWidth_, offsetWidth_);
    require(offset >= kMagicSize && offset < static_cast<quint64>(table_),
            u"an object lies outside");
    return static_cast<qsizetype>(offset);
  }

  void spend(quint64 cost) {
    cost_ += cost;
    require(cost_ <= kMaximumCost, u"it is too large when written out");
  }

  // What is shared is visited each time it is met, as the parser will.
  void visit(quint64 object, int depth) {
    require(depth <= maximumDepth_, u"it is nested too deeply");
    spend(kObjectCost);
    qsizetype at = offsetOf(object);
    const auto marker = static_cast<quint8>(bytes_[at++]);
    const quint8 low = marker & 0x0F;
    switch (marker >> 4) {
      case Simple:
        return require(marker == kFalse || marker == kTrue, u"it holds an odd object");
      case Integer:
        require(low <= 3, u"it holds an odd number");
        return requireRoom(at, 1, qsizetype{1} << low);
      case Real:
        require(low == 2 || low == 3, u"it holds an odd number");
        return requireRoom(at, 1, qsizetype{1} << low);
      case Date:
        require(low == 3, u"it holds an odd date");
        return requireRoom(at, 1, sizeof(double));
      case Data:
      case Ascii:
        return visitBytes(at, low, 1);
      case Utf16:
        return visitBytes(at, low, 2);
      case Array: {
        const qsizetype count = readLength(at, low, referenceWidth_);
        return visitReferences(at, count, depth);
      }
      case Dictionary: {
        const qsizetype count = readLength(at, low, 2 * referenceWidth_);
        // First, because it bounds what looking through all the keys can cost.
        visitReferences(at, 2 * count, depth);
        for (qsizetype i = 0; i < count; ++i)
          requireKey(number(at + i * referenceWidth_, referenceWidth_));
        return;
      }
      default:
        require(false, u"it holds an odd object");
    }
  }

  // How many pieces of `width` bytes an object has, all of them there; moves `at` to the first.
  [[nodiscard]] qsizetype readLength(qsizetype& at, quint8 low, qsizetype width) const {
    quint64 length = low;
    if (low == 0x0F) {
      requireRoom(at, 1, 1);
      const auto marker = static_cast<quint8>(bytes_[at++]);
      require(marker >> 4 == Integer && (marker & 0x0F) <= 3, u"a length is wrong");
      const qsizetype size = qsizetype{1} << (marker & 0x0F);
      requireRoom(at, 1, size);
      length = number(at, size);
      at += size;
    }
    requireRoom(at, length, width);
    return static_cast<qsizetype>(length);
  }

  // That the object is a text without a zero character, at which the parser would give up the
  // process.
  void requireKey(quint64 object) const {
    qsizetype at = offsetOf(object);
    const auto marker = static_cast<quint8>(bytes_[at++]);
    require(marker >> 4 == Ascii || marker >> 4 == Utf16, u"a key is no text");
    const qsizetype width = marker >> 4 == Utf16 ? 2 : 1;
    const qsizetype length = readLength(at, marker & 0x0F, width);
    for (qsizetype i = 0; i < length; ++i)
      require(number(at + i * width, width) != 0, u"a key holds a zero character");
  }

  void visitBytes(qsizetype at, quint8 low, qsizetype width) {
    spend(static_cast<quint64>(readLength(at, low, width) * width));
  }

  void visitReferences(qsizetype at, qsizetype count, int depth) {
    for (qsizetype i = 0; i < count; ++i)
      visit(number(at + i * referenceWidth_, referenceWidth_), depth + 1);
  }

  const QByteArray& bytes_;
  int maximumDepth_;
  qsizetype offsetWidth_ = 0;
  qsizetype referenceWidth_ = 0;
  quint64 count_ = 0;
  qsizetype table_ = 0;
  quint64 cost_ = 0;
};

}  // namespace

bool isBinaryPropertyList(const QByteArray& bytes) {
  return bytes.startsWith("bplist00");
}

std::expected<void, QString> checkBinaryPropertyList(const QByteArray& bytes, int maximumDepth) {
  try {
    const Checker checker(bytes, maximumDepth);
  } catch (const QString& reason) {
    return std::unexpected(QStringLiteral("the binary property list is refused: ") + reason);
  }
  return {};
}

}  // namespace orvex
