#include "tessaron/platform/date.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

// Days from 1970-01-01 for a proleptic Gregorian date.
long DaysFromCivil(long y, unsigned m, unsigned d) {
  y -= m <= 2;
  const long era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long>(doe) - 719468;
}

void CivilFromDays(long z, int& y, int& m, int& d) {
  z += 719468;
  const long era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const long yy = static_cast<long>(yoe) + era * 400;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  y = static_cast<int>(yy + (m <= 2));
}

constexpr long kEpochOffset = 25569;  // 1970-01-01 as a day count from 1899-12-30
Date g_fixedNow = 0;

bool ReadInt(std::string_view s, size_t pos, size_t len, int& out) {
  if (pos + len > s.size() || len == 0) return false;
  int v = 0;
  for (size_t i = pos; i < pos + len; ++i) {
    char c = s[i];
    if (c < '0' || c > '9') return false;
    if (v > 99999999) return false;  // no part of a date is this long, and more digits would overflow
    v = v * 10 + (c - '0');
  }
  out = v;
  return true;
}

bool ValidDay(int y, int m, int d) {
  if (y < 100 || y > 9999 || m < 1 || m > 12 || d < 1) return false;
  static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  return d <= kDays[m - 1] + (m == 2 && leap ? 1 : 0);
}

// Reads "hh:mm[:ss]" (an optional " AM"/" PM" too); the rest of the text must be empty or a zone.
bool ParseTime(std::string_view s, int& h, int& mi, int& se) {
  size_t colon = s.find(':');
  if (colon == std::string_view::npos || colon == 0 || colon > 2) return false;
  if (!ReadInt(s, 0, colon, h) || !ReadInt(s, colon + 1, 2, mi)) return false;
  size_t pos = colon + 3;
  se = 0;
  if (pos < s.size() && s[pos] == ':') {
    if (!ReadInt(s, pos + 1, 2, se)) return false;
    pos += 3;
  }
  std::string_view rest = s.substr(pos);
  while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
  if (rest == "PM" || rest == "pm") { if (h < 12) h += 12; rest = {}; }
  else if (rest == "AM" || rest == "am") { if (h == 12) h = 0; rest = {}; }
  // A zone ("Z", "+hh:mm", "-hh:mm") or fractional seconds are dropped.
  if (!rest.empty() && rest.front() != 'Z' && rest.front() != '+' && rest.front() != '-' && rest.front() != '.')
    return false;
  return h < 24 && mi < 60 && se < 60;
}

}  // namespace

Date DateSerial(int year, int month, int day) {
  // Months roll into years first, then days roll freely.
  int y = year + (month - 1) / 12;
  int m = (month - 1) % 12;
  if (m < 0) { m += 12; --y; }
  if (y < 100 || y > 9999) RaisePlatform(platform_error::kInvalidArgument);
  long days = DaysFromCivil(y, static_cast<unsigned>(m + 1), 1) + (day - 1);
  return static_cast<Date>(days + kEpochOffset);
}

Date TimeSerial(int hour, int minute, int second) {
  return (hour * 3600.0 + minute * 60.0 + second) / 86400.0;
}

DateParts SplitDate(Date d) {
  DateParts p;
  double whole = std::trunc(d);
  double frac = std::fabs(d - whole);
  long secs = std::lround(frac * 86400.0);
  if (secs >= 86400) { secs -= 86400; whole += d < 0 ? -1 : 1; }
  CivilFromDays(static_cast<long>(whole) - kEpochOffset, p.year, p.month, p.day);
  p.hour = static_cast<int>(secs / 3600);
  p.minute = static_cast<int>(secs / 60 % 60);
  p.second = static_cast<int>(secs % 60);
  return p;
}

Date DateOnly(Date d) { return std::trunc(d); }

int Weekday(Date d) {
  long days = static_cast<long>(std::floor(d));
  // 1899-12-30 was a Saturday (7).
  long w = ((days % 7) + 7 + 6) % 7;  // 0 = Sunday
  return static_cast<int>(w) + 1;
}

Date AddMonths(Date d, int months) {
  DateParts p = SplitDate(d);
  int total = p.year * 12 + (p.month - 1) + months;
  int y = total / 12, m = total % 12 + 1;
  static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  int last = kDays[m - 1] + (m == 2 && leap ? 1 : 0);
  Date r = DateSerial(y, m, std::min(p.day, last));
  return r + TimeSerial(p.hour, p.minute, p.second);
}

