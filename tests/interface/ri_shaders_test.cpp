// Lights and shaders: names become codes, cone angles become degrees, and
// each value goes with the count of numbers it holds.
#include <vector>

#include "interface/token.h"
#include "tests/interface/ri_scene.h"

namespace {

using ShaderCalls = RiSceneTest;
using Strings = std::vector<std::string>;

TEST_F(ShaderCalls, ConeAnglesGoInDegreesAndStayConvertedForTheCaller) {
  RtFloat coneangle = 0.5f;
  RtFloat delta = 0.05f;
  RtFloat intensity = 0.5f;
  RtToken tokens[] = {RI_CONEANGLE, RI_CONEDELTAANGLE, RI_INTENSITY};
  RtPointer values[] = {&coneangle, &delta, &intensity};
  RtLightHandle light = RiLightSourceV(RI_SPOTLIGHT, 3, tokens, values);

  EXPECT_NE(light, nullptr);
  EXPECT_NEAR(coneangle, 28.64789f, 1e-5f);
  EXPECT_NEAR(delta, 2.864789f, 1e-6f);
  EXPECT_EQ(intensity, 0.5f);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 1u);
  ASSERT_EQ(ops[0].params.size(), 3u);
  EXPECT_EQ(ops[0].params[0].values.items().at(0).asFloat(), coneangle);
  EXPECT_EQ(ops[0].params[1].values.items().at(0).asFloat(), delta);
  EXPECT_EQ(ops[0].params[2].values.items().at(0).asFloat(), 0.5f);
  ops[0].params.clear();
  EXPECT_EQ(describe(ops[0]), "LightSourceV 20");
}

TEST_F(ShaderCalls, NewShaderNameIsDeclaredWithTheLibrarysCode) {
  RiSurfaceV(text("binding_test_wood"), 0, nullptr, nullptr);
  ZelFile scene = readScene();

  Token* record = find("binding_test_wood");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->type, TypeString);
  EXPECT_EQ(record->tokenClass, ClassUniform);
  ASSERT_EQ(scene.records.size(), 2u);
  EXPECT_EQ(describe(scene.records[0]),
            "Quark \"binding_test_wood\" " + std::to_string(record->code));
  EXPECT_EQ(describe(scene.records[1]), "SurfaceV " + std::to_string(record->code));
}

TEST_F(ShaderCalls, ShaderParametersCountOneElementOfTheirSize) {
  RtFloat ka[] = {0.3f, 99};  // the reader keeps extra numbers; one is read
  RtColor specular = {0.5f, 0.25f, 1};
  const char* map = "grid.tx";
  RtToken tokens[] = {RI_KA, RI_SPECULARCOLOR, RI_TEXTURENAME};
  RtPointer values[] = {ka, specular, &map};
  RiSurfaceV(RI_PLASTIC, 3, tokens, values);

  EXPECT_EQ(lines(), Strings{"SurfaceV 11 {12 Ka 1 1 1 [0.3]} {" +
                             std::to_string(find("specularcolor")->code) +
                             " specularcolor 5 1 3 [0.5,0.25,1]} {65289 texturename 3 1 1 "
                             "[\"grid.tx\"]}"});
}

TEST_F(ShaderCalls, PlainFormsCollectTheirLists) {
  RtFloat ka = 0.25f;
  RiIlluminate(RiLightSource(RI_AMBIENTLIGHT, RI_KA, &ka, RI_NULL), 0);
  RiSurface(RI_METAL, RI_KA, &ka, RI_NULL);
  RiExterior(text("fog"), RI_KA, &ka, RI_NULL);
  EXPECT_EQ(lines(), (Strings{"LightSourceV 17 {12 Ka 1 1 1 [0.25]}", "LightSwitch 1 0",
                              "SurfaceV 10 {12 Ka 1 1 1 [0.25]}"}));
}

}  // namespace
