// TxnObject: the one implementation of the transaction contract that every document
// class (Invoice, and the bills, receipts and orders to come) shares. It holds the fields
// every transaction has, the states with the class's modify gate, the lines and links,
// the owner's side of the lines' event sink, and walks the class's field table for
// FromDom, XMLInsert, XMLModify and XMLQueryRs.
//
// How to add a transaction class (say `Bill`, collection `Bills`):
//
// 1. `bill.h`: `class Bill final : public TxnObject` with its document fields as private
//    members, getters, and setters that call `MarkModified(true)` before they store (the
//    class's gate decides whether a stored object may change).
// 2. In `bill.cpp` one static `TxnClassInfo`: class name, object type, gate, the line
//    element names of its answers, and `fields = Common::Rows({...})` in the order of the
//    query-response element, each row with its add and modify columns (the add order is the
//    table order). Checks go into an override of `Validate`.
// 3. The collection: `class Bills final : public TxnCollection<Bill>` with its
//    `TxnCollectionInfo` and its `Add`; see txn_collection.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/field_table.h"
#include "tessaron/framework/qc_base.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcErrors;
class qcEventSink;
class qcListObject;
class txnItemLines;
class txnLinkedTransactions;
class TxnObject;
class TxnCollectionBase;

namespace detail {
class TxnAccess;
}

using TxnFieldDef = BasicFieldDef<TxnObject>;

// When a setter may change a transaction that QuickBooks already holds.
enum class TxnModifyGate : uint8_t {
  AboveVersion20,  // the qbXML version in use is greater than 2.0 (Invoice, Bill, CreditMemo, ...)
  FromVersion30,   // 3.0 or later (Estimate, SalesOrder)
  Never,           // only while New (Check, SalesReceipt, JournalEntry, ...)
};

// Everything that is constant per transaction class.
struct TxnClassInfo {
  // Source of raised errors, and what unknown tags are reported under.
  const char* className = "";
  // Where unknown tags are reported under when that is not the class name.
  const char* unknownElementClass = nullptr;
  qoEnumListObjectType objectType = static_cast<qoEnumListObjectType>(0);
  TxnModifyGate gate = TxnModifyGate::AboveVersion20;
  // Set for classes QuickBooks has no modify for: XMLModify raises this text.
  const char* modifyRefusal = nullptr;
  // The line elements of an answer ("InvoiceLineRet", "InvoiceLineGroupRet"); empty for
  // classes without item lines.
  const char* lineRet = "";
  const char* lineGroupRet = "";
  QueryBooleans queryBooleans = QueryBooleans::Words;
  // The master collection of the class in the session's company (lazy line loading).
  std::shared_ptr<TxnCollectionBase> (*master)() = nullptr;
  std::vector<TxnFieldDef> fields;
};

class TxnObject : public qcBase, public DataExtOwner {
 public:
  // The class whose members the rows of a transaction's field table point at.
  using FieldOwner = TxnObject;

  ~TxnObject() override;

  // qcBase.
  int32_t XMLInsert(xmlBldr& cxmlbldr) override;
  // TxnID and EditSequence, then what the add carries; the lines as modifications.
  int32_t XMLModify(xmlBldr& cxmlbldr) override;
  // The whole record, its links, its lines in their "Ret" form and UserData.
  int32_t XMLQueryRs(xmlBldr& cxmlbldr) override;
  qoEnumListObjectType ObjectType() const override { return info_.objectType; }
  // Clears lines and links, then reads child by child; an unknown element is noted and
  // skipped. The object is Clean afterwards.
  Variant FromDom(const XmlNode& obj) override;

  // Empty until committed.
  const std::string& TxnId() const { return txnId_; }
  Date TimeCreated() const { return timeCreated_; }
  Date TimeModified() const { return timeModified_; }
  // The optimistic-lock token of the last answer, sent back in the next modify.
  const std::string& EditSequence() const { return editSequence_; }
  // Its own state; a Clean object reads Dirty when a line or an address changed.
  qoEnumObjectState ObjectState() const;
  std::shared_ptr<qcErrors> Errors();
  // A free value of the application, written only to the saved form.
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  // The key under which the master collection holds the object (its TxnId once stored).
  const std::string& CollectionKey() const { return collectionKey_; }
  void SetCollectionKey(const std::string& value) { collectionKey_ = value; }

