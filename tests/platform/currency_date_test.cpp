#include <gtest/gtest.h>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/error.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

struct FormatCase {
  const char* value;
  const char* pattern;
  const char* expected;
};

class CurrencyFormat : public ::testing::TestWithParam<FormatCase> {};

TEST_P(CurrencyFormat, MatchesThePlatformPattern) {
  const FormatCase& c = GetParam();
  EXPECT_EQ(FormatCurrency(Currency::Parse(c.value), c.pattern), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Patterns, CurrencyFormat, ::testing::Values(
    FormatCase{"12.5", "0000000.0000", "0000012.5000"},
    FormatCase{"-12.5", "0000000.0000", "-0000012.5000"},
    FormatCase{"0", "#######0.00", "0.00"},
    FormatCase{"1234567.5", "#######0.00", "1234567.50"},
    FormatCase{"1.006", "#######0.00", "1.01"},
    FormatCase{"1.005", "#######0.00", "1.00"},   // half to even
    FormatCase{"1.015", "#######0.00", "1.02"},
    FormatCase{"-1234.5", "#,##0.00", "-1,234.50"},
    FormatCase{"1234567", "#,##0.00", "1,234,567.00"},
    FormatCase{"999.9999", "#,##0.00", "1,000.00"},
    FormatCase{"0.0001", "#,##0.00", "0.00"}));

TEST(Currency, ParsesTheTextFormsOfQbxml) {
  EXPECT_EQ(Currency::Parse("0000012.5000").Raw(), 125000);
  EXPECT_EQ(Currency::Parse("-123.45").Raw(), -1234500);
  EXPECT_EQ(Currency::Parse(" 7 ").Raw(), 70000);
  EXPECT_EQ(Currency::Parse("1,234.5").Raw(), 12345000);
  EXPECT_EQ(Currency::Parse("0.00005").Raw(), 0);  // half to even at the fifth decimal
  EXPECT_EQ(Currency::Parse("0.00015").Raw(), 2);
}

TEST(Currency, RefusesTextThatIsNotANumber) {
  for (const char* bad : {"", "abc", "1.2.3", "-", "12%"}) {
    try {
      Currency::Parse(bad);
      ADD_FAILURE() << bad;
    } catch (const Error& e) {
      EXPECT_EQ(e.Number(), platform_error::kTypeMismatch) << bad;
    }
  }
}

TEST(Currency, ArithmeticIsExactToTheTenThousandth) {
  Currency a = Currency::Parse("2.1"), b = Currency::Parse("0.3333");
  EXPECT_EQ((a * b).Raw(), 6999);  // 0.69993
  EXPECT_EQ((Currency(1) / Currency(3)).Raw(), 3333);
  EXPECT_EQ(Currency::Parse("2.5").RoundHalfEven(0), Currency(2));
  EXPECT_EQ(Currency::Parse("3.5").RoundHalfEven(0), Currency(4));
  EXPECT_EQ(Currency::Parse("-12.5").ToString(), "-12.5");
}

// The edges of the range: what leaves it raises overflow (6) instead of wrapping around.
TEST(Currency, ResultsOutOfTheRangeRaiseOverflow) {
  const Currency max = Currency::FromRaw(INT64_MAX), min = Currency::FromRaw(INT64_MIN);
  const auto overflow = static_cast<uint32_t>(platform_error::kOverflow);
  EXPECT_EQ(testing::NumberRaised([&] { max + Currency::FromRaw(1); }), overflow);
  EXPECT_EQ(testing::NumberRaised([&] { min - Currency::FromRaw(1); }), overflow);
  EXPECT_EQ(testing::NumberRaised([&] { -min; }), overflow);
  EXPECT_EQ(testing::NumberRaised([&] { FormatCurrency(max, "0"); }), overflow);  // rounds up past the largest
  EXPECT_EQ((max - Currency::FromRaw(1)) + Currency::FromRaw(1), max);
  EXPECT_EQ(FormatCurrency(max, "0.0000"), "922337203685477.5807");
}

TEST(Date, TextWithDigitRunsTooLongForAnyDateIsRefused) {
  EXPECT_EQ(testing::NumberRaised([] { ParseDate("49999495969/11999399939/999"); }),
            static_cast<uint32_t>(platform_error::kTypeMismatch));
}

TEST(Date, SerialNumbersFollowThePlatformEpoch) {
  EXPECT_EQ(DateSerial(1899, 12, 30), 0.0);
  EXPECT_EQ(DateSerial(1900, 1, 1), 2.0);
  EXPECT_EQ(DateSerial(2004, 2, 29), 38046.0);
  EXPECT_EQ(DateSerial(2004, 13, 1), DateSerial(2005, 1, 1));
  EXPECT_EQ(DateSerial(2004, 3, 0), DateSerial(2004, 2, 29));
  EXPECT_EQ(Weekday(DateSerial(2026, 11, 21)), 7);  // a Saturday
  EXPECT_EQ(AddMonths(DateSerial(2004, 1, 31), 1), DateSerial(2004, 2, 29));
}

TEST(Date, FormatsWithThePatternsOfTheLibrary) {
  Date d = DateSerial(2004, 2, 29) + TimeSerial(13, 5, 9);
  EXPECT_EQ(FormatDate(d, "yyyy-mm-dd"), "2004-02-29");
  EXPECT_EQ(FormatDate(d, "yyyy-mm-ddTHh:Mm:Ss"), "2004-02-29T13:05:09");
  EXPECT_EQ(FormatDate(d, "yyyy-mm-dd Hh:Nn:Ss"), "2004-02-29 13:05:09");
  EXPECT_EQ(FormatDate(-1.25, "yyyy-mm-dd hh:nn"), "1899-12-29 06:00");
}

TEST(Date, ParsesGeneralDateText) {
  EXPECT_EQ(ParseDate("2004-02-29"), DateSerial(2004, 2, 29));
  EXPECT_EQ(ParseDate("2004-02-29T13:05:09-05:00"), DateSerial(2004, 2, 29) + TimeSerial(13, 5, 9));
  EXPECT_EQ(ParseDate("2004-2-9"), DateSerial(2004, 2, 9));
  EXPECT_EQ(ParseDate("2004-2-9 08:30"), DateSerial(2004, 2, 9) + TimeSerial(8, 30, 0));
  EXPECT_EQ(ParseDate("3/1/2005"), DateSerial(2005, 3, 1));  // month first
  EXPECT_EQ(ParseDate("3/1/2005 1:30 PM"), DateSerial(2005, 3, 1) + TimeSerial(13, 30, 0));
  for (const char* bad : {"abc", "2004-02-30", "13/1/2005", "", "2004-123-1", "2004-1-"}) {
    Date out;
    EXPECT_FALSE(TryParseDate(bad, out)) << bad;
  }
}

}  // namespace
}  // namespace tessaron
