// The conversion object as both front ends drive it: step by step, with the
// two kinds of message kept apart, and cancel between two statements.
#include "frontend/conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/frontend/runner.h"
#include "tests/frontend/testdata.h"

namespace {

using lines = std::vector<std::string>;

struct collected {
  lines log;
  lines messages;
};

conversion::request requestFor(const scratchdir& dir, const std::string& rib, collected& c) {
  conversion::request r;
  r.input = dir.write("in.rib", rib).string();
  r.output = dir.file("out.zel").string();
  r.log = [&c](const char* line) { c.log.push_back(line); };
  r.messages = [&c](const char* line) { c.messages.push_back(line); };
  return r;
}

std::string spheres(int n) {
  std::string rib = "WorldBegin\n";
  for (int i = 0; i < n; ++i) rib += "Sphere 1 -1 1 360\n";
  return rib;
}

}  // namespace

TEST(Conversion, StepsOneStatementAtATimeUntilTheEnd) {
  scratchdir dir;
  collected c;
  conversion conv(requestFor(dir, "WorldBegin\nBogus\nHider \"x\"\nWorldEnd\n", c));
  ASSERT_TRUE(conv.open());
  EXPECT_EQ(conv.progress(), 0);
  int steps = 1;
  while (conv.step()) ++steps;
  EXPECT_EQ(steps, 4);
  EXPECT_EQ(conv.state(), conversion::phase::finished);
  EXPECT_EQ(conv.progress(), 1);
  EXPECT_EQ(c.log, lines{"RIB error: undefined RIB request at line 1 'Bogus'"});
  EXPECT_EQ(c.messages.size(), 1u);
  EXPECT_EQ(conv.logLines(), 1);
  EXPECT_STREQ(conv.statusText(), "There are warning/error messages.");
  EXPECT_FALSE(conv.step());
}

// Cancelled, or destroyed without a cancel, mid-way.
TEST(Conversion, StoppedMidwayKeepsTheWholeRecordsWrittenSoFar) {
  for (bool cancel : {true, false}) {
    scratchdir dir;
    collected c;
    {
      conversion conv(requestFor(dir, spheres(5000), c));
      ASSERT_TRUE(conv.open());
      for (int i = 0; i < 3000; ++i) ASSERT_TRUE(conv.step());
      if (cancel) {
        EXPECT_GT(conv.progress(), 0.5);
        EXPECT_LT(conv.progress(), 0.7);
        conv.cancel();
        EXPECT_EQ(conv.state(), conversion::phase::cancelled);
        EXPECT_FALSE(conv.step());
      }
    }
    lines ops = sceneops(readFile(dir.file("out.zel")));
    EXPECT_EQ(ops.size(), 3000u) << "SceneBegin and 2999 spheres";
    EXPECT_EQ(ops.back(), "SphereV");
  }
}

TEST(Conversion, TheRiLayerKeepsItsStateForTheNextConversion) {
  // A parameter that was never declared makes the request fail silently, so
  // the surface reaches the scene only when the first conversion's
  // declaration is still known.
  const std::string useIt = "WorldBegin\nSurface \"plastic\" \"carried\" 1\nWorldEnd\n";
  scratchdir dir;
  collected c;
  for (const std::string& rib : {std::string("Declare \"carried\" \"uniform float\"\n"), useIt}) {
    conversion conv(requestFor(dir, rib, c));
    ASSERT_TRUE(conv.open());
    while (conv.step()) {
    }
    EXPECT_STREQ(conv.statusText(), "Success.");
  }
  lines ops = sceneops(readFile(dir.file("out.zel")));
  EXPECT_NE(std::find(ops.begin(), ops.end(), "SurfaceV"), ops.end());
}
