// Journal entries end to end against the embedded processor in strict mode: the checks
// before sending (balance, reference length, names the accounts need, empty lines), the
// order of the lines in the add, what a kept entry moves, reading back, queries, void and
// delete, and an entry that cannot change once stored.
#include <gtest/gtest.h>

#include "tessaron/company/company.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/customer.h"
#include "tessaron/lists/customers.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/transactions/journal_entries.h"
#include "tests/e2e/e2e_session.h"
#include "tests/support/ledger_check.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

class JournalEntriesEndToEnd : public testing::EditionTest {
 protected:
  void SetUp() override {
    EditionTest::SetUp();
    State().ErrorMode = false;
    entries = TessaronGlobals::JournalEntries();
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
    testing::ExpectLedgerBalanced(Path());
    EditionTest::TearDown();
  }

  static Currency AccountBalance(const std::string& name) { return testing::AccountBalanceOf(name); }
  static Currency CustomerBalance(const std::string& name) {
    Customers fresh;
    auto c = fresh.GetByFullName(name);
    return c ? c->Balance() : Currency(-999999);
  }
  // Rent debited, Checking credited.
  std::shared_ptr<JournalEntry> RentPaid(const std::string& ref, Currency debit, Currency credit) {
    auto je = entries->Add(ref);
    je->Lines()->Add("Rent", debit, true);
    je->Lines()->Add("Checking", credit, false);
    return je;
  }
  static bool HasError(JournalEntry& je, uint32_t number, const std::string& field) {
    for (const auto& e : *je.Errors())
      if (static_cast<uint32_t>(e->Number()) == number && e->Field() == field) return true;
    return false;
  }

  std::shared_ptr<JournalEntries> entries;
  std::string customer;
};

TEST_P(JournalEntriesEndToEnd, BalancedEntryIsKeptMovesTheLedgerAndReadsBack) {
  const Currency rent = AccountBalance("Rent"), checking = AccountBalance("Checking");
  auto je = RentPaid("JE-1", Currency(100), Currency(100));
  je->Lines()->Add("", Currency(), true, "", "", "memo only");
  EXPECT_EQ(je->RemainingAmount(), Currency());
  ASSERT_TRUE(je->Validate());
  EXPECT_EQ(je->Lines()->Count(), 3);
  TakeRequests();
  EXPECT_EQ(entries->Commit(je), 0);
  EXPECT_EQ(je->ObjectState(), qoObjectStateClean);
  ASSERT_FALSE(je->TxnId().empty());
  EXPECT_FALSE(je->TimeCreated().empty());
  EXPECT_EQ(AccountBalance("Rent"), rent + Currency(100));
  EXPECT_EQ(AccountBalance("Checking"), checking - Currency(100));

  JournalEntries fresh;
  auto back = fresh.GetByTxnID(je->TxnId());
  ASSERT_TRUE(back);
  EXPECT_EQ(back->RefNumber(), "JE-1");
  ASSERT_EQ(back->Lines()->Count(), 3);
  auto first = back->Lines()->Item(Variant(int64_t{1}));
  EXPECT_TRUE(first->IsDebit());
  EXPECT_EQ(first->Account(), "Rent");
  EXPECT_EQ(first->Amount(), Currency(100));
  EXPECT_FALSE(first->TxnLineId().empty());
  // As sent: the debits, the memo-only line among them, then the credit.
  EXPECT_EQ(back->Lines()->Item(Variant(int64_t{2}))->Memo(), "memo only");
  EXPECT_EQ(back->Lines()->Item(Variant(int64_t{2}))->Account(), "");
  EXPECT_FALSE(back->Lines()->Item(Variant(int64_t{3}))->IsDebit());
}

