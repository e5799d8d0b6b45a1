#pragma once

#include "base/Background.h"
#include "services/HttpClient.h"
#include "services/UniversalInstalledPack.h"
#include "services/UniversalPackCatalog.h"
#include "services/UniversalPackClientError.h"

namespace orvex {

class PackStore;

/// Fetches the catalog of content packs, installs packs below a folder of the user's and removes
/// them. Keeps nothing between calls; any thread, and any number of processes on one folder.
class UniversalPackClient final {
 public:
  /// `root` is the absolute path of the folder that holds one folder for each pack.
  UniversalPackClient(QUrl catalogURL, QString root, HttpOptions http);

  /// The folder of the user's packs.
  [[nodiscard]] static QString userRoot();

  /// Blocking, 20 seconds at most. Throws `UniversalPackClientError`, `TransportError`,
  /// `JsonError`, `Stopped`.
  [[nodiscard]] UniversalPackCatalog fetchCatalog(const std::stop_token& stop = {}) const;
  /// The same, reduced to this panel's packs and sorted.
  [[nodiscard]] QList<UniversalPack> finalCutPacks(const std::stop_token& stop = {}) const;

  /// Installs or replaces the pack, reporting bytes of bytes. Blocking. When it returns the pack is
  /// durable; when it throws, what was installed before is as it was. Throws
  /// `UniversalPackClientError`, `TransportError`, `FileError`, `Stopped`.
  void install(const UniversalPack& pack, const WorkControl& control = {}) const;
  /// Removes the pack with all its versions, if it is installed. Throws `FileError`, `Stopped`, and
  /// `UniversalPackClientError` for an identifier that no pack can have.
  void uninstall(const QString& packID, const std::stop_token& stop = {}) const;
  /// What is installed, by name. Throws `FileError`.
  [[nodiscard]] QList<UniversalInstalledPack> installedPacks() const;

 private:
  [[nodiscard]] PackStore store() const;

  QUrl catalogURL_;
  QString root_;
  HttpOptions http_;
};

}  // namespace orvex
