// Polygons, general polygons with holes, and their meshes: flat pieces cut
// into triangles.
#include <numeric>

#include "preview/args.h"
#include "preview/tessellate.h"
#include "preview/triangulate.h"

namespace {

// Larger counts than any file could hold values for are refused before
// anything is allocated from them.
constexpr size_t kMaxCount = size_t{1} << 31;

// The colours of the points: "Cs" with one per point, or one for all.
std::vector<Vec3> pointColors(const ZelRecord& r, size_t npoints) {
  std::vector<Vec3> cs = triples(paramFloats(r, "Cs"));
  if (cs.size() >= npoints) return cs;
  if (cs.size() == 1) return std::vector<Vec3>(npoints, cs[0]);
  return {};
}

// A triangle, or a quadrilateral whose two diagonals split it the same way.
bool convex(const std::vector<Vec3>& points, const std::vector<uint32_t>& loop) {
  if (loop.size() < 4) return true;
  Vec3 a = points[loop[0]], b = points[loop[1]], c = points[loop[2]], d = points[loop[3]];
  Vec3 n1 = cross(b - a, c - a), n2 = cross(c - a, d - a), n3 = cross(c - b, d - b),
       n4 = cross(d - b, a - b);
  return dot(n1, n2) > 0 && dot(n3, n4) > 0;
}

// One polygon: loops of indices into the record's points.
void piece(Builder& b, const std::vector<Vec3>& points, const std::vector<Vec3>& colors,
           const std::vector<std::vector<uint32_t>>& loops) {
  // Each piece gets its own copy of the points it uses, so that its normal is its own.
  std::vector<Vec3> own, ownColors;
  std::vector<std::vector<uint32_t>> local(loops.size());
  for (size_t l = 0; l < loops.size(); ++l) {
    for (uint32_t i : loops[l]) {
      local[l].push_back(static_cast<uint32_t>(own.size()));
      own.push_back(points[i]);
      if (!colors.empty()) ownColors.push_back(colors[i]);
    }
  }
  b.flat(own, ownColors, triangulate(own, local));
}

// Loops of consecutive indices from 0: the points of one (general) polygon.
std::vector<std::vector<uint32_t>> consecutive(const std::vector<int64_t>& sizes) {
  std::vector<std::vector<uint32_t>> loops(sizes.size());
  uint32_t next = 0;
  for (size_t l = 0; l < sizes.size(); ++l) {
    loops[l].resize(static_cast<size_t>(sizes[l]));
    std::iota(loops[l].begin(), loops[l].end(), next);
    next += static_cast<uint32_t>(sizes[l]);
  }
  return loops;
}

// A list of counts, each 0 or more, of the length the record said, and their sum.
std::vector<int64_t> counts(const ZelRecord& r, size_t arg, size_t length, size_t& sum) {
  std::vector<int64_t> c = argInts(r, arg);
  if (c.size() != length) {
    failRecord(r, "argument " + std::to_string(arg + 1) + " holds " + std::to_string(c.size()) +
                      " counts, not " + std::to_string(length));
  }
  sum = 0;
  for (int64_t n : c) {
    if (n < 0 || static_cast<uint64_t>(n) > kMaxCount)
      failRecord(r, "count " + std::to_string(n) + " out of range");
    sum += static_cast<size_t>(n);
  }
  return c;
}

// The points a mesh's vertex indices need, each index checked.
size_t pointsNeeded(const ZelRecord& r, const std::vector<int64_t>& verts) {
  int64_t top = -1;
  for (int64_t v : verts) {
    if (v < 0 || v >= static_cast<int64_t>(kMaxCount))
      failRecord(r, "vertex index " + std::to_string(v) + " out of range");
    top = std::max(top, v);
  }
  return static_cast<size_t>(top + 1);
}

std::vector<std::vector<uint32_t>> meshLoops(const std::vector<int64_t>& sizes,
                                             const std::vector<int64_t>& verts) {
  std::vector<std::vector<uint32_t>> loops(sizes.size());
  size_t at = 0;
  for (size_t l = 0; l < sizes.size(); ++l) {
    for (int64_t k = 0; k < sizes[l]; ++k) loops[l].push_back(static_cast<uint32_t>(verts[at++]));
  }
  return loops;
}

void mesh(const ZelRecord& r, Builder& b, const std::vector<int64_t>& loopsPerFace,
          const std::vector<int64_t>& sizes, size_t indexArg, size_t nindices) {
  std::vector<int64_t> verts = argInts(r, indexArg);
  if (verts.size() != nindices)
    failRecord(r, "holds " + std::to_string(verts.size()) + " vertex indices, not " +
                      std::to_string(nindices));
  size_t npoints = pointsNeeded(r, verts);
  std::vector<Vec3> points = pointsOf(r, npoints);
  points.resize(npoints);
  if (!b.mayShow(points)) return;
  std::vector<std::vector<uint32_t>> loops = meshLoops(sizes, verts);
  std::vector<Vec3> colors = pointColors(r, points.size());
  if (!hasParam(r, "N")) {
    // Without normals of its own a mesh is faceted: each face flat.
    size_t at = 0;
    for (int64_t n : loopsPerFace) {
      std::vector<std::vector<uint32_t>> face(loops.begin() + static_cast<std::ptrdiff_t>(at),
                                              loops.begin() + static_cast<std::ptrdiff_t>(at) + n);
      at += static_cast<size_t>(n);
      if (b.full()) return;
      piece(b, points, colors, face);
    }
    return;
  }
  // With normals the faces share their points, shaded smooth across the mesh.
  std::vector<uint32_t> triangles;
  size_t at = 0;
  for (int64_t n : loopsPerFace) {
    const std::vector<uint32_t>& outline = loops[at];
    if (n == 1 && outline.size() <= 4 && convex(points, outline)) {
      for (size_t i = 1; i + 1 < outline.size(); ++i) {
        triangles.insert(triangles.end(), {outline[0], outline[i], outline[i + 1]});
      }
    } else {
      std::vector<std::vector<uint32_t>> face(loops.begin() + static_cast<std::ptrdiff_t>(at),
                                              loops.begin() + static_cast<std::ptrdiff_t>(at) + n);
      std::vector<uint32_t> cut = triangulate(points, face);
      triangles.insert(triangles.end(), cut.begin(), cut.end());
    }
    at += static_cast<size_t>(n);
  }
  b.smooth(points, colors, triangles);
}

}  // namespace

