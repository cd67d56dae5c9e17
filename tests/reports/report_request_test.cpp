// The text of report requests: one kind of request per report type, the options each
// kind takes, the qbXML 3.0 options below, at and above their version, the defaults of the
// custom reports, and the refusals Refresh rescues once.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/platform/date.h"
#include "tessaron/reports/report.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/raised.h"
#include "tests/support/scripted_processor.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::Contains;
using testing::Raised;
using testing::ScriptedProcessor;
using testing::ScriptedSession;

class PinnedClock : public ::testing::Test {
 protected:
  PinnedClock() { SetClockForTesting(DateSerial(2024, 5, 15)); }  // a Wednesday
  ~PinnedClock() override { SetClockForTesting(0); }
};

// One report of each kind, asked with a date macro and the accrual basis: the request is
// named by the kind, carries the report's request name, and is valid qbXML.
struct KindCase {
  int32_t report;
  const char* expected;
};

class ReportRequestByKind : public ::testing::TestWithParam<KindCase> {};

TEST_P(ReportRequestByKind, ComposesTheRequestOfItsKindAndPassesTheSchema) {
  ScriptedSession qb("4.0");
  Report r;
  r.SetBaseReport(GetParam().report);
  r.SetDateMacro(qbRptDateMacroThisYear);
  // Job and time reports take no basis (QuickBooks refuses it, see the retry below).
  const auto kind = ReportDescriptor(GetParam().report)->ReportType();
  if (kind != ReportTypeJob && kind != ReportTypeTime) r.SetBasis("accrual");
  EXPECT_EQ(r.SaveToXml(), GetParam().expected);
  r.Refresh();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

INSTANTIATE_TEST_SUITE_P(
    EachKind, ReportRequestByKind,
    ::testing::Values(
        KindCase{qbRptARAgingSummary,
                 "<AgingReportQueryRq><AgingReportType>ARAgingSummary</AgingReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro></AgingReportQueryRq>"},
        KindCase{qbRptProfitAndLossBudgetOverview,
                 "<BudgetSummaryReportQueryRq><BudgetSummaryReportType>ProfitAndLossBudgetOverview"
                 "</BudgetSummaryReportType><FiscalYear>2003</FiscalYear></BudgetSummaryReportQueryRq>"},
        KindCase{qbRptCustomSummary,
                 "<CustomSummaryReportQueryRq><CustomSummaryReportType>CustomSummary</CustomSummaryReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro><SummarizeColumnsBy>TotalOnly</SummarizeColumnsBy>"
                 "<SummarizeRowsBy>Account</SummarizeRowsBy><ReportBasis>Accrual</ReportBasis>"
                 "</CustomSummaryReportQueryRq>"},
        KindCase{qbRptCustomDetail,
                 "<CustomDetailReportQueryRq><CustomDetailReportType>CustomTxnDetail</CustomDetailReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro><SummarizeRowsBy>Account</SummarizeRowsBy>"
                 "<IncludeColumn>TxnType</IncludeColumn><IncludeColumn>Date</IncludeColumn>"
                 "<IncludeColumn>TxnNumber</IncludeColumn><IncludeColumn>Name</IncludeColumn>"
                 "<IncludeColumn>Memo</IncludeColumn><IncludeColumn>Account</IncludeColumn>"
                 "<IncludeColumn>Class</IncludeColumn><IncludeColumn>ClearedStatus</IncludeColumn>"
                 "<IncludeColumn>SplitAccount</IncludeColumn><IncludeColumn>Debit</IncludeColumn>"
                 "<IncludeColumn>Credit</IncludeColumn><IncludeColumn>OpenBalance</IncludeColumn>"
                 "<ReportBasis>Accrual</ReportBasis></CustomDetailReportQueryRq>"},
        KindCase{qbRptTrialBalance,
                 "<GeneralSummaryReportQueryRq><GeneralSummaryReportType>TrialBalance</GeneralSummaryReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro><ReportBasis>Accrual</ReportBasis>"
                 "</GeneralSummaryReportQueryRq>"},
        KindCase{qbRptOpenPOs,
                 "<GeneralDetailReportQueryRq><GeneralDetailReportType>OpenPOs</GeneralDetailReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro><ReportBasis>Accrual</ReportBasis>"
                 "</GeneralDetailReportQueryRq>"},
        KindCase{qbRptJobProfitabilitySummary,
                 "<JobReportQueryRq><JobReportType>JobProfitabilitySummary</JobReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro></JobReportQueryRq>"},
        KindCase{qbRptTimeByName,
                 "<TimeReportQueryRq><TimeReportType>TimeByName</TimeReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro></TimeReportQueryRq>"},
        KindCase{qbRptPayrollItemDetail,
                 "<PayrollDetailReportQueryRq><PayrollDetailReportType>PayrollItemDetail</PayrollDetailReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro></PayrollDetailReportQueryRq>"},
        KindCase{qbRptPayrollSummary,
                 "<PayrollSummaryReportQueryRq><PayrollSummaryReportType>PayrollSummary</PayrollSummaryReportType>"
                 "<ReportDateMacro>ThisYear</ReportDateMacro></PayrollSummaryReportQueryRq>"}));

// The two qbXML 3.0 filters: left out below 3.0, sent at and above it.
struct GateCase {
  const char* version;
  bool sent;
};

class ReportVersionGate : public ::testing::TestWithParam<GateCase> {};

TEST_P(ReportVersionGate, DisplayDetailLevelAndPostingStatusFollowTheSessionVersion) {
  ScriptedSession qb(GetParam().version);
  Report r;
  r.SetBaseReport(qbRptGeneralLedger);
  r.SetDetailLevelFilter(qbRptDetailLevelSummaryOnly);
  r.SetPostingStatusFilter(qbRptPostingStatusPosting);
  r.SetDisplayReport(true);
  const std::string text = r.SaveToXml();
  EXPECT_EQ(Contains(text, "<DisplayReport>true</DisplayReport>"), GetParam().sent);
  EXPECT_EQ(Contains(text, "<ReportDetailLevelFilter>SummaryOnly</ReportDetailLevelFilter>"), GetParam().sent);
  EXPECT_EQ(Contains(text, "<ReportPostingStatusFilter>Posting</ReportPostingStatusFilter>"), GetParam().sent);
  r.Refresh();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

INSTANTIATE_TEST_SUITE_P(BelowAtAbove, ReportVersionGate,
                         ::testing::Values(GateCase{"2.0", false}, GateCase{"3.0", true}, GateCase{"4.0", true}));

TEST_F(PinnedClock, CustomPeriodIsSentAsReportPeriodWithBothDates) {
  Report r;
  r.SetBaseReport(qbRptProfitAndLossStandard);
  r.SetDateMacro(qbRptDateMacroCustom);
  r.SetStartDate(DateSerial(2024, 1, 1));
  r.SetEndDate(DateSerial(2024, 3, 31));
  EXPECT_TRUE(Contains(r.SaveToXml(),
                       "<ReportPeriod><FromReportDate>2024-01-01</FromReportDate><ToReportDate>2024-03-31"
                       "</ToReportDate></ReportPeriod>"));
}

TEST_F(PinnedClock, BudgetReportsHaveNoPeriodWhateverTheMacro) {
  Report r;
  r.SetBaseReport(qbRptBalanceSheetBudgetOverview);
  r.SetDateMacro(qbRptDateMacroLastMonth);
  r.SetBudgetFiscalYear(2024);
  r.SetBudgetCriterion(qbRptBudgetCriterionAccountsAndClasses);
  r.SetBudgetSummarizeRowsBy(qbRptBudgetRowsByClass);
  EXPECT_EQ(r.SaveToXml(),
            "<BudgetSummaryReportQueryRq><BudgetSummaryReportType>BalanceSheetBudgetOverview"
            "</BudgetSummaryReportType><FiscalYear>2024</FiscalYear><BudgetCriterion>AccountsAndClasses"
            "</BudgetCriterion><SummarizeBudgetRowsBy>Class</SummarizeBudgetRowsBy></BudgetSummaryReportQueryRq>");
}

TEST_F(PinnedClock, ReportWithoutDatesIgnoresTheMacro) {
  Report r;
  r.SetBaseReport(qbRptPhysicalInventoryWorksheet);
  r.SetDateMacro(qbRptDateMacroThisMonth);
  r.SetReportCalendar(qbRptCalendarFiscalYear);
  const std::string text = r.SaveToXml();
  EXPECT_FALSE(Contains(text, "ReportDateMacro"));
  EXPECT_FALSE(Contains(text, "ReportCalendar"));
}

TEST_F(PinnedClock, SummaryOptionsGoInTheOrderTheRequestWants) {
  Report r;
  r.SetBaseReport(qbRptBalanceSheetStandard);
  r.SetSummarizeColumnsBy(qbRptColSortMonth);
  r.SetIncludeSubColumns(true);
  r.SetReportCalendar(qbRptCalendarCalendarYear);
  r.SetReturnRows(qbReportReturnNonZero);
  r.SetBasis("CASH");
  EXPECT_EQ(r.SaveToXml(),
            "<GeneralSummaryReportQueryRq><GeneralSummaryReportType>BalanceSheetStandard</GeneralSummaryReportType>"
            "<SummarizeColumnsBy>Month</SummarizeColumnsBy><IncludeSubcolumns>true</IncludeSubcolumns>"
            "<ReportCalendar>CalendarYear</ReportCalendar><ReturnRows>NonZero</ReturnRows>"
            "<ReportBasis>Cash</ReportBasis></GeneralSummaryReportQueryRq>");
  EXPECT_TRUE(testing::IsValidQbxml("<?xml version=\"1.0\"?><?qbxml version=\"12.0\"?><QBXML>"
                                    "<QBXMLMsgsRq onError=\"stopOnError\">" + r.SaveToXml() +
                                    "</QBXMLMsgsRq></QBXML>"));
}

TEST_F(PinnedClock, CustomSummaryTakesTotalOnlyColumnsAndDropsARowChoice) {
  Report r;
  r.SetBaseReport(qbRptCustomSummary);
  r.SetSummarizeRowsBy(qbRptColSortCustomer);
  const std::string text = r.SaveToXml();
  EXPECT_TRUE(Contains(text, "<SummarizeColumnsBy>TotalOnly</SummarizeColumnsBy><SummarizeRowsBy>Account<"));
  EXPECT_EQ(r.SummarizeColumnsBy(), qbRptColSortTotalOnly);
  EXPECT_EQ(r.SummarizeRowsBy(), 0);
}

TEST_F(PinnedClock, CustomDetailSendsTheColumnsTheApplicationChose) {
  Report r;
  r.SetBaseReport(qbRptCustomDetail);
  r.SetSummarizeRowsBy(qbRptColSortCustomer);
  r.ColumnHeaders().Add(qbRptFieldAmount);
  r.ColumnHeaders().SetUserSet(true);
  r.SetInUseAccountsOnly(true);
  r.SetBalanceAsOfReportEndDate(true);
  EXPECT_TRUE(Contains(r.SaveToXml(),
                       "<SummarizeRowsBy>Customer</SummarizeRowsBy><IncludeColumn>Amount</IncludeColumn>"
                       "<IncludeAccounts>InUse</IncludeAccounts><ReportOpenBalanceAsOf>ReportEndDate"
                       "</ReportOpenBalanceAsOf></CustomDetailReportQueryRq>"));
}

TEST(ReportRequest, BaseReportZeroIsRefused) {
  Report r;
  auto e = Raised([&] { r.SaveToXml(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), 0x80040A29u);
  EXPECT_EQ(e->Source(), "tessaron:Report");
  EXPECT_EQ(e->Description(), "Invalid BaseReport property.");
}

struct BasisCase {
  const char* given;
  const char* stored;
};
class ReportBasisSetter : public ::testing::TestWithParam<BasisCase> {};

TEST_P(ReportBasisSetter, StoresTheCanonicalSpelling) {
  Report r;
  r.SetBasis("Cash");
  r.SetBasis(GetParam().given);
  EXPECT_EQ(r.Basis(), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Values, ReportBasisSetter,
                         ::testing::Values(BasisCase{"cash", "Cash"}, BasisCase{"ACCRUAL", "Accrual"},
                                           BasisCase{"", ""}, BasisCase{"None", ""}));

TEST(ReportRequest, OtherBasisIsRefusedWithItsOwnSpelling) {
  Report r;
  auto e = Raised([&] { r.SetBasis("Modified"); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), 0x80040A2Au);
  EXPECT_EQ(e->Source(), "tessaron");
  EXPECT_EQ(e->Description(), "Basis must be Cash or Accural");
}

TEST(ReportRequest, AgingAndPayrollRequestsNeverCarryABasis) {
  for (int32_t report : {qbRptAPAgingDetail, qbRptPayrollItemDetail, qbRptPayrollSummary}) {
    Report r;
    r.SetBaseReport(report);
    r.SetBasis("Cash");
    EXPECT_FALSE(Contains(r.SaveToXml(), "ReportBasis")) << report;
  }
}

TEST(ReportDateMacro, SettingAMacroShowsItsPeriod) {
  SetClockForTesting(DateSerial(2024, 5, 15) + 0.5);  // Wednesday noon
  struct Case {
    int32_t macro;
    Date start, end;
  } cases[] = {
      {qbRptDateMacroToday, DateSerial(2024, 5, 15), DateSerial(2024, 5, 15)},
      {qbRptDateMacroThisWeek, DateSerial(2024, 5, 12), DateSerial(2024, 5, 18)},
      {qbRptDateMacroThisMonth, DateSerial(2024, 5, 1), DateSerial(2024, 5, 31)},
      {qbRptDateMacroThisQuarterToDate, DateSerial(2024, 4, 1), DateSerial(2024, 5, 15)},
      {qbRptDateMacroThisYear, DateSerial(2024, 1, 1), DateSerial(2024, 12, 31)},
      {qbRptDateMacroLastWeek, DateSerial(2024, 5, 5), DateSerial(2024, 5, 11)},
      {qbRptDateMacroLastMonth, DateSerial(2024, 4, 1), DateSerial(2024, 4, 30)},
      {qbRptDateMacroLastQuarter, DateSerial(2024, 1, 1), DateSerial(2024, 3, 31)},
      {qbRptDateMacroLastYearToDate, DateSerial(2023, 1, 1), DateSerial(2023, 5, 15)},
      {qbRptDateMacroNextMonth, DateSerial(2024, 6, 1), DateSerial(2024, 6, 30)},
      {qbRptDateMacroNextYear, DateSerial(2025, 1, 1), DateSerial(2025, 12, 31)},
  };
  for (const Case& c : cases) {
    Report r;
    r.SetDateMacro(c.macro);
    EXPECT_EQ(r.StartDate(), c.start) << c.macro;
    EXPECT_EQ(r.EndDate(), c.end) << c.macro;
  }
  Report custom;
  custom.SetStartDate(DateSerial(2020, 2, 2));
  custom.SetDateMacro(qbRptDateMacroCustom);
  custom.SetDateMacro(qbRptDateMacroAll);
  EXPECT_EQ(custom.StartDate(), DateSerial(2020, 2, 2));
  SetClockForTesting(0);
}

// ---- Refresh and its one retry ------------------------------------------------------

std::string Refused(const std::string& message) {
  return ScriptedProcessor::Response("GeneralSummaryReportQueryRs", "", 3151, message);
}

TEST(ReportRefresh, RefusedReturnRowsIsDroppedAndAskedOnceMore) {
  ScriptedSession qb("4.0");
  qb.processor().QueueResponse(Refused("The ReturnRows element is not valid for this report."));
  Report r;
  r.SetBaseReport(qbRptTrialBalance);
  r.SetReturnRows(qbReportReturnAll);
  r.SetBasis("Cash");
  qb.processor().ClearRecords();
  EXPECT_EQ(r.Refresh(), 0);
  ASSERT_EQ(qb.processor().Requests().size(), 2u);
  EXPECT_TRUE(Contains(qb.processor().Requests()[0], "<ReturnRows>All</ReturnRows>"));
  EXPECT_FALSE(Contains(qb.processor().Requests()[1], "ReturnRows"));
  EXPECT_TRUE(Contains(qb.processor().Requests()[1], "<ReportBasis>Cash</ReportBasis>"));
  EXPECT_EQ(r.ReturnRows(), 0);
}

TEST(ReportRefresh, OtherRefusedOptionDropsTheBasis) {
  ScriptedSession qb("4.0");
  qb.processor().QueueResponse(Refused("ReportBasis is not allowed."));
  Report r;
  r.SetBaseReport(qbRptTrialBalance);
  r.SetBasis("Cash");
  EXPECT_EQ(r.Refresh(), 0);
  EXPECT_EQ(r.Basis(), "");
}

TEST(ReportRefresh, RetriesAtMostOnceThenRaisesTheStatus) {
  ScriptedSession qb("4.0");
  qb.processor().QueueResponse(Refused("ReportBasis is not allowed."));
  qb.processor().QueueResponse(Refused("Still not allowed."));
  Report r;
  r.SetBaseReport(qbRptTrialBalance);
  r.SetBasis("Cash");
  qb.processor().ClearRecords();
  auto e = Raised([&] { r.Refresh(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Number(), 3151);
  EXPECT_EQ(e->Source(), "Tessaron:Reports");
  EXPECT_EQ(e->Description(), "Still not allowed.");
  EXPECT_EQ(qb.processor().Requests().size(), 2u);
}

TEST(ReportRefresh, DisplayedReportIsNotRead) {
  ScriptedSession qb("4.0");
  qb.processor().QueueResponse(ScriptedProcessor::Response(
      "GeneralSummaryReportQueryRs", "<ReportRet><ReportTitle>Shown</ReportTitle></ReportRet>"));
  Report r;
  r.SetBaseReport(qbRptTrialBalance);
  r.SetDisplayReport(true);
  EXPECT_EQ(r.Refresh(), 0);
  EXPECT_TRUE(Contains(qb.processor().LastRequest(), "<DisplayReport>true</DisplayReport>"));
  EXPECT_EQ(r.Title(), "");
}

}  // namespace
}  // namespace tessaron
