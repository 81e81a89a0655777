#include "tests/interface/ri_scene.h"

#include <cstdio>

#include "interface/error.h"
#include "interface/scene/zel.h"
#include "tests/zel/zelfixture.h"
#include "zel/zellib.h"

void RiSceneTest::SetUp() {
  gReportLines.clear();
  setMessageSink(captureLine);
  zelSetMessageSink(captureLine);
  setErrorHandler(RiErrorPrint);
  path_ = dir_.file("ri.zel").string();
  _zelOutputFile(kZelSceneFile, path_.c_str());
  ASSERT_FALSE(zelWriteFailed()) << zelWriteError();
}

void RiSceneTest::TearDown() {
  setMessageSink(nullptr);
  zelSetMessageSink(nullptr);
}

ZelFile RiSceneTest::readScene() {
  EXPECT_TRUE(zelClose()) << zelWriteError();
  return readZelFile(path_);
}

std::vector<ZelRecord> RiSceneTest::operations() {
  std::vector<ZelRecord> records;
  for (ZelRecord& record : readScene().records) {
    if (record.op != "Quark") records.push_back(std::move(record));
  }
  return records;
}

std::vector<std::string> RiSceneTest::lines() {
  std::vector<std::string> described;
  for (const ZelRecord& record : operations()) described.push_back(describe(record));
  return described;
}

const std::vector<std::string>& RiSceneTest::messages() const {
  return gReportLines;
}
