#pragma once
// The margin settings a client lookup gives (one object of
// TCacheOfClientMarginRestrictions), read the way queries read them: a body
// of limit kind 0 that says all limit kinds are the same answers for every
// limit kind.
#include <cstdint>

#include "cache/TClientMarginRestrictions.h"

namespace DL {

class TEffectiveMarginStorage {
 public:
  explicit TEffectiveMarginStorage(const TClientMarginRestrictions* object) : m_object(object) {}

  // The limit kind that answers for `kind`: 0 when the body of limit kind 0
  // says "CheckForAllLimitKinds" (all limit kinds are the same), else `kind`.
  std::uint64_t GetEffectiveLK(std::uint64_t kind) const {
    if (m_object == nullptr || kind == 0) return kind;
    const TClientMarginRestrictionsBody* zero = m_object->Body(0);
    return zero != nullptr && zero->checkForAllLimitKinds.value != 0 ? 0 : kind;
  }
  // The body of the limit kind so redirected; null when there is none.
  const TClientMarginRestrictionsBody* find(std::uint64_t kind) const {
    return m_object == nullptr ? nullptr : m_object->Body(GetEffectiveLK(kind));
  }
  // The body of the limit kind, else that of limit kind 0.
  const TClientMarginRestrictionsBody* FindOrZero(std::uint64_t kind) const {
    const TClientMarginRestrictionsBody* body = find(kind);
    return body != nullptr || m_object == nullptr ? body : m_object->Body(0);
  }
  const TClientMarginRestrictions* Object() const { return m_object; }

 private:
  const TClientMarginRestrictions* m_object;
};

}  // namespace DL
