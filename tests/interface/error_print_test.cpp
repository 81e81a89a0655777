#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "error_test_sink.h"
#include "interface/scene/zel.h"
#include "tests/interface/ri_scene.h"

namespace {

class RiErrorPrintTest : public ErrorModelTest {};

TEST_F(RiErrorPrintTest, WritesTheSentenceOfEachCode) {
  const struct {
    RtInt code;
    const char* line;
  } cases[] = {
      {1, "error: Out of memory."},
      {2, "error: Miscellaneous system error."},
      {3, "error: File nonexistent."},
      {4, "error: Bad file format."},
      {5, "error: File version mismatch."},
      {11, "error: Optional RI feature."},
      {12, "error: Unimplemented feature."},
      {13, "error: Arbitrary program limit."},
      {14, "error: Probably a bug in renderer."},
      {23, "error: RiBegin not called."},
      {24, "error: Bad begin-end nesting."},
      {25, "error: Invalid state for options."},
      {26, "error: Invalid state for attribs."},
      {27, "error: Invalid state for primitives."},
      {28, "error: Invalid state."},
      {29, "error: Badly formed motion block."},
      {30, "error: Badly formed solid block."},
      {41, "error: Invalid token for request."},
      {42, "error: Parameter out of range."},
      {43, "error: Parameters inconsistent."},
      {44, "error: Bad object/light handle."},
      {45, "error: Can't load requested shader."},
      {46, "error: Required parameters not provided."},
      {47, "error: Declare type syntax error."},
      {61, "error: Undefined mathematical operation."},
      {6, "error: Error code: 6"},
      {62, "error: Error code: 62"},
      {-5, "error: Error code: -5"},
  };
  for (const auto& c : cases) {
    lines().clear();
    RiErrorPrint(c.code, 2, nullptr);
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0], c.line);
    EXPECT_EQ(RiLastError, c.code);
  }
}

// Each handler call, with the lines it prints (the label of each severity,
// the sentence of the code) and the code it leaves behind.
TEST_F(RiErrorPrintTest, HandlersPrintTheWholeLineAndStoreTheCode) {
  const std::string longMessage(5000, 'm');
  const struct {
    RtErrorHandler handler;
    RtInt code, severity;
    std::string message;
    std::vector<std::string> lines;
  } cases[] = {
      {RiErrorPrint, 4, 0, "m", {"info: Bad file format. m"}},
      {RiErrorPrint, 4, 1, "m", {"warning: Bad file format. m"}},
      {RiErrorPrint, 4, 2, "m", {"error: Bad file format. m"}},
      {RiErrorPrint, 4, 3, "m", {"severe error: Bad file format. m"}},
      {RiErrorPrint, 4, 7, "m", {"error: Bad file format. m"}},
      {RiErrorPrint, 4, -1, "m", {"error: Bad file format. m"}},
      {RiErrorPrint, 0, 0, "all is well", {"info: all is well"}},
      {RiErrorPrint,
       42,
       2,
       "RiHiderV: unknown hider type \"x\", using hidden",
       {"error: Parameter out of range. RiHiderV: unknown hider type \"x\", using hidden"}},
      {RiErrorPrint, 62, 1, longMessage, {"warning: Error code: 62 " + longMessage}},
      {RiErrorIgnore, 43, 3, "unseen", {}},
      {RiErrorAbort, 12, 0, "only news", {"info: Unimplemented feature. only news"}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.severity) + " " + c.message.substr(0, 40));
    lines().clear();
    RiLastError = 99;
    c.handler(c.code, c.severity, c.message.c_str());
    EXPECT_EQ(lines(), c.lines);
    EXPECT_EQ(RiLastError, c.code);
  }
}

TEST(RiErrorAbortDeathTest, EndsTheProcessForAWarningAfterPrinting) {
  setMessageSink(nullptr);
  EXPECT_DEATH(RiErrorAbort(13, 1, "too many"), "warning: Arbitrary program limit\\. too many\n");
}

TEST(PrintMessage, DefaultSinkWritesTheLineAndANewlineToStandardError) {
  setMessageSink(nullptr);
  ::testing::internal::CaptureStderr();
  printMessage("first");
  printMessage("second");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "first\nsecond\n");
}

void customHandler(RtInt, RtInt, const char*) {}

class RiErrorHandlerTest : public RiSceneTest {};

TEST_F(RiErrorHandlerTest, InstallsTheHandlerAndTellsTheLibraryWhichOne) {
  RiErrorHandler(RiErrorIgnore);
  EXPECT_EQ(Error::fHandler, RiErrorIgnore);
  RiErrorHandler(RiErrorAbort);
  EXPECT_EQ(Error::fHandler, RiErrorAbort);
  RiErrorHandler(customHandler);
  EXPECT_EQ(Error::fHandler, customHandler);
  RiErrorHandler(RiErrorPrint);
  EXPECT_EQ(Error::fHandler, RiErrorPrint);

  std::vector<ZelRecord> ops = operations();
  ASSERT_EQ(ops.size(), 4u);
  EXPECT_EQ(describe(ops[0]), "ErrorHandler 2831 3072");  // 0x0B0F, 0x0C00
  EXPECT_EQ(describe(ops[1]), "ErrorHandler 2831 3074");  // 0x0C02
  EXPECT_EQ(ops[2].op, "CustomErrorHandler");
  ASSERT_FALSE(ops[2].args.empty());
  EXPECT_EQ(ops[2].args[0].asInt(), kZelHandlerSetting);
  EXPECT_EQ(describe(ops[3]), "ErrorHandler 2831 3073");  // 0x0C01
  EXPECT_TRUE(messages().empty());
}

}  // namespace
