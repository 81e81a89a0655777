// Attributes and transforms: keywords become the library's numbers, names
// become codes, and what the library has no place for is reported.
#include <vector>

#include "interface/token.h"
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

TEST_F(AttributeCalls, BoundsAndColoursArePassedWhole) {
  RtBound box = {-1, 1, -2, 2, -3, 3};
  RtColor gray = {0.5f, 0.5f, 0.5f};
  RiAttributeBegin();
  RiColor(gray);
  RiOpacity(gray);
  RiBound(box);
  RiDetail(box);
  RiMatte(1);
  RiShadingRate(4);
  RiAttributeEnd();
  EXPECT_EQ(lines(), (Strings{"AttributePush", "Color [0.5,0.5,0.5]", "Opacity [0.5,0.5,0.5]",
                              "Bound [-1,1,-2,2,-3,3]", "Bound [-1,1,-2,2,-3,3]", "MatteObject 1",
                              "ShadingRate 4", "AttributePop"}));
}

TEST_F(AttributeCalls, TransformsAreForwardedUnchanged) {
  RtMatrix m = {{1, 0, 0, 0}, {0, 2, 0, 0}, {0, 0, 3, 0}, {4, 5, 6, 1}};
  RiTransformBegin();
  RiIdentity();
  RiTransform(m);
  RiConcatTransform(m);
  RiPerspective(60);
  RiTranslate(1, 2, 3);
  RiRotate(90, 0, 1, 0);
  RiScale(1, 2, 3);
  RiSkew(45, 0, 1, 0, 1, 0, 0);
  RiTransformEnd();
  const std::string matrix = "[1,0,0,0,0,2,0,0,0,0,3,0,4,5,6,1]";
  EXPECT_EQ(lines(),
            (Strings{"MatrixPush", "LoadIdentity", "LoadMatrix " + matrix, "MultMatrix " + matrix,
                     "Perspective 60", "Translate 1 2 3", "Rotate 90 0 1 0", "Scale 1 2 3",
                     "Skew 45 0 1 0 1 0 0", "MatrixPop"}));
}

TEST_F(AttributeCalls, NewCoordinateSystemGetsAQuarkThenItsCode) {
  RiCoordinateSystem(text("binding_test_lamp"));
  RiCoordinateSystem(text("binding_test_lamp"));
  RiCoordinateSystem(RI_WORLD);
  ZelFile scene = readScene();

  Token* record = find("binding_test_lamp");
  ASSERT_NE(record, nullptr);
  const std::string code = std::to_string(record->code);
  Strings written;
  for (const ZelRecord& r : scene.records) written.push_back(describe(r));
  EXPECT_EQ(written, (Strings{"Quark \"binding_test_lamp\" " + code, "MarkSpace " + code,
                              "MarkSpace " + code, "MarkSpace 35"}));
}

}  // namespace
