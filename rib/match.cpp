// The typed argument readers. Each either consumes what it expects and moves
// the look-ahead on, or reports once, resynchronises with panic and returns 0.
#include <algorithm>
#include <cinttypes>
#include <cstdint>
#include <type_traits>

#include "rib/parserib.h"

namespace {

bool isNumber(int16_t token) {
  return token == LEXINT || token == LEXFLOAT;
}

// What distinguishes the three array readers.
template <typename T>
struct ArrayTraits;

template <>
struct ArrayTraits<int32_t> {
  static constexpr const char* kNone = "Expected at least one int";
  static constexpr const char* kCount = "Expected %" PRId32 " ints";
  static bool admits(int16_t token) { return token == LEXINT; }
};

template <>
struct ArrayTraits<float> {
  static constexpr const char* kNone = "Expected at least one float";
  static constexpr const char* kCount = "Expected %" PRId32 " floats";
  static bool admits(int16_t token) { return isNumber(token); }
};

template <>
struct ArrayTraits<float[3]> {
  static constexpr const char* kNone = "Expected at least one point";
  static constexpr const char* kCount = "Expected %" PRId32 " points";
  static bool admits(int16_t token) { return isNumber(token); }
};

}  // namespace

int16_t parserib::match(char c) {
  if (token == static_cast<int16_t>(c)) {
    token = lex.next();
    return 1;
  }
  lex.RIBError(kRibSyntax, kRibError, "Expected character '%c'", c);
  panic();
  return 0;
}

int16_t parserib::match(int16_t& b) {
  int32_t v = 0;
  if (token == LEXINT) lex.get(v);
  if (token != LEXINT || (v != 0 && v != 1)) {
    lex.RIBError(kRibSyntax, kRibError, "Expected Boolean");
    panic();
    return 0;
  }
  b = static_cast<int16_t>(v);
  token = lex.next();
  return 1;
}

int16_t parserib::expected(const char* what) {
  lex.RIBError(kRibSyntax, kRibError, "%s", what);
  panic();
  return 0;
}

// match(float&), built into the loop over a point array's components.
[[gnu::always_inline]] inline int16_t parserib::takeFloat(float& v) {
  if (!isNumber(token)) return expected("Expected float");
  lex.get(v);
  token = lex.next();
  return 1;
}

bool parserib::wholeFloat(int32_t& v) const {
  if (token != LEXFLOAT || !options.extended) return false;
  float f;
  lex.get(f);
  // 2^31 is the first float past the range; NaN fails both tests.
  if (!(f >= -2147483648.0f && f < 2147483648.0f) ||
      f != static_cast<float>(static_cast<int32_t>(f)))
    return false;
  v = static_cast<int32_t>(f);
  return true;
}

int16_t parserib::match(int32_t& v) {
  if (token != LEXINT) {
    if (!wholeFloat(v)) return expected("Expected integer");
  } else {
    lex.get(v);
  }
  token = lex.next();
  return 1;
}

int16_t parserib::match(float& v) {
  return takeFloat(v);
}

int16_t parserib::match(float (&p)[3]) {
  const bool bracket = token == '[';
  if (bracket && !match('[')) return 0;
  for (float& component : p) {
    if (!match(component)) return 0;
  }
  return bracket ? match(']') : 1;
}

// Exactly one pair of brackets, required; an inner bracket is "Expected float".
int16_t parserib::match(float (&m)[4][4]) {
  if (!match('[')) return 0;
  for (auto& row : m) {
    for (float& element : row) {
      if (!match(element)) return 0;
    }
  }
  return match(']');
}

int16_t parserib::match(String* s) {
  const bool bracket = token == '[';
  if (bracket && !match('[')) return 0;
  if (token != LEXSTRING) {
    lex.RIBError(kRibSyntax, kRibError, "Expected String");
    panic();
    return 0;
  }
  lex.get(*s);
  if (lex.textdropped > 0 && options.extended) {
    lex.RIBError(kRibLimit, kRibWarning, "String of %" PRIu64 " bytes cut to %zu",
                 lex.text.count - 1 + lex.textdropped, String::maxLength);
  }
  token = lex.next();
  return bracket ? match(']') : 1;
}

