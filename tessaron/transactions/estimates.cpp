#include "tessaron/transactions/estimates.h"

#include "tessaron/foundation/qc_error.h"

namespace tessaron {

const TxnCollectionInfo& Estimates::Info() {
  static const TxnCollectionInfo info = [] {
    TxnCollectionInfo i;
    i.className = "Estimate";
    i.objectType = qoObjectTypeEstimate;
    i.queryRequest = "EstimateQueryRq";
    i.mirrorObjectName = "Estimate";
    // An estimate posts nothing, so there is nothing to void.
    i.canVoid = false;
    return i;
  }();
  return info;
}

Estimates::Estimates() : TxnCollection<Estimate>(Info()) {}

std::shared_ptr<Estimate> Estimates::Add(const std::string& Customer, const std::string& RefNumber, Date TxnDate,
                                     const std::string& Class, const std::string& CustomerMessage,
                                     const std::string& Memo, const std::string& SalesRep,
                                     const std::string& PONumber) {
  Errors()->Clear();
  return AddNew([&](Estimate& doc) {
    FillSalesAdd(doc, Customer, RefNumber, TxnDate, Class, CustomerMessage, Memo, SalesRep);
    if (!PONumber.empty()) doc.SetPONumber(PONumber);
  });
}

}  // namespace tessaron
