// Attribute, shader and light requests, with the table that turns the numbers
// a stream gives its lights and objects into the handles the Ri calls return.
#include <cinttypes>

#include "interface/ri.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/rendrib.h"
#include "rib/tokenvalue.h"

const rendrib::HandleWords rendrib::kLightWords = {
    "Light handle %ld is not in range 0 - 65535",
    "Light handle %ld is signficantly larger than previous %u",
    "Unknown light handle %ld",
};

const rendrib::HandleWords rendrib::kObjectWords = {
    "Object handle %ld is not in range 0 - 65535",
    "Object handle %ld is signficantly larger than previous %u",
    "Unknown object handle %ld",
};

// Neither message stops the request: a number out of range is filed under
// its low 16 bits, and a leap ahead is only worth a warning. `last` keeps the
// highest number seen.
void rendrib::registerNumber(int32_t number, uint16_t& last, const HandleWords& words) {
  const long v = number;
  if (v < 0 || v > 65535) lex.RIBError(kRibBadHandle, kRibError, words.outOfRange, v);
  if (v > static_cast<long>(last)) {
    if (v - last > 1000)
      lex.RIBError(kRibBadHandle, kRibWarning, words.leap, v, static_cast<unsigned>(last));
    last = static_cast<uint16_t>(number);
  }
}

// The entry for a number (by its low 16 bits, newest entry first), or null
// after a warning and a skip to the next request.
parserib::handle_assoc* rendrib::lookupNumber(Hash<handle_assoc>& table, int32_t number,
                                              const HandleWords& words) {
  handle_assoc probe;
  probe.sequence = static_cast<uint16_t>(number);
  handle_assoc* entry = table.find(probe);
  if (entry == nullptr) {
    lex.RIBError(kRibBadHandle, kRibWarning, words.unknown, static_cast<long>(number));
    panic();
  }
  return entry;
}

// LightSource and AreaLightSource: the number is registered before the list is
// read, so a bad list leaves `lastlight` changed but files no light.
void rendrib::lightSource(LightCall call) {
  String name;
  if (matchToken(&name)) lightAfterName(name, call);
}

void rendrib::lightAfterName(const String& name, LightCall call) {
  int32_t number;
  tokenvalue params;
  if (!match(number)) return;
  registerNumber(number, lastlight, kLightWords);
  if (!match(params, 0)) return;
  handle_assoc entry;
  entry.sequence = static_cast<uint16_t>(number);
  entry.handle = call(ritext(name), listCount(params), params.tokens.data, params.values.data);
  fileHandle(lights, entry);
}

void rendrib::AttributeBegin() {
  RiAttributeBegin();
}

void rendrib::AttributeEnd() {
  RiAttributeEnd();
}

void rendrib::Color() {
  RtColor color;
  if (!matchColor(color)) return;
  RiColor(color);
}

void rendrib::Opacity() {
  RtColor color;
  if (!matchColor(color)) return;
  RiOpacity(color);
}

void rendrib::TextureCoordinates() {
  Array<float> a;
  if (!match(a, 8, 0)) return;
  const float* s = a.data;
  RiTextureCoordinates(s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7]);
}

void rendrib::LightSource() {
  lightSource(RiLightSourceV);
}

void rendrib::AreaLightSource() {
  lightSource(RiAreaLightSourceV);
}

// The Boolean is read only once the light is known, so for an unknown number
// it is skipped unexamined and the request draws one message.
void rendrib::Illuminate() {
  int32_t number;
  int16_t onoff;
  if (!match(number)) return;
  const handle_assoc* light = lookupNumber(lights, number, kLightWords);
  if (light == nullptr || !match(onoff)) return;
  RiIlluminate(light->handle, onoff);
}

void rendrib::Surface() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiSurfaceV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Atmosphere() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiAtmosphereV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Interior() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiInteriorV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Exterior() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiExteriorV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::ShadingRate() {
  float size;
  if (!match(size)) return;
  RiShadingRate(size);
}

void rendrib::ShadingInterpolation() {
  String type;
  if (!matchToken(&type)) return;
  RiShadingInterpolation(ritext(type));
}

void rendrib::Matte() {
  int16_t onoff;
  if (!match(onoff)) return;
  RiMatte(onoff);
}

void rendrib::Bound() {
  Array<float> a;
  if (!match(a, 6, 0)) return;
  RiBound(a.data);
}

void rendrib::Detail() {
  Array<float> a;
  if (!match(a, 6, 0)) return;
  RiDetail(a.data);
}

void rendrib::DetailRange() {
  Array<float> a;
  if (!match(a, 4, 0)) return;
  RiDetailRange(a.data[0], a.data[1], a.data[2], a.data[3]);
}

void rendrib::GeometricApproximation() {
  String type;
  float value;
  if (!matchToken(&type) || !match(value)) return;
  RiGeometricApproximation(ritext(type), value);
}

void rendrib::Orientation() {
  String orientation;
  if (!matchToken(&orientation)) return;
  RiOrientation(ritext(orientation));
}

void rendrib::ReverseOrientation() {
  RiReverseOrientation();
}

void rendrib::Sides() {
  int32_t sides;
  if (!match(sides)) return;
  RiSides(sides);
}

// As Option: values in brackets, unknown parameters passed over, and an
// attribute the dictionary does not know dropped whole, all silently.
void rendrib::Attribute() {
  String name;
  tokenvalue params;
  if (!matchDeclaredName(&name) || !match(params, 1)) return;
  RiAttributeV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}
