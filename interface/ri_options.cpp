// Frame, camera and image options: from RiBegin to RiOption.
#include "interface/error.h"
#include "interface/ri_internal.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

namespace {

constexpr uint16_t kFov = 0xFF07;
constexpr uint16_t kPerspective = 0xFF03;
constexpr uint16_t kOrthographic = 0xFF04;
constexpr uint16_t kLimits = 0xFF1E;
constexpr uint16_t kGridSize = 0xFF1F;
constexpr uint16_t kBucketSize = 0xFF20;

// The record of a list's i-th token with the given code and a value, or null.
Token* parameterWith(uint16_t code, RtToken tokens[], RtPointer values[], RtInt i) {
  Token* record = tokens[i] ? find(tokens[i]) : nullptr;
  return record && record->code == code && values[i] ? record : nullptr;
}

void projection(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  float fov = 90.0f;
  bool fovSeen = false;
  for (RtInt i = 0; i < n; ++i) {
    if (parameterWith(kFov, tokens, values, i)) {
      fov = *static_cast<float*>(values[i]);
      fovSeen = true;
    }
  }

  bool perspective = false;
  if (!name) {
    _zelViewIdentity();
  } else {
    Token* record = find(name);
    if (record && record->code == kPerspective) {
      _zelViewPerspective(fov);
      perspective = true;
    } else {
      // A name that nobody declared is taken for orthographic without a word.
      if (record && record->code != kOrthographic) {
        error(RIE_RANGE, RIE_ERROR, "unknown projection type \"%s\", using orthographic",
              record->name.c_str());
      }
      _zelViewOrthographic();
    }
  }
  if (fovSeen && !perspective) {
    error(RIE_CONSISTENCY, RIE_ERROR, "only perspective projection has fov");
  }
}

void option(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  Token* record = name ? find(name) : nullptr;
  if (!record || record->code != kLimits) return;
  for (RtInt i = 0; i < n; ++i) {
    if (parameterWith(kGridSize, tokens, values, i)) {
      gGridSize = static_cast<RtInt*>(values[i])[0];
    } else if (parameterWith(kBucketSize, tokens, values, i)) {
      // "bucketsize" has size 2, and the reader pads a shorter value to that.
      gBucketWidth = static_cast<RtInt*>(values[i])[0];
      gBucketHeight = static_cast<RtInt*>(values[i])[1];
    }
  }
  _zelTune(gGridSize, gBucketWidth, gBucketHeight);
}

}  // namespace

RtVoid RiBegin(RtToken) {}

RtVoid RiEnd() {}

RtVoid RiFrameBegin(RtInt) {
  _zelFrameBegin();
}

RtVoid RiFrameEnd() {
  _zelFrameEnd();
}

RtVoid RiWorldBegin() {
  _zelSceneBegin();
}

RtVoid RiWorldEnd() {
  _zelSceneEnd();
}

RtVoid RiFormat(RtInt xresolution, RtInt yresolution, RtFloat pixelaspectratio) {
  gFormatWidth = xresolution;
  gFormatHeight = yresolution;
  sendViewport();
  _zelRasterAspect(pixelaspectratio);
}

RtVoid RiFrameAspectRatio(RtFloat frameaspectratio) {
  _zelImageAspect(frameaspectratio);
}

RtVoid RiScreenWindow(RtFloat left, RtFloat right, RtFloat bottom, RtFloat top) {
  _zelImageWindow(left, right, bottom, top);
}

RtVoid RiCropWindow(RtFloat xmin, RtFloat xmax, RtFloat ymin, RtFloat ymax) {
  _zelImageCrop(xmin, xmax, ymin, ymax);
}

RtVoid RiProjection(RtToken name, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiProjection", name, projection, name);
}

RtVoid RiProjectionV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiProjectionV");
  projection(name, n, tokens, values);
}

RtVoid RiClipping(RtFloat hither, RtFloat yon) {
  _zelClip(hither, yon);
}

RtVoid RiDepthOfField(RtFloat, RtFloat, RtFloat) {}

RtVoid RiShutter(RtFloat, RtFloat) {}

RtVoid RiPixelVariance(RtFloat variation) {
  _zelSampleAdaptive(variation);
}

RtVoid RiPixelSamples(RtFloat xsamples, RtFloat ysamples) {
  _zelSampleUniform(xsamples, ysamples);
}

RtVoid RiExposure(RtFloat gain, RtFloat gamma) {
  _zelColorGain(gain);
  _zelColorGamma(gamma);
}

RtVoid RiImager(RtToken, ...) {}

RtVoid RiImagerV(RtToken, RtInt, RtToken[], RtPointer[]) {}

RtVoid RiColorSamples(RtInt n, RtFloat nRGB[], RtFloat RGBn[]) {
  _zelColorSpace(n, nRGB, RGBn);
}

RtVoid RiRelativeDetail(RtFloat) {}

RtVoid RiOption(RtToken name, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiOption", name, option, name);
}

RtVoid RiOptionV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiOptionV");
  option(name, n, tokens, values);
}
