// A thin layer over SQLite: a connection, prepared statements and transactions that
// raise tessaron::Error instead of returning codes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace tessaron::qbsim {

class SqlStatement;

class SqlDatabase {
 public:
  enum class Mode { ReadWrite, Create };
  // Opens an existing database file (ReadWrite) or creates a new one (Create). A missing
  // file in ReadWrite mode raises; SQLite's own failures raise with its message. `vfs`:
  // a registered SQLite VFS by name; empty = the default.
  SqlDatabase(const std::string& path, Mode mode, const std::string& vfs = "");
  ~SqlDatabase();
  SqlDatabase(const SqlDatabase&) = delete;
  SqlDatabase& operator=(const SqlDatabase&) = delete;

  // Runs one or more statements without results.
  void Exec(std::string_view sql);
  SqlStatement Prepare(std::string_view sql);
  int64_t LastInsertRowId() const;
  int Changes() const;
  bool InTransaction() const;
  const std::string& Path() const { return path_; }
  sqlite3* Handle() const { return db_; }

  // Raises the database's current error with a context text in front.
  [[noreturn]] void Fail(const std::string& context) const;

 private:
  sqlite3* db_ = nullptr;
  std::string path_;
};

// A prepared statement; bind by 1-based position, step, read columns by 0-based position.
class SqlStatement {
 public:
  SqlStatement(SqlDatabase& db, sqlite3_stmt* stmt) : db_(&db), stmt_(stmt) {}
  SqlStatement(SqlStatement&& other) noexcept : db_(other.db_), stmt_(other.stmt_) { other.stmt_ = nullptr; }
  SqlStatement& operator=(SqlStatement&& other) noexcept;
  SqlStatement(const SqlStatement&) = delete;
  SqlStatement& operator=(const SqlStatement&) = delete;
  ~SqlStatement();

  SqlStatement& Bind(int index, std::string_view text);
  SqlStatement& Bind(int index, int64_t value);
  SqlStatement& Bind(int index, int value) { return Bind(index, static_cast<int64_t>(value)); }
  SqlStatement& Bind(int index, double value);
  SqlStatement& BindNull(int index);
  // True while a row is available; false when done.
  bool Step();
  // Steps once, expecting no row back.
  void Run();
  void Reset();

  bool IsNull(int column) const;
  // Valid until the next Step or Reset; no copy is made.
  std::string_view Text(int column) const;
  int64_t Int(int column) const;
  double Real(int column) const;

 private:
  SqlDatabase* db_;
  sqlite3_stmt* stmt_;
};

// BEGIN IMMEDIATE on construction; rolls back on destruction unless committed. The write
// lock is taken at once, so a transaction never fails half-way for want of the lock.
class SqlTransaction {
 public:
  explicit SqlTransaction(SqlDatabase& db);
  ~SqlTransaction();
  SqlTransaction(const SqlTransaction&) = delete;
  SqlTransaction& operator=(const SqlTransaction&) = delete;
  void Commit();

 private:
  SqlDatabase& db_;
  bool done_ = false;
};

}  // namespace tessaron::qbsim
