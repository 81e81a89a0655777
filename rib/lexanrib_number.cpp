// Checking the text of an ASCII number and taking its value.
//
// Floats are read as the nearest double and then narrowed, as a reader that
// converts through double does. Most numbers in RIB files have few digits and
// small exponents: for them the nearest double is one multiply or divide of
// two exact values by a power of ten, rounded once, which is much cheaper
// than the general conversion and gives the same result.
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "rib/lexanrib.h"

namespace {

constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr uint64_t kExactMantissa = uint64_t{1} << 53;
constexpr int64_t kExponentLimit = 100000000;
using Decimal = lexanrib::Decimal;

inline bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

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

// Values beyond 32 bits are held at the nearest limit. digits: the text after
// the sign, all of them digits.
int32_t toInt(const Decimal& number, const char* digits, const char* end) {
  const uint64_t limit = number.negative ? uint64_t{1} << 31 : (uint64_t{1} << 31) - 1;
  uint64_t v = number.mantissa;
  if (!number.exact) {  // many digits, perhaps mostly leading zeros
    while (digits < end && *digits == '0') ++digits;
    v = end - digits > 10 ? limit : 0;
    for (; v < limit && digits < end; ++digits) v = v * 10 + static_cast<unsigned>(*digits - '0');
  }
  if (v > limit) v = limit;
  return static_cast<int32_t>(number.negative ? -static_cast<int64_t>(v) : static_cast<int64_t>(v));
}

// Appends a run of digits to the mantissa; returns where the run ends.
inline const char* takeDigits(const char* p, const char* end, uint64_t& mantissa) {
  uint64_t m = mantissa;
  for (; p < end && isDigit(*p); ++p) m = m * 10 + static_cast<unsigned>(*p - '0');
  mantissa = m;
  return p;
}

}  // namespace

// The grammar: an optional sign, digits, then optionally a point and at least
// one digit, then, if a digit came last, optionally e or E, a sign and at
// least one digit. ".5" is a number, "5." and "1e" are not.
int16_t lexanrib::convertnumber(const char* p, const char* end) {
  Decimal number;
  if (p < end && (*p == '+' || *p == '-')) number.negative = *p++ == '-';
  const char* digits = p;
  p = takeDigits(p, end, number.mantissa);
  size_t count = p - digits;
  bool isfloat = false;
  if (p < end && *p == '.') {
    isfloat = true;
    const char* fraction = ++p;
    p = takeDigits(p, end, number.mantissa);
    if (p == fraction) return LEXNONE;
    number.exponent = fraction - p;
    count += p - fraction;
  } else if (count == 0) {
    return LEXNONE;
  }
  if (p < end && (*p == 'e' || *p == 'E')) {
    isfloat = true;
    bool negative = ++p < end && *p == '-';
    if (p < end && (*p == '+' || *p == '-')) ++p;
    const char* first = p;
    int64_t written = 0;
    for (; p < end && isDigit(*p); ++p) {
      if (written < kExponentLimit) written = written * 10 + (*p - '0');
    }
    if (p == first) return LEXNONE;
    number.exponent += negative ? -written : written;
  }
  if (p != end) return LEXNONE;
  number.exact = count <= kExactDigits;
  return valuenumber(number, isfloat, digits, end);
}

int16_t lexanrib::valuenumber(const Decimal& number, bool isfloat, const char* digits,
                              const char* end) {
  if (isfloat) {
    floatvalue = toFloat(number, digits, end);
    return LEXFLOAT;
  }
  intvalue = toInt(number, digits, end);
  if (reportLosses && (intvalue == INT32_MAX || intvalue == INT32_MIN)) reportClipped();
  return LEXINT;
}

// toInt holds a value beyond 32 bits at the nearest limit; text has the digits.
void lexanrib::reportClipped() {
  const long long v = std::strtoll(text.data, nullptr, 10);
  if (v > INT32_MAX || v < INT32_MIN) {
    RIBError(kRibLimit, kRibWarning, "Integer beyond 32 bits, read as %ld",
             static_cast<long>(intvalue));
  }
}
