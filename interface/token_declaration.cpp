// The text form of declare: "[class] type" and, with `full`, "vertex" and "type[n]".
#include <cstdlib>
#include <cstring>
#include <memory>

#include "interface/error.h"
#include "interface/token_internal.h"

namespace {

bool isSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

void skipSpace(const char** cursor) {
  while (isSpace(**cursor)) ++*cursor;
}

// Reads one word of lower-case letters, or of digits when `digits` is set.
// `buffer` has room for the whole declaration, so any word fits.
bool nextWord(char* buffer, const char** cursor, bool digits) {
  skipSpace(cursor);
  char* out = buffer;
  for (char c = **cursor; digits ? (c >= '0' && c <= '9') : (c >= 'a' && c <= 'z'); c = **cursor) {
    *out++ = c;
    ++*cursor;
  }
  *out = '\0';
  return out != buffer;
}

struct TypeWord {
  const char* word;
  RiTokenType type;
};

const TypeWord kTypeWords[] = {{"float", TypeFloat},
                               {"integer", TypeInteger},
                               {"string", TypeString},
                               {"point", TypePoint},
                               {"color", TypeColor}};

bool typeOf(const char* word, RiTokenType* type) {
  for (const TypeWord& t : kTypeWords) {
    if (std::strcmp(word, t.word) == 0) {
      *type = t.type;
      return true;
    }
  }
  return false;
}

// Reads an optional class word; without one the class is uniform and `word`
// still holds the type word.
bool readClass(char* word, const char** cursor, bool full, RiTokenClass* tokenClass) {
  if (!nextWord(word, cursor, false)) return false;
  if (std::strcmp(word, "uniform") == 0) {
    *tokenClass = ClassUniform;
  } else if (std::strcmp(word, "varying") == 0) {
    *tokenClass = ClassVarying;
  } else if (full && std::strcmp(word, "vertex") == 0) {
    *tokenClass = ClassVertex;
  } else {
    *tokenClass = ClassUniform;
    return true;
  }
  return nextWord(word, cursor, false);
}

// Reads "[n]" after the type word, spaces allowed inside.
bool readSize(char* word, const char** cursor, int32_t* size) {
  ++*cursor;
  if (!nextWord(word, cursor, true)) return false;
  *size = static_cast<int32_t>(std::strtol(word, nullptr, 10));
  skipSpace(cursor);
  if (**cursor != ']') return false;
  ++*cursor;
  skipSpace(cursor);
  return true;
}

bool parseDeclaration(const char* declaration, bool full, RiTokenType* type,
                      RiTokenClass* tokenClass, int32_t* size) {
  std::unique_ptr<char[]> word(new char[std::strlen(declaration) + 1]);
  const char* cursor = declaration;
  if (!readClass(word.get(), &cursor, full, tokenClass)) return false;
  if (!typeOf(word.get(), type)) return false;
  skipSpace(&cursor);
  if (full && *cursor == '[' && !readSize(word.get(), &cursor, size)) return false;
  return *cursor == '\0';
}

}  // namespace

Token* declare(const char* name, uint16_t code, const char* declaration, int16_t full) {
  RiTokenType type = TypeNone;
  RiTokenClass tokenClass = ClassNone;
  int32_t size = 1;
  if (!declaration || !parseDeclaration(declaration, full != 0, &type, &tokenClass, &size)) {
    error(RIE_SYNTAX, RIE_ERROR, "bad declaration \"%s\"", nameText(declaration));
    return nullptr;
  }
  return declare(name, code, type, tokenClass, size);
}
