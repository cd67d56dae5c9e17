// Payables documents: totals from both kinds of line, the check's amount in words, the
// bill's due date and discount, the header checks, what each request carries and in
// which order, and which documents may change once stored.
#include <gtest/gtest.h>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/address.h"
#include "tests/support/raised.h"
#include "tests/transactions/purchase_session.h"

namespace tessaron {
namespace {

using testing::NumberRaised;
using testing::PurchaseSession;
using testing::ScriptedProcessor;

size_t At(const std::string& text, const std::string& what) { return text.find(what); }

// ---- Totals and words -------------------------------------------------------------------

TEST(PurchaseTotals, CheckAmountIsItemLinesPlusExpenseLines) {
  PurchaseSession qb;
  auto check = qb.company()->Checks()->Add("Checking", "Paint Co");
  check->ItemLines()->Add("Painting", Currency(2));  // 2 x 12.00
  check->ExpenseLines()->Add("Rent", Currency::Parse("1210.05"));
  EXPECT_EQ(check->Amount(), Currency::Parse("1234.05"));
  EXPECT_EQ(check->AmountAsString(), "One thousand Two Hundred Thirty Four and 5/100");
  check->ExpenseLines()->Remove(Variant(int64_t{1}));
  EXPECT_EQ(check->Amount(), Currency(24));
}

TEST(PurchaseTotals, BillAmountDueFollowsTheLines) {
  PurchaseSession qb;
  auto bill = qb.company()->Bills()->Add("Paint Co");
  bill->ExpenseLines()->Add("Rent", Currency(100));
  bill->ItemLines()->Add("Painting");
  EXPECT_EQ(bill->AmountDue(), Currency(112));
}

struct WordsCase {
  const char* amount;
  const char* words;
};

class CheckWordsTest : public ::testing::TestWithParam<WordsCase> {};

TEST_P(CheckWordsTest, AmountReadsAsOnAPrintedCheck) {
  EXPECT_EQ(CheckAmountInWords(Currency::Parse(GetParam().amount)), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Amounts, CheckWordsTest,
    ::testing::Values(WordsCase{"1234.05", "One thousand Two Hundred Thirty Four and 5/100"},
                      WordsCase{"0.50", "Zero and 50/100"}, WordsCase{"1000000", "One million and 0/100"},
                      WordsCase{"2000000", "Two million and 0/100"}, WordsCase{"19.99", "Nineteen and 99/100"},
                      // A round ten keeps the blank after it: the printed form has two.
                      WordsCase{"40", "Forty  and 0/100"}, WordsCase{"115", "One Hundred Fifteen and 0/100"}));

// ---- Bill dates and discount ---------------------------------------------------------------

struct DueCase {
  const char* terms;
  int y, m, d;          // TxnDate
  int dy, dm, dd;       // expected DueDate
};

class BillDueDateTest : public ::testing::TestWithParam<DueCase> {};

TEST_P(BillDueDateTest, DueDateComesFromTheTerms) {
  PurchaseSession qb;
  const DueCase& c = GetParam();
  auto bill = qb.company()->Bills()->Add("Paint Co", "", DateSerial(c.y, c.m, c.d), "", c.terms);
  EXPECT_EQ(bill->DueDate(), DateSerial(c.dy, c.dm, c.dd));
}

INSTANTIATE_TEST_SUITE_P(
    Terms, BillDueDateTest,
    ::testing::Values(DueCase{"", 2026, 3, 5, 2026, 3, 15},          // no terms: ten days
                      DueCase{"Net 30", 2026, 3, 5, 2026, 4, 4},     // standard: DueDays
                      DueCase{"15th", 2026, 3, 5, 2026, 3, 15},      // ten days left: this month
                      DueCase{"15th", 2026, 3, 12, 2026, 4, 15},     // three days left: next month
                      DueCase{"15th", 2026, 12, 12, 2027, 1, 15},    // December runs into January
                      DueCase{"15th", 2026, 3, 20, 2026, 4, 15}));   // past the day: next month

TEST(BillDiscount, TermsGiveADiscountDateAndAmountNoTermsGiveNone) {
  PurchaseSession qb;
  auto bill = qb.company()->Bills()->Add("Paint Co", "", DateSerial(2026, 3, 5));
  bill->ExpenseLines()->Add("Rent", Currency::Parse("333.33"));
  EXPECT_EQ(bill->DiscountDate(), Date(0));
  EXPECT_EQ(bill->DiscountAmount(), Currency());
  bill->SetTerms("Net 30");
  EXPECT_EQ(bill->DiscountDate(), DateSerial(2026, 3, 15));
  EXPECT_EQ(bill->DiscountAmount(), Currency::Parse("6.67"));
  EXPECT_EQ(NumberRaised([&] { bill->SetTerms("Someday"); }), err::kTermMissing);
  EXPECT_EQ(bill->Terms(), "Net 30");
}

// ---- Header setters ------------------------------------------------------------------------

TEST(PurchaseSetters, VendorAndPayablesAccountAreLookedUp) {
  PurchaseSession qb;
  auto bill = qb.company()->Bills()->Add("", "", 0, "Payables");
  EXPECT_EQ(NumberRaised([&] { bill->SetVendor("Nobody"); }), err::kVendorMissing);
  EXPECT_EQ(NumberRaised([&] { bill->SetAPAccount("Checking"); }), err::kNeedApAccount);
  EXPECT_EQ(NumberRaised([&] { bill->SetAPAccount("Nowhere"); }), err::kBadAccount);
  EXPECT_EQ(bill->APAccount(), "Payables");
  bill->SetVendor("Paint Co");
  ASSERT_NE(bill->VendorObject(), nullptr);
  EXPECT_EQ(bill->VendorObject()->Name(), "Paint Co");
}

// ---- Validate ------------------------------------------------------------------------------

struct CheckCase {
  const char* account;
  const char* refNumber;
  bool toPrint;
  uint32_t error;  // 0: passes
};

class CheckValidateTest : public ::testing::TestWithParam<CheckCase> {};

TEST_P(CheckValidateTest, HeaderChecksOfACheck) {
  PurchaseSession qb;
  const CheckCase& c = GetParam();
  auto check = qb.company()->Checks()->Add(c.account, "Paint Co", c.refNumber, 0, "", c.toPrint);
  check->ExpenseLines()->Add("Rent", Currency(10));
  EXPECT_EQ(check->Validate(), c.error == 0);
  auto errors = check->Errors();
  if (c.error == 0) {
    EXPECT_EQ(errors->Count(), 0);
    return;
  }
  ASSERT_EQ(errors->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(errors->Item(1)->Number()), c.error);
  EXPECT_EQ(errors->Item(1)->Field(), "Check");
}

INSTANTIATE_TEST_SUITE_P(Checks, CheckValidateTest,
                         ::testing::Values(CheckCase{"Checking", "101", false, 0},
                                           CheckCase{"Checking", "", true, 0},
                                           CheckCase{"Nowhere", "", false, 0x800403F6u},
                                           CheckCase{"Visa", "", false, 0x800408FDu},
                                           CheckCase{"Checking", "101", true, 0x800408FCu}));

TEST(PurchaseValidate, VendorDocumentsNeedAVendorAndALine) {
  PurchaseSession qb;
  auto bill = qb.company()->Bills()->Add();
  EXPECT_FALSE(bill->Validate());
  ASSERT_EQ(bill->Errors()->Count(), 2);
  EXPECT_EQ(static_cast<uint32_t>(bill->Errors()->Item(1)->Number()), err::kVendorRequired);
  EXPECT_EQ(bill->Errors()->Item(1)->Field(), "Vendor");
  EXPECT_EQ(static_cast<uint32_t>(bill->Errors()->Item(2)->Number()), err::kNeedLine);
  bill->SetVendor("Paint Co");
  bill->ExpenseLines()->Add("Rent", Currency(5));
  bill->ExpenseLines()->Add();  // trailing and empty: dropped
  EXPECT_TRUE(bill->Validate());
  EXPECT_EQ(bill->ExpenseLines()->Count(), 1);
}

TEST(PurchaseValidate, CardDocumentsWantACreditCardAccount) {
  PurchaseSession qb;
  auto charge = qb.company()->CreditCardCharges()->Add("Checking");
  charge->ExpenseLines()->Add("Rent", Currency(5));
  EXPECT_FALSE(charge->Validate());
  EXPECT_EQ(static_cast<uint32_t>(charge->Errors()->Item(1)->Number()), err::kNeedCreditCardAccount);
  EXPECT_EQ(charge->Errors()->Item(1)->Field(), "CreditCardCharge");
  auto credit = qb.company()->CreditCardCredits()->Add("Visa");
  credit->ExpenseLines()->Add("Rent", Currency(5));
  EXPECT_TRUE(credit->Validate());
}

// ---- Requests ------------------------------------------------------------------------------

std::string BillRet(const std::string& lines) {
  return "<BillRet><TxnID>B-9</TxnID><TimeCreated>2026-03-05T10:00:00</TimeCreated>"
         "<TimeModified>2026-03-05T10:00:00</TimeModified><EditSequence>77</EditSequence><TxnNumber>4</TxnNumber>"
         "<VendorRef><ListID>V1</ListID><FullName>Paint Co</FullName></VendorRef>"
         "<APAccountRef><ListID>A5</ListID><FullName>Payables</FullName></APAccountRef>"
         "<TxnDate>2026-03-05</TxnDate><DueDate>2026-03-15</DueDate><AmountDue>100.00</AmountDue>"
         "<IsPaid>false</IsPaid>" + lines + "<OpenAmount>100.00</OpenAmount></BillRet>";
}
const char* kExpenseRet =
    "<ExpenseLineRet><TxnLineID>E-1</TxnLineID><AccountRef><ListID>A1</ListID><FullName>Rent</FullName>"
    "</AccountRef><Amount>100.00</Amount></ExpenseLineRet>";

std::string CheckRet() {
  return "<CheckRet><TxnID>C-1</TxnID><TimeCreated>2026-03-05T10:00:00</TimeCreated>"
         "<TimeModified>2026-03-05T10:00:00</TimeModified><EditSequence>1</EditSequence>"
         "<AccountRef><FullName>Checking</FullName></AccountRef><TxnDate>2026-03-05</TxnDate>"
         "<Amount>100.00</Amount><IsToBePrinted>false</IsToBePrinted>" + std::string(kExpenseRet) + "</CheckRet>";
}


TEST(PurchaseRequests, BillAddCarriesTheHeaderThenExpenseLinesThenItemLines) {
  PurchaseSession qb;
  auto bill = qb.company()->Bills()->Add("Paint Co", "B-1", DateSerial(2026, 3, 5), "Payables", "Net 30", 0, "March");
  bill->ItemLines()->Add("Painting");
  bill->ExpenseLines()->Add("Rent", Currency(100));
  qb.Answer(ScriptedProcessor::Response("BillAddRs", BillRet(kExpenseRet)));
  EXPECT_EQ(qb.company()->Bills()->Commit(bill), 0);
  const std::string sent = qb.processor().Requests().back();
  EXPECT_TRUE(testing::IsValidQbxml(sent)) << sent;
  const std::vector<std::string> order = {"<VendorRef>", "<APAccountRef>", "<TxnDate>2026-03-05", "<DueDate>2026-04-04",
                                          "<RefNumber>B-1", "<TermsRef>", "<Memo>March", "<ExpenseLineAdd>",
                                          "<ItemLineAdd>"};
  for (size_t i = 1; i < order.size(); ++i) EXPECT_LT(At(sent, order[i - 1]), At(sent, order[i])) << order[i];
}

TEST(PurchaseRequests, CheckAddIsSchemaValidAndSendsNoAmount) {
  PurchaseSession qb;
  auto check = qb.company()->Checks()->Add("Checking", "Paint Co", "", DateSerial(2026, 3, 5), "Paint", true);
  check->ItemLines()->Add("Painting");
  check->ExpenseLines()->Add("Rent", Currency(100));
  qb.Answer(ScriptedProcessor::Response("CheckAddRs", CheckRet()));
  EXPECT_EQ(qb.company()->Checks()->Commit(check), 0);
  const std::string sent = qb.processor().Requests().back();
  EXPECT_TRUE(testing::IsValidQbxml(sent)) << sent;
  EXPECT_EQ(At(sent, "<Amount>112.00"), std::string::npos);
  EXPECT_LT(At(sent, "<IsToBePrinted>1"), At(sent, "<ExpenseLineAdd>"));
}

TEST(PurchaseRequests, AStoredBillWhoseExpenseLineChangedGoesAsAModify) {
  PurchaseSession qb;
  auto bills = qb.company()->Bills();
  qb.Answer(ScriptedProcessor::Response("BillQueryRs", BillRet(kExpenseRet)));
  ASSERT_EQ(bills->GetAll(), 1);
  auto bill = bills->Item(Variant(int64_t{1}));
  EXPECT_EQ(bill->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(bill->OpenAmount(), Currency(100));
  ASSERT_EQ(bill->ExpenseLines()->Count(), 1);
  bill->ExpenseLines()->Item(Variant(int64_t{1}))->SetAmount(Currency(120));
  EXPECT_EQ(bill->ObjectState(), qoObjectStateDirty);
  EXPECT_EQ(bill->AmountDue(), Currency(120));
  qb.Answer(ScriptedProcessor::Response("BillModRs", BillRet(kExpenseRet)));
  EXPECT_EQ(bills->Commit(bill), 0);
  const std::string sent = qb.processor().LastRequest();
  EXPECT_TRUE(testing::IsValidQbxml(sent)) << sent;
  EXPECT_NE(At(sent, "<ExpenseLineMod><TxnLineID>E-1</TxnLineID>"), std::string::npos) << sent;
  EXPECT_NE(At(sent, "<EditSequence>77</EditSequence>"), std::string::npos);
}

// Every kind's add, with both kinds of line where it has them, is what the schema allows.
TEST(PurchaseRequests, EachKindsAddIsSchemaValid) {
  PurchaseSession qb;
  auto company = qb.company();
  std::vector<std::string> sent;
  auto commit = [&](auto collection, auto doc, const char* answer) {
    qb.Answer(ScriptedProcessor::Response(answer, "", 3000, "refused"));
    collection->Commit(doc);
    sent.push_back(qb.processor().Requests().back());
  };
  auto credit = company->VendorCredits()->Add("Paint Co", "VC-1", 0, "Payables", "returned");
  credit->ExpenseLines()->Add("Supplies", Currency(5));
  credit->ItemLines()->Add("Painting");
  commit(company->VendorCredits(), credit, "VendorCreditAddRs");
  auto receipt = company->ItemReceipts()->Add("Paint Co", "IR-1", 0, "Payables");
  receipt->ItemLines()->Add("Painting", Currency(3));
  commit(company->ItemReceipts(), receipt, "ItemReceiptAddRs");
  auto charge = company->CreditCardCharges()->Add("Visa", "Paint Co", "CC-1");
  charge->ExpenseLines()->Add("Supplies", Currency(5));
  commit(company->CreditCardCharges(), charge, "CreditCardChargeAddRs");
  auto refund = company->CreditCardCredits()->Add("Visa", "Paint Co", "CC-2");
  refund->ExpenseLines()->Add("Supplies", Currency(5));
  commit(company->CreditCardCredits(), refund, "CreditCardCreditAddRs");
  auto order = company->PurchaseOrders()->Add("Paint Co", "PO-1", 0, "", "", "Net 30", "", "FOB", "m", "thanks");
  order->ItemLines()->Add("Painting", Currency(2));
  commit(company->PurchaseOrders(), order, "PurchaseOrderAddRs");
  ASSERT_EQ(sent.size(), 5u);
  for (const auto& text : sent) EXPECT_TRUE(testing::IsValidQbxml(text)) << text;
  EXPECT_NE(At(sent[0], "<VendorCreditAdd><VendorRef>"), std::string::npos) << sent[0];
  EXPECT_LT(At(sent[0], "<ExpenseLineAdd>"), At(sent[0], "<ItemLineAdd>"));
  EXPECT_NE(At(sent[4], "<PurchaseOrderLineAdd><ItemRef>"), std::string::npos) << sent[4];
  EXPECT_EQ(At(sent[4], "<DueDate>"), std::string::npos);  // kept in the saved form only
}

TEST(PurchaseValidate, AStoredCheckIsStillHeldToItsAccount) {
  PurchaseSession qb;
  qb.Answer(ScriptedProcessor::Response(
      "CheckQueryRs", "<CheckRet><TxnID>C-2</TxnID><TimeCreated>2026-03-05T10:00:00</TimeCreated>"
                      "<TimeModified>2026-03-05T10:00:00</TimeModified><EditSequence>1</EditSequence>"
                      "<AccountRef><FullName>Visa</FullName></AccountRef><TxnDate>2026-03-05</TxnDate>"
                      "<Amount>5.00</Amount></CheckRet>"));
  auto checks = qb.company()->Checks();
  ASSERT_EQ(checks->GetAll(), 1);
  auto check = checks->Item(Variant(int64_t{1}));
  EXPECT_FALSE(check->Validate());
  EXPECT_EQ(static_cast<uint32_t>(check->Errors()->Item(1)->Number()), err::kCheckNeedsBank);
}

// ---- Which documents change once stored ----------------------------------------------------

TEST(PurchaseGates, StoredChecksAndCardDocumentsRefuseChangeAndModify) {
  PurchaseSession qb;
  qb.Answer(ScriptedProcessor::Response("CheckQueryRs", CheckRet()));
  auto checks = qb.company()->Checks();
  ASSERT_EQ(checks->GetAll(), 1);
  auto check = checks->Item(Variant(int64_t{1}));
  EXPECT_EQ(check->Amount(), Currency(100));
  EXPECT_EQ(NumberRaised([&] { check->SetMemo("late"); }), err::kFieldCannotBeModified);
  xmlBldr b;
  auto e = testing::Raised([&] { check->XMLModify(b); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Description(), "ModRq not supported");
  EXPECT_EQ(e->Source(), "Tessaron: Check");
}

TEST(PurchaseGates, AStoredBillChangesAboveVersionTwoOnly) {
  PurchaseSession qb("2.0");
  qb.Answer(ScriptedProcessor::Response("BillQueryRs", BillRet(kExpenseRet)));
  auto bills = qb.company()->Bills();
  ASSERT_EQ(bills->GetAll(), 1);
  EXPECT_EQ(NumberRaised([&] { bills->Item(Variant(int64_t{1}))->SetMemo("x"); }), err::kFieldCannotBeModified);
}

// ---- Purchase orders -----------------------------------------------------------------------

TEST(PurchaseOrderShipTo, AVendorAsShipToEntityCopiesItsAddressAndEmptyClearsOnlyTheName) {
  PurchaseSession qb;
  // The entity list is read on first use.
  qb.processor().RespondTo("EntityQueryRq", ScriptedProcessor::Response(
      "EntityQueryRs", testing::Ret("Vendor", "V1", "<Name>Paint Co</Name><IsActive>true</IsActive>"
                                                    "<VendorAddress><Addr1>2 Mill Rd</Addr1></VendorAddress>")));
  auto order = qb.company()->PurchaseOrders()->Add("Paint Co");
  order->SetShipToEntity("Paint Co");
  EXPECT_EQ(order->ShipToEntity(), "Paint Co");
  EXPECT_EQ(order->ShipTo()->Line1(), "2 Mill Rd");
  order->SetShipToEntity("");
  EXPECT_EQ(order->ShipToEntity(), "");
  EXPECT_EQ(order->ShipTo()->Line1(), "2 Mill Rd");
}

}  // namespace
}  // namespace tessaron
