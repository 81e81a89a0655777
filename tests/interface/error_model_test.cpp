#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "error_test_sink.h"
#include "foundation/String.h"

namespace {

struct Report {
  RtInt code;
  RtInt severity;
  bool hasMessage;
  std::string message;
};

std::vector<Report> gReports;

void record(RtInt code, RtInt severity, const char* message) {
  gReports.push_back({code, severity, message != nullptr, message ? message : ""});
}

class ErrorCall : public ErrorModelTest {
 protected:
  void SetUp() override {
    ErrorModelTest::SetUp();
    gReports.clear();
  }
};

TEST_F(ErrorCall, SetErrorHandlerReturnsTheOldOne) {
  EXPECT_EQ(setErrorHandler(record), RiErrorPrint);
  EXPECT_EQ(Error::fHandler, record);
  EXPECT_EQ(setErrorHandler(RiErrorIgnore), record);
}

TEST_F(ErrorCall, FormatsTheMessageUnderTheRunningCallsName) {
  setErrorHandler(record);
  error(42, 2, "unknown hider type \"%s\", using %s", "x", "hidden");
  EXPECT_EQ(setErrorFuncName("RiHiderV"), nullptr);
  error(42, 2, "unknown hider type \"%s\", using %s", "x", "hidden");
  EXPECT_STREQ(setErrorFuncName(nullptr), "RiHiderV");
  ASSERT_EQ(gReports.size(), 2u);
  EXPECT_EQ(gReports[0].message, "unknown hider type \"x\", using hidden");
  EXPECT_EQ(gReports[1].message, "RiHiderV: unknown hider type \"x\", using hidden");
  EXPECT_EQ(gReports[1].code, 42);
  EXPECT_EQ(gReports[1].severity, 2);
}

TEST_F(ErrorCall, NullFormatPassesTheCallNameAlone) {
  setErrorHandler(record);
  error(28, 1, nullptr);
  setErrorFuncName("RiSphereV");
  error(28, 1, nullptr);
  setErrorFuncName(nullptr);
  ASSERT_EQ(gReports.size(), 2u);
  EXPECT_FALSE(gReports[0].hasMessage);
  EXPECT_TRUE(gReports[1].hasMessage);
  EXPECT_EQ(gReports[1].message, "RiSphereV");
}

TEST_F(ErrorCall, LongMessagesAreCutToTheBuffer) {
  setErrorHandler(record);
  const std::string longText(500, 'x');
  const std::string longName(300, 'N');
  error(2, 2, "%s", longText.c_str());
  setErrorFuncName("RiSphereV");
  error(2, 2, "%s", longText.c_str());
  setErrorFuncName(longName.c_str());
  error(2, 2, "%s", longText.c_str());
  setErrorFuncName(nullptr);
  ASSERT_EQ(gReports.size(), 3u);
  EXPECT_EQ(gReports[0].message, longText.substr(0, 123));
  EXPECT_EQ(gReports[1].message, "RiSphereV: " + longText.substr(0, 123 - 11));
  EXPECT_EQ(gReports[2].message, longName.substr(0, 123));
}

TEST_F(ErrorCall, WholeReportGoesThroughPrintToTheSink) {
  setErrorFuncName("RiSphereV");
  error(1, 3, "free store exhausted");
  setErrorFuncName(nullptr);
  ASSERT_EQ(lines().size(), 1u);
  EXPECT_EQ(lines()[0], "severe error: Out of memory. RiSphereV: free store exhausted");
}

TEST_F(ErrorCall, StringIndexPastTheTerminatorIsReported) {
  String s("ab");
  EXPECT_EQ(&s[2], s.c_str() + 2);
  EXPECT_TRUE(lines().empty());
  EXPECT_EQ(&s[3], s.c_str() + 2);
  ASSERT_EQ(lines().size(), 1u);
  EXPECT_EQ(lines()[0], "error: File nonexistent. string index out of range");
}

void sentinelNewHandler() {
  std::abort();
}

class NewHandlerSwap : public ErrorModelTest {
 protected:
  void SetUp() override {
    ErrorModelTest::SetUp();
    before = std::set_new_handler(sentinelNewHandler);
  }
  void TearDown() override {
    Error::fFuncName = nullptr;
    std::set_new_handler(before);
    ErrorModelTest::TearDown();
  }
  std::new_handler before = nullptr;
};

TEST_F(NewHandlerSwap, ErrorNewHandlerIsInPlaceOnlyWhileACallIsNamed) {
  EXPECT_EQ(std::get_new_handler(), sentinelNewHandler);
  setErrorFuncName("RiSphereV");
  EXPECT_EQ(std::get_new_handler(), errorNewHandler);
  EXPECT_EQ(Error::fStoredNewHandler, sentinelNewHandler);
  // A change of name leaves the swap alone.
  setErrorFuncName("RiConeV");
  EXPECT_EQ(std::get_new_handler(), errorNewHandler);
  EXPECT_EQ(Error::fStoredNewHandler, sentinelNewHandler);
  setErrorFuncName(nullptr);
  EXPECT_EQ(std::get_new_handler(), sentinelNewHandler);
  setErrorFuncName(nullptr);
  EXPECT_EQ(std::get_new_handler(), sentinelNewHandler);
}

TEST(ErrorNewHandlerDeathTest, ReportsTheRunningCallAndAborts) {
  setMessageSink(nullptr);
  EXPECT_DEATH(
      {
        setErrorFuncName("RiSphereV");
        errorNewHandler();
      },
      "severe error: Out of memory\\. RiSphereV: free store exhausted\n");
}

TEST(ErrorNewHandlerDeathTest, AnExhaustedFreeStoreInsideANamedCallEndsTheProgram) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the address sanitizer ends an impossible allocation itself";
#else
  setMessageSink(nullptr);
  EXPECT_DEATH(
      {
        setErrorFuncName("RiSphereV");
        volatile size_t huge = std::numeric_limits<std::ptrdiff_t>::max();
        ::operator delete(::operator new(huge));
      },
      "severe error: Out of memory\\. RiSphereV: free store exhausted\n");
#endif
}

}  // namespace
