// The program's own text value: every copy owns its buffer, nothing is shared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>

class String {
 public:
  // The most characters a String can hold: its length is 16 bits. Longer text
  // handed to a constructor or to += is cut to this many characters, so no
  // length ever wraps and no buffer is written past its end.
  static constexpr size_t maxLength = 65535;

  String();
  String(const char* text);  // a null pointer gives the empty string
  // The first n bytes of text, or fewer if a NUL comes first.
  String(const char* text, size_t n);
  String(const String& other);
  ~String();

  String& operator=(const String& other);
  String& operator+=(const String& other);

  // The text, except that exactly "null" converts to a null pointer: RIB
  // writes a missing name that way and the Ri calls expect 0 for it.
  operator const char*() const;

  // PJW (ELF) hash over the bytes taken as signed; "abc" hashes to 26499.
  uint32_t hash() const;
  // The same over n bytes that need not be a String, so that a lookup
  // allocates nothing.
  static uint32_t hash(const char* text, uint32_t n) {
    uint32_t h = 0;
    for (uint32_t i = 0; i < n; ++i) {
      h = (h << 4) + static_cast<uint32_t>(static_cast<int32_t>(static_cast<signed char>(text[i])));
      if (const uint32_t g = h & 0xf0000000u) h ^= g ^ (g >> 24);
    }
    return h;
  }

  // The character at i; the terminator at i == length is legal. A larger
  // index is reported through indexErrorHook and replaced by length.
  char& operator[](uint16_t i) const;

  // Set by the interface layer to its error function; foundation cannot call
  // it directly without depending on that layer. Null means no report.
  static void (*indexErrorHook)(const char* message);

  // The raw text, "null" included, and the number of characters.
  const char* c_str() const { return data; }
  uint16_t size() const { return length; }

 private:
  void set(const char* text, size_t n);

  char* data;       // length + 1 bytes, NUL-terminated, never null
  uint16_t length;  // characters before the terminator

  friend int operator==(const String& a, const String& b);
  friend std::ostream& operator<<(std::ostream& os, const String& s);
};

int operator==(const String& a, const String& b);
// Comparisons with plain text, so that s == "Sphere" is not ambiguous with
// the pointer comparison the conversion would allow. A null pointer is taken
// as the empty text.
int operator==(const String& a, const char* b);
int operator==(const char* a, const String& b);
String operator+(const String& a, const String& b);
// Writes the stored text; a String holding "null" prints as null.
std::ostream& operator<<(std::ostream& os, const String& s);
