#include <gtest/gtest.h>

#include "foundation/Hash.h"
#include "foundation/List.h"
#include "foundation/String.h"

#include <vector>

namespace {

// A keyed record like the program's own: hashed and compared by its key only.
struct Named {
  String name;
  int payload;
  uint32_t hash() const { return name.hash(); }
  bool operator==(const Named& other) const { return name == other.name; }
};

struct Numbered {
  uint16_t number;
  int payload;
  uint32_t hash() const { return number; }
  bool operator==(const Numbered& other) const { return number == other.number; }
};

std::vector<int> valuesOf(const List<int>& list) {
  std::vector<int> values;
  for (const ListElement<int>* e = list.head; e; e = e->next) values.push_back(e->value);
  return values;
}

TEST(ListTest, AddPutsNewestFirstAndCopyReverses) {
  List<int> list;
  EXPECT_EQ(list.add(1), 1);
  list.add(2);
  list.add(3);
  EXPECT_EQ(valuesOf(list), (std::vector<int>{3, 2, 1}));
  List<int> copy(list);
  EXPECT_EQ(valuesOf(copy), (std::vector<int>{1, 2, 3}));
  EXPECT_NE(&copy.head->value, &list.head->next->next->value);
}

// findPred never compares the head; find returns the stored value.
TEST(ListTest, FindAndFindPred) {
  List<int> empty;
  EXPECT_EQ(empty.findPred(1), nullptr);
  EXPECT_EQ(empty.find(1), nullptr);
  List<int> one;
  one.add(5);
  EXPECT_EQ(one.findPred(5), one.head);
  EXPECT_EQ(one.findPred(6), one.head);
  List<int> three;
  for (int i = 1; i <= 3; ++i) three.add(i);  // 3 2 1
  EXPECT_EQ(three.findPred(1), three.head->next);
  EXPECT_EQ(three.findPred(9), three.head->next->next);
  EXPECT_EQ(three.find(3), &three.head->value);
  EXPECT_EQ(three.find(1), &three.head->next->next->value);
  EXPECT_EQ(three.find(4), nullptr);
}

TEST(ListTest, DetachRemovesOneElement) {
  List<int> list;
  EXPECT_EQ(list.detach(1), 0);
  EXPECT_EQ(list.detachHead(), 0);
  for (int i = 1; i <= 4; ++i) list.add(i);  // 4 3 2 1
  EXPECT_EQ(list.detach(9), 0);
  EXPECT_EQ(list.detach(2), 1);
  EXPECT_EQ(list.detach(4), 1);
  EXPECT_EQ(list.detach(1), 1);
  EXPECT_EQ(valuesOf(list), std::vector<int>{3});
  list.flush();
  EXPECT_EQ(list.head, nullptr);
}

TEST(HashTest, LaterEqualKeyHidesTheEarlier) {
  Hash<Named> table(111);
  EXPECT_EQ(table.add({String("Sphere"), 1}), 1);
  table.add({String("Sphere"), 2});
  ASSERT_NE(table.find({String("Sphere"), 0}), nullptr);
  EXPECT_EQ(table.find({String("Sphere"), 0})->payload, 2);
  EXPECT_EQ(table.detach({String("Sphere"), 0}), 1);
  EXPECT_EQ(table.find({String("Sphere"), 0})->payload, 1);
  EXPECT_EQ(table.detach({String("Sphere"), 0}), 1);
  EXPECT_EQ(table.find({String("Sphere"), 0}), nullptr);
  EXPECT_EQ(table.detach({String("Sphere"), 0}), 0);
}

TEST(HashTest, BucketIsHashModuloSize) {
  Hash<Numbered> table(111);
  table.add({5, 50});
  table.add({116, 1160});
  List<Numbered>* bucket = table.table[5];
  ASSERT_NE(bucket, nullptr);
  EXPECT_EQ(bucket->head->value.number, 116);
  EXPECT_EQ(bucket->head->next->value.number, 5);
  EXPECT_EQ(table.find({5, 0})->payload, 50);
  EXPECT_EQ(table.find({116, 0})->payload, 1160);
  EXPECT_EQ(table.find({227, 0}), nullptr);
}

TEST(HashTest, CollidingTextsAreToldApartByText) {
  // "ab" hashes to 1650 and "ha" to 1761: one bucket apart by exactly 111.
  String a("ab"), b("ha");
  ASSERT_EQ(a.hash() % 111, b.hash() % 111);
  Hash<Named> table(111);
  table.add({a, 1});
  table.add({b, 2});
  EXPECT_EQ(table.find({a, 0})->payload, 1);
  EXPECT_EQ(table.find({b, 0})->payload, 2);
}

// A size of zero is one bucket.
TEST(HashTest, EmptiedBucketIsRemovedAndMadeAgain) {
  Hash<Numbered> one(0);
  EXPECT_EQ(one.size, 1);
  one.add({40000, 1});
  EXPECT_EQ(one.find({40000, 0})->payload, 1);
  Hash<Numbered> table(111);
  table.add({7, 1});
  EXPECT_EQ(table.detach({8, 0}), 0);
  EXPECT_EQ(table.detach({7, 0}), 1);
  EXPECT_EQ(table.table[7], nullptr);
  table.add({7, 2});
  ASSERT_NE(table.table[7], nullptr);
  EXPECT_EQ(table.find({7, 0})->payload, 2);
}

TEST(HashTest, FlushEmptiesEveryBucket) {
  Hash<Numbered> table(111);
  for (uint16_t i = 0; i < 300; ++i) table.add({i, i});
  table.flush();
  for (uint16_t i = 0; i < table.size; ++i) EXPECT_EQ(table.table[i], nullptr);
  EXPECT_EQ(table.find({3, 0}), nullptr);
  table.add({3, 9});
  EXPECT_EQ(table.find({3, 0})->payload, 9);
}

}  // namespace
