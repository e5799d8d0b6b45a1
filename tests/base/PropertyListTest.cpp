#include "base/PropertyList.h"
#include "base/StringsFile.h"

#include <QMetaType>
#include <QStringEncoder>

#include <gtest/gtest.h>

using namespace orvex;

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

const QByteArray kTrue("\x09");
const QByteArray kDate(
    "\x33"
    "12345678");

TEST(PropertyList, KeepsTypesApartInBothForms) {
  const auto fromXml = PropertyList::parse(
      xml("<dict><key>b</key><true/><key>i</key><integer>5</integer><key>s</key>"
          "<string>ş</string><key>a</key><array><real>2</real><data>AAE=</data></array></dict>"));
  // {b: true, i: 5, s: "ş" in UTF-16, a: [2.0, <00 01>]}
  const auto fromBinary = PropertyList::parse(binary(
      {"\xD4\x01\x02\x03\x04\x05\x06\x07\x08",
       "\x51"
       "b",
       "\x51"
       "i",
       "\x51"
       "s",
       "\x51"
       "a",
       kTrue, "\x10\x05", "\x61\x01\x5F", "\xA2\x09\x0A",
       QByteArray("\x23\x40\x00\x00\x00\x00\x00\x00\x00", 9), QByteArray("\x42\x00\x01", 3)}));
  for (const auto& parsed : {fromXml, fromBinary}) {
    ASSERT_TRUE(parsed);
    const QVariantMap map = parsed->toMap();
    EXPECT_EQ(map.value(QStringLiteral("b")), QVariant(true));
    EXPECT_EQ(map.value(QStringLiteral("i")), QVariant(qlonglong{5}));
    EXPECT_EQ(map.value(QStringLiteral("s")), QVariant(QStringLiteral("ş")));
    EXPECT_EQ(map.value(QStringLiteral("a")),
              QVariant(QVariantList{2.0, QByteArray("\x00\x01", 2)}));
  }
}

