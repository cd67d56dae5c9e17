#include "qbsim/ledger.h"

#include <cstdlib>

#include "qbsim/company_file.h"
#include "qbsim/values.h"
#include "tessaron/platform/currency.h"

namespace tessaron::qbsim {
namespace {

constexpr const char* kLedgerSchema = R"SQL(
CREATE TABLE IF NOT EXISTS txn(
  rowid INTEGER PRIMARY KEY,
  kind TEXT NOT NULL,
  txn_id TEXT NOT NULL,
  txn_number INTEGER NOT NULL,
  edit_sequence TEXT NOT NULL,
  time_created TEXT NOT NULL,
  time_modified TEXT NOT NULL,
  modified_at REAL NOT NULL,
  txn_date TEXT NOT NULL,
  ref_number TEXT NOT NULL DEFAULT '',
  entity_id TEXT NOT NULL DEFAULT '',
  account_id TEXT NOT NULL DEFAULT '',
  is_void INTEGER NOT NULL DEFAULT 0,
  body TEXT NOT NULL DEFAULT '');
CREATE UNIQUE INDEX IF NOT EXISTS txn_id_index ON txn(txn_id);
CREATE INDEX IF NOT EXISTS txn_kind_date ON txn(kind, txn_date);
CREATE INDEX IF NOT EXISTS txn_entity ON txn(entity_id);
CREATE INDEX IF NOT EXISTS txn_ref ON txn(kind, ref_number);
CREATE TABLE IF NOT EXISTS txn_line(
  rowid INTEGER PRIMARY KEY,
  txn_id TEXT NOT NULL,
  position INTEGER NOT NULL,
  line_id TEXT NOT NULL,
  group_line_id TEXT NOT NULL DEFAULT '',
  body TEXT NOT NULL DEFAULT '');
CREATE INDEX IF NOT EXISTS txn_line_txn ON txn_line(txn_id, position);
CREATE TABLE IF NOT EXISTS posting(
  rowid INTEGER PRIMARY KEY,
  txn_id TEXT NOT NULL,
  txn_date TEXT NOT NULL,
  account_id TEXT NOT NULL,
  amount INTEGER NOT NULL,
  entity_id TEXT NOT NULL DEFAULT '',
  item_id TEXT NOT NULL DEFAULT '',
  class_id TEXT NOT NULL DEFAULT '',
  open_txn_id TEXT NOT NULL DEFAULT '');
CREATE INDEX IF NOT EXISTS posting_txn ON posting(txn_id);
CREATE INDEX IF NOT EXISTS posting_account ON posting(account_id);
CREATE INDEX IF NOT EXISTS posting_entity ON posting(entity_id, account_id);
CREATE INDEX IF NOT EXISTS posting_open ON posting(open_txn_id);
CREATE TABLE IF NOT EXISTS deleted_txn(
  rowid INTEGER PRIMARY KEY,
  kind TEXT NOT NULL,
  txn_id TEXT NOT NULL,
  ref_number TEXT NOT NULL DEFAULT '',
  time_created TEXT NOT NULL,
  time_deleted TEXT NOT NULL,
  deleted_at REAL NOT NULL);
)SQL";

constexpr const char* kTxnColumns =
    "rowid, kind, txn_id, txn_number, edit_sequence, time_created, time_modified, txn_date, ref_number, entity_id, "
    "account_id, is_void, body";

TxnRecord ReadTxn(const SqlStatement& st) {
  TxnRecord t;
  t.rowid = st.Int(0);
  t.kind = st.Text(1);
  t.txnId = st.Text(2);
  t.txnNumber = st.Int(3);
  t.editSequence = st.Text(4);
  t.timeCreated = st.Text(5);
  t.timeModified = st.Text(6);
  t.txnDate = st.Text(7);
  t.refNumber = st.Text(8);
  t.entityId = st.Text(9);
  t.accountId = st.Text(10);
  t.isVoid = st.Int(11) != 0;
  t.body = st.Text(12);
  return t;
}

std::string Placeholders(size_t n) {
  std::string s;
  for (size_t i = 0; i < n; ++i) s += i ? ",?" : "?";
  return s;
}

// The children of an entity share its name key followed by the level separator.
constexpr const char* kEntityTree =
    "(SELECT list_id FROM list_record WHERE name_key = (SELECT name_key FROM list_record WHERE list_id = ?) "
    "OR substr(name_key, 1, length((SELECT name_key FROM list_record WHERE list_id = ?)) + 1) = "
    "(SELECT name_key FROM list_record WHERE list_id = ?) || char(1))";

}  // namespace

void CreateLedgerTables(SqlDatabase& db) { db.Exec(kLedgerSchema); }

