// Points as discs and curves as ribbons, of their "width" (or
// "constantwidth", else 1), turned to face the scene's camera. A picture
// from another place (the desktop window's orbit) sees them as tessellated
// for the scene's own camera.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "preview/args.h"
#include "preview/tessellate.h"

namespace {

constexpr size_t kMaxCount = size_t{1} << 31;
constexpr size_t kDiscSides = 8;
constexpr size_t kCubicSteps = 8;

// The width of item i of n: "width" per item, or "constantwidth", or 1.
float widthAt(const std::vector<float>& width, float constant, float at, size_t n) {
  if (width.size() < n || n == 0) return constant;
  float x = at >= 0 ? std::min(at, float(n - 1)) : 0.0f;
  size_t i = std::min(static_cast<size_t>(x), n - 1), j = std::min(i + 1, n - 1);
  return width[i] + (width[j] - width[i]) * (x - float(i));
}

float constantWidth(const ZelRecord& r) {
  std::vector<float> c = paramFloats(r, "constantwidth");
  return c.empty() ? 1.0f : c[0];
}

Vec3 towardEye(const Builder& b, Vec3 eye, Vec3 p) {
  return normalized(b.eyeAtPoint ? eye - p : eye);
}

// Any two directions square to d and to each other.
void across(Vec3 d, Vec3& u, Vec3& v) {
  Vec3 other = std::abs(d.x) < 0.9f ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
  u = normalized(cross(d, other));
  v = cross(d, u);
}

// The points of one curve along its length: its vertices when linear, the
// segments evaluated with the v basis when cubic.
std::vector<Vec3> curvePath(const std::vector<Vec3>& cv, bool cubic, bool periodic,
                            const Basis& basis) {
  std::vector<Vec3> path;
  size_t n = cv.size();
  if (!cubic) {
    path = cv;
    if (periodic && n > 2) path.push_back(cv[0]);
    return path;
  }
  size_t step = static_cast<size_t>(std::max(basis.step, 1));
  size_t segments = periodic ? n / step : (n < 4 ? 0 : (n - 4) / step + 1);
  for (size_t s = 0; s < segments; ++s) {
    for (size_t k = s == 0 ? 0 : 1; k <= kCubicSteps; ++k) {
      std::array<float, 4> w = basisWeights(basis, float(k) / kCubicSteps);
      Vec3 p;
      for (size_t i = 0; i < 4; ++i) p = p + cv[(s * step + i) % n] * w[i];
      path.push_back(p);
    }
  }
  return path;
}

}  // namespace

void tessPoints(const ZelRecord& r, Builder& b) {
  size_t n = argCount(r, 0, kMaxCount);
  std::vector<Vec3> centres = pointsOf(r, n);
  std::vector<float> width = paramFloats(r, "width");
  std::vector<Vec3> cs = triples(paramFloats(r, "Cs"));
  float constant = constantWidth(r);
  Vec3 eye = b.eyeInObject();
  std::vector<Vec3> points, colors;
  std::vector<uint32_t> triangles;
  for (size_t i = 0; i < n; ++i) {
    Vec3 u, v;
    across(towardEye(b, eye, centres[i]), u, v);
    float radius = (width.size() >= n ? width[i] : constant) / 2;
    uint32_t centre = static_cast<uint32_t>(points.size());
    points.push_back(centres[i]);
    for (size_t k = 0; k < kDiscSides; ++k) {
      float a = 2 * std::numbers::pi_v<float> * float(k) / kDiscSides;
      points.push_back(centres[i] + (u * std::cos(a) + v * std::sin(a)) * radius);
      uint32_t next = static_cast<uint32_t>(centre + 1 + (k + 1) % kDiscSides);
      triangles.insert(triangles.end(), {centre, static_cast<uint32_t>(centre + 1 + k), next});
    }
    Vec3 c = cs.size() >= n ? cs[i] : cs.size() == 1 ? cs[0] : b.color;
    colors.insert(colors.end(), kDiscSides + 1, c);
  }
  b.smooth(points, colors, triangles);
}

void tessCurves(const ZelRecord& r, Builder& b) {
  bool cubic = r.args.size() > 0 && r.args[0].kind() == ZelValue::Kind::Text &&
               r.args[0].asText() == "cubic";
  size_t ncurves = argCount(r, 1, kMaxCount);
  std::vector<int64_t> sizes = argInts(r, 2);
  bool periodic = r.args.size() > 3 && r.args[3].kind() == ZelValue::Kind::Text &&
                  r.args[3].asText() == "periodic";
  if (sizes.size() != ncurves)
    failRecord(r, "holds " + std::to_string(sizes.size()) + " curve sizes, not " +
                      std::to_string(ncurves));
  size_t total = 0;
  for (int64_t n : sizes) {
    if (n < 0 || static_cast<uint64_t>(n) > kMaxCount)
      failRecord(r, "a curve of " + std::to_string(n) + " vertices");
    total += static_cast<size_t>(n);
  }
  std::vector<Vec3> cv = pointsOf(r, total);
  std::vector<float> width = paramFloats(r, "width");
  std::vector<Vec3> cs = triples(paramFloats(r, "Cs"));
  float constant = constantWidth(r);
  Vec3 eye = b.eyeInObject();
  size_t first = 0, firstWidth = 0;
  for (size_t c = 0; c < ncurves && !b.full(); ++c) {
    size_t n = static_cast<size_t>(sizes[c]);
    std::vector<Vec3> own(cv.begin() + static_cast<std::ptrdiff_t>(first),
                          cv.begin() + static_cast<std::ptrdiff_t>(first + n));
    first += n;
    size_t step = static_cast<size_t>(std::max(b.vBasis.step, 1));
    size_t varying = !cubic ? n : periodic ? n / step : (n < 4 ? 0 : (n - 4) / step + 2);
    std::vector<float> ownWidth;
    if (width.size() >= firstWidth + varying)
      ownWidth.assign(width.begin() + static_cast<std::ptrdiff_t>(firstWidth),
                      width.begin() + static_cast<std::ptrdiff_t>(firstWidth + varying));
    firstWidth += varying;
    std::vector<Vec3> path = curvePath(own, cubic, periodic, b.vBasis);
    if (path.size() < 2) continue;
    std::vector<Vec3> ribbon(2 * path.size());
    for (size_t k = 0; k < path.size(); ++k) {
      Vec3 tangent = path[std::min(k + 1, path.size() - 1)] - path[k > 0 ? k - 1 : 0];
      float along = float(k) / float(path.size() - 1) * float(std::max<size_t>(varying, 1) - 1);
      float w = widthAt(ownWidth, constant, along, varying) / 2;
      Vec3 side = normalized(cross(tangent, towardEye(b, eye, path[k]))) * w;
      ribbon[2 * k] = path[k] - side;
      ribbon[2 * k + 1] = path[k] + side;
    }
    Vec3 color = cs.size() >= ncurves ? cs[c] : cs.size() == 1 ? cs[0] : b.color;
    b.grid(ribbon, std::vector<Vec3>(ribbon.size(), color), 2, path.size());
  }
}
