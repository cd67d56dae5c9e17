// Report filters as the request carries them, and saved requests read back.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/reports/report.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

std::string Written(rptFilters& f) {
  xmlBldr b;
  f.Write(b);
  return b.GetXML().ToString();
}

TEST(ReportFilters, TypeWinsOverNames) {
  rptFilters f;
  f.AccountFilter()->SetTypeFilter(9);  // Bank
  f.AccountFilter()->FullNames().Add("Checking");
  EXPECT_EQ(Written(f), "<ReportAccountFilter><AccountTypeFilter>Bank</AccountTypeFilter></ReportAccountFilter>");
}

TEST(ReportFilters, FiltersGoInTheOrderTheRequestWants) {
  rptFilters f;
  f.TxnTypes()->Add(13);  // Invoice
  f.ClassFilter()->ListIds().Add("80000001-1");
  f.ItemFilter()->FullNames().Add("Labor");
  f.EntityFilter()->SetTypeFilter(1);  // Customer
  f.AccountFilter()->FullNames().Add("Sales");
  EXPECT_EQ(Written(f),
            "<ReportAccountFilter><FullName>Sales</FullName></ReportAccountFilter>"
            "<ReportEntityFilter><EntityTypeFilter>Customer</EntityTypeFilter></ReportEntityFilter>"
            "<ReportItemFilter><FullName>Labor</FullName></ReportItemFilter>"
            "<ReportClassFilter><ListID>80000001-1</ListID></ReportClassFilter>"
            "<ReportTxnTypeFilter><TxnTypeFilter>Invoice</TxnTypeFilter></ReportTxnTypeFilter>");
}

TEST(ReportFilters, WithChildrenTakesOneNameOnly) {
  rptFilters f;
  f.EntityFilter()->FullNames().Add("Acme");
  f.EntityFilter()->SetWithChildren(true);
  EXPECT_EQ(Written(f), "<ReportEntityFilter><FullNameWithChildren>Acme</FullNameWithChildren></ReportEntityFilter>");
  f.EntityFilter()->FullNames().Add("Baker");
  auto e = testing::Raised([&] { Written(f); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), 0x80040640u);
  EXPECT_EQ(e->Source(), "Tessaron");
  EXPECT_EQ(e->Description(), "If WithChildren is specified only one name is allowed");
}

TEST(ReportFilters, EmptyOrUntouchedFiltersWriteNothing) {
  rptFilters untouched;
  EXPECT_EQ(Written(untouched), "");
  rptFilters cleared;
  cleared.Clear();  // makes each filter first
  cleared.AccountFilter();
  EXPECT_EQ(Written(cleared), "");
}

TEST(ReportFilters, ClearEmptiesEveryFilter) {
  rptFilters f;
  f.ItemFilter()->SetTypeFilter(1);
  f.ItemFilter()->SetWithChildren(true);
  f.TxnTypes()->Add(2);
  f.Clear();
  EXPECT_EQ(f.ItemFilter()->TypeFilter(), 0);
  EXPECT_FALSE(f.ItemFilter()->WithChildren());
  EXPECT_EQ(f.TxnTypes()->Count(), 0);
}

// ---- Saving and loading ----------------------------------------------------------------

TEST(ReportSaveLoad, SettingsSurviveASaveAndLoad) {
  Report saved;
  saved.SetBaseReport(qbRptGeneralLedger);
  saved.SetDateMacro(qbRptDateMacroCustom);
  saved.SetStartDate(DateSerial(2024, 1, 1));
  saved.SetEndDate(DateSerial(2024, 6, 30));
  saved.Filters()->AccountFilter()->FullNames().Add("Checking");
  saved.Filters()->EntityFilter()->ListIds().Add("80000002-1");
  saved.Filters()->EntityFilter()->SetWithChildren(true);
  saved.Filters()->TxnTypes()->Add(13);
  saved.SetSummarizeRowsBy(qbRptColSortCustomer);
  saved.ColumnHeaders().Add(qbRptFieldAmount);
  saved.ColumnHeaders().SetUserSet(true);
  saved.SetBalanceAsOfReportEndDate(true);
  saved.SetBasis("Cash");
  const std::string text = saved.SaveToXml();

  Report loaded;
  loaded.LoadFromXml(text);
  EXPECT_EQ(loaded.BaseReport(), qbRptGeneralLedger);
  EXPECT_EQ(loaded.DateMacro(), qbRptDateMacroCustom);
  EXPECT_EQ(loaded.StartDate(), DateSerial(2024, 1, 1));
  EXPECT_EQ(loaded.EndDate(), DateSerial(2024, 6, 30));
  EXPECT_EQ(loaded.Filters()->AccountFilter()->FullNames().Item(1), "Checking");
  EXPECT_EQ(loaded.Filters()->EntityFilter()->ListIds().Item(1), "80000002-1");
  EXPECT_TRUE(loaded.Filters()->EntityFilter()->WithChildren());
  EXPECT_EQ(loaded.Filters()->TxnTypes()->Item(1), 13);
  EXPECT_EQ(loaded.SummarizeRowsBy(), qbRptColSortCustomer);
  ASSERT_EQ(loaded.ColumnHeaders().Count(), 1);
  EXPECT_EQ(loaded.ColumnHeaders().Item(1)->Field(), qbRptFieldAmount);
  EXPECT_TRUE(loaded.BalanceAsOfReportEndDate());
  EXPECT_EQ(loaded.Basis(), "Cash");
  // What is loaded is asked again word for word.
  EXPECT_EQ(loaded.SaveToXml(), text);
}

TEST(ReportSaveLoad, MacroAndAgingReportTypeReadBack) {
  Report saved;
  saved.SetBaseReport(qbRptARAgingDetail);
  saved.SetDateMacro(qbRptDateMacroLastMonth);
  Report loaded;
  loaded.LoadFromXml(saved.SaveToXml());
  EXPECT_EQ(loaded.BaseReport(), qbRptARAgingDetail);
  EXPECT_EQ(loaded.DateMacro(), qbRptDateMacroLastMonth);
}

TEST(ReportSaveLoad, InUseAccountsReadsBackAsTheOppositeFlag) {
  Report saved;
  saved.SetBaseReport(qbRptGeneralLedger);
  saved.SetInUseAccountsOnly(true);
  Report loaded;
  loaded.SetInUseAccountsOnly(true);
  loaded.LoadFromXml(saved.SaveToXml());
  EXPECT_FALSE(loaded.InUseAccountsOnly());
}

TEST(ReportSaveLoad, AnElementItDoesNotKnowIsAFailure) {
  Report loaded;
  auto e = testing::Raised([&] {
    loaded.LoadFromXml("<GeneralSummaryReportQueryRq><GeneralSummaryReportType>TrialBalance</GeneralSummaryReportType>"
                       "<ReportCalendar>FiscalYear</ReportCalendar></GeneralSummaryReportQueryRq>");
  });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Description(), "Report.FromDOMString:  Unknow field:  ReportCalendar");
}

}  // namespace
}  // namespace tessaron
