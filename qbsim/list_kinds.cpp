// The field tables of the list records, in the element order of the qbXML schema's …Ret.
#include "qbsim/common_fields.h"
#include "qbsim/ledger_balances.h"
#include "qbsim/record_kind.h"
#include "qbsim/record_row.h"
#include "tessaron/platform/currency.h"

#include <vector>

namespace tessaron::qbsim {
namespace {

using VT = ValueType;

// ---- References: the lists each kind of reference points into ----
constexpr const char* kAccountKinds[] = {"Account"};
constexpr const char* kCustomerKinds[] = {"Customer"};
constexpr const char* kVendorKinds[] = {"Vendor"};
constexpr const char* kEntityKinds[] = {"Customer", "Employee", "OtherName", "Vendor"};
constexpr const char* kSalesRepEntityKinds[] = {"Employee", "Vendor", "OtherName"};
constexpr const char* kClassKinds[] = {"Class"};
constexpr const char* kCustomerTypeKinds[] = {"CustomerType"};
constexpr const char* kJobTypeKinds[] = {"JobType"};
constexpr const char* kVendorTypeKinds[] = {"VendorType"};
constexpr const char* kTermsKinds[] = {"StandardTerms", "DateDrivenTerms"};
constexpr const char* kSalesRepKinds[] = {"SalesRep"};
constexpr const char* kSalesTaxCodeKinds[] = {"SalesTaxCode"};
constexpr const char* kPaymentMethodKinds[] = {"PaymentMethod"};
constexpr const char* kPayrollItemWageKinds[] = {"PayrollItemWage"};
constexpr const char* kItemSalesTaxKinds[] = {"ItemSalesTax", "ItemSalesTaxGroup"};
constexpr const char* kItemTaxOnlyKinds[] = {"ItemSalesTax"};
constexpr const char* kItemInventoryKinds[] = {"ItemInventory"};
constexpr const char* kItemKinds[] = {"ItemService", "ItemInventory", "ItemNonInventory", "ItemOtherCharge",
                                     "ItemSubtotal", "ItemGroup", "ItemDiscount", "ItemPayment",
                                     "ItemSalesTax", "ItemSalesTaxGroup", "ItemInventoryAssembly",
                                     "ItemFixedAsset"};

constexpr RefTarget kAccount{"Account", kAccountKinds};
constexpr RefTarget kCustomer{"Customer:Job", kCustomerKinds};
constexpr RefTarget kVendor{"Vendor", kVendorKinds};
constexpr RefTarget kEntity{"Entity", kEntityKinds};
constexpr RefTarget kSalesRepEntity{"SalesRepEntity", kSalesRepEntityKinds};
constexpr RefTarget kClass{"Class", kClassKinds};
constexpr RefTarget kCustomerType{"CustomerType", kCustomerTypeKinds};
constexpr RefTarget kJobType{"JobType", kJobTypeKinds};
constexpr RefTarget kVendorType{"VendorType", kVendorTypeKinds};
constexpr RefTarget kTerms{"Terms", kTermsKinds};
constexpr RefTarget kSalesRep{"SalesRep", kSalesRepKinds};
constexpr RefTarget kSalesTaxCode{"SalesTaxCode", kSalesTaxCodeKinds};
constexpr RefTarget kPaymentMethod{"PaymentMethod", kPaymentMethodKinds};
constexpr RefTarget kPayrollItemWage{"PayrollItemWage", kPayrollItemWageKinds};
constexpr RefTarget kItemSalesTax{"ItemSalesTax", kItemSalesTaxKinds};
constexpr RefTarget kItemTaxOnly{"ItemSalesTax", kItemTaxOnlyKinds};
constexpr RefTarget kItemInventory{"ItemInventory", kItemInventoryKinds};
constexpr RefTarget kItem{"Item", kItemKinds};

// ---- Enumerations ----
constexpr const char* kAccountTypes[] = {
    "AccountsPayable", "AccountsReceivable", "Bank", "CostOfGoodsSold", "CreditCard", "Equity", "Expense",
    "FixedAsset", "Income", "LongTermLiability", "NonPosting", "OtherAsset", "OtherCurrentAsset",
    "OtherCurrentLiability", "OtherExpense", "OtherIncome"};
constexpr const char* kSpecialAccountTypes[] = {
    "AccountsPayable", "AccountsReceivable", "CondenseItemAdjustmentExpenses", "CostOfGoodsSold",
    "DirectDepositLiabilities", "Estimates", "ExchangeGainLoss", "InventoryAssets", "ItemReceiptAccount",
    "OpeningBalanceEquity", "PayrollExpenses", "PayrollLiabilities", "PettyCash", "PurchaseOrders",
    "ReconciliationDifferences", "RetainedEarnings", "SalesOrders", "SalesTaxPayable", "UncategorizedExpenses",
    "UncategorizedIncome", "UndepositedFunds"};
constexpr const char* kCashFlow[] = {"None", "Operating", "Investing", "Financing", "NotApplicable"};
constexpr const char* kJobStatus[] = {"Awarded", "Closed", "InProgress", "None", "NotAwarded", "Pending"};
constexpr const char* kDeliveryMethod[] = {"Email", "Fax", "Print"};
constexpr const char* kPaymentMethodTypes[] = {"AmericanExpress", "Cash", "Check", "DebitCard", "Discover",
                                               "ECheck", "GiftCard", "MasterCard", "Other", "OtherCreditCard",
                                               "Visa"};
constexpr const char* kTemplateTypes[] = {"BuildAssembly", "CreditMemo", "Estimate", "Invoice",
                                          "PurchaseOrder", "SalesOrder", "SalesReceipt"};
constexpr const char* kWageTypes[] = {"Bonus", "Commission", "HourlyOvertime", "HourlyRegular", "HourlySick",
                                      "HourlyVacation", "SalaryRegular", "SalarySick", "SalaryVacation"};
constexpr const char* kNonWageTypes[] = {"Addition", "CompanyContribution", "Deduction", "DirectDeposit", "Tax"};
constexpr const char* kEmployeeTypes[] = {"Officer", "Owner", "Regular", "Statutory"};
constexpr const char* kGenders[] = {"Male", "Female"};
constexpr const char* kPayPeriods[] = {"Daily", "Weekly", "Biweekly", "Semimonthly", "Monthly", "Quarterly",
                                       "Yearly"};
constexpr const char* kAccrualPeriods[] = {"BeginningOfYear", "EveryHourOnPaycheck", "EveryPaycheck"};
constexpr const char* kUseTimeData[] = {"NotSet", "UseTimeData", "DoNotUseTimeData"};
constexpr const char* kAcquiredAs[] = {"New", "Old"};

// ---- Computed fields ----
std::string AmountText(int64_t raw) { return FormatCurrency(Currency::FromRaw(raw).RoundHalfEven(2), "0.00"); }
std::string Balance(const RecordRow& r, RequestContext& ctx) { return AmountText(LedgerBalance(ctx, r, false)); }
std::string TotalBalance(const RecordRow& r, RequestContext& ctx) { return AmountText(LedgerBalance(ctx, r, true)); }
// Quantities that transactions move; none are on file yet.
std::string NoQuantity(const RecordRow&, RequestContext&) { return "0"; }

using fields::Address;
using fields::kEditSequence;
using fields::kFullName;
using fields::kIsActive;
using fields::kListID;
using fields::kName;
using fields::kParentRef;
using fields::kSublevel;
using fields::kTimeCreated;
using fields::kTimeModified;

constexpr Field kCreditCardFields[] = {
    V("CreditCardNumber").Max(25), V("ExpirationMonth", VT::Integer), V("ExpirationYear", VT::Integer),
    V("NameOnCard").Max(41), V("CreditCardAddress").Max(41), V("CreditCardPostalCode").Max(41)};

constexpr Field kSalesOrPurchase[] = {
    V("Desc").Max(4095), V("Price", VT::Price).Choice(1), V("PricePercent", VT::Percent).Choice(1),
    R("AccountRef", kAccount)};
constexpr Field kSalesAndPurchase[] = {
    V("SalesDesc").Max(4095), V("SalesPrice", VT::Price), R("IncomeAccountRef", kAccount),
    V("PurchaseDesc").Max(4095), V("PurchaseCost", VT::Price), R("ExpenseAccountRef", kAccount),
    R("PrefVendorRef", kVendor)};
constexpr Field SalesOrPurchase() { return G("SalesOrPurchase", kSalesOrPurchase).ModTag("SalesOrPurchaseMod").Choice(9); }
constexpr Field SalesAndPurchase() {
  return G("SalesAndPurchase", kSalesAndPurchase).ModTag("SalesAndPurchaseMod").Choice(9);
}

// ---- Simple lists ----
constexpr Field kTreeListFields[] = {kListID, kTimeCreated,  kTimeModified, kEditSequence, kName,
                                     kFullName, kIsActive, kParentRef, kSublevel};
constexpr Field kFlatListFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive};
constexpr Field kPaymentMethodFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                          E("PaymentMethodType", kPaymentMethodTypes)};
constexpr Field kSalesRepFields[] = {kListID,      kTimeCreated, kTimeModified,
                                     kEditSequence, H("Initial", FieldKind::Name, kAllForms | kRequired),
                                     kIsActive,    R("SalesRepEntityRef", kSalesRepEntity).Required()};
