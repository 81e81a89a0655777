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

TEST_F(GeometryCalls, PolygonValuesAreCountedByItsVertices) {
  RtPoint square[4] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  RtColor red = {1, 0, 0};
  RtFloat st[8] = {0, 0, 1, 0, 1, 1, 0, 1};
  RiPolygon(4, RI_P, square, RI_NP, red, RI_ST, st, RI_NULL);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 1u);
  EXPECT_EQ(describe(ops[0]), "PolygonV 4");
  ASSERT_EQ(ops[0].params.size(), 3u);
  EXPECT_EQ(ops[0].params[0].code, 0x0001);
  EXPECT_EQ(ops[0].params[0].type, TypePoint);
  EXPECT_EQ(ops[0].params[0].tokenClass, ClassVertex);
  EXPECT_EQ(ops[0].params[0].count, 12);
  EXPECT_EQ(describe(ops[0].params[0].values), "[0,0,0,1,0,0,1,1,0,0,1,0]");
  EXPECT_EQ(ops[0].params[1].count, 3);  // "Np" is uniform: one normal per polygon
  EXPECT_EQ(ops[0].params[2].count, 8);  // "st" has size 2
}

TEST_F(GeometryCalls, MeshPointsReachTheHighestIndex) {
  RtInt nverts[] = {3};
  RtInt verts[] = {0, 1, 7};
  RtPoint points[8] = {};
  points[7][2] = 5;
  RtToken tokens[] = {RI_P};
  RtPointer values[] = {points};
  RiPointsPolygonsV(1, nverts, verts, 1, tokens, values);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 1u);
  EXPECT_EQ(describe(ops[0]), "PolygonMeshV 1 [3] [0,1,7]");
  ASSERT_EQ(ops[0].params.size(), 1u);
  EXPECT_EQ(ops[0].params[0].count, 24);
  EXPECT_EQ(ops[0].params[0].values.items().back().asFloat(), 5.0f);
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
  EXPECT_EQ(describe(ops[4]), "PatchMeshV 1793 6 2560 5 2561");
  ASSERT_EQ(ops[4].params.size(), 3u);
  EXPECT_EQ(ops[4].params[0].count, 30);  // vertex: 6 by 5 points
  EXPECT_EQ(ops[4].params[1].count, 12);  // uniform: 6 by 2 patches
  EXPECT_EQ(ops[4].params[2].count, 54);  // varying: 6 by 3 corners, 3 numbers each
}

TEST_F(GeometryCalls, PatchTypeDecidesTheCorners) {
  std::vector<RtFloat> points(16 * 3);
  RtToken tokens[] = {RI_P};
  RtPointer values[] = {points.data()};
  RiPatchV(RI_BICUBIC, 1, tokens, values);
  RiPatch(RI_BILINEAR, RI_P, points.data(), RI_NULL);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 2u);
  EXPECT_EQ(describe(ops[0]), "PatchV 1793");
  EXPECT_EQ(ops[0].params.at(0).count, 48);
  EXPECT_EQ(describe(ops[1]), "PatchV 1792");
  EXPECT_EQ(ops[1].params.at(0).count, 12);
}

TEST_F(GeometryCalls, NurbsAndGeneralPolygonsCountTheirPoints) {
  RtFloat knots[] = {0, 0, 1, 1};
  std::vector<RtFloat> pw(16, 1.0f);
  RtToken pwToken[] = {RI_PW};
  RtPointer pwValue[] = {pw.data()};
  RiNuPatchV(2, 2, knots, 0, 1, 2, 2, knots, 0, 1, 1, pwToken, pwValue);

  RtInt loops[] = {4, 3};
  std::vector<RtFloat> points(7 * 3);
  RtToken pToken[] = {RI_P};
  RtPointer pValue[] = {points.data()};
  RiGeneralPolygonV(2, loops, 1, pToken, pValue);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 2u);
  EXPECT_EQ(describe(ops[0]), "NurbMeshV 2 2 [0,0,1,1] 0 1 2 2 [0,0,1,1] 0 1");
  EXPECT_EQ(ops[0].params.at(0).count, 16);  // 4 points of "Pw", size 4
  EXPECT_EQ(describe(ops[1]), "GeneralPolygonV 2 [4,3]");
  EXPECT_EQ(ops[1].params.at(0).count, 21);
}

}  // namespace
