#pragma once

#include "services/OrvexServices.h"
#include "support/FaultServer.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

namespace orvex {

/// The vendor's services on a server of the test's own, and an empty store of packs. What was not
/// told what to answer says nothing.
class TestCloud {
 public:
  TestCloud();
  ~TestCloud() { resume(); }

  /// The paths of the services.
  static constexpr auto kManifest = "/downloads/finalcut/manifest.json";
  static constexpr auto kCatalog = "/downloads/orvex/packs/manifest.json";
  static constexpr auto kRequests = "/api/orvex/requests";

  [[nodiscard]] OrvexServices services() const;
  [[nodiscard]] UniversalPackClient packs() const { return services().packs; }

  /// The folder of the store.
  [[nodiscard]] QString store() const { return store_.path(); }

  /// Publishes a release, its manifest completed or changed by `fields`.
  void release(const QString& version, const QJsonObject& fields = {});
  /// A pack of one shared file, in place of the one with the same identifier from the next
  /// `publishCatalog` on.
  void pack(const QString& id, const QString& name, const QString& version,
            const QByteArray& contents = "lut");
  void publishCatalog();
  /// Sends two fifths of the file of this pack, and the rest after `resume`.
  void hold(const QString& id);
  void resume();

  FaultServer server;

 private:
  [[nodiscard]] static QByteArray filePath(const QString& id);

  const QTemporaryDir store_;
  QMap<QString, UniversalPack> packs_;
  QMap<QString, QByteArray> contents_;
  std::shared_ptr<std::atomic<bool>> held_ = std::make_shared<std::atomic<bool>>(true);
};

}  // namespace orvex
