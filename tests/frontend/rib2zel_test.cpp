// End-to-end: the real rib2zel on small RIB files, checking standard error
// line by line, the exit status and the scene file.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/frontend/runner.h"
#include "tests/frontend/testdata.h"

namespace {

using lines = std::vector<std::string>;

const std::string kGood = "Format 640 480 1\nWorldBegin\nSphere 1 -1 1 360\nWorldEnd\n";
const std::string kBadAmongGood =
    "Format 640 480 1\nWorldBegin\nBogus 1 2\nSphere 1 -1 1 360\nWorldEnd\n";
const std::string kBogusLine = "RIB error: undefined RIB request at line 2 'Bogus'";
const std::string kHiderLine =
    "error: Parameter out of range. RiHiderV: unknown hider type \"x\", using hidden";
const std::vector<std::string> kGoodOps = {"RasterViewport", "RasterAspect", "SceneBegin",
                                           "SphereV", "SceneEnd"};

}  // namespace

// A bad request is reported, and the requests after it are still converted,
// from a file (plain or compressed) next to it or from standard input, by
// either reader.
TEST(Rib2zel, ConvertsAFileOrStandardInputPastABadRequest) {
  const std::string gz = gzipped(kBadAmongGood);
  const lines reported = {kBogusLine, "There are warning/error messages."};
  const struct {
    std::string file;  // written into the folder; empty: standard input
    const std::string& bytes;
    lines args;         // after the input file
    std::string scene;  // empty: standard output
    lines errLines;
  } cases[] = {
      {"in.rib", kGood, {}, "in.zel", {"Success."}},
      {"in.rib", kBadAmongGood, {}, "in.zel", reported},
      {"scene.rib.gz", gz, {}, "scene.zel", reported},
      {"", kBadAmongGood, {"-", "-"}, "", reported},
      {"", kBadAmongGood, {"-"}, "", reported},
      {"", gz, {"-", "-"}, "", reported},
      {"", kBadAmongGood, {"--extended", "-", "-"}, "", reported},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file + " " + std::to_string(c.args.size()));
    scratchdir dir;
    lines args = c.args;
    if (!c.file.empty()) args.insert(args.begin(), dir.write(c.file, c.bytes).string());
    const runresult r = runrib2zel(dir, args, c.file.empty() ? &c.bytes : nullptr);
    EXPECT_EQ(r.status, c.errLines.size() == 1 ? 0 : 1);
    EXPECT_EQ(r.errLines, c.errLines);
    EXPECT_EQ(sceneops(c.scene.empty() ? r.out : readFile(dir.file(c.scene))), kGoodOps);
  }
}

TEST(Rib2zel, EndsWithTheStatusLineAndExitOfWhatWasReported) {
  const struct {
    std::string rib;
    lines options;
    int status;
    lines errLines;
  } cases[] = {
      // Both kinds of message, in the order they came.
      {"Bogus\nHider \"x\"\nBogus\n",
       {},
       1,
       {"RIB error: undefined RIB request at line 1 'Bogus'", kHiderLine,
        "RIB error: undefined RIB request at line 2 'Bogus'", "There are warning/error messages."}},
      {"Hider \"x\"\n", {}, 0, {kHiderLine, "Success."}},
      {"", {}, 0, {"Success."}},
      {"# only a comment\n##RenderMan RIB\n\n", {}, 0, {"Success."}},
      {"ErrorHandler \"ignore\"\nBogus 1 2\nHider \"x\"\nSphere 1 -1 1 360\n", {}, 0, {"Success."}},
      {kBadAmongGood, {"-q"}, 1, {kBogusLine}},
      {kBadAmongGood, {"--parse-only"}, 1, {kBogusLine, "There are warning/error messages."}},
      {"ErrorHandler \"abort\"\nBogus 1 2\nWorldBegin\n",
       {},
       128 + SIGABRT,
       {"RIB error: undefined RIB request at line 1 'Bogus'"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rib);
    scratchdir dir;
    lines args = c.options;
    args.push_back(dir.write("in.rib", c.rib).string());
    const runresult r = runrib2zel(dir, args);
    EXPECT_EQ(r.status, c.status);
    EXPECT_EQ(r.errLines, c.errLines);
    // Only a parse-only run leaves no scene file.
    EXPECT_EQ(fs::exists(dir.file("in.zel")), c.options != lines{"--parse-only"});
  }
}

// Input or output that cannot be used ends with status 2 and its whole message.
TEST(Rib2zel, FailsOnInputOrOutputThatCannotBeUsed) {
  scratchdir dir;
  const std::string in = dir.write("in.rib", kGood).string();
  const std::string bad = dir.write("bad.rib", kBadAmongGood).string();
  const std::string none = dir.file("none.rib").string();
  const std::string zel = dir.write("scene.zel", kGood).string();
  const std::string gz = gzipped(kGood);
  const std::string cut = dir.write("cut.rib.gz", gz.substr(0, gz.size() - 10)).string();
  const std::string noDir = dir.file("missing/out.zel").string();
  const std::string isDir = dir.path().string();
  const struct {
    lines args;
    lines errLines;
  } cases[] = {
      {{none}, {"rib2zel: Unable to open input file \"" + none + "\": No such file or directory"}},
      {{in, noDir}, {"rib2zel: Unable to open file \"" + noDir + "\": No such file or directory"}},
      {{in, isDir}, {"rib2zel: Unable to open file \"" + isDir + "\": Is a directory"}},
      {{zel}, {"rib2zel: The output \"" + zel + "\" is the input file"}},
      {{bad, "/dev/full"},
       {kBogusLine,
        "ZEL severe error: cannot write the scene file \"/dev/full\": No space left on device"}},
      {{cut}, {"rib2zel: Unable to read \"" + cut + "\": the compressed data ends early"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args[0]);
    runresult r = runrib2zel(dir, c.args);
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.errLines, c.errLines);
  }
  EXPECT_FALSE(fs::exists(dir.file("none.zel")));
  EXPECT_EQ(readFile(zel), kGood);
}

TEST(Rib2zel, AnswersHelpVersionAndUsageErrors) {
  scratchdir dir;
  runresult help = runrib2zel(dir, {"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.out.rfind("Usage: rib2zel [OPTIONS] INPUT [OUTPUT]\n", 0), 0u);
  EXPECT_EQ(help.err, "");
  runresult version = runrib2zel(dir, {"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "rib2zel " RIB2ZEL_VERSION "\n");
  runresult usage = runrib2zel(dir, {"-y", "a.rib"});
  EXPECT_EQ(usage.status, 2);
  EXPECT_EQ(usage.errLines,
            (lines{"rib2zel: unknown option '-y'", "Try 'rib2zel --help' for more information."}));
}
