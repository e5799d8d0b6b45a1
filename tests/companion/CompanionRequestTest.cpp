#include "companion/CompanionRequest.h"

#include <gtest/gtest.h>

using namespace orvex;
using Verb = CompanionRequest::Verb;

namespace {

const QByteArray kAction("vantrelo-finalcut://timeline-action?action=blade-speed");
const QByteArray kFocus("vantrelo-finalcut://focus-panel");

TEST(Request, EachHasOneSpelling) {
  EXPECT_EQ(CompanionRequest::parse(kFocus), (CompanionRequest{Verb::FocusPanel, {}}));
  for (const char* action : {"toggle-retime", "blade-speed", "normal-speed"}) {
    EXPECT_EQ(
        CompanionRequest::parse(QByteArray("vantrelo-finalcut://timeline-action?action=") + action),
        (CompanionRequest{Verb::TimelineAction, QString::fromLatin1(action)}));
  }
}

TEST(Request, EverythingElseIsRefusedWithAReason) {
  const struct {
    QByteArray url;
    const char16_t* reason;
  } rows[] = {
      {"", u"başlamalı"},
      {"vantrelo-finalcut:", u"başlamalı"},
      {"vantrelo-finalcut:focus-panel", u"başlamalı"},
      {"vantrelo-finalcut:/focus-panel", u"başlamalı"},
      {"Vantrelo-Finalcut://focus-panel", u"başlamalı"},
      {"http://focus-panel", u"başlamalı"},
      {"x" + kFocus, u"başlamalı"},
      {"vantrelo-finalcut://", u"bilinmiyor"},
      {"vantrelo-finalcut://?action=blade-speed", u"bilinmiyor"},
      {"vantrelo-finalcut://quit", u"\"quit\" bilinmiyor"},
      {"vantrelo-finalcut://Focus-Panel", u"bilinmiyor"},
      {"vantrelo-finalcut://focus-panel.", u"bilinmiyor"},
      {"vantrelo-finalcut://focus-panelx", u"bilinmiyor"},
      {"vantrelo-finalcut://TIMELINE-ACTION?action=blade-speed", u"bilinmiyor"},
      {kFocus + "?", u"sorgu almaz"},
      {kFocus + "?action=blade-speed", u"sorgu almaz"},
      {kFocus + "/", u"yol"},
      {kFocus + "#", u"parça"},
      {kFocus + ":80", u"port"},
      {"vantrelo-finalcut://me@focus-panel", u"kullanıcı"},
      {"vantrelo-finalcut:///focus-panel", u"yol"},
      {"vantrelo-finalcut://\\focus-panel", u"ters bölü"},
      {"vantrelo-finalcut://timeline-action/?action=blade-speed", u"yol"},
      {"vantrelo-finalcut://timeline-action:1?action=blade-speed", u"port"},
      {"vantrelo-finalcut://timeline-action", u"?action="},
      {"vantrelo-finalcut://timeline-action?", u"?action="},
      {"vantrelo-finalcut://timeline-action?action", u"?action="},
      {"vantrelo-finalcut://timeline-action?Action=blade-speed", u"?action="},
      {"vantrelo-finalcut://timeline-action?verb=blade-speed", u"?action="},
      {"vantrelo-finalcut://timeline-action?action=", u"\"\" diye"},
      {"vantrelo-finalcut://timeline-action?action=Blade-Speed", u"\"Blade-Speed\" diye"},
      {"vantrelo-finalcut://timeline-action?action=blade-speedx", u"diye bir komut yok"},
      {"vantrelo-finalcut://timeline-action?action=blade", u"diye bir komut yok"},
      {"vantrelo-finalcut://timeline-action?action=blade+speed", u"diye bir komut yok"},
      {"vantrelo-finalcut://timeline-action?action==blade-speed", u"diye bir komut yok"},
      {"vantrelo-finalcut://timeline-action??action=blade-speed", u"?action="},
      {kAction + "?", u"diye bir komut yok"},
      {kAction + "&", u"tek sorgu"},
      {kAction + "&action=blade-speed", u"tek sorgu"},
      {kAction + ";x=1", u"tek sorgu"},
      {"vantrelo-finalcut://timeline-action?x=1&action=blade-speed", u"tek sorgu"},
      {kAction + "#x", u"parça"},
      {"vantrelo-finalcut://timeline-action?action=%62lade-speed", u"yüzde"},
      {"vantrelo-finalcut://focus%2Dpanel", u"yüzde"},
      {kFocus + "%00", u"yüzde"},
      {kFocus + " ", u"boşluk"},
      {" " + kFocus, u"boşluk"},
      {kFocus + "\n", u"denetim"},
      {kFocus + QByteArray(1, '\0'), u"denetim"},
      {kFocus + "\x7f", u"denetim"},
      {"vantrelo-finalcut://focus-pan\xc3\xa9l", u"ASCII"},
      {kFocus + "\xff", u"ASCII"},
      {kFocus + QByteArray(CompanionRequest::kMaximumBytes, 'x'), u"en çok 256 bayt"},
      {kFocus + QByteArray(CompanionRequest::kMaximumBytes - kFocus.size(), 'x'), u"bilinmiyor"},
      {kFocus + QByteArray(CompanionRequest::kMaximumBytes - kFocus.size() + 1, 'x'),
       u"en çok 256"},
      {QByteArray(1 << 20, '%'), u"en çok 256"},
  };
  for (const auto& row : rows) {
    const auto request = CompanionRequest::parse(row.url);
    ASSERT_FALSE(request) << row.url.constData();
    EXPECT_TRUE(request.error().contains(QString::fromUtf16(row.reason)))
        << row.url.left(300).constData() << " → " << qPrintable(request.error());
  }
}

// Whatever one byte does to a good address, the result is refused or means the same.
TEST(Request, NoChangedByteMakesAnotherRequest) {
  int accepted = 0;
  for (const QByteArray& good : {kAction, kFocus}) {
    for (qsizetype at = 0; at < good.size(); ++at) {
      for (int byte = 0; byte < 256; ++byte) {
        QByteArray changed = good;
        changed[at] = static_cast<char>(byte);
        if (const auto request = CompanionRequest::parse(changed)) {
          ++accepted;
          EXPECT_EQ(changed, good);
        }
      }
    }
  }
  EXPECT_EQ(accepted, kAction.size() + kFocus.size());
}

}  // namespace