namespace {

// Grows a running array. Growing may exhaust the free store; that arrives
// here as kRibNoMemory and is reported as the array's own failure
// (kRibArrayMemory), then passed on as kRibReported so that the driver only
// recovers.
struct ReportingGrow {
  lexanrib& lex;
  template <typename T>
  void operator()(Array<T>& a) const {
    try {
      a.grow();
    } catch (const RIBException& e) {
      if (e.code != kRibNoMemory) throw;
      lex.RIBError(kRibArrayMemory, e.severity, "%s", e.message.c_str());
      throw lexanrib::exception(kRibReported, kRibInfo, nullptr);
    }
  }
};

template <typename T>
using ArrayFiller = ArrayCursor<T, ReportingGrow>;

// Inside a binary float array the scanner holds the rest of the array's
// elements, the current token's value being the one before them. As many as
// the array being read takes (whole points for a point array, at most
// `room` items) move over in one go, and the scanner and the current token
// end where reading them token by token would leave them. Returns the items
// taken; 0 when not even one whole item is there.
template <typename T>
uint32_t takeFloatRun(lexanrib& lex, ArrayFiller<T>& fill, int16_t& token, int64_t room) {
  constexpr uint32_t kPerItem = std::is_array_v<T> ? 3 : 1;
  const uint32_t left = lex.floats.count - lex.floatindex;  // after the current one
  const uint32_t items = static_cast<uint32_t>(std::min<int64_t>((left + 1) / kPerItem, room));
  if (items == 0) return 0;
  float* to = reinterpret_cast<float*>(fill.next(items));
  const float* from = lex.floats.data + lex.floatindex;
  const uint32_t more = items * kPerItem - 1;
  to[0] = lex.floatvalue;
  std::copy(from, from + more, to + 1);
  lex.floatindex += more;
  if (more > 0) lex.floatvalue = from[more - 1];
  token = lex.next();
  return items;
}

}  // namespace

// An integer array of the extended reader also takes whole floats; the test
// is made only where the classic one ends the array.
template <typename T>
bool parserib::admits() const {
  if (ArrayTraits<T>::admits(token)) return true;
  if constexpr (std::is_same_v<T, int32_t>) {
    int32_t v;
    return wholeFloat(v);
  }
  return false;
}

template <typename T>
int32_t parserib::matchArray(Array<T>& a, int32_t n, int16_t bracketed) {
  const bool open = bracketed || token == '[';
  a.clear();
  if (open) {
    if (!match('[')) return 0;
  } else if (n < 0) {
    n = 1;
  }
  int32_t count = 0;
  if (n == 1) {
    ArrayFiller<T> fill(a, ReportingGrow{lex});
    if (!match(fill.next())) return 0;
    count = 1;
  } else {
    {
      ArrayFiller<T> fill(a, ReportingGrow{lex});
      while ((n < 0 || count < n) && admits<T>()) {
        if constexpr (!std::is_same_v<T, int32_t>) {
          if (token == LEXFLOAT && lex.infloats) {
            const int64_t room = n < 0 ? INT64_MAX : int64_t{n} - count;
            if (const uint32_t items = takeFloatRun(lex, fill, token, room)) {
              count += static_cast<int32_t>(items);
              continue;
            }
          }
        }
        if constexpr (std::is_array_v<T>) {
          // Only the first number decides; a point once begun needs all three.
          float* point = fill.next();
          for (int i = 0; i < 3; ++i) {
            if (!takeFloat(point[i])) return 0;
          }
        } else if constexpr (std::is_same_v<T, int32_t>) {
          if (token == LEXINT) {
            lex.get(fill.next());
          } else {
            wholeFloat(fill.next());
          }
          token = lex.nextbinint() ? LEXINT : lex.next();
        } else {
          lex.get(fill.next());
          token = lex.next();
        }
        ++count;
      }
    }
    if (!checkCount<T>(count, n, open)) return 0;
  }
  if (open && !match(']')) return 0;
  return count;
}

// The checks after the element loop, in their order of precedence.
template <typename T>
int16_t parserib::checkCount(int32_t count, int32_t n, bool open) {
  if (count == 0 && n != 0) {
    lex.RIBError(kRibBadValue, kRibError, ArrayTraits<T>::kNone);
  } else if (open && token == LEXSTRING) {
    lex.RIBError(kRibBadArray, kRibError, "Array has both numbers and strings");
  } else if (n > 0 && count != n) {
    lex.RIBError(kRibBadValue, kRibError, ArrayTraits<T>::kCount, n);
  } else {
    return 1;
  }
  panic();
  return 0;
}

int32_t parserib::match(Array<int32_t>& a, int32_t n, int16_t bracketed) {
  return matchArray(a, n, bracketed);
}

int32_t parserib::match(Array<float>& a, int32_t n, int16_t bracketed) {
  return matchArray(a, n, bracketed);
}

int32_t parserib::match(Array<float[3]>& a, int32_t n, int16_t bracketed) {
  return matchArray(a, n, bracketed);
}
