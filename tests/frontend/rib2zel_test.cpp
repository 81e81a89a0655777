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

// Converts rib in a file of its own and returns the result with the scene in out.
runresult convertFile(const scratchdir& dir, const std::string& rib,
                      std::vector<std::string> extra = {}) {
  std::string in = dir.write("in.rib", rib).string();
  std::vector<std::string> args = extra;
  args.push_back(in);
  runresult r = runrib2zel(dir, args);
  r.out = readfile(dir.file("in.zel"));
  return r;
}

}  // namespace

// A bad request is reported, and the requests after it are still converted.
TEST(Rib2zel, ConvertsNextToTheInputPastABadRequest) {
  const struct {
    std::string rib;
    int status;
    lines errLines;
  } cases[] = {{kGood, 0, {"Success."}},
               {kBadAmongGood, 1, {kBogusLine, "There are warning/error messages."}}};
  for (const auto& c : cases) {
    scratchdir dir;
    runresult r = convertFile(dir, c.rib);
    EXPECT_EQ(r.status, c.status);
    EXPECT_EQ(r.errLines, c.errLines);
    EXPECT_EQ(sceneops(r.out), kGoodOps);
  }
}

TEST(Rib2zel, EndsWithTheStatusAndExitOfWhatWasReported) {
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
      {"ErrorHandler \"abort\"\nBogus 1 2\nWorldBegin\n",
       {},
       128 + SIGABRT,
       {"RIB error: undefined RIB request at line 1 'Bogus'"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rib);
    scratchdir dir;
    runresult r = convertFile(dir, c.rib, c.options);
    EXPECT_EQ(r.status, c.status);
    EXPECT_EQ(r.errLines, c.errLines);
  }
}

TEST(Rib2zel, FailsOnAMissingInputWithoutTouchingTheOutput) {
  scratchdir dir;
  std::string in = dir.file("none.rib").string();
  runresult r = runrib2zel(dir, {in});
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.errLines,
            lines{"rib2zel: Unable to open input file \"" + in + "\": No such file or directory"});
  EXPECT_FALSE(fs::exists(dir.file("none.zel")));
}

TEST(Rib2zel, FailsOnAnOutputThatCannotBeOpened) {
  scratchdir dir;
  std::string in = dir.write("in.rib", kGood).string();
  const struct {
    std::string output;
    std::string reason;
  } cases[] = {
      {dir.file("missing/out.zel").string(), "No such file or directory"},
      {dir.path().string(), "Is a directory"},
  };
  for (const auto& c : cases) {
    runresult r = runrib2zel(dir, {in, c.output});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.errLines, lines{"rib2zel: Unable to open file \"" + c.output + "\": " + c.reason});
  }
}

TEST(Rib2zel, RefusesToWriteOverItsInput) {
  scratchdir dir;
  std::string in = dir.write("scene.zel", kGood).string();
  runresult r = runrib2zel(dir, {in});
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.errLines, lines{"rib2zel: The output \"" + in + "\" is the input file"});
  EXPECT_EQ(readfile(in), kGood);
}

TEST(Rib2zel, FailsWhenTheSceneCannotBeWritten) {
  scratchdir dir;
  std::string in = dir.write("in.rib", kBadAmongGood).string();
  runresult r = runrib2zel(dir, {in, "/dev/full"});
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.errLines, (lines{kBogusLine,
                               "ZEL severe error: cannot write the scene file \"/dev/full\": No "
                               "space left on device"}));
}

TEST(Rib2zel, ConvertsStandardInputToStandardOutput) {
  scratchdir dir;
  for (const std::vector<std::string>& args : {lines{"-", "-"}, lines{"-"}}) {
    runresult r = runrib2zel(dir, args, &kBadAmongGood);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.errLines, (lines{kBogusLine, "There are warning/error messages."}));
    EXPECT_EQ(sceneops(r.out), kGoodOps);
  }
}

TEST(Rib2zel, ReadsCompressedInputFromAFileAndFromStandardInput) {
  scratchdir dir;
  std::string gz = gzipped(kBadAmongGood);
  std::string in = dir.write("scene.rib.gz", gz).string();
  runresult fromFile = runrib2zel(dir, {in});
  EXPECT_EQ(fromFile.status, 1);
  EXPECT_EQ(fromFile.errLines, (lines{kBogusLine, "There are warning/error messages."}));
  EXPECT_EQ(sceneops(readfile(dir.file("scene.zel"))), kGoodOps);

  runresult fromStdin = runrib2zel(dir, {"-", "-"}, &gz);
  EXPECT_EQ(fromStdin.errLines, fromFile.errLines);
  EXPECT_EQ(fromStdin.out, readfile(dir.file("scene.zel")));
}

TEST(Rib2zel, FailsOnTruncatedCompressedInput) {
  scratchdir dir;
  std::string gz = gzipped(kGood);
  std::string in = dir.write("cut.rib.gz", gz.substr(0, gz.size() - 10)).string();
  runresult r = runrib2zel(dir, {in});
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.errLines.back(),
            "rib2zel: Unable to read \"" + in + "\": the compressed data ends early");
}

TEST(Rib2zel, ParseOnlyWritesNoScene) {
  scratchdir dir;
  runresult r = convertFile(dir, kBadAmongGood, {"--parse-only"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.errLines, (lines{kBogusLine, "There are warning/error messages."}));
  EXPECT_FALSE(fs::exists(dir.file("in.zel")));
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
  runresult usage = runrib2zel(dir, {"-x", "a.rib"});
  EXPECT_EQ(usage.status, 2);
  EXPECT_EQ(usage.errLines,
            (lines{"rib2zel: unknown option '-x'", "Try 'rib2zel --help' for more information."}));
}
