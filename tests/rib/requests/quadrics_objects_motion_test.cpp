// Quadrics, Geometry, objects and motion blocks.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/rib/requests/requesttable.h"

namespace {

using Ops = std::vector<std::string>;
using namespace std::string_literals;

struct QuadricCase {
  const char* request;
  const char* op;
  int count;  // numbers the request takes
};

void PrintTo(const QuadricCase& c, std::ostream* os) {
  *os << c.request;
}

class Quadrics : public testing::TestWithParam<QuadricCase> {};

std::string firstNumbers(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += " " + std::to_string(i);
  return text;
}

TEST_P(Quadrics, TakeTheirNumbersAndOneValuePerCornerForVaryingParameters) {
  const QuadricCase& t = GetParam();
  const std::string numbers = firstNumbers(t.count);
  Conversion c = convert(t.request + numbers + " \"Cs\" [1 0 0 0 1 0 0 0 1 1 1 1]");
  EXPECT_TRUE(c.log.empty());
  EXPECT_EQ(c.records(t.op).size(), 1u);

  Conversion shortOne = convert(t.request + firstNumbers(t.count - 1) + " WorldBegin");
  EXPECT_EQ(shortOne.log,
            (Lines{"RIB error: incorrect parameter value at line 1 'WorldBegin': Expected " +
                   std::to_string(t.count) + " floats"}));
  EXPECT_EQ(shortOne.ops(), (Ops{"SceneBegin"}));
}

INSTANTIATE_TEST_SUITE_P(AllSeven, Quadrics,
                         testing::Values(QuadricCase{"Sphere", "SphereV", 4},
                                         QuadricCase{"Cone", "ConeV", 3},
                                         QuadricCase{"Cylinder", "CylinderV", 4},
                                         QuadricCase{"Hyperboloid", "HyperboloidV", 7},
                                         QuadricCase{"Paraboloid", "ParaboloidV", 4},
                                         QuadricCase{"Disk", "DiskV", 3},
                                         QuadricCase{"Torus", "TorusV", 5}));

// Each RIB text with the whole report lines and the records it gives.
TEST(QuadricObjectMotionRequests, ReportsAndRecordsOfEachRequest) {
  // Request code 0 defined as Sphere, then used, then four IEEE floats.
  const std::string binarySphere =
      "\xCC\x00Sphere\xA6\x00\xC8\x04"
      "\x3F\x80\x00\x00\xBF\x80\x00\x00\x3F\x80\x00\x00\x43\xB4\x00\x00"s;
  expectEach({
      {"Sphere 1 -1 1 360 Sphere [1 -1 1 360]", {}, {"SphereV 1 -1 1 360", "SphereV 1 -1 1 360"}},
      {binarySphere + " Sphere 1 -1 1 360", {}, {"SphereV 1 -1 1 360", "SphereV 1 -1 1 360"}},
      // A fifth bare number is left for the next statement.
      {"Sphere 1 -1 1 360 0 WorldBegin",
       {"RIB error: general syntactic error at line 1 '0': Expected Keyword"},
       {"SphereV 1 -1 1 360", "SceneBegin"}},
      {"Sphere [1 -1 1 360 0] WorldBegin",
       {"RIB error: general syntactic error at line 1 '0': Expected character ']'"},
       {"SceneBegin"}},
      {"Sphere 1 -1 1 360 \"Cs\" [1 0 0]",
       {"RIB error: invalid color specification at line 1 '0': 4 items expected for parameter "
        "'Cs'"},
       {}},
      {"Hyperboloid 1 0 0 1 1 1 360", {}, {"HyperboloidV [1,0,0] [1,1,1] 360"}},
      // Inside a motion block only the first motion-sensitive call takes
      // effect, so a sphere after a Geometry shows whether it reached its call:
      // a type must be declared and is then passed on with any list.
      {"MotionBegin [0 1] Geometry \"kettle\" \"Cs\" [1 0 0] Sphere 1 -1 1 360 MotionEnd",
       {},
       {"SphereV 1 -1 1 360"}},
      {"Declare \"kettle\" \"string\"\n"
       "MotionBegin [0 1] Geometry \"kettle\" \"Cs\" [1 0 0] Sphere 1 -1 1 360 MotionEnd",
       {},
       {}},
      // -1 is object 65535, without a leap warning.
      {"ObjectBegin -1 ObjectEnd ObjectInstance 65535",
       {"RIB error: invalid light or object handle at line 1 'ObjectEnd': Object handle -1 is not "
        "in range 0 - 65535"},
       {"ObjectBegin", "ObjectEnd", "ObjectCall 1"}},
      // An unknown object is a warning, and the next request is read.
      {"ObjectInstance 9 WorldBegin",
       {"RIB warning: invalid light or object handle at line 1 'WorldBegin': Unknown object "
        "handle 9"},
       {"SceneBegin"}},
      // Times must stand in brackets.
      {"MotionBegin 0.5 MotionBegin [] WorldBegin",
       {"RIB error: general syntactic error at line 1 '0.5': Expected character '['",
        "RIB error: incorrect parameter value at line 1 'MotionBegin': Expected at least one "
        "float"},
       {"SceneBegin"}},
      // A block of one time opens like any other: the colour takes its place.
      {"MotionBegin [0.5] Color [1 0 0] Sphere 1 -1 1 360 MotionEnd", {}, {"Color [1,0,0]"}},
  });
}

TEST(ObjectRequests, ANumberOutOfRangeIsFiledUnderItsLow16Bits) {
  for (const char* found : {"4464", "70000"}) {
    Conversion c = convert("ObjectBegin 70000 ObjectEnd ObjectInstance "s + found);
    EXPECT_EQ(c.log, (Lines{"RIB error: invalid light or object handle at line 1 'ObjectEnd': "
                            "Object handle 70000 is not in range 0 - 65535",
                            "RIB warning: invalid light or object handle at line 1 'ObjectEnd': "
                            "Object handle 70000 is signficantly larger than previous 0"}));
    EXPECT_EQ(c.only("ObjectCall").args.at(0).asInt(), c.only("ObjectBegin").handle.value_or(-1));
  }
}

TEST(ObjectRequests, TheNewestObjectOfANumberIsTheOneCalled) {
  Conversion c = convert("ObjectBegin 2 ObjectEnd ObjectBegin 2 ObjectEnd ObjectInstance 2");
  std::vector<ZelRecord> objects = c.records("ObjectBegin");
  ASSERT_EQ(objects.size(), 2u);
  EXPECT_EQ(c.only("ObjectCall").args.at(0).asInt(), objects[1].handle.value_or(-1));
}

}  // namespace
