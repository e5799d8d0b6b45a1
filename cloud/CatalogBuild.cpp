#include "cloud/CatalogBuild.h"

#include "base/FolderLock.h"
#include "base/Json.h"
#include "base/NewFile.h"
#include "base/Sha256.h"
#include "base/SmallFile.h"
#include "cloud/Transcript.h"
#include "services/HttpsAddress.h"
#include "services/Product.h"
#include "services/ReleaseManifest.h"
#include "services/ServicePaths.h"
#include "services/UniversalPackCatalog.h"

#include <algorithm>

namespace orvex {
namespace {

constexpr std::int64_t kSchemaVersion = 1;
// Far beyond what any catalog or release manifest needs.
constexpr qsizetype kMaximumDocument = 256 * 1024 * 1024;

QString hexDigest(const QByteArray& bytes) {
  return QString::fromLatin1(Sha256::of(bytes).toHex());
}

// Documents are replaced only where they would differ, so that caches keep what they have.
bool replaceIfOther(const Directory& folder, const QByteArray& name, const QByteArray& bytes) {
  if (readSmallFile(folder.descriptor(), name, kMaximumDocument) == bytes) return false;
  replaceDurably(folder, name, bytes);
  return true;
}

class Builder {
 public:
  Builder(const Directory& vendor, const QUrl& catalogURL)
      : vendor_(vendor),
        packsURL_(catalogURL.resolved(QUrl(QStringLiteral("."))).toString(QUrl::FullyEncoded)),
        packs_(Directory::make(vendor.path("public" + QByteArray(ServicePaths::kPacks)))),
        lock_(packs_, {}) {
    previousBytes_ = readSmallFile(packs_.descriptor(), ServicePaths::kManifest, kMaximumDocument);
    if (!previousBytes_) return;
    try {
      previous_ = UniversalPackCatalog::decode(*previousBytes_);
    } catch (const JsonError&) {
      // Whatever it was, the next one follows it.
    }
  }

  CatalogBuild run() {
    const std::vector<PackSource> sources = readPackSources(vendor_.folder("packs"));
    UniversalPackCatalog catalog{
        .schemaVersion = kSchemaVersion, .revision = {}, .previousRevisionSHA256 = {}, .packs = {}};
    // Everything is refused before anything is published.
    for (const PackSource& source : sources) catalog.packs.append(packOf(source));
    const std::optional<QByteArray> release = releaseManifest();
    for (const PackSource& source : sources) publish(source);
    // A version is taken once all files are there.
    for (const UniversalPack& pack : std::as_const(catalog.packs))
      changed(replaceIfOther(Directory::make(packs_.path("manifests/" + pack.id.toUtf8())),
                             pack.version.toUtf8() + ".json", manifestOf(pack)));
    // A label that follows from what it labels.
    catalog.revision = hexDigest(catalog.encode()).first(16);
    catalog.previousRevisionSHA256 = previous_.previousRevisionSHA256;
    if (previousBytes_ && catalog.encode() != *previousBytes_)
      catalog.previousRevisionSHA256 = hexDigest(*previousBytes_);
    changed(replaceIfOther(packs_, ServicePaths::kManifest, catalog.encode()));
    publishRelease(release);
    result_.revision = catalog.revision;
    result_.packs = catalog.packs.size();
    return result_;
  }

 private:
  void changed(bool change) { result_.changed = result_.changed || change; }

  [[nodiscard]] QString fileURL(const PackSource& source, const PackSourceFolder& folder,
                                const QString& file) const {
    const auto encoded = [](const QString& text, const QByteArray& kept = {}) {
      return QString::fromLatin1(QUrl::toPercentEncoding(text, kept));
    };
    return packsURL_ + QStringLiteral("files/%1/%2/%3/%4")
                           .arg(encoded(source.id), encoded(source.version),
                                encoded(folder.name, "/"), encoded(file));
  }

  // The catalog's entry for the pack.
  [[nodiscard]] UniversalPack packOf(const PackSource& source) const {
    UniversalPack pack{.schemaVersion = kSchemaVersion,
                       .id = source.id,
                       .name = source.name,
                       .version = source.version,
                       .targets = source.targets,
                       .sharedAssets = {},
                       .variants = {},
                       .rollback = {},
                       .manifestSHA256 = {}};
    for (const PackSourceFolder& folder : source.folders) {
      QList<UniversalPackAsset> assets = folder.assets;
      for (UniversalPackAsset& asset : assets) asset.url = fileURL(source, folder, asset.file);
      (folder.target.isEmpty() ? pack.sharedAssets : pack.variants[folder.target]) = assets;
    }
    pack.manifestSHA256 = hexDigest(manifestOf(pack));
    const UniversalPack* const before = previousOf(pack.id);
    auto published = publishedAs(pack);
    if (!published && before != nullptr && before->version == pack.version) published = *before;
    if (published) refuseOtherContents(*published, pack);
    if (before != nullptr)
      pack.rollback = before->version == pack.version
                          ? before->rollback
                          : UniversalPackRollback{before->version, before->manifestSHA256};
    return pack;
  }

  // The same version of the pack, from whichever earlier catalog.
  [[nodiscard]] std::optional<UniversalPack> publishedAs(const UniversalPack& pack) const {
    const QByteArray manifest = manifestPath(pack);
    const auto json = readSmallFile(packs_.descriptor(), manifest, kMaximumDocument);
    if (!json) return std::nullopt;
    try {
      return UniversalPackCatalog::decode(*json).packs.value(0);
    } catch (const JsonError& error) {
      throw CatalogSourceError(
          QStringLiteral("%1: %2 Dosyayı yedekten geri koy ya da sürümü "
                         "yükselt.")
              .arg(QString::fromUtf8(packs_.path(manifest)), error.description()));
    }
  }

