// What the dictionary's own files share and nobody else needs.
#pragma once

#include "interface/token.h"

// Declares the predeclared tokens in table order and sets their RI_* variables.
void declarePredeclaredTokens();

// A null name only comes from the text "null", which the String conversion
// turns into a null pointer; the dictionary reads it back as that text.
inline const char* nameText(const char* name) {
  return name ? name : "null";
}
