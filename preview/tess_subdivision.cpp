// Subdivision meshes: the control mesh refined by Catmull-Clark rules, two
// levels where the triangle budget allows (meshes of the "loop" scheme are
// refined by the same rules; "bilinear" ones are drawn as their control
// mesh). Tags (creases, corners, holes) are not applied.
#include <unordered_map>

#include "preview/args.h"
#include "preview/tessellate.h"

namespace {

constexpr size_t kMaxCount = size_t{1} << 31;
constexpr int32_t kLevels = 2;
constexpr size_t kLevelBudget = size_t{1} << 22;  // faces a level may make

struct PolyMesh {
  std::vector<Vec3> points;
  std::vector<Vec3> colors;  // one per point, or none
  std::vector<std::vector<uint32_t>> faces;
};

uint64_t edgeKey(uint32_t a, uint32_t b) {
  return a < b ? (uint64_t{a} << 32 | b) : (uint64_t{b} << 32 | a);
}

// One level of Catmull-Clark refinement: every face of k sides becomes k quads.
PolyMesh refine(const PolyMesh& m) {
  size_t np = m.points.size();
  bool colored = m.colors.size() == np;
  PolyMesh out;
  // New points: the old ones moved (first, same numbers), then faces, then edges.
  out.points.assign(np, {});
  if (colored) out.colors.assign(np, {});
  std::vector<Vec3> faceSum(np), edgeSum(np), facePointsOf(m.faces.size());
  std::vector<int32_t> valence(np, 0), faceCount(np, 0), boundary(np, 0);
  std::vector<Vec3> boundarySum(np);
  struct Edge {
    uint32_t a, b, index;
    int32_t faces;
    Vec3 faceSum;
  };
  std::unordered_map<uint64_t, Edge> edges;
  for (size_t f = 0; f < m.faces.size(); ++f) {
    const auto& face = m.faces[f];
    Vec3 c, col;
    for (uint32_t v : face) {
      c = c + m.points[v];
      if (colored) col = col + m.colors[v];
    }
    float k = 1.0f / float(face.size());
    facePointsOf[f] = c * k;
    out.points.push_back(c * k);
    if (colored) out.colors.push_back(col * k);
    for (size_t i = 0; i < face.size(); ++i) {
      uint32_t a = face[i], b = face[(i + 1) % face.size()];
      auto [it, added] = edges.try_emplace(edgeKey(a, b), Edge{a, b, 0, 0, {}});
      it->second.faces += 1;
      it->second.faceSum = it->second.faceSum + c * k;
      faceSum[a] = faceSum[a] + c * k;
      faceCount[a] += 1;
    }
  }
  for (auto& [key, e] : edges) {
    Vec3 mid = (m.points[e.a] + m.points[e.b]) * 0.5f;
    e.index = static_cast<uint32_t>(out.points.size());
    out.points.push_back(e.faces == 2 ? (mid * 2 + e.faceSum) * 0.25f : mid);
    if (colored) out.colors.push_back((m.colors[e.a] + m.colors[e.b]) * 0.5f);
    for (uint32_t v : {e.a, e.b}) {
      valence[v] += 1;
      edgeSum[v] = edgeSum[v] + mid;
      if (e.faces != 2) {
        boundary[v] += 1;
        boundarySum[v] = boundarySum[v] + mid;
      }
    }
  }
  for (size_t v = 0; v < np; ++v) {
    Vec3 p = m.points[v];
    int32_t n = valence[v];
    if (boundary[v] == 2) {
      out.points[v] = p * 0.5f + boundarySum[v] * 0.25f;
    } else if (boundary[v] == 0 && n >= 3 && faceCount[v] == n) {
      float inv = 1.0f / float(n);
      out.points[v] = (faceSum[v] * inv + edgeSum[v] * (2 * inv) + p * float(n - 3)) * inv;
    } else {
      out.points[v] = p;  // a corner or a point where the mesh is not a surface
    }
    if (colored) out.colors[v] = m.colors[v];
  }
  for (size_t f = 0; f < m.faces.size(); ++f) {
    const auto& face = m.faces[f];
    uint32_t centre = static_cast<uint32_t>(np + f);
    for (size_t i = 0; i < face.size(); ++i) {
      uint32_t prev = face[(i + face.size() - 1) % face.size()], v = face[i],
               next = face[(i + 1) % face.size()];
      out.faces.push_back(
          {v, edges[edgeKey(v, next)].index, centre, edges[edgeKey(prev, v)].index});
    }
  }
  return out;
}

size_t quadsAfter(const PolyMesh& m) {
  size_t n = 0;
  for (const auto& f : m.faces) n += f.size();
  return n;
}

}  // namespace

void tessSubdivisionMesh(const ZelRecord& r, Builder& b) {
  std::string scheme =
      r.args.empty() || r.args[0].kind() != ZelValue::Kind::Text ? "" : r.args[0].asText();
  size_t nfaces = argCount(r, 1, kMaxCount);
  std::vector<int64_t> sizes = argInts(r, 2), verts = argInts(r, 3);
  if (sizes.size() != nfaces)
    failRecord(
        r, "holds " + std::to_string(sizes.size()) + " face sizes, not " + std::to_string(nfaces));
  PolyMesh m;
  size_t at = 0, npoints = 0;
  for (int64_t n : sizes) {
    if (n < 3 || static_cast<uint64_t>(n) > verts.size() - at)
      failRecord(r, "a face of " + std::to_string(n) + " vertices does not fit its indices");
    std::vector<uint32_t> face;
    for (int64_t k = 0; k < n; ++k, ++at) {
      int64_t v = verts[at];
      if (v < 0 || v >= static_cast<int64_t>(kMaxCount))
        failRecord(r, "vertex index " + std::to_string(v) + " out of range");
      npoints = std::max(npoints, static_cast<size_t>(v) + 1);
      face.push_back(static_cast<uint32_t>(v));
    }
    m.faces.push_back(std::move(face));
  }
  m.points = pointsOf(r, npoints);
  m.points.resize(npoints);
  std::vector<Vec3> cs = triples(paramFloats(r, "Cs"));
  if (cs.size() >= npoints)
    m.colors.assign(cs.begin(), cs.begin() + static_cast<std::ptrdiff_t>(npoints));
  int32_t levels = scheme == "bilinear" ? 0 : kLevels;
  for (int32_t l = 0; l < levels && quadsAfter(m) <= kLevelBudget; ++l) m = refine(m);
  std::vector<uint32_t> triangles;
  for (const auto& f : m.faces) {
    for (size_t i = 1; i + 1 < f.size(); ++i)
      triangles.insert(triangles.end(), {f[0], f[i], f[i + 1]});
  }
  b.smooth(m.points, m.colors, triangles);
}
