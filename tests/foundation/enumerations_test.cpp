#include <gtest/gtest.h>

#include <vector>

#include "tests/support/raised.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enumerations.h"

namespace tessaron {
namespace {

using testing::NumberRaised;
using testing::Raised;

std::vector<int> CodesOf(qoEnumerationType type) {
  std::vector<int> codes;
  for (const auto& row : QBEnumerations().Item(type)->NewEnum()) codes.push_back(row->Code());
  return codes;
}

// ---- Contents --------------------------------------------------------------------------

struct TableShape {
  qoEnumerationType type;
  const char* name;
  long rows;
  int firstCode;
  const char* firstDescription;  // nullptr for an empty table
  int lastCode;
  const char* lastDescription;
};

// Row counts and first and last rows of every table, as the system has always held them.
constexpr TableShape kTableShapes[] = {
    {qoeObjectState, "ObjectState", 3, 1, "New", 3, "Dirty"},
    {qoeObjectType, "ObjectType", 63, 1, "Account", 63, "UIEventSubscription"},
    {qoeListType, "ListType", 23, 1, "Account", 24, "Payroll Item Non Wage"},
    {qoeJobStatus, "JobStatus", 6, 0, "None", 5, "Not Awarded"},
    {qoeDeliveryMethod, "DeliveryMethod", 4, 0, "", 3, "Email"},
    {qoeItemType, "ItemType", 12, 1, "Service", 12, "Fixed Asset"},
    {qoeAccountType, "AccountType", 16, 1, "Accounts Payable", 16, "Non Posting"},
    {qoeActiveStatus, "ActiveStatus", 3, 1, "ActiveOnly", 3, "All"},
    {qoeTaxForm, "TaxForm", 0, 0, nullptr, 0, nullptr},
    {qoeMonth, "Month", 12, 8, "January", 8, "December"},
    {qoeOperator, "Operator", 5, 1, "LessThan", 5, "GreaterThanEqual"},
    {qoeField, "Field", 0, 0, nullptr, 0, nullptr},
    {qoeFileOpenMode, "FileOpenMode", 0, 0, nullptr, 0, nullptr},
    {qoeDateMacro, "DateMacro", 8, 1, "This Week To Date", 8, "Last Fiscal Year"},
    {qoeTxnPaymentType, "TxnPaymentType", 3, 1, "Invoice", 3, "JournalEntry"},
    {qoeTxnLineType, "TxnLineType", 4, 1, "Expense", 4, "Payment"},
    {qoeGenderType, "GenderType", 2, 1, "Male", 2, "Female"},
    {qoeEmployeeType, "EmployeeType", 4, 1, "Regular", 4, "Owner"},
    {qoeWageType, "WageType", 8, 1, "Hourly Regular", 8, "Commission"},
    {qoeMatchType, "MatchType", 3, 1, "Starts With", 3, "Ends With"},
    {qoePaidStatus, "PaidStatus", 3, 1, "All", 3, "Not Paid Only"},
    {qoeWarnings, "Warnings", 2, 1, "This item is associated with an expense account", 2, "This JournalEntryLine is out of order. All DebitLines must come first, followed by all CreditLines."},
    {qoeTxnState, "TxnState", 3, 1, "Active", 3, "Deleted"},
    {qoeCalculateChargesFrom, "CalculateChargesFrom", 2, 1, "DueDate", 2, "InvoiceOrBilledDate"},
    {qoeAgingReportBasis, "AgingReportBasis", 2, 1, "AgeFromDueDate", 2, "AgeFromTransactionDate"},
    {qoeSummaryReportBasis, "SummaryReportBasis", 2, 1, "Accrual", 2, "Cash"},
    {qoePaySalesTax, "PaySalesTax", 3, 1, "Monthly", 3, "Annually"},
    {qoeDayOfWeek, "FirstDayOfWeek", 7, 1, "Monday", 7, "Sunday"},
    {qoeLinkedTxnType, "TxnType", 23, 1, "Invoice", 23, "SalesOrder"},
    {qoeReport, "ReportTypes", 89, 1, "1099 Detail", 89, "Transaction Summary"},
    {qoeReportField, "ReportFields", 90, 1, "Account", 90, "Calculated Amount"},
    {qoeReportDateMacro, "Report Date Macros", 25, 1, "All", 25, "Custom"},
    {qoeTxnType, "Txn Types", 23, 1, "All", 23, "Vendor Credit"},
    {qoeEntityType, "Entity Types", 4, 1, "Customer", 4, "Vendor"},
    {qoeBillableStatus, "Billable Status", 3, 1, "Billable", 3, "HasBeenBilled"},
    {qoeReportGroup, "Report Groups", 13, 1, "Company & Financial", 13, "Custom"},
    {qoeReportCalendar, "Report Calendar", 3, 1, "Fiscal Year", 3, "Tax Year"},
    {qoeReportRowColReturn, "Report Row/Col Returns", 3, 1, "Active Only", 3, "All"},
    {qoeReportColSortFields, "Report Column Sort Fields", 28, 1, "Account", 28, "Year"},
    {qoeDataExtDataTypes, "Data Extensions Data Types", 8, 1, "INTTYPE", 8, "STR1024TYPE"},
    {qoeClearedStatus, "Cleared Status", 3, 1, "Cleared", 3, "Pending"},
    {qoePayrollAccrualPeriod, "Payroll Accrual Period", 3, 1, "Beginning Of Year", 3, "Every Hour On Paycheck"},
    {qoePayrollPayFrequency, "Pay Periods", 7, 1, "Daily", 7, "Yearly"},
    {qoeReportAccountFilters, "Report Account Filters", 36, 1, "Accounts Payable", 36, "Other Income Or Expense"},
    {qoeReportBudgetCriterion, "Budget Criterion", 3, 1, "Accounts", 3, "AccountsAndCustomers"},
    {qoeReportBudgetSumColsByEnum, "Budget Summarize Cols By", 3, 1, "Date", 3, "Customer"},
    {qoeReportBudgetSumRowsByEnum, "Budget Summarize Rows By", 3, 1, "Account", 3, "Customer"},
    {qoeReportDetailLevelFilterEnum, "Report Detail Level Filter", 3, 1, "All", 3, "AllExceptSummary"},
    {qoeReportPostingStatusFilter, "Report Posting Status Filter", 3, 1, "Either", 3, "Posting"},
    {qoeCashFlowClassification, "Cash Flow Classification", 5, 1, "None", 5, "Not Applicable"},
    {qoeSpecialAcountType, "Special Account Type", 17, 1, "AccountsPayable", 17, "UndepositedFunds"},
    {qoePayrollItemNonWage, "Payroll Items Non-Wage", 5, 1, "Addition", 5, "Direct Deposit"},
    {qoeDataBaseTableName, "Database Table Name", 56, 1, "Account", 56, "Template"},
    {qoeMenuConditions, "Menu Conditions", 14, 1, "MultiUserMode", 14, "AccountantCopyExists"},
    {qoeMenuNames, "Menu Names", 6, 1, "File", 6, "Banking"},
    {qoeFieldNames, "Field Names", 34, 1, "Full Name", 203, "Price"}
,
};

class EnumerationTable : public ::testing::TestWithParam<TableShape> {};

TEST_P(EnumerationTable, HasItsNameRowCountAndEnds) {
  const TableShape& t = GetParam();
  State();  // the load of the library, which also fills "ReportTypes" with the report catalogue
  Enumerations& all = QBEnumerations();
  auto table = all.Item(t.type);
  EXPECT_EQ(all.Item(std::string(t.name)), table) << "a table is found by its name and by its code alike";
  ASSERT_EQ(table->Count(), t.rows);
  if (t.rows == 0) return;
  EXPECT_EQ(table->Item(Variant(1))->Code(), t.firstCode);
  EXPECT_EQ(table->Item(Variant(1))->Description(), t.firstDescription);
  EXPECT_EQ(table->Item(Variant(static_cast<int>(t.rows)))->Code(), t.lastCode);
  EXPECT_EQ(table->Item(Variant(static_cast<int>(t.rows)))->Description(), t.lastDescription);
}

INSTANTIATE_TEST_SUITE_P(AllTables, EnumerationTable, ::testing::ValuesIn(kTableShapes));

TEST(Enumerations, HoldsTheFiftySixTablesInOrder) {
  Enumerations& all = QBEnumerations();
  ASSERT_EQ(all.Count(), 56);
  EXPECT_EQ(all.Item(qoeObjectState), all.NewEnum().front());
  EXPECT_EQ(all.Item(qoeFieldNames), all.NewEnum().back());
}

TEST(Enumerations, LoadingAgainAddsNothing) {
  LoadEnumerations();
  EXPECT_EQ(QBEnumerations().Count(), 56);
  EXPECT_EQ(QBEnumerations().Item(qoeObjectType)->Count(), 63);
}

TEST(Enumerations, ObjectTypeRowsKeepTheirOrderNotTheCodes) {
  std::vector<int> expected;
  for (int c = 1; c <= 12; ++c) expected.push_back(c);
  expected.push_back(14);
  expected.push_back(13);
  for (int c = 15; c <= 63; ++c) expected.push_back(c);
  EXPECT_EQ(CodesOf(qoeObjectType), expected);
  EXPECT_EQ(CodesOf(qoeDataBaseTableName)[12], 14);
  EXPECT_EQ(CodesOf(qoeDataBaseTableName)[13], 13);
}

TEST(Enumerations, ListTypeHasNoCodeTwelve) {
  EXPECT_EQ(CodesOf(qoeListType), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14, 15, 16, 17, 18, 19,
                                                    20, 21, 22, 23, 24}));
}

