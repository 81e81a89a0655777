// How many numbers the scene library may read from each parameter value.
//
// The library gets value pointers only, so the binding tells it each value's
// length (_zelParameterInfo) right before every call that takes a list. The
// lengths are those the RIB reader held the list to:
// - geometry: the primitive's uniform, varying and vertex counts, worked out
//   here exactly as the reader's verify works them out (in 64 bits, with
//   the basis steps of the last RiBasis), times the token's size;
// - every other call: one element of the token's size, which the reader
//   guarantees by zero-padding a shorter value.
// Points and colours count three numbers per item; a string value is one
// char*. A count that comes out negative is 0.
#pragma once

#include <cstdint>
#include <memory>

#include "interface/ri.h"

// The three counts a parameter's storage class multiplies its size by.
struct PrimitiveCounts {
  int64_t uniform;
  int64_t varying;
  int64_t vertex;
  int64_t facevarying = -1;  // the vertices of all faces; -1: as varying
};

PrimitiveCounts polygonCounts(RtInt nverts);
PrimitiveCounts generalPolygonCounts(RtInt nloops, const RtInt nverts[]);
PrimitiveCounts pointsPolygonsCounts(RtInt npolys, const RtInt nverts[], const RtInt verts[]);
PrimitiveCounts pointsGeneralPolygonsCounts(RtInt npolys, const RtInt nloops[],
                                            const RtInt nverts[], const RtInt verts[]);
PrimitiveCounts patchCounts(RtToken type);
PrimitiveCounts patchMeshCounts(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap);
PrimitiveCounts nuPatchCounts(RtInt nu, RtInt nv);
PrimitiveCounts quadricCounts();

// The forms the RIB reader holds a request's list to, before any token exists
// for the words that pick them; the token forms above call these.
PrimitiveCounts patchCounts(bool bicubic);
// With the current basis steps. A bicubic mesh with a step of 0 has no
// patches: the reader refuses such a mesh before asking.
PrimitiveCounts patchMeshCounts(bool bicubic, int64_t nu, bool uperiodic, int64_t nv,
                                bool vperiodic);

// The basis steps a bicubic patch mesh is divided by: the one store the
// reader and this layer both read. RiBasis sets them; they belong to no
// graphics state. A new conversion starts them afresh at 3.
struct BasisSteps {
  RtInt u;
  RtInt v;
};
BasisSteps basisSteps();

// Geometry of later versions. A subdivision mesh counts as a polygon mesh
// (pointsPolygonsCounts).
//
// One curve of `vertices` control points: its segments and varying values.
// False when no curve of the type and wrap has that many; cubic curves step
// by `vstep`, and no step below 1 makes a cubic curve.
struct CurveShape {
  int64_t segments;
  int64_t varying;
};
bool curveShape(bool cubic, bool periodic, int64_t vertices, int64_t vstep, CurveShape& shape);
// Curves with the v step of the last RiBasis; a curve of no valid shape
// counts no varying values.
PrimitiveCounts curvesCounts(RtToken type, RtInt ncurves, const RtInt nvertices[], RtToken wrap);
PrimitiveCounts pointsCounts(RtInt npoints);
PrimitiveCounts blobbyCounts(RtInt nleaf);

// The basis steps a bicubic patch mesh is divided by. RiBasis sets them; like
// the reader's, they belong to no graphics state. A new conversion must start
// them afresh at 3, as the reader does.
void setBasisSteps(RtInt ustep, RtInt vstep);
void resetBasisSteps();

// The number of scalars of one value of `token`; `counts` is null outside
// geometry.
uint32_t parameterCount(RtToken token, const PrimitiveCounts* counts);

// Tells the scene library about the n parameters about to be sent with
// `codes` (as tokenCodes gave them).
void sendParameterInfo(RtInt n, RtToken tokens[], const uint16_t codes[],
                       const PrimitiveCounts* counts);

// The codes of the n tokens (tokenCodes), after telling the scene library
// about the parameters: what every call with a list does before sending it.
std::unique_ptr<uint16_t[]> announceList(RtInt n, RtToken tokens[],
                                         const PrimitiveCounts* counts = nullptr);