constexpr Field kToDoFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence,
                                 H("Notes", FieldKind::Name, kAllForms | kRequired), kIsActive,
                                 V("IsDone", VT::Bool), V("ReminderDate", VT::Date)};
constexpr Field kSalesTaxCodeFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                         V("IsTaxable", VT::Bool).Required(), V("Desc").Max(31),
                                         R("ItemPurchaseTaxRef", kItemTaxOnly), R("ItemSalesTaxRef", kItemTaxOnly)};
// Outside the US the tax codes of the sales forms; the schema of the US edition has no such list.
constexpr Field kTaxCodeFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                    V("Desc").Max(31)};
constexpr Field kTemplateFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                     E("TemplateType", kTemplateTypes)};
constexpr Field kStandardTermsFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                          V("StdDueDays", VT::Integer), V("StdDiscountDays", VT::Integer),
                                          V("DiscountPct", VT::Percent)};
constexpr Field kDateDrivenTermsFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                            V("DayOfMonthDue", VT::Integer).Required(),
                                            V("DueNextMonthDays", VT::Integer), V("DiscountDayOfMonth", VT::Integer),
                                            V("DiscountPct", VT::Percent)};

// ---- Account ----
constexpr Field kTaxLineInfo[] = {V("TaxLineID", VT::Integer), V("TaxLineName")};
constexpr Field kAccountFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kFullName, kIsActive, kParentRef, kSublevel,
    E("AccountType", kAccountTypes).Required(), E("SpecialAccountType", kSpecialAccountTypes).Only(kInRet),
    V("AccountNumber").Max(7), V("BankNumber").Max(25), V("LastCheckNumber").Only(kInRet), V("Desc").Max(200),
    C("Balance", Balance), C("TotalBalance", TotalBalance), G("TaxLineInfoRet", kTaxLineInfo).Only(kInRet),
    E("CashFlowClassification", kCashFlow).Only(kInRet),
    // Accepted in adds only: the opening balance becomes the balance.
    V("OpenBalance", VT::Amount).Only(kInAdd), V("OpenBalanceDate", VT::Date).Only(kInAdd)};

