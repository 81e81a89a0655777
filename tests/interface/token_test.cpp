#include "interface/token.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

#include "error_test_sink.h"

namespace {

// Read by this file's own static initialisation, which may run before that of
// the dictionary's file: the tokens must already be there.
const RtToken gKaSeenAtStart = RI_KA;
const Token* const gPSeenAtStart = find("P");

Token* record(RtToken token) {
  return reinterpret_cast<Token*>(token);
}

TEST(TokenStartup, PredeclaredTokensAreReadyForOtherStaticInitialisers) {
  ASSERT_NE(gKaSeenAtStart, nullptr);
  EXPECT_EQ(gKaSeenAtStart, RI_KA);
  EXPECT_EQ(gPSeenAtStart, record(RI_P));
}

// clang-format off
RtToken* const kAllPredeclared[] = {
    &RI_FRAMEBUFFER, &RI_FILE, &RI_RGB, &RI_RGBA, &RI_RGBZ, &RI_RGBAZ, &RI_A, &RI_Z, &RI_AZ,
    &RI_ORIGIN, &RI_PERSPECTIVE, &RI_ORTHOGRAPHIC, &RI_HIDDEN, &RI_JITTER, &RI_PAINT,
    &RI_CONSTANT, &RI_SMOOTH, &RI_FLATNESS, &RI_FOV, &RI_AMBIENTLIGHT, &RI_POINTLIGHT,
    &RI_DISTANTLIGHT, &RI_SPOTLIGHT, &RI_INTENSITY, &RI_LIGHTCOLOR, &RI_FROM, &RI_TO,
    &RI_CONEANGLE, &RI_CONEDELTAANGLE, &RI_BEAMDISTRIBUTION, &RI_MATTE, &RI_METAL, &RI_SHINYMETAL,
    &RI_PLASTIC, &RI_PAINTEDPLASTIC, &RI_KA, &RI_KD, &RI_KS, &RI_ROUGHNESS, &RI_KR,
    &RI_TEXTURENAME, &RI_SPECULARCOLOR, &RI_DEPTHCUE, &RI_FOG, &RI_BUMPY, &RI_MINDISTANCE,
    &RI_MAXDISTANCE, &RI_BACKGROUND, &RI_DISTANCE, &RI_AMPLITUDE, &RI_RASTER, &RI_SCREEN,
    &RI_CAMERA, &RI_WORLD, &RI_OBJECT, &RI_INSIDE, &RI_OUTSIDE, &RI_LH, &RI_RH, &RI_P, &RI_PZ,
    &RI_PW, &RI_N, &RI_NP, &RI_CS, &RI_OS, &RI_S, &RI_T, &RI_ST, &RI_COMMENT, &RI_STRUCTURE,
    &RI_IDENTIFIER, &RI_NAME, &RI_SHADINGGROUP, &RI_BILINEAR, &RI_BICUBIC, &RI_PRIMITIVE,
    &RI_INTERSECTION, &RI_UNION, &RI_DIFFERENCE, &RI_PERIODIC, &RI_NONPERIODIC, &RI_CLAMP,
    &RI_BLACK, &RI_IGNORE, &RI_PRINT, &RI_ABORT, &RI_HANDLER, &RI_LIMITS, &RI_GRIDSIZE,
    &RI_BUCKETSIZE};
// clang-format on

TEST(PredeclaredTokens, EveryVariableHoldsItsOwnStoredRecord) {
  std::set<RtToken> distinct;
  for (RtToken* variable : kAllPredeclared) {
    RtToken token = *variable;
    ASSERT_NE(token, nullptr);
    EXPECT_EQ(static_cast<unsigned char>(*token), 0xFF);
    // The variable is the very record that a lookup by text finds.
    EXPECT_EQ(find(record(token)->name.c_str()), record(token)) << record(token)->name.c_str();
    distinct.insert(token);
  }
  EXPECT_EQ(distinct.size(), 91u);
}

struct Expected {
  RtToken* variable;
  const char* name;
  uint16_t code;
  RiTokenType type;
  RiTokenClass tokenClass;
  int32_t size;
};

// The rows whose values differ from a plain keyword (sizes, classes, types)
// and those that share a code with another record.
TEST(PredeclaredTokens, IrregularRowsHaveTheirFixedValues) {
  const Expected rows[] = {
      {&RI_FRAMEBUFFER, "framebuffer", 0xFF01, TypeNone, ClassNone, 1},
      {&RI_ORIGIN, "origin", 0xFF15, TypeInteger, ClassUniform, 2},
      {&RI_JITTER, "jitter", 0xFF05, TypeInteger, ClassUniform, 1},
      {&RI_LIGHTCOLOR, "lightcolor", 0x0006, TypeColor, ClassUniform, 1},
      {&RI_FROM, "from", 0x0016, TypePoint, ClassUniform, 1},
      {&RI_TEXTURENAME, "texturename", 0xFF09, TypeString, ClassUniform, 1},
      {&RI_BACKGROUND, "background", 0x0006, TypeColor, ClassUniform, 1},
      {&RI_METAL, "metal", 0x000A, TypeNone, ClassNone, 1},
      {&RI_SHINYMETAL, "shinymetal", 0x000A, TypeNone, ClassNone, 1},
      {&RI_PLASTIC, "plastic", 0x000B, TypeNone, ClassNone, 1},
      {&RI_PAINTEDPLASTIC, "paintedplastic", 0x000B, TypeNone, ClassNone, 1},
      {&RI_P, "P", 0x0001, TypePoint, ClassVertex, 1},
      {&RI_PZ, "Pz", 0x0003, TypeFloat, ClassVertex, 1},
      {&RI_PW, "Pw", 0x0002, TypeFloat, ClassVertex, 4},
      {&RI_N, "N", 0x0004, TypePoint, ClassVarying, 1},
      {&RI_NP, "Np", 0x0005, TypePoint, ClassUniform, 1},
      {&RI_CS, "Cs", 0x0006, TypeColor, ClassVarying, 1},
      {&RI_ST, "st", 0xFF18, TypeFloat, ClassVarying, 2},
      {&RI_NAME, "name", 0xFF1C, TypeString, ClassUniform, 1},
      {&RI_BLACK, "black", 0xFF13, TypeColor, ClassUniform, 1},
      {&RI_IGNORE, "ignore", 0x0C00, TypeNone, ClassNone, 1},
      {&RI_ABORT, "abort", 0x0C02, TypeNone, ClassNone, 1},
      {&RI_BUCKETSIZE, "bucketsize", 0xFF20, TypeInteger, ClassUniform, 2},
  };
  for (const Expected& e : rows) {
    const Token* t = record(*e.variable);
    SCOPED_TRACE(e.name);
    EXPECT_STREQ(t->name.c_str(), e.name);
    EXPECT_EQ(t->code, e.code);
    EXPECT_EQ(t->type, e.type);
    EXPECT_EQ(t->tokenClass, e.tokenClass);
    EXPECT_EQ(t->size, e.size);
  }
}

TEST(TokenDictionary, RecordsStayPutWhileManyMoreAreDeclared) {
  Token* first = declare("steadfast", 0x7100, TypeColor, ClassVarying, 1);
  for (int i = 0; i < 2000; ++i) {
    std::string name = "filler" + std::to_string(i);
    declare(name.c_str(), static_cast<uint16_t>(i), TypeFloat, ClassUniform, 1);
  }
  EXPECT_EQ(find("steadfast"), first);
  EXPECT_STREQ(first->name.c_str(), "steadfast");
  EXPECT_EQ(first->code, 0x7100);
  EXPECT_EQ(first->type, TypeColor);
  EXPECT_EQ(first->tokenClass, ClassVarying);
  // The names spread over every bucket of the dictionary's 111.
  const Hash<Token>& dictionary = tokenDictionary();
  ASSERT_EQ(dictionary.size, 111);
  for (int32_t i = 0; i < dictionary.size; ++i) EXPECT_NE(dictionary.table[i], nullptr) << i;
}

// A record pointer is taken as it is, without a lookup; text is looked up
// case-sensitively; an empty name is a key like any other.
TEST(Find, TakesARecordPointerOrLooksUpTheText) {
  Token loose("notindictionary", 0x1234, TypeFloat, ClassUniform, 1);
  EXPECT_EQ(find(reinterpret_cast<char*>(&loose)), &loose);
  EXPECT_EQ(find("notindictionary"), nullptr);
  EXPECT_EQ(find(RI_P), record(RI_P));
  EXPECT_EQ(find("P"), record(RI_P));
  EXPECT_EQ(find("ka"), nullptr);
  EXPECT_EQ(find("KA"), nullptr);
  EXPECT_EQ(find("Ka"), record(RI_KA));
  Token* empty = declare("", 0x7200, TypeFloat, ClassUniform, 1);
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(find(""), empty);
  EXPECT_EQ(empty->name.size(), 0);
  // tostring gives a record's name and leaves text alone.
  EXPECT_STREQ(tostring(RI_P), "P");
  const char* text = "abc";
  EXPECT_EQ(tostring(text), text);
  EXPECT_EQ(tostring(nullptr), nullptr);
}

class Confirm : public ErrorModelTest {};

TEST_F(Confirm, UnknownNameIsReportedWithAndWithoutTheRunningCall) {
  EXPECT_EQ(confirm("Kd"), record(RI_KD));
  EXPECT_EQ(confirm(RI_KD), record(RI_KD));
  EXPECT_TRUE(lines().empty());
  EXPECT_EQ(confirm("nosuchtoken"), nullptr);
  EXPECT_EQ(RiLastError, 41);
  setErrorFuncName("RiSurfaceV");
  EXPECT_EQ(confirm("nosuchtoken"), nullptr);
  setErrorFuncName(nullptr);
  EXPECT_EQ(lines(), (std::vector<std::string>{
                         "error: Invalid token for request. undeclared token \"nosuchtoken\"",
                         "error: Invalid token for request. RiSurfaceV: undeclared token "
                         "\"nosuchtoken\""}));
}

// A null name stands for the text "null", which the String conversion turns
// into a null pointer; it is looked up, declared and reported as that text.
TEST(NullNameDeathTest, ConfirmReportsItAsNull) {
  // A fresh process, so that no other test has declared "null" yet.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        setMessageSink(nullptr);
        if (find(nullptr) == nullptr && confirm(nullptr) == nullptr) std::exit(0);
        std::exit(1);
      },
      ::testing::ExitedWithCode(0),
      "error: Invalid token for request\\. undeclared token \"null\"\n");
}

TEST(NullName, IsDeclaredAndFoundAsTheTextNull) {
  Token* t = declare(nullptr, 0x7300, TypeFloat, ClassUniform, 1);
  ASSERT_NE(t, nullptr);
  EXPECT_STREQ(t->name.c_str(), "null");
  EXPECT_EQ(find(nullptr), t);
  EXPECT_EQ(find("null"), t);
  // The record's name converts back to a null pointer.
  EXPECT_EQ(tostring(reinterpret_cast<char*>(t)), nullptr);
}

}  // namespace
