// The filters of a report: by account, entity, item or class (each by type, by ListID or
// by name, with or without descendants) and by transaction type. They hold choices only:
// Report::SaveToXml writes them, each filter's FromDom reads a saved request back.
//
//   report.Filters()->AccountFilter()->FullNames().Add("Checking");
//   report.Filters()->EntityFilter()->SetTypeFilter(1);     // customers; wins over names
//   report.Filters()->TxnTypes()->Add(qbTxnTypeInvoice);
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enumerations.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class xmlBldr;

// An ordered list of texts (ListIDs or full names).
class qcIdList {
 public:
  void Clear() { ids_.clear(); }
  void Add(const std::string& ID) { ids_.push_back(ID); }
  // By 1-based position; outside 1..Count raises subscript out of range (9).
  const std::string& Item(long index) const;
  long Count() const { return static_cast<long>(ids_.size()); }
  void Remove(long index);
  auto begin() const { return ids_.begin(); }
  auto end() const { return ids_.end(); }

 private:
  std::vector<std::string> ids_;
};

// The shape shared by the account, entity, item and class filters. `Name` is "Account",
// "Entity", "Item" or "Class"; the class filter has no type element.
class rptListFilter {
 public:
  // By type (a code of the filter's type table); 0 is none. A type wins over the lists.
  int32_t TypeFilter() const { return typeFilter_; }
  void SetTypeFilter(int32_t code) { typeFilter_ = code; }
  qcIdList& ListIds() { return listIds_; }
  qcIdList& FullNames() { return fullNames_; }
  // The name or ListID includes its descendants; then only one entry is allowed.
  bool WithChildren() const { return withChildren_; }
  void SetWithChildren(bool v) { withChildren_ = v; }
  // Empties the filter.
  void Clear();
  // Reads a "Report<Name>Filter" aggregate back.
  void FromDom(const XmlNode& obj);

  // Library-internal: writes "Report<Name>Filter", or nothing when the filter is empty.
  // WithChildren with two entries raises 0x80040640.
  void Write(xmlBldr& b) const;

 protected:
  // typeTag empty: no type element (the class filter).
  rptListFilter(const char* name, const char* typeTag, qoEnumerationType typeTable)
      : name_(name), typeTag_(typeTag), typeTable_(typeTable) {}

 private:
  void WriteList(xmlBldr& b, const qcIdList& list, const char* tag) const;

  const char* name_;
  const char* typeTag_;
  qoEnumerationType typeTable_;
  int32_t typeFilter_ = 0;
  qcIdList listIds_;
  qcIdList fullNames_;
  bool withChildren_ = false;
};

// TypeFilter is a code of "Report Account Filters".
class rptAccountFilter : public rptListFilter {
 public:
  rptAccountFilter() : rptListFilter("Account", "AccountTypeFilter", qoeReportAccountFilters) {}
};
// TypeFilter is a code of "Entity Types".
class rptEntityFilter : public rptListFilter {
 public:
  rptEntityFilter() : rptListFilter("Entity", "EntityTypeFilter", qoeEntityType) {}
};
// TypeFilter is a code of "ItemType".
class rptItemFilter : public rptListFilter {
 public:
  rptItemFilter() : rptListFilter("Item", "ItemTypeFilter", qoeItemType) {}
};
// Names and ListIDs only.
class rptClassFilter : public rptListFilter {
 public:
  rptClassFilter() : rptListFilter("Class", "", qoeReport) {}
};

// The transaction types a report is limited to (codes of "Txn Types").
class rptTxnTypeFilter {
 public:
  void Clear() { types_.clear(); }
  void Add(int32_t TxnType) { types_.push_back(TxnType); }
  // By 1-based position; outside 1..Count raises subscript out of range (9).
  int32_t Item(long index) const;
  long Count() const { return static_cast<long>(types_.size()); }
  void Remove(long index);
  // Adds the code of each "TxnTypeFilter" child.
  void FromDom(const XmlNode& obj);

  // Library-internal: "ReportTxnTypeFilter" with one "TxnTypeFilter" each, or nothing.
  void Write(xmlBldr& b) const;

 private:
  std::vector<int32_t> types_;
};

// The set of filters of a report; each is made on first use.
class rptFilters {
 public:
  std::shared_ptr<rptAccountFilter> AccountFilter();
  void SetAccountFilter(std::shared_ptr<rptAccountFilter> f) { account_ = std::move(f); }
  std::shared_ptr<rptEntityFilter> EntityFilter();
  void SetEntityFilter(std::shared_ptr<rptEntityFilter> f) { entity_ = std::move(f); }
  std::shared_ptr<rptItemFilter> ItemFilter();
  void SetItemFilter(std::shared_ptr<rptItemFilter> f) { item_ = std::move(f); }
  std::shared_ptr<rptClassFilter> ClassFilter();
  void SetClassFilter(std::shared_ptr<rptClassFilter> f) { class_ = std::move(f); }
  std::shared_ptr<rptTxnTypeFilter> TxnTypes();
  void SetTxnTypes(std::shared_ptr<rptTxnTypeFilter> f) { txnTypes_ = std::move(f); }
  // Makes sure each filter exists, and empties it.
  void Clear();

  // Library-internal: the filters in the order the request wants them.
  void Write(xmlBldr& b);

 private:
  std::shared_ptr<rptAccountFilter> account_;
  std::shared_ptr<rptEntityFilter> entity_;
  std::shared_ptr<rptItemFilter> item_;
  std::shared_ptr<rptClassFilter> class_;
  std::shared_ptr<rptTxnTypeFilter> txnTypes_;
};

}  // namespace tessaron
