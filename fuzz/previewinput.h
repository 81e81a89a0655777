// The preview's fuzz input, shared by its libFuzzer target and the regression
// test: the input is converted as the extended fuzzer converts it, into memory,
// and the scene file that comes out is drawn at a small size. The preview must
// read whatever the converter writes, and fail on it only with a message.
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
  r.input = "fuzz";
  r.text = std::string_view(reinterpret_cast<const char*>(data), size);
  r.extended = true;
  r.outputStream = out;
  r.mayAbort = false;
  r.log = discard;
  r.messages = discard;
  {
    conversion c(std::move(r));
    if (c.open()) {
      while (c.step()) {
      }
    }
  }
  std::fclose(out);
  std::string scene(buffer, length);
  std::free(buffer);
  return scene;
}

inline void drawConverted(const uint8_t* data, size_t size) {
  std::istringstream scene(convertToScene(data, size));
  try {
    drawScene(readScene(scene, size_t{1} << 20), std::array<int32_t, 2>{64, 48});
  } catch (const ZelReadError&) {
  } catch (const PreviewError&) {
  }
}

}  // namespace fuzzinput