TEST_P(JournalEntriesEndToEnd, AddSendsDebitLinesBeforeCreditLinesAndKeepsTheCallersOrder) {
  auto je = entries->Add("JE-ORD", 0, "header memo");
  je->Lines()->Add("Checking", Currency(30), false, "", "", "credit A");
  je->Lines()->Add("Rent", Currency(10), true, "", "", "debit B");
  je->Lines()->Add("Savings", Currency(5), false, "", "", "credit C");
  je->Lines()->Add("Rent", Currency(25), true, "", "", "debit D");
  TakeRequests();
  ASSERT_TRUE(je->Validate());
  EXPECT_EQ(je->Lines()->Item(Variant(int64_t{1}))->Memo(), "credit A");
  ASSERT_EQ(entries->Commit(je), 0);
  const std::string add = TakeRequests().at(0);
  const auto at = [&](const char* memo) { return add.find(memo); };
  EXPECT_LT(at("debit B"), at("debit D"));
  EXPECT_LT(at("debit D"), at("credit A"));
  EXPECT_LT(at("credit A"), at("credit C"));
  EXPECT_EQ(add.find("<Memo>"), at("debit B") - 6) << "the header memo is not sent";
}

TEST_P(JournalEntriesEndToEnd, ReceivableLineMovesTheCustomersBalance) {
  const Currency before = CustomerBalance(customer);
  auto je = entries->Add("JE-AR");
  je->Lines()->Add("Accounts Receivable", Currency(40), true, "", customer);
  je->Lines()->Add("Rent", Currency(40), false);
  ASSERT_EQ(entries->Commit(je), 0) << je->Errors()->Count();
  EXPECT_EQ(CustomerBalance(customer), before + Currency(40));
}

TEST_P(JournalEntriesEndToEnd, UnbalancedEntryIsHeldBackWithNothingSent) {
  auto je = RentPaid("JE-BAD", Currency(100), Currency::FromRaw(999900));
  EXPECT_EQ(je->RemainingAmount(), Currency::FromRaw(100));
  TakeRequests();
  EXPECT_GT(entries->Commit(je), 0);
  EXPECT_TRUE(TakeRequests().empty());
  EXPECT_TRUE(HasError(*je, err::kJournalUnbalanced, "TotalBalance"));
  EXPECT_EQ(je->ObjectState(), qoObjectStateNew);
}

TEST_P(JournalEntriesEndToEnd, ReceivableLineWithAVendorIsRefused) {
  auto vendors = TessaronGlobals::Vendors();
  vendors->GetActive();
  ASSERT_GT(vendors->Count(), 0);
  const std::string vendor = vendors->Item(Variant(int64_t{1}))->FullName();
  auto je = entries->Add("JE-V");
  je->Lines()->Add("Accounts Receivable", Currency(10), true, "", vendor);
  je->Lines()->Add("Rent", Currency(10), false);
  EXPECT_FALSE(je->Validate());
  EXPECT_TRUE(HasError(*je, err::kValidateFailed, "1"));
  auto& line = *je->Lines()->Item(Variant(int64_t{1}));
  ASSERT_EQ(line.Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(line.Errors()->Item(Variant(int64_t{1}))->Number()), err::kNeedCustomer);
}

struct RefCase {
  const char* name;
  size_t length;
  bool accepted;
};

TEST_P(JournalEntriesEndToEnd, RefNumberOfElevenCharactersIsAcceptedAndOfTwelveRefused) {
  for (const RefCase c : {RefCase{"eleven", 11, true}, RefCase{"twelve", 12, false}}) {
    auto je = RentPaid(std::string(c.length, '7'), Currency(1), Currency(1));
    EXPECT_EQ(je->Validate(), c.accepted) << c.name;
    EXPECT_EQ(HasError(*je, err::kEntryNumberTooLong, "RefNumber"), !c.accepted) << c.name;
    entries->Remove(Variant(int64_t{entries->Count()}));
  }
}

