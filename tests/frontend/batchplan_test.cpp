#include "frontend/cli/batchplan.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/scratchdir.h"

TEST(Batchplan, NamesSceneFilesAndRefusesClashes) {
  const struct {
    std::vector<std::string> relative;
    std::vector<std::string> outputs;
    std::vector<std::string> clashes;
  } cases[] = {
      {{"a/f.0001.rib", "f.RIB", "g.rib.gz", "h.txt", ".rib", "i.rib.GZ"},
       {"out/a/f.0001.zel", "out/f.zel", "out/g.zel", "out/h.txt.zel", "out/.rib.zel",
        "out/i.rib.GZ.zel"},
       {}},
      {{"f.rib", "x/../f.RIB", "f.rib.gz", "g.rib"},
       {"out/f.zel", "out/g.zel"},
       {"\"in/f.rib\" and \"in/x/../f.RIB\" would both write \"out/f.zel\"",
        "\"in/f.rib\" and \"in/f.rib.gz\" would both write \"out/f.zel\""}},
  };
  for (const auto& c : cases) {
    std::vector<batchinput> inputs;
    for (const std::string& r : c.relative) inputs.push_back({"in/" + r, r, 0});
    batchplan plan = planbatch(inputs, "out/");
    std::vector<std::string> outputs;
    for (const batchjob& j : plan.jobs) outputs.push_back(j.output);
    EXPECT_EQ(outputs, c.outputs);
    EXPECT_EQ(plan.clashes, c.clashes);
  }
}

TEST(Batchplan, FindsRibFilesBelowFoldersInNameOrder) {
  scratchdir dir;
  std::filesystem::create_directories(dir.file("shot/b/c"));
  std::filesystem::create_directories(dir.file("empty"));
  for (const char* name : {"shot/b/c/z.rib", "shot/b/a.RIB", "shot/a.rib.gz", "shot/x.zel"}) {
    dir.write(name, "WorldBegin\n");
  }
  std::filesystem::create_directory_symlink(dir.file("shot"), dir.file("shot/b/loop"));
  std::string top = dir.path().string() + "/";
  std::vector<batchproblem> problems;
  std::vector<batchinput> found =
      findbatchinputs({top + "shot", top + "empty", top + "none.rib"}, problems);
  std::vector<std::string> relative;
  for (const batchinput& in : found) relative.push_back(in.relative);
  EXPECT_EQ(relative, (std::vector<std::string>{"a.rib.gz", "b/a.RIB", "b/c/z.rib", "none.rib"}));
  EXPECT_EQ(found[0].path, top + "shot/a.rib.gz");
  EXPECT_EQ(found[0].bytes, 11u);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(problems[0].message,
            "No *.rib, *.RIB or *.rib.gz file in the folder \"" + top + "empty\"");
  EXPECT_FALSE(problems[0].failed);
}
