// The binary encoding: a token whose first byte has bit 7 set. Multi-byte
// values are big-endian.
#include <algorithm>
#include <bit>

#include "rib/lexanrib.h"

namespace {

// How far past the table's end a string index may be defined and still grow
// the table; real writers number their strings from 0 upwards.
constexpr uint32_t kDenseReach = 256;

}  // namespace

// Numbers (0x80-0x8F) are taken by scan itself.
int16_t lexanrib::scanbinary(unsigned char c) {
  if (c <= 0xA3) return scanbinstring(c);
  switch (c) {
    case 0xA4:
      return scanbinfloat(c);
    case 0xA5:
      return scanbindouble(c);
    case 0xA6: {
      unsigned char code;
      if (!stream.get(code)) {  // cut off before its code: nothing to name
        noteCut();
        return LEXEOF;
      }
      copytext(code < requests.count ? &requests.data[code] : nullptr);
      return LEXKEYWORD;
    }
    case 0xC8:
    case 0xC9:
    case 0xCA:
    case 0xCB:
      return scanbinfloats(c);
    case 0xCC:
      definerequest();
      return LEXNONE;
    case 0xCD:
    case 0xCE:
      definestring(c);
      return LEXNONE;
    case 0xCF:
    case 0xD0:
      copytext(definedstring(scanbinlong(c - 0xCE)));
      return LEXSTRING;
    default:  // unassigned bytes end the stream
      if (reportLosses)
        RIBError(kRibBadBinaryToken, kRibError, "Byte 0x%02X begins no token: the stream ends here",
                 c);
      return LEXEOF;
  }
}

namespace {

uint32_t bigEndian(const unsigned char* at, unsigned n) {
  uint32_t value = 0;
  for (unsigned i = 0; i < n; ++i) value = value << 8 | at[i];
  return value;
}

// The same for four bytes, which compilers turn into one load and a swap.
uint32_t bigEndian4(const unsigned char* at) {
  return uint32_t{at[0]} << 24 | uint32_t{at[1]} << 16 | uint32_t{at[2]} << 8 | at[3];
}

// A read that fails adds nothing, so a cut stream gives a short value; bit 32
// of the result is then set (kept apart from the value so that the common
// path tests a register, not a flag in memory).
constexpr uint64_t kCut = uint64_t{1} << 32;

[[gnu::noinline]] uint64_t takeBytesOneByOne(bytesource::cursor& in, unsigned n) {
  uint64_t value = 0;
  for (; n > 0; --n) {
    unsigned char b;
    value = in.get(b) ? (value & ~kCut) << 8 | b | (value & kCut) : value | kCut;
  }
  return value;
}

inline uint64_t takeBytes(bytesource::cursor& in, unsigned n) {
  if (in.buffered() >= n) return bigEndian(in.take(n), n);
  return takeBytesOneByOne(in, n);
}

}  // namespace

// Out of the way of the common path, which only tests for it.
[[gnu::cold, gnu::noinline]] void lexanrib::noteCut() {
  if (reportLosses)
    RIBError(kRibBadEncoding, kRibError, "A binary token is cut short by the end of the stream");
}

// Used in this file only, and inlined into its callers as it was before the
// cut test came in.
[[gnu::always_inline]] inline uint32_t lexanrib::scanbinlong(uint16_t n) {
  bytesource::cursor in(stream);
  const uint64_t value = takeBytes(in, n);
  if (value & kCut) noteCut();
  return static_cast<uint32_t>(value);
}

// 1000ddww: w + 1 value bytes, d of them (or more) fraction bytes.
int16_t lexanrib::scanbinnumber(unsigned char c) {
  bytesource::cursor in(stream);
  unsigned fraction = (c >> 2) & 3;
  unsigned width = c & 3;
  if (in.buffered() >= 4) {
    // Four bytes looked at, the value's first; only those are taken.
    intvalue = static_cast<int32_t>(bigEndian4(in.peek()) >> (8 * (3 - width)));
    in.take(width + 1);
  } else {
    const uint64_t value = takeBytes(in, width + 1);
    if (value & kCut) noteCut();
    intvalue = static_cast<int32_t>(value);
  }
  if (fraction == 0) return LEXINT;
  // Dividing by a power of two is exact in double; the narrowing rounds once.
  floatvalue = static_cast<float>(intvalue / static_cast<double>(1u << (8 * fraction)));
  return LEXFLOAT;
}

