#include "tools/ribencoder.h"

#include <cstdio>
#include <vector>

#include "tools/ribtokenizer.h"

namespace ribtools {

namespace {

struct Number {
  bool isFloat;
  int32_t i;
  float f;
};

// Holds the numbers of an open bracket until it is known whether the array is
// all numbers (and then of which kind) or something else.
class ArrayFolder {
 public:
  explicit ArrayFolder(BinaryWriter& out) : out_(out) {}

  bool collecting() const { return collecting_; }
  void open() {
    if (collecting_) release();
    collecting_ = true;
    anyFloat_ = false;
    numbers_.clear();
  }
  void add(const Token& t) {
    bool isFloat = t.kind == TokenKind::kFloat;
    anyFloat_ = anyFloat_ || isFloat;
    numbers_.push_back({isFloat, t.intValue, t.floatValue});
  }
  void close() {
    collecting_ = false;
    if (!anyFloat_) {
      writePlain();
      out_.byte(']');
      return;
    }
    floats_.clear();
    for (const Number& n : numbers_) floats_.push_back(n.isFloat ? n.f : static_cast<float>(n.i));
    out_.floatArray(floats_);
  }
  // Something other than a number stands in the array: write what was held as
  // separate tokens and let the rest follow as it comes.
  void release() {
    collecting_ = false;
    writePlain();
  }

 private:
  void writePlain() {
    out_.byte('[');
    for (const Number& n : numbers_) {
      if (n.isFloat) {
        out_.real(n.f);
      } else {
        out_.integer(n.i);
      }
    }
  }

  BinaryWriter& out_;
  bool collecting_ = false;
  bool anyFloat_ = false;
  std::vector<Number> numbers_;
  std::vector<float> floats_;
};

}  // namespace

EncodeResult encodeRib(ByteReader& in, BinaryWriter& out) {
  EncodeResult result;
  RibTokenizer tokens(in);
  ArrayFolder array(out);
  for (;;) {
    const Token& t = tokens.next();
    if (t.kind == TokenKind::kEnd) break;
    ++result.tokens;
    if (t.kind == TokenKind::kInt || t.kind == TokenKind::kFloat) {
      if (array.collecting()) {
        array.add(t);
      } else if (t.kind == TokenKind::kInt) {
        out.integer(t.intValue);
      } else {
        out.real(t.floatValue);
      }
      continue;
    }
    if (t.kind == TokenKind::kOpen) {
      array.open();
      continue;
    }
    if (t.kind == TokenKind::kClose && array.collecting()) {
      array.close();
      continue;
    }
    if (array.collecting()) array.release();
    switch (t.kind) {
      case TokenKind::kString:
        out.string(t.text);
        break;
      case TokenKind::kKeyword:
        ++result.keywords;
        out.keyword(t.text);
        break;
      case TokenKind::kClose:
        out.byte(']');
        break;
      case TokenKind::kVerbatim:
        out.verbatim(t.text);
        break;
      default: {
        char text[96];
        std::snprintf(text, sizeof text,
                      "line %ld: byte 0x%02X begins a binary token; only ASCII RIB can be encoded",
                      static_cast<long>(tokens.line()), t.byte);
        result.ok = false;
        result.message = text;
        return result;
      }
    }
  }
  if (array.collecting()) array.release();
  if (in.failed()) {
    result.ok = false;
    result.message = "read error";
  }
  return result;
}

}  // namespace ribtools