// ---- Customer, Vendor, OtherName, Employee ----
// A modify carries the references and most job fields only from qbXML 3.0 on.
constexpr Field kCustomerFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName.Max(41), kFullName, kIsActive.ModFrom(30),
    R("ClassRef", kClass), kParentRef, kSublevel, V("CompanyName").Max(41), V("Salutation").Max(15),
    V("FirstName").Max(25), V("MiddleName").Max(5), V("LastName").Max(25), V("Suffix").Max(10),
    V("JobTitle").Max(41), Address("BillAddress"), Address("ShipAddress"), V("PrintAs").Max(41),
    V("Phone").Max(21), V("Mobile").Max(21), V("Pager").Max(21), V("AltPhone").Max(21), V("Fax").Max(21),
    V("Email").Max(1023), V("Cc").Max(1023), V("Contact").Max(41), V("AltContact").Max(41),
    R("CustomerTypeRef", kCustomerType).ModFrom(30), R("TermsRef", kTerms).ModFrom(30),
    R("SalesRepRef", kSalesRep).ModFrom(30), C("Balance", Balance), C("TotalBalance", TotalBalance),
    R("SalesTaxCodeRef", kSalesTaxCode).With(kUsOnly).ModFrom(30),
    R("ItemSalesTaxRef", kItemSalesTax).With(kUsOnly).ModFrom(30), V("ResaleNumber").Max(15).ModFrom(30),
    V("AccountNumber").Max(99), V("CreditLimit", VT::Amount).ModFrom(30),
    R("PreferredPaymentMethodRef", kPaymentMethod).ModFrom(30),
    G("CreditCardInfo", kCreditCardFields).With(kReplaceOnMod), E("JobStatus", kJobStatus).ModFrom(30),
    V("JobStartDate", VT::Date).ModFrom(30), V("JobProjectedEndDate", VT::Date).ModFrom(30),
    V("JobEndDate", VT::Date).ModFrom(30), V("JobDesc").Max(99).ModFrom(30), R("JobTypeRef", kJobType).ModFrom(30),
    V("Notes").Max(4095).From(30), V("IsStatementWithParent", VT::Bool), E("DeliveryMethod", kDeliveryMethod),
    V("OpenBalance", VT::Amount).Only(kInAdd), V("OpenBalanceDate", VT::Date).Only(kInAdd)};

