// Patch and basis requests. The steps of the current basis, which later
// bicubic patch meshes divide by, are kept by the Ri layer that counts the
// same meshes for the scene library; they belong to no graphics state, so
// attribute blocks do not restore them.
#include <cinttypes>

#include "interface/ri.h"
#include "interface/ri_paramcounts.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/rendrib.h"
#include "rib/tokenvalue.h"

namespace {

char* const kNoMore = nullptr;

struct NamedBasis {
  const char* name;
  RtBasis* basis;
};

// The Ri layer knows a standard basis by its address, so the globals
// themselves are handed on, never copies.
const NamedBasis kBases[] = {
    {"bezier", &RiBezierBasis},
    {"b-spline", &RiBSplineBasis},
    {"catmull-rom", &RiCatmullRomBasis},
    {"hermite", &RiHermiteBasis},
    {"power", &RiPowerBasis},
};

}  // namespace

// One direction of a Basis request: a name or a bracketed 4x4 matrix, then the
// step. A name is compared on its stored text, so "null" is just unknown.
int16_t rendrib::matchBasis(String* name, Array<float>& matrix, RtFloat (*&basis)[4],
                            int32_t& step) {
  if (token == LEXSTRING) {
    if (!match(name)) return 0;
    basis = nullptr;
    for (const NamedBasis& b : kBases) {
      if (*name == b.name) basis = *b.basis;
    }
    if (basis == nullptr) {
      lex.RIBError(kRibBadBasis, kRibError, "Unknown Basis '%s'", name->c_str());
      panic();
      return 0;
    }
  } else {
    if (!match(matrix, 16, 1)) return 0;
    basis = reinterpret_cast<RtFloat(*)[4]>(matrix.data);
  }
  return match(step);
}

// The steps change (in RiBasis) only once all four arguments have been read.
void rendrib::Basis() {
  String uname, vname;
  Array<float> umatrix, vmatrix;
  RtFloat(*ubasis)[4];
  RtFloat(*vbasis)[4];
  int32_t u, v;
  if (!matchBasis(&uname, umatrix, ubasis, u) || !matchBasis(&vname, vmatrix, vbasis, v)) return;
  RiBasis(ubasis, u, vbasis, v);
}

// Any word but "bicubic" counts as bilinear and goes on unexamined.
void rendrib::Patch() {
  String type;
  tokenvalue params;
  if (!matchToken(&type) || !match(params, 0)) return;
  const PrimitiveCounts c = patchCounts(type == "bicubic");
  if (!verify(params, 1, static_cast<int32_t>(c.varying), static_cast<int32_t>(c.vertex), RI_P,
              RI_PW, kNoMore))
    return;
  RiPatchV(ritext(type), listCount(params), params.tokens.data, params.values.data);
}

void rendrib::PatchMesh() {
  String type, uwrap, vwrap;
  int32_t nu, nv, uniform, varying, vertex;
  tokenvalue params;
  if (!matchToken(&type) || !match(nu) || !matchToken(&uwrap) || !match(nv) ||
      !matchToken(&vwrap) || !nonNegative(nu, "nu") || !nonNegative(nv, "nv")) {
    return;
  }
  const bool bicubic = type == "bicubic";
  const bool uperiodic = uwrap == "periodic";
  const bool vperiodic = vwrap == "periodic";
  // A basis step of 0 would divide by zero; such a mesh has no count of
  // patches, so the request is refused.
  const BasisSteps steps = basisSteps();
  if (bicubic && (steps.u == 0 || steps.v == 0)) {
    lex.RIBError(kRibBadValue, kRibError,
                 "A basis step of 0 leaves a bicubic patch mesh without patches");
    panic();
    return;
  }
  const PrimitiveCounts c = patchMeshCounts(bicubic, nu, uperiodic, nv, vperiodic);
  if (!fitCount(c.uniform, uniform) || !fitCount(c.varying, varying) ||
      !fitCount(c.vertex, vertex) || !match(params, 0)) {
    return;
  }
  if (!verify(params, uniform, varying, vertex, RI_P, RI_PW, RI_PZ, kNoMore)) return;
  RiPatchMeshV(ritext(type), nu, ritext(uwrap), nv, ritext(vwrap), listCount(params),
               params.tokens.data, params.values.data);
}

// Each direction: control points, order, then exactly points + order knots in
// brackets, then the parameter range.
void rendrib::NuPatch() {
  int32_t nu, uorder, nv, vorder, uknots, vknots, points;
  Array<float> uknot, vknot;
  float umin, umax, vmin, vmax;
  tokenvalue params;
  if (!match(nu) || !match(uorder) || !nonNegative(nu, "nu") || !nonNegative(uorder, "uorder") ||
      !fitCount(int64_t{nu} + uorder, uknots) || !match(uknot, uknots, 1) || !match(umin) ||
      !match(umax)) {
    return;
  }
  if (!match(nv) || !match(vorder) || !nonNegative(nv, "nv") || !nonNegative(vorder, "vorder") ||
      !fitCount(int64_t{nv} + vorder, vknots) || !match(vknot, vknots, 1) || !match(vmin) ||
      !match(vmax)) {
    return;
  }
  if (!fitCount(nuPatchCounts(nu, nv).vertex, points) || !match(params, 0)) return;
  if (!verify(params, 1, points, points, RI_P, RI_PW, kNoMore)) return;
  RiNuPatchV(nu, uorder, uknot.data, umin, umax, nv, vorder, vknot.data, vmin, vmax,
             listCount(params), params.tokens.data, params.values.data);
}

// Nine bracketed arrays and no parameter list. A knot count that disagrees
// with the orders and control points is reported, but the request goes on.
void rendrib::TrimCurve() {
  Array<int32_t> ncurves, order, n;
  Array<float> knot, min, max, u, v, w;
  int32_t curves, orders, points;
  const int32_t nloops = match(ncurves, -1, 1);
  if (nloops == 0 || !sumCounts(ncurves, nloops, "ncurves", curves) || !match(order, curves, 1)) {
    return;
  }
  const int32_t knots = match(knot, -1, 1);
  if (knots == 0 || !match(min, curves, 1) || !match(max, curves, 1) || !match(n, curves, 1) ||
      !sumCounts(n, curves, "n", points) || !sumCounts(order, curves, "order", orders)) {
    return;
  }
  if (knots != int64_t{orders} + points) {
    lex.RIBError(kRibBadValue, kRibError, "Number of knots inconsistent with order and n.");
  }
  if (!match(u, points, 1) || !match(v, points, 1) || !match(w, points, 1)) return;
  RiTrimCurve(nloops, ncurves.data, order.data, knot.data, min.data, max.data, n.data, u.data,
              v.data, w.data);
}
