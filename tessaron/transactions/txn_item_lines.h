// txnItemLines: the ordered item lines of one document (or the member lines of a group).
//
// The document's total is not a plain sum: Total walks the lines from the top and writes
// computed amounts back into subtotal, discount, percent and tax lines, because each of
// those takes its value from the lines above it. TaxableTotal is the taxable part found by
// the last Total, so the owner reads Total first.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"
#include "tessaron/transactions/txn_item_line.h"

namespace tessaron {

class txnItemLines {
 public:
  txnItemLines();

  // Its own state unless that is Clean; then Dirty as soon as any line is not Clean.
  qoEnumObjectState ObjectState() const;
  std::shared_ptr<qcErrors> Errors();
  // Computes the document total (and TaxableTotal), writing back the amounts of subtotal,
  // percent, discount and tax lines.
  Currency Total();
  // The taxable part found by the last Total; 0 before any.
  Currency TaxableTotal() const { return taxableTotal_; }

  // Adds a line for Item. Quantity and ServiceDate are used when non-zero, the texts when
  // not empty. A line that does not validate (an amount without an item) is not added and
  // the result is null. BeforeIndex (1-based, non-zero) inserts before that position.
  // On the member list of a group raises 0x800407D0.
  std::shared_ptr<txnItemLine> Add(const std::string& Item = "", Currency Quantity = Currency(),
                                   const std::string& Description = "", const std::string& Class = "",
                                   const std::string& Customer = "", Date ServiceDate = 0, long BeforeIndex = 0);
  // By 1-based position or by key.
  bool ItemExists(const Variant& vntIndexKey) const;
  std::shared_ptr<txnItemLine> Item(const Variant& vntIndexKey) const;
  long Count() const { return col_.Count(); }
  // The lines in order (a snapshot).
  std::vector<std::shared_ptr<txnItemLine>> NewEnum() const { return col_.Values(); }
  // Drops every line; no event.
  void Clear();
  // Removes one line and tells the owner the amount changed. On the member list of a
  // group raises 0x800407D0.
  void Remove(const Variant& vntIndexKey);

  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  friend class detail::TxnAccess;
  friend class txnItemLine;

  // ---- Library-internal, through detail::TxnAccess ----
  // Passes the header's tax code to every line.
  void SetOwnerTaxCode(const std::shared_ptr<qcListObjectRef>& ref);
  // The owner's sink, for every line and every line added later.
  void SetEventSink(const std::shared_ptr<qcEventSink>& sink);
  void SetIsGroupMemberList(bool value) { isGroupMemberList_ = value; }
  void SetIsAddingGroup(bool value) { isAddingGroup_ = value; }
  void SetOwnerType(qoEnumListObjectType value);
  void SetObjectState(qoEnumObjectState state) { objectState_ = state; }
  // Drops every line without the change rule or an event, for an owner that reads its
  // lines again from an answer (the public Clear refuses on a stored document at qbXML 2.0).
  void ClearLines() { col_ = Collection<std::shared_ptr<txnItemLine>>(); }
  // Reads one line element of an answer and adds it last; the collection is then Clean.
  std::shared_ptr<txnItemLine> ReadLine(const XmlNode& node, bool isGroup);
  // Numbers the lines from 1 and writes each in the owner's dialect: "...Ret" with isRet,
  // else "...Mod" with isMod, else "...Add".
  void WriteLines(xmlBldr& builder, bool isRet, bool isMod);

  void MarkModified(bool checkAllowed);
  void CheckGroupList() const;
  bool IsSalesOwner() const;

  Collection<std::shared_ptr<txnItemLine>> col_;
  qoEnumObjectState objectState_ = qoObjectStateNew;
  std::shared_ptr<qcErrors> errors_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
  bool isGroupMemberList_ = false;
  bool isAddingGroup_ = false;
  std::shared_ptr<qcListObjectRef> ownerTaxCodeRef_;
  std::shared_ptr<qcEventSink> eventSink_;
  Currency total_;
  Currency taxableTotal_;
};

}  // namespace tessaron
