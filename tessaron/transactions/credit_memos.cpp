#include "tessaron/transactions/credit_memos.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/qc_error.h"

namespace tessaron {

const TxnCollectionInfo& CreditMemos::Info() {
  static const TxnCollectionInfo info = [] {
    TxnCollectionInfo i;
    i.className = "CreditMemo";
    i.objectType = qoObjectTypeCreditMemo;
    i.queryRequest = "CreditMemoQueryRq";
    i.mirrorObjectName = "CreditMemo";
    return i;
  }();
  return info;
}

CreditMemos::CreditMemos() : TxnCollection<CreditMemo>(Info()) {}

std::shared_ptr<CreditMemo> CreditMemos::Add(const std::string& Customer, const std::string& RefNumber, Date TxnDate,
                                     const std::string& Class, const std::string& CustomerMessage,
                                     const std::string& Memo, const std::string& SalesRep,
                                     const std::string& ARAccount, const std::string& PONumber) {
  Errors()->Clear();
  return AddNew([&](CreditMemo& doc) {
    auto company = State().CurrentCompany;
    if (!ARAccount.empty()) doc.SetARAccount(ARAccount);
    else if (company) doc.SetARAccount(company->DefaultARAccount());
    FillSalesAdd(doc, Customer, RefNumber, TxnDate, Class, CustomerMessage, Memo, SalesRep);
    if (!PONumber.empty()) doc.SetPONumber(PONumber);
  });
}

}  // namespace tessaron
