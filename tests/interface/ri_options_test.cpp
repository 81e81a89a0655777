// Frame, camera and output options: what the scene library gets, and the
// reports for what it cannot express.
#include <vector>

#include "tests/interface/ri_scene.h"

namespace {

using OptionCalls = RiSceneTest;
using Strings = std::vector<std::string>;

// Perspective takes the last fov; other projections go orthographic, a name
// without a record silently; fov without perspective is reported after the
// projection.
TEST_F(OptionCalls, ProjectionsAndTheirFov) {
  RtFloat wide = 30;
  RtFloat narrow = 45;
  RtToken tokens[] = {RI_FOV, RI_FOV};
  RtPointer values[] = {&wide, &narrow};
  RiProjectionV(RI_PERSPECTIVE, 2, tokens, values);
  RiProjection(text("perspective"), RI_NULL);
  RiProjectionV(RI_RGB, 0, nullptr, nullptr);
  RiProjectionV(text("binding_test_fisheye"), 0, nullptr, nullptr);
  RiProjection(RI_ORTHOGRAPHIC, RI_FOV, &wide, RI_NULL);
  RiProjectionV(nullptr, 1, tokens, values);
  EXPECT_EQ(lines(), (Strings{"ViewPerspective 45", "ViewPerspective 90", "ViewOrthographic",
                              "ViewOrthographic", "ViewOrthographic", "ViewIdentity"}));
  EXPECT_EQ(
      messages(),
      (Strings{"error: Parameter out of range. RiProjectionV: unknown projection type \"rgb\", "
               "using orthographic",
               "error: Parameters inconsistent. RiProjection: only perspective projection has fov",
               "error: Parameters inconsistent. RiProjectionV: only perspective projection has "
               "fov"}));
}

TEST_F(OptionCalls, ViewportFollowsFormatAndDisplayOrigin) {
  RtInt zero[] = {0, 0};
  RtToken origin[] = {RI_ORIGIN};
  RtPointer atZero[] = {zero};
  RiDisplayV(text("fb"), RI_FRAMEBUFFER, RI_RGB, 1, origin, atZero);
  RiFormat(640, 480, 1);
  RtInt corner[] = {10, 20};
  RtPointer atCorner[] = {corner};
  RiDisplayV(text("fb"), RI_FRAMEBUFFER, RI_RGBA, 1, origin, atCorner);
  RiFormat(100, 50, 2);

  Strings all = lines();
  ASSERT_EQ(all.size(), 10u);
  EXPECT_EQ(Strings(all.begin() + 5, all.end()),
            (Strings{"OutputDisplay \"fb\"", "OutputSamples 771", "RasterViewport 10 649 20 499",
                     "RasterViewport 10 109 20 69", "RasterAspect 2"}));
}

// An undeclared mode stops the call after the output.
TEST_F(OptionCalls, DisplayTypeAndModeMustBeOfTheirKind) {
  RiDisplayV(text("a.tif"), RI_RGB, RI_RGB, 0, nullptr, nullptr);
  RiDisplay(text("b.tif"), RI_FILE, RI_PERSPECTIVE, RI_NULL);
  RiDisplayV(text("c.tif"), RI_FILE, RI_RGBAZ, 0, nullptr, nullptr);
  RiDisplayV(text("image.tif"), RI_FILE, text("binding_test_mode"), 0, nullptr, nullptr);
  EXPECT_EQ(lines(), (Strings{"OutputFile 513 \"b.tif\"", "OutputFile 513 \"c.tif\"",
                              "OutputSamples 775", "OutputFile 513 \"image.tif\""}));
  EXPECT_EQ(messages(),
            (Strings{"error: Parameter out of range. RiDisplayV: unknown display type \"rgb\"",
                     "error: Parameter out of range. RiDisplay: b.tif: unknown display mode "
                     "\"perspective\"",
                     "error: Invalid token for request. RiDisplayV: undeclared token "
                     "\"binding_test_mode\""}));
}

// A hider has its number and jitter; limits tune with the last sizes; a
// quantization knows colour and depth, and its name is set only once the type
// has a record.
TEST_F(OptionCalls, HiderLimitsAndQuantizeSendTheirNumbers) {
  RtInt on = 1;
  RtInt off = 0;
  RtToken jitter[] = {RI_JITTER};
  RtPointer jitterOn[] = {&on};
  RtPointer jitterOff[] = {&off};
  RiHiderV(nullptr, 0, nullptr, nullptr);
  RiHiderV(RI_PAINT, 1, jitter, jitterOn);
  RiHider(RI_HIDDEN, RI_JITTER, &off, RI_NULL);
  RiHiderV(text("binding_test_zbuffer"), 1, jitter, jitterOff);
  RtInt grid = 16;
  RtInt buckets[] = {8, 4};
  RtInt finer = 24;
  RtToken both[] = {RI_GRIDSIZE, RI_BUCKETSIZE};
  RtPointer bothValues[] = {&grid, buckets};
  RiOptionV(RI_LIMITS, 2, both, bothValues);
  RiOption(RI_LIMITS, RI_GRIDSIZE, &finer, RI_NULL);
  RiOptionV(RI_LIMITS, 0, nullptr, nullptr);
  RiOptionV(RI_JITTER, 2, both, bothValues);
  RiOptionV(text("binding_test_searchpath"), 0, nullptr, nullptr);
  RiQuantize(RI_RGBA, 255, 0, 255, 0.5f);
  RiQuantize(RI_Z, 1024, 0, 2048, 0);
  RiQuantize(RI_RGB, 255, 0, 255, 0.5f);
  RiQuantize(text("binding_test_q"), 255, 0, 255, 0.5f);
  EXPECT_EQ(lines(), (Strings{"Hider 0", "Hider 1025", "SampleJitter 0.5", "Hider 1024",
                              "SampleJitter 0", "Hider 1024", "SampleJitter 0", "Tune 16 8 4",
                              "Tune 24 8 4", "Tune 24 8 4", "ColorQuantize 255 0 255",
                              "ColorJitter 0.5", "DepthQuantize 1024 0 2048", "DepthJitter 0"}));
  EXPECT_EQ(messages(),
            (Strings{"error: Parameter out of range. RiHiderV: unknown hider type "
                     "\"binding_test_zbuffer\", using hidden",
                     "error: Parameter out of range. RiQuantize: unknown quantization type \"rgb\"",
                     "error: Invalid token for request. undeclared token \"binding_test_q\""}));
}

}  // namespace