bool TryParseDate(std::string_view s, Date& out) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  if (s.empty()) return false;
  int y = 0, m = 0, d = 0, h = 0, mi = 0, se = 0;
  std::string_view timePart;
  if (s.size() >= 10 && s[4] == '-' && s[7] == '-' && ReadInt(s, 0, 4, y) && ReadInt(s, 5, 2, m) &&
      ReadInt(s, 8, 2, d)) {
    if (s.size() > 10) {
      if (s[10] != 'T' && s[10] != ' ') return false;
      timePart = s.substr(11);
    }
  } else if (size_t a = s.find('-'); a == 4 && s.find('-', a + 1) != std::string_view::npos) {
    // "yyyy-m-d" with one-digit parts, and an optional time after a blank or a "T".
    size_t b = s.find('-', a + 1);
    size_t end = s.find_first_of(" T", b);
    std::string_view ds = s.substr(b + 1, end == std::string_view::npos ? std::string_view::npos : end - b - 1);
    if (!ReadInt(s, 0, 4, y) || b - a - 1 > 2 || ds.size() > 2 || !ReadInt(s, a + 1, b - a - 1, m) ||
        !ReadInt(ds, 0, ds.size(), d))
      return false;
    if (end != std::string_view::npos) timePart = s.substr(end + 1);
  } else if (s.find('/') != std::string_view::npos) {
    size_t a = s.find('/'), b = s.find('/', a + 1);
    if (b == std::string_view::npos) return false;
    size_t end = s.find(' ', b);
    std::string_view ys = s.substr(b + 1, end == std::string_view::npos ? std::string_view::npos : end - b - 1);
    if (!ReadInt(s, 0, a, m) || !ReadInt(s, a + 1, b - a - 1, d) || !ReadInt(ys, 0, ys.size(), y)) return false;
    if (ys.size() <= 2) y += y < 30 ? 2000 : 1900;
    if (end != std::string_view::npos) timePart = s.substr(end + 1);
  } else if (s.find(':') != std::string_view::npos) {
    if (!ParseTime(s, h, mi, se)) return false;
    out = TimeSerial(h, mi, se);
    return true;
  } else {
    return false;
  }
  if (!ValidDay(y, m, d)) return false;
  if (!timePart.empty() && !ParseTime(timePart, h, mi, se)) return false;
  out = DateSerial(y, m, d) + TimeSerial(h, mi, se);
  return true;
}

Date ParseDate(std::string_view text) {
  Date d = 0;
  if (!TryParseDate(text, d)) RaisePlatform(platform_error::kTypeMismatch);
  return d;
}

std::string FormatDate(Date d, std::string_view pattern) {
  DateParts p = SplitDate(d);
  std::string out;
  out.reserve(pattern.size() + 4);
  bool afterHour = false;
  char buf[16];
  for (size_t i = 0; i < pattern.size();) {
    char c = pattern[i];
    char lc = static_cast<char>(c | 0x20);
    size_t run = 1;
    while (i + run < pattern.size() && (pattern[i + run] | 0x20) == lc &&
           (lc == 'y' || lc == 'm' || lc == 'd' || lc == 'h' || lc == 'n' || lc == 's'))
      ++run;
    int value = -1, width = 2;
    switch (lc) {
      case 'y': value = p.year; width = run >= 4 ? 4 : 2; if (width == 2) value %= 100; break;
      case 'm': value = afterHour ? p.minute : p.month; afterHour = false; break;
      case 'd': value = p.day; break;
      case 'h': value = p.hour; afterHour = true; break;
      case 'n': value = p.minute; afterHour = false; break;
      case 's': value = p.second; break;
      default: break;
    }
    if (value >= 0) {
      if (run == 1 && lc != 'y') std::snprintf(buf, sizeof buf, "%d", value);
      else std::snprintf(buf, sizeof buf, width == 4 ? "%04d" : "%02d", value);
      out += buf;
    } else {
      out.append(pattern.substr(i, run));
    }
    i += run;
  }
  return out;
}

Date Now() {
  if (g_fixedNow != 0) return g_fixedNow;
  std::time_t t = std::time(nullptr);
  std::tm tm{};
  localtime_r(&t, &tm);
  return DateSerial(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday) + TimeSerial(tm.tm_hour, tm.tm_min, tm.tm_sec);
}

Date Today() { return DateOnly(Now()); }

void SetClockForTesting(Date fixedNow) { g_fixedNow = fixedNow; }

}  // namespace tessaron
