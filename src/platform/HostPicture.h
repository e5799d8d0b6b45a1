#pragma once

#include <QByteArray>

#include <functional>
#include <optional>

namespace orvex {

/// Takes pictures of the frame that the host shows. Main thread only.
class HostPicture {
 public:
  /// An encoded picture (JPEG) of the frame before the panel's own LUT; nothing when the host shows
  /// none or cannot give it.
  using Taken = std::function<void(const std::optional<QByteArray>& picture)>;

  virtual ~HostPicture() = default;

  /// Takes one without waiting. `taken` is called once, later, unless a newer call or the end of
  /// this object comes first.
  virtual void take(Taken taken) = 0;
};

}  // namespace orvex
