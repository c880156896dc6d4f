#include "settings/StableSortByKey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Items = std::vector<std::string>;

// Sorts items by keys given in item order.
template <class Key, class Less>
void Sort(Items& items, const std::vector<Key>& keys, Less less) {
  std::vector<DL::KeyAt<Key>> keyed;
  for (size_t i = 0; i < keys.size(); ++i) keyed.push_back({keys[i], i});
  DL::StableSortByKey(items, keyed, less);
}

bool ByFirstByte(const std::string& a, const std::string& b) { return a[0] < b[0]; }

TEST(StableSortByKeyTest, EqualKeysKeepTheirOrder) {
  Items items = {"b1", "a1", "b2", "a2", "c1", "a3"};
  const Items keys = items;  // the key is the item itself, compared on its first byte
  Sort(items, keys, ByFirstByte);
  EXPECT_EQ(items, (Items{"a1", "a2", "a3", "b1", "b2", "c1"}));
}

TEST(StableSortByKeyTest, ItemsFollowTheirOwnKeys) {
  Items items = {"x", "y", "z"};
  const std::vector<int> keys = {3, 1, 2};
  Sort(items, keys, [](int a, int b) { return a < b; });
  EXPECT_EQ(items, (Items{"y", "z", "x"}));
}

TEST(StableSortByKeyTest, AnExceptionLeavesEveryItemInPlace) {
  Items items;
  std::vector<int> keys;
  for (int i = 0; i < 200; ++i) {
    items.push_back("item" + std::to_string(i));
    keys.push_back((i * 7919) % 200);
  }
  const Items before = items;
  int calls = 0;
  auto failing = [&](int a, int b) {
    if (++calls == 500) throw std::runtime_error("comparison failed");
    return a < b;
  };
  EXPECT_THROW(Sort(items, keys, failing), std::runtime_error);
  EXPECT_EQ(items, before);
}

TEST(StableSortByKeyTest, AnExceptionInAShortListLeavesEveryItemInPlace) {
  Items items = {"d", "c", "b", "a"};
  const Items before = items;
  int calls = 0;
  auto failing = [&](int a, int b) {
    if (++calls == 6) throw std::runtime_error("comparison failed");
    return a < b;
  };
  EXPECT_THROW(Sort(items, std::vector<int>{4, 3, 2, 1}, failing), std::runtime_error);
  EXPECT_EQ(items, before);
}

TEST(StableSortByKeyTest, ShortAndLongListsGiveTheStableOrder) {
  // Keys with many ties, in lists on both sides of the insertion-sort length.
  for (size_t n : {2u, 5u, 16u, 17u, 40u, 1000u}) {
    Items items;
    std::vector<int> keys;
    for (size_t i = 0; i < n; ++i) {
      keys.push_back(static_cast<int>((i * 7919) % 5));
      items.push_back(std::to_string(keys.back()) + "/" + std::to_string(i));
    }
    Items expected = items;
    std::stable_sort(expected.begin(), expected.end(),
                     [](const std::string& a, const std::string& b) { return a[0] < b[0]; });
    Sort(items, keys, [](int a, int b) { return a < b; });
    EXPECT_EQ(items, expected) << n;
  }
}

TEST(StableSortByKeyTest, EmptyAndSortedInputsStay) {
  Items none;
  Sort(none, std::vector<int>{}, [](int a, int b) { return a < b; });
  EXPECT_TRUE(none.empty());

  Items items = {"a", "b"};
  Sort(items, std::vector<int>{1, 2}, [](int a, int b) { return a < b; });
  EXPECT_EQ(items, (Items{"a", "b"}));
}

}  // namespace
