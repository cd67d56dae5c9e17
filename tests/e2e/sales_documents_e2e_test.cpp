// Sales receipts, credit memos, estimates and sales orders end to end against the embedded
// processor in strict mode: each created and read back with the processor's totals equal
// to the library's, modified where QuickBooks allows it, voided or deleted, queried; the
// customer's balance under a credit memo; the ledger balanced after every test.
#include <gtest/gtest.h>

#include "tessaron/company/company.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/customer.h"
#include "tessaron/lists/customers.h"
#include "tessaron/transactions/credit_memos.h"
#include "tessaron/transactions/estimates.h"
#include "tessaron/transactions/sales_orders.h"
#include "tessaron/transactions/sales_receipts.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/e2e/e2e_session.h"
#include "tests/support/ledger_check.h"

namespace tessaron {
namespace {

class SalesDocumentsEndToEnd : public testing::EditionTest {
 protected:
  void SetUp() override {
    EditionTest::SetUp();
    State().ErrorMode = false;
    auto customers = TessaronGlobals::Customers();
    customers->GetActive();
    for (const auto& c : *customers)
      if (c->Parent().empty()) {
        customer = c->FullName();
        break;
      }
    ASSERT_FALSE(customer.empty());
  }

  void TearDown() override {
    const std::string path = Path();
    EditionTest::TearDown();
    testing::ExpectLedgerBalanced(path);
  }

  Currency BalanceOf(const std::string& name) {
    Customers fresh;
    auto c = fresh.GetByFullName(name);
    return c ? c->Balance() : Currency();
  }

  // Two service lines and one other charge, as every document below carries.
  template <class Doc>
  void AddLines(Doc& doc) {
    doc.ItemLines()->Add("Labor", Currency(2));
    doc.ItemLines()->Add("Delivery", Currency(1));
  }

  // Commits `doc`, reads it back into a cleared collection and compares the totals.
  template <class Coll, class Doc>
  std::shared_ptr<Doc> CommitAndReadBack(Coll& coll, const std::shared_ptr<Doc>& doc) {
    const Currency subtotal = doc->Subtotal();
    EXPECT_GT(subtotal, Currency());
    EXPECT_EQ(coll.Commit(doc), 0) << (doc->Errors()->Count() ? doc->Errors()->Item(Variant(1))->Description() : "");
    EXPECT_EQ(doc->ObjectState(), qoObjectStateClean);
    EXPECT_FALSE(doc->TxnId().empty());
    EXPECT_EQ(doc->Subtotal(), subtotal);
    coll.Clear();
    auto back = coll.GetByTxnID(doc->TxnId());
    EXPECT_NE(back, nullptr);
    if (back) {
      EXPECT_EQ(back->Subtotal(), subtotal);
      EXPECT_EQ(back->ItemLines()->Count(), 2);
    }
    return back;
  }

  std::string customer;
};

TEST_P(SalesDocumentsEndToEnd, SalesReceiptIsStoredVoidedAndDeletedButNeverModified) {
  auto receipts = TessaronGlobals::SalesReceipts();
  auto sr = receipts->Add(customer, "SR-1");
  sr->SetCheckNumber("1044");
  AddLines(*sr);
  auto back = CommitAndReadBack(*receipts, sr);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->CheckNumber(), "1044");
  EXPECT_EQ(back->Total(), back->Subtotal() + back->SalesTaxTotal());
  // A stored receipt can't change.
  EXPECT_THROW(back->SetMemo("late"), Error);

