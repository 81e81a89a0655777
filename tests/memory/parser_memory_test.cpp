// Exhausted memory while a RIB stream is read: each failure is reported once,
// with the code of the place that met it, and the parser goes on with the next
// request.
#define FAILING_ALLOCATOR_DEFINE_OPERATORS
#include "tests/support/failingallocator.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "rib/tokenvalue.h"
#include "tests/support/recordingparser.h"
#include "tests/support/reportcollector.h"

namespace {

using Names = std::vector<std::string>;

// Runs one parse1 with the allocator set to fail by `arm`, then disarms.
template <typename Arm>
int16_t parse1Failing(RecordingParser& p, Arm arm) {
  failingallocator::Scope scope;
  arm();
  const int16_t more = p.parse1();
  failingallocator::disarm();
  return more;
}

void previousHandler() {}

// The failure handler in force before the call is back after it.
TEST(MemoryFailure, WhileReadingAStringIsCode15) {
  ReportCollector reports;
  // Two quotes glued behind the long string keep the quotes paired when the
  // rest of its text is skipped as words during recovery.
  RecordingParser p("Surface \"" + std::string(2000, 'a') + "\"\"\nWorldEnd\n");
  std::new_handler outside = std::set_new_handler(previousHandler);
  EXPECT_EQ(parse1Failing(p, [] { failingallocator::failAbove(1000); }), 1);
  EXPECT_EQ(std::set_new_handler(outside), &previousHandler);
  EXPECT_EQ(failingallocator::failures(), 1u);
  EXPECT_TRUE(p.ran.empty());
  EXPECT_EQ(reports.lines(),
            Names{"severe RIB error: insufficient memory to read string at line 1: Free store "
                  "exhausted"});
  p.parseAll();
  EXPECT_EQ(p.ranNames(), Names{"WorldEnd"});
  EXPECT_EQ(reports.lines().size(), 1u);
}

TEST(MemoryFailure, WhileGrowingAnArgumentArrayIsCode1) {
  ReportCollector reports;
  std::string input = "Sphere [";
  for (int k = 1; k <= 300; ++k) input += " " + std::to_string(k);
  RecordingParser p(input + " ] WorldEnd");
  bool completed = false;
  p.on("Sphere", [&](RecordingParser& r) {
    Array<float> a;
    completed = r.match(a, -1, 1) != 0;
  });
  // Growing from 229 to 344 floats is the first request above 1000 bytes; it
  // comes when the 230th number is stored.
  EXPECT_EQ(parse1Failing(p, [] { failingallocator::failAbove(1000); }), 1);
  EXPECT_EQ(failingallocator::failures(), 1u);
  EXPECT_FALSE(completed);
  EXPECT_EQ(reports.lines(),
            Names{"severe RIB error: insufficient memory to construct array at line 1 '230': "
                  "Free store exhausted"});
  EXPECT_EQ(p.token, LEXKEYWORD);
  p.parseAll();
  EXPECT_EQ(p.ranNames(), (Names{"Sphere", "WorldEnd"}));
  EXPECT_EQ(reports.lines().size(), 1u);
}

TEST(MemoryFailure, ElsewhereIsCode13FreeStoreExhausted) {
  ReportCollector reports;
  RecordingParser p("Surface \"plastic\" \"Ka\" 1 WorldEnd");
  bool completed = false;
  p.on("Surface", [&](RecordingParser& r) {
    String name;
    // The next request is the copy of the scanned text into the String.
    failingallocator::failNth(1);
    completed = r.match(&name) != 0;
  });
  EXPECT_EQ(parse1Failing(p, [] {}), 1);
  EXPECT_EQ(failingallocator::failures(), 1u);
  EXPECT_FALSE(completed);
  EXPECT_EQ(reports.lines(),
            Names{"severe RIB error: generic instance of insufficient memory at line 1 "
                  "'plastic': Free store exhausted"});
  p.parseAll();
  EXPECT_EQ(p.ranNames(), (Names{"Surface", "WorldEnd"}));
}

TEST(MemoryFailure, ParameterValueCopyFailureDropsOnlyThatRequest) {
  ReportCollector reports;
  // The long shader name grows the scanner's text buffer before the allocator
  // is armed, so that the 509-byte copy of the 500-byte string value into the
  // list is the first request above 505 bytes.
  RecordingParser p("Surface \"" + std::string(600, 's') + "\" \"texturename\" \"" +
                    std::string(500, 't') + "\" Surface \"matte\" WorldEnd");
  int calls = 0, completed = 0;
  p.on("Surface", [&](RecordingParser& r) {
    String name;
    tokenvalue list;
    if (!r.match(&name)) return;
    if (++calls == 1) failingallocator::failAbove(505);
    if (!r.match(list, 0)) return;
    ++completed;
  });
  p.parseAll();
  failingallocator::disarm();
  EXPECT_EQ(failingallocator::failures(), 1u);
  EXPECT_EQ(completed, 1);
  EXPECT_EQ(reports.lines(),
            Names{"severe RIB error: generic instance of insufficient memory at line 1 "
                  "'Surface': Free store exhausted"});
  EXPECT_EQ(p.ranNames(), (Names{"Surface", "Surface", "WorldEnd"}));
}

}  // namespace
