#include "services/PackStore.h"

#include "base/Collation.h"
#include "base/FileError.h"
#include "base/FileUrl.h"
#include "base/Json.h"
#include "base/SmallFile.h"
#include "services/PackNames.h"
#include "services/PackRoot.h"
#include "services/UniversalInstalledRecord.h"
#include "services/UniversalPackClientError.h"

#include <algorithm>
#include <optional>

namespace orvex {
namespace {

using Kind = UniversalPackClientError::Kind;

// Some sixty thousand files with the longest names; a pack with more is refused before it is
// fetched.
constexpr qsizetype kMaximumRecord = qsizetype{16} * 1024 * 1024;
// Nobody replaces a pack so often while it is being read.
constexpr int kAttempts = 20;
// So often a bar of progress can move.
constexpr qint64 kProgressSteps = 500;

// Nothing where there is none.
std::optional<Directory> openRoot(const QByteArray& path) {
  try {
    return Directory::open(path);
  } catch (const FileError& error) {
    if (error.code() == ENOENT) return std::nullopt;
    throw;
  }
}

QByteArray recordOf(const UniversalPack& pack, const PackPlan& plan) {
  UniversalInstalledRecord record{.id = pack.id,
                                  .name = pack.name,
                                  .version = pack.version,
                                  .installedAt = QDateTime::currentDateTimeUtc(),
                                  .files = {}};
  for (const UniversalPackAsset& asset : plan.assets) record.files.append(asset.file);
  QByteArray json = record.encode();
  if (json.size() > kMaximumRecord) throw UniversalPackClientError(Kind::InvalidCatalog);
  return json;
}

void requireSpace(const Directory& root, std::int64_t bytes) {
  if (static_cast<std::uint64_t>(bytes) > root.freeBytes())
    throw FileError(QStringLiteral("yazılamadı"), root.path(), ENOSPC);
}

std::optional<UniversalInstalledPack> readVersion(const Directory& pack, const QByteArray& name) {
  try {
    const Directory version = pack.folder(name);
    const auto json = readSmallFile(version.file(kPackRecordName), kMaximumRecord);
    if (!json) return std::nullopt;
    UniversalInstalledRecord record = UniversalInstalledRecord::decode(*json);
    return UniversalInstalledPack{.id = std::move(record.id),
                                  .name = std::move(record.name),
                                  .version = std::move(record.version),
                                  .directoryURL = fileUrl(version.path()),
                                  .files = std::move(record.files)};
  } catch (const FileError&) {
    return std::nullopt;
  } catch (const JsonError&) {
    return std::nullopt;
  }
}

QList<UniversalInstalledPack> readPack(const Directory& root, const QByteArray& name) {
  QList<UniversalInstalledPack> versions;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    versions.clear();
    try {
      const Directory pack = root.folder(name);
      for (const QByteArray& version : visibleNames(pack.names()))
        if (auto found = readVersion(pack, version)) versions.append(*std::move(found));
      // A folder that has been replaced meanwhile may have been emptied under the reader.
      if (root.has(name, pack)) break;
    } catch (const FileError&) {
      // It may have stepped aside for a moment.
    }
  }
  return versions;
}

bool isAside(const QByteArray& name) {
  const auto hidden = HiddenPackName::parse(name);
  return hidden && hidden->role == HiddenPackName::Role::Aside;
}

}  // namespace

void PackStore::install(const UniversalPack& pack, const PackFetch& fetch,
                        const WorkControl& control) const {
  const PackPlan plan = planOf(pack);
  const QByteArray record = recordOf(pack, plan);
  const Directory root = Directory::make(root_);
  std::optional<PackStaging> staging;
  {
    const PackRoot lock(root, control.stop);
    requireSpace(root, plan.bytes);
    staging.emplace(root, plan);
  }

  Progress progress{.total = plan.bytes};
  qint64 reported = 0;
  control.report(progress);
  for (const UniversalPackAsset& asset : plan.assets) {
    if (control.stop.stop_requested()) throw Stopped();
    staging->add(asset, fetch, [&](qint64 bytes) {
      progress.done += bytes;
      if (progress.done - reported < progress.total / kProgressSteps &&
          progress.done < progress.total)
        return;
      reported = progress.done;
      control.report(progress);
    });
  }
  staging->finish(record);

  PackRoot(root, control.stop).publish(staging->name(), plan.id);
}

void PackStore::uninstall(const QString& packID, const std::stop_token& stop) const {
  const QByteArray id = packFolderName(packID);
  const std::optional<Directory> root = openRoot(root_);
  if (!root) return;
  const PackRoot lock(*root, stop);
  if (!root->has(id)) return;
  const QByteArray hidden = HiddenPackName{.id = id}.make();
  lock.withdraw(id, hidden);
  try {
    root->remove(hidden);
  } catch (const FileError&) {
    // The pack is gone; what is left of it is out of sight until it can be swept.
  }
}

QList<UniversalInstalledPack> PackStore::installedPacks() const {
  const std::optional<Directory> root = openRoot(root_);
  if (!root) return {};
  // A pack may be out of sight because a process was interrupted while it exchanged it.
  QList<QByteArray> entries = root->names();
  if (std::ranges::any_of(entries, isAside)) {
    const PackRoot recovered(*root, {});
    entries = root->names();
  }
  QList<UniversalInstalledPack> packs;
  for (const QByteArray& name : visibleNames(entries)) packs.append(readPack(*root, name));
  QList<QString> names;
  for (const UniversalInstalledPack& pack : std::as_const(packs)) names.append(pack.name);
  QList<UniversalInstalledPack> sorted;
  for (const qsizetype place : Collation().sorted(names)) sorted.append(packs[place]);
  return sorted;
}

}  // namespace orvex
