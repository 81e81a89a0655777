// The layer's state and the helpers every call uses: the motion gate, the
// naming of a call for the error model and the viewport.
#include "interface/error.h"
#include "interface/ri_internal.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

int32_t gFormatWidth = 640;
int32_t gFormatHeight = 480;
int32_t gOriginX = 0;
int32_t gOriginY = 0;
int32_t gGridSize = 32;
int32_t gBucketWidth = 12;
int32_t gBucketHeight = 12;
int16_t gInMotion = 0;
int16_t gMotionFirst = 0;

bool motionGate() {
  if (!gInMotion) return true;
  if (gMotionFirst) {
    gMotionFirst = 0;
    return true;
  }
  return false;
}

namespace {

// The far corner of the viewport, wrapping like 32-bit arithmetic instead of
// overflowing for sizes no image has.
int32_t lastPixel(int32_t origin, int32_t size) {
  return static_cast<int32_t>(static_cast<int64_t>(origin) + size - 1);
}

}  // namespace

void sendViewport() {
  _zelRasterViewport(gOriginX, lastPixel(gOriginX, gFormatWidth), gOriginY,
                     lastPixel(gOriginY, gFormatHeight));
}

const char* printableName(RtToken token) {
  if (!token) return "null";
  Token* record = find(token);
  return record ? record->name.c_str() : token;
}

NamedCall::NamedCall(const char* name) {
  setErrorFuncName(name);
}

NamedCall::~NamedCall() {
  setErrorFuncName(nullptr);
}
