#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
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

struct ReadCase {
  const char* input;
  int16_t bracketed;
  int32_t colorsamples;
  int32_t size;
  std::vector<float> floats;
};

TEST(ParameterList, ValuesAreStoredWithTheirCount) {
  std::string long65537 = "\"Ka\" [ 7";
  for (int k = 1; k < 65537; ++k) long65537 += " 1";
  long65537 += " ]";
  const ReadCase cases[] = {
      {"\"Ka\" 0.5 WorldEnd", 0, 3, 1, {0.5f}},
      {"\"Ka\" [ 1 2 3 4 ]", 0, 3, 4, {1, 2, 3, 4}},  // the declared size is not enforced
      {"\"P\" [ 1 2 3 4 5 6 ]", 0, 3, 2, {1, 2, 3, 4, 5, 6}},
      {long65537.c_str(), 0, 3, 1, {7}},  // the item count is held modulo 65536
      {"\"Cs\" [ 1 0 0 0 1 0 ]", 0, 3, 2, {1, 0, 0, 0, 1, 0}},
      {"\"Cs\" [ 1 2 3 4 5 6 7 ]", 0, 3, 2, {1, 2, 3, 4, 5, 6}},  // remainder dropped
      {"\"Cs\" [ 0.5 0.25 ]", 0, 1, 2, {0.5f, 0, 0, 0.25f, 0, 0}},
      {"\"Cs\" [ 1 2 3 4 5 6 7 8 ]", 0, 4, 2, {1, 2, 3, 5, 6, 7}},
      // Undeclared names are stepped over in a bracketed list, whatever their value.
      {"\"nosuch\" [ 1 [ 2 ] \"Ka\" [ 3 ]", 1, 3, 1, {3}},
      {"\"null\" [ 1 ] \"Ka\" [ 3 ]", 1, 3, 1, {3}},
      {"\"\\377P\" [ 1 ] \"Ka\" [ 3 ]", 1, 3, 1, {3}},
  };
  for (const ReadCase& c : cases) {
    SCOPED_TRACE(std::string(c.input).substr(0, 40));
    ListRead r(c.input, c.bracketed, c.colorsamples);
    ASSERT_EQ(r.result, 1);
    expectParallel(r.list, 1);
    EXPECT_EQ(r.list.sizes.data[0], c.size);
    EXPECT_EQ(floatsOf(r.list, 0, c.floats.size()), c.floats);
    EXPECT_TRUE(r.reports.lines().empty());
  }
  EXPECT_EQ(ListRead("\"Ka\" 1").list.tokens.data[0], RI_KA);
}

struct FailCase {
  const char* input;
  int16_t bracketed;
  int32_t colorsamples;
  const char* report;  // nullptr: fails silently
  int16_t tokenAfter;
};

TEST(ParameterList, FailuresReportAndRecover) {
  const FailCase cases[] = {
      {"\"P\" [ 1 2 3 4 5 ] WorldEnd", 0, 3,
       "RIB error: general syntactic error at line 1 '5': Expected float", LEXKEYWORD},
      {"\"Ka\" 1 WorldEnd", 1, 3,
       "RIB error: general syntactic error at line 1 '1': Expected character '['", LEXKEYWORD},
      {"\"perspective\" 1 WorldEnd", 0, 3,
       "RIB error: parameter list type mismatch at line 1 '1': token 'perspective' doesn't take "
       "value",
       LEXKEYWORD},
      {"\"Cs\" [ 1 2 3 ] WorldEnd", 0, 0,
       "RIB error: invalid color specification at line 1 'Cs': Color parameter 'Cs' cannot be "
       "read with 0 color samples",
       LEXKEYWORD},
      // Undeclared names drop the request silently; "null" converts to a null name and a
      // leading 0xFF byte would pose as a record.
      {"\"nosuch\" 1 \"Ka\" 2 WorldEnd", 0, 3, nullptr, LEXKEYWORD},
      {"\"null\" 1 WorldEnd", 0, 3, nullptr, LEXKEYWORD},
      {"\"\\377Ka\" 1 WorldEnd", 0, 3, nullptr, LEXKEYWORD},
      // Less than one colour fails without report or recovery.
      {"\"Cs\" 1 0 0", 0, 3, nullptr, LEXINT},
      {"\"Cs\" [ 1 0 ] WorldEnd", 0, 3, nullptr, LEXKEYWORD},
  };
  for (const FailCase& c : cases) {
    SCOPED_TRACE(c.input);
    ListRead r(c.input, c.bracketed, c.colorsamples);
    EXPECT_EQ(r.result, 0);
    EXPECT_EQ(r.reports.lines(), c.report ? Lines{c.report} : Lines{});
    EXPECT_EQ(r.parser.token, c.tokenAfter);
  }
}

