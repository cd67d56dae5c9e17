// txnExpenseLine: a line of a payables document (Bill, Check, VendorCredit,
// CreditCardCharge, CreditCardCredit, ItemReceipt) that charges an account directly,
// without an item. Made by txnExpenseLines::Add or read from an answer; a change of its
// amount reaches the owning document through the document's qcEventSink.
#pragma once

#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

namespace detail {
class TxnAccess;
}
class qcErrors;
class qcEventSink;
class qcListObjectRef;
class txnExpenseLines;
class xmlBldr;

class txnExpenseLine {
 public:
  txnExpenseLine();
  ~txnExpenseLine();
  txnExpenseLine(const txnExpenseLine&) = delete;
  txnExpenseLine& operator=(const txnExpenseLine&) = delete;

  // Empty on a line QuickBooks has not stored yet.
  const std::string& TxnLineId() const { return txnLineId_; }
  // 0: not given (and not sent).
  qbEnumBillableStatus BillableStatus() const { return billableStatus_; }
  void SetBillableStatus(qbEnumBillableStatus value);
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  qoEnumObjectState ObjectState() const { return objectState_; }
  std::shared_ptr<qcErrors> Errors();

  // An account on file that posts: 0x800403F6 for an unknown name, 0x8004070F for a
  // non-posting account. An empty name clears.
  const std::string& Account() const;
  void SetAccount(const std::string& value);
  // Stored unchecked.
  const std::string& Customer() const;
  void SetCustomer(const std::string& value);
  const std::string& Class() const;
  void SetClass(const std::string& value);
  Currency Amount() const { return amount_; }
  // The same value does nothing; another tells the owner the amount changed.
  void SetAmount(Currency value);
  // The amount as the user typed it. Numeric text sets Amount (quietly: no mark, no
  // event); empty text is kept and makes Amount 0; other text raises 0x80040404. A zero
  // amount is sent only when this text is not empty.
  const std::string& AmountAsString() const { return amountAsString_; }
  void SetAmountAsString(const std::string& value);
  const std::string& Memo() const { return memo_; }
  void SetMemo(const std::string& value);

 private:
  friend class detail::TxnAccess;
  friend class txnExpenseLines;

  // ---- Library-internal, through detail::TxnAccess ----
  void SetOwnerType(qoEnumListObjectType value) { ownerType_ = value; }
  void SetEventSink(const std::shared_ptr<qcEventSink>& sink) { eventSink_ = sink; }
  void SetLineKey(const std::string& key) { lineKey_ = key; }
  void SetObjectState(qoEnumObjectState state) { objectState_ = state; }
  void FromDom(const XmlNode& node);
  // "ExpenseLineRet" with isRet, else "ExpenseLineMod" with isMod, else "ExpenseLineAdd".
  void WriteLine(xmlBldr& builder, bool isRet, bool isMod);
  // An expense line has no tests of its own: clears Errors and passes.
  bool Validate();
  const std::string& LineKey() const { return lineKey_; }

  void MarkModified();

  std::string txnLineId_;
  qbEnumBillableStatus billableStatus_ = static_cast<qbEnumBillableStatus>(0);
  Variant userData_;
  qoEnumObjectState objectState_ = qoObjectStateNew;
  std::shared_ptr<qcErrors> errors_;
  std::shared_ptr<qcListObjectRef> accountRef_;
  std::shared_ptr<qcListObjectRef> customerRef_;
  std::shared_ptr<qcListObjectRef> classRef_;
  Currency amount_;
  std::string amountAsString_;
  std::string memo_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
  std::shared_ptr<qcEventSink> eventSink_;
  std::string lineKey_;
};

}  // namespace tessaron
