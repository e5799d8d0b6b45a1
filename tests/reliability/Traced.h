#pragma once

#include <functional>
#include <vector>

namespace orvex {

/// What is done to a program at one of its system calls.
struct Fault {
  enum class Kind {
    None,
    /// Killed instead of making the call.
    Kill,
    /// The call is not made and fails with `code`.
    Error,
    /// The call is made and fails with `code` all the same.
    ErrorAfter,
    /// The call writes half of what it should.
    Short
  };

  Kind kind = Kind::None;
  /// Which call it is: of all, or of those with this number; from 0.
  std::size_t call = 0;
  long number = -1;
  int code = 0;
  /// The whole file system refuses to exchange two names.
  bool withoutExchange = false;
};

/// How a program ended and which system calls it made until then.
struct Trace {
  /// -1 where it did not end by itself.
  int exitCode = -1;
  std::vector<long> calls;
};

/// Runs `work` in a process of its own, whose exit code it returns, with `fault` in its way.
[[nodiscard]] Trace runTraced(const std::function<int()>& work, const Fault& fault);

}  // namespace orvex