constexpr Field kVendorFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName.Max(41), kIsActive, R("ClassRef", kClass),
    V("CompanyName").Max(41), V("Salutation").Max(15), V("FirstName").Max(25), V("MiddleName").Max(5),
    V("LastName").Max(25), V("Suffix").Max(10), V("JobTitle").Max(41), Address("VendorAddress"),
    Address("ShipAddress"), V("Phone").Max(21), V("Mobile").Max(21), V("Pager").Max(21), V("AltPhone").Max(21),
    V("Fax").Max(21), V("Email").Max(1023), V("Cc").Max(1023), V("Contact").Max(41), V("AltContact").Max(41),
    V("NameOnCheck").Max(41), V("AccountNumber").Max(99), V("Notes").Max(4095), R("VendorTypeRef", kVendorType),
    R("TermsRef", kTerms), V("CreditLimit", VT::Amount), V("VendorTaxIdent").Max(15),
    V("IsVendorEligibleFor1099", VT::Bool).With(kUsOnly), C("Balance", Balance),
    V("OpenBalance", VT::Amount).Only(kInAdd), V("OpenBalanceDate", VT::Date).Only(kInAdd)};

constexpr Field kOtherNameFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName.Max(41), kIsActive, V("CompanyName").Max(41),
    V("Salutation").Max(15), V("FirstName").Max(25), V("MiddleName").Max(5), V("LastName").Max(25),
    Address("OtherNameAddress"), V("Phone").Max(21), V("AltPhone").Max(21), V("Fax").Max(21), V("Email").Max(1023),
    V("Contact").Max(41), V("AltContact").Max(41), V("AccountNumber").Max(99), V("Notes").Max(4095),
    // The library's add carries these as it does for vendors; the record has no place for them.
    V("Suffix").Only(kInAdd), V("Mobile").Only(kInAdd), V("Pager").Only(kInAdd)};

constexpr Field kEarningsFields[] = {R("PayrollItemWageRef", kPayrollItemWage), V("Rate", VT::Price).Choice(1),
                                     V("RatePercent", VT::Percent).Choice(1)};
constexpr Field kHoursFields[] = {V("HoursAvailable"), E("AccrualPeriod", kAccrualPeriods), V("HoursAccrued"),
                                  V("MaximumHours"), V("IsResettingHoursEachNewYear", VT::Bool),
                                  V("HoursUsed"), V("AccrualStartDate", VT::Date)};
constexpr Field kPayrollInfoFields[] = {E("PayPeriod", kPayPeriods), R("ClassRef", kClass),
                                        RG("Earnings", kEarningsFields), E("UseTimeDataToCreatePaychecks", kUseTimeData),
                                        G("SickHours", kHoursFields), G("VacationHours", kHoursFields)};
constexpr Field kEmployeeAddressFields[] = {V("Addr1").Max(41), V("Addr2").Max(41), V("Addr3").Max(41),
                                            V("Addr4").Max(41).From(20), V("City").Max(31), V("State").Max(21),
                                            V("PostalCode").Max(13), V("Country").Max(31)};
