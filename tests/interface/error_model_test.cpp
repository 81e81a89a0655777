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

TEST_F(ErrorCall, FormatsTheMessageUnderTheRunningCallsName) {
  EXPECT_EQ(setErrorHandler(record), RiErrorPrint);
  EXPECT_EQ(Error::fHandler, record);
  error(42, 2, "unknown hider type \"%s\", using %s", "x", "hidden");
  EXPECT_EQ(setErrorFuncName("RiHiderV"), nullptr);
  error(42, 2, "unknown hider type \"%s\", using %s", "x", "hidden");
  EXPECT_STREQ(setErrorFuncName(nullptr), "RiHiderV");
  ASSERT_EQ(gReports.size(), 2u);
  EXPECT_EQ(gReports[0].message, "unknown hider type \"x\", using hidden");
  EXPECT_EQ(gReports[1].message, "RiHiderV: unknown hider type \"x\", using hidden");
  EXPECT_EQ(gReports[1].code, 42);
  EXPECT_EQ(gReports[1].severity, 2);
  EXPECT_EQ(setErrorHandler(RiErrorIgnore), record);
}

// A null format passes the call's name alone, or no message at all; long
// messages are cut to the buffer.
TEST_F(ErrorCall, MessageIsTheNameAndTheTextCutToTheBuffer) {
  const std::string longText(500, 'x');
  const std::string longName(300, 'N');
  const struct {
    const char* name;
    const char* text;
    bool hasMessage;
    std::string message;
  } cases[] = {
      {nullptr, nullptr, false, ""},
      {"RiSphereV", nullptr, true, "RiSphereV"},
      {nullptr, longText.c_str(), true, longText.substr(0, 123)},
      {"RiSphereV", longText.c_str(), true, "RiSphereV: " + longText.substr(0, 123 - 11)},
      {longName.c_str(), longText.c_str(), true, longName.substr(0, 123)},
  };
  setErrorHandler(record);
  for (const auto& c : cases) {
    gReports.clear();
    setErrorFuncName(c.name);
    c.text ? error(28, 1, "%s", c.text) : error(28, 1, nullptr);
    setErrorFuncName(nullptr);
    ASSERT_EQ(gReports.size(), 1u);
    EXPECT_EQ(gReports[0].hasMessage, c.hasMessage);
    EXPECT_EQ(gReports[0].message, c.message);
  }
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
