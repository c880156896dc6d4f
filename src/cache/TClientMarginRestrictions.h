#pragma once
// The margin settings of one client, prefix, template, the general section
// or the firm's global level: one body per limit kind. Limit kind 0 holds
// the effective margin data too (the main margin class identifiers and the
// validity of the per-security parameters), reached by find(0) and
// operator[](0).
#include <cstdint>
#include <map>

#include "cache/TClientMarginRestrictionsBody.h"

namespace DL {

struct TClientMarginRestrictions {
 public:
  using TBodies = std::map<std::uint64_t, TClientMarginRestrictionsBody>;
  using iterator = TBodies::iterator;
  using const_iterator = TBodies::const_iterator;

  iterator find(std::uint64_t limitKind) { return m_bodies.find(limitKind); }
  const_iterator find(std::uint64_t limitKind) const { return m_bodies.find(limitKind); }
  TClientMarginRestrictionsBody& operator[](std::uint64_t limitKind) { return m_bodies[limitKind]; }
  iterator begin() { return m_bodies.begin(); }
  iterator end() { return m_bodies.end(); }
  const_iterator begin() const { return m_bodies.begin(); }
  const_iterator end() const { return m_bodies.end(); }
  bool empty() const { return m_bodies.empty(); }
  std::size_t size() const { return m_bodies.size(); }

  // The body of a limit kind, null when the object has none.
  const TClientMarginRestrictionsBody* Body(std::uint64_t limitKind) const {
    const auto it = m_bodies.find(limitKind);
    return it == m_bodies.end() ? nullptr : &it->second;
  }
  TClientMarginRestrictionsBody* Body(std::uint64_t limitKind) {
    const auto it = m_bodies.find(limitKind);
    return it == m_bodies.end() ? nullptr : &it->second;
  }

  bool operator==(const TClientMarginRestrictions&) const = default;

 private:
  TBodies m_bodies;
};

}  // namespace DL
