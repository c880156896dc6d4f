#pragma once
// Stable sort of a vector by keys worked out beforehand, one per item.
#include <algorithm>
#include <cstddef>
#include <numeric>
#include <type_traits>
#include <utility>
#include <vector>

namespace DL {

// Puts items in the stable order of their keys under less (keys[i] belongs to
// items[i]; keys.size() == items.size()). The order is found first, by
// sorting positions; the items are moved only once it is known, along the
// cycles of the permutation, by moves that cannot throw. So an exception from
// less or from allocation leaves every item where it was: nothing is lost or
// duplicated. Items already in order are not touched.
//
// order is room for the positions; passing the same vector to many calls
// spares an allocation per call. A short list is sorted by insertion, a long
// one by std::stable_sort, so the work stays n log n.
template <class Item, class Key, class Less>
void StableSortByKey(std::vector<Item>& items, const std::vector<Key>& keys, Less less, std::vector<size_t>* order) {
  static_assert(std::is_nothrow_move_constructible_v<Item> && std::is_nothrow_move_assignable_v<Item>,
                "items move into place without throwing");
  if (std::is_sorted(keys.begin(), keys.end(), less)) return;

  std::vector<size_t>& from = *order;  // from[i]: the position whose item goes to position i
  from.resize(items.size());
  std::iota(from.begin(), from.end(), size_t{0});
  auto before = [&](size_t a, size_t b) { return less(keys[a], keys[b]); };
  constexpr size_t kShort = 16;
  if (from.size() <= kShort) {
    for (size_t i = 1; i < from.size(); ++i) {
      const size_t moving = from[i];
      size_t j = i;
      for (; j > 0 && before(moving, from[j - 1]); --j) from[j] = from[j - 1];
      from[j] = moving;
    }
  } else {
    std::stable_sort(from.begin(), from.end(), before);
  }

  // Follow each cycle of the permutation once; a settled position is marked
  // by from[i] == i.
  for (size_t start = 0; start < from.size(); ++start) {
    if (from[start] == start) continue;
    Item held = std::move(items[start]);
    size_t to = start;
    while (from[to] != start) {
      const size_t next = from[to];
      items[to] = std::move(items[next]);
      from[to] = to;
      to = next;
    }
    items[to] = std::move(held);
    from[to] = to;
  }
}

template <class Item, class Key, class Less>
void StableSortByKey(std::vector<Item>& items, const std::vector<Key>& keys, Less less) {
  std::vector<size_t> order;
  StableSortByKey(items, keys, less, &order);
}

}  // namespace DL
