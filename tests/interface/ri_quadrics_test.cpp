// Quadrics reach the scene in the library's own terms.
#include <vector>

#include "tests/interface/ri_scene.h"

namespace {

using QuadricCalls = RiSceneTest;
using Strings = std::vector<std::string>;

// The golden scenes hold each quadric and disks lifted above and below zero; a
// height too small to tell from zero needs no matrix.
TEST_F(QuadricCalls, ADiskAtAlmostZeroHeightIsNotLifted) {
  RiDiskV(1e-11f, 2, 90, 0, nullptr, nullptr);
  RiDisk(-2, 3, 180, RI_NULL);
  EXPECT_EQ(lines(), (Strings{"DiskV 0 2 90", "MatrixPush", "Translate 0 0 -2", "DiskV 0 3 180",
                              "MatrixPop"}));
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