constexpr Field kEmployeeFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, H("Name", FieldKind::Name, kAllForms).Max(41), kIsActive,
    V("Salutation").Max(15), V("FirstName").Max(25), V("MiddleName").Max(5), V("LastName").Max(25),
    V("Suffix").Max(10), V("JobTitle").Max(41), G("EmployeeAddress", kEmployeeAddressFields).With(kReplaceOnMod),
    V("PrintAs").Max(41), V("Phone").Max(21), V("Mobile").Max(21), V("Pager").Max(21), V("PagerPIN").Max(10),
    V("AltPhone").Max(21), V("Fax").Max(21), V("SSN").Max(11).Only(kInAdd | kInRet), V("Email").Max(1023),
    E("EmployeeType", kEmployeeTypes), E("Gender", kGenders).Only(kInAdd | kInRet), V("HiredDate", VT::Date),
    V("ReleasedDate", VT::Date), V("BirthDate", VT::Date), V("AccountNumber").Max(99), V("Notes").Max(4095),
    G("EmployeePayrollInfo", kPayrollInfoFields).ModTag("EmployeePayrollInfoMod")};

// ---- Payroll items ----
constexpr Field kPayrollItemWageFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                            E("WageType", kWageTypes).Required(),
                                            R("ExpenseAccountRef", kAccount).Required()};
constexpr Field kPayrollItemNonWageFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                               E("NonWageType", kNonWageTypes), R("ExpenseAccountRef", kAccount),
                                               R("LiabilityAccountRef", kAccount)};

// ---- Items ----
constexpr Field kItemServiceFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kFullName, kIsActive, R("ClassRef", kClass),
    kParentRef, kSublevel, R("SalesTaxCodeRef", kSalesTaxCode), SalesOrPurchase(), SalesAndPurchase()};
constexpr Field kItemNonInventoryFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kFullName, kIsActive, R("ClassRef", kClass),
    kParentRef, kSublevel, V("ManufacturerPartNumber").Max(31), R("SalesTaxCodeRef", kSalesTaxCode),
    SalesOrPurchase(), SalesAndPurchase()};
constexpr Field kItemOtherChargeFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kFullName, kIsActive, R("ClassRef", kClass),
    kParentRef, kSublevel, R("SalesTaxCodeRef", kSalesTaxCode), SalesOrPurchase(), SalesAndPurchase()};
constexpr Field kItemInventoryFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kFullName, kIsActive, R("ClassRef", kClass),
    kParentRef, kSublevel, V("ManufacturerPartNumber").Max(31), R("SalesTaxCodeRef", kSalesTaxCode),
    V("SalesDesc").Max(4095), V("SalesPrice", VT::Price), R("IncomeAccountRef", kAccount).Required(),
    V("PurchaseDesc").Max(4095), V("PurchaseCost", VT::Price), R("COGSAccountRef", kAccount).Required(),
    R("PrefVendorRef", kVendor), R("AssetAccountRef", kAccount).Required(), V("ReorderPoint", VT::Quantity),
    V("QuantityOnHand", VT::Quantity).Only(kInAdd | kInRet), C("QuantityOnOrder", NoQuantity),
    C("QuantityOnSalesOrder", NoQuantity), V("TotalValue", VT::Amount).Only(kInAdd),
    V("InventoryDate", VT::Date).Only(kInAdd)};
constexpr Field kAssemblyLineFields[] = {R("ItemInventoryRef", kItemInventory), V("Quantity", VT::Quantity)};
constexpr Field kItemAssemblyFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kFullName, kIsActive, R("ClassRef", kClass),
    kParentRef, kSublevel, V("ManufacturerPartNumber").Max(31), R("SalesTaxCodeRef", kSalesTaxCode),
    V("SalesDesc").Max(4095), V("SalesPrice", VT::Price), R("IncomeAccountRef", kAccount).Required(),
    V("PurchaseDesc").Max(4095), V("PurchaseCost", VT::Price), R("COGSAccountRef", kAccount).Required(),
    R("PrefVendorRef", kVendor), R("AssetAccountRef", kAccount).Required(), V("BuildPoint", VT::Quantity),
    V("QuantityOnHand", VT::Quantity).Only(kInAdd | kInRet), C("QuantityOnOrder", NoQuantity),
    C("QuantityOnSalesOrder", NoQuantity), RG("ItemInventoryAssemblyLine", kAssemblyLineFields),
    V("TotalValue", VT::Amount).Only(kInAdd), V("InventoryDate", VT::Date).Only(kInAdd)};
