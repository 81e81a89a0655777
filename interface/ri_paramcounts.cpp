#include "interface/ri_paramcounts.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include "interface/ri_internal.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

namespace {

// The sum of the first n entries; none when n is 0 or less.
int64_t sum(const RtInt values[], int64_t n) {
  int64_t total = 0;
  if (values) {
    for (int64_t i = 0; i < n; ++i) total += values[i];
  }
  return total;
}

// The highest of the first n indices, never below 0.
int64_t highest(const RtInt values[], int64_t n) {
  int64_t top = 0;
  if (values) {
    for (int64_t i = 0; i < n; ++i) {
      if (values[i] > top) top = values[i];
    }
  }
  return top;
}

// The reader compares these words as text, exactly, case included.
bool isWord(RtToken token, const char* word) {
  const char* text = token ? tostring(token) : nullptr;
  return text && std::strcmp(text, word) == 0;
}

// Patches along one direction of a mesh. The 4 is fixed whatever the step;
// divisions truncate toward zero, so (3 - 4) / 3 + 1 is 1 patch.
int64_t meshPatches(bool bicubic, bool periodic, int64_t points, int64_t step) {
  if (!bicubic) return periodic ? points : points - 1;
  if (step == 0) return 0;
  return periodic ? points / step : (points - 4) / step + 1;
}

BasisSteps gSteps = {3, 3};

}  // namespace

PrimitiveCounts polygonCounts(RtInt nverts) {
  return {1, nverts, nverts};
}

PrimitiveCounts generalPolygonCounts(RtInt nloops, const RtInt nverts[]) {
  int64_t vertices = sum(nverts, nloops);
  return {1, vertices, vertices};
}

PrimitiveCounts pointsPolygonsCounts(RtInt npolys, const RtInt nverts[], const RtInt verts[]) {
  const int64_t faceVertices = sum(nverts, npolys);
  const int64_t points = highest(verts, faceVertices) + 1;
  return {npolys, points, points, faceVertices};
}

PrimitiveCounts pointsGeneralPolygonsCounts(RtInt npolys, const RtInt nloops[],
                                            const RtInt nverts[], const RtInt verts[]) {
  const int64_t faceVertices = sum(nverts, sum(nloops, npolys));
  const int64_t points = highest(verts, faceVertices) + 1;
  return {npolys, points, points, faceVertices};
}

PrimitiveCounts patchCounts(bool bicubic) {
  int64_t corners = bicubic ? 16 : 4;
  return {1, corners, corners};
}

PrimitiveCounts patchCounts(RtToken type) {
  return patchCounts(isWord(type, "bicubic"));
}

PrimitiveCounts patchMeshCounts(bool bicubic, int64_t nu, bool uperiodic, int64_t nv,
                                bool vperiodic) {
  int64_t pu = meshPatches(bicubic, uperiodic, nu, gSteps.u);
  int64_t pv = meshPatches(bicubic, vperiodic, nv, gSteps.v);
  int64_t varying = (pu + (uperiodic ? 0 : 1)) * (pv + (vperiodic ? 0 : 1));
  return {pu * pv, varying, nu * nv};
}

PrimitiveCounts patchMeshCounts(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap) {
  return patchMeshCounts(isWord(type, "bicubic"), nu, isWord(uwrap, "periodic"), nv,
                         isWord(vwrap, "periodic"));
}

PrimitiveCounts nuPatchCounts(RtInt nu, RtInt nv) {
  int64_t points = int64_t{nu} * nv;
  return {1, points, points};
}

PrimitiveCounts quadricCounts() {
  return {1, 4, 4};
}

BasisSteps basisSteps() {
  return gSteps;
}

bool curveShape(bool cubic, bool periodic, int64_t vertices, int64_t vstep, CurveShape& shape) {
  if (!cubic) {
    shape = {periodic ? vertices : vertices - 1, vertices};
    return vertices >= 2;
  }
  if (vstep < 1) return false;
  if (periodic) {
    shape = {vertices / vstep, vertices / vstep};
    return vertices > 0 && vertices % vstep == 0;
  }
  shape = {(vertices - 4) / vstep + 1, (vertices - 4) / vstep + 2};
  return vertices >= 4 && (vertices - 4) % vstep == 0;
}

PrimitiveCounts curvesCounts(RtToken type, RtInt ncurves, const RtInt nvertices[], RtToken wrap) {
  const bool cubic = isWord(type, "cubic");
  const bool periodic = isWord(wrap, "periodic");
  int64_t varying = 0;
  for (RtInt i = 0; nvertices && i < ncurves; ++i) {
    CurveShape shape;
    if (curveShape(cubic, periodic, nvertices[i], gSteps.v, shape)) varying += shape.varying;
  }
  return {ncurves, varying, sum(nvertices, ncurves)};
}

PrimitiveCounts pointsCounts(RtInt npoints) {
  return {1, npoints, npoints};
}

PrimitiveCounts blobbyCounts(RtInt nleaf) {
  return {1, nleaf, nleaf};
}

void setBasisSteps(RtInt ustep, RtInt vstep) {
  gSteps = {ustep, vstep};
}

void resetBasisSteps() {
  setBasisSteps(3, 3);
}

uint32_t parameterCount(RtToken token, const PrimitiveCounts* counts) {
  Token* record = token ? find(token) : nullptr;
  if (!record || record->type == TypeNone) return 0;

  // Elements of the token's size: one outside geometry, else as the
  // primitive counts the token's class.
  int64_t elements = 1;
  if (counts && record->tokenClass == ClassUniform) elements = counts->uniform;
  if (counts && record->tokenClass == ClassVarying) elements = counts->varying;
  if (counts && record->tokenClass == ClassVertex) elements = counts->vertex;
  if (counts && (record->tokenClass == ClassFaceVarying || record->tokenClass == ClassFaceVertex)) {
    elements = counts->facevarying >= 0 ? counts->facevarying : counts->varying;
  }
  if (elements <= 0 || record->size <= 0) return 0;

  // Each factor is cut below 2^32 first, so no product overflows; what no
  // value can hold is cut to the largest count.
  constexpr int64_t most = std::numeric_limits<uint32_t>::max();
  int64_t scalars = std::min(elements, most) * record->size;
  scalars = std::min(scalars, most) * floatsPerItem(record->type);
  return static_cast<uint32_t>(std::min(scalars, most));
}

void sendParameterInfo(RtInt n, RtToken tokens[], const uint16_t codes[],
                       const PrimitiveCounts* counts) {
  if (n <= 0) {
    _zelParameterInfo(0, nullptr);
    return;
  }
  std::vector<ZelParam> params(static_cast<size_t>(n));
  for (RtInt i = 0; i < n; ++i) {
    Token* record = tokens[i] ? find(tokens[i]) : nullptr;
    ZelParam& param = params[static_cast<size_t>(i)];
    param.name = record ? record->name.c_str() : nullptr;
    param.code = codes[i];
    param.type = static_cast<uint8_t>(record ? record->type : TypeNone);
    param.tokenClass = static_cast<uint8_t>(record ? record->tokenClass : ClassNone);
    param.count = parameterCount(tokens[i], counts);
  }
  _zelParameterInfo(n, params.data());
}

std::unique_ptr<uint16_t[]> announceList(RtInt n, RtToken tokens[], const PrimitiveCounts* counts) {
  auto codes = tokenCodes(n, tokens);
  sendParameterInfo(n, tokens, codes.get(), counts);
  return codes;
}
