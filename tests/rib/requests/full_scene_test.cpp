// The bundled example scene uses every family of requests and must convert
// without a single message on either error path.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/rib/requests/conversion.h"

namespace {

std::string readExample(const std::string& name) {
  const char* root = std::getenv("RZ_SOURCE_DIR");
  std::ifstream in(std::string(root ? root : ".") + "/examples/" + name, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

TEST(FullScene, ConvertsWithoutAMessageAndEndsItsFrame) {
  const std::string rib = readExample("full_scene.rib");
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
