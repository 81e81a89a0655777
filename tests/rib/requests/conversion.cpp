#include "tests/rib/requests/conversion.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "frontend/conversion.h"
#include "interface/error.h"
#include "zel/zellib.h"

namespace {

std::string readAll(std::FILE* f) {
  std::string text;
  std::rewind(f);
  char buffer[4096];
  size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, f)) > 0) text.append(buffer, n);
  return text;
}

}  // namespace

Conversion convert(std::string_view rib, bool extended) {
  Conversion c;
  std::FILE* out = std::tmpfile();
  {
    conversion::request r;
    r.input = "-";
    r.text = rib;
    r.outputStream = out;
    r.extended = extended;
    r.log = [&c](const char* line) { c.log.emplace_back(line); };
    r.messages = [&c](const char* line) { c.messages.emplace_back(line); };
    conversion run(std::move(r));
    if (run.open()) {
      while (run.step()) {
      }
    }
  }
  c.zel = readZelString(readAll(out));
  // Detach the library from the stream before it goes.
  zelDiscardOutput();
  std::fclose(out);
  setMessageSink(nullptr);
  zelSetMessageSink(nullptr);
  return c;
}

std::vector<std::string> Conversion::ops() const {
  std::vector<std::string> names;
  for (const ZelRecord& r : zel.records) {
    if (r.op != "Quark") names.push_back(r.op);
  }
  return names;
}

std::vector<ZelRecord> Conversion::records(std::string_view op) const {
  std::vector<ZelRecord> found;
  for (const ZelRecord& r : zel.records) {
    if (r.op == op) found.push_back(r);
  }
  return found;
}

ZelRecord Conversion::only(std::string_view op) const {
  std::vector<ZelRecord> found = records(op);
  EXPECT_EQ(found.size(), 1u) << "records of " << op;
  return found.empty() ? ZelRecord{} : found.front();
}

std::string numbers(int count, float first) {
  std::string text = "[";
  for (int i = 0; i < count; ++i) {
    if (i > 0) text += ' ';
    text += std::to_string(first + static_cast<float>(i));
  }
  return text + "]";
}

std::vector<float> paramFloats(const ZelRecord& record, const std::string& name) {
  for (const ZelParamRecord& p : record.params) {
    if (p.name == name) return p.values.asFloats();
  }
  ADD_FAILURE() << "no parameter " << name << " in " << record.op;
  return {};
}
