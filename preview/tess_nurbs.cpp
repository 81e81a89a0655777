// NURBS meshes, rational and of any order up to kMaxOrder, evaluated on a
// grid between umin..umax and vmin..vmax. Trim curves are not applied: the
// whole surface is drawn.
#include <algorithm>
#include <array>
#include <cmath>

#include "preview/args.h"
#include "preview/tessellate.h"

namespace {

constexpr size_t kMaxOrder = 64;
constexpr size_t kMaxSide = size_t{1} << 24;
constexpr size_t kStepsPerSpan = 4, kMaxSteps = 128;

struct Direction {
  size_t n = 0, order = 0;
  std::vector<float> knots;
  float lo = 0, hi = 0;
};

Direction direction(const ZelRecord& r, size_t first) {
  Direction d;
  d.n = argCount(r, first, kMaxSide);
  d.order = argCount(r, first + 1, kMaxOrder);
  d.knots = argFloats(r, first + 2);
  if (d.order < 1 || d.order > d.n)
    failRecord(r, "order " + std::to_string(d.order) + " does not fit " + std::to_string(d.n) +
                      " control points");
  if (d.knots.size() != d.n + d.order)
    failRecord(r, "holds " + std::to_string(d.knots.size()) + " knots, not " +
                      std::to_string(d.n + d.order));
  for (size_t i = 1; i < d.knots.size(); ++i) {
    if (!(d.knots[i] >= d.knots[i - 1])) failRecord(r, "its knots decrease");
  }
  d.lo = std::max(argFloat(r, first + 3), d.knots[d.order - 1]);
  d.hi = std::min(argFloat(r, first + 4), d.knots[d.n]);
  return d;
}

// The first of the order basis functions that are not 0 at t, and their values.
size_t basisAt(const Direction& d, float t, std::vector<float>& N) {
  size_t p = d.order - 1;
  size_t k = p;
  while (k + 1 < d.n && d.knots[k + 1] <= t) ++k;
  N.assign(d.order, 0);
  std::array<float, kMaxOrder> left{}, right{};
  N[0] = 1;
  for (size_t j = 1; j <= p; ++j) {
    left[j] = t - d.knots[k + 1 - j];
    right[j] = d.knots[k + j] - t;
    float saved = 0;
    for (size_t q = 0; q < j; ++q) {
      float den = right[q + 1] + left[j - q];
      float temp = den != 0 ? N[q] / den : 0;
      N[q] = saved + right[q + 1] * temp;
      saved = left[j - q] * temp;
    }
    N[j] = saved;
  }
  return k - p;
}

size_t steps(const Direction& d) {
  return std::clamp((d.n - d.order + 1) * kStepsPerSpan, kStepsPerSpan, kMaxSteps);
}

}  // namespace

void tessNurbMesh(const ZelRecord& r, Builder& b) {
  Direction u = direction(r, 0), v = direction(r, 5);
  if (!(u.lo < u.hi) || !(v.lo < v.hi)) return;
  if (u.n * v.n > kMaxSide) failRecord(r, "too many control points");
  // Homogeneous points: "Pw" as given, "P" with weight 1.
  std::vector<float> hw = paramFloats(r, "Pw");
  if (hw.size() < 4 * u.n * v.n) {
    std::vector<Vec3> p = pointsOf(r, u.n * v.n);
    hw.clear();
    for (Vec3 q : p) hw.insert(hw.end(), {q.x, q.y, q.z, 1});
  }
  size_t nu = steps(u) + 1, nv = steps(v) + 1;
  std::vector<Vec3> points(nu * nv);
  std::vector<float> Nu, Nv;
  for (size_t j = 0; j < nv; ++j) {
    size_t v0 = basisAt(v, v.lo + (v.hi - v.lo) * float(j) / float(nv - 1), Nv);
    for (size_t i = 0; i < nu; ++i) {
      size_t u0 = basisAt(u, u.lo + (u.hi - u.lo) * float(i) / float(nu - 1), Nu);
      float s[4] = {0, 0, 0, 0};
      for (size_t jj = 0; jj < v.order; ++jj) {
        for (size_t ii = 0; ii < u.order; ++ii) {
          const float* c = &hw[4 * ((v0 + jj) * u.n + u0 + ii)];
          float w = Nu[ii] * Nv[jj];
          for (int k = 0; k < 4; ++k) s[k] += c[k] * w;
        }
      }
      float w = s[3] != 0 ? s[3] : 1;
      points[j * nu + i] = {s[0] / w, s[1] / w, s[2] / w};
    }
  }
  b.grid(points, gridColors(r, nu, nv), nu, nv);
}
