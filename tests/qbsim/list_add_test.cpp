// Adds of every list kind, in the element orders the library writes, and their answers.
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

struct AddCase {
  const char* kind;
  const char* body;  // children of <kind>Add, in the library's order
  std::vector<std::pair<std::string, std::string>> expected;  // path below the …Ret -> text
};

class ListAddTest : public QbsimTest, public ::testing::WithParamInterface<AddCase> {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
  }
};

TEST_P(ListAddTest, AddAnswersTheSavedRecord) {
  const AddCase& c = GetParam();
  std::string kind = c.kind;
  Response r = Send("<" + kind + "AddRq requestID=\"3\"><" + kind + "Add>" + c.body + "</" + kind + "Add></" + kind +
                    "AddRq>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  pugi::xml_node ret = r.Rs().first_child();
  std::string retTag = ret.name();
  EXPECT_EQ(retTag.substr(retTag.size() - 3), "Ret");
  EXPECT_STREQ(ret.first_child().name(), "ListID");
  EXPECT_FALSE(std::string(ret.child_value("EditSequence")).empty());
  EXPECT_FALSE(std::string(ret.child_value("TimeCreated")).empty());
  for (const auto& [path, value] : c.expected) EXPECT_EQ(r.Value(retTag + "/" + path), value) << path;
  // The record is on file as answered.
  Response again = Send("<" + kind + "QueryRq requestID=\"1\"><ListID>" + ret.child_value("ListID") + "</ListID></" +
                        kind + "QueryRq>");
  EXPECT_EQ(again.Status(), 0);
  EXPECT_EQ(again.Value(retTag + "/EditSequence"), ret.child_value("EditSequence"));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ListAddTest,
    ::testing::Values(
        AddCase{"Class", "<Name>Domestic</Name><IsActive>1</IsActive><ParentRef><FullName>Trade</FullName></ParentRef>",
                {{"FullName", "Trade:Domestic"}, {"Sublevel", "1"}, {"ParentRef/FullName", "Trade"}, {"IsActive", "true"}}},
        AddCase{"CustomerType", "<Name>Wholesale</Name><IsActive>1</IsActive>", {{"FullName", "Wholesale"}}},
        AddCase{"JobType", "<Name>Survey</Name><IsActive>0</IsActive>", {{"IsActive", "false"}}},
        AddCase{"VendorType", "<Name>Freight</Name><IsActive>1</IsActive>", {{"Sublevel", "0"}}},
        AddCase{"ShipMethod", "<Name>Barge</Name><IsActive>1</IsActive>", {{"Name", "Barge"}}},
        AddCase{"PaymentMethod", "<Name>Voucher</Name><IsActive>1</IsActive>", {{"Name", "Voucher"}}},
        AddCase{"CustomerMsg", "<Name>See you soon!</Name><IsActive>1</IsActive>", {{"Name", "See you soon!"}}},
        AddCase{"SalesRep",
                "<Initial>CD</Initial><IsActive>1</IsActive><SalesRepEntityRef><FullName>Petty Cash Holder</FullName>"
                "</SalesRepEntityRef>",
                {{"Initial", "CD"}, {"SalesRepEntityRef/FullName", "Petty Cash Holder"}}},
        AddCase{"ToDo", "<Notes>Sharpen the chisels</Notes><IsActive>1</IsActive><IsDone>0</IsDone>"
                        "<ReminderDate>2024-07-01</ReminderDate>",
                {{"Notes", "Sharpen the chisels"}, {"IsDone", "false"}, {"ReminderDate", "2024-07-01"}}},
        AddCase{"SalesTaxCode", "<Name>Ex</Name><IsActive>1</IsActive><IsTaxable>0</IsTaxable><Desc>Export</Desc>",
                {{"IsTaxable", "false"}, {"Desc", "Export"}}},
        AddCase{"StandardTerms",
                "<Name>Net 60</Name><IsActive>1</IsActive><StdDueDays>60</StdDueDays><StdDiscountDays>10</StdDiscountDays>"
                "<DiscountPct>0000002.5000</DiscountPct>",
                {{"StdDueDays", "60"}, {"DiscountPct", "2.50"}}},
        AddCase{"DateDrivenTerms",
                "<Name>End of month</Name><IsActive>1</IsActive><DayOfMonthDue>31</DayOfMonthDue>"
                "<DueNextMonthDays>3</DueNextMonthDays>",
                {{"DayOfMonthDue", "31"}, {"DueNextMonthDays", "3"}}},
        AddCase{"Account",
                "<Name>Petty Cash</Name><IsActive>1</IsActive><ParentRef><FullName>Checking</FullName></ParentRef>"
                "<AccountType>Bank</AccountType><AccountNumber>1005</AccountNumber><Desc>Cash box</Desc>"
                "<OpenBalance>150.00</OpenBalance><OpenBalanceDate>2024-01-01</OpenBalanceDate>",
                {{"FullName", "Checking:Petty Cash"}, {"AccountType", "Bank"}, {"Balance", "150.00"},
                 {"AccountNumber", "1005"}}},
        AddCase{"Customer",
                "<Name>Quillfeather Press</Name><IsActive>1</IsActive><CompanyName>Quillfeather Press</CompanyName>"
                "<Salutation>Ms.</Salutation><FirstName>Ada</FirstName><LastName>Ivers</LastName><Suffix>Jr</Suffix>"
                "<BillAddress><Addr1>1 Ink Lane</Addr1><Addr4>Unit 4</Addr4><City>Millbrook</City><State>OR</State>"
                "</BillAddress><ShipAddress></ShipAddress><Phone>555-0100</Phone><Mobile>555-0101</Mobile>"
                "<Email>ada&#64;quill.example</Email><CustomerTypeRef><FullName>Commercial</FullName></CustomerTypeRef>"
                "<TermsRef><FullName>Net 30</FullName></TermsRef><SalesRepRef><FullName>AC</FullName></SalesRepRef>"
                "<OpenBalance>80.00</OpenBalance><OpenBalanceDate>2024-02-01</OpenBalanceDate>"
                "<SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef>"
                "<ItemSalesTaxRef><FullName>Combined Tax</FullName></ItemSalesTaxRef><ResaleNumber>R-1</ResaleNumber>"
                "<AccountNumber>Q-1</AccountNumber><CreditLimit>2500.00</CreditLimit>"
                "<PreferredPaymentMethodRef><FullName>Check</FullName></PreferredPaymentMethodRef>"
                "<CreditCardInfo><CreditCardNumber>4111</CreditCardNumber><ExpirationMonth>12</ExpirationMonth>"
                "<ExpirationYear>2027</ExpirationYear><NameOnCard>Ada Ivers</NameOnCard></CreditCardInfo>"
                "<JobStatus>Awarded</JobStatus><JobStartDate>2024-03-01</JobStartDate><JobDesc>Shelves</JobDesc>"
                "<JobTypeRef><FullName>Design</FullName></JobTypeRef><Notes>Prefers mornings</Notes>"
                "<IsStatementWithParent>0</IsStatementWithParent><DeliveryMethod>Email</DeliveryMethod>",
                {{"BillAddress/Addr4", "Unit 4"}, {"Email", "ada@quill.example"}, {"TermsRef/FullName", "Net 30"},
                 {"Balance", "80.00"}, {"TotalBalance", "80.00"}, {"SalesTaxCodeRef/FullName", "Tax"},
                 {"CreditLimit", "2500.00"}, {"CreditCardInfo/ExpirationYear", "2027"}, {"JobStatus", "Awarded"},
                 {"Notes", "Prefers mornings"}, {"DeliveryMethod", "Email"}, {"ShipAddress", "<missing>"}}},
        AddCase{"Vendor",
                "<Name>Tinplate Co</Name><IsActive>1</IsActive><CompanyName>Tinplate Co</CompanyName>"
                "<VendorAddress><Addr1>9 Forge Road</Addr1></VendorAddress><Phone>555-0199</Phone>"
                "<NameOnCheck>Tinplate Company</NameOnCheck><AccountNumber>T-9</AccountNumber><Notes>Ships Fridays</Notes>"
                "<CreditLimit>900.00</CreditLimit><VendorTaxIdent>99-1</VendorTaxIdent>"
                "<IsVendorEligibleFor1099>1</IsVendorEligibleFor1099><OpenBalance>40.00</OpenBalance>",
                {{"NameOnCheck", "Tinplate Company"}, {"Notes", "Ships Fridays"}, {"IsVendorEligibleFor1099", "true"},
                 {"Balance", "40.00"}}},
        AddCase{"OtherName",
                "<Name>Landlord</Name><IsActive>1</IsActive><FirstName>Oda</FirstName>"
                "<OtherNameAddress><Addr1>3 Quay</Addr1></OtherNameAddress><AccountNumber>L-1</AccountNumber>",
                {{"FirstName", "Oda"}, {"OtherNameAddress/Addr1", "3 Quay"}}},
        AddCase{"Employee",
                "<IsActive>1</IsActive><FirstName>Rosa</FirstName><LastName>Ivers</LastName>"
                "<EmployeeAddress><Addr1>4 Loom Street</Addr1></EmployeeAddress><SSN>000-00-1234</SSN>"
                "<Gender>Female</Gender><HiredDate>2023-09-01</HiredDate>",
                {{"Name", "Rosa Ivers"}, {"SSN", "000-00-1234"}, {"HiredDate", "2023-09-01"}}},
        AddCase{"ItemService",
                "<Name>Polishing</Name><IsActive>1</IsActive><ParentRef><FullName>Labor</FullName></ParentRef>"
                "<SalesTaxCodeRef><FullName>Non</FullName></SalesTaxCodeRef><SalesOrPurchase><Desc>Polish</Desc>"
                "<Price>0000040.0000</Price><AccountRef><FullName>Services</FullName></AccountRef></SalesOrPurchase>",
                {{"FullName", "Labor:Polishing"}, {"SalesOrPurchase/Price", "40.00"},
                 {"SalesOrPurchase/AccountRef/FullName", "Services"}}},
        AddCase{"ItemNonInventory",
                "<Name>Glue</Name><IsActive>1</IsActive><SalesAndPurchase><SalesDesc>Wood glue</SalesDesc>"
                "<SalesPrice>0000009.5000</SalesPrice><IncomeAccountRef><FullName>Sales</FullName></IncomeAccountRef>"
                "<PurchaseCost>0000004.2500</PurchaseCost><ExpenseAccountRef><FullName>Cost of Goods Sold</FullName>"
                "</ExpenseAccountRef><PrefVendorRef><FullName>State Revenue Office</FullName></PrefVendorRef>"
                "</SalesAndPurchase>",
                {{"SalesAndPurchase/SalesPrice", "9.50"}, {"SalesAndPurchase/PurchaseCost", "4.25"}}},
        AddCase{"ItemOtherCharge",
                "<Name>Rush Fee</Name><IsActive>1</IsActive><SalesOrPurchase><PricePercent>0000010.0000</PricePercent>"
                "</SalesOrPurchase>",
                {{"SalesOrPurchase/PricePercent", "10.00"}}},
        AddCase{"ItemDiscount",
                "<Name>Loyalty</Name><IsActive>1</IsActive><ItemDesc>Loyalty discount</ItemDesc>"
                "<DiscountRate>0000015.0000</DiscountRate><AccountRef><FullName>Discounts Given</FullName></AccountRef>",
                {{"DiscountRate", "15.00"}, {"AccountRef/FullName", "Discounts Given"}}},
        AddCase{"ItemPayment",
                "<Name>Card Payment</Name><IsActive>1</IsActive><ItemDesc>Paid by card</ItemDesc>"
                "<DepositToAccountRef><FullName>Checking</FullName></DepositToAccountRef>"
                "<PaymentMethodRef><FullName>Card</FullName></PaymentMethodRef>",
                {{"DepositToAccountRef/FullName", "Checking"}, {"PaymentMethodRef/FullName", "Card"}}},
        AddCase{"ItemSubtotal", "<Name>Section Total</Name><IsActive>1</IsActive><ItemDesc>Section</ItemDesc>",
                {{"ItemDesc", "Section"}}},
        AddCase{"ItemSalesTax",
                "<Name>County Tax</Name><IsActive>1</IsActive><ItemDesc>County</ItemDesc><TaxRate>0000000.7500</TaxRate>"
                "<TaxVendorRef><FullName>State Revenue Office</FullName></TaxVendorRef>",
                {{"TaxRate", "0.75"}, {"TaxVendorRef/FullName", "State Revenue Office"}}},
        AddCase{"ItemSalesTaxGroup",
                "<Name>All Taxes</Name><IsActive>1</IsActive><ItemDesc>Every tax</ItemDesc>"
                "<ItemSalesTaxRef><FullName>State Tax</FullName></ItemSalesTaxRef>"
                "<ItemSalesTaxRef><FullName>City Tax</FullName></ItemSalesTaxRef>",
                {{"ItemSalesTaxRef/FullName", "State Tax"}}},
        AddCase{"ItemInventory",
                "<Name>Cherry Panel</Name><IsActive>1</IsActive><SalesDesc>Cherry</SalesDesc><SalesPrice>55</SalesPrice>"
                "<IncomeAccountRef><FullName>Sales</FullName></IncomeAccountRef><PurchaseCost>30</PurchaseCost>"
                "<COGSAccountRef><FullName>Cost of Goods Sold</FullName></COGSAccountRef>"
                "<AssetAccountRef><FullName>Inventory Asset</FullName></AssetAccountRef><ReorderPoint>5</ReorderPoint>"
                "<QuantityOnHand>12</QuantityOnHand>",
                {{"QuantityOnHand", "12"}, {"QuantityOnSalesOrder", "0"}}},
        AddCase{"ItemGroup",
                "<Name>Finishing Kit</Name><IsActive>1</IsActive><ItemDesc>Oil and labor</ItemDesc>"
                "<IsPrintItemsInGroup>1</IsPrintItemsInGroup><ItemGroupLine><ItemRef><FullName>Finishing Oil</FullName>"
                "</ItemRef><Quantity>2</Quantity></ItemGroupLine><ItemGroupLine><ItemRef><FullName>Labor</FullName>"
                "</ItemRef><Quantity>1.5</Quantity></ItemGroupLine>",
                {{"ItemGroupLine/ItemRef/FullName", "Finishing Oil"}, {"IsPrintItemsInGroup", "true"}}},
        AddCase{"ItemInventoryAssembly",
                "<Name>Wall Cabinet</Name><IsActive>1</IsActive><SalesPrice>300</SalesPrice>"
                "<IncomeAccountRef><FullName>Sales</FullName></IncomeAccountRef>"
                "<COGSAccountRef><FullName>Cost of Goods Sold</FullName></COGSAccountRef>"
                "<AssetAccountRef><FullName>Inventory Asset</FullName></AssetAccountRef>"
                "<ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Oak Panel</FullName></ItemInventoryRef>"
                "<Quantity>3</Quantity></ItemInventoryAssemblyLine>",
                {{"ItemInventoryAssemblyLine/Quantity", "3"}}},
        AddCase{"ItemFixedAsset",
                "<Name>Planer</Name><IsActive>1</IsActive><AcquiredAs>New</AcquiredAs><PurchaseDesc>Thickness planer"
                "</PurchaseDesc><PurchaseDate>2022-05-05</PurchaseDate><PurchaseCost>1200</PurchaseCost>",
                {{"PurchaseDate", "2022-05-05"}, {"PurchaseCost", "1200.00"}}},
        AddCase{"PayrollItemWage",
                "<Name>Overtime</Name><IsActive>1</IsActive><WageType>HourlyOvertime</WageType>"
                "<ExpenseAccountRef><FullName>Payroll Expenses</FullName></ExpenseAccountRef>",
                {{"WageType", "HourlyOvertime"}}}),
    [](const ::testing::TestParamInfo<AddCase>& info) { return std::string(info.param.kind); });

}  // namespace
}  // namespace tessaron::qbsim::testing
