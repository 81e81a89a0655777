// Faults in the block structure and in handles: one report line each, in the
// mode chosen, and the faulty operation recorded all the same.
#include <functional>
#include <map>

#include "interface/scene/zel.h"
#include "tests/zel/zelfixture.h"
#include "zel/messages.h"

namespace {

RtPointer handle(intptr_t number) {
  return reinterpret_cast<RtPointer>(number);
}

// The operations a script names; those with a number take it as "Name:N".
const std::map<std::string, std::function<void(intptr_t)>> kOps = {
    {"FrameBegin", [](intptr_t) { _zelFrameBegin(); }},
    {"FrameEnd", [](intptr_t) { _zelFrameEnd(); }},
    {"SceneBegin", [](intptr_t) { _zelSceneBegin(); }},
    {"SceneEnd", [](intptr_t) { _zelSceneEnd(); }},
    {"MatrixPush", [](intptr_t) { _zelMatrixPush(); }},
    {"MatrixPop", [](intptr_t) { _zelMatrixPop(); }},
    {"AttributePush", [](intptr_t) { _zelAttributePush(); }},
    {"AttributePop", [](intptr_t) { _zelAttributePop(); }},
    {"ObjectBegin", [](intptr_t) { _zelObjectBegin(); }},
    {"ObjectEnd", [](intptr_t) { _zelObjectEnd(); }},
    {"ObjectCall", [](intptr_t n) { _zelObjectCall(handle(n)); }},
    {"LightSource", [](intptr_t) { _zelLightSourceV(0x0012, 0, nullptr, nullptr); }},
    {"LightSwitch", [](intptr_t n) { _zelLightSwitch(handle(n), 1); }},
    {"ErrorHandler",
     [](intptr_t n) { _zelErrorHandler(kZelHandlerSetting, static_cast<uint16_t>(n)); }},
};

// Runs a script and answers how many operations it called.
size_t run(const std::string& script) {
  std::istringstream in(script);
  size_t count = 0;
  for (std::string word; in >> word; ++count) {
    const size_t colon = word.find(':');
    const intptr_t n =
        colon == std::string::npos ? 0 : std::stol(word.substr(colon + 1), nullptr, 0);
    kOps.at(word.substr(0, colon))(n);
  }
  return count;
}

struct Fault {
  const char* name;
  const char* script;
  std::vector<std::string> lines;
};

// Modes of ErrorHandler: 0x0C00 ignore, 0x0C01 print.
const Fault kFaults[] = {
    {"BalancedBlocks",
     "FrameBegin MatrixPush SceneBegin AttributePush ObjectBegin ObjectEnd ObjectCall:1 "
     "AttributePop SceneEnd MatrixPop FrameEnd",
     {}},
    {"PopWithNothingOpen", "AttributePop", {"ZEL error: AttributePop with no AttributePush open"}},
    {"EveryEndWithNothingOpen",
     "FrameEnd SceneEnd MatrixPop ObjectEnd",
     {"ZEL error: FrameEnd with no FrameBegin open", "ZEL error: SceneEnd with no SceneBegin open",
      "ZEL error: MatrixPop with no MatrixPush open",
      "ZEL error: ObjectEnd with no ObjectBegin open"}},
    {"FrameInsideFrame", "FrameBegin FrameBegin", {"ZEL error: FrameBegin inside an open frame"}},
    {"FrameInsideScene", "SceneBegin FrameBegin", {"ZEL error: FrameBegin inside an open scene"}},
    {"SceneInsideScene",
     "SceneBegin AttributePush SceneBegin",
     {"ZEL error: SceneBegin inside an open scene"}},
    // The pop closes the matrix block opened inside it, so the later
    // MatrixPop finds nothing open: one slip, two lines, no more.
    {"CrossedBlocks",
     "AttributePush MatrixPush AttributePop MatrixPop AttributePush AttributePop",
     {"ZEL error: AttributePop while a MatrixPush is open",
      "ZEL error: MatrixPop with no MatrixPush open"}},
    {"SceneEndClosesWhatIsInside",
     "SceneBegin AttributePush AttributePush SceneEnd AttributePop",
     {"ZEL error: SceneEnd while an AttributePush is open",
      "ZEL error: AttributePop with no AttributePush open"}},
    {"UnknownObject", "ObjectCall:7", {"ZEL error: ObjectCall of unknown object 7"}},
    {"NullObject", "ObjectCall:0", {"ZEL error: ObjectCall of unknown object 0"}},
    {"ObjectInsideItsOwnDefinition",
     "ObjectBegin ObjectCall:1 ObjectEnd",
     {"ZEL error: ObjectCall of object 1 inside its own definition"}},
    {"ObjectInsideObject",
     "ObjectBegin ObjectBegin ObjectEnd ObjectEnd ObjectCall:2",
     {"ZEL error: ObjectBegin inside the definition of object 1"}},
    {"UnknownLight",
     "LightSource LightSwitch:1 LightSwitch:2",
     {"ZEL error: LightSwitch of unknown light 2"}},
    {"AreaLightSwitch", "LightSwitch:0", {}},
    {"IgnoreModeRecordsWithoutAWord", "ErrorHandler:0x0C00 AttributePop ObjectCall:3", {}},
    {"PrintModeComesBackAfterIgnore",
     "ErrorHandler:0x0C00 ErrorHandler:0x0C01 MatrixPop",
     {"ZEL error: MatrixPop with no MatrixPush open"}},
    // While ignoring, not even the unknown mode is told.
    {"UnknownModeIsReportedAndTheModeStays",
     "ErrorHandler:0x0C00 ErrorHandler:0x0C07 AttributePop ErrorHandler:0x0C01 ErrorHandler:7",
     {"ZEL error: ErrorHandler with unknown mode 7; the mode stays"}},
};

void PrintTo(const Fault& fault, std::ostream* out) {
  *out << fault.name;
}

class NestingFault : public ZelTest, public ::testing::WithParamInterface<Fault> {};

// Every operation is recorded, faulty or not.
TEST_P(NestingFault, IsReportedAndRecorded) {
  const size_t called = run(GetParam().script);
  EXPECT_EQ(gReportLines, GetParam().lines);
  EXPECT_EQ(records().size(), called);
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
  _zelCustomErrorHandler(kZelHandlerSetting, customHandler);
  _zelFrameEnd();
  _zelLightSwitch(handle(4), 1);
  EXPECT_TRUE(gReportLines.empty());
  ASSERT_EQ(gReceived.size(), 2u);
  EXPECT_EQ(gReceived[0].code, zel::kNesting);
  EXPECT_EQ(gReceived[0].severity, zel::kError);
  EXPECT_EQ(gReceived[0].message, "ZEL error: FrameEnd with no FrameBegin open");
  EXPECT_EQ(gReceived[1].code, zel::kBadHandle);
  EXPECT_EQ(gReceived[1].message, "ZEL error: LightSwitch of unknown light 4");
  EXPECT_EQ(records().front().op, "CustomErrorHandler");
}

TEST_F(ZelTest, AbortModeEndsTheProgramWithTheRecordOnDisk) {
  std::string path = dir_.file("abort.zel").string();
  EXPECT_DEATH(
      {
        zelSetMessageSink(nullptr);
        _zelOutputFile(kZelSceneFile, path.c_str());
        _zelErrorHandler(kZelHandlerSetting, kZelAbort);
        _zelSceneBegin();
        _zelSceneEnd();
        _zelAttributePop();
      },
      "ZEL error: AttributePop with no AttributePush open");
  std::vector<ZelRecord> read = readZelFile(path).records;
  ASSERT_EQ(read.size(), 4u);
  EXPECT_EQ(read.back().op, "AttributePop");
}

TEST_F(ZelTest, NewFileStartsWithNothingOpenAndNoHandles) {
  _zelFrameBegin();
  _zelObjectBegin();
  _zelOutputFile(kZelSceneFile, path_.c_str());
  _zelFrameBegin();
  _zelObjectCall(handle(1));
  EXPECT_EQ(gReportLines, std::vector<std::string>{"ZEL error: ObjectCall of unknown object 1"});
}

}  // namespace
