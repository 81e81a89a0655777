// Lights and shaders.
#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

namespace {

constexpr uint16_t kConeAngle = 0x0018;
constexpr uint16_t kConeDeltaAngle = 0x0019;

// The scene library takes cone angles in degrees; the interface gives
// radians. The divisor is pi rounded to a 32-bit float, 3.14159274.
void anglesToDegrees(RtInt n, RtToken tokens[], RtPointer values[]) {
  constexpr double kPi = static_cast<double>(3.14159265358979323846f);
  for (RtInt i = 0; i < n; ++i) {
    Token* record = tokens[i] ? find(tokens[i]) : nullptr;
    if (!record || !values[i]) continue;
    if (record->code == kConeAngle || record->code == kConeDeltaAngle) {
      float* angle = static_cast<float*>(values[i]);
      *angle = static_cast<float>(180.0 * *angle / kPi);
    }
  }
}

RtLightHandle lightsource(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  // The one place where the layer changes a value: in the caller's array.
  anglesToDegrees(n, tokens, values);
  uint16_t shader = tokenCode(name);
  sendParameterInfo(n, tokens, codes.get(), nullptr);
  return _zelLightSourceV(shader, n, codes.get(), values);
}

void surface(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  uint16_t shader = tokenCode(name);
  sendParameterInfo(n, tokens, codes.get(), nullptr);
  _zelSurfaceV(shader, n, codes.get(), values);
}

void atmosphere(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  uint16_t shader = tokenCode(name);
  sendParameterInfo(n, tokens, codes.get(), nullptr);
  _zelAtmosphereV(shader, n, codes.get(), values);
}

}  // namespace

RtLightHandle RiLightSource(RtToken name, ...) {
  RI_PLAIN_FORM(kGated, nullptr, "RiLightSource", name, lightsource, name);
}

RtLightHandle RiLightSourceV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return nullptr;
  NamedCall named("RiLightSourceV");
  return lightsource(name, n, tokens, values);
}

// Area lights have no counterpart in the scene; the handle is always 0.
RtLightHandle RiAreaLightSource(RtToken, ...) {
  motionGate();
  return nullptr;
}

RtLightHandle RiAreaLightSourceV(RtToken, RtInt, RtToken[], RtPointer[]) {
  motionGate();
  return nullptr;
}

RtVoid RiIlluminate(RtLightHandle light, RtBoolean onoff) {
  _zelLightSwitch(light, onoff);
}

RtVoid RiSurface(RtToken name, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiSurface", name, surface, name);
}

RtVoid RiSurfaceV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiSurfaceV");
  surface(name, n, tokens, values);
}

RtVoid RiAtmosphere(RtToken name, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiAtmosphere", name, atmosphere, name);
}

RtVoid RiAtmosphereV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiAtmosphereV");
  atmosphere(name, n, tokens, values);
}

// Interior and exterior volumes have no counterpart in the scene.
RtVoid RiInterior(RtToken, ...) {
  motionGate();
}

RtVoid RiInteriorV(RtToken, RtInt, RtToken[], RtPointer[]) {
  motionGate();
}

RtVoid RiExterior(RtToken, ...) {
  motionGate();
}

RtVoid RiExteriorV(RtToken, RtInt, RtToken[], RtPointer[]) {
  motionGate();
}
