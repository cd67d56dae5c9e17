// Deposits end to end against the embedded processor in strict mode: money waiting in
// Undeposited Funds (put there by a journal entry of the test's own) and money from an
// account go to the bank; the check of a line that names nothing; read back, queries,
// void and delete, with the ledger balanced after each test.
#include <gtest/gtest.h>

#include "tessaron/company/company.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/account.h"
#include "tessaron/transactions/deposits.h"
#include "tessaron/transactions/journal_entries.h"
#include "tessaron/transactions/undeposited_funds.h"
#include "tests/e2e/e2e_session.h"
#include "tests/support/ledger_check.h"

namespace tessaron {
namespace {

class DepositsEndToEnd : public testing::EditionTest {
 protected:
  void SetUp() override {
    EditionTest::SetUp();
    State().ErrorMode = false;
    deposits = TessaronGlobals::Deposits();
  }
  void TearDown() override {
    testing::ExpectLedgerBalanced(Path());
    EditionTest::TearDown();
  }
  static Currency AccountBalance(const std::string& name) { return testing::AccountBalanceOf(name); }
  // A sale of `amount` whose money waits in Undeposited Funds; its TxnId.
  static std::string Waiting(Currency amount) {
    auto entries = TessaronGlobals::JournalEntries();
    auto je = entries->Add();
    je->Lines()->Add("Undeposited Funds", amount, true);
    je->Lines()->Add("Sales", amount, false);
    EXPECT_EQ(entries->Commit(je), 0);
    return je->TxnId();
  }

  std::shared_ptr<Deposits> deposits;
};

TEST_P(DepositsEndToEnd, WaitingPaymentGoesToTheBankAndIsReadBack) {
  const std::string sale = Waiting(Currency(50));
  const Currency bank = AccountBalance("Checking"), waiting = AccountBalance("Undeposited Funds");
  auto d = deposits->Add("Checking", 0, "Friday");
  d->Lines()->AddPayment(sale);
  ASSERT_EQ(deposits->Commit(d), 0);
  EXPECT_EQ(AccountBalance("Checking"), bank + Currency(50));
  EXPECT_EQ(AccountBalance("Undeposited Funds"), waiting - Currency(50));

  Deposits fresh;
  auto back = fresh.GetByTxnID(d->TxnId());
  ASSERT_TRUE(back);
  EXPECT_EQ(back->DepositToAccount(), "Checking");
  EXPECT_EQ(back->Memo(), "Friday");
  EXPECT_EQ(back->DepositTotal(), Currency(50));
  ASSERT_EQ(back->Lines()->Count(), 1);
  auto line = back->Lines()->Item(Variant(int64_t{1}));
  EXPECT_EQ(line->TxnId(), sale);
  EXPECT_EQ(line->TxnType(), "JournalEntry");
  EXPECT_EQ(line->Amount(), Currency(50));
  EXPECT_FALSE(line->TxnLineId().empty());
}

TEST_P(DepositsEndToEnd, PaymentDepositedOnceIsRefusedTheSecondTime) {
  const std::string sale = Waiting(Currency(20));
  auto first = deposits->Add("Checking");
  first->Lines()->AddPayment(sale);
  ASSERT_EQ(deposits->Commit(first), 0);
  const Currency bank = AccountBalance("Checking");
  auto again = deposits->Add("Checking");
  again->Lines()->AddPayment(sale);
  EXPECT_GT(deposits->Commit(again), 0);
  EXPECT_EQ(again->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(AccountBalance("Checking"), bank);
}

TEST_P(DepositsEndToEnd, WaitingMoneyIsListedUntilDeposited) {
  auto waiting = TessaronGlobals::UndepositedFunds();
  waiting->GetAll();
  const Currency before = waiting->Total();
  const std::string sale = Waiting(Currency(35));
  waiting->GetAll();
  ASSERT_TRUE(waiting->ItemExists(Variant(sale)));
  auto fund = waiting->Item(Variant(sale));
  EXPECT_EQ(fund->Amount(), Currency(35));
  EXPECT_EQ(fund->TxnType(), "JournalEntry");
  EXPECT_EQ(waiting->Total(), before + Currency(35));

  auto d = deposits->Add("Checking");
  d->Lines()->AddPayment(fund->TxnId());
  ASSERT_EQ(deposits->Commit(d), 0);
  waiting->GetAll();
  EXPECT_FALSE(waiting->ItemExists(Variant(sale)));
}

TEST_P(DepositsEndToEnd, MoneyFromAnAccountMovesBothAccounts) {
  const Currency bank = AccountBalance("Savings"), equity = AccountBalance("Owner Investment");
  auto d = deposits->Add("Savings");
  d->Lines()->Add("Owner Investment", Currency(500), "", "capital");
  EXPECT_EQ(d->DepositTotal(), Currency(500));
  ASSERT_EQ(deposits->Commit(d), 0);
  EXPECT_EQ(AccountBalance("Savings"), bank + Currency(500));
  EXPECT_EQ(AccountBalance("Owner Investment"), equity + Currency(500));
}

TEST_P(DepositsEndToEnd, LineNamingNeitherPaymentNorAccountIsHeldBack) {
  auto d = deposits->Add("Checking");
  d->Lines()->Add("", Currency(5), "", "cash?");
  EXPECT_FALSE(d->Validate());
  auto line = d->Lines()->Item(Variant(int64_t{1}));
  ASSERT_EQ(line->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(line->Errors()->Item(Variant(int64_t{1}))->Number()), err::kDepositLineTarget);
  EXPECT_EQ(line->Errors()->Item(Variant(int64_t{1}))->Description(),
            "Deposit lines must include either a TxnId or an Account.");
  TakeRequests();
  EXPECT_GT(deposits->Commit(d), 0);
  EXPECT_TRUE(TakeRequests().empty());
}

TEST_P(DepositsEndToEnd, QueriedVoidedThenDeleted) {
  const Currency bank = AccountBalance("Checking");
  auto d = deposits->Add("Checking");
  d->Lines()->Add("Owner Investment", Currency(70));
  ASSERT_EQ(deposits->Commit(d), 0);
  Deposits all;
  EXPECT_GE(all.GetAll(), 1);
  Deposits byAccount;
  EXPECT_GE(byAccount.GetBySingleAccount("Checking"), 1);
  EXPECT_EQ(deposits->Void(d->TxnId(), false), 0);
  EXPECT_EQ(AccountBalance("Checking"), bank);
  EXPECT_EQ(deposits->Delete(d->TxnId()), 0);
  Deposits after;
  EXPECT_EQ(after.GetAll(), 0);
}

INSTANTIATE_TEST_SUITE_P(Editions, DepositsEndToEnd, ::testing::Values(qbsim::Edition::US, qbsim::Edition::AU),
                         testing::EditionName);

}  // namespace
}  // namespace tessaron
