// Bilinear and bicubic patches and patch meshes, with the current bases,
// their steps, and periodic wrapping.
#include <algorithm>

#include "preview/args.h"
#include "preview/tessellate.h"

namespace {

constexpr int64_t kBicubic = 0x0701, kPeriodic = 0x0A00;
constexpr size_t kSteps = 8;  // most grid cells along each side of a bicubic patch
constexpr size_t kMaxSide = size_t{1} << 24;

// One patch: `at(i, j)` gives its control point i along u and j along v.
template <typename At>
void bicubic(Builder& b, const ZelRecord& r, At at) {
  Vec3 lo = at(0, 0), hi = lo;
  for (size_t j = 0; j < 4; ++j) {
    for (size_t i = 0; i < 4; ++i) {
      Vec3 p = at(i, j);
      lo = {std::min(lo.x, p.x), std::min(lo.y, p.y), std::min(lo.z, p.z)};
      hi = {std::max(hi.x, p.x), std::max(hi.y, p.y), std::max(hi.z, p.z)};
    }
  }
  size_t steps = b.steps((lo + hi) * 0.5f, length(hi - lo), 2, kSteps);
  size_t n = steps + 1;
  std::vector<Vec3> points(n * n);
  for (size_t j = 0; j < n; ++j) {
    std::array<float, 4> wv = basisWeights(b.vBasis, float(j) / float(steps));
    for (size_t i = 0; i < n; ++i) {
      std::array<float, 4> wu = basisWeights(b.uBasis, float(i) / float(steps));
      Vec3 p;
      for (size_t jj = 0; jj < 4; ++jj) {
        for (size_t ii = 0; ii < 4; ++ii) p = p + at(ii, jj) * (wu[ii] * wv[jj]);
      }
      points[j * n + i] = p;
    }
  }
  b.grid(points, gridColors(r, n, n), n, n);
}

template <typename At>
void bilinear(Builder& b, const ZelRecord& r, At at) {
  constexpr size_t n = 5;
  std::vector<Vec3> points(n * n);
  for (size_t j = 0; j < n; ++j) {
    float v = float(j) / (n - 1);
    for (size_t i = 0; i < n; ++i) {
      float u = float(i) / (n - 1);
      points[j * n + i] = lerp(lerp(at(0, 0), at(1, 0), u), lerp(at(0, 1), at(1, 1), u), v);
    }
  }
  b.grid(points, gridColors(r, n, n), n, n);
}

// Patches along one side of a mesh of n control points.
size_t patchCount(size_t n, bool periodic, bool cubic, int32_t step) {
  size_t order = cubic ? 4 : 2;
  size_t s = cubic ? static_cast<size_t>(std::max(step, 1)) : 1;
  if (periodic) return n / s;
  return n < order ? 0 : (n - order) / s + 1;
}

}  // namespace

void tessPatch(const ZelRecord& r, Builder& b) {
  bool cubic = argInt(r, 0) == kBicubic;
  size_t side = cubic ? 4 : 2;
  std::vector<Vec3> cp = pointsOf(r, side * side, side, side);
  auto at = [&](size_t i, size_t j) { return cp[j * side + i]; };
  if (cubic) {
    bicubic(b, r, at);
  } else {
    bilinear(b, r, at);
  }
}

void tessPatchMesh(const ZelRecord& r, Builder& b) {
  bool cubic = argInt(r, 0) == kBicubic;
  size_t nu = argCount(r, 1, kMaxSide), nv = argCount(r, 3, kMaxSide);
  bool uwrap = argInt(r, 2) == kPeriodic, vwrap = argInt(r, 4) == kPeriodic;
  if (nu * nv > kMaxSide) failRecord(r, "too many control points");
  std::vector<Vec3> cp = pointsOf(r, nu * nv, nu, nv);
  size_t pu = patchCount(nu, uwrap, cubic, b.uBasis.step);
  size_t pv = patchCount(nv, vwrap, cubic, b.vBasis.step);
  size_t su = cubic ? static_cast<size_t>(std::max(b.uBasis.step, 1)) : 1;
  size_t sv = cubic ? static_cast<size_t>(std::max(b.vBasis.step, 1)) : 1;
  for (size_t q = 0; q < pv && !b.full(); ++q) {
    for (size_t p = 0; p < pu; ++p) {
      auto at = [&](size_t i, size_t j) {
        return cp[((q * sv + j) % nv) * nu + (p * su + i) % nu];
      };
      if (cubic) {
        bicubic(b, r, at);
      } else {
        bilinear(b, r, at);
      }
    }
  }
}
