// Standard output that fails in the middle of a conversion: the failure is
// told once, however many records follow, and the command line ends with
// status 2. (A scene file that fails keeps its whole records: see the ways out
// in tests/frontend/rib2zel_interrupt_test.cpp.)
#include <gtest/gtest.h>

#include <string>

#include "tests/hostile/childrun.h"

namespace {

TEST(OutputFaults, StandardOutputOnAFullDeviceIsToldOnce) {
  // About 2.5 MB of records, far more than the device takes.
  const auto manySpheres = [](feeder& f) { f.repeat("Sphere 1 -1 1 360\n", 50000); };
  const childresult r = runchild({{"-", "-"}, manySpheres, "/dev/full"});
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.errLines, std::vector<std::string>{"ZEL severe error: cannot write the scene file "
                                                 "\"standard output\": No space left on device"});
}

}  // namespace
