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
};

// The scene's lights and the sets of them that shine on its surfaces: a
// light is an attribute, on from where it is made to the end of the scope,
// unless LightSwitch turns it off or on again. Set 0 is the empty one.
struct Lighting {
  std::vector<Light> lights;
  std::vector<std::vector<uint32_t>> sets{{}};
};

// True while no light has a direction: the eye's own light shines instead.
bool headlit(const Lighting& lighting);

// The light a LightSourceV record makes with its points taken through
// toWorld; false for a light shader that is none of the four.
bool lightFrom(const ZelRecord& record, const Mat4& toWorld, Light& light);

// Colours a point from the lights of its set, or from a light at the eye
// when no light of the scene has a direction. The normal is turned towards
// the eye first, so both sides of a surface are lit.
class Shader {
 public:
  Shader(const Lighting& lighting, Vec3 eye, bool eyeAtPoint);
  Vec3 shade(Vec3 p, Vec3 n, Vec3 surface, uint32_t set) const;

 private:
  Vec3 toEye(Vec3 p) const { return eyeAtPoint_ ? eye_ - p : eye_; }

  const Lighting& lighting_;
  Vec3 eye_;  // a position, or for an orthographic camera the way back to it
  bool eyeAtPoint_;
  bool headlight_;
};
