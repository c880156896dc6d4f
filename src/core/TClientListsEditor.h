#pragma once
// The firm-wide client lists that remote commands edit: the clients approved
// for complex financial instruments (section "ComplexFIApprovedClients", its
// parameter "Clients") and the client values of section "ClientCval" with
// their sign ("ClientCval" of "General").
//
// Homes. The approved clients live in the hub's parsed set, which the save
// renders; the client values live in the client-value map of the section map,
// which the save writes as it stands; the sign is a raw parameter of
// "General". An edit changes that home only and enters the section in the
// section map when the text had none, so that the next save writes it.
#include "base/ApiRecords.h"

namespace DL {

class TStorageHub;

class TClientListsEditor {
 public:
  explicit TClientListsEditor(TStorageHub& hub) : m_hub(hub) {}

  // ---- Clients approved for complex instruments ----
  // The clients in code order: 3 for a null out, 4 when the firm has no such
  // section; else a list (maybe empty) of this firm's memory.
  [[nodiscard]] int GetComplexFIApprovedClientsFromGlobal(ZDL_ArrayStrings** out) const;
  // Replaces the list: 3 for a null array or a null or empty code, 10 for a
  // code longer than 12 characters (nothing changed); an array of count 0
  // empties the list.
  [[nodiscard]] int SetComplexFIApprovedClientsToGlobal(ZDL_ArrayStrings* clients);
  // 3 for a null or empty code, 10 for a long one, 16 when it is there.
  [[nodiscard]] int AddComplexFIApprovedClientsToGlobal(const char* client);
  // 3 for a null or empty code, 10 for a long one, 4 when it is not there.
  [[nodiscard]] int RemoveComplexFIApprovedClientsFromGlobal(const char* client);

  // ---- Client values ----
  // "ClientCval" of "General": 3 for a null out, 4 without "General"; a
  // missing parameter reads as 1.
  [[nodiscard]] int GetClientCvalSignFromGlobal(int* sign) const;
  // Writes the sign as a decimal number, creating "General" if needed.
  [[nodiscard]] int SetClientCvalSignToGlobal(int sign);
  // Client code -> value as written, in code order (str1 the client, str2
  // the value): 3 for a null out, 4 when the firm has no client values.
  [[nodiscard]] int GetClientCvalListFromGlobal(ZDL_ArrayStringToString** out) const;
  // Replaces every client value: 3 for a null array, a null or empty client
  // or a value that is not an integer, 10 for a long client code; nothing
  // changes on a refusal. An array of count 0 empties the values.
  [[nodiscard]] int SetClientCvalListToGlobal(ZDL_ArrayStringToString* values);
  // 3 for a null or empty client, 10 for a long one, 16 when the client has
  // a value already.
  [[nodiscard]] int AddClientCvalByClientCodeToGlobal(const char* client, int value);
  // 3 for a null or empty client, 10 for a long one, 4 without a value.
  [[nodiscard]] int RemoveClientCvalByClientCodeFromGlobal(const char* client);
  // The client's value: 3 for a null or empty client or a null out, 10 for a
  // long client, 4 without a value.
  [[nodiscard]] int GetClientCvalByClientCodeFromGlobal(const char* client, int* value) const;

 private:
  TStorageHub& m_hub;
};

}  // namespace DL
