#include "rib/parserib.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>
#include <vector>

#include "tests/support/recordingparser.h"
#include "tests/support/reportcollector.h"

namespace {

using Names = std::vector<std::string>;

std::vector<std::string> allRequestNames() {
  const char* const* names = RecordingParser::requestNames();
  return {names, names + parserib::kRequestCount};
}

TEST(ParserDriver, EveryRequestWordReachesItsOwnHandler) {
  ReportCollector reports;
  std::string text;
  for (const std::string& name : allRequestNames()) text += name + "\n";
  RecordingParser p(text);
  p.parseAll();
  EXPECT_EQ(p.ranNames(), allRequestNames());
  EXPECT_TRUE(reports.lines().empty());
}

TEST(ParserDriver, OneStatementPerCall) {
  RecordingParser p("WorldBegin Sphere WorldEnd");
  EXPECT_EQ(p.parse1(), 1);
  EXPECT_EQ(p.ranNames(), Names{"WorldBegin"});
  EXPECT_EQ(p.parse1(), 1);
  EXPECT_EQ(p.parse1(), 0);
  EXPECT_EQ(p.ranNames(), (Names{"WorldBegin", "Sphere", "WorldEnd"}));
}

TEST(ParserRecovery, BadFirstTokenIsReportedOnceAndSkippedInOneCall) {
  const std::pair<const char*, const char*> cases[] = {
      {"ignore 1 2 3 WorldEnd", "RIB error: undefined RIB request at line 1 'ignore'"},
      {"1.5x WorldEnd", "RIB error: general syntactic error at line 1 '1.5x': Invalid number"},
  };
  for (const auto& [input, report] : cases) {
    SCOPED_TRACE(input);
    ReportCollector reports;
    RecordingParser p(input);
    EXPECT_EQ(p.parse1(), 1);
    EXPECT_TRUE(p.ran.empty());
    EXPECT_EQ(reports.lines(), Names{report});
    EXPECT_EQ(p.parse1(), 0);
    EXPECT_EQ(p.ranNames(), Names{"WorldEnd"});
    EXPECT_EQ(reports.lines().size(), 1u);
  }
}

struct RecoveryCase {
  const char* input;
  Names reports;
  Names ran;
  std::function<void(RecordingParser&)> sphere = nullptr;  // the handler of Sphere, if any
};

// Sphere handlers: reading floats until one fails, and throwing as a limit does.
void readFloats(RecordingParser& r) {
  float value;
  while (r.match(value)) {
  }
}
void throwLimit(RecordingParser&) {
  throw lexanrib::exception(12, 1, "limit %d", 7);
}

TEST(ParserRecovery, StatementsAfterABadOneStillRun) {
  const RecoveryCase cases[] = {
      {"1 2 3 WorldEnd",
       {"RIB error: general syntactic error at line 1 '1': Expected Keyword"},
       {"WorldEnd"}},
      // Request names are case sensitive.
      {"sphere WORLDEND WorldEnd",
       {"RIB error: undefined RIB request at line 1 'sphere'"},
       {"WorldEnd"}},
      // A known request inside an array stops recovery; the 2 and the bracket
      // behind it are then a bad statement.
      {"Bogus [ 1 Sphere 2 ]",
       {"RIB error: undefined RIB request at line 1 'Bogus'",
        "RIB error: general syntactic error at line 1 '2': Expected Keyword"},
       {"Sphere"}},
      // The 5. fails as the look-ahead behind WorldEnd; the 1e fails while the
      // recovery after that report skips on. Each is reported.
      {"WorldEnd 5. 1e\n\"open\nWorldBegin",
       {"RIB error: general syntactic error at line 1 '5.': Invalid number",
        "RIB error: general syntactic error at line 1 '1e': Invalid number",
        "RIB error: general syntactic error at line 1 'open': String runs past end of line"},
       {"WorldBegin"}},
      {"", {}, {}},
      // A failed argument drops the request and the rest of its arguments.
      {"Sphere 1 \"two\" 3 \"four\" [ WorldEnd",
       {"RIB error: general syntactic error at line 1 'two': Expected float"},
       {"Sphere", "WorldEnd"},
       readFloats},
      // An exception from a handler is reported with its code and severity.
      {"Sphere 1 2 3 WorldEnd",
       {"RIB warning: overflowing an internal limit at line 1 '1': limit 7"},
       {"Sphere", "WorldEnd"},
       throwLimit},
  };
  for (const RecoveryCase& c : cases) {
    SCOPED_TRACE(c.input);
    ReportCollector reports;
    RecordingParser p(c.input);
    if (c.sphere) p.on("Sphere", c.sphere);
    p.parseAll();
    EXPECT_EQ(reports.lines(), c.reports);
    EXPECT_EQ(p.ranNames(), c.ran);
  }
}

// The call that meets the end of the stream returns 0, even inside a request
// whose argument is missing there.
TEST(ParserDriver, TheEndOfTheStreamEndsTheCallAtOnce) {
  ReportCollector reports;
  RecordingParser empty("");
  EXPECT_EQ(empty.parse1(), 0);
  RecordingParser p("Sphere");
  p.on("Sphere", readFloats);
  EXPECT_EQ(p.parse1(), 0);
  EXPECT_EQ(reports.lines(),
            Names{"RIB error: general syntactic error at line 1 'Sphere': Expected float"});
}

TEST(ParserDriver, WholeStreamParseIsWrappedInBeginAndEnd) {
  RecordingParser p("WorldBegin bogus WorldEnd");
  ReportCollector reports;
  p.parse();
  EXPECT_EQ(p.ranNames(), (Names{"Begin", "WorldBegin", "WorldEnd", "End"}));
  EXPECT_EQ(reports.lines().size(), 1u);
}

TEST(ParserDriver, StepwiseParseRunsBeginAndEndOnlyFromTheStream) {
  ReportCollector reports;
  RecordingParser p("version 3.03 End");
  p.on("version", [](RecordingParser& r) {
    float v;
    r.match(v);
  });
  p.parseAll();
  EXPECT_TRUE(reports.lines().empty());
  EXPECT_EQ(p.ranNames(), (Names{"version", "End"}));
}

void sentinelHandler() {}

TEST(ParserDriver, FailureHandlerIsInForceOnlyDuringACall) {
  RecordingParser p("WorldBegin");
  std::new_handler during = nullptr;
  p.on("WorldBegin", [&](RecordingParser&) { during = std::get_new_handler(); });
  std::new_handler before = std::set_new_handler(sentinelHandler);
  p.parse1();
  std::new_handler after = std::set_new_handler(before);
  EXPECT_EQ(during, &parserib::outOfMemory);
  EXPECT_EQ(after, &sentinelHandler);
}

}  // namespace
