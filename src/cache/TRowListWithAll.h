#pragma once
// A list of codes that may say "<ALL>" instead of naming them: partners,
// securities of a class, trading accounts, templates.
#include <string>
#include <string_view>
#include <vector>

namespace DL {

class TRowListWithAll {
 public:
  // Replaces the list by the items of a ","-separated text, each trimmed;
  // empty items and repeats are dropped. An item "<ALL>" sets the all-flag,
  // and the list then keeps no items.
  void FillFromStr(std::string_view text);
  void Clear();

  bool IsAll() const { return m_all; }
  const std::vector<std::string>& Items() const { return m_items; }
  bool Empty() const { return !m_all && m_items.empty(); }
  // Covered by the list: the all-flag, or an item equal to the code or
  // ending in "*" and matching its beginning.
  bool Contains(std::string_view code) const;
  // "<ALL>", or the items joined with "," in their order.
  std::string ToStr() const;

  bool operator==(const TRowListWithAll& o) const = default;

 private:
  bool m_all = false;
  std::vector<std::string> m_items;
};

}  // namespace DL
