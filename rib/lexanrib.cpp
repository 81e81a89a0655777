// The ASCII side of the scanner and the dispatch on a token's first byte.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "rib/digitrun.h"
#include "rib/lexanrib.h"
#include "rib/longnumber.h"

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
    action[uint8_t{'\n'}] = kNewline;
    action[uint8_t{'#'}] = kComment;
    action[uint8_t{'"'}] = kQuote;
    for (unsigned char c : {'+', '-', '.'}) action[c] = kNumber;
    for (int c = '0'; c <= '9'; ++c) {
      action[c] = kNumber;
      cls[c] |= kDigit;
    }
    action[uint8_t{'['}] = kBracket;
    action[uint8_t{']'}] = kBracket;
    for (unsigned char c : {'\t', '\n', '\r', ' ', '"', '#', '[', ']'})
      cls[c] |= kWordEnd | kNumberEnd;
    for (unsigned char c : {'"', '\\', '\r', '\n'}) cls[c] |= kStringStop;
  }
};

constexpr ByteTables kTables;

inline bool is(unsigned char c, uint8_t cls) {
  return kTables.cls[c] & cls;
}

// Up to 15 digits a mantissa is exact in a double (10^15 < 2^53), and so is
// a power of ten up to 10^22: the quotient is then the nearest double, as
// convertnumber computes it. Up to 9 digits an integer fits 32 bits.
constexpr size_t kExactFloatDigits = 15;
constexpr double kPowersOfTen[kExactFloatDigits + 1] = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
constexpr size_t kExactIntDigits = 9;

}  // namespace

// Appends c and what follows up to a word end, which is put back and
// returned; -1 when the stream ended first, kWordFull when text filled
// first. The scanner's hottest loop, so it is built into both of its callers.
__attribute__((always_inline)) inline int lexanrib::scanword(unsigned char c) {
  bytesource::cursor in(stream);
  TextCursor out(*this);
  int stop = -1;
  for (;;) {
    if (is(c, kWordEnd)) {
      in.putback(c);
      stop = c;
      break;
    }
    if (!out.push(c)) {
      in.putback(c);
      stop = kWordFull;
      break;
    }
    if (!in.get(c)) break;
  }
  out.end();
  return stop;
}

int lexanrib::restofword(void (*take)(void* to, char c), void* to) {
  bytesource::cursor in(stream);
  unsigned char c;
  while (in.get(c)) {
    if (is(c, kWordEnd)) {
      in.putback(c);
      return c;
    }
    if (take) take(to, static_cast<char>(c));
  }
  return -1;
}

// The usual number, an optional sign, digits, and at most one point with
// digits after it, up to a byte that may follow a number, where the source's
// block holds it with room to spare: the bytes are looked at where they lie,
// copied to text in one piece, and then taken; the byte after the number is
// left in the stream, as if read and put back. LEXNONE, with nothing taken,
// for any other form or when the block may end too soon.
__attribute__((always_inline)) inline int16_t lexanrib::scaninplace(unsigned char first) {
  constexpr size_t kRoom = 48;
  bytesource::cursor in(stream);
  // Digits are read eight bytes at a time, up to seven past the room.
  if (in.buffered() < kRoom + 8) return LEXNONE;
  // The first byte was the last one read, so it lies just before the rest.
  const unsigned char* const start = in.peek() - 1;
  if (*start != first) return LEXNONE;
  const unsigned char* const limit = start + kRoom;
  const unsigned char* p = start;
  const bool negative = *p == '-';
  p += negative || *p == '+';
  const unsigned char* const digits = p;
  uint64_t m = 0;
  if (is(p[0], kDigit) && p[1] == '.') {  // one digit before the point, as most have
    m = p[0] - '0';
    ++p;
  } else {
    p = digitrun::take(p, limit, m);
  }
  const size_t whole = static_cast<size_t>(p - digits);
  size_t places = 0;
  const bool point = *p == '.';
  if (point) {
    const unsigned char* const fraction = ++p;
    p = digitrun::take(p, limit, m);
    places = static_cast<size_t>(p - fraction);
  }
  if (p >= limit || !(point ? places > 0 : whole > 0) || !is(*p, kNumberEnd)) return LEXNONE;

  const uint32_t length = static_cast<uint32_t>(p - start);
  constexpr uint32_t kBlock = 16;
  if (length < kBlock && text.capacity >= kBlock) {
    std::memcpy(text.data, start, kBlock);  // a whole block is cheaper than counting bytes
  } else {
    while (text.capacity <= length) text.grow();
    std::memcpy(text.data, start, length);
  }
  text.data[length] = '\0';
  text.count = length + 1;
  in.take(static_cast<size_t>(p - in.peek()));
  // The common values here; the rest as convertnumber takes them.
  if (point && whole + places <= kExactFloatDigits) {
    const double d = static_cast<double>(m) / kPowersOfTen[places];
    floatvalue = static_cast<float>(negative ? -d : d);
    return LEXFLOAT;
  }
  if (!point && whole <= kExactIntDigits) {
    intvalue = static_cast<int32_t>(negative ? -static_cast<int64_t>(m) : static_cast<int64_t>(m));
    return LEXINT;
  }
  Decimal number;
  number.mantissa = m;
  number.exponent = -static_cast<int64_t>(places);
  number.exact = whole + places <= kExactDigits;
  number.negative = negative;
  const char* const textDigits = text.data + (digits - start);
  return valuenumber(number, point, textDigits, text.data + length);
}

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

