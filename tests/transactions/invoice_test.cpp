// Invoices and their collection against a scripted processor: the modify gate, the state
// read through lines, the checks, the Customer cascade, commit matching, the query texts
// and automatic numbering.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/address.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/transactions/txn_linked_transactions.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/support/raised.h"
#include "tests/support/text_match.h"
#include "tests/transactions/invoice_session.h"

namespace tessaron {
namespace {

using testing::InvoiceSession;
using testing::NumberRaised;
using testing::ScriptedProcessor;

// The body of the first request of the message set: what lies between the opening and
// the closing of the named element.
std::string Body(const std::string& request, const std::string& element) {
  const std::string open = "<" + element;
  size_t start = request.find(open);
  if (start == std::string::npos) return {};
  start = request.find('>', start) + 1;
  size_t end = request.find("</" + element + ">", start);
  return request.substr(start, end - start);
}

// A stored invoice read from an answer, held by the master collection.
std::shared_ptr<Invoice> ReadOne(InvoiceSession& qb, const std::string& lines = "") {
  qb.Answer(ScriptedProcessor::Response("InvoiceQueryRs", InvoiceSession::InvoiceRet("1A-1", lines)));
  qb.invoices()->GetAll();
  qb.processor().ClearRecords();
  return qb.invoices()->Item(Variant(1));
}

// ---- The modify gate ------------------------------------------------------------------------

struct GateCase {
  const char* version;
  bool allowed;
};

class InvoiceModifyGate : public ::testing::TestWithParam<GateCase> {};

TEST_P(InvoiceModifyGate, StoredInvoiceChangesOnlyAboveVersion20) {
  InvoiceSession qb(GetParam().version);
  auto inv = ReadOne(qb, InvoiceSession::LineRet("L-1", "Labor", "30.00"));
  ASSERT_EQ(inv->ObjectState(), qoObjectStateClean);
  const uint32_t raised = NumberRaised([&] { inv->SetMemo("changed"); });
  if (GetParam().allowed) {
    EXPECT_EQ(raised, 0u);
    EXPECT_EQ(inv->ObjectState(), qoObjectStateDirty);
    EXPECT_EQ(inv->Memo(), "changed");
  } else {
    EXPECT_EQ(raised, err::kFieldCannotBeModified);
    EXPECT_EQ(inv->ObjectState(), qoObjectStateClean);
    EXPECT_EQ(inv->Memo(), "");
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, InvoiceModifyGate,
                         ::testing::Values(GateCase{"1.1", false}, GateCase{"2.0", false}, GateCase{"2.1", true},
                                           GateCase{"3.0", true}));

TEST(InvoiceModifyGate, NewInvoiceTakesSettersAtVersion20) {
  InvoiceSession qb("2.0");
  auto inv = qb.invoices()->Add();
  EXPECT_EQ(NumberRaised([&] { inv->SetMemo("new"); }), 0u);
  EXPECT_EQ(inv->ObjectState(), qoObjectStateNew);
}

// ---- State read through lines ---------------------------------------------------------------

TEST(InvoiceState, CleanInvoiceWithAChangedLineReadsDirtyAndGoesAsModify) {
  InvoiceSession qb;
  auto inv = ReadOne(qb, InvoiceSession::LineRet("L-1", "Labor", "30.00"));
  inv->ItemLines()->Item(Variant(1))->SetDescription("Labour");
  EXPECT_EQ(inv->ObjectState(), qoObjectStateDirty);
  qb.Answer(ScriptedProcessor::Response("InvoiceModRs", InvoiceSession::InvoiceRet("1A-1")));
  EXPECT_EQ(qb.invoices()->Commit(inv), 0);
  ASSERT_EQ(qb.processor().Requests().size(), 1u);
  const std::string& sent = qb.processor().LastRequest();
  EXPECT_NE(sent.find("<InvoiceModRq requestID = \"1\"><InvoiceMod><TxnID>1A-1</TxnID>"
                      "<EditSequence>1714557600</EditSequence>"),
            std::string::npos)
      << sent;
  EXPECT_NE(sent.find("<InvoiceLineMod><TxnLineID>L-1</TxnLineID>"), std::string::npos) << sent;
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_EQ(inv->ObjectState(), qoObjectStateClean);
}

TEST(InvoiceState, CleanMemberWithoutAChangedLineSendsNothing) {
  InvoiceSession qb;
  auto inv = ReadOne(qb, InvoiceSession::LineRet("L-1", "Labor", "30.00"));
  EXPECT_EQ(qb.invoices()->Commit(inv), 0);
  EXPECT_EQ(qb.invoices()->Commit2(), 0);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(InvoiceState, ChangedBillingAddressMakesACleanInvoiceDirty) {
  InvoiceSession qb;
  auto inv = ReadOne(qb, InvoiceSession::LineRet("L-1", "Labor", "30.00"));
  inv->BillTo()->SetCity("Harbor");
  EXPECT_EQ(inv->ObjectState(), qoObjectStateDirty);
}

// ---- Checks ---------------------------------------------------------------------------------

TEST(InvoiceChecks, TrailingEmptyLinesAreRemovedBeforeTheCheckOfLines) {
  InvoiceSession qb;
  auto inv = qb.invoices()->Add("Acme");
  inv->ItemLines()->Add("", Currency(), "Labor");
  inv->ItemLines()->Add();
  inv->ItemLines()->Add();
  ASSERT_EQ(inv->ItemLines()->Count(), 3);
  EXPECT_TRUE(inv->Validate());
  EXPECT_EQ(inv->ItemLines()->Count(), 1);
}

TEST(InvoiceChecks, OnlyEmptyLinesFailWithNoLineLeft) {
  InvoiceSession qb;
  auto inv = qb.invoices()->Add("Acme");
  inv->ItemLines()->Add();
  inv->ItemLines()->Add();
  EXPECT_FALSE(inv->Validate());
  ASSERT_EQ(inv->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(inv->Errors()->Item(Variant(1))->Number()), err::kNeedLine);
  EXPECT_EQ(inv->Errors()->Item(Variant(1))->Field(), "0");
}

TEST(InvoiceChecks, MissingCustomerIsCollectedWithItsField) {
  InvoiceSession qb;
  auto inv = qb.invoices()->Add();
  inv->ItemLines()->Add("", Currency(), "Labor");
  EXPECT_FALSE(inv->Validate());
  ASSERT_EQ(inv->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(inv->Errors()->Item(Variant(1))->Number()), err::kInvalidCustomer);
  EXPECT_EQ(inv->Errors()->Item(Variant(1))->Field(), "Customer");
}

TEST(InvoiceChecks, CleanInvoicePassesUntested) {
  InvoiceSession qb;
  auto inv = ReadOne(qb);
  EXPECT_TRUE(inv->Validate());
}

// ---- The Customer cascade -------------------------------------------------------------------

TEST(InvoiceCustomer, SettingACustomerTakesItsTermsTaxCodeAndAddresses) {
  InvoiceSession qb;
  auto inv = qb.invoices()->Add();
  inv->SetTxnDate(DateSerial(2024, 5, 1));
  inv->SetCustomer("Acme");
  EXPECT_EQ(inv->Customer(), "Acme");
  EXPECT_EQ(inv->Terms(), "Net 30");
  EXPECT_EQ(inv->DueDate(), DateSerial(2024, 5, 31));
  EXPECT_EQ(inv->SalesTaxCode(), "Tax");
  EXPECT_EQ(inv->BillTo()->Line1(), "1 Main St");
  EXPECT_EQ(inv->ShipTo()->City(), "Harbor");
}

TEST(InvoiceCustomer, EmptyNameChangesNothingAndUnknownNameRaises) {
  InvoiceSession qb;
  auto inv = qb.invoices()->Add();
  EXPECT_EQ(NumberRaised([&] { inv->SetCustomer(""); }), 0u);
  EXPECT_EQ(inv->Customer(), "");
  qb.processor().RespondTo("CustomerQueryRq", ScriptedProcessor::Response("CustomerQueryRs", "", 1, "No match"));
  EXPECT_EQ(NumberRaised([&] { inv->SetCustomer("Nobody"); }), err::kInvalidCustomer);
  EXPECT_EQ(inv->Customer(), "");
}

TEST(InvoiceCustomer, UnknownTermRaisesAndKeepsTheOldTerm) {
  InvoiceSession qb;
  auto inv = qb.invoices()->Add();
  inv->SetTerms("Net 30");
  qb.processor().RespondTo("TermsQueryRq", ScriptedProcessor::Response("TermsQueryRs", "", 1, "No match"));
  EXPECT_EQ(NumberRaised([&] { inv->SetTerms("Net 99"); }), err::kTermMissing);
  EXPECT_EQ(inv->Terms(), "Net 30");
}

// ---- Commit ---------------------------------------------------------------------------------

std::shared_ptr<Invoice> ValidNew(InvoiceSession& qb) {
  auto inv = qb.invoices()->Add("Acme");
  inv->ItemLines()->Add("", Currency(), "Labor");
  qb.processor().ClearRecords();
  return inv;
}

TEST(InvoiceCommit, Status3100LeavesTheInvoiceNewWithANameError) {
  InvoiceSession qb;
  auto inv = ValidNew(qb);
  qb.Answer(ScriptedProcessor::Response("InvoiceAddRs", "", 3100, "The name is already in use."));
  EXPECT_EQ(qb.invoices()->Commit(inv), 1);
  EXPECT_EQ(inv->ObjectState(), qoObjectStateNew);
  auto collected = qb.invoices()->Errors()->Item(Variant(1));
  EXPECT_EQ(static_cast<uint32_t>(collected->Number()), err::kCommitFailed);
  EXPECT_EQ(collected->Field(), "1");
  ASSERT_EQ(inv->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(inv->Errors()->Item(Variant(1))->Number()), err::kDuplicateName);
  EXPECT_EQ(inv->Errors()->Item(Variant(1))->Field(), "Name");
}

TEST(InvoiceCommit, OtherStatusCarriesTheServersText) {
  InvoiceSession qb;
  auto inv = ValidNew(qb);
  qb.Answer(ScriptedProcessor::Response("InvoiceAddRs", "", 3140, "There is an invalid reference."));
  EXPECT_EQ(qb.invoices()->Commit(inv), 1);
  ASSERT_EQ(inv->Errors()->Count(), 1);
  auto e = inv->Errors()->Item(Variant(1));
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kDatabaseOpenFailed);
  EXPECT_EQ(e->Field(), "QuickBooks: ");
  EXPECT_EQ(e->Description(), "There is an invalid reference.");
}

TEST(InvoiceCommit, SuccessReadsTheAnswerAndKeysTheInvoiceByItsTxnId) {
  InvoiceSession qb;
  auto inv = ValidNew(qb);
  qb.Answer(ScriptedProcessor::Response("InvoiceAddRs", InvoiceSession::InvoiceRet("9Z-1", InvoiceSession::LineRet("L-7", "Labor", "0.00"))));
  EXPECT_EQ(qb.invoices()->Commit(inv), 0);
  EXPECT_EQ(inv->TxnId(), "9Z-1");
  EXPECT_EQ(inv->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(qb.invoices()->Item(Variant("9Z-1")), inv);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(InvoiceCommit, MemberOfAnotherCollectionIsRefusedWithoutARequest) {
  InvoiceSession qb;
  auto stranger = std::make_shared<Invoice>();
  stranger->SetCustomer("Acme");
  stranger->ItemLines()->Add("", Currency(), "Labor");
  qb.processor().ClearRecords();
  EXPECT_EQ(qb.invoices()->Commit(stranger), 1);
  EXPECT_EQ(static_cast<uint32_t>(qb.invoices()->Errors()->Item(Variant(1))->Number()), err::kNotAMember);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(InvoiceCommit, AnInvalidMemberHoldsTheWholeBatchBack) {
  InvoiceSession qb;
  ValidNew(qb);
  qb.invoices()->Add("Acme");  // no lines
  qb.processor().ClearRecords();
  EXPECT_EQ(qb.invoices()->Commit2(), 1);
  EXPECT_EQ(qb.invoices()->Errors()->Item(Variant(1))->Field(), "2");
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(InvoiceCommit, ErrorModeRaisesTheSummary) {
  InvoiceSession qb;
  auto inv = ValidNew(qb);
  State().ErrorMode = true;
  qb.Answer(ScriptedProcessor::Response("InvoiceAddRs", "", 3140, "There is an invalid reference."));
  EXPECT_EQ(NumberRaised([&] { qb.invoices()->Commit(inv); }), err::kCommitErrors);
}

TEST(InvoiceCommit, AddOnACollectionThatIsNotTheMasterRaises) {
  InvoiceSession qb;
  Invoices other;
  EXPECT_EQ(NumberRaised([&] { other.Add("Acme"); }), err::kMasterOnly);
}

// ---- Query texts ----------------------------------------------------------------------------

struct QueryCase {
  const char* name;
  std::function<void(Invoices&)> run;
  const char* body;  // the content of InvoiceQueryRq
};

class InvoiceQueryText : public ::testing::TestWithParam<QueryCase> {};

TEST_P(InvoiceQueryText, WritesItsElementsInSchemaOrder) {
  InvoiceSession qb;
  GetParam().run(*qb.invoices());
  ASSERT_EQ(qb.processor().Requests().size(), 1u);
  EXPECT_EQ(Body(qb.processor().LastRequest(), "InvoiceQueryRq"), GetParam().body);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

INSTANTIATE_TEST_SUITE_P(
    Queries, InvoiceQueryText,
    ::testing::Values(
        QueryCase{"DateMacroWithEntityChildrenAndPaidStatus",
                  [](Invoices& c) { c.GetByDateMacro(qbDateMacroLastMonth, true, 5, 3, "", "Acme", true); },
                  "<MaxReturned>5</MaxReturned><TxnDateRangeFilter><DateMacro>LastMonth</DateMacro>"
                  "</TxnDateRangeFilter><EntityFilter><FullNameWithChildren>Acme</FullNameWithChildren>"
                  "</EntityFilter><PaidStatus>NotPaidOnly</PaidStatus><IncludeLineItems>true</IncludeLineItems>"},
        QueryCase{"ModifiedDateSpanWithoutLines",
                  [](Invoices& c) { c.GetByDateSpan(DateSerial(2024, 1, 1), 0, true, false); },
                  "<ModifiedDateRangeFilter><FromModifiedDate>2024-01-01T00:00:00</FromModifiedDate>"
                  "</ModifiedDateRangeFilter>"},
        QueryCase{"EntitiesWithLinkedTransactions",
                  [](Invoices& c) {
                    c.SetIncludeLinkedTxns(true);
                    c.GetByEntity({"Acme", "Baker"});
                  },
                  "<EntityFilter><FullName>Acme</FullName><FullName>Baker</FullName></EntityFilter>"
                  "<IncludeLineItems>true</IncludeLineItems><IncludeLinkedTxns>true</IncludeLinkedTxns>"},
        QueryCase{"RefNumberRange",
                  [](Invoices& c) { c.GetByRefNumber("100", "200", false, 0, 2); },
                  "<RefNumberRangeFilter><FromRefNumber>100</FromRefNumber><ToRefNumber>200</ToRefNumber>"
                  "</RefNumberRangeFilter><PaidStatus>PaidOnly</PaidStatus>"},
        QueryCase{"RefNumberMatch",
                  [](Invoices& c) { c.GetByRefNumberMatch("10", 1, false); },
                  "<RefNumberFilter><MatchCriterion>StartsWith</MatchCriterion><RefNumber>10</RefNumber>"
                  "</RefNumberFilter>"},
        QueryCase{"Multiple",
                  [](Invoices& c) { c.GetMultiple({"1A-1", "2B-2"}, false); },
                  "<TxnID>1A-1</TxnID><TxnID>2B-2</TxnID>"},
        QueryCase{"SingleAccount",
                  [](Invoices& c) { c.GetBySingleAccount("Accounts Receivable", false, false); },
                  "<AccountFilter><FullName>Accounts Receivable</FullName></AccountFilter>"},
        QueryCase{"AllWithLimit", [](Invoices& c) { c.GetAll(true, 10); },
                  "<MaxReturned>10</MaxReturned><IncludeLineItems>true</IncludeLineItems>"}),
    [](const ::testing::TestParamInfo<QueryCase>& info) { return std::string(info.param.name); });

TEST(InvoiceQueries, EmptyEntityListAndSeveralNamesWithChildrenRaise) {
  InvoiceSession qb;
  EXPECT_EQ(NumberRaised([&] { qb.invoices()->GetByEntity({}); }), err::kEmptyArray);
  EXPECT_EQ(NumberRaised([&] { qb.invoices()->GetByAccount({}); }), err::kEmptyArray);
  EXPECT_EQ(NumberRaised([&] { qb.invoices()->GetByEntity({"Acme", "Baker"}, true); }), err::kTxnCollection);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(InvoiceQueries, GetByTxnIDOfAHeldMemberSendsNothing) {
  InvoiceSession qb;
  auto inv = ReadOne(qb);
  EXPECT_EQ(qb.invoices()->GetByTxnID("1A-1"), inv);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(InvoiceQueries, GetByTxnIDOfAnUnknownIdIsNullWithoutAnError) {
  InvoiceSession qb;
  EXPECT_EQ(qb.invoices()->GetByTxnID("none"), nullptr);
  EXPECT_EQ(Body(qb.processor().LastRequest(), "InvoiceQueryRq"),
            "<TxnID>none</TxnID><IncludeLineItems>true</IncludeLineItems>");
}

TEST(InvoiceQueries, ReadingLinesOfAnInvoiceReadWithoutThemAsksForItAgain) {
  InvoiceSession qb;
  auto inv = ReadOne(qb);
  qb.Answer(ScriptedProcessor::Response("InvoiceQueryRs", InvoiceSession::InvoiceRet("1A-1")));
  inv->ItemLines();
  ASSERT_EQ(qb.processor().Requests().size(), 1u);
  EXPECT_EQ(Body(qb.processor().LastRequest(), "InvoiceQueryRq"),
            "<TxnID>1A-1</TxnID><IncludeLinkedTxns>true</IncludeLinkedTxns>");
}

TEST(InvoiceQueries, UnknownElementsAreSkippedAndKnownFieldsKept) {
  InvoiceSession qb;
  std::string ret = InvoiceSession::InvoiceRet("1A-1");
  ret.insert(ret.find("<TxnDate>"), "<Other>x</Other><IsTaxIncluded>false</IsTaxIncluded>");
  // QuickBooks sends elements the schema puts elsewhere; they must not stop the read.
  qb.processor().QueueResponse(ScriptedProcessor::Response("InvoiceQueryRs", ret));
  EXPECT_EQ(qb.invoices()->GetAll(), 1);
  auto inv = qb.invoices()->Item(Variant(1));
  EXPECT_EQ(inv->RefNumber(), "1001");
  EXPECT_EQ(inv->Subtotal(), Currency(30));
  EXPECT_EQ(inv->DueDate(), DateSerial(2024, 5, 31));
}

TEST(InvoiceQueries, LinkedDocumentsAreReadAndSavedAgain) {
  InvoiceSession qb;
  const std::string link =
      "<LinkedTxn><TxnID>P-9</TxnID><TxnType>ReceivePayment</TxnType><TxnDate>2024-05-20</TxnDate>"
      "<RefNumber>552</RefNumber><LinkType>AMTTYPE</LinkType><Amount>-10.00</Amount></LinkedTxn>";
  auto inv = ReadOne(qb, link + InvoiceSession::LineRet("L-1", "Labor", "30.00"));
  auto links = inv->LinkedTxns();
  ASSERT_EQ(links->Count(), 1);
  EXPECT_EQ(links->Item(1)->TxnType(), qoObjectTypeReceivePayment);
  EXPECT_FALSE(links->Item(1)->IsQuantityLink());
  EXPECT_EQ(links->Item(1)->Amount(), Currency(-10));
  EXPECT_EQ(links->Item(1)->TxnDate(), DateSerial(2024, 5, 20));
  xmlBldr b;
  b.IOClear();
  b.InsertQueryRs(*inv, 1);
  const std::string saved = b.GetXML().ToString();
  // The saved form carries no LinkType.
  const std::string savedLink =
      "<LinkedTxn><TxnID>P-9</TxnID><TxnType>ReceivePayment</TxnType><TxnDate>2024-05-20</TxnDate>"
      "<RefNumber>552</RefNumber><Amount>-10.00</Amount></LinkedTxn>";
  EXPECT_NE(saved.find(savedLink + "<InvoiceLineRet>"), std::string::npos) << saved;
  // Reading again starts the links afresh.
  qb.Answer(ScriptedProcessor::Response("InvoiceQueryRs", InvoiceSession::InvoiceRet("1A-1")));
  qb.invoices()->GetMe(*inv);
  EXPECT_EQ(inv->LinkedTxns()->Count(), 0);
}

TEST(InvoiceQueries, DeleteSendsTheTypeAndDropsTheMember) {
  InvoiceSession qb;
  ReadOne(qb);
  EXPECT_EQ(qb.invoices()->Delete("1A-1"), 0);
  EXPECT_EQ(Body(qb.processor().LastRequest(), "TxnDelRq"), "<TxnDelType>Invoice</TxnDelType><TxnID>1A-1</TxnID>");
  EXPECT_EQ(qb.invoices()->Count(), 0);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(InvoiceQueries, RefusedVoidRaisesAndKeepsTheMember) {
  InvoiceSession qb;
  ReadOne(qb);
  qb.Answer(ScriptedProcessor::Response("TxnVoidRs", "", 3170, "It cannot be voided."));
  EXPECT_EQ(NumberRaised([&] { qb.invoices()->Void("1A-1"); }), err::kBuilderStatus);
  EXPECT_EQ(qb.invoices()->Count(), 1);
}

// ---- The saved form -------------------------------------------------------------------------

TEST(InvoiceSavedForm, SaveAsqBillWritesTheCustomerTheCompanyAndTheInvoiceWithItsLines) {
  InvoiceSession qb;
  auto inv = ReadOne(qb, InvoiceSession::LineRet("L-1", "Labor", "30.00"));
  inv->SetUserData(Variant(std::string("mine")));
  testing::TempDir dir;
  const std::string path = dir.File("bill.xml");
  EXPECT_EQ(inv->SaveAsqBill(path), 0);
  std::ifstream in(path);
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const size_t customer = text.find("<CustomerRet>"), vendor = text.find("<VendorRet>"),
               invoice = text.find("<InvoiceRet><TxnID>1A-1</TxnID>");
  ASSERT_NE(customer, std::string::npos) << text;
  ASSERT_NE(vendor, std::string::npos) << text;
  ASSERT_NE(invoice, std::string::npos) << text;
  EXPECT_LT(customer, vendor);
  EXPECT_LT(vendor, invoice);
  EXPECT_NE(text.find("<TxnNumber>7</TxnNumber><CustomerRef>"), std::string::npos) << text;
  EXPECT_NE(text.find("<InvoiceLineRet><TxnLineID>L-1</TxnLineID>"), std::string::npos) << text;
  EXPECT_NE(text.find("</InvoiceLineRet><UserData>mine</UserData></InvoiceRet>"), std::string::npos) << text;
}

// ---- Automatic numbering --------------------------------------------------------------------

TEST(InvoiceNumbering, CommitAddsInTheOlderVersionThenModifiesInTheSessionsVersion) {
  InvoiceSession qb("3.0");
  auto inv = ValidNew(qb);
  qb.invoices()->SetAutoGenerateInvoiceNumbers(true);
  EXPECT_TRUE(qb.invoices()->AutoGenerateInvoiceNumbers());
  EXPECT_EQ(qb.processor().CountCalls("BeginSession"), 1);
  const std::string ret = InvoiceSession::InvoiceRet("9Z-1", InvoiceSession::LineRet("L-7", "Labor", "0.00"), "4711");
  qb.processor().RespondTo("InvoiceAddRq", ScriptedProcessor::Response("InvoiceAddRs", ret));
  qb.processor().RespondTo("InvoiceModRq", ScriptedProcessor::Response("InvoiceModRs", ret));
  EXPECT_EQ(qb.invoices()->Commit(inv), 0);
  std::vector<std::string> sent;
  for (const auto& r : qb.processor().Requests())
    if (r.find("<Invoice") != std::string::npos) sent.push_back(r);
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_NE(sent[0].find("QBD 2.1//EN"), std::string::npos) << sent[0];
  EXPECT_NE(sent[0].find("<InvoiceAddRq"), std::string::npos);
  EXPECT_NE(sent[1].find("QBD 3.0//EN"), std::string::npos) << sent[1];
  EXPECT_NE(sent[1].find("<InvoiceMod><TxnID>9Z-1</TxnID>"), std::string::npos) << sent[1];
  EXPECT_EQ(inv->RefNumber(), "4711");
  EXPECT_EQ(State().QBXMLVersionText, "3.0");
}

TEST(InvoiceNumbering, StaysOffAtVersion21) {
  InvoiceSession qb("2.1");
  qb.invoices()->SetAutoGenerateInvoiceNumbers(true);
  EXPECT_FALSE(qb.invoices()->AutoGenerateInvoiceNumbers());
  EXPECT_EQ(qb.processor().CountCalls("BeginSession"), 0);
}

TEST(InvoiceNumbering, AFailedOlderAddStillRestoresTheSession) {
  InvoiceSession qb("3.0");
  auto inv = ValidNew(qb);
  qb.invoices()->SetAutoGenerateInvoiceNumbers(true);
  qb.processor().FailOn("ProcessRequest", Error(0x80040408, "QBXMLRP", "lost"));
  EXPECT_NE(NumberRaised([&] { qb.invoices()->Commit(inv); }), 0u);
  EXPECT_EQ(State().QBXMLVersionText, "3.0");
  EXPECT_EQ(State().RequestProcessor.get(), &qb.processor());
}

}  // namespace
}  // namespace tessaron
