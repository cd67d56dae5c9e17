#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "tests/support/raised.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/foundation/values.h"
#include "tests/support/qbxml_check.h"

namespace tessaron {
namespace {

using testing::NumberRaised;
using testing::Raised;

class AtVersion : public ::testing::Test {
 protected:
  void SetVersion(const char* v) { State().QBXMLVersionNumber = Currency::Parse(v); }
  void TearDown() override { ResetLibraryStateForTesting(); }
};

// ---- Value to text ---------------------------------------------------------------------

struct NumberCase {
  const char* value;
  const char* expected;
};

class AmountToTextForm : public ::testing::TestWithParam<NumberCase> {};
TEST_P(AmountToTextForm, AddsAThousandthThenRoundsToTwoDecimals) {
  EXPECT_EQ(AmountToText(Currency::Parse(GetParam().value)), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Amounts, AmountToTextForm,
                         ::testing::Values(NumberCase{"1.005", "1.01"}, NumberCase{"1.025", "1.03"},
                                           NumberCase{"1234567.5", "1234567.50"}, NumberCase{"0", "0.00"},
                                           NumberCase{"12345678.999", "12345679.00"},
                                           // The thousandth goes to negative values too.
                                           NumberCase{"-1.005", "-1.00"}, NumberCase{"-2.5", "-2.50"},
                                           NumberCase{"0.3", "0.30"}));

class QuantityToTextForm : public ::testing::TestWithParam<NumberCase> {};
TEST_P(QuantityToTextForm, HasSevenIntegerDigitsAndFourDecimals) {
  EXPECT_EQ(QuantityToText(Currency::Parse(GetParam().value)), GetParam().expected);
  EXPECT_EQ(PercentRateToText(Currency::Parse(GetParam().value)), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Quantities, QuantityToTextForm,
                         ::testing::Values(NumberCase{"12.5", "0000012.5000"}, NumberCase{"0", "0000000.0000"},
                                           NumberCase{"-3", "-0000003.0000"},
                                           NumberCase{"12345678.1234", "12345678.1234"}));

TEST(AmountToDisplayText, GroupsThousandsWithoutTheAddedThousandth) {
  EXPECT_EQ(AmountToDisplayText(Currency::Parse("1234567.5")), "1,234,567.50");
  EXPECT_EQ(AmountToDisplayText(Currency::Parse("-1234.5")), "-1,234.50");
  EXPECT_EQ(AmountToDisplayText(Currency::Parse("1.005")), "1.00");
  EXPECT_EQ(AmountToDisplayText(Currency(0)), "0.00");
}

TEST(BooleanToText, IsOneOrZero) {
  EXPECT_EQ(BooleanToText(true), "1");
  EXPECT_EQ(BooleanToText(false), "0");
}

TEST(DateToText, NullDateIsNoneAndNegativeDatesAreDates) {
  EXPECT_EQ(DateToText(kNullDate), "None");
  EXPECT_EQ(DateToText(DateSerial(2004, 2, 29) + TimeSerial(13, 5, 9)), "2004-02-29");
  EXPECT_EQ(DateToText(-1.0), "1899-12-29");
}

TEST_F(AtVersion, DateTimeToTextLosesTheTimeBelowVersionTwo) {
  Date d = DateSerial(2004, 2, 29) + TimeSerial(13, 5, 9);
  SetVersion("1.1");
  EXPECT_EQ(DateTimeToText(d), "2004-02-29");
  SetVersion("2.0");
  EXPECT_EQ(DateTimeToText(d), "2004-02-29T13:05:09");
  EXPECT_EQ(DateTimeToText(kNullDate), "None");
}

TEST_F(AtVersion, DateTimeTextIsAcceptedInAModifiedDateFilter) {
  SetVersion("2.0");
  std::string request =
      "<?xml version=\"1.0\"?><?qbxml version=\"2.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
      "<CustomerQueryRq requestID=\"1\"><FromModifiedDate>" +
      DateTimeToText(DateSerial(2004, 2, 29) + TimeSerial(13, 5, 9)) + "</FromModifiedDate><ToModifiedDate>" +
      DateTimeToText(DateSerial(2004, 3, 1)) + "</ToModifiedDate></CustomerQueryRq></QBXMLMsgsRq></QBXML>";
  EXPECT_TRUE(testing::IsValidQbxml(request));
}

// ---- Text to value ---------------------------------------------------------------------

struct DateCase {
  const char* text;
  Date expected;
};

class DateFromTextForm : public ::testing::TestWithParam<DateCase> {};
TEST_P(DateFromTextForm, ReadsByPosition) { EXPECT_EQ(DateFromText(GetParam().text), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(
    Dates, DateFromTextForm,
    ::testing::Values(DateCase{"None", kNullDate}, DateCase{"", kNullDate},
                      DateCase{"2004-02-29", DateSerial(2004, 2, 29)},
                      // The zone behind the seconds is dropped.
                      DateCase{"2004-02-29T13:05:09-05:00", DateSerial(2004, 2, 29) + TimeSerial(13, 5, 9)},
                      DateCase{"2004-02-29T13:05:09", DateSerial(2004, 2, 29) + TimeSerial(13, 5, 9)},
                      // The separators are never looked at, and the date part rolls over.
                      DateCase{"2004/02/29", DateSerial(2004, 2, 29)}, DateCase{"2004-13-01", DateSerial(2005, 1, 1)},
                      // A part that is not plain digits is converted as a number on its own.
                      DateCase{"2004- 2- 9", DateSerial(2004, 2, 9)},
                      DateCase{"2004-02-29T 1:05:09", DateSerial(2004, 2, 29) + TimeSerial(1, 5, 9)},
                      // What does not fit the positions goes through the general conversion.
                      DateCase{"12/31/2004", DateSerial(2004, 12, 31)}));

TEST(DateFromText, RaisesTypeMismatchForTextThatIsNoDate) {
  EXPECT_EQ(NumberRaised([] { DateFromText("abc"); }), 13u);
  EXPECT_EQ(NumberRaised([] { DateFromText("2004-02-30T10:00:00"); }), 13u);
}

TEST(CurrencyFromText, TextNobodyNeedsBackReadsTheSame) {
  EXPECT_EQ(CurrencyFromText(std::string_view("7.5%")), Currency::Parse("7.5"));
  EXPECT_EQ(CurrencyFromText(std::string_view()), Currency(0));
  EXPECT_EQ(NumberRaised([] { CurrencyFromText(std::string_view("12 apples")); }), 13u);
}

TEST(CurrencyFromText, CutsAPercentSignAndWritesTheCutTextBack) {
  std::string text = "7.5%";
  EXPECT_EQ(CurrencyFromText(text), Currency::Parse("7.5"));
  EXPECT_EQ(text, "7.5");
  std::string empty;
  EXPECT_EQ(CurrencyFromText(empty), Currency(0));
  std::string plain = "-1234.5678";
  EXPECT_EQ(CurrencyFromText(plain), Currency::FromRaw(-12345678));
  EXPECT_EQ(plain, "-1234.5678");
}

TEST(CurrencyFromText, RaisesTypeMismatchForText) {
  std::string text = "abc";
  EXPECT_EQ(NumberRaised([&] { CurrencyFromText(text); }), 13u);
}

struct BoolCase {
  const char* text;
  bool expected;
};
class BooleanFromTextForm : public ::testing::TestWithParam<BoolCase> {};
TEST_P(BooleanFromTextForm, AcceptsWordsInAnyCaseAndNumbers) {
  EXPECT_EQ(BooleanFromText(GetParam().text), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Booleans, BooleanFromTextForm,
                         ::testing::Values(BoolCase{"true", true}, BoolCase{"TRUE", true}, BoolCase{"False", false},
                                           BoolCase{" true ", true}, BoolCase{"1", true}, BoolCase{"0", false},
                                           BoolCase{"-1", true}, BoolCase{"2", true}, BoolCase{"0.0", false},
                                           BoolCase{"", false}));

TEST(BooleanFromText, RaisesTypeMismatchForOtherWords) {
  EXPECT_EQ(NumberRaised([] { BooleanFromText("yes"); }), 13u);
}

// ---- Text helpers ----------------------------------------------------------------------

struct TextCase {
  const char* text;
  const char* expected;
};
class DecodeEntitiesForm : public ::testing::TestWithParam<TextCase> {};
TEST_P(DecodeEntitiesForm, RepeatsUntilNothingIsLeftToDo) {
  EXPECT_EQ(DecodeEntities(GetParam().text), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Entities, DecodeEntitiesForm,
    ::testing::Values(TextCase{"plain", "plain"}, TextCase{"&amp;amp;", "&"}, TextCase{"&amp;lt;", "<"},
                      TextCase{"a &lt; b &gt; c", "a < b > c"}, TextCase{"&quot;x&quot; &apos;y&apos;", "\"x\" 'y'"},
                      // The leading ampersand of a numeric reference stays.
                      TextCase{"&#64;", "&@"}, TextCase{"me#64;host", "me@host"},
                      // "&lt" without its semicolon satisfies the test but is never replaced:
                      // the repetition must still end.
                      TextCase{"&lt", "&lt"}, TextCase{"&lt&amp;", "&lt&"}, TextCase{"", ""}));

TEST(DecodeEntitiesInArray, DecodesEveryElementInPlace) {
  std::vector<std::string> names{"A &amp; B", "plain", "&lt;x&gt;"};
  DecodeEntitiesInArray(names);
  EXPECT_EQ(names, (std::vector<std::string>{"A & B", "plain", "<x>"}));
}

TEST(RemoveSpaces, RemovesBlanksFromTextAndLeavesOtherValues) {
  EXPECT_EQ(RemoveSpaces(std::string_view(" Item  Service ")), "ItemService");
  EXPECT_EQ(RemoveSpaces(std::string_view("Tab\there")), "Tab\there");
  EXPECT_EQ(RemoveSpaces(std::string("Job Type")), "JobType");
  EXPECT_EQ(RemoveSpaces("Ship Method"), "ShipMethod");
  EXPECT_EQ(RemoveSpaces(Variant("Sales Tax Code")), Variant("SalesTaxCode"));
  EXPECT_EQ(RemoveSpaces(Variant(12)), Variant(12));
  EXPECT_TRUE(RemoveSpaces(Variant()).IsEmpty());
}

TEST(NextPendingKey, CountsFromOneInAFreshProcess) {
  ResetLibraryStateForTesting();
  EXPECT_EQ(NextPendingKey(), "1Pending");
  EXPECT_EQ(NextPendingKey(), "2Pending");
}

// ---- Version gates ---------------------------------------------------------------------

TEST_F(AtVersion, RequireVersionRaisesBelowTheMinimum) {
  SetVersion("2.0");
  EXPECT_FALSE(Raised([] { RequireVersion(2); }));
  auto e = Raised([] { RequireVersion(Currency::Parse("2.1")); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), 0x800403EDu);
  EXPECT_EQ(e->Source(), "Tessaron");
  EXPECT_EQ(e->Description(), "The version of QuickBooks you are running does not support this feature.");
}

TEST_F(AtVersion, RequireVersionFailsBeforeAnyConnection) {
  EXPECT_EQ(NumberRaised([] { RequireVersion(1); }), 0x800403EDu);
}

struct GateCase {
  int32_t stateBefore;
  const char* version;
  bool raises;
  int32_t stateAfter;
};
class RequireVersionForChangeGate : public AtVersion, public ::testing::WithParamInterface<GateCase> {};
TEST_P(RequireVersionForChangeGate, GatesCleanAndDirtyObjectsOnly) {
  SetVersion(GetParam().version);
  int32_t state = GetParam().stateBefore;
  EXPECT_EQ(NumberRaised([&] { RequireVersionForChange(3, state); }), GetParam().raises ? 0x800403EDu : 0u);
  EXPECT_EQ(state, GetParam().stateAfter);
}
TEST_F(AtVersion, RequireVersionForChangeTakesATypedState) {
  SetVersion("3.0");
  qoEnumObjectState state = qoObjectStateClean;
  RequireVersionForChange(3, state);
  EXPECT_EQ(state, qoObjectStateDirty);
}

INSTANTIATE_TEST_SUITE_P(
    States, RequireVersionForChangeGate,
    ::testing::Values(GateCase{qoObjectStateNew, "0", false, qoObjectStateNew},
                      GateCase{qoObjectStateNew, "3.0", false, qoObjectStateNew},
                      GateCase{qoObjectStateClean, "2.1", true, qoObjectStateClean},
                      GateCase{qoObjectStateClean, "3.0", false, qoObjectStateDirty},
                      GateCase{qoObjectStateDirty, "2.1", true, qoObjectStateDirty},
                      GateCase{qoObjectStateDirty, "4.0", false, qoObjectStateDirty},
                      GateCase{0, "1.0", false, 0}, GateCase{7, "1.0", false, 7}));

// ---- Failures and diagnostics ----------------------------------------------------------

TEST(RaiseInternal, RaisesWithTheClassNameInTheSource) {
  auto e = Raised([] { RaiseInternal("SalesRep", "XMLModify not supported"); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), 0x800403EBu);
  EXPECT_EQ(e->Source(), "Tessaron: SalesRep");
  EXPECT_EQ(e->Description(), "XMLModify not supported");
}

TEST(NoteUnknownField, DoesNothingUntilAHookIsInstalled) {
  NoteUnknownField("Unknown Field: Foo", "CustomerRet");
  std::vector<std::string> seen;
  SetUnknownFieldHook([&](std::string_view message, std::string_view tag) {
    seen.push_back(std::string(message) + "|" + std::string(tag));
  });
  NoteUnknownField("Unknown Field: Foo", "CustomerRet");
  NoteUnknownElement("Bar", "VendorRet");
  SetUnknownFieldHook(nullptr);
  NoteUnknownElement("Baz", "VendorRet");
  EXPECT_EQ(seen, (std::vector<std::string>{"Unknown Field: Foo|CustomerRet", "Unknown Field: Bar|VendorRet"}));
}

// ---- Files -----------------------------------------------------------------------------

TEST(ReadIniValue, GivesEmptyTextForAMissingFile) {
  testing::TempDir dir;
  EXPECT_EQ(ReadIniValue(dir.File("absent.ini"), "PREFS", "DataFile"), "");
}

TEST(ReadIniValue, ReadsAKeyOfASectionAsThePlatformDoes) {
  testing::TempDir dir;
  std::string path = dir.File("qbw.ini");
  {
    std::ofstream out(path);
    out << "; settings\r\n[OTHER]\r\nDataFile=wrong\r\n[Prefs]\r\n  datafile = C:\\Company\\sample.qbw  \r\n"
        << "Quoted=\"with blanks \"\r\nLong=" << std::string(300, 'x') << "\r\n";
  }
  EXPECT_EQ(ReadIniValue(path, "PREFS", "DataFile"), "C:\\Company\\sample.qbw");
  EXPECT_EQ(ReadIniValue(path, "PREFS", "Quoted"), "with blanks ");
  EXPECT_EQ(ReadIniValue(path, "PREFS", "Long"), std::string(254, 'x'));
  EXPECT_EQ(ReadIniValue(path, "PREFS", "Missing"), "");
  EXPECT_EQ(ReadIniValue(path, "NOSUCH", "DataFile"), "");
}

TEST(ReadIniValue, CutsTheValueAtTheFirstNul) {
  testing::TempDir dir;
  std::string path = dir.File("nul.ini");
  {
    std::ofstream out(path, std::ios::binary);
    out << "[A]\nKey=before" << '\0' << "after\n";
  }
  EXPECT_EQ(ReadIniValue(path, "A", "Key"), "before");
}

}  // namespace
}  // namespace tessaron
