#include "preview/camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include "preview/args.h"

namespace {

constexpr int32_t kLongestSide = 2048;

}  // namespace

bool Camera::take(const ZelRecord& r) {
  if (r.op == "RasterViewport") {
    // Written as first and last pixel, both included.
    int64_t w = argInt(r, 1) - argInt(r, 0) + 1, h = argInt(r, 3) - argInt(r, 2) + 1;
    if (w > 0 && h > 0 && w <= INT32_MAX && h <= INT32_MAX) {
      xres = static_cast<int32_t>(w);
      yres = static_cast<int32_t>(h);
      formatSeen = true;
    }
  } else if (r.op == "RasterAspect") {
    float a = argFloat(r, 0);
    if (a > 0 && std::isfinite(a)) pixelAspect = a;
  } else if (r.op == "ImageAspect") {
    float a = argFloat(r, 0);
    if (a > 0 && std::isfinite(a)) frameAspect = a;
  } else if (r.op == "ImageWindow") {
    screen = std::array<float, 4>{argFloat(r, 0), argFloat(r, 1), argFloat(r, 2), argFloat(r, 3)};
  } else if (r.op == "ViewPerspective") {
    perspective = true;
    fov = argFloat(r, 0);
  } else if (r.op == "ViewOrthographic" || r.op == "ViewIdentity") {
    perspective = false;
  } else if (r.op == "Clip") {
    nearClip = argFloat(r, 0);
    farClip = argFloat(r, 1);
  } else {
    return false;
  }
  return true;
}

std::array<float, 4> Camera::screenWindow() const {
  if (screen) return *screen;
  float aspect = frameAspect.value_or(static_cast<float>(xres) * pixelAspect / yres);
  if (aspect >= 1) return {-aspect, aspect, -1, 1};
  return {-1, 1, -1 / aspect, 1 / aspect};
}

std::array<int32_t, 2> Camera::imageSize() const {
  int32_t longest = std::max(xres, yres);
  if (longest <= kLongestSide) return {xres, yres};
  double s = static_cast<double>(kLongestSide) / longest;
  return {std::max<int32_t>(1, static_cast<int32_t>(std::lround(xres * s))),
          std::max<int32_t>(1, static_cast<int32_t>(std::lround(yres * s)))};
}

View::View(const Camera& camera, int32_t w, int32_t h)
    : worldToCamera(camera.worldToCamera),
      cameraToWorld(camera.worldToCamera.inverseAffine()),
      perspective(camera.perspective),
      screen(camera.screenWindow()),
      width(w),
      height(h),
      nearClip(std::max(camera.nearClip, 1e-10f)),
      farClip(camera.farClip) {
  if (perspective) {
    float fov = std::clamp(camera.fov, 1e-3f, 179.9f);
    scale = 1.0f / std::tan(fov * std::numbers::pi_v<float> / 360.0f);
  }
}

float View::rasterX(Vec3 c) const {
  float sx = perspective ? c.x / c.z * scale : c.x;
  return (sx - screen[0]) / (screen[1] - screen[0]) * width;
}

float View::rasterY(Vec3 c) const {
  float sy = perspective ? c.y / c.z * scale : c.y;
  return (screen[3] - sy) / (screen[3] - screen[2]) * height;
}
