#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <string>
#include <vector>

#include "rib/lexanrib.h"
#include "tests/rib/lexanrib_test_support.h"

using namespace lexantest;

namespace {

// Bytes from a list of numbers, so NULs and high bytes read plainly.
std::string bytes(std::initializer_list<int> list) {
  std::string s;
  for (int b : list) s += static_cast<char>(b);
  return s;
}

TEST(LexanribBinary, EveryEncodingReadsAsItsTokens) {
  expectTokens({
      {bytes({0x80, 0x05}), {"INT 5", "EOF"}},
      {bytes({0x81, 0x01, 0x00}), {"INT 256", "EOF"}},
      {bytes({0x81, 0xFF, 0xFF}), {"INT 65535", "EOF"}},
      {bytes({0x82, 0xFF, 0xFF, 0xFF}), {"INT 16777215", "EOF"}},
      {bytes({0x83, 0xFF, 0xFF, 0xFF, 0xFF}), {"INT -1", "EOF"}},
      {bytes({0x85, 0x01, 0x80}), {"FLOAT 1.5", "EOF"}},
      {bytes({0x8C, 0xFF}), {"FLOAT 1.51991844e-05", "EOF"}},
      {bytes({0x8B, 0xFF, 0xFF, 0x80, 0x00}), {"FLOAT -0.5", "EOF"}},
      {bytes({0xA4, 0x3F, 0x80, 0x00, 0x00}), {"FLOAT 1", "EOF"}},
      {bytes({0xA4, 0xC0, 0x20, 0x00, 0x00}), {"FLOAT -2.5", "EOF"}},
      {bytes({0xA5, 0x3F, 0xF0, 0, 0, 0, 0, 0, 0}), {"FLOAT 1", "EOF"}},
      {bytes({0xA5, 0x3F, 0xB9, 0x99, 0x99, 0x99, 0x99, 0x99, 0x9A}), {"FLOAT 0.100000001", "EOF"}},
      {bytes({0x90}), {"STRING ", "EOF"}},
      {bytes({0x93, 'a', 'b', 'c'}), {"STRING abc", "EOF"}},
      {bytes({0xA0, 0x03, 'a', 'b', 'c'}), {"STRING abc", "EOF"}},
      {bytes({0xA1, 0x00, 0x02, '\n', '"'}), {"STRING \n\"", "EOF"}},
      // A float cut short at the end still counts: the two bytes there are
      // the value's top bytes so far, 0x4000 as bits.
      {bytes({0xC8, 0x02, 0x3F, 0x80, 0, 0, 0x40, 0x00}),
       {"[", "FLOAT 1", "FLOAT 2.2958874e-41", "]", "EOF"}},
      // Request definitions.
      {bytes({0xCC, 0x05}) + "Sphere " + bytes({0xA6, 0x05}), {"KEYWORD Sphere", "EOF"}},
      {bytes({0xCC, 0x05}) + "Sphere " + bytes({0xCC, 0x06}) + "Cone " +
           bytes({0xA6, 0x06, 0xA6, 0x05}),
       {"KEYWORD Cone", "KEYWORD Sphere", "EOF"}},
      {bytes({0xCC, 200}) + "Torus" + bytes({0xA6, 200}), {"KEYWORD Torus", "EOF"}},
      {bytes({0xCC, 0x05}) + "Sphere " + bytes({0xCC, 0x05}) + "Disk " + bytes({0xA6, 0x05}),
       {"KEYWORD Disk", "EOF"}},
      {bytes({0xA6, 0x09}), {"KEYWORD ", "EOF"}},
      // The name may also be an encoded or a quoted string.
      {bytes({0xCC, 0x07, 0x96}) + "Sphere" + bytes({0xA6, 0x07}), {"KEYWORD Sphere", "EOF"}},
      {bytes({0xCC, 0x07, 0xA0, 0x04}) + "Cone" + bytes({0xA6, 0x07}), {"KEYWORD Cone", "EOF"}},
      {bytes({0xCC, 0x07}) + "\"Disk\"" + bytes({0xA6, 0x07}), {"KEYWORD Disk", "EOF"}},
      // A byte with bit 7 set outside the string headers gives an empty word.
      {bytes({0xCC, 0x07, 0x80, 0x03, 0xA6, 0x07}), {"INT 3", "KEYWORD ", "EOF"}},
      // String definitions.
      {bytes({0xCD, 0x07, 0x93}) + "abc" + bytes({0xCF, 0x07}), {"STRING abc", "EOF"}},
      {bytes({0xCE, 0x01, 0x00}) + "\"t\\tx\"" + bytes({0xD0, 0x01, 0x00}), {"STRING t\tx", "EOF"}},
      {bytes({0xCD, 0x07, 0x91, 'a', 0xCD, 0x07, 0x91, 'b', 0xCF, 0x07}), {"STRING b", "EOF"}},
      {bytes({0xCF, 0x09}), {"STRING ", "EOF"}},
      {bytes({0xD0, 0xFF, 0xFF}), {"STRING ", "EOF"}},
      // Not a string header: nothing is defined and the byte is the next token.
      {bytes({0xCD, 0x02, 0x80, 0x04, 0xCF, 0x02}), {"INT 4", "STRING ", "EOF"}},
  });
}

TEST(LexanribBinary, StringsHoldingNulsEndThere) {
  Scan scan(bytes({0x93, 'a', 0, 'b', 0x92, '\\', 'n'}));
  ASSERT_EQ(scan.lex.next(), LEXSTRING);
  EXPECT_EQ(scan.lex.text.count, 4u);  // a NUL b, then the terminator
  EXPECT_EQ(describe(scan.lex, LEXSTRING), "STRING a");
  EXPECT_EQ(scan.lex.next(), LEXSTRING);
  EXPECT_STREQ(scan.lex.text.data, "\\n");
  EXPECT_EQ(scan.lex.line, 1);
}

TEST(LexanribBinary, LongStringLength) {
  std::string body(70000, 'q');
  Scan scan(bytes({0xA2, 0x01, 0x11, 0x70}) + body + "1");
  ASSERT_EQ(scan.lex.next(), LEXSTRING);
  EXPECT_EQ(scan.lex.text.count, lexanrib::kTextLimit);
  EXPECT_EQ(scan.lex.next(), LEXINT);
}

TEST(LexanribBinary, FloatArrayIsDeliveredElementByElement) {
  Scan scan(bytes({0xC8, 0x02, 0x3F, 0x80, 0, 0, 0x40, 0, 0, 0}) + "\n7");
  EXPECT_EQ(tokens(scan.lex, 5), (Words{"[", "FLOAT 1", "FLOAT 2", "]", "INT 7"}));
  EXPECT_EQ(scan.lex.infloats, 0);
  EXPECT_EQ(scan.lex.lastline, 1);

  expectTokens({
      {bytes({0xC8, 0x00}), {"[", "]", "EOF"}},
      {bytes({0xC9, 0x00, 0x01, 0x3F, 0x80, 0, 0}), {"[", "FLOAT 1", "]", "EOF"}},
      // A count far beyond the data stops at the end of the stream.
      {bytes({0xCB, 0xFF, 0xFF, 0xFF, 0xFF, 0x3F, 0x80, 0, 0}), {"[", "FLOAT 1", "]", "EOF"}},
  });
}

TEST(LexanribBinary, NumbersAndArraysReadAcrossTheSourcesBlocks) {
  // 21 bytes a round: a three-byte integer and an array of three floats, so
  // the source's 64 KiB block edges fall inside both in turn.
  std::string input;
  const int rounds = 20000;
  for (int i = 0; i < rounds; ++i) {
    input += bytes({0x82, (i >> 16) & 0xFF, (i >> 8) & 0xFF, i & 0xFF, 0xC8, 0x03});
    for (float f : {1.0f * i, 0.5f, -2.0f * i}) {
      const uint32_t bits = std::bit_cast<uint32_t>(f);
      input += bytes({static_cast<int>(bits >> 24), static_cast<int>(bits >> 16 & 0xFF),
                      static_cast<int>(bits >> 8 & 0xFF), static_cast<int>(bits & 0xFF)});
    }
  }
  Scan scan(input);
  lexanrib& lex = scan.lex;
  for (int i = 0; i < rounds; ++i) {
    ASSERT_EQ(lex.next(), LEXINT);
    ASSERT_EQ(lex.intvalue, i);
    ASSERT_EQ(lex.next(), '[');
    for (float f : {1.0f * i, 0.5f, -2.0f * i}) {
      ASSERT_EQ(lex.next(), LEXFLOAT);
      ASSERT_EQ(lex.floatvalue, f) << "round " << i;
    }
    ASSERT_EQ(lex.next(), ']');
  }
  EXPECT_EQ(lex.next(), LEXEOF);
}

// An index far past the table is kept aside; the table growing past it later,
// or the index being defined again, must still give its latest text.
TEST(LexanribBinary, FarStringIndicesKeepTheirLatestText) {
  const std::string far = bytes({0xCE, 0xFF, 0xF0, 0x91, 'f'});
  const std::string readFar = bytes({0xD0, 0xFF, 0xF0});
  expectTokens({
      {far + readFar + bytes({0xCF, 0x00}), {"STRING f", "STRING ", "EOF"}},
      {far + bytes({0xCE, 0xFF, 0xF1, 0x91, 'g'}) + readFar + bytes({0xD0, 0xFF, 0xF1}),
       {"STRING f", "STRING g", "EOF"}},
      {far + bytes({0xCE, 0xFF, 0xF0, 0x91, 'h'}) + readFar, {"STRING h", "EOF"}},
  });
  std::string climb = far;
  for (unsigned i = 0; i <= 0xFFFF; i += 255) {
    climb +=
        bytes({0xCE, static_cast<unsigned char>(i >> 8), static_cast<unsigned char>(i), 0x91, 'd'});
  }
  expectTokens({{climb + readFar, {"STRING f", "EOF"}},
                {climb + bytes({0xCE, 0xFF, 0xF0, 0x91, 'n'}) + readFar, {"STRING n", "EOF"}}});
  // Neither a far definition nor a lookup grows the table.
  for (const std::string& input : {far, bytes({0xD0, 0x10, 0x00})}) {
    Scan scan(input);
    scan.lex.next();
    EXPECT_EQ(scan.lex.strings.count, 0u);
  }
}

TEST(LexanribBinary, DefinedTextStaysInTextUntilTheNextToken) {
  Reports reports;
  Scan scan(bytes({0xCD, 0x01, 0x92}) + "ab" + "[");
  EXPECT_EQ(scan.lex.next(), '[');
  scan.lex.RIBError(16, 2, nullptr);
  EXPECT_EQ(reports.lines(), (Words{"RIB error: general syntactic error at line 1 'ab'"}));
}

TEST(LexanribBinary, BadAsciiStringInADefinition) {
  Reports reports;
  expectTokens({{bytes({0xCD, 0x01}) + "\"ab\ncd",
                 {"THROW 16 String runs past end of line", "KEYWORD cd", "EOF"}}});
  // The quote is never closed: the definition swallows the rest.
  expectTokens({{bytes({0xCD, 0x01}) + "\"ab" + bytes({0xCF, 0x01}), {"EOF"}}});
  EXPECT_EQ(reports.lines().size(), 1u);
}

TEST(LexanribBinary, UnassignedBytesEndTheStream) {
  for (int b : {0xA7, 0xB0, 0xC7, 0xD1, 0xE0, 0xFF}) {
    Scan scan(bytes({0x80, 0x01, b, 0x80, 0x02}));
    EXPECT_EQ(tokens(scan.lex), (Words{"INT 1", "EOF"})) << b;
    EXPECT_EQ(scan.source.consumed(), 3u) << b;
  }
}

TEST(LexanribBinary, CutShortAtTheEnd) {
  for (const std::string& input :
       {bytes({0x83, 0x01}), bytes({0xA4, 0x3F}), bytes({0xA5}), bytes({0x95, 'a'}),
        bytes({0xA3, 0xFF}), bytes({0xA6}), bytes({0xCC}), bytes({0xCC, 0x01}), bytes({0xCD}),
        bytes({0xCE, 0x01}), bytes({0xCF}), bytes({0xC9, 0x00})}) {
    Words got = tokens(input);
    ASSERT_FALSE(got.empty());
    EXPECT_EQ(got.back(), "EOF");
    EXPECT_LE(got.size(), 3u);
  }
}

TEST(LexanribMixed, AsciiAndBinaryAlternate) {
  std::string input = bytes({0xCC, 0x01}) + "Sphere\n" + bytes({0xA6, 0x01}) + "1 " +
                      bytes({0x80, 0x02}) + "-3 " + bytes({0xA4, 0x40, 0x80, 0, 0}) + "[ 4 " +
                      bytes({0xC8, 0x01, 0x3F, 0x80, 0, 0}) + "]\n" + "Cone" + bytes({0x92}) +
                      "ab" + "# comment \xFF\n" + bytes({0xCD, 0x00, 0x91, 'P'}) + "\"Cs\"" +
                      bytes({0xCF, 0x00});
  Scan scan(input);
  EXPECT_EQ(tokens(scan.lex), (Words{"KEYWORD Sphere", "INT 1", "INT 2", "INT -3", "FLOAT 4", "[",
                                     "INT 4", "[", "FLOAT 1", "]", "]", "KEYWORD Cone", "STRING ab",
                                     "STRING Cs", "STRING P", "EOF"}));
  EXPECT_EQ(scan.lex.line, 4);
}

TEST(LexanribMixed, LineFeedsInBinaryDataCountNothing) {
  Scan scan(bytes({0x80, '\n', 0x92, '\n', '\n', 0xA4, '\n', '\n', '\n', '\n'}) + "\nX");
  EXPECT_EQ(tokens(scan.lex).size(), 5u);
  EXPECT_EQ(scan.lex.line, 2);
}

// Arbitrary bytes, weighted toward the ones with a meaning, always come to an
// end without a fault (the sanitizer build watches every access).
TEST(LexanribMixed, ArbitraryBytesEndCleanly) {
  const std::string alphabet = std::string("\"\\\n\r #[]+-.e0123456789abc", 25) +
                               bytes({0x80, 0x83, 0x8F, 0x90, 0x9F, 0xA0, 0xA3, 0xA4, 0xA5, 0xA6,
                                      0xC8, 0xCB, 0xCC, 0xCD, 0xCE, 0xCF, 0xD0, 0x00});
  std::mt19937 random(11);
  Reports reports;
  for (int round = 0; round < 300; ++round) {
    std::string input;
    size_t length = random() % 400;
    for (size_t i = 0; i < length; ++i) {
      input +=
          random() % 4 ? alphabet[random() % alphabet.size()] : static_cast<char>(random() % 256);
    }
    Scan scan(input);
    Words got = tokens(scan.lex, 100000);
    ASSERT_FALSE(got.empty());
    EXPECT_EQ(got.back(), "EOF") << "round " << round;
  }
}

}  // namespace
