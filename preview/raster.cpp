#include "preview/raster.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Ties on an edge go to one of the two triangles that share it: exactly one
// of a->b and b->a passes.
bool ownsTies(double dx, double dy) {
  return dy < 0 || (dy == 0 && dx > 0);
}

// A raster coordinate clamped to the pixels 0 to size - 1 before it becomes an integer.
int32_t pixelAt(float v, int32_t size) {
  return static_cast<int32_t>(std::clamp(v, 0.0f, static_cast<float>(size - 1)));
}

uint8_t byte(float v) {
  return static_cast<uint8_t>(std::lround(std::clamp(v, 0.0f, 1.0f) * 255));
}

}  // namespace

const Image& Renderer::draw(const Mesh& mesh, const Lighting& lighting, const View& view) {
  start(view);
  add(mesh, lighting);
  return image_;
}

void Renderer::start(const View& view) {
  view_ = view;
  clear(view);
}

void Renderer::add(const Mesh& mesh, const Lighting& lighting) {
  const View& view = view_;
  Vec3 eye = view.perspective ? view.cameraToWorld.point({0, 0, 0})
                              : normalized(view.cameraToWorld.direction({0, 0, -1}));
  shader_.emplace(lighting, eye, view.perspective);
  mesh_ = &mesh;
  camera_.resize(mesh.vertices.size());
  projected_.resize(mesh.vertices.size());
  shaded_.resize(mesh.vertices.size());
  isShaded_.assign(mesh.vertices.size(), 0);
  for (size_t i = 0; i < mesh.vertices.size(); ++i) {
    camera_[i] = view.worldToCamera.point(mesh.vertices[i].p);
    if (camera_[i].z < view.nearClip) continue;
    Corner c = corner(view, camera_[i], {});
    projected_[i] = {c.x, c.y, c.key};
  }
  for (size_t t = 0; t + 2 < mesh.indices.size(); t += 3) {
    triangle(mesh.indices[t], mesh.indices[t + 1], mesh.indices[t + 2]);
  }
  mesh_ = nullptr;
}

Vec3 Renderer::shadedAt(uint32_t vertex) {
  if (!isShaded_[vertex]) {
    const MeshVertex& v = mesh_->vertices[vertex];
    shaded_[vertex] = shader_->shade(v.p, v.n, v.color, v.lightSet);
    isShaded_[vertex] = 1;
  }
  return shaded_[vertex];
}

void Renderer::clear(const View& view) {
  image_.width = view.width;
  image_.height = view.height;
  size_t n = static_cast<size_t>(view.width) * view.height;
  image_.rgba.assign(n * 4, 0);
  depth_.assign(n, -std::numeric_limits<float>::infinity());
  farKey_ = view.perspective ? 1.0f / view.farClip : -view.farClip;
}

Renderer::Corner Renderer::corner(const View& view, Vec3 c, Vec3 color) const {
  return {view.rasterX(c), view.rasterY(c), view.perspective ? 1.0f / c.z : -c.z, color};
}

void Renderer::triangle(uint32_t a, uint32_t b, uint32_t c) {
  const View& view = view_;
  Vec3 p[3] = {camera_[a], camera_[b], camera_[c]};
  if (p[0].z >= view.nearClip && p[1].z >= view.nearClip && p[2].z >= view.nearClip) {
    const Projected &pa = projected_[a], &pb = projected_[b], &pc = projected_[c];
    Corner ca{pa.x, pa.y, pa.key, {}}, cb{pb.x, pb.y, pb.key, {}}, cc{pc.x, pc.y, pc.key, {}};
    if (!pixelBox(ca, cb, cc)) return;
    ca.color = shadedAt(a);
    cb.color = shadedAt(b);
    cc.color = shadedAt(c);
    fill(ca, cb, cc);
    return;
  }
  // The part in front of the near plane: a triangle or a quadrilateral.
  Vec3 col[3] = {shadedAt(a), shadedAt(b), shadedAt(c)};
  Vec3 kept[4], keptColor[4];
  int n = 0;
  for (int i = 0; i < 3; ++i) {
    int j = (i + 1) % 3;
    bool in = p[i].z >= view.nearClip, nextIn = p[j].z >= view.nearClip;
    if (in) {
      kept[n] = p[i];
      keptColor[n++] = col[i];
    }
    if (in != nextIn) {
      float t = (view.nearClip - p[i].z) / (p[j].z - p[i].z);
      kept[n] = lerp(p[i], p[j], t);
      kept[n].z = view.nearClip;
      keptColor[n++] = lerp(col[i], col[j], t);
    }
  }
  for (int i = 1; i + 1 < n; ++i) {
    fill(corner(view, kept[0], keptColor[0]), corner(view, kept[i], keptColor[i]),
         corner(view, kept[i + 1], keptColor[i + 1]));
  }
}

