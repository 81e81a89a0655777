// Feeds arbitrary bytes through a whole conversion by the extended reader.
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzzinput::convertText(data, size, true);
  return 0;
}
