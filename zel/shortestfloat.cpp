// The shortest decimal that reads back as a given float, and nearest to it
// among those of that length (ties to an even last digit), written as
// std::to_chars writes it: fixed or scientific notation, whichever is
// shorter, fixed on a tie.
//
// A float reads back from every decimal strictly inside, or with an even
// mantissa also on, the bounds halfway to its neighbours. Two ways find the
// shortest decimal there:
// - Most floats in a scene were read from decimals of seven digits or fewer.
//   Scaled to seven digits in double precision, such a value lies so close
//   to an integer that this integer is the only one between the bounds, and
//   so, less its trailing zeros, the shortest decimal. Rounding errors are
//   a few billionths; where the answer depends on less, the next way decides.
// - For the magnitudes that scenes use (about 1.5e-8 to 3.3e7) the value and
//   both bounds are scaled by 10^s to 11 or 12 digit numbers exactly, in
//   128-bit integers: 4 * mantissa * 10^s, shifted right by the exponent,
//   with the bits shifted out telling whether the result is exact. The
//   bounds then hold a few hundred to a few ten thousand integers, so the
//   shortest decimal lies at one of two known digit positions.
// Other magnitudes go to std::to_chars when the quick way cannot tell.
//
// Values in a scene vary in sign, length and magnitude from one to the next,
// so the common path avoids branches on them: digits are written in a fixed
// pattern and moved in fixed-size blocks.
#include "zel/shortestfloat.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace zel {

namespace {

using uint128 = unsigned __int128;

constexpr uint64_t kPow10[] = {1ull,
                               10ull,
                               100ull,
                               1000ull,
                               10000ull,
                               100000ull,
                               1000000ull,
                               10000000ull,
                               100000000ull,
                               1000000000ull,
                               10000000000ull,
                               100000000000ull,
                               1000000000000ull,
                               10000000000000ull,
                               100000000000000ull,
                               1000000000000000ull,
                               10000000000000000ull,
                               100000000000000000ull,
                               1000000000000000000ull};

// Exact up to 10^22, the nearest double beyond.
constexpr double kPow10Double[] = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31,
    1e32, 1e33, 1e34, 1e35, 1e36, 1e37, 1e38, 1e39, 1e40, 1e41, 1e42, 1e43, 1e44, 1e45};

// Exponent fields handled here: from 101 (2^-26, where twice 10^s still fits
// in 64 bits) to 151 (below 2^25, where every float still has a fraction bit).
constexpr int kLowestField = 101;
constexpr int kHighestField = 151;

// Up to sixteen characters held in a register, the first in the lowest byte
// (the machines this runs on are little-endian). Writing digits this way and
// storing them in one piece avoids reading back what single-byte stores just
// wrote, which stalls.
using Text = unsigned __int128;

constexpr uint64_t kZeroCharacters = 0x3030303030303030ull;
constexpr Text kZeros = Text{kZeroCharacters} << 64 | kZeroCharacters;
constexpr Text kZeroPoint = (kZeros & ~Text{0xFF00}) | Text{'.'} << 8;  // "0.000..."

// value = (the first `count` characters of `digits`) * 10^exponent. The
// characters after those are '0'.
struct Decimal {
  Text digits;
  int count;
  int exponent;
};

// floor(e * log10 2) for the exponents above.
int floorLog10Pow2(int e) {
  return (e * 78913) >> 18;
}

// The eight decimal digits of n < 10^8 as the values 0 to 9 in eight bytes,
// the first digit in the lowest byte: halves, then quarters, then single
// digits, each split in all lanes at once by multiplying with a reciprocal.
uint64_t digitBytes(uint32_t n) {
  const uint64_t halves = n / 10000 | uint64_t{n % 10000} << 32;            // abcd, efgh
  const uint64_t hundreds = (halves * 5243 >> 19) & 0x0000007F0000007Full;  // ab, ef
  const uint64_t quarters = hundreds | (halves - 100 * hundreds) << 16;     // ab, cd, ef, gh
  const uint64_t tens = (quarters * 103 >> 10) & 0x000F000F000F000Full;     // a, c, e, g
  return tens | (quarters - 10 * tens) << 8;
}

// ---- The quick way --------------------------------------------------------

constexpr int kQuickDigits = 7;
// The scaled value is off by at most 2^-52 * 10^7 (the rounding of the power
// of ten, exact up to 10^22, and of the product); decisions that need more
// precision than this margin go to the exact way.
constexpr double kQuickMargin = 1e-8;

// The quick way's seven digits: the value is `digits` * 10^-k, the digits
// are characters in a word, the first in the lowest byte (never '0') and a
// '0' after the seventh, and `zeros` of the seven are trailing zeros.
struct Seven {
  uint64_t digits;
  int zeros;
  int k;
};

