#include "services/UniversalPackCatalog.h"

#include "base/Discard.h"
#include "base/Json.h"
#include "services/Product.h"

#include <QJsonDocument>

#include <algorithm>
#include <limits>

namespace orvex {
namespace {

UniversalPackAsset decodeAsset(const JsonReader& asset) {
  return {.file = asset[u"file"].string(),
          .sha256 = asset[u"sha256"].string(),
          .bytes = asset[u"bytes"].integer(),
          .url = asset.optional(u"url", &JsonReader::string)};
}

QList<UniversalPackAsset> decodeAssets(const JsonReader& assets) {
  return assets.list(&decodeAsset);
}

UniversalPackRollback decodeRollback(const JsonReader& rollback) {
  return {
      .previousVersion = rollback.optional(u"previousVersion", &JsonReader::string),
      .previousManifestSHA256 = rollback.optional(u"previousManifestSHA256", &JsonReader::string)};
}

UniversalPack decodePack(const JsonReader& pack) {
  return {.schemaVersion = pack[u"schemaVersion"].integer(),
          .id = pack[u"id"].string(),
          .name = pack[u"name"].string(),
          .version = pack[u"version"].string(),
          .targets = pack[u"targets"].list(&JsonReader::string),
          .sharedAssets = decodeAssets(pack[u"sharedAssets"]),
          .variants = pack[u"variants"].map(&decodeAssets),
          .rollback = decodeRollback(pack[u"rollback"]),
          .manifestSHA256 = pack.optional(u"manifestSHA256", &JsonReader::string)};
}

template <typename Item>
QJsonArray encodeList(const QList<Item>& items, QJsonObject (*encode)(const Item&)) {
  QJsonArray array;
  for (const Item& item : items) array.append(encode(item));
  return array;
}

QJsonObject encodeAsset(const UniversalPackAsset& asset) {
  QJsonObject object{{QStringLiteral("file"), asset.file},
                     {QStringLiteral("sha256"), asset.sha256},
                     {QStringLiteral("bytes"), qint64{asset.bytes}}};
  insert(object, u"url", asset.url);
  return object;
}

QJsonObject encodePack(const UniversalPack& pack) {
  QJsonObject variants;
  for (auto variant = pack.variants.begin(); variant != pack.variants.end(); ++variant)
    variants.insert(variant.key(), encodeList(variant.value(), &encodeAsset));
  QJsonObject rollback;
  insert(rollback, u"previousVersion", pack.rollback.previousVersion);
  insert(rollback, u"previousManifestSHA256", pack.rollback.previousManifestSHA256);
  QJsonObject object{{QStringLiteral("schemaVersion"), qint64{pack.schemaVersion}},
                     {QStringLiteral("id"), pack.id},
                     {QStringLiteral("name"), pack.name},
                     {QStringLiteral("version"), pack.version},
                     {QStringLiteral("targets"), QJsonArray::fromStringList(pack.targets)},
                     {QStringLiteral("sharedAssets"), encodeList(pack.sharedAssets, &encodeAsset)},
                     {QStringLiteral("variants"), variants},
                     {QStringLiteral("rollback"), rollback}};
  insert(object, u"manifestSHA256", pack.manifestSHA256);
  return object;
}

}  // namespace

UniversalPackCatalog UniversalPackCatalog::decode(const QByteArray& json) {
  JsonReader root(json);
  UniversalPackCatalog catalog{
      .schemaVersion = root[u"schemaVersion"].integer(),
      .revision = root[u"revision"].string(),
      .previousRevisionSHA256 = root.optional(u"previousRevisionSHA256", &JsonReader::string),
      .packs = root[u"packs"].list(&decodePack)};
  // The document's tree is larger than what was made of it.
  discard(std::move(root));
  return catalog;
}

QByteArray UniversalPackCatalog::encode() const {
  QJsonObject root{{QStringLiteral("schemaVersion"), qint64{schemaVersion}},
                   {QStringLiteral("revision"), revision},
                   {QStringLiteral("packs"), encodeList(packs, &encodePack)}};
  insert(root, u"previousRevisionSHA256", previousRevisionSHA256);
  return QJsonDocument(root).toJson(QJsonDocument::Compact);
}

QList<UniversalPack> finalCutPacks(const UniversalPackCatalog& catalog,
                                   const Collation& collation) {
  QList<UniversalPack> packs;
  QList<QString> names;
  packs.reserve(catalog.packs.size());
  for (const UniversalPack& pack : catalog.packs) {
    if (!pack.targets.contains(kPackTarget)) continue;
    packs.append(pack);
    names.append(pack.name);
  }
  QList<UniversalPack> sorted;
  sorted.reserve(packs.size());
  for (const qsizetype at : collation.sorted(names)) sorted.append(std::move(packs[at]));
  return sorted;
}

QList<UniversalPackAsset> finalCutAssets(const UniversalPack& pack) {
  return pack.sharedAssets + pack.variants.value(kPackTarget);
}

std::int64_t totalBytes(const QList<UniversalPackAsset>& assets) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  std::int64_t sum = 0;
  for (const UniversalPackAsset& asset : assets)
    sum += std::clamp<std::int64_t>(asset.bytes, 0, kMost - sum);
  return sum;
}

}  // namespace orvex
