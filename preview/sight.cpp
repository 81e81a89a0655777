#include "preview/sight.h"

#include <algorithm>
#include <cmath>

namespace {

// Points this close to a boundary count as inside: the renderer's rounding
// must never meet a piece that was left out.
constexpr float kSlack = 1e-3f;
constexpr float kPixelSlack = 0.01f;

// Whether a pixel centre (k + 0.5, 0 <= k < size) lies within lo to hi.
bool holdsCentre(float lo, float hi, int32_t size) {
  float first = std::max(std::ceil(lo - 0.5f - kPixelSlack), 0.0f);
  float last = std::min(std::floor(hi - 0.5f + kPixelSlack), static_cast<float>(size - 1));
  return first <= last;
}

}  // namespace

Sight::Sight(const View& view) : view_(view) {
  const std::array<float, 4>& s = view.screen;
  float left = std::min(s[0], s[1]), right = std::max(s[0], s[1]);
  float bottom = std::min(s[2], s[3]), top = std::max(s[2], s[3]);
  // The screen's edges: planes through the eye when perspective, else parallel to z.
  float k = view.perspective ? view.scale : 1.0f, depth = view.perspective ? 1.0f : 0.0f;
  float along = view.perspective ? 0.0f : 1.0f;
  planes_ = {{{{0, 0, 1}, -view.nearClip},
              {{0, 0, -1}, view.farClip},
              {{k, 0, -left * depth}, -left * along},
              {{-k, 0, right * depth}, right * along},
              {{0, k, -bottom * depth}, -bottom * along},
              {{0, -k, top * depth}, top * along}}};
  for (Plane& p : planes_) {
    float n = length(p.normal);
    p.normal = p.normal * (1 / n);
    p.offset /= n;
  }
}

bool Sight::mayShow(const Vec3* points, size_t count) const {
  std::array<bool, kPlanes> outside;
  outside.fill(true);
  float lox = INFINITY, hix = -INFINITY, loy = INFINITY, hiy = -INFINITY;
  bool clipped = false;
  for (size_t i = 0; i < count; ++i) {
    Vec3 c = view_.worldToCamera.point(points[i]);
    if (!std::isfinite(c.x) || !std::isfinite(c.y) || !std::isfinite(c.z)) return true;
    float margin = kSlack * (std::abs(c.x) + std::abs(c.y) + std::abs(c.z) + 1);
    for (size_t k = 0; k < kPlanes; ++k) {
      outside[k] = outside[k] && dot(planes_[k].normal, c) + planes_[k].offset < -margin;
    }
    clipped = clipped || c.z < view_.nearClip;
    if (clipped) continue;
    float x = view_.rasterX(c), y = view_.rasterY(c);
    lox = std::min(lox, x);
    hix = std::max(hix, x);
    loy = std::min(loy, y);
    hiy = std::max(hiy, y);
  }
  if (count == 0 || std::find(outside.begin(), outside.end(), true) != outside.end()) return false;
  // Cut by the near plane, a piece's picture is not bounded by its points' own.
  if (clipped) return true;
  return holdsCentre(lox, hix, view_.width) && holdsCentre(loy, hiy, view_.height);
}

bool Sight::mayShow(Vec3 centre, float radius) const {
  Vec3 c = view_.worldToCamera.point(centre);
  for (const Plane& p : planes_) {
    if (dot(p.normal, c) + p.offset < -radius * (1 + kSlack)) return false;
  }
  return true;
}
