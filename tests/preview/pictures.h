// Scene files written in a line and the pictures the preview draws of them.
#pragma once

#include <array>
#include <cstdint>
#include <sstream>
#include <string>

#include "preview/preview.h"

inline Image picture(const std::string& records) {
  std::istringstream in("{\"format\":\"ZEL\",\"version\":1,\"generator\":\"test\"}\n" + records);
  std::vector<std::string> notes;
  return stillPicture(in, std::nullopt, notes);
}

struct Coverage {
  int64_t pixels = 0;
  std::array<int32_t, 4> box{INT32_MAX, INT32_MAX, -1, -1};  // x0, y0, x1, y1, inclusive
};

inline Coverage coverage(const Image& image) {
  Coverage c;
  for (int32_t y = 0; y < image.height; ++y) {
    for (int32_t x = 0; x < image.width; ++x) {
      if (image.alpha(x, y) == 0) continue;
      ++c.pixels;
      c.box = {std::min(c.box[0], x), std::min(c.box[1], y), std::max(c.box[2], x),
               std::max(c.box[3], y)};
    }
  }
  return c;
}
