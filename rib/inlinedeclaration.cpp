#include "rib/inlinedeclaration.h"

#include <cstring>

namespace {

struct ClassWord {
  const char* word;
  RiTokenClass tokenClass;
};

const ClassWord kClasses[] = {
    {"constant", ClassConstant}, {"uniform", ClassUniform},         {"varying", ClassVarying},
    {"vertex", ClassVertex},     {"facevarying", ClassFaceVarying}, {"facevertex", ClassFaceVertex},
};

struct TypeWord {
  const char* word;
  RiTokenType type;
};

const TypeWord kTypes[] = {
    {"float", TypeFloat},   {"integer", TypeInteger}, {"int", TypeInteger},
    {"string", TypeString}, {"point", TypePoint},     {"vector", TypeVector},
    {"normal", TypeNormal}, {"color", TypeColor},     {"hpoint", TypeHPoint},
    {"matrix", TypeMatrix},
};

bool isSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

// The next run of characters that are neither space nor '[', after spaces.
std::string word(const char*& at) {
  while (isSpace(*at)) ++at;
  const char* begin = at;
  while (*at != '\0' && !isSpace(*at) && *at != '[') ++at;
  return std::string(begin, at);
}

bool classOf(const std::string& w, RiTokenClass& out) {
  for (const ClassWord& c : kClasses) {
    if (w == c.word) {
      out = c.tokenClass;
      return true;
    }
  }
  return false;
}

bool typeOf(const std::string& w, RiTokenType& out) {
  for (const TypeWord& t : kTypes) {
    if (w == t.word) {
      out = t.type;
      return true;
    }
  }
  return false;
}

// "[n]" with spaces allowed around n; n from 1 to 2^31 - 1.
bool arraySize(const char*& at, int32_t& size) {
  while (isSpace(*at)) ++at;
  if (*at != '[') return true;
  ++at;
  while (isSpace(*at)) ++at;
  int64_t n = 0;
  const char* digits = at;
  while (*at >= '0' && *at <= '9' && n <= INT32_MAX) n = n * 10 + (*at++ - '0');
  while (isSpace(*at)) ++at;
  if (at == digits || *at != ']' || n < 1 || n > INT32_MAX) return false;
  ++at;
  size = static_cast<int32_t>(n);
  return true;
}

}  // namespace

bool parseDeclaration(const char* text, bool withName, inlinedeclaration& out) {
  const char* at = text;
  std::string w = word(at);
  if (classOf(w, out.tokenClass)) w = word(at);
  const bool reference = w == "reference";
  if (reference) w = word(at);
  if (!typeOf(w, out.type) || !arraySize(at, out.size)) return false;
  if (reference) out.type = TypeReference;
  out.name = word(at);
  while (isSpace(*at)) ++at;
  return *at == '\0' && out.name.empty() != withName;
}

bool mayDeclare(const char* text) {
  for (const char* at = text; *at != '\0'; ++at) {
    if (isSpace(*at) || *at == '[') return true;
  }
  return false;
}
