// The RIB scanner: one token per call of next, ASCII and binary encodings
// mixed freely, and the composition of every report about the input.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <unordered_map>

#include "foundation/Array.h"
#include "foundation/String.h"
#include "rib/bytesource.h"
#include "rib/ribexception.h"

// Token kinds. '[' and ']' are their own character codes.
constexpr int16_t LEXNONE = 0x100;  // no token; never returned by next
constexpr int16_t LEXINT = 0x101;
constexpr int16_t LEXFLOAT = 0x102;
constexpr int16_t LEXSTRING = 0x103;
constexpr int16_t LEXKEYWORD = 0x104;
constexpr int16_t LEXEOF = 0x105;

#define RZ_PRINTF_LIKE(fmt, args) __attribute__((format(printf, fmt, args)))

class lexanrib {
 public:
  typedef void (lexanrib::*ErrorHandler)(int32_t code, int32_t severity, const char* message);

  // An ASCII number's value as mantissa times ten to exponent, on its way
  // from the text to intvalue or floatvalue.
  struct Decimal {
    uint64_t mantissa = 0;  // wrapped when exact is false: the text then decides
    int64_t exponent = 0;
    bool exact = true;
    bool negative = false;
  };
  // Up to this many digits the mantissa cannot wrap: 10^19 < 2^64.
  static constexpr size_t kExactDigits = 19;
  // A keyword, string or number keeps at most this many bytes of its text,
  // the terminator included; the rest of a longer one is read and dropped.
  // A String holds no more anyway, and a longer number is read digit by digit
  // (scanlongnumber).
  static constexpr uint32_t kTextLimit = String::maxLength + 1;
  // The line counter stops here rather than wrap: a report past it names
  // this line.
  static constexpr uint32_t kLastLine = UINT32_MAX;

  explicit lexanrib(bytesource& in, const char* name = "stdin");
  lexanrib(const lexanrib&) = delete;
  lexanrib& operator=(const lexanrib&) = delete;

  // Scans one token and returns its kind. Throws RIBException on a malformed
  // number, a string broken by a line end, or (kRibNoMemory) exhausted memory.
  // The elements of a binary float array, most of a binary file's tokens,
  // are handed out here without a call.
  int16_t next() {
    if (infloats && floatindex < floats.count) {
      floatvalue = floats.data[floatindex++];
      return thistoke = LEXFLOAT;
    }
    return scan();
  }

  // next() for a binary integer (0x80 to 0x83) that the source's block
  // holds whole: taken as next() takes it, without a call, for the index
  // arrays of meshes. False, with nothing taken, for any other token.
  bool nextbinint() {
    if (infloats) return false;
    bytesource::cursor in(stream);
    // The header and four bytes are looked at; only the value's are taken.
    if (in.buffered() < 5) return false;
    const unsigned char* at = in.peek();
    if ((at[0] & 0xFC) != 0x80) return false;
    const unsigned width = (at[0] & 3) + 1u;
    const uint32_t four =
        uint32_t{at[1]} << 24 | uint32_t{at[2]} << 16 | uint32_t{at[3]} << 8 | at[4];
    in.take(1 + width);
    lastline = line;
    intvalue = static_cast<int32_t>(four >> (8 * (4 - width)));
    thistoke = LEXINT;
    return true;
  }

  // The value of the current token. Calling the wrong one for thistoke is a
  // programming error and stops the program with a failed assertion.
  void get(int32_t& v) const {
    if (!(thistoke == LEXINT)) assertionFailed("thistoke == LEXINT", __LINE__);
    v = intvalue;
  }
  void get(float& v) const {
    if (!(thistoke == LEXFLOAT || thistoke == LEXINT))
      assertionFailed("thistoke == LEXFLOAT || thistoke == LEXINT", __LINE__);
    v = thistoke == LEXFLOAT ? floatvalue : static_cast<float>(intvalue);
  }
  // Gives the text up to its first NUL byte, cut to String::maxLength.
  void get(String& s) const;

  // Composes "at line N 'text': message" and hands it to RIBErrorHandler.
  // format may be null. Never throws of itself and never allocates.
  void RIBError(int32_t code, int32_t severity, const char* format, ...) RZ_PRINTF_LIKE(4, 5);
  void vRIBError(int32_t code, int32_t severity, const char* format, va_list args)
      RZ_PRINTF_LIKE(4, 0);

