#include "foundation/String.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

TEST(StringTest, NullPointerAndDefaultGiveEmptyText) {
  String a, b(nullptr);
  EXPECT_EQ(a.size(), 0);
  EXPECT_EQ(b.size(), 0);
  EXPECT_STREQ(a.c_str(), "");
  EXPECT_STREQ(static_cast<const char*>(b), "");
  // The length constructor stops at a NUL.
  EXPECT_STREQ(String("abcdef", 3).c_str(), "abc");
  EXPECT_STREQ(String("ab\0cd", 5).c_str(), "ab");
  EXPECT_EQ(String(nullptr, 4).size(), 0);
}

TEST(StringTest, OnlyExactNullConvertsToNullPointer) {
  String null("null");
  EXPECT_EQ(static_cast<const char*>(null), nullptr);
  EXPECT_EQ(null.size(), 4);
  EXPECT_TRUE(null == String("null"));
  std::ostringstream os;
  os << null;
  EXPECT_EQ(os.str(), "null");
  for (const char* text : {"Null", "NULL", "nul", "null ", ""}) {
    String s(text);
    EXPECT_STREQ(static_cast<const char*>(s), text) << text;
  }
}

// Copies own their buffers; appending to itself and concatenating leave
// the operands alone.
TEST(StringTest, CopiesOwnTheirBuffers) {
  String a("abc");
  String b(a);
  String c;
  c = a;
  EXPECT_NE(a.c_str(), b.c_str());
  EXPECT_NE(a.c_str(), c.c_str());
  a += String("d");
  EXPECT_STREQ(a.c_str(), "abcd");
  EXPECT_STREQ(b.c_str(), "abc");
  EXPECT_STREQ(c.c_str(), "abc");
  const char* before = b.c_str();
  String& alias = b;
  b = alias;
  EXPECT_EQ(b.c_str(), before);  // self-assignment keeps the buffer
  EXPECT_STREQ(b.c_str(), "abc");
  b += b;
  EXPECT_STREQ(b.c_str(), "abcabc");
  EXPECT_EQ(b.size(), 6);
  String yz("yz");
  String sum = c + yz;
  EXPECT_STREQ(sum.c_str(), "abcyz");
  EXPECT_STREQ(c.c_str(), "abc");
  EXPECT_STREQ(yz.c_str(), "yz");
}

TEST(StringTest, EqualityIsByteWise) {
  EXPECT_TRUE(String("Sphere") == String("Sphere"));
  EXPECT_FALSE(String("Sphere") == String("sphere"));
  EXPECT_TRUE(String("Sphere") == "Sphere");
  EXPECT_TRUE("" == String());
  EXPECT_TRUE(String() == static_cast<const char*>(nullptr));
  EXPECT_EQ(String("a") == String("b"), 0);
}

TEST(StringTest, PjwHash) {
  EXPECT_EQ(String("").hash(), 0u);
  EXPECT_EQ(String("a").hash(), 97u);
  EXPECT_EQ(String("abc").hash(), 26499u);
  // Bytes above 0x7F count as negative.
  EXPECT_EQ(String("\xff").hash(), 0x0fffff0fu);  // -1, then the top nibble folded in
  EXPECT_EQ(String("a\xff").hash(), 97u * 16 - 1);
  // Long text folds the top nibble back in, and the top nibble stays clear.
  EXPECT_EQ(String("LightSource_with_a_long_name").hash(), 149636741u);
}

TEST(StringTest, TextBeyondSixteenBitsIsCut) {
  std::string big(70000, 'x');
  String s(big.c_str());
  EXPECT_EQ(s.size(), 65535);
  EXPECT_EQ(std::string(s.c_str()), std::string(65535, 'x'));
  EXPECT_EQ(String(big.c_str(), big.size()).size(), 65535);

  std::string most(65530, 'y');
  String t(most.c_str());
  t += String("0123456789");
  EXPECT_EQ(t.size(), 65535);
  EXPECT_EQ(std::string(t.c_str()), most + "01234");
  t += t;
  EXPECT_EQ(t.size(), 65535);
  std::string max(65535, 'z');
  EXPECT_EQ(String(max.c_str()).c_str(), max);  // exactly the limit fits
}

std::string gHookMessage;
int gHookCalls = 0;

void recordHook(const char* message) {
  gHookMessage = message;
  ++gHookCalls;
}

TEST(StringTest, IndexPastTerminatorIsReportedAndClamped) {
  auto saved = String::indexErrorHook;
  String::indexErrorHook = recordHook;
  gHookCalls = 0;
  String s("abc");
  EXPECT_EQ(s[1], 'b');
  EXPECT_EQ(s[3], '\0');
  EXPECT_EQ(gHookCalls, 0);
  EXPECT_EQ(&s[4], &s[3]);
  EXPECT_EQ(gHookCalls, 1);
  EXPECT_EQ(gHookMessage, "string index out of range");
  s[0] = 'X';
  EXPECT_STREQ(s.c_str(), "Xbc");
  String::indexErrorHook = nullptr;
  EXPECT_EQ(String("")[9], '\0');
  EXPECT_EQ(gHookCalls, 1);
  String::indexErrorHook = saved;
}

}  // namespace
