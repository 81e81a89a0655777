#include "preview/triangulate.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr size_t kEarClipLimit = 1000;

struct P2 {
  double x, y;
};

double cross2(P2 o, P2 a, P2 b) {
  return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

double signedArea(const std::vector<P2>& flat, const std::vector<uint32_t>& loop) {
  double a = 0;
  for (size_t i = 0; i < loop.size(); ++i) {
    P2 p = flat[loop[i]], q = flat[loop[(i + 1) % loop.size()]];
    a += p.x * q.y - q.x * p.y;
  }
  return a / 2;
}

// The points on the plane that the outline lies in most nearly.
std::vector<P2> flatten(const std::vector<Vec3>& points, const std::vector<uint32_t>& outline) {
  Vec3 n;
  for (size_t i = 0; i < outline.size(); ++i) {
    Vec3 a = points[outline[i]], b = points[outline[(i + 1) % outline.size()]];
    n = n + Vec3{(a.y - b.y) * (a.z + b.z), (a.z - b.z) * (a.x + b.x), (a.x - b.x) * (a.y + b.y)};
  }
  float ax = std::abs(n.x), ay = std::abs(n.y), az = std::abs(n.z);
  std::vector<P2> flat(points.size());
  for (size_t i = 0; i < points.size(); ++i) {
    Vec3 p = points[i];
    flat[i] = az >= ax && az >= ay ? P2{p.x, p.y} : ax >= ay ? P2{p.y, p.z} : P2{p.z, p.x};
  }
  return flat;
}

// Splices a hole into the outline at the outline vertex that a ray from the
// hole's rightmost point meets first.
void joinHole(const std::vector<P2>& flat, std::vector<uint32_t>& outline,
              const std::vector<uint32_t>& hole) {
  size_t m = 0;
  for (size_t i = 1; i < hole.size(); ++i) {
    if (flat[hole[i]].x > flat[hole[m]].x) m = i;
  }
  P2 mp = flat[hole[m]];
  size_t best = 0;
  double bestX = INFINITY;
  for (size_t i = 0; i < outline.size(); ++i) {
    P2 a = flat[outline[i]], b = flat[outline[(i + 1) % outline.size()]];
    if ((a.y > mp.y) == (b.y > mp.y)) continue;
    double x = a.x + (mp.y - a.y) / (b.y - a.y) * (b.x - a.x);
    if (x >= mp.x && x < bestX) {
      bestX = x;
      best = a.x > b.x ? i : (i + 1) % outline.size();
    }
  }
  std::vector<uint32_t> joined(outline.begin(), outline.begin() + best + 1);
  for (size_t k = 0; k <= hole.size(); ++k) joined.push_back(hole[(m + k) % hole.size()]);
  joined.insert(joined.end(), outline.begin() + best, outline.end());
  outline = std::move(joined);
}

bool isEar(const std::vector<P2>& flat, const std::vector<uint32_t>& ring, size_t i) {
  size_t n = ring.size();
  P2 a = flat[ring[(i + n - 1) % n]], b = flat[ring[i]], c = flat[ring[(i + 1) % n]];
  if (cross2(a, b, c) <= 0) return false;
  for (size_t k = 0; k < n; ++k) {
    if (k == i || k == (i + 1) % n || k == (i + n - 1) % n) continue;
    P2 p = flat[ring[k]];
    if ((p.x == a.x && p.y == a.y) || (p.x == b.x && p.y == b.y) || (p.x == c.x && p.y == c.y))
      continue;
    if (cross2(a, b, p) >= 0 && cross2(b, c, p) >= 0 && cross2(c, a, p) >= 0) return false;
  }
  return true;
}

}  // namespace

std::vector<uint32_t> triangulate(const std::vector<Vec3>& points,
                                  const std::vector<std::vector<uint32_t>>& loops) {
  std::vector<uint32_t> out;
  if (loops.empty() || loops[0].size() < 3) return out;
  std::vector<P2> flat = flatten(points, loops[0]);
  std::vector<uint32_t> ring = loops[0];
  if (signedArea(flat, ring) < 0) std::reverse(ring.begin(), ring.end());
  std::vector<std::vector<uint32_t>> holes;
  for (size_t l = 1; l < loops.size(); ++l) {
    if (loops[l].size() < 3) continue;
    holes.push_back(loops[l]);
    if (signedArea(flat, holes.back()) > 0) std::reverse(holes.back().begin(), holes.back().end());
  }
  // Rightmost holes first, so that a later cut never crosses an earlier hole.
  auto rightmost = [&](const std::vector<uint32_t>& h) {
    double x = -INFINITY;
    for (uint32_t i : h) x = std::max(x, flat[i].x);
    return x;
  };
  std::sort(holes.begin(), holes.end(),
            [&](const auto& a, const auto& b) { return rightmost(a) > rightmost(b); });
  for (const auto& h : holes) joinHole(flat, ring, h);

  if (ring.size() > kEarClipLimit) {
    // Ear clipping takes time by the square; so large a polygon is cut as a fan.
    for (size_t i = 1; i + 1 < ring.size(); ++i)
      out.insert(out.end(), {ring[0], ring[i], ring[i + 1]});
    return out;
  }
  while (ring.size() > 3) {
    size_t n = ring.size(), ear = n;
    for (size_t i = 0; i < n && ear == n; ++i) {
      if (isEar(flat, ring, i)) ear = i;
    }
    if (ear == n) ear = 0;  // no ear: a loop that crosses itself; cut anyway
    out.insert(out.end(), {ring[(ear + n - 1) % n], ring[ear], ring[(ear + 1) % n]});
    ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(ear));
  }
  out.insert(out.end(), ring.begin(), ring.end());
  return out;
}
