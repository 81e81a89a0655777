// Attributes and transforms: keywords become the library's numbers, names
// become codes, and what the library has no place for is reported.
#include <vector>

#include "tests/interface/ri_scene.h"

namespace {

using AttributeCalls = RiSceneTest;
using Strings = std::vector<std::string>;

// Keywords become the library's numbers: only one-sided is Backface 1; an
// identifier names the object and its group, the text "null" as no name at
// all; of the approximations only flatness has a place.
TEST_F(AttributeCalls, KeywordsBecomeTheLibrarysNumbers) {
  RiSides(2);
  RiSides(0);
  RiSides(1);
  RiShadingInterpolation(RI_CONSTANT);
  RiShadingInterpolation(text("smooth"));
  RiShadingInterpolation(RI_PAINT);
  RiOrientation(RI_LH);
  RiOrientation(RI_OUTSIDE);
  RiReverseOrientation();
  RiOrientation(RI_WORLD);
  RiOrientation(text("binding_test_sideways"));
  const char* name = "teapot";
  const char* group = "null";
  RtToken tokens[] = {RI_NAME, RI_SHADINGGROUP};
  RtPointer values[] = {&name, &group};
  RiAttributeV(RI_IDENTIFIER, 2, tokens, values);
  RiAttribute(text("binding_test_render"), RI_NAME, &name, RI_NULL);
  RiGeometricApproximation(RI_FLATNESS, 0.5f);
  RiGeometricApproximation(RI_SMOOTH, 2);
  RiGeometricApproximation(text("binding_test_motionfactor"), 2);
  RtPoint points[] = {{1, 2, 3}};
  RiTransformPoints(RI_CAMERA, RI_WORLD, 1, points);
  EXPECT_EQ(lines(), (Strings{"Backface 0", "Backface 0", "Backface 1", "ShadingModel 1280",
                              "ShadingModel 1281", "Orientation 1536", "Orientation 1539",
                              "Orientation 1540", "ObjectName \"teapot\"", "GroupName null",
                              "Flatness 0.5", "ProjectPoints 34 35 1 [1,2,3]"}));
  EXPECT_EQ(
      messages(),
      (Strings{"error: Parameter out of range. RiShadingInterpolation: unknown shading "
               "interpolation \"paint\"",
               "error: Parameter out of range. RiOrientation: unknown orientation \"world\"",
               "error: Invalid token for request. undeclared token \"binding_test_sideways\""}));
}

// The golden scenes hold the other transforms.
TEST_F(AttributeCalls, PerspectiveReachesTheLibrary) {
  RiPerspective(60);
  EXPECT_EQ(lines(), Strings{"Perspective 60"});
}

}  // namespace
