// The predeclared tokens. Their codes are fixed: the scene library knows the
// tokens by them.
#include "interface/token_internal.h"

// Zero until the dictionary is set up; no dynamic initialiser of their own, so
// nothing can reset them after TokenDictionaryInit has set them.
RtToken RI_FRAMEBUFFER, RI_FILE;
RtToken RI_RGB, RI_RGBA, RI_RGBZ, RI_RGBAZ, RI_A, RI_Z, RI_AZ;
RtToken RI_ORIGIN, RI_PERSPECTIVE, RI_ORTHOGRAPHIC;
RtToken RI_HIDDEN, RI_JITTER, RI_PAINT;
RtToken RI_CONSTANT, RI_SMOOTH, RI_FLATNESS, RI_FOV;
RtToken RI_AMBIENTLIGHT, RI_POINTLIGHT, RI_DISTANTLIGHT, RI_SPOTLIGHT;
RtToken RI_INTENSITY, RI_LIGHTCOLOR, RI_FROM, RI_TO;
RtToken RI_CONEANGLE, RI_CONEDELTAANGLE, RI_BEAMDISTRIBUTION;
RtToken RI_MATTE, RI_METAL, RI_SHINYMETAL, RI_PLASTIC, RI_PAINTEDPLASTIC;
RtToken RI_KA, RI_KD, RI_KS, RI_ROUGHNESS, RI_KR, RI_TEXTURENAME, RI_SPECULARCOLOR;
RtToken RI_DEPTHCUE, RI_FOG, RI_BUMPY;
RtToken RI_MINDISTANCE, RI_MAXDISTANCE, RI_BACKGROUND, RI_DISTANCE, RI_AMPLITUDE;
RtToken RI_RASTER, RI_SCREEN, RI_CAMERA, RI_WORLD, RI_OBJECT;
RtToken RI_INSIDE, RI_OUTSIDE, RI_LH, RI_RH;
RtToken RI_P, RI_PZ, RI_PW, RI_N, RI_NP, RI_CS, RI_OS, RI_S, RI_T, RI_ST;
RtToken RI_COMMENT, RI_STRUCTURE, RI_IDENTIFIER, RI_NAME, RI_SHADINGGROUP;
RtToken RI_BILINEAR, RI_BICUBIC;
RtToken RI_PRIMITIVE, RI_INTERSECTION, RI_UNION, RI_DIFFERENCE;
RtToken RI_PERIODIC, RI_NONPERIODIC, RI_CLAMP, RI_BLACK;
RtToken RI_IGNORE, RI_PRINT, RI_ABORT, RI_HANDLER;
RtToken RI_LIMITS, RI_GRIDSIZE, RI_BUCKETSIZE;