void tessPolygon(const ZelRecord& r, Builder& b) {
  size_t n = argCount(r, 0, kMaxCount);
  std::vector<Vec3> points = pointsOf(r, n);
  piece(b, points, pointColors(r, points.size()), consecutive({static_cast<int64_t>(n)}));
}

void tessGeneralPolygon(const ZelRecord& r, Builder& b) {
  size_t total = 0;
  std::vector<int64_t> sizes = counts(r, 1, argCount(r, 0, kMaxCount), total);
  std::vector<Vec3> points = pointsOf(r, total);
  piece(b, points, pointColors(r, points.size()), consecutive(sizes));
}

void tessPolygonMesh(const ZelRecord& r, Builder& b) {
  size_t npolys = argCount(r, 0, kMaxCount), nindices = 0;
  std::vector<int64_t> sizes = counts(r, 1, npolys, nindices);
  mesh(r, b, std::vector<int64_t>(npolys, 1), sizes, 2, nindices);
}

void tessGeneralPolygonMesh(const ZelRecord& r, Builder& b) {
  size_t npolys = argCount(r, 0, kMaxCount), nloops = 0, nindices = 0;
  std::vector<int64_t> loopsPerFace = counts(r, 1, npolys, nloops);
  std::vector<int64_t> sizes = counts(r, 2, nloops, nindices);
  mesh(r, b, loopsPerFace, sizes, 3, nindices);
}
