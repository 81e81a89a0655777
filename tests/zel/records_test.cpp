// Every operation writes one line, its arguments in the boundary's order; the
// golden scenes hold most operations whole, so this table holds the forms they
// do not show (nulls, empty and formatted values, calls no RIB request makes,
// arrays read only as far as the counts before them reach), each written
// exactly and read back.
#include <functional>

#include "tests/zel/zelfixture.h"

namespace {

float gColor[3] = {1, 0.5f, 0.25f};
float gBound[6] = {-1, 1, -2, 2, -3, 3};
float gNRGB[6] = {1, 0, 0, 0, 1, 0};
float gRGBN[6] = {0.5f, 0, 0, 0.5f, 0, 0};
int32_t gLoops[2] = {3, 4};
int32_t gIndices[8] = {0, 1, 2, 2, 1, 3, 4, 5};
float gProjected[6] = {1, 2, 3, 4, 5, 6};
int32_t gFaces[2] = {4, 3};
int32_t gFaceIndices[7] = {0, 1, 2, 3, 3, 2, 4};
const char* gTags[2] = {"crease", "vertexedit"};
// One tag at 2 numbers, or two tags at 3: each record reads only its own.
int32_t gNargs[6] = {2, 1, 0, 1, 0, 1};
int32_t gIntargs[3] = {0, 1, 2};
float gFloats[17] = {2.5f, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
const char* gStrings[2] = {"value", "extra"};

float filter(float, float, float, float) {
  return 0;
}
void subdivide(RtPointer, RtFloat) {}

struct Case {
  const char* name;
  std::function<void()> call;
  const char* line;
};

const Case kCases[] = {
    {"ViewIdentity", [] { _zelViewIdentity(); }, R"({"op":"ViewIdentity","args":[]})"},
    {"ViewOrthographic", [] { _zelViewOrthographic(); }, R"({"op":"ViewOrthographic","args":[]})"},
    {"Clip", [] { _zelClip(0.1f, 1e30f); }, R"({"op":"Clip","args":[0.1,1e+30]})"},
    {"CustomFilter", [] { _zelCustomFilter(filter); }, R"({"op":"CustomFilter","args":[true]})"},
    {"CustomFilterNull", [] { _zelCustomFilter(nullptr); },
     R"({"op":"CustomFilter","args":[null]})"},
    {"DepthQuantize", [] { _zelDepthQuantize(0, 0, -1); },
     R"({"op":"DepthQuantize","args":[0,0,-1]})"},
    {"DepthJitter", [] { _zelDepthJitter(0); }, R"({"op":"DepthJitter","args":[0]})"},
    {"ColorSpaceEmpty", [] { _zelColorSpace(0, gNRGB, gRGBN); },
     R"({"op":"ColorSpace","args":[0,[],[]]})"},
    {"Comment", [] { _zelComment("%s", "100% sure"); },
     R"({"op":"Comment","args":["%s","100% sure"]})"},
    {"CommentFormatted", [] { _zelComment("%d of %s", 3, "four"); },
     R"({"op":"Comment","args":["%d of %s","3 of four"]})"},
    {"ColorNull", [] { _zelColor(nullptr); }, R"({"op":"Color","args":[null]})"},
    {"GroupNameNull", [] { _zelGroupName(nullptr); }, R"({"op":"GroupName","args":[null]})"},
    {"Perspective", [] { _zelPerspective(45); }, R"({"op":"Perspective","args":[45]})"},
    {"ProjectPoints",
     [] { _zelProjectPoints(0x0024, 0x0023, 2, reinterpret_cast<RtPoint*>(gProjected)); },
     R"({"op":"ProjectPoints","args":[36,35,2,[1,2,3,4,5,6]]})"},
    {"Procedural", [] { _zelProcedural(gColor, gBound, subdivide, nullptr); },
     R"({"op":"Procedural","args":[true,[-1,1,-2,2,-3,3],true,null]})"},
    {"SubdivisionMeshV",
     [] {
       _zelSubdivisionMeshV("loop", 2, gFaces, gFaceIndices, 1, gTags, gNargs, gIntargs, gFloats, 0,
                            nullptr, nullptr);
     },
     R"({"op":"SubdivisionMeshV","args":["loop",2,[4,3],[0,1,2,3,3,2,4],1,["crease"],[2,1],[0,1],[2.5]],"params":[]})"},
    {"HierarchicalSubdivisionMeshV",
     [] {
       _zelHierarchicalSubdivisionMeshV("catmull-clark", 1, gFaces, gFaceIndices, 2, gTags, gNargs,
                                        gIntargs, gFloats, gStrings, 0, nullptr, nullptr);
     },
     R"({"op":"HierarchicalSubdivisionMeshV","args":["catmull-clark",1,[4],[0,1,2,3],2,["crease","vertexedit"],[2,1,0,1,0,1],[0,1,2],[2.5],["value"]],"params":[]})"},
};

void PrintTo(const Case& call, std::ostream* out) {
  *out << call.name;
}

class RecordLine : public ZelTest, public ::testing::WithParamInterface<Case> {};

TEST_P(RecordLine, IsWrittenExactlyAndReadBack) {
  GetParam().call();
  EXPECT_EQ(recordLines(), std::vector<std::string>{GetParam().line});
  const std::string op = records().at(0).op;
  EXPECT_EQ(std::string(GetParam().line).rfind("{\"op\":\"" + op + "\",", 0), 0u) << op;
  EXPECT_TRUE(gReportLines.empty());
}

INSTANTIATE_TEST_SUITE_P(Forms, RecordLine, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ZelTest, FileStartsWithTheHeader) {
  zelFlush();
  EXPECT_EQ(readFile(path_),
            "{\"format\":\"ZEL\",\"version\":1,\"generator\":\"rib2zel " RIB2ZEL_VERSION "\"}\n");
  EXPECT_EQ(readZelFile(path_).generator, "rib2zel " RIB2ZEL_VERSION);
}

TEST_F(ZelTest, HandlesAreCountedFromOneAndRecorded) {
  RtLightHandle light1 = _zelLightSourceV(0x0012, 0, nullptr, nullptr);
  RtLightHandle light2 = _zelLightSourceV(0x0014, 0, nullptr, nullptr);
  RtObjectHandle object = _zelObjectBegin();
  _zelObjectEnd();
  _zelObjectCall(object);
  _zelLightSwitch(light2, 0);
  EXPECT_EQ(recordLines(), (std::vector<std::string>{
                               R"({"op":"LightSourceV","args":[18],"params":[],"handle":1})",
                               R"({"op":"LightSourceV","args":[20],"params":[],"handle":2})",
                               R"({"op":"ObjectBegin","args":[],"handle":1})",
                               R"({"op":"ObjectEnd","args":[]})",
                               R"({"op":"ObjectCall","args":[1]})",
                               R"({"op":"LightSwitch","args":[2,0]})",
                           }));
  EXPECT_EQ(reinterpret_cast<intptr_t>(light1), 1);
  EXPECT_TRUE(gReportLines.empty());
}

TEST_F(ZelTest, ProjectPointsAnswersNullAndLeavesThePoints) {
  RtPoint points[1] = {{1, 2, 3}};
  EXPECT_EQ(_zelProjectPoints(0x0021, 0x0023, 1, points), nullptr);
  EXPECT_EQ(points[0][2], 3.0f);
}

TEST_F(ZelTest, NegativeCountsReadNothing) {
  _zelColorSpace(-2, gNRGB, gRGBN);
  _zelPolygonMeshV(-1, gLoops, gIndices, 0, nullptr, nullptr);
  int32_t negative[2] = {-5, 2};
  _zelPolygonMeshV(2, negative, gIndices, 0, nullptr, nullptr);
  EXPECT_EQ(recordLines(), (std::vector<std::string>{
                               R"({"op":"ColorSpace","args":[-2,[],[]]})",
                               R"({"op":"PolygonMeshV","args":[-1,[],[]],"params":[]})",
                               R"({"op":"PolygonMeshV","args":[2,[-5,2],[0,1]],"params":[]})",
                           }));
}

}  // namespace
