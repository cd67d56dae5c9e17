// The first days of date-macro periods, with the clock pinned.
#include <gtest/gtest.h>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/messaging/date_macros.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/xml_dom.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

class PinnedClock : public ::testing::Test {
 protected:
  void TearDown() override { SetClockForTesting(0); }
  void Pin(int y, int m, int d) { SetClockForTesting(DateSerial(y, m, d) + TimeSerial(15, 45, 0)); }
};

struct MacroCase {
  int y, m, d;  // today; 2024-05-15 is a Wednesday
  const char* macro;
  const char* start;
};

class MacroStart : public PinnedClock, public ::testing::WithParamInterface<MacroCase> {};

TEST_P(MacroStart, GivesTheFirstDayOfThePeriod) {
  const MacroCase& c = GetParam();
  Pin(c.y, c.m, c.d);
  EXPECT_EQ(DateMacroStart(c.macro), c.start);
}

INSTANTIATE_TEST_SUITE_P(
    Macros, MacroStart,
    ::testing::Values(MacroCase{2024, 5, 15, "YearToDate", "2024-01-01"},
                      MacroCase{2024, 5, 15, "MonthToDate", "2024-5-01"},  // month without leading zero
                      MacroCase{2024, 5, 15, "ThisMonth", "2024-5-01"},
                      MacroCase{2024, 5, 15, "WeekToDate", "2024-05-12"},  // weeks start on Sunday
                      MacroCase{2024, 5, 12, "ThisWeek", "2024-05-12"},
                      MacroCase{2024, 5, 15, "Today", "2024-05-15"},
                      MacroCase{2024, 3, 1, "Yesterday", "2024-02-29"},
                      MacroCase{2024, 5, 15, "LastWeek", "2024-05-05"},
                      MacroCase{2024, 5, 15, "LastMonth", "2024-4-01"},
                      MacroCase{2024, 1, 10, "LastMonth", "2024-0-01"},  // kept: QuickBooks refuses it
                      MacroCase{2024, 5, 15, "NoSuchMacro", ""}));

TEST_F(PinnedClock, ToDateStartKnowsOnlyTheToDateMacros) {
  Pin(2024, 5, 15);
  EXPECT_EQ(ToDateMacroStart("YearToDate"), "2024-01-01");
  EXPECT_EQ(ToDateMacroStart("Yesterday"), "2024-05-14");
  EXPECT_EQ(ToDateMacroStart("ThisMonth"), "");
  EXPECT_EQ(ToDateMacroStart("LastWeek"), "");
}

TEST_F(PinnedClock, FiscalMacrosWithoutACompanyRaise91) {
  ResetLibraryStateForTesting();
  for (const char* name : {"ThisFiscalYear", "LastFiscalYear", "ThisFiscalQuarter", "LastFiscalQuarter"}) {
    try {
      DateMacroStart(name);
      ADD_FAILURE() << name;
    } catch (const Error& e) {
      EXPECT_EQ(e.Number(), platform_error::kObjectNotSet) << name;
    }
  }
}

TEST_F(PinnedClock, FiscalMacrosFollowTheFirstFiscalMonthOfTheCompany) {
  ResetLibraryStateForTesting();
  // "July" has the code 8 in the month table, as every month has: the fiscal year starts in
  // August.
  const std::string response = testing::ScriptedProcessor::Response(
      "CompanyQueryRs", "<CompanyRet><CompanyName>Fiscal</CompanyName>"
                        "<FirstMonthFiscalYear>July</FirstMonthFiscalYear></CompanyRet>");
  ASSERT_TRUE(testing::IsValidQbxml(response));
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML(response));
  auto company = std::make_shared<Company>();
  detail::ListObjectAccess::FromDom(*company, doc.childNodes().item(1).childNodes().item(0).childNodes().item(0));
  SetCurrentCompany(company);
  Pin(2024, 5, 15);
  EXPECT_EQ(DateMacroStart("ThisFiscalYear"), "2023-08-01");
  EXPECT_EQ(DateMacroStart("ThisFiscalQuarter"), "2024-05-01");
  EXPECT_EQ(DateMacroStart("LastFiscalYear"), "2023-8-01");
  ResetLibraryStateForTesting();
}

TEST_F(PinnedClock, FiscalYearStartsInTheCurrentYearUnlessItsMonthIsStillAhead) {
  Pin(2024, 5, 15);
  EXPECT_EQ(FiscalYearStart(1), DateSerial(2024, 1, 1));  // month 1 is never ahead
  EXPECT_EQ(FiscalYearStart(5), DateSerial(2024, 5, 1));
  EXPECT_EQ(FiscalYearStart(7), DateSerial(2023, 7, 1));
  EXPECT_EQ(FiscalYearStart(7, 1), DateSerial(2022, 7, 1));
  // A company record without its first fiscal month gives month 0, which is no date.
  try {
    FiscalYearStart(0);
    ADD_FAILURE() << "month 0 gave a date";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), platform_error::kTypeMismatch);
  }
}

struct QuarterCase {
  int y, m, d;  // today
  int fiscalStartYear, fiscalStartMonth;
  bool previous;
  const char* start;
};

class QuarterStart : public PinnedClock, public ::testing::WithParamInterface<QuarterCase> {};

TEST_P(QuarterStart, FindsTheQuarterThatHoldsToday) {
  const QuarterCase& c = GetParam();
  Pin(c.y, c.m, c.d);
  EXPECT_EQ(FiscalQuarterStart(DateSerial(c.fiscalStartYear, c.fiscalStartMonth, 1), c.previous), c.start);
}

INSTANTIATE_TEST_SUITE_P(
    Quarters, QuarterStart,
    ::testing::Values(QuarterCase{2024, 5, 15, 2024, 1, false, "2024-04-01"},
                      QuarterCase{2024, 5, 15, 2024, 1, true, "2024-01-01"},
                      QuarterCase{2024, 2, 1, 2024, 1, true, "2023-10-01"},  // the quarter before the first
                      QuarterCase{2024, 1, 15, 2023, 10, false, "2024-01-01"},  // across the turn of the year
                      QuarterCase{2024, 9, 30, 2023, 10, false, "2024-07-01"},
                      QuarterCase{2024, 10, 1, 2023, 10, false, ""}));  // outside the fiscal year

TEST(FiscalPeriodEnd, MovesAYearOrAQuarterOnWithoutLeadingZeros) {
  EXPECT_EQ(FiscalPeriodEnd(DateSerial(2023, 1, 1), true), "2024-1-01");
  EXPECT_EQ(FiscalPeriodEnd(DateSerial(2024, 4, 1), false), "2024-7-01");
  EXPECT_EQ(FiscalPeriodEnd(DateSerial(2024, 11, 1), false), "2025-2-01");
}

}  // namespace
}  // namespace tessaron
