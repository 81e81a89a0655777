// Replays every input that once made a fuzz target fail, through the scanner
// alone, through a whole conversion, plain and as gzip input, and through the
// preview of the scene it converts to, as the targets run them. A fault that
// comes back shows as a crash or a sanitizer report here.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "fuzz/fuzzinput.h"
#include "fuzz/previewinput.h"
#include "tests/support/files.h"

namespace {

namespace fs = std::filesystem;

fs::path regressionsDir() {
  return sourcePath("fuzz/regressions");
}

std::vector<fs::path> regressionInputs() {
  std::vector<fs::path> inputs;
  for (const auto& entry : fs::directory_iterator(regressionsDir())) {
    if (entry.is_regular_file()) inputs.push_back(entry.path());
  }
  return inputs;
}

TEST(FuzzRegressions, EveryKeptInputRunsThroughTheScannerAConversionAndThePreview) {
  const std::vector<fs::path> inputs = regressionInputs();
  ASSERT_FALSE(inputs.empty()) << "no inputs in " << regressionsDir();
  for (const fs::path& p : inputs) {
    SCOPED_TRACE(p.filename().string());
    const std::string bytes = readFile(p);
    const auto* data = reinterpret_cast<const uint8_t*>(bytes.data());
    fuzzinput::scan(data, bytes.size());
    fuzzinput::convertText(data, bytes.size(), false);
    fuzzinput::convertgzip(data, bytes.size());
    fuzzinput::convertText(data, bytes.size(), true);
    fuzzinput::drawConverted(data, bytes.size());
  }
}

}  // namespace
