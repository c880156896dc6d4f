#pragma once
// The audit trail of zent-host in SQLite: one row per audit record, written in
// its own transaction, the database in WAL mode so that readers (the sqlite3
// shell, a report) do not stop the writer.
//
//   CREATE TABLE audit(id INTEGER PRIMARY KEY AUTOINCREMENT,
//                      time TEXT NOT NULL,   -- UTC, "YYYY-MM-DD HH:MM:SS.mmm"
//                      port INTEGER NOT NULL, user INTEGER NOT NULL, event TEXT NOT NULL,
//                      field0 TEXT, ..., field20 TEXT)
//
// A field that holds the null marker "DBSTATUS_S_ISNULL" is stored as NULL.
// Calls are serialised by the object's own mutex.
#include <mutex>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace ZentHost {

inline constexpr int kAuditFields = 21;
inline constexpr const char* kAuditNullMarker = "DBSTATUS_S_ISNULL";

class TAuditDatabase {
 public:
  TAuditDatabase() = default;
  ~TAuditDatabase();
  TAuditDatabase(const TAuditDatabase&) = delete;
  TAuditDatabase& operator=(const TAuditDatabase&) = delete;

  // Opens or creates the database, switches it to WAL and creates the table.
  [[nodiscard]] bool Open(const std::string& path, std::string& error);
  void Close();
  bool IsOpen() const;

  // Stores one record in one transaction; fields beyond 21 are refused, missing
  // ones are NULL. False with a message on any failure (nothing is stored then).
  [[nodiscard]] bool Insert(int port, int user, const std::string& event, const std::vector<std::string>& fields,
                            std::string& error);

 private:
  bool Exec(const char* sql, std::string& error);

  mutable std::mutex m_mutex;
  sqlite3* m_db = nullptr;
  sqlite3_stmt* m_insert = nullptr;
};

}  // namespace ZentHost
