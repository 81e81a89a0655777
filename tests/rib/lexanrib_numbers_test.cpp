// ASCII numbers read the same whether the scanner takes them where they lie
// in the source's block or byte by byte near its end, and every decimal a
// scene writer produces reads as the float nearest to it.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "rib/lexanrib.h"
#include "tests/rib/lexanrib_test_support.h"

using namespace lexantest;

namespace {

// Far more than the look-ahead the in-place reading wants.
const std::string kPadding(100, ' ');

TEST(LexanribNumbersBothWays, ReadTheSameInPlaceAndByteByByte) {
  const std::string digits40(40, '7');
  const std::vector<std::string> inputs = {
      "0 -0 +0 7 -7 +7 .5 -.5 +.5 0.134364 -12.5 850 00012 1.000",
      "2147483647 -2147483648 2147483648 -2147483649 123456789012345678901234567890",
      "999999999 1000000000 -999999999 -1000000000",
      "0.1234567890123456789 1234567890.12345678 9007199254740993.0 " + digits40 + ".5",
      "12[ 12] 12\"s\" 12#x\n3 1\t2\r3\n4 [1 2]",
      "12abc 1 1.2.3 1 12-3 1 5. 1 . 1 + 1 - 1 1e 1 .e5 1 1.5x 1",
      "1e5 1E5 1e+5 -1.5e-3 .5e1 1e39 -1e400 1e-400",
      // Longer than the in-place room: byte by byte wherever they stand.
      digits40 + digits40 + " -0." + digits40 + digits40,
  };
  for (const std::string& input : inputs) {
    EXPECT_EQ(tokens(input + kPadding), tokens(input)) << input;
  }
  EXPECT_EQ(tokens(std::string("12\x80\x05", 4) + kPadding),
            (Words{"THROW 16 Invalid number", "INT 5", "EOF"}));
  EXPECT_EQ(tokens("2147483648 -2147483649 0.1234567890123456789 " + kPadding),
            (Words{"INT 2147483647", "INT -2147483648", "FLOAT 0.123456791", "EOF"}));
}

TEST(LexanribNumbersBothWays, TextInPlaceHoldsTheWholeWord) {
  Scan scan("-0.134364 7 1.2.3x " + kPadding);
  ASSERT_EQ(scan.lex.next(), LEXFLOAT);
  EXPECT_STREQ(scan.lex.text.data, "-0.134364");
  EXPECT_EQ(scan.lex.text.count, 10u);
  ASSERT_EQ(scan.lex.next(), LEXINT);
  EXPECT_STREQ(scan.lex.text.data, "7");
  EXPECT_THROW(scan.lex.next(), RIBException);
  EXPECT_STREQ(scan.lex.text.data, "1.2.3x");
}

// Past what the scanner's text holds, a number reads as its whole text does:
// through the grammar, the 32-bit limits, and to the nearest double.
TEST(LexanribNumbersLong, ReadAsTheirWholeTextReads) {
  const std::string z(70000, '0');
  const std::string midpoint = "1.000000059604644775390625" + z + "1";
  double nearest = 0;
  std::from_chars(midpoint.data(), midpoint.data() + midpoint.size(), nearest);
  char expected[64];
  std::snprintf(expected, sizeof expected, "FLOAT %.9g", static_cast<float>(nearest));
  expectTokens({
      {z + "5 7", {"INT 5", "INT 7", "EOF"}},
      {"-1" + z + " -" + z + "1.5", {"INT -2147483648", "FLOAT -1.5", "EOF"}},
      {"0." + z + "1e70001 1" + z + "e-70000", {"FLOAT 1", "FLOAT 1", "EOF"}},
      {"1e" + z + "3 0." + std::string(70000, '3'), {"FLOAT 1000", "FLOAT 0.333333343", "EOF"}},
      {"0." + z + "1 1" + z + "e99999999999999999999", {"FLOAT 0", "FLOAT inf", "EOF"}},
      {midpoint, {expected, "EOF"}},
      {"1" + z + "x 1" + z + ". 7",
       {"THROW 16 Invalid number", "THROW 16 Invalid number", "INT 7", "EOF"}},
      {"-" + z + std::string("\x80\x05", 2), {"THROW 16 Invalid number", "INT 5", "EOF"}},
  });
}

// A value as a scene writer prints it, or of any shape, with the float
// (the nearest double, narrowed) and the integer it must read as.
struct Written {
  std::string text;
  bool isInt;
  float nearest;
  int32_t integer;
};

// Up to 24 digits with the point anywhere, and an exponent now and then.
std::string anyShape(std::mt19937& random) {
  std::string mantissa(1 + random() % 24, '0');
  for (char& digit : mantissa) digit = static_cast<char>('0' + random() % 10);
  const size_t point = random() % (mantissa.size() + 1);
  std::string text = (random() % 2 ? "-" : "") + mantissa.substr(0, point) + "." +
                     mantissa.substr(point) + (point == mantissa.size() ? "5" : "");
  if (random() % 3 == 0) text += "e" + std::to_string(static_cast<int>(random() % 90) - 45);
  return text;
}

std::vector<Written> sceneNumbers(int count) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const char* formats[] = {"%.6g", "%.6g", "%.7g", "%.3f", "%.0f"};
  std::vector<Written> numbers;
  for (int i = 0; i < count; ++i) {
    // Magnitudes from 1e-7 to 1e7, either sign, in the styles exporters use.
    double value = std::pow(10.0, unit(random) * 14 - 7) * (random() % 2 ? -1 : 1);
    char text[64];
    std::snprintf(text, sizeof text, formats[random() % 5], value);
    Written w{i % 8 == 7 ? anyShape(random) : text, false, 0, 0};
    const char* end = w.text.data() + w.text.size();
    double nearest = 0;
    std::from_chars(w.text.data(), end, nearest);
    w.nearest = static_cast<float>(nearest);
    w.isInt = w.text.find_first_of(".e") == std::string::npos;
    if (w.isInt) std::from_chars(w.text.data(), end, w.integer);
    numbers.push_back(w);
  }
  return numbers;
}

TEST(LexanribNumbersExact, SceneDecimalsReadAsTheNearestFloat) {
  // Enough for many of the source's blocks, so that their edges cut numbers
  // at every place; the separators vary as in real files.
  const std::vector<Written> numbers = sceneNumbers(150000);
  const char* separators[] = {" ", "\n", "\t", " [", "] ", "  "};
  std::string input;
  for (size_t i = 0; i < numbers.size(); ++i) input += numbers[i].text + separators[i % 6];
  Scan scan(input);
  int failures = 0;
  for (const Written& w : numbers) {
    int16_t kind = scan.lex.next();
    while (kind == '[' || kind == ']') kind = scan.lex.next();
    if (w.isInt) {
      ASSERT_EQ(kind, LEXINT) << w.text;
      if (scan.lex.intvalue != w.integer && failures++ < 5) ADD_FAILURE() << w.text;
    } else {
      ASSERT_EQ(kind, LEXFLOAT) << w.text;
      if (std::bit_cast<uint32_t>(scan.lex.floatvalue) != std::bit_cast<uint32_t>(w.nearest) &&
          failures++ < 5)
        ADD_FAILURE() << w.text << " read as " << scan.lex.floatvalue;
    }
  }
  EXPECT_EQ(failures, 0);
}

}  // namespace