TEST(ParameterList, StringValueIsOneBlockWithItsPointerAtTheHead) {
  ListRead r("\"texturename\" \"grid.tx\"");
  ASSERT_EQ(r.result, 1);
  EXPECT_EQ(r.list.sizes.data[0], 1);
  const char* block = static_cast<const char*>(r.list.values.data[0]);
  EXPECT_EQ(stringOf(r.list, 0), block + sizeof(char*));
  EXPECT_STREQ(stringOf(r.list, 0), "grid.tx");
  EXPECT_STREQ(stringOf(ListRead("\"texturename\" [ \"null\" ]").list, 0), "null");
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

TEST(ParameterList, ListEndsAtAValueWhereANameWouldStand) {
  ListRead twice("\"Ka\" 1 \"Ka\" 2");
  expectParallel(twice.list, 2);
  EXPECT_EQ(twice.list.tokens.data[0], twice.list.tokens.data[1]);
  for (const char* input : {"\"Ka\" 1 [ 2 ]", "\"Ka\" 1 3"}) {
    ListRead r(input);
    EXPECT_EQ(r.result, 1) << input;
    expectParallel(r.list, 1);
    EXPECT_NE(r.parser.token, LEXSTRING);
    EXPECT_TRUE(r.reports.lines().empty());
  }
}

// A value is skipped to its first closing bracket, and a list goes on
// behind it; without an opening bracket there is nothing to skip.
TEST(SkipValue, StopsAtTheFirstClosingBracketAndNeedsAnOpeningOne) {
  RecordingParser p("[ 1 [ 2 ] 3 ]");
  EXPECT_EQ(p.primed().skipvalue(), 1);
  EXPECT_EQ(p.token, LEXINT);
  ListRead r("\"nosuch\" [ 1 [ 2 ] 3 ]", 1);
  EXPECT_EQ(r.result, 1);
  expectParallel(r.list, 0);
  EXPECT_EQ(r.parser.token, LEXINT);
  ReportCollector reports;
  RecordingParser bare("1 WorldEnd");
  EXPECT_EQ(bare.primed().skipvalue(), 0);
  EXPECT_EQ(reports.lines(),
            Lines{"RIB error: general syntactic error at line 1 '1': Expected character '['"});
  EXPECT_EQ(bare.token, LEXKEYWORD);
}

struct VerifyCase {
  const char* name;
  const char* input;
  int32_t uniform, varying, vertex;
  const char* required;  // up to three names, separated by blanks
  int16_t result;
  const char* report;
};

std::ostream& operator<<(std::ostream& os, const VerifyCase& c) {
  return os << c.name;
}

const VerifyCase kVerifyCases[] = {
    {"OneRequiredPresent", "\"P\" [ 1 2 3 4 5 6 ] X", 1, 2, 2, "P", 1, nullptr},
    {"OneRequiredAbsent", "\"Ka\" 1 X", 1, 1, 1, "P", 0,
     "RIB error: incorrect parameter value at line 1 'X': 'P' argument is required"},
    {"TwoAlternativesAbsent", "X", 1, 1, 1, "P Pw", 0,
     "RIB error: incorrect parameter value at line 1 'X': 'P', or 'Pw' argument is required"},
    {"ThreeAlternativesAbsent", "X", 1, 1, 1, "P Pz Pw", 0,
     "RIB error: incorrect parameter value at line 1 'X': 'P', 'Pz', or 'Pw' argument is "
     "required"},
    {"TwoAlternativesGiven", "\"P\" [ 1 2 3 ] \"Pw\" [ 1 2 3 ] X", 1, 1, 1, "P Pz Pw", 0,
     "RIB error: incorrect parameter value at line 1 'X': More than one of 'P', 'Pz', or 'Pw' "
     "was specified"},
    {"SameRequiredTwiceCountsOnce", "\"P\" [ 1 2 3 ] \"P\" [ 1 2 3 ] X", 1, 1, 1, "P", 1, nullptr},
    {"UnknownRequiredNamesDropOut", "X", 1, 1, 1, "nosuch", 1, nullptr},
    {"UniformCountPrinted", "\"Ka\" [ 1 2 ] X", 1, 4, 4, "", 0,
     "RIB error: invalid array specification at line 1 'X': 1 items expected for parameter "
     "'Ka'"},
    {"VaryingColourIsCode5", "\"Cs\" [ 1 0 0 ] X", 1, 4, 4, "", 0,
     "RIB error: invalid color specification at line 1 'X': 4 items expected for parameter "
     "'Cs'"},
    {"VertexPointIsCode3", "\"P\" [ 1 2 3 ] X", 1, 4, 4, "P", 0,
     "RIB error: invalid array specification at line 1 'X': 4 items expected for parameter "
     "'P'"},
    {"VertexSizeMultiplies", "\"Pw\" [ 1 2 3 4 5 6 7 8 ] X", 1, 2, 2, "P Pw", 1, nullptr},
    {"VaryingSizeMultiplies", "\"st\" [ 1 2 3 4 5 6 7 ] X", 1, 4, 4, "", 0,
     "RIB error: invalid array specification at line 1 'X': 8 items expected for parameter "
     "'st'"},
    {"OnlyFirstBadParameterReported", "\"Ka\" [ 1 2 ] \"Cs\" [ 1 0 0 ] X", 1, 4, 4, "", 0,
     "RIB error: invalid array specification at line 1 'X': 1 items expected for parameter "
     "'Ka'"},
};

class VerifyTable : public ::testing::TestWithParam<VerifyCase> {};

int16_t runVerify(parserib& p, const tokenvalue& tv, const VerifyCase& c) {
  std::istringstream names(c.required);
  std::vector<std::string> r{std::istream_iterator<std::string>(names), {}};
  r.resize(3);
  auto name = [](const std::string& s) { return s.empty() ? nullptr : s.c_str(); };
  return p.verify(tv, c.uniform, c.varying, c.vertex, name(r[0]), name(r[1]), name(r[2]), RI_NULL);
}

TEST_P(VerifyTable, ResultAndReport) {
  const VerifyCase& c = GetParam();
  ListRead r(c.input);
  ASSERT_EQ(r.result, 1);
  ASSERT_TRUE(r.reports.lines().empty());
  EXPECT_EQ(runVerify(r.parser, r.list, c), c.result);
  EXPECT_EQ(r.reports.lines(), c.report ? Lines{c.report} : Lines{});
  EXPECT_EQ(r.parser.token, LEXKEYWORD);  // verify reads nothing and does not recover
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
