#pragma once

#include "base/Background.h"

#include <memory>

namespace orvex {

/// Writes how far work is to standard error, if that is a terminal, and removes it at the end. Any
/// thread.
class TerminalProgress {
 public:
  enum class Unit { Items, Bytes };

  explicit TerminalProgress(Unit unit);
  ~TerminalProgress();
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;

  void show(Progress progress);

 private:
  class State;
  std::unique_ptr<State> state_;
};

}  // namespace orvex
