// Deposits: the master collection of deposits (Company.Deposits), with the queries,
// Commit, Delete and Void of every transaction collection.
//
//   auto deposits = company->Deposits();
//   auto d = deposits->Add("Checking");
//   d->Lines()->AddPayment(paymentTxnId);
//   d->Lines()->Add("Owner Investment", Currency(500));
//   deposits->Commit(d);
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/date.h"
#include "tessaron/transactions/deposit.h"
#include "tessaron/transactions/txn_collection.h"

namespace tessaron {

class Deposits final : public TxnCollection<Deposit> {
 public:
  Deposits();

  // A new deposit, New and held here; nothing is sent. Master only (else 0x800403FD).
  std::shared_ptr<Deposit> Add(const std::string& DepositToAccount = "", Date TxnDate = 0,
                               const std::string& Memo = "");

 private:
  static const TxnCollectionInfo& Info();
};

}  // namespace tessaron