TEST(Enumerations, EveryMonthHasTheCodeEight) {
  EXPECT_EQ(CodesOf(qoeMonth), std::vector<int>(12, 8));
  EXPECT_EQ(QBEnumerations().Item(qoeMonth)->Item(Variant(3))->Description(), "March");
  EXPECT_EQ(EnumXMLToCode("March", qoeMonth), 8);
  EXPECT_EQ(EnumCodeToDescription(8, qoeMonth), "January") << "the first row of the code wins";
}

TEST(Enumerations, FieldNamesCarryTheirCodesAndTheOneTag) {
  EXPECT_EQ(CodesOf(qoeFieldNames), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 100, 102, 103,
                                                      104, 105, 106, 107, 108, 109, 110, 111, 113, 114, 115, 118,
                                                      119, 200, 201, 202, 203}));
  auto row = QBEnumerations().Item(qoeFieldNames)->Item(Variant("Sales Description"));
  EXPECT_EQ(row->XMLTag(), "SalesDesc");
  EXPECT_EQ(row->CollectionKey(), "SalesDescription");
  int tagged = 0;
  for (const auto& table : QBEnumerations().NewEnum())
    for (const auto& r : table->NewEnum()) tagged += r->XMLTag().empty() ? 0 : 1;
  EXPECT_EQ(tagged, 1);
}

