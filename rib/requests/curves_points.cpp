// Points and curves. A point cloud is as large as its "P"; curves are counted
// per curve from their type, wrap and the v step of the current basis, by the
// same rule the Ri layer counts them with.
#include <cinttypes>

#include "interface/ri.h"
#include "interface/ri_paramcounts.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

namespace {

char* const kNoMore = nullptr;

}  // namespace

void extendedrib::Points() {
  tokenvalue params;
  int32_t n;
  if (!matchPointsList(params, n)) return;
  RiPointsV(n, listCount(params), params.tokens.data, params.values.data);
}

void extendedrib::Curves() {
  String type, wrap;
  Array<int32_t> nvertices;
  tokenvalue params;
  int32_t vertices, varying;
  if (!matchToken(&type)) return;
  const int32_t ncurves = match(nvertices, -1, 1);
  if (ncurves == 0 || !matchToken(&wrap) || !sumCounts(nvertices, ncurves, "nvertices", vertices)) {
    return;
  }
  const bool cubic = type == "cubic";
  const bool periodic = wrap == "periodic";
  if (!cubic && !(type == "linear")) {
    lex.RIBError(kRibBadValue, kRibError, "Unknown curve type \"%s\"", type.c_str());
  } else if (!periodic && !(wrap == "nonperiodic")) {
    lex.RIBError(kRibBadValue, kRibError, "Unknown curve wrap \"%s\"", wrap.c_str());
  } else if (curveCounts(nvertices, ncurves, cubic, periodic, varying)) {
    if (!match(params, 0) || !verify(params, ncurves, varying, vertices, RI_P, kNoMore)) return;
    RiCurvesV(ritext(type), ncurves, nvertices.data, ritext(wrap), listCount(params),
              params.tokens.data, params.values.data);
    return;
  }
  panic();
}

// The varying values of all curves, or 0 after reporting the first curve
// that no curve of the type and wrap can have.
int16_t extendedrib::curveCounts(const Array<int32_t>& nvertices, int32_t ncurves, bool cubic,
                                 bool periodic, int32_t& varying) {
  const int32_t vstep = basisSteps().v;
  if (cubic && vstep < 1) {
    lex.RIBError(kRibBadValue, kRibError,
                 "A v step of %" PRId32 " leaves cubic curves without segments", vstep);
    return 0;
  }
  int64_t total = 0;
  for (int32_t i = 0; i < ncurves; ++i) {
    CurveShape shape;
    const int32_t nv = nvertices.data[i];
    if (curveShape(cubic, periodic, nv, vstep, shape)) {
      total += shape.varying;
    } else if (!cubic) {
      lex.RIBError(kRibBadValue, kRibError,
                   "Curve %" PRId32 " has %" PRId32 " vertices; a linear curve needs 2 or more", i,
                   nv);
      return 0;
    } else {
      lex.RIBError(kRibBadValue, kRibError,
                   "Curve %" PRId32 " has %" PRId32
                   " vertices; a %s cubic curve needs %s the v step %" PRId32,
                   i, nv, periodic ? "periodic" : "nonperiodic",
                   periodic ? "a positive multiple of" : "4 plus a multiple of", vstep);
      return 0;
    }
  }
  return fitCount(total, varying);
}
