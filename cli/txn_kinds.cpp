#include "cli/txn_kinds.h"

#include <span>

#include "tessaron/platform/text.h"
#include "tessaron/transactions/credit_memos.h"
#include "tessaron/transactions/deposits.h"
#include "tessaron/transactions/estimates.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/journal_entries.h"
#include "tessaron/transactions/purchase_collections.h"
#include "tessaron/transactions/receive_payments.h"
#include "tessaron/transactions/sales_orders.h"
#include "tessaron/transactions/sales_receipts.h"

namespace tessaron::cli {

namespace {

template <class C>
std::unique_ptr<TxnCollectionBase> Make() {
  return std::make_unique<C>();
}

constexpr TxnKindInfo kKinds[] = {
    {"Invoices", "Invoice", true, &Make<Invoices>},
    {"SalesReceipts", "SalesReceipt", false, &Make<SalesReceipts>},
    {"CreditMemos", "CreditMemo", false, &Make<CreditMemos>},
    {"Estimates", "Estimate", false, &Make<Estimates>},
    {"SalesOrders", "SalesOrder", false, &Make<SalesOrders>},
    {"ReceivePayments", "ReceivePayment", false, &Make<ReceivePayments>},
    {"Bills", "Bill", true, &Make<Bills>},
    {"VendorCredits", "VendorCredit", false, &Make<VendorCredits>},
    {"ItemReceipts", "ItemReceipt", false, &Make<ItemReceipts>},
    {"PurchaseOrders", "PurchaseOrder", false, &Make<PurchaseOrders>},
    {"Checks", "Check", false, &Make<Checks>},
    {"CreditCardCharges", "CreditCardCharge", false, &Make<CreditCardCharges>},
    {"CreditCardCredits", "CreditCardCredit", false, &Make<CreditCardCredits>},
    {"JournalEntries", "JournalEntry", false, &Make<JournalEntries>},
    {"Deposits", "Deposit", false, &Make<Deposits>},
};

}  // namespace

const TxnKindInfo* FindTxnKind(const std::string& name) {
  for (const TxnKindInfo& k : kKinds)
    if (EqualsIgnoreCase(name, k.collection) || EqualsIgnoreCase(name, k.kind)) return &k;
  return nullptr;
}

std::string TxnCollectionNames() {
  std::string out;
  for (const TxnKindInfo& k : kKinds) out += (out.empty() ? "" : ", ") + std::string(k.collection);
  return out;
}

std::vector<std::string> TxnKindNames() {
  std::vector<std::string> out;
  for (const TxnKindInfo& k : kKinds) out.emplace_back(k.kind);
  return out;
}

}  // namespace tessaron::cli
