// The token dictionary: one record per name the Ri layer can be given, saying
// how the reader must read the token's value and which 16-bit code the layer
// and the scene library know it by.
//
// An RtToken is a char* to either plain text or a Token record; a record's
// first byte is 0xFF, which no text may begin with. Pass either form to find.
//
// A null name pointer only ever reaches the dictionary from the text "null"
// (the String conversion turns that text into a null pointer), so the
// dictionary reads a null name as the name "null" everywhere, and a null
// declaration text is reported as "null".
#pragma once

#include <cstdint>

#include "foundation/Hash.h"
#include "foundation/String.h"
#include "interface/ritypes.h"

// The kind of value a token takes.
enum RiTokenType : int32_t {
  TypeNone = 0,  // a keyword that takes no value
  TypeFloat = 1,
  TypeInteger = 2,
  TypeString = 3,
  TypePoint = 4,
  TypeColor = 5,
  // Of later versions of the interface: three floats per item for vector and
  // normal, four for hpoint, sixteen for matrix.
  TypeVector = 6,
  TypeNormal = 7,
  TypeHPoint = 8,
  TypeMatrix = 9,
  // A connection between shading nodes ("reference color baseColor"): each
  // item is the text naming another node's output ("tex:resultRGB"), held as
  // a string is. The type of the output it names is not kept.
  TypeReference = 10,
};

// How many values a parameter holds.
enum RiTokenClass : int32_t {
  ClassNone = 0,
  ClassUniform = 1,
  ClassVarying = 2,
  ClassVertex = 3,
  // Of later versions: one value per primitive, and one per vertex of each
  // face (the varying count for primitives without faces).
  ClassConstant = 4,
  ClassFaceVarying = 5,
  ClassFaceVertex = 6,
};

// Floats per item of a value of the type: 3 for point, vector, normal and
// colour, 4 for hpoint, 16 for matrix, 1 for the rest.
int32_t floatsPerItem(RiTokenType type);

// A record of the dictionary. `marker` must stay the first member, with
// nothing before it, so that a char* to the record reads 0xFF.
struct Token {
  static constexpr unsigned char kMarker = 0xFF;

  unsigned char marker;
  uint16_t code;
  String name;
  RiTokenClass tokenClass;
  RiTokenType type;
  int32_t size;  // items of `type` per counted element: 4 for "Pw", 2 for "st"

  Token(const char* name, uint16_t code, RiTokenType type, RiTokenClass tokenClass, int32_t size);
  Token(const Token& other);
  Token& operator=(const Token&) = delete;
  ~Token() = default;

  // The dictionary is keyed on the name alone.
  uint32_t hash() const { return name.hash(); }
  friend bool operator==(const Token& a, const Token& b) { return a.name == b.name; }
};

// Typed form: the record for `name`, declared now if there is none. The first
// declaration of a name stands; a later one changes nothing. Never 0.
Token* declare(const char* name, uint16_t code, RiTokenType type, RiTokenClass tokenClass,
               int32_t size);
// Text form: parses `declaration` ("[uniform|varying] float|integer|string|point|color";
// with `full` also "vertex" and a "[n]" size) and calls the typed form. Returns 0
// after reporting code 47 for a bad declaration.
Token* declare(const char* name, uint16_t code, const char* declaration, int16_t full);

// The code of a name: its record's when declared, else the scene library's
// code for the text; 0 when the library has none left. For a record made for one use of a name (an
// inline declaration).
uint16_t nameCode(const char* name);

// The record for a name or record pointer, or 0. Silent.
Token* find(const char* token);
// As find, but reports code 41 when there is no record.
Token* confirm(const char* token);
// The token as text: a record's name (null for the name "null"), or the text itself.
const char* tostring(const char* token);

// The published call: declares `name` with a code from the scene library.
// Returns the record as an RtToken, or 0 for a bad declaration.
RtToken RiDeclare(char* name, char* declaration);

// Read-only view of the dictionary, for inspection by tests.
const Hash<Token>& tokenDictionary();

// Sets up the dictionary and the RI_* variables before any static initialiser
// of a file that includes this header runs, whatever the link order; the last
// one to go frees the dictionary at process exit.
class TokenDictionaryInit {
 public:
  TokenDictionaryInit();
  ~TokenDictionaryInit();
  TokenDictionaryInit(const TokenDictionaryInit&) = delete;
  TokenDictionaryInit& operator=(const TokenDictionaryInit&) = delete;
};
static TokenDictionaryInit gTokenDictionaryInit;

// The predeclared tokens, each pointing at its record.
extern RtToken RI_FRAMEBUFFER, RI_FILE;
extern RtToken RI_RGB, RI_RGBA, RI_RGBZ, RI_RGBAZ, RI_A, RI_Z, RI_AZ;
extern RtToken RI_ORIGIN, RI_PERSPECTIVE, RI_ORTHOGRAPHIC;
extern RtToken RI_HIDDEN, RI_JITTER, RI_PAINT;
extern RtToken RI_CONSTANT, RI_SMOOTH, RI_FLATNESS, RI_FOV;
extern RtToken RI_AMBIENTLIGHT, RI_POINTLIGHT, RI_DISTANTLIGHT, RI_SPOTLIGHT;
extern RtToken RI_INTENSITY, RI_LIGHTCOLOR, RI_FROM, RI_TO;
extern RtToken RI_CONEANGLE, RI_CONEDELTAANGLE, RI_BEAMDISTRIBUTION;
extern RtToken RI_MATTE, RI_METAL, RI_SHINYMETAL, RI_PLASTIC, RI_PAINTEDPLASTIC;
extern RtToken RI_KA, RI_KD, RI_KS, RI_ROUGHNESS, RI_KR, RI_TEXTURENAME, RI_SPECULARCOLOR;
extern RtToken RI_DEPTHCUE, RI_FOG, RI_BUMPY;
extern RtToken RI_MINDISTANCE, RI_MAXDISTANCE, RI_BACKGROUND, RI_DISTANCE, RI_AMPLITUDE;
extern RtToken RI_RASTER, RI_SCREEN, RI_CAMERA, RI_WORLD, RI_OBJECT;
extern RtToken RI_INSIDE, RI_OUTSIDE, RI_LH, RI_RH;
extern RtToken RI_P, RI_PZ, RI_PW, RI_N, RI_NP, RI_CS, RI_OS, RI_S, RI_T, RI_ST;
extern RtToken RI_COMMENT, RI_STRUCTURE, RI_IDENTIFIER, RI_NAME, RI_SHADINGGROUP;
extern RtToken RI_BILINEAR, RI_BICUBIC;
extern RtToken RI_PRIMITIVE, RI_INTERSECTION, RI_UNION, RI_DIFFERENCE;
extern RtToken RI_PERIODIC, RI_NONPERIODIC, RI_CLAMP, RI_BLACK;
extern RtToken RI_IGNORE, RI_PRINT, RI_ABORT, RI_HANDLER;
extern RtToken RI_LIMITS, RI_GRIDSIZE, RI_BUCKETSIZE;
