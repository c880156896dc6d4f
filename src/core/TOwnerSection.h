#pragma once
// The section of a client or template that an edit changes, and the caches
// that must read it anew afterwards. Built over the hub for one call.
//
// The owner's code is checked first (3 null or empty, 10 for a client or 21
// for a template code longer than 12), then the section must exist (20 for a
// client, 15 for a template). After an edit, Forget has the caches that parse
// the section drop what they parsed of it and every client's resolution, so
// the next query and the next save read the section as it now stands.
#include <string>

#include "ini/TIniParser.h"

namespace DL {

class TStorageHub;

class TOwnerSection {
 public:
  enum class EOwner {
    ClientMargin,    // "cl" + client + "_Margin"
    MarginTemplate,  // "cl" + template + "_Margin_Template"
    Client,          // "cl" + client
    ClientTemplate,  // "cl" + template + "_Client_Template"
  };

  TOwnerSection(TStorageHub& hub, EOwner owner) : m_hub(hub), m_owner(owner) {}

  // The section's name: 0, or the code that refuses the owner's code.
  int Name(const char* code, std::string& name) const;
  // The section's keys: 0, or the code that refuses the owner; null then.
  const TIniKeyMap* Find(const char* code, int& result) const;
  TIniKeyMap* Find(const char* code, int& result);
  void Forget(const char* code);

 private:
  bool IsClient() const { return m_owner == EOwner::ClientMargin || m_owner == EOwner::Client; }

  TStorageHub& m_hub;
  EOwner m_owner;
};

}  // namespace DL
