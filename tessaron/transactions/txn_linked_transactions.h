// txnLinkedTransactions: the documents a transaction is linked to (a payment received on
// an invoice, an estimate turned into it), as the LinkedTxn elements of an answer carry
// them. Read only: links are made by the documents that apply, not here, and a link is
// never sent in an add or a modify; it is written only to the saved form.
#pragma once

#include <cstdint>
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
class xmlBldr;

namespace detail {
class TxnAccess;
}

class txnLinkedTransaction {
 public:
  // False for a link that counts money ("AMTTYPE"), true for one that counts quantities.
  bool IsQuantityLink() const { return isQuantityLink_; }
  qoEnumObjectState ObjectState() const { return state_; }
  std::shared_ptr<qcErrors> Errors();
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  const std::string& TxnId() const { return txnId_; }
  void SetTxnId(const std::string& value) { txnId_ = value; }
  const std::string& TxnLineId() const { return txnLineId_; }
  void SetTxnLineId(const std::string& value) { txnLineId_ = value; }
  // The kind of the other document (qoObjectTypeReceivePayment for a payment).
  qoEnumListObjectType TxnType() const { return txnType_; }
  // The same as QuickBooks names it ("ReceivePayment"), also for kinds without a number.
  const std::string& TxnTypeName() const { return txnTypeName_; }
  Date TxnDate() const { return txnDate_; }
  const std::string& RefNumber() const { return refNumber_; }
  // "AMTTYPE" or "QUANTYPE" where QuickBooks says how the link counts.
  const std::string& LinkType() const { return linkType_; }
  Currency Amount() const { return amount_; }
  void SetAmount(Currency value) { amount_ = value; }
  // What a bill or credit to pay still holds (open bills and credits of a vendor).
  Currency AmountDue() const { return amountDue_; }
  Currency CreditRemaining() const { return creditRemaining_; }
  Date DueDate() const { return dueDate_; }
  const std::string& APAccount() const { return apAccount_; }

 private:
  friend class txnLinkedTransactions;
  // A LinkedTxn, or a bill or credit to pay (with AmountDue, CreditRemaining, DueDate,
  // APAccountRef); unknown elements are skipped.
  void FromDom(const XmlNode& node);
  // LinkedTxn with TxnID, TxnType, TxnDate, RefNumber and Amount: the saved form only.
  void WriteQueryRs(xmlBldr& b) const;

  bool isQuantityLink_ = false;
  qoEnumObjectState state_ = qoObjectStateNew;
  std::shared_ptr<qcErrors> errors_;
  Variant userData_;
  std::string txnId_;
  std::string txnLineId_;
  qoEnumListObjectType txnType_ = static_cast<qoEnumListObjectType>(0);
  std::string txnTypeName_;
  Date txnDate_ = 0;
  std::string refNumber_;
  std::string linkType_;
  Currency amount_;
  Currency amountDue_;
  Currency creditRemaining_;
  Date dueDate_ = 0;
  std::string apAccount_;
};

class txnLinkedTransactions {
 public:
  long Count() const { return col_.Count(); }
  // By 1-based position.
  std::shared_ptr<txnLinkedTransaction> Item(long Index) const { return col_.Item(Index); }
  std::vector<std::shared_ptr<txnLinkedTransaction>> NewEnum() const { return col_.Values(); }
  // The object type of the document that holds the links.
  qoEnumListObjectType OwnerType() const { return ownerType_; }

  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  friend class detail::TxnAccess;
  friend class TxnObject;
  void SetOwnerType(qoEnumListObjectType value) { ownerType_ = value; }
  void Clear() { col_ = Collection<std::shared_ptr<txnLinkedTransaction>>(); }
  // One LinkedTxn element, added last.
  void ReadLink(const XmlNode& node);
  // Every link as a LinkedTxn element of the saved form.
  void WriteQueryRs(xmlBldr& b) const;

  Collection<std::shared_ptr<txnLinkedTransaction>> col_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
};

}  // namespace tessaron
