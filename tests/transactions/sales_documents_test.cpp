// Sales receipts, credit memos, estimates and sales orders against a scripted processor:
// the add of each against the schema with what each leaves out, the modify gate of each,
// the head tests of Validate, the owner-bound line fields, and the saved forms.
#include <gtest/gtest.h>

#include <functional>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/transactions/credit_memos.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/estimates.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/sales_orders.h"
#include "tessaron/transactions/sales_receipts.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/support/raised.h"
#include "tests/transactions/invoice_session.h"

namespace tessaron {
namespace {

using testing::InvoiceSession;
using testing::NumberRaised;
using testing::ScriptedProcessor;

std::shared_ptr<Company> CompanyOf() { return State().CurrentCompany; }

// Every header field a user can set on any sales document, set where the class has it.
void FillEverything(SalesTxn& doc) {
  doc.SetClass("East");
  doc.SetTemplate("Plain");
  doc.SetRefNumber("77");
  doc.SetFOB("Dock");
  doc.SetMemo("memo");
  doc.SetSalesRep("RJ");
  doc.SetCustomerMessage("Thanks");
  doc.SetDueDate(DateSerial(2024, 6, 1));
  doc.ItemLines()->Add("Labor", Currency(2));
}

// ---- The add of each class ------------------------------------------------------------------

struct AddCase {
  const char* name;
  std::function<std::shared_ptr<TxnObject>(Company&)> make;
  const char* request;
  std::vector<const char*> present;
  std::vector<const char*> absent;
};

class SalesDocumentAdd : public ::testing::TestWithParam<AddCase> {};

TEST_P(SalesDocumentAdd, CarriesItsElementsInSchemaOrderAndLeavesOutWhatTheClassLacks) {
  InvoiceSession qb("12.0");
  auto doc = GetParam().make(*CompanyOf());
  qb.processor().ClearRecords();
  qb.processor().QueueResponse(ScriptedProcessor::Response(std::string(GetParam().request).replace(
                                   std::string(GetParam().request).size() - 2, 2, "s"),
                               "", 3140, "refused"));
  ASSERT_EQ(qb.processor().Requests().size(), 0u);
  auto company = CompanyOf();
  // Commit through the class's own master collection.
  if (auto sr = std::dynamic_pointer_cast<SalesReceipt>(doc)) company->SalesReceipts()->Commit(sr);
  if (auto cm = std::dynamic_pointer_cast<CreditMemo>(doc)) company->CreditMemos()->Commit(cm);
  if (auto est = std::dynamic_pointer_cast<Estimate>(doc)) company->Estimates()->Commit(est);
  if (auto so = std::dynamic_pointer_cast<SalesOrder>(doc)) company->SalesOrders()->Commit(so);
  ASSERT_EQ(qb.processor().Requests().size(), 1u);
  const std::string& sent = qb.processor().LastRequest();
  EXPECT_NE(sent.find(std::string("<") + GetParam().request), std::string::npos) << sent;
  for (const char* tag : GetParam().present) EXPECT_NE(sent.find(std::string("<") + tag + ">"), std::string::npos) << tag;
  for (const char* tag : GetParam().absent) EXPECT_EQ(sent.find(std::string("<") + tag + ">"), std::string::npos) << tag;
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

INSTANTIATE_TEST_SUITE_P(
    Classes, SalesDocumentAdd,
    ::testing::Values(
        AddCase{"SalesReceipt",
                [](Company& c) -> std::shared_ptr<TxnObject> {
                  auto sr = c.SalesReceipts()->Add("Acme", "", 0, "", "", "", "", "1044", "Cash", "Checking");
                  FillEverything(*sr);
                  sr->SetShipDate(DateSerial(2024, 5, 2));
                  sr->SetShipMethod("UPS");
                  sr->SetIsPending(true);
                  return sr;
                },
                "SalesReceiptAddRq",
                {"CheckNumber", "PaymentMethodRef", "DepositToAccountRef", "ShipMethodRef", "SalesReceiptLineAdd",
                 "CustomerSalesTaxCodeRef", "TemplateRef"},
                {"ARAccountRef", "TermsRef", "PONumber"}},
        AddCase{"CreditMemo",
                [](Company& c) -> std::shared_ptr<TxnObject> {
                  auto cm = c.CreditMemos()->Add("Acme", "", 0, "", "", "", "", "", "PO-9");
                  FillEverything(*cm);
                  cm->SetShipMethod("UPS");
                  return cm;
                },
                "CreditMemoAddRq",
                {"TermsRef", "PONumber", "ShipMethodRef", "CreditMemoLineAdd", "CustomerSalesTaxCodeRef"},
                {"CheckNumber", "IsActive"}},
        AddCase{"Estimate",
                [](Company& c) -> std::shared_ptr<TxnObject> {
                  auto est = c.Estimates()->Add("Acme", "", 0, "", "", "", "", "PO-9");
                  FillEverything(*est);
                  est->SetIsToBePrinted(true);
                  return est;
                },
                "EstimateAddRq",
                {"IsActive", "TermsRef", "PONumber", "EstimateLineAdd", "CustomerSalesTaxCodeRef"},
                // Held but not sent: printing; and an estimate has no shipping.
                {"IsToBePrinted", "ShipAddress", "ShipDate", "ShipMethodRef", "ARAccountRef", "IsPending"}},
        AddCase{"SalesOrder",
                [](Company& c) -> std::shared_ptr<TxnObject> {
                  auto so = c.SalesOrders()->Add("Acme", "", 0, "", "", "", "", "PO-9");
                  FillEverything(*so);
                  so->SetShipMethod("UPS");
                  so->SetIsManuallyClosed(true);
                  return so;
                },
                "SalesOrderAddRq",
                {"IsManuallyClosed", "TermsRef", "ShipMethodRef", "SalesOrderLineAdd", "IsToBePrinted"},
                {"ARAccountRef", "IsPending"}}),
    [](const ::testing::TestParamInfo<AddCase>& info) { return std::string(info.param.name); });

// ---- The modify gate ------------------------------------------------------------------------

// A stored document of the class, read from an answer of the class's query.
template <class Coll>
auto ReadStored(InvoiceSession& qb, Coll& coll, const std::string& kind) {
  const std::string ret = "<" + kind + "Ret><TxnID>5-1</TxnID><TimeCreated>2024-05-01T10:00:00</TimeCreated>"
                          "<TimeModified>2024-05-01T10:00:00</TimeModified><EditSequence>17</EditSequence>"
                          "<TxnNumber>3</TxnNumber><CustomerRef><FullName>Acme</FullName></CustomerRef>"
                          "<TxnDate>2024-05-01</TxnDate><Subtotal>20.00</Subtotal><SalesTaxPercentage>7.5"
                          "</SalesTaxPercentage><TotalAmount>21.50</TotalAmount><" + kind + "LineRet><TxnLineID>L-1"
                          "</TxnLineID><ItemRef><FullName>Labor</FullName></ItemRef><Amount>20.00</Amount></" + kind +
                          "LineRet></" + kind + "Ret>";
  qb.processor().QueueResponse(ScriptedProcessor::Response(kind + "QueryRs", ret));
  coll.GetAll();
  qb.processor().ClearRecords();
  return coll.Item(Variant(1));
}

struct GateCase {
  const char* kind;
  const char* version;
  bool allowed;
};

class SalesDocumentGate : public ::testing::TestWithParam<GateCase> {};

TEST_P(SalesDocumentGate, StoredDocumentChangesOnlyWhereItsClassAllows) {
  InvoiceSession qb(GetParam().version);
  const std::string kind = GetParam().kind;
  std::shared_ptr<SalesTxn> doc;
  if (kind == "SalesReceipt") doc = ReadStored(qb, *CompanyOf()->SalesReceipts(), kind);
  if (kind == "CreditMemo") doc = ReadStored(qb, *CompanyOf()->CreditMemos(), kind);
  if (kind == "Estimate") doc = ReadStored(qb, *CompanyOf()->Estimates(), kind);
  if (kind == "SalesOrder") doc = ReadStored(qb, *CompanyOf()->SalesOrders(), kind);
  ASSERT_NE(doc, nullptr);
  if (GetParam().allowed) {
    doc->SetMemo("changed");
    EXPECT_EQ(doc->ObjectState(), qoObjectStateDirty);
  } else {
    EXPECT_EQ(NumberRaised([&] { doc->SetMemo("changed"); }), err::kFieldCannotBeModified);
    EXPECT_EQ(doc->ObjectState(), qoObjectStateClean);
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, SalesDocumentGate,
                         ::testing::Values(GateCase{"CreditMemo", "2.0", false}, GateCase{"CreditMemo", "2.1", true},
                                           GateCase{"Estimate", "2.1", false}, GateCase{"Estimate", "3.0", true},
                                           GateCase{"SalesOrder", "2.1", false}, GateCase{"SalesOrder", "3.0", true},
                                           GateCase{"SalesReceipt", "12.0", false}),
                         [](const ::testing::TestParamInfo<GateCase>& info) {
                           std::string v = info.param.version;
                           v.erase(v.find('.'), 1);
                           return std::string(info.param.kind) + "At" + v;
                         });

TEST(SalesReceiptModify, CommitOfADirtyReceiptRaisesModRqNotSupported) {
  InvoiceSession qb("12.0");
  auto receipts = CompanyOf()->SalesReceipts();
  auto sr = ReadStored(qb, *receipts, "SalesReceipt");
  detail::TxnAccess::SetObjectState(*sr, qoObjectStateDirty);
  try {
    receipts->Commit(sr);
    ADD_FAILURE() << "no error raised";
  } catch (const Error& e) {
    EXPECT_EQ(e.Description(), "ModRq not supported");
    EXPECT_EQ(e.Source(), "Tessaron: SalesReceipt");
  }
  EXPECT_TRUE(qb.processor().Requests().empty());
}

// ---- Validate ------------------------------------------------------------------------------

struct HeadCase {
  const char* kind;
  uint32_t number;
};

class SalesDocumentHeadTest : public ::testing::TestWithParam<HeadCase> {};

TEST_P(SalesDocumentHeadTest, MissingCustomerIsCollectedWithTheClassesNumber) {
  InvoiceSession qb;
  const std::string kind = GetParam().kind;
  std::shared_ptr<SalesTxn> doc;
  if (kind == "SalesReceipt") doc = CompanyOf()->SalesReceipts()->Add();
  if (kind == "CreditMemo") doc = CompanyOf()->CreditMemos()->Add();
  if (kind == "Estimate") doc = CompanyOf()->Estimates()->Add();
  if (kind == "SalesOrder") doc = CompanyOf()->SalesOrders()->Add();
  doc->ItemLines()->Add("Labor");
  EXPECT_FALSE(doc->Validate());
  ASSERT_EQ(doc->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(doc->Errors()->Item(Variant(1))->Number()), GetParam().number);
  EXPECT_EQ(doc->Errors()->Item(Variant(1))->Field(), "Customer");
  doc->SetCustomer("Acme");
  EXPECT_TRUE(doc->Validate());
}

INSTANTIATE_TEST_SUITE_P(Classes, SalesDocumentHeadTest,
                         ::testing::Values(HeadCase{"SalesReceipt", err::kCustomerRequired},
                                           HeadCase{"CreditMemo", err::kInvalidCustomer},
                                           HeadCase{"Estimate", err::kInvalidCustomer},
                                           HeadCase{"SalesOrder", err::kInvalidCustomer}),
                         [](const ::testing::TestParamInfo<HeadCase>& info) { return std::string(info.param.kind); });

TEST(SalesDocumentChecks, OnlyEmptyLinesFailWithNoLineLeft) {
  InvoiceSession qb;
  auto est = CompanyOf()->Estimates()->Add("Acme");
  est->ItemLines()->Add();
  est->ItemLines()->Add();
  EXPECT_FALSE(est->Validate());
  EXPECT_EQ(est->ItemLines()->Count(), 0);
  EXPECT_EQ(static_cast<uint32_t>(est->Errors()->Item(Variant(1))->Number()), err::kNeedLine);
}

// ---- Lines bound to their owner ------------------------------------------------------------

TEST(EstimateLines, MarkupRaisesTheAmountOverQuantityTimesRate) {
  InvoiceSession qb;
  auto est = CompanyOf()->Estimates()->Add("Acme");
  auto line = est->ItemLines()->Add("Labor", Currency(2));
  line->SetCost(Currency(10));
  line->SetMarkupIsPercent(true);
  line->SetMarkup(Currency(50));
  EXPECT_EQ(line->Amount(), Currency(30));
  EXPECT_EQ(est->ItemLines()->Total(), Currency(30));
  EXPECT_EQ(est->Subtotal(), Currency(30));
}

struct OwnerCase {
  const char* kind;
  bool salesOrderFields;
  bool markup;
};

class SalesLineOwner : public ::testing::TestWithParam<OwnerCase> {};

TEST_P(SalesLineOwner, OrderAndMarkupFieldsOnlyOnTheirOwners) {
  InvoiceSession qb;
  const std::string kind = GetParam().kind;
  std::shared_ptr<TxnObject> doc;
  if (kind == "Invoice") doc = CompanyOf()->Invoices()->Add("Acme");
  if (kind == "SalesReceipt") doc = CompanyOf()->SalesReceipts()->Add("Acme");
  if (kind == "Estimate") doc = CompanyOf()->Estimates()->Add("Acme");
  if (kind == "SalesOrder") doc = CompanyOf()->SalesOrders()->Add("Acme");
  auto line = doc->ItemLines()->Add("Labor", Currency(2));
  auto invoiced = [&] { line->SetInvoiced(Currency(1)); };
  auto closed = [&] { line->SetIsManuallyClosed(Currency(5)); };
  if (GetParam().salesOrderFields) {
    invoiced();
    closed();
    EXPECT_EQ(line->Invoiced(), Currency(1));
    EXPECT_EQ(line->IsManuallyClosed(), Currency(1));
  } else {
    EXPECT_EQ(NumberRaised(invoiced), err::kPropertyNotForTxnType);
    EXPECT_EQ(NumberRaised(closed), err::kPropertyNotForTxnType);
  }
  auto markup = [&] { line->SetMarkup(Currency(10)); };
  if (GetParam().markup) markup();
  else EXPECT_NE(NumberRaised(markup), 0u);
}

INSTANTIATE_TEST_SUITE_P(Owners, SalesLineOwner,
                         ::testing::Values(OwnerCase{"Invoice", false, false}, OwnerCase{"SalesReceipt", false, false},
                                           OwnerCase{"Estimate", false, true}, OwnerCase{"SalesOrder", true, false}),
                         [](const ::testing::TestParamInfo<OwnerCase>& info) { return std::string(info.param.kind); });

// ---- Saved forms ---------------------------------------------------------------------------

TEST(SalesReceiptSavedForm, SpellsTheTaxPercentageAsFilesExpectAndReadsTheAnswersSpelling) {
  InvoiceSession qb("12.0");
  auto sr = ReadStored(qb, *CompanyOf()->SalesReceipts(), "SalesReceipt");
  EXPECT_EQ(sr->SalesTaxPercentage(), Currency::Parse("7.5"));
  EXPECT_EQ(sr->Total(), Currency::Parse("21.50"));
  xmlBldr b;
  b.IOClear();
  b.InsertQueryRs(*sr, 1);
  const std::string saved = b.GetXML().ToString();
  EXPECT_NE(saved.find("<SalesTaPercentage>"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("<SalesTaxPercentage>"), std::string::npos);
  // The figures follow the tax item in the saved form.
  EXPECT_LT(saved.find("<Subtotal>"), saved.find("<TotalAmount>"));
}

TEST(SalesOrderReading, ClosedAndInvoicedFlagsOfHeaderAndLinesAreRead) {
  InvoiceSession qb("12.0");
  auto orders = CompanyOf()->SalesOrders();
  qb.processor().QueueResponse(ScriptedProcessor::Response(
      "SalesOrderQueryRs",
      "<SalesOrderRet><TxnID>6-1</TxnID><TimeCreated>2024-05-01T10:00:00</TimeCreated><TimeModified>"
      "2024-05-01T10:00:00</TimeModified><EditSequence>1</EditSequence><TxnNumber>4</TxnNumber><CustomerRef>"
      "<FullName>Acme</FullName></CustomerRef><TxnDate>2024-05-01</TxnDate><TotalAmount>40.00</TotalAmount>"
      "<IsManuallyClosed>false</IsManuallyClosed><IsFullyInvoiced>true</IsFullyInvoiced><SalesOrderLineRet>"
      "<TxnLineID>L-1</TxnLineID><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>4</Quantity><Amount>40.00"
      "</Amount><Invoiced>4</Invoiced><IsManuallyClosed>true</IsManuallyClosed></SalesOrderLineRet></SalesOrderRet>"));
  ASSERT_EQ(orders->GetAll(), 1);
  auto so = orders->Item(Variant(1));
  EXPECT_TRUE(so->IsFullyInvoiced());
  EXPECT_FALSE(so->IsManuallyClosed());
  EXPECT_EQ(so->TotalAmount(), Currency(40));
  auto line = so->ItemLines()->Item(Variant(1));
  EXPECT_EQ(line->Invoiced(), Currency(4));
  EXPECT_EQ(line->IsManuallyClosed(), Currency(1));
}

}  // namespace
}  // namespace tessaron
