// The report catalogue against the published list of reports: every row's code, name,
// request name, kind, group and flags.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "tessaron/connection/qb_connection.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/reports/report_catalog.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

// code|description|request name|kind|group|flags (T txns, A account, E entity, C no
// calendar, D no date). Kinds and groups by their codes.
constexpr const char* kExpected = R"(1|1099 Detail|1099Detail|6|5|T
2|Audit Trail|AuditTrail|6|10|T
3|Balance Sheet Detail|BalanceSheetDetail|6|1|T
4|Check Detail|CheckDetail|6|9|T
5|Customer Balance Detail|CustomerBalanceDetail|6|2|T
6|Deposit Detail|DepositDetail|6|9|T
7|Estimates By Job|EstimatesByJob|6|4|T
8|Expense By Vendor Detail|ExpenseByVendorDetail|6|1|T
9|General Ledger|GeneralLedger|6|10|T
10|Income By Customer Detail|IncomeByCustomerDetail|6|1|T
11|Income Tax Detail|IncomeTaxDetail|6|10|T
12|Inventory Valuation Detail|InventoryValuationDetail|6|7|T
13|Job Progress Invoices Vs Estimates|JobProgressInvoicesVsEstimates|6|4|T
14|Journal|Journal|6|10|T
15|Missing Checks|MissingChecks|6|9|TA
16|Open Invoices|OpenInvoices|6|2|T
17|Open Purchase Orders|OpenPOs|6|6|T
18|Open Purchase Orders By Job|OpenPOsByJob|6|6|T
19|Pending Sales|PendingSales|6|3|T
20|Profit And Loss Detail|ProfitAndLossDetail|6|1|T
21|Purchase By Item Detail|PurchaseByItemDetail|6|6|T
22|Purchase By Vendor Detail|PurchaseByVendorDetail|6|6|T
23|Sales By Customer Detail|SalesByCustomerDetail|6|3|T
24|Sales By Item Detail|SalesByItemDetail|6|3|T
25|Sales By Rep Detail|SalesByRepDetail|6|3|T
26|Transaction Detail By Account|TxnDetailByAccount|6|10|T
27|Transaction List By Customer|TxnListByCustomer|6|2|T
28|Transaction List By Date|TxnListByDate|6|10|T
29|Transaction List By Vendor|TxnListByVendor|6|5|T
30|Unpaid Bills Detail|UnpaidBillsDetail|6|5|T
31|Unbilled Costs By Job|UnbilledCostsByJob|6|4|T
32|Vendor Balance Detail|VendorBalanceDetail|6|5|T
33|AP Aging Detail|APAgingDetail|1|5|T
34|AP Aging Summary|APAgingSummary|1|5|
35|AR Aging Detail|ARAgingDetail|1|2|T
36|AR Aging Summary|ARAgingSummary|1|2|
37|Collections Report|CollectionsReport|1|2|T
38|Balance Sheet Prev Year Comp|BalanceSheetPrevYearComp|5|1|
39|Balance Sheet Standard|BalanceSheetStandard|5|1|
40|Balance Sheet Summary|BalanceSheetSummary|5|1|
41|Customer Balance Summary|CustomerBalanceSummary|5|2|
42|Expense By Vendor Summary|ExpenseByVendorSummary|5|1|
43|Income By Customer Summary|IncomeByCustomerSummary|5|1|
44|Inventory Stock Status By Item|InventoryStockStatusByItem|5|7|C
45|Inventory Stock Status By Vendor|InventoryStockStatusByVendor|5|7|C
46|Income Tax Summary|IncomeTaxSummary|5|10|
47|Inventory Valuation Summary|InventoryValuationSummary|5|7|C
48|Physical Inventory Worksheet|PhysicalInventoryWorksheet|5|7|CD
49|Profit And Loss By Class|ProfitAndLossByClass|5|1|
50|Profit And Loss By Job|ProfitAndLossByJob|5|1|
51|Profit And Loss Prev Year Comp|ProfitAndLossPrevYearComp|5|1|
52|Profit And Loss Standard|ProfitAndLossStandard|5|1|
53|Profit And Loss YTD Comp|ProfitAndLossYTDComp|5|1|
54|Purchase By Item Summary|PurchaseByItemSummary|5|6|
55|Purchase By Vendor Summary|PurchaseByVendorSummary|5|6|
56|Sales By Customer Summary|SalesByCustomerSummary|5|3|
57|Sales By Item Summary|SalesByItemSummary|5|3|
58|Sales By Rep Summary|SalesByRepSummary|5|3|
59|Sales Tax Liability|SalesTaxLiability|5|5|
60|Sales Tax Revenue Summary|SalesTaxRevenueSummary|5|5|
61|Trial Balance|TrialBalance|5|10|
62|Vendor Balance Summary|VendorBalanceSummary|5|5|
63|Job Estimates Vs Actuals Detail|JobEstimatesVsActualsDetail|7|4|TE
64|Job Estimates Vs Actuals Summary|JobEstimatesVsActualsSummary|7|4|
65|Job Profitability Detail|JobProfitabilityDetail|7|4|TE
66|Job Profitability Summary|JobProfitabilitySummary|7|4|
67|Item Estimates Vs Actuals|ItemEstimatesVsActuals|7|4|
68|Item Profitability|ItemProfitability|7|4|
69|Time By Item|TimeByItem|8|4|
70|Time By Job Detail|TimeByJobDetail|8|4|
71|Time By Job Summary|TimeByJobSummary|8|4|
72|Time By Name|TimeByName|8|4|
73|Balance Sheet Budget Overview|BalanceSheetBudgetOverview|2|11|
74|Balance Sheet Budget Vs Actual|BalanceSheetBudgetVsActual|2|11|
75|Profit And Loss Budget Overview|ProfitAndLossBudgetOverview|2|11|
76|Profit And Loss Budget Performance|ProfitAndLossBudgetPerformance|2|11|
77|Profit And Loss Budget Vs Actual|ProfitAndLossBudgetVsActual|2|11|
78|Employee State Taxes Detail|EmployeeStateTaxesDetail|9|8|
79|Payroll Item Detail|PayrollItemDetail|9|8|
80|Payroll Review Detail|PayrollReviewDetail|9|8|
81|Payroll Transaction Detail|PayrollTransactionDetail|9|8|
82|Payroll Transactions By Payee|PayrollTransactionsByPayee|9|8|
83|Employee Earnings Summary|EmployeeEarningsSummary|10|8|
84|Payroll Liability Balances|PayrollLiabilityBalances|10|8|
85|Payroll Summary|PayrollSummary|10|8|
86|Open Sales Order By Customer|OpenSalesOrderByCustomer|6|3|T
87|Open Sales Order By Item|OpenSalesOrderByItem|6|3|T
88|Transaction Detail|CustomTxnDetail|4|13|T
89|Transaction Summary|CustomSummary|3|13|
)";

