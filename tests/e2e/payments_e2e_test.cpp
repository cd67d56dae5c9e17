// Received payments end to end against the embedded processor in strict mode: a payment
// across several invoices with a discount lowers each invoice and the customer's balance
// exactly, links both ways, and deleting it restores them; QuickBooks' refusals; money
// applied by QuickBooks to the oldest open invoices. The ledger stays sound after each.
#include <gtest/gtest.h>

#include <algorithm>

#include "tessaron/company/company.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/customer.h"
#include "tessaron/lists/customers.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/receive_payments.h"
#include "tessaron/transactions/txn_applied_to.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tessaron/transactions/txn_linked_transactions.h"
#include "tests/e2e/e2e_session.h"
#include "tests/support/ledger_check.h"

namespace tessaron {
namespace {

class PaymentsEndToEnd : public testing::EditionTest {
 protected:
  void SetUp() override {
    EditionTest::SetUp();
    State().ErrorMode = false;
    invoices = TessaronGlobals::Invoices();
    payments = TessaronGlobals::ReceivePayments();
    auto customers = TessaronGlobals::Customers();
    customers->GetActive();
    for (const auto& c : *customers) {
      if (!c->Parent().empty()) continue;
      (customer.empty() ? customer : other) = c->FullName();
      if (!other.empty()) break;
    }
    ASSERT_FALSE(other.empty());
  }
  void TearDown() override {
    EXPECT_TRUE(testing::LedgerIsSound(Path()));
    EditionTest::TearDown();
  }

  Currency BalanceOf(const std::string& name) {
    Customers fresh;
    auto c = fresh.GetByFullName(name);
    return c ? c->Balance() : Currency();
  }

  // A committed invoice of labor and delivery.
  std::shared_ptr<Invoice> Committed(const std::string& who, const std::string& ref) {
    auto inv = invoices->Add(who, ref);
    inv->ItemLines()->Add("Labor", Currency(2));
    inv->ItemLines()->Add("Delivery", Currency(1));
    EXPECT_EQ(invoices->Commit(inv), 0);
    return inv;
  }

  // The invoice as QuickBooks holds it now, with its links.
  std::shared_ptr<Invoice> Fresh(const std::string& txnId) {
    Invoices fresh;
    fresh.SetIncludeLinkedTxns(true);
    return fresh.GetByTxnID(txnId, false);
  }

