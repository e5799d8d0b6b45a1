#include "shell/OrvexState.h"

#include "shell/OrvexConfig.h"

#include <algorithm>
#include <chrono>

namespace orvex {

OrvexState::OrvexState(QObject* parent) : QObject(parent) {
  release_.latestVersion = OrvexConfig::version();
  toastTask_.setSingleShot(true);
  toastTask_.setTimerType(Qt::PreciseTimer);
  connect(&toastTask_, &QTimer::timeout, this, [this] {
    toast_.reset();
    Q_EMIT toastChanged();
  });
}

void OrvexState::setActivePage(OrvexPage page) {
  if (activePage_ == page) return;
  activePage_ = page;
  Q_EMIT activePageChanged();
}

void OrvexState::setHost(const HostSnapshot& snapshot) {
  if (host_ == snapshot) return;
  host_ = snapshot;
  Q_EMIT hostChanged();
}

void OrvexState::showHostNotice(const QString& message, Notice notice) {
  showToast(message, notice == Notice::Error ? OrvexToast::Kind::error : OrvexToast::Kind::info,
            3.2);
}

void OrvexState::showToast(const QString& message, OrvexToast::Kind kind, double duration) {
  // A day is for ever on a screen; the bound keeps the conversion to milliseconds defined.
  const double seconds = duration > 0 ? std::min(duration, 86400.0) : 0;
  toast_ = OrvexToast{message, kind};
  lastToast_ = *toast_;
  // Restarting the one timer is what cancels the message before this one.
  toastTask_.start(std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000)));
  Q_EMIT toastChanged();
}

void OrvexState::setRequestSending(bool sending) {
  if (requestSending_ == sending) return;
  requestSending_ = sending;
  Q_EMIT requestSendingChanged();
}

void OrvexState::setPanelWidth(double width) {
  if (panelWidth_ == width) return;
  panelWidth_ = width;
  Q_EMIT panelWidthChanged();
}

void OrvexState::setPanelHeight(double height) {
  if (panelHeight_ == height) return;
  panelHeight_ = height;
  Q_EMIT panelHeightChanged();
}

void OrvexState::setInstalledPacks(const QList<UniversalInstalledPack>& packs) {
  if (installedPacks_ == packs) return;
  installedPacks_ = packs;
  Q_EMIT installedPacksChanged();
}

std::optional<QString> OrvexState::installedVersion(const UniversalPack& pack) const {
  const auto found = std::ranges::find(installedPacks_, pack.id, &UniversalInstalledPack::id);
  if (found == installedPacks_.end()) return std::nullopt;
  return found->version;
}

}  // namespace orvex
