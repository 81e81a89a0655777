#include "zel/jsonformat.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <type_traits>

#include "zel/shortestfloat.h"

namespace zel {

namespace {

// The text of a float that to_chars does not write as JSON needs, or null.
const char* specialFloat(float value) {
  if (std::isnan(value)) return "\"nan\"";
  if (std::isinf(value)) return value < 0 ? "\"-inf\"" : "\"inf\"";
  // "-0" would read back as the integer 0 and lose the sign.
  if (value == 0 && std::signbit(value)) return "-0.0";
  return nullptr;
}

}  // namespace

void appendFloat(std::string& out, float value) {
  if (const char* special = specialFloat(value)) {
    out += special;
  } else {
    char buffer[kShortestFloatChars];
    out.append(buffer, static_cast<size_t>(writeShortest(buffer, value) - buffer));
  }
}

void appendInt(std::string& out, int64_t value) {
  char buffer[24];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, static_cast<size_t>(result.ptr - buffer));
}

namespace {

// The escape for a byte that cannot stand as itself, or null when it can.
const char* shortEscape(unsigned char c) {
  switch (c) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\b':
      return "\\b";
    case '\f':
      return "\\f";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return nullptr;
  }
}

bool needsEscape(unsigned char c) {
  return c < 0x20 || c >= 0x80 || c == '"' || c == '\\';
}

void appendEscaped(std::string& out, unsigned char c) {
  if (const char* escape = shortEscape(c)) {
    out += escape;
    return;
  }
  static const char kHex[] = "0123456789ABCDEF";
  char unicode[6] = {'\\', 'u', '0', '0', kHex[c >> 4], kHex[c & 0xF]};
  out.append(unicode, sizeof unicode);
}

}  // namespace

void appendText(std::string& out, const char* text, size_t length) {
  out += '"';
  size_t run = 0;  // start of the bytes not yet copied
  for (size_t i = 0; i < length; ++i) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    if (!needsEscape(c)) continue;
    out.append(text + run, i - run);
    appendEscaped(out, c);
    run = i + 1;
  }
  out.append(text + run, length - run);
  out += '"';
}

void appendText(std::string& out, const char* text) {
  if (text == nullptr) {
    out += "null";
    return;
  }
  appendText(out, text, std::strlen(text));
}

namespace {

// Arrays carry most of a scene's bytes; their numbers are gathered in a chunk
// on the stack and appended in one go rather than a few bytes at a time.
class Chunk {
 public:
  explicit Chunk(std::string& out) : out_(out) {}
  ~Chunk() { out_.append(data_, used_); }

  // Room for one more number and its comma, and the scratch that
  // writeShortest may write past a number's end.
  char* reserve() {
    if (used_ > sizeof data_ - kNumberBytes) {
      out_.append(data_, used_);
      used_ = 0;
    }
    return data_ + used_;
  }
  void advance(char* end) { used_ = static_cast<size_t>(end - data_); }

  static constexpr size_t kNumberBytes = 1 + kShortestFloatChars;

 private:
  std::string& out_;
  char data_[1024];
  size_t used_ = 0;
};

// Whether specialFloat has a text for the value: a NaN, an infinity or -0.
bool isSpecial(float value) {
  const uint32_t bits = std::bit_cast<uint32_t>(value);
  return (bits & 0x7F800000) == 0x7F800000 || bits == 0x80000000;
}

char* writeNumber(char* at, float value) {
  if (!isSpecial(value)) return writeShortest(at, value);
  const char* special = specialFloat(value);
  const size_t length = std::strlen(special);
  std::memcpy(at, special, length);
  return at + length;
}

char* writeNumber(char* at, int32_t value) {
  return std::to_chars(at, at + 12, value).ptr;
}

template <typename Number>
void appendArray(std::string& out, const Number* values, size_t n) {
  if (values == nullptr) {
    out += "null";
    return;
  }
  out += '[';
  {
    Chunk chunk(out);
    for (size_t i = 0; i < n; ++i) {
      char* at = chunk.reserve();
      *at = ',';
      at += i > 0;
      chunk.advance(writeNumber(at, values[i]));
    }
  }
  out += ']';
}

}  // namespace

void appendFloats(std::string& out, const float* values, size_t n) {
  appendArray(out, values, n);
}

void appendInts(std::string& out, const int32_t* values, size_t n) {
  appendArray(out, values, n);
}

void appendTexts(std::string& out, const char* const* texts, size_t n) {
  if (texts == nullptr) {
    out += "null";
    return;
  }
  out += '[';
  for (size_t i = 0; i < n; ++i) {
    if (i > 0) out += ',';
    appendText(out, texts[i]);
  }
  out += ']';
}

}  // namespace zel
