// Quadrics, Geometry, solid and motion blocks, and objects, whose numbers go
// through the same kind of table as lights.
#include "interface/ri.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/rendrib.h"
#include "rib/tokenvalue.h"

namespace {

char* const kNoMore = nullptr;

}  // namespace

// The seven quadrics differ only in how many numbers they take: k numbers,
// bare or bracketed, then a list held to one uniform and four varying or
// vertex values, with no position parameter required.
int16_t rendrib::matchQuadric(Array<float>& args, int32_t k, tokenvalue& params) {
  return match(args, k, 0) && match(params, 0) && verify(params, 1, 4, 4, kNoMore);
}

void rendrib::Sphere() {
  Array<float> a;
  tokenvalue params;
  if (!matchQuadric(a, 4, params)) return;
  const float* v = a.data;
  RiSphereV(v[0], v[1], v[2], v[3], listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Cone() {
  Array<float> a;
  tokenvalue params;
  if (!matchQuadric(a, 3, params)) return;
  const float* v = a.data;
  RiConeV(v[0], v[1], v[2], listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Cylinder() {
  Array<float> a;
  tokenvalue params;
  if (!matchQuadric(a, 4, params)) return;
  const float* v = a.data;
  RiCylinderV(v[0], v[1], v[2], v[3], listCount(params), params.tokens.data, params.values.data);
}

// The two points go by address into the one buffer of seven numbers.
void rendrib::Hyperboloid() {
  Array<float> a;
  tokenvalue params;
  if (!matchQuadric(a, 7, params)) return;
  RiHyperboloidV(a.data, a.data + 3, a.data[6], listCount(params), params.tokens.data,
                 params.values.data);
}

void rendrib::Paraboloid() {
  Array<float> a;
  tokenvalue params;
  if (!matchQuadric(a, 4, params)) return;
  const float* v = a.data;
  RiParaboloidV(v[0], v[1], v[2], v[3], listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Disk() {
  Array<float> a;
  tokenvalue params;
  if (!matchQuadric(a, 3, params)) return;
  const float* v = a.data;
  RiDiskV(v[0], v[1], v[2], listCount(params), params.tokens.data, params.values.data);
}

void rendrib::Torus() {
  Array<float> a;
  tokenvalue params;
  if (!matchQuadric(a, 5, params)) return;
  const float* v = a.data;
  RiTorusV(v[0], v[1], v[2], v[3], v[4], listCount(params), params.tokens.data, params.values.data);
}

// A geometry type unknown to the dictionary is dropped whole, silently; a
// known one takes a list of any counts.
void rendrib::Geometry() {
  String name;
  tokenvalue params;
  if (!matchDeclaredName(&name) || !match(params, 0)) return;
  RiGeometryV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::SolidBegin() {
  String operation;
  if (!matchToken(&operation)) return;
  RiSolidBegin(ritext(operation));
}

void rendrib::SolidEnd() {
  RiSolidEnd();
}

// The entry exists from here on, so an instance inside the object's own
// definition finds it. A number used again takes the new handle.
void rendrib::ObjectBegin() {
  int32_t number;
  if (!match(number)) return;
  registerNumber(number, lastobject, kObjectWords);
  handle_assoc entry;
  entry.sequence = static_cast<uint16_t>(number);
  entry.handle = RiObjectBegin();
  fileHandle(objects, entry);
}

void rendrib::ObjectEnd() {
  RiObjectEnd();
}

void rendrib::ObjectInstance() {
  int32_t number;
  if (!match(number)) return;
  const handle_assoc* object = lookupNumber(objects, number, kObjectWords);
  if (object == nullptr) return;
  RiObjectInstance(object->handle);
}

// The times are not examined; what lies inside the block is the Ri layer's
// affair.
void rendrib::MotionBegin() {
  Array<float> times;
  const int32_t n = match(times, -1, 1);
  if (n == 0) return;
  RiMotionBeginV(n, times.data);
}

void rendrib::MotionEnd() {
  RiMotionEnd();
}
