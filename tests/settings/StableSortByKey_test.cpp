#include "settings/StableSortByKey.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Items = std::vector<std::string>;

bool ByFirstByte(const std::string& a, const std::string& b) { return a[0] < b[0]; }

TEST(StableSortByKeyTest, EqualKeysKeepTheirOrder) {
  Items items = {"b1", "a1", "b2", "a2", "c1", "a3"};
  const Items keys = items;  // the key is the item itself, compared on its first byte
  DL::StableSortByKey(items, keys, ByFirstByte);
  EXPECT_EQ(items, (Items{"a1", "a2", "a3", "b1", "b2", "c1"}));
}

TEST(StableSortByKeyTest, ItemsFollowTheirOwnKeys) {
  Items items = {"x", "y", "z"};
  const std::vector<int> keys = {3, 1, 2};
  DL::StableSortByKey(items, keys, [](int a, int b) { return a < b; });
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
  EXPECT_THROW(DL::StableSortByKey(items, keys, failing), std::runtime_error);
  EXPECT_EQ(items, before);
}

TEST(StableSortByKeyTest, EmptyAndSortedInputsStay) {
  Items none;
  DL::StableSortByKey(none, std::vector<int>{}, [](int a, int b) { return a < b; });
  EXPECT_TRUE(none.empty());

  Items items = {"a", "b"};
  DL::StableSortByKey(items, std::vector<int>{1, 2}, [](int a, int b) { return a < b; });
  EXPECT_EQ(items, (Items{"a", "b"}));
}

}  // namespace
