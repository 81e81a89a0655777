// Reading a run of decimal digits eight bytes at a time, for the scanner's
// numbers. Plain byte arithmetic on a 64-bit word whose lowest byte is the
// first character, as on the little-endian machines this runs on.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace digitrun {

inline constexpr uint64_t kPow10[] = {1,      10,      100,      1000,     10000,
                                      100000, 1000000, 10000000, 100000000};

// The value of eight digit values (0 to 9, not characters), the first in the
// lowest byte: pairs, then quadruples, then the whole, each by one multiply.
inline uint64_t eightDigits(uint64_t v) {
  v = (v * 2561) >> 8;
  v = ((v & 0x00FF00FF00FF00FFull) * 6553601) >> 16;
  return ((v & 0x0000FFFF0000FFFFull) * 42949672960001ull) >> 32;
}

// How many of the eight characters, from the first, are digits; and their
// values in the same bytes. Subtracting '0' makes a digit 0 to 9 and any
// other byte either wrap past 0x7F or, after adding 0x76, reach 0x80. A
// borrow or carry only runs into later characters, so the first non-digit
// is always found where it is.
inline int leadingDigits(uint64_t characters, uint64_t& values) {
  values = characters - 0x3030303030303030ull;
  const uint64_t other = (values | (values + 0x7676767676767676ull)) & 0x8080808080808080ull;
  return other == 0 ? 8 : std::countr_zero(other) / 8;
}

// Appends the value of the digits from p on, up to the first other byte or
// limit, to m (which wraps past 2^64: callers that care count the digits)
// and returns where the run ends. Eight bytes are read from every p before
// limit, so the seven bytes after limit must be readable too.
inline const unsigned char* take(const unsigned char* p, const unsigned char* limit, uint64_t& m) {
  while (p < limit) {
    uint64_t characters;
    std::memcpy(&characters, p, sizeof characters);
    uint64_t values;
    int n = leadingDigits(characters, values);
    if (n > limit - p) n = static_cast<int>(limit - p);
    if (n == 0) break;
    // The digits moved to the top: the bytes shifted in are leading zeros.
    m = m * kPow10[n] + eightDigits(values << (8 * (8 - n)));
    p += n;
    if (n < 8) break;
  }
  return p;
}

}  // namespace digitrun
