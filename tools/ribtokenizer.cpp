#include "tools/ribtokenizer.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace ribtools {

namespace {

bool isDigit(unsigned char c) {
  return c >= '0' && c <= '9';
}

// A number must be followed by one of these (or the end of the input); unlike
// a keyword, a byte with bit 7 set does not end it.
bool endsNumber(unsigned char c) {
  return c < 0x80 && isTerminator(c);
}

}  // namespace

const Token& RibTokenizer::next() {
  tokenLine_ = line_;
  unsigned char c;
  while (in_.get(c)) {
    switch (c) {
      case '\n':
        ++line_;
        [[fallthrough]];
      case '\t':
      case '\r':
      case ' ':
        tokenLine_ = line_;
        continue;
      case '#':
        skipComment();
        tokenLine_ = line_;
        continue;
      case '"':
        scanString();
        return token_;
      case '[':
        token_.kind = TokenKind::kOpen;
        return token_;
      case ']':
        token_.kind = TokenKind::kClose;
        return token_;
      default:
        break;
    }
    if (c == '+' || c == '-' || c == '.' || isDigit(c)) {
      scanNumber(c);
    } else if (c >= 0x80) {
      token_.kind = TokenKind::kBinaryByte;
      token_.byte = c;
    } else {
      scanKeyword(c);
    }
    return token_;
  }
  token_.kind = TokenKind::kEnd;
  return token_;
}

void RibTokenizer::skipComment() {
  unsigned char c;
  while (in_.get(c) && c != '\n') {
  }
  ++line_;
}

void RibTokenizer::scanKeyword(unsigned char first) {
  token_.kind = TokenKind::kKeyword;
  token_.text.assign(1, static_cast<char>(first));
  appendRestOfWord();
}

void RibTokenizer::appendRestOfWord() {
  unsigned char c;
  while (in_.get(c)) {
    if (isTerminator(c)) {
      in_.putback();
      return;
    }
    token_.text.push_back(static_cast<char>(c));
  }
}

void RibTokenizer::scanString() {
  std::string& text = token_.text;
  text.clear();
  raw_.assign(1, '"');
  unsigned char c;
  for (;;) {
    if (!in_.get(c)) break;  // unterminated
    raw_.push_back(static_cast<char>(c));
    if (c == '"') {
      token_.kind = TokenKind::kString;
      return;
    }
    if (c == '\r' || c == '\n') {
      // The reader stops the string here with an error and reads on after it.
      ++line_;
      break;
    }
    if (c != '\\') {
      text.push_back(static_cast<char>(c));
      continue;
    }
    if (!in_.get(c)) break;
    raw_.push_back(static_cast<char>(c));
    switch (c) {
      case 'n':
        text.push_back('\n');
        break;
      case 'r':
        text.push_back('\r');
        break;
      case 't':
        text.push_back('\t');
        break;
      case 'b':
        text.push_back('\b');
        break;
      case 'f':
        text.push_back('\f');
        break;
      case '\n':
        ++line_;
        break;
      default:
        if (c >= '0' && c <= '7') {
          scanOctal(c);
        } else {
          text.push_back(static_cast<char>(c));
        }
    }
  }
  // A string that the reader would reject or cut short goes through as it is.
  token_.kind = TokenKind::kVerbatim;
  token_.text.swap(raw_);
}

void RibTokenizer::scanOctal(unsigned char first) {
  unsigned value = first - '0';
  unsigned char c;
  for (int i = 0; i < 2 && in_.get(c); ++i) {
    if (c < '0' || c > '7') {
      in_.putback();
      break;
    }
    raw_.push_back(static_cast<char>(c));
    value = (value * 8 + (c - '0')) & 0xFF;
  }
  token_.text.push_back(static_cast<char>(value));
}

void RibTokenizer::scanNumber(unsigned char first) {
  std::string& text = token_.text;
  text.assign(1, static_cast<char>(first));
  unsigned char c = first;
  bool more = true;
  auto advance = [&] {
    more = in_.get(c);
    if (more) text.push_back(static_cast<char>(c));
  };
  bool valid = false;
  bool isFloat = false;
  auto takeDigits = [&] {
    while (more && isDigit(c)) {
      valid = true;
      advance();
    }
  };
  if (c == '+' || c == '-') advance();
  takeDigits();
  if (more && c == '.') {
    isFloat = true;
    valid = false;
    advance();
    takeDigits();
  }
  if (more && valid && (c == 'e' || c == 'E')) {
    isFloat = true;
    valid = false;
    advance();
    if (more && (c == '+' || c == '-')) advance();
    takeDigits();
  }
  // `c` is the byte after the number, already appended to `text`.
  if (more) {
    if (valid && endsNumber(c)) {
      text.pop_back();
      in_.putback();
    } else if (isTerminator(c)) {
      text.pop_back();
      in_.putback();
      valid = false;
    } else {
      valid = false;
      appendRestOfWord();
    }
  }
  if (!valid) {
    token_.kind = TokenKind::kVerbatim;
    return;
  }
  convertNumber(isFloat);
}

void RibTokenizer::convertNumber(bool isFloat) {
  const std::string& text = token_.text;
  const char* begin = text.data() + (text[0] == '+' ? 1 : 0);
  const char* end = text.data() + text.size();
  token_.kind = TokenKind::kVerbatim;  // unless the value fits its binary form
  if (isFloat) {
    double d;
    auto [ptr, ec] = std::from_chars(begin, end, d);
    if (ec == std::errc() && ptr == end && std::fabs(d) <= std::numeric_limits<float>::max()) {
      token_.floatValue = static_cast<float>(d);
      token_.kind = TokenKind::kFloat;
    }
    return;
  }
  int32_t v;
  auto [ptr, ec] = std::from_chars(begin, end, v);
  if (ec == std::errc() && ptr == end) {
    token_.intValue = v;
    token_.kind = TokenKind::kInt;
  }
}

}  // namespace ribtools
