#include "AuditDatabase.h"

#include <sqlite3.h>

#include <cstdio>

#include "UtcStamp.h"

namespace ZentHost {
namespace {

std::string CreateTableSql() {
  std::string sql =
      "CREATE TABLE IF NOT EXISTS audit(id INTEGER PRIMARY KEY AUTOINCREMENT, time TEXT NOT NULL, "
      "port INTEGER NOT NULL, user INTEGER NOT NULL, event TEXT NOT NULL";
  for (int i = 0; i < kAuditFields; ++i) sql += ", field" + std::to_string(i) + " TEXT";
  return sql + ")";
}

std::string InsertSql() {
  std::string sql = "INSERT INTO audit(time, port, user, event";
  for (int i = 0; i < kAuditFields; ++i) sql += ", field" + std::to_string(i);
  sql += ") VALUES(?, ?, ?, ?";
  for (int i = 0; i < kAuditFields; ++i) sql += ", ?";
  return sql + ")";
}

}  // namespace

TAuditDatabase::~TAuditDatabase() { Close(); }

bool TAuditDatabase::IsOpen() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_db != nullptr;
}

bool TAuditDatabase::Exec(const char* sql, std::string& error) {
  char* message = nullptr;
  if (sqlite3_exec(m_db, sql, nullptr, nullptr, &message) == SQLITE_OK) return true;
  error = message != nullptr ? message : sqlite3_errmsg(m_db);
  sqlite3_free(message);
  return false;
}

bool TAuditDatabase::Open(const std::string& path, std::string& error) {
  std::lock_guard<std::mutex> lock(m_mutex);
  if (m_db != nullptr) {
    error = "already open";
    return false;
  }
  if (sqlite3_open_v2(path.c_str(), &m_db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX,
                      nullptr) != SQLITE_OK) {
    error = path + ": " + (m_db != nullptr ? sqlite3_errmsg(m_db) : "cannot open");
    sqlite3_close(m_db);
    m_db = nullptr;
    return false;
  }
  sqlite3_busy_timeout(m_db, 5000);
  std::string what;
  // A trail that cannot be written is no trail: refused here rather than at the first record.
  bool ok = true;
  if (sqlite3_db_readonly(m_db, "main") == 1) {
    what = "the audit database is read-only";
    ok = false;
  }
  ok = ok && Exec("PRAGMA journal_mode=WAL", what) && Exec(CreateTableSql().c_str(), what);
  if (ok && sqlite3_prepare_v2(m_db, InsertSql().c_str(), -1, &m_insert, nullptr) != SQLITE_OK) {
    what = sqlite3_errmsg(m_db);
    ok = false;
  }
  if (!ok) {
    error = path + ": " + what;
    sqlite3_finalize(m_insert);
    m_insert = nullptr;
    sqlite3_close(m_db);
    m_db = nullptr;
  }
  return ok;
}

void TAuditDatabase::Close() {
  std::lock_guard<std::mutex> lock(m_mutex);
  if (m_insert != nullptr) sqlite3_finalize(m_insert);
  m_insert = nullptr;
  if (m_db != nullptr) sqlite3_close(m_db);
  m_db = nullptr;
}

bool TAuditDatabase::Insert(int port, int user, const std::string& event, const std::vector<std::string>& fields,
                            std::string& error) {
  std::lock_guard<std::mutex> lock(m_mutex);
  if (m_db == nullptr) {
    error = "the audit database is not open";
    return false;
  }
  if (fields.size() > static_cast<std::size_t>(kAuditFields)) {
    error = "an audit record has " + std::to_string(fields.size()) + " fields, at most 21 are stored";
    return false;
  }
  if (!Exec("BEGIN IMMEDIATE", error)) return false;
  const std::string time = UtcStamp();
  sqlite3_reset(m_insert);
  sqlite3_clear_bindings(m_insert);
  sqlite3_bind_text(m_insert, 1, time.data(), static_cast<int>(time.size()), SQLITE_TRANSIENT);
  sqlite3_bind_int(m_insert, 2, port);
  sqlite3_bind_int(m_insert, 3, user);
  sqlite3_bind_text(m_insert, 4, event.data(), static_cast<int>(event.size()), SQLITE_TRANSIENT);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const int column = static_cast<int>(i) + 5;
    if (fields[i] == kAuditNullMarker)
      sqlite3_bind_null(m_insert, column);
    else
      sqlite3_bind_text64(m_insert, column, fields[i].data(), fields[i].size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
  if (sqlite3_step(m_insert) != SQLITE_DONE) {
    error = sqlite3_errmsg(m_db);
    sqlite3_reset(m_insert);
    std::string ignored;
    Exec("ROLLBACK", ignored);
    return false;
  }
  sqlite3_reset(m_insert);
  if (!Exec("COMMIT", error)) {
    std::string ignored;
    Exec("ROLLBACK", ignored);
    return false;
  }
  return true;
}

}  // namespace ZentHost
