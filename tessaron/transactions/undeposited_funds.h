// UndepositedFund and UndepositedFunds: a read-only view of the money waiting in
// Undeposited Funds to be deposited: one record per payment (or other document) with what
// is still undeposited of it. A deposit line takes such a payment by its TxnId.
//
//   auto waiting = company->UndepositedFunds();
//   waiting->GetAll();
//   for (const auto& f : *waiting) deposit->Lines()->AddPayment(f->TxnId());
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/collection.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcErrors;

class UndepositedFund {
 public:
  // The payment (or other document) whose money waits.
  const std::string& TxnId() const { return txnId_; }
  const std::string& TxnLineId() const { return txnLineId_; }
  // "ReceivePayment", "SalesReceipt", "JournalEntry", ...
  const std::string& TxnType() const { return txnType_; }
  const std::string& Customer() const { return customer_; }
  Date TxnDate() const { return txnDate_; }
  const std::string& RefNumber() const { return refNumber_; }
  // What is still undeposited of it.
  Currency Amount() const { return amount_; }

  // Reads a ReceivePaymentToDepositRet; unknown elements are skipped.
  void FromDom(const XmlNode& node);

 private:
  std::string txnId_, txnLineId_, txnType_, customer_, refNumber_;
  Date txnDate_ = 0;
  Currency amount_;
};

class UndepositedFunds {
 public:
  UndepositedFunds();
  ~UndepositedFunds();

  // Replaces the content with what waits now; returns Count. A refused query leaves its
  // error in Errors.
  int32_t GetAll();
  long Count() const { return mCol_.Count(); }
  // By position from 1 or by TxnId.
  std::shared_ptr<UndepositedFund> Item(const Variant& vntIndexKey) const { return mCol_.Item(vntIndexKey); }
  bool ItemExists(const Variant& vntIndexKey) const;
  void Clear() { mCol_ = Collection<std::shared_ptr<UndepositedFund>>(); }
  std::shared_ptr<qcErrors> Errors();
  // The sum of what waits.
  Currency Total() const;

  auto begin() const { return mCol_.begin(); }
  auto end() const { return mCol_.end(); }

 private:
  mutable Collection<std::shared_ptr<UndepositedFund>> mCol_;
  std::shared_ptr<qcErrors> mErrors_;
};

}  // namespace tessaron
