// The ASCII side of the scanner and the dispatch on a token's first byte.
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "rib/lexanrib.h"

namespace {

// What a byte does where a token may start.
enum Action : uint8_t { kKeyword, kSkip, kNewline, kComment, kQuote, kNumber, kBracket, kBinary };

// Byte classes inside tokens.
enum : uint8_t {
  kWordEnd = 1,     // ends a keyword: white space, " # [ ] and every byte with bit 7 set
  kNumberEnd = 2,   // may follow a number: the same without the bytes with bit 7 set
  kDigit = 4,       // 0 to 9
  kStringStop = 8,  // needs a look inside a string: " \ CR LF
};

struct ByteTables {
  Action action[256];
  uint8_t cls[256];

  constexpr ByteTables() : action(), cls() {
    for (int c = 0; c < 256; ++c) {
      action[c] = c >= 0x80 ? kBinary : kKeyword;
      cls[c] = c >= 0x80 ? kWordEnd : 0;
    }
    for (unsigned char c : {'\t', ' ', '\r'}) action[c] = kSkip;
    action['\n'] = kNewline;
    action['#'] = kComment;
    action['"'] = kQuote;
    for (unsigned char c : {'+', '-', '.'}) action[c] = kNumber;
    for (int c = '0'; c <= '9'; ++c) {
      action[c] = kNumber;
      cls[c] |= kDigit;
    }
    action['['] = kBracket;
    action[']'] = kBracket;
    for (unsigned char c : {'\t', '\n', '\r', ' ', '"', '#', '[', ']'})
      cls[c] |= kWordEnd | kNumberEnd;
    for (unsigned char c : {'"', '\\', '\r', '\n'}) cls[c] |= kStringStop;
  }
};

constexpr ByteTables kTables;

inline bool is(unsigned char c, uint8_t cls) {
  return kTables.cls[c] & cls;
}

}  // namespace

lexanrib::lexanrib(bytesource& in, const char* name)
    : RIBErrorHandler(&lexanrib::RIBErrorPrint),
      stream(in),
      name(name),
      lastline(1),
      line(1),
      thistoke(LEXNONE),
      intvalue(0),
      floatvalue(0),
      infloats(0),
      floatindex(0) {}

int16_t lexanrib::next() {
  if (infloats) {
    if (floatindex < floats.count) {
      floatvalue = floats.data[floatindex++];
      return thistoke = LEXFLOAT;
    }
    infloats = 0;
    return ']';
  }
  lastline = line;
  for (;;) {
    unsigned char c;
    if (!stream.get(c)) return thistoke = LEXEOF;
    switch (kTables.action[c]) {
      case kSkip:
        continue;
      case kNewline:
        ++line;
        continue;
      case kComment:
        skipcomment();
        continue;
      case kQuote:
        scanstring(c);
        return thistoke = LEXSTRING;
      case kNumber:
        return thistoke = scannumber(c);
      case kBracket:
        return c;
      case kBinary:
        thistoke = scanbinary(c);
        if (thistoke == LEXNONE) continue;
        return thistoke;
      case kKeyword:
        text.count = 0;
        scankeyword(c);
        return thistoke = LEXKEYWORD;
    }
  }
}

// Drops bytes up to and including a line feed; the line counts even when the
// stream ends first.
void lexanrib::skipcomment() {
  unsigned char c;
  while (stream.get(c) && c != '\n') {
  }
  ++line;
}

void lexanrib::scankeyword(unsigned char c) {
  TextCursor out(text);
  scanword(out, c, false);
}

// Appends c and what follows up to a word end, which is put back. With ended
// set, c is stale (the read after it failed) and only the NUL is added.
void lexanrib::scanword(TextCursor& out, unsigned char c, bool ended) {
  if (!ended) {
    for (;;) {
      if (is(c, kWordEnd)) {
        stream.putback(c);
        break;
      }
      out.push(c);
      if (!stream.get(c)) break;
    }
  }
  out.push('\0');
}

// A memory failure while the string grows is told here, with this code, so
// the driver only recovers from the code-0 exception that follows.
void lexanrib::scanstring(unsigned char) {
  try {
    scanstringbody();
  } catch (RIBException& e) {
    if (e.code != 13) throw;
    RIBError(15, e.severity, "%s", e.message.c_str());
    throw RIBException(0, e.severity, String());
  }
}

void lexanrib::scanstringbody() {
  text.count = 0;
  bool closed = false;
  {
    TextCursor out(text);
    unsigned char c;
    while (stream.get(c)) {
      if (!is(c, kStringStop)) {
        out.push(c);
        continue;
      }
      if (c == '"') {
        closed = true;
        break;
      }
      if (c != '\\') {
        ++line;
        out.push('\0');
        throw exception(16, 2, "String runs past end of line");
      }
      if (!scanescape(out)) break;
    }
    out.push('\0');
  }
  if (!closed) RIBError(16, 2, "Unterminated string");
}

