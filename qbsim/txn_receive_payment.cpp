// Payments received: the header table, the applied amounts (read from AppliedToTxnAdd,
// answered as AppliedToTxnRet), the choice of invoices when QuickBooks applies the money
// itself, the checks of what may be applied, and the posting.
//
// A payment debits the account it is deposited to (undeposited funds unless named) and
// credits receivables: each applied amount names the invoice it pays, a discount moves
// from the discount account to the invoice, a credit moves from the credit to the
// invoice, and what is left names the payment itself, so that every open amount is a sum
// of postings.
#include <algorithm>
#include <set>

#include "qbsim/company_file.h"
#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"

namespace tessaron::qbsim {
namespace {

using VT = ValueType;

constexpr const char* kAccountKinds[] = {"Account"};
constexpr const char* kCustomerKinds[] = {"Customer"};
constexpr const char* kPaymentMethodKinds[] = {"PaymentMethod"};
constexpr RefTarget kAccount{"Account", kAccountKinds};
constexpr RefTarget kCustomer{"Customer:Job", kCustomerKinds};
constexpr RefTarget kPaymentMethod{"PaymentMethod", kPaymentMethodKinds};

// ReceivePaymentRet after the transaction's own columns; IsAutoApply closes the add.
constexpr Field kHeader[] = {
    R("CustomerRef", kCustomer).Required(), R("ARAccountRef", kAccount), V("TxnDate", VT::Date),
    V("RefNumber").Max(20), V("TotalAmount", VT::Amount), R("PaymentMethodRef", kPaymentMethod),
    V("Memo").Max(4095), R("DepositToAccountRef", kAccount), V("UnusedPayment", VT::Amount).Only(kInRet),
    V("UnusedCredits", VT::Amount).Only(kInRet), V("IsAutoApply", VT::Bool).Only(kInAdd)};

constexpr Field kSetCredit[] = {V("CreditTxnID"), V("AppliedAmount", VT::Amount)};
constexpr Field kLink[] = {V("TxnID"),      V("TxnType"),   V("TxnDate", VT::Date), V("RefNumber"),
                           V("LinkType"),   V("Amount", VT::Amount)};

// AppliedToTxnAdd and AppliedToTxnRet in one table: each form takes its own rows in order.
constexpr Field kApplied[] = {V("TxnID"),
                              V("TxnType").Only(kInRet),
                              V("TxnDate", VT::Date).Only(kInRet),
                              V("RefNumber").Only(kInRet),
                              V("BalanceRemaining", VT::Amount).Only(kInRet),
                              V("Amount", VT::Amount).Only(kInRet),
                              V("PaymentAmount", VT::Amount).Only(kInAdd | kInMod),
                              RG("SetCredit", kSetCredit).Only(kInAdd | kInMod),
                              V("DiscountAmount", VT::Amount),
                              R("DiscountAccountRef", kAccount),
                              RG("LinkedTxn", kLink).Only(kInRet)};

int64_t Cents(std::string_view text) {
  Currency c;
  return Currency::TryParse(text, c) ? RoundToCents(c.Raw()) : 0;
}

std::string Indexed(const char* group, int i, const char* tag) {
  return std::string(group) + "#" + std::to_string(i) + "/" + tag;
}

// The credits used on one applied amount, as (credit TxnID, amount).
std::vector<std::pair<std::string, int64_t>> Credits(const FieldMap& f) {
  std::vector<std::pair<std::string, int64_t>> out;
  for (int i = 0;; ++i) {
    const std::string* id = f.Find(Indexed("SetCredit", i, "CreditTxnID"));
    if (!id) break;
    out.push_back({*id, Cents(f.Get(Indexed("SetCredit", i, "AppliedAmount")))});
  }
  return out;
}

// Money the customer gave without naming invoices goes to the oldest open ones first.
void AutoApply(LedgerStore& ledger, const std::string& customerId, int64_t total, TxnDocument& doc) {
  TxnSelection sel;
  sel.kind = "Invoice";
  sel.entityIds = {customerId};
  int64_t left = total;
  ledger.Select(sel, [&](const TxnRecord& rec) {
    if (left <= 0) return false;
    std::vector<std::string> ar = {rec.accountId};
    const int64_t open = ledger.OpenAmount(rec.txnId, ar);
    if (open <= 0 || rec.isVoid) return true;
    const int64_t pay = std::min(open, left);
    TxnLine line;
    line.fields.Set("TxnID", rec.txnId);
    line.fields.Set("PaymentAmount", CentsText(pay));
    doc.lines.push_back(std::move(line));
    left -= pay;
    return true;
  });
}

Status CompletePayment(RequestContext& ctx, ListCache& lists, TxnDocument& doc, bool isNew) {
  FieldMap& h = doc.header;
  const std::string customerId(h.Get("CustomerRef"));
  const ListCache::Entry* customer = lists.Find(customerId);
  if (!customer) return status::MissingElement("CustomerRef");
  if (!customer->active)
    return status::InvalidReference("Customer:Job", ctx.store.FullNameOf(customerId) + " (inactive)");
  if (const std::string* ar = h.Find("ARAccountRef"); ar && lists.Get(*ar, "AccountType") != "AccountsReceivable")
    return status::InvalidReference("Account", ctx.store.FullNameOf(*ar) + " (not an accounts receivable account)");
  if (isNew && !h.Has("TxnDate")) h.Set("TxnDate", FormatDate(Today(), "yyyy-mm-dd"));
  const bool autoApply = h.Get("IsAutoApply") == "true";
  h.Erase("IsAutoApply");

  LedgerStore ledger(ctx.file);
  if (autoApply) AutoApply(ledger, customerId, Cents(h.Get("TotalAmount")), doc);

  std::set<std::string> seen;
  int64_t applied = 0;
  for (TxnLine& line : doc.lines) {
    FieldMap& f = line.fields;
    const std::string id(f.Get("TxnID"));
    if (id.empty()) return status::MissingElement("TxnID");
    if (!seen.insert(id).second) return status::BadValue("TxnID", id);
    auto invoice = ledger.ByTxnId(id);
    if (!invoice || invoice->kind != "Invoice") return status::ObjectNotFound(id);
    if (invoice->entityId != customerId) return status::InvalidId("TxnID", id);
    const int64_t pay = Cents(f.Get("PaymentAmount"));
    const int64_t discount = Cents(f.Get("DiscountAmount"));
    if (pay < 0 || discount < 0) return status::BadValue(pay < 0 ? "PaymentAmount" : "DiscountAmount", CentsText(std::min(pay, discount)));
    if (discount != 0 && !f.Has("DiscountAccountRef")) return status::MissingElement("DiscountAccountRef");
    int64_t used = pay + discount;
    for (const auto& [creditId, amount] : Credits(f)) {
      auto credit = ledger.ByTxnId(creditId);
      if (!credit || credit->kind != "CreditMemo") return status::ObjectNotFound(creditId);
      if (credit->entityId != customerId) return status::InvalidId("CreditTxnID", creditId);
      std::vector<std::string> creditAr = {credit->accountId};
      if (amount > -ledger.OpenAmount(creditId, creditAr))
        return status::Refused("the credit " + credit->refNumber + " has less left than " + CentsText(amount) + ".");
      used += amount;
    }
    std::vector<std::string> ar = {invoice->accountId};
    const int64_t open = ledger.OpenAmount(id, ar);
    if (used > open)
      return status::Refused("the amount applied to invoice " + invoice->refNumber + " (" + CentsText(used) +
                             ") is more than its open balance of " + CentsText(open) + ".");
    applied += pay;
  }
  if (!h.Has("TotalAmount")) h.Set("TotalAmount", CentsText(applied));
  if (applied > Cents(h.Get("TotalAmount")))
    return status::Refused("the amounts applied (" + CentsText(applied) + ") are more than the payment's total of " +
                           CentsText(Cents(h.Get("TotalAmount"))) + ".");
  return status::Ok();
}

std::vector<Posting> PostPayment(RequestContext&, ListCache& lists, WriteScope& scope, const TxnDocument& doc) {
  const FieldMap& h = doc.header;
  const std::string customer(h.Get("CustomerRef")), ar(h.Get("ARAccountRef"));
  std::string deposit(h.Get("DepositToAccountRef"));
  if (deposit.empty()) deposit = lists.Special(&scope, "UndepositedFunds");
  const int64_t total = Cents(h.Get("TotalAmount"));
  std::vector<Posting> rows;
  rows.push_back({deposit, total, customer, "", "", ""});
  int64_t left = total;
  for (const TxnLine& line : doc.lines) {
    const FieldMap& f = line.fields;
    const std::string invoice(f.Get("TxnID"));
    const int64_t pay = Cents(f.Get("PaymentAmount"));
    rows.push_back({ar, -pay, customer, "", "", invoice});
    left -= pay;
    if (const int64_t discount = Cents(f.Get("DiscountAmount")); discount != 0) {
      rows.push_back({std::string(f.Get("DiscountAccountRef")), discount, customer, "", "", ""});
      rows.push_back({ar, -discount, customer, "", "", invoice});
    }
    for (const auto& [creditId, amount] : Credits(f)) {
      rows.push_back({ar, amount, customer, "", "", creditId});
      rows.push_back({ar, -amount, customer, "", "", invoice});
    }
  }
  // What is not applied stays open on the payment itself, as a credit of the customer.
  if (left != 0) rows.push_back({ar, -left, customer, "", "", doc.record.txnId});
  return rows;
}

void PaymentFigures(RequestContext& ctx, const TxnDocument& doc, FieldMap& answer) {
  LedgerStore ledger(ctx.file);
  std::vector<std::string> ar = {std::string(doc.header.Get("ARAccountRef"))};
  answer.Set("UnusedPayment", CentsText(-ledger.OpenAmount(doc.record.txnId, ar)));
  // Credits are used whole on the invoices they are applied to: none is left over here.
  answer.Set("UnusedCredits", CentsText(0));
}

// Each applied amount shows the invoice as it stands now, and the credits used as links.
void AppliedFigures(RequestContext& ctx, TxnDocument& doc) {
  LedgerStore ledger(ctx.file);
  for (TxnLine& line : doc.lines) {
    FieldMap& f = line.fields;
    auto invoice = ledger.ByTxnId(f.Get("TxnID"));
    if (invoice) {
      std::vector<std::string> ar = {invoice->accountId};
      f.Set("TxnType", invoice->kind);
      f.Set("TxnDate", invoice->txnDate);
      if (!invoice->refNumber.empty()) f.Set("RefNumber", invoice->refNumber);
      f.Set("BalanceRemaining", CentsText(ledger.OpenAmount(invoice->txnId, ar)));
    }
    f.Set("Amount", CentsText(Cents(f.Get("PaymentAmount"))));
    int i = 0;
    for (const auto& [creditId, amount] : Credits(f)) {
      auto credit = ledger.ByTxnId(creditId);
      if (!credit) continue;
      f.Set(Indexed("LinkedTxn", i, "TxnID"), credit->txnId);
      f.Set(Indexed("LinkedTxn", i, "TxnType"), credit->kind);
      f.Set(Indexed("LinkedTxn", i, "TxnDate"), credit->txnDate);
      if (!credit->refNumber.empty()) f.Set(Indexed("LinkedTxn", i, "RefNumber"), credit->refNumber);
      f.Set(Indexed("LinkedTxn", i, "LinkType"), "AMTTYPE");
      f.Set(Indexed("LinkedTxn", i, "Amount"), CentsText(-amount));
      ++i;
    }
  }
}

}  // namespace

const TxnKind& ReceivePaymentKind() {
  static const TxnKind kind{"ReceivePayment", "ReceivePaymentRet", "AppliedToTxn", "AppliedToTxnGroup",
                            "CustomerRef",    "ARAccountRef",      kHeader,        kApplied,
                            CompletePayment,  PostPayment,         PaymentFigures,
                            // No modify and no void of a payment in the versions the library speaks.
                            "AccountsReceivable", false, false, AppliedFigures, true, false};
  return kind;
}

}  // namespace tessaron::qbsim
