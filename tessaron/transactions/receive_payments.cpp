#include "tessaron/transactions/receive_payments.h"

#include "tessaron/foundation/qc_error.h"

namespace tessaron {

const TxnCollectionInfo& ReceivePayments::Info() {
  static const TxnCollectionInfo info = [] {
    TxnCollectionInfo i;
    i.className = "ReceivePayment";
    i.objectType = qoObjectTypeReceivePayment;
    i.queryRequest = "ReceivePaymentQueryRq";
    i.mirrorObjectName = "ReceivePayment";
    // The payment query knows neither linked documents nor a void.
    i.linkedTxns = false;
    i.canVoid = false;
    return i;
  }();
  return info;
}

ReceivePayments::ReceivePayments() : TxnCollection<ReceivePayment>(Info()) {}

std::shared_ptr<ReceivePayment> ReceivePayments::Add(const std::string& Customer, Currency Total, Date TxnDate,
                                                     const std::string& RefNumber, const std::string& PaymentMethod,
                                                     const std::string& Memo, const std::string& DepositToAccount,
                                                     const std::string& ARAccount) {
  Errors()->Clear();
  return AddNew([&](ReceivePayment& p) {
    if (!ARAccount.empty()) p.SetARAccount(ARAccount);
    if (!Customer.empty()) p.SetCustomer(Customer);
    if (Total != Currency()) p.SetTotal(Total);
    if (TxnDate != 0) p.SetTxnDate(TxnDate);
    if (!RefNumber.empty()) p.SetRefNumber(RefNumber);
    if (!PaymentMethod.empty()) p.SetPaymentMethod(PaymentMethod);
    if (!Memo.empty()) p.SetMemo(Memo);
    if (!DepositToAccount.empty()) p.SetDepositToAccount(DepositToAccount);
  });
}

}  // namespace tessaron
