// Queries, adds, modifies and deletes of list records: XxxQueryRq, XxxAddRq, XxxModRq and
// ListDelRq for every kind of the list tables.
#include <algorithm>
#include <vector>

#include "qbsim/data_ext_store.h"
#include "qbsim/ledger.h"
#include "qbsim/ledger_balances.h"
#include "qbsim/record_reader.h"
#include "qbsim/record_writer.h"
#include "qbsim/request_context.h"
#include "qbsim/request_table.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/text.h"

namespace tessaron::qbsim {
namespace {

// ---------------------------------------------------------------- queries

constexpr const char* kActiveStatus[] = {"ActiveOnly", "InactiveOnly", "All"};
constexpr const char* kMatchCriteria[] = {"StartsWith", "Contains", "EndsWith"};
constexpr const char* kOperators[] = {"LessThan", "LessThanEqual", "Equal", "GreaterThan", "GreaterThanEqual"};
constexpr const char* kDoneStatus[] = {"NotDoneOnly", "DoneOnly", "All"};

struct QueryRequest {
  std::vector<std::string> listIds, fullNames;
  ListSelection selection;
  std::string match, matchName;
  std::string balanceOperator;
  int64_t balanceAmount = 0;
  std::vector<std::string> accountTypes;
  std::string doneStatus;
  std::vector<std::string> dataExtOwners;  // OwnerID: whose data extensions to answer
};

bool TextMatches(std::string_view fullName, const std::string& criterion, const std::string& name) {
  std::string hay = FoldCase(fullName), needle = FoldCase(name);
  if (criterion == "StartsWith") return StartsWith(hay, needle);
  if (criterion == "EndsWith") return EndsWith(hay, needle);
  return hay.find(needle) != std::string::npos;
}

bool Compare(int64_t a, const std::string& op, int64_t b) {
  if (op == "LessThan") return a < b;
  if (op == "LessThanEqual") return a <= b;
  if (op == "Equal") return a == b;
  if (op == "GreaterThan") return a > b;
  return a >= b;
}

// A modified-date bound: a date alone covers its whole day.
Status ParseModified(const pugi::xml_node& c, bool upper, std::optional<double>& out) {
  std::string text = c.text().get();
  double d = 0;
  if (!ParseTimestamp(text, d)) return status::BadValue(c.name(), text);
  bool dateOnly = Trim(text).size() <= 10;
  if (upper) d += dateOnly ? 1.0 : 1.0 / 86400.0;
  out = d;
  return status::Ok();
}

Status ReadQuery(RequestContext& ctx, const pugi::xml_node& request, QueryRequest& q) {
  for (pugi::xml_node c = request.first_child(); c; c = c.next_sibling()) {
    if (c.type() != pugi::node_element) continue;
    std::string_view tag = c.name();
    std::string text = c.text().get();
    if (tag == "ListID") {
      q.listIds.push_back(std::string(Trim(text)));
    } else if (tag == "FullName") {
      q.fullNames.push_back(text);
    } else if (tag == "MaxReturned") {
      auto v = Canonical(ValueType::Integer, text);
      if (!v || v->empty() || std::stoi(*v) < 0) return status::BadValue("MaxReturned", text);
      q.selection.limit = std::stoi(*v);
    } else if (tag == "ActiveStatus") {
      auto v = Canonical(ValueType::Enum, text, kActiveStatus);
      if (!v || v->empty()) return status::BadValue("ActiveStatus", text);
      q.selection.active = *v == "All" ? std::nullopt : std::optional<bool>(*v == "ActiveOnly");
    } else if (tag == "FromModifiedDate") {
      if (Status s = ParseModified(c, false, q.selection.modifiedFrom); !s.Ok()) return s;
    } else if (tag == "ToModifiedDate") {
      if (Status s = ParseModified(c, true, q.selection.modifiedTo); !s.Ok()) return s;
    } else if (tag == "NameFilter") {
      auto v = Canonical(ValueType::Enum, c.child_value("MatchCriterion"), kMatchCriteria);
      if (!v || v->empty()) return status::BadValue("MatchCriterion", c.child_value("MatchCriterion"));
      q.match = *v;
      q.matchName = c.child_value("Name");
    } else if (tag == "NameRangeFilter") {
      if (c.child("FromName")) q.selection.fromName = c.child_value("FromName");
      if (c.child("ToName")) q.selection.toName = c.child_value("ToName");
    } else if (tag == "TotalBalanceFilter") {
      auto op = Canonical(ValueType::Enum, c.child_value("Operator"), kOperators);
      auto amount = Canonical(ValueType::Amount, c.child_value("Amount"));
      if (!op || op->empty()) return status::BadValue("Operator", c.child_value("Operator"));
      if (!amount || amount->empty()) return status::BadValue("Amount", c.child_value("Amount"));
      q.balanceOperator = *op;
      q.balanceAmount = Currency::Parse(*amount).Raw();
    } else if (tag == "AccountType") {
      const ListKind* account = FindListKind("Account");
      const Field* f = FindRequestField(account->fields, "AccountType", kInAdd);
      auto v = Canonical(ValueType::Enum, text, f->enumValues);
      if (!v || v->empty()) return status::BadValue("AccountType", text);
      q.accountTypes.push_back(*v);
    } else if (tag == "DoneStatus") {
      auto v = Canonical(ValueType::Enum, text, kDoneStatus);
      if (!v || v->empty()) return status::BadValue("DoneStatus", text);
      q.doneStatus = *v;
    } else if (tag == "OwnerID") {
      q.dataExtOwners.push_back(CanonicalOwner(text));
    } else if (ctx.Strict()) {
      return status::NotSupported("The element " + std::string(tag) + " in " + request.name());
    }
  }
  return status::Ok();
}

// The per-kind filters that look into a record's fields.
bool Accepts(RequestContext& ctx, const QueryRequest& q, const RecordRow& row, FieldView& fields) {
  if (!q.match.empty() && !TextMatches(row.fullName, q.match, q.matchName)) return false;
  if (!q.balanceOperator.empty() && !Compare(LedgerBalance(ctx, row, true), q.balanceOperator, q.balanceAmount)) return false;
  if (!q.accountTypes.empty() || !q.doneStatus.empty()) {
    fields.Parse(row.body);
    if (!q.accountTypes.empty()) {
      const std::string_view* t = fields.Find("AccountType");
      if (!t || std::find(q.accountTypes.begin(), q.accountTypes.end(), *t) == q.accountTypes.end()) return false;
    }
    if (!q.doneStatus.empty() && q.doneStatus != "All") {
      const std::string_view* d = fields.Find("IsDone");
      bool done = d && *d == "true";
      if (done != (q.doneStatus == "DoneOnly")) return false;
    }
  }
  return true;
}

Status Query(RequestContext& ctx, std::vector<const ListKind*> kinds, const pugi::xml_node& request, XmlOut& out) {
  QueryRequest q;
  if (Status s = ReadQuery(ctx, request, q); !s.Ok()) return s;
  for (const ListKind* k : kinds) {
    if (k->nonUsOnly && ctx.IsUS()) return status::NotSupported(std::string("The ") + k->name + " list in the US edition");
    if (k->usOnly && !ctx.IsUS()) return status::NotSupported(std::string("The ") + k->name + " list in this edition");
    q.selection.kinds.push_back(k->name);
  }
  auto kindOf = [&](std::string_view name) -> const ListKind* {
    for (const ListKind* k : kinds)
      if (name == k->name) return k;
    return nullptr;
  };
  RecordWriter writer(ctx);
  int written = 0;
  const int limit = q.selection.limit;

  if (!q.listIds.empty() || !q.fullNames.empty()) {
    // Records asked for by key: a key that finds nothing is a failure, not an empty answer.
    std::string missing, missingElement;
    for (const std::string& id : q.listIds) {
      auto rec = ctx.store.ByListId(id);
      if (rec && kindOf(rec->kind)) {
        if (limit == 0 || written < limit) writer.WriteRet(out, *kindOf(rec->kind), rec->View(), q.dataExtOwners), ++written;
      } else if (missing.empty()) {
        missing = id, missingElement = "ListID";
      }
    }
    for (const std::string& name : q.fullNames) {
      auto recs = ctx.store.ByFullName(std::span<const std::string>(q.selection.kinds), name);
      for (const ListRecord& rec : recs)
        if (limit == 0 || written < limit) writer.WriteRet(out, *kindOf(rec.kind), rec.View(), q.dataExtOwners), ++written;
      if (recs.empty() && missing.empty()) missing = name, missingElement = "FullName";
    }
    if (!missing.empty()) return status::NotFoundByKey(missingElement, missing);
    return status::Ok();
  }

  if (!q.selection.active && !request.child("ActiveStatus")) q.selection.active = true;  // QuickBooks' default
  bool inner = !q.match.empty() || !q.balanceOperator.empty() || !q.accountTypes.empty() || !q.doneStatus.empty();
  if (inner) q.selection.limit = 0;  // the limit counts what passes the inner filters
  FieldView fields;
  ctx.store.Select(q.selection, [&](const RecordRow& row) {
    if (inner && !Accepts(ctx, q, row, fields)) return true;
    writer.WriteRet(out, *kindOf(row.kind), row, q.dataExtOwners);
    ++written;
    return limit == 0 || written < limit;
  });
  return written == 0 ? status::NoMatch() : status::Ok();
}

// ---------------------------------------------------------------- adds and modifies

std::string ParentFullName(RequestContext& ctx, const std::string& parentListId) {
  return parentListId.empty() ? std::string() : ctx.store.FullNameOf(parentListId);
}

// The record's name must be free in its name space: 3100, or 3180 for an item of another kind.
Status CheckName(RequestContext& ctx, const ListKind& kind, const std::string& fullName, const std::string& self) {
  if (!kind.uniqueNames) return status::Ok();
  auto holder = ctx.store.NameHolder(kind.nameSpace, fullName, self);
  if (!holder) return status::Ok();
  if (std::string_view(kind.nameSpace) == "Item" && holder->kind != kind.name)
    return status::ItemNameInUse(kind.name, fullName);
  return status::NameInUse(fullName);
}

// A sub-account has the type of its parent; an account with sub-accounts keeps its type,
// for they have it too.
Status CheckAccountType(RequestContext& ctx, const ListKind& kind, const ListRecord& rec, const FieldMap& body,
                        const std::string& oldType) {
  if (std::string_view(kind.name) != "Account") return status::Ok();
  const std::string type(body.Get("AccountType"));
  if (!rec.parentListId.empty()) {
    if (auto parent = ctx.store.ByListId(rec.parentListId)) {
      const std::string parentType(FieldMap::Decode(parent->body).Get("AccountType"));
      if (parentType != type) return status::AccountTypeOfParent(type, parentType, parent->fullName);
    }
  }
  if (!oldType.empty() && oldType != type && !rec.listId.empty()) {
    auto children = ctx.store.Children(rec.listId);
    if (!children.empty()) return status::AccountTypeOfParent(oldType, type, rec.fullName);
  }
  return status::Ok();
}

// An employee without a name is named after the person.
std::string PersonName(const FieldMap& body) {
  std::string name;
  for (const char* part : {"FirstName", "MiddleName", "LastName"}) {
    std::string_view v = body.Get(part);
    if (v.empty()) continue;
    if (!name.empty()) name += ' ';
    name += v;
  }
  return name;
}

void WriteSaved(RequestContext& ctx, const ListKind& kind, const std::string& listId, XmlOut& out) {
  auto rec = ctx.store.ByListId(listId);
  if (rec) RecordWriter(ctx).WriteRet(out, kind, rec->View());
}

Status Add(RequestContext& ctx, const ListKind& kind, const pugi::xml_node& request, XmlOut& out) {
  if (!kind.canAdd) return status::NotSupported(std::string(kind.name) + "AddRq");
  pugi::xml_node node = request.child((std::string(kind.name) + "Add").c_str());
  if (!node) return status::MissingElement(std::string(kind.name) + "Add");
  FieldMap body;
  RecordReader reader(ctx, kind, kInAdd);
  if (Status s = reader.Read(node, body); !s.Ok()) return s;
  if (!reader.name && std::string_view(kind.name) == "Employee") {
    std::string n = PersonName(body);
    if (!n.empty()) reader.name = n;
  }
  if (!reader.name) return status::MissingElement(kind.nameTag);
  if (std::string missing = MissingRequired(kind.fields, body); !missing.empty()) return status::MissingElement(missing);

  ListRecord rec;
  rec.kind = kind.name;
  rec.name = *reader.name;
  rec.isActive = reader.active.value_or(true);
  if (reader.parentGiven && !reader.parentListId.empty()) {
    if (!kind.hierarchical) return status::NotSupported(std::string("ParentRef in ") + kind.name + "Add");
    auto parent = ctx.store.ByListId(reader.parentListId);
    rec.parentListId = parent->listId;
    rec.sublevel = parent->sublevel + 1;
    rec.fullName = parent->fullName + ":" + rec.name;
  } else {
    rec.fullName = rec.name;
  }
  if (Status s = CheckName(ctx, kind, rec.fullName, ""); !s.Ok()) return s;
  if (Status s = CheckAccountType(ctx, kind, rec, body, ""); !s.Ok()) return s;

  int64_t openBalance = 0;
  if (const std::string* ob = body.Find("OpenBalance")) openBalance = Currency::Parse(*ob).Raw();
  std::string openDate(body.Get("OpenBalanceDate"));

  WriteScope scope(ctx.file);
  rec.listId = scope.NewId();
  rec.editSequence = scope.NewEditSequence();
  rec.timeCreated = rec.timeModified = scope.Timestamp();
  rec.body = body.Encode();
  std::vector<std::string> refs;
  CollectRefs(kind.fields, body, refs);
  ctx.store.Insert(rec, refs);
  PostOpeningBalance(ctx.file, ctx.store, scope, rec, openBalance, openDate);
  // The record is read back before the commit: a read that failed after it would refuse a
  // change that was made.
  WriteSaved(ctx, kind, rec.listId, out);
  scope.Commit();
  return status::Ok();
}

bool IsBelow(RequestContext& ctx, const std::string& candidate, const std::string& ancestor) {
  for (std::string id = candidate; !id.empty();) {
    if (id == ancestor) return true;
    auto rec = ctx.store.ByListId(id);
    id = rec ? rec->parentListId : std::string();
  }
  return false;
}

Status Mod(RequestContext& ctx, const ListKind& kind, const pugi::xml_node& request, XmlOut& out) {
  if (!kind.canMod) return status::NotSupported(std::string(kind.name) + "ModRq");
  pugi::xml_node node = request.child((std::string(kind.name) + "Mod").c_str());
  if (!node) return status::MissingElement(std::string(kind.name) + "Mod");
  std::string listId(Trim(node.child_value("ListID")));
  std::string editSequence(Trim(node.child_value("EditSequence")));
  if (listId.empty()) return status::MissingElement("ListID");
  if (editSequence.empty()) return status::MissingElement("EditSequence");
  auto found = ctx.store.ByListId(listId);
  if (!found || found->kind != kind.name) return status::ObjectNotFound(listId);
  ListRecord rec = *found;
  // Optimistic locking: a change made from an older copy of the record is refused whole.
  if (editSequence != rec.editSequence) return status::StaleEditSequence(editSequence);

  FieldMap body = FieldMap::Decode(rec.body);
  const std::string oldType(body.Get("AccountType"));
  RecordReader reader(ctx, kind, kInMod);
  if (Status s = reader.Read(node, body); !s.Ok()) return s;
  if (reader.name) rec.name = *reader.name;
  if (reader.active) rec.isActive = *reader.active;
  const std::string oldParent = rec.parentListId;
  if (reader.parentGiven) {
    if (!kind.hierarchical && !reader.parentListId.empty())
      return status::NotSupported(std::string("ParentRef in ") + kind.name + "Mod");
    if (!reader.parentListId.empty() && IsBelow(ctx, reader.parentListId, rec.listId))
      return status::Refused("a record cannot be placed below itself or below one of its own sub-records.");
    rec.parentListId = reader.parentListId;
  }
  std::string parentName = ParentFullName(ctx, rec.parentListId);
  std::string oldFullName = rec.fullName;
  int oldSublevel = rec.sublevel;
  rec.fullName = parentName.empty() ? rec.name : parentName + ":" + rec.name;
  if (!rec.parentListId.empty()) rec.sublevel = ctx.store.ByListId(rec.parentListId)->sublevel + 1;
  else rec.sublevel = 0;
  if (rec.fullName != oldFullName)
    if (Status s = CheckName(ctx, kind, rec.fullName, rec.listId); !s.Ok()) return s;
  if (Status s = CheckAccountType(ctx, kind, rec, body, oldType); !s.Ok()) return s;

  WriteScope scope(ctx.file);
  rec.editSequence = scope.NewEditSequence();
  rec.timeModified = scope.Timestamp();
  rec.body = body.Encode();
  std::vector<std::string> refs;
  CollectRefs(kind.fields, body, refs);
  ctx.store.Update(rec, refs);
  if (rec.fullName != oldFullName || rec.sublevel != oldSublevel) ctx.store.RenameDescendants(rec, scope);
  if (rec.parentListId != oldParent && rec.totalBalance != 0) {
    // The record's balance moves with it from the old parent's totals to the new one's.
    if (!oldParent.empty()) ctx.store.AddToTotal(oldParent, -rec.totalBalance);
    if (!rec.parentListId.empty()) ctx.store.AddToTotal(rec.parentListId, rec.totalBalance);
  }
  WriteSaved(ctx, kind, rec.listId, out);  // before the commit, as in Add
  scope.Commit();
  return status::Ok();
}

// ---------------------------------------------------------------- deletes

Status Delete(RequestContext& ctx, const pugi::xml_node& request, XmlOut& out) {
  // The library may send the type as its description ("Item Service").
  std::string type;
  for (char c : std::string_view(request.child_value("ListDelType")))
    if (c != ' ') type += c;
  std::string listId(Trim(request.child_value("ListID")));
  if (type.empty()) return status::MissingElement("ListDelType");
  if (listId.empty()) return status::MissingElement("ListID");
  const ListKind* kind = nullptr;
  for (const ListKind& k : ListKinds())
    if (EqualsIgnoreCase(type, k.name)) kind = &k;
  if (!kind) return status::BadValue("ListDelType", type);
  if (!kind->canDelete) return status::NotSupported("Deleting a " + type);
  auto rec = ctx.store.ByListId(listId);
  if (!rec || rec->kind != kind->name) return status::ObjectNotFound(listId);
  if (!ctx.store.Children(listId).empty()) return status::InUse(rec->fullName, "it has sub-items.");
  if (ctx.store.ReferenceCount(listId) > 0) return status::InUse(rec->fullName, "other records refer to it.");
  if (LedgerStore(ctx.file).ReferenceCount(listId) > 0) return status::InUse(rec->fullName, "transactions refer to it.");

  WriteScope scope(ctx.file);
  ctx.store.Delete(*rec, scope);
  if (!rec->parentListId.empty() && rec->totalBalance != 0) ctx.store.AddToTotal(rec->parentListId, -rec->totalBalance);
  scope.Commit();
  out.Element("ListDelType", kind->name);
  out.Element("ListID", rec->listId);
  out.Element("TimeDeleted", scope.Timestamp());
  out.Element("FullName", rec->fullName);
  return status::Ok();
}

// The deleted-items log: what ListDelRq removed, by kind and time.
Status DeletedQuery(RequestContext& ctx, const pugi::xml_node& request, XmlOut& out) {
  std::vector<std::string> kinds;
  std::optional<double> from, to;
  for (pugi::xml_node c = request.first_child(); c; c = c.next_sibling()) {
    std::string_view tag = c.name();
    if (tag == "ListDelType") {
      const ListKind* kind = nullptr;
      for (const ListKind& k : ListKinds())
        if (EqualsIgnoreCase(Trim(c.text().get()), k.name)) kind = &k;
      if (!kind) return status::BadValue("ListDelType", c.text().get());
      kinds.push_back(kind->name);
    } else if (tag == "DeletedDateRangeFilter") {
      if (pugi::xml_node f = c.child("FromDeletedDate"))
        if (Status s = ParseModified(f, false, from); !s.Ok()) return s;
      if (pugi::xml_node t = c.child("ToDeletedDate"))
        if (Status s = ParseModified(t, true, to); !s.Ok()) return s;
    }
  }
  if (kinds.empty()) return status::MissingElement("ListDelType");
  int written = 0;
  ctx.store.SelectDeleted(kinds, from, to, [&](const DeletedRow& row) {
    out.Open("ListDeletedRet");
    out.Element("ListDelType", row.kind);
    out.Element("ListID", row.id);
    out.Element("TimeCreated", row.timeCreated);
    out.Element("TimeDeleted", row.timeDeleted);
    out.Element("FullName", row.fullName);
    out.Close("ListDeletedRet");
    ++written;
  });
  return written == 0 ? status::NoMatch() : status::Ok();
}

// ---------------------------------------------------------------- strict checks

std::string Unavailable(const std::string& what, int version) {
  return what + " is not available in qbXML version " + VersionText(version) + ".";
}

// Fields the message's version or edition does not have, in an add or modify body.
std::string CheckFields(RequestContext& ctx, std::span<const Field> fields, const pugi::xml_node& node, uint16_t form) {
  for (pugi::xml_node c = node.first_child(); c; c = c.next_sibling()) {
    if (c.type() != pugi::node_element) continue;
    const Field* f = FindRequestField(fields, c.name(), form);
    if (!f) continue;
    int min = form == kInAdd ? f->addMinVersion : f->modMinVersion;
    if (ctx.version < min) return Unavailable(c.name(), ctx.version);
    if ((f->flags & kUsOnly) && !ctx.IsUS())
      return std::string(c.name()) + " is not available in the " + EditionName(ctx.edition) + " edition.";
    if (f->kind == FieldKind::Group || f->kind == FieldKind::RepeatedGroup)
      if (std::string p = CheckFields(ctx, f->children, c, form); !p.empty()) return p;
  }
  return {};
}

std::string CheckKind(RequestContext& ctx, const ListKind& kind) {
  if (ctx.version < kind.minVersion) return Unavailable(std::string("The ") + kind.name + " list", ctx.version);
  return {};
}

std::string CheckQuery(RequestContext& ctx, const pugi::xml_node& request) {
  for (pugi::xml_node c = request.first_child(); c; c = c.next_sibling()) {
    std::string_view tag = c.name();
    if (tag == "OwnerID" && ctx.version < 20) return Unavailable("OwnerID", ctx.version);
    // Below 2.0 the modified-date filters take a date only.
    if ((tag == "FromModifiedDate" || tag == "ToModifiedDate") && ctx.version < 20 &&
        std::string_view(c.text().get()).find('T') != std::string_view::npos)
      return Unavailable(std::string("A time in ") + c.name(), ctx.version);
  }
  return {};
}

// The add (kInAdd) or modify (kInMod) request of a kind.
RequestEntry ChangeEntry(const ListKind* kind, uint16_t form) {
  RequestEntry e;
  e.handle = [kind, form](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
    return form == kInAdd ? Add(ctx, *kind, rq, out) : Mod(ctx, *kind, rq, out);
  };
  e.check = [kind, form](RequestContext& ctx, const pugi::xml_node& rq) {
    std::string p = CheckKind(ctx, *kind);
    return p.empty() ? CheckFields(ctx, kind->fields, rq.first_child(), form) : p;
  };
  e.minVersion = kind->minVersion;
  return e;
}

}  // namespace

void RegisterListRequests(RequestTable& table) {
  for (const ListKind& k : ListKinds()) {
    const ListKind* kind = &k;
    table.Add(std::string(k.name) + "QueryRq",
              {[kind](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) { return Query(ctx, {kind}, rq, out); },
               [kind](RequestContext& ctx, const pugi::xml_node& rq) {
                 std::string p = CheckKind(ctx, *kind);
                 return p.empty() ? CheckQuery(ctx, rq) : p;
               },
               k.minVersion});
    if (k.canAdd) table.Add(std::string(k.name) + "AddRq", ChangeEntry(kind, kInAdd));
    if (k.canMod) table.Add(std::string(k.name) + "ModRq", ChangeEntry(kind, kInMod));
  }
  for (const QueryFamily& family : QueryFamilies()) {
    std::vector<const ListKind*> kinds;
    for (const char* name : family.kinds) kinds.push_back(FindListKind(name));
    table.Add(std::string(family.name) + "QueryRq",
              {[kinds](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) { return Query(ctx, kinds, rq, out); },
               CheckQuery, 10});
  }
  table.Add("ListDelRq", {Delete, nullptr, 10});
  table.Add("ListDeletedQueryRq", {DeletedQuery, nullptr, 21});
}

}  // namespace tessaron::qbsim
