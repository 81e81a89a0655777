// Points, directions and the 4x4 matrices of the scene file. Matrices act on
// row vectors, p' = p * M, with the translation in elements 12 to 14, as the
// transform records write them.
#pragma once

#include <array>
#include <cmath>

struct Vec3 {
  float x = 0, y = 0, z = 0;
};

inline Vec3 operator+(Vec3 a, Vec3 b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(Vec3 a, Vec3 b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator*(Vec3 a, float s) {
  return {a.x * s, a.y * s, a.z * s};
}
inline Vec3 operator*(Vec3 a, Vec3 b) {
  return {a.x * b.x, a.y * b.y, a.z * b.z};
}
inline float dot(Vec3 a, Vec3 b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec3 cross(Vec3 a, Vec3 b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline float length(Vec3 a) {
  return std::sqrt(dot(a, a));
}
inline Vec3 normalized(Vec3 a) {
  float l = length(a);
  return l > 0 ? a * (1.0f / l) : Vec3{};
}
inline Vec3 lerp(Vec3 a, Vec3 b, float t) {
  return a + (b - a) * t;
}

struct Mat4 {
  std::array<float, 16> m{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

  static Mat4 translate(float x, float y, float z);
  static Mat4 scale(float x, float y, float z);
  static Mat4 rotate(float degrees, Vec3 axis);
  static Mat4 skew(float degrees, Vec3 a, Vec3 b);
  static Mat4 perspective(float fovDegrees);

  // The point through M, divided by w when M projects.
  Vec3 point(Vec3 p) const;
  Vec3 direction(Vec3 d) const;
  float w(Vec3 p) const { return p.x * m[3] + p.y * m[7] + p.z * m[11] + m[15]; }
  bool affine() const { return m[3] == 0 && m[7] == 0 && m[11] == 0 && m[15] == 1; }
  // The inverse of an affine matrix (zeros when it has none).
  Mat4 inverseAffine() const;
};

// a then b: a point goes through a first.
Mat4 operator*(const Mat4& a, const Mat4& b);
