// Meshes counted by the basis steps, which no graphics state holds, and the
// later primitives: every value reaches the scene whole, counted by the
// primitive's shape, and no further. The golden scenes hold the polygons,
// patches and NURBS, and the count tests each formula.
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

// The later primitives count by their shape too, cubic curves by the v step of
// the last RiBasis.
TEST_F(GeometryCalls, LaterPrimitivesCountEachValueByTheShape) {
  RiDeclare(text("width"), text("varying float"));
  RiBasis(RiBezierBasis, 3, RiBSplineBasis, 1);
  RtInt five[] = {5};
  RtFloat p[15] = {0, 0, 0, 1, 0, 0, 2, 0, 0, 3, 0, 0, 4, 0, 5};
  RtFloat width[5] = {1, 2, 3, 4, 5};
  RiCurves(text("cubic"), 1, five, RI_NONPERIODIC, RI_P, p, "width", width, RI_NULL);
  RiPoints(2, RI_P, p, "width", width, RI_NULL);
  RtInt code[] = {1000, 0, 6, 0};
  RtToken strings[] = {text("plane")};
  RiBlobby(1, 4, code, 1, width, 1, strings, "width", width, RI_NULL);
  RtInt triangle[] = {0, 1, 4}, three[] = {3}, nargs[] = {1, 0, 1}, hole[] = {0};
  RtToken tags[] = {text("vertexedit")};
  RiSubdivisionMesh(text("loop"), 1, three, triangle, 0, nullptr, nullptr, nullptr, nullptr,
                    "width", width, RI_NULL);
  RiHierarchicalSubdivisionMesh(text("loop"), 1, three, triangle, 1, tags, nargs, hole, nullptr,
                                strings, "width", width, RI_NULL);
  const std::string w = "{" + std::to_string(find("width")->code) + " width 1 2 ";
  EXPECT_EQ(lines(),
            (Strings{"Basis 2048 2304", "Basis 2049 2305",
                     "CurvesV \"cubic\" 1 [5] \"nonperiodic\" {1 P 4 3 15 "
                     "[0,0,0,1,0,0,2,0,0,3,0,0,4,0,5]} " +
                         w + "3 [1,2,3]}",
                     "PointsV 2 {1 P 4 3 6 [0,0,0,1,0,0]} " + w + "2 [1,2]}",
                     "BlobbyV 1 4 [1000,0,6,0] 1 [1] 1 [\"plane\"] " + w + "1 [1]}",
                     "SubdivisionMeshV \"loop\" 1 [3] [0,1,4] 0 null null null null " + w +
                         "5 [1,2,3,4,5]}",
                     "HierarchicalSubdivisionMeshV \"loop\" 1 [3] [0,1,4] 1 [\"vertexedit\"] "
                     "[1,0,1] [0] null [\"plane\"] " +
                         w + "5 [1,2,3,4,5]}"}));
}

TEST_F(GeometryCalls, PlainFormsCollectTheirLists) {
  RtPoint square[4] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  RiPolygon(4, RI_P, square, RI_NULL);
  RiPatch(RI_BILINEAR, RI_P, square, RI_NULL);
  const std::string p = " {1 P 4 3 12 [0,0,0,1,0,0,1,1,0,0,1,0]}";
  EXPECT_EQ(lines(), (Strings{"PolygonV 4" + p, "PatchV 1792" + p}));
}

}  // namespace
