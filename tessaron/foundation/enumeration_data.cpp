// The rows of every enumeration table, in the order the application sees them. Codes are
// not always ascending ("Customer" 14 comes before "Class" 13) and "Month" gives every
// month the code 8: both are what the tables have always held, and applications read
// rows by position.
#include "tessaron/foundation/detail/enumeration_data.h"

namespace tessaron::detail {
namespace {

constexpr EnumRowData kObjectState[] = {
    {1, "New"}, {2, "Clean"}, {3, "Dirty"}};
constexpr EnumRowData kObjectType[] = {
    {1, "Account"}, {2, "SalesTaxCode"}, {3, "Item Service"}, {4, "ItemInventory"},
    {5, "ItemNonInventory"}, {6, "ItemOtherCharge"}, {7, "ItemSubtotal"}, {8, "ItemGroup"},
    {9, "ItemDiscount"}, {10, "ItemPayment"}, {11, "ItemSalesTax"}, {12, "ItemSalesTaxGroup"},
    {14, "Customer"}, {13, "Class"}, {15, "PaymentMethod"}, {16, "CustomerType"}, {17, "JobType"},
    {18, "VendorType"}, {19, "ShipMethod"}, {20, "Vendor"}, {21, "OtherName"},
    {22, "JournalEntry"}, {23, "Bill"}, {24, "StandardTerms"}, {25, "DateDrivenTerms"},
    {26, "Employee"}, {27, "Check"}, {28, "SalesRep"}, {29, "PurchaseOrder"}, {30, "CustomerMsg"},
    {31, "ToDo"}, {32, "VendorCredit"}, {33, "CreditCardCharge"}, {34, "CreditCardCredit"},
    {35, "TimeTracking"}, {36, "Invoice"}, {37, "PayrollItemWage"}, {38, "SalesReceipt"},
    {39, "CreditMemo"}, {40, "Estimate"}, {41, "ReceivePayment"}, {42, "BillPayment"},
    {43, "UndepositedFund"}, {44, "Deposit"}, {45, "Item"}, {46, "DataExtDef"}, {47, "DataExt"},
    {48, "Charge"}, {49, "ItemInventoryAssembly"}, {50, "Inventory Adjustment"},
    {51, "Sales Tax Payment Check"}, {52, "Sales Order"}, {53, "Currency"}, {54, "Tax Code"},
    {55, "Template"}, {56, "Company"}, {57, "Entity"}, {58, "Term"}, {59, "ItemReceipt"},
    {60, "PayrollItemNonWage"}, {61, "ItemFixedAsset"}, {62, "UIExtensionSubscription"},
    {63, "UIEventSubscription"}};
constexpr EnumRowData kListType[] = {
    {1, "Account"}, {2, "Sales Tax Code"}, {3, "Vendor"}, {4, "Item"}, {5, "Customer"},
    {6, "Customer Type"}, {7, "Job Type"}, {8, "Vendor Type"}, {9, "Ship Method"}, {10, "Class"},
    {11, "Payment Method"}, {13, "Entity"}, {14, "Journal Entry"}, {15, "Terms"},
    {16, "Sales Rep"}, {17, "Other Name"}, {18, "Bill"}, {19, "Employee"},
    {20, "Customer Message"}, {21, "ToDo"}, {22, "Payroll Item Wage"}, {23, "Template"},
    {24, "Payroll Item Non Wage"}};
constexpr EnumRowData kJobStatus[] = {
    {0, "None"}, {1, "Pending"}, {2, "Awarded"}, {3, "In Progress"}, {4, "Closed"},
    {5, "Not Awarded"}};
constexpr EnumRowData kDeliveryMethod[] = {
    {0, ""}, {1, "Print"}, {2, "Fax"}, {3, "Email"}};
constexpr EnumRowData kItemType[] = {
    {1, "Service"}, {2, "Inventory"}, {3, "Non Inventory"}, {4, "Other Charge"}, {5, "Subtotal"},
    {6, "Group"}, {7, "Discount"}, {8, "Payment"}, {9, "Sales Tax Item"}, {10, "Sales Tax Group"},
    {11, "Inventory Assembly"}, {12, "Fixed Asset"}};
constexpr EnumRowData kAccountType[] = {
    {1, "Accounts Payable"}, {2, "Accounts Receivable"}, {3, "Bank"}, {4, "Cost Of Goods Sold"},
    {5, "Credit Card"}, {6, "Equity"}, {7, "Expense"}, {8, "Fixed Asset"}, {9, "Income"},
    {10, "Long Term Liability"}, {11, "Other Asset"}, {12, "Other Current Asset"},
    {13, "Other Current Liability"}, {14, "Other Expense"}, {15, "Other Income"},
    {16, "Non Posting"}};
constexpr EnumRowData kActiveStatus[] = {
    {1, "ActiveOnly"}, {2, "InactiveOnly"}, {3, "All"}};
constexpr EnumRowData kMonth[] = {
    {8, "January"}, {8, "February"}, {8, "March"}, {8, "April"}, {8, "May"}, {8, "June"},
    {8, "July"}, {8, "August"}, {8, "September"}, {8, "October"}, {8, "November"}, {8, "December"}};
constexpr EnumRowData kOperator[] = {
    {1, "LessThan"}, {2, "LessThanEqual"}, {3, "Equal"}, {4, "GreaterThan"},
    {5, "GreaterThanEqual"}};
constexpr EnumRowData kDateMacro[] = {
    {1, "This Week To Date"}, {2, "This Month To Date"}, {3, "This Fiscal Quarter To Date"},
    {4, "This Fiscal Year To Date"}, {5, "Last Week"}, {6, "Last Month"},
    {7, "Last Fiscal Quarter"}, {8, "Last Fiscal Year"}};
constexpr EnumRowData kTxnPaymentType[] = {
    {1, "Invoice"}, {2, "CreditMemo"}, {3, "JournalEntry"}};
constexpr EnumRowData kTxnLineType[] = {
    {1, "Expense"}, {2, "Item"}, {3, "ItemGroup"}, {4, "Payment"}};
constexpr EnumRowData kGenderType[] = {
    {1, "Male"}, {2, "Female"}};
constexpr EnumRowData kEmployeeType[] = {
    {1, "Regular"}, {2, "Officer"}, {3, "Statutory"}, {4, "Owner"}};
constexpr EnumRowData kWageType[] = {
    {1, "Hourly Regular"}, {2, "Hourly Sick"}, {3, "Hourly Vacation"}, {4, "Salary Regular"},
    {5, "Salary Sick"}, {6, "Salary Vacation"}, {7, "Bonus"}, {8, "Commission"}};
constexpr EnumRowData kMatchType[] = {
    {1, "Starts With"}, {2, "Contains"}, {3, "Ends With"}};
constexpr EnumRowData kPaidStatus[] = {
    {1, "All"}, {2, "Paid Only"}, {3, "Not Paid Only"}};
constexpr EnumRowData kWarnings[] = {
    {1, "This item is associated with an expense account"},
    {2, "This JournalEntryLine is out of order. All DebitLines must come first, followed by all CreditLines."}};
constexpr EnumRowData kTxnState[] = {
    {1, "Active"}, {2, "Voided"}, {3, "Deleted"}};
constexpr EnumRowData kCalculateChargesFrom[] = {
    {1, "DueDate"}, {2, "InvoiceOrBilledDate"}};
constexpr EnumRowData kAgingReportBasis[] = {
    {1, "AgeFromDueDate"}, {2, "AgeFromTransactionDate"}};
constexpr EnumRowData kSummaryReportBasis[] = {
    {1, "Accrual"}, {2, "Cash"}};
constexpr EnumRowData kPaySalesTax[] = {
    {1, "Monthly"}, {2, "Quarterly"}, {3, "Annually"}};
constexpr EnumRowData kDayOfWeek[] = {
    {1, "Monday"}, {2, "Tuesday"}, {3, "Wednesday"}, {4, "Thursday"}, {5, "Friday"},
    {6, "Saturday"}, {7, "Sunday"}};
constexpr EnumRowData kLinkedTxnType[] = {
    {1, "Invoice"}, {2, "Charge"}, {3, "Check"}, {4, "CreditMemo"}, {5, "Deposit"},
    {6, "JournalEntry"}, {7, "ReceivePayment"}, {8, "Estimate"}, {9, "Bill"},
    {10, "BillPaymentCheck"}, {11, "BillPaymentCreditCard"}, {12, "CreditCardCharge"},
    {13, "CreditCardCredit"}, {14, "InventoryAdjustment"}, {15, "LiabilityAdjustment"},
    {16, "PurchaseOrder"}, {17, "SalesReceipt"}, {18, "SalesTaxPaymentCheck"},
    {19, "TimeTracking"}, {20, "Transfer"}, {21, "VendorCredit"}, {22, "ItemReceipt"},
    {23, "SalesOrder"}};
constexpr EnumRowData kReportField[] = {
    {1, "Account"}, {2, "Addr1"}, {3, "Addr2"}, {4, "Addr3"}, {5, "Addr4"}, {6, "Addr5"},
    {7, "Aging"}, {8, "Amount"}, {9, "Billed Date"}, {10, "Billing Status"}, {11, "Blank"},
    {12, "Class"}, {13, "Clear"}, {14, "Credit"}, {15, "Custom Field"}, {16, "Date"},
    {17, "Debit"}, {18, "Due Date"}, {19, "FOB"}, {20, "Income Subject To Tax"}, {21, "Item"},
    {22, "Item Desc"}, {23, "Label1"}, {24, "Memo"}, {25, "Modified Time"},
    {26, "Last Modified By"}, {27, "Name"}, {28, "Open Balance"}, {29, "Original Amount"},
    {30, "Paid Amount"}, {31, "Paid Status"}, {32, "Payroll Item"}, {33, "Payment Method"},
    {34, "Percent"}, {35, "Percent Change"}, {36, "Print Status"}, {37, "Quantity"},
    {38, "Receive Date"}, {39, "Ref Doc"}, {40, "Ref Number"}, {41, "Running Balance"},
    {42, "Sales Rep"}, {43, "Delivery Date"}, {44, "Ship Method"}, {45, "Ship To Addr1"},
    {46, "Ship To Addr2"}, {47, "Ship To Addr3"}, {48, "Ship To Addr4"}, {49, "Ship To Addr5"},
    {50, "Source Name"}, {51, "Split Account"}, {52, "SSN Or Tax ID"}, {53, "Terms"},
    {54, "Thru Date"}, {55, "Total"}, {56, "Fld Txn Line"}, {57, "Txn Number"}, {58, "Txn Type"},
    {59, "Unit Price"}, {60, "Wage Base"}, {61, "Wage Base Tips"}, {62, "Cleared Status"},
    {63, "Estimate Active"}, {64, "Cost Price"}, {65, "Quantity On Hand"}, {66, "Average Cost"},
    {67, "Value On Hand"}, {68, "Progress Amount"}, {69, "Progress Percent"}, {70, "PO Number"},
    {71, "Received Quantity"}, {72, "ItemVendor"}, {73, "ReorderPoint"}, {74, "Label"},
    {75, "Quantity On Sales Order"}, {76, "Quantity Available"}, {77, "Quantity On Order"},
    {78, "Suggested Reorder"}, {79, "Earliest Receipt Date"}, {80, "Sales Per Week"},
    {81, "Amount Difference"}, {82, "Duration"}, {83, "Percent Of Total Value"},
    {84, "Retail Value On Hand"}, {85, "Percent Of Total Retail"}, {86, "Physical Count"},
    {87, "Txn ID"}, {88, "Tax Table Version"}, {89, "User Edit"}, {90, "Calculated Amount"}};
constexpr EnumRowData kReportDateMacro[] = {
    {1, "All"}, {2, "Today"}, {3, "This Week"}, {4, "This Week To Date"}, {5, "This Month"},
    {6, "This Month To Date"}, {7, "This Quarter"}, {8, "This Quarter To Date"}, {9, "This Year"},
    {10, "This Year To Date"}, {11, "Yesterday"}, {12, "Last Week"}, {13, "Last Week To Date"},
    {14, "Last Month"}, {15, "Last Month To Date"}, {16, "Last Quarter"},
    {17, "Last Quarter To Date"}, {18, "Last Year"}, {19, "Last Year To Date"}, {20, "Next Week"},
    {21, "Next Four Weeks"}, {22, "Next Month"}, {23, "Next Quarter"}, {24, "Next Year"},
    {25, "Custom"}};
constexpr EnumRowData kTxnType[] = {
    {1, "All"}, {2, "Bill"}, {3, "Bill Payment Check"}, {4, "Bill Payment Credit Card"},
    {5, "Charge"}, {6, "Check"}, {7, "Credit Card Charge"}, {8, "Credit Card Credit"},
    {9, "Credit Memo"}, {10, "Deposit"}, {11, "Estimate"}, {12, "Inventory Adjustment"},
    {13, "Invoice"}, {14, "Item Receipt"}, {15, "Journal Entry"}, {16, "Liability Adjustment"},
    {17, "Purchase Order"}, {18, "Receive Payment"}, {19, "Sales Order"}, {20, "Sales Receipt"},
    {21, "Sales Tax Payment Check"}, {22, "Transfer"}, {23, "Vendor Credit"}};
constexpr EnumRowData kEntityType[] = {
    {1, "Customer"}, {2, "Employee"}, {3, "Other Name"}, {4, "Vendor"}};
constexpr EnumRowData kBillableStatus[] = {
    {1, "Billable"}, {2, "NotBillable"}, {3, "HasBeenBilled"}};
constexpr EnumRowData kReportGroup[] = {
    {1, "Company & Financial"}, {2, "Customers & Recievables"}, {3, "Sales"}, {4, "Jobs & Time"},
    {5, "Vendors & Payables"}, {6, "Purchases"}, {7, "Inventory"}, {8, "Employees & Payroll"},
    {9, "Banking"}, {10, "Accountant & Taxes"}, {11, "Budgets & Forecasts"}, {12, "Lists"},
    {13, "Custom"}};
constexpr EnumRowData kReportCalendar[] = {
    {1, "Fiscal Year"}, {2, "Calendar Year"}, {3, "Tax Year"}};
constexpr EnumRowData kReportRowColReturn[] = {
    {1, "Active Only"}, {2, "Non Zero"}, {3, "All"}};
constexpr EnumRowData kReportColSortFields[] = {
    {1, "Account"}, {2, "Balance Sheet"}, {3, "Class"}, {4, "Customer"}, {5, "Customer Type"},
    {6, "Day"}, {7, "Employee"}, {8, "Four Week"}, {9, "Half Month"}, {10, "Income Statement"},
    {11, "Item Detail"}, {12, "Item Type"}, {13, "Month"}, {14, "Payee"}, {15, "Payment Method"},
    {16, "Payroll Item Detail"}, {17, "Payroll Ytd Detail"}, {18, "Quarter"}, {19, "Sales Rep"},
    {20, "Sales Tax Code"}, {21, "Ship Method"}, {22, "Terms"}, {23, "Total Only"},
    {24, "Two Week"}, {25, "Vendor"}, {26, "Vendor Type"}, {27, "Week"}, {28, "Year"}};
constexpr EnumRowData kDataExtDataTypes[] = {
    {1, "INTTYPE"}, {2, "AMTTYPE"}, {3, "PRICETYPE"}, {4, "QUANTYPE"}, {5, "PERCENTTYPE"},
    {6, "DATETIMETYPE"}, {7, "STR255TYPE"}, {8, "STR1024TYPE"}};
constexpr EnumRowData kClearedStatus[] = {
    {1, "Cleared"}, {2, "NotCleared"}, {3, "Pending"}};
constexpr EnumRowData kPayrollAccrualPeriod[] = {
    {1, "Beginning Of Year"}, {2, "Every Paycheck"}, {3, "Every Hour On Paycheck"}};
constexpr EnumRowData kPayrollPayFrequency[] = {
    {1, "Daily"}, {2, "Weekly"}, {3, "Biweekly"}, {4, "Semimonthly"}, {5, "Monthly"},
    {6, "Quarterly"}, {7, "Yearly"}};
constexpr EnumRowData kReportAccountFilters[] = {
    {1, "Accounts Payable"}, {2, "Accounts Receivable"}, {3, "Allowed For 1099"},
    {4, "AP And Sales Tax"}, {5, "AP Or Credit Card"}, {6, "AR And AP"}, {7, "Asset"},
    {8, "Balance Sheet"}, {9, "Bank"}, {10, "Bank And AR And AP And UF"}, {11, "Bank And UF"},
    {12, "Cost Of Sales"}, {13, "Credit Card"}, {14, "Current Asset"},
    {15, "Current Asset And Expense"}, {16, "Current Liability"}, {17, "Equity"},
    {18, "Equity And Income And Expense"}, {19, "Expense And Other Expense"}, {20, "Fixed Asset"},
    {21, "Income And Expense"}, {22, "Income And Other Income"}, {23, "Liability"},
    {24, "Liability And Equity"}, {25, "Long Term Liability"}, {26, "Non Posting"},
    {27, "Ordinary Expense"}, {28, "Ordinary Income"}, {29, "Ordinary Income And COGS"},
    {30, "Ordinary Income And Expense"}, {31, "Other Asset"}, {32, "Other Current Asset"},
    {33, "Other Current Liability"}, {34, "Other Expense"}, {35, "Other Income"},
    {36, "Other Income Or Expense"}};
constexpr EnumRowData kReportBudgetCriterion[] = {
    {1, "Accounts"}, {2, "AccountsAndClasses"}, {3, "AccountsAndCustomers"}};
constexpr EnumRowData kReportBudgetSumColsByEnum[] = {
    {1, "Date"}, {2, "Class"}, {3, "Customer"}};
constexpr EnumRowData kReportBudgetSumRowsByEnum[] = {
    {1, "Account"}, {2, "Class"}, {3, "Customer"}};
constexpr EnumRowData kReportDetailLevelFilterEnum[] = {
    {1, "All"}, {2, "SummaryOnly"}, {3, "AllExceptSummary"}};
constexpr EnumRowData kReportPostingStatusFilter[] = {
    {1, "Either"}, {2, "NonPosting"}, {3, "Posting"}};
constexpr EnumRowData kCashFlowClassification[] = {
    {1, "None"}, {2, "Operating"}, {3, "Investing"}, {4, "Financing"}, {5, "Not Applicable"}};
constexpr EnumRowData kSpecialAcountType[] = {
    {1, "AccountsPayable"}, {2, "AccountsReceivable"}, {3, "CondenseItemAdjustmentExpenses"},
    {4, "CostOfGoodsSold"}, {5, "DirectDepositLiabilities"}, {6, "Estimates"},
    {7, "InventoryAssets"}, {8, "OpeningBalanceEquity"}, {9, "PayrollExpenses"},
    {10, "PayrollLiabilities"}, {11, "PurchaseOrders"}, {12, "RetainedEarnings"},
    {13, "SalesOrders"}, {14, "SalesTaxPayable"}, {15, "UncategorizedExpenses"},
    {16, "UncategorizedIncome"}, {17, "UndepositedFunds"}};
constexpr EnumRowData kPayrollItemNonWage[] = {
    {1, "Addition"}, {2, "Deduction"}, {3, "Contribution"}, {4, "Tax"}, {5, "Direct Deposit"}};
constexpr EnumRowData kDataBaseTableName[] = {
    {1, "Account"}, {2, "SalesTaxCode"}, {3, "ItemService"}, {4, "ItemInventory"},
    {5, "ItemNonInventory"}, {6, "ItemOtherCharge"}, {7, "ItemSubtotal"}, {8, "ItemGroup"},
    {9, "ItemDiscount"}, {10, "ItemPayment"}, {11, "ItemSalesTax"}, {12, "ItemSalesTaxGroup"},
    {14, "Customer"}, {13, "Class"}, {15, "PaymentMethod"}, {16, "CustomerType"}, {17, "JobType"},
    {18, "VendorType"}, {19, "ShipMethod"}, {20, "Vendor"}, {21, "OtherName"},
    {22, "JournalEntry"}, {23, "Bill"}, {24, "StandardTerms"}, {25, "DateDrivenTerms"},
    {26, "Employee"}, {27, "Check"}, {28, "SalesRep"}, {29, "PurchaseOrder"},
    {30, "CustomerMessage"}, {31, "ToDo"}, {32, "VendorCredit"}, {33, "CreditCardCharge"},
    {34, "CreditCardCredit"}, {35, "TimeTracking"}, {36, "Invoice"}, {37, "PayrollItemWage"},
    {38, "SalesReceipt"}, {39, "CreditMemo"}, {40, "Estimate"}, {41, "ReceivePayment"},
    {42, "BillPayment"}, {43, "Deposit"}, {44, "Item"}, {45, "Entity"}, {46, "Terms"},
    {47, "Charge"}, {48, "ItemAssembly"}, {49, "InventoryAdjustment"},
    {50, "ReceivePaymentToDeposit"}, {51, "SalesTaxPaymentCheck"}, {52, "SalesOrder"},
    {53, "PayrollItemNonWage"}, {54, "ItemFixedAsset"}, {55, "ItemReceipt"}, {56, "Template"}};
constexpr EnumRowData kMenuConditions[] = {
    {1, "MultiUserMode"}, {2, "HasCustomers"}, {3, "HasVendors"}, {4, "InventoryEnabled"},
    {5, "ClassesEnabled"}, {6, "PayrollEnabled"}, {7, "TimeTrackingEnabled"},
    {8, "PriceLevelsEnabled"}, {9, "AssemblyItemsEnabled"}, {10, "SalesOrdersEnabled"},
    {11, "EstimatesEnabled"}, {12, "SalesTaxEnabled"}, {13, "IsAccountantCopy"},
    {14, "AccountantCopyExists"}};
constexpr EnumRowData kMenuNames[] = {
    {1, "File"}, {2, "Company"}, {3, "Customers"}, {4, "Vendors"}, {5, "Employees"},
    {6, "Banking"}};
constexpr EnumRowData kFieldNames[] = {
    {1, "Full Name"}, {2, "List ID"}, {3, "Sales Description", "SalesDesc"}, {4, "Item Type"},
    {5, "Txn ID"}, {6, "Is Active"}, {7, "Custom Field 1"}, {8, "Custom Field 2"},
    {9, "Custom Field 3"}, {10, "Custom Field 4"}, {11, "Custom Field 5"}, {12, "Custom Field 6"},
    {13, "Custom Field 7"}, {14, "Name"}, {100, "Company Name"}, {102, "Salutation"},
    {103, "First Name"}, {104, "Last Name"}, {105, "Phone"}, {106, "Alt Phone"}, {107, "Fax"},
    {108, "Email"}, {109, "Contact"}, {110, "Alt Contact"}, {111, "Customer Type"},
    {113, "Sales Rep"}, {114, "Balance"}, {115, "Total Balance"}, {118, "Resale Number"},
    {119, "Account Number"}, {200, "On Hand"}, {201, "On Sales Order"}, {202, "On Order"},
    {203, "Price"}};

constexpr EnumRowData kTermsKind[] = {{0, "Terms"}, {1, "Standard Terms"}, {2, "Date Driven Terms"}};
constexpr EnumRowData kDoneStatus[] = {{1, "All"}, {2, "DoneOnly"}, {3, "NotDoneOnly"}};

// "TaxForm", "Field" and "FileOpenMode" are registered and stay empty; "ReportTypes" is
// filled by the report catalogue.
constexpr EnumTableData kTables[] = {
    {"ObjectState", kObjectState},
    {"ObjectType", kObjectType},
    {"ListType", kListType},
    {"JobStatus", kJobStatus},
    {"DeliveryMethod", kDeliveryMethod},
    {"ItemType", kItemType},
    {"AccountType", kAccountType},
    {"ActiveStatus", kActiveStatus},
    {"TaxForm", {}},
    {"Month", kMonth},
    {"Operator", kOperator},
    {"Field", {}},
    {"FileOpenMode", {}},
    {"DateMacro", kDateMacro},
    {"TxnPaymentType", kTxnPaymentType},
    {"TxnLineType", kTxnLineType},
    {"GenderType", kGenderType},
    {"EmployeeType", kEmployeeType},
    {"WageType", kWageType},
    {"MatchType", kMatchType},
    {"PaidStatus", kPaidStatus},
    {"Warnings", kWarnings},
    {"TxnState", kTxnState},
    {"CalculateChargesFrom", kCalculateChargesFrom},
    {"AgingReportBasis", kAgingReportBasis},
    {"SummaryReportBasis", kSummaryReportBasis},
    {"PaySalesTax", kPaySalesTax},
    {"FirstDayOfWeek", kDayOfWeek},
    {"TxnType", kLinkedTxnType},
    {"ReportTypes", {}},
    {"ReportFields", kReportField},
    {"Report Date Macros", kReportDateMacro},
    {"Txn Types", kTxnType},
    {"Entity Types", kEntityType},
    {"Billable Status", kBillableStatus},
    {"Report Groups", kReportGroup},
    {"Report Calendar", kReportCalendar},
    {"Report Row/Col Returns", kReportRowColReturn},
    {"Report Column Sort Fields", kReportColSortFields},
    {"Data Extensions Data Types", kDataExtDataTypes},
    {"Cleared Status", kClearedStatus},
    {"Payroll Accrual Period", kPayrollAccrualPeriod},
    {"Pay Periods", kPayrollPayFrequency},
    {"Report Account Filters", kReportAccountFilters},
    {"Budget Criterion", kReportBudgetCriterion},
    {"Budget Summarize Cols By", kReportBudgetSumColsByEnum},
    {"Budget Summarize Rows By", kReportBudgetSumRowsByEnum},
    {"Report Detail Level Filter", kReportDetailLevelFilterEnum},
    {"Report Posting Status Filter", kReportPostingStatusFilter},
    {"Cash Flow Classification", kCashFlowClassification},
    {"Special Account Type", kSpecialAcountType},
    {"Payroll Items Non-Wage", kPayrollItemNonWage},
    {"Database Table Name", kDataBaseTableName},
    {"Menu Conditions", kMenuConditions},
    {"Menu Names", kMenuNames},
    {"Field Names", kFieldNames},
};

static_assert(std::size(kTables) == 56);

}  // namespace

std::span<const EnumTableData> EnumerationTableData() { return kTables; }
std::span<const EnumRowData> TermsKindData() { return kTermsKind; }
std::span<const EnumRowData> DoneStatusData() { return kDoneStatus; }

}  // namespace tessaron::detail
