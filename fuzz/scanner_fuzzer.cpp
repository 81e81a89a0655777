// Feeds arbitrary bytes to the scanner alone.
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzzinput::scan(data, size);
  return 0;
}
