// Frame and camera requests, from RIB text to scene records.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/rib/requests/requesttable.h"

namespace {

// Each RIB text with the whole report lines and the records it gives.
TEST(FrameCameraRequests, ReportsAndRecordsOfEachRequest) {
  const std::string twelve = "ColorSamples " + numbers(12) + " " + numbers(12) + "\n";
  expectEach({
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
       {"ColorSpace 0 [] []", "SceneBegin"}},
      // A second sample array too short leaves the sample count.
      {"ColorSamples [1 2 3 4 5 6] [1 2 3 4 5] Color [0 0 1]",
       {"RIB error: incorrect parameter value at line 1 '5': Expected 6 floats"},
       {"Color [0,0,1]"}},
      // Shader-like requests drop an undeclared parameter silently.
      {"Hider \"hidden\" \"nosuch\" [1] Hider \"paint\" \"jitter\" [1]",
       {},
       {"Hider 1025", "SampleJitter 0.5"}},
      // The Ri layer would take such text for one of its dictionary records.
      {"Display \"out\" \"\xFF\" \"rgb\" WorldBegin",
       {"RIB error: general syntactic error at line 1 'rgb': A name may not begin with the byte "
        "0xFF"},
       {"SceneBegin"}},
      {"ScreenWindow -2 2 -1.5 1.5 ScreenWindow [-2 2 -1.5 1.5]",
       {},
       {"ImageWindow -2 2 -1.5 1.5", "ImageWindow -2 2 -1.5 1.5"}},
      // Names are exact, and an unknown one skips its widths.
      {"PixelFilter \"Gaussian\" 2 2\nPixelFilter \"gaussian\" 3 1",
       {"RIB error: general syntactic error at line 1 '2': Unknown filter function 'Gaussian'"},
       {"Filter 256", "FilterWidth 3 1"}},
      // Only a version newer than the reader's is told.
      {"version 3.03 version 3.031 version 2 version 3.04 WorldBegin",
       {"RIB warning: protocol version number mismatch at line 1 'WorldBegin': Version 3.04 too "
        "new"},
       {"SceneBegin"}},
      {"Format 640.5 480 1 Format 320 240 1",
       {"RIB error: general syntactic error at line 1 '640.5': Expected integer"},
       {"RasterViewport 0 319 0 239", "RasterAspect 1"}},
      // Twelve samples make a colour want four values, and it goes on as its
      // first three.
      {twelve + "Color [1 0 0]\nColor [0.25 0.5 0.75 1]",
       {"RIB error: incorrect parameter value at line 2 '0': Expected 4 floats"},
       {"ColorSpace 4 [0,1,2,3,4,5,6,7,8,9,10,11] [0,1,2,3,4,5,6,7,8,9,10,11]",
        "Color [0.25,0.5,0.75]"}},
      // Fewer samples than three are padded with zeros.
      {"ColorSamples [1 1 1] [0.3 0.3 0.3] Color 0.5",
       {},
       {"ColorSpace 1 [1,1,1] [0.3,0.3,0.3]", "Color [0.5,0,0]"}},
      // Undeclared names are dropped silently; the values want brackets.
      {"Option \"nosuchoption\" \"gridsize\" [4]\n"
       "Option \"limits\" \"nosuchparameter\" [1 2] \"gridsize\" [8] \"bucketsize\" [4 6]\n"
       "Option \"limits\" \"gridsize\" 8\n",
       {"RIB error: general syntactic error at line 3 '8': Expected character '['"},
       {"Tune 8 4 6"}},
      // "null" reaches the call as no name.
      {"Projection \"null\" Projection \"perspective\" \"fov\" [30]",
       {},
       {"ViewIdentity", "ViewPerspective 30"}},
  });
}

}  // namespace
