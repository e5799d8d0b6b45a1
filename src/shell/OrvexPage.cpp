#include "shell/OrvexPage.h"

#include <array>

namespace orvex {
namespace {

struct Row {
  QStringView rawValue;
  QStringView title;
  QStringView icon;
};

// In the order of the cases. Product words stay English; the texts are shown as they stand.
constexpr std::array<Row, 9> kRows{{
    {u"home", u"Home", u"house.fill"},
    {u"timeline", u"Timeline", u"timeline.selection"},
    {u"speed", u"Speed Lab", u"gauge.with.dots.needle.67percent"},
    {u"motion", u"Motion", u"sparkles.rectangle.stack"},
    {u"audio", u"Audio", u"waveform"},
    {u"color", u"Color", u"circle.lefthalf.filled"},
    {u"fxplug", u"FxPlug", u"shippingbox.fill"},
    {u"updates", u"Update Center", u"arrow.triangle.2.circlepath.circle.fill"},
    {u"request", u"İstek Merkezi", u"paperplane.fill"},
}};

}  // namespace

const QList<OrvexPage>& OrvexPage::allCases() {
  static const QList<OrvexPage> cases{home,  timeline, speed,   motion, audio,
                                      color, fxplug,   updates, request};
  return cases;
}

std::optional<OrvexPage> OrvexPage::fromRawValue(QStringView raw) {
  for (const OrvexPage page : allCases())
    if (kRows.at(page.case_).rawValue == raw) return page;
  return std::nullopt;
}

QString OrvexPage::rawValue() const {
  return kRows.at(case_).rawValue.toString();
}
QString OrvexPage::title() const {
  return kRows.at(case_).title.toString();
}
QString OrvexPage::icon() const {
  return kRows.at(case_).icon.toString();
}

}  // namespace orvex
