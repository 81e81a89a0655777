// Sizes that an input can name or build up, and what they may cost. A count
// in the input never makes rib2zel allocate more than the input itself
// supplies; a token of 100 MB is read; a million nested blocks or light
// handles cost memory in proportion at most. Each test prints the peak
// resident memory it observed above that of an empty conversion.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>

#include "tests/hostile/childrun.h"
#include "tests/support/files.h"
#include "tests/support/scratchdir.h"

namespace {

constexpr long kMB = 1024;  // in the KB of ru_maxrss

// What an empty conversion's peak may vary by from run to run. The address
// sanitizer's allocator holds freed blocks in quarantine and pads every one,
// so a run that frees and allocates a token buffer a few times shows more.
#ifdef __SANITIZE_ADDRESS__
constexpr long kNoiseKB = 4 * kMB;
#else
constexpr long kNoiseKB = 1 * kMB;
#endif

long growthKB(const childresult& r) {
  return r.peakKB - baselinePeakKB();
}

void reportPeak(const std::string& what, const childresult& r) {
  std::printf("%-44s input %9.1f KB  peak +%7ld KB  cpu %.2f s\n", what.c_str(),
              r.inputBytes / 1024.0, growthKB(r), r.cpuSeconds);
  ::testing::Test::RecordProperty(what + " peak growth KB", std::to_string(growthKB(r)));
}

childresult parseOnly(const std::string& input) {
  return runchild({{"--parse-only", "-"}, [input](feeder& f) { f << input; }});
}

struct countcase {
  const char* what;
  std::string input;
};

// Each input names a size of about two thousand million, or the largest its
// field can hold, and supplies a few bytes of it.
TEST(HostileSizes, CountsInTheInputAllocateNoMoreThanTheInputSupplies) {
  const countcase cases[] = {
      {"binary float array of 2^32-1 floats",
       std::string("ConcatTransform \xCB\xFF\xFF\xFF\xFF\x3F\x80\x00\x00\n")},
      {"binary string of 2^32-1 bytes", std::string("Surface \xA3\xFF\xFF\xFF\xFF") + "abc"},
      {"request code 255", std::string("\xCC\xFF") + "WorldBegin \xA6\xFF\n"},
      {"array with a stated length",
       "ColorSamples 2000000000 [1 0 0] [0 1 0]\nColor [1 2 3]\nBasis \"bezier\" 2000000000 "
       "\"bezier\" 2000000000\n"},
      {"vertex index", "PointsPolygons [3] [0 1 2000000000] \"P\" [0 0 0 1 0 0 1 1 0]\n"},
      {"vertex count", "PointsPolygons [2000000000] [0 1 2] \"P\" [0 0 0 1 0 0 1 1 0]\n"},
      {"loop count",
       "PointsGeneralPolygons [2000000000] [3] [0 1 2] \"P\" [0 0 0]\n"
       "GeneralPolygon [2000000000] \"P\" [0 0 0]\n"},
      {"patch mesh nu and nv",
       "PatchMesh \"bilinear\" 2000000000 \"nonperiodic\" 2000000000 \"nonperiodic\" \"P\" [0 0 "
       "0]\nPatchMesh \"bicubic\" 65536 \"periodic\" 65536 \"periodic\" \"P\" [0 0 0]\n"},
      {"NURBS patch and trim curve counts",
       "NuPatch 2000000000 2 [0 0 1 1] 0 1 2 2 [0 0 1 1] 0 1 \"Pw\" [0 0 0 1]\n"
       "TrimCurve [2000000000] [2] [0 0 1 1] [0] [1] [2] [0 1] [0 1] [1 1]\n"},
      {"light and object numbers",
       "LightSource \"pointlight\" 2000000000\nIlluminate 2000000000 1\nObjectBegin "
       "2000000000\nObjectEnd\nObjectInstance 2000000000\n"},
      {"image size", "Format 2000000000 2000000000 1\nPixelSamples 2000000000 2000000000\n"},
  };
  for (const countcase& c : cases) {
    SCOPED_TRACE(c.what);
    const childresult r = parseOnly("WorldBegin\n" + c.input + "WorldEnd\n");
    reportPeak(c.what, r);
    EXPECT_TRUE(r.status == 0 || r.status == 1) << "status " << r.status;
    EXPECT_LE(growthKB(r), kNoiseKB);
  }
}

// 100,000 binary string definitions that cycle through 4,096 indices from
// `first` upwards.
childresult defineStrings(unsigned first) {
  return runchild({{"--parse-only", "-"}, [first](feeder& f) {
                     for (int i = 0; i < 100000; ++i) {
                       const unsigned index = first + i % 4096;
                       f << std::string{'\xCE', static_cast<char>(index >> 8),
                                        static_cast<char>(index & 0xFF), '\x93'}
                         << "abc";
                     }
                   }});
}

// The string index has 16 bits. Indices defined far past the highest so far
// are kept aside, so a high index costs what a low one does: its definition.
TEST(HostileSizes, AHighStringIndexCostsOnlyItsDefinition) {
  const childresult once =
      parseOnly(std::string("\xCE\xFF\xFF\x93") + "abc" + "Surface \xD0\xFF\xFF\n");
  reportPeak("string index 65535", once);
  EXPECT_EQ(once.status, 0);
  EXPECT_LE(growthKB(once), kNoiseKB);
  const childresult low = defineStrings(0);
  const childresult high = defineStrings(65535 - 4095);
  reportPeak("100,000 definitions of the lowest 4,096", low);
  reportPeak("100,000 definitions of the highest 4,096", high);
  EXPECT_EQ(low.status, 0);
  EXPECT_EQ(high.status, 0);
  EXPECT_LE(growthKB(high), growthKB(low) + kNoiseKB);
}

// A token keeps at most 64 KB of its text, however long it runs: a string
// reaches the Ri layer cut to what a String holds, a keyword is undefined, a
// number has the value of its whole text; the requests behind them run.
TEST(HostileSizes, AHundredMegabyteTokenCostsAFixedAmount) {
  constexpr uint64_t kBlocks = (100ull << 20) / 4096;
  const struct {
    const char* what;
    std::string before, block, after;
    int status;
    std::vector<std::string> errLines;
  } tokens[] = {
      {"a string of 100 MB", "Surface \"", std::string(4096, 'a'), "\"", 0, {"Success."}},
      {"a keyword of 100 MB",
       "",
       std::string(4096, 'K'),
       "",
       1,
       {"RIB error: undefined RIB request at line 1", "There are warning/error messages."}},
      {"a number of 100 MB", "Sphere 1 -1 0.", std::string(4096, '0'), "1 360", 0, {"Success."}},
  };
  for (const auto& t : tokens) {
    const childresult r = runchild({{"--parse-only", "-"}, [&t](feeder& f) {
                                      f << t.before;
                                      f.repeat(t.block, kBlocks);
                                      f << t.after + "\nWorldBegin\nSphere 1 -1 1 360\nWorldEnd\n";
                                    }});
    reportPeak(t.what, r);
    EXPECT_EQ(r.status, t.status) << t.what;
    EXPECT_EQ(r.errLines, t.errLines) << t.what;
    EXPECT_LE(growthKB(r), kNoiseKB) << t.what;
  }
}

// A million nested blocks, or light handles (a quarter of them in the
// sanitizer build: still four times the numbers), cost memory in proportion.
TEST(HostileSizes, AMillionBlocksOrLightHandlesCostMemoryInProportion) {
  constexpr int kDepth = 1000000;
  const int lights = 1000000 / kSlowBuildDivisor;
  const struct {
    std::string what;
    std::function<void(feeder&)> body;  // between WorldBegin and WorldEnd
    long boundKB;
  } cases[] = {
      // A level may cost a few bytes of bookkeeping, never a copy of the state.
      {"a million nested AttributeBegin",
       [](feeder& f) {
         f.repeat("AttributeBegin\n", kDepth);
         f << "Sphere 1 -1 1 360\n";
         f.repeat("AttributeEnd\n", kDepth);
       },
       16 * kDepth / 1024},
      // Numbers run to 65,535, so the tables hold at most that many entries (a
      // number used again takes its new handle in place), at a few dozen bytes
      // each, sanitizer's margins included; the scene library keeps only a count.
      {std::to_string(lights) + " light handles",
       [lights](feeder& f) {
         for (int i = 0; i < lights; ++i)
           f << "LightSource \"pointlight\" " + std::to_string(i % 65536) + "\n";
         f << "Illuminate 1 1\n";
       },
       128 * 65536 / 1024},
  };
  for (const auto& c : cases) {
    const childresult r = runchild({{"--parse-only", "-"}, [&c](feeder& f) {
                                      f << "WorldBegin\n";
                                      c.body(f);
                                      f << "WorldEnd\n";
                                    }});
    reportPeak(c.what, r);
    EXPECT_EQ(r.status, 0) << c.what;
    EXPECT_EQ(r.errLines, std::vector<std::string>{"Success."}) << c.what;
    EXPECT_LE(growthKB(r), c.boundKB + kNoiseKB) << c.what;
  }
}

// The same token with the free store limited to less than the token's
// length: only its first 65,535 bytes are kept, so it fits, and the whole
// file converts.
TEST(HostileSizes, ATokenBeyondTheMemoryLimitIsReadInBoundedMemory) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer's own reservations do not fit a data limit";
#endif
  const scratchdir dir;
  const std::string out = dir.file("out.zel").string();
  childoptions options{{"-", out}, [](feeder& f) {
                         f << "Surface \"";
                         f.repeat(std::string(4096, 'a'), (100ull << 20) / 4096);
                         f << "\"\nWorldBegin\nSphere 1 -1 1 360\nWorldEnd\n";
                       }};
  options.dataLimit = 64ull << 20;
  const childresult r = runchild(options);
  reportPeak("a string of 100 MB in 64 MB of data", r);
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.errLines, std::vector<std::string>{"Success."});
  EXPECT_NE(readFile(out).find("{\"op\":\"SphereV\""), std::string::npos);
}

