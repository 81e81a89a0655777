#include "rib/lexanrib.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/rib/lexanrib_test_support.h"

using namespace lexantest;

namespace {

TEST(Lexanrib, EachTextReadsAsItsTokens) {
  expectTokens({
      {"12", {"INT 12", "EOF"}},
      {"+5 -7 0", {"INT 5", "INT -7", "INT 0", "EOF"}},
      {".5 -.5 1.25", {"FLOAT 0.5", "FLOAT -0.5", "FLOAT 1.25", "EOF"}},
      {"1.5e3 1E5 1e+5 2e-1",
       {"FLOAT 1500", "FLOAT 100000", "FLOAT 100000", "FLOAT 0.200000003", "EOF"}},
      {"0.1", {"FLOAT 0.100000001", "EOF"}},
      {"2147483647 -2147483648", {"INT 2147483647", "INT -2147483648", "EOF"}},
      // Numbers end at terminators without space.
      {"12[", {"INT 12", "[", "EOF"}},
      {"12]", {"INT 12", "]", "EOF"}},
      {"12\"s\"", {"INT 12", "STRING s", "EOF"}},
      {"12#x\n3", {"INT 12", "INT 3", "EOF"}},
      {"1\t2\r3\n4", {"INT 1", "INT 2", "INT 3", "INT 4", "EOF"}},
      // Out of range.
      {"1e39", {"FLOAT inf", "EOF"}},
      {"-1e400", {"FLOAT -inf", "EOF"}},
      {"1e-400 0.0000e999", {"FLOAT 0", "FLOAT 0", "EOF"}},
      {"99999999999 -99999999999", {"INT 2147483647", "INT -2147483648", "EOF"}},
      // Read as a double and then narrowed: just above the midpoint between two
      // floats, the double lands on the midpoint and the narrowing goes to even.
      {"1.00000005960464477550", {"FLOAT 1", "EOF"}},
      // Long digit runs.
      {"0000000000000000000000012", {"INT 12", "EOF"}},
      {"12345678901234567890123", {"INT 2147483647", "EOF"}},
      {"123456789012345678901234567890e-20", {"FLOAT 1.23456794e+09", "EOF"}},
      {"0.00000000000000000000000000001", {"FLOAT 1e-29", "EOF"}},
      // Strings: escapes and octal.
      {R"("plain")", {"STRING plain", "EOF"}},
      {R"("a\q")", {"STRING aq", "EOF"}},
      {R"("\101\60")", {"STRING A0", "EOF"}},
      {R"("\1019")", {"STRING A9", "EOF"}},
      {R"("\18")", {"STRING \0018", "EOF"}},
      {R"("ab\0cd")", {"STRING ab", "EOF"}},
      {R"("q\"q\\")", {"STRING q\"q\\", "EOF"}},
      {R"("\n\r\t\b\f")", {"STRING \n\r\t\b\f", "EOF"}},
      {R"("")", {"STRING ", "EOF"}},
      {"\"a\\\nb\"", {"STRING ab", "EOF"}},
      {"\"#not a comment [ ]\"", {"STRING #not a comment [ ]", "EOF"}},
      // Words end only at terminators.
      {"Sphere", {"KEYWORD Sphere", "EOF"}},
      {"Sphere\"x\"", {"KEYWORD Sphere", "STRING x", "EOF"}},
      {"Sphere[1]", {"KEYWORD Sphere", "[", "INT 1", "]", "EOF"}},
      {"Sphere#x\nCone", {"KEYWORD Sphere", "KEYWORD Cone", "EOF"}},
      {"a(1,2)b", {"KEYWORD a(1,2)b", "EOF"}},
      {"\fWorld\x01", {"KEYWORD \fWorld\x01", "EOF"}},
      {"Sphere\xA6\x01", {"KEYWORD Sphere", "KEYWORD ", "EOF"}},
      {"  \t\r\n# only a comment", {"EOF"}},
      {"##RenderMan RIB\nWorldBegin", {"KEYWORD WorldBegin", "EOF"}},
      // A binary byte after digits makes the number invalid and stays in the stream.
      {std::string("12\x80\x05", 4), {"THROW 16 Invalid number", "INT 5", "EOF"}},
  });
}

