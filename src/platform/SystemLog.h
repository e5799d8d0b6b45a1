#pragma once

class QString;

namespace orvex {

/// The system's log.
class SystemLog {
 public:
  virtual ~SystemLog() = default;

  /// Writes one diagnostic line. Any thread.
  virtual void line(const QString& text) = 0;
};

}  // namespace orvex
