// A scene library writing to a file of its own per test, with its report
// lines captured, and helpers to read the file back.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "interface/scene/zel.h"
#include "zel/reader/zelreader.h"
#include "zel/zellib.h"

inline std::vector<std::string> gReportLines;

inline void captureLine(const char* line) {
  gReportLines.emplace_back(line);
}

// A path no other test process uses.
inline std::string scratchPath(const char* tag) {
  static int counter = 0;
  auto name = std::string("zeltest-") + tag + "-" + std::to_string(getpid()) + "-" +
              std::to_string(counter++) + ".zel";
  return (std::filesystem::temp_directory_path() / name).string();
}

inline std::string fileText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

class ZelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    zelReset();
    gReportLines.clear();
    zelSetMessageSink(captureLine);
    path_ = scratchPath("out");
    _zelOutputFile(kZelSceneFile, path_.c_str());
  }

  void TearDown() override {
    zelReset();
    std::filesystem::remove(path_);
  }

  // The file's lines after the header, as written.
  std::vector<std::string> recordLines() {
    zelFlush();
    std::vector<std::string> lines;
    std::istringstream in(fileText(path_));
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) lines.push_back(line);
    return lines;
  }

  std::vector<ZelRecord> records() {
    zelFlush();
    return readZelFile(path_).records;
  }

  std::string path_;
};
