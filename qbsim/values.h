// The value types of qbXML elements and the canonical text forms the company file keeps.
// Requests arrive in the library's forms ("1"/"0", "0000012.5000", "None"); responses go
// out in the forms QuickBooks writes ("true", "2.5" for a quantity, "11.00" for a price,
// "123.40" for an amount).
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tessaron::qbsim {

enum class ValueType {
  Text,      // as it stands
  Bool,      // "true" / "false"
  Amount,    // two decimals: "-123.40"
  Price,     // prices, costs and rates: two decimals or more as needed ("11.00", "12.125")
  Quantity,  // quantities and stock points: no trailing zeros ("5", "2.5")
  Percent,   // percentages: as prices ("7.50", "8.375"); a trailing "%" is dropped
  Integer,   // "42"
  Date,      // "yyyy-mm-dd"
  Enum,      // one of a fixed set of texts, matched without regard to case
};

// The canonical text of a request value, or nothing when it does not convert.
// An empty text stays empty (it clears a field in a modify request).
std::optional<std::string> Canonical(ValueType type, std::string_view text,
                                     std::span<const char* const> enumValues = {});

// The current time in the form of TimeCreated/TimeModified ("2024-05-01T10:20:30-07:00"),
// from the library's clock, so tests that pin it get stable texts.
std::string TimestampNow();
// A timestamp text or a date ("yyyy-mm-dd") as the platform's day count, local time.
// Date-only texts give midnight. Answers false when the text is neither.
bool ParseTimestamp(std::string_view text, double& out);

}  // namespace tessaron::qbsim
