#include "base/PropertyList.h"
#include "base/StringsFile.h"

#include <QStringEncoder>

namespace {

QByteArray xml(const QByteArray& body) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
         "<plist version=\"1.0\">" +
         body + "</plist>";
}

// A binary list of the objects given, with offsets and references of one byte; the first is the
// top.
QByteArray binary(const QList<QByteArray>& objects) {
  QByteArray bytes = "bplist00";
  QByteArray table;
  for (const QByteArray& object : objects) {
    table.append(static_cast<char>(bytes.size()));
    bytes.append(object);
  }
  const auto start = static_cast<char>(bytes.size());
  return bytes + table + QByteArray(6, '\0') + "\x01\x01" + QByteArray(7, '\0') +
         static_cast<char>(objects.size()) + QByteArray(8, '\0') + QByteArray(7, '\0') + start;
}

QByteArray text(const char* letter) {
  return QByteArray("\x51") + letter;
}

// Arrays in arrays, each with so many references to the next one, around a boolean.
QByteArray nested(int levels, int references) {
  QList<QByteArray> objects;
  for (int i = 1; i <= levels; ++i)
    objects.append(static_cast<char>(0xA0 + references) +
                   QByteArray(references, static_cast<char>(i)));
  return binary(objects << "\x09");
}

const QByteArray kTrue("\x09");
const QByteArray kDate = QByteArray("\x33") + "12345678";

TEST(PropertyList, KeepsTypesApartInBothForms) {
  const auto fromXml = PropertyList::parse(
      xml("<dict><key>b</key><true/><key>i</key><integer>5</integer><key>s</key>"
          "<string>ş</string><key>a</key><array><real>2</real><data>AAE=</data>"
          "<date>2026-01-31T23:59:59Z</date></array></dict>"));
  // {b: true, i: 5, s: "ş" in UTF-16, a: [2.0, <00 01>, a date]}
  const auto fromBinary = PropertyList::parse(
      binary({"\xD4\x01\x02\x03\x04\x05\x06\x07\x08", text("b"), text("i"), text("s"), text("a"),
              kTrue, "\x10\x05", "\x61\x01\x5F", "\xA3\x09\x0A\x0B",
              QByteArray("\x23\x40\x00\x00\x00\x00\x00\x00\x00", 9), QByteArray("\x42\x00\x01", 3),
              kDate}));
  for (const auto& parsed : {fromXml, fromBinary}) {
    ASSERT_TRUE(parsed);
    const QVariantMap map = parsed->toMap();
    EXPECT_EQ(map.value(u"b"_qs), QVariant(true));
    EXPECT_EQ(map.value(u"i"_qs), QVariant(qlonglong{5}));
    EXPECT_EQ(map.value(u"s"_qs), QVariant(u"ş"_qs));
    EXPECT_EQ(map.value(u"a"_qs),
              QVariant(QVariantList{2.0, QByteArray("\x00\x01", 2), QVariant()}));
  }
}

TEST(PropertyList, RefusesWhatItsParserWouldNotSurvive) {
  EXPECT_TRUE(PropertyList::parse(nested(PropertyList::kMaximumDepth - 1, 1)));
  const QByteArray levels = QByteArray("<array>").repeated(PropertyList::kMaximumDepth);
  const QByteArray rows[]{
      "",
      xml("<date>2020</date>"),
      xml("<date>2020-01-02T03:04:05Z <"),
      // A date in what only one parser reads.
      {"<!DOCTYPE plist [<!ENTITY a \"]><plist><date>x</date></plist>\">]><plist><true/></plist>"},
      "<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><string>&a;</string></plist>",
      xml(levels + QByteArray("</array>").repeated(PropertyList::kMaximumDepth)),
      // Deep where another encoding hides it.
      "<?xml version=\"1.0\" encoding=\"HZ-GB-2312\"?><plist><array><string>~{</string>" + levels +
          QByteArray("</array>").repeated(PropertyList::kMaximumDepth) +
          " <string>~}</string></array></plist>",
      binary({"\xA1\x01",
              "\x32"
              "1234"}),
      nested(PropertyList::kMaximumDepth, 1),
      nested(40, 2),
      // Binary ones: holding itself, a reference too far, a length too large, a number for a key,
      // keys with a zero, a set, a wide integer, widths of zero.
      binary({QByteArray("\xA1\x00", 2)}),
      binary({"\xA1\x07"}),
      binary({QByteArray("\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10)}),
      binary({"\xD1\x01\x01", QByteArray("\x10\x01", 2)}),
      binary({"\xD1\x01\x02", QByteArray("\x53\x61\0b", 4), kTrue}),
      binary({"\xD1\x01\x02", QByteArray("\x62\0a\0\0", 5), kTrue}),
      binary({"\xC1\x01", kTrue}),
      binary({QByteArray("\x14") + "0123456789abcdef"}),
      "bplist00" + kTrue + QByteArray("\x08", 1) + QByteArray(32, '\1'),
  };
  for (const QByteArray& row : rows) EXPECT_FALSE(PropertyList::parse(row)) << row.left(200).data();
}

TEST(PropertyList, WritesWhatItReadsBackOrNothing) {
  const QVariantMap dictionary{{u"ok"_qs, true},
                               {u"no"_qs, false},
                               {u"message"_qs, u"Işık LUT'u \U0001F3AC kaydına"_qs},
                               {u"path"_qs, QString(3000, u'/')},
                               {u"\uFEFFkey"_qs, u"\uFEFF\uFEFF.cube"_qs},
                               {u"boş"_qs, QString(u""_qs)}};
  const auto bytes = PropertyList::binary(dictionary);
  ASSERT_TRUE(bytes) << bytes.error();
  EXPECT_TRUE(bytes->startsWith("bplist00"));
  EXPECT_EQ(PropertyList::parse(*bytes), QVariant(dictionary));
  for (const QVariant& value :
       {QVariant(1), QVariant(u"a\0b"_qs), QVariant(QString(QChar(0xD800)))})
    EXPECT_FALSE(PropertyList::binary({{u"key"_qs, value}}))
        << qPrintable(value.toString().left(9));
}

TEST(StringsFile, ReadsTablesInEveryForm) {
  using Table = QMap<QString, QString>;
  QStringEncoder utf16(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
  const std::pair<QByteArray, Table> rows[]{
      {"\"a b\" = \"Parıltı \\\"X\\\" \\n\\U015F\\101\"; /* \"x\" = ; */ plain-key=word;",
       {{u"a b"_qs, u"Parıltı \"X\" \nşA"_qs}, {u"plain-key"_qs, u"word"_qs}}},
      {utf16(u"\"a\" = \"ş\";"_qs), {{u"a"_qs, u"ş"_qs}}},
      {xml("<dict><key>a</key><string>x</string><key>n</key><true/></dict>"), {{u"a"_qs, u"x"_qs}}},
      {binary({"\xD1\x01\x02", text("b"), text("c")}), {{u"b"_qs, u"c"_qs}}},
      {"/* only a comment", {}},
  };
  for (const auto& [bytes, table] : rows) EXPECT_EQ(StringsFile::parse(bytes), table);
  // What it cannot make sense of is refused as a whole.
  for (const char* broken : {"\"a\" = \"b", "\"a\" = ;", "a = b", "\"a\\", "a \"b\";"})
    EXPECT_FALSE(StringsFile::parse(broken)) << broken;
}

}  // namespace
