// txnLinkedTransactions: the documents a transaction is linked to (a payment received on
// an invoice, an estimate turned into it), as the LinkedTxn elements of an answer carry
// them. Read only: links are made by the documents that apply, not here.
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

class xmlBldr;

namespace detail {
class TxnAccess;
}

class txnLinkedTransaction {
 public:
  const std::string& TxnId() const { return txnId_; }
  // The kind of the other document as QuickBooks names it ("ReceivePayment").
  const std::string& TxnType() const { return txnType_; }
  Date TxnDate() const { return txnDate_; }
  const std::string& RefNumber() const { return refNumber_; }
  // "AMTTYPE" or "QUANTYPE" where QuickBooks says how the link counts.
  const std::string& LinkType() const { return linkType_; }
  Currency Amount() const { return amount_; }

 private:
  friend class txnLinkedTransactions;
  void FromDom(const XmlNode& node);
  void WriteQueryRs(xmlBldr& b) const;

  std::string txnId_;
  std::string txnType_;
  Date txnDate_ = 0;
  std::string refNumber_;
  std::string linkType_;
  Currency amount_;
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
