// CreditMemos: the master collection of credit memos (Company.CreditMemos), with the queries,
// Commit, Delete, Void of every transaction collection and its Add.
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/date.h"
#include "tessaron/transactions/credit_memo.h"
#include "tessaron/transactions/txn_collection.h"

namespace tessaron {

class CreditMemos final : public TxnCollection<CreditMemo> {
 public:
  CreditMemos();

  // A new credit memo, New and held here; nothing is sent. Master only (else 0x800403FD).
  // Every argument is optional: an empty text or a zero date leaves the default.
  // ARAccount starts as the company's first receivable account.
  std::shared_ptr<CreditMemo> Add(const std::string& Customer = "", const std::string& RefNumber = "", Date TxnDate = 0,
                               const std::string& Class = "", const std::string& CustomerMessage = "",
                               const std::string& Memo = "", const std::string& SalesRep = "",
                               const std::string& ARAccount = "", const std::string& PONumber = "");

 private:
  static const TxnCollectionInfo& Info();
};

}  // namespace tessaron
