// Expense lines: the account check, the amount and its typed text, the events that reach
// the owner, and the three written forms.
#include "tests/transactions/expense_lines_fixture.h"

#include "tessaron/platform/xml_dom.h"

namespace tessaron {
namespace {

using testing::ExpenseLinesTest;
using testing::NumberRaised;

struct AccountCase {
  const char* name;
  uint32_t raised;
};

class ExpenseLineAccountTest : public ExpenseLinesTest, public ::testing::WithParamInterface<AccountCase> {};

TEST_P(ExpenseLineAccountTest, AccountSetterAcceptsPostingAccountsOnly) {
  auto line = Lines()->Add("Rent", Currency(5));
  EXPECT_EQ(NumberRaised([&] { line->SetAccount(GetParam().name); }), GetParam().raised);
  // A refused name keeps the old account.
  EXPECT_EQ(line->Account(), GetParam().raised ? std::string("Rent") : std::string(GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(Accounts, ExpenseLineAccountTest,
                         ::testing::Values(AccountCase{"Supplies", 0}, AccountCase{"Checking", 0},
                                           AccountCase{"", 0}, AccountCase{"Nowhere", 0x800403F6u},
                                           AccountCase{"Estimates", 0x8004070Fu}));

TEST_F(ExpenseLinesTest, AddRaisesOneAmountEventAndTotalIsThePlainSum) {
  auto lines = Lines();
  lines->Add("Rent", Currency(100), "March");
  lines->Add("Supplies", Currency::Parse("-12.5"));
  EXPECT_EQ(amountChanges, 2);
  EXPECT_EQ(lines->Total(), Currency::Parse("87.5"));
  lines->Remove(Variant(int64_t{1}));
  EXPECT_EQ(amountChanges, 3);
  EXPECT_EQ(lines->Total(), Currency::Parse("-12.5"));
}

TEST_F(ExpenseLinesTest, SettingTheSameAmountTwiceRaisesOneEvent) {
  auto line = Lines()->Add("Rent");
  amountChanges = 0;
  line->SetAmount(Currency(7));
  line->SetAmount(Currency(7));
  EXPECT_EQ(amountChanges, 1);
}

TEST_F(ExpenseLinesTest, AddWithAnUnknownAccountAddsNothing) {
  auto lines = Lines();
  EXPECT_EQ(NumberRaised([&] { lines->Add("Nowhere", Currency(1)); }), 0x800403F6u);
  EXPECT_EQ(lines->Count(), 0);
  EXPECT_EQ(amountChanges, 0);
}

TEST_F(ExpenseLinesTest, BeforeInsertsAtThatPosition) {
  auto lines = Lines();
  lines->Add("Rent", Currency(1));
  lines->Add("Rent", Currency(2));
  lines->Add("Supplies", Currency(3), "", "", "", 2);
  EXPECT_EQ(lines->Item(Variant(int64_t{2}))->Amount(), Currency(3));
  EXPECT_EQ(lines->Item(Variant(int64_t{3}))->Amount(), Currency(2));
}

TEST_F(ExpenseLinesTest, AmountAsStringSetsTheAmountQuietly) {
  auto line = Lines()->Add("Rent", Currency(4));
  amountChanges = 0;
  line->SetAmountAsString("12.25");
  EXPECT_EQ(line->Amount(), Currency::Parse("12.25"));
  line->SetAmountAsString("");
  EXPECT_EQ(line->Amount(), Currency());
  EXPECT_EQ(amountChanges, 0);
  EXPECT_EQ(NumberRaised([&] { line->SetAmountAsString("12x"); }), 0x80040404u);
}

TEST_F(ExpenseLinesTest, AZeroAmountGoesOutOnlyWhenTyped) {
  auto lines = Lines();
  auto line = lines->Add("Rent");
  EXPECT_EQ(Written(*lines, false, false).find("<Amount>"), std::string::npos);
  line->SetAmountAsString("0");
  EXPECT_NE(Written(*lines, false, false).find("<Amount>0.00</Amount>"), std::string::npos);
}

TEST_F(ExpenseLinesTest, AddFormFollowsTheRequestOrder) {
  auto lines = Lines();
  auto line = lines->Add("Rent", Currency(100), "March", "West", "Acme");
  line->SetBillableStatus(qbBillableStatusBillable);
  EXPECT_EQ(Written(*lines, false, false),
            "<ExpenseLineAdd><AccountRef><FullName>Rent</FullName></AccountRef><Amount>100.00</Amount>"
            "<Memo>March</Memo><CustomerRef><FullName>Acme</FullName></CustomerRef>"
            "<ClassRef><FullName>West</FullName></ClassRef><BillableStatus>Billable</BillableStatus>"
            "</ExpenseLineAdd>");
}

TEST_F(ExpenseLinesTest, ModFormNumbersNewLinesMinusOneAndClearsAnEmptyMemo) {
  auto lines = Lines();
  lines->Add("Rent", Currency(100));
  const std::string mod = Written(*lines, false, true);
  EXPECT_EQ(mod.find("<ExpenseLineMod><TxnLineID>-1</TxnLineID><AccountRef>"), 0u) << mod;
  EXPECT_NE(mod.find("<Memo></Memo>"), std::string::npos) << mod;
}

TEST_F(ExpenseLinesTest, ReadLineIsCleanAndAChangeMakesTheCollectionDirty) {
  auto lines = Lines();
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML("<ExpenseLineRet><TxnLineID>7-1</TxnLineID><AccountRef><ListID>A1</ListID>"
                          "<FullName>Rent</FullName></AccountRef><Amount>55.10</Amount><Memo>m</Memo>"
                          "<Surprise>x</Surprise><BillableStatus>NotBillable</BillableStatus></ExpenseLineRet>"));
  auto line = detail::TxnAccess::ReadLine(*lines, doc.documentElement());
  EXPECT_EQ(line->TxnLineId(), "7-1");
  EXPECT_EQ(line->Account(), "Rent");
  EXPECT_EQ(line->Amount(), Currency::Parse("55.10"));
  EXPECT_EQ(line->BillableStatus(), qbBillableStatusNotBillable);
  EXPECT_EQ(lines->ObjectState(), qoObjectStateClean);
  line->SetMemo("changed");
  EXPECT_EQ(lines->ObjectState(), qoObjectStateDirty);
  EXPECT_NE(Written(*lines, false, true).find("<TxnLineID>7-1</TxnLineID>"), std::string::npos);
}

}  // namespace
}  // namespace tessaron
