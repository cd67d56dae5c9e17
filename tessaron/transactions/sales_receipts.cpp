#include "tessaron/transactions/sales_receipts.h"

#include "tessaron/foundation/qc_error.h"

namespace tessaron {

const TxnCollectionInfo& SalesReceipts::Info() {
  static const TxnCollectionInfo info = [] {
    TxnCollectionInfo i;
    i.className = "SalesReceipt";
    i.objectType = qoObjectTypeSalesReceipt;
    i.queryRequest = "SalesReceiptQueryRq";
    i.mirrorObjectName = "SalesReceipt";
    // QuickBooks links no documents to a sales receipt.
    i.linkedTxns = false;
    return i;
  }();
  return info;
}

SalesReceipts::SalesReceipts() : TxnCollection<SalesReceipt>(Info()) {}

std::shared_ptr<SalesReceipt> SalesReceipts::Add(const std::string& Customer, const std::string& RefNumber, Date TxnDate,
                                     const std::string& Class, const std::string& CustomerMessage,
                                     const std::string& Memo, const std::string& SalesRep,
                                     const std::string& CheckNumber, const std::string& PaymentMethod,
                                     const std::string& DepositToAccount) {
  Errors()->Clear();
  return AddNew([&](SalesReceipt& doc) {
    FillSalesAdd(doc, Customer, RefNumber, TxnDate, Class, CustomerMessage, Memo, SalesRep);
    if (!CheckNumber.empty()) doc.SetCheckNumber(CheckNumber);
    if (!PaymentMethod.empty()) doc.SetPaymentMethod(PaymentMethod);
    if (!DepositToAccount.empty()) doc.SetDepositToAccount(DepositToAccount);
  });
}

}  // namespace tessaron
