// Faults in the block structure and in handles: one report line each, in the
// mode chosen, and the faulty operation recorded all the same.
#include <functional>

#include "tests/zel/zelfixture.h"

namespace {

RtPointer handle(intptr_t number) {
  return reinterpret_cast<RtPointer>(number);
}

struct Fault {
  const char* name;
  std::function<void()> calls;
  size_t records;
  std::vector<std::string> lines;
};

const Fault kFaults[] = {
    {"BalancedBlocks",
     [] {
       _zelFrameBegin();
       _zelMatrixPush();
       _zelSceneBegin();
       _zelAttributePush();
       _zelObjectBegin();
       _zelObjectEnd();
       _zelObjectCall(handle(1));
       _zelAttributePop();
       _zelSceneEnd();
       _zelMatrixPop();
       _zelFrameEnd();
     },
     11,
     {}},
    {"PopWithNothingOpen",
     [] { _zelAttributePop(); },
     1,
     {"ZEL error: AttributePop with no AttributePush open"}},
    {"EveryEndWithNothingOpen",
     [] {
       _zelFrameEnd();
       _zelSceneEnd();
       _zelMatrixPop();
       _zelObjectEnd();
     },
     4,
     {"ZEL error: FrameEnd with no FrameBegin open", "ZEL error: SceneEnd with no SceneBegin open",
      "ZEL error: MatrixPop with no MatrixPush open",
      "ZEL error: ObjectEnd with no ObjectBegin open"}},
    {"FrameInsideFrame",
     [] {
       _zelFrameBegin();
       _zelFrameBegin();
     },
     2,
     {"ZEL error: FrameBegin inside an open frame"}},
    {"FrameInsideScene",
     [] {
       _zelSceneBegin();
       _zelFrameBegin();
     },
     2,
     {"ZEL error: FrameBegin inside an open scene"}},
    {"SceneInsideScene",
     [] {
       _zelSceneBegin();
       _zelAttributePush();
       _zelSceneBegin();
     },
     3,
     {"ZEL error: SceneBegin inside an open scene"}},
    // The pop closes the matrix block opened inside it, so the later
    // MatrixPop finds nothing open: one slip, two lines, no more.
    {"CrossedBlocks",
     [] {
       _zelAttributePush();
       _zelMatrixPush();
       _zelAttributePop();
       _zelMatrixPop();
       _zelAttributePush();
       _zelAttributePop();
     },
     6,
     {"ZEL error: AttributePop while a MatrixPush is open",
      "ZEL error: MatrixPop with no MatrixPush open"}},
    {"SceneEndClosesWhatIsInside",
     [] {
       _zelSceneBegin();
       _zelAttributePush();
       _zelAttributePush();
       _zelSceneEnd();
       _zelAttributePop();
     },
     5,
     {"ZEL error: SceneEnd while an AttributePush is open",
      "ZEL error: AttributePop with no AttributePush open"}},
    {"UnknownObject",
     [] { _zelObjectCall(handle(7)); },
     1,
     {"ZEL error: ObjectCall of unknown object 7"}},
    {"NullObject",
     [] { _zelObjectCall(nullptr); },
     1,
     {"ZEL error: ObjectCall of unknown object 0"}},
    {"ObjectInsideItsOwnDefinition",
     [] {
       _zelObjectCall(_zelObjectBegin());
       _zelObjectEnd();
     },
     3,
     {"ZEL error: ObjectCall of object 1 inside its own definition"}},
    {"ObjectInsideObject",
     [] {
       _zelObjectBegin();
       _zelObjectBegin();
       _zelObjectEnd();
       _zelObjectEnd();
       _zelObjectCall(handle(2));
     },
     5,
     {"ZEL error: ObjectBegin inside the definition of object 1"}},
    {"UnknownLight",
     [] {
       _zelLightSourceV(0x0012, 0, nullptr, nullptr);
       _zelLightSwitch(handle(1), 1);
       _zelLightSwitch(handle(2), 1);
     },
     3,
     {"ZEL error: LightSwitch of unknown light 2"}},
    {"AreaLightSwitch", [] { _zelLightSwitch(handle(0), 1); }, 1, {}},
};

void PrintTo(const Fault& fault, std::ostream* out) {
  *out << fault.name;
}

class NestingFault : public ZelTest, public ::testing::WithParamInterface<Fault> {};

TEST_P(NestingFault, IsReportedAndRecorded) {
  GetParam().calls();
  EXPECT_EQ(gReportLines, GetParam().lines);
  EXPECT_EQ(records().size(), GetParam().records);
}

INSTANTIATE_TEST_SUITE_P(Nesting, NestingFault, ::testing::ValuesIn(kFaults),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ZelTest, NestingDeeperThanTrackedStillPairs) {
  zelDiscardOutput();
  const int depth = 70000;  // past the depth whose kinds are kept
  _zelSceneBegin();
  for (int i = 0; i < depth; ++i) i % 2 ? _zelAttributePush() : _zelMatrixPush();
  for (int i = depth - 1; i >= 0; --i) i % 2 ? _zelAttributePop() : _zelMatrixPop();
  EXPECT_TRUE(gReportLines.empty());
  _zelSceneEnd();
  _zelMatrixPop();
  EXPECT_EQ(gReportLines, std::vector<std::string>{"ZEL error: MatrixPop with no MatrixPush open"});
}

TEST_F(ZelTest, IgnoreModeRecordsWithoutAWord) {
  _zelErrorHandler(0x0B0F, 0x0C00);
  _zelAttributePop();
  _zelObjectCall(handle(3));
  EXPECT_TRUE(gReportLines.empty());
  std::vector<ZelRecord> read = records();
  ASSERT_EQ(read.size(), 3u);
  EXPECT_EQ(read[1].op, "AttributePop");
  EXPECT_EQ(read[2].op, "ObjectCall");
}

TEST_F(ZelTest, PrintModeComesBackAfterIgnore) {
  _zelErrorHandler(0x0B0F, 0x0C00);
  _zelErrorHandler(0x0B0F, 0x0C01);
  _zelMatrixPop();
  EXPECT_EQ(gReportLines, std::vector<std::string>{"ZEL error: MatrixPop with no MatrixPush open"});
}

struct Received {
  RtInt code;
  RtInt severity;
  std::string message;
};
std::vector<Received> gReceived;

void customHandler(RtInt code, RtInt severity, const char* message) {
  gReceived.push_back({code, severity, message});
}

TEST_F(ZelTest, CustomHandlerGetsCodeSeverityAndLine) {
  gReceived.clear();
  _zelCustomErrorHandler(0x0B0F, customHandler);
  _zelFrameEnd();
  _zelLightSwitch(handle(4), 1);
  EXPECT_TRUE(gReportLines.empty());
  ASSERT_EQ(gReceived.size(), 2u);
  EXPECT_EQ(gReceived[0].code, 24);
  EXPECT_EQ(gReceived[0].severity, 2);
  EXPECT_EQ(gReceived[0].message, "ZEL error: FrameEnd with no FrameBegin open");
  EXPECT_EQ(gReceived[1].code, 44);
  EXPECT_EQ(gReceived[1].message, "ZEL error: LightSwitch of unknown light 4");
  EXPECT_EQ(records().front().op, "CustomErrorHandler");
}

TEST_F(ZelTest, UnknownModeIsReportedAndTheModeStays) {
  _zelErrorHandler(0x0B0F, 0x0C00);
  _zelErrorHandler(0x0B0F, 0x0C07);
  _zelAttributePop();
  EXPECT_TRUE(gReportLines.empty()) << "still ignoring, so not even the bad mode is told";
  _zelErrorHandler(0x0B0F, 0x0C01);
  _zelErrorHandler(0x0B0F, 7);
  EXPECT_EQ(gReportLines, std::vector<std::string>{
                              "ZEL error: ErrorHandler with unknown mode 7; the mode stays"});
}

TEST_F(ZelTest, AbortModeEndsTheProgramWithTheRecordOnDisk) {
  std::string path = scratchPath("abort");
  EXPECT_DEATH(
      {
        zelSetMessageSink(nullptr);
        _zelOutputFile(0x0200, path.c_str());
        _zelErrorHandler(0x0B0F, 0x0C02);
        _zelSceneBegin();
        _zelSceneEnd();
        _zelAttributePop();
      },
      "ZEL error: AttributePop with no AttributePush open");
  std::vector<ZelRecord> read = readZelFile(path).records;
  std::filesystem::remove(path);
  ASSERT_EQ(read.size(), 4u);
  EXPECT_EQ(read.back().op, "AttributePop");
}

TEST_F(ZelTest, NewFileStartsWithNothingOpenAndNoHandles) {
  _zelFrameBegin();
  _zelObjectBegin();
  _zelOutputFile(0x0200, path_.c_str());
  _zelFrameBegin();
  _zelObjectCall(handle(1));
  EXPECT_EQ(gReportLines, std::vector<std::string>{"ZEL error: ObjectCall of unknown object 1"});
}

}  // namespace
