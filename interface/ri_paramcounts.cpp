#include "interface/ri_paramcounts.h"

#include <cstring>
#include <limits>
#include <vector>

#include "interface/scene/zel.h"
#include "interface/token.h"

namespace {

// The reader counts in 32-bit integers; these wrap as its arithmetic does
// instead of overflowing, so that a count that wrapped there wraps here too.
int32_t add(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

int32_t multiply(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

// The sum of the first n entries; none when n is 0 or less.
int32_t sum(const RtInt values[], int32_t n) {
  int32_t total = 0;
  if (values) {
    for (int32_t i = 0; i < n; ++i) total = add(total, values[i]);
  }
  return total;
}

// The highest of the first n indices, never below 0.
int32_t highest(const RtInt values[], int32_t n) {
  int32_t top = 0;
  if (values) {
    for (int32_t i = 0; i < n; ++i) {
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

// Patches along one direction of a mesh. A bicubic mesh with a step below 1
// has none: the reader refuses to divide by such a step.
int32_t meshPatches(bool bicubic, bool periodic, int32_t points, int32_t step) {
  if (!bicubic) return periodic ? points : add(points, -1);
  if (step < 1) return 0;
  return periodic ? points / step : add(add(points, -4) / step, 1);
}

RtInt gUStep = 3;
RtInt gVStep = 3;

}  // namespace

PrimitiveCounts polygonCounts(RtInt nverts) {
  return {1, nverts, nverts};
}

PrimitiveCounts generalPolygonCounts(RtInt nloops, const RtInt nverts[]) {
  int32_t vertices = sum(nverts, nloops);
  return {1, vertices, vertices};
}

PrimitiveCounts pointsPolygonsCounts(RtInt npolys, const RtInt nverts[], const RtInt verts[]) {
  int32_t points = add(highest(verts, sum(nverts, npolys)), 1);
  return {npolys, points, points};
}

PrimitiveCounts pointsGeneralPolygonsCounts(RtInt npolys, const RtInt nloops[],
                                            const RtInt nverts[], const RtInt verts[]) {
  int32_t loops = sum(nloops, npolys);
  int32_t points = add(highest(verts, sum(nverts, loops)), 1);
  return {npolys, points, points};
}

PrimitiveCounts patchCounts(RtToken type) {
  int32_t corners = isWord(type, "bicubic") ? 16 : 4;
  return {1, corners, corners};
}

PrimitiveCounts patchMeshCounts(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap) {
  bool bicubic = isWord(type, "bicubic");
  bool uperiodic = isWord(uwrap, "periodic");
  bool vperiodic = isWord(vwrap, "periodic");
  int32_t pu = meshPatches(bicubic, uperiodic, nu, gUStep);
  int32_t pv = meshPatches(bicubic, vperiodic, nv, gVStep);
  int32_t varying = multiply(add(pu, uperiodic ? 0 : 1), add(pv, vperiodic ? 0 : 1));
  return {multiply(pu, pv), varying, multiply(nu, nv)};
}

PrimitiveCounts nuPatchCounts(RtInt nu, RtInt nv) {
  int32_t points = multiply(nu, nv);
  return {1, points, points};
}

PrimitiveCounts quadricCounts() {
  return {1, 4, 4};
}

void setBasisSteps(RtInt ustep, RtInt vstep) {
  gUStep = ustep;
  gVStep = vstep;
}

void resetBasisSteps() {
  setBasisSteps(3, 3);
}

uint32_t parameterCount(RtToken token, const PrimitiveCounts* counts) {
  Token* record = token ? find(token) : nullptr;
  if (!record || record->type == TypeNone) return 0;

  int32_t items = record->size;
  if (counts) {
    switch (record->tokenClass) {
      case ClassUniform:
        items = multiply(items, counts->uniform);
        break;
      case ClassVarying:
        items = multiply(items, counts->varying);
        break;
      case ClassVertex:
        items = multiply(items, counts->vertex);
        break;
      case ClassNone:
        break;
    }
  }
  if (items <= 0) return 0;
  // A string value is one char*, however the class counts it.
  if (record->type == TypeString) return 1;
  uint64_t scalars = static_cast<uint64_t>(items);
  if (record->type == TypePoint || record->type == TypeColor) scalars *= 3;
  constexpr uint64_t most = std::numeric_limits<uint32_t>::max();
  return static_cast<uint32_t>(scalars < most ? scalars : most);
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
