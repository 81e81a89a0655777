#include "frontend/cli/options.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct parsed {
  std::string problem;
  options o;
};

parsed parse(std::vector<const char*> args) {
  args.insert(args.begin(), "rib2zel");
  parsed p;
  p.problem = parseoptions(static_cast<int>(args.size()), args.data(), p.o);
  return p;
}

}  // namespace

TEST(Options, NameTheFilesFromTheArguments) {
  const struct {
    std::vector<const char*> args;
    const char* input;
    const char* output;
  } cases[] = {
      {{"in.rib", "out.zel"}, "in.rib", "out.zel"},
      {{"in.rib"}, "in.rib", "in.zel"},
      {{"-", "-"}, "-", "-"},
      {{"-"}, "-", "-"},
      {{"in.rib", "-"}, "in.rib", "-"},
      {{"--", "-q.rib"}, "-q.rib", "-q.zel"},
      {{"-q", "in.rib"}, "in.rib", "in.zel"},
  };
  for (const auto& c : cases) {
    parsed p = parse(c.args);
    EXPECT_EQ(p.problem, "") << c.args[0];
    EXPECT_EQ(p.o.input, c.input);
    EXPECT_EQ(p.o.output, c.output);
  }
}

TEST(Options, SetTheFlags) {
  parsed p = parse({"--quiet", "--parse-only", "in.rib"});
  EXPECT_EQ(p.problem, "");
  EXPECT_TRUE(p.o.quiet);
  EXPECT_TRUE(p.o.parseOnly);
  EXPECT_EQ(p.o.output, "");
  EXPECT_TRUE(parse({"-q", "in.rib"}).o.quiet);
  EXPECT_FALSE(parse({"in.rib"}).o.quiet);
}

TEST(Options, ReportUsageErrors) {
  const struct {
    std::vector<const char*> args;
    const char* problem;
  } cases[] = {
      {{}, "missing INPUT"},
      {{"-q"}, "missing INPUT"},
      {{"a", "b", "c"}, "too many arguments: 'c'"},
      {{"-y", "a"}, "unknown option '-y'"},
      {{"--quiet=1", "a"}, "unknown option '--quiet=1'"},
      {{"-qh", "a"}, "unknown option '-qh'"},
      {{"--parse-only", "a", "b"}, "--parse-only writes no OUTPUT"},
      {{""}, "INPUT is empty"},
      {{"a", ""}, "OUTPUT is empty"},
  };
  for (const auto& c : cases) EXPECT_EQ(parse(c.args).problem, c.problem);
}

TEST(Options, HelpAndVersionWinOverUsageErrors) {
  parsed help = parse({"-y", "a", "b", "c", "--help"});
  EXPECT_EQ(help.problem, "");
  EXPECT_TRUE(help.o.help);
  parsed version = parse({"--version"});
  EXPECT_EQ(version.problem, "");
  EXPECT_TRUE(version.o.version);
}

TEST(Options, ReadABatch) {
  const struct {
    std::vector<const char*> args;
    const char* problem;
    int32_t jobs;
    std::vector<std::string> fileOptions;
  } cases[] = {
      {{"--output-dir", "d", "-j", "3", "a", "b"}, "", 3, {}},
      {{"--output-dir=d", "-j12", "--strict", "-q", "a"}, "", 12, {"--strict", "-q"}},
      {{"--jobs=2", "--output-dir", "d", "--", "-a"}, "", 2, {}},
      {{"--output-dir", "d"}, "missing INPUT", 0, {}},
      {{"--output-dir", "", "a"}, "--output-dir is empty", 0, {}},
      {{"a", "--output-dir"}, "option '--output-dir' needs a value", 0, {}},
      {{"--output-dir", "d", "-"},
       "standard input cannot be part of a batch (--output-dir)",
       0,
       {}},
      {{"--output-dir", "d", "--parse-only", "a"},
       "--parse-only writes no scene files: it takes no --output-dir",
       0,
       {"--parse-only"}},
      {{"-j", "2", "a"}, "--jobs converts a batch: it needs --output-dir", 2, {}},
      {{"--output-dir", "d", "-j0", "a"}, "invalid number of jobs '0' (1 to 1024)", 0, {}},
      {{"--output-dir", "d", "-jx", "a"}, "invalid number of jobs 'x' (1 to 1024)", 0, {}},
      {{"--output-dir", "d", "--jobs=99999999999", "a"},
       "invalid number of jobs '99999999999' (1 to 1024)",
       0,
       {}},
  };
  for (const auto& c : cases) {
    parsed p = parse(c.args);
    EXPECT_EQ(p.problem, c.problem) << c.args[0];
    EXPECT_EQ(p.o.jobs, c.jobs);
    EXPECT_EQ(p.o.fileOptions, c.fileOptions);
  }
  parsed p = parse({"--output-dir", "d", "a", "b"});
  EXPECT_TRUE(p.o.batch());
  EXPECT_EQ(p.o.inputs, (std::vector<std::string>{"a", "b"}));
}
