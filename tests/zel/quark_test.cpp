// Codes for new names: stable, clear of the predeclared ones, and told to
// each file by a Quark record before any line uses them.
#include "tests/zel/zelfixture.h"

namespace {

// Every code the boundary predeclares or passes as a plain number.
bool predeclared(int32_t code) {
  return code <= 0x0C02 || (code >= 0xFF01 && code <= 0xFF20);
}

TEST_F(ZelTest, SameTextSameCodeOtherTextOtherCode) {
  int32_t shader = _zelQuark("wood");
  int32_t space = _zelQuark("myspace");
  EXPECT_EQ(_zelQuark("wood"), shader);
  EXPECT_NE(shader, space);
  EXPECT_FALSE(predeclared(shader));
  EXPECT_FALSE(predeclared(space));
  EXPECT_LE(shader, 0xFFFF);
  EXPECT_EQ(_zelQuark("Wood"), space + 1) << "names are told apart by every byte";
}

TEST_F(ZelTest, QuarkRecordComesOnceWhenTheCodeIsGiven) {
  int32_t code = _zelQuark("myspace");
  _zelQuark("myspace");
  _zelMarkSpace(static_cast<uint16_t>(code));
  std::string number = std::to_string(code);
  EXPECT_EQ(recordLines(), (std::vector<std::string>{
                               R"({"op":"Quark","args":["myspace",)" + number + "]}",
                               R"({"op":"MarkSpace","args":[)" + number + "]}",
                           }));
}

TEST_F(ZelTest, NextFileIsToldTheNameBeforeItsFirstUse) {
  uint16_t shader = static_cast<uint16_t>(_zelQuark("wood"));
  uint16_t param = static_cast<uint16_t>(_zelQuark("grain"));
  std::string second = dir_.file("second.zel").string();
  _zelOutputFile(kZelSceneFile, second.c_str());
  _zelSurfaceV(shader, 0, nullptr, nullptr);
  auto grain = std::vector<float>{0.5f};
  ZelParam info = {"grain", param, 1, 1, 1};
  RtPointer value = grain.data();
  _zelParameterInfo(1, &info);
  _zelSphereV(1, -1, 1, 360, 1, &param, &value);
  _zelSurfaceV(shader, 0, nullptr, nullptr);
  zelFlush();

  ZelFile file = readZelFile(second);
  std::vector<std::string> ops;
  for (const ZelRecord& record : file.records) ops.push_back(record.op);
  EXPECT_EQ(ops, (std::vector<std::string>{"Quark", "SurfaceV", "Quark", "SphereV", "SurfaceV"}));
  EXPECT_EQ(file.quarks, (std::map<int64_t, std::string>{{shader, "wood"}, {param, "grain"}}));
}

TEST_F(ZelTest, NamesGivenBeforeAnyFileAreToldToTheFile) {
  zelReset();
  zelSetMessageSink(captureLine);
  uint16_t code = static_cast<uint16_t>(_zelQuark("early"));
  _zelOutputFile(kZelSceneFile, path_.c_str());
  _zelPatchV(code, 0, nullptr, nullptr);
  std::vector<ZelRecord> read = records();
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].op, "Quark");
  EXPECT_EQ(read[0].args[0].asText(), "early");
}

TEST_F(ZelTest, QuarkNamesKeepTheirBytesAndNullReadsAsNull) {
  int32_t accented = _zelQuark("r\xE9sum\xE9");
  EXPECT_EQ(_zelQuark(nullptr), _zelQuark("null"));
  ZelFile file = readZelFile((zelFlush(), path_));
  EXPECT_EQ(file.quarks.at(accented), "r\xE9sum\xE9");
}

TEST_F(ZelTest, CodesRunOutWithAReportAndZero) {
  zelDiscardOutput();
  int32_t last = 0;
  for (int i = 0; i < 0xEF00; ++i) last = _zelQuark(("n" + std::to_string(i)).c_str());
  EXPECT_EQ(last, 0xFEFF);
  EXPECT_TRUE(gReportLines.empty());
  EXPECT_EQ(_zelQuark("one too many"), 0);
  EXPECT_EQ(_zelQuark("n5"), 0x1005) << "names that have a code keep it";
  EXPECT_EQ(gReportLines, std::vector<std::string>{"ZEL error: no code left for the name \"one too "
                                                   "many\": all 61184 codes are in use"});
}

}  // namespace
