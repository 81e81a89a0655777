// The records of later versions' requests keep the library's rule: a list
// whose info does not match is written without its values and reported.
#include <functional>

#include "tests/zel/zelfixture.h"

namespace {

TEST_F(ZelTest, LaterRecordsRefuseAListThatDoesNotMatchItsInfo) {
  const char* text = "x";
  RtPointer value = &text;
  const uint16_t code = 0x000D;
  const char* ptcs[] = {"a.ptc"};
  const std::vector<std::pair<const char*, std::function<void()>>> calls = {
      {"ShadingNodeV", [&] { _zelShadingNodeV(kZelBxdf, "t", "h", 1, &code, &value); }},
      {"CameraV", [&] { _zelCameraV("c", 1, &code, &value); }},
      {"ResourceV", [&] { _zelResourceV("r", "t", 1, &code, &value); }},
      {"MakeBrickMapV", [&] { _zelMakeBrickMapV(1, ptcs, "o", 1, &code, &value); }},
      {"EditWorldBeginV", [&] { _zelEditWorldBeginV(1, &code, &value); }},
      {"NamedDisplayV", [&] { _zelNamedDisplayV("+d", "it", "rgba", 1, &code, &value); }},
  };
  const ZelParam otherCode = {"Kd", 0x000E, 10, 1, 1};
  for (const auto& [op, call] : calls) {
    gReportLines.clear();
    _zelParameterInfo(1, &otherCode);
    call();
    EXPECT_EQ(gReportLines, std::vector<std::string>{std::string("ZEL error: ") + op +
                                                     ": the parameter info does not match its "
                                                     "parameter list"});
  }
  const ZelParam reference = {"Kd", code, 10, 1, 1};
  _zelParameterInfo(1, &reference);
  _zelShadingNodeV(kZelPattern, "t", "h", 1, &code, &value);
  std::vector<std::string> lines = recordLines();
  EXPECT_EQ(lines.back(),
            R"({"op":"ShadingNodeV","args":[3329,"t","h"],"params":[{"code":13,"name":"Kd",)"
            R"("type":10,"class":1,"count":1,"values":["x"]}]})");
  EXPECT_EQ(records().back().params.at(0).values.items().at(0).asText(), "x");
}

}  // namespace
