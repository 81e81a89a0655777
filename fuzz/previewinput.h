// The preview's fuzz input, shared by its libFuzzer target and the regression
// test: the input is converted as the extended fuzzer converts it, into memory,
// and the scene file that comes out is drawn at a small size, both as the
// desktop window keeps a scene and as the command line draws its still
// picture. The preview must read whatever the converter writes, and fail on it
// only with a message.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "fuzz/fuzzinput.h"
#include "preview/preview.h"
#include "preview/previewerror.h"

namespace fuzzinput {

inline std::string convertToScene(const uint8_t* data, size_t size) {
  char* buffer = nullptr;
  size_t length = 0;
  std::FILE* out = open_memstream(&buffer, &length);
  if (!out) __builtin_trap();
  conversion::request r;
  r.text = std::string_view(reinterpret_cast<const char*>(data), size);
  r.extended = true;
  r.outputStream = out;
  run(std::move(r), UINT64_MAX);
  std::fclose(out);
  std::string scene(buffer, length);
  std::free(buffer);
  return scene;
}

inline void drawConverted(const uint8_t* data, size_t size) {
  const std::string converted = convertToScene(data, size);
  const std::array<int32_t, 2> small{64, 48};
  const size_t maxTriangles = size_t{1} << 20;
  try {
    std::istringstream scene(converted);
    drawScene(readScene(scene, maxTriangles), small);
  } catch (const ZelReadError&) {
  } catch (const PreviewError&) {
  }
  try {
    std::istringstream scene(converted);
    std::vector<std::string> notes;
    stillPicture(scene, small, notes, maxTriangles);
  } catch (const ZelReadError&) {
  } catch (const PreviewError&) {
  }
}

}  // namespace fuzzinput
