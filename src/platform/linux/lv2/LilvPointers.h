#pragma once

#include <lilv/lilv.h>
#include <memory>

namespace orvex {

struct LilvDeleter {
  void operator()(LilvWorld* world) const noexcept { lilv_world_free(world); }
  void operator()(LilvNode* node) const noexcept { lilv_node_free(node); }
  void operator()(LilvNodes* nodes) const noexcept { lilv_nodes_free(nodes); }
};

/// Owns an object of lilv's.
template <typename T>
using LilvPointer = std::unique_ptr<T, LilvDeleter>;

}  // namespace orvex