namespace {

struct Predeclared {
  RtToken* variable;
  const char* name;
  uint16_t code;
  RiTokenType type;
  RiTokenClass tokenClass;
  int32_t size;
};

// Codes 0x0006, 0x000A and 0x000B are shared on purpose: the library and the
// layer treat those names alike.
const Predeclared kPredeclared[] = {
    {&RI_FRAMEBUFFER, "framebuffer", 0xFF01, TypeNone, ClassNone, 1},
    {&RI_FILE, "file", 0xFF02, TypeNone, ClassNone, 1},
    {&RI_RGB, "rgb", 0x0301, TypeNone, ClassNone, 1},
    {&RI_RGBA, "rgba", 0x0303, TypeNone, ClassNone, 1},
    {&RI_RGBZ, "rgbz", 0x0305, TypeNone, ClassNone, 1},
    {&RI_RGBAZ, "rgbaz", 0x0307, TypeNone, ClassNone, 1},
    {&RI_A, "a", 0x0302, TypeNone, ClassNone, 1},
    {&RI_Z, "z", 0x0304, TypeNone, ClassNone, 1},
    {&RI_AZ, "az", 0x0306, TypeNone, ClassNone, 1},
    {&RI_ORIGIN, "origin", 0xFF15, TypeInteger, ClassUniform, 2},
    {&RI_PERSPECTIVE, "perspective", 0xFF03, TypeNone, ClassNone, 1},
    {&RI_ORTHOGRAPHIC, "orthographic", 0xFF04, TypeNone, ClassNone, 1},
    {&RI_HIDDEN, "hidden", 0x0400, TypeNone, ClassNone, 1},
    {&RI_JITTER, "jitter", 0xFF05, TypeInteger, ClassUniform, 1},
    {&RI_PAINT, "paint", 0x0401, TypeNone, ClassNone, 1},
    {&RI_CONSTANT, "constant", 0x0008, TypeNone, ClassNone, 1},
    {&RI_SMOOTH, "smooth", 0x0501, TypeNone, ClassNone, 1},
    {&RI_FLATNESS, "flatness", 0xFF06, TypeNone, ClassNone, 1},
    {&RI_FOV, "fov", 0xFF07, TypeFloat, ClassUniform, 1},
    {&RI_AMBIENTLIGHT, "ambientlight", 0x0011, TypeNone, ClassNone, 1},
    {&RI_POINTLIGHT, "pointlight", 0x0012, TypeNone, ClassNone, 1},
    {&RI_DISTANTLIGHT, "distantlight", 0x0013, TypeNone, ClassNone, 1},
    {&RI_SPOTLIGHT, "spotlight", 0x0014, TypeNone, ClassNone, 1},
    {&RI_INTENSITY, "intensity", 0x0015, TypeFloat, ClassUniform, 1},
    {&RI_LIGHTCOLOR, "lightcolor", 0x0006, TypeColor, ClassUniform, 1},
    {&RI_FROM, "from", 0x0016, TypePoint, ClassUniform, 1},
    {&RI_TO, "to", 0x0017, TypePoint, ClassUniform, 1},
    {&RI_CONEANGLE, "coneangle", 0x0018, TypeFloat, ClassUniform, 1},
    {&RI_CONEDELTAANGLE, "conedeltaangle", 0x0019, TypeFloat, ClassUniform, 1},
    {&RI_BEAMDISTRIBUTION, "beamdistribution", 0x001A, TypeFloat, ClassUniform, 1},
    {&RI_MATTE, "matte", 0x0009, TypeNone, ClassNone, 1},
    {&RI_METAL, "metal", 0x000A, TypeNone, ClassNone, 1},
    {&RI_SHINYMETAL, "shinymetal", 0x000A, TypeNone, ClassNone, 1},
    {&RI_PLASTIC, "plastic", 0x000B, TypeNone, ClassNone, 1},
    {&RI_PAINTEDPLASTIC, "paintedplastic", 0x000B, TypeNone, ClassNone, 1},
    {&RI_KA, "Ka", 0x000C, TypeFloat, ClassUniform, 1},
    {&RI_KD, "Kd", 0x000D, TypeFloat, ClassUniform, 1},
    {&RI_KS, "Ks", 0x000E, TypeFloat, ClassUniform, 1},
    {&RI_ROUGHNESS, "roughness", 0x000F, TypeFloat, ClassUniform, 1},
    {&RI_KR, "Kr", 0xFF08, TypeFloat, ClassUniform, 1},
    {&RI_TEXTURENAME, "texturename", 0xFF09, TypeString, ClassUniform, 1},
    {&RI_SPECULARCOLOR, "specularcolor", 0x0010, TypeColor, ClassUniform, 1},
    {&RI_DEPTHCUE, "depthcue", 0x001B, TypeNone, ClassNone, 1},
    {&RI_FOG, "fog", 0x001C, TypeNone, ClassNone, 1},
    {&RI_BUMPY, "bumpy", 0xFF0C, TypeNone, ClassNone, 1},
    {&RI_MINDISTANCE, "mindistance", 0x001D, TypeFloat, ClassUniform, 1},
    {&RI_MAXDISTANCE, "maxdistance", 0x001E, TypeFloat, ClassUniform, 1},
    {&RI_BACKGROUND, "background", 0x0006, TypeColor, ClassUniform, 1},
    {&RI_DISTANCE, "distance", 0x001F, TypeFloat, ClassUniform, 1},
    {&RI_AMPLITUDE, "amplitude", 0xFF0D, TypeFloat, ClassUniform, 1},
    {&RI_RASTER, "raster", 0x0020, TypeNone, ClassNone, 1},
    {&RI_SCREEN, "screen", 0x0021, TypeNone, ClassNone, 1},
    {&RI_CAMERA, "camera", 0x0022, TypeNone, ClassNone, 1},
    {&RI_WORLD, "world", 0x0023, TypeNone, ClassNone, 1},
    {&RI_OBJECT, "object", 0x0024, TypeNone, ClassNone, 1},
    {&RI_INSIDE, "inside", 0x0602, TypeNone, ClassNone, 1},
    {&RI_OUTSIDE, "outside", 0x0603, TypeNone, ClassNone, 1},
    {&RI_LH, "lh", 0x0600, TypeNone, ClassNone, 1},
    {&RI_RH, "rh", 0x0601, TypeNone, ClassNone, 1},
    {&RI_P, "P", 0x0001, TypePoint, ClassVertex, 1},
    {&RI_PZ, "Pz", 0x0003, TypeFloat, ClassVertex, 1},
    {&RI_PW, "Pw", 0x0002, TypeFloat, ClassVertex, 4},
    {&RI_N, "N", 0x0004, TypePoint, ClassVarying, 1},
    {&RI_NP, "Np", 0x0005, TypePoint, ClassUniform, 1},
    {&RI_CS, "Cs", 0x0006, TypeColor, ClassVarying, 1},
    {&RI_OS, "Os", 0x0007, TypeColor, ClassVarying, 1},
    {&RI_S, "s", 0xFF16, TypeFloat, ClassVarying, 1},
    {&RI_T, "t", 0xFF17, TypeFloat, ClassVarying, 1},
    {&RI_ST, "st", 0xFF18, TypeFloat, ClassVarying, 2},
    {&RI_COMMENT, "comment", 0xFF19, TypeNone, ClassNone, 1},
    {&RI_STRUCTURE, "structure", 0xFF1A, TypeNone, ClassNone, 1},
    {&RI_IDENTIFIER, "identifier", 0xFF1B, TypeNone, ClassNone, 1},
    {&RI_NAME, "name", 0xFF1C, TypeString, ClassUniform, 1},
    {&RI_SHADINGGROUP, "shadinggroup", 0xFF1D, TypeString, ClassUniform, 1},
    {&RI_BILINEAR, "bilinear", 0x0700, TypeNone, ClassNone, 1},
    {&RI_BICUBIC, "bicubic", 0x0701, TypeNone, ClassNone, 1},
    {&RI_PRIMITIVE, "primitive", 0xFF0E, TypeNone, ClassNone, 1},
    {&RI_INTERSECTION, "intersection", 0xFF0F, TypeNone, ClassNone, 1},
    {&RI_UNION, "union", 0xFF10, TypeNone, ClassNone, 1},
    {&RI_DIFFERENCE, "difference", 0xFF11, TypeNone, ClassNone, 1},
    {&RI_PERIODIC, "periodic", 0x0A00, TypeNone, ClassNone, 1},
    {&RI_NONPERIODIC, "nonperiodic", 0x0A01, TypeNone, ClassNone, 1},
    {&RI_CLAMP, "clamp", 0xFF12, TypeNone, ClassNone, 1},
    {&RI_BLACK, "black", 0xFF13, TypeColor, ClassUniform, 1},
    {&RI_IGNORE, "ignore", 0x0C00, TypeNone, ClassNone, 1},
    {&RI_PRINT, "print", 0x0C01, TypeNone, ClassNone, 1},
    {&RI_ABORT, "abort", 0x0C02, TypeNone, ClassNone, 1},
    {&RI_HANDLER, "handler", 0xFF14, TypeNone, ClassNone, 1},
    {&RI_LIMITS, "limits", 0xFF1E, TypeNone, ClassNone, 1},
    {&RI_GRIDSIZE, "gridsize", 0xFF1F, TypeInteger, ClassUniform, 1},
    {&RI_BUCKETSIZE, "bucketsize", 0xFF20, TypeInteger, ClassUniform, 2},
};

}  // namespace

void declarePredeclaredTokens() {
  for (const Predeclared& p : kPredeclared) {
    Token* record = declare(p.name, p.code, p.type, p.tokenClass, p.size);
    *p.variable = reinterpret_cast<RtToken>(record);
  }
}
