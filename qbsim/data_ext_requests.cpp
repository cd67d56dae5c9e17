// The data extension requests: definitions of custom and private fields (DataExtDef…) and
// their values on records (DataExt…), with QuickBooks' rules:
//   - a custom field (owner "0") holds text of up to 255 characters and can be defined for
//     customers, employees, items and vendors only, at most 7 for each of them;
//   - a private field (owner: an application's GUID) has any type and applies to any kind
//     of record, but a record holds at most 4096 bytes of private values;
//   - owner and name together name a definition (names compare without regard to case; a
//     GUID is kept in upper case), and a value needs a definition for its record's type;
//   - a value is cleared only by DataExtDel: DataExtMod refuses an empty value;
//   - a transaction takes the custom fields of its name in its header and of its items on
//     its lines; private fields go on the transaction itself, never on a line.
#include <cctype>
#include <string>
#include <vector>

#include "qbsim/data_ext_store.h"
#include "qbsim/ledger.h"
#include "qbsim/record_kind.h"
#include "qbsim/request_context.h"
#include "qbsim/request_table.h"
#include "qbsim/values.h"
#include "qbsim/xml_out.h"
#include "tessaron/platform/text.h"

namespace tessaron::qbsim {
namespace {

constexpr int kMaxNameLength = 31;
constexpr int kMaxCustomFieldsPerType = 7;
constexpr int64_t kMaxPrivateBytes = 4096;
constexpr const char* kPublicTypes[] = {"Customer", "Employee", "Item", "Vendor"};
constexpr const char* kDataTypes[] = {"INTTYPE",      "AMTTYPE",      "PRICETYPE",  "QUANTYPE",
                                      "PERCENTTYPE", "DATETIMETYPE", "STR255TYPE", "STR1024TYPE"};

bool IsPublic(const std::string& owner) { return owner == "0"; }

bool OneOf(std::span<const char* const> set, std::string_view value) {
  for (const char* s : set)
    if (EqualsIgnoreCase(s, value)) return true;
  return false;
}

// "0" or a GUID in braces.
bool ValidOwner(std::string_view owner) {
  if (owner == "0") return true;
  if (owner.size() != 38 || owner.front() != '{' || owner.back() != '}') return false;
  for (size_t i = 1; i < 37; ++i) {
    const bool dash = i == 9 || i == 14 || i == 19 || i == 24;
    if (dash ? owner[i] != '-' : !std::isxdigit(static_cast<unsigned char>(owner[i]))) return false;
  }
  return true;
}

// `emptyIsPublic`: the library clears a value under the application's GUID, and with none
// registered under an empty owner, which is taken as a custom field's.
Status ReadOwner(const pugi::xml_node& node, std::string& owner, bool emptyIsPublic = false) {
  const std::string_view text = Trim(node.child_value("OwnerID"));
  if (!node.child("OwnerID")) return status::MissingElement("OwnerID");
  if (text.empty() && emptyIsPublic) {
    owner = "0";
    return status::Ok();
  }
  if (!ValidOwner(text)) return status::BadValue("OwnerID", std::string(text));
  owner = CanonicalOwner(text);
  return status::Ok();
}

Status ReadName(const pugi::xml_node& node, const char* tag, std::string& name) {
  name = std::string(Trim(node.child_value(tag)));
  if (name.empty()) return status::MissingElement(tag);
  if (Utf16Length(name) > kMaxNameLength) return status::TooLong(tag, name, kMaxNameLength);
  return status::Ok();
}

// A custom field may be assigned to a type only while that type has fewer than the most.
Status CheckAssignable(DataExtStore& store, const std::string& owner, const std::string& type) {
  if (!IsPublic(owner)) return status::Ok();
  if (!OneOf(kPublicTypes, type)) return status::BadValue("AssignToObject", type);
  if (store.CountPublicAssigned(type) >= kMaxCustomFieldsPerType)
    return status::Refused("no more than " + std::to_string(kMaxCustomFieldsPerType) + " custom fields can be defined for " + type + ".");
  return status::Ok();
}

void WriteDefRet(XmlOut& out, const DataExtDef& d) {
  out.Open("DataExtDefRet");
  out.Element("OwnerID", d.ownerId);
  out.Element("DataExtID", std::to_string(d.id));
  out.Element("DataExtName", d.name);
  out.Element("DataExtType", d.type);
  for (const std::string& t : d.assigned) out.Element("AssignToObject", t);
  out.Element("DataExtListRequire", "false");
  out.Element("DataExtTxnRequire", "false");
  out.Element("DataExtFormatString", "");
  out.Close("DataExtDefRet");
}

bool Assigned(const DataExtDef& d, std::string_view type) {
  for (const std::string& t : d.assigned)
    if (EqualsIgnoreCase(t, type)) return true;
  return false;
}

// ---------------------------------------------------------------- definitions

Status DefAdd(RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
  pugi::xml_node node = rq.child("DataExtDefAdd");
  if (!node) return status::MissingElement("DataExtDefAdd");
  DataExtDef d;
  if (Status s = ReadOwner(node, d.ownerId); !s.Ok()) return s;
  if (Status s = ReadName(node, "DataExtName", d.name); !s.Ok()) return s;
  d.type = std::string(Trim(node.child_value("DataExtType")));
  if (!OneOf(kDataTypes, d.type)) return status::BadValue("DataExtType", d.type);
  for (char& c : d.type) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  // What a QuickBooks user sees as a custom field is text.
  if (IsPublic(d.ownerId) && d.type != "STR255TYPE") return status::BadValue("DataExtType", d.type);
  DataExtStore store(ctx.file);
  if (store.FindDef(d.ownerId, d.name)) return status::NameInUse(d.name);
  for (pugi::xml_node a = node.child("AssignToObject"); a; a = a.next_sibling("AssignToObject")) {
    std::string type(Trim(a.text().get()));
    if (Assigned(d, type)) continue;
    if (Status s = CheckAssignable(store, d.ownerId, type); !s.Ok()) return s;
    d.assigned.push_back(type);
  }
  WriteScope scope(ctx.file);
  store.InsertDef(d);
  scope.Commit();
  WriteDefRet(out, d);
  return status::Ok();
}

Status DefMod(RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
  pugi::xml_node node = rq.child("DataExtDefMod");
  if (!node) return status::MissingElement("DataExtDefMod");
  std::string owner, name;
  if (Status s = ReadOwner(node, owner); !s.Ok()) return s;
  if (Status s = ReadName(node, "DataExtName", name); !s.Ok()) return s;
  DataExtStore store(ctx.file);
  std::optional<DataExtDef> d = store.FindDef(owner, name);
  if (!d) return status::ObjectNotFound(name);
  if (node.child("DataExtNewName")) {
    std::string newName;
    if (Status s = ReadName(node, "DataExtNewName", newName); !s.Ok()) return s;
    if (auto holder = store.FindDef(owner, newName); holder && holder->id != d->id) return status::NameInUse(newName);
    d->name = newName;
  }
  for (pugi::xml_node a = node.child("AssignToObject"); a; a = a.next_sibling("AssignToObject")) {
    std::string type(Trim(a.text().get()));
    if (Assigned(*d, type)) continue;
    if (Status s = CheckAssignable(store, owner, type); !s.Ok()) return s;
    d->assigned.push_back(type);
  }
  for (pugi::xml_node r = node.child("RemoveFromObject"); r; r = r.next_sibling("RemoveFromObject")) {
    const std::string_view type = Trim(r.text().get());
    std::erase_if(d->assigned, [&](const std::string& t) { return EqualsIgnoreCase(t, type); });
  }
  WriteScope scope(ctx.file);
  store.UpdateDef(*d);
  scope.Commit();
  WriteDefRet(out, *d);
  return status::Ok();
}

Status DefDel(RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
  std::string owner, name;
  if (Status s = ReadOwner(rq, owner); !s.Ok()) return s;
  if (Status s = ReadName(rq, "DataExtName", name); !s.Ok()) return s;
  DataExtStore store(ctx.file);
  std::optional<DataExtDef> d = store.FindDef(owner, name);
  if (!d) return status::ObjectNotFound(name);
  WriteScope scope(ctx.file);
  store.DeleteDef(*d);
  scope.Commit();
  out.Open("DataExtDefDelRet");
  out.Element("OwnerID", d->ownerId);
  out.Element("DataExtName", d->name);
  out.Element("TimeDeleted", scope.Timestamp());
  out.Close("DataExtDefDelRet");
  return status::Ok();
}

Status DefQuery(RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
  std::vector<std::string> owners, types;
  for (pugi::xml_node c = rq.first_child(); c; c = c.next_sibling()) {
    const std::string_view tag = c.name();
    if (tag == "OwnerID") {
      if (!ValidOwner(Trim(c.text().get()))) return status::BadValue("OwnerID", c.text().get());
      owners.push_back(CanonicalOwner(c.text().get()));
    } else if (tag == "AssignToObject") {
      types.emplace_back(Trim(c.text().get()));
    }
  }
  std::vector<DataExtDef> defs = DataExtStore(ctx.file).Defs(owners, types);
  for (const DataExtDef& d : defs) WriteDefRet(out, d);
  return defs.empty() ? status::NoMatch() : status::Ok();
}

// ---------------------------------------------------------------- values

// The record a value request names.
struct Target {
  std::string typeTag;  // ListDataExtType, TxnDataExtType or OtherDataExtType
  std::string type;     // its text: "Customer", "Invoice", "Company"
  std::string recordId;
  std::string lineId;
};

Status ReadTarget(RequestContext& ctx, const pugi::xml_node& node, Target& t) {
  if (pugi::xml_node list = node.child("ListDataExtType")) {
    t.typeTag = "ListDataExtType";
    t.type = std::string(Trim(list.text().get()));
    pugi::xml_node ref = node.child("ListObjRef");
    if (!ref) return status::MissingElement("ListObjRef");
    std::optional<ListRecord> rec;
    if (ref.child("ListID")) {
      rec = ctx.store.ByListId(Trim(ref.child_value("ListID")));
    } else {
      std::vector<std::string> kinds;
      for (const ListKind& k : ListKinds())
        if (EqualsIgnoreCase(t.type, "Item") ? std::string_view(k.nameSpace) == "Item" : EqualsIgnoreCase(t.type, k.name))
          kinds.emplace_back(k.name);
      std::vector<ListRecord> found = ctx.store.ByFullName(std::span<const std::string>(kinds), ref.child_value("FullName"));
      if (!found.empty()) rec = found.front();
    }
    const ListKind* kind = rec ? FindListKind(rec->kind) : nullptr;
    // Every kind of item is an Item here.
    const bool fits = kind && (EqualsIgnoreCase(t.type, "Item") ? std::string_view(kind->nameSpace) == "Item"
                                                               : EqualsIgnoreCase(t.type, kind->name));
    if (!fits) {
      std::string key = ref.child("ListID") ? ref.child_value("ListID") : ref.child_value("FullName");
      return status::InvalidReference("ListObjRef", key);
    }
    t.recordId = rec->listId;
    return status::Ok();
  }
  if (pugi::xml_node txn = node.child("TxnDataExtType")) {
    t.typeTag = "TxnDataExtType";
    t.type = std::string(Trim(txn.text().get()));
    t.recordId = std::string(Trim(node.child_value("TxnID")));
    if (t.recordId.empty()) return status::MissingElement("TxnID");
    t.lineId = std::string(Trim(node.child_value("TxnLineID")));
    // The document must be on file as that kind, and the line one of its lines.
    LedgerStore ledger(ctx.file);
    std::optional<TxnRecord> rec = ledger.ByTxnId(t.recordId);
    if (!rec || !EqualsIgnoreCase(rec->kind, t.type)) return status::InvalidReference("TxnID", t.recordId);
    if (!t.lineId.empty()) {
      bool found = false;
      for (const TxnLineRecord& line : ledger.Lines(t.recordId)) found = found || line.lineId == t.lineId;
      if (!found) return status::InvalidReference("TxnLineID", t.lineId);
    }
    return status::Ok();
  }
  if (pugi::xml_node other = node.child("OtherDataExtType")) {
    t.typeTag = "OtherDataExtType";
    t.type = std::string(Trim(other.text().get()));
    return status::Ok();  // the company: a record of its own, with the empty id
  }
  return status::MissingElement("ListDataExtType");
}

void WriteTarget(RequestContext& ctx, XmlOut& out, const Target& t) {
  out.Element(t.typeTag, t.type);
  if (t.typeTag == "ListDataExtType") {
    out.Open("ListObjRef");
    out.Element("ListID", t.recordId);
    out.Element("FullName", ctx.store.FullNameOf(t.recordId));
    out.Close("ListObjRef");
  } else if (t.typeTag == "TxnDataExtType") {
    out.Element("TxnID", t.recordId);
    if (!t.lineId.empty()) out.Element("TxnLineID", t.lineId);
  }
}

// The canonical text of a value of the definition's type.
Status ValueOfType(const DataExtDef& d, std::string_view text, std::string& value) {
  std::optional<std::string> v;
  if (d.type == "INTTYPE") v = Canonical(ValueType::Integer, text);
  else if (d.type == "AMTTYPE") v = Canonical(ValueType::Amount, text);
  else if (d.type == "PRICETYPE") v = Canonical(ValueType::Price, text);
  else if (d.type == "QUANTYPE") v = Canonical(ValueType::Quantity, text);
  else if (d.type == "PERCENTTYPE") v = Canonical(ValueType::Percent, text);
  else if (d.type == "DATETIMETYPE") {
    double serial = 0;
    if (ParseTimestamp(Trim(text), serial)) v = std::string(Trim(text));
  } else {
    const int limit = d.type == "STR1024TYPE" ? 1024 : 255;
    if (Utf16Length(text) > static_cast<size_t>(limit)) return status::TooLong("DataExtValue", std::string(text), limit);
    v = std::string(text);
  }
  if (!v || v->empty()) return status::BadValue("DataExtValue", std::string(text));
  value = *v;
  return status::Ok();
}

// A document takes the custom fields of its name (customer, vendor, employee) in its
// header and those of its items on its lines: a custom field is never assigned to a kind
// of transaction itself.
bool InheritedByTransaction(const DataExtDef& d, const Target& t) {
  if (t.typeTag != "TxnDataExtType" || !IsPublic(d.ownerId)) return false;
  if (!t.lineId.empty()) return Assigned(d, "Item");
  return Assigned(d, "Customer") || Assigned(d, "Vendor") || Assigned(d, "Employee");
}

// The definition and record of a value request, checked against each other.
Status ReadValueRequest(RequestContext& ctx, const pugi::xml_node& node, DataExtStore& store,
                        std::optional<DataExtDef>& def, Target& target, bool deleting = false) {
  std::string owner, name;
  if (Status s = ReadOwner(node, owner, deleting); !s.Ok()) return s;
  if (Status s = ReadName(node, "DataExtName", name); !s.Ok()) return s;
  def = store.FindDef(owner, name);
  if (!def) return status::ObjectNotFound(name);
  if (Status s = ReadTarget(ctx, node, target); !s.Ok()) return s;
  if (target.typeTag == "TxnDataExtType" && !target.lineId.empty() && !IsPublic(def->ownerId))
    return status::Refused("private data cannot be kept on transaction lines.");
  if (!Assigned(*def, target.type) && !InheritedByTransaction(*def, target))
    return Status{status::kObjectNotFound,
                  "The data extension '" + def->name + "' is not defined for " + target.type + "."};
  return status::Ok();
}

void WriteValueRet(XmlOut& out, const DataExtDef& d, const std::string& value) {
  out.Open("DataExtRet");
  out.Element("OwnerID", d.ownerId);
  out.Element("DataExtName", d.name);
  out.Element("DataExtType", d.type);
  out.Element("DataExtValue", value);
  out.Close("DataExtRet");
}

// DataExtAdd (adding) and DataExtMod: the value is written when it fits its type.
Status PutValue(RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out, bool adding) {
  pugi::xml_node node = rq.child(adding ? "DataExtAdd" : "DataExtMod");
  if (!node) return status::MissingElement(adding ? "DataExtAdd" : "DataExtMod");
  DataExtStore store(ctx.file);
  std::optional<DataExtDef> def;
  Target target;
  if (Status s = ReadValueRequest(ctx, node, store, def, target); !s.Ok()) return s;
  std::string value;
  if (Status s = ValueOfType(*def, node.child_value("DataExtValue"), value); !s.Ok()) return s;
  const bool held = store.Value(*def, target.recordId, target.lineId).has_value();
  if (adding && held) return Status{status::kNameInUse, "The data extension '" + def->name + "' already has a value here."};
  if (!adding && !held) return status::ObjectNotFound(def->name);
  if (!IsPublic(def->ownerId) &&
      store.PrivateBytes(target.recordId, def->id) + static_cast<int64_t>(value.size()) > kMaxPrivateBytes)
    return status::Refused("a record holds at most " + std::to_string(kMaxPrivateBytes) + " bytes of private data.");
  WriteScope scope(ctx.file);
  store.PutValue(*def, target.recordId, target.lineId, value);
  scope.Commit();
  WriteValueRet(out, *def, value);
  return status::Ok();
}

Status ValueDel(RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
  pugi::xml_node node = rq.child("DataExtDel");
  if (!node) return status::MissingElement("DataExtDel");
  DataExtStore store(ctx.file);
  std::optional<DataExtDef> def;
  Target target;
  if (Status s = ReadValueRequest(ctx, node, store, def, target, true); !s.Ok()) return s;
  if (!store.Value(*def, target.recordId, target.lineId)) return status::ObjectNotFound(def->name);
  WriteScope scope(ctx.file);
  store.DeleteValue(*def, target.recordId, target.lineId);
  // The answer names the record, which reads the file: written before the commit, so that a
  // failing read cannot refuse a change already made.
  out.Open("DataExtDelRet");
  out.Element("OwnerID", def->ownerId);
  out.Element("DataExtName", def->name);
  WriteTarget(ctx, out, target);
  out.Element("TimeDeleted", scope.Timestamp());
  out.Close("DataExtDelRet");
  scope.Commit();
  return status::Ok();
}

}  // namespace

void RegisterDataExtRequests(RequestTable& table) {
  table.Add("DataExtDefAddRq", {DefAdd, nullptr, 20});
  table.Add("DataExtDefModRq", {DefMod, nullptr, 20});
  table.Add("DataExtDefDelRq", {DefDel, nullptr, 20});
  table.Add("DataExtDefQueryRq", {DefQuery, nullptr, 20});
  table.Add("DataExtAddRq", {[](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) { return PutValue(ctx, rq, out, true); },
                             nullptr, 20});
  table.Add("DataExtModRq", {[](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) { return PutValue(ctx, rq, out, false); },
                             nullptr, 20});
  table.Add("DataExtDelRq", {ValueDel, nullptr, 20});
}

}  // namespace tessaron::qbsim
