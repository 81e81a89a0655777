// Standard output that fails in the middle of a conversion: the failure is
// told once, however many records follow, and the command line ends with
// status 2. (A scene file that fails keeps its whole records: see the ways out
// in tests/frontend/rib2zel_interrupt_test.cpp.)
#include <gtest/gtest.h>

#include <string>

#include "tests/support/childprocess.h"
#include "tests/support/files.h"
#include "tests/support/scratchdir.h"

namespace {

TEST(OutputFaults, StandardOutputOnAFullDeviceIsToldOnce) {
  scratchdir dir;
  std::string spheres;
  // About 2.5 MB of records, far more than the device takes.
  for (int i = 0; i < 50000; ++i) spheres += "Sphere 1 -1 1 360\n";
  const std::string input = dir.write("spheres.rib", spheres).string();
  const std::string errors = dir.file("errors.txt").string();
  EXPECT_EQ(runprogram({{RIB2ZEL_PATH, "-", "-"}, input, "/dev/full", errors}), 2);
  EXPECT_EQ(splitLines(readFile(errors)),
            std::vector<std::string>{"ZEL severe error: cannot write the scene file "
                                     "\"standard output\": No space left on device"});
}

}  // namespace
