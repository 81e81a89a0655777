// Polygons and patches. Each call tells the scene library how many numbers
// every value holds, from the same counts the reader held the list to.
#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"

#ifdef __clang__
// RiNuPatch ends its fixed arguments in a float, as the interface publishes
// it; va_start finds the variable arguments all the same on every ABI built for.
#pragma clang diagnostic ignored "-Wvarargs"
#endif

namespace {

void polygon(RtInt nverts, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  PrimitiveCounts counts = polygonCounts(nverts);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelPolygonV(nverts, n, codes.get(), values);
}

void generalpolygon(RtInt nloops, RtInt nverts[], RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  PrimitiveCounts counts = generalPolygonCounts(nloops, nverts);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelGeneralPolygonV(nloops, nverts, n, codes.get(), values);
}

void pointspolygons(RtInt npolys, RtInt nverts[], RtInt verts[], RtInt n, RtToken tokens[],
                    RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  PrimitiveCounts counts = pointsPolygonsCounts(npolys, nverts, verts);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelPolygonMeshV(npolys, nverts, verts, n, codes.get(), values);
}

void pointsgeneralpolygons(RtInt npolys, RtInt nloops[], RtInt nverts[], RtInt verts[], RtInt n,
                           RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  PrimitiveCounts counts = pointsGeneralPolygonsCounts(npolys, nloops, nverts, verts);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelGeneralPolygonMeshV(npolys, nloops, nverts, verts, n, codes.get(), values);
}

void patch(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  uint16_t typeCode = tokenCode(type);
  PrimitiveCounts counts = patchCounts(type);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelPatchV(typeCode, n, codes.get(), values);
}

void patchmesh(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap, RtInt n,
               RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  uint16_t typeCode = tokenCode(type);
  uint16_t uwrapCode = tokenCode(uwrap);
  uint16_t vwrapCode = tokenCode(vwrap);
  PrimitiveCounts counts = patchMeshCounts(type, nu, uwrap, nv, vwrap);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelPatchMeshV(typeCode, nu, uwrapCode, nv, vwrapCode, n, codes.get(), values);
}

void nupatch(RtInt nu, RtInt uorder, RtFloat uknot[], RtFloat umin, RtFloat umax, RtInt nv,
             RtInt vorder, RtFloat vknot[], RtFloat vmin, RtFloat vmax, RtInt n, RtToken tokens[],
             RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  PrimitiveCounts counts = nuPatchCounts(nu, nv);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelNurbMeshV(nu, uorder, uknot, umin, umax, nv, vorder, vknot, vmin, vmax, n, codes.get(),
                values);
}

}  // namespace

RtVoid RiPolygon(RtInt nverts, ...) {
  if (!motionGate()) return;
  NamedCall named("RiPolygon");
  va_list arguments;
  va_start(arguments, nverts);
  CollectedList list(arguments);
  va_end(arguments);
  polygon(nverts, list.n, list.tokens, list.values);
}

RtVoid RiPolygonV(RtInt nverts, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPolygonV");
  polygon(nverts, n, tokens, values);
}

RtVoid RiGeneralPolygon(RtInt nloops, RtInt nverts[], ...) {
  if (!motionGate()) return;
  NamedCall named("RiGeneralPolygon");
  va_list arguments;
  va_start(arguments, nverts);
  CollectedList list(arguments);
  va_end(arguments);
  generalpolygon(nloops, nverts, list.n, list.tokens, list.values);
}

RtVoid RiGeneralPolygonV(RtInt nloops, RtInt nverts[], RtInt n, RtToken tokens[],
                         RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiGeneralPolygonV");
  generalpolygon(nloops, nverts, n, tokens, values);
}

RtVoid RiPointsPolygons(RtInt npolys, RtInt nverts[], RtInt verts[], ...) {
  if (!motionGate()) return;
  NamedCall named("RiPointsPolygons");
  va_list arguments;
  va_start(arguments, verts);
  CollectedList list(arguments);
  va_end(arguments);
  pointspolygons(npolys, nverts, verts, list.n, list.tokens, list.values);
}

RtVoid RiPointsPolygonsV(RtInt npolys, RtInt nverts[], RtInt verts[], RtInt n, RtToken tokens[],
                         RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPointsPolygonsV");
  pointspolygons(npolys, nverts, verts, n, tokens, values);
}

RtVoid RiPointsGeneralPolygons(RtInt npolys, RtInt nloops[], RtInt nverts[], RtInt verts[], ...) {
  if (!motionGate()) return;
  NamedCall named("RiPointsGeneralPolygons");
  va_list arguments;
  va_start(arguments, verts);
  CollectedList list(arguments);
  va_end(arguments);
  pointsgeneralpolygons(npolys, nloops, nverts, verts, list.n, list.tokens, list.values);
}

RtVoid RiPointsGeneralPolygonsV(RtInt npolys, RtInt nloops[], RtInt nverts[], RtInt verts[],
                                RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPointsGeneralPolygonsV");
  pointsgeneralpolygons(npolys, nloops, nverts, verts, n, tokens, values);
}

RtVoid RiPatch(RtToken type, ...) {
  if (!motionGate()) return;
  NamedCall named("RiPatch");
  va_list arguments;
  va_start(arguments, type);
  CollectedList list(arguments);
  va_end(arguments);
  patch(type, list.n, list.tokens, list.values);
}

RtVoid RiPatchV(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPatchV");
  patch(type, n, tokens, values);
}

RtVoid RiPatchMesh(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap, ...) {
  if (!motionGate()) return;
  NamedCall named("RiPatchMesh");
  va_list arguments;
  va_start(arguments, vwrap);
  CollectedList list(arguments);
  va_end(arguments);
  patchmesh(type, nu, uwrap, nv, vwrap, list.n, list.tokens, list.values);
}

RtVoid RiPatchMeshV(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap, RtInt n,
                    RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPatchMeshV");
  patchmesh(type, nu, uwrap, nv, vwrap, n, tokens, values);
}

RtVoid RiNuPatch(RtInt nu, RtInt uorder, RtFloat uknot[], RtFloat umin, RtFloat umax, RtInt nv,
                 RtInt vorder, RtFloat vknot[], RtFloat vmin, RtFloat vmax, ...) {
  if (!motionGate()) return;
  NamedCall named("RiNuPatch");
  va_list arguments;
  va_start(arguments, vmax);
  CollectedList list(arguments);
  va_end(arguments);
  nupatch(nu, uorder, uknot, umin, umax, nv, vorder, vknot, vmin, vmax, list.n, list.tokens,
          list.values);
}

RtVoid RiNuPatchV(RtInt nu, RtInt uorder, RtFloat uknot[], RtFloat umin, RtFloat umax, RtInt nv,
                  RtInt vorder, RtFloat vknot[], RtFloat vmin, RtFloat vmax, RtInt n,
                  RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiNuPatchV");
  nupatch(nu, uorder, uknot, umin, umax, nv, vorder, vknot, vmin, vmax, n, tokens, values);
}

// No trim curve reaches the scene.
RtVoid RiTrimCurve(RtInt, RtInt[], RtInt[], RtFloat[], RtFloat[], RtFloat[], RtInt[], RtFloat[],
                   RtFloat[], RtFloat[]) {
  motionGate();
}
