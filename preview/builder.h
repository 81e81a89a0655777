// Takes the tessellators' surfaces in object space and adds them to the mesh
// in world space, with the current transform and colour of the scene walk.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "preview/basis.h"
#include "preview/mesh.h"
#include "preview/sight.h"
#include "preview/vecmath.h"

class Builder {
 public:
  Builder(Mesh& mesh, size_t maxTriangles) : mesh_(mesh), maxTriangles_(maxTriangles) {}

  Mat4 toWorld;
  Vec3 color{1, 1, 1};
  uint32_t lightSet = 0;
  Basis uBasis = bezierBasis(), vBasis = bezierBasis();
  // Where the scene's camera is in world space, for ribbons and discs that
  // face it; for an orthographic camera, the way back to it.
  Vec3 eye{0, 0, -1};
  bool eyeAtPoint = false;

  // The camera as seen from the current object space: a point, or a way.
  Vec3 eyeInObject() const;

  // The scene's camera for choosing how finely to cut: world to camera, and
  // pixels per camera unit (at depth 1 when perspective). Until the scene
  // begins, or without a camera, surfaces are cut at the finest.
  Mat4 worldToCamera;
  float pixelsPerUnit = 0;
  bool perspective = false;
  // For one still picture: pieces it cannot show are left out, and those
  // out of its sight are cut at their fewest steps.
  std::optional<Sight> sight;
  // Steps along a surface of the given object-space centre and size, so that
  // each step spans a few pixels of the scene's picture: fewest to most.
  size_t steps(Vec3 centre, float size, size_t fewest, size_t most) const;

  // nu x nv points, u running fastest, made into two triangles per cell with
  // normals averaged over the cells around each point. `colors` holds one
  // per point, or is empty for the current colour.
  void grid(const std::vector<Vec3>& points, const std::vector<Vec3>& colors, size_t nu, size_t nv);
  // A flat piece: the points and the triangles (indices into them) that
  // cover it, with one normal.
  void flat(const std::vector<Vec3>& points, const std::vector<Vec3>& colors,
            const std::vector<uint32_t>& triangles);

  // A curved piece given as triangles over shared points: normals averaged
  // over the triangles around each point.
  void smooth(const std::vector<Vec3>& points, const std::vector<Vec3>& colors,
              const std::vector<uint32_t>& triangles);

  // False when the picture cannot show a surface over these object-space
  // points; true without a picture.
  bool mayShow(const std::vector<Vec3>& points) { return place(points, points.size()); }

  // True once the builder has made the most triangles it may; later
  // surfaces are dropped. The mesh may have been emptied since (TakeMesh).
  bool full() const { return full_; }
  size_t made() const { return made_; }

 private:
  bool room(size_t triangles);
  // Takes the first n points to world space, into world_; false when the
  // picture cannot show them.
  bool place(const std::vector<Vec3>& points, size_t n);
  Vec3 colorAt(const std::vector<Vec3>& colors, size_t i) const {
    return i < colors.size() ? colors[i] : color;
  }

  Mesh& mesh_;
  size_t maxTriangles_;
  bool full_ = false;
  size_t made_ = 0;
  std::vector<Vec3> world_;
};
