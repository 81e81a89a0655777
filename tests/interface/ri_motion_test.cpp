// A motion block stands for its first motion-sensitive call; the scene never
// hears of the block itself.
#include <vector>

#include "tests/interface/ri_scene.h"

namespace {

using Strings = std::vector<std::string>;

class MotionBlocks : public RiSceneTest {
 protected:
  void TearDown() override {
    RiMotionEnd();  // the gate's state outlives the test
    RiSceneTest::TearDown();
  }
};

RtFloat gTimes[] = {0, 1};

// Only the first motion-sensitive call of a block is sent (the reader's
// motion cases hold a colour first); calls that only ask the gate use up the
// first place too.
TEST_F(MotionBlocks, OnlyTheFirstGatedCallIsSent) {
  RiMotionBeginV(2, gTimes);
  RiSphereV(1, -1, 1, 360, 0, nullptr, nullptr);
  RiSphereV(2, -2, 2, 360, 0, nullptr, nullptr);
  RiMotionEnd();
  RiMotionBegin(2, 0.0, 1.0);
  RiDeformationV(text("twist"), 0, nullptr, nullptr);
  RiTranslate(1, 2, 3);
  RiMotionEnd();
  EXPECT_EQ(lines(), Strings{"SphereV 1 -1 1 360"});
}

TEST_F(MotionBlocks, UngatedCallsPassInsideTheBlock) {
  RiMotionBeginV(2, gTimes);
  RiTranslate(1, 0, 0);
  RiRotate(90, 0, 0, 1);
  RiIdentity();
  RiShadingRate(2);
  RiTransformBegin();
  RtObjectHandle object = RiObjectBegin();
  RiMotionEnd();
  EXPECT_NE(object, nullptr);
  EXPECT_EQ(lines(), (Strings{"Translate 1 0 0", "LoadIdentity", "ShadingRate 2", "MatrixPush",
                              "ObjectBegin"}));
}

// Everything passes again after the end; a begin inside the block gives one
// more call the first place.
TEST_F(MotionBlocks, TheEndOpensTheGateAndAnInnerBeginGivesOneMorePlace) {
  RiMotionBeginV(1, gTimes);
  RiScale(2, 2, 2);
  RiMotionEnd();
  RiScale(3, 3, 3);
  RiSphereV(1, -1, 1, 360, 0, nullptr, nullptr);
  RiMotionBeginV(2, gTimes);
  RiTranslate(1, 0, 0);
  RiTranslate(2, 0, 0);
  RiMotionBeginV(2, gTimes);
  RiTranslate(3, 0, 0);
  RiTranslate(4, 0, 0);
  RiMotionEnd();
  EXPECT_EQ(lines(), (Strings{"Scale 2 2 2", "Scale 3 3 3", "SphereV 1 -1 1 360", "Translate 1 0 0",
                              "Translate 3 0 0"}));
}

// A light refused in a block returns no handle and sends nothing; an area
// light has no handle either way.
TEST_F(MotionBlocks, RefusedAndAreaLightsReturnNoHandle) {
  EXPECT_EQ(RiAreaLightSourceV(RI_POINTLIGHT, 0, nullptr, nullptr), nullptr);
  RiMotionBeginV(2, gTimes);
  RiTranslate(1, 0, 0);
  EXPECT_EQ(RiLightSourceV(RI_POINTLIGHT, 0, nullptr, nullptr), nullptr);
  RiMotionEnd();
  RiMotionBeginV(2, gTimes);
  EXPECT_EQ(RiAreaLightSource(RI_POINTLIGHT, RI_NULL), nullptr);
  RiSphereV(1, -1, 1, 360, 0, nullptr, nullptr);
  RiMotionEnd();
  EXPECT_EQ(lines(), Strings{"Translate 1 0 0"});
}

}  // namespace
