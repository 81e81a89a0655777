// The blocks of later versions whose balance the extended reader checks:
// resources, conditionals and edits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

struct sceneblock {
  enum kind : uint8_t { Resource, If, Edit, EditWorld, EditAttribute, kKinds };
  kind what;
  uint32_t line;          // where its Begin stood
  bool elseSeen = false;  // an If's Else has come
};

struct sceneblocks {
  std::vector<sceneblock> stack;  // innermost last
  // Open blocks of each kind, so that an End finds whether it closes any
  // without walking the stack.
  size_t open[sceneblock::kKinds] = {};
};