TEST(LexanribNumbers, MalformedNumbersRaiseAndQuoteTheWord) {
  for (const char* bad :
       {"12abc", "1.2.3", "12-3", "5.", ".", "+", "-", "1e", "1e+", ".e5", "1.5x"}) {
    Scan scan(std::string(bad) + " 7");
    EXPECT_EQ(raised(scan.lex), "16 2 Invalid number") << bad;
    EXPECT_STREQ(scan.lex.text.data, bad);
    EXPECT_EQ(scan.lex.next(), LEXINT) << "the scan goes on after " << bad;
  }
}

TEST(LexanribStrings, OctalValuesAreEightBits) {
  Scan scan(R"("\777\400\0")");
  ASSERT_EQ(scan.lex.next(), LEXSTRING);
  ASSERT_EQ(scan.lex.text.count, 4u);
  EXPECT_EQ(static_cast<unsigned char>(scan.lex.text.data[0]), 0xFF);
  EXPECT_EQ(scan.lex.text.data[1], '\0');
  EXPECT_EQ(scan.lex.text.data[2], '\0');
}

TEST(LexanribStrings, LineEndInsideAStringRaisesAndLeavesTheRestOfTheLine) {
  Reports reports;
  // The scan resumes at "cd", whose closing quote then opens a string.
  EXPECT_EQ(tokens("\"ab\ncd\" 3"),
            (Words{"THROW 16 String runs past end of line", "KEYWORD cd", "STRING  3", "EOF"}));
  // A backslash keeps the carriage return, but the line feed still breaks.
  EXPECT_EQ(tokens("Sphere \"ab\\\r\n\" 4"),
            (Words{"KEYWORD Sphere", "THROW 16 String runs past end of line", "STRING  4", "EOF"}));
  EXPECT_EQ(reports.lines().size(), 2u);
}

// A failed number or string and a bracket leave the last token kind alone.
TEST(LexanribStream, TokenKindSurvivesFailuresAndBrackets) {
  Scan number("Sphere 5.");
  EXPECT_EQ(number.lex.next(), LEXKEYWORD);
  EXPECT_THROW(number.lex.next(), RIBException);
  EXPECT_EQ(number.lex.thistoke, LEXKEYWORD);
  EXPECT_EQ(number.lex.next(), LEXEOF);

  Scan scan("Sphere \"ab\ncd [");
  EXPECT_EQ(scan.lex.next(), LEXKEYWORD);
  EXPECT_EQ(raised(scan.lex), "16 2 String runs past end of line");
  EXPECT_EQ(scan.lex.thistoke, LEXKEYWORD);
  EXPECT_STREQ(scan.lex.text.data, "ab");
  EXPECT_EQ(scan.lex.line, 2);
  EXPECT_EQ(scan.lex.next(), LEXKEYWORD);  // the rest of the line: cd
  EXPECT_EQ(scan.lex.next(), '[');
  EXPECT_EQ(scan.lex.thistoke, LEXKEYWORD);
}

TEST(LexanribStrings, UnterminatedAtEndIsReportedAndDelivered) {
  for (const char* input : {"\"abc", "\"a\\", "\"a\\1"}) {
    Reports reports;
    Scan scan(input);
    EXPECT_EQ(scan.lex.next(), LEXSTRING) << input;
    ASSERT_EQ(reports.lines().size(), 1u) << input;
    EXPECT_EQ(scan.lex.next(), LEXEOF);
  }
  Reports reports;
  EXPECT_EQ(tokens("\"a\\"), (Words{"STRING a", "EOF"}));
  EXPECT_EQ(reports.lines(),
            (Words{"RIB error: general syntactic error at line 1 'a': Unterminated string"}));
}

// Up to a String's limit the text arrives whole (its count holds the NUL);
// beyond it, cut.
TEST(LexanribStrings, LongTextArrivesWholeUpToAStringsLimit) {
  std::string body;
  for (int i = 0; i < 70000; ++i) body += static_cast<char>('a' + i % 26);
  for (size_t length : {60000u, 70000u}) {
    Scan scan("\"" + body.substr(0, length) + "\" 1");
    ASSERT_EQ(scan.lex.next(), LEXSTRING);
    EXPECT_EQ(scan.lex.text.count, std::min<size_t>(length + 1, lexanrib::kTextLimit));
    String s;
    scan.lex.get(s);
    EXPECT_EQ(std::string(s.c_str()), body.substr(0, std::min<size_t>(length, 65535)));
    EXPECT_EQ(scan.lex.next(), LEXINT);
  }
}

