#pragma once

#include "base/FileDescriptor.h"

#include <QByteArray>

#include <cstdint>

namespace orvex {

/// A socket that connections can be made to.
struct ListenSocket {
  FileDescriptor socket;
  std::uint16_t port = 0;
};

/// Listens at `address`, an IP address of either version, on `port` or, for 0, on any free one.
/// Throws `DescribedError`.
[[nodiscard]] ListenSocket listenAt(const QByteArray& address, std::uint16_t port);

}  // namespace orvex
