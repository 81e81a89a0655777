// The parameter info is the only source of value counts. A list that comes
// without matching info is written without values, and reported.
#include <functional>

#include "tests/zel/zelfixture.h"

namespace {

class ParamsTest : public ZelTest {
 protected:
  // One "Kd" float parameter, its buffer sized exactly.
  std::vector<float> kd_ = {0.5f};
  uint16_t code_ = 0x000D;
  RtPointer value_ = kd_.data();
  ZelParam info_ = {"Kd", 0x000D, 1, 1, 1};
};

TEST_F(ParamsTest, OnlyTheCountedNumbersAreRead) {
  // A value buffer longer than its count: the rest is never looked at.
  std::vector<int32_t> bucket = {8, 8, 999};
  ZelParam info = {"bucketsize", 0xFF20, 2, 1, 2};
  uint16_t code = 0xFF20;
  RtPointer value = bucket.data();
  _zelParameterInfo(1, &info);
  _zelSurfaceV(0x000B, 1, &code, &value);
  EXPECT_EQ(records().at(0).params.at(0).values.asInts(), std::vector<int64_t>({8, 8}));
}

TEST_F(ParamsTest, InfoWaitsThroughCallsWithoutAList) {
  // The lifted disk: push and translate come between the info and its list.
  _zelParameterInfo(1, &info_);
  _zelMatrixPush();
  _zelTranslate(0, 0, 0.5f);
  _zelDiskV(0, 1, 360, 1, &code_, &value_);
  _zelMatrixPop();
  EXPECT_TRUE(gReportLines.empty());
  EXPECT_EQ(records().at(2).params.at(0).values.asFloats(), kd_);
}

TEST_F(ParamsTest, InfoIsUsedUpByOneList) {
  _zelParameterInfo(1, &info_);
  _zelSphereV(1, -1, 1, 360, 1, &code_, &value_);
  _zelSphereV(1, -1, 1, 360, 1, &code_, &value_);
  EXPECT_EQ(gReportLines,
            std::vector<std::string>{
                "ZEL error: SphereV: no parameter info came before its parameter list"});
  EXPECT_EQ(recordLines().at(1),
            R"({"op":"SphereV","args":[1,-1,1,360],"params":[{"code":13,"name":null,"type":0,)"
            R"("class":0,"count":0,"values":null}]})");
}

TEST_F(ParamsTest, MismatchedInfoWritesNoValues) {
  struct Mismatch {
    const char* what;
    ZelParam info;
    int32_t n;
  };
  const Mismatch mismatches[] = {
      {"another code", {"Ka", 0x000C, 1, 1, 1}, 1},
      {"another count", {"Kd", 0x000D, 1, 1, 1}, 2},
      {"an empty list", {"Kd", 0x000D, 1, 1, 1}, 0},
  };
  for (const Mismatch& mismatch : mismatches) {
    gReportLines.clear();
    std::vector<uint16_t> codes(2, code_);
    std::vector<RtPointer> values(2, value_);
    _zelParameterInfo(1, &mismatch.info);
    _zelSurfaceV(0x000B, mismatch.n, codes.data(), values.data());
    EXPECT_EQ(gReportLines,
              std::vector<std::string>{
                  "ZEL error: SurfaceV: the parameter info does not match its parameter list"})
        << mismatch.what;
    const ZelRecord written = records().back();
    for (const ZelParamRecord& p : written.params) EXPECT_TRUE(p.values.isNull()) << mismatch.what;
  }
}

TEST_F(ParamsTest, InfoIsCopiedWhenGiven) {
  std::string name = "Kd";
  ZelParam info = {name.c_str(), 0x000D, 1, 1, 1};
  _zelParameterInfo(1, &info);
  name = "overwritten";
  info.count = 1000;
  _zelCylinderV(1, 0, 1, 360, 1, &code_, &value_);
  ZelParamRecord written = records().at(0).params.at(0);
  EXPECT_EQ(written.name, "Kd");
  EXPECT_EQ(written.count, 1);
}

// Empty info for an empty list is fine; a null value array writes null values.
TEST_F(ParamsTest, NullValueArrayWritesNullValues) {
  _zelParameterInfo(0, nullptr);
  _zelSphereV(1, -1, 1, 360, 0, nullptr, nullptr);
  _zelParameterInfo(1, &info_);
  _zelTorusV(2, 0.5f, 0, 360, 360, 1, &code_, nullptr);
  EXPECT_TRUE(records().at(1).params.at(0).values.isNull());
  EXPECT_TRUE(gReportLines.empty());
}

// The records of later versions keep the rule too, the values dropped.
TEST_F(ParamsTest, LaterRecordsRefuseAListThatDoesNotMatchItsInfo) {
  const char* text = "x";
  RtPointer value = &text;
  const char* ptcs[] = {"a.ptc"};
  int32_t two[] = {2};
  const std::vector<std::pair<const char*, std::function<void()>>> calls = {
      {"ShadingNodeV", [&] { _zelShadingNodeV(kZelBxdf, "t", "h", 1, &code_, &value); }},
      {"CameraV", [&] { _zelCameraV("c", 1, &code_, &value); }},
      {"ResourceV", [&] { _zelResourceV("r", "t", 1, &code_, &value); }},
      {"MakeBrickMapV", [&] { _zelMakeBrickMapV(1, ptcs, "o", 1, &code_, &value); }},
      {"EditWorldBeginV", [&] { _zelEditWorldBeginV(1, &code_, &value); }},
      {"NamedDisplayV", [&] { _zelNamedDisplayV("+d", "it", "rgba", 1, &code_, &value); }},
      {"CurvesV", [&] { _zelCurvesV("linear", 1, two, "nonperiodic", 1, &code_, &value); }},
  };
  const ZelParam otherCode = {"Kd", 0x000E, 10, 1, 1};
  for (const auto& [op, call] : calls) {
    gReportLines.clear();
    _zelParameterInfo(1, &otherCode);
    call();
    EXPECT_EQ(gReportLines, std::vector<std::string>{std::string("ZEL error: ") + op +
                                                     ": the parameter info does not match its "
                                                     "parameter list"});
    EXPECT_TRUE(records().back().params.at(0).values.isNull()) << op;
  }
  const ZelParam reference = {"Kd", code_, 10, 1, 1};
  _zelParameterInfo(1, &reference);
  _zelShadingNodeV(kZelPattern, "t", "h", 1, &code_, &value);
  EXPECT_EQ(recordLines().back(),
            R"({"op":"ShadingNodeV","args":[3329,"t","h"],"params":[{"code":13,"name":"Kd",)"
            R"("type":10,"class":1,"count":1,"values":["x"]}]})");
  EXPECT_EQ(records().back().params.at(0).values.items().at(0).asText(), "x");
}

}  // namespace
