// The bundled example scene uses every family of requests and must convert
// without a single message on either error path.
#include <gtest/gtest.h>

#include <string>

#include "tests/rib/requests/conversion.h"
#include "tests/support/files.h"

namespace {

TEST(FullScene, ConvertsWithoutAMessageAndEndsItsFrame) {
  const std::string rib = readFile(sourcePath("examples/full_scene.rib"));
  ASSERT_FALSE(rib.empty());
  Conversion c = convert(rib);
  EXPECT_TRUE(c.log.empty()) << c.log.front();
  EXPECT_TRUE(c.messages.empty()) << c.messages.front();
  ASSERT_FALSE(c.ops().empty());
  EXPECT_EQ(c.ops().back(), "FrameEnd");
  for (const char* op :
       {"PolygonMeshV", "PatchMeshV", "NurbMeshV", "HyperboloidV", "ObjectCall", "LightSwitch"}) {
    EXPECT_FALSE(c.records(op).empty()) << op;
  }
}

}  // namespace