TEST(Enumerations, DeliveryMethodStartsWithAnEmptyRow) {
  EXPECT_EQ(EnumCodeToXML(0, qoeDeliveryMethod), "");
  EXPECT_EQ(EnumXMLToCode("", qoeDeliveryMethod), 0);
  EXPECT_EQ(EnumXMLToCode("Email", qoeDeliveryMethod), 3);
}

TEST(Enumerations, TypedEnumerationsFollowTheirTables) {
  EXPECT_EQ(EnumCodeToXML(qbItemFixedAsset, qoeItemType), "FixedAsset");
  EXPECT_EQ(EnumCodeToXML(qbAccountTypeNonPosting, qoeAccountType), "NonPosting");
  EXPECT_EQ(EnumCodeToXML(qbDateMacroLastFiscalYear, qoeDateMacro), "LastFiscalYear");
  EXPECT_EQ(EnumCodeToXML(qbTxnTypeVendorCredit, qoeTxnType), "VendorCredit");
  EXPECT_EQ(EnumCodeToXML(qbRptFieldCalculatedAmount, qoeReportField), "CalculatedAmount");
  EXPECT_EQ(EnumCodeToXML(qbRptColSortYear, qoeReportColSortFields), "Year");
  EXPECT_EQ(EnumCodeToXML(qbRptGrpCustom, qoeReportGroup), "Custom");
  EXPECT_EQ(EnumCodeToXML(qbReportReturnNonZero, qoeReportRowColReturn), "NonZero");
  EXPECT_EQ(EnumCodeToXML(qbDataExtTypeSTR1024TYPE, qoeDataExtDataTypes), "STR1024TYPE");
  EXPECT_EQ(EnumCodeToXML(qoDayOfWeekSunday, qoeDayOfWeek), "Sunday");
  EXPECT_EQ(EnumCodeToXML(qbMatchEndsWith, qoeMatchType), "EndsWith");
  EXPECT_EQ(EnumCodeToXML(qbGreaterThanOrEqual, qoeOperator), "GreaterThanEqual");
  EXPECT_EQ(EnumCodeToDescription(qoWarningItemHasExpenseAccount, qoeWarnings),
            "This item is associated with an expense account");
  EXPECT_EQ(EnumCodeToXML(qoObjectTypeSalesTaxPaymentCheck, qoeObjectType), "SalesTaxPaymentCheck");
}

