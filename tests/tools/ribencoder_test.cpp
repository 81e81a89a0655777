#include "tools/ribencoder.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace ribtools {
namespace {

struct Encoded {
  EncodeResult result;
  std::string bytes;
};

Encoded encode(const std::string& ascii, DefineForm form = DefineForm::kEncoded) {
  Encoded e;
  ByteReader in(ascii);
  {
    BinaryWriter out(e.bytes, form);
    e.result = encodeRib(in, out);
  }
  return e;
}

std::string hex(const std::string& bytes) {
  std::string s;
  char b[4];
  for (unsigned char c : bytes) {
    std::snprintf(b, sizeof b, "%s%02X", s.empty() ? "" : " ", c);
    s += b;
  }
  return s;
}

struct Case {
  const char* name;
  const char* ascii;
  const char* bytes;  // hex
  DefineForm form = DefineForm::kEncoded;
};

// Names the case in test listings instead of a byte dump of the struct.
void PrintTo(const Case& c, std::ostream* os) {
  *os << c.name;
}

class EncodesTokens : public testing::TestWithParam<Case> {};

TEST_P(EncodesTokens, AsExpected) {
  Encoded e = encode(GetParam().ascii, GetParam().form);
  ASSERT_TRUE(e.result.ok) << e.result.message;
  EXPECT_EQ(hex(e.bytes), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, EncodesTokens,
    testing::Values(
        Case{"SmallestIntegerForm", "5 255", "80 05 80 FF"},
        Case{"TwoAndThreeByteIntegers", "256 65535 70000", "81 01 00 81 FF FF 82 01 11 70"},
        Case{"NegativeIntegersTakeFourBytes", "-1 -2147483648", "83 FF FF FF FF 83 80 00 00 00"},
        Case{"LargestInteger", "+2147483647", "83 7F FF FF FF"},
        Case{"Floats", "1.5 -.5 1e5 1E-1",
             "A4 3F C0 00 00 A4 BF 00 00 00 A4 47 C3 50 00 A4 3D CC CC CD"},
        Case{"NegativeZeroKeepsItsSign", "-0.0", "A4 80 00 00 00"},
        // 16777217 is halfway between two floats: the double is rounded to even.
        Case{"FloatNarrowedFromDouble", "16777217.0", "A4 4B 80 00 00"},
        Case{"NumberEndsAtBracketQuoteOrComment", "12[3]4\"a\"5#x\n",
             "80 0C 5B 80 03 5D 80 04 91 61 80 05"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Arrays, EncodesTokens,
    testing::Values(
        Case{"FloatsBecomeOneFloatArray", "[1.5 2.5]", "C8 02 3F C0 00 00 40 20 00 00"},
        Case{"IntegersAmongFloatsReadAsFloats", "[0 0.5 1]",
             "C8 03 00 00 00 00 3F 00 00 00 3F 80 00 00"},
        Case{"IntegerArrayStaysIntegers", "[3 4]", "5B 80 03 80 04 5D"},
        Case{"EmptyArrayStaysBrackets", "[ ]", "5B 5D"},
        Case{"StringArray", "[\"a\" \"b\"]", "5B 91 61 91 62 5D"},
        Case{"NumbersBeforeAStringStaySeparate", "[1.5 \"a\"]", "5B A4 3F C0 00 00 91 61 5D"},
        Case{"NestedBracketReleasesTheOuterArray", "[1 [2.5]]", "5B 80 01 C8 01 40 20 00 00 5D"},
        Case{"StrayClosingBracket", "]", "5D"},
        Case{"UnclosedArrayAtEnd", "[1.5", "5B A4 3F C0 00 00"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Strings, EncodesTokens,
    testing::Values(Case{"EmptyString", "\"\"", "90"},
                    Case{"FifteenBytesFitTheShortForm", "\"abcdefghijklmno\"",
                         "9F 61 62 63 64 65 66 67 68 69 6A 6B 6C 6D 6E 6F"},
                    Case{"SixteenBytesTakeALength", "\"abcdefghijklmnop\"",
                         "A0 10 61 62 63 64 65 66 67 68 69 6A 6B 6C 6D 6E 6F 70"},
                    Case{"EscapesAreDecoded", "\"\\n\\r\\t\\b\\f\\\\\\\"\\q\"",
                         "98 0A 0D 09 08 0C 5C 22 71"},
                    Case{"OctalEscapes", "\"\\101\\60\\1019\\777\\0\"", "96 41 30 41 39 FF 00"},
                    Case{"LineContinuation", "\"a\\\nb\"", "92 61 62"}),
    [](const auto& info) { return std::string(info.param.name); });

// Bytes that the reader would reject go through unchanged, so the reader of the
// binary file reports what the reader of the text reports.
INSTANTIATE_TEST_SUITE_P(
    Verbatim, EncodesTokens,
    testing::Values(Case{"MalformedNumberWithItsWord", "12abc 1", "31 32 61 62 63 20 80 01"},
                    Case{"PointWithoutDigits", "5. .", "35 2E 20 2E 20"},
                    Case{"IntegerBeyond32Bits", "2147483648", "32 31 34 37 34 38 33 36 34 38 20"},
                    Case{"FloatBeyondFloatRange", "1e39", "31 65 33 39 20"},
                    Case{"StringRunningPastItsLine", "\"ab\n1", "22 61 62 0A 20 80 01"},
                    Case{"UnterminatedString", "\"ab", "22 61 62 20"}),
    [](const auto& info) { return std::string(info.param.name); });

// A request's name is defined once, in the form asked for, then used by its code.
INSTANTIATE_TEST_SUITE_P(
    Requests, EncodesTokens,
    testing::Values(
        Case{"CommentsAndWhiteSpaceAreDropped", "##RenderMan RIB\n# a comment \xff\n\t 1\r\n# last",
             "80 01"},
        Case{"RequestDefinedOnceThenCoded", "Sphere Cone Sphere",
             "CC 00 96 53 70 68 65 72 65 A6 00 CC 01 94 43 6F 6E 65 A6 01 A6 00"},
        Case{"BareName", "Cone", "CC 00 43 6F 6E 65 A6 00", DefineForm::kBare},
        Case{"QuotedName", "Cone", "CC 00 22 43 6F 6E 65 22 A6 00", DefineForm::kQuoted},
        Case{"QuotedNameEscaped", "a\\b", "CC 00 22 61 5C 5C 62 22 A6 00", DefineForm::kQuoted},
        Case{"KeywordEndsAtAQuoteOrBracket", "Ab\"x\"Cd[",
             "CC 00 41 62 A6 00 91 78 CC 01 43 64 A6 01 5B", DefineForm::kBare}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Encoder, WritesWordsBeyondTheCodeTableAsText) {
  std::string ascii;
  for (int i = 0; i < 257; ++i) ascii += "w" + std::to_string(i) + " ";
  ascii += "w0";
  Encoded e = encode(ascii, DefineForm::kBare);
  ASSERT_TRUE(e.result.ok);
  EXPECT_EQ(e.result.keywords, 258) << "every keyword counts, coded or not";
  // The 257th word goes out as text, and the first still has its code.
  EXPECT_EQ(e.bytes.substr(e.bytes.size() - 7), std::string("w256 \xA6\x00", 7));
}

TEST(Encoder, RefusesBinaryInput) {
  Encoded e = encode("Sphere\n1 \x80\x01");
  EXPECT_FALSE(e.result.ok);
  EXPECT_EQ(e.result.message,
            "line 2: byte 0x80 begins a binary token; only ASCII RIB can be encoded");
}

TEST(Encoder, ReadsLargeInputsThroughTheBuffer) {
  std::string ascii;
  std::string expected;
  for (int i = 0; i < 100000; ++i) {
    ascii += "[1.5 2] ";
    expected += std::string("\xC8\x02\x3F\xC0\x00\x00\x40\x00\x00\x00", 10);
  }
  Encoded e = encode(ascii);
  ASSERT_TRUE(e.result.ok);
  EXPECT_EQ(e.bytes, expected);
  EXPECT_EQ(e.result.tokens, 400000);
  EXPECT_EQ(e.result.keywords, 0);
}

}  // namespace
}  // namespace ribtools
