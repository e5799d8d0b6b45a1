#pragma once

#include "host/HostSnapshot.h"
#include "host/HostState.h"
#include "services/OrvexServices.h"
#include "shell/OrvexPage.h"
#include "shell/OrvexToast.h"
#include "shell/PackOperations.h"
#include "shell/PanelSize.h"
#include "shell/ReleaseCheck.h"
#include "shell/RequestSubmission.h"

#include <QObject>
#include <QTimer>

#include <optional>

namespace orvex {

/// The panel's state: the one object that every page observes. Main thread only. Making one starts
/// nothing.
class OrvexState : public QObject, public HostState {
  Q_OBJECT
  Q_PROPERTY(orvex::OrvexPage activePage READ activePage WRITE setActivePage NOTIFY
                 activePageChanged FINAL)
  Q_PROPERTY(orvex::HostSnapshot host READ host WRITE setHost NOTIFY hostChanged FINAL)
  Q_PROPERTY(orvex::ReleaseState release READ release NOTIFY releaseChanged FINAL)
  Q_PROPERTY(bool hasToast READ hasToast NOTIFY toastChanged FINAL)
  Q_PROPERTY(orvex::OrvexToast toast READ toastOrLast NOTIFY toastChanged FINAL)
  Q_PROPERTY(bool requestSending READ requestSending NOTIFY requestSendingChanged FINAL)
  Q_PROPERTY(bool packsRefreshing READ packsRefreshing NOTIFY packsRefreshingChanged FINAL)
  Q_PROPERTY(QString packLastError READ packLastErrorOrEmpty NOTIFY packLastErrorChanged FINAL)
  Q_PROPERTY(orvex::RequestSubmission* request READ request CONSTANT FINAL)
  Q_PROPERTY(QString panelVersion READ panelVersion CONSTANT FINAL)
  Q_PROPERTY(double panelWidth READ panelWidth WRITE setPanelWidth NOTIFY panelWidthChanged FINAL)
  Q_PROPERTY(
      double panelHeight READ panelHeight WRITE setPanelHeight NOTIFY panelHeightChanged FINAL)
  Q_PROPERTY(double leastPanelExtent READ leastPanelExtent CONSTANT FINAL)

 public:
  /// With the services of the configuration.
  OrvexState();
  explicit OrvexState(const OrvexServices& services, QObject* parent = nullptr);

  [[nodiscard]] OrvexPage activePage() const noexcept { return activePage_; }
  void setActivePage(OrvexPage page);

  [[nodiscard]] const HostSnapshot& host() const noexcept override { return host_; }
  void setHost(const HostSnapshot& snapshot) override;
  /// Shows the notice as a toast of 3.2 seconds.
  void showHostNotice(const QString& message, Notice notice) override;

  [[nodiscard]] const ReleaseState& release() const noexcept { return releaseCheck_.state(); }
  /// See `ReleaseCheck::start`.
  Q_INVOKABLE void checkForUpdates(bool silent) { releaseCheck_.start(silent); }

  /// The message on screen, if any.
  [[nodiscard]] const std::optional<OrvexToast>& toast() const noexcept { return toast_; }
  [[nodiscard]] bool hasToast() const noexcept { return toast_.has_value(); }
  /// Shows a message for `duration` seconds in place of the one on screen. Zero or less hides it on
  /// the next turn of the event loop.
  Q_INVOKABLE void showToast(const QString& message, orvex::OrvexToast::Kind kind, double duration);

  /// A request to the vendor is being sent.
  [[nodiscard]] bool requestSending() const noexcept { return requestSending_; }

  /// The size last asked for, or what the user has made of the window since; in points.
  [[nodiscard]] double panelWidth() const noexcept { return panelWidth_; }
  [[nodiscard]] double panelHeight() const noexcept { return panelHeight_; }
  void setPanelWidth(double width);
  void setPanelHeight(double height);

  /// The packs of the last catalog read.
  [[nodiscard]] const QList<UniversalPack>& packs() const noexcept {
    return packOperations_.packs();
  }
  [[nodiscard]] const QList<UniversalInstalledPack>& installedPacks() const noexcept {
    return packOperations_.installed();
  }
  /// Identifiers of the packs that are being installed or removed.
  [[nodiscard]] QSet<QString> packBusyIDs() const { return packOperations_.busyIDs(); }
  /// How far the install or removal of the pack is, if one is under way.
  [[nodiscard]] std::optional<PackActivity> packActivity(const QString& packID) const {
    return packOperations_.activity(packID);
  }
  [[nodiscard]] const std::optional<QString>& packLastError() const noexcept {
    return packOperations_.lastError();
  }
  /// The catalog is being read.
  [[nodiscard]] bool packsRefreshing() const noexcept { return packOperations_.isRefreshing(); }
  /// See `PackOperations`.
  Q_INVOKABLE void refreshPacks(bool silent) { packOperations_.refresh(silent); }
  Q_INVOKABLE void refreshInstalledPacks() { packOperations_.refreshInstalled(); }
  Q_INVOKABLE void installPack(const orvex::UniversalPack& pack) { packOperations_.install(pack); }
  Q_INVOKABLE void uninstallPack(const orvex::UniversalPack& pack) {
    packOperations_.uninstall(pack);
  }
  Q_INVOKABLE void cancelInstall(const orvex::UniversalPack& pack) {
    packOperations_.cancelInstall(pack.id);
  }
  /// The installed version of `pack`, or nothing when it is not installed.
  [[nodiscard]] std::optional<QString> installedVersion(const UniversalPack& pack) const;

  /// What the request page sends with.
  [[nodiscard]] RequestSubmission* request() noexcept { return &request_; }
  [[nodiscard]] static QString panelVersion();
  [[nodiscard]] static double leastPanelExtent() noexcept { return kLeastPanelExtent; }

 Q_SIGNALS:
  void activePageChanged();
  void hostChanged();
  void releaseChanged();
  void toastChanged();
  void requestSendingChanged();
  void panelWidthChanged();
  void panelHeightChanged();
  void packsRefreshingChanged();
  void packsChanged();
  void installedPacksChanged();
  void packBusyIDsChanged(const QString& packID);
  void packProgressChanged(const QString& packID);
  void packLastErrorChanged();

 private:
  void setRequestSending(bool sending);
  // What leaves the screen keeps its text while it fades.
  [[nodiscard]] OrvexToast toastOrLast() const { return lastToast_; }
  [[nodiscard]] QString packLastErrorOrEmpty() const { return packLastError().value_or(QString()); }

  OrvexPage activePage_ = OrvexPage::home;
  HostSnapshot host_;
  std::optional<OrvexToast> toast_;
  OrvexToast lastToast_;
  QTimer toastTask_;
  bool requestSending_ = false;
  double panelWidth_ = kPanelSize.width();
  double panelHeight_ = kPanelSize.height();
  ReleaseCheck releaseCheck_;
  PackOperations packOperations_;
  RequestSubmission request_;
};

}  // namespace orvex
