// The preview of a scene file: its first frame drawn from its own camera
// into a PNG picture.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "preview/raster.h"
#include "preview/scene.h"

// The picture of a scene at the given size, or at its own (see Camera::imageSize).
Image drawScene(const Scene& scene, std::optional<std::array<int32_t, 2>> size);

struct PreviewResult {
  std::string error;  // empty when the picture was written
  std::vector<std::string> notes;
};

PreviewResult previewFile(const std::string& scenePath, const std::string& pngPath,
                          std::optional<std::array<int32_t, 2>> size);
