#ifndef RZ_TOOLS_RIBTOKENIZER_H
#define RZ_TOOLS_RIBTOKENIZER_H

#include <cstdint>
#include <string>

#include "tools/bytereader.h"

namespace ribtools {

enum class TokenKind {
  kInt,
  kFloat,
  kString,
  kKeyword,
  kOpen,   // [
  kClose,  // ]
  // Bytes that no binary token can stand for (a malformed number, an integer
  // beyond 32 bits, a broken string). They are copied unchanged so that a
  // reader of the binary file meets exactly what a reader of the text meets.
  kVerbatim,
  // A byte with bit 7 set where a token starts: the input is not ASCII RIB.
  kBinaryByte,
  kEnd,
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  int32_t intValue = 0;
  float floatValue = 0;
  // Decoded text of a string, text of a keyword, raw bytes of a verbatim token.
  std::string text;
  unsigned char byte = 0;  // the offending byte of kBinaryByte
};

// Splits ASCII RIB into tokens by the reader's lexical rules: the same white
// space, comments, string escapes, number grammar and keyword terminators, and
// numbers converted the same way (decimal to double, then narrowed to float).
class RibTokenizer {
 public:
  explicit RibTokenizer(ByteReader& in) : in_(in) {}

  // Scans the next token. The reference stays valid until the next call.
  const Token& next();
  // The line on which the last token started.
  int32_t line() const { return tokenLine_; }

 private:
  void scanString();
  void scanNumber(unsigned char first);
  void scanKeyword(unsigned char first);
  void scanOctal(unsigned char first);
  void appendRestOfWord();
  void convertNumber(bool isFloat);
  void skipComment();

  ByteReader& in_;
  Token token_;
  std::string raw_;  // bytes of the string being scanned, for a verbatim copy
  int32_t line_ = 1;
  int32_t tokenLine_ = 1;
};

// Bytes that end a keyword or a number in ASCII RIB.
inline bool isTerminator(unsigned char c) {
  return c == '\t' || c == '\n' || c == '\r' || c == ' ' || c == '"' || c == '#' || c == '[' ||
         c == ']' || c >= 0x80;
}

}  // namespace ribtools

#endif
