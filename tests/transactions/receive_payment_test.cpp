// Received payments against a scripted processor: the unused amounts as members are
// added, the refusal of more applied than received, the checks, the add request in
// both forms, and reading an answer with credits and its saved form.
#include <gtest/gtest.h>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/transactions/receive_payments.h"
#include "tessaron/transactions/txn_applied_to.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/raised.h"
#include "tests/transactions/invoice_session.h"

namespace tessaron {
namespace {

using testing::InvoiceSession;
using testing::IsValidQbxml;
using testing::NumberRaised;
using testing::ScriptedProcessor;

std::shared_ptr<ReceivePayments> Payments() { return State().CurrentCompany->ReceivePayments(); }

const std::string kPaymentRet =
    "<ReceivePaymentRet><TxnID>P-1</TxnID><TimeCreated>2024-05-20T10:00:00</TimeCreated>"
    "<TimeModified>2024-05-20T10:00:00</TimeModified><EditSequence>1716199200</EditSequence>"
    "<TxnNumber>9</TxnNumber><CustomerRef><ListID>80000001-1</ListID><FullName>Acme</FullName></CustomerRef>"
    "<TxnDate>2024-05-20</TxnDate><RefNumber>552</RefNumber><TotalAmount>100.00</TotalAmount>"
    "<UnusedPayment>20.00</UnusedPayment><UnusedCredits>0.00</UnusedCredits>"
    "<AppliedToTxnRet><TxnID>1A-1</TxnID><TxnType>Invoice</TxnType><TxnDate>2024-05-01</TxnDate>"
    "<RefNumber>1001</RefNumber><BalanceRemaining>0.00</BalanceRemaining><Amount>80.00</Amount>"
    "<DiscountAmount>0.00</DiscountAmount>"
    "<LinkedTxn><TxnID>C-7</TxnID><TxnType>CreditMemo</TxnType><TxnDate>2024-05-02</TxnDate>"
    "<Amount>-10.00</Amount></LinkedTxn></AppliedToTxnRet></ReceivePaymentRet>";

std::shared_ptr<ReceivePayment> ReadOne(InvoiceSession& qb) {
  qb.Answer(ScriptedProcessor::Response("ReceivePaymentQueryRs", kPaymentRet));
  Payments()->GetAll();
  qb.processor().ClearRecords();
  return Payments()->Item(Variant(1));
}

// ---- Unused amounts -------------------------------------------------------------------------

TEST(ReceivePaymentFigures, UnusedPaymentIsTotalLessAppliedAndDiscount) {
  InvoiceSession qb;
  auto p = Payments()->Add("Acme", Currency(100));
  ASSERT_NE(p->AppliedToTxns()->Add("1A-1", Currency(80), Currency(5)), nullptr);
  EXPECT_EQ(p->UnusedPayment(), Currency(15));
  EXPECT_EQ(p->AppliedToTxns()->Total(), Currency(80));
  EXPECT_EQ(p->AppliedToTxns()->TotalDiscounts(), Currency(5));
}

TEST(ReceivePaymentFigures, ChangingAnAppliedAmountMovesUnusedPayment) {
  InvoiceSession qb;
  auto p = Payments()->Add("Acme", Currency(100));
  auto applied = p->AppliedToTxns()->Add("1A-1", Currency(80));
  applied->SetAmount(Currency(30));
  EXPECT_EQ(p->UnusedPayment(), Currency(70));
  applied->Credits()->Add("C-7", Currency(10));
  EXPECT_EQ(p->UnusedPayment(), Currency(60));
  EXPECT_EQ(p->AppliedToTxns()->TotalCredits(), Currency(10));
}

TEST(ReceivePaymentFigures, AppliedAboveTotalRaisesAndTheMemberStays) {
  InvoiceSession qb;
  auto p = Payments()->Add("Acme", Currency(100));
  EXPECT_EQ(NumberRaised([&] { p->AppliedToTxns()->Add("1A-1", Currency(120)); }), err::kAppliedExceedsTotal);
  EXPECT_EQ(p->AppliedToTxns()->Count(), 1);
}

TEST(ReceivePaymentFigures, LoweringTotalBelowAppliedRaisesAndKeepsTheTotal) {
  InvoiceSession qb;
  auto p = Payments()->Add("Acme", Currency(100));
  p->AppliedToTxns()->Add("1A-1", Currency(100));
  EXPECT_EQ(NumberRaised([&] { p->SetTotal(Currency(99)); }), err::kAppliedExceedsTotal);
  EXPECT_EQ(p->Total(), Currency(100));
}

// ---- Checks ---------------------------------------------------------------------------------

struct CheckCase {
  const char* name;
  bool withCustomer;
  bool autoApply;
  std::vector<const char*> txnIds;
  uint32_t code;  // 0: passes
  const char* field;
};

class ReceivePaymentChecks : public ::testing::TestWithParam<CheckCase> {};

TEST_P(ReceivePaymentChecks, ValidateCollectsTheExpectedError) {
  InvoiceSession qb;
  const CheckCase& c = GetParam();
  auto p = Payments()->Add(c.withCustomer ? "Acme" : "", Currency(500));
  for (const char* id : c.txnIds) p->AppliedToTxns()->Add(id, Currency(10));
  if (c.autoApply) p->SetIsAutoApply(true);
  const bool ok = p->Validate();
  if (c.code == 0) {
    EXPECT_TRUE(ok);
    EXPECT_EQ(p->Errors()->Count(), 0);
    return;
  }
  ASSERT_FALSE(ok);
  ASSERT_EQ(p->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(p->Errors()->Item(1)->Number()), c.code);
  EXPECT_EQ(p->Errors()->Item(1)->Field(), c.field);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ReceivePaymentChecks,
    ::testing::Values(CheckCase{"TwoInvoices", true, false, {"1A-1", "1A-2"}, 0, ""},
                      CheckCase{"NoCustomer", false, false, {"1A-1"}, err::kCustomerRequired, "Customer"},
                      CheckCase{"SameInvoiceTwice", true, false, {"1A-1", "1A-1"}, err::kDuplicateAppliedTo, "2"},
                      CheckCase{"AutoApplyAlone", true, true, {}, 0, ""},
                      CheckCase{"AutoApplyWithMembers", true, true, {"1A-1"}, err::kAutoApplyWithAppliedTo,
                                "IsAutoApply"}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- The add request ------------------------------------------------------------------------

std::string AddRequestOf(ReceivePayment& p) {
  xmlBldr b;
  b.NewClear();
  b.InsertAddRq(p, 1);
  // The message as it would go out: the builder closes it only when sending.
  return b.GetXML().ToString() + "</QBXMLMsgsRq></QBXML>";
}

TEST(ReceivePaymentRequest, AppliedListFollowsTheHeaderWithCreditsThenDiscount) {
  InvoiceSession qb;
  auto p = Payments()->Add("Acme", Currency(100), 0, "552");
  auto applied = p->AppliedToTxns()->Add("1A-1", Currency(80));
  applied->Credits()->Add("C-7", Currency(10));
  applied->SetDiscountAmount(Currency(5));
  const std::string rq = AddRequestOf(*p);
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_NE(rq.find("<RefNumber>552</RefNumber><TotalAmount>100.00</TotalAmount>"), std::string::npos) << rq;
  EXPECT_NE(rq.find("<AppliedToTxnAdd><TxnID>1A-1</TxnID><PaymentAmount>80.00</PaymentAmount>"
                    "<SetCredit><CreditTxnID>C-7</CreditTxnID><AppliedAmount>10.00</AppliedAmount></SetCredit>"
                    "<DiscountAmount>5.00</DiscountAmount>"),
            std::string::npos)
      << rq;
  EXPECT_EQ(rq.find("IsAutoApply"), std::string::npos) << rq;
}

TEST(ReceivePaymentRequest, AutoApplySendsTheFlagInsteadOfTheList) {
  InvoiceSession qb;
  auto p = Payments()->Add("Acme", Currency(100));
  p->SetIsAutoApply(true);
  const std::string rq = AddRequestOf(*p);
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_NE(rq.find("<TotalAmount>100.00</TotalAmount><IsAutoApply>true</IsAutoApply></ReceivePaymentAdd>"),
            std::string::npos)
      << rq;
  EXPECT_EQ(rq.find("AppliedToTxnAdd"), std::string::npos) << rq;
}

TEST(ReceivePaymentRequest, ZeroDiscountSendsNoDiscountElements) {
  InvoiceSession qb;
  auto p = Payments()->Add("Acme", Currency(100));
  p->AppliedToTxns()->Add("1A-1", Currency(100));
  const std::string rq = AddRequestOf(*p);
  EXPECT_EQ(rq.find("Discount"), std::string::npos) << rq;
}

// ---- Reading --------------------------------------------------------------------------------

TEST(ReceivePaymentReading, AnswerGivesAppliedAmountsCreditsAndUnusedFigures) {
  InvoiceSession qb;
  auto p = ReadOne(qb);
  EXPECT_EQ(p->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(p->Total(), Currency(100));
  EXPECT_EQ(p->UnusedPayment(), Currency(20));
  ASSERT_EQ(p->AppliedToTxns()->Count(), 1);
  auto applied = p->AppliedToTxns()->Item(Variant("1A-1"));
  EXPECT_EQ(applied->TxnType(), qoObjectTypeInvoice);
  EXPECT_EQ(applied->Amount(), Currency(80));
  ASSERT_EQ(applied->Credits()->Count(), 1);
  EXPECT_EQ(applied->Credits()->Item(1)->CreditTxnID(), "C-7");
  EXPECT_EQ(applied->Credits()->Item(1)->Amount(), Currency(10));
}

TEST(ReceivePaymentReading, SavedFormNamesUnusedCreditAndKeepsAppliedAmounts) {
  InvoiceSession qb;
  auto p = ReadOne(qb);
  xmlBldr b;
  b.IOClear();
  b.InsertQueryRs(*p, 1);
  const std::string saved = b.GetXML().ToString();
  EXPECT_NE(saved.find("<UnusedPayment>20.00</UnusedPayment><UnusedCredit>0.00</UnusedCredit><AppliedToTxnRet>"
                       "<TxnID>1A-1</TxnID><TxnType>Invoice</TxnType>"),
            std::string::npos)
      << saved;
  EXPECT_EQ(saved.find("UnusedCredits"), std::string::npos) << saved;
}

TEST(ReceivePaymentReading, StoredPaymentRefusesNewAppliedAmounts) {
  InvoiceSession qb;
  auto p = ReadOne(qb);
  EXPECT_EQ(NumberRaised([&] { p->AppliedToTxns()->Add("1A-2", Currency(5)); }), err::kFieldCannotBeModified);
  EXPECT_EQ(NumberRaised([&] { p->SetMemo("late"); }), err::kFieldCannotBeModified);
  EXPECT_EQ(p->AppliedToTxns()->Count(), 1);
}

TEST(ReceivePaymentCollection, VoidIsRefusedAndSendsNothing) {
  InvoiceSession qb;
  EXPECT_NE(NumberRaised([] { Payments()->Void("P-1"); }), 0u);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

}  // namespace
}  // namespace tessaron