  std::shared_ptr<Invoices> invoices;
  std::shared_ptr<ReceivePayments> payments;
  std::string customer;
  std::string other;
};

TEST_P(PaymentsEndToEnd, PaymentAcrossInvoicesWithDiscountLowersEachExactlyAndDeleteRestores) {
  auto first = Committed(customer, "PAY-1");
  auto second = Committed(customer, "PAY-2");
  const Currency open1 = first->BalanceRemaining(), open2 = second->BalanceRemaining();
  ASSERT_GT(open1, Currency(5));
  ASSERT_GT(open2, Currency(10));
  const Currency before = BalanceOf(customer);

  // The first invoice paid in full less a discount of 5, 10 on the second, 7 left over.
  auto payment = payments->Add(customer, open1 - Currency(5) + Currency(10) + Currency(7));
  ASSERT_NE(payment->AppliedToTxns()->Add(first->TxnId(), open1 - Currency(5), Currency(5), "Discounts Given"),
            nullptr);
  ASSERT_NE(payment->AppliedToTxns()->Add(second->TxnId(), Currency(10)), nullptr);
  EXPECT_EQ(payment->UnusedPayment(), Currency(2));  // the discount counts against the total here
  ASSERT_EQ(payments->Commit(payment), 0) << (payment->Errors()->Count() ? payment->Errors()->Item(1)->Description() : "");
  EXPECT_EQ(payment->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(payment->UnusedPayment(), Currency(7));  // QuickBooks counts only the money applied

  auto paid = Fresh(first->TxnId());
  auto part = Fresh(second->TxnId());
  ASSERT_TRUE(paid && part);
  EXPECT_EQ(paid->BalanceRemaining(), Currency());
  EXPECT_TRUE(paid->IsPaid());
  EXPECT_EQ(part->BalanceRemaining(), open2 - Currency(10));
  EXPECT_FALSE(part->IsPaid());
  EXPECT_EQ(BalanceOf(customer), before - open1 - Currency(17));

  // Both ways: the invoice names the payment, the payment names the invoice.
  ASSERT_EQ(paid->LinkedTxns()->Count(), 1);
  auto link = paid->LinkedTxns()->Item(1);
  EXPECT_EQ(link->TxnId(), payment->TxnId());
  EXPECT_EQ(link->TxnType(), qoObjectTypeReceivePayment);
  EXPECT_EQ(link->Amount(), Currency() - open1);
  auto applied = payment->AppliedToTxns()->Item(Variant(first->TxnId()));
  EXPECT_EQ(applied->TxnType(), qoObjectTypeInvoice);
  EXPECT_EQ(applied->RefNumber(), "PAY-1");
  EXPECT_EQ(applied->BalanceRemaining(), Currency());
  EXPECT_EQ(applied->DiscountAmount(), Currency(5));

  ASSERT_EQ(payments->Delete(payment->TxnId()), 0);
  EXPECT_EQ(Fresh(first->TxnId())->BalanceRemaining(), open1);
  EXPECT_EQ(Fresh(second->TxnId())->BalanceRemaining(), open2);
  EXPECT_EQ(Fresh(first->TxnId())->LinkedTxns()->Count(), 0);
  EXPECT_EQ(BalanceOf(customer), before);
}

TEST_P(PaymentsEndToEnd, QuickBooksRefusesWhatCannotBeApplied) {
  auto inv = Committed(customer, "PAY-R");
  auto theirs = Committed(other, "PAY-O");
  const Currency open = inv->BalanceRemaining();
  const struct {
    std::string txnId;
    Currency amount;
    const char* expected;
  } cases[] = {
      {inv->TxnId(), open + Currency(1), "more than its open balance"},  // paying more than is open
      {"7777-1234567890", Currency(1), "cannot be found"},                 // an unknown TxnID
      {theirs->TxnId(), Currency(1), "is invalid"},                        // another customer's invoice
  };
  for (const auto& c : cases) {
    auto payment = payments->Add(customer, c.amount);
    payment->AppliedToTxns()->Add(c.txnId, c.amount);
    EXPECT_EQ(payments->Commit(payment), 1) << c.expected;
    ASSERT_EQ(payment->Errors()->Count(), 1) << c.expected;
    EXPECT_NE(payment->Errors()->Item(1)->Description().find(c.expected), std::string::npos)
        << payment->Errors()->Item(1)->Description();
    EXPECT_EQ(payment->ObjectState(), qoObjectStateNew);
    payments->Remove(Variant(payments->Count()));
  }
  EXPECT_EQ(Fresh(inv->TxnId())->BalanceRemaining(), open);
}

TEST_P(PaymentsEndToEnd, AutoApplyPaysTheOldestOpenInvoiceFirst) {
  Committed(other, "PAY-A1");
  Invoices open;
  open.GetByEntity({other}, false, false, 0, 3);  // not paid only
  ASSERT_GT(open.Count(), 0);
  Date oldest = 0;
  for (const auto& inv : open)
    if (oldest == 0 || inv->TxnDate() < oldest) oldest = inv->TxnDate();

  auto payment = payments->Add(other, Currency(1));
  payment->SetIsAutoApply(true);
  ASSERT_EQ(payments->Commit(payment), 0);
  ASSERT_EQ(payment->AppliedToTxns()->Count(), 1);
  auto applied = payment->AppliedToTxns()->Item(Variant(1));
  EXPECT_EQ(applied->Amount(), Currency(1));
  EXPECT_EQ(applied->TxnDate(), oldest);
  EXPECT_EQ(payment->UnusedPayment(), Currency());
}

TEST_P(PaymentsEndToEnd, DiscountAccountMustBeIncomeOrExpense) {
  auto payment = payments->Add(customer, Currency(10));
  auto inv = Committed(customer, "PAY-D");
  auto applied = payment->AppliedToTxns()->Add(inv->TxnId(), Currency(5));
  EXPECT_NO_THROW(applied->SetDiscountAccount("Discounts Given"));
  try {
    applied->SetDiscountAccount("Accounts Receivable");
    ADD_FAILURE() << "a receivable account was taken as discount account";
  } catch (const Error& e) {
    EXPECT_EQ(static_cast<uint32_t>(e.Number()), err::kBadDiscountAccount);
  }
  EXPECT_EQ(applied->DiscountAccount(), "Discounts Given");
}

TESSARON_ALL_EDITIONS(PaymentsEndToEnd);

}  // namespace
}  // namespace tessaron
