#include "foundation/String.h"

#include <cstring>
#include <ostream>

void (*String::indexErrorHook)(const char* message) = nullptr;

namespace {

size_t boundedLength(const char* text, size_t n) {
  size_t len = text ? strnlen(text, n) : 0;
  return len > String::maxLength ? String::maxLength : len;
}

}  // namespace

String::String() : data(new char[1]), length(0) {
  data[0] = '\0';
}

String::String(const char* text) : data(nullptr), length(0) {
  set(text, boundedLength(text, maxLength + 1));
}

String::String(const char* text, size_t n) : data(nullptr), length(0) {
  set(text, boundedLength(text, n));
}

String::String(const String& other) : data(nullptr), length(0) {
  set(other.data, other.length);
}

String::~String() {
  delete[] data;
}

// Allocates before anything changes, so a failed allocation leaves the old
// text in place.
void String::set(const char* text, size_t n) {
  char* fresh = new char[n + 1];
  if (n) std::memcpy(fresh, text, n);
  fresh[n] = '\0';
  delete[] data;
  data = fresh;
  length = static_cast<uint16_t>(n);
}

String& String::operator=(const String& other) {
  if (this != &other) set(other.data, other.length);
  return *this;
}

String& String::operator+=(const String& other) {
  size_t add = other.length;
  if (length + add > maxLength) add = maxLength - length;
  // other may be *this: its text is copied before the old buffer goes.
  char* fresh = new char[length + add + 1];
  std::memcpy(fresh, data, length);
  std::memcpy(fresh + length, other.data, add);
  fresh[length + add] = '\0';
  delete[] data;
  data = fresh;
  length = static_cast<uint16_t>(length + add);
  return *this;
}

String::operator const char*() const {
  static const String null("null");
  return *this == null ? nullptr : data;
}

// Up to the first NUL, which may come before length.
uint32_t String::hash() const {
  return hash(data, static_cast<uint32_t>(std::strlen(data)));
}

char& String::operator[](uint16_t i) const {
  if (i > length) {
    if (indexErrorHook) indexErrorHook("string index out of range");
    i = length;
  }
  return data[i];
}

int operator==(const String& a, const String& b) {
  return std::strcmp(a.data, b.data) == 0;
}

int operator==(const String& a, const char* b) {
  return std::strcmp(a.c_str(), b ? b : "") == 0;
}

int operator==(const char* a, const String& b) {
  return b == a;
}

String operator+(const String& a, const String& b) {
  String sum(a);
  sum += b;
  return sum;
}

std::ostream& operator<<(std::ostream& os, const String& s) {
  return os << s.data;
}
