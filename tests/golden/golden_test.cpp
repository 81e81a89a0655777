// Golden scenes: every example converts to its checked-in ZEL file, and all of
// its encodings give the same records; and each case of the extended reader (a
// main file with its archives, see extended/cases.txt) converts with
// --extended to its ZEL file and messages. RZ_UPDATE_GOLDEN=1 rewrites the
// golden files instead of comparing (see tests/golden/README.md).
#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
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

// The lines of a list in this folder, comments and empty lines left out.
std::vector<std::string> listed(const std::string& name) {
  std::vector<std::string> lines;
  for (const std::string& line : splitLines(readFile(kSource + "/tests/golden/" + name))) {
    if (!line.empty() && line[0] != '#') lines.push_back(line);
  }
  return lines;
}

std::string example(const std::string& scene, const char* suffix) {
  return kSource + "/examples/" + scene + suffix;
}

std::string goldenFile(const std::string& scene) {
  return kSource + "/tests/golden/" + scene + ".zel";
}

bool updating() {
  const char* v = std::getenv("RZ_UPDATE_GOLDEN");
  return v != nullptr && std::string(v) == "1";
}

std::string gunzip(const std::string& path) {
  std::string text;
  gzFile in = gzopen(path.c_str(), "rb");
  if (in == nullptr) return text;
  char buffer[1 << 14];
  int n;
  while ((n = gzread(in, buffer, sizeof buffer)) > 0) text.append(buffer, n);
  gzclose(in);
  return text;
}

class Golden : public testing::TestWithParam<std::string> {
 protected:
  std::string scene() const { return GetParam(); }
  std::string temp(const std::string& name) const { return dir_.file(name).string(); }

  // Converts `input` (read through standard input when `viaStdin`) into a ZEL
  // file in the test's directory, expecting a clean conversion: exit status 0
  // and "Success." as the only message.
  std::string convert(const std::string& input, bool viaStdin = false) {
    std::string zel = temp("out.zel");
    childrequest run{
        {RZ_RIB2ZEL, viaStdin ? "-" : input, zel}, viaStdin ? input : "", "", temp("messages.txt")};
    int status = runprogram(run);
    std::string messages = readFile(run.stderrPath);
    EXPECT_EQ(status, 0) << input << ":\n" << messages;
    EXPECT_EQ(messages, "Success.\n") << input;
    return zel;
  }

  std::string encode(const std::string& form) {
    std::string ribb = temp(form + ".ribb");
    EXPECT_EQ(runprogram({{RZ_RIB2BIN, "--define-as", form, example(scene(), ".rib"), ribb}}), 0)
        << "rib2bin --define-as " << form;
    return ribb;
  }

 private:
  scratchdir dir_;
};

TEST_P(Golden, AsciiMatchesGoldenFile) {
  std::string zel = convert(example(scene(), ".rib"));
  if (updating()) {
    if (HasFailure()) return;  // never accept a conversion that printed messages
    fs::copy_file(zel, goldenFile(scene()), fs::copy_options::overwrite_existing);
    std::printf("rewrote %s\n", goldenFile(scene()).c_str());
    return;
  }
  ASSERT_TRUE(fs::exists(goldenFile(scene())))
      << goldenFile(scene()) << " is missing; see tests/golden/README.md";
  EXPECT_TRUE(sameRecords(zel, goldenFile(scene())));
}

// Binary and compressed, from a file or standard input; and the name after a
// request definition (0xCC) as a bare word, a quoted string or an encoded
// string, which the stored binary form uses.
TEST_P(Golden, EveryFormGivesTheSameRecords) {
  const std::pair<std::string, bool> forms[] = {
      {example(scene(), ".ribb"), false},  {example(scene(), ".rib.gz"), false},
      {example(scene(), ".rib.gz"), true}, {encode("bare"), false},
      {encode("quoted"), false},           {encode("encoded"), false}};
  for (const auto& [input, viaStdin] : forms) {
    SCOPED_TRACE(input + (viaStdin ? " on standard input" : ""));
    EXPECT_TRUE(sameRecords(convert(input, viaStdin), goldenFile(scene())));
  }
}

TEST_P(Golden, StoredFormsAreUpToDate) {
  std::string ascii = readFile(example(scene(), ".rib"));
  EXPECT_EQ(readFile(encode("encoded")), readFile(example(scene(), ".ribb")))
      << "run tools/make-examples.sh " << scene();
  EXPECT_EQ(gunzip(example(scene(), ".rib.gz")), ascii) << "run tools/make-examples.sh " << scene();
}

INSTANTIATE_TEST_SUITE_P(Scenes, Golden, testing::ValuesIn(listed("scenes.txt")),
                         [](const auto& info) { return info.param; });

TEST(GoldenExtended, EachCaseGivesItsSceneAndMessages) {
  const scratchdir dir;
  for (const std::string& line : listed("extended/cases.txt")) {
    std::istringstream words(line);
    std::string name, main, form;
    ASSERT_TRUE(words >> name >> main) << line;
    SCOPED_TRACE(name);
    const std::string zel = dir.file(name + ".zel").string();
    const childrequest run{
        {RZ_RIB2ZEL, "--extended", kSource + "/" + main, zel}, "", "", dir.file("messages.txt")};
    runprogram(run);
    const std::string expected = kCases + name + ".messages";
    const std::string messages = fs::exists(expected) ? readFile(expected) : "Success.\n";
    EXPECT_EQ(readFile(run.stderrPath), messages);
    if (updating()) {
      fs::copy_file(zel, kCases + name + ".zel", fs::copy_options::overwrite_existing);
    } else {
      EXPECT_TRUE(sameRecords(zel, kCases + name + ".zel"));
    }
    // "binary": the file's binary form (rib2bin) gives the same scene too.
    if (!(words >> form) || form != "binary") continue;
    const std::string ribb = dir.file(name + ".ribb").string();
    ASSERT_EQ(runprogram({{RZ_RIB2BIN, kSource + "/" + main, ribb}}), 0) << "rib2bin " << main;
    runprogram({{RZ_RIB2ZEL, "--extended", ribb, zel}, "", "", run.stderrPath});
    EXPECT_EQ(readFile(run.stderrPath), messages) << "binary";
    EXPECT_TRUE(sameRecords(zel, kCases + name + ".zel")) << "binary";
  }
}

}  // namespace
}  // namespace golden
