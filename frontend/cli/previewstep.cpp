#include "frontend/cli/previewstep.h"

#include <string>

#include "frontend/cli/exitstatus.h"
#include "preview/preview.h"

int32_t runPreview(const options& o, int32_t status, void (*print)(const char*)) {
  if (o.preview.empty() || (status != kExitSuccess && status != kExitMessages)) return status;
  std::optional<std::array<int32_t, 2>> size;
  if (o.previewWidth > 0) size = std::array<int32_t, 2>{o.previewWidth, o.previewHeight};
  PreviewResult result = previewFile(o.output, o.preview, size);
  for (const std::string& note : result.notes) print(("rib2zel: preview: " + note).c_str());
  if (result.error.empty()) return status;
  print(("rib2zel: preview failed: " + result.error).c_str());
  return kExitFailed;
}
