// Procedurals, solid, object and motion blocks.
//
// The scene library knows nothing of solids or motion: what lies inside a
// solid block goes through as plain geometry, and of a motion block only the
// first motion-sensitive call takes effect (see motionGate).
#include "interface/ri_internal.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

RtVoid RiProcedural(RtPointer data, RtBound bound, RtVoid (*subdivfunc)(RtPointer, RtFloat),
                    RtVoid (*freefunc)(RtPointer)) {
  if (motionGate()) _zelProcedural(data, bound, subdivfunc, freefunc);
}

// No geometry type reaches the scene; the name is only looked up.
RtVoid RiGeometry(RtToken type, ...) {
  if (!motionGate()) return;
  NamedCall named("RiGeometry");
  find(type);
}

RtVoid RiGeometryV(RtToken type, RtInt, RtToken[], RtPointer[]) {
  if (!motionGate()) return;
  NamedCall named("RiGeometryV");
  find(type);
}

RtVoid RiSolidBegin(RtToken) {}

RtVoid RiSolidEnd() {}

RtObjectHandle RiObjectBegin() {
  return _zelObjectBegin();
}

RtVoid RiObjectEnd() {
  _zelObjectEnd();
}

RtVoid RiObjectInstance(RtObjectHandle handle) {
  _zelObjectCall(handle);
}

namespace {

void openMotionBlock() {
  gInMotion = 1;
  gMotionFirst = 1;
}

}  // namespace

// The times are dropped: the block stands for its first call.
RtVoid RiMotionBegin(RtInt, ...) {
  NamedCall named("RiMotionBegin");
  openMotionBlock();
}

RtVoid RiMotionBeginV(RtInt, RtFloat[]) {
  NamedCall named("RiMotionBeginV");
  openMotionBlock();
}

RtVoid RiMotionEnd() {
  NamedCall named("RiMotionEnd");
  gInMotion = 0;
}
