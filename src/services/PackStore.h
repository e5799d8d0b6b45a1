#pragma once

#include "base/Background.h"
#include "services/PackStaging.h"
#include "services/UniversalInstalledPack.h"

namespace orvex {

/// The packs below a folder of the user's: a folder for each pack, in it one for its version, in
/// that its files and their record. Keeps nothing between calls; any thread, and any number of
/// processes on one folder. Whoever looks, however often and whenever a process ends, sees a pack
/// as it was before or as it is after a change.
class PackStore final {
 public:
  /// An absolute path, raw bytes.
  explicit PackStore(QByteArray root) : root_(std::move(root)) {}

  /// Installs or replaces the pack with what `fetch` brings, reporting bytes of bytes. Throws
  /// `UniversalPackClientError`, `FileError`, `Stopped` and what `fetch` throws; then nothing has
  /// changed.
  void install(const UniversalPack& pack, const PackFetch& fetch, const WorkControl& control) const;
  /// Removes the pack with all its versions, if it is there. Throws `FileError`, `Stopped`, and
  /// `UniversalPackClientError` for an identifier that no pack can have.
  void uninstall(const QString& packID, const std::stop_token& stop = {}) const;
  /// All packs with a readable record, by name. Throws `FileError`.
  [[nodiscard]] QList<UniversalInstalledPack> installedPacks() const;

 private:
  QByteArray root_;
};

}  // namespace orvex
