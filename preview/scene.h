// Reads the first frame of a scene file into what the preview draws: the
// camera, the lights and the tessellated geometry.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
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

// Parameters whose values the preview never reads: it makes its own normals
// and draws no textures. Millions of numbers in a large scene.
const std::vector<std::string>& unreadParameters();

constexpr size_t kMaxTriangles = size_t{1} << 24;

// A scene read for one picture, of this size or the file's own, keeps only
// what that picture shows, cut as finely as its pixels need. Without one it
// keeps everything, for a camera that moves.
struct StillPicture {
  std::optional<std::array<int32_t, 2>> size;
};

// Takes the scene so far after each batch of records: it may draw the
// mesh's triangles and empty it, and the rest is added to what it leaves.
using TakeMesh = std::function<void(Scene&)>;

// Throws ZelReadError or PreviewError, each naming the line, for a file that
// cannot be read.
Scene readScene(std::istream& in, size_t maxTriangles = kMaxTriangles,
                std::optional<StillPicture> still = std::nullopt, const TakeMesh& take = {});
