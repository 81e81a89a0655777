// Polygon requests. The handlers count what the request describes (vertices,
// polygons, loops), read the later arrays at those lengths, and hold the
// parameter list against the counts.
//
// Counts and vertex indices must not be negative here, although nothing else
// about them is checked: a negative count would leave the next array
// open-ended, and the scene library indexes "P" by the vertex indices. Both
// are refused with a message, and the request is dropped.
#include <cinttypes>

#include "interface/ri.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/rendrib.h"
#include "rib/tokenvalue.h"

namespace {

char* const kNoMore = nullptr;

}  // namespace

// Vertices are shared, so the points array must reach the highest index used;
// an index no polygon uses still counts as a point.
int16_t pointCount(lexanrib& lex, const Array<int32_t>& verts, int32_t n, int64_t& points) {
  int32_t highest = 0;
  for (int32_t i = 0; i < n; ++i) {
    if (verts.data[i] < 0) {
      lex.RIBError(kRibBadValue, kRibError, "Negative vertex index %ld",
                   static_cast<long>(verts.data[i]));
      return 0;
    }
    if (verts.data[i] > highest) highest = verts.data[i];
  }
  points = int64_t{highest} + 1;
  return 1;
}

// A list whose "P" gives the point count: a polygon's vertices, a point
// cloud's points. One uniform value; varying and vertex values one a point.
int16_t rendrib::matchPointsList(tokenvalue& params, int32_t& n) {
  if (!match(params, 0)) return 0;
  const int32_t p = indexOf(params, RI_P);
  if (p < 0) {
    lex.RIBError(kRibBadValue, kRibError, "'P' argument is required");
    return 0;
  }
  n = params.sizes.data[p];
  return verify(params, 1, n, n, RI_P, kNoMore);
}

void rendrib::Polygon() {
  tokenvalue params;
  int32_t n;
  if (!matchPointsList(params, n)) return;
  RiPolygonV(n, listCount(params), params.tokens.data, params.values.data);
}

// The loops of one polygon share its uniform value.
void rendrib::GeneralPolygon() {
  Array<int32_t> nverts;
  tokenvalue params;
  int32_t s;
  const int32_t nloops = match(nverts, -1, 1);
  if (nloops == 0 || !sumCounts(nverts, nloops, "nverts", s) || !match(params, 0)) return;
  if (!verify(params, 1, s, s, RI_P, kNoMore)) return;
  RiGeneralPolygonV(nloops, nverts.data, listCount(params), params.tokens.data, params.values.data);
}

// A mesh's list, with its face-vertex count for facevarying parameters.
int16_t rendrib::verifyFaces(const tokenvalue& params, int32_t npolys, int32_t points,
                             int32_t faceVertexCount) {
  faceVertices = faceVertexCount;
  const int16_t fits = verify(params, npolys, points, points, RI_P, kNoMore);
  faceVertices = -1;
  return fits;
}

void rendrib::PointsPolygons() {
  Array<int32_t> nverts, verts;
  tokenvalue params;
  int32_t s, points;
  int64_t highest;
  const int32_t npolys = match(nverts, -1, 0);
  if (npolys == 0 || !sumCounts(nverts, npolys, "nverts", s) || !match(verts, s, 1)) return;
  if (!pointCount(lex, verts, s, highest)) {
    panic();
    return;
  }
  if (!fitCount(highest, points) || !match(params, 0)) return;
  if (!verifyFaces(params, npolys, points, s)) return;
  RiPointsPolygonsV(npolys, nverts.data, verts.data, listCount(params), params.tokens.data,
                    params.values.data);
}

void rendrib::PointsGeneralPolygons() {
  Array<int32_t> nloops, nverts, verts;
  tokenvalue params;
  int32_t l, s, points;
  int64_t highest;
  const int32_t npolys = match(nloops, -1, 0);
  if (npolys == 0 || !sumCounts(nloops, npolys, "nloops", l) || !match(nverts, l, 1)) return;
  if (!sumCounts(nverts, l, "nverts", s) || !match(verts, s, 1)) return;
  if (!pointCount(lex, verts, s, highest)) {
    panic();
    return;
  }
  if (!fitCount(highest, points) || !match(params, 0)) return;
  if (!verifyFaces(params, npolys, points, s)) return;
  RiPointsGeneralPolygonsV(npolys, nloops.data, nverts.data, verts.data, listCount(params),
                           params.tokens.data, params.values.data);
}
