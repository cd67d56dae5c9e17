#include "qbsim/values.h"

#include <ctime>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/text.h"

namespace tessaron::qbsim {
namespace {

enum class Decimals { Two, AtLeastTwo, AsNeeded };

std::optional<std::string> CanonicalDecimal(std::string_view text, Decimals decimals, bool percent = false) {
  text = Trim(text);
  if (percent && !text.empty() && text.back() == '%') text = Trim(text.substr(0, text.size() - 1));
  // Digits, one point and a leading sign only: the thousands separators that the general
  // conversion takes have no place in a qbXML value.
  size_t digits = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c >= '0' && c <= '9') ++digits;
    else if (!((c == '-' || c == '+') && i == 0) && c != '.') return std::nullopt;
  }
  Currency v;
  if (digits == 0 || !Currency::TryParse(text, v)) return std::nullopt;
  switch (decimals) {
    case Decimals::Two: return FormatCurrency(v.RoundHalfEven(2), "0.00");
    case Decimals::AtLeastTwo: return FormatCurrency(v, "0.00##");
    case Decimals::AsNeeded: break;
  }
  return v.ToString();
}

}  // namespace

std::optional<std::string> Canonical(ValueType type, std::string_view text, std::span<const char* const> enumValues) {
  std::string_view t = Trim(text);
  if (t.empty()) return std::string();
  switch (type) {
    case ValueType::Text:
      return std::string(text);
    case ValueType::Bool:
      if (t == "1" || EqualsIgnoreCase(t, "true")) return std::string("true");
      if (t == "0" || EqualsIgnoreCase(t, "false")) return std::string("false");
      return std::nullopt;
    case ValueType::Amount:
      return CanonicalDecimal(t, Decimals::Two);
    case ValueType::Price:
      return CanonicalDecimal(t, Decimals::AtLeastTwo);
    case ValueType::Quantity:
      return CanonicalDecimal(t, Decimals::AsNeeded);
    case ValueType::Percent:
      return CanonicalDecimal(t, Decimals::AtLeastTwo, true);
    case ValueType::Integer: {
      size_t i = (t[0] == '-' || t[0] == '+') ? 1 : 0;
      if (i == t.size()) return std::nullopt;
      for (size_t j = i; j < t.size(); ++j)
        if (t[j] < '0' || t[j] > '9') return std::nullopt;
      long long v = 0;
      for (size_t j = i; j < t.size(); ++j) {
        v = v * 10 + (t[j] - '0');
        if (v > 2147483647LL) return std::nullopt;
      }
      return std::to_string(t[0] == '-' ? -v : v);
    }
    case ValueType::Date: {
      if (EqualsIgnoreCase(t, "None")) return std::string();
      Date d;
      if (t.size() != 10 || !TryParseDate(t, d)) return std::nullopt;
      return FormatDate(d, "yyyy-mm-dd");
    }
    case ValueType::Enum:
      for (const char* v : enumValues)
        if (EqualsIgnoreCase(t, v)) return std::string(v);
      return std::nullopt;
  }
  return std::nullopt;
}

std::string TimestampNow() {
  std::string text = FormatDate(Now(), "yyyy-mm-ddTHh:Nn:Ss");
  std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  long offset = local.tm_gmtoff / 60;
  char zone[32];
  std::snprintf(zone, sizeof zone, "%c%02ld:%02ld", offset < 0 ? '-' : '+', std::labs(offset) / 60,
                std::labs(offset) % 60);
  return text + zone;
}

bool ParseTimestamp(std::string_view text, double& out) {
  text = Trim(text);
  // The zone of a stored timestamp is always the local one; cut it off before converting.
  if (text.size() > 19 && (text[19] == '+' || text[19] == '-')) text = text.substr(0, 19);
  return TryParseDate(text, out);
}

}  // namespace tessaron::qbsim
