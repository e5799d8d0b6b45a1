#pragma once

#include <cstddef>

namespace orvex {

// Each prints its rows, tries about `most` cases of each kind, or all where that is 0, and returns
// whether all went well.

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

}  // namespace orvex
