#include "foundation/Array.h"

#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

std::vector<uint32_t> capacitiesUpTo(Array<int32_t>& a, uint32_t index) {
  std::vector<uint32_t> seen{a.capacity};
  while (a.capacity <= index) {
    a.grow();
    seen.push_back(a.capacity);
  }
  return seen;
}

template <class T>
Array<T> arrayOf(std::initializer_list<T> values) {
  Array<T> a;
  for (const T& v : values) a.append(v);
  return a;
}

TEST(ArrayTest, GrowthSequences) {
  Array<int32_t> a;
  EXPECT_EQ(a.count, 0u);
  EXPECT_NE(a.data, nullptr);
  EXPECT_EQ(capacitiesUpTo(a, 300),
            (std::vector<uint32_t>{12, 19, 29, 44, 67, 101, 152, 229, 344}));
  Array<int32_t> z(nullptr, 0, 0);
  EXPECT_EQ(capacitiesUpTo(z, 16), (std::vector<uint32_t>{0, 1, 2, 4, 7, 11, 17}));
}

TEST(ArrayTest, IndexingExtendsTheArray) {
  Array<int32_t> a;
  a(0) = 7;
  EXPECT_EQ(a.count, 1u);
  EXPECT_EQ(a.capacity, 12u);
  a(100) = 9;
  EXPECT_EQ(a.count, 101u);
  EXPECT_EQ(a.capacity, 101u);
  EXPECT_EQ(a.data[0], 7);
  EXPECT_EQ(a.data[100], 9);
  a(50) = 3;
  EXPECT_EQ(a.count, 101u);
  EXPECT_EQ(a.capacity, 101u);
}

TEST(ArrayTest, AppendKeepsOrderAcrossGrowthAndClearKeepsTheCapacity) {
  Array<float> a;
  for (int i = 0; i < 40; ++i) a.append(i * 0.5f);
  ASSERT_EQ(a.count, 40u);
  for (int i = 0; i < 40; ++i) EXPECT_EQ(a.data[i], i * 0.5f);
  uint32_t cap = a.capacity;
  a.clear();
  EXPECT_EQ(a.count, 0u);
  EXPECT_EQ(a.capacity, cap);
}

TEST(ArrayTest, CopiesTakeCapacityAndElements) {
  Array<String> src;
  src.append(String("a"));
  src.append(String("b"));
  src(20) = String("c");
  Array<String> dst;
  dst.append(String("old"));
  dst = src;
  EXPECT_EQ(dst.count, 21u);
  EXPECT_EQ(dst.capacity, src.capacity);
  EXPECT_STREQ(dst.data[1].c_str(), "b");
  EXPECT_STREQ(dst.data[20].c_str(), "c");
  EXPECT_NE(dst.data[0].c_str(), src.data[0].c_str());  // deep copies
  EXPECT_STREQ(dst.data[5].c_str(), "");                // skipped slots are empty Strings

  // Construction from storage, and the copy constructor, copy too.
  const char text[] = "abc";
  Array<char> a(text, 4, 4);
  EXPECT_EQ(a.count, 4u);
  EXPECT_EQ(a.capacity, 4u);
  EXPECT_NE(a.data, text);
  Array<char> copy(a);
  EXPECT_STREQ(copy.data, "abc");
  EXPECT_NE(copy.data, a.data);

  String* before = dst.data;
  Array<String>& alias = dst;
  dst = alias;
  EXPECT_EQ(dst.data, before);
  EXPECT_EQ(dst.count, 21u);
}

TEST(ArrayTest, FindComparesAsEachTypeSays) {
  Array<String> strings = arrayOf<String>({String("x"), String("Sphere")});
  EXPECT_EQ(strings.find(String("Sphere")), 1);
  EXPECT_EQ(strings.find(String("Cone")), -1);

  char text1[] = "P";
  char text2[] = "P";
  Array<char*> names;
  names.append(text1);
  EXPECT_EQ(names.find(text1), 0);
  EXPECT_EQ(names.find(text2), -1);

  float p[3] = {1, 2, 3};
  float same[3] = {1, 2, 3};
  Array<float[3]> points;
  points.append(p);
  EXPECT_EQ(points.find(points.data[0]), 0);
  EXPECT_EQ(points.find(same), -1);
  EXPECT_EQ(points.data[0][2], 3.0f);

  EXPECT_EQ(arrayOf<float>({0.25f, -0.0f}).find(0.0f), 1);
}