// 0x90-0x9F hold the length in the low nibble; 0xA0-0xA3 give 1 to 4 length
// bytes. The text is taken as it stands: no escapes, no line counting.
int16_t lexanrib::scanbinstring(unsigned char c) {
  uint32_t length = c < 0xA0 ? c - 0x90u : scanbinlong(static_cast<uint16_t>(c - 0x9F));
  text.count = 0;
  TextCursor out(*this);
  unsigned char b;
  while (length > 0 && stream.get(b)) {
    out.push(b);
    --length;
  }
  out.end();
  if (length > 0) noteCut();
  return LEXSTRING;
}

[[gnu::always_inline]] inline int16_t lexanrib::scanbinfloat(unsigned char) {
  floatvalue = std::bit_cast<float>(scanbinlong(4));
  return LEXFLOAT;
}

int16_t lexanrib::scanbindouble(unsigned char) {
  uint64_t high = scanbinlong(4);
  uint64_t bits = high << 32 | scanbinlong(4);
  floatvalue = static_cast<float>(std::bit_cast<double>(bits));
  return LEXFLOAT;
}

// Reads the whole array now; next delivers it element by element. A float
// cut short by the end of the stream still counts, as a short value.
int16_t lexanrib::scanbinfloats(unsigned char c) {
  uint32_t count = scanbinlong(static_cast<uint16_t>(c - 0xC7));
  floats.count = 0;
  bool cut = false;
  {
    bytesource::cursor in(stream);
    ArrayCursor<float> out(floats);
    uint32_t i = 0;
    while (i < count && !in.eof()) {
      // The floats the block holds whole are taken in one run.
      const uint32_t run = static_cast<uint32_t>(std::min<size_t>(count - i, in.buffered() / 4));
      if (run == 0) {
        const uint64_t value = takeBytes(in, 4);
        cut = cut || (value & kCut);
        out.next() = std::bit_cast<float>(static_cast<uint32_t>(value));
        ++i;
        continue;
      }
      const unsigned char* at = in.take(4 * size_t{run});
      float* to = out.next(run);
      for (uint32_t k = 0; k < run; ++k) to[k] = std::bit_cast<float>(bigEndian4(at + 4 * k));
      i += run;
    }
    cut = cut || i < count;
  }
  if (cut) noteCut();
  floatindex = 0;
  infloats = 1;
  return '[';
}

// 0xCC code name. Besides a bare word, the name may come as an encoded string
// or a quoted one, as other programs' writers produce it.
void lexanrib::definerequest() {
  unsigned char code, b;
  if (!stream.get(code) || !stream.get(b)) return noteCut();
  if (b >= 0x90 && b <= 0xA3) {
    scanbinstring(b);
  } else if (b == '"') {
    scanstring(b);
  } else {
    text.count = 0;
    scankeyword(b);
  }
  requests(code) = String(text.data, text.count);
}

// 0xCD/0xCE index string: an encoded string, or any ASCII byte taken as the
// opening quote of an ASCII string. Another byte with bit 7 set is no string
// header: nothing is defined and the byte starts the next token.
void lexanrib::definestring(unsigned char c) {
  uint32_t index = scanbinlong(static_cast<uint16_t>(c - 0xCC));
  unsigned char b;
  if (!stream.get(b)) return noteCut();
  if (b & 0x80) {
    if (b < 0x90 || b > 0xA3) {
      stream.putback(b);
      return;
    }
    scanbinstring(b);
  } else {
    scanstring(b);
  }
  const String defined(text.data, text.count);
  if (index < strings.count + kDenseReach) {
    strings(index) = defined;
    farstrings.erase(static_cast<uint16_t>(index));
  } else {
    farstrings[static_cast<uint16_t>(index)] = defined;
  }
}

// A far definition stays in the map after the array has grown past its
// index, so the map is asked first.
const String* lexanrib::definedstring(uint32_t index) const {
  if (!farstrings.empty()) {
    auto far = farstrings.find(static_cast<uint16_t>(index));
    if (far != farstrings.end()) return &far->second;
  }
  return index < strings.count ? &strings.data[index] : nullptr;
}

// An index never defined (a null s) reads as an empty text.
void lexanrib::copytext(const String* s) {
  text.count = 0;
  TextCursor out(*this);
  if (s) {
    for (uint16_t i = 0; i < s->size(); ++i) out.push(static_cast<unsigned char>(s->c_str()[i]));
  }
  out.end();
}
