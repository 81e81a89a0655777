// Draws the scene file that the converted input gives (fuzz/previewinput.h).
#include "fuzz/previewinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzzinput::drawConverted(data, size);
  return 0;
}
