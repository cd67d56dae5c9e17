#include "qbsim/sql.h"

#include <sqlite3.h>

#include "qbsim/status.h"
#include "tessaron/platform/error.h"

namespace tessaron::qbsim {

SqlDatabase::SqlDatabase(const std::string& path, Mode mode, const std::string& vfs) : path_(path) {
  int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
  if (mode == Mode::Create) flags |= SQLITE_OPEN_CREATE;
  int rc = sqlite3_open_v2(path.c_str(), &db_, flags, vfs.empty() ? nullptr : vfs.c_str());
  if (rc != SQLITE_OK) {
    std::string why = db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(rc);
    sqlite3_close(db_);
    db_ = nullptr;
    throw Error(processor_error::kCannotOpenFile, kSource,
                std::string(processor_error::kCannotOpenFileText) + " " + path + ": " + why);
  }
  sqlite3_extended_result_codes(db_, 1);
  sqlite3_busy_timeout(db_, 5000);
}

SqlDatabase::~SqlDatabase() { sqlite3_close_v2(db_); }

void SqlDatabase::Fail(const std::string& context) const {
  throw Error(processor_error::kDatabase, kSource,
              std::string(processor_error::kDatabaseText) + " " + context + ": " + sqlite3_errmsg(db_));
}

void SqlDatabase::Exec(std::string_view sql) {
  std::string text(sql);
  char* err = nullptr;
  if (sqlite3_exec(db_, text.c_str(), nullptr, nullptr, &err) != SQLITE_OK) {
    std::string why = err ? err : "error";
    sqlite3_free(err);
    throw Error(processor_error::kDatabase, kSource,
                std::string(processor_error::kDatabaseText) + " " + path_ + ": " + why);
  }
}

SqlStatement SqlDatabase::Prepare(std::string_view sql) {
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v2(db_, sql.data(), static_cast<int>(sql.size()), &stmt, nullptr) != SQLITE_OK)
    Fail(path_);
  return SqlStatement(*this, stmt);
}

int64_t SqlDatabase::LastInsertRowId() const { return sqlite3_last_insert_rowid(db_); }
int SqlDatabase::Changes() const { return sqlite3_changes(db_); }
bool SqlDatabase::InTransaction() const { return sqlite3_get_autocommit(db_) == 0; }

SqlStatement& SqlStatement::operator=(SqlStatement&& other) noexcept {
  if (this != &other) {
    sqlite3_finalize(stmt_);
    db_ = other.db_;
    stmt_ = other.stmt_;
    other.stmt_ = nullptr;
  }
  return *this;
}

SqlStatement::~SqlStatement() { sqlite3_finalize(stmt_); }

SqlStatement& SqlStatement::Bind(int index, std::string_view text) {
  if (sqlite3_bind_text(stmt_, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT) != SQLITE_OK)
    db_->Fail(db_->Path());
  return *this;
}

SqlStatement& SqlStatement::Bind(int index, int64_t value) {
  if (sqlite3_bind_int64(stmt_, index, value) != SQLITE_OK) db_->Fail(db_->Path());
  return *this;
}

SqlStatement& SqlStatement::Bind(int index, double value) {
  if (sqlite3_bind_double(stmt_, index, value) != SQLITE_OK) db_->Fail(db_->Path());
  return *this;
}

SqlStatement& SqlStatement::BindNull(int index) {
  if (sqlite3_bind_null(stmt_, index) != SQLITE_OK) db_->Fail(db_->Path());
  return *this;
}

bool SqlStatement::Step() {
  int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  db_->Fail(db_->Path());
}

void SqlStatement::Run() {
  while (Step()) {
  }
  Reset();
}

void SqlStatement::Reset() {
  sqlite3_reset(stmt_);
  sqlite3_clear_bindings(stmt_);
}

bool SqlStatement::IsNull(int column) const { return sqlite3_column_type(stmt_, column) == SQLITE_NULL; }

std::string_view SqlStatement::Text(int column) const {
  const unsigned char* p = sqlite3_column_text(stmt_, column);
  if (!p) return {};
  return {reinterpret_cast<const char*>(p), static_cast<size_t>(sqlite3_column_bytes(stmt_, column))};
}

int64_t SqlStatement::Int(int column) const { return sqlite3_column_int64(stmt_, column); }
double SqlStatement::Real(int column) const { return sqlite3_column_double(stmt_, column); }

SqlTransaction::SqlTransaction(SqlDatabase& db) : db_(db) { db_.Exec("BEGIN IMMEDIATE"); }

SqlTransaction::~SqlTransaction() {
  if (!done_ && db_.InTransaction()) {
    try {
      db_.Exec("ROLLBACK");
    } catch (...) {
      // The connection rolls back by itself when the statement that failed was the commit.
    }
  }
}

void SqlTransaction::Commit() {
  db_.Exec("COMMIT");
  done_ = true;
}

}  // namespace tessaron::qbsim
