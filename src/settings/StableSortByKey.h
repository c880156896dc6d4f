#pragma once
// Stable sort of a vector by keys worked out beforehand, one per item.
#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace DL {

// A sort key and the position of the item it belongs to.
template <class Key>
struct KeyAt {
  Key key;
  size_t at;  // position of the item in the list being sorted
};

// Puts items in the stable order of their keys under less: keys[i].key
// belongs to items[i], and keys[i].at == i on entry; keys.size() ==
// items.size(). The keys themselves are sorted, not positions pointing at
// them, so the sort reads its memory in order; a short list is sorted by
// insertion, a long one by std::stable_sort, so the work stays n log n. The
// keys are left in an unspecified state.
//
// The items are moved only once their order is known, along the cycles of
// the permutation, by moves that cannot throw. So an exception from less or
// from allocation leaves every item where it was: nothing is lost or
// duplicated. Items already in order are not touched.
template <class Item, class Key, class Less>
void StableSortByKey(std::vector<Item>& items, std::vector<KeyAt<Key>>& keys, Less less) {
  static_assert(std::is_nothrow_move_constructible_v<Item> && std::is_nothrow_move_assignable_v<Item>,
                "items move into place without throwing");
  auto before = [&](const KeyAt<Key>& a, const KeyAt<Key>& b) { return less(a.key, b.key); };
  if (std::is_sorted(keys.begin(), keys.end(), before)) return;

  constexpr size_t kShort = 16;
  if (keys.size() <= kShort) {
    for (size_t i = 1; i < keys.size(); ++i) {
      KeyAt<Key> moving = std::move(keys[i]);
      size_t j = i;
      for (; j > 0 && before(moving, keys[j - 1]); --j) keys[j] = std::move(keys[j - 1]);
      keys[j] = std::move(moving);
    }
  } else {
    std::stable_sort(keys.begin(), keys.end(), before);
  }

  // keys[i].at is now the position whose item goes to position i. Follow
  // each cycle once; a settled position is marked by keys[i].at == i.
  for (size_t start = 0; start < keys.size(); ++start) {
    if (keys[start].at == start) continue;
    Item held = std::move(items[start]);
    size_t to = start;
    while (keys[to].at != start) {
      const size_t next = keys[to].at;
      items[to] = std::move(items[next]);
      keys[to].at = to;
      to = next;
    }
    items[to] = std::move(held);
    keys[to].at = to;
  }
}

}  // namespace DL