  // Below the folder that the catalog lies in.
  [[nodiscard]] static QByteArray manifestPath(const UniversalPack& pack) {
    return "manifests/" + pack.id.toUtf8() + '/' + pack.version.toUtf8() + ".json";
  }

  [[nodiscard]] const UniversalPack* previousOf(const QString& id) const {
    const auto found = std::ranges::find(previous_.packs, id, &UniversalPack::id);
    return found == previous_.packs.end() ? nullptr : &*found;
  }

  // Who has installed a version is not offered it again, and caches keep its files for ever.
  static void refuseOtherContents(const UniversalPack& before, const UniversalPack& now) {
    const auto contents = [](const UniversalPack& pack) {
      UniversalPackCatalog bare{.schemaVersion = 0,
                                .revision = {},
                                .previousRevisionSHA256 = {},
                                .packs = {UniversalPack{}}};
      UniversalPack& copy = bare.packs.first();
      copy.sharedAssets = pack.sharedAssets;
      copy.variants = pack.variants;
      for (UniversalPackAsset& asset : copy.sharedAssets) asset.url.reset();
      for (QList<UniversalPackAsset>& assets : copy.variants)
        for (UniversalPackAsset& asset : assets) asset.url.reset();
      return bare;
    };
    if (contents(before) == contents(now)) return;
    throw CatalogSourceError(
        QStringLiteral("packs/%1: %2 sürümü başka içerikle zaten yayımlandı. pack.json içindeki "
                       "sürümü yükselt ya da dosyaları eski haline getir.")
            .arg(now.id, now.version));
  }

  // A catalog of this pack alone, with nothing in it that depends on what came before.
  [[nodiscard]] static QByteArray manifestOf(UniversalPack pack) {
    pack.rollback = {};
    pack.manifestSHA256.reset();
    return UniversalPackCatalog{.schemaVersion = kSchemaVersion,
                                .revision = pack.version,
                                .previousRevisionSHA256 = {},
                                .packs = {pack}}
        .encode();
  }

  void publish(const PackSource& source) {
    const QByteArray id = source.id.toUtf8();
    const QByteArray version = source.version.toUtf8();
    for (const PackSourceFolder& folder : source.folders) {
      const Directory target =
          Directory::make(packs_.path("files/" + id + '/' + version + '/' + folder.name.toUtf8()));
      for (const UniversalPackAsset& asset : folder.assets) {
        changed(publish(folder.folder, target, asset));
        ++result_.files;
        result_.bytes += asset.bytes;
      }
    }
  }

  // Copies the file unless it is there; true when it was not.
  static bool publish(const Directory& from, const Directory& to, const UniversalPackAsset& asset) {
    const QByteArray name = asset.file.toUtf8();
    const FileTranscript expected{asset.bytes, asset.sha256};
    if (to.has(name) && transcribe(to.file(name), to.path(name)) == expected) return false;
    NewFile copy(to);
    const FileTranscript copied = transcribe(from.file(name), from.path(name),
                                             [&copy](QByteArrayView piece) { copy.write(piece); });
    if (copied != expected)
      throw CatalogSourceError(
          QStringLiteral("%1 okunurken değişti. Değiştiren programı kapat ve yeniden dene.")
              .arg(QString::fromUtf8(from.path(name))));
    copy.sync();
    copy.moveTo(name);
    to.sync();
    return true;
  }

  [[nodiscard]] std::optional<QByteArray> releaseManifest() const {
    const QString where = QStringLiteral("release.json: ");
    if (!vendor_.has("release.json")) return std::nullopt;
    const auto json = readSmallFile(vendor_.descriptor(), "release.json", kMaximumDocument);
    if (!json) throw CatalogSourceError(where + QStringLiteral("okunamıyor. Bir dosya olsun."));
    ReleaseManifest manifest;
    try {
      manifest = ReleaseManifest::decode(*json);
    } catch (const JsonError& error) {
      throw CatalogSourceError(where + error.description());
    }
    if (manifest.productId != kProduct)
      throw CatalogSourceError(where + QStringLiteral("productId \"%1\" olmalı.").arg(kProduct));
    if (manifest.version.trimmed().isEmpty())
      throw CatalogSourceError(where + QStringLiteral("version boş. 1.2.0 gibi bir sürüm yaz."));
    for (const QString& address :
         {manifest.downloadURL, manifest.notesURL.value_or(manifest.downloadURL)}) {
      if (!isHttpsAddress(QUrl(address, QUrl::StrictMode)))
        throw CatalogSourceError(where +
                                 QStringLiteral("\"%1\" tam bir https adresi değil.").arg(address));
    }
    return manifest.encode();
  }

  void publishRelease(const std::optional<QByteArray>& manifest) {
    const Directory folder =
        Directory::make(vendor_.path("public" + QByteArray(ServicePaths::kReleases)));
    if (manifest) return changed(replaceIfOther(folder, ServicePaths::kManifest, *manifest));
    changed(folder.has(ServicePaths::kManifest));
    folder.remove(ServicePaths::kManifest);
  }

  const Directory& vendor_;
  // Of the folder that the catalog lies in, with a slash at its end.
  const QString packsURL_;
  const Directory packs_;
  // Two that publish take turns.
  const FolderLock lock_;
  std::optional<QByteArray> previousBytes_;
  UniversalPackCatalog previous_;
  CatalogBuild result_;
};

}  // namespace

CatalogBuild buildCatalog(const Directory& vendor, const QUrl& catalogURL) {
  return Builder(vendor, catalogURL).run();
}

}  // namespace orvex
