// The z-buffer that draws a mesh: an RGBA picture whose alpha is 255 where a
// triangle covers the pixel's centre and 0 elsewhere, with no background
// colour mixed in.
#pragma once

#include <cstdint>
#include <vector>

#include "preview/camera.h"
#include "preview/mesh.h"
#include "preview/shading.h"

struct Image {
  int32_t width = 0, height = 0;
  std::vector<uint8_t> rgba;  // rows from the top, four bytes a pixel

  uint8_t alpha(int32_t x, int32_t y) const {
    return rgba[(static_cast<size_t>(y) * width + x) * 4 + 3];
  }
};

// Keeps its buffers between pictures, so that a window can redraw at once.
class Renderer {
 public:
  const Image& draw(const Mesh& mesh, const Lighting& lighting, const View& view);

 private:
  struct Corner {
    float x, y, key;  // raster position, and 1/z or -z: larger is nearer
    Vec3 color;
  };

  void clear(const View& view);
  void triangle(const View& view, uint32_t a, uint32_t b, uint32_t c);
  Corner corner(const View& view, Vec3 camera, Vec3 color) const;
  void fill(Corner a, Corner b, Corner c);

  Image image_;
  std::vector<float> depth_;
  std::vector<Vec3> camera_;  // each mesh vertex in camera space
  std::vector<Vec3> shaded_;
  float farKey_ = 0;
};
