// SalesReceipts: the master collection of sales receipts (Company.SalesReceipts), with the queries,
// Commit, Delete and Void of every transaction collection and its Add.
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/date.h"
#include "tessaron/transactions/sales_receipt.h"
#include "tessaron/transactions/txn_collection.h"

namespace tessaron {

class SalesReceipts final : public TxnCollection<SalesReceipt> {
 public:
  SalesReceipts();

  // A new sales receipt, New and held here; nothing is sent. Master only (else 0x800403FD).
  // Every argument is optional: an empty text or a zero date leaves the default.
  // DepositToAccount empty leaves the money in Undeposited Funds.
  std::shared_ptr<SalesReceipt> Add(const std::string& Customer = "", const std::string& RefNumber = "", Date TxnDate = 0,
                               const std::string& Class = "", const std::string& CustomerMessage = "",
                               const std::string& Memo = "", const std::string& SalesRep = "",
                               const std::string& CheckNumber = "", const std::string& PaymentMethod = "",
                               const std::string& DepositToAccount = "");

 private:
  static const TxnCollectionInfo& Info();
};

}  // namespace tessaron
