// --preview and --preview-size: what they take and what they refuse.
#include <gtest/gtest.h>

#include <vector>

#include "frontend/cli/options.h"

namespace {

TEST(PreviewOptions, TakeAFileAndASizeOrSayWhyNot) {
  const struct {
    std::vector<const char*> args;
    std::string problem;
    int32_t width, height;
  } cases[] = {
      {{"--preview", "p.png", "--preview-size", "320x200", "in.rib"}, "", 320, 200},
      {{"--preview=p.png", "in.rib", "out.zel"}, "", 0, 0},
      {{"--preview", "p.png", "--preview-size", "320", "in.rib"},
       "invalid preview size '320' (WxH, each 1 to 16384)",
       0,
       0},
      {{"--preview", "p.png", "--preview-size", "0x10", "in.rib"},
       "invalid preview size '0x10' (WxH, each 1 to 16384)",
       0,
       0},
      {{"--preview", "p.png", "--preview-size", "99999999999x10", "in.rib"},
       "invalid preview size '99999999999x10' (WxH, each 1 to 16384)",
       0,
       0},
      {{"--preview-size", "10x10", "in.rib"}, "--preview-size needs --preview", 10, 10},
      {{"--preview", "p.png", "--parse-only", "in.rib"},
       "--parse-only writes no scene file to preview",
       0,
       0},
      {{"--preview", "p.png", "in.rib", "-"},
       "--preview needs the scene in a file, not on standard output",
       0,
       0},
      {{"--preview", "p.png", "--output-dir", "d", "in.rib"},
       "--preview draws one scene: it takes no --output-dir",
       0,
       0},
      {{"--preview=", "in.rib"}, "--preview is empty", 0, 0},
  };
  for (const auto& c : cases) {
    std::vector<const char*> args = c.args;
    args.insert(args.begin(), "rib2zel");
    options o;
    EXPECT_EQ(parseoptions(static_cast<int>(args.size()), args.data(), o), c.problem) << args[1];
    EXPECT_EQ(o.previewWidth, c.width) << args[1];
    EXPECT_EQ(o.previewHeight, c.height) << args[1];
  }
}

}  // namespace
