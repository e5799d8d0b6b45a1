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
  const std::pair<QByteArray, const char16_t*> rows[] = {
      {"", u"başlamalı"},
      {scheme + "focus-panel", u"başlamalı"},
      {scheme + "//quit", u"\"quit\" bilinmiyor"},
      {scheme + "//?action=blade-speed", u"bilinmiyor"},
      {kFocus + QByteArray(room, 'x'), u"bilinmiyor"},
      {kFocus + "?", u"sorgu almaz"},
      {kTimeline + "/?action=blade-speed", u"yol"},
      {kAction + "#x", u"parça"},
      {kTimeline + ":1?action=blade-speed", u"port"},
      {scheme + "//me@focus-panel", u"kullanıcı"},
      {scheme + "//\\focus-panel", u"ters bölü"},
      {kTimeline, u"?action="},
      {kTimeline + "??action=blade-speed", u"?action="},
      {kTimeline + "?action=", u"\"\" diye"},
      {kTimeline + "?action=blade", u"diye bir komut yok"},
      {kAction + "&action=blade-speed", u"tek sorgu"},
      {kAction + ";x=1", u"tek sorgu"},
      {kFocus + "%00", u"yüzde"},
      {kFocus + "\n", u"denetim"},
      {kFocus + "\xff", u"ASCII"},
      {kFocus + QByteArray(room + 1, 'x'), u"en çok 256 bayt"},
  };
  for (const auto& [url, reason] : rows) {
    const auto request = CompanionRequest::parse(url);
    ASSERT_FALSE(request) << url.constData();
    EXPECT_TRUE(request.error().contains(QStringView(reason)))
        << url.constData() << " → " << request.error();
  }
}

}  // namespace
