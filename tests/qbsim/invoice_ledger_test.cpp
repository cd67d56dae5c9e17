// Invoices kept as a ledger: the arithmetic of their lines, the refusals, modifies line by
// line, void and delete, the query filters, and the balances summed from the postings.
// After every test the ledger's invariants are checked.
#include <map>

#include "qbsim/company_file.h"
#include "qbsim/ledger.h"
#include "tests/qbsim/qbsim_fixture.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"

namespace tessaron::qbsim::testing {
namespace {

double Number(const std::string& text) { return Currency::Parse(text).ToDouble(); }

// An item line of an add, with its elements after ItemRef.
std::string Line(const std::string& item, const std::string& more = "") {
  return "<InvoiceLineAdd><ItemRef><FullName>" + item + "</FullName></ItemRef>" + more + "</InvoiceLineAdd>";
}

class InvoiceLedgerTest : public QbsimTest {
 protected:
  void SetUp() override { SetUpWith(0); }

  void SetUpWith(int sampleInvoices) {
    QbsimTest::SetUp();
    SampleOptions sample;
    sample.invoices = sampleInvoices;
    sample.salesDocuments = 0;
    Open(sample);
    AddCustomer("Test Taxable", "<TermsRef><FullName>Net 30</FullName></TermsRef><SalesTaxCodeRef><FullName>Tax"
                                "</FullName></SalesTaxCodeRef><ItemSalesTaxRef><FullName>State Tax</FullName>"
                                "</ItemSalesTaxRef>");
    AddCustomer("Test Exempt", "<SalesTaxCodeRef><FullName>Non</FullName></SalesTaxCodeRef><ItemSalesTaxRef>"
                               "<FullName>State Tax</FullName></ItemSalesTaxRef>");
    // What is owed beyond the open invoices is the opening balances.
    OpenInvoices open = Unpaid();
    arOpening_ = Balance("Account", "Accounts Receivable") - open.total;
    for (const auto& [name, balance] : CustomerBalances()) customersOpening_[name] = balance - open.byCustomer[name];
  }

  struct OpenInvoices {
    double total = 0;
    std::map<std::string, double> byCustomer;
  };
  OpenInvoices Unpaid() {
    OpenInvoices o;
    Response open = Send("<InvoiceQueryRq><PaidStatus>NotPaidOnly</PaidStatus></InvoiceQueryRq>");
    for (pugi::xml_node inv : open.Records()) {
      double remaining = Number(inv.child_value("BalanceRemaining"));
      o.total += remaining;
      o.byCustomer[inv.child("CustomerRef").child_value("FullName")] += remaining;
    }
    return o;
  }

  // The invariants of the ledger, whatever the test did.
  void TearDown() override {
    if (processor_) {
      auto file = CompanyFile::Open(path_);
      EXPECT_EQ(LedgerStore(*file).Imbalance(), 0) << "debits and credits differ";
      OpenInvoices open = Unpaid();
      EXPECT_NEAR(Balance("Account", "Accounts Receivable"), arOpening_ + open.total, 0.001)
          << "the receivable account is not the sum of the open invoices and the opening balances";
      for (const auto& [name, balance] : CustomerBalances())
        EXPECT_NEAR(balance, customersOpening_[name] + open.byCustomer[name], 0.001) << name;
    }
    QbsimTest::TearDown();
  }

  void AddCustomer(const std::string& name, const std::string& more, const std::string& parent = "") {
    std::string p = parent.empty() ? "" : "<ParentRef><FullName>" + parent + "</FullName></ParentRef>";
    Response r = Send("<CustomerAddRq><CustomerAdd><Name>" + name + "</Name>" + p + more +
                      "</CustomerAdd></CustomerAddRq>");
    ASSERT_EQ(r.Status(), 0) << r.Message();
  }

  double Balance(const std::string& kind, const std::string& fullName) {
    Response r = Send("<" + kind + "QueryRq><FullName>" + fullName + "</FullName></" + kind + "QueryRq>");
    return Number(r.Value(kind + "Ret/Balance"));
  }

  std::map<std::string, double> CustomerBalances() {
    Response r = Send("<CustomerQueryRq><ActiveStatus>All</ActiveStatus></CustomerQueryRq>");
    std::map<std::string, double> out;
    for (pugi::xml_node c : r.Records()) out[c.child_value("FullName")] = Number(c.child_value("Balance"));
    return out;
  }

  // Adds an invoice: `header` between CustomerRef and the lines, in schema order.
  Response AddInvoice(const std::string& customer, const std::string& header, const std::string& lines) {
    return Send("<InvoiceAddRq><InvoiceAdd><CustomerRef><FullName>" + customer + "</FullName></CustomerRef>" + header +
                lines + "</InvoiceAdd></InvoiceAddRq>");
  }

