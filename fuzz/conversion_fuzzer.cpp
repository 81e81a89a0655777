// Feeds arbitrary bytes through a whole conversion.
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzzinput::convertText(data, size, false);
  return 0;
}
