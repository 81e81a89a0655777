// Procedurals, solid, object and motion blocks.
//
// The scene library knows nothing of solids or motion: what lies inside a
// solid block goes through as plain geometry, and of a motion block only the
// first motion-sensitive call takes effect (see motionGate).
#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

RtVoid RiProcDelayedReadArchive(RtPointer, RtFloat) {}
RtVoid RiProcRunProgram(RtPointer, RtFloat) {}
RtVoid RiProcDynamicLoad(RtPointer, RtFloat) {}
RtVoid RiProcFree(RtPointer) {}

namespace {

struct StandardGenerator {
  const char* name;
  RtVoid (*subdivfunc)(RtPointer, RtFloat);
  int32_t strings;  // in its data
};

const StandardGenerator kGenerators[] = {
    {"DelayedReadArchive", RiProcDelayedReadArchive, 1},
    {"RunProgram", RiProcRunProgram, 2},
    {"DynamicLoad", RiProcDynamicLoad, 2},
};

}  // namespace

// The data of a standard generator is known, so its strings go to the scene;
// of any other only that it was there.
RtVoid RiProcedural(RtPointer data, RtBound bound, RtVoid (*subdivfunc)(RtPointer, RtFloat),
                    RtVoid (*freefunc)(RtPointer)) {
  if (!motionGate()) return;
  for (const StandardGenerator& g : kGenerators) {
    if (subdivfunc == g.subdivfunc && data != nullptr) {
      _zelStandardProcedural(g.name, g.strings, static_cast<const char* const*>(data), bound);
      return;
    }
  }
  _zelProcedural(data, bound, subdivfunc, freefunc);
}

RtVoid RiProcedural2V(RtToken generator, RtToken bounder, RtInt n, RtToken tokens[],
                      RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiProcedural2V");
  auto codes = announceList(n, tokens);
  _zelProcedural2V(printableName(generator), printableName(bounder), n, codes.get(), values);
}

RtVoid RiSystem(RtString command) {
  _zelSystem(command);
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
