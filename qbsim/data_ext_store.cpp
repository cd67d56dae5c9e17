#include "qbsim/data_ext_store.h"

#include <cctype>

#include "qbsim/sql.h"
#include "tessaron/platform/text.h"

namespace tessaron::qbsim {

namespace {

constexpr const char* kDataExtSchema = R"SQL(
CREATE TABLE IF NOT EXISTS data_ext_def(
  id INTEGER PRIMARY KEY,
  owner_id TEXT NOT NULL,
  name TEXT NOT NULL,
  name_key TEXT NOT NULL,
  type TEXT NOT NULL,
  assigned TEXT NOT NULL DEFAULT '');
CREATE UNIQUE INDEX IF NOT EXISTS data_ext_def_name ON data_ext_def(owner_id, name_key);
CREATE TABLE IF NOT EXISTS data_ext_value(
  def_id INTEGER NOT NULL,
  record_id TEXT NOT NULL,
  line_id TEXT NOT NULL DEFAULT '',
  value TEXT NOT NULL);
CREATE UNIQUE INDEX IF NOT EXISTS data_ext_value_key ON data_ext_value(record_id, line_id, def_id);
)SQL";

std::string JoinAssigned(const std::vector<std::string>& types) {
  std::string out;
  for (const std::string& t : types) out += (out.empty() ? "" : ",") + t;
  return out;
}

std::vector<std::string> SplitAssigned(std::string_view text) {
  std::vector<std::string> out;
  size_t start = 0;
  while (start < text.size()) {
    size_t comma = text.find(',', start);
    if (comma == std::string_view::npos) comma = text.size();
    out.emplace_back(text.substr(start, comma - start));
    start = comma + 1;
  }
  return out;
}

DataExtDef DefOfRow(const SqlStatement& st) {
  DataExtDef d;
  d.id = st.Int(0);
  d.ownerId = st.Text(1);
  d.name = st.Text(2);
  d.type = st.Text(3);
  d.assigned = SplitAssigned(st.Text(4));
  return d;
}

bool Listed(std::span<const std::string> set, std::string_view value) {
  for (const std::string& s : set)
    if (EqualsIgnoreCase(s, value)) return true;
  return false;
}

}  // namespace

