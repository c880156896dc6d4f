#pragma once
// The single values of clients and templates, read and set by remote
// commands: one Get and one Set per row of core/OwnerParameters.def. Built
// over the hub for one call; it keeps no state.
//
// A value or a list is a raw parameter of the owner's section, which the save copies
// as it stands. After an edit the caches that parse that section forget what
// they parsed of it (and every client's resolution), so the next query reads
// the section as it now stands.
//
// Checks in this order: the owner's code and section (see
// core/TOwnerSection.h), with the out pointer (3) between the two, then the
// value (3).
#include <string>

#include "base/ApiRecords.h"
#include "core/TOwnerSection.h"
#include "core/TStorageHub.h"
#include "core/ValueChecks.h"

namespace DL {

class TOwnerParameterEditor {
 public:
  explicit TOwnerParameterEditor(TStorageHub& hub) : m_hub(hub) {}

  using EOwner = TOwnerSection::EOwner;

#define ZDL_OWNER_OUT_Inherit int*
#define ZDL_OWNER_IN_Inherit int
#define ZDL_OWNER_OUT_Int int*
#define ZDL_OWNER_IN_Int int
#define ZDL_OWNER_OUT_Number double*
#define ZDL_OWNER_IN_Number double
#define ZDL_OWNER_PARAMETER(stem, scope, owner, value, key, check)                                  \
  [[nodiscard]] int Get##stem##From##scope(const char* code, ZDL_OWNER_OUT_##value out) const {   \
    return Get##value(EOwner::owner, code, key, out);                                               \
  }                                                                                                 \
  [[nodiscard]] int Set##stem##To##scope(const char* code, ZDL_OWNER_IN_##value in) {              \
    return Set##value(EOwner::owner, code, key, EValueCheck::check, in);                                 \
  }
#define ZDL_OWNER_LIST(stem, scope, owner, key, item)                                                  \
  [[nodiscard]] int Get##stem##From##scope(const char* code, ZDL_ArrayStrings** out) const {         \
    return GetList(EOwner::owner, code, key, out);                                                    \
  }                                                                                                   \
  [[nodiscard]] int Set##stem##To##scope(const char* code, ZDL_ArrayStrings* items) {                \
    return SetList(EOwner::owner, code, key, EListItem::item, items);                                 \
  }
#include "core/OwnerParameters.def"
#undef ZDL_OWNER_PARAMETER
#undef ZDL_OWNER_LIST
#undef ZDL_OWNER_OUT_Inherit
#undef ZDL_OWNER_IN_Inherit
#undef ZDL_OWNER_OUT_Int
#undef ZDL_OWNER_IN_Int
#undef ZDL_OWNER_OUT_Number
#undef ZDL_OWNER_IN_Number

 private:
  // The owner's section: 0 and its keys, or the code that refuses the owner.
  int Section(EOwner owner, const char* code, std::string& name) const {
    return TOwnerSection(m_hub, owner).Name(code, name);
  }
  const TIniKeyMap* Keys(EOwner owner, const char* code, int& result) const {
    return TOwnerSection(m_hub, owner).Find(code, result);
  }

  // The owner's keys for a reading, checked in order: the owner's code, the
  // out pointer (3 when there is none), the section.
  const TIniKeyMap* KeysToRead(EOwner owner, const char* code, bool hasOut, int& result) const;

  int GetInherit(EOwner owner, const char* code, const char* key, int* out) const;
  int SetInherit(EOwner owner, const char* code, const char* key, EValueCheck check, int value);
  int GetInt(EOwner owner, const char* code, const char* key, int* out) const;
  int SetInt(EOwner owner, const char* code, const char* key, EValueCheck check, int value);
  int GetNumber(EOwner owner, const char* code, const char* key, double* out) const;
  int SetNumber(EOwner owner, const char* code, const char* key, EValueCheck check, double value);
  int GetList(EOwner owner, const char* code, const char* key, ZDL_ArrayStrings** out) const;
  int SetList(EOwner owner, const char* code, const char* key, EListItem item, ZDL_ArrayStrings* items);
  // Writes (or, for an empty text, erases) the key and has the caches forget.
  int Write(EOwner owner, const char* code, const char* key, const std::string& text);

  TStorageHub& m_hub;
};

}  // namespace DL
