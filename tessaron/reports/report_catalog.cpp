#include "tessaron/reports/report_catalog.h"

#include <string_view>

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

// One row of the catalogue. Flags: T has transactions, A needs an account, E needs an
// entity, C takes no calendar, D takes no date. An empty request name means the
// description without its blanks.
struct CatalogRow {
  const char* description;
  const char* requestName;
  qbEnumReportType type;
  qbEnumReportGroups group;
  std::string_view flags;
};

constexpr auto GD = ReportTypeGeneralDetail, GS = ReportTypeGeneralSummary, AG = ReportTypeAging,
               JB = ReportTypeJob, TM = ReportTypeTime, BU = ReportTypeBudget, PD = ReportTypePayrollDetail,
               PS = ReportTypePayrollSummary;
constexpr auto CF = qbRptGrpCompanyAndFinancial, CR = qbRptGrpCustomersAndReceivables, SA = qbRptGrpSales,
               JT = qbRptGrpJobsAndTime, VP = qbRptGrpVendorsAndPayables, PU = qbRptGrpPurchases,
               IN = qbRptGrpInventory, EP = qbRptGrpEmployeesAndPayroll, BK = qbRptGrpBanking,
               AT = qbRptGrpAccountantAndTaxes, BF = qbRptGrpBudgetsAndForecasts;

// In Code order: row n is report n.
constexpr CatalogRow kCatalog[kReportCount] = {
    {"1099 Detail", "", GD, VP, "T"},
    {"Audit Trail", "", GD, AT, "T"},
    {"Balance Sheet Detail", "", GD, CF, "T"},
    {"Check Detail", "", GD, BK, "T"},
    {"Customer Balance Detail", "", GD, CR, "T"},
    {"Deposit Detail", "", GD, BK, "T"},
    {"Estimates By Job", "", GD, JT, "T"},
    {"Expense By Vendor Detail", "", GD, CF, "T"},
    {"General Ledger", "", GD, AT, "T"},
    {"Income By Customer Detail", "", GD, CF, "T"},
    {"Income Tax Detail", "", GD, AT, "T"},
    {"Inventory Valuation Detail", "", GD, IN, "T"},
    {"Job Progress Invoices Vs Estimates", "", GD, JT, "T"},
    {"Journal", "", GD, AT, "T"},
    {"Missing Checks", "", GD, BK, "TA"},
    {"Open Invoices", "", GD, CR, "T"},
    {"Open Purchase Orders", "OpenPOs", GD, PU, "T"},
    {"Open Purchase Orders By Job", "OpenPOsByJob", GD, PU, "T"},
    {"Pending Sales", "", GD, SA, "T"},
    {"Profit And Loss Detail", "", GD, CF, "T"},
    {"Purchase By Item Detail", "", GD, PU, "T"},
    {"Purchase By Vendor Detail", "", GD, PU, "T"},
    {"Sales By Customer Detail", "", GD, SA, "T"},
    {"Sales By Item Detail", "", GD, SA, "T"},
    {"Sales By Rep Detail", "", GD, SA, "T"},
    {"Transaction Detail By Account", "TxnDetailByAccount", GD, AT, "T"},
    {"Transaction List By Customer", "TxnListByCustomer", GD, CR, "T"},
    {"Transaction List By Date", "TxnListByDate", GD, AT, "T"},
    {"Transaction List By Vendor", "TxnListByVendor", GD, VP, "T"},
    {"Unpaid Bills Detail", "", GD, VP, "T"},
    {"Unbilled Costs By Job", "", GD, JT, "T"},
    {"Vendor Balance Detail", "", GD, VP, "T"},
    {"AP Aging Detail", "APAgingDetail", AG, VP, "T"},
    {"AP Aging Summary", "APAgingSummary", AG, VP, ""},
    {"AR Aging Detail", "ARAgingDetail", AG, CR, "T"},
    {"AR Aging Summary", "ARAgingSummary", AG, CR, ""},
    {"Collections Report", "", AG, CR, "T"},
    {"Balance Sheet Prev Year Comp", "", GS, CF, ""},
    {"Balance Sheet Standard", "", GS, CF, ""},
    {"Balance Sheet Summary", "", GS, CF, ""},
    {"Customer Balance Summary", "", GS, CR, ""},
    {"Expense By Vendor Summary", "", GS, CF, ""},
    {"Income By Customer Summary", "", GS, CF, ""},
    {"Inventory Stock Status By Item", "", GS, IN, "C"},
    {"Inventory Stock Status By Vendor", "", GS, IN, "C"},
    {"Income Tax Summary", "", GS, AT, ""},
    {"Inventory Valuation Summary", "", GS, IN, "C"},
    {"Physical Inventory Worksheet", "", GS, IN, "CD"},
    {"Profit And Loss By Class", "", GS, CF, ""},
    {"Profit And Loss By Job", "", GS, CF, ""},
    {"Profit And Loss Prev Year Comp", "", GS, CF, ""},
    {"Profit And Loss Standard", "", GS, CF, ""},
    {"Profit And Loss YTD Comp", "", GS, CF, ""},
    {"Purchase By Item Summary", "", GS, PU, ""},
    {"Purchase By Vendor Summary", "", GS, PU, ""},
    {"Sales By Customer Summary", "", GS, SA, ""},
    {"Sales By Item Summary", "", GS, SA, ""},
    {"Sales By Rep Summary", "", GS, SA, ""},
    {"Sales Tax Liability", "", GS, VP, ""},
    {"Sales Tax Revenue Summary", "", GS, VP, ""},
    {"Trial Balance", "", GS, AT, ""},
    {"Vendor Balance Summary", "", GS, VP, ""},
    {"Job Estimates Vs Actuals Detail", "", JB, JT, "TE"},
    {"Job Estimates Vs Actuals Summary", "", JB, JT, ""},
    {"Job Profitability Detail", "", JB, JT, "TE"},
    {"Job Profitability Summary", "", JB, JT, ""},
    {"Item Estimates Vs Actuals", "", JB, JT, ""},
    {"Item Profitability", "", JB, JT, ""},
    {"Time By Item", "", TM, JT, ""},
    {"Time By Job Detail", "", TM, JT, ""},
    {"Time By Job Summary", "", TM, JT, ""},
    {"Time By Name", "", TM, JT, ""},
    {"Balance Sheet Budget Overview", "", BU, BF, ""},
    {"Balance Sheet Budget Vs Actual", "", BU, BF, ""},
    {"Profit And Loss Budget Overview", "", BU, BF, ""},
    {"Profit And Loss Budget Performance", "", BU, BF, ""},
    {"Profit And Loss Budget Vs Actual", "", BU, BF, ""},
    {"Employee State Taxes Detail", "", PD, EP, ""},
    {"Payroll Item Detail", "", PD, EP, ""},
    {"Payroll Review Detail", "", PD, EP, ""},
    {"Payroll Transaction Detail", "", PD, EP, ""},
    {"Payroll Transactions By Payee", "", PD, EP, ""},
    {"Employee Earnings Summary", "", PS, EP, ""},
    {"Payroll Liability Balances", "", PS, EP, ""},
    {"Payroll Summary", "", PS, EP, ""},
    {"Open Sales Order By Customer", "", GD, SA, "T"},
    {"Open Sales Order By Item", "", GD, SA, "T"},
    {"Transaction Detail", "CustomTxnDetail", ReportTypeCustomDetail, qbRptGrpCustom, "T"},
    {"Transaction Summary", "CustomSummary", ReportTypeCustomSummary, qbRptGrpCustom, ""},
};

