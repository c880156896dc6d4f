#pragma once
// Stable sort of a vector by keys worked out beforehand, one per item.
#include <algorithm>
#include <cstddef>
#include <numeric>
#include <type_traits>
#include <vector>

namespace DL {

// Puts items in the stable order of their keys under less (keys[i] belongs to
// items[i]; keys.size() == items.size()). The order is found first, by a
// merge sort of positions; the items are moved only once it is known, into
// room reserved beforehand. So an exception from less or from allocation
// leaves every item where it was: nothing is lost or duplicated.
// Items already in order are not touched.
template <class Item, class Key, class Less>
void StableSortByKey(std::vector<Item>& items, const std::vector<Key>& keys, Less less) {
  static_assert(std::is_nothrow_move_constructible_v<Item>, "items move into place without throwing");
  if (std::is_sorted(keys.begin(), keys.end(), less)) return;

  std::vector<size_t> order(items.size());
  std::iota(order.begin(), order.end(), size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) { return less(keys[a], keys[b]); });

  std::vector<Item> sorted;
  sorted.reserve(items.size());
  for (size_t i : order) sorted.push_back(std::move(items[i]));
  items.swap(sorted);
}

}  // namespace DL
