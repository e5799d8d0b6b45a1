#pragma once

#include "Scenario.h"
#include "support/TestPack.h"

#include <vector>

namespace orvex {

/// The versions of a pack: "1", "1b" (other files under the same version) and "2".
[[nodiscard]] const TestPack& packOf(const std::string& version);
/// Another pack, which no change concerns.
[[nodiscard]] const TestPack& bystander();

/// What is found below `root`: "2 other" for instance; "damaged" for a version that has not all its
/// files and no others.
[[nodiscard]] std::string stateOf(const QByteArray& root);
/// What remains out of sight below `root`.
[[nodiscard]] QList<QByteArray> leftoversIn(const QByteArray& root);

/// Installs the version, or removes the pack where it is empty.
void change(const QByteArray& root, const std::string& version);

[[nodiscard]] std::vector<Scenario> packScenarios();

}  // namespace orvex
