// Shaders and geometry: each takes a parameter list, written with the counts
// that _zelParameterInfo gave. Arrays among the arguments are read as far as
// the other arguments say (knots: count + order; index arrays: the sums of
// the counts before them), never further.
#include <cstdint>

#include "interface/scene/zel.h"
#include "zel/record.h"

using namespace zel;

namespace {

size_t nonNegative(int64_t n) {
  return n > 0 ? static_cast<size_t>(n) : 0;
}

// The sum of `n` counts, each below 0 taken as 0; 0 for a null array.
size_t sumOf(const int32_t* counts, size_t n) {
  if (counts == nullptr) return 0;
  size_t sum = 0;
  for (size_t i = 0; i < n; ++i) sum += nonNegative(counts[i]);
  return sum;
}

}  // namespace

void _zelSurfaceV(uint16_t name, int32_t n, const uint16_t* codes, const RtPointer* values) {
  payQuark(name);
  Record("SurfaceV", {n, codes, values}).i(name).end();
}

void _zelAtmosphereV(uint16_t name, int32_t n, const uint16_t* codes, const RtPointer* values) {
  payQuark(name);
  Record("AtmosphereV", {n, codes, values}).i(name).end();
}

void _zelPolygonV(int32_t nverts, int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("PolygonV", {n, codes, values}).i(nverts).end();
}

void _zelGeneralPolygonV(int32_t nloops, const int32_t* nverts, int32_t n, const uint16_t* codes,
                         const RtPointer* values) {
  Record("GeneralPolygonV", {n, codes, values}).i(nloops).ints(nverts, nonNegative(nloops)).end();
}

void _zelPolygonMeshV(int32_t npolys, const int32_t* nverts, const int32_t* verts, int32_t n,
                      const uint16_t* codes, const RtPointer* values) {
  size_t polys = nonNegative(npolys);
  Record("PolygonMeshV", {n, codes, values})
      .i(npolys)
      .ints(nverts, polys)
      .ints(verts, sumOf(nverts, polys))
      .end();
}

void _zelGeneralPolygonMeshV(int32_t npolys, const int32_t* nloops, const int32_t* nverts,
                             const int32_t* verts, int32_t n, const uint16_t* codes,
                             const RtPointer* values) {
  size_t polys = nonNegative(npolys);
  size_t loops = sumOf(nloops, polys);
  Record("GeneralPolygonMeshV", {n, codes, values})
      .i(npolys)
      .ints(nloops, polys)
      .ints(nverts, loops)
      .ints(verts, sumOf(nverts, loops))
      .end();
}

void _zelPatchV(uint16_t type, int32_t n, const uint16_t* codes, const RtPointer* values) {
  payQuark(type);
  Record("PatchV", {n, codes, values}).i(type).end();
}

void _zelPatchMeshV(uint16_t type, int32_t nu, uint16_t uwrap, int32_t nv, uint16_t vwrap,
                    int32_t n, const uint16_t* codes, const RtPointer* values) {
  payQuark(type);
  payQuark(uwrap);
  payQuark(vwrap);
  Record("PatchMeshV", {n, codes, values}).i(type).i(nu).i(uwrap).i(nv).i(vwrap).end();
}

void _zelNurbMeshV(int32_t nu, int32_t uorder, const float* uknot, float umin, float umax,
                   int32_t nv, int32_t vorder, const float* vknot, float vmin, float vmax,
                   int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("NurbMeshV", {n, codes, values})
      .i(nu)
      .i(uorder)
      .floats(uknot, nonNegative(int64_t{nu} + uorder))
      .f(umin)
      .f(umax)
      .i(nv)
      .i(vorder)
      .floats(vknot, nonNegative(int64_t{nv} + vorder))
      .f(vmin)
      .f(vmax)
      .end();
}

void _zelSphereV(float radius, float zmin, float zmax, float thetamax, int32_t n,
                 const uint16_t* codes, const RtPointer* values) {
  Record("SphereV", {n, codes, values}).f(radius).f(zmin).f(zmax).f(thetamax).end();
}

void _zelConeV(float radius, float zmin, float zmax, float thetamax, int32_t n,
               const uint16_t* codes, const RtPointer* values) {
  Record("ConeV", {n, codes, values}).f(radius).f(zmin).f(zmax).f(thetamax).end();
}

void _zelCylinderV(float radius, float zmin, float zmax, float thetamax, int32_t n,
                   const uint16_t* codes, const RtPointer* values) {
  Record("CylinderV", {n, codes, values}).f(radius).f(zmin).f(zmax).f(thetamax).end();
}

void _zelHyperboloidV(const float* point1, const float* point2, float thetamax, int32_t n,
                      const uint16_t* codes, const RtPointer* values) {
  Record("HyperboloidV", {n, codes, values}).floats(point1, 3).floats(point2, 3).f(thetamax).end();
}

void _zelParaboloidV(float rmax, float zmin, float zmax, float thetamax, int32_t n,
                     const uint16_t* codes, const RtPointer* values) {
  Record("ParaboloidV", {n, codes, values}).f(rmax).f(zmin).f(zmax).f(thetamax).end();
}

void _zelDiskV(float height, float radius, float thetamax, int32_t n, const uint16_t* codes,
               const RtPointer* values) {
  Record("DiskV", {n, codes, values}).f(height).f(radius).f(thetamax).end();
}

void _zelTorusV(float majorradius, float minorradius, float phimin, float phimax, float thetamax,
                int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("TorusV", {n, codes, values})
      .f(majorradius)
      .f(minorradius)
      .f(phimin)
      .f(phimax)
      .f(thetamax)
      .end();
}

void _zelProcedural(RtPointer data, const float* bound, RtProcSubdivFunc subdivfunc,
                    RtProcFreeFunc freefunc) {
  Record("Procedural")
      .opaque(data != nullptr)
      .floats(bound, 6)
      .opaque(subdivfunc != nullptr)
      .opaque(freefunc != nullptr)
      .end();
}

void _zelStandardProcedural(const char* generator, int32_t n, const char* const* strings,
                            const float* bound) {
  Record record("StandardProcedural");
  record.text(generator);
  for (int32_t i = 0; i < n; ++i) record.text(strings[i]);
  record.floats(bound, 6).end();
}

void _zelProcedural2V(const char* generator, const char* bounder, int32_t n, const uint16_t* codes,
                      const RtPointer* values) {
  Record("Procedural2V", {n, codes, values}).text(generator).text(bounder).end();
}

void _zelSystem(const char* command) {
  Record("System").text(command).end();
}
