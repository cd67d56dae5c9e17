// The ledger of a company file: stored transactions with their lines, and the double-entry
// postings that each transaction makes. Every balance, open amount and report figure is
// summed from the postings when asked for; no total is stored beside them, so none can drift.
//
// A posting is data: each kind of transaction has one function that turns its document into
// debit and credit rows (see txn_postings.h). Amounts are ten-thousandths, debits positive
// and credits negative, so the rows of one transaction always sum to zero.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qbsim/sql.h"

namespace tessaron::qbsim {

class CompanyFile;

// Creates the ledger's tables; run inside the transaction that creates or upgrades a file.
void CreateLedgerTables(SqlDatabase& db);

// Rounds an amount to whole cents as QuickBooks does: halves away from zero. Every line
// amount and every tax total passes through here, once.
int64_t RoundToCents(int64_t raw);
// The amount text of a response: two decimals.
std::string CentsText(int64_t raw);

// One row of a posting: a debit (positive) or credit (negative) to an account.
struct Posting {
  std::string accountId;
  int64_t amount = 0;
  std::string entityId;  // customer, vendor, ... the row concerns
  std::string itemId;
  std::string classId;
  // The document whose open amount the row changes (an invoice's receivable row names the
  // invoice; a payment applied to it will name it too).
  std::string openTxnId;
};

// A stored transaction as the ledger keeps it: its columns, its header fields and its lines
// as stored texts (see FieldMap).
struct TxnRecord {
  int64_t rowid = 0;
  std::string kind, txnId, editSequence, timeCreated, timeModified, txnDate, refNumber, entityId, accountId, body;
  int64_t txnNumber = 0;
  bool isVoid = false;
};

struct TxnLineRecord {
  std::string lineId;
  std::string groupLineId;  // the head line of a group for its members; empty otherwise
  std::string body;
};

// What a transaction query selects before the filters that look into the documents.
struct TxnSelection {
  std::string kind;
  std::vector<std::string> txnIds;
  std::optional<double> modifiedFrom, modifiedTo;  // day counts; to is exclusive
  std::optional<std::string> txnDateFrom, txnDateTo;  // "yyyy-mm-dd", inclusive
  std::vector<std::string> entityIds;               // empty: all
  std::vector<std::string> accountIds;              // postings to any of them
  std::vector<std::string> refNumbers;              // exact, any of them
  int limit = 0;
};

class LedgerStore {
 public:
  explicit LedgerStore(CompanyFile& file);

  // Writing, inside a WriteScope: a transaction replaces its lines and postings whole.
  void Insert(TxnRecord& txn, std::span<const TxnLineRecord> lines, std::span<const Posting> postings);
  void Update(const TxnRecord& txn, std::span<const TxnLineRecord> lines, std::span<const Posting> postings);
  void Delete(const TxnRecord& txn, const std::string& timeDeleted, double deletedAt);

  // Rows that belong to no stored transaction (opening balances), added to those already there.
  void AddPostings(const TxnRecord& owner, std::span<const Posting> postings);

  std::optional<TxnRecord> ByTxnId(std::string_view txnId);
  std::vector<TxnLineRecord> Lines(std::string_view txnId);
  // Calls `onRow` for each selected transaction by date then number; stops when it returns false.
  void Select(const TxnSelection& selection, const std::function<bool(const TxnRecord&)>& onRow);

  // The next transaction number of the file and the next reference number of a kind.
  int64_t NextTxnNumber();
  std::string NextRefNumber(std::string_view kind);

  // Sums of postings.
  int64_t AccountBalance(std::string_view accountId, bool withChildren = false);
  // The receivable (or payable) rows of an entity, alone or with everything below it.
  int64_t EntityBalance(std::string_view entityId, std::span<const std::string> accountIds, bool withChildren);
  // What is still open of a document: its own rows and those applied to it, on those accounts.
  int64_t OpenAmount(std::string_view txnId, std::span<const std::string> accountIds);
  // The other transactions whose rows name `txnId` as the document they change (the
  // payments applied to an invoice), each with the sum of those rows, oldest first.
  struct Link {
    std::string txnId, kind, txnDate, refNumber;
    int64_t amount = 0;
  };
  std::vector<Link> LinksTo(std::string_view txnId);
  // The sum of a transaction's own rows on those accounts.
  int64_t TxnAmount(std::string_view txnId, std::span<const std::string> accountIds);
  // How many postings and documents name a list record (account, entity, item, class).
  int64_t ReferenceCount(std::string_view listId);
  // Every posting of the file summed: zero in a sound ledger.
  int64_t Imbalance();

  // Deleted transactions of those kinds, oldest first.
  struct DeletedTxn {
    std::string kind, txnId, refNumber, timeCreated, timeDeleted;
  };
  std::vector<DeletedTxn> SelectDeleted(std::span<const std::string> kinds, std::optional<double> from,
                                        std::optional<double> to);

 private:
  void WriteLinesAndPostings(const TxnRecord& txn, std::span<const TxnLineRecord> lines,
                             std::span<const Posting> postings);
  // A statement prepared once per store: a sample company writes tens of thousands of documents.
  SqlStatement& Cached(const char* sql);
  CompanyFile& file_;
  std::map<const char*, SqlStatement> statements_;
};

}  // namespace tessaron::qbsim
