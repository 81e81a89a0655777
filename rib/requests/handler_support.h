// Small conversions shared by the request handlers' files; not part of
// rendrib's interface.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "foundation/String.h"
#include "interface/ri.h"
#include "interface/token.h"
#include "rib/parserib.h"
#include "rib/tokenvalue.h"

// The parameter count as the V calls take it: the classic reader's list count
// cut to 16 bits, unsigned, so that the Ri layer never sees more entries than
// the arrays hold; the extended reader's whole.
inline RtInt listCount(const tokenvalue& params) {
  if (params.whole) return static_cast<RtInt>(params.tokens.count);
  return static_cast<uint16_t>(params.tokens.count);
}

// The points a mesh's vertex indices reach: the highest index + 1. Reports a
// negative index and returns 0 (polygons.cpp).
int16_t pointCount(lexanrib& lex, const Array<int32_t>& verts, int32_t n, int64_t& points);

// Texts as an Ri call takes an array of them. A null follows the last, so
// that an empty array is still an array, not a null pointer.
inline std::vector<char*> textPointers(std::vector<std::string>& texts) {
  std::vector<char*> out;
  out.reserve(texts.size() + 1);
  for (std::string& text : texts) out.push_back(text.data());
  out.push_back(nullptr);
  return out;
}

// A String as the Ri calls take a name: through the conversion, so that the
// text "null" arrives as a null pointer. The calls do not write through it.
inline char* ritext(const String& s) {
  return const_cast<char*>(static_cast<const char*>(s));
}

// The text of a string parameter named `name` in the list, or null.
inline const char* stringParameter(const tokenvalue& params, const char* name) {
  for (uint32_t i = 0; i < params.tokens.count; ++i) {
    const Token* t = find(params.tokens.data[i]);
    if (t && t->type == TypeString && std::strcmp(t->name.c_str(), name) == 0) {
      return *static_cast<const char* const*>(params.values.data[i]);
    }
  }
  return nullptr;
}

// Files the handle that an Ri call returned for a light or object number. A
// number used again takes the new handle in place of the old, which no lookup
// could reach any more: the table keeps one entry per number, so a lookup
// walks at most its bucket's share of the 65,536 numbers, however many lights
// or objects the stream defines.
inline void fileHandle(Hash<parserib::handle_assoc>& table, const parserib::handle_assoc& entry) {
  if (parserib::handle_assoc* known = table.find(entry)) {
    known->handle = entry.handle;
  } else {
    table.add(entry);
  }
}
