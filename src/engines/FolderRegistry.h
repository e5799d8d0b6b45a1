#pragma once

#include "base/Background.h"
#include "base/Discard.h"
#include "engines/EngineRegistry.h"
#include "engines/FirstReading.h"
#include "engines/Inventory.h"

#include <QUrl>

#include <memory>
#include <optional>

namespace orvex {

class FolderBookmarkStore;

/// The life of an inventory that is made of one folder which the user granted: it finds the folder
/// again at the start, asks for another one, scans on a worker thread and publishes what came of
/// it. A newer scan supersedes an older one. Main thread only; it never looks into folders
/// there.
class FolderRegistry : public EngineRegistry {
  Q_OBJECT
  Q_PROPERTY(orvex::EngineHealth health READ health NOTIFY changed FINAL)
  Q_PROPERTY(QUrl rootURL READ rootUrlOrEmpty NOTIFY changed FINAL)
  Q_PROPERTY(QString lastError READ lastErrorOrEmpty NOTIFY changed FINAL)
  Q_PROPERTY(qint64 skippedFolders READ skippedFolders NOTIFY changed FINAL)
  Q_PROPERTY(bool scanning READ isScanning NOTIFY scanningChanged FINAL)
  Q_PROPERTY(qint64 scanDone READ scanDone NOTIFY scanProgressChanged FINAL)
  Q_PROPERTY(qint64 scanTotal READ scanTotal NOTIFY scanProgressChanged FINAL)

 public:
  /// Asks the user for a folder, without waiting. When one is chosen it becomes the root and is
  /// scanned; otherwise nothing changes. A further call while the user is being asked does nothing.
  /// A folder whose grant cannot be stored lasts as long as the panel.
  Q_INVOKABLE void chooseFolder();
  /// Takes the folder that the user dropped, without waiting: the next panel finds it again, too.
  /// What is no folder is `refused` and changes nothing; until that is known, nothing scans.
  Q_INVOKABLE void useFolder(const QUrl& folder);
  /// Scans the root anew, without waiting. Until the scan has ended, what the one before it found
  /// stays published. Does nothing without a root.
  Q_INVOKABLE void scan();

  [[nodiscard]] EngineSummary summary() const final;
  [[nodiscard]] EngineHealth health() const noexcept { return health_; }
  [[nodiscard]] const std::optional<QUrl>& rootURL() const noexcept { return rootURL_; }
  /// What the last scan failed with, in Turkish; nothing after one that worked.
  [[nodiscard]] const std::optional<QString>& lastError() const noexcept { return lastError_; }

  /// Folders that the last scan could not read.
  [[nodiscard]] virtual qint64 skippedFolders() const noexcept = 0;

  /// From the moment that a folder is looked for until its scan has ended.
  [[nodiscard]] bool isScanning() const noexcept {
    return granting_.isRunning() || background_.isRunning();
  }
  /// How far the scan is: entries met while the total is 0, then files read of so many.
  [[nodiscard]] qint64 scanDone() const noexcept { return progress_.done; }
  [[nodiscard]] qint64 scanTotal() const noexcept { return progress_.total; }

 Q_SIGNALS:
  void scanningChanged();
  void scanProgressChanged();
  /// What was dropped is not taken; `reason` is in Turkish.
  void refused(const QString& reason);

 protected:
  /// What sets one registry apart from the others.
  struct Engine {
    QString title;
    /// What the summary says without a root.
    QString accessPrompt;
    QString chooserTitle;
    QString bookmarkKey;
  };

  FolderRegistry(FolderBookmarkStore& bookmarks, Engine engine, QObject* parent);

  /// Finds the stored folder and scans it, without waiting. Called once, by the constructor of the
  /// registry.
  void restore();

  /// Begins a scan of `root` by calling `run`.
  virtual void beginScan(const QByteArray& root) = 0;
  /// Runs `work` on the worker thread, with the root open to it until it has ended or nobody waits
  /// for what it finds any more, then hands that to `take` on the main thread.
  template <typename Found>
  void run(std::function<Found(const WorkControl&)> work, std::function<void(Found)> take) {
    background_.run(
        std::move(work),
        [this, access = openAccess(),
         take = std::move(take)](std::expected<Found, std::exception_ptr> found) mutable {
          access.reset();
          if (!found) return fail(found.error());
          take(std::move(*found));
          succeed();
        },
        [this](Progress progress) { setProgress(progress); });
  }
  virtual void clearItems() = 0;
  [[nodiscard]] virtual qint64 itemCount() const = 0;

 private:
  void setRoot(const QUrl& folder);
  // Uses the root from now until the last copy of what is returned is gone.
  [[nodiscard]] std::shared_ptr<void> openAccess() const;
  void succeed();
  void fail(const std::exception_ptr& failure);
  void finish(EngineHealth health);
  void setProgress(Progress progress);
  [[nodiscard]] QUrl rootUrlOrEmpty() const { return rootURL_.value_or(QUrl()); }
  [[nodiscard]] QString lastErrorOrEmpty() const { return lastError_.value_or(QString()); }

  FolderBookmarkStore& bookmarks_;
  const Engine engine_;
  std::optional<QUrl> rootURL_;
  EngineHealth health_ = EngineHealth::NeedsAccess;
  std::optional<QString> lastError_;
  bool choosing_ = false;
  Progress progress_;
  // Apart, so that what is refused stops nothing and counts as no scan.
  Background dropping_{Background::Priority::Equal};
  Background granting_{Background::Priority::Equal};
  Background background_;
};

/// A folder's inventory of one type of items.
template <typename Item>
class InventoryRegistry : public FolderRegistry {
 public:
  /// In the order in which they are shown. The reference stays good; its contents change with
  /// `changed`.
  [[nodiscard]] const QList<Item>& items() const noexcept { return inventory_.items; }
  /// The positions in `items` of those that `query` finds; all when it is blank.
  [[nodiscard]] QList<qsizetype> matching(QStringView query) const {
    return inventory_.search.find(query);
  }
  [[nodiscard]] qint64 skippedFolders() const noexcept final { return inventory_.skippedFolders; }

 protected:
  using Scan = Inventory<Item> (*)(const QByteArray& root, const WorkControl& control,
                                   const ScanOptions& options);

  InventoryRegistry(FolderBookmarkStore& bookmarks, Engine engine, Scan scanner,
                    FirstReading firstReading, QObject* parent)
      : FolderRegistry(bookmarks, std::move(engine), parent),
        scanner_(scanner),
        firstReading_(std::move(firstReading)) {}

 private:
  void beginScan(const QByteArray& root) final {
    run<Inventory<Item>>(
        [scanner = scanner_, root, gate = firstReading_](const WorkControl& control) {
          awaitFirstReading(gate, control.stop);
          return scanner(root, control, {});
        },
        [this](Inventory<Item> found) { discard(std::exchange(inventory_, std::move(found))); });
  }
  void clearItems() final { discard(std::exchange(inventory_, {})); }
  [[nodiscard]] qint64 itemCount() const final { return inventory_.items.size(); }

  Scan scanner_;
  FirstReading firstReading_;
  Inventory<Item> inventory_;
};

}  // namespace orvex
