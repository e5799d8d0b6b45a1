#include "base/PropertyList.h"

#include <gmock/gmock.h>

using namespace orvex;

namespace {

QByteArray listOf(const QByteArray& content) {
  return "<plist version=\"1.0\">" + content + "</plist>";
}

TEST(PropertyList, KeepsTheTypesOfTheFile) {
  const auto list = PropertyList::parse(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!DOCTYPE plist PUBLIC \"-//A//B\" \"c.dtd\">" +
      listOf("<array><true/><integer>1</integer><real>1</real><string>Ş</string></array>"));
  ASSERT_TRUE(list) << list.error().toStdString();
  EXPECT_EQ(list->toList(), (QVariantList{true, qlonglong{1}, 1.0, QStringLiteral("Ş")}));
}

// Whatever gets past the check reaches a parser that dates and deep nesting make read astray.
TEST(PropertyList, RefusesWhatItsParserCannotTake) {
  const QByteArray date = "<date>2001-01-01T00:00:00Z</date>";
  const struct {
    const char* what;
    QByteArray bytes;
  } cases[] = {
      {"nothing", ""},
      {"no list", "<html/>"},
      {"cut off", "<plist version=\"1.0\"><string>x"},
      {"a date", listOf(date)},
      {"a date that another encoding hides",
       "<?xml version=\"1.0\" encoding=\"HZ-GB-2312\"?>" +
           listOf("<array><string>~{</string>" + date + "<string>~}</string></array>")},
      {"a date that an entity's text hides", "<!DOCTYPE plist [<!ENTITY a \"]>" +
                                                 QByteArray(listOf(date)).replace('"', '\'') +
                                                 "\">]>" + listOf("<string>x</string>")},
      {"too deep",
       listOf(QByteArray("<array>").repeated(64) + QByteArray("</array>").repeated(64))},
      {"too large",
       listOf("<string>" + QByteArray(PropertyList::kMaximumBytes, 'x') + "</string>")},
  };
  for (const auto& c : cases) EXPECT_FALSE(PropertyList::parse(c.bytes)) << c.what;
}

}  // namespace
