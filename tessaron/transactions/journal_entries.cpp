#include "tessaron/transactions/journal_entries.h"

#include "tessaron/foundation/qc_error.h"

namespace tessaron {

const TxnCollectionInfo& JournalEntries::Info() {
  static const TxnCollectionInfo info = [] {
    TxnCollectionInfo i;
    i.className = "JournalEntry";
    i.objectType = qoObjectTypeJournalEntry;
    i.queryRequest = "JournalEntryQueryRq";
    i.mirrorObjectName = "JournalEntry";
    return i;
  }();
  return info;
}

JournalEntries::JournalEntries() : TxnCollection<JournalEntry>(Info()) {}

std::shared_ptr<JournalEntry> JournalEntries::Add(const std::string& RefNumber, Date TxnDate, const std::string& Memo) {
  Errors()->Clear();
  return AddNew([&](JournalEntry& je) {
    if (!RefNumber.empty()) je.SetRefNumber(RefNumber);
    if (TxnDate != 0) je.SetTxnDate(TxnDate);
    if (!Memo.empty()) je.SetMemo(Memo);
  });
}

}  // namespace tessaron
