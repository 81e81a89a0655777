#include "interface/token.h"

#include <cstddef>
#include <type_traits>

#include "interface/error.h"
#include "interface/scene/zel.h"
#include "interface/token_internal.h"

static_assert(std::is_standard_layout_v<Token>, "a Token's address must be that of its marker");
static_assert(offsetof(Token, marker) == 0, "the marker must be a record's first byte");

namespace {

constexpr uint16_t kBuckets = 111;

// Both are zero before any dynamic initialiser runs, which is what lets
// TokenDictionaryInit work from whichever file's initialiser comes first.
int gInitCount;
Hash<Token>* gTokens;

bool isRecord(const char* token) {
  return static_cast<unsigned char>(*token) == Token::kMarker;
}

}  // namespace

Token::Token(const char* name, uint16_t code, RiTokenType type, RiTokenClass tokenClass,
             int32_t size)
    : marker(kMarker), code(code), name(name), tokenClass(tokenClass), type(type), size(size) {}

Token::Token(const Token& other)
    : marker(kMarker),
      code(other.code),
      name(other.name),
      tokenClass(other.tokenClass),
      type(other.type),
      size(other.size) {}

TokenDictionaryInit::TokenDictionaryInit() {
  if (gInitCount++ == 0) {
    gTokens = new Hash<Token>(kBuckets);
    declarePredeclaredTokens();
  }
}

TokenDictionaryInit::~TokenDictionaryInit() {
  if (--gInitCount == 0) {
    delete gTokens;
    gTokens = nullptr;
  }
}

const Hash<Token>& tokenDictionary() {
  return *gTokens;
}

Token* find(const char* token) {
  token = nameText(token);
  if (isRecord(token)) return reinterpret_cast<Token*>(const_cast<char*>(token));
  Token probe(token, 0, TypeNone, ClassNone, 1);
  return gTokens->find(probe);
}

Token* confirm(const char* token) {
  Token* record = find(token);
  if (!record) error(RIE_BADTOKEN, RIE_ERROR, "undeclared token \"%s\"", nameText(token));
  return record;
}

const char* tostring(const char* token) {
  if (token && isRecord(token)) return reinterpret_cast<const Token*>(token)->name;
  return token;
}

Token* declare(const char* name, uint16_t code, RiTokenType type, RiTokenClass tokenClass,
               int32_t size) {
  if (Token* existing = find(name)) return existing;
  if (type != TypeNone && tokenClass == ClassNone) tokenClass = ClassUniform;
  // Integers, strings and references have one value per primitive whatever classic class
  // was declared.
  if ((type == TypeInteger || type == TypeString || type == TypeReference) &&
      tokenClass <= ClassVertex) {
    tokenClass = ClassUniform;
  }
  Token record(nameText(name), code, type, tokenClass, size);
  gTokens->add(record);
  return gTokens->find(record);
}

int32_t floatsPerItem(RiTokenType type) {
  switch (type) {
    case TypePoint:
    case TypeColor:
    case TypeVector:
    case TypeNormal:
      return 3;
    case TypeHPoint:
      return 4;
    case TypeMatrix:
      return 16;
    default:
      return 1;
  }
}

uint16_t nameCode(const char* name) {
  if (const Token* record = find(name)) return record->code;
  return static_cast<uint16_t>(_zelQuark(nameText(name)));
}

RtToken RiDeclare(char* name, char* declaration) {
  // The library hears of every name, also one already declared or badly declared.
  uint16_t code = static_cast<uint16_t>(_zelQuark(nameText(name)));
  // A new name that the library has no code left for is not declared, so
  // that the dictionary, and the time of each lookup, stay bounded.
  if (code == 0 && !find(name)) return nullptr;
  return reinterpret_cast<RtToken>(declare(name, code, declaration, 0));
}