// Everything but the next element of a float array.
int16_t lexanrib::scan() {
  if (infloats) {
    infloats = 0;
    return ']';
  }
  lastline = line;
  for (;;) {
    unsigned char c;
    Action action;
    {
      bytesource::cursor in(stream);
      for (;;) {
        if (!in.get(c)) return thistoke = LEXEOF;
        action = kTables.action[c];
        if (action == kNewline) {
          newline();
        } else if (action != kSkip) {
          break;
        }
      }
    }
    switch (action) {
      case kSkip:
      case kNewline:
        continue;
      case kComment:
        skipcomment();
        continue;
      case kQuote:
        scanstring(c);
        return thistoke = LEXSTRING;
      case kNumber:
        if (int16_t kind = scaninplace(c); kind != LEXNONE) return thistoke = kind;
        return thistoke = scannumber(c);
      case kBracket:
        return c;
      case kBinary:
        // Numbers, the commonest binary tokens after float arrays, directly.
        if (c <= 0x8F) return thistoke = scanbinnumber(c);
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
  bytesource::cursor in(stream);
  unsigned char c;
  while (in.get(c) && c != '\n') {
  }
  newline();
}

void lexanrib::scankeyword(unsigned char c) {
  if (scanword(c) == kWordFull) restofword(nullptr, nullptr);
}

// A memory failure while the string grows is told here, with this code, so
// the driver only recovers from the code-0 exception that follows.
void lexanrib::scanstring(unsigned char) {
  try {
    scanstringbody();
  } catch (RIBException& e) {
    if (e.code != kRibNoMemory) throw;
    RIBError(kRibStringMemory, e.severity, "%s", e.message.c_str());
    throw RIBException(kRibReported, e.severity, String());
  }
}

void lexanrib::scanstringbody() {
  text.count = 0;
  bool closed = false;
  for (;;) {
    int c = scanplain();
    if (c < 0) break;
    if (c == '"') {
      closed = true;
      break;
    }
    if (c != '\\') {
      newline();
      TextCursor(*this).end();
      throw exception(kRibSyntax, kRibError, "String runs past end of line");
    }
    int byte = scanescape();
    if (byte == kEscapeEnded) break;
    if (byte != kEscapeNothing) TextCursor(*this).push(static_cast<char>(byte));
  }
  TextCursor(*this).end();
  if (!closed) RIBError(kRibSyntax, kRibError, "Unterminated string");
}

// Appends string bytes up to one that needs a closer look (a quote, a
// backslash or a line end), which it returns; -1 when the stream ended.
// Bytes beyond what text holds are read on and dropped.
int lexanrib::scanplain() {
  bytesource::cursor in(stream);
  TextCursor out(*this);
  unsigned char c;
  while (in.get(c)) {
    if (is(c, kStringStop)) return c;
    out.push(c);
  }
  return -1;
}

// The byte after a backslash: what to append, kEscapeNothing for a line
// continuation, or kEscapeEnded when the stream ended there.
int lexanrib::scanescape() {
  unsigned char c;
  if (!stream.get(c)) return kEscapeEnded;
  switch (c) {
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    case 'b':
      return '\b';
    case 'f':
      return '\f';
    case '\n':
      newline();
      return kEscapeNothing;
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
      return value & 0xFF;
    }
    default:  // \\, \" and any other byte stand for themselves
      return c;
  }
}

// A number runs to the same end as a word: the bytes of a number are never
// word ends, and whatever follows a malformed number up to a word end belongs
// to the bad word the report quotes. A byte with bit 7 set ends a word but
// may not follow a number. The usual forms are read where they lie, by
// scaninplace; any other, and any number near the end of the source's
// block, comes here, to be scanned as a word first and then checked.
int16_t lexanrib::scannumber(unsigned char c) {
  text.count = 0;
  int stop = scanword(c);
  if (stop == kWordFull) return scanlongnumber();
  int16_t kind = stop >= 0x80 ? LEXNONE : convertnumber(text.data, text.data + text.count - 1);
  if (kind == LEXNONE) throw exception(kRibSyntax, kRibError, "Invalid number");
  return kind;
}

// text keeps the first bytes, for the reports, as for any long word.
int16_t lexanrib::scanlongnumber() {
  longnumber number;
  for (uint32_t i = 0; i + 1 < text.count; ++i) number.take(text.data[i]);
  auto take = [](void* to, char c) { static_cast<longnumber*>(to)->take(c); };
  int stop = restofword(take, &number);
  if (stop >= 0x80 || !number.valid()) throw exception(kRibSyntax, kRibError, "Invalid number");
  const std::string value = number.shortText();
  return convertnumber(value.data(), value.data() + value.size());
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
