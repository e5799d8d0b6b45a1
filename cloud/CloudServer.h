#pragma once

#include "base/Directory.h"
#include "cloud/ListenSocket.h"
#include "cloud/ServerCertificate.h"

#include <functional>
#include <memory>

namespace orvex {

class RequestStore;

struct CloudServerOptions {
  ServerCertificate certificate;
  /// What one transfer may take; 0 for as much as there is.
  qint64 bytesPerSecond = 0;
};

/// The vendor's service over HTTPS: hands out a published tree and takes requests. It answers on
/// threads of its own, one for each connection, from construction to destruction.
class CloudServer final {
 public:
  /// Told of every exchange that ended, in one line, on any thread.
  using Log = std::function<void(const QByteArray& line)>;

  /// `published` is what the addresses' paths begin at; `requests` outlives the server. Throws
  /// `DescribedError`.
  CloudServer(ListenSocket socket, Directory published, RequestStore& requests,
              const CloudServerOptions& options, Log log);
  /// Breaks off what is under way.
  ~CloudServer();
  CloudServer(const CloudServer&) = delete;
  CloudServer& operator=(const CloudServer&) = delete;

 private:
  class Daemon;
  std::unique_ptr<Daemon> daemon_;
};

}  // namespace orvex
