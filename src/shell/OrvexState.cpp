#include "shell/OrvexState.h"

#include "shell/OrvexConfig.h"

#include <algorithm>
#include <chrono>

namespace orvex {

OrvexState::OrvexState() : OrvexState(OrvexConfig::services()) {}

OrvexState::OrvexState(const OrvexServices& services, QObject* parent)
    : QObject(parent),
      releaseCheck_(services.releases),
      packOperations_(services.packs),
      request_(services.requests) {
  toastTask_.setSingleShot(true);
  toastTask_.setTimerType(Qt::PreciseTimer);
  connect(&toastTask_, &QTimer::timeout, this, [this] {
    toast_.reset();
    Q_EMIT toastChanged();
  });
  connect(&releaseCheck_, &ReleaseCheck::changed, this, &OrvexState::releaseChanged);
  connect(&releaseCheck_, &ReleaseCheck::toast, this, &OrvexState::showToast);
  connect(&packOperations_, &PackOperations::refreshingChanged, this,
          &OrvexState::packsRefreshingChanged);
  connect(&packOperations_, &PackOperations::packsChanged, this, &OrvexState::packsChanged);
  connect(&packOperations_, &PackOperations::installedChanged, this,
          &OrvexState::installedPacksChanged);
  connect(&packOperations_, &PackOperations::busyChanged, this, &OrvexState::packBusyIDsChanged);
  connect(&packOperations_, &PackOperations::progressChanged, this,
          &OrvexState::packProgressChanged);
  connect(&packOperations_, &PackOperations::lastErrorChanged, this,
          &OrvexState::packLastErrorChanged);
  connect(&packOperations_, &PackOperations::toast, this, &OrvexState::showToast);
  connect(&request_, &RequestSubmission::sendingChanged, this, &OrvexState::setRequestSending);
  connect(&request_, &RequestSubmission::toast, this, &OrvexState::showToast);
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

std::optional<QString> OrvexState::installedVersion(const UniversalPack& pack) const {
  const auto found = std::ranges::find(installedPacks(), pack.id, &UniversalInstalledPack::id);
  if (found == installedPacks().end()) return std::nullopt;
  return found->version;
}

QString OrvexState::panelVersion() {
  return OrvexConfig::version();
}

}  // namespace orvex