template <class T>
std::string printed(const Array<T>& a) {
  std::ostringstream os;
  a.print(os);
  return os.str();
}

// Twelve elements on a line, each type in its own form, a point array by the
// address of its element.
TEST(ArrayTest, PrintPutsTwelveOnALineInEachTypesForm) {
  char word[] = "word";
  Array<float[3]> points;
  float p[3] = {0, 0, 0};
  points.append(p);
  std::ostringstream address;
  address << static_cast<const void*>(points.data[0]);
  const std::pair<std::string, std::string> cases[] = {
      {printed(arrayOf<int32_t>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13})),
       "( 13 )< 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12\n\t13 >\n"},
      {printed(Array<int32_t>()), "( 0 )<  >\n"},
      {printed(arrayOf<int32_t>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11})),
       "( 12 )< 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11 >\n"},
      {printed(arrayOf<char>({'a', 'b'})), "( 2 )< a, b >\n"},
      {printed(arrayOf<uint16_t>({65535})), "( 1 )< 65535 >\n"},
      {printed(arrayOf<float>({1.5f})), "( 1 )< 1.5 >\n"},
      {printed(arrayOf<char*>({word, nullptr})), "( 2 )< word, (null) >\n"},
      {printed(points), "( 1 )< " + address.str() + " >\n"},
  };
  for (const auto& [got, expected] : cases) EXPECT_EQ(got, expected);
}

struct Overflow {};
[[noreturn]] void throwOverflow() {
  throw Overflow();
}

TEST(ArrayTest, WrappedCapacityGoesToTheNewHandler) {
  Array<char> a;
  a.append('q');
  char* data = a.data;
  a.capacity = 0xB0000000u;  // the next capacity would wrap past 32 bits
  std::new_handler saved = std::set_new_handler(throwOverflow);
  EXPECT_THROW(a.grow(), Overflow);
  EXPECT_EQ(std::get_new_handler(), throwOverflow);
  std::set_new_handler(saved);
  EXPECT_EQ(a.data, data);
  EXPECT_EQ(a.count, 1u);
  a.capacity = 12;
}

TEST(ArrayDeathTest, WrappedCapacityWithoutHandlerAborts) {
  EXPECT_DEATH(
      {
        std::set_new_handler(nullptr);
        Array<char> a;
        a.capacity = 0xFFFFFFFFu;
        a.grow();
      },
      "fatal error: Array too large");
}

// Copying fails on the nth assignment, as a String copy does when memory runs out.
struct Fragile {
  static int budget;
  int value = 0;
  Fragile& operator=(const Fragile& other) {
    if (budget-- == 0) throw std::bad_alloc();
    value = other.value;
    return *this;
  }
  bool operator==(const Fragile& other) const { return value == other.value; }
};
int Fragile::budget = -1;

// A failed grow leaves the elements in place, a failed assignment the target.
TEST(ArrayTest, FailedCopyLeavesElementsInPlace) {
  Array<Fragile> a;
  Fragile f;
  for (int i = 0; i < 12; ++i) {
    f.value = i;
    a.append(f);
  }
  Fragile* data = a.data;
  Fragile::budget = 5;
  f.value = 99;
  EXPECT_THROW(a.append(f), std::bad_alloc);
  Fragile::budget = -1;
  EXPECT_EQ(a.data, data);
  EXPECT_EQ(a.count, 12u);
  EXPECT_EQ(a.capacity, 12u);
  EXPECT_EQ(a.data[11].value, 11);

  Array<Fragile> dst;
  f.value = 8;
  dst.append(f);
  Fragile::budget = 1;
  EXPECT_THROW(dst = a, std::bad_alloc);
  Fragile::budget = -1;
  EXPECT_EQ(dst.count, 1u);
  EXPECT_EQ(dst.data[0].value, 8);
}

}  // namespace
