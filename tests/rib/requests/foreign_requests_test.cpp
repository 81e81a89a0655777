// Requests that other programs write but this converter does not know: each is
// reported with the line its scan began on and skipped with its arguments, and
// the known requests around it convert as if it were not there.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/rib/requests/conversion.h"

namespace {

using Lines = std::vector<std::string>;
using Ops = std::vector<std::string>;

TEST(ForeignRequests, EachBetweenKnownRequestsIsReportedAndSkipped) {
  Conversion c = convert(
      "##RenderMan RIB\n"
      "##Include header.rib\n"
      "WorldBegin\n"
      "ReadArchive \"props.rib\"\n"
      "Sphere 1 -1 1 360\n"
      "Procedural \"DelayedReadArchive\" [\"tree.rib\"] [-1 1 -1 1 -1 1]\n"
      "Identity\n"
      "Points \"P\" [0 0 0 1 1 1] \"width\" [0.1]\n"
      "Identity\n"
      "Curves \"cubic\" [4] \"nonperiodic\" \"P\" [0 0 0 1 1 1 2 2 2 3 3 3]\n"
      "Identity\n"
      "SubdivisionMesh \"catmull-clark\" [4] [0 1 2 3] [\"interpolateboundary\"] [0 0] [] []\n"
      "  \"P\" [0 0 0 1 0 0 1 1 0 0 1 0]\n"
      "Identity\n"
      "Blobby 1 [1001 0] [1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1] [\"\"]\n"
      "Disk 0 1 360\n"
      "WorldEnd\n");
  EXPECT_EQ(c.log, (Lines{
                       "RIB error: undefined RIB request at line 3 'ReadArchive'",
                       "RIB error: undefined RIB request at line 5 'Procedural'",
                       "RIB error: undefined RIB request at line 7 'Points'",
                       "RIB error: undefined RIB request at line 9 'Curves'",
                       "RIB error: undefined RIB request at line 11 'SubdivisionMesh'",
                       "RIB error: undefined RIB request at line 14 'Blobby'",
                   }));
  EXPECT_EQ(c.ops(), (Ops{"SceneBegin", "SphereV", "LoadIdentity", "LoadIdentity", "LoadIdentity",
                          "LoadIdentity", "DiskV", "SceneEnd"}));
}

// Recovery passes over every word it does not know, so a run of foreign
// requests costs one report, for the first of them.
TEST(ForeignRequests, ARunOfThemIsReportedOnce) {
  Conversion c = convert(
      "WorldBegin\n"
      "ArchiveBegin \"piece\"\n"
      "ReadArchive \"a.rib\"\n"
      "ArchiveEnd\n"
      "Disk 0 1 360\n"
      "WorldEnd\n");
  EXPECT_EQ(c.log, (Lines{"RIB error: undefined RIB request at line 1 'ArchiveBegin'"}));
  EXPECT_EQ(c.ops(), (Ops{"SceneBegin", "DiskV", "SceneEnd"}));
}

}  // namespace