// The byte after a backslash. Returns false when the stream ended there.
bool lexanrib::scanescape(TextCursor& out) {
  unsigned char c;
  if (!stream.get(c)) return false;
  switch (c) {
    case 'n':
      out.push('\n');
      break;
    case 'r':
      out.push('\r');
      break;
    case 't':
      out.push('\t');
      break;
    case 'b':
      out.push('\b');
      break;
    case 'f':
      out.push('\f');
      break;
    case '\n':
      ++line;
      break;
    case '0':
    case '1':
    case '2':
    case '3':
    case '4':
    case '5':
    case '6':
    case '7': {
      // Up to three octal digits, computed in 8 bits: \777 is 0xFF.
      unsigned value = c - '0';
      for (int more = 0; more < 2; ++more) {
        unsigned char d;
        if (!stream.get(d)) break;
        if (d < '0' || d > '7') {
          stream.putback(d);
          break;
        }
        value = value * 8 + (d - '0');
      }
      out.push(static_cast<unsigned char>(value & 0xFF));
      break;
    }
    default:  // \\, \" and any other byte stand for themselves
      out.push(c);
  }
  return true;
}

int16_t lexanrib::scannumber(unsigned char c) {
  bool valid = false, isfloat = false, ended = false;
  text.count = 0;
  {
    TextCursor out(text);
    auto advance = [&] {
      out.push(c);
      if (!stream.get(c)) ended = true;
    };
    auto digits = [&] {
      while (!ended && is(c, kDigit)) {
        advance();
        valid = true;
      }
    };
    if (c == '+' || c == '-') advance();
    digits();
    if (!ended && c == '.') {
      advance();
      isfloat = true;
      valid = false;
      digits();
    }
    if (!ended && (c == 'e' || c == 'E') && valid) {
      advance();
      isfloat = true;
      if (!ended && (c == '+' || c == '-')) advance();
      valid = false;
      digits();
    }
    if (valid && !ended && !is(c, kNumberEnd)) valid = false;
    if (!valid) {
      scanword(out, c, ended);
    } else {
      if (!ended) stream.putback(c);
      out.push('\0');
    }
  }
  if (!valid) throw exception(16, 2, "Invalid number");
  convertnumber(isfloat);
  return isfloat ? LEXFLOAT : LEXINT;
}

namespace {

// Whether a number that a double cannot hold is too large rather than too
// small: the place of its first significant digit plus its exponent decides.
bool overflows(const char* p, const char* end) {
  auto digit = [](char c) { return c >= '0' && c <= '9'; };
  int64_t place = 0;
  while (p < end && *p == '0') ++p;
  while (p < end && digit(*p)) ++place, ++p;
  if (place == 0 && p < end && *p == '.') {
    for (++p; p < end && *p == '0'; ++p) --place;
  }
  while (p < end && *p != 'e' && *p != 'E') ++p;
  int64_t exponent = 0;
  if (p < end) {
    bool negative = ++p < end && *p == '-';
    if (p < end && (*p == '-' || *p == '+')) ++p;
    for (; p < end && digit(*p); ++p) {
      if (exponent < 100000000) exponent = exponent * 10 + (*p - '0');
    }
    if (negative) exponent = -exponent;
  }
  return place + exponent > 0;
}

}  // namespace

// text holds a checked number: optional sign, digits, point, exponent.
// Floats are read as doubles and narrowed, as the format's writers expect;
// integers beyond 32 bits are held at the nearest limit.
void lexanrib::convertnumber(bool isfloat) {
  const char* p = text.data;
  const char* end = text.data + text.count - 1;
  bool negative = *p == '-';
  if (*p == '+') ++p;
  if (isfloat) {
    double d = 0;
    auto r = std::from_chars(p, end, d);
    if (r.ec == std::errc::result_out_of_range) {
      d = overflows(p, end) ? std::numeric_limits<double>::infinity() : 0.0;
      if (negative) d = -d;
    }
    floatvalue = static_cast<float>(d);
  } else {
    int32_t v = 0;
    auto r = std::from_chars(p, end, v);
    if (r.ec == std::errc::result_out_of_range)
      v = negative ? std::numeric_limits<int32_t>::min() : std::numeric_limits<int32_t>::max();
    intvalue = v;
  }
}

void lexanrib::get(String& s) const {
  if (!(thistoke == LEXSTRING || thistoke == LEXKEYWORD))
    assertionFailed("thistoke == LEXSTRING || thistoke == LEXKEYWORD", __LINE__);
  s = String(text.data, text.count);
}

void lexanrib::assertionFailed(const char* expression, int line) {
  std::fprintf(stderr, "Assertion failed: %s, file lexanrib, line %d\n", expression, line);
  std::abort();
}
