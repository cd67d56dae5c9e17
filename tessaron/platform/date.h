// Dates as the platform holds them: days since 1899-12-30, the fraction is the time of day.
#pragma once

#include <string>
#include <string_view>

namespace tessaron {

using Date = double;

inline constexpr Date kNullDate = 0.0;  // "no date"; its text form is "None"

struct DateParts {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
};

// Builds a date from its parts. Month and day roll over as the platform's date serial does
// (month 13 is January of the next year, day 0 the last day of the month before); raises
// invalid argument (5) for years outside 100..9999.
Date DateSerial(int year, int month, int day);
Date TimeSerial(int hour, int minute, int second);
DateParts SplitDate(Date d);
// Whole days only.
Date DateOnly(Date d);
// 1 = Sunday ... 7 = Saturday.
int Weekday(Date d);
Date AddMonths(Date d, int months);

// The general text-to-date conversion: "yyyy-mm-dd", "yyyy-mm-dd hh:mm[:ss]",
// "yyyy-mm-ddThh:mm:ss[zone]", "m/d/yyyy" (month first) with an optional time, and
// "hh:mm[:ss]" alone. Raises type mismatch (13) for anything else.
Date ParseDate(std::string_view text);
bool TryParseDate(std::string_view text, Date& out);

// Formats with a date pattern: yyyy four-digit year; mm month (or minute right after hh
// or Hh), dd day, hh/Hh hour 00-23, Nn/nn minute, ss/Ss second, other characters as they
// stand. "yyyy-mm-ddTHh:Mm:Ss" and "yyyy-mm-dd Hh:Nn:Ss" are the forms the library uses.
std::string FormatDate(Date d, std::string_view pattern);

// The present local date and time, and the present date; both can be pinned for tests.
Date Now();
Date Today();
void SetClockForTesting(Date fixedNow);  // 0 restores the system clock

}  // namespace tessaron