  receipts->Clear();
  EXPECT_EQ(receipts->GetByRefNumber("SR-1", "SR-1"), 1);
  EXPECT_EQ(receipts->Void(sr->TxnId(), false), 0);
  receipts->Clear();
  auto voided = receipts->GetByTxnID(sr->TxnId());
  ASSERT_NE(voided, nullptr);
  EXPECT_EQ(voided->Total(), Currency());
  EXPECT_EQ(receipts->Delete(sr->TxnId()), 0);
  EXPECT_EQ(receipts->GetByTxnID(sr->TxnId()), nullptr);
}

TEST_P(SalesDocumentsEndToEnd, CreditMemoLowersTheCustomersBalanceUntilDeleted) {
  const Currency before = BalanceOf(customer);
  auto memos = TessaronGlobals::CreditMemos();
  auto cm = memos->Add(customer, "CM-1");
  AddLines(*cm);
  auto back = CommitAndReadBack(*memos, cm);
  ASSERT_NE(back, nullptr);
  const Currency total = back->Total();
  EXPECT_EQ(back->CreditRemaining(), total);
  EXPECT_EQ(BalanceOf(customer), before - total);

  back->SetMemo("returned goods");
  back->ItemLines()->Item(Variant(1))->SetQuantity(Currency(1));
  ASSERT_EQ(memos->Commit(back), 0);
  EXPECT_EQ(back->Memo(), "returned goods");
  EXPECT_LT(back->Total(), total);
  EXPECT_EQ(BalanceOf(customer), before - back->Total());

  EXPECT_EQ(memos->Void(back->TxnId(), false), 0);
  EXPECT_EQ(BalanceOf(customer), before);
  EXPECT_EQ(memos->Delete(back->TxnId()), 0);
  EXPECT_EQ(BalanceOf(customer), before);
}

TEST_P(SalesDocumentsEndToEnd, EstimateWithMarkupIsStoredModifiedQueriedAndDeleted) {
  const Currency before = BalanceOf(customer);
  auto estimates = TessaronGlobals::Estimates();
  auto est = estimates->Add(customer, "EST-1");
  AddLines(*est);
  auto marked = est->ItemLines()->Item(Variant(1));
  marked->SetMarkupIsPercent(true);
  marked->SetMarkup(Currency(50));
  auto back = CommitAndReadBack(*estimates, est);
  ASSERT_NE(back, nullptr);
  EXPECT_TRUE(back->IsActive());
  EXPECT_EQ(back->ItemLines()->Item(Variant(1))->Markup(), Currency(50));
  // An estimate posts nothing.
  EXPECT_EQ(BalanceOf(customer), before);

  back->SetIsActive(false);
  ASSERT_EQ(estimates->Commit(back), 0);
  EXPECT_FALSE(back->IsActive());
  estimates->Clear();
  EXPECT_EQ(estimates->GetBySingleEntity(customer), 1);
  EXPECT_EQ(estimates->Delete(back->TxnId()), 0);
  EXPECT_EQ(estimates->GetByTxnID(back->TxnId()), nullptr);
}

TEST_P(SalesDocumentsEndToEnd, SalesOrderIsStoredClosedQueriedAndDeleted) {
  const Currency before = BalanceOf(customer);
  auto orders = TessaronGlobals::SalesOrders();
  auto so = orders->Add(customer, "SO-1");
  AddLines(*so);
  auto back = CommitAndReadBack(*orders, so);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->TotalAmount(), back->Subtotal() + back->SalesTaxTotal());
  EXPECT_FALSE(back->IsFullyInvoiced());
  EXPECT_EQ(BalanceOf(customer), before);

  back->ItemLines()->Item(Variant(2))->SetIsManuallyClosed(Currency(1));
  back->SetIsManuallyClosed(true);
  ASSERT_EQ(orders->Commit(back), 0);
  EXPECT_TRUE(back->IsManuallyClosed());
  EXPECT_EQ(back->ItemLines()->Item(Variant(2))->IsManuallyClosed(), Currency(1));
  orders->Clear();
  EXPECT_EQ(orders->GetAll(), 1);
  EXPECT_EQ(orders->Delete(back->TxnId()), 0);
  EXPECT_EQ(orders->Count(), 0);
}

TESSARON_ALL_EDITIONS(SalesDocumentsEndToEnd);

}  // namespace
}  // namespace tessaron
