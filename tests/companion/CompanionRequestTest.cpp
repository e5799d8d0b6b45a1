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
  const QByteArray scheme = "vantrelo-finalcut:";
  const qsizetype room = CompanionRequest::kMaximumBytes - kFocus.size();
  const std::pair<const char16_t*, QByteArrayList> rows[] = {
      {u"başlamalı",
       {"", scheme, scheme + "focus-panel", scheme + "/focus-panel", "http://focus-panel"}},
      {u"\"quit\" bilinmiyor", {scheme + "//quit"}},
      {u"bilinmiyor",
       {scheme + "//", scheme + "//?action=blade-speed", kFocus + QByteArray(room, 'x')}},
      {u"sorgu almaz", {kFocus + "?", kFocus + "?action=blade-speed"}},
      {u"yol", {kFocus + "/", scheme + "///focus-panel", kTimeline + "/?action=blade-speed"}},
      {u"parça", {kFocus + "#", kAction + "#x"}},
      {u"port", {kFocus + ":80", kTimeline + ":1?action=blade-speed"}},
      {u"kullanıcı", {scheme + "//me@focus-panel"}},
      {u"ters bölü", {scheme + "//\\focus-panel"}},
      {u"?action=",
       {kTimeline, kTimeline + "?", kTimeline + "?action", kTimeline + "?verb=blade-speed",
        kTimeline + "??action=blade-speed"}},
      {u"\"\" diye", {kTimeline + "?action="}},
      {u"diye bir komut yok", {kAction + "x", kTimeline + "?action=blade", kAction + "?"}},
      {u"tek sorgu",
       {kAction + "&", kAction + "&action=blade-speed", kAction + ";x=1",
        kTimeline + "?x=1&action=blade-speed"}},
      {u"yüzde", {kTimeline + "?action=%62lade-speed", scheme + "//focus%2Dpanel", kFocus + "%00"}},
      {u"denetim", {kFocus + " ", kFocus + "\n", kFocus + QByteArray(1, '\0')}},
      {u"ASCII", {kFocus + "\xff"}},
      {u"en çok 256 bayt", {kFocus + QByteArray(room + 1, 'x'), QByteArray(1 << 20, '%')}},
  };
  for (const auto& [reason, urls] : rows)
    for (const QByteArray& url : urls) {
      const auto request = CompanionRequest::parse(url);
      ASSERT_FALSE(request) << url.constData();
      EXPECT_TRUE(request.error().contains(QStringView(reason)))
          << url.left(300).constData() << " → " << request.error();
    }
}

}  // namespace
