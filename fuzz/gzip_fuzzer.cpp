// Feeds arbitrary bytes, as a gzip file, through the decompressor and a whole
// conversion.
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzzinput::convertgzip(data, size);
  return 0;
}
