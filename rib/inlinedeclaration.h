// The declaration grammar of later versions of the interface, for Declare and
// for parameter names that carry their own declaration:
//   [class] [reference] type ['[' n ']'] [name]
// with the classes constant, uniform, varying, vertex, facevarying,
// facevertex and the types float, integer (int), string, point, vector,
// normal, color, hpoint, matrix. A reference is of TypeReference, whatever
// the type of the output it names.
#pragma once

#include <cstdint>
#include <string>

#include "interface/token.h"

struct inlinedeclaration {
  RiTokenType type = TypeNone;
  RiTokenClass tokenClass = ClassUniform;
  int32_t size = 1;
  std::string name;  // empty when parsed without one
};

// Parses `text`, which ends with a name when `withName` is set. False when it
// is not of that form; `out` is then unspecified.
bool parseDeclaration(const char* text, bool withName, inlinedeclaration& out);

// Whether a parameter name may carry a declaration: it holds more than one word.
bool mayDeclare(const char* text);
