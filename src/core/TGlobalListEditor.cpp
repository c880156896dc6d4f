#include "core/TGlobalListEditor.h"

#include <algorithm>
#include <cstring>

#include "base/ResultCodes.h"
#include "base/TMemory.h"
#include "base/TextHelpers.h"
#include "core/ValueChecks.h"
#include "ini/IniSectCodes.h"

namespace DL {

namespace {

std::string Join(const std::vector<std::string>& items) {
  std::string text;
  for (const std::string& item : items) {
    if (!text.empty()) text += ',';
    text += item;
  }
  return text;
}

const std::string& GeneralSection() {
  static const std::string name(IniSectName(iscGeneral));
  return name;
}

// The section a list the hub parses lives in.
std::string SectionOf(THubList list) {
  switch (list) {
    case THubList::ProhibedTrdAcc:
      return std::string(IniSectName(iscGlobalProhibedTrdAcc));
    case THubList::ProhibitOrdersClients:
      return std::string(IniSectName(iscProhibitOrders));
    case THubList::NegDealClasses:
      return std::string(IniSectName(iscNegDealClasses));
  }
  return {};
}

}  // namespace

int TGlobalListEditor::CheckItem(EGlobalList list, const char* item) {
  switch (list) {
#define ZDL_GLOBAL_LIST(list, home, where, item_kind) \
  case EGlobalList::list:                             \
    return CheckListItem(EListItem::item_kind, item);
#define ZDL_GLOBAL_LIST_COMMAND(verb, command, list)
#include "core/GlobalLists.def"
#undef ZDL_GLOBAL_LIST_COMMAND
#undef ZDL_GLOBAL_LIST
  }
  return ZDL_BAD_ARGUMENT;
}

bool TGlobalListEditor::Read(EGlobalList list, std::vector<std::string>& items) const {
  items.clear();
  switch (list) {
#define ZDL_GLOBAL_LIST(list, home, where, item) \
  case EGlobalList::list:                        \
    return Read##home(where, items);
#define ZDL_GLOBAL_LIST_COMMAND(verb, command, list)
#include "core/GlobalLists.def"
#undef ZDL_GLOBAL_LIST_COMMAND
#undef ZDL_GLOBAL_LIST
  }
  return false;
}

void TGlobalListEditor::Write(EGlobalList list, const std::vector<std::string>& items) {
  switch (list) {
#define ZDL_GLOBAL_LIST(list, home, where, item) \
  case EGlobalList::list:                        \
    Write##home(where, items);                   \
    return;
#define ZDL_GLOBAL_LIST_COMMAND(verb, command, list)
#include "core/GlobalLists.def"
#undef ZDL_GLOBAL_LIST_COMMAND
#undef ZDL_GLOBAL_LIST
  }
}

// ---- The verbs ----

int TGlobalListEditor::Get(EGlobalList list, ZDL_ArrayStrings** out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  std::vector<std::string> items;
  if (!Read(list, items)) return ZDL_NOT_FOUND;
  *out = m_hub.GetMemory().ConstructStrings(items);
  return ZDL_OK;
}

int TGlobalListEditor::Set(EGlobalList list, ZDL_ArrayStrings* items) {
  if (items == nullptr) return ZDL_BAD_ARGUMENT;
  std::vector<std::string> wanted;
  for (std::uint64_t i = 0; i < items->count; ++i) {
    const char* item = items->items == nullptr ? nullptr : items->items[i];
    if (int rc = CheckItem(list, item); rc != ZDL_OK) return rc;
    if (std::find(wanted.begin(), wanted.end(), item) == wanted.end()) wanted.emplace_back(item);
  }
  Write(list, wanted);
  return ZDL_OK;
}

int TGlobalListEditor::Add(EGlobalList list, const char* item) {
  if (int rc = CheckItem(list, item); rc != ZDL_OK) return rc;
  std::vector<std::string> items;
  Read(list, items);
  if (std::find(items.begin(), items.end(), item) != items.end()) return ZDL_ALREADY_EXISTS;
  items.emplace_back(item);
  Write(list, items);
  return ZDL_OK;
}

int TGlobalListEditor::Remove(EGlobalList list, const char* item) {
  if (int rc = CheckItem(list, item); rc != ZDL_OK) return rc;
  std::vector<std::string> items;
  Read(list, items);
  auto it = std::find(items.begin(), items.end(), item);
  if (it == items.end()) return ZDL_NOT_FOUND;
  items.erase(it);
  Write(list, items);
  return ZDL_OK;
}

int TGlobalListEditor::RemoveItems(EGlobalList list, ZDL_ArrayStrings* gone) {
  if (gone == nullptr) return ZDL_BAD_ARGUMENT;
  std::vector<std::string> items;
  Read(list, items);
  std::vector<std::string> left = items;
  for (std::uint64_t i = 0; i < gone->count; ++i) {
    const char* item = gone->items == nullptr ? nullptr : gone->items[i];
    if (int rc = CheckItem(list, item); rc != ZDL_OK) return rc;
    if (std::find(items.begin(), items.end(), item) == items.end()) return ZDL_NOT_FOUND;
    left.erase(std::remove(left.begin(), left.end(), std::string(item)), left.end());
  }
  Write(list, left);
  return ZDL_OK;
}

// ---- The homes ----

bool TGlobalListEditor::ReadHub(THubList list, std::vector<std::string>& items) const {
  switch (list) {
    case THubList::ProhibedTrdAcc:
      items = m_hub.m_globalProhibedTrdAcc.Items();
      break;
    case THubList::ProhibitOrdersClients:
      items.assign(m_hub.m_prohibitOrders.clients.begin(), m_hub.m_prohibitOrders.clients.end());
      break;
    case THubList::NegDealClasses:
      items = m_hub.m_negDealClasses.Items();
      break;
  }
  return m_hub.m_parser->FindIniSectionRef(SectionOf(list)) != nullptr;
}

void TGlobalListEditor::WriteHub(THubList list, const std::vector<std::string>& items) {
  switch (list) {
    case THubList::ProhibedTrdAcc:
      m_hub.m_globalProhibedTrdAcc.Assign(Join(items), TClassList::NoRepeats);
      break;
    case THubList::ProhibitOrdersClients:
      m_hub.m_prohibitOrders.clients = std::set<std::string>(items.begin(), items.end());
      break;
    case THubList::NegDealClasses:
      m_hub.m_negDealClasses.Assign(Join(items), TClassList::NoRepeats);
      break;
  }
  m_hub.m_parser->FindOrCreateIniSection(SectionOf(list));
}

bool TGlobalListEditor::ReadGeneral(EGeneralParam code, std::vector<std::string>& items) const {
  const TClassList* list = nullptr;
  if (m_hub.m_general.GetListParam(code, list) == ZDL_OK) items = list->Items();
  return true;
}

void TGlobalListEditor::WriteGeneral(EGeneralParam code, const std::vector<std::string>& items) {
  (void)m_hub.m_general.SetListParam(code, TClassList(Join(items), TClassList::NoRepeats));
  m_hub.m_parser->FindOrCreateIniSection(GeneralSection());
}

bool TGlobalListEditor::ReadRaw(const char* key, std::vector<std::string>& items) const {
  const TIniKeyMap* general = m_hub.m_parser->FindIniSectionRef(GeneralSection());
  if (general == nullptr) return false;
  auto param = general->find(key);
  if (param != general->end()) items = TClassList(param->second, TClassList::NoRepeats).Items();
  return true;
}

void TGlobalListEditor::WriteRaw(const char* key, const std::vector<std::string>& items) {
  auto general = m_hub.m_parser->FindOrCreateIniSection(GeneralSection());
  if (items.empty())
    general->second.erase(key);
  else
    m_hub.m_parser->SetIniParam(general, key, Join(items));
}

}  // namespace DL
