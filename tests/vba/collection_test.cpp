#include "vba/collection.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "raises.h"

namespace quillet::vba {
namespace {

using testing::Raises;

std::vector<int> Items(const Collection<int>& c) {
  std::vector<int> out;
  for (int v : c) out.push_back(v);
  return out;
}

TEST(Collection, KeepsInsertionOrderAndFindsKeysWithoutRegardToCase) {
  Collection<int> c;
  EXPECT_TRUE(c.Empty());
  c.Add(1, L"Été");
  c.Add(2);
  c.Add(3, L"Жук");
  EXPECT_EQ(c.Count(), 3);
  EXPECT_EQ(Items(c), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(c.Item(2), 2);
  EXPECT_EQ(c.Item(L"été"), 1);
  EXPECT_EQ(c.Item(L"ÉTÉ"), 1);
  EXPECT_EQ(c.Item(L"жук"), 3);
  EXPECT_TRUE(c.Exists(L"ЖУК"));
  EXPECT_FALSE(c.Exists(L"ete"));
  EXPECT_EQ(c.Find(L"nothing"), nullptr);
  ASSERT_NE(c.Find(L"été"), nullptr);
  *c.Find(L"été") = 10;
  EXPECT_EQ(c.Item(1), 10);
  EXPECT_EQ(c.KeyAt(1), L"Été");
  EXPECT_EQ(c.KeyAt(2), L"");
  const Collection<int>& constant = c;
  EXPECT_EQ(constant.Item(L"été"), 10);
  EXPECT_EQ(constant.Item(3), 3);
}

TEST(Collection, DuplicateKeyRaises457AndTheFirstEntryKeepsIt) {
  Collection<std::wstring> c;
  c.Add(L"first", L"Key");
  EXPECT_TRUE(Raises(457, [&] { c.Add(L"second", L"KEY"); }));
  EXPECT_TRUE(Raises(457, [&] { c.AddBefore(L"second", 1, L"key"); }));
  EXPECT_EQ(c.Count(), 1);
  EXPECT_EQ(c.Item(L"key"), L"first");
  c.Add(L"unkeyed");
  c.Add(L"unkeyed too");  // items without a key never collide
  EXPECT_EQ(c.Count(), 3);
}

TEST(Collection, BadIndexRaises9AndMissingKeyRaises5) {
  Collection<int> c;
  EXPECT_TRUE(Raises(9, [&] { c.Item(1); }));
  c.Add(1, L"a");
  EXPECT_TRUE(Raises(9, [&] { c.Item(0); }));
  EXPECT_TRUE(Raises(9, [&] { c.Item(2); }));
  EXPECT_TRUE(Raises(9, [&] { c.Remove(2); }));
  EXPECT_TRUE(Raises(9, [&] { c.KeyAt(0); }));
  EXPECT_TRUE(Raises(5, [&] { c.Item(L"b"); }));
  EXPECT_TRUE(Raises(5, [&] { c.Remove(L"b"); }));
  EXPECT_EQ(c.Count(), 1);
}

TEST(Collection, RemoveAndInsertReindex) {
  Collection<int> c;
  c.Add(1, L"a");
  c.Add(2, L"b");
  c.Add(3, L"c");
  c.Add(4, L"d");
  c.Remove(2);
  EXPECT_EQ(Items(c), (std::vector<int>{1, 3, 4}));
  EXPECT_EQ(c.Item(L"c"), 3);
  EXPECT_EQ(c.Item(L"D"), 4);
  EXPECT_FALSE(c.Exists(L"b"));
  c.Remove(L"A");
  EXPECT_EQ(Items(c), (std::vector<int>{3, 4}));
  EXPECT_EQ(c.Item(1), 3);
  EXPECT_EQ(c.Item(L"d"), 4);
  c.AddBefore(0, 1, L"z");
  EXPECT_EQ(Items(c), (std::vector<int>{0, 3, 4}));
  EXPECT_EQ(c.Item(L"Z"), 0);
  EXPECT_EQ(c.Item(L"d"), 4);
  EXPECT_EQ(c.KeyAt(3), L"d");
  EXPECT_TRUE(Raises(9, [&] { c.AddBefore(9, 4); }));
  c.Add(2, L"b");  // a removed key is free again
  EXPECT_EQ(c.Item(4), 2);
  c.Clear();
  EXPECT_TRUE(c.Empty());
  EXPECT_FALSE(c.Exists(L"z"));
  c.Add(7, L"z");
  EXPECT_EQ(c.Item(L"z"), 7);
}

// Past a handful of keys the collection looks them up through a table of its own; the
// table has to follow every way entries come and go, and copies of the collection.
TEST(Collection, ManyKeysStayFoundThroughGrowthRemovalInsertionAndCopies) {
  Collection<int> c;
  auto key = [](int i) { return L"Name" + std::to_wstring(i); };
  for (int i = 0; i < 1000; ++i) {
    c.Add(i, i % 3 == 0 ? std::wstring() : key(i));
    if (i % 3 != 0) {
      EXPECT_TRUE(Raises(457, [&] { c.Add(-1, L"NAME" + std::to_wstring(i)); })) << i;
    }
  }
  EXPECT_EQ(c.Count(), 1000);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(c.Exists(L"name" + std::to_wstring(i)), i % 3 != 0) << i;
  EXPECT_EQ(c.Item(L"NAME998"), 998);

  // Every second entry goes: the keys of the rest still lead to their own items.
  long removed = c.RemoveIf([](int v) { return v % 2 == 0; });
  EXPECT_EQ(removed, 500);
  for (int i = 1; i < 1000; i += 2) {
    if (i % 3 != 0) {
      EXPECT_EQ(c.Item(key(i)), i) << i;
    }
  }
  EXPECT_FALSE(c.Exists(key(2)));
  c.Add(2, key(2));  // a freed key is taken again
  c.AddBefore(-5, 1, L"First");
  EXPECT_EQ(c.Item(1), -5);
  EXPECT_EQ(c.Item(L"first"), -5);
  EXPECT_EQ(c.Item(L"name997"), 997);
  EXPECT_TRUE(Raises(457, [&] { c.AddBefore(0, 1, L"NAME2"); }));

  Collection<int> copy = c;
  c.Remove(L"name997");
  EXPECT_FALSE(c.Exists(L"Name997"));
  EXPECT_EQ(copy.Item(L"Name997"), 997);
  Collection<int> moved = std::move(copy);
  EXPECT_EQ(moved.Item(L"name2"), 2);
  EXPECT_EQ(moved.KeyAt(1), L"First");

  // Shrinking back to a few keys and growing again.
  moved.RemoveIf([](int v) { return v > 10; });
  EXPECT_EQ(Items(moved), (std::vector<int>{-5, 1, 3, 5, 7, 9, 2}));
  EXPECT_EQ(moved.Item(L"NAME7"), 7);
  for (int i = 2000; i < 2020; ++i) moved.Add(i, key(i));
  EXPECT_EQ(moved.Item(L"name2019"), 2019);
  EXPECT_EQ(moved.Item(L"name5"), 5);
}

// Many items without keys and a few with: the keyed ones are still found, among
// thousands that are not.
TEST(Collection, FewKeysAmongManyUnkeyedItems) {
  Collection<int> c;
  for (int i = 0; i < 5000; ++i) c.Add(i);
  EXPECT_FALSE(c.Exists(L"x"));
  c.Add(-1, L"Last");
  c.AddBefore(-2, 1, L"first");
  for (int i = 0; i < 5000; ++i) c.Add(i);
  EXPECT_EQ(c.Item(L"LAST"), -1);
  EXPECT_EQ(c.Item(L"First"), -2);
  EXPECT_EQ(c.Count(), 10002);
  c.RemoveIf([](int v) { return v >= 0; });
  EXPECT_EQ(Items(c), (std::vector<int>{-2, -1}));
  EXPECT_EQ(c.Item(L"last"), -1);
  EXPECT_TRUE(Raises(457, [&] { c.Add(0, L"FIRST"); }));
}

TEST(Collection, HoldsMoveOnlyItems) {
  Collection<std::unique_ptr<int>> c;
  c.Add(std::make_unique<int>(5), L"five");
  c.AddBefore(std::make_unique<int>(4), 1);
  EXPECT_EQ(*c.Item(L"FIVE"), 5);
  EXPECT_EQ(*c.Item(1), 4);
  c.Remove(1);
  EXPECT_EQ(*c.Item(1), 5);
}

}  // namespace
}  // namespace quillet::vba