std::string Flags(const rptDescriptor& d) {
  std::string f;
  if (d.HasTxns()) f += 'T';
  if (d.NeedAccount()) f += 'A';
  if (d.NeedEntity()) f += 'E';
  if (d.NoCalendarAllowed()) f += 'C';
  if (d.NoDateAllowed()) f += 'D';
  return f;
}

TEST(ReportCatalog, EveryRowMatchesThePublishedList) {
  std::istringstream in(kExpected);
  std::string line;
  int rows = 0;
  while (std::getline(in, line)) {
    if (line.empty()) continue;
    ++rows;
    const auto d = ReportDescriptor(rows);
    std::ostringstream actual;
    actual << d->Code() << '|' << d->Description() << '|' << d->RequestName() << '|' << d->ReportType() << '|'
           << d->ReportGroup() << '|' << Flags(*d);
    EXPECT_EQ(actual.str(), line);
  }
  EXPECT_EQ(rows, kReportCount);
  EXPECT_EQ(ReportCatalog()->Count(), kReportCount);
}

TEST(ReportCatalog, ConnectionHandsOutTheFilledCatalogueAsAnEnumeration) {
  QBConnection c;
  auto reports = c.AvailableReports();
  ASSERT_EQ(reports->Count(), 89);
  // A descriptor stands as an enumeration row: found by its key and by its code.
  EXPECT_EQ(reports->Item(Variant("Trial Balance"))->Code(), qbRptTrialBalance);
  EXPECT_EQ(reports->ItemByCode(qbRptOpenPOs)->Description(), "Open Purchase Orders");
  EXPECT_EQ(c.ReportGroups()->ItemByCode(qbRptGrpCustom)->Description(), "Custom");
}

TEST(ReportCatalog, EnumerationLookupsAnswerTheRequestName) {
  LoadReportCatalog();
  EXPECT_EQ(EnumCodeToXML(qbRptOpenPOs, qoeReport), "OpenPOs");
  EXPECT_EQ(EnumCodeToXML(qbRptTrialBalance, qoeReport), "TrialBalance");
  EXPECT_EQ(EnumXMLToCode("CustomTxnDetail", qoeReport), qbRptCustomDetail);
}

TEST(ReportCatalog, LoadingTwiceKeepsOneCopy) {
  LoadReportCatalog();
  LoadReportCatalog();
  EXPECT_EQ(ReportCatalog()->Count(), 89);
}

TEST(ReportCatalog, CodesOutsideTheCatalogueAreUnknown) {
  EXPECT_EQ(testing::NumberRaised([] { ReportDescriptor(0); }), 0x800403EBu);
  EXPECT_EQ(testing::NumberRaised([] { ReportDescriptor(90); }), 0x800403EBu);
}

TEST(ReportCatalog, RequestNamesFindTheirReport) {
  EXPECT_EQ(FindReportByRequestName("OpenPOs")->Code(), qbRptOpenPOs);
  EXPECT_EQ(FindReportByRequestName("CustomTxnDetail")->Code(), qbRptCustomDetail);
  EXPECT_EQ(FindReportByRequestName("NoSuchReport"), nullptr);
}

}  // namespace
}  // namespace tessaron
