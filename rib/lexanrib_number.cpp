// Checking the text of an ASCII number and taking its value.
//
// Floats are read as the nearest double and then narrowed, as a reader that
// converts through double does. Most numbers in RIB files have few digits and
// small exponents: for them the nearest double is one multiply or divide of
// two exact values by a power of ten, rounded once, which is much cheaper
// than the general conversion and gives the same result.
#include <charconv>
#include <limits>

#include "rib/lexanrib.h"

namespace {

constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr uint64_t kExactMantissa = uint64_t{1} << 53;
// Below this a mantissa takes one more digit without wrapping.
constexpr uint64_t kMantissaRoom = 1000000000000000000u;
constexpr int64_t kExponentLimit = 100000000;

inline bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// A number's value as mantissa times ten to exponent, while every digit fits.
struct Decimal {
  void add(char c) {
    if (mantissa < kMantissaRoom) {
      mantissa = mantissa * 10 + static_cast<unsigned>(c - '0');
    } else {
      exact = false;
    }
  }
  uint64_t mantissa = 0;
  int64_t exponent = 0;
  bool exact = true;  // false: digits were dropped and only the text holds them
  bool negative = false;
};

// Whether a number that a double cannot hold is too large rather than too
// small: the place of its first significant digit plus its exponent decides.
bool overflows(const char* p, const char* end) {
  int64_t place = 0;
  while (p < end && *p == '0') ++p;
  while (p < end && isDigit(*p)) ++place, ++p;
  if (place == 0 && p < end && *p == '.') {
    for (++p; p < end && *p == '0'; ++p) --place;
  }
  while (p < end && *p != 'e' && *p != 'E') ++p;
  int64_t exponent = 0;
  if (p < end) {
    bool negative = ++p < end && *p == '-';
    if (p < end && (*p == '-' || *p == '+')) ++p;
    for (; p < end && isDigit(*p); ++p) {
      if (exponent < kExponentLimit) exponent = exponent * 10 + (*p - '0');
    }
    if (negative) exponent = -exponent;
  }
  return place + exponent > 0;
}

// digits: the text after the sign.
float toFloat(const Decimal& number, const char* digits, const char* end) {
  double d = 0;
  if (number.exact && number.mantissa == 0) {
    d = 0;
  } else if (number.exact && number.mantissa <= kExactMantissa && number.exponent >= -22 &&
             number.exponent <= 22) {
    double m = static_cast<double>(number.mantissa);
    d = number.exponent < 0 ? m / kPowers[-number.exponent] : m * kPowers[number.exponent];
  } else if (std::from_chars(digits, end, d).ec == std::errc::result_out_of_range) {
    d = overflows(digits, end) ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return static_cast<float>(number.negative ? -d : d);
}

// Values beyond 32 bits are held at the nearest limit.
int32_t toInt(const Decimal& number) {
  const uint64_t limit = number.negative ? uint64_t{1} << 31 : (uint64_t{1} << 31) - 1;
  uint64_t v = !number.exact || number.mantissa > limit ? limit : number.mantissa;
  return static_cast<int32_t>(number.negative ? -static_cast<int64_t>(v) : static_cast<int64_t>(v));
}

}  // namespace

// The grammar: an optional sign, digits, then optionally a point and at least
// one digit, then, if a digit came last, optionally e or E, a sign and at
// least one digit. ".5" is a number, "5." and "1e" are not.
int16_t lexanrib::convertnumber() {
  const char* p = text.data;
  const char* end = text.data + text.count - 1;  // before the terminator
  Decimal number;
  if (p < end && (*p == '+' || *p == '-')) number.negative = *p++ == '-';
  const char* digits = p;
  bool valid = false, isfloat = false;
  for (; p < end && isDigit(*p); ++p, valid = true) number.add(*p);
  if (p < end && *p == '.') {
    isfloat = true;
    valid = false;
    for (++p; p < end && isDigit(*p); ++p, valid = true) {
      number.add(*p);
      --number.exponent;
    }
  }
  if (valid && p < end && (*p == 'e' || *p == 'E')) {
    isfloat = true;
    valid = false;
    bool negative = ++p < end && *p == '-';
    if (p < end && (*p == '+' || *p == '-')) ++p;
    int64_t written = 0;
    for (; p < end && isDigit(*p); ++p, valid = true) {
      if (written < kExponentLimit) written = written * 10 + (*p - '0');
    }
    number.exponent += negative ? -written : written;
  }
  if (!valid || p != end) return LEXNONE;
  if (isfloat) {
    floatvalue = toFloat(number, digits, end);
    return LEXFLOAT;
  }
  intvalue = toInt(number);
  return LEXINT;
}
