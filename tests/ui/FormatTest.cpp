#include "ui/OrvexFormat.h"
#include "ui/OrvexPages.h"

#include <QLocale>

#include <gtest/gtest.h>
#include <limits>

namespace orvex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(OrvexFormat, WritesNumbersTheSameInEveryLanguage) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::Turkish));
  EXPECT_EQ(OrvexFormat::seconds2(0), u"0.00s");
  EXPECT_EQ(OrvexFormat::seconds2(12345.678), u"12345.68s");
  EXPECT_EQ(OrvexFormat::seconds2(-1.5), u"-1.50s");
  EXPECT_EQ(OrvexFormat::rate(29.97002997), u"29.97");
  EXPECT_EQ(OrvexFormat::timecode(3661.5), u"01:01:01.500");
  EXPECT_EQ(OrvexFormat::count({EngineHealth::Ready, {}, {}, 1234567}), u"1234567");
  QLocale::setDefault(before);
}

TEST(OrvexFormat, WritesADashForWhatIsNotKnown) {
  EXPECT_EQ(OrvexFormat::seconds2(kInfinity), u"—");
  EXPECT_EQ(OrvexFormat::seconds2(kNotANumber), u"—");
  for (const double fps : {0.0, -25.0, kInfinity, -kInfinity, kNotANumber})
    EXPECT_EQ(OrvexFormat::rate(fps), u"—") << fps;
}

TEST(OrvexPages, FindsPagesByIdentifier) {
  EXPECT_EQ(OrvexPages::byId(QStringLiteral("request")), OrvexPage(OrvexPage::request));
  EXPECT_EQ(OrvexPages::byId(QStringLiteral("Request")), OrvexPage(OrvexPage::home));
  EXPECT_EQ(OrvexPages::indexOf(OrvexPage(OrvexPage::request)), 8);
}

}  // namespace
}  // namespace orvex
