#include "companion/CompanionRequest.h"

#include <QList>

#include <gtest/gtest.h>

using namespace orvex;
using Verb = CompanionRequest::Verb;

namespace {

const QByteArray kTimeline("vantrelo-finalcut://timeline-action");
const QByteArray kAction = kTimeline + "?action=blade-speed";
const QByteArray kFocus("vantrelo-finalcut://focus-panel");

TEST(Request, EachHasOneSpelling) {
  EXPECT_EQ(CompanionRequest::parse(kFocus), (CompanionRequest{Verb::FocusPanel, {}}));
  for (const char* action : {"toggle-retime", "blade-speed", "normal-speed"})
    EXPECT_EQ(CompanionRequest::parse(kTimeline + "?action=" + action),
              (CompanionRequest{Verb::TimelineAction, QString::fromLatin1(action)}));
}

TEST(Request, EverythingElseIsRefusedWithAReason) {
  const qsizetype room = CompanionRequest::kMaximumBytes - kFocus.size();
  const struct {
    const char16_t* reason;
    QList<QByteArray> urls;
  } rows[] = {
      {u"başlamalı",
       {"", "vantrelo-finalcut:", "vantrelo-finalcut:focus-panel", "vantrelo-finalcut:/focus-panel",
        "Vantrelo-Finalcut://focus-panel", "http://focus-panel", "x" + kFocus}},
      {u"\"quit\" bilinmiyor", {"vantrelo-finalcut://quit"}},
      {u"bilinmiyor",
       {"vantrelo-finalcut://", "vantrelo-finalcut://?action=blade-speed",
        "vantrelo-finalcut://Focus-Panel", kFocus + ".", kFocus + "x",
        "vantrelo-finalcut://TIMELINE-ACTION?action=blade-speed", kFocus + QByteArray(room, 'x')}},
      {u"sorgu almaz", {kFocus + "?", kFocus + "?action=blade-speed"}},
      {u"yol",
       {kFocus + "/", "vantrelo-finalcut:///focus-panel", kTimeline + "/?action=blade-speed"}},
      {u"parça", {kFocus + "#", kAction + "#x"}},
      {u"port", {kFocus + ":80", kTimeline + ":1?action=blade-speed"}},
      {u"kullanıcı", {"vantrelo-finalcut://me@focus-panel"}},
      {u"ters bölü", {"vantrelo-finalcut://\\focus-panel"}},
      {u"?action=",
       {kTimeline, kTimeline + "?", kTimeline + "?action", kTimeline + "?Action=blade-speed",
        kTimeline + "?verb=blade-speed", kTimeline + "??action=blade-speed"}},
      {u"\"\" diye", {kTimeline + "?action="}},
      {u"diye bir komut yok",
       {kTimeline + "?action=Blade-Speed", kAction + "x", kTimeline + "?action=blade",
        kTimeline + "?action=blade+speed", kTimeline + "?action==blade-speed", kAction + "?"}},
      {u"tek sorgu",
       {kAction + "&", kAction + "&action=blade-speed", kAction + ";x=1",
        kTimeline + "?x=1&action=blade-speed"}},
      {u"yüzde",
       {kTimeline + "?action=%62lade-speed", "vantrelo-finalcut://focus%2Dpanel", kFocus + "%00"}},
      {u"boşluk", {kFocus + " ", " " + kFocus}},
      {u"denetim", {kFocus + "\n", kFocus + QByteArray(1, '\0'), kFocus + "\x7f"}},
      {u"ASCII", {"vantrelo-finalcut://focus-pan\xc3\xa9l", kFocus + "\xff"}},
      {u"en çok 256 bayt", {kFocus + QByteArray(room + 1, 'x'), QByteArray(1 << 20, '%')}},
  };
  for (const auto& row : rows) {
    for (const QByteArray& url : row.urls) {
      const auto request = CompanionRequest::parse(url);
      ASSERT_FALSE(request) << url.constData();
      EXPECT_TRUE(request.error().contains(QStringView(row.reason)))
          << url.left(300).constData() << " → " << request.error();
    }
  }
}

// Whatever one byte does to a good address, the result is refused or means the same.
TEST(Request, NoChangedByteMakesAnotherRequest) {
  for (const QByteArray& good : {kAction, kFocus}) {
    for (qsizetype at = 0; at < good.size(); ++at) {
      for (int byte = 0; byte < 256; ++byte) {
        QByteArray changed = good;
        changed[at] = static_cast<char>(byte);
        EXPECT_EQ(CompanionRequest::parse(changed).has_value(), changed == good)
            << changed.constData();
      }
    }
  }
}

}  // namespace
