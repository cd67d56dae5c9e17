// The accounts the ledger posts to by role rather than by a reference of the document.
#include "qbsim/company_file.h"
#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"

namespace tessaron::qbsim {
namespace {

struct SpecialAccountDefault {
  const char* special;
  const char* name;
  const char* type;
};

// What QuickBooks names the accounts it creates when a posting needs one.
constexpr SpecialAccountDefault kDefaults[] = {
    {"AccountsReceivable", "Accounts Receivable", "AccountsReceivable"},
    {"AccountsPayable", "Accounts Payable", "AccountsPayable"},
    {"SalesTaxPayable", "Sales Tax Payable", "OtherCurrentLiability"},
    {"UncategorizedIncome", "Uncategorized Income", "Income"},
    {"UncategorizedExpenses", "Uncategorized Expenses", "Expense"},
    {"OpeningBalanceEquity", "Opening Balance Equity", "Equity"},
    {"UndepositedFunds", "Undeposited Funds", "OtherCurrentAsset"},
};

// Accounts whose field `tag` has `value`, oldest first.
std::vector<std::string> AccountsWith(CompanyFile& file, std::string_view tag, std::string_view value) {
  std::vector<std::string> out;
  // The text search narrows the accounts to those that can match before their fields are read.
  SqlStatement st = file.Db().Prepare(
      "SELECT list_id, body FROM list_record WHERE kind = 'Account' AND instr(body, ?) > 0 ORDER BY rowid");
  st.Bind(1, value);
  FieldView fields;
  while (st.Step()) {
    fields.Parse(st.Text(1));
    const std::string_view* v = fields.Find(tag);
    if (v && *v == value) out.emplace_back(st.Text(0));
  }
  return out;
}

}  // namespace

std::vector<std::string> AccountsOfType(RequestContext& ctx, std::string_view accountType) {
  return AccountsWith(ctx.file, "AccountType", accountType);
}

std::string SpecialAccount(RequestContext& ctx, WriteScope* scope, std::string_view specialType) {
  return SpecialAccount(ctx.file, ctx.store, scope, specialType);
}

std::string SpecialAccount(CompanyFile& file, ListStore& store, WriteScope* scope, std::string_view specialType) {
  std::vector<std::string> found = AccountsWith(file, "SpecialAccountType", specialType);
  if (!found.empty()) return found.front();
  if (!scope) return {};
  for (const SpecialAccountDefault& d : kDefaults) {
    if (specialType != d.special) continue;
    // A user's account of the name is taken over rather than named twice.
    auto holder = store.NameHolder("Account", d.name);
    if (holder) return holder->listId;
    ListRecord rec;
    rec.kind = "Account";
    rec.name = rec.fullName = d.name;
    rec.listId = scope->NewId();
    rec.editSequence = scope->NewEditSequence();
    rec.timeCreated = rec.timeModified = scope->Timestamp();
    FieldMap body;
    body.Set("AccountType", d.type);
    body.Set("SpecialAccountType", d.special);
    rec.body = body.Encode();
    store.Insert(rec, {});
    return rec.listId;
  }
  return {};
}

}  // namespace tessaron::qbsim
