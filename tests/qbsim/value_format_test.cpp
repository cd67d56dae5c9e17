// The text forms the processor answers, by value type: amounts and prices with two
// decimals, quantities without trailing zeros, percents with a trailing "%" taken off.
#include <gtest/gtest.h>

#include "qbsim/values.h"

namespace tessaron::qbsim {
namespace {

struct FormatCase {
  const char* name;
  ValueType type;
  const char* request;  // as a request carries it
  const char* answer;   // as the processor keeps and answers it; "!" when refused
};

class ValueFormat : public ::testing::TestWithParam<FormatCase> {};

TEST_P(ValueFormat, RequestValueIsAnsweredInTheFormOfItsType) {
  const auto& c = GetParam();
  auto text = Canonical(c.type, c.request);
  if (std::string(c.answer) == "!") {
    EXPECT_FALSE(text.has_value()) << *text;
  } else {
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(*text, c.answer);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Types, ValueFormat,
    ::testing::Values(FormatCase{"AmountWholeGetsTwoDecimals", ValueType::Amount, "11", "11.00"},
                      FormatCase{"AmountLibraryForm", ValueType::Amount, "0000012.5000", "12.50"},
                      FormatCase{"AmountRoundsToCents", ValueType::Amount, "1.005", "1.00"},
                      FormatCase{"AmountNegative", ValueType::Amount, "-3.1", "-3.10"},
                      FormatCase{"PriceWholeGetsTwoDecimals", ValueType::Price, "11", "11.00"},
                      FormatCase{"PriceKeepsMoreDecimalsWhenNeeded", ValueType::Price, "0000012.1250", "12.125"},
                      FormatCase{"QuantityWithoutTrailingZeros", ValueType::Quantity, "0000002.5000", "2.5"},
                      FormatCase{"QuantityWhole", ValueType::Quantity, "12.0", "12"},
                      FormatCase{"PercentWithSign", ValueType::Percent, "7.5%", "7.50"},
                      FormatCase{"PercentLibraryForm", ValueType::Percent, "0000000.7500", "0.75"},
                      FormatCase{"PercentSignOnAPriceIsRefused", ValueType::Price, "7.5%", "!"},
                      FormatCase{"ThousandsSeparatorRefused", ValueType::Amount, "1,000.00", "!"},
                      FormatCase{"EmptyStaysEmpty", ValueType::Price, "", ""}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaron::qbsim
