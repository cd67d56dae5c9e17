// The kinds of transactions the tessaron command lists and shows, by their collection's
// name ("Bills") or their own ("Bill"). Adding a kind is one row in txn_kinds.cpp.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tessaron {
class TxnCollectionBase;
}

namespace tessaron::cli {

struct TxnKindInfo {
  const char* collection;  // "Invoices"
  const char* kind;        // "Invoice"
  // The queries may ask for paid or unpaid documents only (--open, --paid).
  bool paidStatus;
  // An application's own (non-master) collection of the kind, for its queries.
  std::unique_ptr<TxnCollectionBase> (*make)();
};

// Null when no kind has that name (either form, any case).
const TxnKindInfo* FindTxnKind(const std::string& name);
// "Invoices, Bills, ..." for help and error texts.
std::string TxnCollectionNames();
std::vector<std::string> TxnKindNames();

}  // namespace tessaron::cli