int64_t RoundToCents(int64_t raw) {
  constexpr int64_t kCent = Currency::kScale / 100;
  int64_t q = raw / kCent, r = raw % kCent;
  if (2 * std::llabs(r) >= kCent) q += raw < 0 ? -1 : 1;
  return q * kCent;
}

std::string CentsText(int64_t raw) { return FormatCurrency(Currency::FromRaw(RoundToCents(raw)), "0.00"); }

LedgerStore::LedgerStore(CompanyFile& file) : file_(file) {}

SqlStatement& LedgerStore::Cached(const char* sql) {
  auto it = statements_.find(sql);
  if (it == statements_.end()) it = statements_.emplace(sql, file_.Db().Prepare(sql)).first;
  return it->second;
}

void LedgerStore::WriteLinesAndPostings(const TxnRecord& t, std::span<const TxnLineRecord> lines,
                                        std::span<const Posting> postings) {
  Cached("DELETE FROM txn_line WHERE txn_id = ?").Bind(1, t.txnId).Run();
  Cached("DELETE FROM posting WHERE txn_id = ?").Bind(1, t.txnId).Run();
  SqlStatement& line = Cached("INSERT INTO txn_line(txn_id, position, line_id, group_line_id, body) VALUES(?,?,?,?,?)");
  int position = 0;
  for (const TxnLineRecord& l : lines)
    line.Bind(1, t.txnId).Bind(2, position++).Bind(3, l.lineId).Bind(4, l.groupLineId).Bind(5, l.body).Run();
  AddPostings(t, postings);
}

void LedgerStore::AddPostings(const TxnRecord& t, std::span<const Posting> postings) {
  SqlStatement& post = Cached(
      "INSERT INTO posting(txn_id, txn_date, account_id, amount, entity_id, item_id, class_id, open_txn_id) "
      "VALUES(?,?,?,?,?,?,?,?)");
  for (const Posting& p : postings) {
    if (p.amount == 0) continue;
    post.Bind(1, t.txnId).Bind(2, t.txnDate).Bind(3, p.accountId).Bind(4, p.amount).Bind(5, p.entityId)
        .Bind(6, p.itemId).Bind(7, p.classId).Bind(8, p.openTxnId).Run();
  }
}

namespace {
SqlStatement& BindTxn(SqlStatement& st, const TxnRecord& t) {
  double modifiedAt = 0;
  ParseTimestamp(t.timeModified, modifiedAt);
  return st.Bind(1, t.kind).Bind(2, t.txnId).Bind(3, t.txnNumber).Bind(4, t.editSequence).Bind(5, t.timeCreated)
      .Bind(6, t.timeModified).Bind(7, modifiedAt).Bind(8, t.txnDate).Bind(9, t.refNumber).Bind(10, t.entityId)
      .Bind(11, t.accountId).Bind(12, t.isVoid ? 1 : 0).Bind(13, t.body);
}
}  // namespace

void LedgerStore::Insert(TxnRecord& t, std::span<const TxnLineRecord> lines, std::span<const Posting> postings) {
  SqlStatement& st = Cached(
      "INSERT INTO txn(kind, txn_id, txn_number, edit_sequence, time_created, time_modified, modified_at, txn_date, "
      "ref_number, entity_id, account_id, is_void, body) VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?)");
  BindTxn(st, t).Run();
  t.rowid = file_.Db().LastInsertRowId();
  WriteLinesAndPostings(t, lines, postings);
}

void LedgerStore::Update(const TxnRecord& t, std::span<const TxnLineRecord> lines, std::span<const Posting> postings) {
  SqlStatement st = file_.Db().Prepare(
      "UPDATE txn SET kind = ?, txn_id = ?, txn_number = ?, edit_sequence = ?, time_created = ?, time_modified = ?, "
      "modified_at = ?, txn_date = ?, ref_number = ?, entity_id = ?, account_id = ?, is_void = ?, body = ? "
      "WHERE rowid = ?");
  BindTxn(st, t).Bind(14, t.rowid).Run();
  WriteLinesAndPostings(t, lines, postings);
}

void LedgerStore::Delete(const TxnRecord& t, const std::string& timeDeleted, double deletedAt) {
  SqlDatabase& db = file_.Db();
  WriteLinesAndPostings(t, {}, {});
  db.Prepare("DELETE FROM txn WHERE rowid = ?").Bind(1, t.rowid).Run();
  db.Prepare("INSERT INTO deleted_txn(kind, txn_id, ref_number, time_created, time_deleted, deleted_at) "
             "VALUES(?,?,?,?,?,?)")
      .Bind(1, t.kind).Bind(2, t.txnId).Bind(3, t.refNumber).Bind(4, t.timeCreated).Bind(5, timeDeleted)
      .Bind(6, deletedAt).Run();
}

