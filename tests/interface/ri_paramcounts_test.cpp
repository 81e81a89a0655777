// The counts the binding gives the scene library must be those the RIB
// reader held each parameter list to; a larger one would let the library
// read past a value. The reader's tests hold the shared patch formulas to
// its cases; these hold the binding's own: names, tokens, steps set here.
#include "interface/ri_paramcounts.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "interface/token.h"
#include "tests/interface/ri_scene.h"

namespace {

std::string testName(const std::string& what) {
  std::string name;
  for (char c : what) name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return name;
}

TEST(PrimitiveCounts, MatchTheReadersVerifyCounts) {
  resetBasisSteps();
  RtInt four3[] = {4, 3}, three[] = {3}, verts017[] = {0, 1, 7}, twoTwo[] = {2, 2};
  RtInt verts0112[] = {0, 1, 1, 2}, zeroThree[] = {0, 3}, verts012[] = {0, 1, 2};
  RtInt negativeVerts[] = {-4, -2, -9}, loops21[] = {2, 1}, nverts433[] = {4, 3, 3};
  RtInt verts10[] = {0, 1, 2, 3, 4, 5, 6, 7, 9, 8};
  RtInt hugeLoops[] = {std::numeric_limits<RtInt>::max(), 2};
  const int64_t wide = int64_t{1} << 32;
  const struct {
    const char* what;
    PrimitiveCounts got, expected;
  } cases[] = {
      {"polygon", polygonCounts(3), {1, 3, 3}},
      {"general polygon sums its loops", generalPolygonCounts(2, four3), {1, 7, 7}},
      {"highest index fixes the points", pointsPolygonsCounts(1, three, verts017), {1, 8, 8}},
      {"uniform counts polygons", pointsPolygonsCounts(2, twoTwo, verts0112), {2, 3, 3}},
      {"polygon without vertices", pointsPolygonsCounts(2, zeroThree, verts012), {2, 3, 3}},
      {"negative indices never raise the count",
       pointsPolygonsCounts(1, three, negativeVerts),
       {1, 1, 1}},
      {"general mesh sums loops then vertices",
       pointsGeneralPolygonsCounts(2, loops21, nverts433, verts10),
       {2, 10, 10}},
      {"sums do not wrap", generalPolygonCounts(2, hugeLoops), {1, 2147483649, 2147483649}},
      {"bicubic patch", patchCounts(text("bicubic")), {1, 16, 16}},
      {"bicubic patch token", patchCounts(RI_BICUBIC), {1, 16, 16}},
      {"bilinear patch", patchCounts(RI_BILINEAR), {1, 4, 4}},
      {"patch type in capitals is not bicubic", patchCounts(text("Bicubic")), {1, 4, 4}},
      {"null patch type", patchCounts(nullptr), {1, 4, 4}},
      {"bicubic mesh truncates toward zero",
       patchMeshCounts(RI_BICUBIC, 3, RI_NONPERIODIC, 1, RI_NONPERIODIC),
       {0, 2, 3}},
      {"wrap word in capitals is not periodic",
       patchMeshCounts(RI_BILINEAR, 3, text("Periodic"), 2, RI_PERIODIC),
       {4, 6, 6}},
      {"products do not wrap", nuPatchCounts(65536, 65536), {1, wide, wide}},
      {"quadric", quadricCounts(), {1, 4, 4}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(c.got.uniform, c.expected.uniform);
    EXPECT_EQ(c.got.varying, c.expected.varying);
    EXPECT_EQ(c.got.vertex, c.expected.vertex);
  }
}

TEST(PatchMeshCounts, StepsOfZeroOrBelowDivideAsTheReaderDoes) {
  setBasisSteps(0, -2);
  PrimitiveCounts stepless = patchMeshCounts(RI_BICUBIC, 6, RI_PERIODIC, 5, RI_NONPERIODIC);
  setBasisSteps(-1, -1);
  PrimitiveCounts backwards = patchMeshCounts(RI_BICUBIC, 7, RI_NONPERIODIC, 7, RI_NONPERIODIC);
  resetBasisSteps();
  PrimitiveCounts fresh = patchMeshCounts(RI_BICUBIC, 7, RI_NONPERIODIC, 4, RI_NONPERIODIC);

  // A step of 0 gives no patches rather than a division by it.
  EXPECT_EQ(stepless.uniform, 0);
  EXPECT_EQ(stepless.varying, 0);
  // A negative step divides as the reader divides: (7 - 4) / -1 + 1 = -2.
  EXPECT_EQ(backwards.uniform, 4);
  EXPECT_EQ(backwards.varying, 1);
  EXPECT_EQ(backwards.vertex, 49);
  EXPECT_EQ(fresh.uniform, 2);
}

struct ScalarCase {
  const char* name;
  RtToken token;
  bool geometry;
  PrimitiveCounts counts;
  uint32_t expected;
};

void PrintTo(const ScalarCase& c, std::ostream* os) {
  *os << c.name;
}

class ParameterCountTest : public testing::TestWithParam<ScalarCase> {};

TEST_P(ParameterCountTest, CountsScalarsOfTheValue) {
  const ScalarCase& c = GetParam();
  EXPECT_EQ(parameterCount(c.token, c.geometry ? &c.counts : nullptr), c.expected) << c.name;
}

INSTANTIATE_TEST_SUITE_P(
    Tokens, ParameterCountTest,
    testing::Values(
        ScalarCase{"P", RI_P, true, {1, 4, 4}, 12}, ScalarCase{"Pw", RI_PW, true, {1, 4, 4}, 16},
        ScalarCase{"Pz", RI_PZ, true, {1, 4, 4}, 4}, ScalarCase{"Cs", RI_CS, true, {1, 3, 5}, 9},
        ScalarCase{"Np", RI_NP, true, {2, 3, 3}, 6}, ScalarCase{"st", RI_ST, true, {1, 4, 4}, 8},
        ScalarCase{"Ka", RI_KA, true, {7, 4, 4}, 7},
        ScalarCase{"texturename", RI_TEXTURENAME, true, {1, 4, 4}, 1},
        ScalarCase{"negative count", RI_P, true, {1, -5, -5}, 0},
        ScalarCase{"keyword", RI_PERSPECTIVE, false, {}, 0},
        ScalarCase{"null", nullptr, false, {}, 0}, ScalarCase{"origin", RI_ORIGIN, false, {}, 2},
        ScalarCase{"lightcolor", RI_LIGHTCOLOR, false, {}, 3},
        ScalarCase{"from", RI_FROM, false, {}, 3},
        ScalarCase{"coneangle", RI_CONEANGLE, false, {}, 1},
        ScalarCase{"name", RI_NAME, false, {}, 1},
        ScalarCase{"Pw outside geometry", RI_PW, false, {}, 4},
        ScalarCase{"many points", RI_P, true, {1, 1 << 30, 1 << 30}, 3u << 30},
        ScalarCase{"more than a count holds", RI_PW, true, {1, 1, int64_t{1} << 40}, 4294967295u}),
    [](const testing::TestParamInfo<ScalarCase>& info) { return testName(info.param.name); });

TEST(ParameterCount, NameGivenAsTextFindsItsRecord) {
  EXPECT_EQ(parameterCount(text("Cs"), nullptr), 3u);
  EXPECT_EQ(parameterCount(text("no such parameter"), nullptr), 0u);
}

}  // namespace
