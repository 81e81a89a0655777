// Attribute, shader, light and transform requests, and the table of light
// numbers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/rib/requests/conversion.h"

namespace {

using Lines = std::vector<std::string>;
using Ops = std::vector<std::string>;

// The handle of the light that a LightSwitch record turned on or off must be
// the handle the library gave a LightSourceV record.
int64_t switchedLight(const Conversion& c) {
  return c.only("LightSwitch").args.at(0).asInt();
}

// The first light of a stream: range checked, warned on a leap, and filed
// under its low 16 bits.
TEST(LightRequests, NumbersAreRangeCheckedWarnedOnALeapAndFiledUnderTheirLow16Bits) {
  const std::string kRange = "RIB error: invalid light or object handle at line 1 'Illuminate': ";
  const std::string kLeap = "RIB warning: invalid light or object handle at line 1 'Illuminate': ";
  const struct {
    const char* number;  // as the stream writes it
    const char* lookup;  // the number an Illuminate finds it under
    Lines log;           // the reports of the LightSource alone
  } cases[] = {
      {"1000", "1000", {}},
      {"1001", "1001", {kLeap + "Light handle 1001 is signficantly larger than previous 0"}},
      {"70000",
       "4464",
       {kRange + "Light handle 70000 is not in range 0 - 65535",
        kLeap + "Light handle 70000 is signficantly larger than previous 0"}},
      {"70000",
       "70000",
       {kRange + "Light handle 70000 is not in range 0 - 65535",
        kLeap + "Light handle 70000 is signficantly larger than previous 0"}},
      {"-1", "65535", {kRange + "Light handle -1 is not in range 0 - 65535"}}};
  for (const auto& t : cases) {
    SCOPED_TRACE(std::string(t.number) + " " + t.lookup);
    Conversion c = convert(std::string("LightSource \"pointlight\" ") + t.number + "\nIlluminate " +
                           t.lookup + " 0");
    EXPECT_EQ(c.log, t.log);
    ASSERT_EQ(c.records("LightSourceV").size(), 1u);
    EXPECT_EQ(switchedLight(c), c.only("LightSourceV").handle.value_or(-1));
  }
}

TEST(LightRequests, TheLastNumberIsTheHighestSoFar) {
  // 5 then 3: no leap; then 1004 is within 1000 of 5, not of 3.
  Conversion c = convert(
      "LightSource \"pointlight\" 5 LightSource \"pointlight\" 3 "
      "LightSource \"pointlight\" 1004 LightSource \"pointlight\" 2005 WorldBegin");
  EXPECT_EQ(c.log, (Lines{"RIB warning: invalid light or object handle at line 1 'WorldBegin': "
                          "Light handle 2005 is signficantly larger than previous 1004"}));
}

// Each RIB text with the whole report lines and the records it gives.
TEST(LightTransformRequests, ReportsAndRecordsOfEachRequest) {
  const struct {
    const char* rib;
    Lines log;
    Ops ops;
  } cases[] = {
      // Illuminate of an unknown number reports once and skips its Boolean.
      {"Illuminate 9 2 WorldBegin",
       {"RIB warning: invalid light or object handle at line 1 '2': Unknown light handle 9"},
       {"SceneBegin"}},
      // A light with a bad list is not filed.
      {"LightSource \"pointlight\" 3 \"intensity\" [\"bright\"] Illuminate 3 1 WorldBegin",
       {"RIB error: incorrect parameter value at line 1 'bright': Expected at least one float",
        "RIB warning: invalid light or object handle at line 1 '1': Unknown light handle 3"},
       {"SceneBegin"}},
      // Brackets are required, optional or refused by request.
      {"Translate [1 2 3]\nTransform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1\nSkew [45 0 1 0 1 0 0]\n"
       "Scale 1 2 3\n",
       {"RIB error: general syntactic error at line 1 'Translate': Expected float",
        "RIB error: general syntactic error at line 2 '1': Expected character '['"},
       {"Skew", "Scale"}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rib);
    Conversion conversion = convert(c.rib);
    EXPECT_EQ(conversion.log, c.log);
    EXPECT_EQ(conversion.ops(), c.ops);
  }
}

TEST(LightRequests, IlluminateWantsABooleanForAKnownLight) {
  Conversion c = convert("LightSource \"pointlight\" 1 Illuminate 1 2 WorldBegin");
  EXPECT_EQ(c.log, (Lines{"RIB error: general syntactic error at line 1 '2': Expected Boolean"}));
  EXPECT_TRUE(c.records("LightSwitch").empty());
}

TEST(LightRequests, ANumberUsedAgainSwitchesTheNewestLight) {
  Conversion c = convert("LightSource \"pointlight\" 3 LightSource \"spotlight\" 3 Illuminate 3 1");
  std::vector<ZelRecord> lights = c.records("LightSourceV");
  ASSERT_EQ(lights.size(), 2u);
  EXPECT_NE(lights[0].handle, lights[1].handle);
  EXPECT_EQ(switchedLight(c), lights[1].handle.value_or(-1));
}

TEST(LightRequests, AreaLightsShareTheTableWithLights) {
  Conversion c = convert("AreaLightSource \"arealight\" 4 Illuminate 4 1 WorldBegin");
  EXPECT_TRUE(c.log.empty());
  EXPECT_EQ(c.records("LightSwitch").size(), 1u);
}

TEST(AttributeRequests, ColorTakesItsThreeNumbersBareOrBracketed) {
  Conversion c = convert("Color 0.1 0.2 0.3 Color [0.1 0.2 0.3] Opacity [1 0.5 0]");
  EXPECT_TRUE(c.log.empty());
  std::vector<ZelRecord> colors = c.records("Color");
  ASSERT_EQ(colors.size(), 2u);
  EXPECT_EQ(colors[0].args.at(0).asFloats(), colors[1].args.at(0).asFloats());
  EXPECT_EQ(c.only("Opacity").args.at(0).asFloats(), (std::vector<float>{1, 0.5f, 0}));
}

TEST(AttributeRequests, AttributePassesOverUndeclaredParametersAndNames) {
  Conversion c = convert(
      "Attribute \"nosuchattribute\" \"name\" [\"a\"]\n"
      "Attribute \"identifier\" \"nosuch\" [1 2 3] \"name\" \"lamp\"\n"
      "Attribute \"identifier\" \"Ka\" 1\n");
  EXPECT_EQ(c.log, (Lines{"RIB error: general syntactic error at line 3 '1': "
                          "Expected character '['"}));
  EXPECT_EQ(c.ops(), (Ops{"ObjectName"}));
  EXPECT_EQ(c.only("ObjectName").args.at(0).asText(), "lamp");
}

TEST(AttributeRequests, SurfaceWithAnUndeclaredParameterIsDroppedSilently) {
  Conversion c = convert("Surface \"plastic\" \"nosuch\" 1 Surface \"matte\" \"Kd\" 0.5");
  EXPECT_TRUE(c.log.empty());
  ASSERT_EQ(c.records("SurfaceV").size(), 1u);
  EXPECT_EQ(paramFloats(c.only("SurfaceV"), "Kd"), (std::vector<float>{0.5f}));
}

}  // namespace
