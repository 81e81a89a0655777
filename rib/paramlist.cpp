// Parameter lists: name and value pairs typed by the token dictionary, and the
// check of a finished list against a primitive's counts.
#include <cinttypes>
#include <cstdarg>
#include <string>
#include <vector>

#include "rib/parserib.h"
#include "rib/tokenvalue.h"

namespace {

// The record for a parameter name read from the stream, or null when the name
// is to be treated as undeclared. The text "null" converts to a null pointer,
// and text beginning with 0xFF would be taken by find for a record address;
// neither can name a parameter.
Token* declaredToken(const String& name) {
  const char* text = name;
  if (text == nullptr || static_cast<unsigned char>(text[0]) == Token::kMarker) return nullptr;
  return find(text);
}

char* asRtToken(Token* t) {
  return reinterpret_cast<char*>(t);
}

int64_t expectedItems(const Token& t, int32_t uniform, int32_t varying, int32_t vertex,
                      int64_t faceVertices) {
  switch (t.tokenClass) {
    case ClassFaceVarying:
    case ClassFaceVertex:
      return int64_t{t.size} * (faceVertices >= 0 ? faceVertices : varying);
    case ClassUniform:
      return int64_t{t.size} * uniform;
    case ClassVarying:
      return int64_t{t.size} * varying;
    case ClassVertex:
      return int64_t{t.size} * vertex;
    default:
      return t.size;
  }
}

// 'P' for one name, 'P', or 'Pw' for two, 'P', 'Pz', or 'Pw' for three.
std::string alternatives(const Array<char*>& required) {
  std::string text;
  for (uint32_t i = 0; i < required.count; ++i) {
    if (i > 0) text += ", ";
    if (i > 0 && i + 1 == required.count) text += "or ";
    text += '\'';
    text += reinterpret_cast<const Token*>(required.data[i])->name.c_str();
    text += '\'';
  }
  return text;
}

}  // namespace

int16_t parserib::match(tokenvalue& tv, int16_t bracketed) {
  tv.whole = options.extended;
  String name;
  while (token == LEXSTRING) {
    match(&name);
    Token* t = options.extended ? extendedToken(name, tv) : declaredToken(name);
    if (t == nullptr && options.extended) {
      if (skipAnyValue()) continue;
      return 0;
    }
    if (t == nullptr) {
      // An undeclared name drops the request silently, unless the request
      // takes only bracketed values: then the value can be stepped over.
      if (bracketed && skipvalue()) continue;
      panic();
      return 0;
    }
    if (t->type == TypeNone) {
      lex.RIBError(kRibTypeMismatch, kRibError, "token '%s' doesn't take value", t->name.c_str());
      panic();
      return 0;
    }
    if (!readValue(tv, asRtToken(t), bracketed)) return 0;
  }
  return 1;
}

// Reads the value of one declared parameter as its type says and appends it.
// The classic reader gives item counts to the list as 16 bits: a count above
// 65,535 is kept modulo 65,536, and the buffer is built from that reduced
// count. The extended reader keeps them whole.
int16_t parserib::readValue(tokenvalue& tv, char* token, int16_t bracketed) {
  const RiTokenType type = reinterpret_cast<Token*>(token)->type;
  switch (type) {
    case TypeFloat: {
      Array<float> a;
      const int32_t n = match(a, -1, bracketed);
      if (n) tv.append(token, type, kept(n), reinterpret_cast<void**>(a.data));
      return n != 0;
    }
    case TypeInteger: {
      Array<int32_t> a;
      const int32_t n = match(a, -1, bracketed);
      if (n) tv.append(token, type, kept(n), reinterpret_cast<void**>(a.data));
      return n != 0;
    }
    case TypePoint:
    case TypeVector:
    case TypeNormal: {
      Array<float[3]> a;
      const int32_t n = match(a, -1, bracketed);
      if (n) tv.append(token, type, kept(n), reinterpret_cast<void**>(a.data));
      return n != 0;
    }
    case TypeHPoint:
    case TypeMatrix:
      return readWide(tv, token, bracketed);
    case TypeString:
    case TypeReference: {
      if (options.extended && this->token == '[') return readStrings(tv, token);
      String value;
      if (!match(&value)) return 0;
      // The value keeps its text as written: "null" is a string value here,
      // not a missing name, and the scene library gets text it can read.
      char* text = const_cast<char*>(value.c_str());
      tv.append(token, type, 1, reinterpret_cast<void**>(&text));
      return 1;
    }
    case TypeColor:
      return readColor(tv, token, bracketed);
    default:
      return 0;
  }
}

