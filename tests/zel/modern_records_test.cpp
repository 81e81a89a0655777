// The records of the later primitives: written exactly, arrays only as far as
// the counts before them reach, read back by the reader, and a list without
// its info refused as for every other record.
#include <functional>

#include "tests/zel/zelfixture.h"

namespace {

int32_t gFaces[2] = {4, 3};
int32_t gIndices[7] = {0, 1, 2, 3, 3, 2, 4};
const char* gTags[2] = {"crease", "vertexedit"};
// One tag at 2 numbers, or two tags at 3: each record reads only its own.
int32_t gNargs[6] = {2, 1, 0, 1, 0, 1};
int32_t gIntargs[3] = {0, 1, 2};
float gFloats[17] = {2.5f, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
const char* gStrings[2] = {"value", "extra"};
int32_t gCode[8] = {1001, 1, 1000, 0, 0, 2, 0, 1};

struct Case {
  const char* name;
  std::function<void()> call;
  const char* line;
};

const Case kCases[] = {
    {"SubdivisionMeshV",
     [] {
       _zelSubdivisionMeshV("loop", 2, gFaces, gIndices, 1, gTags, gNargs, gIntargs, gFloats, 0,
                            nullptr, nullptr);
     },
     R"({"op":"SubdivisionMeshV","args":["loop",2,[4,3],[0,1,2,3,3,2,4],1,["crease"],[2,1],[0,1],[2.5]],"params":[]})"},
    {"HierarchicalSubdivisionMeshV",
     [] {
       _zelHierarchicalSubdivisionMeshV("catmull-clark", 1, gFaces, gIndices, 2, gTags, gNargs,
                                        gIntargs, gFloats, gStrings, 0, nullptr, nullptr);
     },
     R"({"op":"HierarchicalSubdivisionMeshV","args":["catmull-clark",1,[4],[0,1,2,3],2,["crease","vertexedit"],[2,1,0,1,0,1],[0,1,2],[2.5],["value"]],"params":[]})"},
    {"PointsV", [] { _zelPointsV(12, 0, nullptr, nullptr); },
     R"({"op":"PointsV","args":[12],"params":[]})"},
    {"CurvesV", [] { _zelCurvesV("cubic", 2, gFaces, "periodic", 0, nullptr, nullptr); },
     R"({"op":"CurvesV","args":["cubic",2,[4,3],"periodic"],"params":[]})"},
    {"BlobbyV", [] { _zelBlobbyV(2, 8, gCode, 17, gFloats, 1, gStrings, 0, nullptr, nullptr); },
     R"({"op":"BlobbyV","args":[2,8,[1001,1,1000,0,0,2,0,1],17,[2.5,1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1],1,["value"]],"params":[]})"},
};

void PrintTo(const Case& call, std::ostream* out) {
  *out << call.name;
}

class ModernRecord : public ZelTest, public ::testing::WithParamInterface<Case> {};

TEST_P(ModernRecord, IsWrittenExactlyAndReadBack) {
  GetParam().call();
  EXPECT_EQ(recordLines(), std::vector<std::string>{GetParam().line});
  EXPECT_EQ(records().at(0).op, GetParam().name);
  EXPECT_TRUE(gReportLines.empty());
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, ModernRecord, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ZelTest, ModernRecordsRefuseAListWithoutItsInfo) {
  uint16_t code = 0x0001;
  RtPointer value = gFloats;
  _zelCurvesV("linear", 1, gFaces, "nonperiodic", 1, &code, &value);
  EXPECT_EQ(gReportLines,
            std::vector<std::string>{
                "ZEL error: CurvesV: no parameter info came before its parameter list"});
  EXPECT_TRUE(records().at(0).params.at(0).values.isNull());
}

}  // namespace
