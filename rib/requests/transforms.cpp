// Transform requests. Translate, Rotate and Scale take separate numbers and no
// brackets; Transform and ConcatTransform require theirs; Skew takes its seven
// numbers bare or bracketed.
#include "interface/ri.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/rendrib.h"
#include "rib/tokenvalue.h"

void rendrib::Identity() {
  RiIdentity();
}

void rendrib::Transform() {
  float m[4][4];
  if (!match(m)) return;
  RiTransform(m);
}

void rendrib::ConcatTransform() {
  float m[4][4];
  if (!match(m)) return;
  RiConcatTransform(m);
}

void rendrib::Perspective() {
  float fov;
  if (!match(fov)) return;
  RiPerspective(fov);
}

void rendrib::Translate() {
  float d[3];
  if (!matchFloats(d, 3)) return;
  RiTranslate(d[0], d[1], d[2]);
}

void rendrib::Rotate() {
  float r[4];
  if (!matchFloats(r, 4)) return;
  RiRotate(r[0], r[1], r[2], r[3]);
}

void rendrib::Scale() {
  float s[3];
  if (!matchFloats(s, 3)) return;
  RiScale(s[0], s[1], s[2]);
}

void rendrib::Skew() {
  Array<float> a;
  if (!match(a, 7, 0)) return;
  const float* s = a.data;
  RiSkew(s[0], s[1], s[2], s[3], s[4], s[5], s[6]);
}

void rendrib::Deformation() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiDeformationV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Displacement() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiDisplacementV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::CoordinateSystem() {
  String space;
  if (!matchToken(&space)) return;
  RiCoordinateSystem(ritext(space));
}

void rendrib::TransformBegin() {
  RiTransformBegin();
}

void rendrib::TransformEnd() {
  RiTransformEnd();
}
