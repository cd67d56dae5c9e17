// txnExpenseLines: the expense lines of one payables document, in order. Total is the
// plain sum of the lines' amounts; Add and Remove tell the owner the amount changed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"
#include "tessaron/transactions/txn_expense_line.h"

namespace tessaron {

class txnExpenseLines {
 public:
  txnExpenseLines();

  // Its own state unless that is Clean; then Dirty as soon as any line is not Clean.
  qoEnumObjectState ObjectState() const;
  std::shared_ptr<qcErrors> Errors();
  // A new line with these values (each through its setter, so an unknown account
  // raises and nothing is added). Before (1-based, non-zero) inserts before that position.
  std::shared_ptr<txnExpenseLine> Add(const std::string& Account = "", Currency Amount = Currency(),
                                      const std::string& Memo = "", const std::string& Class = "",
                                      const std::string& Customer = "", long Before = 0);
  bool ItemExists(const Variant& vntIndexKey) const;
  // By 1-based position or by key.
  std::shared_ptr<txnExpenseLine> Item(const Variant& vntIndexKey) const;
  // Drops every line; no event.
  void Clear();
  long Count() const { return col_.Count(); }
  std::vector<std::shared_ptr<txnExpenseLine>> NewEnum() const { return col_.Values(); }
  // The sum of the lines' Amount.
  Currency Total() const;
  void Remove(const Variant& vntIndexKey);

  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  friend class detail::TxnAccess;

  // ---- Library-internal, through detail::TxnAccess ----
  void SetOwnerType(qoEnumListObjectType value);
  void SetEventSink(const std::shared_ptr<qcEventSink>& sink);
  void SetObjectState(qoEnumObjectState state) { objectState_ = state; }
  // Drops every line without marking: before an answer is read again.
  void ClearLines() { col_ = Collection<std::shared_ptr<txnExpenseLine>>(); }
  std::shared_ptr<txnExpenseLine> ReadLine(const XmlNode& node);
  void WriteLines(xmlBldr& builder, bool isRet, bool isMod);

  void MarkModified();
  void RaiseAmountChange();

  Collection<std::shared_ptr<txnExpenseLine>> col_;
  qoEnumObjectState objectState_ = qoObjectStateNew;
  std::shared_ptr<qcErrors> errors_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
  std::shared_ptr<qcEventSink> eventSink_;
};

}  // namespace tessaron
