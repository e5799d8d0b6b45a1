#include "services/PackStaging.h"

#include "base/FileError.h"
#include "base/Sha256.h"
#include "services/PackNames.h"
#include "services/UniversalPackClientError.h"

namespace orvex {

using Kind = UniversalPackClientError::Kind;

namespace {

// Each is an open file, of which a process has few.
constexpr std::size_t kMaximumPending = 64;

}  // namespace

PackStaging::Leftover::~Leftover() {
  try {
    root.remove(name);
  } catch (const FileError&) {
    // Out of sight; the next install sweeps it.
  }
}

PackStaging::PackStaging(const Directory& root, const PackPlan& plan)
    : leftover_{root, HiddenPackName{.id = plan.id}.make()},
      pack_(root.makeFolder(leftover_.name)),
      lock_(pack_, {}),
      version_(pack_.makeFolder(plan.version)) {}

void PackStaging::add(const UniversalPackAsset& asset, const PackFetch& fetch,
                      const std::function<void(qint64)>& taken) {
  auto file = std::make_unique<NewFile>(version_);
  Sha256 digest;
  std::int64_t size = 0;
  fetch(asset, [&](QByteArrayView bytes) {
    // One byte too many is enough.
    if (bytes.size() > asset.bytes - size)
      throw UniversalPackClientError(Kind::SizeMismatch, asset.file);
    size += bytes.size();
    digest.add(bytes);
    file->write(bytes);
    taken(bytes.size());
  });
  if (size != asset.bytes) throw UniversalPackClientError(Kind::SizeMismatch, asset.file);
  // In lower case, as the catalog must have it.
  if (QLatin1StringView(digest.finish().toHex()) != asset.sha256)
    throw UniversalPackClientError(Kind::HashMismatch, asset.file);
  file->beginSync();
  pending_.emplace_back(std::move(file), asset.file.toUtf8());
  if (pending_.size() == kMaximumPending) settle();
}

void PackStaging::settle() {
  for (const auto& [file, name] : pending_) {
    file->sync();
    file->moveTo(name);
  }
  pending_.clear();
}

void PackStaging::finish(const QByteArray& record) {
  settle();
  replaceDurably(version_, kPackRecordName, record);
  pack_.sync();
}

}  // namespace orvex