std::optional<TxnRecord> LedgerStore::ByTxnId(std::string_view txnId) {
  SqlStatement st = file_.Db().Prepare(std::string("SELECT ") + kTxnColumns + " FROM txn WHERE txn_id = ?");
  st.Bind(1, txnId);
  if (!st.Step()) return std::nullopt;
  return ReadTxn(st);
}

std::vector<TxnLineRecord> LedgerStore::Lines(std::string_view txnId) {
  SqlStatement st =
      file_.Db().Prepare("SELECT line_id, group_line_id, body FROM txn_line WHERE txn_id = ? ORDER BY position");
  st.Bind(1, txnId);
  std::vector<TxnLineRecord> out;
  while (st.Step()) out.push_back({std::string(st.Text(0)), std::string(st.Text(1)), std::string(st.Text(2))});
  return out;
}

void LedgerStore::Select(const TxnSelection& s, const std::function<bool(const TxnRecord&)>& onRow) {
  std::string sql = std::string("SELECT ") + kTxnColumns + " FROM txn WHERE kind = ?";
  if (!s.txnIds.empty()) sql += " AND txn_id IN (" + Placeholders(s.txnIds.size()) + ")";
  if (!s.refNumbers.empty()) sql += " AND ref_number IN (" + Placeholders(s.refNumbers.size()) + ")";
  if (s.modifiedFrom) sql += " AND modified_at >= ?";
  if (s.modifiedTo) sql += " AND modified_at < ?";
  if (s.txnDateFrom) sql += " AND txn_date >= ?";
  if (s.txnDateTo) sql += " AND txn_date <= ?";
  if (!s.entityIds.empty()) sql += " AND entity_id IN (" + Placeholders(s.entityIds.size()) + ")";
  if (!s.accountIds.empty())
    sql += " AND (account_id IN (" + Placeholders(s.accountIds.size()) +
           ") OR txn_id IN (SELECT txn_id FROM posting WHERE account_id IN (" + Placeholders(s.accountIds.size()) + ")))";
  sql += " ORDER BY txn_date, txn_number";
  SqlStatement st = file_.Db().Prepare(sql);
  int i = 1;
  st.Bind(i++, s.kind);
  for (const std::string& id : s.txnIds) st.Bind(i++, id);
  for (const std::string& r : s.refNumbers) st.Bind(i++, r);
  if (s.modifiedFrom) st.Bind(i++, *s.modifiedFrom);
  if (s.modifiedTo) st.Bind(i++, *s.modifiedTo);
  if (s.txnDateFrom) st.Bind(i++, *s.txnDateFrom);
  if (s.txnDateTo) st.Bind(i++, *s.txnDateTo);
  for (const std::string& e : s.entityIds) st.Bind(i++, e);
  for (int twice = 0; twice < 2; ++twice)
    for (const std::string& a : s.accountIds) st.Bind(i++, a);
  int n = 0;
  while (st.Step()) {
    if (!onRow(ReadTxn(st))) break;
    if (s.limit > 0 && ++n >= s.limit) break;
  }
}

int64_t LedgerStore::NextTxnNumber() {
  SqlStatement& st = Cached("SELECT coalesce(max(txn_number), 0) + 1 FROM txn");
  int64_t n = st.Step() ? st.Int(0) : 1;
  st.Reset();
  return n;
}

std::string LedgerStore::NextRefNumber(std::string_view kind) {
  // QuickBooks counts on from the number of the kind's latest document.
  SqlStatement st = file_.Db().Prepare(
      "SELECT ref_number FROM txn WHERE kind = ? AND ref_number <> '' ORDER BY rowid DESC LIMIT 1");
  st.Bind(1, kind);
  std::string last = st.Step() ? std::string(st.Text(0)) : std::string();
  size_t digits = last.size();
  while (digits > 0 && last[digits - 1] >= '0' && last[digits - 1] <= '9') --digits;
  if (digits == last.size()) return last.empty() ? "1" : last + "1";
  std::string number = last.substr(digits);
  // Increment the trailing digits as text, keeping their width.
  int i = static_cast<int>(number.size()) - 1;
  for (; i >= 0; --i) {
    if (number[i] == '9') {
      number[i] = '0';
    } else {
      ++number[i];
      break;
    }
  }
  if (i < 0) number.insert(number.begin(), '1');
  return last.substr(0, digits) + number;
}

