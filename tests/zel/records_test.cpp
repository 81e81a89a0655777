// Each operation writes exactly one line, with its arguments in the
// boundary's order and the JSON form of their kind, and the reader takes it
// back; arrays go only as far as the counts before them reach.
#include <functional>

#include "tests/zel/zelfixture.h"

namespace {

float gColor[3] = {1, 0.5f, 0.25f};
float gBound[6] = {-1, 1, -2, 2, -3, 3};
float gMatrix[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.5f, 0, 0, 1};
float gNRGB[6] = {1, 0, 0, 0, 1, 0};
float gRGBN[6] = {0.5f, 0, 0, 0.5f, 0, 0};
int32_t gLoops[2] = {3, 4};
int32_t gMeshLoops[2] = {1, 2};
int32_t gMeshVerts[3] = {3, 3, 2};
int32_t gIndices[8] = {0, 1, 2, 2, 1, 3, 4, 5};
float gKnots[9] = {0, 0, 0, 0, 1, 1, 1, 1, 2};
float gPoint1[3] = {1, 0, 0};
float gPoint2[3] = {0, 1, 2};
float gProjected[6] = {1, 2, 3, 4, 5, 6};
int32_t gFaces[2] = {4, 3};
int32_t gFaceIndices[7] = {0, 1, 2, 3, 3, 2, 4};
const char* gTags[2] = {"crease", "vertexedit"};
// One tag at 2 numbers, or two tags at 3: each record reads only its own.
int32_t gNargs[6] = {2, 1, 0, 1, 0, 1};
int32_t gIntargs[3] = {0, 1, 2};
float gFloats[17] = {2.5f, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
const char* gStrings[2] = {"value", "extra"};
int32_t gCode[8] = {1001, 1, 1000, 0, 0, 2, 0, 1};

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
    {"RasterViewport", [] { _zelRasterViewport(10, 109, 20, 69); },
     R"({"op":"RasterViewport","args":[10,109,20,69]})"},
    {"RasterAspect", [] { _zelRasterAspect(1.5f); }, R"({"op":"RasterAspect","args":[1.5]})"},
    {"ImageAspect", [] { _zelImageAspect(0.75f); }, R"({"op":"ImageAspect","args":[0.75]})"},
    {"ImageWindow", [] { _zelImageWindow(-1, 1, -0.5f, 0.5f); },
     R"({"op":"ImageWindow","args":[-1,1,-0.5,0.5]})"},
    {"ImageCrop", [] { _zelImageCrop(0, 1, 0.25f, 0.75f); },
     R"({"op":"ImageCrop","args":[0,1,0.25,0.75]})"},
    {"ViewIdentity", [] { _zelViewIdentity(); }, R"({"op":"ViewIdentity","args":[]})"},
    {"ViewOrthographic", [] { _zelViewOrthographic(); }, R"({"op":"ViewOrthographic","args":[]})"},
    {"ViewPerspective", [] { _zelViewPerspective(90); }, R"({"op":"ViewPerspective","args":[90]})"},
    {"Clip", [] { _zelClip(0.1f, 1e30f); }, R"({"op":"Clip","args":[0.1,1e+30]})"},
    {"SampleAdaptive", [] { _zelSampleAdaptive(0.5f); }, R"({"op":"SampleAdaptive","args":[0.5]})"},
    {"SampleUniform", [] { _zelSampleUniform(2, 3); }, R"({"op":"SampleUniform","args":[2,3]})"},
    {"SampleJitter", [] { _zelSampleJitter(0); }, R"({"op":"SampleJitter","args":[0]})"},
    {"Filter", [] { _zelFilter(0x0101); }, R"({"op":"Filter","args":[257]})"},
    {"CustomFilter", [] { _zelCustomFilter(filter); }, R"({"op":"CustomFilter","args":[true]})"},
    {"CustomFilterNull", [] { _zelCustomFilter(nullptr); },
     R"({"op":"CustomFilter","args":[null]})"},
    {"FilterWidth", [] { _zelFilterWidth(2, 2); }, R"({"op":"FilterWidth","args":[2,2]})"},
    {"Hider", [] { _zelHider(0x0400); }, R"({"op":"Hider","args":[1024]})"},
    {"ColorGain", [] { _zelColorGain(2); }, R"({"op":"ColorGain","args":[2]})"},
    {"ColorGamma", [] { _zelColorGamma(2.2f); }, R"({"op":"ColorGamma","args":[2.2]})"},
    {"ColorQuantize", [] { _zelColorQuantize(255, 0, 255); },
     R"({"op":"ColorQuantize","args":[255,0,255]})"},
    {"ColorJitter", [] { _zelColorJitter(0.5f); }, R"({"op":"ColorJitter","args":[0.5]})"},
    {"DepthQuantize", [] { _zelDepthQuantize(0, 0, -1); },
     R"({"op":"DepthQuantize","args":[0,0,-1]})"},
    {"DepthJitter", [] { _zelDepthJitter(0); }, R"({"op":"DepthJitter","args":[0]})"},
    {"ColorSpace", [] { _zelColorSpace(2, gNRGB, gRGBN); },
     R"({"op":"ColorSpace","args":[2,[1,0,0,0,1,0],[0.5,0,0,0.5,0,0]]})"},
    {"ColorSpaceEmpty", [] { _zelColorSpace(0, gNRGB, gRGBN); },
     R"({"op":"ColorSpace","args":[0,[],[]]})"},
    {"OutputFileOfDisplay", [] { _zelOutputFile(kZelDisplayFile, "pic.tif"); },
     R"({"op":"OutputFile","args":[513,"pic.tif"]})"},
    {"OutputDisplay", [] { _zelOutputDisplay("window"); },
     R"({"op":"OutputDisplay","args":["window"]})"},
    {"OutputSamples", [] { _zelOutputSamples(0x0307); }, R"({"op":"OutputSamples","args":[775]})"},
    {"Tune", [] { _zelTune(32, 12, 12); }, R"({"op":"Tune","args":[32,12,12]})"},
    {"Comment", [] { _zelComment("%s", "100% sure"); },
     R"({"op":"Comment","args":["%s","100% sure"]})"},
    {"CommentFormatted", [] { _zelComment("%d of %s", 3, "four"); },
     R"({"op":"Comment","args":["%d of %s","3 of four"]})"},
    {"Color", [] { _zelColor(gColor); }, R"({"op":"Color","args":[[1,0.5,0.25]]})"},
    {"Opacity", [] { _zelOpacity(gColor); }, R"({"op":"Opacity","args":[[1,0.5,0.25]]})"},
    {"ColorNull", [] { _zelColor(nullptr); }, R"({"op":"Color","args":[null]})"},
    {"ShadingRate", [] { _zelShadingRate(4); }, R"({"op":"ShadingRate","args":[4]})"},
    {"ShadingModel", [] { _zelShadingModel(0x0500); }, R"({"op":"ShadingModel","args":[1280]})"},
    {"MatteObject", [] { _zelMatteObject(-1); }, R"({"op":"MatteObject","args":[-1]})"},
    {"Bound", [] { _zelBound(gBound); }, R"({"op":"Bound","args":[[-1,1,-2,2,-3,3]]})"},
    {"Flatness", [] { _zelFlatness(0.5f); }, R"({"op":"Flatness","args":[0.5]})"},
    {"Orientation", [] { _zelOrientation(0x0604); }, R"({"op":"Orientation","args":[1540]})"},
    {"Backface", [] { _zelBackface(1); }, R"({"op":"Backface","args":[1]})"},
    {"ObjectName", [] { _zelObjectName("tea pot"); }, R"({"op":"ObjectName","args":["tea pot"]})"},
    {"GroupNameNull", [] { _zelGroupName(nullptr); }, R"({"op":"GroupName","args":[null]})"},
    {"Basis", [] { _zelBasis(0x0801, 0x0904); }, R"({"op":"Basis","args":[2049,2308]})"},
    {"CustomBasis", [] { _zelCustomBasis(0x0800, gMatrix, 3); },
     R"({"op":"CustomBasis","args":[2048,[1,0,0,0,0,1,0,0,0,0,1,0,0.5,0,0,1],3]})"},
    {"LoadIdentity", [] { _zelLoadIdentity(); }, R"({"op":"LoadIdentity","args":[]})"},
    {"LoadMatrix", [] { _zelLoadMatrix(gMatrix); },
     R"({"op":"LoadMatrix","args":[[1,0,0,0,0,1,0,0,0,0,1,0,0.5,0,0,1]]})"},
    {"MultMatrix", [] { _zelMultMatrix(gMatrix); },
     R"({"op":"MultMatrix","args":[[1,0,0,0,0,1,0,0,0,0,1,0,0.5,0,0,1]]})"},
    {"Perspective", [] { _zelPerspective(45); }, R"({"op":"Perspective","args":[45]})"},
    {"Translate", [] { _zelTranslate(0, 0, 0.5f); }, R"({"op":"Translate","args":[0,0,0.5]})"},
    {"Rotate", [] { _zelRotate(90, 0, 0, 1); }, R"({"op":"Rotate","args":[90,0,0,1]})"},
    {"Scale", [] { _zelScale(1, 2, -3); }, R"({"op":"Scale","args":[1,2,-3]})"},
    {"Skew", [] { _zelSkew(45, 0, 1, 0, 1, 0, 0); }, R"({"op":"Skew","args":[45,0,1,0,1,0,0]})"},
    {"MarkSpace", [] { _zelMarkSpace(0x0023); }, R"({"op":"MarkSpace","args":[35]})"},
    {"ProjectPoints",
     [] { _zelProjectPoints(0x0024, 0x0023, 2, reinterpret_cast<RtPoint*>(gProjected)); },
     R"({"op":"ProjectPoints","args":[36,35,2,[1,2,3,4,5,6]]})"},
    {"SurfaceV", [] { _zelSurfaceV(0x000B, 0, nullptr, nullptr); },
     R"({"op":"SurfaceV","args":[11],"params":[]})"},
    {"AtmosphereV", [] { _zelAtmosphereV(0x001C, 0, nullptr, nullptr); },
     R"({"op":"AtmosphereV","args":[28],"params":[]})"},
    {"PolygonV", [] { _zelPolygonV(4, 0, nullptr, nullptr); },
     R"({"op":"PolygonV","args":[4],"params":[]})"},
    {"GeneralPolygonV", [] { _zelGeneralPolygonV(2, gLoops, 0, nullptr, nullptr); },
     R"({"op":"GeneralPolygonV","args":[2,[3,4]],"params":[]})"},
    {"PolygonMeshV", [] { _zelPolygonMeshV(2, gLoops, gIndices, 0, nullptr, nullptr); },
     R"({"op":"PolygonMeshV","args":[2,[3,4],[0,1,2,2,1,3,4]],"params":[]})"},
    {"GeneralPolygonMeshV",
     [] { _zelGeneralPolygonMeshV(2, gMeshLoops, gMeshVerts, gIndices, 0, nullptr, nullptr); },
     R"({"op":"GeneralPolygonMeshV","args":[2,[1,2],[3,3,2],[0,1,2,2,1,3,4,5]],"params":[]})"},
    {"PatchV", [] { _zelPatchV(0x0701, 0, nullptr, nullptr); },
     R"({"op":"PatchV","args":[1793],"params":[]})"},
    {"PatchMeshV", [] { _zelPatchMeshV(0x0700, 4, 0x0A00, 5, 0x0A01, 0, nullptr, nullptr); },
     R"({"op":"PatchMeshV","args":[1792,4,2560,5,2561],"params":[]})"},
    {"NurbMeshV",
     [] { _zelNurbMeshV(4, 4, gKnots, 0, 1, 5, 4, gKnots, 0, 2, 0, nullptr, nullptr); },
     R"({"op":"NurbMeshV","args":[4,4,[0,0,0,0,1,1,1,1],0,1,5,4,[0,0,0,0,1,1,1,1,2],0,2],"params":[]})"},
    {"SphereV", [] { _zelSphereV(1, -1, 1, 360, 0, nullptr, nullptr); },
     R"({"op":"SphereV","args":[1,-1,1,360],"params":[]})"},
    {"ConeV", [] { _zelConeV(1, 2, 2, 360, 0, nullptr, nullptr); },
     R"({"op":"ConeV","args":[1,2,2,360],"params":[]})"},
    {"CylinderV", [] { _zelCylinderV(1, 0, 3, 180, 0, nullptr, nullptr); },
     R"({"op":"CylinderV","args":[1,0,3,180],"params":[]})"},
    {"HyperboloidV", [] { _zelHyperboloidV(gPoint1, gPoint2, 360, 0, nullptr, nullptr); },
     R"({"op":"HyperboloidV","args":[[1,0,0],[0,1,2],360],"params":[]})"},
    {"ParaboloidV", [] { _zelParaboloidV(1, 0, 2, 360, 0, nullptr, nullptr); },
     R"({"op":"ParaboloidV","args":[1,0,2,360],"params":[]})"},
    {"DiskV", [] { _zelDiskV(0, 1, 360, 0, nullptr, nullptr); },
     R"({"op":"DiskV","args":[0,1,360],"params":[]})"},
    {"TorusV", [] { _zelTorusV(2, 0.5f, 0, 360, 360, 0, nullptr, nullptr); },
     R"({"op":"TorusV","args":[2,0.5,0,360,360],"params":[]})"},
    {"Procedural", [] { _zelProcedural(gColor, gBound, subdivide, nullptr); },
     R"({"op":"Procedural","args":[true,[-1,1,-2,2,-3,3],true,null]})"},
    {"ErrorHandler", [] { _zelErrorHandler(0x0B0F, 0x0C00); },
     R"({"op":"ErrorHandler","args":[2831,3072]})"},
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

class RecordLine : public ZelTest, public ::testing::WithParamInterface<Case> {};

TEST_P(RecordLine, IsWrittenExactlyAndReadBack) {
  GetParam().call();
  EXPECT_EQ(recordLines(), std::vector<std::string>{GetParam().line});
  const std::string op = records().at(0).op;
  EXPECT_EQ(std::string(GetParam().line).rfind("{\"op\":\"" + op + "\",", 0), 0u) << op;
  EXPECT_TRUE(gReportLines.empty());
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, RecordLine, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ZelTest, FileStartsWithTheHeader) {
  zelFlush();
  EXPECT_EQ(fileText(path_),
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
