// The primitives of later versions in the extended reader: each storage class
// held to its count and one past it, the bad forms with their reports, and
// reading on at the next request.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/rib/requests/conversion.h"

namespace {

using Lines = std::vector<std::string>;

struct CountCase {
  std::string request;  // up to and with its "P"
  const char* op;
  int uniform, varying, vertex, facevarying;
};

void PrintTo(const CountCase& c, std::ostream* os) {
  *os << c.request.substr(0, 70);
}

std::string withP(const std::string& request, int points) {
  return request + " \"P\" " + numbers(3 * points);
}

class ModernCounts : public testing::TestWithParam<CountCase> {};

// One parameter of each class at its count passes; one more value is refused.
TEST_P(ModernCounts, HoldEachClassToItsCount) {
  const CountCase& t = GetParam();
  const std::pair<const char*, int> classes[] = {{"constant", 1},
                                                 {"uniform", t.uniform},
                                                 {"varying", t.varying},
                                                 {"vertex", t.vertex},
                                                 {"facevarying", t.facevarying}};
  std::string exact = t.request;
  for (const auto& [word, count] : classes) {
    exact += std::string(" \"") + word + " float " + word + "\" " + numbers(count, 1);
    const std::string last = std::to_string(count + 1) + ".000000";
    Conversion over =
        convert(t.request + " \"" + word + " float x\" " + numbers(count + 1, 1), true);
    EXPECT_EQ(over.log, (Lines{"RIB error: invalid array specification at line 1 '" + last + "': " +
                               std::to_string(count) + " items expected for parameter 'x'"}));
    EXPECT_TRUE(over.records(t.op).empty());
  }
  Conversion c = convert(exact, true);
  EXPECT_TRUE(c.log.empty());
  // The Ri layer's counts, which the library wrote, agree with the reader's.
  std::vector<int64_t> counts;
  for (const ZelParamRecord& p : c.only(t.op).params) {
    if (p.name != "P") counts.push_back(p.count);
  }
  EXPECT_EQ(counts, (std::vector<int64_t>{1, t.uniform, t.varying, t.vertex, t.facevarying}));
}

const std::string kQuad = "SubdivisionMesh \"catmull-clark\" [4 3] [0 1 2 3 3 2 4]";
const std::string kCubic = "Curves \"cubic\" ";
const std::string kBlobby = "Blobby 2 [1001 0 1000 16 0 2 0 1] " + numbers(17) + " []";

INSTANTIATE_TEST_SUITE_P(
    Requests, ModernCounts,
    testing::Values(
        CountCase{withP(kQuad, 5), "SubdivisionMeshV", 2, 5, 5, 7},
        CountCase{withP(kQuad + " [\"crease\" \"corner\"] [2 1 1 1] [0 1 2] [1 2]", 5),
                  "SubdivisionMeshV", 2, 5, 5, 7},
        // Three numbers per tag: the string arguments go with the hierarchical mesh.
        CountCase{withP(kQuad + " [\"crease\"] [2 1 0] [0 1] [5] []", 5),
                  "HierarchicalSubdivisionMeshV", 2, 5, 5, 7},
        CountCase{withP("HierarchicalSubdivisionMesh \"loop\" [3] [0 1 2] [\"vertexedit\"] [1 0 1] "
                        "[0] [] [\"x\"]",
                        3),
                  "HierarchicalSubdivisionMeshV", 1, 3, 3, 3},
        CountCase{withP("Points", 5), "PointsV", 1, 5, 5, 5},
        // "P" declared in the list itself is the required "P".
        CountCase{"Points \"vertex point P\" " + numbers(15), "PointsV", 1, 5, 5, 5},
        CountCase{withP("Curves \"linear\" [2 3] \"nonperiodic\"", 5), "CurvesV", 2, 5, 5, 5},
        CountCase{withP("Curves \"linear\" [3] \"periodic\"", 3), "CurvesV", 1, 3, 3, 3},
        // 4 + k * 3 vertices, for the v step 3 that holds before any Basis.
        CountCase{withP(kCubic + "[4 7] \"nonperiodic\"", 11), "CurvesV", 2, 5, 11, 5},
        CountCase{withP("Basis \"b-spline\" 1 \"b-spline\" 1 " + kCubic + "[5] \"nonperiodic\"", 5),
                  "CurvesV", 1, 3, 5, 3},
        CountCase{withP("Basis \"bezier\" 3 \"b-spline\" 2 " + kCubic + "[6] \"periodic\"", 6),
                  "CurvesV", 1, 3, 6, 3},
        CountCase{kBlobby, "BlobbyV", 1, 2, 2, 2}));

struct BadCase {
  const char* request;
  const char* report;
};

void PrintTo(const BadCase& c, std::ostream* os) {
  *os << c.request;
}

class ModernBadForms : public testing::TestWithParam<BadCase> {};

// Each is dropped with its report, and the next request is read.
TEST_P(ModernBadForms, AreReportedAndPassedOver) {
  Conversion c = convert(std::string(GetParam().request) + "\nSphere 1 -1 1 360", true);
  EXPECT_EQ(c.log, (Lines{GetParam().report}));
  std::vector<std::string> ops = c.ops();
  std::erase(ops, "Basis");  // a Basis before the request stands
  EXPECT_EQ(ops, (std::vector<std::string>{"SphereV"}));
}

INSTANTIATE_TEST_SUITE_P(
    Requests, ModernBadForms,
    testing::Values(
        BadCase{"SubdivisionMesh \"loop\" [3 2] [0 1 2 2 1]",
                "RIB error: incorrect parameter value at line 1 '2': Face 1 has 2 vertices; a "
                "subdivision face needs 3 or more"},
        BadCase{"SubdivisionMesh \"loop\" [3] [0 1 -1] \"P\" [0]",
                "RIB error: incorrect parameter value at line 1 'P': Negative vertex index -1"},
        BadCase{"SubdivisionMesh \"loop\" [3] [0 1 2] [\"crease\"] [1] [0] []",
                "RIB error: incorrect parameter value at line 1 '1': 1 numbers in nargs for 1 "
                "tags; a subdivision mesh takes 2 or 3 per tag"},
        BadCase{"HierarchicalSubdivisionMesh \"loop\" [3] [0 1 2] [\"crease\"] [2 0] [0 1] []",
                "RIB error: incorrect parameter value at line 1 '0': 2 numbers in nargs for 1 "
                "tags; a hierarchical subdivision mesh takes 3 per tag"},
        BadCase{"SubdivisionMesh \"loop\" [3] [0 1 2] [\"crease\"] [2 0] [0] []",
                "RIB error: incorrect parameter value at line 1 '0': Expected 2 ints"},
        BadCase{"SubdivisionMesh \"loop\" [3] [0 1 2] [\"x\"] [0 0 1] [] [] [] \"P\" [0]",
                "RIB error: incorrect parameter value at line 1 'P': The tags take 1 string "
                "arguments, not 0"},
        BadCase{"Points \"Cs\" [1 1 1]",
                "RIB error: incorrect parameter value at line 1 'Sphere': 'P' argument is "
                "required"},
        BadCase{"Curves \"bezier\" [4] \"nonperiodic\" \"P\" [0]",
                "RIB error: incorrect parameter value at line 1 'P': Unknown curve type "
                "\"bezier\""},
        BadCase{"Curves \"linear\" [4] \"open\"",
                "RIB error: incorrect parameter value at line 1 'Sphere': Unknown curve wrap "
                "\"open\""},
        BadCase{"Curves \"linear\" [2 1] \"nonperiodic\"",
                "RIB error: incorrect parameter value at line 1 'Sphere': Curve 1 has 1 vertices; "
                "a linear curve needs 2 or more"},
        // One less than 4 + k * 3.
        BadCase{"Curves \"cubic\" [6] \"nonperiodic\"",
                "RIB error: incorrect parameter value at line 1 'Sphere': Curve 0 has 6 vertices; "
                "a nonperiodic cubic curve needs 4 plus a multiple of the v step 3"},
        BadCase{"Curves \"cubic\" [4] \"periodic\"",
                "RIB error: incorrect parameter value at line 1 'Sphere': Curve 0 has 4 vertices; "
                "a periodic cubic curve needs a positive multiple of the v step 3"},
        BadCase{"Basis \"bezier\" 0 \"bezier\" 0 Curves \"cubic\" [4] \"nonperiodic\"",
                "RIB error: incorrect parameter value at line 1 'Sphere': A v step of 0 leaves "
                "cubic curves without segments"},
        BadCase{"Blobby 1 [1004 0] [1] []",
                "RIB error: incorrect parameter value at line 1 'Sphere': Unknown Blobby opcode "
                "1004 at code index 0"},
        BadCase{"Blobby 1 [1001 0] [1] []",
                "RIB error: incorrect parameter value at line 1 'Sphere': Blobby opcode 1001 at "
                "code index 0 reads 16 floats from index 0, but the blobby gives 1 floats"},
        BadCase{"Blobby 1 [1003 1 0] [1] [\"plane\"]",
                "RIB error: incorrect parameter value at line 1 'Sphere': Blobby opcode 1003 at "
                "code index 0 names string 1, but the blobby gives 1 strings"},
        BadCase{"Blobby 1 [1000] [1] []",
                "RIB error: incorrect parameter value at line 1 'Sphere': Blobby opcode 1000 at "
                "code index 0 runs past the end of the code"},
        BadCase{"Blobby 1 [1000 0 0 -1] [1] []",
                "RIB error: incorrect parameter value at line 1 'Sphere': Blobby opcode 0 at "
                "code index 2 gives a negative operand count -1"},
        BadCase{"Blobby 1 [1000 0 6 1] [1] []",
                "RIB error: incorrect parameter value at line 1 'Sphere': Blobby opcode 6 at "
                "code index 2 uses result 1, which is not made before it"},
        BadCase{"Blobby 2 [1000 0] [1] []",
                "RIB error: incorrect parameter value at line 1 'Sphere': Blobby nleaf is 2, but "
                "its code makes 1 primitives"}));

TEST(ModernGeometry, RecordsKeepTheArgumentsAsRead) {
  Conversion c = convert(withP(std::string("SubdivisionMesh \"pyramid\" [3] [0 1 2]") +
                                   " [\"crease\" \"hole\"] [2 1 1 0] [0 1 0] [2.5]",
                               3) +
                             " Curves \"linear\" [2] \"periodic\" \"P\" " + numbers(6) +
                             " \"width\" [1 2] \"constantwidth\" 0.5",
                         true);
  EXPECT_EQ(c.log, (Lines{"RIB warning: incorrect parameter value at line 1 'pyramid': Unknown "
                          "subdivision scheme \"pyramid\" is kept by name"}));
  const ZelRecord mesh = c.only("SubdivisionMeshV");
  EXPECT_EQ(mesh.args.at(0).asText(), "pyramid");
  EXPECT_EQ(mesh.args.at(5).items().at(1).asText(), "hole");
  EXPECT_EQ(mesh.args.at(7).asInts(), (std::vector<int64_t>{0, 1, 0}));
  EXPECT_EQ(mesh.args.at(8).asFloats(), (std::vector<float>{2.5f}));
  const ZelRecord curves = c.only("CurvesV");
  EXPECT_EQ(paramFloats(curves, "width"), (std::vector<float>{1, 2}));
  EXPECT_EQ(paramFloats(curves, "constantwidth"), (std::vector<float>{0.5f}));
}

}  // namespace
