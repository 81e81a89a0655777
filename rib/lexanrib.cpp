// The ASCII side of the scanner and the dispatch on a token's first byte.
#include <cstdio>
#include <cstdlib>

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

}  // namespace

// Appends c and what follows up to a word end, which is put back and
// returned; -1 when the stream ended first. The scanner's hottest loop, so
// it is built into both of its callers.
__attribute__((always_inline)) inline int lexanrib::scanword(unsigned char c) {
  bytesource::cursor in(stream);
  TextCursor out(text);
  int stop = -1;
  for (;;) {
    if (is(c, kWordEnd)) {
      in.putback(c);
      stop = c;
      break;
    }
    out.push(c);
    if (!in.get(c)) break;
  }
  out.push('\0');
  return stop;
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
          ++line;
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
  bytesource::cursor in(stream);
  unsigned char c;
  while (in.get(c) && c != '\n') {
  }
  ++line;
}

void lexanrib::scankeyword(unsigned char c) {
  scanword(c);
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
  for (;;) {
    int c = scanplain();
    if (c < 0) break;
    if (c == '"') {
      closed = true;
      break;
    }
    if (c != '\\') {
      ++line;
      text.append('\0');
      throw exception(16, 2, "String runs past end of line");
    }
    int byte = scanescape();
    if (byte == kEscapeEnded) break;
    if (byte != kEscapeNothing) text.append(static_cast<char>(byte));
  }
  text.append('\0');
  if (!closed) RIBError(16, 2, "Unterminated string");
}

// Appends string bytes up to one that needs a closer look (a quote, a
// backslash or a line end), which it returns; -1 when the stream ended.
int lexanrib::scanplain() {
  bytesource::cursor in(stream);
  TextCursor out(text);
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
      ++line;
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
// to the bad word the report quotes. So the word is scanned first and then
// checked. A byte with bit 7 set ends a word but may not follow a number.
int16_t lexanrib::scannumber(unsigned char c) {
  text.count = 0;
  int stop = scanword(c);
  int16_t kind = stop >= 0x80 ? LEXNONE : convertnumber();
  if (kind == LEXNONE) throw exception(16, 2, "Invalid number");
  return kind;
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
