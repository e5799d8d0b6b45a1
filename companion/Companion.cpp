#include "companion/Companion.h"

#include "companion/CompanionRequest.h"
#include "platform/PanelEndpoint.h"
#include "platform/hosts/MpvRetime.h"

namespace orvex {
namespace {

std::unexpected<QString> noPanel() {
  return std::unexpected(
      QStringLiteral("Açık bir Vantrelo Orvex paneli bulunamadı. Önce paneli aç."));
}

}  // namespace

Companion::Companion(PanelEndpoint& panel, std::optional<HostChoice> host)
    : panel_(panel), host_(std::move(host)) {}

Companion::~Companion() = default;

void Companion::perform(const CompanionRequest& request, Done done) {
  if (request.verb == CompanionRequest::Verb::FocusPanel) return done(focusPanel());
  const auto host = hostInUse();
  if (!host) return done(std::unexpected(host.error()));
  switch (host->kind) {
    case HostChoice::Kind::BuiltIn:
      return done(performOnBuiltInHost(request.action));
    case HostChoice::Kind::Mpv:
      retime_ = std::make_unique<MpvRetime>(host->socketPath);
      return retime_->perform(request.action, std::move(done));
    case HostChoice::Kind::None:
      return done(std::unexpected(
          QStringLiteral("Kullanımda bir host yok, komut uygulanamadı. Paneli --host builtin ya da "
                         "--host mpv ile aç.")));
  }
}

std::expected<QString, QString> Companion::focusPanel() {
  if (!panel_.focusPanel()) return noPanel();
  return QStringLiteral("Panel öne getirildi.");
}

std::expected<HostChoice, QString> Companion::hostInUse() {
  if (host_) return *host_;
  const QString text = panel_.hostInUse();
  if (text.isEmpty()) return noPanel();
  return HostChoice::parse(text);
}

std::expected<QString, QString> Companion::performOnBuiltInHost(const QString& action) {
  if (panel_.performOnBuiltInHost(action))
    return QStringLiteral("\"%1\" komutu yerleşik hostta uygulandı.").arg(action);
  if (panel_.hostInUse().isEmpty()) return noPanel();
  return std::unexpected(
      QStringLiteral("Açık panel yerleşik hostu kullanmıyor, \"%1\" komutu uygulanamadı. Paneli "
                     "--host builtin ile aç.")
          .arg(action));
}

}  // namespace orvex