constexpr Field kItemFixedAssetFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive, R("ClassRef", kClass),
    E("AcquiredAs", kAcquiredAs).Required(), V("PurchaseDesc").Max(4095).Required(),
    V("PurchaseDate", VT::Date).Required(), V("PurchaseCost", VT::Price), V("VendorOrPayeeName").Max(50),
    R("AssetAccountRef", kAccount), V("AssetDesc").Max(50), V("Location").Max(50), V("PONumber").Max(30),
    V("SerialNumber").Max(30), V("WarrantyExpDate", VT::Date), V("Notes").Max(4095), V("AssetNumber").Max(10),
    V("CostBasis", VT::Amount), V("YearEndAccumulatedDepreciation", VT::Amount),
    V("YearEndBookValue", VT::Amount)};
constexpr Field kItemSubtotalFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                         V("ItemDesc").Max(4095)};
constexpr Field kItemDiscountFields[] = {
    kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kFullName, kIsActive, R("ClassRef", kClass),
    kParentRef, kSublevel, V("ItemDesc").Max(4095), R("SalesTaxCodeRef", kSalesTaxCode),
    V("DiscountRate", VT::Price).Choice(1), V("DiscountRatePercent", VT::Percent).Choice(1),
    R("AccountRef", kAccount)};
constexpr Field kItemPaymentFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                        R("ClassRef", kClass), V("ItemDesc").Max(4095),
                                        R("DepositToAccountRef", kAccount), R("PaymentMethodRef", kPaymentMethod)};
constexpr Field kItemSalesTaxFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                         R("ClassRef", kClass), V("ItemDesc").Max(4095), V("TaxRate", VT::Percent),
                                         R("TaxVendorRef", kVendor)};
constexpr Field kItemSalesTaxGroupFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                              V("ItemDesc").Max(4095), RR("ItemSalesTaxRef", kItemTaxOnly)};
constexpr Field kItemGroupLineFields[] = {R("ItemRef", kItem), V("Quantity", VT::Quantity)};
constexpr Field kItemGroupFields[] = {kListID, kTimeCreated, kTimeModified, kEditSequence, kName, kIsActive,
                                      V("ItemDesc").Max(4095), V("IsPrintItemsInGroup", VT::Bool),
                                      RG("ItemGroupLine", kItemGroupLineFields)};

ListKind Kind(const char* name, const char* ret, std::span<const Field> fields, bool hierarchical, bool canMod,
              int nameMax) {
  ListKind k;
  k.name = name;
  k.retTag = ret;
  k.nameSpace = name;
  k.fields = fields;
  k.hierarchical = hierarchical;
  k.canMod = canMod;
  k.nameMaxLength = nameMax;
  return k;
}
ListKind Tree(const char* name, const char* ret, std::span<const Field> fields, bool canMod) {
  return Kind(name, ret, fields, true, canMod, 31);
}
ListKind Flat(const char* name, const char* ret, std::span<const Field> fields, bool canMod, int nameMax) {
  return Kind(name, ret, fields, false, canMod, nameMax);
}

ListKind InSpace(ListKind k, const char* space) {
  k.nameSpace = space;
  return k;
}

ListKind QueryOnly(ListKind k) {
  k.canAdd = k.canMod = k.canDelete = false;
  return k;
}

