// Captures what the Ri layer's error model prints, and puts its state back
// afterwards, so that tests can compare whole message lines.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "interface/error.h"

class ErrorModelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    lines().clear();
    setMessageSink(capture);
    savedHandler = setErrorHandler(RiErrorPrint);
    savedName = Error::fFuncName;
    Error::fFuncName = nullptr;
  }

  void TearDown() override {
    setMessageSink(nullptr);
    setErrorHandler(savedHandler);
    Error::fFuncName = savedName;
  }

  static std::vector<std::string>& lines() {
    static std::vector<std::string> captured;
    return captured;
  }

 private:
  static void capture(const char* line) { lines().push_back(line); }

  RtErrorHandler savedHandler = nullptr;
  const char* savedName = nullptr;
};