  double arOpening_ = 0;
  std::map<std::string, double> customersOpening_;
};

// ---- The arithmetic of the lines, by worked example ----

struct ArithmeticCase {
  const char* name;
  const char* customer;
  std::string header;
  std::string lines;
  std::vector<std::string> amounts;  // of the lines, in order
  const char* subtotal;
  const char* tax;
  const char* balance;
};

class InvoiceArithmeticTest : public InvoiceLedgerTest, public ::testing::WithParamInterface<ArithmeticCase> {};

TEST_P(InvoiceArithmeticTest, AnswersLineAmountsAndTotals) {
  const ArithmeticCase& c = GetParam();
  Response r = AddInvoice(c.customer, c.header, c.lines);
  ASSERT_EQ(r.Status(), 0) << r.Message();
  pugi::xml_node inv = r.Rs().child("InvoiceRet");
  std::vector<std::string> amounts;
  for (pugi::xml_node l = inv.first_child(); l; l = l.next_sibling()) {
    std::string tag = l.name();
    if (tag == "InvoiceLineRet") amounts.push_back(l.child_value("Amount"));
    if (tag == "InvoiceLineGroupRet") amounts.push_back(l.child_value("TotalAmount"));
  }
  EXPECT_EQ(amounts, c.amounts);
  EXPECT_STREQ(inv.child_value("Subtotal"), c.subtotal);
  EXPECT_STREQ(inv.child_value("SalesTaxTotal"), c.tax);
  EXPECT_STREQ(inv.child_value("BalanceRemaining"), c.balance);
  EXPECT_STREQ(inv.child_value("AppliedAmount"), "0.00");
}

INSTANTIATE_TEST_SUITE_P(
    WorkedExamples, InvoiceArithmeticTest,
    ::testing::Values(
        ArithmeticCase{"QuantityTimesRate", "Test Exempt", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>3</Quantity>"
                       "<Rate>10</Rate></InvoiceLineAdd>",
                       {"30.00"}, "30.00", "0.00", "30.00"},
        ArithmeticCase{"RateFromTheItemsPrice", "Test Exempt", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>2</Quantity>"
                       "</InvoiceLineAdd>",
                       {"130.00"}, "130.00", "0.00", "130.00"},
        ArithmeticCase{"AmountGivenStands", "Test Exempt", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>4</Quantity>"
                       "<Amount>90.00</Amount></InvoiceLineAdd>",
                       {"90.00"}, "90.00", "0.00", "90.00"},
        ArithmeticCase{"HalfACentRoundsAwayFromZero", "Test Exempt", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>3</Quantity>"
                       "<Rate>0.335</Rate></InvoiceLineAdd>",
                       {"1.01"}, "1.01", "0.00", "1.01"},
        ArithmeticCase{"PercentDiscountAfterASubtotal", "Test Exempt", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Rate>10</Rate></InvoiceLineAdd>"
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Rate>20</Rate></InvoiceLineAdd>"
                       "<InvoiceLineAdd><ItemRef><FullName>Subtotal</FullName></ItemRef></InvoiceLineAdd>"
                       "<InvoiceLineAdd><ItemRef><FullName>Trade Discount</FullName></ItemRef></InvoiceLineAdd>",
                       {"10.00", "20.00", "30.00", "-3.00"}, "27.00", "0.00", "27.00"},
        ArithmeticCase{"FixedDiscountOfTheLineAbove", "Test Exempt", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Rate>50</Rate></InvoiceLineAdd>"
                       "<InvoiceLineAdd><ItemRef><FullName>Trade Discount</FullName></ItemRef><Rate>5</Rate>"
                       "</InvoiceLineAdd>",
                       {"50.00", "-5.00"}, "45.00", "0.00", "45.00"},
        ArithmeticCase{"SubtotalSumsOnlySinceThePreviousOne", "Test Exempt", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Rate>10</Rate></InvoiceLineAdd>"
                       "<InvoiceLineAdd><ItemRef><FullName>Subtotal</FullName></ItemRef></InvoiceLineAdd>"
                       "<InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Rate>7</Rate></InvoiceLineAdd>"
                       "<InvoiceLineAdd><ItemRef><FullName>Subtotal</FullName></ItemRef></InvoiceLineAdd>",
                       {"10.00", "10.00", "7.00", "7.00"}, "17.00", "0.00", "17.00"},
        // Hardware is taxable, labor is not: 6.25 % of 48.00.
        ArithmeticCase{"TaxOnTheTaxableLinesOnly", "Test Taxable", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Hardware</FullName></ItemRef><Quantity>2</Quantity>"
                       "</InvoiceLineAdd><InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef>"
                       "<Rate>100</Rate></InvoiceLineAdd>",
                       {"48.00", "100.00"}, "148.00", "3.00", "151.00"},
        ArithmeticCase{"ANonTaxableCustomerPaysNoTax", "Test Exempt", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Hardware</FullName></ItemRef><Quantity>2</Quantity>"
                       "</InvoiceLineAdd>",
                       {"48.00"}, "48.00", "0.00", "48.00"},
        // 6.25 % of 10.05 is 0.628125.
        ArithmeticCase{"TaxTotalRoundsToCents", "Test Taxable", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Hardware</FullName></ItemRef><Rate>10.05</Rate>"
                       "</InvoiceLineAdd>",
                       {"10.05"}, "10.05", "0.63", "10.68"},
        // State 6.25 % and city 1.5 %.
        ArithmeticCase{"TaxGroupAddsItsRates", "Test Taxable",
                       "<ItemSalesTaxRef><FullName>Combined Tax</FullName></ItemSalesTaxRef>",
                       "<InvoiceLineAdd><ItemRef><FullName>Hardware</FullName></ItemRef><Rate>100</Rate>"
                       "</InvoiceLineAdd>",
                       {"100.00"}, "100.00", "7.75", "107.75"},
        // The city tax line takes 1.5 % of the taxable 48.00 and belongs to the subtotal;
        // the header's state tax is 6.25 % of 48.00.
        ArithmeticCase{"TaxLineInTheBodyBelongsToTheSubtotal", "Test Taxable", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Hardware</FullName></ItemRef><Quantity>2</Quantity>"
                       "</InvoiceLineAdd><InvoiceLineAdd><ItemRef><FullName>City Tax</FullName></ItemRef>"
                       "</InvoiceLineAdd>",
                       {"48.00", "0.72"}, "48.72", "3.00", "51.72"},
        // A tax line taxes the line above it only: 1.5 % of 10.00; the header's 6.25 % of 58.00.
        ArithmeticCase{"TaxLineTaxesTheLineAboveIt", "Test Taxable", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Hardware</FullName></ItemRef><Quantity>2</Quantity>"
                       "</InvoiceLineAdd><InvoiceLineAdd><ItemRef><FullName>Hardware</FullName></ItemRef>"
                       "<Rate>10</Rate></InvoiceLineAdd><InvoiceLineAdd><ItemRef><FullName>City Tax</FullName>"
                       "</ItemRef></InvoiceLineAdd>",
                       {"48.00", "10.00", "0.15"}, "58.15", "3.63", "61.78"},
        // Below a subtotal it taxes the subtotal's taxable lines: 1.5 % of 48.00, not of 113.00.
        ArithmeticCase{"TaxLineBelowASubtotalTaxesItsTaxableLines", "Test Taxable", "",
                       "<InvoiceLineAdd><ItemRef><FullName>Hardware</FullName></ItemRef><Quantity>2</Quantity>"
                       "</InvoiceLineAdd><InvoiceLineAdd><ItemRef><FullName>Labor</FullName></ItemRef>"
                       "</InvoiceLineAdd><InvoiceLineAdd><ItemRef><FullName>Subtotal</FullName></ItemRef>"
                       "</InvoiceLineAdd><InvoiceLineAdd><ItemRef><FullName>City Tax</FullName></ItemRef>"
                       "</InvoiceLineAdd>",
                       {"48.00", "65.00", "113.00", "0.72"}, "113.72", "3.00", "116.72"},
        // Install Kit: two hardware sets (taxable) and a delivery, twice over.
        ArithmeticCase{"GroupExpandsIntoItsMembers", "Test Taxable", "",
                       "<InvoiceLineGroupAdd><ItemGroupRef><FullName>Install Kit</FullName></ItemGroupRef>"
                       "<Quantity>2</Quantity></InvoiceLineGroupAdd>",
                       {"186.00"}, "186.00", "6.00", "192.00"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(InvoiceLedgerTest, GroupLineAnswersItsMembers) {
  Response r = AddInvoice("Test Taxable", "",
                          "<InvoiceLineGroupAdd><ItemGroupRef><FullName>Install Kit</FullName></ItemGroupRef>"
                          "</InvoiceLineGroupAdd>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  pugi::xml_node group = r.Rs().child("InvoiceRet").child("InvoiceLineGroupRet");
  EXPECT_STREQ(group.child("ItemGroupRef").child_value("FullName"), "Install Kit");
  std::vector<std::string> members;
  for (pugi::xml_node m : group.children("InvoiceLineRet"))
    members.push_back(std::string(m.child("ItemRef").child_value("FullName")) + " " + m.child_value("Quantity") + " " +
                      m.child_value("Amount"));
  EXPECT_EQ(members, (std::vector<std::string>{"Hardware 2 48.00", "Delivery 1 45.00"}));
  EXPECT_STREQ(group.child_value("TotalAmount"), "93.00");
}

TEST_F(InvoiceLedgerTest, AddTakesTermsAddressAndNumberingFromTheFile) {
  Response first = AddInvoice("Test Taxable", "<TxnDate>2024-05-01</TxnDate><RefNumber>A-0099</RefNumber>",
                              Line("Labor"));
  ASSERT_EQ(first.Status(), 0) << first.Message();
  EXPECT_EQ(first.Value("InvoiceRet/DueDate"), "2024-05-31");  // Net 30
  EXPECT_EQ(first.Value("InvoiceRet/TermsRef/FullName"), "Net 30");
  EXPECT_EQ(first.Value("InvoiceRet/ARAccountRef/FullName"), "Accounts Receivable");
  EXPECT_EQ(first.Value("InvoiceRet/InvoiceLineRet/Desc"), "Shop labor, per hour");
  Response second = AddInvoice("Test Taxable", "", Line("Labor"));
  EXPECT_EQ(second.Value("InvoiceRet/RefNumber"), "A-0100");
  EXPECT_EQ(Number(second.Value("InvoiceRet/TxnNumber")), Number(first.Value("InvoiceRet/TxnNumber")) + 1);
}

struct DueCase {
  const char* terms;
  const char* txnDate;
  const char* due;
};
class DueDateTest : public InvoiceLedgerTest, public ::testing::WithParamInterface<DueCase> {};

TEST_P(DueDateTest, DueDateFollowsTheTerms) {
  Response r = AddInvoice("Test Exempt",
                          std::string("<TxnDate>") + GetParam().txnDate + "</TxnDate><TermsRef><FullName>" +
                              GetParam().terms + "</FullName></TermsRef>",
                          Line("Labor"));
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("InvoiceRet/DueDate"), GetParam().due);
}

INSTANTIATE_TEST_SUITE_P(Terms, DueDateTest,
                         ::testing::Values(DueCase{"Net 15", "2024-12-20", "2025-01-04"},
                                           DueCase{"Due on receipt", "2024-03-05", "2024-03-05"},
                                           // Due on the 15th; within 5 days of it moves to next month.
                                           DueCase{"15th of next month", "2024-05-03", "2024-05-15"},
                                           DueCase{"15th of next month", "2024-05-12", "2024-06-15"},
                                           DueCase{"15th of next month", "2024-05-20", "2024-06-15"}));

// ---- Refusals ----

struct RefusalCase {
  const char* name;
  const char* customer;
  std::string header;
  std::string lines;
  int status;
};
class InvoiceRefusalTest : public InvoiceLedgerTest, public ::testing::WithParamInterface<RefusalCase> {
 protected:
  void SetUp() override {
    InvoiceLedgerTest::SetUp();
    AddCustomer("Gone Away", "<IsActive>0</IsActive>");
    Response r = Send("<ItemServiceAddRq><ItemServiceAdd><Name>Retired Service</Name><IsActive>0</IsActive>"
                      "<SalesOrPurchase><Price>5</Price><AccountRef><FullName>Services</FullName></AccountRef>"
                      "</SalesOrPurchase></ItemServiceAdd></ItemServiceAddRq>");
    ASSERT_EQ(r.Status(), 0) << r.Message();
  }
};

TEST_P(InvoiceRefusalTest, RefusedWithStatusAndNothingStored) {
  const RefusalCase& c = GetParam();
  const size_t before = Send("<InvoiceQueryRq/>").Records().size();
  Response r = AddInvoice(c.customer, c.header, c.lines);
  EXPECT_EQ(r.Status(), c.status) << r.Message();
  EXPECT_EQ(Send("<InvoiceQueryRq/>").Records().size(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Statuses, InvoiceRefusalTest,
    ::testing::Values(
        RefusalCase{"UnknownCustomer", "Nobody Here", "", Line("Labor"), status::kInvalidReference},
        RefusalCase{"InactiveCustomer", "Gone Away", "", Line("Labor"), status::kInvalidReference},
        RefusalCase{"UnknownItem", "Test Exempt", "", Line("No Such Item"), status::kInvalidReference},
        RefusalCase{"InactiveItem", "Test Exempt", "", Line("Retired Service"), status::kInvalidReference},
        RefusalCase{"UnknownAccount", "Test Exempt", "<ARAccountRef><FullName>Nowhere</FullName></ARAccountRef>",
                    Line("Labor"), status::kInvalidReference},
        RefusalCase{"AccountThatIsNotReceivable", "Test Exempt",
                    "<ARAccountRef><FullName>Checking</FullName></ARAccountRef>", Line("Labor"),
                    status::kInvalidReference},
        RefusalCase{"UnknownTerms", "Test Exempt", "<TermsRef><FullName>Net 99</FullName></TermsRef>",
                    Line("Labor"), status::kInvalidReference},
        RefusalCase{"AmountWithoutItem", "Test Exempt", "",
                    "<InvoiceLineAdd><Desc>Loose</Desc><Amount>5.00</Amount></InvoiceLineAdd>",
                    status::kMissingElement}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- Modify, void, delete ----

TEST_F(InvoiceLedgerTest, ModifyChangesKeepsAddsAndRemovesLinesByTxnLineID) {
  Response added = AddInvoice("Test Exempt", "",
                              Line("Labor", "<Quantity>1</Quantity><Rate>10</Rate>") +
                                  Line("Labor", "<Quantity>1</Quantity><Rate>20</Rate>") +
                                  Line("Labor", "<Quantity>1</Quantity><Rate>40</Rate>"));
  ASSERT_EQ(added.Status(), 0) << added.Message();
  pugi::xml_node inv = added.Rs().child("InvoiceRet");
  std::vector<std::string> ids;
  for (pugi::xml_node l : inv.children("InvoiceLineRet")) ids.push_back(l.child_value("TxnLineID"));
  std::string mod = std::string("<InvoiceModRq><InvoiceMod><TxnID>") + inv.child_value("TxnID") + "</TxnID><EditSequence>" +
                    inv.child_value("EditSequence") + "</EditSequence><Memo>Changed</Memo>"
                    "<InvoiceLineMod><TxnLineID>" + ids[0] + "</TxnLineID><Quantity>3</Quantity></InvoiceLineMod>"
                    "<InvoiceLineMod><TxnLineID>" + ids[2] + "</TxnLineID></InvoiceLineMod>"
                    "<InvoiceLineMod><TxnLineID>-1</TxnLineID><ItemRef><FullName>Hardware</FullName></ItemRef>"
                    "</InvoiceLineMod></InvoiceMod></InvoiceModRq>";
  Response r = Send(mod);
  ASSERT_EQ(r.Status(), 0) << r.Message();
  std::vector<std::string> lines;
  for (pugi::xml_node l : r.Rs().child("InvoiceRet").children("InvoiceLineRet"))
    lines.push_back(std::string(l.child_value("TxnLineID")) + " " + l.child_value("Amount"));
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0], ids[0] + " 30.00");
  EXPECT_EQ(lines[1], ids[2] + " 40.00");
  EXPECT_NE(lines[2].substr(0, lines[2].find(' ')), "-1");
  EXPECT_EQ(lines[2].substr(lines[2].find(' ') + 1), "24.00");
  EXPECT_EQ(r.Value("InvoiceRet/Subtotal"), "94.00");
  EXPECT_EQ(r.Value("InvoiceRet/Memo"), "Changed");
  EXPECT_NE(r.Value("InvoiceRet/EditSequence"), inv.child_value("EditSequence"));
  // The same modify again carries an edit sequence that is no longer current.
  EXPECT_EQ(Send(mod).Status(), status::kStaleEditSequence);
}

TEST_F(InvoiceLedgerTest, ModifyWithoutLinesKeepsThemAndAnUnknownLineIsRefused) {
  Response added = AddInvoice("Test Exempt", "", Line("Labor", "<Rate>10</Rate>"));
  pugi::xml_node inv = added.Rs().child("InvoiceRet");
  std::string head = std::string("<InvoiceModRq><InvoiceMod><TxnID>") + inv.child_value("TxnID") +
                     "</TxnID><EditSequence>" + inv.child_value("EditSequence") + "</EditSequence>";
  Response unknown = Send(head + "<InvoiceLineMod><TxnLineID>1-1</TxnLineID></InvoiceLineMod></InvoiceMod></InvoiceModRq>");
  EXPECT_EQ(unknown.Status(), status::kObjectNotFound);
  Response kept = Send(head + "<PONumber>PO-7</PONumber></InvoiceMod></InvoiceModRq>");
  ASSERT_EQ(kept.Status(), 0) << kept.Message();
  EXPECT_EQ(kept.Value("InvoiceRet/InvoiceLineRet/Amount"), "10.00");
  EXPECT_EQ(kept.Value("InvoiceRet/PONumber"), "PO-7");
}

TEST_F(InvoiceLedgerTest, ModifyOfAGroupQuantityWorksItsMembersOutAgainUnderTheirLineIds) {
  Response added = AddInvoice("Test Exempt", "",
                              "<InvoiceLineGroupAdd><ItemGroupRef><FullName>Install Kit</FullName></ItemGroupRef>"
                              "</InvoiceLineGroupAdd>");
  ASSERT_EQ(added.Status(), 0) << added.Message();
  pugi::xml_node inv = added.Rs().child("InvoiceRet");
  pugi::xml_node group = inv.child("InvoiceLineGroupRet");
  std::string memberId = group.child("InvoiceLineRet").child_value("TxnLineID");
  Response r = Send(std::string("<InvoiceModRq><InvoiceMod><TxnID>") + inv.child_value("TxnID") +
                    "</TxnID><EditSequence>" + inv.child_value("EditSequence") +
                    "</EditSequence><InvoiceLineGroupMod><TxnLineID>" + group.child_value("TxnLineID") +
                    "</TxnLineID><Quantity>3</Quantity><InvoiceLineMod><TxnLineID>" + memberId +
                    "</TxnLineID></InvoiceLineMod></InvoiceLineGroupMod></InvoiceMod></InvoiceModRq>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  pugi::xml_node changed = r.Rs().child("InvoiceRet").child("InvoiceLineGroupRet");
  EXPECT_STREQ(changed.child_value("TotalAmount"), "279.00");  // 3 x (48.00 + 45.00)
  EXPECT_STREQ(changed.child("InvoiceLineRet").child_value("TxnLineID"), memberId.c_str());
  EXPECT_STREQ(changed.child("InvoiceLineRet").child_value("Quantity"), "6");
}

TEST_F(InvoiceLedgerTest, VoidKeepsTheInvoiceWithZeroAmountsAndMemo) {
  Response added = AddInvoice("Test Taxable", "<Memo>Cabinets</Memo>", Line("Hardware", "<Quantity>2</Quantity>"));
  std::string id = added.Value("InvoiceRet/TxnID");
  Response v = Send("<TxnVoidRq><TxnVoidType>Invoice</TxnVoidType><TxnID>" + id + "</TxnID></TxnVoidRq>");
  ASSERT_EQ(v.Status(), 0) << v.Message();
  EXPECT_EQ(v.Value("TxnID"), id);
  Response q = Send("<InvoiceQueryRq><TxnID>" + id + "</TxnID><IncludeLineItems>true</IncludeLineItems></InvoiceQueryRq>");
  EXPECT_EQ(q.Value("InvoiceRet/Memo"), "VOID: Cabinets");
  EXPECT_EQ(q.Value("InvoiceRet/Subtotal"), "0.00");
  EXPECT_EQ(q.Value("InvoiceRet/SalesTaxTotal"), "0.00");
  EXPECT_EQ(q.Value("InvoiceRet/BalanceRemaining"), "0.00");
  EXPECT_EQ(q.Value("InvoiceRet/InvoiceLineRet/Amount"), "0.00");
  EXPECT_EQ(q.Value("InvoiceRet/InvoiceLineRet/Quantity"), "0");
  EXPECT_DOUBLE_EQ(Balance("Customer", "Test Taxable"), customersOpening_["Test Taxable"]);
}

TEST_F(InvoiceLedgerTest, DeleteRemovesTheInvoiceAndLogsIt) {
  Response added = AddInvoice("Test Exempt", "<RefNumber>D-1</RefNumber>", Line("Labor"));
  std::string id = added.Value("InvoiceRet/TxnID");
  Response d = Send("<TxnDelRq><TxnDelType>Invoice</TxnDelType><TxnID>" + id + "</TxnID></TxnDelRq>");
  ASSERT_EQ(d.Status(), 0) << d.Message();
  EXPECT_EQ(d.Value("RefNumber"), "D-1");
  EXPECT_EQ(Send("<InvoiceQueryRq><TxnID>" + id + "</TxnID></InvoiceQueryRq>").Status(), status::kNotFoundByKey);
  EXPECT_EQ(Send("<TxnDelRq><TxnDelType>Invoice</TxnDelType><TxnID>" + id + "</TxnID></TxnDelRq>").Status(),
            status::kObjectNotFound);
  Response log = Send("<TxnDeletedQueryRq><TxnDelType>Invoice</TxnDelType></TxnDeletedQueryRq>");
  ASSERT_EQ(log.Status(), 0);
  EXPECT_EQ(log.Value("TxnDeletedRet/TxnID"), id);
  EXPECT_EQ(log.Value("TxnDeletedRet/RefNumber"), "D-1");
}

// ---- Balances from the postings ----

TEST_F(InvoiceLedgerTest, InvoicesMoveCustomerAndAccountBalances) {
  AddCustomer("Job A", "", "Test Taxable");
  double sales = Balance("Account", "Sales"), services = Balance("Account", "Services");
  double tax = Balance("Account", "Sales Tax Payable");
  ASSERT_EQ(AddInvoice("Test Taxable:Job A", "", Line("Hardware", "<Quantity>2</Quantity>") + Line("Labor")).Status(), 0);
  EXPECT_DOUBLE_EQ(Balance("Account", "Sales") - sales, 48.0);
  EXPECT_DOUBLE_EQ(Balance("Account", "Services") - services, 65.0);
  EXPECT_DOUBLE_EQ(Balance("Account", "Sales Tax Payable") - tax, 3.0);
  Response parent = Send("<CustomerQueryRq><FullName>Test Taxable</FullName></CustomerQueryRq>");
  EXPECT_EQ(parent.Value("CustomerRet/Balance"), "0.00");
  EXPECT_EQ(parent.Value("CustomerRet/TotalBalance"), "116.00");
}

TEST_F(InvoiceLedgerTest, ACustomerOrItemOnAnInvoiceCannotBeDeleted) {
  ASSERT_EQ(Send("<ItemServiceAddRq><ItemServiceAdd><Name>Once Only</Name><SalesOrPurchase><Price>5</Price>"
                 "<AccountRef><FullName>Services</FullName></AccountRef></SalesOrPurchase></ItemServiceAdd>"
                 "</ItemServiceAddRq>").Status(), 0);
  AddCustomer("Short Lived", "");
  ASSERT_EQ(AddInvoice("Short Lived", "", Line("Once Only")).Status(), 0);
  auto del = [&](const std::string& type, const std::string& name) {
    return Send("<ListDelRq><ListDelType>" + type + "</ListDelType><ListID>" + Key(type, name).first +
                "</ListID></ListDelRq>").Status();
  };
  EXPECT_EQ(del("Customer", "Short Lived"), status::kInUse);
  EXPECT_EQ(del("ItemService", "Once Only"), status::kInUse);
}

// ---- The sample company's invoices ----

class SampleInvoicesTest : public InvoiceLedgerTest {
 protected:
  void SetUp() override { SetUpWith(40); }
};

TEST_F(SampleInvoicesTest, SampleCompanyHoldsPaidAndOpenInvoicesOfTheLastTwoYears) {
  Response all = Send("<InvoiceQueryRq><IncludeLineItems>true</IncludeLineItems></InvoiceQueryRq>");
  std::string twoYearsAgo = FormatDate(Today() - 731, "yyyy-mm-dd"), today = FormatDate(Today(), "yyyy-mm-dd");
  int paid = 0, numbered = 0;
  for (pugi::xml_node inv : all.Records()) {
    // What customers owed on the opening day stands as unnumbered invoices of one line.
    if (!inv.child("RefNumber")) {
      EXPECT_STREQ(inv.child("InvoiceLineRet").child_value("Desc"), "Opening balance");
      continue;
    }
    ++numbered;
    EXPECT_GE(std::string(inv.child_value("TxnDate")), twoYearsAgo);
    EXPECT_LE(std::string(inv.child_value("TxnDate")), today);
    EXPECT_TRUE(inv.child("InvoiceLineRet") || inv.child("InvoiceLineGroupRet"));
    paid += std::string(inv.child_value("IsPaid")) == "true";
  }
  EXPECT_EQ(numbered, 40);
  EXPECT_GT(paid, 0);
  EXPECT_LT(paid, 40);
}

// ---- Queries ----

class InvoiceQueryTest : public InvoiceLedgerTest,
                         public ::testing::WithParamInterface<std::pair<const char*, std::vector<std::string>>> {
 protected:
  void SetUp() override {
    InvoiceLedgerTest::SetUp();
    AddCustomer("Job A", "", "Test Taxable");
    ASSERT_EQ(AddInvoice("Test Taxable", "<TxnDate>2024-01-10</TxnDate><RefNumber>100</RefNumber>",
                         Line("Hardware")).Status(), 0);
    ASSERT_EQ(AddInvoice("Test Exempt", "<TxnDate>2024-02-20</TxnDate><RefNumber>101</RefNumber>",
                         Line("Labor")).Status(), 0);
    ASSERT_EQ(AddInvoice("Test Taxable:Job A", "<RefNumber>X-9</RefNumber>",
                         Line("Labor", "<Rate>100</Rate>") + Line("Deposit Received", "<Amount>100.00</Amount>"))
                  .Status(), 0);
  }
};

TEST_P(InvoiceQueryTest, FilterSelectsTheInvoices) {
  Response r = Send(std::string("<InvoiceQueryRq>") + GetParam().first + "</InvoiceQueryRq>");
  std::vector<std::string> refs;
  // The sample's opening balances are unnumbered invoices; the filters pick among the three.
  for (pugi::xml_node inv : r.Records())
    if (inv.child("RefNumber")) refs.push_back(inv.child_value("RefNumber"));
  EXPECT_EQ(refs, GetParam().second) << r.Message();
}

using Q = std::pair<const char*, std::vector<std::string>>;
INSTANTIATE_TEST_SUITE_P(
    Filters, InvoiceQueryTest,
    ::testing::Values(
        Q{"", {"100", "101", "X-9"}},
        Q{"<RefNumber>101</RefNumber>", {"101"}},
        Q{"<RefNumber>x-9</RefNumber>", {"X-9"}},
        Q{"<RefNumberCaseSensitive>x-9</RefNumberCaseSensitive>", {}},
        Q{"<MaxReturned>2</MaxReturned>", {"100", "101"}},
        Q{"<TxnDateRangeFilter><FromTxnDate>2024-02-01</FromTxnDate><ToTxnDate>2024-02-20</ToTxnDate>"
          "</TxnDateRangeFilter>", {"101"}},
        Q{"<TxnDateRangeFilter><DateMacro>Today</DateMacro></TxnDateRangeFilter>", {"X-9"}},
        Q{"<TxnDateRangeFilter><DateMacro>LastCalendarYear</DateMacro></TxnDateRangeFilter>", {}},
        Q{"<ModifiedDateRangeFilter><FromModifiedDate>2000-01-01</FromModifiedDate></ModifiedDateRangeFilter>",
          {"100", "101", "X-9"}},
        Q{"<ModifiedDateRangeFilter><ToModifiedDate>2000-01-01</ToModifiedDate></ModifiedDateRangeFilter>", {}},
        Q{"<EntityFilter><FullName>Test Taxable</FullName></EntityFilter>", {"100"}},
        Q{"<EntityFilter><FullNameWithChildren>Test Taxable</FullNameWithChildren></EntityFilter>", {"100", "X-9"}},
        Q{"<AccountFilter><FullName>Sales</FullName></AccountFilter>", {"100"}},
        Q{"<AccountFilter><FullName>Accounts Receivable</FullName></AccountFilter>", {"100", "101", "X-9"}},
        Q{"<RefNumberFilter><MatchCriterion>StartsWith</MatchCriterion><RefNumber>10</RefNumber></RefNumberFilter>",
          {"100", "101"}},
        Q{"<RefNumberFilter><MatchCriterion>EndsWith</MatchCriterion><RefNumber>-9</RefNumber></RefNumberFilter>",
          {"X-9"}},
        Q{"<RefNumberRangeFilter><FromRefNumber>99</FromRefNumber><ToRefNumber>100</ToRefNumber>"
          "</RefNumberRangeFilter>", {"100"}},
        Q{"<PaidStatus>PaidOnly</PaidStatus>", {"X-9"}},
        Q{"<PaidStatus>NotPaidOnly</PaidStatus>", {"100", "101"}},
        Q{"<MaxReturned>1</MaxReturned><PaidStatus>NotPaidOnly</PaidStatus>", {"100"}}));

TEST_F(InvoiceLedgerTest, QueryAnswersLinesOnlyWhenAskedAndOnlyTheElementsAsked) {
  ASSERT_EQ(AddInvoice("Test Exempt", "<RefNumber>L-1</RefNumber>", Line("Labor")).Status(), 0);
  Response plain = Send("<InvoiceQueryRq><RefNumber>L-1</RefNumber></InvoiceQueryRq>");
  EXPECT_FALSE(plain.Rs().child("InvoiceRet").child("InvoiceLineRet"));
  Response lines = Send("<InvoiceQueryRq><RefNumber>L-1</RefNumber><IncludeLineItems>true</IncludeLineItems></InvoiceQueryRq>");
  EXPECT_TRUE(lines.Rs().child("InvoiceRet").child("InvoiceLineRet"));
  Response some = Send("<InvoiceQueryRq><RefNumber>L-1</RefNumber><IncludeRetElement>TxnID</IncludeRetElement>"
                       "<IncludeRetElement>RefNumber</IncludeRetElement></InvoiceQueryRq>");
  std::vector<std::string> tags;
  for (pugi::xml_node c : some.Rs().child("InvoiceRet").children()) tags.push_back(c.name());
  EXPECT_EQ(tags, (std::vector<std::string>{"TxnID", "RefNumber"}));
}

TEST_F(InvoiceLedgerTest, QueryByAnUnknownTxnIdFindsNothingByKey) {
  EXPECT_EQ(Send("<InvoiceQueryRq><TxnID>1-1</TxnID></InvoiceQueryRq>").Status(), status::kNotFoundByKey);
  EXPECT_EQ(Send("<InvoiceQueryRq><EntityFilter><FullName>Nobody</FullName></EntityFilter></InvoiceQueryRq>").Status(),
            status::kInvalidReference);
}

}  // namespace
}  // namespace tessaron::qbsim::testing
