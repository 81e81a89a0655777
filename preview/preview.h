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

// One picture of the scene file read from `in`, at the given size or the
// file's own, drawn while the file is read. Its notes go to `notes`.
// Throws as readScene does.
Image stillPicture(std::istream& in, std::optional<std::array<int32_t, 2>> size,
                   std::vector<std::string>& notes, size_t maxTriangles = kMaxTriangles);

struct PreviewResult {
  std::string error;  // empty when the picture was written
  std::vector<std::string> notes;
};

PreviewResult previewFile(const std::string& scenePath, const std::string& pngPath,
                          std::optional<std::array<int32_t, 2>> size);