  void RIBErrorIgnore(int32_t code, int32_t severity, const char* message);
  void RIBErrorPrint(int32_t code, int32_t severity, const char* message);
  // Prints, then ends the process whatever the severity, through
  // abortProgram, which first writes out what the front end holds.
  void RIBErrorAbort(int32_t code, int32_t severity, const char* message);

  // The record to throw; reports nothing.
  static RIBException exception(int32_t code, int32_t severity, const char* format, ...)
      RZ_PRINTF_LIKE(3, 4);

  // Where printed report lines go (no line end included). Class-wide; the
  // default writes the line and a line feed to standard error.
  static void (*RIBErrorPrinter)(const char* line);

  ErrorHandler RIBErrorHandler;
  bytesource& stream;
  const char* name;            // not owned; printed only where nameInReports is set
  bool nameInReports = false;  // an archive's scanner: "at line N of "name""
  // The extended reader's: report an integer beyond 32 bits and a byte that
  // begins no token, which the classic scanner passes over without a word.
  bool reportLosses = false;
  uint32_t lastline;  // the line where the latest scan began: what reports name
  uint32_t line;      // running line counter, held at kLastLine
  int16_t thistoke;
  int32_t intvalue;
  float floatvalue;
  Array<char> text;  // last string, keyword or ASCII number, NUL-terminated, cut at kTextLimit
  uint64_t textdropped = 0;  // bytes of that token beyond what text holds
  Array<String> requests;    // binary request-code definitions
  // Binary string-index definitions. The array reaches a little past the
  // highest index defined so far; an index far beyond it goes to the map, so
  // that a definition costs memory in proportion to its own text, whatever
  // its index.
  Array<String> strings;
  std::unordered_map<uint16_t, String> farstrings;
  Array<float> floats;  // binary float array under delivery
  int16_t infloats;
  uint32_t floatindex;

 private:
  // An ArrayCursor on text, which holds at most kTextLimit - 1 bytes before
  // the terminator: push takes nothing beyond them, counts them in
  // textdropped and returns false; end always finds room for the terminator.
  // A cursor on empty text begins a token, whose count of dropped bytes
  // starts afresh.
  class TextCursor {
   public:
    explicit TextCursor(lexanrib& lex)
        : out_(lex.text, GrowArray(), kTextLimit - 1), dropped_(lex.textdropped) {
      if (lex.text.count == 0) dropped_ = 0;
    }
    bool push(char c) {
      if (out_.push(c)) return true;
      ++dropped_;
      return false;
    }
    void end() { out_.close('\0'); }

   private:
    ArrayCursor<char> out_;
    uint64_t& dropped_;
  };
  // What scanword returns when text filled before the word ended; the byte
  // that did not fit is back in the stream.
  static constexpr int kWordFull = -2;

  [[noreturn]] static void assertionFailed(const char* expression, int line);

  int16_t scan();
  void skipcomment();
  void scanstring(unsigned char c);
  void scanstringbody();
  int scanplain();
  static constexpr int kEscapeNothing = -1;
  static constexpr int kEscapeEnded = -2;
  int scanescape();
  int16_t scannumber(unsigned char c);
  int16_t scaninplace(unsigned char first);
  // The value of the number text p to end into intvalue or floatvalue;
  // LEXNONE, with both left alone, when it is no number.
  int16_t convertnumber(const char* p, const char* end);
  // A number longer than text holds: read on to its end, digit by digit.
  int16_t scanlongnumber();
  // The value of a checked number into intvalue or floatvalue; returns its
  // kind. digits to end: its text after the sign, for values that the
  // mantissa cannot hold exactly.
  int16_t valuenumber(const Decimal& number, bool isfloat, const char* digits, const char* end);
  void reportClipped();
  // Reports, in the extended reader, a binary token that the end of the
  // stream cut short.
  void noteCut();
  void scankeyword(unsigned char c);
  int scanword(unsigned char c);
  // Reads the rest of a word that filled text, handing each byte to take
  // (when given); returns the word end, which is put back, or -1.
  int restofword(void (*take)(void* to, char c), void* to);
  void newline() { line += line != kLastLine; }

  int16_t scanbinary(unsigned char c);
  uint32_t scanbinlong(uint16_t n);
  int16_t scanbinnumber(unsigned char c);
  int16_t scanbinstring(unsigned char c);
  int16_t scanbinfloat(unsigned char c);
  int16_t scanbindouble(unsigned char c);
  int16_t scanbinfloats(unsigned char c);
  void definerequest();
  void definestring(unsigned char c);
  const String* definedstring(uint32_t index) const;
  void copytext(const String* s);
};
