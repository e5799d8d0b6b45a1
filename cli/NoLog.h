#pragma once

#include "platform/SystemLog.h"

namespace orvex {

/// What the panel writes to the system's log would be noise around a command's output.
class NoLog final : public SystemLog {
 public:
  void line(const QString&) override {}
};

}  // namespace orvex
