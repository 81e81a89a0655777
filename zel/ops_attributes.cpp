// Attribute and transform operations: plain records of fixed-size arguments.
#include "interface/scene/zel.h"
#include "zel/record.h"

using namespace zel;

namespace {

constexpr size_t kColor = 3;
constexpr size_t kBound = 6;
constexpr size_t kMatrix = 16;

}  // namespace

void _zelColor(const float* color) {
  Record("Color").floats(color, kColor).end();
}
void _zelOpacity(const float* color) {
  Record("Opacity").floats(color, kColor).end();
}
void _zelShadingRate(float size) {
  Record("ShadingRate").f(size).end();
}
void _zelShadingModel(uint16_t model) {
  Record("ShadingModel").i(model).end();
}
void _zelMatteObject(int16_t onoff) {
  Record("MatteObject").i(onoff).end();
}
void _zelBound(const float* bound) {
  Record("Bound").floats(bound, kBound).end();
}
void _zelFlatness(float flatness) {
  Record("Flatness").f(flatness).end();
}
void _zelOrientation(uint16_t orientation) {
  Record("Orientation").i(orientation).end();
}
void _zelBackface(int16_t visible) {
  Record("Backface").i(visible).end();
}
void _zelObjectName(const char* name) {
  Record("ObjectName").text(name).end();
}
void _zelGroupName(const char* name) {
  Record("GroupName").text(name).end();
}
void _zelBasis(uint16_t direction, uint16_t basis) {
  Record("Basis").i(direction).i(basis).end();
}
void _zelCustomBasis(uint16_t direction, const float* basis, int32_t step) {
  Record("CustomBasis").i(direction).floats(basis, kMatrix).i(step).end();
}

void _zelLoadIdentity() {
  Record("LoadIdentity").end();
}
void _zelLoadMatrix(const float* matrix) {
  Record("LoadMatrix").floats(matrix, kMatrix).end();
}
void _zelMultMatrix(const float* matrix) {
  Record("MultMatrix").floats(matrix, kMatrix).end();
}
void _zelPerspective(float fov) {
  Record("Perspective").f(fov).end();
}
void _zelTranslate(float dx, float dy, float dz) {
  Record("Translate").f(dx).f(dy).f(dz).end();
}
void _zelRotate(float angle, float dx, float dy, float dz) {
  Record("Rotate").f(angle).f(dx).f(dy).f(dz).end();
}
void _zelScale(float sx, float sy, float sz) {
  Record("Scale").f(sx).f(sy).f(sz).end();
}
void _zelSkew(float angle, float dx1, float dy1, float dz1, float dx2, float dy2, float dz2) {
  Record("Skew").f(angle).f(dx1).f(dy1).f(dz1).f(dx2).f(dy2).f(dz2).end();
}

void _zelMarkSpace(uint16_t space) {
  payQuark(space);
  Record("MarkSpace").i(space).end();
}

// The library records transformations for whatever reads the scene file and
// applies none of them, so it cannot move points between spaces: it records
// the request and answers null, the interface's result for points that could
// not be transformed. The points are left as they were.
RtPoint* _zelProjectPoints(uint16_t fromspace, uint16_t tospace, int32_t n, RtPoint* points) {
  payQuark(fromspace);
  payQuark(tospace);
  size_t numbers = n > 0 ? 3 * static_cast<size_t>(n) : 0;
  const float* flat = points ? points[0] : nullptr;
  Record("ProjectPoints").i(fromspace).i(tospace).i(n).floats(flat, numbers).end();
  return nullptr;
}
