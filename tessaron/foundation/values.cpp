#include "tessaron/foundation/values.h"

#include <climits>
#include <fstream>
#include <sstream>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron {
namespace {

// The part of `s` from 1-based `start`, at most `length` characters, as the platform's
// Mid cuts it: nothing when the start lies behind the end.
std::string_view Mid(std::string_view s, size_t start, size_t length) {
  if (start > s.size()) return {};
  return s.substr(start - 1, length);
}

// A 16-bit integer from text as the platform converts it: blanks around, an optional sign,
// digits, and an optional fraction that rounds half to even.
bool ToInt16(std::string_view s, int& out) {
  s = Trim(s);
  Currency c;
  if (s.empty() || !Currency::TryParse(s, c)) return false;
  int64_t v = c.RoundHalfEven(0).Whole();
  if (v < INT16_MIN || v > INT16_MAX) return false;
  out = static_cast<int>(v);
  return true;
}

// The number at 1-based `start`, `length` characters, when they are all digits (what
// QuickBooks sends): the same value ToInt16 gives, without its general parse.
bool Digits(std::string_view s, size_t start, size_t length, int& out) {
  if (start - 1 + length > s.size()) return false;
  int v = 0;
  for (size_t i = start - 1; i < start - 1 + length; ++i) {
    const unsigned digit = static_cast<unsigned char>(s[i]) - '0';
    if (digit > 9) return false;
    v = v * 10 + static_cast<int>(digit);
  }
  out = v;
  return true;
}

// A part of the date by position: digits directly, anything else as the platform converts it.
bool Part(std::string_view s, size_t start, size_t length, int& out) {
  return Digits(s, start, length, out) || ToInt16(Mid(s, start, length), out);
}

// The date read by the positions of "yyyy-mm-dd" and "yyyy-mm-ddThh:mm:ss".
bool DateByPosition(std::string_view s, Date& out) {
  int y, m, d;
  if (!Part(s, 1, 4, y) || !Part(s, 6, 2, m) || !Part(s, 9, 2, d)) return false;
  if (s.size() < 11) {
    if (y < 100 || y > 9999) return false;  // DateSerial's own range
    out = DateSerial(y, m, d);
    return true;
  }
  int h, mi, se;
  if (!Part(s, 12, 2, h) || !Part(s, 15, 2, mi) || !Part(s, 18, 2, se)) return false;
  // The parts are joined into text and converted, which checks every part: no roll-over.
  static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (y < 100 || y > 9999 || m < 1 || m > 12 || d < 1) return false;
  bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  if (d > kDays[m - 1] + (m == 2 && leap ? 1 : 0)) return false;
  if (h < 0 || h > 23 || mi < 0 || mi > 59 || se < 0 || se > 59) return false;
  out = DateSerial(y, m, d) + TimeSerial(h, mi, se);
  return true;
}

bool Contains(std::string_view s, std::string_view what) { return s.find(what) != std::string_view::npos; }

UnknownFieldHook g_unknownFieldHook;
int32_t g_pendingKeys = 0;

constexpr std::string_view kUnknownFieldPrefix = "Unknown Field: ";

}  // namespace

Currency CurrencyFromText(std::string& text) {
  if (text.empty()) return Currency();
  if (text.back() == '%') text.pop_back();
  return Currency::Parse(text);
}

Currency CurrencyFromText(std::string_view text) {
  if (text.empty()) return Currency();
  if (text.back() == '%') text.remove_suffix(1);
  return Currency::Parse(text);
}

Date DateFromText(std::string_view text) {
  if (text == "None") return kNullDate;
  Date d = kNullDate;
  if (DateByPosition(text, d)) return d;
  if (text.empty()) return kNullDate;
  return ParseDate(text);
}

bool BooleanFromText(std::string_view text) {
  text = Trim(text);
  if (text.empty()) return false;
  if (EqualsIgnoreCase(text, "true")) return true;
  if (EqualsIgnoreCase(text, "false")) return false;
  Currency c;
  if (!Currency::TryParse(text, c)) RaisePlatform(platform_error::kTypeMismatch);
  return c.Raw() != 0;
}

std::string DateToText(Date value) { return value == kNullDate ? "None" : FormatDate(value, "yyyy-mm-dd"); }

std::string DateTimeToText(Date value) {
  if (value == kNullDate) return "None";
  if (State().QBXMLVersionNumber < Currency(2)) return FormatDate(value, "yyyy-mm-dd");
  return FormatDate(value, "yyyy-mm-ddTHh:Mm:Ss");
}

std::string QuantityToText(Currency value) { return FormatCurrency(value, "0000000.0000"); }

