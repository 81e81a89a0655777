#include "preview/builder.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float kPixelsPerStep = 6;

}  // namespace

bool Builder::room(size_t triangles) {
  if (full_ || made_ + triangles > maxTriangles_) {
    full_ = true;
    return false;
  }
  made_ += triangles;
  return true;
}

bool Builder::place(const std::vector<Vec3>& points, size_t n) {
  world_.resize(n);
  for (size_t i = 0; i < n; ++i) world_[i] = toWorld.point(points[i]);
  return !sight || sight->mayShow(world_.data(), n);
}

void Builder::grid(const std::vector<Vec3>& points, const std::vector<Vec3>& colors, size_t nu,
                   size_t nv) {
  if (nu < 2 || nv < 2 || points.size() < nu * nv || !place(points, nu * nv) ||
      !room(2 * (nu - 1) * (nv - 1)))
    return;
  size_t base = mesh_.vertices.size();
  for (size_t i = 0; i < nu * nv; ++i) {
    mesh_.vertices.push_back({world_[i], {}, colorAt(colors, i), lightSet});
  }
  MeshVertex* v = mesh_.vertices.data() + base;
  for (size_t j = 0; j + 1 < nv; ++j) {
    for (size_t i = 0; i + 1 < nu; ++i) {
      size_t a = j * nu + i, b = a + 1, c = a + nu + 1, d = a + nu;
      // The cell's normal from its diagonals holds where one edge has shrunk to a point (a pole).
      Vec3 n = cross(v[c].p - v[a].p, v[d].p - v[b].p);
      for (size_t k : {a, b, c, d}) v[k].n = v[k].n + n;
      for (size_t k : {a, b, c, a, c, d}) mesh_.indices.push_back(static_cast<uint32_t>(base + k));
    }
  }
  for (size_t i = 0; i < nu * nv; ++i) v[i].n = normalized(v[i].n);
}

void Builder::flat(const std::vector<Vec3>& points, const std::vector<Vec3>& colors,
                   const std::vector<uint32_t>& triangles) {
  for (uint32_t t : triangles) {
    if (t >= points.size()) return;
  }
  if (triangles.size() < 3 || !place(points, points.size()) || !room(triangles.size() / 3)) return;
  size_t base = mesh_.vertices.size();
  const std::vector<Vec3>& world = world_;
  // The sum of the triangles' area vectors: the piece's normal, whatever its shape.
  Vec3 n;
  for (size_t t = 0; t + 2 < triangles.size(); t += 3) {
    Vec3 a = world[triangles[t]], b = world[triangles[t + 1]], c = world[triangles[t + 2]];
    n = n + cross(b - a, c - a);
  }
  n = normalized(n);
  for (size_t i = 0; i < world.size(); ++i) {
    mesh_.vertices.push_back({world[i], n, colorAt(colors, i), lightSet});
  }
  size_t whole = triangles.size() - triangles.size() % 3;
  for (size_t t = 0; t < whole; ++t)
    mesh_.indices.push_back(static_cast<uint32_t>(base + triangles[t]));
}

void Builder::smooth(const std::vector<Vec3>& points, const std::vector<Vec3>& colors,
                     const std::vector<uint32_t>& triangles) {
  for (uint32_t t : triangles) {
    if (t >= points.size()) return;
  }
  if (triangles.size() < 3 || !place(points, points.size()) || !room(triangles.size() / 3)) return;
  size_t base = mesh_.vertices.size();
  for (size_t i = 0; i < points.size(); ++i) {
    mesh_.vertices.push_back({world_[i], {}, colorAt(colors, i), lightSet});
  }
  MeshVertex* v = mesh_.vertices.data() + base;
  size_t whole = triangles.size() - triangles.size() % 3;
  for (size_t t = 0; t < whole; t += 3) {
    MeshVertex &a = v[triangles[t]], &b = v[triangles[t + 1]], &c = v[triangles[t + 2]];
    Vec3 n = cross(b.p - a.p, c.p - a.p);
    a.n = a.n + n;
    b.n = b.n + n;
    c.n = c.n + n;
  }
  for (size_t i = 0; i < points.size(); ++i) v[i].n = normalized(v[i].n);
  for (size_t t = 0; t < whole; ++t)
    mesh_.indices.push_back(static_cast<uint32_t>(base + triangles[t]));
}

Vec3 Builder::eyeInObject() const {
  Mat4 inverse = toWorld.inverseAffine();
  return eyeAtPoint ? inverse.point(eye) : normalized(inverse.direction(eye));
}

size_t Builder::steps(Vec3 centre, float size, size_t fewest, size_t most) const {
  if (pixelsPerUnit <= 0 || !std::isfinite(size)) return most;
  // The longest axis of the object-to-world transform: how much it stretches.
  float stretch =
      std::max({length(toWorld.direction({1, 0, 0})), length(toWorld.direction({0, 1, 0})),
                length(toWorld.direction({0, 0, 1}))});
  float world = size * stretch;
  if (sight && !sight->mayShow(toWorld.point(centre), world)) return fewest;
  float pixels = world * pixelsPerUnit;
  if (perspective) {
    float z = worldToCamera.point(toWorld.point(centre)).z;
    // A surface wholly behind the camera is never seen; the margin covers
    // the size being a rough bound under a skewing transform.
    if (z < -2 * world) return fewest;
    // A surface the camera is within or behind gets every step it may need.
    if (!(z > world)) return most;
    pixels /= z;
  }
  float n = pixels / kPixelsPerStep;
  if (!(n < float(most))) return most;
  return n > float(fewest) ? static_cast<size_t>(n) : fewest;
}
