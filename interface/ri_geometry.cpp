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
  PrimitiveCounts counts = polygonCounts(nverts);
  auto codes = announceList(n, tokens, &counts);
  _zelPolygonV(nverts, n, codes.get(), values);
}

void generalpolygon(RtInt nloops, RtInt nverts[], RtInt n, RtToken tokens[], RtPointer values[]) {
  PrimitiveCounts counts = generalPolygonCounts(nloops, nverts);
  auto codes = announceList(n, tokens, &counts);
  _zelGeneralPolygonV(nloops, nverts, n, codes.get(), values);
}

void pointspolygons(RtInt npolys, RtInt nverts[], RtInt verts[], RtInt n, RtToken tokens[],
                    RtPointer values[]) {
  PrimitiveCounts counts = pointsPolygonsCounts(npolys, nverts, verts);
  auto codes = announceList(n, tokens, &counts);
  _zelPolygonMeshV(npolys, nverts, verts, n, codes.get(), values);
}

void pointsgeneralpolygons(RtInt npolys, RtInt nloops[], RtInt nverts[], RtInt verts[], RtInt n,
                           RtToken tokens[], RtPointer values[]) {
  PrimitiveCounts counts = pointsGeneralPolygonsCounts(npolys, nloops, nverts, verts);
  auto codes = announceList(n, tokens, &counts);
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
  PrimitiveCounts counts = nuPatchCounts(nu, nv);
  auto codes = announceList(n, tokens, &counts);
  _zelNurbMeshV(nu, uorder, uknot, umin, umax, nv, vorder, vknot, vmin, vmax, n, codes.get(),
                values);
}

}  // namespace

RtVoid RiPolygon(RtInt nverts, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiPolygon", nverts, polygon, nverts);
}

RtVoid RiPolygonV(RtInt nverts, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPolygonV");
  polygon(nverts, n, tokens, values);
}

RtVoid RiGeneralPolygon(RtInt nloops, RtInt nverts[], ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiGeneralPolygon", nverts, generalpolygon, nloops, nverts);
}

RtVoid RiGeneralPolygonV(RtInt nloops, RtInt nverts[], RtInt n, RtToken tokens[],
                         RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiGeneralPolygonV");
  generalpolygon(nloops, nverts, n, tokens, values);
}

RtVoid RiPointsPolygons(RtInt npolys, RtInt nverts[], RtInt verts[], ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiPointsPolygons", verts, pointspolygons, npolys, nverts, verts);
}

RtVoid RiPointsPolygonsV(RtInt npolys, RtInt nverts[], RtInt verts[], RtInt n, RtToken tokens[],
                         RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPointsPolygonsV");
  pointspolygons(npolys, nverts, verts, n, tokens, values);
}

RtVoid RiPointsGeneralPolygons(RtInt npolys, RtInt nloops[], RtInt nverts[], RtInt verts[], ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiPointsGeneralPolygons", verts, pointsgeneralpolygons, npolys,
                nloops, nverts, verts);
}

RtVoid RiPointsGeneralPolygonsV(RtInt npolys, RtInt nloops[], RtInt nverts[], RtInt verts[],
                                RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPointsGeneralPolygonsV");
  pointsgeneralpolygons(npolys, nloops, nverts, verts, n, tokens, values);
}

RtVoid RiPatch(RtToken type, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiPatch", type, patch, type);
}

RtVoid RiPatchV(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPatchV");
  patch(type, n, tokens, values);
}

RtVoid RiPatchMesh(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiPatchMesh", vwrap, patchmesh, type, nu, uwrap, nv, vwrap);
}

RtVoid RiPatchMeshV(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap, RtInt n,
                    RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPatchMeshV");
  patchmesh(type, nu, uwrap, nv, vwrap, n, tokens, values);
}

RtVoid RiNuPatch(RtInt nu, RtInt uorder, RtFloat uknot[], RtFloat umin, RtFloat umax, RtInt nv,
                 RtInt vorder, RtFloat vknot[], RtFloat vmin, RtFloat vmax, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiNuPatch", vmax, nupatch, nu, uorder, uknot, umin, umax, nv,
                vorder, vknot, vmin, vmax);
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
