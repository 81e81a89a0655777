#include "preview/shading.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "preview/args.h"

namespace {

constexpr int64_t kAmbient = 0x0011, kPoint = 0x0012, kDistant = 0x0013, kSpot = 0x0014;

float paramOr(const ZelRecord& r, const char* name, float fallback) {
  std::vector<float> v = paramFloats(r, name);
  return v.empty() ? fallback : v[0];
}

Vec3 pointOr(const ZelRecord& r, const char* name, Vec3 fallback) {
  std::vector<float> v = paramFloats(r, name);
  return v.size() < 3 ? fallback : Vec3{v[0], v[1], v[2]};
}

float smoothstep(float lo, float hi, float x) {
  if (hi <= lo) return x >= hi ? 1.0f : 0.0f;
  float t = std::clamp((x - lo) / (hi - lo), 0.0f, 1.0f);
  return t * t * (3 - 2 * t);
}

}  // namespace

bool lightFrom(const ZelRecord& r, const Mat4& toWorld, Light& light) {
  int64_t shader = argInt(r, 0);
  if (shader < kAmbient || shader > kSpot) return false;
  light.kind = shader == kAmbient   ? Light::Kind::Ambient
               : shader == kDistant ? Light::Kind::Distant
               : shader == kPoint   ? Light::Kind::Point
                                    : Light::Kind::Spot;
  Vec3 lightColor = pointOr(r, "lightcolor", {1, 1, 1});
  light.color = lightColor * paramOr(r, "intensity", 1);
  Vec3 from = pointOr(r, "from", {0, 0, 0});
  Vec3 to = pointOr(r, "to", {0, 0, 1});
  light.from = toWorld.point(from);
  light.direction = normalized(toWorld.point(to) - light.from);
  float cone = paramOr(r, "coneangle", 30 * std::numbers::pi_v<float> / 180);
  float delta = paramOr(r, "conedeltaangle", 5 * std::numbers::pi_v<float> / 180);
  light.coneCos = std::cos(cone);
  light.deltaCos = std::cos(std::max(cone - delta, 0.0f));
  light.beam = paramOr(r, "beamdistribution", 2);
  return true;
}

bool headlit(const Lighting& lighting) {
  return std::all_of(lighting.lights.begin(), lighting.lights.end(),
                     [](const Light& l) { return l.kind == Light::Kind::Ambient; });
}

Shader::Shader(const Lighting& lighting, Vec3 eye, bool eyeAtPoint)
    : lighting_(lighting), eye_(eye), eyeAtPoint_(eyeAtPoint), headlight_(headlit(lighting)) {}

Vec3 Shader::shade(Vec3 p, Vec3 n, Vec3 surface, uint32_t set) const {
  Vec3 e = normalized(toEye(p));
  if (dot(n, e) < 0) n = n * -1.0f;
  Vec3 sum;
  if (headlight_) sum = Vec3{1, 1, 1} * std::max(0.0f, dot(n, e));
  if (set >= lighting_.sets.size()) set = 0;
  for (uint32_t index : lighting_.sets[set]) {
    const Light& l = lighting_.lights[index];
    if (l.kind == Light::Kind::Ambient) {
      sum = sum + l.color;
      continue;
    }
    Vec3 toLight = l.kind == Light::Kind::Distant ? l.direction * -1.0f : l.from - p;
    float d2 = dot(toLight, toLight);
    Vec3 lv = normalized(toLight);
    float k = std::max(0.0f, dot(n, lv));
    if (l.kind != Light::Kind::Distant) k /= std::max(d2, 1e-12f);
    if (l.kind == Light::Kind::Spot) {
      float c = dot(lv * -1.0f, l.direction);
      k *= smoothstep(l.coneCos, l.deltaCos, c) * std::pow(std::max(c, 0.0f), l.beam);
    }
    sum = sum + l.color * k;
  }
  Vec3 c = surface * sum;
  return {std::clamp(c.x, 0.0f, 1.0f), std::clamp(c.y, 0.0f, 1.0f), std::clamp(c.z, 0.0f, 1.0f)};
}
