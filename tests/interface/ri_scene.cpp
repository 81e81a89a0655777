#include "tests/interface/ri_scene.h"

#include <charconv>
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

std::string describe(const ZelValue& value) {
  switch (value.kind()) {
    case ZelValue::Kind::Null:
      return "null";
    case ZelValue::Kind::Boolean:
      return value.asBool() ? "true" : "false";
    case ZelValue::Kind::Integer:
      return std::to_string(value.asInt());
    case ZelValue::Kind::Float: {
      char digits[32];
      auto end = std::to_chars(digits, digits + sizeof digits, value.asFloat()).ptr;
      return std::string(digits, end);
    }
    case ZelValue::Kind::Text:
      return "\"" + value.asText() + "\"";
    case ZelValue::Kind::Array: {
      std::string items = "[";
      for (const ZelValue& item : value.items()) {
        if (items.size() > 1) items += ",";
        items += describe(item);
      }
      return items + "]";
    }
  }
  return "?";
}

std::string describe(const ZelRecord& record) {
  std::string line = record.op;
  for (const ZelValue& arg : record.args) line += " " + describe(arg);
  for (const ZelParamRecord& p : record.params) {
    line += " {" + std::to_string(p.code) + " " + p.name.value_or("null") + " " +
            std::to_string(p.type) + " " + std::to_string(p.tokenClass) + " " +
            std::to_string(p.count) + " " + describe(p.values) + "}";
  }
  return line;
}
