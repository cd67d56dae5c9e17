#include "qbsim/company_file.h"

#include <filesystem>
#include <map>

#include <sqlite3.h>

#include "qbsim/data_ext_store.h"
#include "qbsim/ledger.h"
#include "qbsim/status.h"
#include "qbsim/values.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/error.h"

namespace tessaron::qbsim {
namespace {

// Marks the SQLite file as ours ('TSNC'), so that another SQLite database is refused.
constexpr int kApplicationId = 0x54534E43;
constexpr const char* kFormatName = "Tessaron company file";

constexpr const char* kSchema = R"SQL(
CREATE TABLE meta(key TEXT PRIMARY KEY, value TEXT NOT NULL);
CREATE TABLE list_record(
  rowid INTEGER PRIMARY KEY,
  kind TEXT NOT NULL,
  list_id TEXT NOT NULL,
  name TEXT NOT NULL,
  full_name TEXT NOT NULL,
  name_key TEXT NOT NULL,
  name_space TEXT NOT NULL,
  parent_list_id TEXT NOT NULL DEFAULT '',
  sublevel INTEGER NOT NULL DEFAULT 0,
  is_active INTEGER NOT NULL DEFAULT 1,
  edit_sequence TEXT NOT NULL,
  time_created TEXT NOT NULL,
  time_modified TEXT NOT NULL,
  modified_at REAL NOT NULL,
  balance INTEGER NOT NULL DEFAULT 0,
  total_balance INTEGER NOT NULL DEFAULT 0,
  body TEXT NOT NULL DEFAULT '');
CREATE UNIQUE INDEX list_record_list_id ON list_record(list_id);
CREATE INDEX list_record_kind_name ON list_record(kind, name_key);
CREATE INDEX list_record_space_name ON list_record(name_space, name_key);
CREATE INDEX list_record_parent ON list_record(parent_list_id);
CREATE TABLE list_ref(owner TEXT NOT NULL, target TEXT NOT NULL);
CREATE INDEX list_ref_owner ON list_ref(owner);
CREATE INDEX list_ref_target ON list_ref(target);
CREATE TABLE deleted_item(
  rowid INTEGER PRIMARY KEY,
  kind TEXT NOT NULL,
  id TEXT NOT NULL,
  full_name TEXT NOT NULL,
  time_created TEXT NOT NULL,
  time_deleted TEXT NOT NULL,
  deleted_at REAL NOT NULL);
CREATE INDEX deleted_item_at ON deleted_item(deleted_at);
)SQL";

std::mutex g_registryMutex;
std::map<std::string, std::weak_ptr<CompanyFile>>& Registry() {
  static std::map<std::string, std::weak_ptr<CompanyFile>> files;
  return files;
}

std::string RegistryKey(const std::string& path) {
  std::error_code ec;
  auto p = std::filesystem::weakly_canonical(std::filesystem::absolute(path, ec), ec);
  return ec ? path : p.string();
}

[[noreturn]] void CannotOpen(const std::string& path, const std::string& why) {
  throw Error(processor_error::kCannotOpenFile, kSource,
              std::string(processor_error::kCannotOpenFileText) + " " + path + ": " + why);
}

int64_t PragmaInt(SqlDatabase& db, const char* pragma) {
  SqlStatement st = db.Prepare(std::string("PRAGMA ") + pragma);
  return st.Step() ? st.Int(0) : 0;
}

void Configure(SqlDatabase& db) {
  db.Exec("PRAGMA journal_mode=WAL");
  // FULL: a change is on disk before its response leaves, so an answered change survives
  // a crash of the machine as well as of the process.
  db.Exec("PRAGMA synchronous=FULL");
  db.Exec("PRAGMA foreign_keys=OFF");
}

int64_t UnixTime(double serial) { return static_cast<int64_t>((serial - 25569.0) * 86400.0 + 0.5); }

}  // namespace

CompanyFile::CompanyFile(std::string path, std::unique_ptr<SqlDatabase> db)
    : path_(std::move(path)), db_(std::move(db)) {}

CompanyFile::~CompanyFile() = default;

