// The enumeration tables of the library: every closed set of values it knows (object
// types, account types, date macros, report fields, ...) as a table of code, description
// and qbXML text. The application reads them to fill its own lists; the classes use the
// helpers below to turn a code into qbXML text and back. The tables are made once, at the
// load of the library, and never change (only "ReportTypes" is filled later, by the report
// catalogue).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tessaron/foundation/qc_enum.h"
#include "tessaron/platform/collection.h"

namespace tessaron {

// The tables, by their position in Enumerations; the comment gives each table's name (its
// key in Enumerations).
enum qoEnumerationType : int32_t {
  qoeObjectState = 1,  // "ObjectState"
  qoeObjectType = 2,  // "ObjectType"
  qoeListType = 3,  // "ListType"
  qoeJobStatus = 4,  // "JobStatus"
  qoeDeliveryMethod = 5,  // "DeliveryMethod"
  qoeItemType = 6,  // "ItemType"
  qoeAccountType = 7,  // "AccountType"
  qoeActiveStatus = 8,  // "ActiveStatus"
  qoeTaxForm = 9,  // "TaxForm"
  qoeMonth = 10,  // "Month"
  qoeOperator = 11,  // "Operator"
  qoeField = 12,  // "Field"
  qoeFileOpenMode = 13,  // "FileOpenMode"
  qoeDateMacro = 14,  // "DateMacro"
  qoeTxnPaymentType = 15,  // "TxnPaymentType"
  qoeTxnLineType = 16,  // "TxnLineType"
  qoeGenderType = 17,  // "GenderType"
  qoeEmployeeType = 18,  // "EmployeeType"
  qoeWageType = 19,  // "WageType"
  qoeMatchType = 20,  // "MatchType"
  qoePaidStatus = 21,  // "PaidStatus"
  qoeWarnings = 22,  // "Warnings"
  qoeTxnState = 23,  // "TxnState"
  qoeCalculateChargesFrom = 24,  // "CalculateChargesFrom"
  qoeAgingReportBasis = 25,  // "AgingReportBasis"
  qoeSummaryReportBasis = 26,  // "SummaryReportBasis"
  qoePaySalesTax = 27,  // "PaySalesTax"
  qoeDayOfWeek = 28,  // "FirstDayOfWeek"
  qoeLinkedTxnType = 29,  // "TxnType"
  qoeReport = 30,  // "ReportTypes"
  qoeReportField = 31,  // "ReportFields"
  qoeReportDateMacro = 32,  // "Report Date Macros"
  qoeTxnType = 33,  // "Txn Types"
  qoeEntityType = 34,  // "Entity Types"
  qoeBillableStatus = 35,  // "Billable Status"
  qoeReportGroup = 36,  // "Report Groups"
  qoeReportCalendar = 37,  // "Report Calendar"
  qoeReportRowColReturn = 38,  // "Report Row/Col Returns"
  qoeReportColSortFields = 39,  // "Report Column Sort Fields"
  qoeDataExtDataTypes = 40,  // "Data Extensions Data Types"
  qoeClearedStatus = 41,  // "Cleared Status"
  qoePayrollAccrualPeriod = 42,  // "Payroll Accrual Period"
  qoePayrollPayFrequency = 43,  // "Pay Periods"
  qoeReportAccountFilters = 44,  // "Report Account Filters"
  qoeReportBudgetCriterion = 45,  // "Budget Criterion"
  qoeReportBudgetSumColsByEnum = 46,  // "Budget Summarize Cols By"
  qoeReportBudgetSumRowsByEnum = 47,  // "Budget Summarize Rows By"
  qoeReportDetailLevelFilterEnum = 48,  // "Report Detail Level Filter"
  qoeReportPostingStatusFilter = 49,  // "Report Posting Status Filter"
  qoeCashFlowClassification = 50,  // "Cash Flow Classification"
  qoeSpecialAcountType = 51,  // "Special Account Type"
  qoePayrollItemNonWage = 52,  // "Payroll Items Non-Wage"
  qoeDataBaseTableName = 53,  // "Database Table Name"
  qoeMenuConditions = 54,  // "Menu Conditions"
  qoeMenuNames = 55,  // "Menu Names"
  qoeFieldNames = 56,  // "Field Names"
};

class Enumerations {
 public:
  // Adds a table under its name; a name already present raises the duplicate-key error (457).
  void AddObject(std::shared_ptr<QCEnum> NewObject, const std::string& Key);
  // A table by its code (= its position). A code outside 1..Count raises subscript out of
  // range (9).
  std::shared_ptr<QCEnum> Item(qoEnumerationType EnumCode) const;
  // A table by its name ("MatchType", "Txn Types"); a missing one raises invalid argument (5).
  std::shared_ptr<QCEnum> Item(const std::string& tableName) const;
  long Count() const { return col_.Count(); }
  // The tables in order (a snapshot).
  std::vector<std::shared_ptr<QCEnum>> NewEnum() const;

  // Library-internal: the table of a code, or nullptr; no reference count is touched.
  const QCEnum* Find(qoEnumerationType EnumCode) const noexcept;

 private:
  Collection<std::shared_ptr<QCEnum>> col_;
};

// The tables of the process. The first use fills them (LoadEnumerations), so lookups work
// before any connection.
Enumerations& QBEnumerations();
// Creates and fills the 56 tables in order, when QBEnumerations().Count() is 0; otherwise
// does nothing.
void LoadEnumerations();

// The two tables that live outside Enumerations: the kinds of terms (0 "Terms",
// 1 "Standard Terms", 2 "Date Driven Terms") and the done status of to-do notes
// (1 "All", 2 "DoneOnly", 3 "NotDoneOnly").
const QCEnum& TermsKindTable();
const QCEnum& DoneStatusTable();

// ---- Lookups ---------------------------------------------------------------------------
// Each is called once per enumerated field of every record read or written; the answers
// are references into the tables (which live as long as the process) and nothing is
// allocated.

// The qbXML text of a code: the row's XMLTag, or its key when it has none ("Item Service"
// gives "ItemService"). Any failure (no such row, no such table, an empty table) raises
// 0x800403EF "An invalid enumeration value was supplied.", source "Tessaron".
const std::string& EnumCodeToXML(int32_t code, qoEnumerationType enumeration);
// The display text of a code; fails as EnumCodeToXML does.
const std::string& EnumCodeToDescription(int32_t code, qoEnumerationType enumeration);
// The code of the row found by key (the description, blanks and letter case ignored). Any
// failure raises 0x800403F0 "An invalid enumeration string was supplied.", source "Tessaron".
int32_t EnumDescriptionToCode(const std::string& description, qoEnumerationType enumeration);
// The code of the first row whose qbXML text equals `xml` exactly; none raises 0x800403F0.
int32_t EnumXMLToCode(std::string_view xml, qoEnumerationType enumeration);

// As EnumCodeToDescription and EnumDescriptionToCode, for the application: a bad code gives
// the empty text, a bad description 0; neither raises.
std::string EStr(int32_t Code, qoEnumerationType Enumeration);
int32_t eVal(const std::string& Description, qoEnumerationType Enumeration);

}  // namespace tessaron
