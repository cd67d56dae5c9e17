// The periods that date macros of transaction queries stand for, on a pinned day.
#include <gtest/gtest.h>

#include "qbsim/date_range.h"
#include "tessaron/platform/date.h"

namespace tessaron::qbsim::testing {
namespace {

struct MacroCase {
  const char* macro;
  int firstFiscalMonth;
  const char* from;
  const char* to;
};

class DateMacroRangeTest : public ::testing::TestWithParam<MacroCase> {
 protected:
  // Wednesday 15 May 2024, in the afternoon.
  void SetUp() override { SetClockForTesting(DateSerial(2024, 5, 15) + 0.6); }
  void TearDown() override { SetClockForTesting(0); }
};

TEST_P(DateMacroRangeTest, MacroNamesItsPeriod) {
  const MacroCase& c = GetParam();
  auto range = DateMacroRange(c.macro, c.firstFiscalMonth);
  ASSERT_TRUE(range);
  EXPECT_EQ(range->first, c.from);
  EXPECT_EQ(range->second, c.to);
}

INSTANTIATE_TEST_SUITE_P(
    Periods, DateMacroRangeTest,
    ::testing::Values(MacroCase{"All", 1, "", ""}, MacroCase{"Today", 1, "2024-05-15", "2024-05-15"},
                      MacroCase{"Yesterday", 1, "2024-05-14", "2024-05-14"},
                      // Weeks start on Sunday.
                      MacroCase{"ThisWeek", 1, "2024-05-12", "2024-05-18"},
                      MacroCase{"LastWeekToDate", 1, "2024-05-05", "2024-05-08"},
                      MacroCase{"NextFourWeeks", 1, "2024-05-19", "2024-06-15"},
                      MacroCase{"ThisMonthToDate", 1, "2024-05-01", "2024-05-15"},
                      MacroCase{"LastMonth", 1, "2024-04-01", "2024-04-30"},
                      MacroCase{"ThisCalendarQuarter", 1, "2024-04-01", "2024-06-30"},
                      MacroCase{"LastCalendarYear", 1, "2023-01-01", "2023-12-31"},
                      // A fiscal year from July: May 2024 lies in the year that began July 2023.
                      MacroCase{"ThisFiscalYear", 7, "2023-07-01", "2024-06-30"},
                      MacroCase{"ThisFiscalQuarter", 7, "2024-04-01", "2024-06-30"},
                      MacroCase{"NextFiscalYear", 7, "2024-07-01", "2025-06-30"}));

TEST(DateMacroRange, AnUnknownNameIsNoMacro) { EXPECT_FALSE(DateMacroRange("Someday", 1)); }

}  // namespace
}  // namespace tessaron::qbsim::testing
