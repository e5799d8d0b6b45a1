#include "shell/ReleaseCheck.h"

#include "services/SemanticVersion.h"
#include "shell/OrvexConfig.h"

namespace orvex {
namespace {

std::optional<QUrl> parseURL(const QString& text) {
  QUrl url(text, QUrl::StrictMode);
  if (!url.isValid()) return std::nullopt;
  return url;
}

}  // namespace

ReleaseCheck::ReleaseCheck(ReleaseCenterClient client) : client_(std::move(client)) {
  state_.latestVersion = OrvexConfig::version();
}

void ReleaseCheck::start(bool silent) {
  if (state_.checking) return;
  state_.checking = true;
  state_.lastError.reset();
  background_.run(
      [client = client_](const WorkControl& control) { return client.fetchManifest(control.stop); },
      [this, silent](const std::expected<ReleaseManifest, std::exception_ptr>& manifest) {
        if (manifest)
          succeed(*manifest, silent);
        else
          fail(descriptionOf(manifest.error()), silent);
      });
  Q_EMIT changed();
}

void ReleaseCheck::succeed(const ReleaseManifest& manifest, bool silent) {
  state_.checking = false;
  state_.latestVersion = manifest.version;
  state_.updateAvailable =
      SemanticVersion(OrvexConfig::version()) < SemanticVersion(manifest.version);
  state_.downloadURL = parseURL(manifest.downloadURL);
  state_.notesURL = manifest.notesURL.and_then(parseURL);
  state_.publishedAt = manifest.publishedAt;
  state_.mandatory = manifest.mandatory.value_or(false);
  state_.lastError.reset();
  const bool available = state_.updateAvailable;
  Q_EMIT changed();
  if (silent) return;
  if (available)
    Q_EMIT toast(QStringLiteral("Yeni sürüm hazır • ") + manifest.version, OrvexToast::Kind::info,
                 3.2);
  else
    Q_EMIT toast(QStringLiteral("Vantrelo Orvex güncel."), OrvexToast::Kind::success, 3.2);
}

void ReleaseCheck::fail(const QString& description, bool silent) {
  state_.checking = false;
  state_.lastError = description;
  Q_EMIT changed();
  if (!silent)
    Q_EMIT toast(QStringLiteral("Update Center • ") + description, OrvexToast::Kind::error, 5.0);
}

}  // namespace orvex