std::optional<Renderer::PixelBox> Renderer::pixelBox(const Corner& a, const Corner& b,
                                                     const Corner& c) const {
  // A transform of absurd size leaves corners at infinity or undefined: nothing to draw.
  for (const Corner* k : {&a, &b, &c})
    if (!std::isfinite(k->x) || !std::isfinite(k->y)) return std::nullopt;
  float lox = std::min({a.x, b.x, c.x}), hix = std::max({a.x, b.x, c.x});
  float loy = std::min({a.y, b.y, c.y}), hiy = std::max({a.y, b.y, c.y});
  // Only pixels whose centres lie within the bounds can be covered; most
  // triangles of a large mesh hold none and end here.
  float fx0 = std::ceil(lox - 0.5f), fx1 = std::floor(hix - 0.5f);
  float fy0 = std::ceil(loy - 0.5f), fy1 = std::floor(hiy - 0.5f);
  if (fx0 > fx1 || fy0 > fy1 || fx1 < 0 || fy1 < 0 || fx0 >= image_.width || fy0 >= image_.height)
    return std::nullopt;
  int32_t x0 = pixelAt(fx0, image_.width), x1 = pixelAt(fx1, image_.width);
  int32_t y0 = pixelAt(fy0, image_.height), y1 = pixelAt(fy1, image_.height);
  if (x0 > x1 || y0 > y1) return std::nullopt;
  return PixelBox{x0, x1, y0, y1};
}

void Renderer::fill(Corner a, Corner b, Corner c) {
  double area =
      (double(b.x) - a.x) * (double(c.y) - a.y) - (double(b.y) - a.y) * (double(c.x) - a.x);
  if (!(std::abs(area) > 0) || !std::isfinite(area)) return;
  if (area < 0) {
    std::swap(b, c);
    area = -area;
  }
  const Corner* v[3] = {&a, &b, &c};
  std::optional<PixelBox> box = pixelBox(a, b, c);
  if (!box) return;
  auto [x0, x1, y0, y1] = *box;
  // Edge i is the one opposite corner i; its function is that corner's weight times the area.
  double ex[3], ey[3];
  bool ties[3];
  for (int i = 0; i < 3; ++i) {
    const Corner& from = *v[(i + 1) % 3];
    const Corner& to = *v[(i + 2) % 3];
    ex[i] = double(to.x) - from.x;
    ey[i] = double(to.y) - from.y;
    ties[i] = ownsTies(ex[i], ey[i]);
  }
  for (int32_t y = y0; y <= y1; ++y) {
    double py = y + 0.5;
    for (int32_t x = x0; x <= x1; ++x) {
      double px = x + 0.5, w[3];
      bool inside = true;
      for (int i = 0; i < 3 && inside; ++i) {
        const Corner& from = *v[(i + 1) % 3];
        w[i] = ex[i] * (py - from.y) - ey[i] * (px - from.x);
        inside = w[i] > 0 || (w[i] == 0 && ties[i]);
      }
      if (!inside) continue;
      float b0 = float(w[0] / area), b1 = float(w[1] / area), b2 = float(w[2] / area);
      float key = b0 * a.key + b1 * b.key + b2 * c.key;
      size_t at = static_cast<size_t>(y) * image_.width + x;
      if (key <= depth_[at] || key < farKey_) continue;
      depth_[at] = key;
      Vec3 col = a.color * b0 + b.color * b1 + c.color * b2;
      uint8_t* px4 = &image_.rgba[at * 4];
      px4[0] = byte(col.x);
      px4[1] = byte(col.y);
      px4[2] = byte(col.z);
      px4[3] = 255;
    }
  }
}
