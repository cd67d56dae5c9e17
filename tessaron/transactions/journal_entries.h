// JournalEntries: the master collection of journal entries (Company.JournalEntries), with
// the queries, Commit, Delete and Void of every transaction collection. QuickBooks always
// answers an entry with its lines.
//
//   auto entries = company->JournalEntries();
//   auto je = entries->Add("ADJ-1");
//   je->Lines()->Add("Rent", Currency(100), true);
//   je->Lines()->Add("Checking", Currency(100), false);
//   entries->Commit(je);
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/date.h"
#include "tessaron/transactions/journal_entry.h"
#include "tessaron/transactions/txn_collection.h"

namespace tessaron {

class JournalEntries final : public TxnCollection<JournalEntry> {
 public:
  JournalEntries();

  // A new entry, New and held here; nothing is sent. Master only (else 0x800403FD). An
  // empty text or a zero date leaves the default.
  std::shared_ptr<JournalEntry> Add(const std::string& RefNumber = "", Date TxnDate = 0, const std::string& Memo = "");

 private:
  static const TxnCollectionInfo& Info();
};

}  // namespace tessaron
