#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "rib/tokenvalue.h"
#include "tests/support/recordingparser.h"
#include "tests/support/reportcollector.h"

namespace {

using Lines = std::vector<std::string>;

std::vector<float> floatsOf(const tokenvalue& tv, uint32_t i, size_t n) {
  const float* f = static_cast<const float*>(tv.values.data[i]);
  return {f, f + n};
}

const char* stringOf(const tokenvalue& tv, uint32_t i) {
  return *static_cast<char* const*>(tv.values.data[i]);
}

// Reads a list from the start of `input`.
struct ListRead {
  explicit ListRead(const char* input, int16_t bracketed = 0, int32_t colorsamples = 3)
      : parser(input) {
    parser.colorsamples = colorsamples;
    result = parser.primed().match(list, bracketed);
  }
  ReportCollector reports;
  RecordingParser parser;
  tokenvalue list;
  int16_t result;
};

void expectParallel(const tokenvalue& tv, uint32_t n) {
  EXPECT_EQ(tv.tokens.count, n);
  EXPECT_EQ(tv.values.count, n);
  EXPECT_EQ(tv.sizes.count, n);
}

TEST(ParameterList, EmptyListSucceedsWithNothingStored) {
  ListRead r("WorldEnd");
  EXPECT_EQ(r.result, 1);
  expectParallel(r.list, 0);
  EXPECT_EQ(r.parser.token, LEXKEYWORD);
}

TEST(ParameterList, BareNumberIsOneFloat) {
  ListRead r("\"Ka\" 0.5 WorldEnd");
  ASSERT_EQ(r.result, 1);
  expectParallel(r.list, 1);
  EXPECT_EQ(r.list.tokens.data[0], RI_KA);
  EXPECT_EQ(r.list.sizes.data[0], 1);
  EXPECT_EQ(floatsOf(r.list, 0, 1), std::vector<float>{0.5f});
}

TEST(ParameterList, ReadingIgnoresTheDeclaredSize) {
  ListRead r("\"Ka\" [ 1 2 3 4 ]");
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 4);
  EXPECT_EQ(floatsOf(r.list, 0, 4), (std::vector<float>{1, 2, 3, 4}));
  EXPECT_TRUE(r.reports.lines().empty());
}

TEST(ParameterList, PointValueCountsTriples) {
  ListRead r("\"P\" [ 1 2 3 4 5 6 ]");
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 2);
  EXPECT_EQ(floatsOf(r.list, 0, 6), (std::vector<float>{1, 2, 3, 4, 5, 6}));
}

TEST(ParameterList, IncompletePointFailsOnItsThirdComponent) {
  ListRead r("\"P\" [ 1 2 3 4 5 ] WorldEnd");
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(r.reports.lines(),
            Lines{"RIB error: general syntactic error at line 1 '5': Expected float"});
  EXPECT_EQ(r.parser.token, LEXKEYWORD);
}

TEST(ParameterList, StringValueIsOneBlockWithItsPointerAtTheHead) {
  ListRead r("\"texturename\" \"grid.tx\"");
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 1);
  const char* block = static_cast<const char*>(r.list.values.data[0]);
  EXPECT_EQ(stringOf(r.list, 0), block + sizeof(char*));
  EXPECT_STREQ(stringOf(r.list, 0), "grid.tx");
}

TEST(ParameterList, StringValueNullKeepsItsText) {
  ListRead r("\"texturename\" [ \"null\" ]");
  ASSERT_EQ(r.result, 1);
  EXPECT_STREQ(stringOf(r.list, 0), "null");
}

TEST(ParameterList, ShortValueIsZeroPaddedToOneElementOfTheTokenSize) {
  ListRead r("\"origin\" [ 10 ] \"st\" 0.25");
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 1);
  const int32_t* origin = static_cast<const int32_t*>(r.list.values.data[0]);
  EXPECT_EQ(origin[0], 10);
  EXPECT_EQ(origin[1], 0);
  EXPECT_EQ(floatsOf(r.list, 1, 2), (std::vector<float>{0.25f, 0}));
}

TEST(ParameterList, SameParameterTwiceGivesTwoEntries) {
  ListRead r("\"Ka\" 1 \"Ka\" 2");
  ASSERT_EQ(r.result, 1);
  expectParallel(r.list, 2);
  EXPECT_EQ(r.list.tokens.data[0], r.list.tokens.data[1]);
}

TEST(ParameterList, NonStringWhereANameWouldStandEndsTheList) {
  for (const char* input : {"\"Ka\" 1 [ 2 ]", "\"Ka\" 1 3"}) {
    ListRead r(input);
    EXPECT_EQ(r.result, 1) << input;
    expectParallel(r.list, 1);
    EXPECT_NE(r.parser.token, LEXSTRING);
    EXPECT_TRUE(r.reports.lines().empty());
  }
}

