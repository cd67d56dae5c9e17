// The typed enumerations of the type library whose texts live in the enumeration tables
// (enumerations.h): an application passes these codes, and the classes turn them into
// qbXML text and back with EnumCodeToXML and EnumXMLToCode. Each enumeration follows the
// rows of its table; the object types, list types and object states are in enum_types.h.
#pragma once

#include <cstdint>

namespace tessaron {

// Rows of "ItemType"; 99 marks an item whose kind is not known yet.
enum qbEnumItemType : int32_t {
  qbItemService = 1,
  qbItemInventory = 2,
  qbItemNonInventory = 3,
  qbItemOtherCharge = 4,
  qbItemSubtotal = 5,
  qbItemGroup = 6,
  qbItemDiscount = 7,
  qbItemPayment = 8,
  qbItemSalesTax = 9,
  qbItemSalesTaxGroup = 10,
  qbItemAssembly = 11,
  qbItemFixedAsset = 12,
  qbItemEmpty = 99,
};

// Rows of "ActiveStatus"; sent as the description text.
enum qbEnumActiveStatus : int32_t {
  qbStatusActive = 1,
  qbStatusInactive = 2,
  qbStatusAny = 3,
};

// Rows of "MatchType"; sent as the row's qbXML text.
enum qbEnumMatchType : int32_t {
  qbMatchStartsWith = 1,
  qbMatchContains = 2,
  qbMatchEndsWith = 3,
};

// Rows of "Operator"; sent as the row's qbXML text. 0 means no filter.
enum qbEnumOperator : int32_t {
  qbLessThan = 1,
  qbLessThanOrEqual = 2,
  qbEqual = 3,
  qbGreaterThan = 4,
  qbGreaterThanOrEqual = 5,
};

// The kinds of terms (the internal terms table): both kinds, standard, date driven.
enum qbEnumTermsType : int32_t {
  qbTerms = 0,
  qbStandardTerms = 1,
  qbDateDrivenTerms = 2,
};

// Rows of "TxnState".
enum qoEnumTxnState : int32_t {
  qoTxnStateActive = 1,
  qoTxnStateVoided = 2,
  qoTxnStateDeleted = 3,
};

// Rows of "Warnings": the codes of a line's Warning event.
enum qoEnumWarning : int32_t {
  qoWarningItemHasExpenseAccount = 1,
  qoWarningJournalEntryDebitCreditError = 2,
};

// Rows of "Data Extensions Data Types".
enum qbEnumDataExtDataType : int32_t {
  qbDataExtTypeINTTYPE = 1,
  qbDataExtTypeAMTTYPE = 2,
  qbDataExtTypePRICETYPE = 3,
  qbDataExtTypeQUANTYPE = 4,
  qbDataExtTypePERCENTTYPE = 5,
  qbDataExtTypeDATETIMETYPE = 6,
  qbDataExtTypeSTR255TYPE = 7,
  qbDataExtTypeSTR1024TYPE = 8,
};

// Rows of "Report Groups".
enum qbEnumReportGroups : int32_t {
  qbRptGrpCompanyAndFinancial = 1,
  qbRptGrpCustomersAndReceivables = 2,
  qbRptGrpSales = 3,
  qbRptGrpJobsAndTime = 4,
  qbRptGrpVendorsAndPayables = 5,
  qbRptGrpPurchases = 6,
  qbRptGrpInventory = 7,
  qbRptGrpEmployeesAndPayroll = 8,
  qbRptGrpBanking = 9,
  qbRptGrpAccountantAndTaxes = 10,
  qbRptGrpBudgetsAndForecasts = 11,
  qbRptGrpList = 12,
  qbRptGrpCustom = 13,
};

// Rows of "Report Row/Col Returns"; 0 sends nothing.
enum qbEnumReportReturnRowCol : int32_t {
  qbReportReturnActiveOnly = 1,
  qbReportReturnNonZero = 2,
  qbReportReturnAll = 3,
};

// Rows of "JobStatus".
enum qbEnumJobStatus : int32_t {
  qbJobStatusNone = 0,
  qbJobStatusPending = 1,
  qbJobStatusAwarded = 2,
  qbJobStatusInProgress = 3,
  qbJobStatusClosed = 4,
  qbJobStatusNotAwarded = 5,
};

// Rows of "AccountType".
enum qbEnumAccountType : int32_t {
  qbAccountTypeAccountsPayable = 1,
  qbAccountTypeAccountsReceivable = 2,
  qbAccountTypeBank = 3,
  qbAccountTypeCostOfGoodsSold = 4,
  qbAccountTypeCreditCard = 5,
  qbAccountTypeEquity = 6,
  qbAccountTypeExpense = 7,
  qbAccountTypeFixedAsset = 8,
  qbAccountTypeIncome = 9,
  qbAccountTypeLongTermLiability = 10,
  qbAccountTypeOtherAsset = 11,
  qbAccountTypeOtherCurrentAsset = 12,
  qbAccountTypeOtherCurrentLiability = 13,
  qbAccountTypeOtherExpense = 14,
  qbAccountTypeOtherIncome = 15,
  qbAccountTypeNonPosting = 16,
};

// Rows of "DateMacro".
enum qbEnumDateMacro : int32_t {
  qbDateMacroThisWeekToDate = 1,
  qbDateMacroThisMonthToDate = 2,
  qbDateMacroThisFiscalQuarterToDate = 3,
  qbDateMacroThisFiscalYearToDate = 4,
  qbDateMacroLastWeek = 5,
  qbDateMacroLastMonth = 6,
  qbDateMacroLastFiscalQuarter = 7,
  qbDateMacroLastFiscalYear = 8,
};

// Rows of "Txn Types".
enum qbEnumTxnType : int32_t {
  qbTxnTypeAll = 1,
  qbTxnTypeBill = 2,
  qbTxnTypeBillPaymentCheck = 3,
  qbTxnTypeBillPaymentCreditCard = 4,
  qbTxnTypeCharge = 5,
  qbTxnTypeCheck = 6,
  qbTxnTypeCreditCardCharge = 7,
  qbTxnTypeCreditCardCredit = 8,
  qbTxnTypeCreditMemo = 9,
  qbTxnTypeDeposit = 10,
  qbTxnTypeEstimate = 11,
  qbTxnTypeInventoryAdjustment = 12,
  qbTxnTypeInvoice = 13,
  qbTxnTypeItemReceipt = 14,
  qbTxnTypeJournalEntry = 15,
  qbTxnTypeLiabilityAdjustment = 16,
  qbTxnTypePurchaseOrder = 17,
  qbTxnTypeReceivePayment = 18,
  qbTxnTypeSalesOrder = 19,
  qbTxnTypeSalesReceipt = 20,
  qbTxnTypeSalesTaxPaymentCheck = 21,
  qbTxnTypeTransfer = 22,
  qbTxnTypeVendorCredit = 23,
};

// Rows of "Billable Status".
enum qbEnumBillableStatus : int32_t {
  qbBillableStatusBillable = 1,
  qbBillableStatusNotBillable = 2,
  qbBillableStatusHasBeenBilled = 3,
};

// Rows of "CalculateChargesFrom".
enum qoEnumCalculateChargesFrom : int32_t {
  qoCalculateChargesFromDueDate = 1,
  qoCalculateChargesFromInvoiceOrBilledDate = 2,
};

// Rows of "AgingReportBasis".
enum qoEnumAgingReportBasis : int32_t {
  qoAgingReportBasisAgeFromDueDate = 1,
  qoAgingReportBasisAgeFromTransactionDate = 2,
};

// Rows of "SummaryReportBasis".
enum qoEnumSummaryReportBasis : int32_t {
  qoSummaryReportBasisAccrual = 1,
  qoSummaryReportBasisCash = 2,
};

// Rows of "PaySalesTax".
enum qoEnumPaySalesTax : int32_t {
  qoPaySalesTaxMonthly = 1,
  qoPaySalesTaxQuarterly = 2,
  qoPaySalesTaxAnnually = 3,
};

// Rows of "FirstDayOfWeek".
enum qoEnumDayOfWeek : int32_t {
  qoDayOfWeekMonday = 1,
  qoDayOfWeekTuesday = 2,
  qoDayOfWeekWednesday = 3,
  qoDayOfWeekThursday = 4,
  qoDayOfWeekFriday = 5,
  qoDayOfWeekSaturday = 6,
  qoDayOfWeekSunday = 7,
};

// Rows of "Report Date Macros".
enum qbEnumReportDateMacro : int32_t {
  qbRptDateMacroAll = 1,
  qbRptDateMacroToday = 2,
  qbRptDateMacroThisWeek = 3,
  qbRptDateMacroThisWeekToDate = 4,
  qbRptDateMacroThisMonth = 5,
  qbRptDateMacroThisMonthToDate = 6,
  qbRptDateMacroThisQuarter = 7,
  qbRptDateMacroThisQuarterToDate = 8,
  qbRptDateMacroThisYear = 9,
  qbRptDateMacroThisYearToDate = 10,
  qbRptDateMacroYesterday = 11,
  qbRptDateMacroLastWeek = 12,
  qbRptDateMacroLastWeekToDate = 13,
  qbRptDateMacroLastMonth = 14,
  qbRptDateMacroLastMonthToDate = 15,
  qbRptDateMacroLastQuarter = 16,
  qbRptDateMacroLastQuarterToDate = 17,
  qbRptDateMacroLastYear = 18,
  qbRptDateMacroLastYearToDate = 19,
  qbRptDateMacroNextWeek = 20,
  qbRptDateMacroNextFourWeeks = 21,
  qbRptDateMacroNextMonth = 22,
  qbRptDateMacroNextQuarter = 23,
  qbRptDateMacroNextYear = 24,
  qbRptDateMacroCustom = 25,
};

// Rows of "Report Column Sort Fields".
enum qbEnumReportColSortFields : int32_t {
  qbRptColSortAccount = 1,
  qbRptColSortBalanceSheet = 2,
  qbRptColSortClass = 3,
  qbRptColSortCustomer = 4,
  qbRptColSortCustomerType = 5,
  qbRptColSortDay = 6,
  qbRptColSortEmployee = 7,
  qbRptColSortFourWeek = 8,
  qbRptColSortHalfMonth = 9,
  qbRptColSortIncomeStatement = 10,
  qbRptColSortItemDetail = 11,
  qbRptColSortItemType = 12,
  qbRptColSortMonth = 13,
  qbRptColSortPayee = 14,
  qbRptColSortPaymentMethod = 15,
  qbRptColSortPayrollItemDetail = 16,
  qbRptColSortPayrollYtdDetail = 17,
  qbRptColSortQuarter = 18,
  qbRptColSortSalesRep = 19,
  qbRptColSortSalesTaxCode = 20,
  qbRptColSortShipMethod = 21,
  qbRptColSortTerms = 22,
  qbRptColSortTotalOnly = 23,
  qbRptColSortTwoWeek = 24,
  qbRptColSortVendor = 25,
  qbRptColSortVendorType = 26,
  qbRptColSortWeek = 27,
  qbRptColSortYear = 28,
};

// Rows of "Report Calendar".
enum qbEnumReportCalendar : int32_t {
  qbRptCalendarFiscalYear = 1,
  qbRptCalendarCalendarYear = 2,
  qbRptCalendarTaxYear = 3,
};

// Rows of "Budget Criterion".
enum qbEnumReportBudgetCriterion : int32_t {
  qbRptBudgetCriterionAccounts = 1,
  qbRptBudgetCriterionAccountsAndClasses = 2,
  qbRptBudgetCriterionAccountsAndCustomers = 3,
};

// Rows of "Budget Summarize Cols By".
enum qbEnumReportBudgetSummarizeColsBy : int32_t {
  qbRptBudgetColsByDate = 1,
  qbRptBudgetColsByClass = 2,
  qbRptBudgetColsByCustomer = 3,
};

// Rows of "Budget Summarize Rows By".
enum qbEnumReportBudgetSummarizeRowsBy : int32_t {
  qbRptBudgetRowsByAccount = 1,
  qbRptBudgetRowsByClass = 2,
  qbRptBudgetRowsByCustomer = 3,
};

// Rows of "Report Detail Level Filter".
enum qbEnumReportDetailLevelFilter : int32_t {
  qbRptDetailLevelAll = 1,
  qbRptDetailLevelSummaryOnly = 2,
  qbRptDetailLevelAllExceptSummary = 3,
};

// Rows of "Report Posting Status Filter".
enum qbEnumReportPostingStatusFilter : int32_t {
  qbRptPostingStatusEither = 1,
  qbRptPostingStatusNonPosting = 2,
  qbRptPostingStatusPosting = 3,
};

// Rows of "ReportFields".
enum qbEnumReportFields : int32_t {
  qbRptFieldAccount = 1,
  qbRptFieldAddr1 = 2,
  qbRptFieldAddr2 = 3,
  qbRptFieldAddr3 = 4,
  qbRptFieldAddr4 = 5,
  qbRptFieldAddr5 = 6,
  qbRptFieldAging = 7,
  qbRptFieldAmount = 8,
  qbRptFieldBilledDate = 9,
  qbRptFieldBillingStatus = 10,
  qbRptFieldBlank = 11,
  qbRptFieldClass = 12,
  qbRptFieldClear = 13,
  qbRptFieldCredit = 14,
  qbRptFieldCustomField = 15,
  qbRptFieldDate = 16,
  qbRptFieldDebit = 17,
  qbRptFieldDueDate = 18,
  qbRptFieldFOB = 19,
  qbRptFieldIncomeSubjectToTax = 20,
  qbRptFieldItem = 21,
  qbRptFieldItemDesc = 22,
  qbRptFieldLabel1 = 23,
  qbRptFieldMemo = 24,
  qbRptFieldModifiedTime = 25,
  qbRptFieldLastModifiedBy = 26,
  qbRptFieldName = 27,
  qbRptFieldOpenBalance = 28,
  qbRptFieldOriginalAmount = 29,
  qbRptFieldPaidAmount = 30,
  qbRptFieldPaidStatus = 31,
  qbRptFieldPayrollItem = 32,
  qbRptFieldPaymentMethod = 33,
  qbRptFieldPercent = 34,
  qbRptFieldPercentChange = 35,
  qbRptFieldPrintStatus = 36,
  qbRptFieldQuantity = 37,
  qbRptFieldReceiveDate = 38,
  qbRptFieldRefDoc = 39,
  qbRptFieldRefNumber = 40,
  qbRptFieldRunningBalance = 41,
  qbRptFieldSalesRep = 42,
  qbRptFieldDeliveryDate = 43,
  qbRptFieldShipMethod = 44,
  qbRptFieldShipToAddr1 = 45,
  qbRptFieldShipToAddr2 = 46,
  qbRptFieldShipToAddr3 = 47,
  qbRptFieldShipToAddr4 = 48,
  qbRptFieldShipToAddr5 = 49,
  qbRptFieldSourceName = 50,
  qbRptFieldSplitAccount = 51,
  qbRptFieldSSNOrTaxID = 52,
  qbRptFieldTerms = 53,
  qbRptFieldThruDate = 54,
  qbRptFieldTotal = 55,
  qbRptFieldFldTxnLine = 56,
  qbRptFieldTxnNumber = 57,
  qbRptFieldTxnType = 58,
  qbRptFieldUnitPrice = 59,
  qbRptFieldWageBase = 60,
  qbRptFieldWageBaseTips = 61,
  qbRptFieldClearedStatus = 62,
  qbRptFieldEstimateActive = 63,
  qbRptFieldCostPrice = 64,
  qbRptFieldQuantityOnHand = 65,
  qbRptFieldAverageCost = 66,
  qbRptFieldValueOnHand = 67,
  qbRptFieldProgressAmount = 68,
  qbRptFieldProgressPercent = 69,
  qbRptFieldPONumber = 70,
  qbRptFieldReceivedQuantity = 71,
  qbRptFieldItemVendor = 72,
  qbRptFieldReorderPoint = 73,
  qbRptFieldLabel = 74,
  qbRptFieldQuantityOnSalesOrder = 75,
  qbRptFieldQuantityAvailable = 76,
  qbRptFieldQuantityOnOrder = 77,
  qbRptFieldSuggestedReorder = 78,
  qbRptFieldEarliestReceiptDate = 79,
  qbRptFieldSalesPerWeek = 80,
  qbRptFieldAmountDifference = 81,
  qbRptFieldDuration = 82,
  qbRptFieldPercentOfTotalValue = 83,
  qbRptFieldRetailValueOnHand = 84,
  qbRptFieldPercentOfTotalRetail = 85,
  qbRptFieldPhysicalCount = 86,
  qbRptFieldTxnID = 87,
  qbRptFieldTaxTableVersion = 88,
  qbRptFieldUserEdit = 89,
  qbRptFieldCalculatedAmount = 90,
};

}  // namespace tessaron
