// The standard bases and filters, the texture-making calls and archive
// records.
//
// The bases and filters are identities: the scene library has the real
// matrices and filters behind numbers, and the layer tells which one a caller
// means by the object's address alone. Their contents are never used.
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

RtBasis RiBezierBasis;
RtBasis RiBSplineBasis;
RtBasis RiCatmullRomBasis;
RtBasis RiHermiteBasis;
RtBasis RiPowerBasis;

RtFloat RiGaussianFilter(RtFloat, RtFloat, RtFloat, RtFloat) {
  return 0.0f;
}

RtFloat RiBoxFilter(RtFloat, RtFloat, RtFloat, RtFloat) {
  return 0.0f;
}

RtFloat RiTriangleFilter(RtFloat, RtFloat, RtFloat, RtFloat) {
  return 0.0f;
}

RtFloat RiCatmullRomFilter(RtFloat, RtFloat, RtFloat, RtFloat) {
  return 0.0f;
}

RtFloat RiSincFilter(RtFloat, RtFloat, RtFloat, RtFloat) {
  return 0.0f;
}

namespace {

constexpr uint16_t kUBasis = 0x0800;
constexpr uint16_t kVBasis = 0x0801;
constexpr uint16_t kComment = 0xFF19;

struct StandardBasis {
  const RtBasis* basis;
  uint16_t number;
};

constexpr StandardBasis kBases[] = {
    {&RiBezierBasis, 0x0900},  {&RiBSplineBasis, 0x0901}, {&RiCatmullRomBasis, 0x0902},
    {&RiHermiteBasis, 0x0903}, {&RiPowerBasis, 0x0904},
};

// A custom matrix goes by the caller's pointer, with its step; a standard
// one by number, without.
void sendBasis(uint16_t direction, RtBasis basis, RtInt step) {
  const StandardBasis* standard =
      std::find_if(std::begin(kBases), std::end(kBases),
                   [basis](const StandardBasis& entry) { return *entry.basis == basis; });
  if (standard != std::end(kBases)) {
    _zelBasis(direction, standard->number);
  } else {
    _zelCustomBasis(direction, &basis[0][0], step);
  }
}

char gArchiveBuffer[256];

}  // namespace

RtVoid RiBasis(RtBasis ubasis, RtInt ustep, RtBasis vbasis, RtInt vstep) {
  sendBasis(kUBasis, ubasis, ustep);
  sendBasis(kVBasis, vbasis, vstep);
  // The library is not given a standard basis's step, but the counts of a
  // later patch mesh depend on it.
  setBasisSteps(ustep, vstep);
}

RtVoid RiArchiveRecord(RtToken type, char* format, ...) {
  Token* record = type ? find(type) : nullptr;
  if (!record || record->code != kComment) return;
  gArchiveBuffer[0] = '\0';
  if (format) {
    // A longer text is cut to the buffer.
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(gArchiveBuffer, sizeof gArchiveBuffer, format, arguments);
    va_end(arguments);
  }
  // The finished text goes as an argument, so a percent sign in it stays a
  // plain character.
  _zelComment("%s", gArchiveBuffer);
}

// No image file is made: the texture-making calls end here.

RtVoid RiMakeTexture(char*, char*, RtToken, RtToken, RtFilterFunc, RtFloat, RtFloat, ...) {}

RtVoid RiMakeTextureV(char*, char*, RtToken, RtToken, RtFilterFunc, RtFloat, RtFloat, RtInt,
                      RtToken[], RtPointer[]) {}

RtVoid RiMakeBump(char*, char*, RtToken, RtToken, RtFilterFunc, RtFloat, RtFloat, ...) {}

RtVoid RiMakeBumpV(char*, char*, RtToken, RtToken, RtFilterFunc, RtFloat, RtFloat, RtInt, RtToken[],
                   RtPointer[]) {}

RtVoid RiMakeLatLongEnvironment(char*, char*, RtFilterFunc, RtFloat, RtFloat, ...) {}

RtVoid RiMakeLatLongEnvironmentV(char*, char*, RtFilterFunc, RtFloat, RtFloat, RtInt, RtToken[],
                                 RtPointer[]) {}

RtVoid RiMakeCubeFaceEnvironment(char*, char*, char*, char*, char*, char*, char*, RtFloat,
                                 RtFilterFunc, RtFloat, RtFloat, ...) {}

RtVoid RiMakeCubeFaceEnvironmentV(char*, char*, char*, char*, char*, char*, char*, RtFloat,
                                  RtFilterFunc, RtFloat, RtFloat, RtInt, RtToken[], RtPointer[]) {}

RtVoid RiMakeShadow(char*, char*, ...) {}

RtVoid RiMakeShadowV(char*, char*, RtInt, RtToken[], RtPointer[]) {}
