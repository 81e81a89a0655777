// Reads the first frame of a scene file into what the preview draws: the
// camera, the lights and the tessellated geometry.
#pragma once

#include <istream>
#include <string>
#include <vector>

#include "preview/camera.h"
#include "preview/mesh.h"
#include "preview/shading.h"

struct Scene {
  Camera camera;
  Mesh mesh;
  Lighting lighting;
  // What the picture leaves out or passed over, one line each, for the user.
  std::vector<std::string> notes;
};

constexpr size_t kMaxTriangles = size_t{1} << 24;

// Throws ZelReadError or PreviewError, each naming the line, for a file that
// cannot be read.
Scene readScene(std::istream& in, size_t maxTriangles = kMaxTriangles);
