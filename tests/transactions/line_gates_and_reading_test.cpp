// Which documents a property belongs to, which qbXML versions let a stored line change,
// what a line reads from a real answer, and what stays out of an application's reach.
#include <concepts>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/xml_dom.h"
#include "tests/support/text_match.h"
#include "tests/transactions/line_items_fixture.h"

namespace tessaron {
namespace {

using detail::TxnAccess;
using testing::LineItemsTest;
using testing::NumberRaised;
using testing::Raised;

// ---- What an application cannot call -------------------------------------------------------

template <class T>
concept CanSetOwnerType = requires(T& t) { t.SetOwnerType(qoObjectTypeInvoice); };
template <class T>
concept CanSetEventSink = requires(T& t) { t.SetEventSink(std::shared_ptr<qcEventSink>()); };
template <class T>
concept CanSetOwnerTaxCode = requires(T& t) { t.SetOwnerTaxCode(std::shared_ptr<qcListObjectRef>()); };
template <class T>
concept CanSetObjectState = requires(T& t) { t.SetObjectState(qoObjectStateNew); };
template <class T>
concept CanReadLine = requires(T& t, const XmlNode& n) { t.ReadLine(n, false); };
template <class T>
concept CanWriteLines = requires(T& t, xmlBldr& b) { t.WriteLines(b, false, false); };
template <class T>
concept CanClearLines = requires(T& t) { t.ClearLines(); };
template <class T>
concept CanSetAmountInternal = requires(T& t) { t.SetAmountInternal(Currency()); };
template <class T>
concept CanFromDom = requires(T& t, const XmlNode& n) { t.FromDom(n); };
template <class T>
concept CanWriteLine = requires(T& t, xmlBldr& b) { t.WriteLine(b, false, false); };
template <class T>
concept CanValidate = requires(T& t) { t.Validate(); };

static_assert(!CanSetOwnerType<txnItemLines> && !CanSetEventSink<txnItemLines> &&
              !CanSetOwnerTaxCode<txnItemLines> && !CanSetObjectState<txnItemLines> && !CanReadLine<txnItemLines> &&
              !CanWriteLines<txnItemLines> && !CanClearLines<txnItemLines>);
static_assert(!CanSetOwnerType<txnItemLine> && !CanSetEventSink<txnItemLine> && !CanSetOwnerTaxCode<txnItemLine> &&
              !CanSetObjectState<txnItemLine> && !CanSetAmountInternal<txnItemLine> && !CanFromDom<txnItemLine> &&
              !CanWriteLine<txnItemLine> && !CanValidate<txnItemLine>);

// ---- Properties of some documents only -----------------------------------------------------

struct GateCase {
  const char* name;
  qoEnumListObjectType owner;
  std::function<void(txnItemLine&)> set;
  uint32_t raised;  // 0: allowed
};
class LineOwnerGateTest : public LineItemsTest, public ::testing::WithParamInterface<GateCase> {};

TEST_P(LineOwnerGateTest, APropertyBelongsToItsDocuments) {
  auto line = Lines(GetParam().owner)->Add("Hinge");
  EXPECT_EQ(NumberRaised([&] { GetParam().set(*line); }), GetParam().raised);
}

INSTANTIATE_TEST_SUITE_P(
    Owners, LineOwnerGateTest,
    ::testing::Values(
        GateCase{"MarkupOnEstimate", qoObjectTypeEstimate, [](txnItemLine& l) { l.SetMarkup(Currency(3)); }, 0},
        GateCase{"MarkupOnInvoice", qoObjectTypeInvoice, [](txnItemLine& l) { l.SetMarkup(Currency(3)); },
                 err::kMarkupEstimatesOnly},
        GateCase{"ServiceDateOnPurchaseOrder", qoObjectTypePurchaseOrder,
                 [](txnItemLine& l) { l.SetServiceDate(DateSerial(2024, 1, 2)); }, 0},
        GateCase{"ServiceDateOnBill", qoObjectTypeBill, [](txnItemLine& l) { l.SetServiceDate(DateSerial(2024, 1, 2)); },
                 err::kPropertyNotForTxnType},
        GateCase{"CustomerOnBill", qoObjectTypeBill, [](txnItemLine& l) { l.SetCustomer("Acme"); }, 0},
        GateCase{"UnknownCustomerOnBill", qoObjectTypeBill, [](txnItemLine& l) { l.SetCustomer("Zed"); },
                 err::kCustomerMissing},
        GateCase{"CustomerOnInvoice", qoObjectTypeInvoice, [](txnItemLine& l) { l.SetCustomer("Acme"); },
                 err::kPropertyNotForTxnType},
        GateCase{"PercentOnPurchaseOrder", qoObjectTypePurchaseOrder, [](txnItemLine& l) { l.SetCostIsPercent(true); },
                 0},
        GateCase{"PercentOnSalesOrder", qoObjectTypeSalesOrder, [](txnItemLine& l) { l.SetCostIsPercent(true); },
                 err::kPropertyNotForTxnType},
        GateCase{"NoPercentOnSalesOrder", qoObjectTypeSalesOrder, [](txnItemLine& l) { l.SetCostIsPercent(false); },
                 0},
        GateCase{"InvoicedOnSalesOrder", qoObjectTypeSalesOrder, [](txnItemLine& l) { l.SetInvoiced(Currency(1)); }, 0},
        GateCase{"InvoicedOnInvoice", qoObjectTypeInvoice, [](txnItemLine& l) { l.SetInvoiced(Currency(1)); },
                 err::kPropertyNotForTxnType},
        GateCase{"TaxCodeOnBill", qoObjectTypeBill, [](txnItemLine& l) { l.SetSalesTaxCode("Tax"); },
                 err::kPropertyNotForTxnType},
        GateCase{"BillableOnCheck", qoObjectTypeCheck,
                 [](txnItemLine& l) { l.SetBillableStatus(qbBillableStatusBillable); }, err::kPropertyNotForTxnType}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(LineItemsTest, TheMarkupKindHasNoMessageOfItsOwn) {
  auto line = Lines(qoObjectTypeInvoice)->Add("Hinge");
  auto e = Raised([&] { line->SetMarkupIsPercent(false); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kMarkupEstimatesOnly);
  EXPECT_EQ(e->Description(), "-2147219481");
}

// ---- Versions --------------------------------------------------------------------------------

// A stored invoice line read from an answer, at `version`.
class StoredLineTest : public LineItemsTest, public ::testing::WithParamInterface<const char*> {
 protected:
  StoredLineTest() : LineItemsTest(GetParam()) {}
  std::shared_ptr<txnItemLine> Stored(qoEnumListObjectType owner) {
    auto lines = Lines(owner);
    XmlDocument doc = XmlDocument::Create();
    doc.loadXML("<ItemLineRet><TxnLineID>9-1</TxnLineID><ItemRef><FullName>Hinge</FullName></ItemRef>"
                "<Quantity>2</Quantity><Cost>2.00</Cost><Amount>4.00</Amount>"
                "<BillableStatus>NotBillable</BillableStatus></ItemLineRet>");
    return TxnAccess::ReadLine(*lines, doc.documentElement(), false);
  }
};

TEST_P(StoredLineTest, AStoredLineChangesOnlyAbove20AndItsCellsOnlyFrom21) {
  auto line = Stored(qoObjectTypeBill);
  const Currency version = Currency::Parse(GetParam());
  EXPECT_EQ(line->FieldCanBeUpdated(qoFldTxnDescription), version >= Currency::Parse("2.1"));
  const uint32_t raised = NumberRaised([&] { line->SetDescription("Changed"); });
  if (version > Currency(2)) {
    EXPECT_EQ(raised, 0u);
    EXPECT_EQ(line->ObjectState(), qoObjectStateDirty);
  } else {
    EXPECT_EQ(raised, err::kFieldCannotBeModified);
    EXPECT_EQ(line->ObjectState(), qoObjectStateClean);
  }
}

TEST_P(StoredLineTest, BillableStatusNeedsQbxml20) {
  auto line = Stored(qoObjectTypeBill);
  if (Currency::Parse(GetParam()) < Currency(2)) {
    EXPECT_EQ(NumberRaised([&] { (void)line->BillableStatus(); }), err::kVersionNotSupported);
  } else {
    EXPECT_EQ(line->BillableStatus(), qbBillableStatusNotBillable);
  }
}

TEST_P(StoredLineTest, AnOwnerReadingAgainDropsTheStoredLinesAtAnyVersion) {
  auto lines = Lines(qoObjectTypeBill);
  XmlDocument doc = XmlDocument::Create();
  doc.loadXML("<ItemLineRet><TxnLineID>9-1</TxnLineID><Desc>Note</Desc></ItemLineRet>");
  TxnAccess::ReadLine(*lines, doc.documentElement(), false);
  amountChanges = 0;
  TxnAccess::ClearLines(*lines);
  EXPECT_EQ(lines->Count(), 0);
  EXPECT_EQ(amountChanges, 0);
  TxnAccess::ReadLine(*lines, doc.documentElement(), false);
  const uint32_t raised = NumberRaised([&] { lines->Clear(); });
  EXPECT_EQ(raised, Currency::Parse(GetParam()) > Currency(2) ? 0u : err::kFieldCannotBeModified);
}

INSTANTIATE_TEST_SUITE_P(Versions, StoredLineTest, ::testing::Values("1.1", "2.0", "2.1", "3.0"),
                         [](const auto& info) {
                           std::string name = info.param;
                           return "V" + name.replace(name.find('.'), 1, "_");
                         });

// ---- Reading -----------------------------------------------------------------------------------

TEST_F(LineItemsTest, ALineFromARealAnswerKeepsWhatItKnowsAndSkipsTheRest) {
  std::vector<std::string> unknown;
  SetUnknownFieldHook([&](std::string_view message, std::string_view) { unknown.emplace_back(message); });
  auto lines = Lines(qoObjectTypeInvoice, "Tax");
  XmlDocument doc = XmlDocument::Create();
  doc.loadXML(
      "<InvoiceLineRet><TxnLineID>12-7</TxnLineID><ItemRef><ListID>V1</ListID><FullName>Labor</FullName></ItemRef>"
      "<Desc>Shop labor</Desc><Quantity>2.5</Quantity><UnitOfMeasure>hr</UnitOfMeasure>"
      "<RatePercent>7.5%</RatePercent><ClassRef><FullName>East</FullName></ClassRef><Amount>25.00</Amount>"
      "<ServiceDate>2024-03-01</ServiceDate><SalesTaxCodeRef><FullName>Non</FullName></SalesTaxCodeRef>"
      "<Other1>x</Other1><DataExtRet><DataExtName>Color</DataExtName></DataExtRet></InvoiceLineRet>");
  auto line = TxnAccess::ReadLine(*lines, doc.documentElement(), false);
  SetUnknownFieldHook(nullptr);
  EXPECT_EQ(line->TxnLineId(), "12-7");
  EXPECT_EQ(line->Item(), "Labor");
  EXPECT_EQ(line->Quantity(), Currency::Parse("2.5"));
  EXPECT_EQ(line->Cost(), Currency::Parse("7.5"));
  EXPECT_TRUE(line->CostIsPercent());
  EXPECT_EQ(line->Class(), "East");
  EXPECT_EQ(line->Amount(), Currency(25));
  EXPECT_EQ(line->ServiceDate(), DateSerial(2024, 3, 1));
  EXPECT_EQ(line->SalesTaxCode(), "Non");
  EXPECT_EQ(header->FullName(), "Tax");  // the answer's code is the line's own
  EXPECT_EQ(line->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(lines->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(unknown, (std::vector<std::string>{"Unknown Field: UnitOfMeasure", "Unknown Field: Other1"}));
  line->SetDescription("Changed");
  EXPECT_EQ(lines->ObjectState(), qoObjectStateDirty);
  // A stored line keeps its id in a modify.
  EXPECT_TRUE(testing::Contains(Written(*lines, false, true), "<InvoiceLineMod><TxnLineID>12-7</TxnLineID>"));
}

TEST_F(LineItemsTest, AGroupFromAnAnswerHoldsItsMembersWithoutTheSink) {
  auto lines = Lines(qoObjectTypeInvoice);
  XmlDocument doc = XmlDocument::Create();
  doc.loadXML("<InvoiceLineGroupRet><TxnLineID>3-1</TxnLineID><ItemGroupRef><FullName>Kit</FullName></ItemGroupRef>"
              "<Desc>Door kit</Desc><Quantity>1</Quantity><IsPrintItemsInGroup>true</IsPrintItemsInGroup>"
              "<TotalAmount>18.50</TotalAmount>"
              "<InvoiceLineRet><TxnLineID>3-2</TxnLineID><ItemRef><FullName>Hinge</FullName></ItemRef>"
              "<Quantity>2</Quantity><Rate>4</Rate><Amount>8.00</Amount></InvoiceLineRet>"
              "<InvoiceLineRet><TxnLineID>3-3</TxnLineID><ItemRef><FullName>Labor</FullName></ItemRef>"
              "<Quantity>1</Quantity><Rate>10</Rate><Amount>10.00</Amount></InvoiceLineRet></InvoiceLineGroupRet>");
  auto head = TxnAccess::ReadLine(*lines, doc.documentElement(), true);
  EXPECT_EQ(head->Amount(), Currency::Parse("18.5"));
  EXPECT_TRUE(head->PrintItemsInGroup());
  ASSERT_EQ(head->GroupLines()->Count(), 2);
  auto member = head->GroupLines()->Item(Variant(2));
  EXPECT_TRUE(member->IsGroupMemberLine());
  EXPECT_EQ(member->TxnLineId(), "3-3");
  amountChanges = 0;
  member->SetQuantity(Currency(2));
  EXPECT_EQ(amountChanges, 0);
  EXPECT_EQ(head->GroupLines()->ObjectState(), qoObjectStateDirty);
}

// ---- Cells -------------------------------------------------------------------------------------

TEST_F(LineItemsTest, CellsShowAsAGridShowsThem) {
  auto lines = Lines(qoObjectTypeInvoice, "Tax");
  auto line = lines->Add("Labor", Currency::Parse("1234.5"), "", "", "", DateSerial(2024, 3, 1));
  EXPECT_EQ(line->FieldDisplayString(qoFldTxnQuantity), "1,234.5");
  EXPECT_EQ(line->FieldDisplayString(qoFldTxnCost), "10.00");
  EXPECT_EQ(line->FieldDisplayString(qoFldTxnAmount), "12,345.00");
  EXPECT_EQ(line->FieldDisplayString(qoFldTxnServiceDate), "03/01/2024");
  EXPECT_EQ(line->FieldDisplayString(qoFldTxnTax), "Tax");
  auto discount = lines->Add("TenOff");
  EXPECT_EQ(discount->FieldDisplayString(qoFldTxnCost), "10.00%");
  EXPECT_EQ(lines->Add("Subtotal")->FieldDisplayString(qoFldTxnTax), "");
}

TEST_F(LineItemsTest, CellUpdatesGoThroughTheSettersOrAreRefused) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("Labor", Currency(2));
  EXPECT_EQ(line->FieldUpdate(qoFldTxnCustomer, "Acme"), Variant(false));
  EXPECT_EQ(lines->Add("Subtotal")->FieldUpdate(qoFldTxnAmount, "5"), Variant(false));
  EXPECT_EQ(line->FieldUpdate(qoFldTxnCost, "12.5%"), Variant(true));
  EXPECT_TRUE(line->CostIsPercent());
  EXPECT_EQ(line->Cost(), Currency::Parse("12.5"));
  line->FieldUpdate(qoFldTxnQuantity, "");
  EXPECT_EQ(line->Quantity(), Currency(1));
  EXPECT_EQ(line->FieldDisplayString(qoFldTxnQuantity), "");
  EXPECT_EQ(NumberRaised([&] { line->FieldUpdate(qoFldTxnServiceDate, "someday"); }), err::kInvalidDateFormat);
  line->FieldUpdate(qoFldTxnServiceDate, "");
  EXPECT_EQ(line->ServiceDate(), 0);
  auto discount = lines->Add("TenOff");
  discount->FieldUpdate(qoFldTxnAmount, "-4");
  EXPECT_FALSE(discount->CostIsPercent());
  EXPECT_EQ(discount->Cost(), Currency(-4));  // the amount setter overrides the cell's rate
}

}  // namespace
}  // namespace tessaron
