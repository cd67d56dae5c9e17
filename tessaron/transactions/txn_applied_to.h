// What a payment applies its money to: txnAppliedTo (one invoice or bill, with the amount
// paid on it, a discount and the credits used), gathered in txnAppliedTos; the credits of
// one applied amount are txnDetailLine records in a txnDetailLines.
//
//   auto applied = payment->AppliedToTxns();
//   auto one = applied->Add(invoiceId, Currency(80), Currency(5), "Discounts Given");
//   one->Credits()->Add(creditMemoId, Currency(10));
//
// Every change of an amount tells the owning payment through its event sink, so that its
// unused amounts follow at once (and a payment may refuse, see ReceivePayment).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcErrors;
class qcEventSink;
class qcListObjectRef;
class xmlBldr;

namespace detail {
class TxnAccess;
}

// One earlier credit used on an applied amount.
class txnDetailLine {
 public:
  const std::string& CreditTxnID() const { return creditTxnId_; }
  void SetCreditTxnID(const std::string& value) { creditTxnId_ = value; }
  Currency Amount() const { return amount_; }
  void SetAmount(Currency value);
  // Whether the line stands for a credit (always so for the lines QuickBooks returns).
  bool AsCredit() const { return asCredit_; }
  void SetAsCredit(bool value) { asCredit_ = value; }
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  std::shared_ptr<qcErrors> Errors();

 private:
  friend class txnDetailLines;
  friend class txnAppliedTo;
  friend class detail::TxnAccess;
  // AppliedAmount (requests) or Amount (answers), and CreditTxnID or TxnID.
  void FromDom(const XmlNode& node);
  void SetEventSink(const std::shared_ptr<qcEventSink>& sink) { sink_ = sink; }

  std::string creditTxnId_;
  Currency amount_;
  bool asCredit_ = true;
  Variant userData_;
  std::shared_ptr<qcErrors> errors_;
  std::shared_ptr<qcEventSink> sink_;
};

class txnDetailLines {
 public:
  // A credit of that transaction used for that amount, added last.
  std::shared_ptr<txnDetailLine> Add(const std::string& CreditTxnID, Currency Amount);
  long Count() const { return col_.Count(); }
  std::shared_ptr<txnDetailLine> Item(long Index) const { return col_.Item(Index); }
  void Remove(long Index);
  void Clear();
  // The credits that are not 0, summed.
  Currency Total() const;

  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  friend class txnAppliedTo;
  friend class detail::TxnAccess;
  void SetEventSink(const std::shared_ptr<qcEventSink>& sink);
  void Changed() const;

  Collection<std::shared_ptr<txnDetailLine>> col_;
  std::shared_ptr<qcEventSink> sink_;
};

class txnAppliedTo {
 public:
  txnAppliedTo();

  const std::string& TxnId() const { return txnId_; }
  void SetTxnId(const std::string& value) { txnId_ = value; }
  // The kind of the document paid (an invoice), from the answer.
  qoEnumListObjectType TxnType() const { return txnType_; }
  Date TxnDate() const { return txnDate_; }
  const std::string& RefNumber() const { return refNumber_; }
  // What was still open on the document when the answer was made.
  Currency BalanceRemaining() const { return balanceRemaining_; }
  Currency DiscountAmount() const { return discountAmount_; }
  void SetDiscountAmount(Currency value);
  // Raises 0x800407E3 for an account not on file, 0x800407ED for one that is not an
  // income or expense account (ordinary or other).
  const std::string& DiscountAccount() const;
  void SetDiscountAccount(const std::string& value);
  // The payment's money put on the document.
  Currency Amount() const { return amount_; }
  void SetAmount(Currency value);
  // The earlier credits used on the document.
  std::shared_ptr<txnDetailLines> Credits() const { return credits_; }
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  std::shared_ptr<qcErrors> Errors();

  // Reads an AppliedToTxnRet (or the saved form). Credits come as LinkedTxn or SetCredit.
  void FromDom(const XmlNode& obj);

 private:
  friend class txnAppliedTos;
  friend class detail::TxnAccess;
  void SetOwnerType(qoEnumListObjectType value) { ownerType_ = value; }
  void SetObjectState(qoEnumObjectState value) { state_ = value; }
  void SetEventSink(const std::shared_ptr<qcEventSink>& sink);
  // A member has no checks of its own yet: every applied amount the collection meets passes.
  bool Validate();
  void Changed() const;
  // AppliedToTxnAdd (or AppliedToTxnMod) with the credits and the discount.
  void WriteRequest(xmlBldr& b, bool isMod) const;
  // AppliedToTxnRet of the saved form.
  void WriteQueryRs(xmlBldr& b) const;

  std::string txnId_;
  qoEnumListObjectType txnType_ = static_cast<qoEnumListObjectType>(0);
  Date txnDate_ = 0;
  std::string refNumber_;
  Currency balanceRemaining_;
  Currency discountAmount_;
  std::shared_ptr<qcListObjectRef> discountAccountRef_;
  Currency amount_;
  std::shared_ptr<txnDetailLines> credits_;
  Variant userData_;
  std::shared_ptr<qcErrors> errors_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
  qoEnumObjectState state_ = qoObjectStateNew;
  std::shared_ptr<qcEventSink> sink_;
};

class txnAppliedTos {
 public:
  // New until the owner is read from QuickBooks; Dirty after an Add or Remove on a stored one.
  qoEnumObjectState ObjectState() const { return state_; }
  std::shared_ptr<qcErrors> Errors();

  // Pays PaymentAmount on the document TxnId, with an optional discount to
  // DiscountAccount. The owner may refuse (a stored payment, or more applied than its
  // total); a raise from the owner leaves the new member in the collection. Null when the
  // member fails its own checks.
  std::shared_ptr<txnAppliedTo> Add(const std::string& TxnId, Currency PaymentAmount,
                                    Currency DiscountAmount = Currency(), const std::string& DiscountAccount = "");
  bool ItemExists(const Variant& Index) const;
  // By 1-based position or by TxnId.
  std::shared_ptr<txnAppliedTo> Item(const Variant& Index) const;
  long Count() const { return col_.Count(); }
  std::vector<std::shared_ptr<txnAppliedTo>> NewEnum() const { return col_.Values(); }
  void Clear();
  void Remove(const Variant& Index);

  // Sums over the members: their discounts, their credits, their amounts (those not 0).
  Currency TotalDiscounts() const;
  Currency TotalCredits() const;
  Currency Total() const;

  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  friend class detail::TxnAccess;
  void SetOwnerType(qoEnumListObjectType value) { ownerType_ = value; }
  void SetEventSink(const std::shared_ptr<qcEventSink>& sink) { sink_ = sink; }
  void SetObjectState(qoEnumObjectState value);
  // The owner's guard against changing a stored document; raises to refuse.
  void SetOwnerGuard(std::function<void()> guard) { guard_ = std::move(guard); }
  void MarkModified();
  // Drops every member without an event: before an answer is read.
  void ClearMembers() { col_ = Collection<std::shared_ptr<txnAppliedTo>>(); }
  void ReadMember(const XmlNode& node);
  void WriteRequest(xmlBldr& b, bool isMod) const;
  void WriteQueryRs(xmlBldr& b) const;

  Collection<std::shared_ptr<txnAppliedTo>> col_;
  std::shared_ptr<qcErrors> errors_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
  qoEnumObjectState state_ = qoObjectStateNew;
  std::shared_ptr<qcEventSink> sink_;
  std::function<void()> guard_;
};

}  // namespace tessaron