std::string PercentRateToText(Currency value) { return FormatCurrency(value, "0000000.0000"); }

std::string AmountToText(Currency value) {
  // The pattern rounds half to even; the added thousandth makes a final 5 round up.
  return FormatCurrency(value + Currency::FromRaw(10), "#######0.00");
}

std::string AmountToDisplayText(Currency value) { return FormatCurrency(value, "#,##0.00"); }

std::string BooleanToText(bool value) { return value ? "1" : "0"; }

std::string DecodeEntities(std::string_view text) {
  std::string s(text);
  for (;;) {
    if (!Contains(s, "#64;") && !Contains(s, "&apos;") && !Contains(s, "&gt;") && !Contains(s, "&amp;") &&
        !Contains(s, "&lt") && !Contains(s, "&quot;"))
      break;
    std::string next = ReplaceAll(s, "&amp;", "&");
    next = ReplaceAll(next, "&lt;", "<");
    next = ReplaceAll(next, "&quot;", "\"");
    next = ReplaceAll(next, "&apos;", "'");
    next = ReplaceAll(next, "&gt;", ">");
    next = ReplaceAll(next, "#64;", "@");
    // "&lt" without its semicolon passes the test above but is never replaced.
    if (next == s) break;
    s = std::move(next);
  }
  return s;
}

void DecodeEntitiesInArray(std::vector<std::string>& texts) {
  for (auto& t : texts) t = DecodeEntities(t);
}

std::string RemoveSpaces(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text)
    if (c != ' ') out.push_back(c);
  return out;
}

Variant RemoveSpaces(const Variant& value) {
  if (!value.IsString()) return value;
  return Variant(RemoveSpaces(std::string_view(value.ToString())));
}

std::string NextPendingKey() {
  if (g_pendingKeys == INT32_MAX) RaisePlatform(platform_error::kOverflow);
  return std::to_string(++g_pendingKeys) + "Pending";
}

void ResetPendingKeysForTesting() { g_pendingKeys = 0; }

void RequireVersion(Currency minimum) {
  if (State().QBXMLVersionNumber < minimum) RaiseError(err::kVersionNotSupported, "Tessaron");
}

void RequireVersionForChange(Currency minimum, int32_t& state) {
  switch (state) {
    case qoObjectStateClean:
      RequireVersion(minimum);
      state = qoObjectStateDirty;
      break;
    case qoObjectStateDirty:
      RequireVersion(minimum);
      break;
    default:  // New: tested when it is sent; anything else is not a state
      break;
  }
}

void RaiseInternal(const std::string& className, const std::string& message) {
  throw Error(err::kInternal, "Tessaron: " + className, message);
}

void RaiseNotAvailable(const std::string& source, const std::string& what) {
  throw Error(err::kFeatureNotSupported, source, what + " is not available in this version of Tessaron.");
}

void NoteUnknownField(std::string_view message, std::string_view tag) {
  if (g_unknownFieldHook) g_unknownFieldHook(message, tag);
}

void NoteUnknownElement(std::string_view elementName, std::string_view tag) {
  if (!g_unknownFieldHook) return;
  std::string message(kUnknownFieldPrefix);
  message += elementName;
  g_unknownFieldHook(message, tag);
}

void SetUnknownFieldHook(UnknownFieldHook hook) { g_unknownFieldHook = std::move(hook); }

std::string ReadIniValue(const std::string& file, const std::string& section, const std::string& key) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return {};
  std::ostringstream whole;
  whole << in.rdbuf();
  std::string_view all = whole.view();
  if (all.substr(0, 3) == "\xEF\xBB\xBF") all.remove_prefix(3);

  bool inSection = false;
  while (!all.empty()) {
    size_t eol = all.find('\n');
    std::string_view line = Trim(all.substr(0, eol));
    all = eol == std::string_view::npos ? std::string_view{} : all.substr(eol + 1);
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      size_t close = line.find(']');
      std::string_view name = Trim(line.substr(1, close == std::string_view::npos ? std::string_view::npos : close - 1));
      inSection = EqualsIgnoreCase(name, Trim(section));
      continue;
    }
    if (!inSection) continue;
    size_t eq = line.find('=');
    if (eq == std::string_view::npos || !EqualsIgnoreCase(Trim(line.substr(0, eq)), Trim(key))) continue;
    std::string_view value = Trim(line.substr(eq + 1));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
      value = value.substr(1, value.size() - 2);
    // The platform's read fills a 255-character buffer, whose last place holds the NUL.
    value = value.substr(0, value.find('\0'));
    return std::string(Utf16Left(value, 254));
  }
  return {};
}

}  // namespace tessaron
