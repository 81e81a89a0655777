// The later primitives' calls, plain and V forms: each value counted by the
// primitive's shape, cubic curves by the v step of the last RiBasis.
#include <vector>

#include "interface/ri_paramcounts.h"
#include "tests/interface/ri_scene.h"

namespace {

using Strings = std::vector<std::string>;

class ModernGeometryCalls : public RiSceneTest {
 protected:
  void TearDown() override {
    resetBasisSteps();
    RiSceneTest::TearDown();
  }
};

TEST_F(ModernGeometryCalls, PlainFormsCountEachValueByTheShape) {
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
  EXPECT_EQ(lines(),
            (Strings{"Basis 2048 2304", "Basis 2049 2305",
                     "CurvesV \"cubic\" 1 [5] \"nonperiodic\" {1 P 4 3 15 "
                     "[0,0,0,1,0,0,2,0,0,3,0,0,4,0,5]} {4096 width 1 2 3 [1,2,3]}",
                     "PointsV 2 {1 P 4 3 6 [0,0,0,1,0,0]} {4096 width 1 2 2 [1,2]}",
                     "BlobbyV 1 4 [1000,0,6,0] 1 [1] 1 [\"plane\"] {4096 width 1 2 1 [1]}",
                     "SubdivisionMeshV \"loop\" 1 [3] [0,1,4] 0 null null null null "
                     "{4096 width 1 2 5 [1,2,3,4,5]}",
                     "HierarchicalSubdivisionMeshV \"loop\" 1 [3] [0,1,4] 1 [\"vertexedit\"] "
                     "[1,0,1] [0] null [\"plane\"] {4096 width 1 2 5 [1,2,3,4,5]}"}));
}

}  // namespace
