// Golden scenes of the extended reader: a main file with its archives converts
// with --extended to its checked-in ZEL file and messages (see cases.txt).
// RZ_UPDATE_GOLDEN=1 rewrites the ZEL files instead of comparing.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/golden/samerecords.h"
#include "tests/support/childprocess.h"
#include "tests/support/files.h"
#include "tests/support/scratchdir.h"

namespace golden {
namespace {

namespace fs = std::filesystem;

const std::string kSource = RZ_SOURCE_DIR_PATH;
const std::string kCases = kSource + "/tests/golden/extended/";

// NAME and main file of each case.
std::vector<std::pair<std::string, std::string>> cases() {
  std::vector<std::pair<std::string, std::string>> found;
  std::ifstream list(kCases + "cases.txt");
  for (std::string line; std::getline(list, line);) {
    std::istringstream words(line);
    std::string name, main;
    if (!line.empty() && line[0] != '#' && words >> name >> main) found.emplace_back(name, main);
  }
  return found;
}

TEST(GoldenExtended, EachCaseGivesItsSceneAndMessages) {
  const scratchdir dir;
  const bool update =
      std::getenv("RZ_UPDATE_GOLDEN") && std::string(std::getenv("RZ_UPDATE_GOLDEN")) == "1";
  for (const auto& [name, main] : cases()) {
    SCOPED_TRACE(name);
    const std::string zel = dir.file(name + ".zel").string();
    const childspec run{
        {RZ_RIB2ZEL, "--extended", kSource + "/" + main, zel}, "", "", dir.file("messages.txt")};
    runprogram(run);
    const std::string expected = kCases + name + ".messages";
    const std::string messages = fs::exists(expected) ? readFile(expected) : "Success.\n";
    EXPECT_EQ(readFile(run.stderrPath), messages);
    if (update) {
      fs::copy_file(zel, kCases + name + ".zel", fs::copy_options::overwrite_existing);
    } else {
      EXPECT_TRUE(sameRecords(zel, kCases + name + ".zel"));
    }
  }
}

}  // namespace
}  // namespace golden
