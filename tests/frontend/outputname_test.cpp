#include "frontend/outputname.h"

#include <gtest/gtest.h>

TEST(DefaultOutputPath, ReplacesTheExtensionOfTheFileNameOnly) {
  const struct {
    const char* input;
    const char* expected;
  } cases[] = {
      {"a.rib", "a.zel"},
      {"scenes/a.RIB", "scenes/a.zel"},
      {"a", "a.zel"},
      {"dir.v2/a", "dir.v2/a.zel"},
      {"a.b.rib", "a.b.zel"},
      {".rib", ".rib.zel"},
      {"dir/.rib", "dir/.rib.zel"},
      {"a.rib.gz", "a.zel"},
      {"a.RIB.GZ", "a.zel"},
      {"a.gz", "a.zel"},
      {".gz", ".gz.zel"},
      {"a.zel", "a.zel"},
  };
  for (const auto& c : cases) EXPECT_EQ(defaultoutputpath(c.input), c.expected) << c.input;
}
