#include "rib/longnumber.h"

namespace {

constexpr size_t kIntegerDigits = 12;  // more than any 32-bit value has
constexpr int64_t kExponentHeld = 1000000000000000;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

void longnumber::take(char c) {
  const bool sign = c == '+' || c == '-';
  const bool e = c == 'e' || c == 'E';
  switch (part_) {
    case Part::Start:
      if (sign) {
        negative_ = c == '-';
        part_ = Part::Sign;
        return;
      }
      [[fallthrough]];
    case Part::Sign:
    case Part::Whole:
      if (isDigit(c)) {
        digit(c, false);
        part_ = Part::Whole;
      } else if (c == '.') {
        isfloat_ = true;
        part_ = Part::Point;
      } else {
        part_ = part_ == Part::Whole && e ? Part::E : Part::Bad;
        isfloat_ = true;
      }
      return;
    case Part::Point:
    case Part::Fraction:
      if (isDigit(c)) {
        digit(c, true);
        part_ = Part::Fraction;
      } else {
        part_ = part_ == Part::Fraction && e ? Part::E : Part::Bad;
      }
      return;
    case Part::E:
      if (sign) {
        exponentNegative_ = c == '-';
        part_ = Part::ExponentSign;
        return;
      }
      [[fallthrough]];
    case Part::ExponentSign:
    case Part::Exponent:
      if (!isDigit(c)) {
        part_ = Part::Bad;
      } else {
        if (exponent_ < kExponentHeld) exponent_ = exponent_ * 10 + (c - '0');
        part_ = Part::Exponent;
      }
      return;
    case Part::Bad:
      return;
  }
}

// Leading zeros are no significant digits: in the whole part they count for
// nothing, in the fraction each lowers the place of the first one.
void longnumber::digit(char d, bool fraction) {
  if (digits_.empty() && d == '0') {
    place_ -= fraction;
    return;
  }
  place_ += !fraction;
  if (digits_.size() < kKeptDigits) {
    digits_ += d;
  } else if (d != '0') {
    dropped_ = true;
  }
}

bool longnumber::valid() const {
  return part_ == Part::Whole || part_ == Part::Fraction || part_ == Part::Exponent;
}

std::string longnumber::shortText() const {
  std::string text = negative_ ? "-" : "";
  if (digits_.empty()) return text + (isfloat_ ? "0e0" : "0");
  if (!isfloat_) return text + digits_.substr(0, kIntegerDigits);
  text += digits_;
  if (dropped_) text += '1';
  const int64_t length = static_cast<int64_t>(text.size() - negative_);
  const int64_t exponent = place_ + (exponentNegative_ ? -exponent_ : exponent_) - length;
  return text + "e" + std::to_string(exponent);
}
