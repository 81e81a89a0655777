// Transformations, coordinate systems and transform blocks.
#include "interface/ri_internal.h"
#include "interface/scene/zel.h"

RtVoid RiIdentity() {
  _zelLoadIdentity();
}

RtVoid RiTransform(RtMatrix transform) {
  if (motionGate()) _zelLoadMatrix(&transform[0][0]);
}

RtVoid RiConcatTransform(RtMatrix transform) {
  if (motionGate()) _zelMultMatrix(&transform[0][0]);
}

RtVoid RiPerspective(RtFloat fov) {
  if (motionGate()) _zelPerspective(fov);
}

RtVoid RiTranslate(RtFloat dx, RtFloat dy, RtFloat dz) {
  if (motionGate()) _zelTranslate(dx, dy, dz);
}

RtVoid RiRotate(RtFloat angle, RtFloat dx, RtFloat dy, RtFloat dz) {
  if (motionGate()) _zelRotate(angle, dx, dy, dz);
}

RtVoid RiScale(RtFloat sx, RtFloat sy, RtFloat sz) {
  if (motionGate()) _zelScale(sx, sy, sz);
}

RtVoid RiSkew(RtFloat angle, RtFloat dx1, RtFloat dy1, RtFloat dz1, RtFloat dx2, RtFloat dy2,
              RtFloat dz2) {
  if (motionGate()) _zelSkew(angle, dx1, dy1, dz1, dx2, dy2, dz2);
}

// Deformation and displacement have no counterpart in the scene: they only
// use up the first place of a motion block.
RtVoid RiDeformation(RtToken, ...) {
  motionGate();
}

RtVoid RiDeformationV(RtToken, RtInt, RtToken[], RtPointer[]) {
  motionGate();
}

RtVoid RiDisplacement(RtToken, ...) {
  motionGate();
}

RtVoid RiDisplacementV(RtToken, RtInt, RtToken[], RtPointer[]) {
  motionGate();
}

RtVoid RiCoordinateSystem(RtToken space) {
  NamedCall named("RiCoordinateSystem");
  _zelMarkSpace(tokenCode(space));
}

RtPoint* RiTransformPoints(RtToken fromspace, RtToken tospace, RtInt n, RtPoint points[]) {
  NamedCall named("RiTransformPoints");
  uint16_t from = tokenCode(fromspace);
  uint16_t to = tokenCode(tospace);
  return _zelProjectPoints(from, to, n, points);
}

RtVoid RiTransformBegin() {
  _zelMatrixPush();
}

RtVoid RiTransformEnd() {
  _zelMatrixPop();
}
