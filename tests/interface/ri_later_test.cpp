// The plain forms of the calls of later versions collect their lists as the
// V forms take them.
#include <vector>

#include "tests/interface/ri_scene.h"

namespace {

using LaterCalls = RiSceneTest;
using Strings = std::vector<std::string>;

TEST_F(LaterCalls, PlainFormsCollectTheirLists) {
  RtFloat kd = 0.5f;
  RtFloat fov = 180;
  char* clouds[] = {text("a.ptc"), text("b.ptc")};
  RiBxdf(text("b"), text("h"), RI_KD, &kd, RI_NULL);
  RiShader(text("s"), text("h"), RI_NULL);
  RiCamera(text("c"), RI_KD, &kd, RI_NULL);
  RiDisplayChannel(text("varying color Ci"), RI_NULL);
  RiMakeBrickMap(2, clouds, text("o.bkm"), RI_KD, &kd, RI_NULL);
  RiResource(text("r"), text("attributes"), RI_NULL);
  RiEditBegin(text("t"), RI_KD, &kd, RI_NULL);
  RiEditWorldBegin(RI_KD, &kd, RI_NULL);
  RiEditAttributeBegin(RI_NULL);
  RiNamedProjection(text("fisheye"), RI_FOV, &fov, RI_NULL);
  RiNamedHider(text("raytrace"), RI_NULL);
  RiNamedDisplay(text("+x"), text("it"), text("rgba"), RI_KD, &kd, RI_NULL);
  EXPECT_EQ(
      lines(),
      (Strings{R"(ShadingNodeV 3328 "b" "h" {13 Kd 1 1 1 [0.5]})", R"(ShadingNodeV 3336 "s" "h")",
               R"(CameraV "c" {13 Kd 1 1 1 [0.5]})", R"(DisplayChannelV "varying color Ci")",
               R"(MakeBrickMapV 2 "a.ptc" "b.ptc" "o.bkm" {13 Kd 1 1 1 [0.5]})",
               R"(ResourceV "r" "attributes")", R"(EditBeginV "t" {13 Kd 1 1 1 [0.5]})",
               R"(EditWorldBeginV {13 Kd 1 1 1 [0.5]})", R"(EditAttributeBeginV)",
               R"(NamedProjectionV "fisheye" {65287 fov 1 1 1 [180]})", R"(NamedHiderV "raytrace")",
               R"(NamedDisplayV "+x" "it" "rgba" {13 Kd 1 1 1 [0.5]})"}));
  EXPECT_EQ(messages(), (Strings{}));
}

}  // namespace
