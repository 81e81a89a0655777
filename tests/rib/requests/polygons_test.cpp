// Polygon requests: the counts derived from the arrays and "P", and the lists
// held to them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/rib/requests/conversion.h"

namespace {

using Lines = std::vector<std::string>;
using Ops = std::vector<std::string>;

std::string points(int count) {
  return "\"P\" " + numbers(3 * count);
}

TEST(PolygonRequests, APolygonHasAsManyVerticesAsPHoldsPoints) {
  Conversion c = convert("Polygon " + points(5));
  EXPECT_TRUE(c.log.empty());
  EXPECT_EQ(c.only("PolygonV").args.at(0).asInt(), 5);
  EXPECT_EQ(c.only("PolygonV").params.at(0).count, 15);
}

TEST(PolygonRequests, APolygonWithoutPIsRefusedWithoutSkipping) {
  Conversion c = convert("Polygon \"Pw\" " + numbers(12) + " WorldBegin");
  EXPECT_EQ(c.log, (Lines{"RIB error: incorrect parameter value at line 1 'WorldBegin': "
                          "'P' argument is required"}));
  EXPECT_EQ(c.ops(), (Ops{"SceneBegin"}));
}

TEST(PolygonRequests, AVaryingColourMustHaveOneValuePerVertex) {
  Conversion c = convert("Polygon " + points(3) + " \"Cs\" [1 0 0]");
  EXPECT_EQ(c.log, (Lines{"RIB error: invalid color specification at line 1 '0': "
                          "3 items expected for parameter 'Cs'"}));
  EXPECT_TRUE(c.records("PolygonV").empty());
}

TEST(PolygonRequests, GeneralPolygonNeedsThePointsOfAllItsLoops) {
  Conversion good = convert("GeneralPolygon [4 3] " + points(7));
  EXPECT_TRUE(good.log.empty());
  EXPECT_EQ(good.only("GeneralPolygonV").args.at(1).asInts(), (std::vector<int64_t>{4, 3}));

  Conversion bad = convert("GeneralPolygon [4 3] " + points(6));
  EXPECT_EQ(bad.log, (Lines{"RIB error: invalid array specification at line 1 '17.000000': "
                            "7 items expected for parameter 'P'"}));
  EXPECT_TRUE(bad.records("GeneralPolygonV").empty());
}

TEST(PolygonRequests, PointsPolygonsCountsPointsFromTheHighestIndex) {
  Conversion enough = convert("PointsPolygons [3] [0 1 7] " + points(8));
  EXPECT_TRUE(enough.log.empty());
  EXPECT_EQ(enough.only("PolygonMeshV").args.at(0).asInt(), 1);

  Conversion used = convert("PointsPolygons [3] [0 1 7] " + points(3));
  EXPECT_EQ(used.log, (Lines{"RIB error: invalid array specification at line 1 '8.000000': "
                             "8 items expected for parameter 'P'"}));
  EXPECT_TRUE(used.records("PolygonMeshV").empty());
}

TEST(PolygonRequests, PointsPolygonsTakesOneBarePolygonCountButBracketedIndices) {
  Conversion c = convert("PointsPolygons 3 [0 1 2] " + points(3) +
                         "\nPointsPolygons [3 3] [0 1 2 0 2] " + points(4));
  EXPECT_EQ(c.log, (Lines{"RIB error: incorrect parameter value at line 2 '2': "
                          "Expected 6 ints"}));
  EXPECT_EQ(c.records("PolygonMeshV").size(), 1u);
}

TEST(PolygonRequests, UniformParametersCountPolygons) {
  Conversion c = convert("PointsPolygons [2 2] [0 1 1 2] " + points(3) + " \"Np\" " + numbers(6));
  EXPECT_TRUE(c.log.empty());
  EXPECT_EQ(c.only("PolygonMeshV").params.size(), 2u);
}

TEST(PolygonRequests, PointsGeneralPolygonsSumsLoopsThenVertices) {
  Conversion c = convert("PointsGeneralPolygons [2 1] [4 3 3] [0 1 2 3 4 5 6 7 8 9] " + points(10));
  EXPECT_TRUE(c.log.empty());
  const ZelRecord mesh = c.only("GeneralPolygonMeshV");
  EXPECT_EQ(mesh.args.at(0).asInt(), 2);

  Conversion shortOne =
      convert("PointsGeneralPolygons [2 1] [4 3 3] [0 1 2 3 4 5 6 7 8] " + points(10));
  EXPECT_EQ(shortOne.log, (Lines{"RIB error: incorrect parameter value at line 1 '8': "
                                 "Expected 10 ints"}));
}

TEST(PolygonRequests, AnEmptyIndexArrayEndsTheRequestSilently) {
  Conversion c = convert("PointsPolygons [0] [] " + points(3));
  EXPECT_EQ(c.log, (Lines{"RIB error: general syntactic error at line 1 'P': "
                          "Expected Keyword"}));
  EXPECT_TRUE(c.records("PolygonMeshV").empty());
}

TEST(PolygonRequests, NegativeCountsAndIndicesAreRefused) {
  Conversion c =
      convert("PointsPolygons [-3] [0 1 2] " + points(3) + "\nPointsPolygons [3] [0 -1 2] " +
              points(3) + "\nGeneralPolygon [4 -1] " + points(3) + "\nWorldBegin");
  EXPECT_EQ(c.log, (Lines{"RIB error: incorrect parameter value at line 1 '-3': "
                          "Negative count -3 in nverts",
                          "RIB error: incorrect parameter value at line 2 'P': "
                          "Negative vertex index -1",
                          "RIB error: incorrect parameter value at line 3 'P': "
                          "Negative count -1 in nverts"}));
  EXPECT_EQ(c.ops(), (Ops{"SceneBegin"}));
}

TEST(PolygonRequests, CountsBeyond32BitsAreRefused) {
  Conversion c = convert("GeneralPolygon [2147483647 2147483647] " + points(3) + " WorldBegin");
  EXPECT_EQ(c.log, (Lines{"RIB error: overflowing an internal limit at line 1 'P': "
                          "Count 4294967294 is out of range"}));
  EXPECT_EQ(c.ops(), (Ops{"SceneBegin"}));
}

}  // namespace
