#include "preview/basis.h"

std::optional<Basis> standardBasis(int64_t number) {
  constexpr float s = 1.0f / 6, h = 0.5f;
  switch (number) {
    case 0x0900:
      return Basis{{-1, 3, -3, 1, 3, -6, 3, 0, -3, 3, 0, 0, 1, 0, 0, 0}, 3};
    case 0x0901:
      return Basis{
          {-s, 3 * s, -3 * s, s, 3 * s, -6 * s, 3 * s, 0, -3 * s, 0, 3 * s, 0, s, 4 * s, s, 0}, 1};
    case 0x0902:
      return Basis{{-h, 3 * h, -3 * h, h, 2 * h, -5 * h, 4 * h, -h, -h, 0, h, 0, 0, 2 * h, 0, 0},
                   1};
    case 0x0903:
      return Basis{{2, 1, -2, 1, -3, -2, 3, -1, 0, 1, 0, 0, 1, 0, 0, 0}, 2};
    case 0x0904:
      return Basis{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, 4};
    default:
      return std::nullopt;
  }
}

std::array<float, 4> basisWeights(const Basis& b, float t) {
  float powers[4] = {t * t * t, t * t, t, 1};
  std::array<float, 4> w{};
  for (int i = 0; i < 4; ++i) {
    for (int k = 0; k < 4; ++k) w[i] += powers[k] * b.m[k * 4 + i];
  }
  return w;
}
