// An ASCII number too long for the scanner's text, taken one byte at a time:
// its grammar is checked as the scanner checks a short number, and it is
// brought to a short text of the same value, which the scanner then reads.
//
// Integers beyond 32 bits are held at the limit, so a dozen significant
// digits say all there is. A float keeps its first kKeptDigits significant
// digits and a 1 after them for any nonzero digit dropped: every double and
// every midpoint between two doubles has fewer significant digits, so the
// short text rounds to the same double (and float) as the whole one, and is
// exact exactly when the whole one is.
#pragma once

#include <cstdint>
#include <string>

class longnumber {
 public:
  static constexpr size_t kKeptDigits = 800;

  void take(char c);
  // Whether the text taken so far is a whole number.
  bool valid() const;
  // A text of the same value and kind; only for a valid number.
  std::string shortText() const;

 private:
  enum class Part : uint8_t { Start, Sign, Whole, Point, Fraction, E, ExponentSign, Exponent, Bad };
  void digit(char d, bool fraction);

  Part part_ = Part::Start;
  bool negative_ = false;
  bool isfloat_ = false;
  std::string digits_;    // the significant digits kept
  bool dropped_ = false;  // a nonzero digit beyond them
  // The value is 0.digits_ times ten to place_ plus the exponent.
  int64_t place_ = 0;
  int64_t exponent_ = 0;  // held once past any text's reach
  bool exponentNegative_ = false;
};
