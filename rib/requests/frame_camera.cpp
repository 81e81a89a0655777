// Frame and camera requests: version to Option.
#include <cinttypes>
#include <cstring>

#include "interface/ri.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/rendrib.h"
#include "rib/tokenvalue.h"

namespace {

// The protocol version this reader understands.
constexpr double kVersion = 3.03;

struct NamedFilter {
  const char* name;
  RtFilterFunc filter;
};

const NamedFilter kFilters[] = {
    {"box", RiBoxFilter},
    {"triangle", RiTriangleFilter},
    {"catmull-rom", RiCatmullRomFilter},
    {"gaussian", RiGaussianFilter},
    {"sinc", RiSincFilter},
};

}  // namespace

RtFilterFunc rendrib::standardFilter(const String& name) {
  // Compared on the stored text, so "null" is a name like any other here and
  // finds no filter, instead of a null pointer reaching strcmp.
  for (const NamedFilter& f : kFilters) {
    if (std::strcmp(name.c_str(), f.name) == 0) return f.filter;
  }
  return nullptr;
}

RtFilterFunc rendrib::FilterFunc(const String& name) {
  if (RtFilterFunc filter = standardFilter(name)) return filter;
  lex.RIBError(kRibSyntax, kRibError, "Unknown filter function '%s'", name.c_str());
  panic();
  return nullptr;
}

void rendrib::version() {
  float v;
  if (!match(v)) return;
  if (v - kVersion > 0.001)
    lex.RIBError(kRibVersion, kRibWarning, "Version %4.2f too new", static_cast<double>(v));
}

void rendrib::Declare() {
  String name, declaration;
  if (!matchToken(&name) || !match(&declaration)) return;
  RiDeclare(ritext(name), ritext(declaration));
}

void rendrib::Begin() {
  RiBegin(nullptr);
}

void rendrib::End() {
  RiEnd();
}

// The frame number is optional: anything but an integer is left for the next
// statement.
void rendrib::FrameBegin() {
  int32_t number = 0;
  if (integerAhead() && !match(number)) return;
  RiFrameBegin(number);
}

void rendrib::FrameEnd() {
  RiFrameEnd();
}

void rendrib::WorldBegin() {
  RiWorldBegin();
}

void rendrib::WorldEnd() {
  RiWorldEnd();
}

void rendrib::Format() {
  int32_t x, y;
  float aspect;
  if (!match(x) || !match(y) || !match(aspect)) return;
  RiFormat(x, y, aspect);
}

void rendrib::FrameAspectRatio() {
  float ratio;
  if (!match(ratio)) return;
  RiFrameAspectRatio(ratio);
}

void rendrib::ScreenWindow() {
  Array<float> a;
  if (!match(a, 4, 0)) return;
  RiScreenWindow(a.data[0], a.data[1], a.data[2], a.data[3]);
}

void rendrib::CropWindow() {
  Array<float> a;
  if (!match(a, 4, 0)) return;
  RiCropWindow(a.data[0], a.data[1], a.data[2], a.data[3]);
}

void rendrib::Projection() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiProjectionV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Clipping() {
  float v[2];
  if (!matchFloats(v, 2)) return;
  RiClipping(v[0], v[1]);
}

// Without a number behind it the request turns depth of field off: an f-stop
// of 1e38 is a pinhole.
void rendrib::DepthOfField() {
  if (token != LEXINT && token != LEXFLOAT) {
    RiDepthOfField(1.0e38f, 0.0f, 0.0f);
    return;
  }
  float v[3];
  if (!matchFloats(v, 3)) return;
  RiDepthOfField(v[0], v[1], v[2]);
}

void rendrib::Shutter() {
  float v[2];
  if (!matchFloats(v, 2)) return;
  RiShutter(v[0], v[1]);
}

void rendrib::PixelVariance() {
  float variation;
  if (!match(variation)) return;
  RiPixelVariance(variation);
}

void rendrib::PixelSamples() {
  float v[2];
  if (!matchFloats(v, 2)) return;
  RiPixelSamples(v[0], v[1]);
}

// An unknown filter name ends the request before its widths are read; they
// are skipped with the rest.
void rendrib::PixelFilter() {
  RtFilterFunc filter;
  float width[2];
  if (!matchFilter(filter) || !matchFloats(width, 2)) return;
  RiPixelFilter(filter, width[0], width[1]);
}

void rendrib::Exposure() {
  float v[2];
  if (!matchFloats(v, 2)) return;
  RiExposure(v[0], v[1]);
}

void rendrib::Imager() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiImagerV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Quantize() {
  String type;
  int32_t one, min, max;
  float amplitude;
  if (!matchToken(&type) || !match(one) || !match(min) || !match(max) || !match(amplitude)) return;
  RiQuantize(ritext(type), one, min, max, amplitude);
}

void rendrib::Display() {
  String name, type, mode;
  tokenvalue params;
  if (!match(&name) || !matchToken(&type) || !matchToken(&mode) || !match(params, 0)) return;
  RiDisplayV(ritext(name), ritext(type), ritext(mode), listCount(params), params.tokens.data,
             params.values.data);
}

void rendrib::Hider() {
  String type;
  tokenvalue params;
  if (!matchTokenAndList(&type, params)) return;
  RiHiderV(ritext(type), listCount(params), params.tokens.data, params.values.data);
}

// Both arrays in brackets, the second as long as the first. The sample count
// changes before the call, so the very next colour is read with it; a first
// array that is no multiple of 3 loses its remainder.
void rendrib::ColorSamples() {
  Array<float> nRGB, RGBn;
  const int32_t c = match(nRGB, -1, 1);
  if (c == 0 || !match(RGBn, c, 1)) return;
  colorsamples = c / 3;
  RiColorSamples(colorsamples, nRGB.data, RGBn.data);
}

void rendrib::RelativeDetail() {
  float detail;
  if (!match(detail)) return;
  RiRelativeDetail(detail);
}

// Every value in brackets; a parameter the dictionary does not know is passed
// over with its value, and an unknown option drops the whole request, both
// silently.
void rendrib::Option() {
  String name;
  tokenvalue params;
  if (!matchDeclaredName(&name) || !match(params, 1)) return;
  RiOptionV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}
