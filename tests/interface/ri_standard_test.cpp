// The standard bases and filters are told apart by address; comments and the
// calls without effect.
#include <string>
#include <vector>

#include "interface/ri_paramcounts.h"
#include "tests/interface/ri_scene.h"

namespace {

using Strings = std::vector<std::string>;

class StandardObjects : public RiSceneTest {
 protected:
  void TearDown() override {
    resetBasisSteps();  // RiBasis sets the steps for later meshes
    RiSceneTest::TearDown();
  }
};

// A custom basis goes with its step even when its contents are those of a
// standard one.
TEST_F(StandardObjects, StandardBasesGoByNumberWithoutTheirSteps) {
  RtBasis custom = {{-1, 3, -3, 1}, {3, -6, 3, 0}, {-3, 3, 0, 0}, {1, 0, 0, 0}};
  RtBasis zeros = {};  // the contents of the standard objects
  RiBasis(RiBezierBasis, 3, RiBezierBasis, 3);
  RiBasis(RiBSplineBasis, 1, RiCatmullRomBasis, 1);
  RiBasis(RiHermiteBasis, 2, RiPowerBasis, 4);
  RiBasis(custom, 2, RiPowerBasis, 4);
  RiBasis(RiBezierBasis, 3, zeros, 3);
  EXPECT_EQ(lines(),
            (Strings{"Basis 2048 2304", "Basis 2049 2304", "Basis 2048 2305", "Basis 2049 2306",
                     "Basis 2048 2307", "Basis 2049 2308",
                     "CustomBasis 2048 [-1,3,-3,1,3,-6,3,0,-3,3,0,0,1,0,0,0] 2", "Basis 2049 2308",
                     "Basis 2048 2304", "CustomBasis 2049 [0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0] 3"}));
}

TEST_F(StandardObjects, StandardFiltersGoByNumberThenTheWidth) {
  RiPixelFilter(RiGaussianFilter, 2, 3);
  RiPixelFilter(RiBoxFilter, 2, 3);
  RiPixelFilter(RiTriangleFilter, 2, 3);
  RiPixelFilter(RiCatmullRomFilter, 2, 3);
  RiPixelFilter(RiSincFilter, 2, 3);
  EXPECT_EQ(lines(), (Strings{"Filter 256", "FilterWidth 2 3", "Filter 258", "FilterWidth 2 3",
                              "Filter 259", "FilterWidth 2 3", "Filter 257", "FilterWidth 2 3",
                              "Filter 260", "FilterWidth 2 3"}));
}

bool gCustomFilterRan = false;

RtFloat customFilter(RtFloat, RtFloat, RtFloat, RtFloat) {
  gCustomFilterRan = true;
  return 1;
}

TEST_F(StandardObjects, CustomFilterIsPassedOnAndNeverRun) {
  RiPixelFilter(customFilter, 1.5f, 1.5f);
  EXPECT_EQ(lines(), (Strings{"CustomFilter true", "FilterWidth 1.5 1.5"}));
  EXPECT_FALSE(gCustomFilterRan);
  EXPECT_EQ(RiCatmullRomFilter(0, 0, 2, 2), 0.0f);
}

// A comment keeps a percent sign plain and is cut to the buffer.
TEST_F(StandardObjects, CommentKeepsAPercentSignPlain) {
  RiArchiveRecord(RI_COMMENT, text("%d%% done, %s"), 50, "100% sure");
  RiArchiveRecord(RI_STRUCTURE, text("RenderMan RIB"));
  RiArchiveRecord(text("binding_test_verbatim"), text("dropped"));
  RiArchiveRecord(text("comment"), text("%s"), std::string(300, 'x').c_str());
  EXPECT_EQ(lines(), (Strings{"Comment \"%s\" \"50% done, 100% sure\"",
                              "Comment \"%s\" \"" + std::string(255, 'x') + "\""}));
  EXPECT_EQ(messages(), Strings{});
}

TEST_F(StandardObjects, CallsWithoutEffectWriteNothing) {
  RtFloat knots[] = {0, 0, 0, 1, 1, 1};
  RtFloat range[] = {0};
  RtFloat ones[] = {1, 1, 1};
  RtInt one[] = {1};
  RtInt order[] = {3};
  RtInt three[] = {3};
  RtFloat u[] = {0, 0.5f, 1};
  RtFloat times[] = {0, 1};
  RiBegin(nullptr);
  RiDepthOfField(8, 0.05f, 10);
  RiShutter(0, 1);
  RiImagerV(text("background"), 0, nullptr, nullptr);
  RiImager(text("background"), RI_NULL);
  RiRelativeDetail(0.5f);
  RiTextureCoordinates(0, 0, 1, 0, 0, 1, 1, 1);
  RiDetailRange(0, 1, 10, 20);
  RiSolidBegin(RI_UNION);
  RiSolidEnd();
  RiGeometryV(text("teapot"), 0, nullptr, nullptr);
  RiTrimCurve(1, one, order, knots, range, ones, three, u, u, ones);
  RiDeformationV(text("twist"), 0, nullptr, nullptr);
  RiDisplacement(text("bumps"), RI_NULL);
  RiMakeTextureV(text("a.tif"), text("a.tx"), RI_PERIODIC, RI_CLAMP, RiGaussianFilter, 2, 2, 0,
                 nullptr, nullptr);
  RiMakeBump(text("b.tif"), text("b.tx"), RI_BLACK, RI_BLACK, RiBoxFilter, 1, 1, RI_NULL);
  RiMakeLatLongEnvironmentV(text("c.tif"), text("c.tx"), RiSincFilter, 1, 1, 0, nullptr, nullptr);
  RiMakeCubeFaceEnvironmentV(text("px"), text("nx"), text("py"), text("ny"), text("pz"), text("nz"),
                             text("d.tx"), 90, RiTriangleFilter, 1, 1, 0, nullptr, nullptr);
  RiMakeShadowV(text("e.z"), text("e.tx"), 0, nullptr, nullptr);
  RiMotionBeginV(2, times);
  RiMotionEnd();
  RiEnd();
  EXPECT_EQ(lines(), Strings{});
  EXPECT_EQ(messages(), Strings{});
}

}  // namespace