std::string CanonicalOwner(std::string_view ownerId) {
  std::string out(Trim(ownerId));
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

void CreateDataExtTables(SqlDatabase& db) { db.Exec(kDataExtSchema); }

std::optional<DataExtDef> DataExtStore::FindDef(std::string_view ownerId, std::string_view name) {
  SqlStatement st = file_.Db().Prepare(
      "SELECT id, owner_id, name, type, assigned FROM data_ext_def WHERE owner_id = ? AND name_key = ?");
  st.Bind(1, CanonicalOwner(ownerId)).Bind(2, FoldCase(name));
  if (!st.Step()) return std::nullopt;
  return DefOfRow(st);
}

std::vector<DataExtDef> DataExtStore::Defs(std::span<const std::string> owners, std::span<const std::string> assignedTo) {
  std::vector<DataExtDef> out;
  SqlStatement st = file_.Db().Prepare("SELECT id, owner_id, name, type, assigned FROM data_ext_def ORDER BY id");
  while (st.Step()) {
    DataExtDef d = DefOfRow(st);
    if (!owners.empty() && !Listed(owners, d.ownerId)) continue;
    if (!assignedTo.empty()) {
      bool any = false;
      for (const std::string& t : d.assigned) any = any || Listed(assignedTo, t);
      if (!any) continue;
    }
    out.push_back(std::move(d));
  }
  return out;
}

int DataExtStore::CountPublicAssigned(std::string_view type) {
  int count = 0;
  const std::string owners[] = {"0"};
  const std::string types[] = {std::string(type)};
  for (const DataExtDef& d : Defs(owners, types)) (void)d, ++count;
  return count;
}

void DataExtStore::InsertDef(DataExtDef& def) {
  SqlStatement st = file_.Db().Prepare(
      "INSERT INTO data_ext_def(owner_id, name, name_key, type, assigned) VALUES(?, ?, ?, ?, ?)");
  st.Bind(1, def.ownerId).Bind(2, def.name).Bind(3, FoldCase(def.name)).Bind(4, def.type).Bind(5, JoinAssigned(def.assigned));
  st.Run();
  def.id = file_.Db().LastInsertRowId();
}

void DataExtStore::UpdateDef(const DataExtDef& def) {
  SqlStatement st =
      file_.Db().Prepare("UPDATE data_ext_def SET name = ?, name_key = ?, assigned = ? WHERE id = ?");
  st.Bind(1, def.name).Bind(2, FoldCase(def.name)).Bind(3, JoinAssigned(def.assigned)).Bind(4, def.id);
  st.Run();
}

void DataExtStore::DeleteDef(const DataExtDef& def) {
  file_.Db().Prepare("DELETE FROM data_ext_value WHERE def_id = ?").Bind(1, def.id).Run();
  file_.Db().Prepare("DELETE FROM data_ext_def WHERE id = ?").Bind(1, def.id).Run();
}

std::optional<std::string> DataExtStore::Value(const DataExtDef& def, std::string_view recordId,
                                               std::string_view lineId) {
  SqlStatement st =
      file_.Db().Prepare("SELECT value FROM data_ext_value WHERE def_id = ? AND record_id = ? AND line_id = ?");
  st.Bind(1, def.id).Bind(2, std::string(recordId)).Bind(3, std::string(lineId));
  if (!st.Step()) return std::nullopt;
  return std::string(st.Text(0));
}

void DataExtStore::PutValue(const DataExtDef& def, std::string_view recordId, std::string_view lineId,
                            std::string_view value) {
  SqlStatement st = file_.Db().Prepare(
      "INSERT OR REPLACE INTO data_ext_value(def_id, record_id, line_id, value) VALUES(?, ?, ?, ?)");
  st.Bind(1, def.id).Bind(2, std::string(recordId)).Bind(3, std::string(lineId)).Bind(4, std::string(value));
  st.Run();
}

void DataExtStore::DeleteValue(const DataExtDef& def, std::string_view recordId, std::string_view lineId) {
  file_.Db()
      .Prepare("DELETE FROM data_ext_value WHERE def_id = ? AND record_id = ? AND line_id = ?")
      .Bind(1, def.id)
      .Bind(2, std::string(recordId))
      .Bind(3, std::string(lineId))
      .Run();
}

int64_t DataExtStore::PrivateBytes(std::string_view recordId, int64_t exceptDefId) {
  SqlStatement st = file_.Db().Prepare(
      "SELECT COALESCE(SUM(LENGTH(CAST(v.value AS BLOB))), 0) FROM data_ext_value v JOIN data_ext_def d ON d.id = v.def_id "
      "WHERE v.record_id = ? AND d.owner_id <> '0' AND d.id <> ?");
  st.Bind(1, std::string(recordId)).Bind(2, exceptDefId);
  return st.Step() ? st.Int(0) : 0;
}

std::vector<DataExtValue> DataExtStore::Values(std::string_view recordId, std::string_view lineId,
                                               std::span<const std::string> owners) {
  std::vector<DataExtValue> out;
  if (owners.empty()) return out;
  SqlStatement st = file_.Db().Prepare(
      "SELECT d.owner_id, d.name, d.type, v.value FROM data_ext_value v JOIN data_ext_def d ON d.id = v.def_id "
      "WHERE v.record_id = ? AND v.line_id = ? ORDER BY d.id");
  // An empty view may have no data, which SQLite would bind as NULL.
  st.Bind(1, std::string(recordId)).Bind(2, std::string(lineId));
  while (st.Step()) {
    if (!Listed(owners, st.Text(0))) continue;
    out.push_back({std::string(st.Text(0)), std::string(st.Text(1)), std::string(st.Text(2)), std::string(st.Text(3))});
  }
  return out;
}

void WriteDataExtRets(CompanyFile& file, XmlOut& out, std::string_view recordId, std::span<const std::string> owners,
                      std::string_view lineId) {
  if (owners.empty()) return;
  for (const DataExtValue& v : DataExtStore(file).Values(recordId, lineId, owners)) {
    out.Open("DataExtRet");
    out.Element("OwnerID", v.ownerId);
    out.Element("DataExtName", v.name);
    out.Element("DataExtType", v.type);
    out.Element("DataExtValue", v.value);
    out.Close("DataExtRet");
  }
}

}  // namespace tessaron::qbsim
