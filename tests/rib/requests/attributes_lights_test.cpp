// Attribute, shader, light and transform requests, and the table of light
// numbers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/rib/requests/requesttable.h"

namespace {

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
  expectEach({
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
       {"Skew 45 0 1 0 1 0 0", "Scale 1 2 3"}},
      // Illuminate wants a Boolean for a known light.
      {"LightSource \"pointlight\" 1 Illuminate 1 2 WorldBegin",
       {"RIB error: general syntactic error at line 1 '2': Expected Boolean"},
       {"LightSourceV 18", "SceneBegin"}},
      // Area lights share the table with lights.
      {"AreaLightSource \"arealight\" 4 Illuminate 4 1 WorldBegin",
       {},
       {"LightSwitch 0 1", "SceneBegin"}},
      // Colours take their three numbers bare or bracketed.
      {"Color 0.1 0.2 0.3 Color [0.1 0.2 0.3] Opacity [1 0.5 0]",
       {},
       {"Color [0.1,0.2,0.3]", "Color [0.1,0.2,0.3]", "Opacity [1,0.5,0]"}},
      // Attribute passes over undeclared parameters and names.
      {"Attribute \"nosuchattribute\" \"name\" [\"a\"]\n"
       "Attribute \"identifier\" \"nosuch\" [1 2 3] \"name\" \"lamp\"\n"
       "Attribute \"identifier\" \"Ka\" 1\n",
       {"RIB error: general syntactic error at line 3 '1': Expected character '['"},
       {"ObjectName \"lamp\""}},
      // A shader with an undeclared parameter is dropped silently.
      {"Surface \"plastic\" \"nosuch\" 1 Surface \"matte\" \"Kd\" 0.5",
       {},
       {"SurfaceV 9 {Kd 1 1 1 [0.5]}"}},
  });
}

TEST(LightRequests, ANumberUsedAgainSwitchesTheNewestLight) {
  Conversion c = convert("LightSource \"pointlight\" 3 LightSource \"spotlight\" 3 Illuminate 3 1");
  std::vector<ZelRecord> lights = c.records("LightSourceV");
  ASSERT_EQ(lights.size(), 2u);
  EXPECT_NE(lights[0].handle, lights[1].handle);
  EXPECT_EQ(switchedLight(c), lights[1].handle.value_or(-1));
}

}  // namespace
