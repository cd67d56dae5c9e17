#include "qbsim/date_range.h"

#include "tessaron/platform/date.h"

namespace tessaron::qbsim {
namespace {

enum class Period { Day, Week, Month, Quarter, Year };

std::string Text(Date d) { return FormatDate(d, "yyyy-mm-dd"); }

// The first day of the period that holds `today`, moved by `offset` periods.
Date PeriodStart(Period p, Date today, int offset, int firstMonth) {
  DateParts t = SplitDate(today);
  switch (p) {
    case Period::Day: return today + offset;
    case Period::Week: return today - (Weekday(today) - 1) + 7 * offset;
    case Period::Month: return DateSerial(t.year, t.month + offset, 1);
    case Period::Quarter: {
      int sinceStart = ((t.month - firstMonth) % 12 + 12) % 12;
      return DateSerial(t.year, t.month - sinceStart % 3 + 3 * offset, 1);
    }
    case Period::Year: {
      int sinceStart = ((t.month - firstMonth) % 12 + 12) % 12;
      return DateSerial(t.year, t.month - sinceStart + 12 * offset, 1);
    }
  }
  return today;
}

Date PeriodEnd(Period p, Date start) {
  switch (p) {
    case Period::Day: return start;
    case Period::Week: return start + 6;
    case Period::Month: return AddMonths(start, 1) - 1;
    case Period::Quarter: return AddMonths(start, 3) - 1;
    case Period::Year: return AddMonths(start, 12) - 1;
  }
  return start;
}

struct Macro {
  const char* name;
  Period period;
  int offset;
  bool fiscal;
  bool toDate;  // ends today (or, for the last period, on the same day of it)
};

constexpr Macro kMacros[] = {
    {"Today", Period::Day, 0, false, false},
    {"Yesterday", Period::Day, -1, false, false},
    {"ThisWeek", Period::Week, 0, false, false},
    {"ThisWeekToDate", Period::Week, 0, false, true},
    {"ThisMonth", Period::Month, 0, false, false},
    {"ThisMonthToDate", Period::Month, 0, false, true},
    {"ThisCalendarQuarter", Period::Quarter, 0, false, false},
    {"ThisCalendarQuarterToDate", Period::Quarter, 0, false, true},
    {"ThisFiscalQuarter", Period::Quarter, 0, true, false},
    {"ThisFiscalQuarterToDate", Period::Quarter, 0, true, true},
    {"ThisCalendarYear", Period::Year, 0, false, false},
    {"ThisCalendarYearToDate", Period::Year, 0, false, true},
    {"ThisFiscalYear", Period::Year, 0, true, false},
    {"ThisFiscalYearToDate", Period::Year, 0, true, true},
    {"LastWeek", Period::Week, -1, false, false},
    {"LastWeekToDate", Period::Week, -1, false, true},
    {"LastMonth", Period::Month, -1, false, false},
    {"LastMonthToDate", Period::Month, -1, false, true},
    {"LastCalendarQuarter", Period::Quarter, -1, false, false},
    {"LastCalendarQuarterToDate", Period::Quarter, -1, false, true},
    {"LastFiscalQuarter", Period::Quarter, -1, true, false},
    {"LastFiscalQuarterToDate", Period::Quarter, -1, true, true},
    {"LastCalendarYear", Period::Year, -1, false, false},
    {"LastCalendarYearToDate", Period::Year, -1, false, true},
    {"LastFiscalYear", Period::Year, -1, true, false},
    {"LastFiscalYearToDate", Period::Year, -1, true, true},
    {"NextWeek", Period::Week, 1, false, false},
    {"NextMonth", Period::Month, 1, false, false},
    {"NextCalendarQuarter", Period::Quarter, 1, false, false},
    {"NextCalendarYear", Period::Year, 1, false, false},
    {"NextFiscalQuarter", Period::Quarter, 1, true, false},
    {"NextFiscalYear", Period::Year, 1, true, false},
};

}  // namespace

std::optional<std::pair<std::string, std::string>> DateMacroRange(std::string_view macro, int firstFiscalMonth) {
  if (macro == "All") return std::pair<std::string, std::string>{};
  Date today = Today();
  if (macro == "NextFourWeeks") {
    Date start = PeriodStart(Period::Week, today, 1, 1);
    return std::pair{Text(start), Text(start + 27)};
  }
  for (const Macro& m : kMacros) {
    if (macro != m.name) continue;
    int first = m.fiscal ? firstFiscalMonth : 1;
    Date start = PeriodStart(m.period, today, m.offset, first);
    Date end = PeriodEnd(m.period, start);
    if (m.toDate) {
      // The same stretch of the period as today is of the current one.
      Date current = PeriodStart(m.period, today, 0, first);
      end = start + (today - current);
    }
    return std::pair{Text(start), Text(end)};
  }
  return std::nullopt;
}

}  // namespace tessaron::qbsim
