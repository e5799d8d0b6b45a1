#pragma once

#include "base/DescribedError.h"

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace orvex {

// Each check prints its rows, tries about `most` cases of each kind, or all where that is 0, and
// returns whether all went well.

/// Kills a change at every system call.
[[nodiscard]] bool checkKills(std::size_t most);
/// Has every system call of a change on files fail in every way that it can.
[[nodiscard]] bool checkErrors(std::size_t most);
/// Changes the store on file systems from far too small to large enough.
[[nodiscard]] bool checkSpace(std::size_t most);
/// Lets two processes change one store while a third one looks.
[[nodiscard]] bool checkTogether(std::size_t most);
/// Installs and removes packs under names that mean harm.
[[nodiscard]] bool checkNames(std::size_t most);
/// Updates a pack from a server that breaks off, stalls, lies or is an impostor.
[[nodiscard]] bool checkNetwork(std::size_t most);

/// Counts what was tried and what went wrong.
class Tally {
 public:
  explicit Tally(std::string name) : name_(std::move(name)) {}

  /// `wrong` is empty where all is well; `where` is asked otherwise.
  void add(const std::string& wrong, const std::function<std::string()>& where) {
    ++tried_;
    if (wrong.empty()) return;
    ++failed_;
    std::fprintf(stderr, "%s: %s: %s\n", name_.c_str(), where().c_str(), wrong.c_str());
  }
  /// The row of this name. Returns whether all was well; nothing tried is not.
  [[nodiscard]] bool print(const std::string& detail) const {
    std::printf("%-42s %s, %d runs, %d failures\n", name_.c_str(), detail.c_str(), tried_, failed_);
    std::fflush(stdout);
    return tried_ > 0 && failed_ == 0;
  }

 private:
  std::string name_;
  int tried_ = 0;
  int failed_ = 0;
};

/// Whether `change` was made; false where it was refused.
[[nodiscard]] inline bool isDone(const std::function<void()>& change) {
  try {
    change();
    return true;
  } catch (const DescribedError&) {
    return false;
  }
}

/// About `most` of the numbers below `size`, evenly spread; all where that is 0.
[[nodiscard]] inline std::vector<std::size_t> sample(std::size_t size, std::size_t most) {
  std::vector<std::size_t> picks;
  const std::size_t step = most == 0 || most >= size ? 1 : size / most;
  // Not from the first: its neighbours in time are the least alike.
  for (std::size_t pick = step - 1; pick < size; pick += step) picks.push_back(pick);
  return picks;
}

}  // namespace orvex
