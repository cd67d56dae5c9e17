// A company file: one SQLite database in WAL mode holding the lists, the company record,
// the preferences and the deleted-items log of one company.
//
// Every change is made inside a WriteScope, one SQLite transaction, so that a crash never
// loses a change that was answered and never leaves half of one. All sessions of a process
// on the same file share one open CompanyFile.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "qbsim/edition.h"
#include "qbsim/sql.h"

namespace tessaron::qbsim {

// What a new company file starts with.
struct CompanySetup {
  Edition edition = Edition::US;
  int newestVersion = kDefaultNewestVersion;  // qbXML version x10
};

class CompanyFile {
 public:
  // The format this processor writes; it opens files of this format or older.
  static constexpr int kFormatVersion = 2;  // 2: the ledger

  // Opens an existing company file; a second open of the same file in the process returns
  // the same object. Raises 0x80040403 when the file is missing, is not a company file or
  // was written in a newer format. `vfs`: the name of a registered SQLite VFS to open it
  // with; empty = SQLite's default.
  static std::shared_ptr<CompanyFile> Open(const std::string& path, const std::string& vfs = "");
  // Creates a new empty company file. Raises 0x80040403 when the file exists.
  static std::shared_ptr<CompanyFile> Create(const std::string& path, const CompanySetup& setup);

  ~CompanyFile();
  CompanyFile(const CompanyFile&) = delete;
  CompanyFile& operator=(const CompanyFile&) = delete;

  const std::string& Path() const { return path_; }
  Edition FileEdition() const { return edition_; }
  int NewestVersion() const { return newestVersion_; }
  SqlDatabase& Db() { return *db_; }
  // Serialises use of the file by several processors of one process.
  std::recursive_mutex& Mutex() { return mutex_; }

  // Settings and records kept as texts by key ("company", "preferences", ...).
  std::string Meta(std::string_view key);
  void SetMeta(std::string_view key, std::string_view value);

 private:
  CompanyFile(std::string path, std::unique_ptr<SqlDatabase> db);
  void Load();

  std::string path_;
  std::unique_ptr<SqlDatabase> db_;
  std::recursive_mutex mutex_;
  Edition edition_ = Edition::US;
  int newestVersion_ = kDefaultNewestVersion;
};

// One change of a company file: a SQLite transaction, with the identifiers, edit sequences
// and the time that the change hands out. Destroying it without Commit undoes everything.
class WriteScope {
 public:
  explicit WriteScope(CompanyFile& file);
  ~WriteScope();
  WriteScope(const WriteScope&) = delete;
  WriteScope& operator=(const WriteScope&) = delete;

  // A new ListID or TxnID in QuickBooks' form: eight hex digits, a dash, ten digits.
  std::string NewId();
  // A new edit sequence: increasing across the whole file, so no two changes share one.
  std::string NewEditSequence();
  // The time of this change, as TimeCreated/TimeModified text and as a day count.
  const std::string& Timestamp() const { return timestamp_; }
  double TimeSerial() const { return timeSerial_; }

  void Commit();

 private:
  CompanyFile& file_;
  std::lock_guard<std::recursive_mutex> lock_;
  SqlTransaction tx_;
  int64_t nextId_ = 0;
  int64_t lastEditSequence_ = 0;
  int64_t unixTime_ = 0;
  std::string timestamp_;
  double timeSerial_ = 0;
};

}  // namespace tessaron::qbsim
