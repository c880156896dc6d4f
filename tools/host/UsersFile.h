#pragma once
// The users file of zent-host: one user a line,
//
//   name:id:kind:pbkdf2-sha256:iterations:salt-hex:hash-hex
//
// blank lines and lines beginning with "#" are skipped. Ids are positive and
// unique, names unique; the kind is 1 or 2 (may work with libraries) or 3
// (may not). The file holds secrets' hashes and must not be open to group or
// others: Load refuses it otherwise.
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "SecretHash.h"

namespace ZentHost {

struct TUser {
  std::string name;
  int id = 0;
  int kind = 0;
  TSecretHash secret;
};

class TUsersFile {
 public:
  // Reads and checks the file; false with a message naming the line on any fault.
  [[nodiscard]] bool Load(const std::string& path, std::string& error);

  const TUser* FindByName(const std::string& name) const;
  const TUser* FindById(int id) const;
  std::size_t size() const { return m_users.size(); }
  const std::vector<TUser>& users() const { return m_users; }

  // The line of the file for a user.
  static std::string FormatLine(const TUser& user);

 private:
  std::vector<TUser> m_users;
  std::map<std::string, std::size_t> m_byName;
  std::map<int, std::size_t> m_byId;
};

}  // namespace ZentHost
