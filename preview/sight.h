// What one still picture can show. A piece of surface that lies wholly
// outside it covers no pixel centre, so a picture drawn once need not keep
// it; a window whose camera moves keeps everything.
#pragma once

#include <array>
#include <cstddef>

#include "preview/camera.h"
#include "preview/vecmath.h"

class Sight {
 public:
  explicit Sight(const View& view);

  // False when no triangle over these world-space points can cover a pixel
  // centre: all behind the near plane, beyond the far one, on the outer side
  // of one edge of the screen window, or within a box that holds no centre.
  bool mayShow(const Vec3* points, size_t count) const;
  // False when a ball, of its world-space centre and radius, lies wholly
  // outside one of those planes.
  bool mayShow(Vec3 centre, float radius) const;

  const View& view() const { return view_; }

 private:
  // In camera space, positive on the side the picture is on.
  struct Plane {
    Vec3 normal;
    float offset = 0;
  };
  static constexpr size_t kPlanes = 6;

  View view_;
  std::array<Plane, kPlanes> planes_;
};
