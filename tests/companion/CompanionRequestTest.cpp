#include "companion/CompanionRequest.h"

using Verb = CompanionRequest::Verb;

const QByteArray kTimeline("vantrelo-finalcut://timeline-action");
const QByteArray kAction = kTimeline + "?action=blade-speed";
const QByteArray kFocus("vantrelo-finalcut://focus-panel");

TEST(Request, EachHasOneSpelling) {
  EXPECT_EQ(CompanionRequest::parse(kFocus), (CompanionRequest{Verb::FocusPanel, {}}));
  for (const char* action : {"toggle-retime", "blade-speed", "normal-speed"})
    EXPECT_EQ(CompanionRequest::parse(kTimeline + "?action=" + action),
              (CompanionRequest{Verb::TimelineAction, QString::fromLatin1(action)}));
  // Whatever one byte does to a good address.
  for (const QByteArray& good : {kAction, kFocus})
    for (qsizetype at = 0; at < good.size(); ++at)
      for (int byte = 0; byte < 256; ++byte) {
        QByteArray changed = good;
        changed[at] = static_cast<char>(byte);
        EXPECT_EQ(CompanionRequest::parse(changed).has_value(), changed == good)
            << changed.constData();
      }
}

TEST(Request, EverythingElseIsRefusedWithAReason) {
  const qsizetype room = CompanionRequest::kMaximumBytes - kFocus.size();
  const std::pair<QByteArray, const char16_t*> rows[] = {
      {"", u"başlamalı"},
      {"vantrelo-finalcut:focus-panel", u"başlamalı"},
      {"vantrelo-finalcut://quit", u"\"quit\" bilinmiyor"},
      {kFocus + QByteArray(room, 'x'), u"bilinmiyor"},
      {kFocus + QByteArray(room + 1, 'x'), u"en çok 256 bayt"},
      {kFocus + "?", u"sorgu almaz"},
      {kFocus + "%00", u"yüzde"},
      {kFocus + "\n", u"denetim"},
      {kFocus + "\xff", u"ASCII"},
      {"vantrelo-finalcut://me@focus-panel", u"kullanıcı"},
      {"vantrelo-finalcut://\\focus-panel", u"ters bölü"},
      {kTimeline, u"?action="},
      {kTimeline + "?action=", u"\"\" diye"},
      {kTimeline + "?action=blade", u"diye bir komut yok"},
      {kTimeline + "/?action=blade-speed", u"yol"},
      {kTimeline + ":1?action=blade-speed", u"port"},
      {kTimeline + "??action=blade-speed", u"?action="},
      {kAction + "#x", u"parça"},
      {kAction + "&action=blade-speed", u"tek sorgu"},
      {kAction + ";x=1", u"tek sorgu"},
  };
  for (const auto& [url, reason] : rows) {
    const auto request = CompanionRequest::parse(url);
    ASSERT_FALSE(request) << url.constData();
    EXPECT_TRUE(request.error().contains(reason)) << url.constData() << " → " << request.error();
  }
}
