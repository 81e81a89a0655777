// Golden scenes of the extended reader: a main file with its archives converts
// with --extended to its checked-in ZEL file and messages (see cases.txt).
// RZ_UPDATE_GOLDEN=1 rewrites the ZEL files instead of comparing.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/golden/runprogram.h"
#include "tests/golden/samerecords.h"

namespace golden {
namespace {

namespace fs = std::filesystem;

const std::string kSource = RZ_SOURCE_DIR_PATH;
const std::string kCases = kSource + "/tests/golden/extended/";

struct Case {
  std::string name;
  std::string main;
  bool binary = false;  // its binary form (rib2bin) gives the same scene too
};

std::vector<Case> cases() {
  std::vector<Case> found;
  std::ifstream list(kCases + "cases.txt");
  for (std::string line; std::getline(list, line);) {
    std::istringstream words(line);
    Case c;
    std::string form;
    if (line.empty() || line[0] == '#' || !(words >> c.name >> c.main)) continue;
    c.binary = words >> form && form == "binary";
    found.push_back(c);
  }
  return found;
}

TEST(GoldenExtended, EachCaseGivesItsSceneAndMessages) {
  const fs::path dir = fs::temp_directory_path() / ("rz-golden-x-" + std::to_string(getpid()));
  fs::create_directories(dir);
  const bool update =
      std::getenv("RZ_UPDATE_GOLDEN") && std::string(std::getenv("RZ_UPDATE_GOLDEN")) == "1";
  for (const auto& [name, main, binary] : cases()) {
    SCOPED_TRACE(name);
    const std::string zel = (dir / (name + ".zel")).string();
    ProgramRun run{{RZ_RIB2ZEL, "--extended", kSource + "/" + main, zel}, "", "", ""};
    run.stderrPath = (dir / "messages.txt").string();
    runProgram(run);
    const std::string expected = kCases + name + ".messages";
    const std::string messages = fileExists(expected) ? readFile(expected) : "Success.\n";
    EXPECT_EQ(readFile(run.stderrPath), messages);
    if (update) {
      fs::copy_file(zel, kCases + name + ".zel", fs::copy_options::overwrite_existing);
    } else {
      EXPECT_TRUE(sameRecords(zel, kCases + name + ".zel"));
    }
    if (!binary) continue;
    const std::string ribb = (dir / (name + ".ribb")).string();
    ProgramRun encode{{RZ_RIB2BIN, kSource + "/" + main, ribb}, "", "", ""};
    ASSERT_EQ(runProgram(encode), 0) << "rib2bin " << main;
    ProgramRun binaryRun{{RZ_RIB2ZEL, "--extended", ribb, zel}, "", "", ""};
    binaryRun.stderrPath = run.stderrPath;
    runProgram(binaryRun);
    EXPECT_EQ(readFile(run.stderrPath), messages) << "binary";
    EXPECT_TRUE(sameRecords(zel, kCases + name + ".zel")) << "binary";
  }
  fs::remove_all(dir);
}

}  // namespace
}  // namespace golden
