// Patch and basis requests: the basis steps, the mesh counts and the long
// argument lists of NuPatch and TrimCurve.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/rib/requests/requesttable.h"

namespace {

using Ops = std::vector<std::string>;

std::string pointParam(const char* name, int count) {
  return std::string(" \"") + name + "\" " + numbers(3 * count);
}

std::string floatParam(const char* name, int count) {
  return std::string(" \"") + name + "\" " + numbers(count);
}

// The report for a list whose last parameter has the wrong number of items;
// the line quotes that parameter's last number.
std::string countReport(int expected, const char* name, int lastNumber) {
  return "RIB error: invalid array specification at line 1 '" + std::to_string(lastNumber) +
         ".000000': " + std::to_string(expected) + " items expected for parameter '" + name + "'";
}

struct MeshCase {
  const char* basis;  // what precedes the mesh
  const char* mesh;   // the PatchMesh request up to its list
  int uniform, varying, vertex;
};

void PrintTo(const MeshCase& c, std::ostream* os) {
  *os << c.basis << " " << c.mesh;
}

class PatchMeshCounts : public testing::TestWithParam<MeshCase> {};

TEST_P(PatchMeshCounts, HoldEachStorageClassToItsOwnCount) {
  const MeshCase& t = GetParam();
  const std::string mesh = std::string(t.basis) + " " + t.mesh + pointParam("P", t.vertex);

  Conversion exact = convert(mesh + pointParam("Np", t.uniform) + floatParam("s", t.varying));
  EXPECT_TRUE(exact.log.empty());
  EXPECT_EQ(exact.records("PatchMeshV").size(), 1u);

  Conversion uniform = convert(mesh + pointParam("Np", t.uniform + 1));
  EXPECT_EQ(uniform.log, (Lines{countReport(t.uniform, "Np", 3 * (t.uniform + 1) - 1)}));
  EXPECT_TRUE(uniform.records("PatchMeshV").empty());

  Conversion varying = convert(mesh + floatParam("s", t.varying - 1));
  EXPECT_EQ(varying.log, (Lines{countReport(t.varying, "s", t.varying - 2)}));
}

INSTANTIATE_TEST_SUITE_P(
    BasisSteps, PatchMeshCounts,
    testing::Values(
        // No Basis yet: the steps start at 3.
        MeshCase{"", "PatchMesh \"bicubic\" 7 \"nonperiodic\" 4 \"nonperiodic\"", 2, 6, 28},
        MeshCase{"Basis \"b-spline\" 1 \"b-spline\" 1",
                 "PatchMesh \"bicubic\" 6 \"periodic\" 5 \"nonperiodic\"", 12, 18, 30},
        MeshCase{"Basis \"bezier\" 3 \"bezier\" 3",
                 "PatchMesh \"bilinear\" 3 \"nonperiodic\" 4 \"periodic\"", 8, 12, 12},
        // (3 - 4) / 3 truncates to 0: one patch, no minimum of 4 points.
        MeshCase{"", "PatchMesh \"bicubic\" 3 \"nonperiodic\" 4 \"nonperiodic\"", 1, 4, 12},
        // A wrap word differing only in case is not periodic.
        MeshCase{"", "PatchMesh \"bilinear\" 3 \"Periodic\" 2 \"nonperiodic\"", 2, 6, 6}));

TEST(BasisRequests, StepsSetInsideAnAttributeBlockOutliveIt) {
  const std::string mesh = "PatchMesh \"bicubic\" 7 \"nonperiodic\" 4 \"nonperiodic\"" +
                           pointParam("P", 28) + pointParam("Np", 4);
  Conversion c = convert("AttributeBegin Basis \"b-spline\" 1 \"b-spline\" 1 AttributeEnd " + mesh);
  EXPECT_TRUE(c.log.empty());
  EXPECT_EQ(c.ops(), (Ops{"AttributePush", "Basis", "Basis", "AttributePop", "PatchMeshV"}));
  EXPECT_EQ(c.records("Basis").at(1).args.at(1).asInt(), 0x0901);
}

TEST(BasisRequests, AFailedBasisChangesNeitherStep) {
  Conversion c = convert("Basis \"b-spline\" 1 \"nope\" 1\nBasis \"bezier\" 3.0 \"bezier\" 1\n" +
                         std::string("PatchMesh \"bicubic\" 7 \"nonperiodic\" 4 \"nonperiodic\"") +
                         pointParam("P", 28) + pointParam("Np", 2));
  EXPECT_EQ(c.log,
            (Lines{"RIB error: undefined basis matrix name at line 1 '1': Unknown Basis 'nope'",
                   "RIB error: general syntactic error at line 2 '3.0': Expected integer"}));
  EXPECT_EQ(c.ops(), (Ops{"PatchMeshV"}));
}

TEST(BasisRequests, AStepOfZeroRefusesABicubicMeshButNotABilinearOne) {
  Conversion c = convert("Basis \"bezier\" 0 \"bezier\" 0\n" +
                         std::string("PatchMesh \"bicubic\" 4 \"nonperiodic\" 4 \"nonperiodic\"") +
                         pointParam("P", 16) + "\nPatchMesh \"bilinear\" 2 \"nonperiodic\" 2 " +
                         "\"nonperiodic\"" + pointParam("P", 4));
  EXPECT_EQ(c.log, (Lines{"RIB error: incorrect parameter value at line 2 'P': "
                          "A basis step of 0 leaves a bicubic patch mesh without patches"}));
  EXPECT_EQ(c.records("PatchMeshV").size(), 1u);
}

TEST(PatchRequests, PositionParametersDifferBetweenPatchAndMesh) {
  Conversion c = convert("Patch \"bicubic\"" + floatParam("Pz", 16) + "\nPatch \"bicubic\"" +
                         pointParam("P", 16) + floatParam("Pw", 64) + "\nPatch \"bilinear\"" +
                         pointParam("P", 4) + "\nPatchMesh \"bilinear\" 2 \"nonperiodic\" 2 " +
                         "\"nonperiodic\"" + floatParam("Pz", 4));
  EXPECT_EQ(c.log, (Lines{"RIB error: incorrect parameter value at line 1 'Patch': "
                          "'P', or 'Pw' argument is required",
                          "RIB error: incorrect parameter value at line 2 'Patch': "
                          "More than one of 'P', or 'Pw' was specified"}));
  EXPECT_EQ(c.ops(), (Ops{"PatchV", "PatchMeshV"}));
}

TEST(PatchRequests, NuPatchKnotVectorsHoldPointsPlusOrder) {
  const std::string knots = "[0 0 0 0 1 1 1 1]";
  Conversion good =
      convert("NuPatch 4 4 " + knots + " 0 1 4 4 " + knots + " 0 1" + pointParam("P", 16));
  EXPECT_TRUE(good.log.empty());
  EXPECT_EQ(good.only("NurbMeshV").args.at(2).asFloats().size(), 8u);

  Conversion shortOne =
      convert("NuPatch 4 4 " + knots + " 0 1 4 4 [0 0 0 0 1 1 1] 0 1" + pointParam("P", 16));
  EXPECT_EQ(shortOne.log,
            (Lines{"RIB error: incorrect parameter value at line 1 '1': Expected 8 floats"}));
  EXPECT_TRUE(shortOne.records("NurbMeshV").empty());
}

// Each RIB text with the whole report lines and the records it gives.
TEST(PatchRequests, ReportsAndRecordsOfEachRequest) {
  const std::string trim = "TrimCurve [1] [3] [0 1] [0] [1] [3] [0 1 0] [0 0 1] [1 1 1]";
  // Inside a motion block only the first motion-sensitive call takes effect,
  // so a sphere after a TrimCurve shows whether it reached its call.
  const auto inMotion = [](const std::string& request) {
    return "MotionBegin [0 1] " + request + " Sphere 1 -1 1 360 MotionEnd";
  };
  expectEach({
      // A standard basis goes by name, a matrix as its numbers.
      {"Basis \"bezier\" 3 " + numbers(16) + " 2",
       {},
       {"Basis 2048 2304", "CustomBasis 2049 [0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15] 2"}},
      // A TrimCurve with an inconsistent knot count still reaches its call.
      {trim,
       {"RIB error: incorrect parameter value at line 1 '3': Number of knots inconsistent with "
        "order and n."},
       {}},
      {inMotion(trim),
       {"RIB error: incorrect parameter value at line 1 '3': Number of knots inconsistent with "
        "order and n."},
       {}},
      {inMotion("TrimCurve [1] [3] [0 0 0 1 1 1] [0] [1] [3] [0 1 0] [0 0 1] [1 1 1]"), {}, {}},
      {inMotion("TrimCurve [1] [3] [0 0 0 1 1 1] [0] [1] [3] [0 1] [0 0 1] [1 1 1]"),
       {"RIB error: incorrect parameter value at line 1 '1': Expected 3 floats"},
       {"SphereV 1 -1 1 360"}},
      // With no curves it ends after its second array.
      {"TrimCurve [0] [] [0] [] [] [] [] [] [] WorldBegin",
       {"RIB error: general syntactic error at line 1 '0': Expected Keyword"},
       {"SceneBegin"}},
  });
}

}  // namespace
