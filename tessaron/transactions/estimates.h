// Estimates: the master collection of estimates (Company.Estimates), with the queries,
// Commit, Delete of every transaction collection and its Add.
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/date.h"
#include "tessaron/transactions/estimate.h"
#include "tessaron/transactions/txn_collection.h"

namespace tessaron {

class Estimates final : public TxnCollection<Estimate> {
 public:
  Estimates();

  // A new estimate, New and held here; nothing is sent. Master only (else 0x800403FD).
  // Every argument is optional: an empty text or a zero date leaves the default.
  std::shared_ptr<Estimate> Add(const std::string& Customer = "", const std::string& RefNumber = "", Date TxnDate = 0,
                               const std::string& Class = "", const std::string& CustomerMessage = "",
                               const std::string& Memo = "", const std::string& SalesRep = "",
                               const std::string& PONumber = "");

 private:
  static const TxnCollectionInfo& Info();
};

}  // namespace tessaron
