// Texture-making requests and ErrorHandler, which switches the reader's and
// the Ri layer's reports together.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "interface/scene/zel.h"
#include "rib/bytesource.h"
#include "rib/requests/rendrib.h"
#include "tests/rib/requests/requesttable.h"

namespace {

using Ops = std::vector<std::string>;

const std::string kTexture = "MakeTexture \"in.tif\" \"out.tex\" \"periodic\" \"clamp\" ";

// Each RIB text with the whole report lines and the records it gives.
TEST(TextureErrorHandlerRequests, ReportsAndRecordsOfEachRequest) {
  expectEach({
      // Texture requests are read to their end, and the stream stays in step.
      {kTexture + "\"gaussian\" 2 2 \"fov\" [1]\n" +
           "MakeTexture \"a\" \"b\" \"sideways\" \"nowhere\" \"box\" 1 1\n" +
           "MakeBump \"a\" \"b\" \"black\" \"black\" \"sinc\" 4 4\n" +
           "MakeLatLongEnvironment \"a\" \"b\" \"triangle\" 1 1\n" +
           "MakeCubeFaceEnvironment \"1\" \"2\" \"3\" \"4\" \"5\" \"6\" \"out\" 90 " +
           "\"catmull-rom\" 2 2\n" + "MakeShadow [\"z.tif\"] \"z.shd\"\n" + "WorldBegin",
       {},
       {"SceneBegin"}},
      // A fault ends the request and skips the rest.
      {kTexture + "\"Gaussian\" 2 2\n" + kTexture + "\"gaussian\" 2 WorldBegin\n" +
           "MakeCubeFaceEnvironment \"1\" \"2\" \"3\" \"4\" \"5\" \"6\" \"out\" " +
           "\"box\" 2 2 WorldEnd",
       {"RIB error: general syntactic error at line 1 '2': Unknown filter function 'Gaussian'",
        "RIB error: general syntactic error at line 2 'WorldBegin': Expected float",
        "RIB error: general syntactic error at line 3 'box': Expected float"},
       {"SceneBegin", "SceneEnd"}},
      // An unknown handler name changes neither path.
      {"ErrorHandler \"Print\" ErrorHandler \"null\" WorldBegin",
       {"RIB error: general syntactic error at line 1 'ErrorHandler': Unknown error function "
        "'Print'",
        "RIB error: general syntactic error at line 1 'WorldBegin': Unknown error function 'null'"},
       {"SceneBegin"}},
  });
}

TEST(ErrorHandlerRequest, IgnoreSilencesBothPathsUntilPrintBringsThemBack) {
  Conversion c = convert(
      "ErrorHandler \"ignore\" Sphere 1 2 WorldBegin Orientation \"sideways\"\n"
      "ErrorHandler \"print\" Sphere 1 2 WorldEnd Orientation \"sideways\"");
  EXPECT_EQ(
      c.log,
      (Lines{"RIB error: incorrect parameter value at line 2 'WorldEnd': Expected 4 floats"}));
  EXPECT_EQ(c.messages.size(), 1u);
  EXPECT_EQ(c.ops(), (Ops{"ErrorHandler", "SceneBegin", "ErrorHandler", "SceneEnd"}));
  std::vector<ZelRecord> modes = c.records("ErrorHandler");
  EXPECT_EQ(modes.at(0).args.at(1).asInt(), kZelIgnore);
  EXPECT_EQ(modes.at(1).args.at(1).asInt(), kZelPrint);
}

void writeToStandardError(const char* line) {
  std::fprintf(stderr, "%s\n", line);
}

void convertPrintingToStandardError(const std::string& rib) {
  memorybytesource source(rib.data(), rib.size());
  rendrib reader(source);
  reader.errorPrinter(writeToStandardError);
  while (reader.parse1()) {
  }
}

// On the next reader warning, or the next interface error.
TEST(ErrorHandlerRequestDeathTest, AbortEndsTheProcessOnTheNextReport) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(convertPrintingToStandardError("ErrorHandler \"abort\" ObjectInstance 9 WorldBegin"),
               "RIB warning: invalid light or object handle at line 1 'WorldBegin': "
               "Unknown object handle 9");
  EXPECT_DEATH(convertPrintingToStandardError("ErrorHandler \"abort\" Orientation \"sideways\""),
               "sideways");
}

}  // namespace
