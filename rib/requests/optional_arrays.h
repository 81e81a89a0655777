// Bracketed arrays that may be empty. The array forms of match want at least
// one element (their count is also their success), but the later primitives
// often give `[]`: tags without arguments, a blobby without strings.
#pragma once

#include <cstdint>

#include "foundation/Array.h"
#include "rib/parserib.h"

// Exactly `n` numbers; `[]` when n is 0. Non-zero when they were read.
template <typename T>
int16_t matchCounted(parserib& p, Array<T>& a, int32_t n) {
  if (n > 0) return p.match(a, n, 1) != 0;
  a.clear();
  return p.match('[') && p.match(']');
}

// Any number of floats, none included. Non-zero when they were read.
inline int16_t matchAnyFloats(parserib& p, Array<float>& a) {
  a.clear();
  if (!p.match('[')) return 0;
  while (p.token != ']') {
    float v;
    if (!p.match(v)) return 0;
    a.append(v);
  }
  return p.match(']');
}
