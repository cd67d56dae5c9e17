// Deposits: money into a bank account from the payments waiting in Undeposited Funds (a
// line naming the payment) or from other accounts. A payment's line takes what is still
// undeposited of it; the deposit account is debited with the whole.
#include "qbsim/company_file.h"
#include "qbsim/common_fields.h"
#include "qbsim/company_records.h"
#include "qbsim/record_writer.h"
#include "qbsim/sql.h"
#include "qbsim/xml_out.h"
#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/currency.h"

namespace tessaron::qbsim {
namespace {

using VT = ValueType;

constexpr const char* kPaymentMethodKinds[] = {"PaymentMethod"};
constexpr const RefTarget& kAccount = fields::kAccountTarget;
constexpr const RefTarget& kEntity = fields::kEntityTarget;
constexpr const RefTarget& kClass = fields::kClassTarget;
constexpr RefTarget kPaymentMethod{"PaymentMethod", kPaymentMethodKinds};

constexpr uint16_t kAddMod = kInAdd | kInMod;

// DepositRet after TxnNumber, before the lines.
constexpr Field kDepositHeader[] = {V("TxnDate", VT::Date), R("DepositToAccountRef", kAccount).Required(),
                                   V("Memo").Max(4095), V("DepositTotal", VT::Amount).Only(kInRet)};

// One table for the add and the answer: a payment is PaymentTxnID in the add and TxnID
// (with its TxnType) in the answer.
constexpr Field kDepositLine[] = {V("TxnType").Only(kInRet),
                                  V("TxnID").Only(kInRet),
                                  V("PaymentTxnID").Only(kAddMod),
                                  V("TxnLineID").Only(kInRet),
                                  V("PaymentTxnLineID"),
                                  V("OverrideMemo").Max(4095).Only(kAddMod),
                                  V("OverrideCheckNumber").Max(25).Only(kAddMod),
                                  R("EntityRef", kEntity),
                                  R("AccountRef", kAccount),
                                  V("Memo").Max(4095),
                                  V("CheckNumber").Max(25),
                                  R("PaymentMethodRef", kPaymentMethod),
                                  R("ClassRef", kClass),
                                  V("Amount", VT::Amount)};

constexpr TxnLineForm kDepositLines{kDepositLine, {"DepositLine", nullptr}, true, nullptr, {nullptr, nullptr}};

int64_t AmountOf(const FieldMap& f) {
  Currency c;
  return Currency::TryParse(f.Get("Amount"), c) ? RoundToCents(c.Raw()) : 0;
}

// A payment line becomes what the answer shows: the payment's id, kind, name and what is
// still undeposited of it.
Status CompleteDeposit(RequestContext& ctx, ListCache& lists, TxnDocument& doc, bool) {
  const std::vector<std::string> undeposited = {lists.Special(nullptr, "UndepositedFunds")};
  LedgerStore ledger(ctx.file);
  for (TxnLine& l : doc.lines) {
    if (!l.fields.Has("PaymentTxnID")) {
      if (!l.fields.Has("AccountRef")) return status::MissingElement("AccountRef");
      continue;
    }
    const std::string paymentId(l.fields.Get("PaymentTxnID"));
    auto payment = ledger.ByTxnId(paymentId);
    if (!payment || undeposited.front().empty()) return status::InvalidReference("PaymentTxnID", paymentId);
    const int64_t open = ledger.OpenAmount(paymentId, undeposited);
    if (open <= 0) return status::Refused("the payment " + paymentId + " is already deposited.");
    l.fields.Erase("PaymentTxnID");
    l.fields.Set("TxnType", payment->kind);
    l.fields.Set("TxnID", paymentId);
    if (!payment->entityId.empty()) l.fields.Set("EntityRef", payment->entityId);
    l.fields.Set("AccountRef", undeposited.front());
    if (l.fields.Has("OverrideMemo")) l.fields.Set("Memo", l.fields.Get("OverrideMemo"));
    if (l.fields.Has("OverrideCheckNumber")) l.fields.Set("CheckNumber", l.fields.Get("OverrideCheckNumber"));
    l.fields.Erase("OverrideMemo");
    l.fields.Erase("OverrideCheckNumber");
    l.fields.Set("Amount", CentsText(open));
  }
  return status::Ok();
}

// Each line credits where the money comes from (a payment's line names the payment, which
// it closes in Undeposited Funds); the deposit account is debited with the whole.
std::vector<Posting> PostDeposit(RequestContext&, ListCache&, WriteScope&, const TxnDocument& doc) {
  std::vector<Posting> rows;
  int64_t total = 0;
  for (const TxnLine& l : doc.lines) {
    const int64_t amount = AmountOf(l.fields);
    if (amount == 0) continue;
    rows.push_back({std::string(l.fields.Get("AccountRef")), -amount, std::string(l.fields.Get("EntityRef")), "",
                    std::string(l.fields.Get("ClassRef")), std::string(l.fields.Get("TxnID"))});
    total += amount;
  }
  if (total != 0) rows.push_back({std::string(doc.header.Get("DepositToAccountRef")), total, "", "", "", ""});
  return rows;
}

void DepositFigures(RequestContext& ctx, const TxnDocument& doc, FieldMap& answer) {
  std::vector<std::string> to = {std::string(doc.header.Get("DepositToAccountRef"))};
  answer.Set("DepositTotal", CentsText(LedgerStore(ctx.file).TxnAmount(doc.record.txnId, to)));
}

constexpr const char* kCustomerKinds[] = {"Customer"};
constexpr RefTarget kCustomer{"Customer:Job", kCustomerKinds};

constexpr Field kWaitingRet[] = {V("TxnID"), V("TxnType"), R("CustomerRef", kCustomer), V("TxnDate", VT::Date),
                                 V("RefNumber"), V("Amount", VT::Amount)};

}  // namespace

// What waits in Undeposited Funds: each document whose rows there do not sum to zero,
// with what is left of it; the name is answered when it is a customer.
Status UndepositedFundsQuery(RequestContext& ctx, const pugi::xml_node&, XmlOut& out) {
  const std::string undeposited = SpecialAccount(ctx, nullptr, "UndepositedFunds");
  if (undeposited.empty()) return status::NoMatch();
  SqlStatement st = ctx.file.Db().Prepare(
      "SELECT open_txn_id, sum(amount), max(entity_id) FROM posting WHERE account_id = ? AND open_txn_id <> '' "
      "GROUP BY open_txn_id HAVING sum(amount) <> 0");
  st.Bind(1, undeposited);
  std::vector<std::tuple<std::string, int64_t, std::string>> open;
  while (st.Step()) open.emplace_back(std::string(st.Text(0)), st.Int(1), std::string(st.Text(2)));
  LedgerStore ledger(ctx.file);
  ListCache lists(ctx);
  RecordWriter writer(ctx);
  int written = 0;
  for (const auto& [txnId, amount, entity] : open) {
    auto rec = ledger.ByTxnId(txnId);
    if (!rec) continue;
    FieldMap f;
    f.Set("TxnID", txnId);
    f.Set("TxnType", rec->kind);
    const ListCache::Entry* name = lists.Find(entity);
    if (name && name->kind == "Customer") f.Set("CustomerRef", entity);
    f.Set("TxnDate", rec->txnDate);
    if (!rec->refNumber.empty()) f.Set("RefNumber", rec->refNumber);
    f.Set("Amount", CentsText(amount));
    std::string body = f.Encode();
    RecordRow row;
    row.body = body;
    out.Open("ReceivePaymentToDepositRet");
    writer.WriteFields(out, kWaitingRet, row);
    out.Close("ReceivePaymentToDepositRet");
    ++written;
  }
  return written == 0 ? status::NoMatch() : status::Ok();
}

const TxnKind& DepositKind() {
  static const TxnKind kind{.name = "Deposit", .retTag = "DepositRet", .lineTag = "", .groupTag = "",
                            .entityTag = "", .accountTag = "DepositToAccountRef", .header = kDepositHeader,
                            .lineFields = {}, .complete = CompleteDeposit, .post = PostDeposit,
                            .figures = DepositFigures, .defaultAccount = nullptr, .canModify = false,
                            .lineForm = &kDepositLines};
  return kind;
}

}  // namespace tessaron::qbsim
