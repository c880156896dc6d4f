#pragma once
// A list of codes read from one settings value (classes, boards, clients,
// settle codes): the items in the order of the text, and a hash set for the
// membership tests of the hot path. Codes are compared byte for byte.
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace DL {

class TClassList {
 public:
  // How Assign treats the items of the text.
  enum EMode {
    KeepRepeats = 0,  // every item, repeats included (the set holds each once)
    NoRepeats = 1,    // the first occurrence of each item only
    UpperNoRepeats = 2  // each item upper-cased, then the first occurrence only
  };

  TClassList() = default;
  TClassList(std::string_view text, EMode mode) { Assign(text, mode); }

  // Replaces the list by the items of a ","-separated text, each trimmed;
  // empty items are dropped.
  void Assign(std::string_view text, EMode mode);
  // Appends the items of `other` that the list does not hold yet.
  void AppendMissing(const TClassList& other);
  void Clear();

  bool Contains(std::string_view code) const { return m_set.find(code) != m_set.end(); }
  const std::vector<std::string>& Items() const { return m_items; }
  bool Empty() const { return m_items.empty(); }
  std::size_t Size() const { return m_items.size(); }
  // The items joined with ",", in their order.
  std::string ToString() const;

 private:
  struct THash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const noexcept { return std::hash<std::string_view>()(s); }
  };
  void Add(std::string item, bool unique);

  std::vector<std::string> m_items;
  std::unordered_set<std::string, THash, std::equal_to<>> m_set;
};

}  // namespace DL
