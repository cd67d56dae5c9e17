// ReceivePayments: the master collection of received payments (Company.ReceivePayments),
// with the queries, Commit and Delete of every transaction collection and its Add.
// QuickBooks keeps no modify and no void of a payment here: Void raises.
//
//   auto payments = company->ReceivePayments();
//   auto p = payments->Add("Acme", Currency(250));
//   p->SetIsAutoApply(true);
//   payments->Commit(p);
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/transactions/receive_payment.h"
#include "tessaron/transactions/txn_collection.h"

namespace tessaron {

class ReceivePayments final : public TxnCollection<ReceivePayment> {
 public:
  ReceivePayments();

  // A new payment, New and held here; nothing is sent. Master only (else 0x800403FD).
  // Every argument is optional: an empty text or a zero leaves the default (ARAccount:
  // the company's first receivable account). The setters' errors reach the caller.
  std::shared_ptr<ReceivePayment> Add(const std::string& Customer = "", Currency Total = Currency(),
                                      Date TxnDate = 0, const std::string& RefNumber = "",
                                      const std::string& PaymentMethod = "", const std::string& Memo = "",
                                      const std::string& DepositToAccount = "", const std::string& ARAccount = "");

 private:
  static const TxnCollectionInfo& Info();
};

}  // namespace tessaron
