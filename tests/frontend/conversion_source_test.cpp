// A conversion of bytes the caller holds: the reader options it passes on,
// and the files such a text may not reach.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frontend/conversion.h"
#include "rib/bytesource.h"

namespace {

struct memorycase {
  const char* name;
  const char* rib;
  bool extended;
  bool viaSource;  // a byte source of the caller's instead of the text
  std::vector<std::string> log;
};

const memorycase kCases[] = {
    {"AbortHandlerPrintsWhenAbortIsBarred",
     "ErrorHandler \"abort\"\nBogus\n",
     false,
     false,
     {"RIB error: undefined RIB request at line 1 'Bogus'"}},
    {"TextReadsNoArchiveFile",
     "ReadArchive \"a.rib\"\n",
     true,
     false,
     {"RIB error: incorrect parameter value at line 1 'a.rib': No inline archive \"a.rib\" "
      "(files are not read here)"}},
    {"SourceReadsNoArchiveFile",
     "ReadArchive \"b.rib\"\n",
     true,
     true,
     {"RIB error: incorrect parameter value at line 1 'b.rib': No inline archive \"b.rib\" "
      "(files are not read here)"}},
};

class MemoryConversion : public testing::TestWithParam<memorycase> {};

TEST_P(MemoryConversion, FinishesWithTheseReports) {
  const memorycase& m = GetParam();
  std::vector<std::string> log;
  const std::string rib = m.rib;
  memorybytesource source(rib.data(), rib.size());
  conversion::request r;
  r.input = "-";
  if (m.viaSource) r.source = &source;
  if (!m.viaSource) r.text = rib;
  r.extended = m.extended;
  r.discardOutput = true;
  r.mayAbort = false;
  r.log = [&log](const char* line) { log.push_back(line); };
  r.messages = [](const char*) {};
  conversion c(std::move(r));
  ASSERT_TRUE(c.open());
  while (c.step()) {
  }
  EXPECT_EQ(c.state(), conversion::phase::finished);
  EXPECT_EQ(log, m.log);
}

INSTANTIATE_TEST_SUITE_P(Conversion, MemoryConversion, testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
