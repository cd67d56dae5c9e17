// The first day of a period named by a date macro, as text, for those who need the dates
// themselves: requests send date macros to QuickBooks by name ("DateMacro"), so no class of
// the library calls these. "Today" is the system's date (pinnable for tests).
#pragma once

#include <string>

#include "tessaron/platform/date.h"

namespace tessaron {

// The first day of the period of a macro: "YearToDate", "MonthToDate"/"ThisMonth",
// "WeekToDate"/"ThisWeek" (weeks start on Sunday), "Today", "Yesterday", "LastWeek",
// "LastMonth", "ThisFiscalYear", "LastFiscalYear", "ThisFiscalQuarter",
// "LastFiscalQuarter"; any other name gives the empty text. The month forms write the
// month without a leading zero ("2024-5-01"), and "LastMonth" in January writes month 0,
// which QuickBooks refuses. The fiscal forms need the company's first fiscal month and
// raise error 91 while there is no company. "LastFiscalYear" and "LastFiscalQuarter"
// answer through FiscalPeriodEnd, as they always have.
std::string DateMacroStart(const std::string& name);
// DateMacroStart for "YearToDate", "MonthToDate", "WeekToDate", "Today" and "Yesterday"
// only; the empty text for any other name.
std::string ToDateMacroStart(const std::string& name);

// The start of the fiscal year that holds today (yearsBack 0) or of an earlier one, for a
// fiscal year that begins on the first of `firstMonth`; a month outside 1..12 raises type
// mismatch (13).
Date FiscalYearStart(int firstMonth, int yearsBack = 0);
// The start of the fiscal quarter that holds today ("yyyy-mm-dd"), or with `previous` of the
// quarter before it; quarters start at `fiscalYearStart` and every three months after it.
// Empty when today lies in none of the four.
std::string FiscalQuarterStart(Date fiscalYearStart, bool previous);
// With `wholeYear` the first of the same month one year on, otherwise three months on,
// as year, month without a leading zero, "01".
std::string FiscalPeriodEnd(Date date, bool wholeYear);

// Company.FirstMonthFiscalYear of the current company; error 91 when there is none.
int CompanyFirstMonthFiscalYear();

}  // namespace tessaron
