// Frame and camera requests, from RIB text to scene records.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/rib/requests/conversion.h"

namespace {

using Lines = std::vector<std::string>;
using Ops = std::vector<std::string>;

// Each RIB text with the whole report lines and the records it gives.
TEST(FrameCameraRequests, ReportsAndRecordsOfEachRequest) {
  const struct {
    const char* rib;
    Lines log;
    Ops ops;
  } cases[] = {
      {"FrameBegin 7 WorldBegin", {}, {"FrameBegin", "SceneBegin"}},
      // A keyword is the next request; the frame opens all the same.
      {"FrameBegin WorldBegin", {}, {"FrameBegin", "SceneBegin"}},
      // A float is no frame number: it is left, and fails as the next statement.
      {"FrameBegin 2.5 WorldBegin",
       {"RIB error: general syntactic error at line 1 '2.5': Expected Keyword"},
       {"FrameBegin", "SceneBegin"}},
      // A filter named "null" is unknown rather than a null pointer.
      {"PixelFilter \"null\" 2 2",
       {"RIB error: general syntactic error at line 1 '2': Unknown filter function 'null'"},
       {}},
      // DepthOfField with nothing behind it is complete.
      {"DepthOfField WorldBegin", {}, {"SceneBegin"}},
      {"DepthOfField 8 50 WorldBegin",
       {"RIB error: general syntactic error at line 1 'WorldBegin': Expected float"},
       {"SceneBegin"}},
      // ColorSamples that leave no sample refuse later colours.
      {"ColorSamples [1 1] [1 1] Color [1 0 0] Opacity [1 1 1] WorldBegin",
       {"RIB error: invalid color specification at line 1 'Color': No colour samples: the last "
        "ColorSamples gave fewer than 3 values",
        "RIB error: invalid color specification at line 1 'Opacity': No colour samples: the last "
        "ColorSamples gave fewer than 3 values"},
       {"ColorSpace", "SceneBegin"}},
      // A second sample array too short leaves the sample count.
      {"ColorSamples [1 2 3 4 5 6] [1 2 3 4 5] Color [0 0 1]",
       {"RIB error: incorrect parameter value at line 1 '5': Expected 6 floats"},
       {"Color"}},
      // Shader-like requests drop an undeclared parameter silently.
      {"Hider \"hidden\" \"nosuch\" [1] Hider \"paint\" \"jitter\" [1]",
       {},
       {"Hider", "SampleJitter"}},
      // The Ri layer would take such text for one of its dictionary records.
      {"Display \"out\" \"\xFF\" \"rgb\" WorldBegin",
       {"RIB error: general syntactic error at line 1 'rgb': A name may not begin with the byte "
        "0xFF"},
       {"SceneBegin"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rib);
    Conversion conversion = convert(c.rib);
    EXPECT_EQ(conversion.log, c.log);
    EXPECT_EQ(conversion.ops(), c.ops);
  }
}

TEST(FrameCameraRequests, ScreenWindowTakesFourNumbersBareOrBracketed) {
  for (const char* rib : {"ScreenWindow -2 2 -1.5 1.5", "ScreenWindow [-2 2 -1.5 1.5]"}) {
    Conversion c = convert(rib);
    EXPECT_TRUE(c.log.empty()) << rib;
    EXPECT_EQ(c.only("ImageWindow").args.size(), 4u) << rib;
    std::vector<float> window;
    for (const ZelValue& v : c.only("ImageWindow").args) window.push_back(v.asFloat());
    EXPECT_EQ(window, (std::vector<float>{-2, 2, -1.5f, 1.5f})) << rib;
  }
}

TEST(FrameCameraRequests, PixelFilterNamesAreExactAndAnUnknownOneSkipsItsWidths) {
  Conversion c = convert("PixelFilter \"Gaussian\" 2 2\nPixelFilter \"gaussian\" 3 1");
  EXPECT_EQ(c.log, (Lines{"RIB error: general syntactic error at line 1 '2': "
                          "Unknown filter function 'Gaussian'"}));
  EXPECT_EQ(c.ops(), (Ops{"Filter", "FilterWidth"}));
  EXPECT_EQ(c.only("Filter").args.at(0).asInt(), 0x0100);
  EXPECT_EQ(c.only("FilterWidth").args.at(0).asFloat(), 3.0f);
}

TEST(FrameCameraRequests, VersionWarnsOnlyWhenNewerThanTheReader) {
  EXPECT_TRUE(convert("version 3.03").log.empty());
  EXPECT_TRUE(convert("version 3.031").log.empty());
  EXPECT_TRUE(convert("version 2").log.empty());
  EXPECT_EQ(convert("version 3.04 WorldBegin").log,
            (Lines{"RIB warning: protocol version number mismatch at line 1 'WorldBegin': "
                   "Version 3.04 too new"}));
}

TEST(FrameCameraRequests, FormatWantsIntegerSizes) {
  Conversion c = convert("Format 640.5 480 1 Format 320 240 1");
  EXPECT_EQ(c.log,
            (Lines{"RIB error: general syntactic error at line 1 '640.5': Expected integer"}));
  EXPECT_EQ(c.only("RasterViewport").args.at(1).asInt(), 319);
}

TEST(FrameCameraRequests, ColorSamplesOfTwelveMakeColorWantFourValues) {
  const std::string samples = "ColorSamples " + numbers(12) + " " + numbers(12) + "\n";
  Conversion c = convert(samples + "Color [1 0 0]\nColor [0.25 0.5 0.75 1]");
  EXPECT_EQ(c.log, (Lines{"RIB error: incorrect parameter value at line 2 '0': "
                          "Expected 4 floats"}));
  EXPECT_EQ(c.only("ColorSpace").args.at(0).asInt(), 4);
  // A colour goes on as its first three values.
  EXPECT_EQ(c.only("Color").args.at(0).asFloats(), (std::vector<float>{0.25f, 0.5f, 0.75f}));
}

TEST(FrameCameraRequests, FewerSamplesThanThreeArePaddedWithZeros) {
  Conversion c = convert("ColorSamples [1 1 1] [0.3 0.3 0.3] Color 0.5");
  EXPECT_TRUE(c.log.empty());
  EXPECT_EQ(c.only("Color").args.at(0).asFloats(), (std::vector<float>{0.5f, 0, 0}));
}

TEST(FrameCameraRequests, OptionDropsUndeclaredNamesSilentlyAndWantsBrackets) {
  Conversion c = convert(
      "Option \"nosuchoption\" \"gridsize\" [4]\n"
      "Option \"limits\" \"nosuchparameter\" [1 2] \"gridsize\" [8] \"bucketsize\" [4 6]\n"
      "Option \"limits\" \"gridsize\" 8\n");
  EXPECT_EQ(c.log, (Lines{"RIB error: general syntactic error at line 3 '8': "
                          "Expected character '['"}));
  ASSERT_EQ(c.records("Tune").size(), 1u);
  EXPECT_EQ(c.only("Tune").args.at(0).asInt(), 8);
  EXPECT_EQ(c.only("Tune").args.at(2).asInt(), 6);
}

TEST(FrameCameraRequests, ProjectionNamedNullReachesTheCallAsNoName) {
  Conversion c = convert("Projection \"null\" Projection \"perspective\" \"fov\" [30]");
  EXPECT_TRUE(c.log.empty());
  EXPECT_EQ(c.ops(), (Ops{"ViewIdentity", "ViewPerspective"}));
  EXPECT_EQ(c.only("ViewPerspective").args.at(0).asFloat(), 30.0f);
}

}  // namespace
