#include "zel/jsonformat.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace zel {

void appendFloat(std::string& out, float value) {
  if (std::isnan(value)) {
    out += "\"nan\"";
  } else if (std::isinf(value)) {
    out += value < 0 ? "\"-inf\"" : "\"inf\"";
  } else if (value == 0 && std::signbit(value)) {
    out += "-0.0";  // "-0" would read back as the integer 0 and lose the sign
  } else {
    char buffer[32];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, result.ptr);
  }
}

void appendInt(std::string& out, int64_t value) {
  char buffer[24];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, result.ptr);
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

void appendFloats(std::string& out, const float* values, size_t n) {
  if (values == nullptr) {
    out += "null";
    return;
  }
  out += '[';
  for (size_t i = 0; i < n; ++i) {
    if (i > 0) out += ',';
    appendFloat(out, values[i]);
  }
  out += ']';
}

void appendInts(std::string& out, const int32_t* values, size_t n) {
  if (values == nullptr) {
    out += "null";
    return;
  }
  out += '[';
  for (size_t i = 0; i < n; ++i) {
    if (i > 0) out += ',';
    appendInt(out, values[i]);
  }
  out += ']';
}

}  // namespace zel
