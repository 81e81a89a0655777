// Quadrics, Geometry, objects and motion blocks.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/rib/requests/conversion.h"

namespace {

using Lines = std::vector<std::string>;
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

TEST(QuadricRequests, BareAndBracketedNumbersMakeTheSameCall) {
  Conversion c = convert("Sphere 1 -1 1 360 Sphere [1 -1 1 360]");
  std::vector<ZelRecord> spheres = c.records("SphereV");
  ASSERT_EQ(spheres.size(), 2u);
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(spheres[0].args.at(i).asFloat(), spheres[1].args.at(i).asFloat());
  }
}

TEST(QuadricRequests, AFifthBareNumberIsLeftForTheNextStatement) {
  Conversion c = convert("Sphere 1 -1 1 360 0 WorldBegin");
  EXPECT_EQ(c.ops(), (Ops{"SphereV", "SceneBegin"}));
  EXPECT_EQ(c.log, (Lines{"RIB error: general syntactic error at line 1 '0': Expected Keyword"}));

  Conversion bracketed = convert("Sphere [1 -1 1 360 0] WorldBegin");
  EXPECT_EQ(bracketed.ops(), (Ops{"SceneBegin"}));
  EXPECT_EQ(bracketed.log, (Lines{"RIB error: general syntactic error at line 1 '0': "
                                  "Expected character ']'"}));
}

TEST(QuadricRequests, AVaryingColourWantsFourValues) {
  Conversion c = convert("Sphere 1 -1 1 360 \"Cs\" [1 0 0]");
  EXPECT_EQ(c.log, (Lines{"RIB error: invalid color specification at line 1 '0': "
                          "4 items expected for parameter 'Cs'"}));
  EXPECT_TRUE(c.ops().empty());
}

TEST(QuadricRequests, HyperboloidPassesItsTwoPointsAndSweep) {
  Conversion c = convert("Hyperboloid 1 0 0 1 1 1 360");
  const ZelRecord h = c.only("HyperboloidV");
  EXPECT_EQ(h.args.at(0).asFloats(), (std::vector<float>{1, 0, 0}));
  EXPECT_EQ(h.args.at(1).asFloats(), (std::vector<float>{1, 1, 1}));
  EXPECT_EQ(h.args.at(2).asFloat(), 360.0f);
}

TEST(QuadricRequests, BinaryAndAsciiEncodingsMakeTheSameSphere) {
  // Request code 0 defined as Sphere, then used, then four IEEE floats.
  const std::string binary =
      "\xCC\x00Sphere\xA6\x00\xC8\x04"
      "\x3F\x80\x00\x00\xBF\x80\x00\x00\x3F\x80\x00\x00\x43\xB4\x00\x00"s;
  Conversion c = convert(binary + " Sphere 1 -1 1 360");
  EXPECT_TRUE(c.log.empty());
  std::vector<ZelRecord> spheres = c.records("SphereV");
  ASSERT_EQ(spheres.size(), 2u);
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(spheres[0].args.at(i).asFloat(), spheres[1].args.at(i).asFloat());
  }
}

// Inside a motion block only the first motion-sensitive call takes effect, so
// a sphere that follows a request in the block shows whether that request
// reached its Ri call.
bool reachedItsCall(const std::string& request) {
  Conversion c = convert("MotionBegin [0 1] " + request + " Sphere 1 -1 1 360 MotionEnd");
  return c.records("SphereV").empty();
}

TEST(GeometryRequests, AGeometryTypeMustBeDeclaredAndIsThenPassedOnWithAnyList) {
  EXPECT_FALSE(reachedItsCall("Geometry \"kettle\" \"Cs\" [1 0 0]"));
  EXPECT_TRUE(reachedItsCall("Declare \"kettle\" \"string\" Geometry \"kettle\" \"Cs\" [1 0 0]"));
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

TEST(ObjectRequests, MinusOneIsObject65535WithoutALeapWarning) {
  Conversion c = convert("ObjectBegin -1 ObjectEnd ObjectInstance 65535");
  EXPECT_EQ(c.log, (Lines{"RIB error: invalid light or object handle at line 1 'ObjectEnd': "
                          "Object handle -1 is not in range 0 - 65535"}));
  EXPECT_EQ(c.records("ObjectCall").size(), 1u);
}

TEST(ObjectRequests, TheNewestObjectOfANumberIsTheOneCalled) {
  Conversion c = convert("ObjectBegin 2 ObjectEnd ObjectBegin 2 ObjectEnd ObjectInstance 2");
  std::vector<ZelRecord> objects = c.records("ObjectBegin");
  ASSERT_EQ(objects.size(), 2u);
  EXPECT_EQ(c.only("ObjectCall").args.at(0).asInt(), objects[1].handle.value_or(-1));
}

TEST(ObjectRequests, AnUnknownObjectIsAWarningAndTheNextRequestIsRead) {
  Conversion c = convert("ObjectInstance 9 WorldBegin");
  EXPECT_EQ(c.log, (Lines{"RIB warning: invalid light or object handle at line 1 'WorldBegin': "
                          "Unknown object handle 9"}));
  EXPECT_EQ(c.ops(), (Ops{"SceneBegin"}));
}

TEST(MotionRequests, TimesMustStandInBrackets) {
  Conversion c = convert("MotionBegin 0.5 MotionBegin [] WorldBegin");
  EXPECT_EQ(c.log,
            (Lines{"RIB error: general syntactic error at line 1 '0.5': Expected character '['",
                   "RIB error: incorrect parameter value at line 1 'MotionBegin': "
                   "Expected at least one float"}));

  // A block of one time opens like any other: the colour takes its place.
  Conversion one = convert("MotionBegin [0.5] Color [1 0 0] Sphere 1 -1 1 360 MotionEnd");
  EXPECT_EQ(one.ops(), (Ops{"Color"}));
}

}  // namespace