TEST(LexanribStream, LinesCountFromWhereTheScanBegan) {
  Scan scan("WorldBegin\n\n\n# note\nSphere \"a\\\nb\" 3\r\n\"x");
  lexanrib& lex = scan.lex;
  EXPECT_EQ(lex.next(), LEXKEYWORD);
  EXPECT_EQ(lex.lastline, 1);
  EXPECT_EQ(lex.next(), LEXKEYWORD);  // Sphere, on line 5
  EXPECT_EQ(lex.lastline, 1);
  EXPECT_EQ(lex.line, 5);
  EXPECT_EQ(lex.next(), LEXSTRING);  // the continuation counts
  EXPECT_EQ(lex.lastline, 5);
  EXPECT_EQ(lex.line, 6);
  EXPECT_EQ(lex.next(), LEXINT);
  EXPECT_EQ(lex.lastline, 6);
  Reports reports;
  EXPECT_EQ(lex.next(), LEXSTRING);
  EXPECT_EQ(lex.lastline, 6);
  EXPECT_EQ(lex.line, 7);
  EXPECT_EQ(reports.lines(),
            (Words{"RIB error: general syntactic error at line 6 'x': Unterminated string"}));
}

// Each way a line ends (a line feed, a comment, a continued string) stops
// counting at the last line rather than wrapping.
TEST(LexanribStream, LinesPastTheLastAreCountedAsIt) {
  Scan scan("\n\n# c\n\"a\\\nb\" x\n\"y");
  lexanrib& lex = scan.lex;
  lex.line = lexanrib::kLastLine - 1;
  Reports reports;
  EXPECT_EQ(tokens(lex), (Words{"STRING ab", "KEYWORD x", "STRING y", "EOF"}));
  EXPECT_EQ(lex.line, lexanrib::kLastLine);
  EXPECT_EQ(reports.lines(), (Words{"RIB error: general syntactic error at line 4294967295 'y': "
                                    "Unterminated string"}));
}

TEST(LexanribStream, EndOfStreamRepeatsAndAnUnfinishedLineCounts) {
  Scan empty("");
  EXPECT_EQ(empty.lex.next(), LEXEOF);
  EXPECT_EQ(empty.lex.next(), LEXEOF);
  Scan scan("1\n# last");
  scan.lex.next();
  EXPECT_EQ(scan.lex.next(), LEXEOF);
  EXPECT_EQ(scan.lex.line, 3);
}

TEST(LexanribStream, ReadsAcrossTheSourcesBlocks) {
  // 13 bytes a round, so the source's 64 KiB block edges fall at a different
  // place in the round each time, pushed-back bytes included.
  std::string input;
  for (int i = 0; i < 30000; ++i) input += "Wd 12 #c\n\"s\" ";
  input += std::string(100000, 'k');
  Scan scan(input);
  for (int i = 0; i < 30000; ++i) {
    ASSERT_EQ(scan.lex.next(), LEXKEYWORD);
    ASSERT_STREQ(scan.lex.text.data, "Wd");
    ASSERT_EQ(scan.lex.next(), LEXINT);
    ASSERT_EQ(scan.lex.intvalue, 12);
    ASSERT_EQ(scan.lex.next(), LEXSTRING);
    ASSERT_STREQ(scan.lex.text.data, "s");
  }
  ASSERT_EQ(scan.lex.next(), LEXKEYWORD);
  EXPECT_EQ(scan.lex.text.count, lexanrib::kTextLimit);
  EXPECT_EQ(scan.lex.next(), LEXEOF);
  EXPECT_EQ(scan.lex.line, 30001);
}

TEST(LexanribGet, IntegersReadAsFloats) {
  Scan scan("7 2.5");
  scan.lex.next();
  float f = 0;
  scan.lex.get(f);
  EXPECT_EQ(f, 7.0f);
  int32_t i = 0;
  scan.lex.get(i);
  scan.lex.get(i);  // may be asked again
  EXPECT_EQ(i, 7);
}

TEST(LexanribGetDeathTest, WrongAccessorStopsWithTheCondition) {
  Scan scan("Sphere 2.5 7");
  scan.lex.next();
  int32_t i;
  float f;
  String s;
  EXPECT_DEATH(scan.lex.get(i), "thistoke == LEXINT");
  EXPECT_DEATH(scan.lex.get(f), "thistoke == LEXFLOAT \\|\\| thistoke == LEXINT");
  scan.lex.next();
  EXPECT_DEATH(scan.lex.get(s), "thistoke == LEXSTRING \\|\\| thistoke == LEXKEYWORD");
}

}  // namespace
