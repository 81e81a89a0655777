// The records of the requests of later versions. Their names are texts, kept
// as the scene gave them; the library neither checks nor nests them.
#include "interface/scene/zel.h"
#include "zel/record.h"

using namespace zel;

void _zelShadingNodeV(uint16_t kind, const char* type, const char* handle, int32_t n,
                      const uint16_t* codes, const RtPointer* values) {
  Record("ShadingNodeV", {n, codes, values}).i(kind).text(type).text(handle).end();
}

void _zelLightNodeSwitch(const char* handle, int16_t onoff) {
  Record("LightNodeSwitch").text(handle).i(onoff).end();
}

void _zelCameraV(const char* name, int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("CameraV", {n, codes, values}).text(name).end();
}

void _zelCoordSysTransform(uint16_t space) {
  payQuark(space);
  Record("CoordSysTransform").i(space).end();
}

void _zelScopedMarkSpace(uint16_t space) {
  payQuark(space);
  Record("ScopedMarkSpace").i(space).end();
}

void _zelClippingPlane(float x, float y, float z, float nx, float ny, float nz) {
  Record("ClippingPlane").f(x).f(y).f(z).f(nx).f(ny).f(nz).end();
}

void _zelGeometricRepresentation(const char* type) {
  Record("GeometricRepresentation").text(type).end();
}

void _zelDisplayChannelV(const char* declaration, int32_t n, const uint16_t* codes,
                         const RtPointer* values) {
  Record("DisplayChannelV", {n, codes, values}).text(declaration).end();
}

void _zelMakeBrickMapV(int32_t nptc, const char* const* ptcs, const char* bkm, int32_t n,
                       const uint16_t* codes, const RtPointer* values) {
  Record record("MakeBrickMapV", {n, codes, values});
  record.i(nptc);
  for (int32_t i = 0; ptcs != nullptr && i < nptc; ++i) record.text(ptcs[i]);
  record.text(bkm).end();
}

void _zelResourceV(const char* handle, const char* type, int32_t n, const uint16_t* codes,
                   const RtPointer* values) {
  Record("ResourceV", {n, codes, values}).text(handle).text(type).end();
}

void _zelResourceBegin() {
  Record("ResourceBegin").end();
}

void _zelResourceEnd() {
  Record("ResourceEnd").end();
}

void _zelIfBegin(const char* expression) {
  Record("IfBegin").text(expression).end();
}

void _zelElseIf(const char* expression) {
  Record("ElseIf").text(expression).end();
}

void _zelElse() {
  Record("Else").end();
}

void _zelIfEnd() {
  Record("IfEnd").end();
}

void _zelEditBeginV(const char* type, int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("EditBeginV", {n, codes, values}).text(type).end();
}

void _zelEditEnd() {
  Record("EditEnd").end();
}

void _zelEditWorldBeginV(int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("EditWorldBeginV", {n, codes, values}).end();
}

void _zelEditWorldEnd() {
  Record("EditWorldEnd").end();
}

void _zelEditAttributeBeginV(int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("EditAttributeBeginV", {n, codes, values}).end();
}

void _zelEditAttributeEnd() {
  Record("EditAttributeEnd").end();
}

void _zelNamedFilter(const char* name, float xwidth, float ywidth) {
  Record("NamedFilter").text(name).f(xwidth).f(ywidth).end();
}

void _zelNamedProjectionV(const char* name, int32_t n, const uint16_t* codes,
                          const RtPointer* values) {
  Record("NamedProjectionV", {n, codes, values}).text(name).end();
}

void _zelNamedHiderV(const char* name, int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("NamedHiderV", {n, codes, values}).text(name).end();
}

void _zelNamedDisplayV(const char* name, const char* type, const char* mode, int32_t n,
                       const uint16_t* codes, const RtPointer* values) {
  Record("NamedDisplayV", {n, codes, values}).text(name).text(type).text(mode).end();
}