TEST(Enumerations, TheTwoInternalTables) {
  const QCEnum& terms = TermsKindTable();
  ASSERT_EQ(terms.Count(), 3);
  EXPECT_EQ(terms.ItemByCode(qbDateDrivenTerms)->CollectionKey(), "DateDrivenTerms");
  EXPECT_EQ(terms.Item(Variant(1))->Code(), qbTerms);
  const QCEnum& done = DoneStatusTable();
  ASSERT_EQ(done.Count(), 3);
  EXPECT_EQ(done.ItemByCode(3)->Description(), "NotDoneOnly");
}

// ---- QCEnum ----------------------------------------------------------------------------

TEST(QCEnum, ItemFindsARowByKeyWithOrWithoutBlanks) {
  auto types = QBEnumerations().Item(qoeObjectType);
  auto spaced = types->Item(Variant("Sales Tax Payment Check"));
  EXPECT_EQ(types->Item(Variant("SalesTaxPaymentCheck")), spaced);
  EXPECT_EQ(types->Item(Variant("salestaxpaymentcheck")), spaced);
  EXPECT_EQ(spaced->Code(), 51);
  EXPECT_EQ(types->Item(Variant(13))->Description(), "Customer") << "positions follow the rows, not the codes";
}

TEST(QCEnum, ItemExistsAnswersWithoutRaising) {
  auto types = QBEnumerations().Item(qoeObjectType);
  EXPECT_TRUE(types->ItemExists(Variant("Item Service")));
  EXPECT_TRUE(types->ItemExists(Variant(63)));
  EXPECT_FALSE(types->ItemExists(Variant("Nope")));
  EXPECT_FALSE(types->ItemExists(Variant(64)));
}

TEST(QCEnum, ItemByCodeRaisesUnknownCode) {
  auto types = QBEnumerations().Item(qoeObjectType);
  EXPECT_EQ(types->ItemByCode(13)->Description(), "Class");
  auto e = Raised([&] { types->ItemByCode(99); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), 0x800403EBu);
  EXPECT_EQ(e->Source(), "Tessaron: TypeCodes");
  EXPECT_EQ(e->Description(), "Unknown Code");
}

TEST(QCEnum, AddRefusesADescriptionWhoseKeyIsTaken) {
  QCEnum table;
  auto row = table.Add(1, "Item Service");
  EXPECT_EQ(row->CollectionKey(), "ItemService");
  EXPECT_EQ(NumberRaised([&] { table.Add(2, "ItemService"); }), 457u);
  EXPECT_EQ(table.Count(), 1);
}

// ---- Lookups ---------------------------------------------------------------------------

TEST(EnumLookups, CodeToXMLGivesTheTagOrTheKey) {
  EXPECT_EQ(EnumCodeToXML(3, qoeObjectType), "ItemService");
  EXPECT_EQ(EnumCodeToXML(3, qoeFieldNames), "SalesDesc");
  EXPECT_EQ(EnumCodeToDescription(3, qoeObjectType), "Item Service");
  EXPECT_EQ(EnumCodeToXML(qbStatusAny, qoeActiveStatus), "All");
}