// Every new name (a shader, a coordinate system) gets a code from the scene
// library and a record in the dictionary. The library has 61,184 codes; a
// name beyond them is told about and then kept nowhere, so that a stream of
// new names cannot grow the dictionary, or the time of each lookup in it,
// without end.
TEST(HostileSizes, NamesBeyondTheLibrarysCodesAreNotKept) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "62,000 names, each a walk through a dictionary bucket of hundreds, take too "
                  "long under the sanitizer";
#endif
  auto names = [](int n) {
    return [n](feeder& f) {
      f << "WorldBegin\n";
      for (int i = 0; i < n; ++i) f << "Surface \"s" + std::to_string(i) + "\"\n";
    };
  };
  const childresult full = runchild({{"--parse-only", "-"}, names(62000)});
  const childresult beyond = runchild({{"--parse-only", "-"}, names(92000)});
  reportPeak("62,000 new names", full);
  reportPeak("92,000 new names", beyond);
  EXPECT_EQ(beyond.status, 0);
  EXPECT_EQ(beyond.errLines.front(),
            "ZEL error: no code left for the name \"s61184\": all 61184 codes are in use");
  EXPECT_EQ(beyond.errLineCount, 92000u - 61184u + 1);
  EXPECT_LE(beyond.peakKB - full.peakKB, kNoiseKB);
}

}  // namespace
