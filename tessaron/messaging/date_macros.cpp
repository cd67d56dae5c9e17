#include "tessaron/messaging/date_macros.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

std::string IsoDate(Date d) { return FormatDate(d, "yyyy-mm-dd"); }

std::string YearMonthFirst(int year, int month) {
  return std::to_string(year) + "-" + std::to_string(month) + "-01";
}

// The macros that ToDateMacroStart answers too.
std::string ToDateStart(const std::string& name, bool& known) {
  const Date today = DateOnly(Today());
  const DateParts now = SplitDate(today);
  known = true;
  if (name == "YearToDate") return std::to_string(now.year) + "-01-01";
  if (name == "MonthToDate") return YearMonthFirst(now.year, now.month);
  if (name == "WeekToDate") return IsoDate(today - (Weekday(today) - 1));
  if (name == "Today") return IsoDate(today);
  if (name == "Yesterday") return IsoDate(today - 1);
  known = false;
  return std::string();
}

}  // namespace

int CompanyFirstMonthFiscalYear() {
  const std::shared_ptr<Company>& company = State().CurrentCompany;
  if (!company) RaisePlatform(platform_error::kObjectNotSet);
  // The record keeps the month as its code in the "Month" table, as decimal text.
  return std::stoi(company->FirstMonthFiscalYear());
}

Date FiscalYearStart(int firstMonth, int yearsBack) {
  const DateParts now = SplitDate(Today());
  const int year = firstMonth > now.month ? now.year - 1 : now.year;
  // Month first, converted as text: a month outside 1..12 (a company record without its
  // first fiscal month gives 0) is a type mismatch, not a roll into another year.
  return ParseDate(std::to_string(firstMonth) + "/01/" + std::to_string(year - yearsBack));
}

std::string FiscalQuarterStart(Date fiscalYearStart, bool previous) {
  const DateParts start = SplitDate(fiscalYearStart);
  Date starts[5];
  for (int q = 0; q < 5; ++q) {
    int month = start.month + 3 * q;
    int year = start.year;
    while (month > 12) {
      month -= 12;
      ++year;
    }
    starts[q] = q == 0 ? DateOnly(fiscalYearStart) : DateSerial(year, month, 1);
  }
  const Date today = DateOnly(Today());
  for (int q = 0; q < 4; ++q) {
    if (today >= starts[q] && today < starts[q + 1]) {
      if (!previous) return IsoDate(starts[q]);
      return IsoDate(q > 0 ? starts[q - 1] : DateSerial(start.year, start.month - 3, 1));
    }
  }
  return std::string();
}

std::string FiscalPeriodEnd(Date date, bool wholeYear) {
  const DateParts d = SplitDate(date);
  if (wholeYear) return YearMonthFirst(d.year + 1, d.month);
  int month = d.month + 3;
  int year = d.year;
  if (month > 12) {
    month -= 12;
    ++year;
  }
  return YearMonthFirst(year, month);
}

std::string ToDateMacroStart(const std::string& name) {
  bool known = false;
  return ToDateStart(name, known);
}

std::string DateMacroStart(const std::string& name) {
  bool known = false;
  std::string text = ToDateStart(name, known);
  if (known) return text;
  const Date today = DateOnly(Today());
  const DateParts now = SplitDate(today);
  if (name == "ThisMonth") return YearMonthFirst(now.year, now.month);
  if (name == "ThisWeek") return IsoDate(today - (Weekday(today) - 1));
  if (name == "LastWeek") return IsoDate(today - (Weekday(today) - 1) - 7);
  if (name == "LastMonth") return YearMonthFirst(now.year, now.month - 1);  // January gives month 0
  if (name == "ThisFiscalYear") return IsoDate(FiscalYearStart(CompanyFirstMonthFiscalYear()));
  if (name == "LastFiscalYear") return FiscalPeriodEnd(FiscalYearStart(CompanyFirstMonthFiscalYear(), 1), true);
  if (name == "ThisFiscalQuarter") return FiscalQuarterStart(FiscalYearStart(CompanyFirstMonthFiscalYear()), false);
  if (name == "LastFiscalQuarter")
    return FiscalPeriodEnd(ParseDate(FiscalQuarterStart(FiscalYearStart(CompanyFirstMonthFiscalYear()), true)), false);
  return std::string();
}

}  // namespace tessaron
