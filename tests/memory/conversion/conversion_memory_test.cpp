// A whole conversion, as the command line runs it, walked through a failure
// at every allocation in turn. During the statements each failure is reported
// once, in one of the three forms the reader has for it, the conversion goes
// on with the next request and finishes with a scene file of whole records,
// and nothing leaks (the sanitizer build checks that at exit). A failure that
// falls inside a named Ri call ends the process with a severe error instead,
// and only there.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <new>
#include <regex>
#include <string>
#include <vector>

#include "frontend/conversion.h"
#include "tests/memory/conversion/walkallocator.h"
#include "tests/support/files.h"
#include "tests/support/scratchdir.h"
#include "zel/reader/zelreader.h"

namespace {

namespace fs = std::filesystem;
using walkallocator::Outcome;

// Every layer has work here: ASCII and binary tokens, strings and arrays long
// enough to grow their buffers, a declaration, parameter lists of each type, a
// mesh, a light, an object, a request that fails, and the blocks around them.
const char kInput[] =
    "##RenderMan RIB\n"
    "version 3.03\n"
    "Declare \"walkfloat\" \"uniform float\"\n"
    "Option \"limits\" \"bucketsize\" [16 16] \"gridsize\" [32]\n"
    "Format 320 240 1\n"
    "Display \"walk.tif\" \"file\" \"rgba\"\n"
    "Projection \"perspective\" \"fov\" [45]\n"
    "FrameBegin 1\n"
    "Translate 0 0 5\n"
    "WorldBegin\n"
    "LightSource \"distantlight\" 1 \"intensity\" [0.8] \"from\" [0 1 -1] \"to\" [0 0 0]\n"
    "Illuminate 1 1\n"
    "AttributeBegin\n"
    "Color [0.9 0.3 0.2]\n"
    "Surface \"a_shader_with_a_long_name\" \"walkfloat\" [0.25]\n"
    "  \"texturename\" \"a_texture_name_that_is_longer_than_the_buffer.tex\"\n"
    "Sphere 1 -1 1 360\n"
    "AttributeEnd\n"
    "PointsPolygons [3 3 3 3 3] [0 1 2 0 2 3 0 3 4 0 4 1 1 2 3]\n"
    "  \"P\" [0 1 0 1 0 0 0 0 1 -1 0 0 0 0 -1] \"Cs\" [1 0 0 0 1 0 0 0 1 1 1 0 0 1 1]\n"
    "Sphere x\n"
    "ObjectBegin 2\n"
    "Cylinder 1 0 1 360\n"
    "ObjectEnd\n"
    "ObjectInstance 2\n"
    // A binary string definition and its use, then a float array of 16.
    "\xCD\x01\x95"
    "metal\n"
    "Surface \xCF\x01\n"
    "ConcatTransform \xC8\x10"
    "\x3F\x80\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
    "\x00\x00\x00\x00\x3F\x80\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
    "\x00\x00\x00\x00\x00\x00\x00\x00\x3F\x80\x00\x00\x00\x00\x00\x00"
    "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x3F\x80\x00\x00\n"
    "WorldEnd\n"
    "FrameEnd\n";

// The three ways the reader reports exhausted memory: while reading a string
// (15), while storing an array element (1), anywhere else (13).
const std::regex kMemoryReport(
    "severe RIB error: (insufficient memory to read string|insufficient memory to construct "
    "array|generic instance of insufficient memory) at line [0-9]+( '.*')?: Free store exhausted");

// The walk's input file and its output, in a directory of their own.
class scratch : public scratchdir {
 public:
  scratch() { write("in.rib", std::string(kInput, sizeof kInput - 1)); }
  fs::path input() const { return file("in.rib"); }
  fs::path output() const { return file("out.zel"); }
};

struct run {
  std::vector<std::string> log;       // the RIB reports
  std::vector<std::string> messages;  // the Ri layer's and the scene library's
  std::vector<std::string> records;   // the scene file's lines after the header
  std::string unreadable;             // why the scene file did not read back
  conversion::phase phase = conversion::phase::created;
  bool badAllocFromOpen = false;
  uint64_t allocations = 0;  // made by the conversion, from open to the end
  Outcome outcome = Outcome::none;
  std::string riCall;
};

std::vector<std::string> readRecords(const fs::path& p, std::string& unreadable) {
  try {
    readZelFile(p.string());
  } catch (const ZelReadError& e) {
    unreadable = e.what();
  }
  std::vector<std::string> lines = splitLines(readFile(p));
  if (!lines.empty()) lines.erase(lines.begin());  // the header
  return lines;
}

// One conversion, from open to the end, with the allocation chosen by `arm`.
// `echo` copies the Ri layer's and the library's lines to standard error.
template <typename Arm>
run convert(const scratch& files, Arm arm, bool echo = false) {
  run r;
  conversion::request req;
  req.input = files.input().string();
  req.output = files.output().string();
  // A sink copies the line, as the command line's does, and that allocation
  // may fail like any other; keeping the line is the test's own work, which
  // neither counts nor fails.
  req.log = [&r](const char* line) {
    std::string copy = std::string(line) + "\n";
    failingallocator::Pause pause;
    r.log.emplace_back(line);
  };
  req.messages = [&r, echo](const char* line) {
    std::string copy = std::string(line) + "\n";
    failingallocator::Pause pause;
    r.messages.emplace_back(line);
    if (echo) std::fprintf(stderr, "%s\n", line);
  };
  {
    conversion c(std::move(req));
    arm();
    bool opened = false;
    try {
      opened = c.open();
    } catch (const std::bad_alloc&) {
      r.badAllocFromOpen = true;
    }
    if (opened) {
      while (c.step()) {
      }
    }
    failingallocator::disarm();
    r.allocations = failingallocator::count();
    r.phase = c.state();
  }
  r.outcome = walkallocator::outcome();
  r.riCall = walkallocator::riCall();
  failingallocator::Pause pause;
  r.records = readRecords(files.output(), r.unreadable);
  return r;
}

run convertFailingAt(const scratch& files, uint64_t n) {
  return convert(files, [n] { walkallocator::arm(n); });
}

struct walk {
  run baseline;
  std::map<uint64_t, run> runs;              // by the allocation that was chosen
  std::map<std::string, uint64_t> riCalls;   // a named call, and the first allocation in it
  std::map<std::string, int> memoryReports;  // by the report's fixed text
};

// Walks once per process; both tests read the result.
const walk& walkConversion() {
  static walk* w = [] {
    auto* result = new walk;
    scratch files;
    // The dictionary and the library learn the input's names on the first run,
    // so that every later run starts from the same state.
    convertFailingAt(files, 0);
    result->baseline = convertFailingAt(files, 0);
    for (uint64_t n = 1;; ++n) {
      run r = convertFailingAt(files, n);
      if (r.outcome == Outcome::none) break;
      if (r.outcome == Outcome::insideRiCall) result->riCalls.emplace(r.riCall, n);
      result->runs.emplace(n, std::move(r));
    }
    return result;
  }();
  return *w;
}

// The records of `baseline` that `r` lacks or has in other forms: what lies
// between the longest common beginning and the longest common end.
size_t damagedRecords(const run& r, const run& baseline) {
  const auto& a = baseline.records;
  const auto& b = r.records;
  size_t front = 0;
  while (front < a.size() && front < b.size() && a[front] == b[front]) ++front;
  size_t back = 0;
  while (back < a.size() - front && back < b.size() - front &&
         a[a.size() - 1 - back] == b[b.size() - 1 - back]) {
    ++back;
  }
  return std::max(a.size(), b.size()) - front - back;
}

TEST(ConversionMemoryWalk, EveryAllocationFailsInTurnAndTheConversionGoesOn) {
  const walk& w = walkConversion();
  const run& baseline = w.baseline;
  ASSERT_EQ(baseline.phase, conversion::phase::finished);
  ASSERT_TRUE(baseline.unreadable.empty()) << baseline.unreadable;
  ASSERT_EQ(baseline.log, std::vector<std::string>{"RIB error: incorrect parameter value at line "
                                                   "21 'x': Expected at least one float"});
  ASSERT_EQ(baseline.records.back(), "{\"op\":\"FrameEnd\",\"args\":[]}");
  ASSERT_EQ(w.runs.size(), baseline.allocations);

  size_t inOpen = 0, inRiCalls = 0, inStatements = 0;
  std::map<std::string, int> forms;
  for (const auto& [n, r] : w.runs) {
    SCOPED_TRACE("allocation " + std::to_string(n) + " of " + std::to_string(baseline.allocations));
    if (r.outcome == Outcome::insideRiCall) {
      ++inRiCalls;
      continue;
    }
    ASSERT_EQ(r.outcome, Outcome::delivered);
    if (r.badAllocFromOpen) {
      // Before the first statement no handler is in force: the failure is
      // the caller's to meet, and nothing has been read or written.
      ++inOpen;
      EXPECT_TRUE(r.log.empty());
      continue;
    }
    ++inStatements;
    EXPECT_EQ(r.phase, conversion::phase::finished);
    EXPECT_TRUE(r.unreadable.empty()) << r.unreadable;
    int reports = 0;
    for (const std::string& line : r.log) {
      std::smatch m;
      if (!std::regex_match(line, m, kMemoryReport)) continue;
      ++reports;
      ++forms[m[1]];
    }
    EXPECT_EQ(reports, 1) << "the failure is reported once";
    // The request that met the failure is lost, and with it what depended on
    // it (a dropped ObjectBegin leaves its contents outside any object, and
    // its ObjectInstance unknown); every later request is converted.
    EXPECT_EQ(r.records.back(), baseline.records.back());
    EXPECT_LE(damagedRecords(r, baseline), 6u);
    if (HasFailure()) break;
  }
  std::printf(
      "%llu allocations: %zu in open (std::bad_alloc), %zu in statements, %zu inside "
      "named Ri calls\n",
      static_cast<unsigned long long>(baseline.allocations), inOpen, inStatements, inRiCalls);
  EXPECT_GT(inOpen, 0u);
  EXPECT_GT(inRiCalls, 0u);
  EXPECT_GT(forms["insufficient memory to read string"], 0);
  EXPECT_GT(forms["insufficient memory to construct array"], 0);
  EXPECT_GT(forms["generic instance of insufficient memory"], 0);
}

// For each named call that the walk met, the failure is made to happen.
TEST(ConversionMemoryWalkDeathTest, FailureInsideANamedRiCallEndsTheProgramWithASevereError) {
  const walk& w = walkConversion();
  ASSERT_FALSE(w.riCalls.empty());
  scratch files;
  for (const auto& [call, n] : w.riCalls) {
    SCOPED_TRACE(call);
    const uint64_t at = n;
    EXPECT_DEATH(convert(
                     files, [at] { failingallocator::failNth(at); }, true),
                 "severe error: Out of memory\\. " + call + ": free store exhausted");
  }
}

}  // namespace
