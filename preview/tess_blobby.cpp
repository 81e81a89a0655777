// Blobby surfaces, by a simpler stand-in than their implicit surface: each
// ellipsoid is drawn as its matrix applied to a sphere of radius 0.5 (where
// the field of one blob alone falls to about the threshold), each segment as
// a capsule of half its radius. Blobs are not blended, and the operators and
// repelling planes are not applied.
#include <cmath>
#include <numbers>

#include "preview/args.h"
#include "preview/tessellate.h"

namespace {

constexpr size_t kMaxCount = size_t{1} << 31;
constexpr int64_t kEllipsoid = 1001, kSegment = 1002, kPlane = 1003;
constexpr size_t kAround = 24, kAlong = 12;

// A sphere of the radius about the origin, through m, with its caps turned along z.
void sphere(Builder& b, const Mat4& m, float radius, float zlo, float zhi, Vec3 color) {
  std::vector<Vec3> points;
  for (size_t j = 0; j <= kAlong; ++j) {
    float phi = (float(j) / kAlong - 0.5f) * std::numbers::pi_v<float>;
    float z = std::sin(phi) * radius, ring = std::cos(phi) * radius;
    z += z < 0 ? zlo : zhi;
    for (size_t i = 0; i <= kAround; ++i) {
      float t = 2 * std::numbers::pi_v<float> * float(i) / kAround;
      points.push_back(m.point({ring * std::cos(t), ring * std::sin(t), z}));
    }
  }
  b.grid(points, std::vector<Vec3>(points.size(), color), kAround + 1, kAlong + 1);
}

Mat4 matrixAt(const std::vector<float>& floats, size_t at) {
  Mat4 m;
  std::copy(floats.begin() + static_cast<std::ptrdiff_t>(at),
            floats.begin() + static_cast<std::ptrdiff_t>(at + 16), m.m.begin());
  return m;
}

// The segment from p0 to p1 as a capsule: the sphere stretched along z
// between two caps, turned onto the segment.
void capsule(Builder& b, const std::vector<float>& f, size_t at, Vec3 color) {
  Vec3 p0{f[at], f[at + 1], f[at + 2]}, p1{f[at + 3], f[at + 4], f[at + 5]};
  float radius = f[at + 6] / 2;
  Vec3 d = p1 - p0;
  float len = length(d);
  Vec3 z = len > 0 ? d * (1 / len) : Vec3{0, 0, 1};
  Vec3 other = std::abs(z.x) < 0.9f ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
  Vec3 x = normalized(cross(other, z)), y = cross(z, x);
  Mat4 frame;
  frame.m = {x.x, x.y, x.z, 0, y.x, y.y, y.z, 0, z.x, z.y, z.z, 0, p0.x, p0.y, p0.z, 1};
  sphere(b, frame * matrixAt(f, at + 7), radius, 0, len, color);
}

}  // namespace

void tessBlobby(const ZelRecord& r, Builder& b) {
  size_t nleaf = argCount(r, 0, kMaxCount);
  std::vector<int64_t> code = argInts(r, 2);
  std::vector<float> floats = argFloats(r, 4);
  std::vector<Vec3> cs = triples(paramFloats(r, "Cs"));
  size_t leaf = 0;
  // Operands of each instruction: fixed, or a count first (add to minimum).
  for (size_t pc = 0; pc < code.size() && !b.full();) {
    int64_t op = code[pc++];
    auto operand = [&](size_t k) { return pc + k < code.size() ? code[pc + k] : -1; };
    Vec3 color = leaf < cs.size() && cs.size() >= nleaf ? cs[leaf]
                 : cs.size() == 1                       ? cs[0]
                                                        : b.color;
    int64_t at = operand(0);
    if (op == kEllipsoid && at >= 0 && static_cast<size_t>(at) + 16 <= floats.size()) {
      sphere(b, matrixAt(floats, static_cast<size_t>(at)), 0.5f, 0, 0, color);
    } else if (op == kSegment && at >= 0 && static_cast<size_t>(at) + 23 <= floats.size()) {
      capsule(b, floats, static_cast<size_t>(at), color);
    }
    if (op >= 1000) leaf += 1;
    if (op == kPlane) {
      pc += 2;
    } else if (op >= 1000 || op == 6 || op == 7) {
      pc += 1;
    } else if (op == 4 || op == 5) {
      pc += 2;
    } else if (op >= 0 && op <= 3 && at >= 0) {
      pc += 1 + static_cast<size_t>(std::min<int64_t>(at, static_cast<int64_t>(code.size())));
    } else {
      failRecord(r, "unknown instruction " + std::to_string(op) + " in its code");
    }
  }
}
