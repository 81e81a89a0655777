// Polygon requests: the counts derived from the arrays and "P", and the lists
// held to them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/rib/requests/requesttable.h"

namespace {

std::string points(int count) {
  return "\"P\" " + numbers(3 * count);
}

// Each RIB text with the whole report lines and the records it gives.
TEST(PolygonRequests, ReportsAndRecordsOfEachRequest) {
  expectEach({
      // A polygon has as many vertices as "P" holds points.
      {"Polygon " + points(5), {}, {"PolygonV 5 {P 4 3 15 [0,1,2,3,4,5,6,7,8,9,10,11,12,13,14]}"}},
      {"Polygon \"Pw\" " + numbers(12) + " WorldBegin",
       {"RIB error: incorrect parameter value at line 1 'WorldBegin': 'P' argument is required"},
       {"SceneBegin"}},
      // A varying colour must have one value per vertex.
      {"Polygon " + points(3) + " \"Cs\" [1 0 0]",
       {"RIB error: invalid color specification at line 1 '0': 3 items expected for parameter "
        "'Cs'"},
       {}},
      // A general polygon needs the points of all its loops.
      {"GeneralPolygon [4 3] " + points(7),
       {},
       {"GeneralPolygonV 2 [4,3] {P 4 3 21 "
        "[0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20]}"}},
      {"GeneralPolygon [4 3] " + points(6),
       {"RIB error: invalid array specification at line 1 '17.000000': 7 items expected for "
        "parameter 'P'"},
       {}},
      // PointsPolygons counts points from the highest index.
      {"PointsPolygons [3] [0 1 7] " + points(8),
       {},
       {"PolygonMeshV 1 [3] [0,1,7] {P 4 3 24 "
        "[0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23]}"}},
      {"PointsPolygons [3] [0 1 7] " + points(3),
       {"RIB error: invalid array specification at line 1 '8.000000': 8 items expected for "
        "parameter 'P'"},
       {}},
      // One bare polygon count, but bracketed indices.
      {"PointsPolygons 3 [0 1 2] " + points(3) + "\nPointsPolygons [3 3] [0 1 2 0 2] " + points(4),
       {"RIB error: incorrect parameter value at line 2 '2': Expected 6 ints"},
       {"PolygonMeshV 1 [3] [0,1,2] {P 4 3 9 [0,1,2,3,4,5,6,7,8]}"}},
      // Uniform parameters count polygons.
      {"PointsPolygons [2 2] [0 1 1 2] " + points(3) + " \"Np\" " + numbers(6),
       {},
       {"PolygonMeshV 2 [2,2] [0,1,1,2] {P 4 3 9 [0,1,2,3,4,5,6,7,8]} {Np 4 1 6 [0,1,2,3,4,5]}"}},
      // Loops are summed, then vertices.
      {"PointsGeneralPolygons [2 1] [4 3 3] [0 1 2 3 4 5 6 7 8 9] " + points(10),
       {},
       {"GeneralPolygonMeshV 2 [2,1] [4,3,3] [0,1,2,3,4,5,6,7,8,9] {P 4 3 30 "
        "[0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29]}"}},
      {"PointsGeneralPolygons [2 1] [4 3 3] [0 1 2 3 4 5 6 7 8] " + points(10),
       {"RIB error: incorrect parameter value at line 1 '8': Expected 10 ints"},
       {}},
      // An empty index array ends the request silently.
      {"PointsPolygons [0] [] " + points(3),
       {"RIB error: general syntactic error at line 1 'P': Expected Keyword"},
       {}},
      {"PointsPolygons [-3] [0 1 2] " + points(3) + "\nPointsPolygons [3] [0 -1 2] " + points(3) +
           "\nGeneralPolygon [4 -1] " + points(3) + "\nWorldBegin",
       {"RIB error: incorrect parameter value at line 1 '-3': Negative count -3 in nverts",
        "RIB error: incorrect parameter value at line 2 'P': Negative vertex index -1",
        "RIB error: incorrect parameter value at line 3 'P': Negative count -1 in nverts"},
       {"SceneBegin"}},
      {"GeneralPolygon [2147483647 2147483647] " + points(3) + " WorldBegin",
       {"RIB error: overflowing an internal limit at line 1 'P': Count 4294967294 is out of range"},
       {"SceneBegin"}},
  });
}

}  // namespace
