#include "tessaron/transactions/deposits.h"

#include "tessaron/foundation/qc_error.h"

namespace tessaron {

const TxnCollectionInfo& Deposits::Info() {
  static const TxnCollectionInfo info = [] {
    TxnCollectionInfo i;
    i.className = "Deposit";
    i.objectType = qoObjectTypeDeposit;
    i.queryRequest = "DepositQueryRq";
    i.mirrorObjectName = "Deposit";
    i.linkedTxns = false;
    return i;
  }();
  return info;
}

Deposits::Deposits() : TxnCollection<Deposit>(Info()) {}

std::shared_ptr<Deposit> Deposits::Add(const std::string& DepositToAccount, Date TxnDate, const std::string& Memo) {
  Errors()->Clear();
  return AddNew([&](Deposit& d) {
    if (!DepositToAccount.empty()) d.SetDepositToAccount(DepositToAccount);
    if (TxnDate != 0) d.SetTxnDate(TxnDate);
    if (!Memo.empty()) d.SetMemo(Memo);
  });
}

}  // namespace tessaron
