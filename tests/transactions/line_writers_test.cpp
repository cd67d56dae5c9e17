// The lines as each kind of document writes them: the element names, the order, what an
// add leaves out and a modify adds, group heads, and the saved-answer form; the sales
// dialect inside a whole invoice request is checked against the qbXML schema.
#include "tessaron/platform/date.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/text_match.h"
#include "tests/transactions/line_items_fixture.h"

namespace tessaron {
namespace {

using detail::TxnAccess;
using testing::Contains;
using testing::IsValidQbxml;
using testing::LineItemsTest;

int CountOf(const std::string& text, const std::string& part) {
  int n = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
  return n;
}

struct DialectCase {
  const char* name;
  qoEnumListObjectType owner;
  bool isRet;
  bool isMod;
  const char* expected;
};
class LineDialectTest : public LineItemsTest, public ::testing::WithParamInterface<DialectCase> {};

TEST_P(LineDialectTest, APlainLineIsWrittenInItsOwnersDialect) {
  auto lines = Lines(GetParam().owner);
  lines->Add("Hinge", Currency(3));
  EXPECT_EQ(Written(*lines, GetParam().isRet, GetParam().isMod), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Owners, LineDialectTest,
    ::testing::Values(
        DialectCase{"InvoiceAdd", qoObjectTypeInvoice, false, false,
                    "<InvoiceLineAdd><ItemRef><FullName>Hinge</FullName></ItemRef><Desc>Brass hinge</Desc>"
                    "<Quantity>0000003.0000</Quantity><Rate>0000004.0000</Rate><Amount>12.00</Amount>"
                    "</InvoiceLineAdd>"},
        DialectCase{"InvoiceModMarksTheNewLine", qoObjectTypeInvoice, false, true,
                    "<InvoiceLineMod><TxnLineID>-1</TxnLineID><ItemRef><FullName>Hinge</FullName></ItemRef>"
                    "<Desc>Brass hinge</Desc><Quantity>0000003.0000</Quantity><Rate>0000004.0000</Rate>"
                    "<Amount>12.00</Amount></InvoiceLineMod>"},
        DialectCase{"SalesOrderClosesOrNot", qoObjectTypeSalesOrder, false, false,
                    "<SalesOrderLineAdd><ItemRef><FullName>Hinge</FullName></ItemRef><Desc>Brass hinge</Desc>"
                    "<Quantity>0000003.0000</Quantity><Rate>0000004.0000</Rate><Amount>12.00</Amount>"
                    "<IsManuallyClosed>0</IsManuallyClosed></SalesOrderLineAdd>"},
        DialectCase{"EstimateAddsTaxCodeAndMarkup", qoObjectTypeEstimate, false, false,
                    "<EstimateLineAdd><ItemRef><FullName>Hinge</FullName></ItemRef><Desc>Brass hinge</Desc>"
                    "<Quantity>0000003.0000</Quantity><Rate>0000004.0000</Rate><Amount>18.00</Amount>"
                    "<SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef>"
                    "<MarkupRatePercent>0000050.0000</MarkupRatePercent></EstimateLineAdd>"},
        DialectCase{"PurchaseOrderAdd", qoObjectTypePurchaseOrder, false, false,
                    "<PurchaseOrderLineAdd><ItemRef><FullName>Hinge</FullName></ItemRef><Desc>Hinge, bought</Desc>"
                    "<Quantity>0000003.0000</Quantity><Rate>0000002.0000</Rate><Amount>6.00</Amount>"
                    "</PurchaseOrderLineAdd>"},
        DialectCase{"PurchaseOrderRetCarriesWhatWasReceived", qoObjectTypePurchaseOrder, true, false,
                    "<PurchaseOrderLineRet><ItemRef><FullName>Hinge</FullName></ItemRef>"
                    "<Desc>Hinge, bought</Desc><Quantity>0000003.0000</Quantity><Rate>0000002.0000</Rate>"
                    "<Amount>6.00</Amount><ReceivedQuantity>0000000.0000</ReceivedQuantity>"
                    "</PurchaseOrderLineRet>"},
        DialectCase{"BillAdd", qoObjectTypeBill, false, false,
                    "<ItemLineAdd><ItemRef><FullName>Hinge</FullName></ItemRef><Desc>Hinge, bought</Desc>"
                    "<Quantity>0000003.0000</Quantity><Cost>0000002.0000</Cost><Amount>6.00</Amount>"
                    "</ItemLineAdd>"},
        DialectCase{"CheckMod", qoObjectTypeCheck, false, true,
                    "<ItemLineMod><TxnLineID>-1</TxnLineID><ItemRef><FullName>Hinge</FullName></ItemRef>"
                    "<Desc>Hinge, bought</Desc><Quantity>0000003.0000</Quantity><Cost>0000002.0000</Cost>"
                    "<Amount>6.00</Amount></ItemLineMod>"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(LineItemsTest, SalesLinesLeaveOutWhatTheirKindOfItemDoesNotCarry) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Labor", Currency(2));
  lines->Add("Subtotal");
  lines->Add("TenOff");
  lines->Add("State");
  const std::string text = Written(*lines, false, false);
  EXPECT_TRUE(Contains(text, "<InvoiceLineAdd><ItemRef><FullName>Subtotal</FullName></ItemRef>"
                             "<Desc>Lines so far</Desc></InvoiceLineAdd>"))
      << text;
  EXPECT_TRUE(Contains(text, "<Desc>Ten percent off</Desc><RatePercent>0000010.0000</RatePercent><Amount>"))
      << text;
  EXPECT_TRUE(Contains(text, "<Desc>State tax</Desc><Amount>")) << text;
}

TEST_F(LineItemsTest, AnAddOrModOfAGroupCarriesTheHeadOnlyAndTheSavedFormTheMembers) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Kit")->SetQuantity(Currency(2));
  EXPECT_EQ(Written(*lines, false, false),
            "<InvoiceLineGroupAdd><ItemGroupRef><FullName>Kit</FullName></ItemGroupRef>"
            "<Quantity>0000002.0000</Quantity></InvoiceLineGroupAdd>");
  EXPECT_TRUE(Contains(Written(*lines, false, true),
                       "<InvoiceLineGroupMod><TxnLineID>-1</TxnLineID><ItemGroupRef>"));
  const std::string saved = Written(*lines, true, false);
  EXPECT_TRUE(Contains(saved, "<InvoiceLineGroupRet><TxnLineID>-1</TxnLineID><ItemGroupRef><FullName>Kit</FullName>")) << saved;
  EXPECT_EQ(CountOf(saved, "<InvoiceLineRet>"), 3) << saved;
}

TEST_F(LineItemsTest, PayablesWriteALinkInsteadOfTheItemOnceALinkIdIsGiven) {
  auto lines = Lines(qoObjectTypeBill);
  auto line = lines->Add("Hinge");
  line->SetLinkedTxnId("77-1");
  // One id is neither an item nor a link: the line goes without either.
  EXPECT_FALSE(Contains(Written(*lines, false, false), "<ItemRef>"));
  EXPECT_FALSE(Contains(Written(*lines, false, false), "<LinkToTxn>"));
  line->SetLinkedTxnLineId("77-2");
  line->SetBillableStatus(qbBillableStatusBillable);
  const std::string text = Written(*lines, false, false);
  EXPECT_FALSE(Contains(text, "<ItemRef>"));
  EXPECT_TRUE(Contains(text, "<BillableStatus>Billable</BillableStatus><LinkToTxn><TxnID>77-1</TxnID>"
                             "<TxnLineID>77-2</TxnLineID></LinkToTxn></ItemLineAdd>"))
      << text;
}

// The written lines inside a whole request, as QuickBooks would receive them.
std::string InvoiceRequest(const std::string& lines, bool modify) {
  const std::string head = modify ? "<InvoiceModRq requestID=\"1\"><InvoiceMod><TxnID>5-1</TxnID>"
                                    "<EditSequence>100</EditSequence>"
                                  : "<InvoiceAddRq requestID=\"1\"><InvoiceAdd><CustomerRef><FullName>Acme"
                                    "</FullName></CustomerRef>";
  const std::string tail = modify ? "</InvoiceMod></InvoiceModRq>" : "</InvoiceAdd></InvoiceAddRq>";
  return "<?xml version=\"1.0\" ?><?qbxml version=\"12.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">" +
         head + lines + tail + "</QBXMLMsgsRq></QBXML>";
}

TEST_F(LineItemsTest, InvoiceLinesOfEveryKindMakeAValidAddAndMod) {
  auto lines = Lines(qoObjectTypeInvoice, "Tax");
  lines->Add("Labor", Currency(2), "", "", "", DateSerial(2024, 3, 1));
  lines->Add("Subtotal");
  lines->Add("TenOff");
  lines->Add("Kit");
  lines->Add("Deposit");
  lines->Add("State");
  lines->Add("", Currency(), "Thank you");
  lines->Total();
  EXPECT_TRUE(IsValidQbxml(InvoiceRequest(Written(*lines, false, false), false)));
  EXPECT_TRUE(IsValidQbxml(InvoiceRequest(Written(*lines, false, true), true)));
}

struct RequestCase {
  const char* name;
  qoEnumListObjectType owner;
  const char* request;  // the request's name without "AddRq"
  const char* head;     // what the request needs before its lines
};
class LineRequestTest : public LineItemsTest, public ::testing::WithParamInterface<RequestCase> {};

TEST_P(LineRequestTest, TheLinesOfEachDocumentMakeAValidAdd) {
  auto lines = Lines(GetParam().owner);
  lines->Add("Hinge", Currency(3), "", "", "", 0);
  lines->Add("Labor");
  lines->Add("Kit");
  lines->Add("", Currency(), "Note");
  const std::string rq = GetParam().request;
  const std::string text = "<?xml version=\"1.0\" ?><?qbxml version=\"12.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
                           "<" + rq + "AddRq requestID=\"1\"><" + rq + "Add>" + GetParam().head +
                           Written(*lines, false, false) + "</" + rq + "Add></" + rq + "AddRq></QBXMLMsgsRq></QBXML>";
  EXPECT_TRUE(IsValidQbxml(text)) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Owners, LineRequestTest,
    ::testing::Values(
        RequestCase{"Estimate", qoObjectTypeEstimate, "Estimate", "<CustomerRef><FullName>Acme</FullName></CustomerRef>"},
        RequestCase{"SalesOrder", qoObjectTypeSalesOrder, "SalesOrder",
                    "<CustomerRef><FullName>Acme</FullName></CustomerRef>"},
        RequestCase{"SalesReceipt", qoObjectTypeSalesReceipt, "SalesReceipt", ""},
        RequestCase{"PurchaseOrder", qoObjectTypePurchaseOrder, "PurchaseOrder", ""},
        RequestCase{"Bill", qoObjectTypeBill, "Bill", "<VendorRef><FullName>Supply Co</FullName></VendorRef>"},
        RequestCase{"Check", qoObjectTypeCheck, "Check", "<AccountRef><FullName>Bank</FullName></AccountRef>"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaron
