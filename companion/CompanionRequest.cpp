#include "companion/CompanionRequest.h"

#include "platform/TimelineActions.h"

#include <algorithm>

namespace orvex {
namespace {

constexpr QByteArrayView kScheme("vantrelo-finalcut://");
constexpr QByteArrayView kItem("action=");

constexpr struct {
  char character;
  const char16_t* name;
} kForbidden[] = {
    {'%', u"yüzde kodlaması (%)"},
    {'#', u"parça (#)"},
    {'@', u"kullanıcı bilgisi (@)"},
    {':', u"port (:)"},
    {'/', u"yol (/)"},
    {'\\', u"ters bölü (\\)"},
};

bool isVisibleAscii(char c) {
  return c > ' ' && c < '\x7f';
}

std::unexpected<QString> refused(const QString& reason) {
  return std::unexpected(QStringLiteral("Adres reddedildi: ") + reason);
}

QString text(QByteArrayView bytes) {
  return QString::fromLatin1(bytes);
}

std::expected<CompanionRequest, QString> parseAction(QByteArrayView query) {
  if (std::ranges::any_of(query, [](char c) { return c == '&' || c == ';'; }))
    return refused(QStringLiteral("\"timeline-action\" tek sorgu öğesi alır."));
  if (!query.startsWith(kItem))
    return refused(QStringLiteral("\"timeline-action\" ?action=KOMUT ister."));
  const QString action = text(query.sliced(kItem.size()));
  if (!isTimelineAction(action))
    return refused(QStringLiteral("\"%1\" diye bir komut yok. Komutlar: %2.")
                       .arg(action, timelineActionList()));
  return CompanionRequest{CompanionRequest::Verb::TimelineAction, action};
}

}  // namespace

std::expected<CompanionRequest, QString> CompanionRequest::parse(QByteArrayView url) {
  // Characters come first, so that the reasons below can repeat what was written.
  if (url.size() > kMaximumBytes)
    return refused(
        QStringLiteral("en çok %1 bayt olabilir, bu %2 bayt.").arg(kMaximumBytes).arg(url.size()));
  if (!std::ranges::all_of(url, isVisibleAscii))
    return refused(QStringLiteral("boşluk, denetim karakteri ve ASCII dışı karakter olamaz."));
  if (!url.startsWith(kScheme))
    return refused(QStringLiteral("\"%1\" ile başlamalı.").arg(text(kScheme)));

  const QByteArrayView rest = url.sliced(kScheme.size());
  for (const auto& forbidden : kForbidden) {
    if (rest.contains(forbidden.character))
      return refused(QString::fromUtf16(forbidden.name) + QStringLiteral(" kullanılamaz."));
  }
  const qsizetype mark = rest.indexOf('?');
  const QByteArrayView verb = mark < 0 ? rest : rest.first(mark);
  if (verb == QByteArrayView("timeline-action"))
    return parseAction(mark < 0 ? QByteArrayView() : rest.sliced(mark + 1));
  if (verb != QByteArrayView("focus-panel"))
    return refused(QStringLiteral("\"%1\" bilinmiyor; focus-panel ya da timeline-action olmalı.")
                       .arg(text(verb)));
  if (mark >= 0) return refused(QStringLiteral("\"focus-panel\" sorgu almaz."));
  return CompanionRequest{Verb::FocusPanel, {}};
}

}  // namespace orvex
