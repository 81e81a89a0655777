#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/recordingparser.h"
#include "tests/support/reportcollector.h"

namespace {

using Reader = std::function<int32_t(parserib&)>;

struct MatchCase {
  const char* name;
  std::string input;
  Reader read;
  int32_t result;
  const char* report;  // the whole line, or null for none
  int16_t tokenAfter;
};

std::ostream& operator<<(std::ostream& os, const MatchCase& c) {
  return os << c.name;
}

Reader character(char c) {
  return [c](parserib& p) { return p.match(c); };
}
template <class T>
Reader single() {
  return [](parserib& p) {
    T v{};
    return p.match(v);
  };
}
Reader text() {
  return [](parserib& p) {
    String s;
    return p.match(&s);
  };
}
template <class T>
Reader array(int32_t n, int16_t bracketed) {
  return [=](parserib& p) {
    Array<T> a;
    return p.match(a, n, bracketed);
  };
}
const auto boolean = single<int16_t>, integer = single<int32_t>, real = single<float>;
const auto point = single<float[3]>, matrix = single<float[4][4]>;
const auto floats = array<float>, ints = array<int32_t>, points = array<float[3]>;

using Lines = std::vector<std::string>;

// A binary float array ("0xC8 n" and n big-endian floats) holding 1, 2, ... n.
std::string binaryFloats(int n) {
  std::string bytes = {static_cast<char>(0xC8), static_cast<char>(n)};
  for (int i = 1; i <= n; ++i) {
    const uint32_t bits = std::bit_cast<uint32_t>(static_cast<float>(i));
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(bits >> shift);
  }
  return bytes;
}

const int16_t KW = LEXKEYWORD;

const MatchCase kCases[] = {
    {"BracketMatches", "[ 1", character('['), 1, nullptr, LEXINT},
    {"BracketMissing", "5 WorldEnd", character('['), 0,
     "RIB error: general syntactic error at line 1 '5': Expected character '['", KW},
    {"BooleanOne", "1 WorldEnd", boolean(), 1, nullptr, KW},
    {"BooleanTwo", "2 WorldEnd", boolean(), 0,
     "RIB error: general syntactic error at line 1 '2': Expected Boolean", KW},
    {"BooleanFloat", "1.0 WorldEnd", boolean(), 0,
     "RIB error: general syntactic error at line 1 '1.0': Expected Boolean", KW},
    {"IntegerRefusesFloat", "1.5 WorldEnd", integer(), 0,
     "RIB error: general syntactic error at line 1 '1.5': Expected integer", KW},
    {"FloatAcceptsInteger", "7 WorldEnd", real(), 1, nullptr, KW},
    {"FloatRefusesString", "\"s\" WorldEnd", real(), 0,
     "RIB error: general syntactic error at line 1 's': Expected float", KW},
    {"StringRefusesNumber", "5 WorldEnd", text(), 0,
     "RIB error: general syntactic error at line 1 '5': Expected String", KW},
    {"StringInBrackets", "[ \"a\" ] WorldEnd", text(), 1, nullptr, KW},
    {"SecondStringInBrackets", "[ \"a\" \"b\" ] WorldEnd", text(), 0,
     "RIB error: general syntactic error at line 1 'b': Expected character ']'", KW},
    {"PointBare", "1 2 3 WorldEnd", point(), 1, nullptr, KW},
    {"PointBracketed", "[ 1 2 3 ] WorldEnd", point(), 1, nullptr, KW},
    {"PointShort", "[ 1 2 ] WorldEnd", point(), 0,
     "RIB error: general syntactic error at line 1 '2': Expected float", KW},
    {"MatrixNeedsBrackets", "1 2 WorldEnd", matrix(), 0,
     "RIB error: general syntactic error at line 1 '1': Expected character '['", KW},
    {"MatrixRefusesInnerBrackets", "[ [ 1 ] ] WorldEnd", matrix(), 0,
     "RIB error: general syntactic error at line 1 '': Expected float", KW},
    {"MatrixShort", "[ 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 ] WorldEnd", matrix(), 0,
     "RIB error: general syntactic error at line 1 '15': Expected float", KW},
    {"MatrixLong", "[ 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 ] WorldEnd", matrix(), 0,
     "RIB error: general syntactic error at line 1 '17': Expected character ']'", KW},

    {"FixedCountBare", "1 2 3 4 WorldEnd", floats(4, 0), 4, nullptr, KW},
    {"FixedCountBracketed", "[ 1 2 3 4 ] WorldEnd", floats(4, 0), 4, nullptr, KW},
    {"FixedCountTooFewInBrackets", "[ 1 2 3 ] WorldEnd", floats(4, 0), 0,
     "RIB error: incorrect parameter value at line 1 '3': Expected 4 floats", KW},
    {"FixedCountTooManyInBrackets", "[ 1 2 3 4 5 ] WorldEnd", floats(4, 0), 0,
     "RIB error: general syntactic error at line 1 '5': Expected character ']'", KW},
    {"FixedCountLeavesFifthBareNumber", "1 2 3 4 5 WorldEnd", floats(4, 0), 4, nullptr, LEXINT},
    {"FixedCountTooFewBare", "1 2 3 WorldEnd", floats(4, 0), 0,
     "RIB error: incorrect parameter value at line 1 'WorldEnd': Expected 4 floats", KW},
    {"OpenCountBareSingle", "7 WorldEnd", floats(-1, 0), 1, nullptr, KW},
    {"OpenCountBracketsRequired", "7 WorldEnd", floats(-1, 1), 0,
     "RIB error: general syntactic error at line 1 '7': Expected character '['", KW},
    {"OpenCountEmptyBrackets", "[ ] WorldEnd", floats(-1, 0), 0,
     "RIB error: incorrect parameter value at line 1 '': Expected at least one float", KW},
    {"OpenCountOnlyString", "[ \"a\" ] WorldEnd", floats(-1, 0), 0,
     "RIB error: incorrect parameter value at line 1 'a': Expected at least one float", KW},
    {"OpenCountNumberThenString", "[ 1 \"a\" ] WorldEnd", floats(-1, 0), 0,
     "RIB error: invalid array specification at line 1 'a': Array has both numbers and strings",
     KW},
    {"BareNumberThenString", "1 \"a\" WorldEnd", floats(2, 0), 0,
     "RIB error: incorrect parameter value at line 1 'a': Expected 2 floats", KW},
    {"CountOneInBrackets", "[ 1 ] WorldEnd", floats(1, 0), 1, nullptr, KW},
    {"CountOneTwoInBrackets", "[ 1 2 ] WorldEnd", floats(1, 0), 0,
     "RIB error: general syntactic error at line 1 '2': Expected character ']'", KW},
    {"CountOneStringInBrackets", "[ \"a\" ] WorldEnd", floats(1, 0), 0,
     "RIB error: general syntactic error at line 1 'a': Expected float", KW},
    {"CountZeroReadsNothing", "1 WorldEnd", floats(0, 0), 0, nullptr, LEXINT},
    {"CountZeroEmptyBrackets", "[ ] WorldEnd", floats(0, 0), 0, nullptr, KW},
    {"CountZeroRefusesString", "[ \"a\" ] WorldEnd", floats(0, 0), 0,
     "RIB error: invalid array specification at line 1 'a': Array has both numbers and strings",
     KW},

    {"IntsOpenFloatAmongThem", "[ 1 2.5 ] WorldEnd", ints(-1, 1), 0,
     "RIB error: general syntactic error at line 1 '2.5': Expected character ']'", KW},
    {"IntsFixedFloatAmongThem", "[ 1 2.5 ] WorldEnd", ints(3, 1), 0,
     "RIB error: incorrect parameter value at line 1 '2.5': Expected 3 ints", KW},
    {"IntsEmpty", "[ ] WorldEnd", ints(-1, 1), 0,
     "RIB error: incorrect parameter value at line 1 '': Expected at least one int", KW},
    {"IntsBareSingleRefusesFloat", "2.5 WorldEnd", ints(-1, 0), 0,
     "RIB error: general syntactic error at line 1 '2.5': Expected integer", KW},

    {"PointsIncomplete", "[ 1 2 3 4 5 ] WorldEnd", points(-1, 1), 0,
     "RIB error: general syntactic error at line 1 '5': Expected float", KW},
    {"PointsEmpty", "[ ] WorldEnd", points(-1, 1), 0,
     "RIB error: incorrect parameter value at line 1 '': Expected at least one point", KW},
    {"PointsTooFew", "[ 1 2 3 ] WorldEnd", points(2, 1), 0,
     "RIB error: incorrect parameter value at line 1 '3': Expected 2 points", KW},
    {"PointsBareSingle", "1 2 3 WorldEnd", points(-1, 0), 1, nullptr, KW},
    {"PointsTwo", "[ 1 2 3 4 5 6 ] WorldEnd", points(-1, 1), 2, nullptr, KW},

    // The elements of a binary array are taken by the array readers in one go;
    // results, reports and where the reading stops are those of single tokens.
    {"BinaryAllFloats", binaryFloats(4) + " WorldEnd", floats(-1, 0), 4, nullptr, KW},
    {"BinaryFewerFloatsThanTheArray", binaryFloats(4) + " WorldEnd", floats(3, 0), 0,
     "RIB error: general syntactic error at line 1 '': Expected character ']'", KW},
    {"BinaryWholePoints", binaryFloats(6) + " WorldEnd", points(-1, 1), 2, nullptr, KW},
    {"BinaryPointCutShort", binaryFloats(5) + " WorldEnd", points(-1, 1), 0,
     "RIB error: general syntactic error at line 1 '': Expected float", KW},
    {"BinaryTooFewPoints", binaryFloats(3) + " WorldEnd", points(2, 1), 0,
     "RIB error: incorrect parameter value at line 1 '': Expected 2 points", KW},
    {"BinarySinglePoint", binaryFloats(3) + " WorldEnd", points(1, 0), 1, nullptr, KW},
};

class MatchTable : public ::testing::TestWithParam<MatchCase> {};

TEST_P(MatchTable, ResultReportAndNextToken) {
  const MatchCase& c = GetParam();
  ReportCollector reports;
  RecordingParser p(c.input);
  EXPECT_EQ(c.read(p.primed()), c.result);
  EXPECT_EQ(reports.lines(), c.report ? Lines{c.report} : Lines{});
  EXPECT_EQ(p.token, c.tokenAfter);
}

INSTANTIATE_TEST_SUITE_P(Match, MatchTable, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(MatchValues, MatrixIsFilledRowByRow) {
  RecordingParser p("[ 0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 ]");
  float m[4][4] = {};
  ASSERT_EQ(p.primed().match(m), 1);
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) EXPECT_EQ(m[r][c], static_cast<float>(4 * r + c));
  }
  EXPECT_EQ(p.token, LEXEOF);
}

