// Exhausted memory while a RIB stream is read: each failure is reported once,
// with the code of the place that met it, and the parser goes on with the next
// request.
#define FAILING_ALLOCATOR_DEFINE_OPERATORS
#include "tests/support/failingallocator.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>
#include <vector>

#include "rib/tokenvalue.h"
#include "tests/support/recordingparser.h"
#include "tests/support/reportcollector.h"

namespace {

using Names = std::vector<std::string>;

void previousHandler() {}

TEST(MemoryFailure, IsReportedOnceWithItsCodeAndTheParserGoesOn) {
  std::string numbers = "Sphere [";
  for (int k = 1; k <= 300; ++k) numbers += " " + std::to_string(k);
  int surfaces = 0;
  const struct {
    const char* what;
    std::string input;
    size_t failAbove;                            // armed before the parse; 0: the handler arms
    std::function<bool(RecordingParser&)> read;  // the first request's handler; true when done
    const char* report;
    Names ran;
    int completed;  // reads of the handler that completed
  } cases[] = {
      // Two quotes glued behind the long string keep the quotes paired when
      // the rest of its text is skipped as words during recovery.
      {"while reading a string, code 15",
       "Surface \"" + std::string(2000, 'a') + "\"\"\nWorldEnd\n",
       1000,
       nullptr,
       "severe RIB error: insufficient memory to read string at line 1: Free store exhausted",
       {"WorldEnd"},
       0},
      // Growing from 229 to 344 floats is the first request above 1000 bytes;
      // it comes when the 230th number is stored.
      {"while growing an argument array, code 1",
       numbers + " ] WorldEnd",
       1000,
       [](RecordingParser& r) {
         Array<float> a;
         return r.match(a, -1, 1) != 0;
       },
       "severe RIB error: insufficient memory to construct array at line 1 '230': Free store "
       "exhausted",
       {"Sphere", "WorldEnd"},
       0},
      // The next request is the copy of the scanned text into the String.
      {"elsewhere, code 13",
       "Surface \"plastic\" \"Ka\" 1 WorldEnd",
       0,
       [](RecordingParser& r) {
         String name;
         failingallocator::failNth(1);
         return r.match(&name) != 0;
       },
       "severe RIB error: generic instance of insufficient memory at line 1 'plastic': Free store "
       "exhausted",
       {"Surface", "WorldEnd"},
       0},
      // The long shader name grows the scanner's text buffer before the
      // allocator is armed, so that the 509-byte copy of the 500-byte string
      // value into the list is the first request above 505 bytes; only that
      // request is dropped.
      {"copying a parameter value",
       "Surface \"" + std::string(600, 's') + "\" \"texturename\" \"" + std::string(500, 't') +
           "\" Surface \"matte\" WorldEnd",
       0,
       [&surfaces](RecordingParser& r) {
         String name;
         tokenvalue list;
         if (!r.match(&name)) return false;
         if (++surfaces == 1) failingallocator::failAbove(505);
         return r.match(list, 0) != 0;
       },
       "severe RIB error: generic instance of insufficient memory at line 1 'Surface': Free store "
       "exhausted",
       {"Surface", "Surface", "WorldEnd"},
       1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ReportCollector reports;
    RecordingParser p(c.input);
    int completed = 0;
    if (c.read) p.on(c.ran.front().c_str(), [&](RecordingParser& r) { completed += c.read(r); });
    {
      failingallocator::Scope scope;
      // The failure handler in force before the parse is back after it.
      std::new_handler outside = std::set_new_handler(previousHandler);
      if (c.failAbove != 0) failingallocator::failAbove(c.failAbove);
      p.parseAll();
      failingallocator::disarm();
      EXPECT_EQ(std::set_new_handler(outside), &previousHandler);
    }
    EXPECT_EQ(failingallocator::failures(), 1u);
    EXPECT_EQ(reports.lines(), Names{c.report});
    EXPECT_EQ(p.ranNames(), c.ran);
    EXPECT_EQ(completed, c.completed);
  }
}

}  // namespace
