#include "tests/golden/samerecords.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <vector>

#include "tests/support/files.h"
#include "zel/reader/zelreader.h"

namespace golden {

namespace {

bool sameValue(const ZelValue& a, const ZelValue& b) {
  if (a.kind() != b.kind()) return false;
  switch (a.kind()) {
    case ZelValue::Kind::Null:
      return true;
    case ZelValue::Kind::Boolean:
      return a.asBool() == b.asBool();
    case ZelValue::Kind::Integer:
      return a.asInt() == b.asInt();
    case ZelValue::Kind::Float: {
      // Bit for bit: the writer promises that a float reads back exactly.
      float x = a.asFloat(), y = b.asFloat();
      return std::memcmp(&x, &y, sizeof x) == 0;
    }
    case ZelValue::Kind::Text:
      return a.asText() == b.asText();
    case ZelValue::Kind::Array: {
      const auto& x = a.items();
      const auto& y = b.items();
      if (x.size() != y.size()) return false;
      for (size_t i = 0; i < x.size(); ++i) {
        if (!sameValue(x[i], y[i])) return false;
      }
      return true;
    }
  }
  return false;
}

bool sameParam(const ZelParamRecord& a, const ZelParamRecord& b) {
  return a.code == b.code && a.name == b.name && a.type == b.type && a.tokenClass == b.tokenClass &&
         a.count == b.count && sameValue(a.values, b.values);
}

bool sameRecord(const ZelRecord& a, const ZelRecord& b) {
  if (a.op != b.op || a.args.size() != b.args.size() || a.hasParams != b.hasParams ||
      a.params.size() != b.params.size() || a.handle != b.handle) {
    return false;
  }
  for (size_t i = 0; i < a.args.size(); ++i) {
    if (!sameValue(a.args[i], b.args[i])) return false;
  }
  for (size_t i = 0; i < a.params.size(); ++i) {
    if (!sameParam(a.params[i], b.params[i])) return false;
  }
  return true;
}

std::vector<std::string> lines(const std::string& path) {
  std::vector<std::string> result;
  std::istringstream in(readFile(path));
  for (std::string line; std::getline(in, line);) result.push_back(line);
  return result;
}

std::string lineOf(const std::vector<std::string>& text, const ZelRecord* record) {
  if (record == nullptr) return "(no record)";
  if (record->line == 0 || record->line > text.size()) return "(line unknown)";
  return "line " + std::to_string(record->line) + ": " + text[record->line - 1];
}

}  // namespace

testing::AssertionResult sameRecords(const std::string& actualPath,
                                     const std::string& expectedPath) {
  ZelFile actual, expected;
  try {
    actual = readZelFile(actualPath);
    expected = readZelFile(expectedPath);
  } catch (const std::exception& e) {
    return testing::AssertionFailure() << e.what();
  }
  const size_t n = std::max(actual.records.size(), expected.records.size());
  for (size_t i = 0; i < n; ++i) {
    const ZelRecord* a = i < actual.records.size() ? &actual.records[i] : nullptr;
    const ZelRecord* e = i < expected.records.size() ? &expected.records[i] : nullptr;
    if (a != nullptr && e != nullptr && sameRecord(*a, *e)) continue;
    return testing::AssertionFailure()
           << "record " << i + 1 << " differs (" << actual.records.size() << " records in "
           << actualPath << ", " << expected.records.size() << " in " << expectedPath << ")\n"
           << "  actual:   " << lineOf(lines(actualPath), a) << "\n"
           << "  expected: " << lineOf(lines(expectedPath), e);
  }
  return testing::AssertionSuccess();
}

}  // namespace golden