TEST(MatchValues, ArraysHoldTheNumbersInStreamOrder) {
  RecordingParser p("[ 1 -2 3.5 ] [ 4 5 6 ] [ 1 2 3 4 5 6 ]");
  p.primed();
  Array<float> f;
  Array<int32_t> i;
  Array<float[3]> pts;
  ASSERT_EQ(p.match(f, -1, 1), 3);
  EXPECT_EQ(std::vector<float>(f.data, f.data + f.count), (std::vector<float>{1, -2, 3.5f}));
  ASSERT_EQ(p.match(i, 3, 1), 3);
  EXPECT_EQ(std::vector<int32_t>(i.data, i.data + i.count), (std::vector<int32_t>{4, 5, 6}));
  ASSERT_EQ(p.match(pts, -1, 1), 2);
  EXPECT_EQ(pts.data[1][0], 4);
  EXPECT_EQ(pts.data[1][2], 6);
}

TEST(MatchValues, ArrayIsEmptiedEvenWhenTheReadFailsAtOnce) {
  RecordingParser p("\"x\"");
  Array<float> a;
  a.append(1);
  ReportCollector reports;
  EXPECT_EQ(p.primed().match(a, -1, 1), 0);
  EXPECT_EQ(a.count, 0u);
}

// Binary integers of each width, among them an ASCII one and white space,
// then a binary number with a fraction, which ends an integer array.
TEST(MatchBinaryArrays, IntegersOfEveryWidth) {
  const std::string first = {'[', '\x80', 5,      '\x81', 1,      0,      '\x82', 1,
                             0,   0,      '\x83', '\xFF', '\xFF', '\xFF', '\xFF', ' ',
                             '7', ' ',    '\x80', 2,      ' ',    '\x80', 3,      ']'};
  const std::string second = {'[', '\x80', 5, '\x85', 1, '\x80', ']'};
  RecordingParser p(first + second);
  p.primed();
  Array<int32_t> a;
  ASSERT_EQ(p.match(a, -1, 1), 7);
  EXPECT_EQ(std::vector<int32_t>(a.data, a.data + a.count),
            (std::vector<int32_t>{5, 256, 65536, -1, 7, 2, 3}));
  ReportCollector reports;
  EXPECT_EQ(p.match(a, -1, 1), 0);
  EXPECT_EQ(reports.lines(),
            std::vector<std::string>{"RIB error: general syntactic error at line 1 '7': Expected "
                                     "character ']'"});
}

