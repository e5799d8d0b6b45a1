#pragma once

#include "support/TestPack.h"

#include <functional>
#include <string>
#include <vector>

namespace orvex {

/// A change from one whole state to another, in a folder.
struct Scenario {
  std::string name;
  std::function<void(const QByteArray& folder)> prepare{};
  /// Throws a described error where it is refused.
  std::function<void(const QByteArray& folder)> change{};
  /// How many files and folders it makes durable: each that it writes, before it is seen.
  std::ptrdiff_t syncs = 0;
  /// What whoever looks finds.
  std::function<std::string(const QByteArray& folder)> state{};
  std::string before;
  std::string after;
  /// What is wrong after whatever happened, where `found` was found, and the next change.
  std::function<std::string(const QByteArray& folder, const std::string& found)> aftermath{};
  /// As on a file system that cannot exchange two names in one step.
  bool withoutExchange = false;
  /// A change that is refused may have been made all the same.
  bool maybeDone = false;
};

/// Changes of packs, and copies of LUTs.
[[nodiscard]] std::vector<Scenario> scenarios();

/// The versions of a pack: "1", "1b" (other files under the same version) and "2"; and "other", a
/// pack that no change concerns.
[[nodiscard]] const TestPack& packOf(const std::string& version);
/// What is found below `root`: "2 other" for instance; "damaged" for a version that has not all its
/// files and no others.
[[nodiscard]] std::string stateOf(const QByteArray& root);
/// Whether anything remains out of sight below `root`.
[[nodiscard]] bool hasLeftovers(const QByteArray& root);
/// Installs the version, or removes the pack where it is empty.
void change(const QByteArray& root, const std::string& version);

}  // namespace orvex
