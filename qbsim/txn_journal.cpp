// Journal entries: debit and credit lines against accounts, posted as they stand. QuickBooks
// refuses an entry whose debits and credits differ, a receivable line without a customer, a
// payable line without a vendor, and a line on a non-posting account.
#include "qbsim/common_fields.h"
#include "qbsim/company_records.h"
#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/currency.h"

namespace tessaron::qbsim {
namespace {

using VT = ValueType;

constexpr const RefTarget& kAccount = fields::kAccountTarget;
constexpr const RefTarget& kEntity = fields::kEntityTarget;
constexpr const RefTarget& kClass = fields::kClassTarget;

constexpr uint16_t kAddRet = kInAdd | kInRet;

// JournalEntryRet after TxnNumber, before the lines.
constexpr Field kJournalHeader[] = {V("TxnDate", VT::Date), V("RefNumber").Max(11), V("Memo").Max(4095).Only(kAddRet),
                                    V("IsAdjustment", VT::Bool)};

constexpr Field kJournalLine[] = {V("TxnLineID").Only(kInRet), R("AccountRef", kAccount), V("Amount", VT::Amount),
                                  V("Memo").Max(4095), R("EntityRef", kEntity), R("ClassRef", kClass)};

constexpr TxnLineForm kJournalLines{kJournalLine, {"JournalDebitLine", "JournalCreditLine"}, false, "JournalLineType",
                                    {"Debit", "Credit"}};

int64_t AmountOf(const TxnLine& l) {
  Currency c;
  return Currency::TryParse(l.fields.Get("Amount"), c) ? RoundToCents(c.Raw()) : 0;
}
bool IsDebit(const TxnLine& l) { return l.fields.Get("JournalLineType") != "Credit"; }

// "There was an error when saving a ..." is how QuickBooks answers a document it will not
// keep: status 3180 with its own reason.
Status NotSaved(const std::string& why) {
  return {status::kItemNameInUse, "There was an error when saving a Journal Entry.  QuickBooks error message: " + why};
}

Status CompleteJournal(RequestContext&, ListCache& lists, TxnDocument& doc, bool) {
  if (doc.lines.empty()) return status::MissingElement("JournalDebitLine");
  int64_t balance = 0;
  for (const TxnLine& l : doc.lines) {
    const int64_t amount = AmountOf(l);
    if (amount < 0) return status::BadValue("Amount", std::string(l.fields.Get("Amount")));
    balance += IsDebit(l) ? amount : -amount;
    const std::string account(l.fields.Get("AccountRef"));
    if (account.empty()) {
      if (amount != 0) return status::MissingElement("AccountRef");
      continue;
    }
    const std::string_view type = lists.Get(account, "AccountType");
    const ListCache::Entry* entity = lists.Find(std::string(l.fields.Get("EntityRef")));
    const std::string_view entityKind = entity ? std::string_view(entity->kind) : std::string_view();
    if (type == "AccountsReceivable" && entityKind != "Customer")
      return NotSaved("Transactions to accounts receivable must include a customer.");
    if (type == "AccountsPayable" && entityKind != "Vendor")
      return NotSaved("Transactions to accounts payable must include a vendor.");
    if (type == "NonPosting") return NotSaved("Non-posting accounts cannot be used.");
  }
  if (balance != 0) return NotSaved("Transaction not in balance.");
  return status::Ok();
}

// Each line to its account as it stands; a receivable or payable line is an open amount
// of the entry itself, as an invoice's receivable row is, and so is money put into
// Undeposited Funds, which a deposit then takes out by naming the entry.
std::vector<Posting> PostJournal(RequestContext&, ListCache& lists, WriteScope&, const TxnDocument& doc) {
  std::vector<Posting> rows;
  for (const TxnLine& l : doc.lines) {
    const int64_t amount = AmountOf(l);
    const std::string account(l.fields.Get("AccountRef"));
    if (amount == 0 || account.empty()) continue;
    const std::string_view type = lists.Get(account, "AccountType");
    const bool open = type == "AccountsReceivable" || type == "AccountsPayable" ||
                      lists.Get(account, "SpecialAccountType") == "UndepositedFunds";
    rows.push_back({account, IsDebit(l) ? amount : -amount, std::string(l.fields.Get("EntityRef")), "",
                    std::string(l.fields.Get("ClassRef")), open ? doc.record.txnId : ""});
  }
  return rows;
}

// A journal entry answers no totals.
void JournalFigures(RequestContext&, const TxnDocument&, FieldMap&) {}

}  // namespace

const TxnKind& JournalEntryKind() {
  // Entries have no account of their own: every line names one. The library adds and
  // voids them only.
  static const TxnKind kind{.name = "JournalEntry", .retTag = "JournalEntryRet", .lineTag = "", .groupTag = "",
                            .entityTag = "", .accountTag = "", .header = kJournalHeader, .lineFields = {},
                            .complete = CompleteJournal, .post = PostJournal, .figures = JournalFigures,
                            .defaultAccount = nullptr, .canModify = false, .lineForm = &kJournalLines};
  return kind;
}

}  // namespace tessaron::qbsim
