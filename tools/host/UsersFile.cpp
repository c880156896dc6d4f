#include "UsersFile.h"

#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <sstream>

namespace ZentHost {
namespace {

constexpr const char* kScheme = "pbkdf2-sha256";

std::vector<std::string> Split(const std::string& line, char sep) {
  std::vector<std::string> parts;
  std::string part;
  std::istringstream in(line);
  while (std::getline(in, part, sep)) parts.push_back(part);
  if (!line.empty() && line.back() == sep) parts.emplace_back();
  return parts;
}

bool ToInt(const std::string& s, int& out) {
  if (s.empty() || s.size() > 9) return false;
  int v = 0;
  for (char c : s) {
    if (c < '0' || c > '9') return false;
    v = v * 10 + (c - '0');
  }
  out = v;
  return true;
}

std::string Octal(unsigned mode) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "%04o", mode & 07777u);
  return buf;
}

}  // namespace

bool TUsersFile::Load(const std::string& path, std::string& error) {
  m_users.clear();
  m_byName.clear();
  m_byId.clear();
  struct stat st;
  if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) {
    error = path + ": no such file";
    return false;
  }
  if ((st.st_mode & 077) != 0) {
    error = path + ": the users file is open to group or others (mode " + Octal(st.st_mode) +
            "); allow its owner only (chmod 600)";
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = path + ": cannot be read";
    return false;
  }
  std::string line;
  int number = 0;
  while (std::getline(in, line)) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    const std::string where = path + ":" + std::to_string(number) + ": ";
    std::vector<std::string> f = Split(line, ':');
    TUser user;
    if (f.size() != 7) {
      error = where + "expected name:id:kind:pbkdf2-sha256:iterations:salt:hash";
      return false;
    }
    user.name = f[0];
    if (user.name.empty()) {
      error = where + "empty user name";
      return false;
    }
    if (!ToInt(f[1], user.id) || user.id <= 0) {
      error = where + "the id must be a positive number";
      return false;
    }
    if (!ToInt(f[2], user.kind) || user.kind < 1 || user.kind > 3) {
      error = where + "the kind must be 1, 2 or 3";
      return false;
    }
    if (f[3] != kScheme) {
      error = where + "unknown hash scheme \"" + f[3] + "\"";
      return false;
    }
    if (!ToInt(f[4], user.secret.iterations) || user.secret.iterations < 1) {
      error = where + "the iteration count must be a positive number";
      return false;
    }
    user.secret.saltHex = f[5];
    user.secret.hashHex = f[6];
    if (user.secret.saltHex.empty() || user.secret.hashHex.size() < 32) {
      error = where + "salt or hash missing";
      return false;
    }
    if (m_byName.count(user.name) != 0) {
      error = where + "user \"" + user.name + "\" appears twice";
      return false;
    }
    if (m_byId.count(user.id) != 0) {
      error = where + "id " + f[1] + " appears twice";
      return false;
    }
    m_byName[user.name] = m_users.size();
    m_byId[user.id] = m_users.size();
    m_users.push_back(std::move(user));
  }
  return true;
}

const TUser* TUsersFile::FindByName(const std::string& name) const {
  auto it = m_byName.find(name);
  return it == m_byName.end() ? nullptr : &m_users[it->second];
}

const TUser* TUsersFile::FindById(int id) const {
  auto it = m_byId.find(id);
  return it == m_byId.end() ? nullptr : &m_users[it->second];
}

std::string TUsersFile::FormatLine(const TUser& user) {
  return user.name + ":" + std::to_string(user.id) + ":" + std::to_string(user.kind) + ":" + kScheme + ":" +
         std::to_string(user.secret.iterations) + ":" + user.secret.saltHex + ":" + user.secret.hashHex;
}

}  // namespace ZentHost