TEST(ParameterList, UndeclaredNameDropsTheRequestSilently) {
  // "null" converts to a null name and a leading 0xFF byte would pose as a
  // record; both are taken as undeclared.
  for (const char* input :
       {"\"nosuch\" 1 \"Ka\" 2 WorldEnd", "\"null\" 1 WorldEnd", "\"\\377Ka\" 1 WorldEnd"}) {
    ListRead r(input);
    EXPECT_EQ(r.result, 0) << input;
    EXPECT_TRUE(r.reports.lines().empty()) << input;
    EXPECT_EQ(r.parser.token, LEXKEYWORD) << input;
  }
}

TEST(ParameterList, BracketedListStepsOverUndeclaredNames) {
  for (const char* input : {"\"nosuch\" [ 1 [ 2 ] \"Ka\" [ 3 ]", "\"null\" [ 1 ] \"Ka\" [ 3 ]",
                            "\"\\377P\" [ 1 ] \"Ka\" [ 3 ]"}) {
    ListRead r(input, 1);
    ASSERT_EQ(r.result, 1) << input;
    expectParallel(r.list, 1);
    EXPECT_EQ(r.list.tokens.data[0], RI_KA);
    EXPECT_EQ(floatsOf(r.list, 0, 1), std::vector<float>{3});
  }
}

TEST(ParameterList, BracketedListNeedsBracketsAroundNumbers) {
  ListRead r("\"Ka\" 1 WorldEnd", 1);
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(r.reports.lines(),
            Lines{"RIB error: general syntactic error at line 1 '1': Expected character '['"});
}

TEST(ParameterList, KeywordTokenTakesNoValue) {
  ListRead r("\"perspective\" 1 WorldEnd");
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(r.reports.lines(),
            Lines{"RIB error: parameter list type mismatch at line 1 '1': token 'perspective' "
                  "doesn't take value"});
  EXPECT_EQ(r.parser.token, LEXKEYWORD);
}

TEST(ParameterList, ItemCountIsHeldModulo65536) {
  std::string input = "\"Ka\" [";
  for (int k = 0; k < 65537; ++k) input += k == 0 ? " 7" : " 1";
  input += " ]";
  ListRead r(input.c_str());
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 1);
  EXPECT_EQ(floatsOf(r.list, 0, 1), std::vector<float>{7});
}

TEST(ColorParameter, ThreeSamplesPerColour) {
  ListRead r("\"Cs\" [ 1 0 0 0 1 0 ]");
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 2);
  EXPECT_EQ(floatsOf(r.list, 0, 6), (std::vector<float>{1, 0, 0, 0, 1, 0}));
}

TEST(ColorParameter, LessThanOneColourFailsWithoutReportOrRecovery) {
  ListRead bare("\"Cs\" 1 0 0");
  EXPECT_EQ(bare.result, 0);
  EXPECT_EQ(bare.parser.token, LEXINT);
  ListRead bracketed("\"Cs\" [ 1 0 ] WorldEnd");
  EXPECT_EQ(bracketed.result, 0);
  EXPECT_EQ(bracketed.parser.token, LEXKEYWORD);
  EXPECT_TRUE(bare.reports.lines().empty());
}

TEST(ColorParameter, RemainderBeyondWholeColoursIsDropped) {
  ListRead r("\"Cs\" [ 1 2 3 4 5 6 7 ]");
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 2);
}

TEST(ColorParameter, FewerSamplesAreStoredAsRgbWithZeros) {
  ListRead r("\"Cs\" [ 0.5 0.25 ]", 0, 1);
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 2);
  EXPECT_EQ(floatsOf(r.list, 0, 6), (std::vector<float>{0.5f, 0, 0, 0.25f, 0, 0}));
}

TEST(ColorParameter, MoreSamplesKeepTheFirstThreeOfEachColour) {
  ListRead r("\"Cs\" [ 1 2 3 4 5 6 7 8 ]", 0, 4);
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 2);
  EXPECT_EQ(floatsOf(r.list, 0, 6), (std::vector<float>{1, 2, 3, 5, 6, 7}));
}

TEST(ColorParameter, ZeroColourSamplesFailTheValue) {
  ListRead r("\"Cs\" [ 1 2 3 ] WorldEnd", 0, 0);
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(r.reports.lines(),
            Lines{"RIB error: invalid color specification at line 1 'Cs': Color parameter 'Cs' "
                  "cannot be read with 0 color samples"});
  EXPECT_EQ(r.parser.token, LEXKEYWORD);
}

TEST(SkipValue, StopsAtTheFirstClosingBracket) {
  RecordingParser p("[ 1 [ 2 ] 3 ]");
  EXPECT_EQ(p.primed().skipvalue(), 1);
  EXPECT_EQ(p.token, LEXINT);
}

TEST(SkipValue, ListGoesOnBehindTheSkippedValue) {
  ListRead r("\"nosuch\" [ 1 [ 2 ] 3 ]", 1);
  EXPECT_EQ(r.result, 1);
  expectParallel(r.list, 0);
  EXPECT_EQ(r.parser.token, LEXINT);
}

TEST(SkipValue, NeedsAnOpeningBracket) {
  ReportCollector reports;
  RecordingParser p("1 WorldEnd");
  EXPECT_EQ(p.primed().skipvalue(), 0);
  EXPECT_EQ(reports.lines(),
            Lines{"RIB error: general syntactic error at line 1 '1': Expected character '['"});
  EXPECT_EQ(p.token, LEXKEYWORD);
}

