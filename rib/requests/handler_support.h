// Small conversions shared by the request handlers' files; not part of
// rendrib's interface.
#pragma once

#include <cstdint>

#include "foundation/String.h"
#include "interface/ri.h"
#include "rib/tokenvalue.h"

// The parameter count as the V calls take it: the list's count cut to 16 bits.
// Unsigned, so that the Ri layer never sees more entries than the arrays hold.
inline RtInt listCount(const tokenvalue& params) {
  return static_cast<uint16_t>(params.tokens.count);
}

// A String as the Ri calls take a name: through the conversion, so that the
// text "null" arrives as a null pointer. The calls do not write through it.
inline char* ritext(const String& s) {
  return const_cast<char*>(static_cast<const char*>(s));
}
