// The shortest decimal form of a float, the text std::to_chars gives it, at a
// fraction of the cost: number arrays are most of what a scene file holds.
#pragma once

namespace zel {

// Room that writeShortest needs. The text itself is at most 15 characters
// (a sign, nine digits, a point and "e-38"); the rest is scratch, written
// over because moving whole blocks is cheaper than counting bytes.
constexpr int kShortestFloatChars = 32;

// Writes the text of a finite `value` that std::to_chars(first, last, value)
// writes, the same character for character, and returns its end. Bytes
// from there up to first + kShortestFloatChars may be overwritten.
char* writeShortest(char* first, float value);

}  // namespace zel
