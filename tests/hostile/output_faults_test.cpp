// An output that fails in the middle of a conversion: the failure is told
// once, however many records follow, the command line ends with status 2, and
// a scene file keeps the whole records written before it.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/hostile/childrun.h"
#include "tests/support/scratchdir.h"
#include "zel/reader/zelreader.h"

namespace {

namespace fs = std::filesystem;

// About 2.5 MB of records, far more than the output is given room for.
void manySpheres(feeder& f) {
  f << "WorldBegin\n";
  f.repeat("Sphere 1 -1 1 360\n", 50000);
  f << "WorldEnd\n";
}

TEST(OutputFaults, AFileThatReachesItsSizeLimitKeepsWholeRecords) {
  scratchdir dir;
  const std::string out = dir.file("scene.zel").string();
  constexpr rlim_t kLimit = 256 * 1024;
  const childresult r = runchild({{"-", out}, manySpheres, "/dev/null", kLimit});
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.errLines,
            std::vector<std::string>{"ZEL severe error: cannot write the scene file \"" + out +
                                     "\": File too large"});
  // Cut back to the last whole line of what did fit.
  const auto size = fs::file_size(out);
  EXPECT_GT(size, 0u);
  EXPECT_LE(size, kLimit);
  std::ifstream in(out, std::ios::binary);
  ZelReader reader(in);
  ZelRecord record;
  size_t spheres = 0;
  EXPECT_NO_THROW({
    while (reader.next(record)) spheres += record.op == "SphereV";
  });
  EXPECT_GT(spheres, 1000u);
}

TEST(OutputFaults, StandardOutputOnAFullDeviceIsToldOnce) {
  const childresult r = runchild({{"-", "-"}, manySpheres, "/dev/full"});
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.errLines, std::vector<std::string>{"ZEL severe error: cannot write the scene file "
                                                 "\"standard output\": No space left on device"});
}

}  // namespace
