// How the image is sampled, quantized and sent out: pixel filter, quantize,
// display and hider.
#include <algorithm>
#include <iterator>

#include "interface/error.h"
#include "interface/ri_internal.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

namespace {

constexpr uint16_t kRgba = 0x0303;
constexpr uint16_t kDepth = 0x0304;
constexpr uint16_t kFramebuffer = 0xFF01;
constexpr uint16_t kFile = 0xFF02;
constexpr uint16_t kOrigin = 0xFF15;
constexpr uint16_t kJitter = 0xFF05;

struct StandardFilter {
  RtFilterFunc function;
  uint16_t number;
};

constexpr StandardFilter kFilters[] = {
    {RiGaussianFilter, 0x0100},   {RiBoxFilter, 0x0102},  {RiTriangleFilter, 0x0103},
    {RiCatmullRomFilter, 0x0101}, {RiSincFilter, 0x0104},
};

// The i-th parameter's value if its token has the given code, or null.
RtPointer valueWith(uint16_t code, RtToken tokens[], RtPointer values[], RtInt i) {
  Token* record = tokens[i] ? find(tokens[i]) : nullptr;
  return record && record->code == code ? values[i] : nullptr;
}

void display(char* name, RtToken type, RtToken mode, RtInt n, RtToken tokens[],
             RtPointer values[]) {
  Token* kind = confirm(type);
  if (!kind) return;
  if (kind->code == kFramebuffer) {
    _zelOutputDisplay(name);
  } else if (kind->code == kFile) {
    _zelOutputFile(kZelDisplayFile, name);
  } else {
    error(RIE_RANGE, RIE_ERROR, "unknown display type \"%s\"", kind->name.c_str());
    return;
  }

  Token* samples = confirm(mode);
  if (!samples) return;
  if (samples->code < kZelFirstSamples || samples->code > kZelLastSamples) {
    error(RIE_RANGE, RIE_ERROR, "%s: unknown display mode \"%s\"", name ? name : "null",
          samples->name.c_str());
    return;
  }
  _zelOutputSamples(samples->code);

  for (RtInt i = 0; i < n; ++i) {
    // "origin" has size 2, and the reader pads a shorter value to that.
    if (auto* origin = static_cast<RtInt*>(valueWith(kOrigin, tokens, values, i))) {
      gOriginX = origin[0];
      gOriginY = origin[1];
      sendViewport();
    }
  }
}

void hider(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  uint16_t number = 0;
  if (type) {
    Token* record = find(type);
    if (record && (record->code == kZelHidden || record->code == kZelPaint)) {
      number = record->code;
    } else {
      error(RIE_RANGE, RIE_ERROR, "unknown hider type \"%s\", using hidden", printableName(type));
      number = kZelHidden;
    }
  }
  _zelHider(number);

  for (RtInt i = 0; i < n; ++i) {
    if (auto* jitter = static_cast<RtInt*>(valueWith(kJitter, tokens, values, i))) {
      _zelSampleJitter(jitter[0] != 0 ? 0.5f : 0.0f);
    }
  }
}

}  // namespace

RtVoid RiPixelFilter(RtFilterFunc function, RtFloat xwidth, RtFloat ywidth) {
  const StandardFilter* standard = std::find_if(
      std::begin(kFilters), std::end(kFilters),
      [function](const StandardFilter& filter) { return filter.function == function; });
  if (standard != std::end(kFilters)) {
    _zelFilter(standard->number);
  } else {
    _zelCustomFilter(function);
  }
  _zelFilterWidth(xwidth, ywidth);
}

RtVoid RiQuantize(RtToken type, RtInt one, RtInt min, RtInt max, RtFloat ditheramplitude) {
  Token* record = confirm(type);
  if (!record) return;
  NamedCall named("RiQuantize");
  if (record->code == kRgba) {
    _zelColorQuantize(one, min, max);
    _zelColorJitter(ditheramplitude);
  } else if (record->code == kDepth) {
    _zelDepthQuantize(one, min, max);
    _zelDepthJitter(ditheramplitude);
  } else {
    error(RIE_RANGE, RIE_ERROR, "unknown quantization type \"%s\"", record->name.c_str());
  }
}

RtVoid RiDisplay(char* name, RtToken type, RtToken mode, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiDisplay", mode, display, name, type, mode);
}

RtVoid RiDisplayV(char* name, RtToken type, RtToken mode, RtInt n, RtToken tokens[],
                  RtPointer values[]) {
  NamedCall named("RiDisplayV");
  display(name, type, mode, n, tokens, values);
}

RtVoid RiHider(RtToken type, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiHider", type, hider, type);
}

RtVoid RiHiderV(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiHiderV");
  hider(type, n, tokens, values);
}
