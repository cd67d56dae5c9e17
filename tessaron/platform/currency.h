// Exact fixed-point money: a signed 64-bit count of ten-thousandths.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaron {

class Currency {
 public:
  static constexpr int64_t kScale = 10000;

  constexpr Currency() = default;
  // Whole units: Currency(12) is 12.0000.
  constexpr Currency(int v) : raw_(int64_t{v} * kScale) {}  // NOLINT(google-explicit-constructor)
  // Rounds to the nearest ten-thousandth, halves to even (as the platform's conversion does).
  Currency(double) = delete;  // say FromDouble: a silent double-to-int cut loses money
  static Currency FromDouble(double v);
  static constexpr Currency FromRaw(int64_t raw) { Currency c; c.raw_ = raw; return c; }
  // Converts decimal text ("-12.5", "0000012.5000", "1,234.50", " 7 "); raises type mismatch
  // (13) when the text is not a number, overflow (6) when it does not fit.
  static Currency Parse(std::string_view text);
  // As Parse, but answers false instead of raising.
  static bool TryParse(std::string_view text, Currency& out);

  constexpr int64_t Raw() const { return raw_; }
  double ToDouble() const { return static_cast<double>(raw_) / kScale; }
  // Whole part, truncated toward zero.
  constexpr int64_t Whole() const { return raw_ / kScale; }

  // Rounds to `decimals` places (0..4), halves to even.
  Currency RoundHalfEven(int decimals) const;
  // Plain decimal text with the trailing zeros of the fraction removed: "12.5", "-3", "0".
  std::string ToString() const;

  constexpr auto operator<=>(const Currency&) const = default;
  // A result out of the range raises overflow (6), as the platform's arithmetic does.
  constexpr Currency operator-() const {
    if (raw_ == INT64_MIN) Overflow();
    return FromRaw(-raw_);
  }
  constexpr Currency& operator+=(Currency o) {
    if (__builtin_add_overflow(raw_, o.raw_, &raw_)) Overflow();
    return *this;
  }
  constexpr Currency& operator-=(Currency o) {
    if (__builtin_sub_overflow(raw_, o.raw_, &raw_)) Overflow();
    return *this;
  }
  friend constexpr Currency operator+(Currency a, Currency b) { return a += b; }
  friend constexpr Currency operator-(Currency a, Currency b) { return a -= b; }
  // Products and quotients are exact to the ten-thousandth, halves to even.
  friend Currency operator*(Currency a, Currency b);
  friend Currency operator/(Currency a, Currency b);

 private:
  [[noreturn]] static void Overflow();

  int64_t raw_ = 0;
};

// Formats with a number pattern of the platform's format function: '0' forced digit,
// '#' optional digit, ',' thousands separator (groups of three), '.' decimal point.
// Values are rounded half to even to the pattern's decimals. Examples:
// FormatCurrency(12.5, "0000000.0000") == "0000012.5000", FormatCurrency(-1234.5, "#,##0.00") == "-1,234.50".
std::string FormatCurrency(Currency value, std::string_view pattern);

}  // namespace tessaron
