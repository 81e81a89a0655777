// Quadrics reach the scene in the library's own terms.
#include <vector>

#include "tests/interface/ri_scene.h"

namespace {

using QuadricCalls = RiSceneTest;
using Strings = std::vector<std::string>;

// The cone goes radius first with its height twice; a disk at height zero
// needs no matrix, one above zero is lifted by a translation.
TEST_F(QuadricCalls, EachQuadricKeepsItsArgumentsInOrder) {
  RtPoint p1 = {1, 0, 0};
  RtPoint p2 = {1, 1, 1};
  RiConeV(2, 1, 360, 0, nullptr, nullptr);
  RiDiskV(0, 1.5f, 270, 0, nullptr, nullptr);
  RiDiskV(1e-11f, 2, 90, 0, nullptr, nullptr);
  RiDiskV(0.5f, 1, 360, 0, nullptr, nullptr);
  RiDisk(-2, 3, 180, RI_NULL);
  RiSphereV(1, -1, 1, 360, 0, nullptr, nullptr);
  RiCylinderV(2, -3, 4, 180, 0, nullptr, nullptr);
  RiHyperboloidV(p1, p2, 360, 0, nullptr, nullptr);
  RiParaboloidV(1, 0.5f, 2, 90, 0, nullptr, nullptr);
  RiTorusV(3, 0.5f, 0, 360, 270, 0, nullptr, nullptr);
  EXPECT_EQ(lines(),
            (Strings{"ConeV 1 2 2 360", "DiskV 0 1.5 270", "DiskV 0 2 90", "MatrixPush",
                     "Translate 0 0 0.5", "DiskV 0 1 360", "MatrixPop", "MatrixPush",
                     "Translate 0 0 -2", "DiskV 0 3 180", "MatrixPop", "SphereV 1 -1 1 360",
                     "CylinderV 2 -3 4 180", "HyperboloidV [1,0,0] [1,1,1] 360",
                     "ParaboloidV 1 0.5 2 90", "TorusV 3 0.5 0 360 270"}));
  EXPECT_EQ(messages(), Strings{});
}

TEST_F(QuadricCalls, BothFormsSendTheSameList) {
  RtColor colors[4] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 1}};
  RtFloat ka = 0.25f;
  RtToken tokens[] = {RI_CS, RI_KA};
  RtPointer values[] = {colors, &ka};
  RiSphereV(1, -1, 1, 360, 2, tokens, values);
  RiSphere(1, -1, 1, 360, RI_CS, colors, RI_KA, &ka, RI_NULL);
  RiSphere(1, -1, 1, 360, RI_NULL);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 3u);
  const std::string sphere =
      "SphereV 1 -1 1 360 {6 Cs 5 2 12 [1,0,0,0,1,0,0,0,1,1,1,1]} {12 Ka 1 1 1 [0.25]}";
  EXPECT_EQ(describe(ops[0]), sphere);
  EXPECT_EQ(describe(ops[1]), sphere);
  EXPECT_TRUE(ops[2].hasParams) << "an empty list sends no parameters";
  EXPECT_EQ(describe(ops[2]), "SphereV 1 -1 1 360");
}

}  // namespace
