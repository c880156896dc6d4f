#pragma once
// The correspondences of client codes and trade accounts on the derivatives
// market, one section "ChangeFutClientCodes_" + firm per firm of that market
// ("ChangeFutClientCodes" alone for the empty firm). Their home is the hub's
// parsed map of those sections, which the save renders; an edit changes that
// map, and enters a new firm's section in the section map so that the save
// visits it. Firms on the derivatives market are compared without regard to
// case, as the load finds them.
#include "base/ApiRecords.h"

namespace DL {

class TStorageHub;
struct TChangeFutClientCodes;

class TChangeFutClientCodesEditor {
 public:
  explicit TChangeFutClientCodesEditor(TStorageHub& hub) : m_hub(hub) {}

  // The firms that have a section, in section-name order: 3 for a null out.
  [[nodiscard]] int GetListOfFirmsGlobalChangeFutClientCodes(ZDL_ArrayStrings** firms) const;
  // Adds the pair: 3 for a null firm, client or account, an empty client or
  // account or a firm longer than 12 characters; 12 for a client or account
  // longer than 12; 16 when the client has an account in that firm already.
  [[nodiscard]] int AddCorrespToGlobalChangeFutClientCodes(const char* firm, const char* client, const char* trdAcc);
  // The client of an account (the first in client order): 3 for a null
  // argument or out, 12 for a long account, 4 when there is none.
  [[nodiscard]] int GetClientCodeGlobalChangeFutClientCodesByTrdAcc(const char* firm, const char* trdAcc,
                                                                    char** client) const;
  // The account of a client: 3, 12, 4 as above.
  [[nodiscard]] int GetTrdAccGlobalChangeFutClientCodesByClientCode(const char* firm, const char* client,
                                                                    char** trdAcc) const;
  // Drops the firm's section: 3 for a null firm, 4 when it has none.
  [[nodiscard]] int RemoveAllCorrespsFromGlobalChangeFutClientCodes(const char* firm);
  // Removes the client's pair: 3, 12, 4 as above.
  [[nodiscard]] int RemoveCorrespFromGlobalChangeFutClientCodesByClientCode(const char* firm, const char* client);
  // Removes every pair of the account: 3, 12, 4 as above.
  [[nodiscard]] int RemoveCorrespFromGlobalChangeFutClientCodesByTrdAcc(const char* firm, const char* trdAcc);
  // The firm's pairs in client order (str1 client, str2 account): 3 for a
  // null firm or out, 4 when the firm has no section.
  [[nodiscard]] int GetChangeFutClientCodesByFirmFromGlobal(const char* firm,
                                                            ZDL_ArrayCodeToCodeTrdaccToTrdacc** pairs) const;

 private:
  TChangeFutClientCodes* Find(const char* firm) const;

  TStorageHub& m_hub;
};

}  // namespace DL