// A colour value is read as colorsamples numbers per colour and stored as
// three floats per colour, as every colour past the reader is an RtColor: the
// first min(colorsamples, 3) samples, then zeros. A value of less than one
// whole colour fails without a report; the remainder of a count that is no
// multiple of colorsamples is dropped.
int16_t parserib::readColor(tokenvalue& tv, char* token, int16_t bracketed) {
  if (colorsamples <= 0) {
    // ColorSamples with fewer than three values leaves no samples per colour.
    lex.RIBError(kRibBadColor, kRibError,
                 "Color parameter '%s' cannot be read with %" PRId32 " color samples",
                 reinterpret_cast<Token*>(token)->name.c_str(), colorsamples);
    panic();
    return 0;
  }
  Array<float> a;
  const int32_t read = match(a, -colorsamples, bracketed);
  const int32_t colours = read / colorsamples;
  if (colours == 0) return 0;
  const uint32_t n = kept(colours);
  if (colorsamples == 3) {
    tv.append(token, TypeColor, n, reinterpret_cast<void**>(a.data));
    return 1;
  }
  const uint32_t samples = colorsamples < 3 ? static_cast<uint32_t>(colorsamples) : 3;
  std::vector<float> rgb(3 * size_t{n}, 0.0f);
  for (size_t i = 0; i < n; ++i) {
    for (uint32_t j = 0; j < samples; ++j) rgb[3 * i + j] = a.data[i * colorsamples + j];
  }
  tv.append(token, TypeColor, n, reinterpret_cast<void**>(rgb.data()));
  return 1;
}

int16_t parserib::skipvalue() {
  if (!match('[')) return 0;
  // A nested bracket does not count: the first ']' ends the value.
  while (token != LEXEOF && token != ']') token = lex.next();
  return match(']');
}

// The names are char* (RtTokens or text) and the list ends with a null pointer
// of pointer width, such as RI_NULL.
int32_t parserib::indexOf(const tokenvalue& tv, const char* name) const {
  const int32_t at = tv.tokens.find(const_cast<char*>(name));
  if (at >= 0 || !options.extended) return at;
  const Token* wanted = find(name);
  for (uint32_t i = 0; wanted && i < tv.tokens.count; ++i) {
    const Token* t = find(tv.tokens.data[i]);
    if (t && t->code == wanted->code) return static_cast<int32_t>(i);
  }
  return -1;
}

int16_t parserib::verify(const tokenvalue& tv, int32_t uniform, int32_t varying, int32_t vertex,
                         ...) {
  Array<char*> required;
  va_list names;
  va_start(names, vertex);
  while (const char* name = va_arg(names, const char*)) {
    if (Token* t = find(name)) required.append(asRtToken(t));
  }
  va_end(names);

  if (required.count > 0) {
    int present = 0;
    for (uint32_t i = 0; i < required.count; ++i) present += indexOf(tv, required.data[i]) >= 0;
    if (present != 1) {
      const std::string text = alternatives(required);
      lex.RIBError(kRibBadValue, kRibError,
                   present == 0 ? "%s argument is required" : "More than one of %s was specified",
                   text.c_str());
      return 0;
    }
  }

  const uint32_t count = tv.tokens.count < tv.sizes.count ? tv.tokens.count : tv.sizes.count;
  for (uint32_t i = 0; i < count; ++i) {
    const Token* t = find(tv.tokens.data[i]);
    if (t == nullptr) continue;
    const int64_t expected = expectedItems(*t, uniform, varying, vertex, faceVertices);
    if (expected != tv.sizes.data[i]) {
      lex.RIBError(t->type == TypeColor ? kRibBadColor : kRibBadArray, kRibError,
                   "%" PRId64 " items expected for parameter '%s'", expected, t->name.c_str());
      return 0;
    }
  }
  return 1;
}
