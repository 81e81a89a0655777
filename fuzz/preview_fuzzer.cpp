// Converts the input as the extended fuzzer does, into memory, and draws the
// scene file that comes out at a small size: the preview must read whatever
// the converter writes, and fail on it only with a message.
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "fuzz/fuzzinput.h"
#include "preview/preview.h"
#include "preview/previewerror.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
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
  r.log = fuzzinput::discard;
  r.messages = fuzzinput::discard;
  {
    conversion c(std::move(r));
    if (c.open()) {
      while (c.step()) {
      }
    }
  }
  std::fclose(out);
  std::istringstream scene(std::string(buffer, length));
  std::free(buffer);
  try {
    std::vector<std::string> notes;
    stillPicture(scene, std::array<int32_t, 2>{64, 48}, notes, size_t{1} << 20);
  } catch (const ZelReadError&) {
  } catch (const PreviewError&) {
  }
  return 0;
}
