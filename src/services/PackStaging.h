#pragma once

#include "base/FolderLock.h"
#include "base/NewFile.h"
#include "services/PackPlan.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orvex {

/// Hands the bytes of a file to `sink` as they come. What `sink` throws must come through.
using PackFetch = std::function<void(const UniversalPackAsset& asset,
                                     const std::function<void(QByteArrayView)>& sink)>;

/// A pack on its way: a hidden folder in the root that becomes the pack's folder as a whole, with
/// one version folder in it. While it lives nobody takes it for left behind. Whatever carries its
/// name in the end, an unfinished pack or the one that it took the place of, goes with it. What
/// fails throws `FileError`.
class PackStaging final {
 public:
  /// `root` must be locked now, and outlive this object.
  PackStaging(const Directory& root, const PackPlan& plan);

  [[nodiscard]] const QByteArray& name() const noexcept { return leftover_.name; }

  /// Takes in one file, writing and measuring it while it comes; `taken` is told how many bytes
  /// came. Throws `UniversalPackClientError` where it is not the file that it should be.
  void add(const UniversalPackAsset& asset, const PackFetch& fetch,
           const std::function<void(qint64)>& taken);
  /// Puts the record beside the files and makes the whole durable.
  void finish(const QByteArray& record);

 private:
  void settle();

  struct Leftover {
    ~Leftover();
    const Directory& root;
    QByteArray name;
  };

  Leftover leftover_;
  Directory pack_;
  FolderLock lock_;
  Directory version_;
  // Files that are complete while the disk still takes them in, and the names that they get.
  std::vector<std::pair<std::unique_ptr<NewFile>, QByteArray>> pending_;
};

}  // namespace orvex
