#pragma once

#include <dirent.h>
#include <memory>

namespace orvex {

struct CloseFolder {
  void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};
/// Owns the stream of a folder's entries.
using FolderStream = std::unique_ptr<DIR, CloseFolder>;

}  // namespace orvex
