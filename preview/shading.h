// Lambert shading from the standard lights of a scene file: ambient,
// distant, point and spot, in world space.
#pragma once

#include <cstdint>
#include <vector>

#include "preview/vecmath.h"
#include "zel/reader/zelreader.h"

struct Light {
  enum class Kind { Ambient, Distant, Point, Spot };
  Kind kind = Kind::Ambient;
  Vec3 color{1, 1, 1};  // intensity times light colour
  Vec3 from;
  Vec3 direction{0, 0, 1};  // the way the light travels
  float coneCos = 0, deltaCos = 0, beam = 2;
  int64_t handle = 0;
  bool on = true;  // LightSwitch turns a light off for the whole picture
};

// The light a LightSourceV record makes with its points taken through
// toWorld; false for a light shader that is none of the four.
bool lightFrom(const ZelRecord& record, const Mat4& toWorld, Light& light);

// Colours a point from the lights, or from a light at the eye when none of
// them has a direction. The normal is turned towards the eye first, so both
// sides of a surface are lit.
class Shader {
 public:
  Shader(const std::vector<Light>& lights, Vec3 eye, bool eyeAtPoint);
  Vec3 shade(Vec3 p, Vec3 n, Vec3 surface) const;

 private:
  Vec3 toEye(Vec3 p) const { return eyeAtPoint_ ? eye_ - p : eye_; }

  const std::vector<Light>& lights_;
  Vec3 eye_;  // a position, or for an orthographic camera the way back to it
  bool eyeAtPoint_;
  bool headlight_ = true;
};
