// The identities an accountant checks on any set of books, asked through the library of the
// company-file processor in both bases: the Balance Sheet balances and carries the net
// income of the Profit and Loss, the Trial Balance's debits equal its credits, what is aged
// as receivable is the receivable account and the customers' balances, and a report split
// by month adds up to its total.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/lists/customers.h"
#include "tessaron/platform/currency.h"
#include "tessaron/reports/report.h"
#include "tests/e2e/e2e_session.h"

namespace tessaron {
namespace {

using testing::EditionTest;

class ReportIdentities : public EditionTest {
 protected:
  static Currency Cell(const rptRow& row, long column) {
    for (const auto& cell : row.Columns())
      if (cell->ID() == column) return Currency::Parse(cell->Text());
    return Currency(0);
  }
  // The amount in `column` of the first row labelled `label`; column 0: the last column.
  static Currency Of(Report& r, const std::string& label, long column = 0) {
    for (const auto& row : r.ReportRows())
      if (row->Columns().Count() && row->Columns().Item(1)->Text() == label)
        return Cell(*row, column ? column : r.ColumnHeaders().Count());
    return Currency(0);
  }
  // A report of all time up to today in that basis.
  static std::unique_ptr<Report> Run(int32_t code, const std::string& basis, int32_t columnsBy = 0) {
    auto r = std::make_unique<Report>();
    r->SetBaseReport(code);
    r->SetDateMacro(qbRptDateMacroCustom);
    r->SetStartDate(DateSerial(1990, 1, 1));
    r->SetEndDate(Today());
    r->SetBasis(basis);
    if (columnsBy) r->SetSummarizeColumnsBy(columnsBy);
    EXPECT_EQ(r->Refresh(), 0);
    return r;
  }
};

constexpr const char* kBases[] = {"Accrual", "Cash"};

TEST_P(ReportIdentities, BalanceSheetBalancesInBothBases) {
  for (const char* basis : kBases) {
    auto sheet = Run(qbRptBalanceSheetStandard, basis);
    EXPECT_EQ(sheet->Basis(), basis);
    EXPECT_GT(Of(*sheet, "TOTAL ASSETS"), Currency(0)) << basis;
    EXPECT_EQ(Of(*sheet, "TOTAL ASSETS"), Of(*sheet, "TOTAL LIABILITIES & EQUITY")) << basis;
  }
}

TEST_P(ReportIdentities, NetIncomeOfTheProfitAndLossIsTheBalanceSheets) {
  for (const char* basis : kBases) {
    auto profit = Run(qbRptProfitAndLossStandard, basis);
    auto sheet = Run(qbRptBalanceSheetStandard, basis);
    EXPECT_EQ(Of(*profit, "Net Income"), Of(*sheet, "Net Income")) << basis;
  }
  // The sample's unpaid invoices make the two bases differ.
  EXPECT_NE(Of(*Run(qbRptProfitAndLossStandard, "Accrual"), "Net Income"),
            Of(*Run(qbRptProfitAndLossStandard, "Cash"), "Net Income"));
}

TEST_P(ReportIdentities, TrialBalanceDebitsEqualCreditsInBothBases) {
  for (const char* basis : kBases) {
    auto trial = Run(qbRptTrialBalance, basis);
    Currency debits(0), credits(0);
    for (const auto& row : trial->ReportRows()) {
      if (row->RowType() != qbrptRowTypeData) continue;
      debits += Cell(*row, 2);
      credits += Cell(*row, 3);
    }
    EXPECT_GT(debits, Currency(0)) << basis;
    EXPECT_EQ(debits, credits) << basis;
    EXPECT_EQ(Of(*trial, "TOTAL", 2), Of(*trial, "TOTAL", 3)) << basis;
  }
}

TEST_P(ReportIdentities, AgedReceivablesAreTheReceivableAccountAndTheCustomersBalances) {
  auto aging = Run(qbRptARAgingSummary, "");
  const Currency aged = Of(*aging, "TOTAL");
  EXPECT_GT(aged, Currency(0));
  // The receivable accounts on the accrual Balance Sheet.
  auto sheet = Run(qbRptBalanceSheetStandard, "Accrual");
  Currency receivable(0);
  for (const auto& row : sheet->ReportRows())
    if (row->RowType() == qbrptRowTypeData && row->RowDataValue().find("Receivable") != std::string::npos)
      receivable += Cell(*row, 2);
  EXPECT_EQ(aged, receivable);
  // Each customer's and job's own balance, as the customer list reads it.
  auto customers = TessaronGlobals::Customers();
  customers->GetAll();
  Currency balances(0);
  for (const auto& c : *customers) balances += c->Balance();
  EXPECT_EQ(aged, balances);
  EXPECT_EQ(aged, Of(*Run(qbRptCustomerBalanceSummary, "Accrual"), "TOTAL"));
}

TEST_P(ReportIdentities, ProfitAndLossByMonthAddsUpToItsTotal) {
  for (const char* basis : kBases) {
    auto months = Run(qbRptProfitAndLossStandard, basis, qbRptColSortMonth);
    const long n = months->ColumnHeaders().Count();
    ASSERT_GE(n, 4) << "a label, months and the total";
    EXPECT_EQ(months->ColumnHeaders().Item(n)->Title(), "TOTAL");
    for (const auto& row : months->ReportRows()) {
      if (row->RowType() == qbRptRowTypeText) continue;
      Currency sum(0);
      for (long c = 2; c < n; ++c) sum += Cell(*row, c);
      EXPECT_EQ(sum, Cell(*row, n)) << basis << " " << row->Columns().Item(1)->Text();
    }
    auto total = Run(qbRptProfitAndLossStandard, basis);
    EXPECT_EQ(Of(*months, "Net Income"), Of(*total, "Net Income")) << basis;
  }
}

TESSARON_ALL_EDITIONS(ReportIdentities);

}  // namespace
}  // namespace tessaron
