// Attributes and transforms: keywords become the library's numbers, names
// become codes, and what the library has no place for is reported.
#include <vector>

#include "tests/interface/ri_scene.h"

namespace {

using AttributeCalls = RiSceneTest;
using Strings = std::vector<std::string>;

TEST_F(AttributeCalls, OnlyOneSidedIsBackfaceOne) {
  RiSides(2);
  RiSides(0);
  RiSides(1);
  EXPECT_EQ(lines(), (Strings{"Backface 0", "Backface 0", "Backface 1"}));
}

TEST_F(AttributeCalls, ShadingInterpolationSendsTheModel) {
  RiShadingInterpolation(RI_CONSTANT);
  RiShadingInterpolation(text("smooth"));
  RiShadingInterpolation(RI_PAINT);
  EXPECT_EQ(lines(), (Strings{"ShadingModel 1280", "ShadingModel 1281"}));
  EXPECT_EQ(messages(), Strings{"error: Parameter out of range. RiShadingInterpolation: unknown "
                                "shading interpolation \"paint\""});
}

TEST_F(AttributeCalls, OrientationTakesTheFourWordsAndReverse) {
  RiOrientation(RI_LH);
  RiOrientation(RI_OUTSIDE);
  RiReverseOrientation();
  RiOrientation(RI_WORLD);
  RiOrientation(text("binding_test_sideways"));
  EXPECT_EQ(lines(), (Strings{"Orientation 1536", "Orientation 1539", "Orientation 1540"}));
  EXPECT_EQ(
      messages(),
      (Strings{"error: Parameter out of range. RiOrientation: unknown orientation \"world\"",
               "error: Invalid token for request. undeclared token \"binding_test_sideways\""}));
}

TEST_F(AttributeCalls, IdentifierNamesTheObjectAndItsGroup) {
  const char* name = "teapot";
  const char* group = "null";
  RtToken tokens[] = {RI_NAME, RI_SHADINGGROUP};
  RtPointer values[] = {&name, &group};
  RiAttributeV(RI_IDENTIFIER, 2, tokens, values);
  RiAttribute(text("binding_test_render"), RI_NAME, &name, RI_NULL);
  // The text "null" arrives as no name at all.
  EXPECT_EQ(lines(), (Strings{"ObjectName \"teapot\"", "GroupName null"}));
}

TEST_F(AttributeCalls, GeometricApproximationKnowsOnlyFlatness) {
  RiGeometricApproximation(RI_FLATNESS, 0.5f);
  RiGeometricApproximation(RI_SMOOTH, 2);
  RiGeometricApproximation(text("binding_test_motionfactor"), 2);
  EXPECT_EQ(lines(), Strings{"Flatness 0.5"});
  EXPECT_EQ(messages(), Strings{});
}

// The golden scenes hold the other transforms.
TEST_F(AttributeCalls, PerspectiveAndTransformPointsReachTheLibrary) {
  RtPoint points[] = {{1, 2, 3}};
  RiPerspective(60);
  RiTransformPoints(RI_CAMERA, RI_WORLD, 1, points);
  EXPECT_EQ(lines(), (Strings{"Perspective 60", "ProjectPoints 34 35 1 [1,2,3]"}));
}

}  // namespace
