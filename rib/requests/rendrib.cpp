// The reader's constructor and the argument shapes that several requests share.
#include "rib/requests/rendrib.h"

#include <cinttypes>
#include <cstdint>
#include <cstring>

#include "interface/ri.h"
#include "interface/token.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

rendrib::rendrib(bytesource& in, const char* name, readeroptions options)
    : parserib(in, name, options) {}

// A string that the Ri layer will take for a name. The layer reads a leading
// 0xFF byte as the mark of a dictionary record, so such text from the stream
// would be read as a record; it is refused here instead.
int16_t rendrib::matchToken(String* s) {
  if (!match(s)) return 0;
  if (static_cast<unsigned char>(s->c_str()[0]) != Token::kMarker) return 1;
  lex.RIBError(kRibSyntax, kRibError, "A name may not begin with the byte 0xFF");
  panic();
  return 0;
}

int16_t rendrib::matchFloats(float* out, int n) {
  for (int i = 0; i < n; ++i) {
    if (!match(out[i])) return 0;
  }
  return 1;
}

// A shader-like request: a name, then a parameter list of any counts.
int16_t rendrib::matchTokenAndList(String* name, tokenvalue& params) {
  return matchToken(name) && match(params, 0);
}

// The name of an Option, Attribute or Geometry, which must already be in the
// token dictionary; any other name drops the request with no message. The
// text "null" (a null pointer after the conversion) and text beginning with
// 0xFF count as names the dictionary does not hold.
int16_t rendrib::matchDeclaredName(String* name) {
  if (!match(name)) return 0;
  const char* text = *name;
  if (text != nullptr && static_cast<unsigned char>(text[0]) != Token::kMarker &&
      find(text) != nullptr) {
    return 1;
  }
  panic();
  return 0;
}

int16_t rendrib::matchFilter(RtFilterFunc& filter) {
  String name;
  if (!match(&name)) return 0;
  filter = FilterFunc(name);
  return filter != nullptr;
}

// A colour of colorsamples values, handed on as the 3 floats that every colour
// below the reader has: the first three values, padded with zeros.
int16_t rendrib::matchColor(RtColor color) {
  // ColorSamples with fewer than three values leaves no sample to read, and
  // a colour cannot be made of nothing: say so rather than read 0 values.
  if (colorsamples <= 0) {
    lex.RIBError(kRibBadColor, kRibError,
                 "No colour samples: the last ColorSamples gave fewer than 3 values");
    panic();
    return 0;
  }
  Array<float> values;
  if (!match(values, colorsamples, 0)) return 0;
  for (int32_t i = 0; i < 3; ++i) color[i] = i < colorsamples ? values.data[i] : 0.0f;
  return 1;
}

// A count must not be negative: it sizes a later array (a negative expected
// length would leave that array open-ended) and the scene library indexes by
// it.
int16_t rendrib::nonNegative(int32_t value, const char* what) {
  if (value >= 0) return 1;
  lex.RIBError(kRibBadValue, kRibError, "Negative count %" PRId32 " in %s", value, what);
  panic();
  return 0;
}

// Sums and products of counts are worked out in 64 bits and must come back
// within a 32-bit count.
int16_t rendrib::fitCount(int64_t value, int32_t& count) {
  if (value >= INT32_MIN && value <= INT32_MAX) {
    count = static_cast<int32_t>(value);
    return 1;
  }
  lex.RIBError(kRibLimit, kRibError, "Count %" PRId64 " is out of range", value);
  panic();
  return 0;
}

int16_t rendrib::sumCounts(const Array<int32_t>& counts, int32_t n, const char* what,
                           int32_t& sum) {
  int64_t total = 0;
  for (int32_t i = 0; i < n; ++i) {
    if (!nonNegative(counts.data[i], what)) return 0;
    total += counts.data[i];
  }
  return fitCount(total, sum);
}