TEST(EnumLookups, XMLToCodeComparesExactly) {
  EXPECT_EQ(EnumXMLToCode("ItemService", qoeObjectType), 3);
  EXPECT_EQ(EnumXMLToCode("SalesDesc", qoeFieldNames), 3);
  EXPECT_EQ(NumberRaised([] { EnumXMLToCode("SalesDescription", qoeFieldNames); }), 0x800403F0u);
  EXPECT_EQ(NumberRaised([] { EnumXMLToCode("Item Service", qoeObjectType); }), 0x800403F0u);
  EXPECT_EQ(NumberRaised([] { EnumXMLToCode("itemservice", qoeObjectType); }), 0x800403F0u);
}

TEST(EnumLookups, DescriptionToCodeFindsByKey) {
  EXPECT_EQ(EnumDescriptionToCode("Accounts Receivable", qoeAccountType), qbAccountTypeAccountsReceivable);
  EXPECT_EQ(EnumDescriptionToCode("AccountsReceivable", qoeAccountType), qbAccountTypeAccountsReceivable);
  EXPECT_EQ(NumberRaised([] { EnumDescriptionToCode("Receivables", qoeAccountType); }), 0x800403F0u);
}

struct BadLookup {
  const char* name;
  std::function<void()> call;
  uint32_t number;
  const char* description;
};

class EnumLookupFailure : public ::testing::TestWithParam<BadLookup> {};
TEST_P(EnumLookupFailure, RaisesFromTessaron) {
  auto e = Raised(GetParam().call);
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), GetParam().number);
  EXPECT_EQ(e->Source(), "Tessaron");
  EXPECT_EQ(e->Description(), GetParam().description);
}
constexpr const char* kBadValue = "An invalid enumeration value was supplied.";
constexpr const char* kBadString = "An invalid enumeration string was supplied.";
INSTANTIATE_TEST_SUITE_P(
    Lookups, EnumLookupFailure,
    ::testing::Values(
        BadLookup{"UnknownCode", [] { EnumCodeToXML(99, qoeObjectState); }, 0x800403EF, kBadValue},
        BadLookup{"UnknownCodeDescription", [] { EnumCodeToDescription(99, qoeObjectState); }, 0x800403EF, kBadValue},
        BadLookup{"EmptyTable", [] { EnumCodeToXML(1, qoeTaxForm); }, 0x800403EF, kBadValue},
        BadLookup{"ReportBeyondTheCatalogue", [] { EnumCodeToXML(90, qoeReport); }, 0x800403EF, kBadValue},
        BadLookup{"NoSuchTable", [] { EnumCodeToXML(1, static_cast<qoEnumerationType>(57)); }, 0x800403EF, kBadValue},
        BadLookup{"TableZero", [] { EnumCodeToDescription(1, static_cast<qoEnumerationType>(0)); }, 0x800403EF,
                  kBadValue},
        BadLookup{"UnknownText", [] { EnumXMLToCode("Maybe", qoeObjectState); }, 0x800403F0, kBadString},
        BadLookup{"UnknownDescription", [] { EnumDescriptionToCode("Maybe", qoeObjectState); }, 0x800403F0,
                  kBadString},
        BadLookup{"TextOfNoSuchTable", [] { EnumXMLToCode("New", static_cast<qoEnumerationType>(99)); }, 0x800403F0,
                  kBadString}),
    [](const ::testing::TestParamInfo<BadLookup>& info) { return std::string(info.param.name); });

TEST(EnumLookups, EStrAndEValSwallowFailures) {
  EXPECT_EQ(EStr(99, qoeObjectState), "");
  EXPECT_EQ(EStr(2, qoeObjectState), "Clean");
  EXPECT_EQ(EStr(1, static_cast<qoEnumerationType>(0)), "");
  EXPECT_EQ(eVal("Dirty", qoeObjectState), 3);
  EXPECT_EQ(eVal("In Progress", qoeJobStatus), qbJobStatusInProgress);
  EXPECT_EQ(eVal("Unknown", qoeObjectState), 0);
  EXPECT_EQ(eVal("New", static_cast<qoEnumerationType>(99)), 0);
}

}  // namespace
}  // namespace tessaron
