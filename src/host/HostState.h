#pragma once

class QString;

namespace orvex {

struct HostSnapshot;

/// The part of the application's state that the host adapter reads and writes. Main thread only.
class HostState {
 public:
  enum class Notice { Error, Info };

  virtual ~HostState() = default;

  [[nodiscard]] virtual const HostSnapshot& host() const = 0;
  virtual void setHost(const HostSnapshot& snapshot) = 0;
  /// Tells the user what came of a host operation.
  virtual void showHostNotice(const QString& message, Notice notice) = 0;
};

}  // namespace orvex
