// Attributes of the graphics state, RiAttributeBegin to RiSides and
// RiAttribute. The light and shader calls are in ri_shaders.cpp.
#include "interface/error.h"
#include "interface/ri_internal.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

namespace {

constexpr uint16_t kConstant = 0x0008;
constexpr uint16_t kSmooth = 0x0501;
constexpr uint16_t kConstantModel = 0x0500;
constexpr uint16_t kFlatness = 0xFF06;
constexpr uint16_t kFirstOrientation = 0x0600;  // "lh"; "rh", "inside", "outside" follow
constexpr uint16_t kLastOrientation = 0x0603;
constexpr uint16_t kReverse = 0x0604;
constexpr uint16_t kIdentifier = 0xFF1B;
constexpr uint16_t kName = 0xFF1C;
constexpr uint16_t kShadingGroup = 0xFF1D;

// The string at the head of a string value, with the text "null" read as no
// name, as a String converts it.
void sendName(void (*send)(const char*), RtPointer value) {
  if (!value) return;
  String name(*static_cast<char**>(value));
  send(name);
}

void attribute(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  Token* record = name ? find(name) : nullptr;
  if (!record || record->code != kIdentifier) return;
  for (RtInt i = 0; i < n; ++i) {
    Token* parameter = tokens[i] ? find(tokens[i]) : nullptr;
    if (!parameter) continue;
    if (parameter->code == kName) {
      sendName(_zelObjectName, values[i]);
    } else if (parameter->code == kShadingGroup) {
      sendName(_zelGroupName, values[i]);
    }
  }
}

}  // namespace

RtVoid RiAttributeBegin() {
  _zelAttributePush();
}

RtVoid RiAttributeEnd() {
  _zelAttributePop();
}

RtVoid RiColor(RtColor color) {
  if (motionGate()) _zelColor(color);
}

RtVoid RiOpacity(RtColor color) {
  if (motionGate()) _zelOpacity(color);
}

RtVoid RiTextureCoordinates(RtFloat, RtFloat, RtFloat, RtFloat, RtFloat, RtFloat, RtFloat,
                            RtFloat) {}

RtVoid RiShadingRate(RtFloat size) {
  _zelShadingRate(size);
}

RtVoid RiShadingInterpolation(RtToken type) {
  Token* record = confirm(type);
  if (!record) return;
  NamedCall named("RiShadingInterpolation");
  // "constant" shares its code with the shader of that name, so the model
  // sent differs from it; the code of "smooth" is the model itself.
  if (record->code == kConstant) {
    _zelShadingModel(kConstantModel);
  } else if (record->code == kSmooth) {
    _zelShadingModel(kSmooth);
  } else {
    error(RIE_RANGE, RIE_ERROR, "unknown shading interpolation \"%s\"", record->name.c_str());
  }
}

RtVoid RiMatte(RtBoolean onoff) {
  _zelMatteObject(onoff);
}

RtVoid RiBound(RtBound bound) {
  if (motionGate()) _zelBound(bound);
}

RtVoid RiDetail(RtBound bound) {
  if (!motionGate()) return;
  NamedCall named("RiDetail");
  _zelBound(bound);
}

RtVoid RiDetailRange(RtFloat, RtFloat, RtFloat, RtFloat) {}

RtVoid RiGeometricApproximation(RtToken type, RtFloat value) {
  Token* record = find(type);
  if (!record) return;
  NamedCall named("RiGeometricApproximation");
  if (record->code == kFlatness) _zelFlatness(value);
}

RtVoid RiOrientation(RtToken orientation) {
  Token* record = confirm(orientation);
  if (!record) return;
  NamedCall named("RiOrientation");
  if (record->code >= kFirstOrientation && record->code <= kLastOrientation) {
    _zelOrientation(record->code);
  } else {
    error(RIE_RANGE, RIE_ERROR, "unknown orientation \"%s\"", record->name.c_str());
  }
}

RtVoid RiReverseOrientation() {
  _zelOrientation(kReverse);
}

RtVoid RiSides(RtInt sides) {
  _zelBackface(sides == 1 ? 1 : 0);
}

RtVoid RiAttribute(RtToken name, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiAttribute", name, attribute, name);
}

RtVoid RiAttributeV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiAttributeV");
  attribute(name, n, tokens, values);
}