struct VerifyCase {
  const char* name;
  const char* input;
  int32_t uniform, varying, vertex;
  std::vector<const char*> required;
  int16_t result;
  const char* report;
};

std::ostream& operator<<(std::ostream& os, const VerifyCase& c) {
  return os << c.name;
}

const VerifyCase kVerifyCases[] = {
    {"OneRequiredPresent", "\"P\" [ 1 2 3 4 5 6 ] X", 1, 2, 2, {"P"}, 1, nullptr},
    {"OneRequiredAbsent",
     "\"Ka\" 1 X",
     1,
     1,
     1,
     {"P"},
     0,
     "RIB error: incorrect parameter value at line 1 'X': 'P' argument is required"},
    {"TwoAlternativesAbsent",
     "X",
     1,
     1,
     1,
     {"P", "Pw"},
     0,
     "RIB error: incorrect parameter value at line 1 'X': 'P', or 'Pw' argument is required"},
    {"ThreeAlternativesAbsent",
     "X",
     1,
     1,
     1,
     {"P", "Pz", "Pw"},
     0,
     "RIB error: incorrect parameter value at line 1 'X': 'P', 'Pz', or 'Pw' argument is "
     "required"},
    {"TwoAlternativesGiven",
     "\"P\" [ 1 2 3 ] \"Pw\" [ 1 2 3 ] X",
     1,
     1,
     1,
     {"P", "Pz", "Pw"},
     0,
     "RIB error: incorrect parameter value at line 1 'X': More than one of 'P', 'Pz', or 'Pw' "
     "was specified"},
    {"SameRequiredTwiceCountsOnce",
     "\"P\" [ 1 2 3 ] \"P\" [ 1 2 3 ] X",
     1,
     1,
     1,
     {"P"},
     1,
     nullptr},
    {"UnknownRequiredNamesDropOut", "X", 1, 1, 1, {"nosuch"}, 1, nullptr},
    {"UniformCountPrinted",
     "\"Ka\" [ 1 2 ] X",
     1,
     4,
     4,
     {},
     0,
     "RIB error: invalid array specification at line 1 'X': 1 items expected for parameter "
     "'Ka'"},
    {"VaryingColourIsCode5",
     "\"Cs\" [ 1 0 0 ] X",
     1,
     4,
     4,
     {},
     0,
     "RIB error: invalid color specification at line 1 'X': 4 items expected for parameter "
     "'Cs'"},
    {"VertexPointIsCode3",
     "\"P\" [ 1 2 3 ] X",
     1,
     4,
     4,
     {"P"},
     0,
     "RIB error: invalid array specification at line 1 'X': 4 items expected for parameter "
     "'P'"},
    {"VertexSizeMultiplies", "\"Pw\" [ 1 2 3 4 5 6 7 8 ] X", 1, 2, 2, {"P", "Pw"}, 1, nullptr},
    {"VaryingSizeMultiplies",
     "\"st\" [ 1 2 3 4 5 6 7 ] X",
     1,
     4,
     4,
     {},
     0,
     "RIB error: invalid array specification at line 1 'X': 8 items expected for parameter "
     "'st'"},
    {"OnlyFirstBadParameterReported",
     "\"Ka\" [ 1 2 ] \"Cs\" [ 1 0 0 ] X",
     1,
     4,
     4,
     {},
     0,
     "RIB error: invalid array specification at line 1 'X': 1 items expected for parameter "
     "'Ka'"},
};

class VerifyTable : public ::testing::TestWithParam<VerifyCase> {};

int16_t runVerify(parserib& p, const tokenvalue& tv, const VerifyCase& c) {
  std::vector<const char*> r = c.required;
  r.resize(3, nullptr);
  return p.verify(tv, c.uniform, c.varying, c.vertex, r[0], r[1], r[2], RI_NULL);
}

TEST_P(VerifyTable, ResultAndReport) {
  const VerifyCase& c = GetParam();
  ListRead r(c.input);
  ASSERT_EQ(r.result, 1);
  ASSERT_TRUE(r.reports.lines().empty());
  EXPECT_EQ(runVerify(r.parser, r.list, c), c.result);
  if (c.report) {
    EXPECT_EQ(r.reports.lines(), Lines{c.report});
  } else {
    EXPECT_TRUE(r.reports.lines().empty()) << r.reports.lines().front();
  }
  // verify reads nothing and does not recover.
  EXPECT_EQ(r.parser.token, LEXKEYWORD);
}

INSTANTIATE_TEST_SUITE_P(Verify, VerifyTable, ::testing::ValuesIn(kVerifyCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(TokenValue, StringAppendAlwaysCountsOne) {
  tokenvalue tv;
  char* text = const_cast<char*>("abc");
  tv.append(RI_NAME, TypeString, 9, reinterpret_cast<void* const*>(&text));
  EXPECT_EQ(tv.sizes.data[0], 1);
  EXPECT_STREQ(stringOf(tv, 0), "abc");
  EXPECT_NE(stringOf(tv, 0), text);
}

}  // namespace
