#pragma once

#include "base/FolderLock.h"

namespace orvex {

/// The folder of all packs while this thread of this process alone changes what is visible in it.
/// Every change is one step from a whole pack to another, or is taken back. What fails throws
/// `FileError`.
class PackRoot final {
 public:
  /// Waits for its turn and clears up what interrupted processes have left. `folder` must outlive
  /// this object. Throws `Stopped`.
  PackRoot(const Directory& folder, const std::stop_token& stop);

  /// Makes the pack folder `hidden` the one called `id`, durably. A folder that carried that name
  /// carries the other one afterwards.
  void publish(const QByteArray& hidden, const QByteArray& id) const;
  /// Hides the pack folder `id` under the name `hidden`, durably.
  void withdraw(const QByteArray& id, const QByteArray& hidden) const;

 private:
  void sweep() const;
  void put(const QByteArray& hidden, const QByteArray& id) const;

  const Directory& folder_;
  FolderLock lock_;
};

}  // namespace orvex
