// Requests on transactions, shared by every kind of txn_kind.h: XxxAddRq, XxxModRq,
// XxxQueryRq (every filter), TxnDelRq, TxnVoidRq and TxnDeletedQueryRq. Each change is
// stored with its postings in the one SQLite transaction of the request.
#include <algorithm>
#include <set>
#include <sstream>

#include "qbsim/company_records.h"
#include "qbsim/data_ext_store.h"
#include "qbsim/date_range.h"
#include "qbsim/record_reader.h"
#include "qbsim/record_writer.h"
#include "qbsim/request_context.h"
#include "qbsim/request_table.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/text.h"

namespace tessaron::qbsim {
namespace {

ListKind ReaderKind(const char* name, std::span<const Field> fields) {
  ListKind k;
  k.name = name;
  k.fields = fields;
  return k;
}

bool IsLineTag(const TxnKind& kind, std::string_view tag) {
  std::string line = kind.lineTag, group = kind.groupTag;
  return tag == line + "Add" || tag == line + "Mod" || tag == group + "Add" || tag == group + "Mod";
}

// The header of an add or modify: everything but the lines and the keys.
Status ReadHeader(RequestContext& ctx, const TxnKind& kind, const pugi::xml_node& node, uint16_t form, FieldMap& header) {
  pugi::xml_document copy;
  pugi::xml_node root = copy.append_child(node.name());
  for (pugi::xml_node c = node.first_child(); c; c = c.next_sibling()) {
    std::string_view tag = c.name();
    if (c.type() != pugi::node_element || IsLineTag(kind, tag) || tag == "TxnID" || tag == "EditSequence") continue;
    root.append_copy(c);
  }
  ListKind k = ReaderKind(kind.name, kind.header);
  return RecordReader(ctx, k, form).Read(root, header);
}

Status ReadLine(RequestContext& ctx, const TxnKind& kind, const pugi::xml_node& node, bool group, uint16_t form,
                TxnLine& line) {
  ListKind k = ReaderKind(group ? "GroupLine" : "Line", group ? SalesGroupLineFields() : kind.lineFields);
  // The members of a group come from the group item again; member lines in a modify of the
  // group are taken as read.
  pugi::xml_document copy;
  pugi::xml_node root = copy.append_child(node.name());
  for (pugi::xml_node c = node.first_child(); c; c = c.next_sibling())
    if (!group || std::string_view(c.name()).find("LineMod") == std::string_view::npos) root.append_copy(c);
  if (Status s = RecordReader(ctx, k, form).Read(root, line.fields); !s.Ok()) return s;
  line.fields.Erase("TxnLineID");
  line.isGroup = group;
  return status::Ok();
}

// The lines of an add; or of a modify, where a line names the stored line it changes by
// TxnLineID, "-1" is a new line, and stored lines left out are removed.
Status ReadLines(RequestContext& ctx, const TxnKind& kind, const pugi::xml_node& node, uint16_t form,
                 std::vector<TxnLine>& lines) {
  std::vector<TxnLine> stored = std::move(lines);
  lines.clear();
  bool any = false;
  const std::string suffix = form == kInAdd ? "Add" : "Mod";
  for (pugi::xml_node c = node.first_child(); c; c = c.next_sibling()) {
    std::string_view tag = c.name();
    bool group = tag == std::string(kind.groupTag) + suffix;
    if (!group && tag != std::string(kind.lineTag) + suffix) continue;
    any = true;
    TxnLine line;
    if (form == kInMod) {
      std::string id(Trim(c.child_value("TxnLineID")));
      if (id.empty()) return status::MissingElement("TxnLineID");
      if (id != "-1") {
        auto it = std::find_if(stored.begin(), stored.end(), [&](const TxnLine& l) { return l.lineId == id; });
        if (it == stored.end() || it->isGroup != group) return status::ObjectNotFound(id);
        line = std::move(*it);
        stored.erase(it);
        // A new item, quantity or rate works the amount out again unless one is given.
        if (!c.child("Amount") && (c.child("ItemRef") || c.child("Quantity") || c.child("Rate") || c.child("RatePercent")))
          line.fields.Erase("Amount");
        if (c.child("ItemRef")) {
          if (!c.child("Desc")) line.fields.Erase("Desc");
          if (!c.child("Rate") && !c.child("RatePercent")) line.fields.Erase("Rate"), line.fields.Erase("RatePercent");
          if (!c.child("SalesTaxCodeRef")) line.fields.Erase("SalesTaxCodeRef");
        }
      }
    }
    if (Status s = ReadLine(ctx, kind, c, group, form, line); !s.Ok()) return s;
    lines.push_back(std::move(line));
  }
  if (!any && form == kInMod) lines = std::move(stored);  // no line elements: the lines stay
  return status::Ok();
}

TxnDocument Load(LedgerStore& ledger, const TxnRecord& rec) {
  TxnDocument doc;
  doc.record = rec;
  doc.header = FieldMap::Decode(rec.body);
  for (const TxnLineRecord& l : ledger.Lines(rec.txnId)) {
    TxnLine line;
    line.lineId = l.lineId;
    line.fields = FieldMap::Decode(l.body);
    line.isGroup = line.fields.Has("ItemGroupRef");
    if (!l.groupLineId.empty()) {
      for (TxnLine& head : doc.lines)
        if (head.lineId == l.groupLineId) head.members.push_back(std::move(line));
      continue;
    }
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

// The stored lines of a document: every line, group members after their head line.
std::vector<TxnLineRecord> LineRecords(TxnDocument& doc, WriteScope& scope) {
  std::vector<TxnLineRecord> out;
  for (TxnLine& l : doc.lines) {
    if (l.lineId.empty()) l.lineId = scope.NewId();
    out.push_back({l.lineId, "", l.fields.Encode()});
    for (TxnLine& m : l.members) {
      if (m.lineId.empty()) m.lineId = scope.NewId();
      out.push_back({m.lineId, l.lineId, m.fields.Encode()});
    }
  }
  return out;
}

// A line, or a group line with its members (written with `memberTag`), in the order of its table.
void WriteLineRet(RecordWriter& writer, XmlOut& out, const char* tag, const char* memberTag,
                  std::span<const Field> fields, std::span<const Field> memberFields, const TxnLine& l) {
  FieldMap f = l.fields;
  f.Set("TxnLineID", l.lineId);
  std::string body = f.Encode();
  RecordRow row;
  row.body = body;
  out.Open(tag);
  writer.WriteFields(out, fields, row);
  if (l.isGroup)
    for (const TxnLine& m : l.members) WriteLineRet(writer, out, memberTag, memberTag, memberFields, memberFields, m);
  out.Close(tag);
}

struct RetOptions {
  bool lines = true;
  bool links = false;  // IncludeLinkedTxns
  std::set<std::string> only;  // IncludeRetElement: empty = all
  std::vector<std::string> dataExtOwners;  // OwnerID: whose data extensions to answer
};

void WriteRet(RequestContext& ctx, const TxnKind& kind, const TxnDocument& doc, XmlOut& out, const RetOptions& o) {
  XmlOut ret;
  ret.Open(kind.retTag);
  ret.Element("TxnID", doc.record.txnId);
  ret.Element("TimeCreated", doc.record.timeCreated);
  ret.Element("TimeModified", doc.record.timeModified);
  ret.Element("EditSequence", doc.record.editSequence);
  ret.Element("TxnNumber", std::to_string(doc.record.txnNumber));
  FieldMap answer = doc.header;
  kind.figures(ctx, doc, answer);
  std::string body = answer.Encode();
  RecordRow row;
  row.body = body;
  RecordWriter writer(ctx);
  writer.WriteFields(ret, kind.header, row);
  if (o.links && kind.answersLinks) {
    // Every document whose postings change this one's open amount, both ways: the
    // payment names the invoice in its applied lines, the invoice names the payment here.
    for (const LedgerStore::Link& link : LedgerStore(ctx.file).LinksTo(doc.record.txnId)) {
      ret.Open("LinkedTxn");
      ret.Element("TxnID", link.txnId);
      ret.Element("TxnType", link.kind);
      ret.Element("TxnDate", link.txnDate);
      if (!link.refNumber.empty()) ret.Element("RefNumber", link.refNumber);
      ret.Element("LinkType", "AMTTYPE");
      ret.Element("Amount", CentsText(link.amount));
      ret.Close("LinkedTxn");
    }
  }
  if (o.lines || kind.linesAlways) {
    std::string line = std::string(kind.lineTag) + "Ret", group = std::string(kind.groupTag) + "Ret";
    TxnDocument shown;
    const TxnDocument* lines = &doc;
    if (kind.lineFigures) {
      shown = doc;
      kind.lineFigures(ctx, shown);
      lines = &shown;
    }
    for (const TxnLine& l : lines->lines)
      WriteLineRet(writer, ret, l.isGroup ? group.c_str() : line.c_str(), line.c_str(),
                   l.isGroup ? SalesGroupLineFields() : kind.lineFields, kind.lineFields, l);
  }
  WriteDataExtRets(ctx.file, ret, doc.record.txnId, o.dataExtOwners);
  ret.Close(kind.retTag);
  if (o.only.empty()) {
    out.Raw(ret.Str());
    return;
  }
  // Only the elements asked for, in their places.
  pugi::xml_document d;
  d.load_buffer(ret.Str().data(), ret.Str().size());
  pugi::xml_node r = d.first_child();
  for (pugi::xml_node c = r.first_child(); c;) {
    pugi::xml_node next = c.next_sibling();
    if (!o.only.count(c.name())) r.remove_child(c);
    c = next;
  }
  std::ostringstream text;
  r.print(text, "", pugi::format_raw);
  out.Raw(text.str());
}

}  // namespace

void StoreTxn(RequestContext& ctx, ListCache& lists, const TxnKind& kind, TxnDocument& doc, WriteScope& scope,
              LedgerStore& ledger, bool isNew) {
  if (kind.defaultAccount && !doc.header.Has(kind.accountTag))
    doc.header.Set(kind.accountTag, lists.Special(&scope, kind.defaultAccount));
  doc.record.kind = kind.name;
  doc.record.txnDate = doc.header.Get("TxnDate");
  doc.record.refNumber = doc.header.Get("RefNumber");
  doc.record.entityId = doc.header.Get(kind.entityTag);
  if (kind.defaultAccount) doc.record.accountId = doc.header.Get(kind.accountTag);
  std::vector<TxnLineRecord> lines = LineRecords(doc, scope);
  std::vector<Posting> rows = doc.record.isVoid ? std::vector<Posting>{} : kind.post(ctx, lists, scope, doc);
  doc.record.body = doc.header.Encode();
  if (isNew) ledger.Insert(doc.record, lines, rows);
  else ledger.Update(doc.record, lines, rows);
}

namespace {

void Store(RequestContext& ctx, const TxnKind& kind, TxnDocument& doc, WriteScope& scope, bool isNew) {
  LedgerStore ledger(ctx.file);
  ListCache lists(ctx);
  StoreTxn(ctx, lists, kind, doc, scope, ledger, isNew);
}

Status Add(RequestContext& ctx, const TxnKind& kind, const pugi::xml_node& request, XmlOut& out) {
  pugi::xml_node node = request.child((std::string(kind.name) + "Add").c_str());
  if (!node) return status::MissingElement(std::string(kind.name) + "Add");
  TxnDocument doc;
  ListCache lists(ctx);
  if (Status s = ReadHeader(ctx, kind, node, kInAdd, doc.header); !s.Ok()) return s;
  if (std::string missing = MissingRequired(kind.header, doc.header); !missing.empty()) return status::MissingElement(missing);
  if (Status s = ReadLines(ctx, kind, node, kInAdd, doc.lines); !s.Ok()) return s;
  if (Status s = kind.complete(ctx, lists, doc, true); !s.Ok()) return s;

  WriteScope scope(ctx.file);
  LedgerStore ledger(ctx.file);
  doc.record.txnId = scope.NewId();
  doc.record.txnNumber = ledger.NextTxnNumber();
  doc.record.editSequence = scope.NewEditSequence();
  doc.record.timeCreated = doc.record.timeModified = scope.Timestamp();
  if (!doc.header.Has("RefNumber")) doc.header.Set("RefNumber", ledger.NextRefNumber(kind.name));
  Store(ctx, kind, doc, scope, true);
  WriteRet(ctx, kind, doc, out, {});  // read back before the commit, as list changes are
  scope.Commit();
  return status::Ok();
}

Status Mod(RequestContext& ctx, const TxnKind& kind, const pugi::xml_node& request, XmlOut& out) {
  pugi::xml_node node = request.child((std::string(kind.name) + "Mod").c_str());
  if (!node) return status::MissingElement(std::string(kind.name) + "Mod");
  std::string txnId(Trim(node.child_value("TxnID"))), editSequence(Trim(node.child_value("EditSequence")));
  if (txnId.empty()) return status::MissingElement("TxnID");
  if (editSequence.empty()) return status::MissingElement("EditSequence");
  LedgerStore ledger(ctx.file);
  auto rec = ledger.ByTxnId(txnId);
  if (!rec || rec->kind != kind.name) return status::ObjectNotFound(txnId);
  if (rec->editSequence != editSequence) return status::StaleEditSequence(editSequence);
  TxnDocument doc = Load(ledger, *rec);
  ListCache lists(ctx);
  if (Status s = ReadHeader(ctx, kind, node, kInMod, doc.header); !s.Ok()) return s;
  if (Status s = ReadLines(ctx, kind, node, kInMod, doc.lines); !s.Ok()) return s;
  if (Status s = kind.complete(ctx, lists, doc, false); !s.Ok()) return s;

  WriteScope scope(ctx.file);
  doc.record.editSequence = scope.NewEditSequence();
  doc.record.timeModified = scope.Timestamp();
  Store(ctx, kind, doc, scope, false);
  WriteRet(ctx, kind, doc, out, {});  // read back before the commit, as list changes are
  scope.Commit();
  return status::Ok();
}

// ---------------------------------------------------------------- queries

constexpr const char* kPaidStatus[] = {"All", "PaidOnly", "NotPaidOnly"};
constexpr const char* kMatchCriteria[] = {"StartsWith", "Contains", "EndsWith"};

bool AllDigits(std::string_view s) {
  return !s.empty() && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Reference numbers compare as numbers when both are numbers, as texts otherwise.
int CompareRef(std::string_view a, std::string_view b) {
  if (AllDigits(a) && AllDigits(b)) {
    a = a.substr(std::min(a.find_first_not_of('0'), a.size()));
    b = b.substr(std::min(b.find_first_not_of('0'), b.size()));
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  }
  std::string fa = FoldCase(a), fb = FoldCase(b);
  return fa < fb ? -1 : fa > fb ? 1 : 0;
}

// ListIDs of a filter (EntityFilter, AccountFilter), with the records below each when asked.
Status FilterIds(RequestContext& ctx, const pugi::xml_node& filter, std::span<const char* const> kinds,
                 std::vector<std::string>& ids) {
  std::vector<std::string> kindList(kinds.begin(), kinds.end());
  for (pugi::xml_node c = filter.first_child(); c; c = c.next_sibling()) {
    std::string_view tag = c.name();
    std::string text(Trim(c.text().get()));
    std::optional<ListRecord> rec;
    if (tag == "ListID" || tag == "ListIDWithChildren") {
      rec = ctx.store.ByListId(text);
    } else {
      auto recs = ctx.store.ByFullName(std::span<const std::string>(kindList), text);
      if (!recs.empty()) rec = recs.front();
    }
    if (!rec) return status::InvalidReference(filter.name(), text);
    std::vector<ListRecord> todo = {*rec};
    bool children = tag == "ListIDWithChildren" || tag == "FullNameWithChildren";
    while (!todo.empty()) {
      ListRecord r = todo.back();
      todo.pop_back();
      ids.push_back(r.listId);
      if (children)
        for (ListRecord& ch : ctx.store.Children(r.listId)) todo.push_back(ch);
    }
  }
  return status::Ok();
}

constexpr const char* kEntityKinds[] = {"Customer", "Employee", "OtherName", "Vendor"};
constexpr const char* kAccountKinds[] = {"Account"};

int FirstFiscalMonth(RequestContext& ctx) {
  static constexpr const char* kMonths[] = {"January", "February", "March", "April", "May", "June", "July",
                                            "August", "September", "October", "November", "December"};
  std::string m(FieldMap::Decode(ctx.file.Meta(meta::kCompany)).Get("FirstMonthFiscalYear"));
  for (int i = 0; i < 12; ++i)
    if (m == kMonths[i]) return i + 1;
  return 1;
}

Status Query(RequestContext& ctx, const TxnKind& kind, const pugi::xml_node& request, XmlOut& out) {
  TxnSelection sel;
  sel.kind = kind.name;
  RetOptions options;
  options.lines = false;
  std::string paid = "All", refMatch, refCriterion;
  std::optional<std::string> refFrom, refTo;
  std::vector<std::string> refNumbers;
  bool caseSensitive = false;
  int limit = 0;
  for (pugi::xml_node c = request.first_child(); c; c = c.next_sibling()) {
    if (c.type() != pugi::node_element) continue;
    std::string_view tag = c.name();
    std::string text(Trim(c.text().get()));
    if (tag == "TxnID") {
      sel.txnIds.push_back(text);
    } else if (tag == "RefNumber" || tag == "RefNumberCaseSensitive") {
      refNumbers.push_back(text);
      caseSensitive = tag == "RefNumberCaseSensitive";
    } else if (tag == "MaxReturned") {
      auto v = Canonical(ValueType::Integer, text);
      if (!v || v->empty() || std::stoi(*v) < 0) return status::BadValue("MaxReturned", text);
      limit = std::stoi(*v);
    } else if (tag == "ModifiedDateRangeFilter" || tag == "TxnDateRangeFilter") {
      bool modified = tag == "ModifiedDateRangeFilter";
      for (pugi::xml_node f = c.first_child(); f; f = f.next_sibling()) {
        std::string_view ft = f.name();
        std::string v(Trim(f.text().get()));
        if (ft == "DateMacro") {
          auto range = DateMacroRange(v, FirstFiscalMonth(ctx));
          if (!range) return status::BadValue("DateMacro", v);
          if (!range->first.empty()) sel.txnDateFrom = range->first, sel.txnDateTo = range->second;
          continue;
        }
        double d = 0;
        if (!ParseTimestamp(v, d)) return status::BadValue(f.name(), v);
        bool upper = ft == "ToModifiedDate" || ft == "ToTxnDate";
        if (modified) {
          // A date alone covers its whole day.
          if (upper) d += v.size() <= 10 ? 1.0 : 1.0 / 86400.0;
          (upper ? sel.modifiedTo : sel.modifiedFrom) = d;
        } else {
          (upper ? sel.txnDateTo : sel.txnDateFrom) = v.substr(0, 10);
        }
      }
    } else if (tag == "EntityFilter") {
      if (Status s = FilterIds(ctx, c, kEntityKinds, sel.entityIds); !s.Ok()) return s;
    } else if (tag == "AccountFilter") {
      if (Status s = FilterIds(ctx, c, kAccountKinds, sel.accountIds); !s.Ok()) return s;
    } else if (tag == "RefNumberFilter") {
      auto v = Canonical(ValueType::Enum, c.child_value("MatchCriterion"), kMatchCriteria);
      if (!v || v->empty()) return status::BadValue("MatchCriterion", c.child_value("MatchCriterion"));
      refCriterion = *v;
      refMatch = FoldCase(c.child_value("RefNumber"));
    } else if (tag == "RefNumberRangeFilter") {
      if (c.child("FromRefNumber")) refFrom = c.child_value("FromRefNumber");
      if (c.child("ToRefNumber")) refTo = c.child_value("ToRefNumber");
    } else if (tag == "PaidStatus") {
      auto v = Canonical(ValueType::Enum, text, kPaidStatus);
      if (!v || v->empty()) return status::BadValue("PaidStatus", text);
      paid = *v;
    } else if (tag == "IncludeLineItems") {
      options.lines = Canonical(ValueType::Bool, text).value_or("") == "true";
    } else if (tag == "IncludeRetElement") {
      options.only.insert(text);
    } else if (tag == "OwnerID") {
      options.dataExtOwners.push_back(CanonicalOwner(text));
    } else if (tag == "IncludeLinkedTxns") {
      options.links = Canonical(ValueType::Bool, text).value_or("") == "true";
    } else if (tag == "CurrencyFilter") {
      // One currency per file: every document passes.
    } else if (ctx.Strict()) {
      return status::NotSupported("The element " + std::string(tag) + " in " + request.name());
    }
  }
  LedgerStore ledger(ctx.file);
  std::vector<std::string> openAccounts;
  int written = 0;
  std::set<std::string> found;
  ledger.Select(sel, [&](const TxnRecord& rec) {
    if (!refNumbers.empty()) {
      auto match = std::find_if(refNumbers.begin(), refNumbers.end(), [&](const std::string& r) {
        return caseSensitive ? r == rec.refNumber : EqualsIgnoreCase(r, rec.refNumber);
      });
      if (match == refNumbers.end()) return true;
      found.insert(FoldCase(*match));
    }
    if (!refCriterion.empty()) {
      std::string ref = FoldCase(rec.refNumber);
      bool ok = refCriterion == "StartsWith" ? StartsWith(ref, refMatch)
                : refCriterion == "EndsWith" ? EndsWith(ref, refMatch)
                                             : ref.find(refMatch) != std::string::npos;
      if (!ok) return true;
    }
    if (refFrom && CompareRef(rec.refNumber, *refFrom) < 0) return true;
    if (refTo && CompareRef(rec.refNumber, *refTo) > 0) return true;
    if (paid != "All") {
      std::vector<std::string> ar = {rec.accountId};
      bool isPaid = ledger.OpenAmount(rec.txnId, ar) == 0;
      if (isPaid != (paid == "PaidOnly")) return true;
    }
    if (!sel.txnIds.empty()) found.insert(rec.txnId);
    WriteRet(ctx, kind, Load(ledger, rec), out, options);
    ++written;
    return limit == 0 || written < limit;
  });
  // Documents asked for by key: a key that finds nothing fails the query.
  for (const std::string& id : sel.txnIds)
    if (!found.count(id) && (limit == 0 || written < limit)) return status::NotFoundByKey("TxnID", id);
  for (const std::string& r : refNumbers)
    if (!found.count(FoldCase(r)) && (limit == 0 || written < limit)) return status::NotFoundByKey("RefNumber", r);
  return written == 0 ? status::NoMatch() : status::Ok();
}

// ---------------------------------------------------------------- delete, void, deleted log

Status FindForChange(RequestContext& ctx, const pugi::xml_node& request, const char* typeTag, TxnRecord& rec,
                     const TxnKind*& kind) {
  std::string type(Trim(request.child_value(typeTag))), txnId(Trim(request.child_value("TxnID")));
  // The library names some types as their description, with blanks ("Sales Order").
  std::erase(type, ' ');
  if (type.empty()) return status::MissingElement(typeTag);
  if (txnId.empty()) return status::MissingElement("TxnID");
  kind = nullptr;
  for (const TxnKind& k : TxnKinds())
    if (EqualsIgnoreCase(type, k.name)) kind = &k;
  if (!kind) return status::NotSupported(std::string(typeTag) + " " + type);
  LedgerStore ledger(ctx.file);
  auto found = ledger.ByTxnId(txnId);
  if (!found || found->kind != kind->name) return status::ObjectNotFound(txnId);
  // A document that others are applied to (an invoice with payments) stays until they go.
  if (auto links = ledger.LinksTo(txnId); !links.empty())
    return status::Refused("the " + std::string(kind->name) + " " + found->refNumber + " has a " + links.front().kind +
                           " applied to it (" + links.front().txnId + ").");
  rec = *found;
  return status::Ok();
}

Status Delete(RequestContext& ctx, const pugi::xml_node& request, XmlOut& out) {
  TxnRecord rec;
  const TxnKind* kind = nullptr;
  if (Status s = FindForChange(ctx, request, "TxnDelType", rec, kind); !s.Ok()) return s;
  WriteScope scope(ctx.file);
  LedgerStore(ctx.file).Delete(rec, scope.Timestamp(), scope.TimeSerial());
  scope.Commit();
  out.Element("TxnDelType", kind->name);
  out.Element("TxnID", rec.txnId);
  out.Element("TimeDeleted", scope.Timestamp());
  if (!rec.refNumber.empty()) out.Element("RefNumber", rec.refNumber);
  return status::Ok();
}

// A voided document stays on file with its lines, every amount and quantity zero and its
// memo marked "VOID:"; it posts nothing.
Status Void(RequestContext& ctx, const pugi::xml_node& request, XmlOut& out) {
  TxnRecord rec;
  const TxnKind* kind = nullptr;
  if (Status s = FindForChange(ctx, request, "TxnVoidType", rec, kind); !s.Ok()) return s;
  if (!kind->canVoid) return status::NotSupported("TxnVoidType " + std::string(kind->name));
  LedgerStore ledger(ctx.file);
  TxnDocument doc = Load(ledger, rec);
  auto zero = [](TxnLine& l) {
    if (l.fields.Has("Quantity")) l.fields.Set("Quantity", "0");
    if (l.fields.Has("Amount")) l.fields.Set("Amount", "0.00");
    if (l.fields.Has("TotalAmount")) l.fields.Set("TotalAmount", "0.00");
  };
  for (TxnLine& l : doc.lines) {
    zero(l);
    for (TxnLine& m : l.members) zero(m);
  }
  if (!rec.isVoid) doc.header.Set("Memo", "VOID: " + std::string(doc.header.Get("Memo")));
  doc.record.isVoid = true;
  WriteScope scope(ctx.file);
  doc.record.editSequence = scope.NewEditSequence();
  doc.record.timeModified = scope.Timestamp();
  Store(ctx, *kind, doc, scope, false);
  scope.Commit();
  out.Element("TxnVoidType", kind->name);
  out.Element("TxnID", rec.txnId);
  out.Element("TimeCreated", rec.timeCreated);
  out.Element("TimeModified", doc.record.timeModified);
  if (!rec.refNumber.empty()) out.Element("RefNumber", rec.refNumber);
  return status::Ok();
}

Status DeletedQuery(RequestContext& ctx, const pugi::xml_node& request, XmlOut& out) {
  std::vector<std::string> kinds;
  std::optional<double> from, to;
  for (pugi::xml_node c = request.first_child(); c; c = c.next_sibling()) {
    std::string_view tag = c.name();
    if (tag == "TxnDelType") {
      std::string t(Trim(c.text().get()));
      const TxnKind* kind = nullptr;
      for (const TxnKind& k : TxnKinds())
        if (EqualsIgnoreCase(t, k.name)) kind = &k;
      // A kind this processor does not keep has deleted nothing.
      kinds.push_back(kind ? kind->name : t);
    } else if (tag == "DeletedDateRangeFilter") {
      for (pugi::xml_node f = c.first_child(); f; f = f.next_sibling()) {
        std::string v(Trim(f.text().get()));
        double d = 0;
        if (!ParseTimestamp(v, d)) return status::BadValue(f.name(), v);
        bool upper = std::string_view(f.name()) == "ToDeletedDate";
        if (upper) d += v.size() <= 10 ? 1.0 : 1.0 / 86400.0;
        (upper ? to : from) = d;
      }
    }
  }
  if (kinds.empty()) return status::MissingElement("TxnDelType");
  auto rows = LedgerStore(ctx.file).SelectDeleted(kinds, from, to);
  for (const auto& r : rows) {
    out.Open("TxnDeletedRet");
    out.Element("TxnDelType", r.kind);
    out.Element("TxnID", r.txnId);
    out.Element("TimeCreated", r.timeCreated);
    out.Element("TimeDeleted", r.timeDeleted);
    if (!r.refNumber.empty()) out.Element("RefNumber", r.refNumber);
    out.Close("TxnDeletedRet");
  }
  return rows.empty() ? status::NoMatch() : status::Ok();
}

}  // namespace

void RegisterTxnRequests(RequestTable& table) {
  for (const TxnKind& k : TxnKinds()) {
    const TxnKind* kind = &k;
    table.Add(std::string(k.name) + "AddRq",
              {[kind](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) { return Add(ctx, *kind, rq, out); },
               nullptr, 10});
    if (k.canModify)
      table.Add(std::string(k.name) + "ModRq",
                {[kind](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) { return Mod(ctx, *kind, rq, out); },
                 nullptr, 20});
    table.Add(std::string(k.name) + "QueryRq",
              {[kind](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) { return Query(ctx, *kind, rq, out); },
               nullptr, 10});
  }
  table.Add("TxnDelRq", {Delete, nullptr, 10});
  table.Add("TxnVoidRq", {Void, nullptr, 11});
  table.Add("TxnDeletedQueryRq", {DeletedQuery, nullptr, 20});
}

}  // namespace tessaron::qbsim