std::vector<ListKind> MakeKinds() {
  std::vector<ListKind> kinds;
  kinds.push_back(Tree("Account", "AccountRet", kAccountFields, true));
  kinds.push_back(Tree("Class", "ClassRet", kTreeListFields, true));
  kinds.push_back(Tree("CustomerType", "CustomerTypeRet", kTreeListFields, false));
  kinds.push_back(Tree("JobType", "JobTypeRet", kTreeListFields, false));
  kinds.push_back(Tree("VendorType", "VendorTypeRet", kTreeListFields, false));
  kinds.push_back(Flat("ShipMethod", "ShipMethodRet", kFlatListFields, false, 15));
  kinds.push_back(Flat("PaymentMethod", "PaymentMethodRet", kPaymentMethodFields, false, 31));
  kinds.push_back(Flat("CustomerMsg", "CustomerMsgRet", kFlatListFields, false, 101));
  ListKind rep = Flat("SalesRep", "SalesRepRet", kSalesRepFields, true, 5);
  rep.nameTag = "Initial";
  kinds.push_back(rep);
  ListKind todo = Flat("ToDo", "ToDoRet", kToDoFields, true, 4095);
  todo.nameTag = "Notes";
  todo.uniqueNames = false;
  kinds.push_back(todo);
  ListKind stc = Flat("SalesTaxCode", "SalesTaxCodeRet", kSalesTaxCodeFields, true, 3);
  kinds.push_back(stc);
  ListKind tc = QueryOnly(Flat("TaxCode", "TaxCodeRet", kTaxCodeFields, false, 3));
  tc.nonUsOnly = true;
  kinds.push_back(tc);
  kinds.push_back(QueryOnly(Flat("Template", "TemplateRet", kTemplateFields, false, 31)));
  kinds.push_back(InSpace(Flat("StandardTerms", "StandardTermsRet", kStandardTermsFields, false, 31), "Terms"));
  kinds.push_back(InSpace(Flat("DateDrivenTerms", "DateDrivenTermsRet", kDateDrivenTermsFields, false, 31), "Terms"));

  ListKind customer = InSpace(Tree("Customer", "CustomerRet", kCustomerFields, true), "Entity");
  customer.nameMaxLength = 41;
  kinds.push_back(customer);
  kinds.push_back(InSpace(Flat("Vendor", "VendorRet", kVendorFields, true, 41), "Entity"));
  kinds.push_back(InSpace(Flat("OtherName", "OtherNameRet", kOtherNameFields, true, 41), "Entity"));
  kinds.push_back(InSpace(Flat("Employee", "EmployeeRet", kEmployeeFields, true, 41), "Entity"));
  kinds.push_back(Flat("PayrollItemWage", "PayrollItemWageRet", kPayrollItemWageFields, false, 31));
  kinds.push_back(QueryOnly(Flat("PayrollItemNonWage", "PayrollItemNonWageRet", kPayrollItemNonWageFields, false, 31)));

  kinds.push_back(InSpace(Tree("ItemService", "ItemServiceRet", kItemServiceFields, true), "Item"));
  kinds.push_back(InSpace(Tree("ItemInventory", "ItemInventoryRet", kItemInventoryFields, true), "Item"));
  kinds.push_back(InSpace(Tree("ItemNonInventory", "ItemNonInventoryRet", kItemNonInventoryFields, true), "Item"));
  kinds.push_back(InSpace(Tree("ItemOtherCharge", "ItemOtherChargeRet", kItemOtherChargeFields, true), "Item"));
  kinds.push_back(InSpace(Flat("ItemSubtotal", "ItemSubtotalRet", kItemSubtotalFields, true, 31), "Item"));
  kinds.push_back(InSpace(Flat("ItemGroup", "ItemGroupRet", kItemGroupFields, true, 31), "Item"));
  kinds.push_back(InSpace(Tree("ItemDiscount", "ItemDiscountRet", kItemDiscountFields, true), "Item"));
  kinds.push_back(InSpace(Flat("ItemPayment", "ItemPaymentRet", kItemPaymentFields, true, 31), "Item"));
  kinds.push_back(InSpace(Flat("ItemSalesTax", "ItemSalesTaxRet", kItemSalesTaxFields, true, 31), "Item"));
  kinds.push_back(InSpace(Flat("ItemSalesTaxGroup", "ItemSalesTaxGroupRet", kItemSalesTaxGroupFields, true, 31), "Item"));
  kinds.push_back(InSpace(Tree("ItemInventoryAssembly", "ItemInventoryAssemblyRet", kItemAssemblyFields, true), "Item"));
  kinds.push_back(InSpace(Flat("ItemFixedAsset", "ItemFixedAssetRet", kItemFixedAssetFields, true, 31), "Item"));
  return kinds;
}

constexpr QueryFamily kFamilies[] = {
    {"Entity", kEntityKinds},
    {"Item", kItemKinds},
    {"Terms", kTermsKinds},
};

}  // namespace

std::span<const ListKind> ListKinds() {
  static const std::vector<ListKind> kinds = MakeKinds();
  return kinds;
}

const ListKind* FindListKind(std::string_view name) {
  for (const ListKind& k : ListKinds())
    if (name == k.name) return &k;
  return nullptr;
}

const Field* FindRequestField(std::span<const Field> fields, std::string_view tag, uint16_t form) {
  for (const Field& f : fields) {
    if (!(f.flags & form)) continue;
    if (form == kInMod && f.modTag && tag == f.modTag) return &f;
    if (tag == f.tag) return &f;
  }
  // Within an address the state arrives under the name the edition gives it.
  if (tag == "Province" || tag == "County") return FindRequestField(fields, "State", form);
  return nullptr;
}

std::span<const QueryFamily> QueryFamilies() { return kFamilies; }

}  // namespace tessaron::qbsim
