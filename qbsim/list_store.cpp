#include "qbsim/list_store.h"

#include "qbsim/record_kind.h"
#include "qbsim/values.h"
#include "tessaron/platform/text.h"

namespace tessaron::qbsim {
namespace {

constexpr const char* kColumns =
    "rowid, kind, list_id, name, full_name, parent_list_id, sublevel, is_active, edit_sequence, "
    "time_created, time_modified, balance, total_balance, body";

RecordRow ReadRow(const SqlStatement& st) {
  RecordRow r;
  r.rowid = st.Int(0);
  r.kind = st.Text(1);
  r.listId = st.Text(2);
  r.name = st.Text(3);
  r.fullName = st.Text(4);
  r.parentListId = st.Text(5);
  r.sublevel = static_cast<int>(st.Int(6));
  r.isActive = st.Int(7) != 0;
  r.editSequence = st.Text(8);
  r.timeCreated = st.Text(9);
  r.timeModified = st.Text(10);
  r.balance = st.Int(11);
  r.totalBalance = st.Int(12);
  r.body = st.Text(13);
  return r;
}

ListRecord Own(const RecordRow& r) {
  ListRecord o;
  o.rowid = r.rowid;
  o.kind = r.kind;
  o.listId = r.listId;
  o.name = r.name;
  o.fullName = r.fullName;
  o.parentListId = r.parentListId;
  o.sublevel = r.sublevel;
  o.isActive = r.isActive;
  o.editSequence = r.editSequence;
  o.timeCreated = r.timeCreated;
  o.timeModified = r.timeModified;
  o.balance = r.balance;
  o.totalBalance = r.totalBalance;
  o.body = r.body;
  return o;
}

std::vector<ListRecord> All(SqlStatement& st) {
  std::vector<ListRecord> out;
  while (st.Step()) out.push_back(Own(ReadRow(st)));
  return out;
}

std::string Placeholders(size_t n) {
  std::string s;
  for (size_t i = 0; i < n; ++i) s += i ? ",?" : "?";
  return s;
}

std::string NameSpaceOf(std::string_view kind) {
  const ListKind* k = FindListKind(kind);
  return k ? std::string(k->nameSpace) : std::string(kind);
}

}  // namespace

std::string NameKey(std::string_view fullName) {
  std::string key = FoldCase(fullName);
  for (char& c : key)
    if (c == ':') c = '\x01';
  return key;
}

SqlStatement& ListStore::Cached(const char* sql) {
  auto it = statements_.find(sql);
  if (it == statements_.end()) it = statements_.emplace(sql, file_.Db().Prepare(sql)).first;
  return it->second;
}

std::optional<ListRecord> ListStore::ByListId(std::string_view listId) {
  static const std::string sql = std::string("SELECT ") + kColumns + " FROM list_record WHERE list_id = ?";
  SqlStatement& st = Cached(sql.c_str());
  st.Bind(1, listId);
  std::optional<ListRecord> out;
  if (st.Step()) out = Own(ReadRow(st));
  st.Reset();
  return out;
}

std::vector<ListRecord> ListStore::ByFullName(std::span<const char* const> kinds, std::string_view fullName) {
  std::vector<std::string> k(kinds.begin(), kinds.end());
  return ByFullName(std::span<const std::string>(k), fullName);
}

std::vector<ListRecord> ListStore::ByFullName(std::span<const std::string> kinds, std::string_view fullName) {
  SqlStatement st = file_.Db().Prepare(std::string("SELECT ") + kColumns + " FROM list_record WHERE kind IN (" +
                                       Placeholders(kinds.size()) + ") AND name_key = ? ORDER BY rowid");
  int i = 1;
  for (const std::string& k : kinds) st.Bind(i++, k);
  st.Bind(i, NameKey(fullName));
  return All(st);
}

std::optional<ListRecord> ListStore::NameHolder(std::string_view nameSpace, std::string_view fullName,
                                                std::string_view exceptListId) {
  SqlStatement st = file_.Db().Prepare(std::string("SELECT ") + kColumns +
                                       " FROM list_record WHERE name_space = ? AND name_key = ? AND list_id <> ?");
  st.Bind(1, nameSpace).Bind(2, NameKey(fullName)).Bind(3, exceptListId);
  if (!st.Step()) return std::nullopt;
  return Own(ReadRow(st));
}

std::vector<ListRecord> ListStore::Children(std::string_view listId) {
  SqlStatement st = file_.Db().Prepare(std::string("SELECT ") + kColumns +
                                       " FROM list_record WHERE parent_list_id = ? ORDER BY name_key");
  st.Bind(1, listId);
  return All(st);
}

int64_t ListStore::ReferenceCount(std::string_view listId) {
  SqlStatement st = file_.Db().Prepare("SELECT count(*) FROM list_ref WHERE target = ?");
  st.Bind(1, listId);
  return st.Step() ? st.Int(0) : 0;
}

const std::string& ListStore::FullNameOf(std::string_view listId) {
  auto it = fullNames_.find(listId);
  if (it != fullNames_.end()) return it->second;
  SqlStatement& st = Cached("SELECT full_name FROM list_record WHERE list_id = ?");
  st.Bind(1, listId);
  std::string name = st.Step() ? std::string(st.Text(0)) : std::string();
  st.Reset();
  return fullNames_.emplace(std::string(listId), std::move(name)).first->second;
}

void ListStore::Select(const ListSelection& sel, const std::function<bool(const RecordRow&)>& onRow) {
  std::string sql = std::string("SELECT ") + kColumns + " FROM list_record WHERE kind IN (" +
                    Placeholders(sel.kinds.size()) + ")";
  if (sel.active) sql += " AND is_active = ?";
  if (sel.modifiedFrom) sql += " AND modified_at >= ?";
  if (sel.modifiedTo) sql += " AND modified_at < ?";
  if (sel.fromName) sql += " AND name_key >= ?";
  if (sel.toName) sql += " AND (name_key <= ? OR substr(name_key, 1, length(?)) = ?)";
  sql += " ORDER BY name_key, rowid";
  if (sel.limit > 0) sql += " LIMIT " + std::to_string(sel.limit);
  SqlStatement st = file_.Db().Prepare(sql);
  int i = 1;
  for (const std::string& k : sel.kinds) st.Bind(i++, k);
  if (sel.active) st.Bind(i++, *sel.active ? 1 : 0);
  if (sel.modifiedFrom) st.Bind(i++, *sel.modifiedFrom);
  if (sel.modifiedTo) st.Bind(i++, *sel.modifiedTo);
  if (sel.fromName) st.Bind(i++, NameKey(*sel.fromName));
  if (sel.toName) {
    std::string key = NameKey(*sel.toName);
    st.Bind(i, key).Bind(i + 1, key).Bind(i + 2, key);
    i += 3;
  }
  while (st.Step())
    if (!onRow(ReadRow(st))) break;
}

void ListStore::WriteRefs(std::string_view owner, std::span<const std::string> refs) {
  Cached("DELETE FROM list_ref WHERE owner = ?").Bind(1, owner).Run();
  SqlStatement& ins = Cached("INSERT INTO list_ref(owner, target) VALUES(?, ?)");
  for (const std::string& t : refs) ins.Bind(1, owner).Bind(2, t).Run();
}

namespace {
// Every stored column of a record, bound in one order for both statements.
constexpr const char* kInsert =
    "INSERT INTO list_record(kind, list_id, name, full_name, name_key, name_space, parent_list_id, sublevel, "
    "is_active, edit_sequence, time_created, time_modified, modified_at, balance, total_balance, body) "
    "VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr const char* kUpdate =
    "UPDATE list_record SET kind = ?, list_id = ?, name = ?, full_name = ?, name_key = ?, name_space = ?, "
    "parent_list_id = ?, sublevel = ?, is_active = ?, edit_sequence = ?, time_created = ?, time_modified = ?, "
    "modified_at = ?, balance = ?, total_balance = ?, body = ? WHERE rowid = ?";

SqlStatement& BindColumns(SqlStatement& st, const ListRecord& r) {
  double modifiedAt = 0;
  ParseTimestamp(r.timeModified, modifiedAt);
  return st.Bind(1, r.kind)
      .Bind(2, r.listId)
      .Bind(3, r.name)
      .Bind(4, r.fullName)
      .Bind(5, NameKey(r.fullName))
      .Bind(6, NameSpaceOf(r.kind))
      .Bind(7, r.parentListId)
      .Bind(8, r.sublevel)
      .Bind(9, r.isActive ? 1 : 0)
      .Bind(10, r.editSequence)
      .Bind(11, r.timeCreated)
      .Bind(12, r.timeModified)
      .Bind(13, modifiedAt)
      .Bind(14, r.balance)
      .Bind(15, r.totalBalance)
      .Bind(16, r.body);
}
}  // namespace

void ListStore::Insert(ListRecord& r, std::span<const std::string> refs) {
  BindColumns(Cached(kInsert), r).Run();
  r.rowid = file_.Db().LastInsertRowId();
  WriteRefs(r.listId, refs);
  fullNames_[r.listId] = r.fullName;
}

void ListStore::Update(const ListRecord& r, std::span<const std::string> refs) {
  BindColumns(Cached(kUpdate), r).Bind(17, r.rowid).Run();
  WriteRefs(r.listId, refs);
  fullNames_[r.listId] = r.fullName;
}

void ListStore::RenameDescendants(const ListRecord& parent, WriteScope& scope) {
  SqlDatabase& db = file_.Db();
  for (ListRecord child : Children(parent.listId)) {
    child.fullName = parent.fullName + ":" + child.name;
    child.sublevel = parent.sublevel + 1;
    child.editSequence = scope.NewEditSequence();
    child.timeModified = scope.Timestamp();
    db.Prepare(
          "UPDATE list_record SET full_name = ?, name_key = ?, sublevel = ?, edit_sequence = ?, time_modified = ?, "
          "modified_at = ? WHERE rowid = ?")
        .Bind(1, child.fullName)
        .Bind(2, NameKey(child.fullName))
        .Bind(3, child.sublevel)
        .Bind(4, child.editSequence)
        .Bind(5, child.timeModified)
        .Bind(6, scope.TimeSerial())
        .Bind(7, child.rowid)
        .Run();
    fullNames_[child.listId] = child.fullName;
    RenameDescendants(child, scope);
  }
}

void ListStore::AddToBalance(std::string_view listId, int64_t delta) {
  if (delta == 0) return;
  Cached("UPDATE list_record SET balance = balance + ? WHERE list_id = ?").Bind(1, delta).Bind(2, listId).Run();
  AddToTotal(listId, delta);
}

void ListStore::AddToTotal(std::string_view listId, int64_t delta) {
  if (delta == 0) return;
  std::string id(listId);
  SqlStatement& up = Cached("UPDATE list_record SET total_balance = total_balance + ? WHERE list_id = ?");
  SqlStatement& parentOf = Cached("SELECT parent_list_id FROM list_record WHERE list_id = ?");
  while (!id.empty()) {
    up.Bind(1, delta).Bind(2, id).Run();
    parentOf.Bind(1, id);
    id = parentOf.Step() ? std::string(parentOf.Text(0)) : std::string();
    parentOf.Reset();
  }
}

void ListStore::SelectDeleted(std::span<const std::string> kinds, std::optional<double> from, std::optional<double> to,
                              const std::function<void(const DeletedRow&)>& onRow) {
  std::string sql = "SELECT kind, id, time_created, time_deleted, full_name FROM deleted_item WHERE kind IN (" +
                    Placeholders(kinds.size()) + ")";
  if (from) sql += " AND deleted_at >= ?";
  if (to) sql += " AND deleted_at < ?";
  SqlStatement st = file_.Db().Prepare(sql + " ORDER BY deleted_at, rowid");
  int i = 1;
  for (const std::string& k : kinds) st.Bind(i++, k);
  if (from) st.Bind(i++, *from);
  if (to) st.Bind(i++, *to);
  while (st.Step()) onRow({st.Text(0), st.Text(1), st.Text(2), st.Text(3), st.Text(4)});
}

void ListStore::Delete(const ListRecord& r, WriteScope& scope) {
  SqlDatabase& db = file_.Db();
  db.Prepare("DELETE FROM list_record WHERE rowid = ?").Bind(1, r.rowid).Run();
  WriteRefs(r.listId, {});
  db.Prepare("INSERT INTO deleted_item(kind, id, full_name, time_created, time_deleted, deleted_at) "
             "VALUES(?,?,?,?,?,?)")
      .Bind(1, r.kind)
      .Bind(2, r.listId)
      .Bind(3, r.fullName)
      .Bind(4, r.timeCreated)
      .Bind(5, scope.Timestamp())
      .Bind(6, scope.TimeSerial())
      .Run();
  fullNames_.erase(r.listId);
}

}  // namespace tessaron::qbsim
