#pragma once
// The limit kinds ("LimitKinds", a "," list of whole numbers of 0 or above)
// of the firm (section "General"), of a client's margin settings ("cl" +
// client + "_Margin") and of a margin template, read and replaced by remote
// commands. Built over the hub for one call; it keeps no state.
//
// The list is a raw parameter, which the save copies. A reading answers the
// numbers in the order written (empty when the key is missing; 4 when the
// firm has no "General"). A replacement answers 3 for a null array or a
// number below 0, changes nothing then, drops repeats and erases the key for
// an empty list. Owners are checked as core/TOwnerSection.h says; after an
// edit the margin cache reads the owner's section anew.
#include <string>
#include <vector>

#include "base/ApiRecords.h"
#include "core/TOwnerSection.h"
#include "core/TStorageHub.h"

namespace DL {

class TLimitKindsEditor {
 public:
  explicit TLimitKindsEditor(TStorageHub& hub) : m_hub(hub) {}

  [[nodiscard]] int GetGlobalLimitKinds(ZDL_ArrayIntNumbers** kinds) const;
  [[nodiscard]] int SetGlobalLimitKinds(ZDL_ArrayIntNumbers* kinds);
  [[nodiscard]] int GetClientSettingsLimitKinds(const char* clientCode, ZDL_ArrayIntNumbers** kinds) const {
    return GetOwner(TOwnerSection::EOwner::ClientMargin, clientCode, kinds);
  }
  [[nodiscard]] int SetClientSettingsLimitKinds(const char* clientCode, ZDL_ArrayIntNumbers* kinds) {
    return SetOwner(TOwnerSection::EOwner::ClientMargin, clientCode, kinds);
  }
  [[nodiscard]] int GetMarginTemplateLimitKinds(const char* templateCode, ZDL_ArrayIntNumbers** kinds) const {
    return GetOwner(TOwnerSection::EOwner::MarginTemplate, templateCode, kinds);
  }
  [[nodiscard]] int SetMarginTemplateLimitKinds(const char* templateCode, ZDL_ArrayIntNumbers* kinds) {
    return SetOwner(TOwnerSection::EOwner::MarginTemplate, templateCode, kinds);
  }

 private:
  int GetOwner(TOwnerSection::EOwner owner, const char* code, ZDL_ArrayIntNumbers** kinds) const;
  int SetOwner(TOwnerSection::EOwner owner, const char* code, ZDL_ArrayIntNumbers* kinds);
  // The numbers of a key map's "LimitKinds", and the text of a new list (0,
  // or 3 for a null array or a negative number).
  static std::vector<int> Read(const TIniKeyMap& keys);
  static int Text(const ZDL_ArrayIntNumbers* kinds, std::string& text);
  static void Write(TIniKeyMap& keys, const std::string& text);
  ZDL_ArrayIntNumbers* NewInts(const std::vector<int>& values) const;

  TStorageHub& m_hub;
};

}  // namespace DL