int64_t LedgerStore::AccountBalance(std::string_view accountId, bool withChildren) {
  std::string sql = "SELECT coalesce(sum(amount), 0) FROM posting WHERE account_id ";
  sql += withChildren ? std::string("IN ") + kEntityTree : std::string("= ?");
  SqlStatement st = file_.Db().Prepare(sql);
  st.Bind(1, accountId);
  if (withChildren) st.Bind(2, accountId).Bind(3, accountId);
  return st.Step() ? st.Int(0) : 0;
}

int64_t LedgerStore::EntityBalance(std::string_view entityId, std::span<const std::string> accountIds,
                                   bool withChildren) {
  std::string sql = "SELECT coalesce(sum(amount), 0) FROM posting WHERE account_id IN (" +
                    Placeholders(accountIds.size()) + ") AND entity_id ";
  sql += withChildren ? std::string("IN ") + kEntityTree : std::string("= ?");
  SqlStatement st = file_.Db().Prepare(sql);
  int i = 1;
  for (const std::string& a : accountIds) st.Bind(i++, a);
  st.Bind(i++, entityId);
  if (withChildren) st.Bind(i, entityId).Bind(i + 1, entityId);
  return st.Step() ? st.Int(0) : 0;
}

int64_t LedgerStore::OpenAmount(std::string_view txnId, std::span<const std::string> accountIds) {
  SqlStatement st = file_.Db().Prepare("SELECT coalesce(sum(amount), 0) FROM posting WHERE open_txn_id = ? AND account_id IN (" +
                                       Placeholders(accountIds.size()) + ")");
  st.Bind(1, txnId);
  int i = 2;
  for (const std::string& a : accountIds) st.Bind(i++, a);
  return st.Step() ? st.Int(0) : 0;
}

std::vector<LedgerStore::Link> LedgerStore::LinksTo(std::string_view txnId) {
  SqlStatement st = file_.Db().Prepare(
      "SELECT t.txn_id, t.kind, t.txn_date, t.ref_number, sum(p.amount) FROM posting p JOIN txn t ON t.txn_id = "
      "p.txn_id WHERE p.open_txn_id = ?1 AND p.txn_id <> ?1 GROUP BY t.txn_id ORDER BY t.txn_date, t.txn_number");
  st.Bind(1, txnId);
  std::vector<Link> out;
  while (st.Step())
    out.push_back({std::string(st.Text(0)), std::string(st.Text(1)), std::string(st.Text(2)), std::string(st.Text(3)), st.Int(4)});
  return out;
}

int64_t LedgerStore::TxnAmount(std::string_view txnId, std::span<const std::string> accountIds) {
  SqlStatement st = file_.Db().Prepare("SELECT coalesce(sum(amount), 0) FROM posting WHERE txn_id = ? AND account_id IN (" +
                                       Placeholders(accountIds.size()) + ")");
  st.Bind(1, txnId);
  int i = 2;
  for (const std::string& a : accountIds) st.Bind(i++, a);
  return st.Step() ? st.Int(0) : 0;
}

int64_t LedgerStore::ReferenceCount(std::string_view listId) {
  SqlStatement st = file_.Db().Prepare(
      "SELECT (SELECT count(*) FROM posting WHERE account_id = ?1 OR entity_id = ?1 OR item_id = ?1 OR class_id = ?1) + "
      "(SELECT count(*) FROM txn WHERE entity_id = ?1 OR account_id = ?1)");
  st.Bind(1, listId);
  return st.Step() ? st.Int(0) : 0;
}

int64_t LedgerStore::Imbalance() {
  SqlStatement st = file_.Db().Prepare("SELECT coalesce(sum(amount), 0) FROM posting");
  return st.Step() ? st.Int(0) : 0;
}

std::vector<LedgerStore::DeletedTxn> LedgerStore::SelectDeleted(std::span<const std::string> kinds,
                                                                std::optional<double> from, std::optional<double> to) {
  std::string sql = "SELECT kind, txn_id, ref_number, time_created, time_deleted FROM deleted_txn WHERE kind IN (" +
                    Placeholders(kinds.size()) + ")";
  if (from) sql += " AND deleted_at >= ?";
  if (to) sql += " AND deleted_at < ?";
  SqlStatement st = file_.Db().Prepare(sql + " ORDER BY deleted_at, rowid");
  int i = 1;
  for (const std::string& k : kinds) st.Bind(i++, k);
  if (from) st.Bind(i++, *from);
  if (to) st.Bind(i++, *to);
  std::vector<DeletedTxn> out;
  while (st.Step())
    out.push_back({std::string(st.Text(0)), std::string(st.Text(1)), std::string(st.Text(2)),
                   std::string(st.Text(3)), std::string(st.Text(4))});
  return out;
}

}  // namespace tessaron::qbsim
