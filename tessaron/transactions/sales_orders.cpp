#include "tessaron/transactions/sales_orders.h"

#include "tessaron/foundation/qc_error.h"

namespace tessaron {

const TxnCollectionInfo& SalesOrders::Info() {
  static const TxnCollectionInfo info = [] {
    TxnCollectionInfo i;
    i.className = "SalesOrder";
    i.objectType = qoObjectTypeSalesOrder;
    i.queryRequest = "SalesOrderQueryRq";
    i.mirrorObjectName = "SalesOrder";
    // A sales order posts nothing, so there is nothing to void.
    i.canVoid = false;
    return i;
  }();
  return info;
}

SalesOrders::SalesOrders() : TxnCollection<SalesOrder>(Info()) {}

std::shared_ptr<SalesOrder> SalesOrders::Add(const std::string& Customer, const std::string& RefNumber, Date TxnDate,
                                     const std::string& Class, const std::string& CustomerMessage,
                                     const std::string& Memo, const std::string& SalesRep,
                                     const std::string& PONumber) {
  Errors()->Clear();
  return AddNew([&](SalesOrder& doc) {
    FillSalesAdd(doc, Customer, RefNumber, TxnDate, Class, CustomerMessage, Memo, SalesRep);
    if (!PONumber.empty()) doc.SetPONumber(PONumber);
  });
}

}  // namespace tessaron
