// The blocks of later versions whose balance the extended reader checks:
// resources, conditionals and edits.
#pragma once

#include <cstdint>

struct sceneblock {
  enum kind : uint8_t { Resource, If, Edit, EditWorld, EditAttribute };
  kind what;
  uint32_t line;          // where its Begin stood
  bool elseSeen = false;  // an If's Else has come
};
