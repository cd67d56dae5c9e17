#include "tessaron/platform/currency.h"

#include <cmath>
#include <limits>

#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

// Divides with halves to even; b > 0.
int64_t DivRoundHalfEven(__int128 a, __int128 b) {
  bool neg = a < 0;
  if (neg) a = -a;
  __int128 q = a / b, r = a % b;
  if (2 * r > b || (2 * r == b && (q & 1))) ++q;
  if (q > std::numeric_limits<int64_t>::max()) RaisePlatform(platform_error::kOverflow);
  return static_cast<int64_t>(neg ? -q : q);
}

constexpr int64_t kPow10[] = {1, 10, 100, 1000, 10000};

}  // namespace

Currency Currency::FromDouble(double v) {
  double scaled = v * kScale;
  if (!std::isfinite(scaled) || std::fabs(scaled) > 9.2e18) RaisePlatform(platform_error::kOverflow);
  return FromRaw(static_cast<int64_t>(std::nearbyint(scaled)));  // default rounding: to nearest even
}

bool Currency::TryParse(std::string_view s, Currency& out) {
  size_t i = 0, n = s.size();
  while (i < n && (s[i] == ' ' || s[i] == '\t')) ++i;
  while (n > i && (s[n - 1] == ' ' || s[n - 1] == '\t')) --n;
  bool neg = false;
  if (i < n && (s[i] == '-' || s[i] == '+')) { neg = s[i] == '-'; ++i; }
  __int128 whole = 0;
  __int128 frac = 0;
  int fracDigits = 0;
  bool digits = false, point = false, roundUp = false, sticky = false;
  int roundDigit = -1;
  for (; i < n; ++i) {
    char c = s[i];
    if (c >= '0' && c <= '9') {
      digits = true;
      if (!point) {
        whole = whole * 10 + (c - '0');
        if (whole > (__int128{1} << 80)) return false;
      } else if (fracDigits < 4) {
        frac = frac * 10 + (c - '0');
        ++fracDigits;
      } else if (roundDigit < 0) {
        roundDigit = c - '0';
      } else if (c != '0') {
        sticky = true;
      }
    } else if (c == '.' && !point) {
      point = true;
    } else if (c == ',' && !point) {
      continue;  // thousands separator
    } else {
      return false;
    }
  }
  if (!digits) return false;
  while (fracDigits < 4) { frac *= 10; ++fracDigits; }
  __int128 raw = whole * kScale + frac;
  if (roundDigit > 5 || (roundDigit == 5 && (sticky || (raw & 1)))) roundUp = true;
  if (roundUp) ++raw;
  if (raw > std::numeric_limits<int64_t>::max()) return false;
  out = FromRaw(static_cast<int64_t>(neg ? -raw : raw));
  return true;
}

Currency Currency::Parse(std::string_view text) {
  Currency c;
  if (!TryParse(text, c)) RaisePlatform(platform_error::kTypeMismatch);
  return c;
}

void Currency::Overflow() { RaisePlatform(platform_error::kOverflow); }

Currency Currency::RoundHalfEven(int decimals) const {
  if (decimals >= 4) return *this;
  if (decimals < 0) decimals = 0;
  int64_t unit = kPow10[4 - decimals];
  int64_t rounded = 0;
  // Rounding the largest values up may leave the range.
  if (__builtin_mul_overflow(DivRoundHalfEven(raw_, unit), unit, &rounded)) Overflow();
  return FromRaw(rounded);
}

std::string Currency::ToString() const {
  std::string text = FormatCurrency(*this, "0.####");
  return text;
}

Currency operator*(Currency a, Currency b) {
  return Currency::FromRaw(DivRoundHalfEven(static_cast<__int128>(a.raw_) * b.raw_, Currency::kScale));
}

Currency operator/(Currency a, Currency b) {
  if (b.raw_ == 0) RaisePlatform(platform_error::kOverflow);
  __int128 num = static_cast<__int128>(a.raw_) * Currency::kScale;
  __int128 den = b.raw_;
  if (den < 0) { den = -den; num = -num; }
  return Currency::FromRaw(DivRoundHalfEven(num, den));
}

std::string FormatCurrency(Currency value, std::string_view pattern) {
  size_t point = pattern.find('.');
  std::string_view intPat = pattern.substr(0, point);
  std::string_view fracPat = point == std::string_view::npos ? std::string_view{} : pattern.substr(point + 1);
  int forcedFrac = 0, optionalFrac = 0;
  for (char c : fracPat) {
    if (c == '0') ++forcedFrac;
    else if (c == '#') ++optionalFrac;
  }
  int decimals = std::min(forcedFrac + optionalFrac, 4);
  int forcedInt = 0;
  bool grouping = false;
  for (char c : intPat) {
    if (c == '0') ++forcedInt;
    else if (c == ',') grouping = true;
  }
  int64_t raw = value.RoundHalfEven(decimals).Raw();
  bool neg = raw < 0;
  uint64_t mag = neg ? static_cast<uint64_t>(-(raw + 1)) + 1 : static_cast<uint64_t>(raw);
  uint64_t whole = mag / Currency::kScale;
  uint64_t frac = mag % Currency::kScale;

  std::string digits = whole == 0 ? std::string() : std::to_string(whole);
  if (static_cast<int>(digits.size()) < forcedInt) digits.insert(0, forcedInt - digits.size(), '0');
  if (grouping) {
    std::string grouped;
    int count = 0;
    for (size_t k = digits.size(); k-- > 0;) {
      grouped.push_back(digits[k]);
      if (++count % 3 == 0 && k > 0) grouped.push_back(',');
    }
    digits.assign(grouped.rbegin(), grouped.rend());
  }
  std::string out;
  if (neg && mag != 0) out.push_back('-');
  out += digits;
  if (decimals > 0) {
    std::string f = std::to_string(frac + Currency::kScale).substr(1, decimals);  // 4 digits, cut
    int keep = decimals;
    while (keep > forcedFrac && f[keep - 1] == '0') --keep;
    if (keep > 0 || forcedFrac > 0) {
      out.push_back('.');
      out.append(f, 0, keep);
    }
  }
  if (out.empty() || out == "-") out += "0";
  return out;
}

}  // namespace tessaron
