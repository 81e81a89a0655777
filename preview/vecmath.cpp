#include "preview/vecmath.h"

#include <numbers>

namespace {

float radians(float degrees) {
  return degrees * std::numbers::pi_v<float> / 180.0f;
}

}  // namespace

Mat4 operator*(const Mat4& a, const Mat4& b) {
  Mat4 r;
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      float s = 0;
      for (int k = 0; k < 4; ++k) s += a.m[i * 4 + k] * b.m[k * 4 + j];
      r.m[i * 4 + j] = s;
    }
  }
  return r;
}

Mat4 Mat4::translate(float x, float y, float z) {
  Mat4 r;
  r.m[12] = x;
  r.m[13] = y;
  r.m[14] = z;
  return r;
}

Mat4 Mat4::scale(float x, float y, float z) {
  Mat4 r;
  r.m[0] = x;
  r.m[5] = y;
  r.m[10] = z;
  return r;
}

Mat4 Mat4::rotate(float degrees, Vec3 axis) {
  Vec3 a = normalized(axis);
  Mat4 r;
  if (length(a) == 0) return r;
  float c = std::cos(radians(degrees)), s = std::sin(radians(degrees)), t = 1 - c;
  // The rotation of a row vector: the transpose of the column-vector form.
  r.m = {t * a.x * a.x + c,
         t * a.x * a.y + s * a.z,
         t * a.x * a.z - s * a.y,
         0,
         t * a.x * a.y - s * a.z,
         t * a.y * a.y + c,
         t * a.y * a.z + s * a.x,
         0,
         t * a.x * a.z + s * a.y,
         t * a.y * a.z - s * a.x,
         t * a.z * a.z + c,
         0,
         0,
         0,
         0,
         1};
  return r;
}

Mat4 Mat4::skew(float degrees, Vec3 a, Vec3 b) {
  // A shear along b, by each point's distance along the part of a that is
  // square to b, turning a by the angle towards b.
  Vec3 d2 = normalized(b);
  float par = dot(a, d2);
  Vec3 rest = a - d2 * par;
  float perp = length(rest);
  Mat4 r;
  if (perp == 0 || length(d2) == 0) return r;
  Vec3 e1 = rest * (1.0f / perp);
  float turned = std::atan2(perp, par) - radians(degrees);
  if (turned <= 0 || turned >= std::numbers::pi_v<float>) return r;
  float k = std::cos(turned) / std::sin(turned) - par / perp;
  float e1v[3] = {e1.x, e1.y, e1.z}, d2v[3] = {d2.x, d2.y, d2.z};
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) r.m[i * 4 + j] += e1v[i] * k * d2v[j];
  }
  return r;
}

Mat4 Mat4::perspective(float fovDegrees) {
  float c = 1.0f / std::tan(radians(fovDegrees) / 2);
  Mat4 r;
  r.m = {c, 0, 0, 0, 0, c, 0, 0, 0, 0, 1, 1, 0, 0, -1, 0};
  return r;
}

Vec3 Mat4::point(Vec3 p) const {
  Vec3 r{p.x * m[0] + p.y * m[4] + p.z * m[8] + m[12], p.x * m[1] + p.y * m[5] + p.z * m[9] + m[13],
         p.x * m[2] + p.y * m[6] + p.z * m[10] + m[14]};
  if (affine()) return r;
  float ww = w(p);
  return ww != 0 ? r * (1.0f / ww) : r;
}

Vec3 Mat4::direction(Vec3 d) const {
  return {d.x * m[0] + d.y * m[4] + d.z * m[8], d.x * m[1] + d.y * m[5] + d.z * m[9],
          d.x * m[2] + d.y * m[6] + d.z * m[10]};
}

Mat4 Mat4::inverseAffine() const {
  const float* a = m.data();
  float det = a[0] * (a[5] * a[10] - a[6] * a[9]) - a[1] * (a[4] * a[10] - a[6] * a[8]) +
              a[2] * (a[4] * a[9] - a[5] * a[8]);
  Mat4 r;
  if (det == 0 || !std::isfinite(det)) {
    r.m.fill(0);
    return r;
  }
  float inv = 1.0f / det;
  r.m[0] = (a[5] * a[10] - a[6] * a[9]) * inv;
  r.m[1] = (a[2] * a[9] - a[1] * a[10]) * inv;
  r.m[2] = (a[1] * a[6] - a[2] * a[5]) * inv;
  r.m[4] = (a[6] * a[8] - a[4] * a[10]) * inv;
  r.m[5] = (a[0] * a[10] - a[2] * a[8]) * inv;
  r.m[6] = (a[2] * a[4] - a[0] * a[6]) * inv;
  r.m[8] = (a[4] * a[9] - a[5] * a[8]) * inv;
  r.m[9] = (a[1] * a[8] - a[0] * a[9]) * inv;
  r.m[10] = (a[0] * a[5] - a[1] * a[4]) * inv;
  Vec3 t = r.direction({a[12], a[13], a[14]});
  r.m[12] = -t.x;
  r.m[13] = -t.y;
  r.m[14] = -t.z;
  return r;
}
