// The basis of bicubic patches: a 4x4 matrix acting on [t^3 t^2 t 1] and the
// step from one patch of a mesh to the next.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

struct Basis {
  std::array<float, 16> m;
  int32_t step;
};

// The standard basis of a Basis record's number (0x0900 Bezier to 0x0904 power).
std::optional<Basis> standardBasis(int64_t number);
inline Basis bezierBasis() {
  return *standardBasis(0x0900);
}
// The weights of the four control points at t.
std::array<float, 4> basisWeights(const Basis& b, float t);
