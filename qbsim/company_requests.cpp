// The host record, the company record, the preferences, the company activity and the
// requests that show a QuickBooks form.
#include "qbsim/common_fields.h"
#include "qbsim/data_ext_store.h"
#include "qbsim/record_writer.h"
#include "qbsim/request_context.h"
#include "qbsim/request_table.h"
#include "qbsim/company_records.h"

namespace tessaron::qbsim {
namespace {

using VT = ValueType;

constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};
constexpr const char* kTaxForms[] = {"Form1040", "Form1065", "Form1120", "Form1120S",
                                     "Form990",  "Form990PF", "Form990T", "OtherOrNone"};

constexpr Field kCompanyFields[] = {
    V("IsSampleCompany", VT::Bool), V("CompanyName"), V("LegalCompanyName"), fields::Address("Address"),
    fields::Address("LegalAddress"), fields::Address("CompanyAddressForCustomer"), V("Phone"), V("Fax"), V("Email"),
    V("CompanyEmailForCustomer"), V("CompanyWebSite"), E("FirstMonthFiscalYear", kMonths),
    E("FirstMonthIncomeTaxYear", kMonths), V("CompanyType"), V("EIN"), E("TaxForm", kTaxForms)};

// The preferences hold references; only answers are written from this table.
constexpr const char* kAnyKinds[] = {"Account", "ShipMethod", "ItemSalesTax", "ItemSalesTaxGroup", "SalesTaxCode"};
constexpr RefTarget kAny{"List", kAnyKinds};
constexpr const char* kChargesFrom[] = {"DueDate", "InvoiceOrBilledDate"};
constexpr const char* kAgingBasis[] = {"AgeFromDueDate", "AgeFromTransactionDate"};
constexpr const char* kSummaryBasis[] = {"Accrual", "Cash"};
constexpr const char* kPaySalesTax[] = {"Monthly", "Quarterly", "Annually"};
constexpr const char* kWeekdays[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};

std::string AutomaticLoginAllowed(const RecordRow&, RequestContext& ctx) {
  return ctx.options.automaticLogin ? "true" : "false";
}
std::string PersonalDataAllowed(const RecordRow&, RequestContext& ctx) {
  return ctx.options.personalDataAccessAllowed ? "true" : "false";
}

constexpr Field kAccounting[] = {V("IsUsingAccountNumbers", VT::Bool), V("IsRequiringAccounts", VT::Bool),
                                 V("IsUsingClassTracking", VT::Bool), V("IsUsingAuditTrail", VT::Bool),
                                 V("IsAssigningJournalEntryNumbers", VT::Bool), V("ClosingDate", VT::Date)};
constexpr Field kFinanceCharge[] = {V("AnnualInterestRate", VT::Percent), V("MinFinanceCharge", VT::Amount),
                                    V("GracePeriod", VT::Integer), R("FinanceChargeAccountRef", kAny),
                                    V("IsAssessingForOverdueCharges", VT::Bool), E("CalculateChargesFrom", kChargesFrom),
                                    V("IsMarkedToBePrinted", VT::Bool)};
constexpr Field kJobsAndEstimates[] = {V("IsUsingEstimates", VT::Bool), V("IsUsingProgressInvoicing", VT::Bool),
                                       V("IsPrintingItemsWithZeroAmounts", VT::Bool)};
constexpr Field kPurchasesAndVendors[] = {V("IsUsingInventory", VT::Bool), V("DaysBillsAreDue", VT::Integer),
                                          V("IsAutomaticallyUsingDiscounts", VT::Bool),
                                          R("DefaultDiscountAccountRef", kAny)};
constexpr Field kReports[] = {E("AgingReportBasis", kAgingBasis), E("SummaryReportBasis", kSummaryBasis)};
constexpr Field kSalesAndCustomers[] = {R("DefaultShipMethodRef", kAny), V("DefaultFOB"),
                                        V("DefaultMarkup", VT::Percent),
                                        V("IsTrackingReimbursedExpensesAsIncome", VT::Bool),
                                        V("IsAutoApplyingPayments", VT::Bool)};
constexpr Field kSalesTax[] = {R("DefaultItemSalesTaxRef", kAny), E("PaySalesTax", kPaySalesTax),
                               R("DefaultTaxableSalesTaxCodeRef", kAny), R("DefaultNonTaxableSalesTaxCodeRef", kAny)};
constexpr Field kTimeTracking[] = {E("FirstDayOfWeek", kWeekdays)};
constexpr Field kAccessRights[] = {C("IsAutomaticLoginAllowed", AutomaticLoginAllowed),
                                   C("IsPersonalDataAccessAllowed", PersonalDataAllowed)};
constexpr Field kPreferencesFields[] = {
    G("AccountingPreferences", kAccounting),
    G("FinanceChargePreferences", kFinanceCharge),
    G("JobsAndEstimatesPreferences", kJobsAndEstimates),
    G("PurchasesAndVendorsPreferences", kPurchasesAndVendors),
    G("ReportsPreferences", kReports),
    G("SalesAndCustomersPreferences", kSalesAndCustomers),
    // The US edition's sales tax; the group is left out where no default tax item is set.
    G("SalesTaxPreferences", kSalesTax).With(kUsOnly),
    G("TimeTrackingPreferences", kTimeTracking),
    G("CurrentAppAccessRights", kAccessRights).From(20)};

Status Host(RequestContext& ctx, const pugi::xml_node&, XmlOut& out) {
  const ProcessorOptions& o = ctx.options;
  out.Open("HostRet");
  out.Element("ProductName", o.productName);
  out.Element("MajorVersion", std::to_string(o.productMajorVersion));
  out.Element("MinorVersion", std::to_string(o.productMinorVersion));
  out.Element("Country", EditionName(ctx.edition));
  for (const std::string& v : VersionList(ctx.edition, ctx.newestVersion)) out.Element("SupportedQBXMLVersion", v);
  out.Element("IsAutomaticLogin", o.automaticLogin ? "true" : "false");
  out.Element("QBFileMode", o.fileMode);
  out.Close("HostRet");
  return status::Ok();
}

// The company record and the preferences are records without the list columns.
RecordRow StoredRecord(const std::string& body) {
  RecordRow row;
  row.body = body;
  return row;
}

// The company record and the preferences: stored fields answered through their table.
// CompanyQueryRq may carry OwnerID (the application's, or "0") to ask for the company's
// data extensions, filed under the empty record id.
RequestHandler StoredRecordAnswer(const char* retTag, const char* metaKey, std::span<const Field> fields) {
  return [=](RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
    std::string body = ctx.file.Meta(metaKey);
    std::vector<std::string> owners;
    for (pugi::xml_node o = rq.child("OwnerID"); o; o = o.next_sibling("OwnerID")) owners.push_back(CanonicalOwner(o.text().get()));
    out.Open(retTag);
    RecordWriter(ctx).WriteFields(out, fields, StoredRecord(body));
    WriteDataExtRets(ctx.file, out, "", owners);
    out.Close(retTag);
    return status::Ok();
  };
}

Status CompanyActivity(RequestContext& ctx, const pugi::xml_node&, XmlOut& out) {
  // Both times, always, in this order: the library reads them by position. A company that
  // was never restored or condensed answers empty texts.
  out.Open("CompanyActivityRet");
  out.Element("LastRestoreTime", ctx.file.Meta(meta::kLastRestoreTime));
  out.Element("LastCondenseTime", ctx.file.Meta(meta::kLastCondenseTime));
  out.Close("CompanyActivityRet");
  return status::Ok();
}

// QuickBooks shows a form to the user; the processor tells whoever listens.
RequestHandler Display(const char* typeTag, const char* idTag) {
  return [typeTag, idTag](RequestContext& ctx, const pugi::xml_node& rq, XmlOut&) {
    if (ctx.options.onFormShown)
      ctx.options.onFormShown(rq.name(), rq.child_value(typeTag), idTag ? rq.child_value(idTag) : "");
    return status::Ok();
  };
}

}  // namespace

std::span<const Field> CompanyFields() { return kCompanyFields; }
std::span<const Field> PreferencesFields() { return kPreferencesFields; }

void RegisterCompanyRequests(RequestTable& table) {
  table.Add("HostQueryRq", {Host, nullptr, 10});
  table.Add("CompanyQueryRq", {StoredRecordAnswer("CompanyRet", meta::kCompany, kCompanyFields), nullptr, 10});
  table.Add("PreferencesQueryRq",
            {StoredRecordAnswer("PreferencesRet", meta::kPreferences, kPreferencesFields), nullptr, 11});
  table.Add("CompanyActivityQueryRq", {CompanyActivity, nullptr, 10});
  table.Add("ListDisplayAddRq", {Display("ListDisplayAddType", nullptr), nullptr, 30});
  table.Add("ListDisplayModRq", {Display("ListDisplayModType", "ListID"), nullptr, 30});
  table.Add("TxnDisplayAddRq", {Display("TxnDisplayAddType", nullptr), nullptr, 30});
  table.Add("TxnDisplayModRq", {Display("TxnDisplayModType", "TxnID"), nullptr, 30});
}

}  // namespace tessaron::qbsim
