#include <gtest/gtest.h>

#include "interface/error.h"
#include "tests/interface/ri_scene.h"

namespace {

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
  EXPECT_EQ(ops[2].args[0].asInt(), 0x0B0F);
  EXPECT_EQ(describe(ops[3]), "ErrorHandler 2831 3073");  // 0x0C01
  EXPECT_TRUE(messages().empty());
}

}  // namespace
