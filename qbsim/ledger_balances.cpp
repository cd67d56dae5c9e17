#include "qbsim/ledger_balances.h"

#include "qbsim/company_file.h"
#include "qbsim/field_map.h"
#include "qbsim/ledger.h"
#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/date.h"

namespace tessaron::qbsim {
namespace {

// Accounts whose balance is on the debit side; the others are answered credit positive.
bool DebitNatured(std::string_view accountType) {
  for (const char* t : {"Bank", "AccountsReceivable", "OtherCurrentAsset", "FixedAsset", "OtherAsset", "Expense",
                        "OtherExpense", "CostOfGoodsSold"})
    if (accountType == t) return true;
  return false;
}

}  // namespace

void PostOpeningBalance(CompanyFile& file, ListStore& store, WriteScope& scope, const ListRecord& r, int64_t amount,
                        const std::string& date) {
  if (amount == 0) return;
  std::string equity = SpecialAccount(file, store, &scope, "OpeningBalanceEquity");
  const std::string day = date.empty() ? FormatDate(Today(), "yyyy-mm-dd") : date;
  if (r.kind == "Customer") {
    // QuickBooks keeps what a customer owed on the opening day as an invoice of its own, with
    // one line "Opening balance": it is listed, aged and paid as any other invoice, so that a
    // customer's balance is always the sum of its open invoices.
    LedgerStore ledger(file);
    const std::string ar = SpecialAccount(file, store, &scope, "AccountsReceivable");
    FieldMap header;
    header.Set("CustomerRef", r.listId);
    header.Set("ARAccountRef", ar);
    header.Set("TxnDate", day);
    TxnRecord txn;
    txn.kind = "Invoice";
    txn.txnId = scope.NewId();
    txn.txnNumber = ledger.NextTxnNumber();
    txn.editSequence = scope.NewEditSequence();
    txn.timeCreated = txn.timeModified = scope.Timestamp();
    txn.txnDate = day;
    txn.entityId = r.listId;
    txn.accountId = ar;
    txn.body = header.Encode();
    FieldMap line;
    line.Set("Desc", "Opening balance");
    line.Set("Amount", CentsText(amount));
    const std::vector<TxnLineRecord> lines = {{scope.NewId(), "", line.Encode()}};
    const std::vector<Posting> rows = {{ar, amount, r.listId, "", "", txn.txnId}, {equity, -amount, r.listId, "", "", ""}};
    ledger.Insert(txn, lines, rows);
    return;
  }
  Posting own;
  own.entityId = r.kind == "Account" ? "" : r.listId;
  if (r.kind == "Vendor") {
    own = {SpecialAccount(file, store, &scope, "AccountsPayable"), -amount, r.listId, "", "", r.listId};
  } else {
    bool debit = DebitNatured(FieldMap::Decode(r.body).Get("AccountType"));
    own = {r.listId, debit ? amount : -amount, "", "", "", ""};
  }
  Posting balancing{equity, -own.amount, own.entityId, "", "", ""};
  TxnRecord txn;
  txn.txnId = r.listId;
  txn.txnDate = day;
  std::vector<Posting> rows = {own, balancing};
  LedgerStore(file).AddPostings(txn, rows);
}

int64_t LedgerBalance(RequestContext& ctx, const RecordRow& row, bool withChildren) {
  LedgerStore ledger(ctx.file);
  if (row.kind == "Customer") {
    std::vector<std::string> ar = AccountsOfType(ctx, "AccountsReceivable");
    return ar.empty() ? 0 : ledger.EntityBalance(row.listId, ar, withChildren);
  }
  if (row.kind == "Vendor") {
    std::vector<std::string> ap = AccountsOfType(ctx, "AccountsPayable");
    return ap.empty() ? 0 : -ledger.EntityBalance(row.listId, ap, withChildren);
  }
  if (row.kind == "Account") {
    FieldView fields;
    fields.Parse(row.body);
    const std::string_view* type = fields.Find("AccountType");
    int64_t sum = ledger.AccountBalance(row.listId, withChildren);
    return type && DebitNatured(*type) ? sum : -sum;
  }
  return 0;
}

}  // namespace tessaron::qbsim
