// The camera of a scene file: its projection, screen window, image format
// and clipping records, and the transform records before the scene begins.
// Camera space looks down +z with +y up and +x right.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "preview/vecmath.h"
#include "zel/reader/zelreader.h"

struct Camera {
  Mat4 worldToCamera;
  bool perspective = false;  // orthographic when the file names no projection
  float fov = 90;
  int32_t xres = 640, yres = 480;
  bool formatSeen = false;
  float pixelAspect = 1;
  std::optional<float> frameAspect;
  std::optional<std::array<float, 4>> screen;  // left, right, bottom, top
  float nearClip = 1e-10f;
  float farClip = 1e30f;

  // Takes a camera record; false when the record is of another kind.
  bool take(const ZelRecord& record);
  // The file's screen window, or the default from the frame aspect ratio:
  // the shorter side spans -1 to 1.
  std::array<float, 4> screenWindow() const;
  // The file's resolution with the longer side at most 2048.
  std::array<int32_t, 2> imageSize() const;
};

// A camera made ready for one picture of width x height pixels.
struct View {
  Mat4 worldToCamera;
  Mat4 cameraToWorld;
  bool perspective = false;
  float scale = 1;  // screen units per camera unit at depth 1 (1 / tan(fov / 2))
  std::array<float, 4> screen{};
  int32_t width = 0, height = 0;
  float nearClip = 1e-10f, farClip = 1e30f;

  View() = default;
  View(const Camera& camera, int32_t width, int32_t height);
  // A camera-space point in raster coordinates (x right, y down, in pixels).
  float rasterX(Vec3 c) const;
  float rasterY(Vec3 c) const;
};
