// The report catalogue: the 89 reports the request processor can run, each with its kind of
// request, its group, its flags and the name the request carries. The catalogue is made
// once, at the load of the library, into the "ReportTypes" enumeration table, which
// QBConnection::AvailableReports hands out; each row there is an rptDescriptor.
//
//   auto d = ReportDescriptor(qbRptTrialBalance);
//   d->Description();   // "Trial Balance"
//   d->RequestName();   // "TrialBalance", what GeneralSummaryReportType carries
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/qc_enum.h"
#include "tessaron/foundation/qc_enum_value.h"

namespace tessaron {

// The kind of request a report is asked with; it names the request ("Aging" +
// "ReportQueryRq") and decides which options the request may carry.
enum qbEnumReportType : int32_t {
  ReportTypeAging = 1,
  ReportTypeBudget = 2,
  ReportTypeCustomSummary = 3,
  ReportTypeCustomDetail = 4,
  ReportTypeGeneralSummary = 5,
  ReportTypeGeneralDetail = 6,
  ReportTypeJob = 7,
  ReportTypeTime = 8,
  ReportTypePayrollDetail = 9,
  ReportTypePayrollSummary = 10,
};

// The reports, in catalogue order (= Code).
enum qbEnumReports : int32_t {
  qbRpt1099Detail = 1, qbRptAuditTrail, qbRptBalanceSheetDetail, qbRptCheckDetail,
  qbRptCustomerBalanceDetail, qbRptDepositDetail, qbRptEstimatesByJob, qbRptExpenseByVendorDetail,
  qbRptGeneralLedger, qbRptIncomeByCustomerDetail, qbRptIncomeTaxDetail, qbRptInventoryValuationDetail,
  qbRptJobProgressInvoicesVsEstimates, qbRptJournal, qbRptMissingChecks, qbRptOpenInvoices, qbRptOpenPOs,
  qbRptOpenPOsByJob, qbRptPendingSales, qbRptProfitAndLossDetail, qbRptPurchaseByItemDetail,
  qbRptPurchaseByVendorDetail, qbRptSalesByCustomerDetail, qbRptSalesByItemDetail, qbRptSalesByRepDetail,
  qbRptTxnDetailByAccount, qbRptTxnListByCustomer, qbRptTxnListByDate, qbRptTxnListByVendor,
  qbRptUnpaidBillsDetail, qbRptUnbilledCostsByJob, qbRptVendorBalanceDetail,
  qbRptAPAgingDetail = 33, qbRptAPAgingSummary, qbRptARAgingDetail, qbRptARAgingSummary,
  qbRptCollectionsReport,
  qbRptBalanceSheetPrevYearComp = 38, qbRptBalanceSheetStandard, qbRptBalanceSheetSummary,
  qbRptCustomerBalanceSummary, qbRptExpenseByVendorSummary, qbRptIncomeByCustomerSummary,
  qbRptInventoryStockStatusByItem, qbRptInventoryStockStatusByVendor, qbRptIncomeTaxSummary,
  qbRptInventoryValuationSummary, qbRptPhysicalInventoryWorksheet, qbRptProfitAndLossByClass,
  qbRptProfitAndLossByJob, qbRptProfitAndLossPrevYearComp, qbRptProfitAndLossStandard,
  qbRptProfitAndLossYTDComp, qbRptPurchaseByItemSummary, qbRptPurchaseByVendorSummary,
  qbRptSalesByCustomerSummary, qbRptSalesByItemSummary, qbRptSalesByRepSummary, qbRptSalesTaxLiability,
  qbRptSalesTaxRevenueSummary, qbRptTrialBalance, qbRptVendorBalanceSummary,
  qbRptJobEstimatesVsActualsDetail = 63, qbRptJobEstimatesVsActualsSummary, qbRptJobProfitabilityDetail,
  qbRptJobProfitabilitySummary, qbRptItemEstimatesVsActuals, qbRptItemProfitability,
  qbRptTimeByItem = 69, qbRptTimeByJobDetail, qbRptTimeByJobSummary, qbRptTimeByName,
  qbRptBalanceSheetBudgetOverview = 73, qbRptBalanceSheetBudgetVsActual, qbRptProfitAndLossBudgetOverview,
  qbRptProfitAndLossBudgetPerformance, qbRptProfitAndLossBudgetVsActual,
  qbRptEmployeeStateTaxesDetail = 78, qbRptPayrollItemDetail, qbRptPayrollReviewDetail,
  qbRptPayrollTransactionDetail, qbRptPayrollTransactionsByPayee,
  qbRptEmployeeEarningsSummary = 83, qbRptPayrollLiabilityBalances, qbRptPayrollSummary,
  qbRptOpenSalesOrderByCustomer = 86, qbRptOpenSalesOrderByItem,
  qbRptCustomDetail = 88, qbRptCustomSummary = 89,
};

inline constexpr int32_t kReportCount = 89;

// One report of the catalogue. It stands as a row of the "ReportTypes" table (code,
// description, key), and adds what the request builder needs to know. Read-only to
// applications: only the catalogue fills it.
class rptDescriptor : public qcEnumValue {
 public:
  bool HasTxns() const { return hasTxns_; }
  bool NeedEntity() const { return needEntity_; }
  bool NeedAccount() const { return needAccount_; }
  // The request holds no period and no date macro.
  bool NoDateAllowed() const { return noDateAllowed_; }
  // The request takes no ReportCalendar.
  bool NoCalendarAllowed() const { return noCalendarAllowed_; }
  qbEnumReportType ReportType() const { return reportType_; }
  qbEnumReportGroups ReportGroup() const { return reportGroup_; }
  // The report's name in its request ("OpenPOs"; mostly the description without blanks).
  const std::string& RequestName() const { return requestName_; }

  // Library-internal setters, used while the catalogue is built.
  void SetFlags(bool hasTxns, bool needAccount, bool needEntity, bool noCalendar, bool noDate);
  void SetReportType(qbEnumReportType t) { reportType_ = t; }
  void SetReportGroup(qbEnumReportGroups g) { reportGroup_ = g; }
  void SetRequestName(const std::string& name) { requestName_ = name; }

 private:
  bool hasTxns_ = false, needEntity_ = false, needAccount_ = false;
  bool noDateAllowed_ = false, noCalendarAllowed_ = false;
  qbEnumReportType reportType_ = ReportTypeGeneralSummary;
  qbEnumReportGroups reportGroup_ = qbRptGrpCompanyAndFinancial;
  std::string requestName_;
};

// Fills the "ReportTypes" table with the 89 descriptors when it is empty; otherwise does
// nothing. The load of the library calls it; so does every lookup below.
void LoadReportCatalog();
// The catalogue ("ReportTypes"), filled.
std::shared_ptr<QCEnum> ReportCatalog();
// The descriptor of a code; a code outside 1..89 raises 0x800403EB "Unknown Code".
std::shared_ptr<const rptDescriptor> ReportDescriptor(int32_t code);
// The descriptor whose request name or key equals `name` (as a response or a saved request
// names it); nullptr when none does.
const rptDescriptor* FindReportByRequestName(const std::string& name);
// The prefix of the request of a kind ("GeneralSummary" for 5, "BudgetSummary" for 2);
// empty for any other value.
const char* ReportTypePrefix(int32_t reportType);

}  // namespace tessaron
