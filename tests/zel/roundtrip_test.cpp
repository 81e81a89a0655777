// What the library writes, the reader gives back: the same float bits, the
// same bytes, null where null was given, and every parameter value.
#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "tests/zel/zelfixture.h"

namespace {

std::vector<float> awkwardFloats() {
  std::vector<float> values = {
      0.0f,           -0.0f,           0.1f,         1.0f / 3.0f,
      16777216.0f,    16777217.0f,     123456789.0f, 3.4028235e38f,
      -3.4028235e38f, 1.17549435e-38f, 1.4e-45f,     std::numeric_limits<float>::denorm_min() * 3,
      2.3509886e-38f, 9.999999e-39f};
  std::mt19937 random(20240611);
  while (values.size() < 4000) {
    float value = std::bit_cast<float>(static_cast<uint32_t>(random()));
    if (std::isfinite(value)) values.push_back(value);
  }
  return values;
}

TEST_F(ZelTest, FloatsReadBackToTheSameBits) {
  std::vector<float> values = awkwardFloats();
  writePolygon(values);
  _zelTranslate(values[2], values[3], values[4]);

  std::vector<ZelRecord> read = records();
  ASSERT_EQ(read.size(), 2u);
  std::vector<float> back = read[0].params.at(0).values.asFloats();
  ASSERT_EQ(back.size(), values.size());
  for (size_t i = 0; i < values.size(); ++i)
    ASSERT_EQ(std::bit_cast<uint32_t>(back[i]), std::bit_cast<uint32_t>(values[i]))
        << "float " << i << " written as " << values[i];
  EXPECT_EQ(std::bit_cast<uint32_t>(read[1].args[1].asFloat()), std::bit_cast<uint32_t>(values[3]));
}

TEST_F(ZelTest, NonFiniteFloatsAreNamedAndReadBack) {
  const float inf = std::numeric_limits<float>::infinity();
  _zelSphereV(inf, -inf, std::nanf(""), 360, 0, nullptr, nullptr);
  const float color[3] = {-inf, std::nanf(""), -0.0f};
  _zelColor(color);
  EXPECT_EQ(recordLines(), (std::vector<std::string>{
                               R"({"op":"SphereV","args":["inf","-inf","nan",360],"params":[]})",
                               R"({"op":"Color","args":[["-inf","nan",-0.0]]})"}));
  std::vector<ZelRecord> read = records();
  EXPECT_EQ(read[0].args[0].asFloat(), inf);
  EXPECT_EQ(read[0].args[1].asFloat(), -inf);
  EXPECT_TRUE(std::isnan(read[0].args[2].asFloat()));
  std::vector<float> back = read[1].args[0].asFloats();
  EXPECT_EQ(back[0], -inf);
  EXPECT_TRUE(std::isnan(back[1]));
  EXPECT_TRUE(std::signbit(back[2]));
}

TEST_F(ZelTest, TextKeepsEveryByte) {
  std::string all;
  for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
  _zelObjectName(all.c_str());
  _zelOutputDisplay(nullptr);
  _zelComment("%s", "\xFF\x80 \"quoted\" back\\slash\ttab");

  std::vector<std::string> lines = recordLines();
  for (const std::string& line : lines)
    for (unsigned char c : line) ASSERT_LT(c, 0x80) << line;
  EXPECT_NE(lines[0].find("~\x7F"
                          R"(\u0080\u0081)"),
            std::string::npos);
  EXPECT_NE(lines[0].find(R"(\u00FE\u00FF")"), std::string::npos);

  std::vector<ZelRecord> read = records();
  EXPECT_EQ(read[0].args[0].asText(), all);
  EXPECT_TRUE(read[1].args[0].isNull());
  EXPECT_EQ(read[2].args[1].asText(), "\xFF\x80 \"quoted\" back\\slash\ttab");
}

TEST_F(ZelTest, ParameterValuesOfEveryTypeComeBack) {
  // Sized exactly, so that a read past the count is an AddressSanitizer
  // report rather than a quiet extra number.
  std::vector<float> floats = {0.25f, 0.5f}, points = {1, 2, 3, 4, 5, 6},
                     colors = {0.1f, 0.2f, 0.3f};
  std::vector<int32_t> ints = {10, -20};
  const char* texts[] = {"map.tex", nullptr, "caf\xE9"};
  ZelParam infos[] = {{"Kd", 0x000D, 1, 1, 2},          {"P", 0x0001, 4, 3, 6},
                      {"Cs", 0x0006, 5, 2, 3},          {"origin", 0xFF15, 2, 1, 2},
                      {"texturename", 0xFF09, 3, 1, 3}, {"flag", 0xFF06, 0, 0, 5},
                      {"missing", 0x000C, 1, 1, 1}};
  uint16_t codes[] = {0x000D, 0x0001, 0x0006, 0xFF15, 0xFF09, 0xFF06, 0x000C};
  RtPointer values[] = {floats.data(), points.data(), colors.data(), ints.data(),
                        texts,         floats.data(), nullptr};
  _zelParameterInfo(7, infos);
  _zelSurfaceV(0x000B, 7, codes, values);

  ZelRecord surface = records().at(0);
  ASSERT_TRUE(surface.hasParams);
  ASSERT_EQ(surface.params.size(), 7u);
  EXPECT_EQ(surface.params[0].values.asFloats(), std::vector<float>({0.25f, 0.5f}));
  EXPECT_EQ(surface.params[1].values.asFloats(), points);
  EXPECT_EQ(surface.params[2].values.asFloats(), colors);
  EXPECT_EQ(surface.params[3].values.asInts(), std::vector<int64_t>({10, -20}));
  const auto& strings = surface.params[4].values.items();
  ASSERT_EQ(strings.size(), 3u);
  EXPECT_EQ(strings[0].asText(), "map.tex");
  EXPECT_TRUE(strings[1].isNull());
  EXPECT_EQ(strings[2].asText(), "caf\xE9");
  EXPECT_TRUE(surface.params[5].values.items().empty()) << "a keyword token has no value to read";
  EXPECT_TRUE(surface.params[6].values.isNull());

  const ZelParamRecord& point = surface.params[1];
  EXPECT_EQ(point.code, 1);
  EXPECT_EQ(point.name, "P");
  EXPECT_EQ(point.type, 4);
  EXPECT_EQ(point.tokenClass, 3);
  EXPECT_EQ(point.count, 6);
  EXPECT_TRUE(gReportLines.empty());
}

}  // namespace
