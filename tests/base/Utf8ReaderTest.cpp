#include "base/FileDescriptor.h"
#include "base/Utf8Reader.h"

namespace {

using Failure = Utf8Reader::Failure;

std::expected<QByteArray, Failure> read(const QByteArray& path) {
  const FileDescriptor file(::open(path.constData(), O_RDONLY | O_NONBLOCK));
  Utf8Reader reader;
  return reader.header(file.get(), {}, 1000);
}

constexpr qsizetype kPiece = Utf8Reader::kHeaderSize;

TEST(Utf8Reader, ChecksEveryByte) {
  const QByteArray line = "TITLE \"x\"\n";
  const QByteArray long1 = QByteArray(kPiece, 'x') + '\n';
  const std::pair<QByteArray, std::optional<QByteArray>> rows[]{
      {"", ""},
      {line, line},
      {"\xEF\xBB\xBF" + line, line},
      {"ş€𝄞", "ş€𝄞"},
      {"a\xE2\x82", {}},
      {"\xC0\xAF", {}},
      {"\xED\xA0\x80", {}},
      {"\xF4\x90\x80\x80", {}},
      {line + long1 + "\xE7" + line, {}},
      {QByteArray(kPiece - 1, 'x') + "\xE2", {}},
      // The header of a large file is its whole lines.
      {line + long1, line},
      {long1, ""},
  };
  const TemporaryTree tree;
  for (const auto& [contents, expected] : rows) {
    tree.file("x", contents);
    const auto header = read(tree.path("x"));
    EXPECT_TRUE(expected ? header == *expected : header == std::unexpected(Failure::NotUtf8))
        << contents.right(20).toHex().constData();
  }
}

// A character of several bytes across the border of two pieces, in every position.
TEST(Utf8Reader, JoinsCharactersAcrossPieces) {
  const TemporaryTree tree;
  for (const QByteArray& character : {QByteArray("ş"), QByteArray("€"), QByteArray("𝄞")}) {
    for (qsizetype before = 0; before <= character.size(); ++before) {
      const QByteArray padding(kPiece - before, 'x');
      tree.file("x", padding + character + padding + character);
      EXPECT_TRUE(read(tree.path("x"))) << character.constData() << before;
      tree.file("x", padding + character.chopped(1) + padding);
      EXPECT_FALSE(read(tree.path("x"))) << character.constData() << before;
    }
  }
}

// Reading what the file claims to hold would take hours.
TEST(Utf8Reader, PassesOverHoles) {
  const TemporaryTree tree;
  for (const char last : {'x', '\xFF'}) {
    tree.file("x", "LUT_3D_SIZE 2\n");
    const FileDescriptor file(::open(tree.path("x").constData(), O_WRONLY));
    ASSERT_EQ(::pwrite(file.get(), &last, 1, off_t{1} << 41), 1);
    EXPECT_EQ(read(tree.path("x")).has_value(), last == 'x');
  }
}

}  // namespace
