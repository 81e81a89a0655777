// Running time stays linear in the size of the input, the log included: each
// input is converted at two sizes, four times apart, and the larger may take
// about four times the processor time of the smaller, not sixteen.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>

#include "tests/hostile/childrun.h"

namespace {

struct growingcase {
  const char* what;
  uint64_t n;  // the smaller size; the larger is 4n
  std::function<void(feeder&, uint64_t)> input;
  bool extended = false;  // read with rib2zel --extended
};

double cpuFor(const growingcase& c, uint64_t n) {
  std::vector<std::string> args{"--parse-only", "-"};
  if (c.extended) args.insert(args.begin(), "--extended");
  const childresult r = runchild({args, [&c, n](feeder& f) { c.input(f, n); }});
  EXPECT_TRUE(r.status == 0 || r.status == 1) << "status " << r.status;
  return r.cpuSeconds;
}

TEST(LinearTime, FourTimesTheInputTakesAboutFourTimesAsLong) {
  const growingcase cases[] = {
      // Each is refused with a message: the log grows by a line a request.
      {"bad requests", 100000, [](feeder& f, uint64_t n) { f.repeat("Sphere x\n", n); }},
      // Every light is filed in the bucket of light 0, which is then looked up.
      {"lights in one bucket", 25000,
       [](feeder& f, uint64_t n) {
         f << "WorldBegin\nLightSource \"pointlight\" 0\n";
         for (uint64_t i = 0; i < n; ++i)
           f << "LightSource \"pointlight\" " + std::to_string(111 * (1 + i % 590)) + "\n";
         f.repeat("Illuminate 0 1\n", n);
       }},
      {"nested blocks", 100000,
       [](feeder& f, uint64_t n) {
         f << "WorldBegin\n";
         f.repeat("AttributeBegin\nTransformBegin\n", n);
         f.repeat("TransformEnd\nAttributeEnd\n", n);
       }},
      {"objects", 25000,
       [](feeder& f, uint64_t n) {
         f.repeat("ObjectBegin 3\nSphere 1 -1 1 360\nObjectEnd\nObjectInstance 3\n", n);
       }},
      {"parameters of one request", 10000,
       [](feeder& f, uint64_t n) {
         f << "Surface \"plastic\" ";
         f.repeat("\"Ka\" 1 ", n);
         f << "\nPolygon \"P\" [0 0 0 1 0 0 1 1 0] ";
         f.repeat("\"Cs\" [1 0 0 0 1 0 0 0 1] ", n);
       }},
      {"binary string definitions", 50000,
       [](feeder& f, uint64_t n) {
         for (uint64_t i = 0; i < n; ++i) {
           const unsigned index = i % 65536;
           f << std::string{'\xCE', static_cast<char>(index >> 8), static_cast<char>(index & 0xFF),
                            '\x93'}
             << "abcSurface \xD0" +
                    std::string{static_cast<char>(index >> 8), static_cast<char>(index & 0xFF)} +
                    "\n";
         }
       }},
      {"plays of an inline archive", 100000,
       [](feeder& f, uint64_t n) {
         f << "ArchiveBegin \"a\" Translate 1 0 0 Sphere 1 -1 1 360 ArchiveEnd\n";
         f.repeat("ReadArchive \"a\"\n", n);
       },
       true},
  };
  for (const growingcase& c : cases) {
    SCOPED_TRACE(c.what);
    const uint64_t n = c.n / kSlowBuildDivisor;
    const double small = cpuFor(c, n);
    const double large = cpuFor(c, 4 * n);
    std::printf("%-28s n %7llu: %.2f s   4n: %.2f s\n", c.what, static_cast<unsigned long long>(n),
                small, large);
    // A start-up cost common to both lowers the ratio; the slack covers the
    // clock's granularity on small runs.
    EXPECT_LE(large, 8 * small + 0.1);
  }
}

}  // namespace