  // The lines. When the last answer came without lines, the first read asks the master
  // collection for the object again (GetMe).
  std::shared_ptr<txnItemLines> ItemLines();
  std::shared_ptr<txnLinkedTransactions> LinkedTxns() const { return linkedTxns_; }

  // Runs the class's checks into Errors; true when there are none. A Clean object passes.
  virtual bool Validate();

  // Data extensions: CustomFields and ApplicationFields come from DataExtOwner; each line
  // has CustomFields of its own. The master collection's commit saves the application
  // fields after the record; the custom fields are saved by CommitCustomFields, the
  // document's first, then each line's under its TxnLineID.
  bool SaveDataExtensions(const std::string& ListOrTxnId) override;
  int32_t CommitCustomFields() override;

  // Class events. Warning(Code, Message): a line met something the user should know
  // (code 1: an item with an expense account and no sales side). NoQuantity(Item): a line
  // asks for more of an inventory item than is on hand.
  using WarningHandler = std::function<void(int32_t Code, const std::string& Message)>;
  using NoQuantityHandler = std::function<void(const std::shared_ptr<qcListObject>& Item)>;
  size_t OnWarning(WarningHandler handler);
  size_t OnNoQuantity(NoQuantityHandler handler);

  const TxnClassInfo& ClassInfo() const { return info_; }
  // The record as property name and display text, in the order of the field table.
  std::vector<FieldText> Properties();

  // Rows of the fields every transaction has.
  struct Common {
    // TxnID, TimeCreated, TimeModified, EditSequence and TxnNumber, then `own`.
    static std::vector<TxnFieldDef> Rows(std::initializer_list<TxnFieldDef> own);
  };

 protected:
  explicit TxnObject(const TxnClassInfo& info);

  // A document setter's guard: with `checkAllowed` a stored object may change only under
  // the class's gate, else 0x800403EA "Field cannot be modified". A New object stays New,
  // another becomes Dirty.
  void MarkModified(bool checkAllowed);

  // The lines without loading them (writers, checks, state).
  txnItemLines& Lines() const { return *itemLines_; }
  const std::shared_ptr<txnItemLines>& LinesHandle() const { return itemLines_; }
  // The sink the object's parts raise into (item and expense lines, applied amounts).
  const std::shared_ptr<qcEventSink>& EventSink() const { return eventSink_; }

  // What the owner does with the lines' events.
  virtual void RecalculateTotals() {}
  // A line asks whether a tax item may go on it; clear `name` and raise to refuse.
  virtual void CheckHeaderTaxItem(std::string& name) {}
  // Whether a part other than the lines (an address) makes a Clean object read Dirty.
  virtual bool PartsDirty() const { return false; }
  // Called at the end of FromDom, before the state turns Clean.
  virtual void AfterFromDom() {}
  // Back to New with every line and part (saved forms loaded from a file).
  virtual void ResetToNew();
  // What follows the header fields in the three written forms: the item lines; a class
  // with other lines (expense lines) or elements between header and lines writes them here.
  virtual void WriteLineParts(xmlBldr& b, bool isRet, bool isMod);
  // Another kind of line element of an answer (ExpenseLineRet); true when taken.
  virtual bool ReadPart(std::string_view tag, const XmlNode& node) { return false; }
  // Drops what ReadPart filled, before an answer is read.
  virtual void ClearParts() {}

  std::string DataExtRecordId() const override { return txnId_; }

  std::string txnId_;
  Date timeCreated_ = 0;
  Date timeModified_ = 0;
  std::string editSequence_;
  int32_t txnNumber_ = 0;
  Variant userData_;

 private:
  friend class detail::TxnAccess;
  friend class TxnCollectionBase;
  void SetObjectState(qoEnumObjectState state) { state_ = state; }
  bool LinesNotLoaded() const { return linesNotLoaded_; }
  void HandleEvent(qoEnumEventTypes& id, std::string& text);

  const TxnClassInfo& info_;
  qoEnumObjectState state_ = qoObjectStateNew;
  std::shared_ptr<qcErrors> errors_;
  std::string collectionKey_;
  std::shared_ptr<qcEventSink> eventSink_;
  size_t sinkListener_ = 0;
  std::shared_ptr<txnItemLines> itemLines_;
  std::shared_ptr<txnLinkedTransactions> linkedTxns_;
  bool linesNotLoaded_ = false;
  std::vector<WarningHandler> warningHandlers_;
  std::vector<NoQuantityHandler> noQuantityHandlers_;
};

}  // namespace tessaron