std::shared_ptr<CompanyFile> CompanyFile::Open(const std::string& path, const std::string& vfs) {
  std::lock_guard lock(g_registryMutex);
  std::string key = RegistryKey(path);
  if (auto existing = Registry()[key].lock()) return existing;

  std::error_code ec;
  if (path.empty()) CannotOpen(path, "no file name was given");
  if (!std::filesystem::exists(path, ec)) CannotOpen(path, "the file does not exist");
  if (std::filesystem::is_directory(path, ec)) CannotOpen(path, "this is a folder, not a company file");

  auto db = std::make_unique<SqlDatabase>(path, SqlDatabase::Mode::ReadWrite, vfs);
  // Nothing is written before the file has shown that it is a company file.
  int64_t appId = 0, format = 0;
  try {
    appId = PragmaInt(*db, "application_id");
    format = PragmaInt(*db, "user_version");
  } catch (const Error&) {
    CannotOpen(path, "this is not a company file");
  }
  if (appId != kApplicationId) CannotOpen(path, "this is not a company file");
  if (format > kFormatVersion)
    CannotOpen(path, "the file was written in a newer format (" + std::to_string(format) +
                         ") than this processor reads (" + std::to_string(kFormatVersion) + ")");
  Configure(*db);
  // Data extensions came within format 2: a file without their tables gets them empty.
  CreateDataExtTables(*db);
  if (format < kFormatVersion) {
    // Files of the first format have no ledger yet: it starts empty.
    SqlTransaction tx(*db);
    CreateLedgerTables(*db);
    db->Exec("PRAGMA user_version=" + std::to_string(kFormatVersion));
    tx.Commit();
  }
  auto file = std::shared_ptr<CompanyFile>(new CompanyFile(path, std::move(db)));
  file->Load();
  Registry()[key] = file;
  return file;
}

std::shared_ptr<CompanyFile> CompanyFile::Create(const std::string& path, const CompanySetup& setup) {
  std::error_code ec;
  if (path.empty()) CannotOpen(path, "no file name was given");
  if (std::filesystem::exists(path, ec)) CannotOpen(path, "the file exists already");
  {
    SqlDatabase db(path, SqlDatabase::Mode::Create);
    // Nothing is answered before the file exists whole: it is written without syncing, and
    // the switch to the write-ahead log below syncs it once.
    db.Exec("PRAGMA synchronous=OFF");
    SqlTransaction tx(db);
    db.Exec(kSchema);
    CreateLedgerTables(db);
    SqlStatement put = db.Prepare("INSERT INTO meta(key, value) VALUES(?, ?)");
    auto set = [&](const char* k, const std::string& v) { put.Bind(1, k).Bind(2, v).Run(); };
    set("format", kFormatName);
    set("edition", EditionName(setup.edition));
    set("newest_version", VersionText(setup.newestVersion));
    set("next_id", std::to_string(0x80000001LL));
    set("last_edit_sequence", "0");
    set("created", TimestampNow());
    db.Exec("PRAGMA application_id=" + std::to_string(kApplicationId));
    db.Exec("PRAGMA user_version=" + std::to_string(kFormatVersion));
    tx.Commit();
    Configure(db);
  }
  return Open(path);
}

void CompanyFile::Load() {
  if (Meta("format") != kFormatName) CannotOpen(path_, "this is not a company file");
  edition_ = ParseEdition(Meta("edition")).value_or(Edition::US);
  newestVersion_ = ParseVersion(Meta("newest_version")).value_or(kDefaultNewestVersion);
}

std::string CompanyFile::Meta(std::string_view key) {
  std::lock_guard lock(mutex_);
  SqlStatement st = db_->Prepare("SELECT value FROM meta WHERE key = ?");
  st.Bind(1, key);
  return st.Step() ? std::string(st.Text(0)) : std::string();
}

void CompanyFile::SetMeta(std::string_view key, std::string_view value) {
  std::lock_guard lock(mutex_);
  db_->Prepare("INSERT INTO meta(key, value) VALUES(?, ?) ON CONFLICT(key) DO UPDATE SET value = excluded.value")
      .Bind(1, key)
      .Bind(2, value)
      .Run();
}

WriteScope::WriteScope(CompanyFile& file) : file_(file), lock_(file.Mutex()), tx_(file.Db()) {
  // The counters are read inside the transaction: another process may have moved them.
  nextId_ = std::stoll("0" + file_.Meta("next_id"));
  if (nextId_ == 0) nextId_ = 0x80000001LL;
  lastEditSequence_ = std::stoll("0" + file_.Meta("last_edit_sequence"));
  timestamp_ = TimestampNow();
  timeSerial_ = Now();
  unixTime_ = UnixTime(timeSerial_);
}

WriteScope::~WriteScope() = default;

std::string WriteScope::NewId() {
  char buf[40];
  std::snprintf(buf, sizeof buf, "%08llX-%010lld", static_cast<unsigned long long>(nextId_++),
                static_cast<long long>(unixTime_ % 10000000000LL));
  return buf;
}

std::string WriteScope::NewEditSequence() {
  lastEditSequence_ = std::max(lastEditSequence_ + 1, unixTime_);
  return std::to_string(lastEditSequence_);
}

void WriteScope::Commit() {
  file_.SetMeta("next_id", std::to_string(nextId_));
  file_.SetMeta("last_edit_sequence", std::to_string(lastEditSequence_));
  tx_.Commit();
}

}  // namespace tessaron::qbsim
