// Captures what the Ri layer's error model prints, and puts its state back
// afterwards, so that tests can compare whole message lines.
#pragma once

#include <gtest/gtest.h>

#include "interface/error.h"
#include "tests/zel/zelfixture.h"

class ErrorModelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    lines().clear();
    setMessageSink(captureLine);
    savedHandler = setErrorHandler(RiErrorPrint);
    savedName = Error::fFuncName;
    Error::fFuncName = nullptr;
  }

  void TearDown() override {
    setMessageSink(nullptr);
    setErrorHandler(savedHandler);
    Error::fFuncName = savedName;
  }

  static std::vector<std::string>& lines() { return gReportLines; }

 private:
  RtErrorHandler savedHandler = nullptr;
  const char* savedName = nullptr;
};