TEST(MatchBinaryArrays, IntegersAcrossTheSourcesBlocks) {
  // Four bytes an integer: the source's 64 KiB block edges cut some of them.
  std::string input = "[";
  const int count = 40000;
  for (int i = 0; i < count; ++i) {
    input += {static_cast<char>(0x82), static_cast<char>(i >> 16), static_cast<char>(i >> 8),
              static_cast<char>(i)};
  }
  RecordingParser p(input + "]");
  p.primed();
  Array<int32_t> a;
  ASSERT_EQ(p.match(a, -1, 1), count);
  for (int i = 0; i < count; ++i) ASSERT_EQ(a.data[i], i);
  EXPECT_EQ(p.token, LEXEOF);
}

TEST(MatchBinaryArrays, ValuesAndScannerStateAfterTheRun) {
  ReportCollector reports;
  RecordingParser p(binaryFloats(7) + binaryFloats(6));
  p.primed();
  Array<float> f;
  ASSERT_EQ(p.match(f, 5, 1), 0) << "five of seven, then no ']'";
  RecordingParser q(binaryFloats(7) + binaryFloats(6));
  q.primed();
  ASSERT_EQ(q.match(f, -1, 1), 7);
  EXPECT_EQ(std::vector<float>(f.data, f.data + f.count),
            (std::vector<float>{1, 2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(q.lex.floatvalue, 7.0f) << "the last element, as single tokens leave it";
  EXPECT_EQ(q.token, '[');
  Array<float[3]> pts;
  ASSERT_EQ(q.match(pts, -1, 1), 2);
  EXPECT_EQ(pts.data[0][0], 1);
  EXPECT_EQ(pts.data[1][2], 6);
  EXPECT_EQ(q.token, LEXEOF);
}

}  // namespace
