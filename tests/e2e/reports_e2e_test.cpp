// Reports end to end: every report of the catalogue asked of the company-file processor in
// strict mode and read back, and the figures an accountant checks first.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/platform/currency.h"
#include "tessaron/reports/report.h"
#include "tests/e2e/e2e_session.h"

namespace tessaron {
namespace {

using testing::EditionTest;

class ReportsEndToEnd : public EditionTest {};

Currency Amount(const rptRow& row, long column) {
  for (const auto& cell : row.Columns())
    if (cell->ID() == column) return Currency::Parse(cell->Text());
  return Currency(0);
}

std::shared_ptr<rptRow> TotalRow(Report& r) {
  for (const auto& row : r.ReportRows())
    if (row->RowType() == qbRptRowTypeTotal) return row;
  return nullptr;
}

TEST_P(ReportsEndToEnd, EveryReportOfTheCatalogueIsAnsweredAndRead) {
  for (int32_t code = 1; code <= kReportCount; ++code) {
    Report r;
    r.SetBaseReport(code);
    r.SetDateMacro(qbRptDateMacroThisYear);
    ASSERT_EQ(r.Refresh(), 0) << code;
    const auto d = ReportDescriptor(code);
    EXPECT_EQ(r.Title(), d->Description()) << code;
    EXPECT_EQ(r.ResponseName(), std::string(ReportTypePrefix(d->ReportType())) + "ReportQueryRs") << code;
    EXPECT_GE(r.ColumnHeaders().Count(), 2) << code;
    EXPECT_EQ(r.MaxColumns(), r.ColumnHeaders().Count()) << code;
    EXPECT_EQ(r.MaxRows(), r.ReportRows().Count()) << code;
  }
}

TEST_P(ReportsEndToEnd, TrialBalanceDebitsEqualCredits) {
  Report r;
  r.SetBaseReport(qbRptTrialBalance);
  r.SetBasis("Accrual");
  ASSERT_EQ(r.Refresh(), 0);
  EXPECT_EQ(r.Basis(), "Accrual");
  ASSERT_GT(r.ReportRows().Count(), 2);  // the sample company's invoices post to several accounts
  Currency debits(0), credits(0);
  for (const auto& row : r.ReportRows()) {
    if (row->RowType() != qbrptRowTypeData) continue;
    EXPECT_EQ(row->RowDataType(), "account");
    debits += Amount(*row, 2);
    credits += Amount(*row, 3);
  }
  auto total = TotalRow(r);
  ASSERT_TRUE(total);
  EXPECT_EQ(Amount(*total, 2), debits);
  EXPECT_EQ(Amount(*total, 3), credits);
  EXPECT_EQ(debits, credits);
  EXPECT_GT(debits, Currency(0));
}

TEST_P(ReportsEndToEnd, ReceivablesAgedAddUpToTheReceivablesAccount) {
  Report aging;
  aging.SetBaseReport(qbRptARAgingSummary);
  ASSERT_EQ(aging.Refresh(), 0);
  auto total = TotalRow(aging);
  ASSERT_TRUE(total);
  // Each customer's buckets add up to the customer's total.
  for (const auto& row : aging.ReportRows()) {
    if (row->RowType() != qbrptRowTypeData) continue;
    Currency buckets(0);
    for (long c = 2; c <= 6; ++c) buckets += Amount(*row, c);
    EXPECT_EQ(buckets, Amount(*row, 7)) << row->RowDataValue();
  }
  Report trial;
  trial.SetBaseReport(qbRptTrialBalance);
  ASSERT_EQ(trial.Refresh(), 0);
  Currency receivable(0);
  for (const auto& row : trial.ReportRows())
    if (row->RowType() == qbrptRowTypeData && row->Columns().Item(1)->Text().find("Receivable") != std::string::npos)
      receivable += Amount(*row, 2);
  EXPECT_GT(receivable, Currency(0));
  EXPECT_EQ(Amount(*total, 7), receivable);
}

// The amount of the first row whose first cell is `label`.
Currency AmountOf(Report& r, const std::string& label, long column = 2) {
  for (const auto& row : r.ReportRows())
    if (row->Columns().Count() && row->Columns().Item(1)->Text() == label) return Amount(*row, column);
  ADD_FAILURE() << "no row " << label;
  return Currency(0);
}

TEST_P(ReportsEndToEnd, BalanceSheetBalancesAndCarriesTheNetIncomeOfAllTime) {
  Report sheet;
  sheet.SetBaseReport(qbRptBalanceSheetStandard);
  ASSERT_EQ(sheet.Refresh(), 0);
  const Currency assets = AmountOf(sheet, "TOTAL ASSETS");
  EXPECT_GT(assets, Currency(0));
  EXPECT_EQ(assets, AmountOf(sheet, "TOTAL LIABILITIES & EQUITY"));

  Report profit;
  profit.SetBaseReport(qbRptProfitAndLossStandard);
  profit.SetDateMacro(qbRptDateMacroCustom);
  profit.SetStartDate(DateSerial(1990, 1, 1));
  profit.SetEndDate(Today());
  ASSERT_EQ(profit.Refresh(), 0);
  EXPECT_GT(AmountOf(profit, "Total Income"), Currency(0));
  EXPECT_EQ(AmountOf(profit, "Net Income"), AmountOf(sheet, "Net Income"));
}

TEST_P(ReportsEndToEnd, CustomerBalancesAddUpToTheAgedReceivables) {
  Report balances;
  balances.SetBaseReport(qbRptCustomerBalanceSummary);
  ASSERT_EQ(balances.Refresh(), 0);
  Report aging;
  aging.SetBaseReport(qbRptARAgingSummary);
  ASSERT_EQ(aging.Refresh(), 0);
  EXPECT_EQ(balances.ColumnHeaders().Count(), 2);
  EXPECT_EQ(AmountOf(balances, "TOTAL"), AmountOf(aging, "TOTAL", 7));
  EXPECT_EQ(balances.ReportRows().Count(), aging.ReportRows().Count());
}

TEST_P(ReportsEndToEnd, OpenDocumentsListTheAgedReceivablesOneByOne) {
  Report summary;
  summary.SetBaseReport(qbRptARAgingSummary);
  ASSERT_EQ(summary.Refresh(), 0);
  const Currency owed = AmountOf(summary, "TOTAL", 7);
  for (int32_t code : {qbRptARAgingDetail, qbRptOpenInvoices}) {
    Report detail;
    detail.SetBaseReport(code);
    ASSERT_EQ(detail.Refresh(), 0);
    Currency rows(0), subtotals(0);
    for (const auto& row : detail.ReportRows()) {
      if (row->RowType() == qbrptRowTypeData) rows += Amount(*row, 8);
      if (row->RowType() == qbRptRowTypeSubTotal) subtotals += Amount(*row, 8);
    }
    EXPECT_EQ(rows, owed) << code;
    EXPECT_EQ(subtotals, owed) << code;
    EXPECT_EQ(AmountOf(detail, "TOTAL", 8), owed) << code;
  }
}

TEST_P(ReportsEndToEnd, RowsAreIndentedAfterTheRead) {
  Report r;
  r.SetBaseReport(qbRptARAgingSummary);
  ASSERT_EQ(r.Refresh(), 0);
  for (const auto& row : r.ReportRows()) EXPECT_GE(row->IndentLevel(), 0);
}

TESSARON_ALL_EDITIONS(ReportsEndToEnd);

}  // namespace
}  // namespace tessaron