bool Has(std::string_view flags, char f) { return flags.find(f) != std::string_view::npos; }

}  // namespace

void rptDescriptor::SetFlags(bool hasTxns, bool needAccount, bool needEntity, bool noCalendar, bool noDate) {
  hasTxns_ = hasTxns;
  needAccount_ = needAccount;
  needEntity_ = needEntity;
  noCalendarAllowed_ = noCalendar;
  noDateAllowed_ = noDate;
}

void LoadReportCatalog() {
  auto table = QBEnumerations().Item(qoeReport);
  if (table->Count() != 0) return;
  int16_t code = 0;
  for (const CatalogRow& row : kCatalog) {
    auto d = std::make_shared<rptDescriptor>();
    d->SetCode(++code);
    d->SetDescription(row.description);
    d->SetReportType(row.type);
    d->SetReportGroup(row.group);
    d->SetFlags(Has(row.flags, 'T'), Has(row.flags, 'A'), Has(row.flags, 'E'), Has(row.flags, 'C'),
                Has(row.flags, 'D'));
    d->SetRequestName(*row.requestName ? std::string(row.requestName) : RemoveSpaces(row.description));
    // As a row of its table the report's qbXML text is its request name, so the general
    // enumeration lookups (EnumCodeToXML, EnumXMLToCode) answer it too.
    if (d->RequestName() != d->CollectionKey()) d->SetXMLTag(d->RequestName());
    table->AddObject(d);
  }
}

std::shared_ptr<QCEnum> ReportCatalog() {
  LoadReportCatalog();
  return QBEnumerations().Item(qoeReport);
}

std::shared_ptr<const rptDescriptor> ReportDescriptor(int32_t code) {
  auto table = ReportCatalog();
  if (code < 1 || code > table->Count())
    throw Error(err::kInternal, "Tessaron: TypeCodes", "Unknown Code");
  // Only the catalogue fills this table, and it fills it with descriptors alone.
  return std::static_pointer_cast<const rptDescriptor>(table->Item(Variant(static_cast<int32_t>(code))));
}

const rptDescriptor* FindReportByRequestName(const std::string& name) {
  auto table = ReportCatalog();
  for (const auto& row : table->NewEnum()) {
    auto d = std::static_pointer_cast<const rptDescriptor>(row);
    if (d->RequestName() == name || d->CollectionKey() == name) return d.get();
  }
  return nullptr;
}

const char* ReportTypePrefix(int32_t reportType) {
  switch (reportType) {
    case ReportTypeAging: return "Aging";
    case ReportTypeBudget: return "BudgetSummary";
    case ReportTypeCustomSummary: return "CustomSummary";
    case ReportTypeCustomDetail: return "CustomDetail";
    case ReportTypeGeneralSummary: return "GeneralSummary";
    case ReportTypeGeneralDetail: return "GeneralDetail";
    case ReportTypeJob: return "Job";
    case ReportTypeTime: return "Time";
    case ReportTypePayrollDetail: return "PayrollDetail";
    case ReportTypePayrollSummary: return "PayrollSummary";
    default: return "";
  }
}

}  // namespace tessaron
