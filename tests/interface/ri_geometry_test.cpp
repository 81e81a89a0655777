// Polygons and patches: every value reaches the scene whole, counted by the
// primitive's shape, and no further.
#include <vector>

#include "interface/ri_paramcounts.h"
#include "interface/token.h"
#include "tests/interface/ri_scene.h"

namespace {

using Strings = std::vector<std::string>;

class GeometryCalls : public RiSceneTest {
 protected:
  void TearDown() override {
    resetBasisSteps();
    RiSceneTest::TearDown();
  }
};

// "Np" is uniform: one normal per polygon; "st" has size 2; a mesh's points
// reach its highest index.
TEST_F(GeometryCalls, PolygonValuesAreCountedByItsVertices) {
  RtPoint square[4] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  RtColor red = {1, 0, 0};
  RtFloat st[8] = {0, 0, 1, 0, 1, 1, 0, 1};
  RiPolygon(4, RI_P, square, RI_NP, red, RI_ST, st, RI_NULL);
  RtInt nverts[] = {3};
  RtInt verts[] = {0, 1, 7};
  RtPoint points[8] = {};
  points[7][2] = 5;
  RtToken tokens[] = {RI_P};
  RtPointer values[] = {points};
  RiPointsPolygonsV(1, nverts, verts, 1, tokens, values);
  EXPECT_EQ(lines(), (Strings{"PolygonV 4 {1 P 4 3 12 [0,0,0,1,0,0,1,1,0,0,1,0]} "
                              "{5 Np 4 1 3 [1,0,0]} {65304 st 1 2 8 [0,0,1,0,1,1,0,1]}",
                              "PolygonMeshV 1 [3] [0,1,7] {1 P 4 3 24 "
                              "[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,5]}"}));
}

TEST_F(GeometryCalls, PatchMeshDividesByTheStepsOfTheLastBasis) {
  RiBasis(RiBSplineBasis, 1, RiBSplineBasis, 1);
  RiAttributeBegin();
  RiAttributeEnd();  // the steps belong to no graphics state
  std::vector<RtFloat> pz(30, 1.0f);
  std::vector<RtFloat> ka(12, 0.5f);
  std::vector<RtFloat> cs(18 * 3);
  RtToken tokens[] = {RI_PZ, RI_KA, RI_CS};
  RtPointer values[] = {pz.data(), ka.data(), cs.data()};
  RiPatchMeshV(RI_BICUBIC, 6, RI_PERIODIC, 5, RI_NONPERIODIC, 3, tokens, values);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 5u);
  ASSERT_EQ(ops[4].params.size(), 3u);
  EXPECT_EQ(ops[4].params[0].count, 30);  // vertex: 6 by 5 points
  EXPECT_EQ(ops[4].params[1].count, 12);  // uniform: 6 by 2 patches
  EXPECT_EQ(ops[4].params[2].count, 54);  // varying: 6 by 3 corners, 3 numbers each
  ops[4].params.clear();
  EXPECT_EQ(describe(ops[4]), "PatchMeshV 1793 6 2560 5 2561");
}

// The patch type decides the corners; NURBS and general polygons count
// their points ("Pw" has size 4).
TEST_F(GeometryCalls, PatchesNurbsAndGeneralPolygonsCountTheirPoints) {
  std::vector<RtFloat> points(16 * 3);
  RtToken tokens[] = {RI_P};
  RtPointer values[] = {points.data()};
  RiPatchV(RI_BICUBIC, 1, tokens, values);
  RiPatch(RI_BILINEAR, RI_P, points.data(), RI_NULL);
  RtFloat knots[] = {0, 0, 1, 1};
  std::vector<RtFloat> pw(16, 1.0f);
  RtToken pwToken[] = {RI_PW};
  RtPointer pwValue[] = {pw.data()};
  RiNuPatchV(2, 2, knots, 0, 1, 2, 2, knots, 0, 1, 1, pwToken, pwValue);
  RtInt loops[] = {4, 3};
  RiGeneralPolygonV(2, loops, 1, tokens, values);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 4u);
  const std::string args[] = {"PatchV 1793", "PatchV 1792",
                              "NurbMeshV 2 2 [0,0,1,1] 0 1 2 2 [0,0,1,1] 0 1",
                              "GeneralPolygonV 2 [4,3]"};
  const int64_t counts[] = {48, 12, 16, 21};
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(ops[i].params.at(0).count, counts[i]);
    ops[i].params.clear();
    EXPECT_EQ(describe(ops[i]), args[i]);
  }
}

}  // namespace