// The quick way, or false when it cannot tell.
bool quickShortest(float value, uint32_t field, uint32_t fraction, Seven& s) {
  const double v = std::fabs(static_cast<double>(value));
  int k = kQuickDigits - 1 - floorLog10Pow2(static_cast<int>(field) - 127);
  if (k < 1) return false;
  double scaled = v * kPow10Double[k];
  if (scaled >= kPow10Double[kQuickDigits]) scaled = v * kPow10Double[--k];
  // Half the distance to the neighbours, 2^(field - 151), in scaled units
  // (the one below is half as far for a power of two). Below 1/2 at most one
  // integer fits.
  const double halfGap = std::bit_cast<double>(uint64_t{field - 151 + 1023} << 52);
  const double half = kPow10Double[k] * halfGap;
  if (half > 0.5 - kQuickMargin) return false;
  double integer = static_cast<double>(static_cast<int64_t>(scaled + 0.5));
  const double offset = integer - scaled;  // exact: both lie within 1 of each other
  const double reach = offset < 0 && fraction == 0 ? half / 2 : half;
  if (std::fabs(offset) > reach - kQuickMargin) return false;
  if (integer == kPow10Double[kQuickDigits]) {  // 9999999.8 became eight digits
    integer = kPow10Double[kQuickDigits - 1];
    --k;
  }
  // Seven digits, so the first of eight is 0: drop it. The top byte is then
  // 0, and so are the bytes of trailing zero digits below it.
  const uint64_t seven = digitBytes(static_cast<uint32_t>(integer)) >> 8;
  s.zeros = std::countl_zero(seven) / 8 - 1;
  s.digits = seven + kZeroCharacters;
  s.k = k;
  return true;
}

void store8(char* at, uint64_t characters) {
  std::memcpy(at, &characters, sizeof characters);
}

// Fixed notation for the quick way's digits, which covers nearly all of
// them and needs no more than a word at a time; null where scientific
// notation is shorter. The point stands after 7 - k digits, whatever the
// trailing zeros.
char* writeSevenFixed(char* out, const Seven& s) {
  const int count = kQuickDigits - s.zeros;
  const int scientificLength = count + (count > 1) + 4;
  const int whole = kQuickDigits - s.k;  // digits before the point
  if (whole <= 0) {                      // "0.", zeros, then the digits
    const int length = 2 + s.k - s.zeros;
    if (length > scientificLength) return nullptr;
    std::memcpy(out, "0.00000000000000", 16);
    store8(out + 2 - whole, s.digits);
    return out + length;
  }
  store8(out, s.digits);
  if (s.zeros >= s.k) {  // a whole number: digits, then the zeros among them
    return whole > scientificLength ? nullptr : out + whole;
  }
  out[whole] = '.';
  store8(out + whole + 1, s.digits >> (8 * whole));
  return out + count + 1;
}

// ---- The exact way --------------------------------------------------------

// The scaled value has at least this many digits before its point.
constexpr int kScaledDigits = 11;

// n / 2^shift rounded down, for 0 < shift < 64 and a quotient below 2^64.
uint64_t shiftDown(uint128 n, int shift) {
  const uint64_t low = static_cast<uint64_t>(n);
  const uint64_t high = static_cast<uint64_t>(n >> 64);
  return (low >> shift) | (high << (64 - shift));
}

// The decimals that read back as the value, scaled by 10^-exponent to the
// integers [low, high]; and the scaled value: `value` whole, plus a
// fraction unless exact.
struct Scaled {
  uint64_t low;
  uint64_t high;
  uint64_t value;
  bool exact;
  int exponent;
};

Scaled scale(uint32_t field, uint32_t fraction) {
  const uint64_t mantissa = fraction | (uint32_t{1} << 23);
  const bool inclusive = mantissa % 2 == 0;
  const int shift = 152 - static_cast<int>(field);  // value = 4 * mantissa / 2^shift
  const int s = kScaledDigits - 1 - floorLog10Pow2(static_cast<int>(field) - 127);
  const uint64_t p10 = kPow10[s];
  const uint64_t mask = (uint64_t{1} << shift) - 1;
  const uint128 value = uint128{4 * mantissa} * p10;
  const uint128 upper = value + 2 * p10;
  // Below a power of two the neighbour is half as far away.
  const uint128 lower = value - (fraction == 0 ? p10 : 2 * p10);

  Scaled r;
  r.value = shiftDown(value, shift);
  r.exact = (static_cast<uint64_t>(value) & mask) == 0;
  const bool lowerExact = (static_cast<uint64_t>(lower) & mask) == 0;
  r.low = shiftDown(lower, shift) + !(inclusive && lowerExact);
  const bool upperExact = (static_cast<uint64_t>(upper) & mask) == 0;
  r.high = shiftDown(upper, shift) - (!inclusive && upperExact);
  r.exponent = -s;
  return r;
}

