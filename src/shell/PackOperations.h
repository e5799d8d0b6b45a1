#pragma once

#include "base/Background.h"
#include "services/UniversalPackClient.h"
#include "shell/OrvexToast.h"

#include <QObject>
#include <QSet>

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>

namespace orvex {

/// How far the install or removal of a pack is.
struct PackActivity {
  bool installing = false;
  /// The install was told to stop and has not yet.
  bool cancelling = false;
  /// Bytes that have arrived.
  Progress progress;

  friend bool operator==(const PackActivity&, const PackActivity&) = default;
};

/// Reads the catalog of content packs, installs and removes packs and keeps what is known of both.
/// One operation per pack at a time, any number of packs at once. Main thread only.
class PackOperations final : public QObject {
  Q_OBJECT

 public:
  explicit PackOperations(UniversalPackClient client);
  ~PackOperations() override;

  /// The packs of the last catalog read.
  [[nodiscard]] const QList<UniversalPack>& packs() const noexcept { return packs_; }
  [[nodiscard]] const QList<UniversalInstalledPack>& installed() const noexcept {
    return installed_;
  }
  /// Identifiers of the packs that are being installed or removed.
  [[nodiscard]] QSet<QString> busyIDs() const;
  /// What is done to the pack, if anything is.
  [[nodiscard]] std::optional<PackActivity> activity(const QString& packID) const;
  [[nodiscard]] const std::optional<QString>& lastError() const noexcept { return lastError_; }

  [[nodiscard]] bool isRefreshing() const noexcept { return refresh_.isRunning(); }

  /// Reads catalog and installed packs. Of two at once the later one counts; it speaks for the
  /// earlier one too where that was not to be silent.
  void refresh(bool silent);
  /// Reads the installed packs.
  void refreshInstalled();
  /// Does nothing while the pack is being installed or removed; nor does `uninstall`.
  void install(const UniversalPack& pack);
  void uninstall(const UniversalPack& pack);
  /// Tells the install of the pack to stop, if one is under way. The pack stays busy until it has.
  void cancelInstall(const QString& packID);

 Q_SIGNALS:
  void refreshingChanged();
  void packsChanged();
  void installedChanged();
  /// An operation on the pack began or ended.
  void busyChanged(const QString& packID);
  void progressChanged(const QString& packID);
  void lastErrorChanged();
  void toast(const QString& message, orvex::OrvexToast::Kind kind, double duration);

 private:
  struct Operation {
    PackActivity activity;
    std::stop_source stop{};
    Background background{};
  };
  // The installed packs as one reading found them. A reading that began later has the higher
  // number, and tells of every operation that ended before it began.
  struct Listing {
    quint64 number = 0;
    QList<UniversalInstalledPack> packs;
  };
  using ListingCounter = std::shared_ptr<std::atomic<quint64>>;

  [[nodiscard]] static Listing list(const UniversalPackClient& client,
                                    const ListingCounter& counter);
  [[nodiscard]] Operation* begin(const QString& packID, bool installing);
  void end(const QString& packID);
  void publish(const Listing& listing);
  void setLastError(const std::optional<QString>& description);

  const UniversalPackClient client_;
  QList<UniversalPack> packs_;
  QList<UniversalInstalledPack> installed_;
  std::optional<QString> lastError_;
  const ListingCounter listings_ = std::make_shared<std::atomic<quint64>>(0);
  quint64 published_ = 0;
  bool toastOwed_ = false;
  std::map<QString, Operation> operations_;
  Background refresh_;
  Background listing_;
};

}  // namespace orvex
