#include "runtime/PanelOptions.h"

#include <gmock/gmock.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

std::expected<PanelOptions, QString> parse(const QString& line, const QString& hostVariable = {}) {
  return PanelOptions::parse(QStringList{u"orvex-panel"_s} + line.split(u' ', Qt::SkipEmptyParts),
                             hostVariable);
}

TEST(PanelOptions, DefaultsAndChoices) {
  const auto none = parse(QString());
  ASSERT_TRUE(none);
  EXPECT_EQ(none->host.kind, HostChoice::Kind::BuiltIn);
  EXPECT_EQ(none->page, OrvexPage::home);
  EXPECT_FALSE(none->size);

  const auto all =
      parse(u"--host none --page timeline --size 979x780 --screenshot a.png"_s, u"mpv:/tmp/s"_s);
  ASSERT_TRUE(all);
  EXPECT_EQ(all->host.kind, HostChoice::Kind::None) << "the argument goes before the variable";
  EXPECT_EQ(all->page, OrvexPage::timeline);
  EXPECT_EQ(all->size, QSizeF(979, 780));
  EXPECT_EQ(all->screenshot, u"a.png");

  EXPECT_EQ(parse({}, u"mpv:/tmp/s"_s)->host.socketPath, u"/tmp/s");
}

TEST(PanelOptions, WrongUseSaysWhatIsWrong) {
  for (const char16_t* line :
       {u"--page Home", u"--page", u"--size 1040", u"--size 319x780", u"--size 1040x",
        u"--size 99999x780", u"--size -5x780", u"--host vlc", u"--nonsense", u"file.mov"}) {
    const auto options = parse(QString::fromUtf16(line));
    ASSERT_FALSE(options) << qPrintable(QString::fromUtf16(line));
    EXPECT_FALSE(options.error().isEmpty());
  }
  EXPECT_TRUE(parse(QStringLiteral("--nonsense")).error().contains(u"\"nonsense\" diye"));
  EXPECT_FALSE(parse({}, u"vlc"_s)) << "the variable is checked too";
}

}  // namespace
