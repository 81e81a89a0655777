// The z-buffer that draws a mesh: an RGBA picture whose alpha is 255 where a
// triangle covers the pixel's centre and 0 elsewhere, with no background
// colour mixed in.
#pragma once

#include <cstdint>
#include <optional>
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

  // The same picture drawn a part of the mesh at a time, in the mesh's
  // order, so that a part can be dropped once drawn. Each part is shaded
  // with the lights made so far: all of those that shine on it, once the
  // eye's light is settled (see headlit).
  void start(const View& view);
  void add(const Mesh& part, const Lighting& lighting);
  const Image& image() const { return image_; }

 private:
  struct Corner {
    float x, y, key;  // raster position, and 1/z or -z: larger is nearer
    Vec3 color;
  };

  struct Projected {
    float x, y, key;
  };
  struct PixelBox {
    int32_t x0, x1, y0, y1;
  };

  void clear(const View& view);
  void triangle(uint32_t a, uint32_t b, uint32_t c);
  Corner corner(const View& view, Vec3 camera, Vec3 color) const;
  // The pixels whose centres lie within the corners' bounds, if any.
  std::optional<PixelBox> pixelBox(const Corner& a, const Corner& b, const Corner& c) const;
  void fill(Corner a, Corner b, Corner c);
  // Most vertices of a large mesh belong to triangles that cover no pixel
  // centre: each is shaded when a triangle first needs it.
  Vec3 shadedAt(uint32_t vertex);

  View view_;
  Image image_;
  std::vector<float> depth_;
  std::vector<Vec3> camera_;          // each mesh vertex in camera space
  std::vector<Projected> projected_;  // each vertex in raster space, when in front
  std::vector<Vec3> shaded_;
  std::vector<uint8_t> isShaded_;
  const Mesh* mesh_ = nullptr;
  std::optional<Shader> shader_;
  float farKey_ = 0;
};
