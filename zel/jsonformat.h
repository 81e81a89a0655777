// Appending JSON values to a line under construction. Nothing here allocates
// beyond the growth of the target string, which the caller reuses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zel {

// The shortest decimal that reads back to the same 32-bit float; the strings
// "inf", "-inf" and "nan" for values JSON cannot hold as numbers.
void appendFloat(std::string& out, float value);
void appendInt(std::string& out, int64_t value);
// A JSON string. Bytes 0x80-0xFF become \u0080-\u00FF so that the bytes, not
// some character set's reading of them, come back; a null text is null.
void appendText(std::string& out, const char* text);
// The same for a text of known length, which may hold NUL bytes.
void appendText(std::string& out, const char* text, size_t length);
// [a,b,...] of `n` numbers; a null pointer is null.
void appendFloats(std::string& out, const float* values, size_t n);
void appendInts(std::string& out, const int32_t* values, size_t n);
// [t,...] of `n` texts; a null array is null.
void appendTexts(std::string& out, const char* const* texts, size_t n);

}  // namespace zel