TEST(PropertyList, RefusesWhatItsParserWouldNotSurvive) {
  QByteArray deep = kTrue;
  QList<QByteArray> chain;
  QList<QByteArray> doubling;
  for (int i = 0; i < PropertyList::kMaximumDepth; ++i) {
    chain.append("\xA1" + QByteArray(1, static_cast<char>(i + 1)));
    doubling.append("\xA2" + QByteArray(2, static_cast<char>(i + 1)));
  }
  QList<QByteArray> shallow = chain.mid(1);
  for (QByteArray& object : shallow) object[1] = static_cast<char>(object[1] - 1);
  shallow.append(kTrue);
  EXPECT_TRUE(PropertyList::parse(binary(shallow)));
  chain.append(kTrue);
  const QList<QByteArray> sharing = doubling.first(40) << kTrue;

  const QByteArray levels = QByteArray("<array>").repeated(PropertyList::kMaximumDepth);
  const struct {
    const char* name;
    QByteArray bytes;
  } rows[]{
      {"nothing", ""},
      {"text", "hello"},
      {"unclosed", "<plist><dict>"},
      {"date", xml("<date>2020</date>")},
      {"date in what only one parser reads",
       "<!DOCTYPE plist [<!ENTITY a \"]><plist><date>x</date></plist>\">]><plist><true/></plist>"},
      {"own entities", "<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><string>&a;</string></plist>"},
      {"deep", xml(levels + QByteArray("</array>").repeated(PropertyList::kMaximumDepth))},
      {"deep where another encoding hides it",
       "<?xml version=\"1.0\" encoding=\"HZ-GB-2312\"?><plist><array><string>~{</string>" + levels +
           QByteArray("</array>").repeated(PropertyList::kMaximumDepth) +
           " <string>~}</string></array></plist>"},
      {"large", xml("<string>" + QByteArray(PropertyList::kMaximumBytes, 'x') + "</string>")},
      {"binary date", binary({kDate})},
      {"binary date inside", binary({"\xA1\x01", kDate})},
      {"binary deep", binary(chain)},
      {"binary doubling", binary(sharing)},
      {"binary holding itself", binary({QByteArray("\xA1\x00", 2)})},
      {"binary reference too far", binary({"\xA1\x07"})},
      {"binary text cut off", binary({"\x5Fx"})},
      {"binary length too large",
       binary({QByteArray("\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10)})},
      {"binary dictionary with a number for a key",
       binary({"\xD1\x01\x01", QByteArray("\x10\x01", 2)})},
      {"binary key with a zero", binary({"\xD1\x01\x02",
                                         QByteArray("\x53"
                                                    "a\0b",
                                                    4),
                                         kTrue})},
      {"binary wide key with a zero",
       binary({"\xD1\x01\x02", QByteArray("\x62\0a\0\0", 5), kTrue})},
      {"binary unknown object", binary({"\x80"
                                        "x"})},
      {"binary set", binary({"\xC1\x01", kTrue})},
      {"binary wide integer", binary({"\x14"
                                      "0123456789abcdef"})},
      {"binary trailer only", "bplist00" + QByteArray(32, '\0')},
      {"binary widths of zero", "bplist00" + kTrue + QByteArray("\x08", 1) + QByteArray(32, '\1')},
  };
  for (const auto& row : rows) EXPECT_FALSE(PropertyList::parse(row.bytes)) << row.name;
}

// Whatever byte is damaged or missing, there is an answer and no sanitizer report.
TEST(PropertyList, SurvivesDamageAnywhere) {
  const QByteArray samples[]{
      xml("<dict><key>b</key><array><string>ş</string><integer>1</integer></array></dict>"),
      binary({"\xD1\x01\x02",
              "\x51"
              "b",
              "\xA2\x03\x04", "\x61\x01\x5F", "\x10\x05"})};
  for (const QByteArray& sample : samples) {
    ASSERT_TRUE(PropertyList::parse(sample));
    int refused = 0;
    for (qsizetype i = 0; i < sample.size(); ++i) {
      if (!PropertyList::parse(sample.first(i))) ++refused;
      for (const char damage : {'\0', '\x0F', '\x7F', '\xFF'}) {
        QByteArray damaged = sample;
        damaged[i] = damage;
        if (!PropertyList::parse(damaged)) ++refused;
      }
    }
    EXPECT_GT(refused, 0);
  }
}

TEST(StringsFile, ReadsTablesInEveryForm) {
  const QString table = QStringLiteral(
      "/* a \"comment\" = ; */\n// another\n\"CFBundleName\" = \"Parıltı \\\"X\\\" "
      "\\n\\U015F\\101\";"
      "\nplain-key = word; 'single' = 'it''s';");
  QStringEncoder utf16(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
  const QByteArray wide = utf16(QStringLiteral("\"CFBundleName\" = \"ş\";"));
  const auto text = StringsFile::parse(QStringLiteral("\"CFBundleName\" = \"Parıltı \\\"X\\\" "
                                                      "\\n\\U015F\\101\"; /* x */ plain-key=word;")
                                           .toUtf8());
  ASSERT_TRUE(text);
  EXPECT_EQ(text->value(QStringLiteral("CFBundleName")), u"Parıltı \"X\" \nşA");
  EXPECT_EQ(text->value(QStringLiteral("plain-key")), u"word");
  const auto fromWide = StringsFile::parse(wide);
  ASSERT_TRUE(fromWide);
  EXPECT_EQ(fromWide->value(QStringLiteral("CFBundleName")), u"ş");
  const auto fromXml = StringsFile::parse(
      xml("<dict><key>CFBundleName</key><string>x</string><key>n</key><true/></dict>"));
  ASSERT_TRUE(fromXml);
  EXPECT_EQ(*fromXml,
            (QMap<QString, QString>{{QStringLiteral("CFBundleName"), QStringLiteral("x")}}));
  EXPECT_EQ(StringsFile::parse(binary({"\xD1\x01\x02",
                                       "\x51"
                                       "b",
                                       "\x51"
                                       "c"})),
            (QMap<QString, QString>{{QStringLiteral("b"), QStringLiteral("c")}}));
  // What it cannot make sense of is refused as a whole.
  EXPECT_FALSE(StringsFile::parse(table.toUtf8()));
  for (const char* broken : {"\"a\" = \"b", "\"a\" = ;", "a = b", "= b;", "\"a\\", "a \"b\";"})
    EXPECT_FALSE(StringsFile::parse(broken)) << broken;
  EXPECT_TRUE(StringsFile::parse("/* only a comment")->isEmpty());
}

}  // namespace