struct Integer {
  uint64_t digits;
  int exponent;
};

// The range holds at least Unit integers and fewer than 10 * Unit, so it holds
// at most one multiple of 10 * Unit, and at least one of Unit.
template <uint64_t Unit>
Integer nearest(const Scaled& r) {
  constexpr int kUnitDigits = Unit == 100 ? 2 : Unit == 1000 ? 3 : 4;
  const uint64_t coarse = r.high / (10 * Unit);
  if (coarse * 10 * Unit >= r.low) {
    Integer d{coarse, r.exponent + kUnitDigits + 1};
    while (d.digits % 10 == 0) {
      d.digits /= 10;
      ++d.exponent;
    }
    return d;
  }
  uint64_t digits = r.value / Unit;
  const uint64_t twice = 2 * (r.value % Unit);
  if (twice > Unit || (twice == Unit && (!r.exact || digits % 2 == 1))) ++digits;
  digits = std::clamp(digits, (r.low + Unit - 1) / Unit, r.high / Unit);
  return {digits, r.exponent + kUnitDigits};
}

Integer exactShortest(uint32_t field, uint32_t fraction) {
  const Scaled r = scale(field, fraction);
  const uint64_t count = r.high - r.low + 1;
  if (count >= 10000) return nearest<10000>(r);
  if (count >= 1000) return nearest<1000>(r);
  return nearest<100>(r);
}

// Kept out of line: the quick way's caller then needs no registers saved.
[[gnu::noinline]] Decimal exactDecimal(uint32_t field, uint32_t fraction) {
  const Integer n = exactShortest(field, fraction);
  Decimal d{kZeros, 1, n.exponent};
  while (d.count < 19 && n.digits >= kPow10[d.count]) ++d.count;
  uint64_t rest = n.digits;
  for (int i = d.count - 1; i >= 0; --i, rest /= 10)
    d.digits += static_cast<Text>(rest % 10) << (8 * i);
  return d;
}

// ---- Writing --------------------------------------------------------------

void store(char* at, Text text) {
  std::memcpy(at, &text, sizeof text);
}

// Each writer stores whole Texts and returns the end of what counts, so it
// writes up to 16 characters of scratch past that end.
char* writeFixed(char* out, const Decimal& d) {
  const int whole = d.count + d.exponent;  // digits before the point
  if (whole <= 0) {
    store(out, kZeroPoint);
    store(out + 2 - whole, d.digits);
    return out + 2 - d.exponent;
  }
  store(out, d.digits);  // digits, then the zeros of a whole number
  if (d.exponent >= 0) return out + whole;
  out[whole] = '.';
  store(out + whole + 1, d.digits >> (8 * whole));
  return out + d.count + 1;
}

char* writeScientific(char* out, const Decimal& d) {
  const int exponent = d.exponent + d.count - 1;
  out[0] = static_cast<char>(d.digits);
  out[1] = '.';
  store(out + 2, d.digits >> 8);
  out += d.count > 1 ? d.count + 1 : 1;
  out[0] = 'e';
  out[1] = exponent < 0 ? '-' : '+';
  // A float's decimal exponent never needs three digits.
  const int magnitude = exponent < 0 ? -exponent : exponent;
  out[2] = static_cast<char>('0' + magnitude / 10);
  out[3] = static_cast<char>('0' + magnitude % 10);
  return out + 4;
}

char* write(char* out, const Decimal& d) {
  const int whole = d.count + d.exponent;
  const int fixedLength = d.exponent >= 0 ? whole : whole > 0 ? d.count + 1 : 2 - d.exponent;
  const int scientificLength = d.count + (d.count > 1) + 4;
  if (fixedLength <= scientificLength) return writeFixed(out, d);
  return writeScientific(out, d);
}

}  // namespace

char* writeShortest(char* first, float value) {
  const uint32_t bits = std::bit_cast<uint32_t>(value);
  const uint32_t field = (bits >> 23) & 0xFF;
  const uint32_t fraction = bits & 0x7FFFFF;
  if (field == 0 && fraction == 0) {  // a zero, common enough to spare the general way
    *first = '-';
    first += bits >> 31;
    *first = '0';
    return first + 1;
  }
  Decimal d;
  Seven s;
  // Subnormal numbers have fewer bits than the quick way assumes.
  if (field != 0 && quickShortest(value, field, fraction, s)) {
    *first = '-';
    first += bits >> 31;
    if (char* end = writeSevenFixed(first, s)) return end;
    d = {Text{kZeroCharacters} << 64 | s.digits, kQuickDigits - s.zeros, s.zeros - s.k};
  } else {
    if (field < kLowestField || field > kHighestField)
      return std::to_chars(first, first + kShortestFloatChars, value).ptr;
    d = exactDecimal(field, fraction);
    *first = '-';
    first += bits >> 31;
  }
  return write(first, d);
}

}  // namespace zel
