// The extended reader's parameter lists: inline declarations, values of the
// types of later versions, and an undeclared name reported and passed over
// rather than ending the request.
#include <cinttypes>
#include <cstring>
#include <memory>
#include <vector>

#include "rib/inlinedeclaration.h"
#include "rib/parserib.h"
#include "rib/tokenvalue.h"

namespace {

// Geometry of later versions: the names those versions declare for every
// stream, read as if declared inline. A declaration of the stream's own comes
// first, as the dictionary is searched before this.
const char* const kLaterNames[][2] = {
    {"width", "varying float width"},
    {"constantwidth", "constant float constantwidth"},
};

const char* laterDeclaration(const char* text) {
  for (const auto& later : kLaterNames) {
    if (std::strcmp(text, later[0]) == 0 && find(text) == nullptr) return later[1];
  }
  return text;
}

}  // namespace

// A name with a declaration of its own holds for this one list: its record
// is kept by the list and never enters the dictionary, so a later plain use
// of the name reads as it would have without it.
Token* parserib::extendedToken(const String& name, tokenvalue& tv) {
  const char* text = laterDeclaration(name.c_str());
  inlinedeclaration d;
  if (mayDeclare(text) && parseDeclaration(text, true, d)) {
    if (const uint16_t code = nameCode(d.name.c_str())) {
      auto record = std::make_unique<Token>(d.name.c_str(), code, d.type, d.tokenClass, d.size);
      return reinterpret_cast<Token*>(tv.keep(std::move(record)));
    }
  }
  Token* t = nullptr;
  if (static_cast<unsigned char>(text[0]) != Token::kMarker) t = find(text);
  if (t == nullptr)
    lex.RIBError(kRibSyntax, kRibWarning, "Undeclared parameter \"%s\" is skipped", text);
  return t;
}

// The value of a skipped parameter: a bracketed array, or one number or string.
int16_t parserib::skipAnyValue() {
  if (token == '[') return skipvalue();
  if (token == LEXSTRING || token == LEXINT || token == LEXFLOAT) token = lex.next();
  return 1;
}

// hpoint and matrix values: 4 or 16 floats an item, whole items only.
int16_t parserib::readWide(tokenvalue& tv, char* token, int16_t bracketed) {
  const Token* t = reinterpret_cast<Token*>(token);
  const int32_t per = floatsPerItem(t->type);
  Array<float> a;
  const int32_t n = match(a, -1, bracketed);
  if (n == 0) return 0;
  if (n % per != 0) {
    lex.RIBError(kRibBadArray, kRibError,
                 "%" PRId32 " floats for parameter '%s' are no whole number of %" PRId32
                 "-float items",
                 n, t->name.c_str(), per);
    panic();
    return 0;
  }
  tv.append(token, t->type, static_cast<uint32_t>(n / per), reinterpret_cast<void**>(a.data));
  return 1;
}

// A bracketed array of strings, each item one text.
int16_t parserib::readStrings(tokenvalue& tv, char* token) {
  if (!match('[')) return 0;
  std::vector<String> texts;
  while (this->token == LEXSTRING) {
    texts.emplace_back();
    match(&texts.back());
  }
  if (texts.empty()) {
    lex.RIBError(kRibBadValue, kRibError, "Expected at least one string");
    panic();
    return 0;
  }
  if (!match(']')) return 0;
  std::vector<const char*> pointers;
  for (const String& s : texts) pointers.push_back(s.c_str());
  tv.appendStrings(token, static_cast<uint32_t>(pointers.size()), pointers.data());
  return 1;
}