TEST_P(JournalEntriesEndToEnd, EmptyLinesAtTheEndGoAndThoseBetweenStay) {
  auto je = entries->Add("JE-GAPS");
  je->Lines()->Add("Rent", Currency(5), true);
  je->Lines()->Add();
  je->Lines()->Add("Checking", Currency(5), false);
  je->Lines()->Add();
  je->Lines()->Add();
  ASSERT_TRUE(je->Validate());
  EXPECT_EQ(je->Lines()->Count(), 3);
  EXPECT_EQ(je->Lines()->Item(Variant(int64_t{2}))->Account(), "");

  auto none = entries->Add("JE-NONE");
  none->Lines()->Add();
  EXPECT_FALSE(none->Validate());
  EXPECT_TRUE(HasError(*none, err::kNeedLine, "JournalEntryLines"));
  entries->Clear();
}

TEST_P(JournalEntriesEndToEnd, AmountTypedAsTextSetsTheAmountOrIsRefused) {
  auto je = entries->Add("JE-TXT");
  auto line = je->Lines()->Add("Rent");
  line->SetAmountAsString("12.5");
  EXPECT_EQ(line->Amount(), Currency::FromRaw(125000));
  line->SetAmountAsString("");
  EXPECT_EQ(line->Amount(), Currency::FromRaw(125000));
  EXPECT_EQ(line->AmountAsString(), "");
  auto e = testing::Raised([&] { line->SetAmountAsString("12x"); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kInvalidCharacter);
  EXPECT_EQ(e->Description(), "This field cantains an invalid character.");
  EXPECT_EQ(testing::NumberRaised([&] { line->SetAccount("No Such Account"); }), err::kInvalidTxnAccount);
  EXPECT_EQ(line->Account(), "Rent");
  entries->Clear();
}

TEST_P(JournalEntriesEndToEnd, StoredEntryCannotChangeAndRefusesModify) {
  auto je = RentPaid("JE-FIX", Currency(3), Currency(3));
  ASSERT_EQ(entries->Commit(je), 0);
  auto e = testing::Raised([&] { je->SetMemo("later"); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kFieldCannotBeModified);
  EXPECT_EQ(e->Source(), "Journal Entry");
  e = testing::Raised([&] { je->Lines()->Add("Rent", Currency(1)); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Source(), "JournalEntryLines");
  EXPECT_EQ(testing::NumberRaised([&] { je->Lines()->Item(Variant(int64_t{1}))->SetAmount(Currency(4)); }),
            err::kFieldCannotBeModified);
  xmlBldr b;
  e = testing::Raised([&] { je->XMLModify(b); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Source(), "Tessaron: Journal Entry");
  EXPECT_EQ(e->Description(), "ModRq not supported");
}

TEST_P(JournalEntriesEndToEnd, QueriesFindVoidKeepsAndDeleteRemoves) {
  const Currency rent = AccountBalance("Rent");
  auto a = RentPaid("JQ-1", Currency(7), Currency(7));
  auto b = RentPaid("JQ-2", Currency(8), Currency(8));
  ASSERT_EQ(entries->Commit2(), 0);
  JournalEntries byRef;
  EXPECT_EQ(byRef.GetByRefNumber("JQ-1", "JQ-2"), 2);
  JournalEntries byAccount;
  EXPECT_GE(byAccount.GetBySingleAccount("Rent"), 2);
  JournalEntries all;
  EXPECT_GE(all.GetAll(), 2);

  EXPECT_EQ(entries->Void(a->TxnId()), 0);
  EXPECT_EQ(AccountBalance("Rent"), rent + Currency(8));
  EXPECT_EQ(entries->Delete(b->TxnId()), 0);
  EXPECT_EQ(AccountBalance("Rent"), rent);
  EXPECT_FALSE(entries->ItemExists(Variant(b->TxnId())));
  JournalEntries after;
  EXPECT_EQ(after.GetByRefNumber("JQ-1", "JQ-2"), 1);
}

INSTANTIATE_TEST_SUITE_P(Editions, JournalEntriesEndToEnd,
                         ::testing::Values(qbsim::Edition::US, qbsim::Edition::UK), testing::EditionName);

}  // namespace
}  // namespace tessaron
