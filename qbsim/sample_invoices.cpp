#include "qbsim/sample_invoices.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/date.h"

namespace tessaron::qbsim {
namespace {

std::vector<std::string> Ids(CompanyFile& file, const char* sql) {
  std::vector<std::string> out;
  SqlStatement st = file.Db().Prepare(sql);
  while (st.Step()) out.emplace_back(st.Text(0));
  return out;
}

std::string ItemId(CompanyFile& file, const char* name) {
  SqlStatement st = file.Db().Prepare("SELECT list_id FROM list_record WHERE name_space = 'Item' AND full_name = ?");
  st.Bind(1, name);
  return st.Step() ? std::string(st.Text(0)) : std::string();
}

// What an add gives a new document before it is stored.
void Stamp(TxnDocument& doc, WriteScope& scope, int64_t number) {
  doc.record.txnId = scope.NewId();
  doc.record.txnNumber = number;
  doc.record.editSequence = scope.NewEditSequence();
  doc.record.timeCreated = doc.record.timeModified = scope.Timestamp();
}

void AddSampleDocuments(CompanyFile& file, WriteScope& scope, Edition edition, int newestVersion, const char* kindName,
                        int count, uint32_t seed, int firstRef) {
  const TxnKind* kind = FindTxnKind(kindName);
  // Only an invoice is paid on the form, or later by a payment.
  const bool invoice = std::string_view(kindName) == "Invoice";
  const TxnKind* payment = invoice ? FindTxnKind("ReceivePayment") : nullptr;
  std::vector<std::string> customers =
      Ids(file, "SELECT list_id FROM list_record WHERE kind = 'Customer' AND is_active = 1 ORDER BY rowid");
  if (customers.empty() || count <= 0) return;
  struct Pick {
    std::string id;
    const char* quantity;
  };
  std::vector<Pick> items;
  for (const auto& [name, qty] : {std::pair{"Labor", "6"}, {"Labor:Installation", "3"}, {"Design", "2"},
                                  {"Hardware", "4"}, {"Oak Panel", "5"}, {"Walnut Panel", "2"}, {"Drawer Slide", "8"},
                                  {"Delivery", "1"}})
    if (std::string id = ItemId(file, name); !id.empty()) items.push_back({id, qty});
  const std::string kit = ItemId(file, "Install Kit"), subtotal = ItemId(file, "Subtotal"),
                    discount = ItemId(file, "Trade Discount"), deposit = ItemId(file, "Deposit Received");
  if (items.empty()) return;

  ProcessorOptions options;
  RequestContext ctx(file, options, edition, newestVersion, newestVersion);
  LedgerStore ledger(file);
  ListCache lists(ctx);
  const Date today = Today();
  uint32_t dice = seed;
  auto roll = [&](int n) {
    dice ^= dice << 13;
    dice ^= dice >> 17;
    dice ^= dice << 5;
    return static_cast<int>(dice % static_cast<uint32_t>(n));
  };
  int64_t number = ledger.NextTxnNumber();
  for (int i = 0; i < count; ++i) {
    TxnDocument doc;
    doc.header.Set("CustomerRef", customers[roll(static_cast<int>(customers.size()))]);
    doc.header.Set("TxnDate", FormatDate(today - roll(730), "yyyy-mm-dd"));
    doc.header.Set("RefNumber", std::to_string(firstRef + i));
    int lineCount = 1 + roll(4);
    for (int l = 0; l < lineCount; ++l) {
      const Pick& p = items[roll(static_cast<int>(items.size()))];
      TxnLine line;
      line.fields.Set("ItemRef", p.id);
      line.fields.Set("Quantity", std::to_string(1 + roll(std::atoi(p.quantity) * 2)));
      doc.lines.push_back(std::move(line));
    }
    if (!kit.empty() && roll(8) == 0) {
      TxnLine group;
      group.isGroup = true;
      group.fields.Set("ItemGroupRef", kit);
      doc.lines.push_back(std::move(group));
    }
    if (!subtotal.empty() && !discount.empty() && roll(6) == 0) {
      for (const std::string& id : {subtotal, discount}) {
        TxnLine line;
        line.fields.Set("ItemRef", id);
        doc.lines.push_back(std::move(line));
      }
    }
    if (kind->complete(ctx, lists, doc, true).code != 0) continue;
    // A third of the older invoices were paid on the form.
    if (invoice && !deposit.empty() && roll(3) == 0) {
      int64_t owed = 0;
      for (const TxnLine& l : doc.lines)
        if (l.itemKind != "ItemSubtotal") owed += l.amount;
      for (const auto& [item, tax] : doc.taxByItem) owed += tax;
      TxnLine pay;
      pay.fields.Set("ItemRef", deposit);
      pay.fields.Set("Amount", CentsText(owed));
      doc.lines.push_back(std::move(pay));
      if (kind->complete(ctx, lists, doc, true).code != 0) continue;
    }
    Stamp(doc, scope, number++);
    StoreTxn(ctx, lists, *kind, doc, scope, ledger, true);
    // A quarter of the rest were paid later by check, some only in half.
    if (payment && roll(4) == 0) {
      std::vector<std::string> ar = {doc.record.accountId};
      const int64_t open = ledger.OpenAmount(doc.record.txnId, ar);
      Date issued = 0;
      if (open <= 0 || !TryParseDate(std::string(doc.header.Get("TxnDate")), issued)) continue;
      TxnDocument paid;
      paid.header.Set("CustomerRef", doc.header.Get("CustomerRef"));
      paid.header.Set("TxnDate", FormatDate(std::min(today, issued + roll(45)), "yyyy-mm-dd"));
      paid.header.Set("RefNumber", std::to_string(firstRef + 8000 + i));
      TxnLine applied;
      applied.fields.Set("TxnID", doc.record.txnId);
      applied.fields.Set("PaymentAmount", CentsText(roll(3) == 0 ? RoundToCents(open / 2) : open));
      paid.lines.push_back(std::move(applied));
      if (payment->complete(ctx, lists, paid, true).code != 0) continue;
      Stamp(paid, scope, number++);
      StoreTxn(ctx, lists, *payment, paid, scope, ledger, true);
    }
  }
}

}  // namespace

void AddSampleInvoices(CompanyFile& file, WriteScope& scope, Edition edition, int newestVersion, int count) {
  AddSampleDocuments(file, scope, edition, newestVersion, "Invoice", count, 12345, 1001);
}

void AddSampleSalesDocuments(CompanyFile& file, WriteScope& scope, Edition edition, int newestVersion, int count) {
  uint32_t seed = 2024;
  int firstRef = 5001;
  for (const char* kind : {"SalesReceipt", "CreditMemo", "Estimate", "SalesOrder"}) {
    AddSampleDocuments(file, scope, edition, newestVersion, kind, count, seed++, firstRef);
    firstRef += 1000;
  }
}

}  // namespace tessaron::qbsim
