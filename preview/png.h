// Writes a picture as an 8-bit RGBA PNG file.
#pragma once

#include <string>

#include "preview/raster.h"

// Returns "" or what went wrong.
std::string writePng(const Image& image, const std::string& path);
