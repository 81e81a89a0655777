// The seven quadrics as grids swept about z, u along the sweep angle theta.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "preview/args.h"
#include "preview/tessellate.h"

namespace {

constexpr size_t kAround = 48;  // steps of a whole turn
constexpr size_t kAlong = 16;

float radians(float degrees) {
  return degrees * std::numbers::pi_v<float> / 180;
}

// Sweeps profile(v), a point in the xz plane, by thetamax degrees about z.
template <typename Profile>
void sweep(const ZelRecord& r, Builder& b, float thetamax, size_t most, Profile profile) {
  if (!std::isfinite(thetamax) || thetamax == 0) return;
  float turn = std::clamp(thetamax, -360.0f, 360.0f);
  // The size of the surface: from its axis to the farthest of its profile's points.
  float reach = 0;
  for (float v : {0.0f, 0.5f, 1.0f}) {
    Vec3 e = profile(v);
    reach = std::max({reach, std::abs(e.x) + std::abs(e.y), std::abs(e.z)});
  }
  size_t around = b.steps({}, 2 * std::numbers::pi_v<float> * reach, 8, kAround);
  size_t along = most > 1 ? b.steps({}, 2 * reach, 2, most) : most;
  size_t nu =
      std::max<size_t>(2, static_cast<size_t>(std::ceil(std::abs(turn) / 360 * around)) + 1);
  size_t nv = along + 1;
  std::vector<Vec3> points(nu * nv);
  for (size_t j = 0; j < nv; ++j) {
    Vec3 p = profile(float(j) / float(along));
    for (size_t i = 0; i < nu; ++i) {
      float t = radians(turn) * float(i) / float(nu - 1);
      float c = std::cos(t), s = std::sin(t);
      points[j * nu + i] = {p.x * c - p.y * s, p.x * s + p.y * c, p.z};
    }
  }
  b.grid(points, gridColors(r, nu, nv), nu, nv);
}

}  // namespace

void tessSphere(const ZelRecord& r, Builder& b) {
  float radius = argFloat(r, 0);
  float ar = std::abs(radius);
  if (ar == 0) return;
  float lo = std::asin(std::clamp(argFloat(r, 1) / ar, -1.0f, 1.0f));
  float hi = std::asin(std::clamp(argFloat(r, 2) / ar, -1.0f, 1.0f));
  sweep(r, b, argFloat(r, 3), kAlong, [&](float v) {
    float phi = lo + (hi - lo) * v;
    return Vec3{radius * std::cos(phi), 0, radius * std::sin(phi)};
  });
}

void tessCylinder(const ZelRecord& r, Builder& b) {
  float radius = argFloat(r, 0), zmin = argFloat(r, 1), zmax = argFloat(r, 2);
  sweep(r, b, argFloat(r, 3), 1, [&](float v) {
    return Vec3{radius, 0, zmin + (zmax - zmin) * v};
  });
}

void tessCone(const ZelRecord& r, Builder& b) {
  float radius = argFloat(r, 0), height = argFloat(r, 1);
  sweep(r, b, argFloat(r, 3), kAlong / 2, [&](float v) {
    return Vec3{radius * (1 - v), 0, height * v};
  });
}

void tessHyperboloid(const ZelRecord& r, Builder& b) {
  std::vector<float> p1 = argFloats(r, 0), p2 = argFloats(r, 1);
  if (p1.size() < 3 || p2.size() < 3) failRecord(r, "needs two points of three numbers");
  Vec3 a{p1[0], p1[1], p1[2]}, c{p2[0], p2[1], p2[2]};
  sweep(r, b, argFloat(r, 2), kAlong / 2, [&](float v) { return lerp(a, c, v); });
}

void tessParaboloid(const ZelRecord& r, Builder& b) {
  float rmax = argFloat(r, 0), zmin = argFloat(r, 1), zmax = argFloat(r, 2);
  if (zmax == 0) return;
  sweep(r, b, argFloat(r, 3), kAlong, [&](float v) {
    float z = zmin + (zmax - zmin) * v;
    return Vec3{rmax * std::sqrt(std::max(0.0f, z / zmax)), 0, z};
  });
}

void tessDisk(const ZelRecord& r, Builder& b) {
  float height = argFloat(r, 0), radius = argFloat(r, 1);
  sweep(r, b, argFloat(r, 2), 1, [&](float v) { return Vec3{radius * (1 - v), 0, height}; });
}

void tessTorus(const ZelRecord& r, Builder& b) {
  float major = argFloat(r, 0), minor = argFloat(r, 1);
  float lo = radians(argFloat(r, 2)), hi = radians(argFloat(r, 3));
  if (!std::isfinite(lo) || !std::isfinite(hi)) return;
  float turns = std::min(std::abs(hi - lo) / (2 * std::numbers::pi_v<float>), 1.0f);
  size_t along = std::max<size_t>(2, static_cast<size_t>(turns * 24));
  sweep(r, b, argFloat(r, 4), along, [&](float v) {
    float phi = lo + (hi - lo) * v;
    return Vec3{major + minor * std::cos(phi), 0, minor * std::sin(phi)};
  });
}
