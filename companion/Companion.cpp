#include "companion/Companion.h"

#include "companion/CompanionRequest.h"
#include "companion/ManagedLUT.h"
#include "platform/PanelEndpoint.h"
#include "platform/hosts/MpvLUT.h"
#include "platform/hosts/MpvRetime.h"

#include <QFile>

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

void Companion::applyLUT(const Directory& library, const QByteArray& path, Done done) {
  const auto host = hostInUse();
  if (!host) return done(std::unexpected(host.error()));
  const auto lut = ManagedLUT::read(library, path);
  if (!lut) return done(std::unexpected(lut.error()));
  switch (host->kind) {
    case HostChoice::Kind::BuiltIn:
      return done(applyOnBuiltInHost(lut->name));
    case HostChoice::Kind::Mpv:
      lut_ = std::make_unique<MpvLUT>(host->socketPath);
      return lut_->apply(QFile::decodeName(lut->writeForPlayer(library)), lut->name,
                         std::move(done));
    case HostChoice::Kind::None:
      return done(std::unexpected(
          QStringLiteral("Kullanımda bir host yok, LUT uygulanamadı. Paneli --host builtin ya da "
                         "--host mpv ile aç.")));
  }
}

std::expected<QString, QString> Companion::performOnBuiltInHost(const QString& action) {
  if (panel_.performOnBuiltInHost(action))
    return QStringLiteral("\"%1\" komutu yerleşik hostta uygulandı.").arg(action);
  return noBuiltInHost(QStringLiteral("\"%1\" komutu").arg(action));
}

std::expected<QString, QString> Companion::applyOnBuiltInHost(const QString& lut) {
  const QString clip = panel_.applyLUTOnBuiltInHost(lut);
  if (clip.isEmpty()) return noBuiltInHost(QStringLiteral("%1 LUT'u").arg(lut));
  return QStringLiteral("%1 LUT'u %2 kaydına uygulandı.").arg(lut, clip);
}

std::unexpected<QString> Companion::noBuiltInHost(const QString& what) {
  if (panel_.hostInUse().isEmpty()) return noPanel();
  return std::unexpected(
      QStringLiteral("Açık panel yerleşik hostu kullanmıyor, %1 uygulanamadı. Paneli --host "
                     "builtin ile aç.")
          .arg(what));
}

}  // namespace orvex
