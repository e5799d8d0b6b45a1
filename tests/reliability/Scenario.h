#pragma once

#include "support/TestPack.h"

#include <string>

namespace orvex {

/// A change of the store from one whole state to another.
struct Scenario {
  std::string name;
  /// The version that is installed before and the one that is installed then; empty for none.
  std::string before;
  std::string after;
  bool withoutExchange = false;
};

/// The versions that are installed: "1", "1b" (other files under the same version) and "2".
[[nodiscard]] const TestPack& packOf(const std::string& version);
/// Another pack, which no change concerns.
[[nodiscard]] const TestPack& bystander();

/// What whoever looks finds below `root`: "2 other" for instance; "damaged" for a version that has
/// not all its files and no others.
[[nodiscard]] std::string stateOf(const QByteArray& root);
/// What remains out of sight below `root`.
[[nodiscard]] QList<QByteArray> leftoversIn(const QByteArray& root);

/// Installs the version, or removes the pack where it is empty. Returns 0 when done, 1 when refused
/// with a described error.
[[nodiscard]] int change(const QByteArray& root, const std::string& version);

}  // namespace orvex
