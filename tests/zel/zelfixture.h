// A scene library writing to a file of its own per test, with its report
// lines captured, and helpers to read the file back.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "interface/scene/zel.h"
#include "tests/support/files.h"
#include "tests/support/scratchdir.h"
#include "zel/reader/zelreader.h"
#include "zel/zellib.h"

inline std::vector<std::string> gReportLines;

inline void captureLine(const char* line) {
  gReportLines.emplace_back(line);
}

// A polygon with these coordinates as its "P".
inline void writePolygon(std::vector<float> points) {
  ZelParam info = {"P", 0x0001, 4, 3, static_cast<uint32_t>(points.size())};
  uint16_t code = 0x0001;
  RtPointer pointer = points.data();
  _zelParameterInfo(1, &info);
  _zelPolygonV(static_cast<int32_t>(points.size() / 3), 1, &code, &pointer);
}

class ZelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    zelReset();
    gReportLines.clear();
    zelSetMessageSink(captureLine);
    path_ = dir_.file("out.zel").string();
    _zelOutputFile(kZelSceneFile, path_.c_str());
  }

  void TearDown() override { zelReset(); }

  // The file's lines after the header, as written.
  std::vector<std::string> recordLines() {
    zelFlush();
    std::vector<std::string> lines;
    std::istringstream in(readFile(path_));
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) lines.push_back(line);
    return lines;
  }

  std::vector<ZelRecord> records() {
    zelFlush();
    return readZelFile(path_).records;
  }

  scratchdir dir_;
  std::string path_;
};
