// The tessellated scene: triangles in world space with a normal and a colour
// at each corner. Made once, drawn as often as the camera moves.
#pragma once

#include <cstdint>
#include <vector>

#include "preview/vecmath.h"

struct MeshVertex {
  Vec3 p;
  Vec3 n;
  Vec3 color;
  uint32_t lightSet;  // which lights shine on it (Lighting::sets)
};

struct Mesh {
  std::vector<MeshVertex> vertices;
  std::vector<uint32_t> indices;  // three per triangle

  size_t triangles() const { return indices.size() / 3; }
};
