// Report: the one object for every report QuickBooks runs. Set BaseReport and the options,
// then Refresh: the request is composed by the report's kind, sent, and the answer read
// into Title, ColumnHeaders and ReportRows.
//
//   Report r;
//   r.SetBaseReport(qbRptTrialBalance);
//   r.SetDateMacro(qbRptDateMacroThisYear);
//   r.SetBasis("Accrual");
//   r.Refresh();
//   for (const auto& row : r.ReportRows()) ... row->Columns().Item(1)->Text() ...
//
// SaveToXml is the composing step alone; LoadFromXml reads such a request back into the
// settings (not the rows), so a report definition can be kept in a file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"
#include "tessaron/reports/report_catalog.h"
#include "tessaron/reports/rpt_filters.h"
#include "tessaron/reports/rpt_result.h"

namespace tessaron {

// The report fields by the names the custom detail defaults use.
inline constexpr int32_t qbFldTxnType = qbRptFieldTxnType, qbFldDate = qbRptFieldDate,
                         qbFldTxnNumber = qbRptFieldTxnNumber, qbFldName = qbRptFieldName, qbFldMemo = qbRptFieldMemo,
                         qbFldAccount = qbRptFieldAccount, qbFldClass = qbRptFieldClass,
                         qbFldClearedStatus = qbRptFieldClearedStatus, qbFldSplitAccount = qbRptFieldSplitAccount,
                         qbFldDebit = qbRptFieldDebit, qbFldCredit = qbRptFieldCredit,
                         qbFldOpenBalance = qbRptFieldOpenBalance;

class xmlBldr;

class Report {
 public:
  Report();

  // ---- What to run -----------------------------------------------------------------
  // A qbEnumReports code; 0 (the start) is refused by SaveToXml.
  int32_t BaseReport() const { return baseReport_; }
  void SetBaseReport(int32_t v) { baseReport_ = v; }
  // QuickBooks shows the report itself; Refresh then reads no result.
  bool DisplayReport() const { return displayReport_; }
  void SetDisplayReport(bool v) { displayReport_ = v; }

  // ---- Period ----------------------------------------------------------------------
  // A qbEnumReportDateMacro (1..25). Setting it also sets StartDate and EndDate from
  // today, so the object always shows the period; All (1) and Custom (25) leave them.
  int32_t DateMacro() const { return dateMacro_; }
  void SetDateMacro(int32_t v);
  // Sent with the Custom macro (25).
  Date StartDate() const { return startDate_; }
  void SetStartDate(Date v) { startDate_ = v; }
  Date EndDate() const { return endDate_; }
  void SetEndDate(Date v) { endDate_ = v; }

  // ---- Options ---------------------------------------------------------------------
  std::shared_ptr<rptFilters> Filters() const { return filters_; }
  void SetFilters(std::shared_ptr<rptFilters> f) { filters_ = std::move(f); }
  // qbXML 3.0 and above; 0 sends nothing.
  int32_t DetailLevelFilter() const { return detailLevel_; }
  void SetDetailLevelFilter(int32_t v) { detailLevel_ = v; }
  int32_t PostingStatusFilter() const { return postingStatus_; }
  void SetPostingStatusFilter(int32_t v) { postingStatus_ = v; }
  // qbEnumReportColSortFields codes; 0 sends nothing (custom reports send a default).
  int32_t SummarizeColumnsBy() const { return summarizeColumnsBy_; }
  void SetSummarizeColumnsBy(int32_t v) { summarizeColumnsBy_ = v; }
  int32_t SummarizeRowsBy() const { return summarizeRowsBy_; }
  void SetSummarizeRowsBy(int32_t v) { summarizeRowsBy_ = v; }
  bool InUseAccountsOnly() const { return inUseAccountsOnly_; }
  void SetInUseAccountsOnly(bool v) { inUseAccountsOnly_ = v; }
  bool BalanceAsOfReportEndDate() const { return balanceAsOfEnd_; }
  void SetBalanceAsOfReportEndDate(bool v) { balanceAsOfEnd_ = v; }
  bool IncludeSubColumns() const { return includeSubColumns_; }
  void SetIncludeSubColumns(bool v) { includeSubColumns_ = v; }
  int32_t ReportCalendar() const { return reportCalendar_; }
  void SetReportCalendar(int32_t v) { reportCalendar_ = v; }
  // qbEnumReportReturnRowCol; 0 sends nothing.
  int32_t ReturnRows() const { return returnRows_; }
  void SetReturnRows(int32_t v) { returnRows_ = v; }
  int32_t ReturnColumns() const { return returnColumns_; }
  void SetReturnColumns(int32_t v) { returnColumns_ = v; }
  // "Cash", "Accrual" or empty; the setter takes any letter case, "" and "None" clear it,
  // anything else raises 0x80040A2A.
  const std::string& Basis() const { return basis_; }
  void SetBasis(const std::string& v);

  // ---- Budget reports --------------------------------------------------------------
  // 0 sends 2003.
  int16_t BudgetFiscalYear() const { return budgetFiscalYear_; }
  void SetBudgetFiscalYear(int16_t v) { budgetFiscalYear_ = v; }
  int32_t BudgetCriterion() const { return budgetCriterion_; }
  void SetBudgetCriterion(int32_t v) { budgetCriterion_ = v; }
  int32_t BudgetSummarizeColumnsBy() const { return budgetColumnsBy_; }
  void SetBudgetSummarizeColumnsBy(int32_t v) { budgetColumnsBy_ = v; }
  int32_t BudgetSummarizeRowsBy() const { return budgetRowsBy_; }
  void SetBudgetSummarizeRowsBy(int32_t v) { budgetRowsBy_ = v; }

  // ---- Running ---------------------------------------------------------------------
  // Composes, sends and reads the answer; returns the status (0 on success). A refusal
  // of the basis or of ReturnRows (3151) is retried once without it; any other refusal
  // raises its status code with source "Tessaron:Reports".
  int32_t Refresh();
  // The request aggregate alone (no envelope), as Refresh sends it.
  std::string SaveToXml();
  // Reads a request written by SaveToXml back into the settings.
  Variant LoadFromXml(const std::string& XMLString);

  // ---- The result ------------------------------------------------------------------
  const std::string& Title() const { return title_; }
  const std::string& Subtitle() const { return subtitle_; }
  int32_t MaxRows() const { return maxRows_; }
  int32_t MaxColumns() const { return maxColumns_; }
  int32_t ColumnTitleRows() const { return columnTitleRows_; }
  rptColumnHeaders& ColumnHeaders() { return columnHeaders_; }
  rptRows& ReportRows() { return reportRows_; }
  // The element name of the last response read ("GeneralSummaryReportQueryRs").
  const std::string& ResponseName() const { return responseName_; }

  // Reads a response element (its first child is the report).
  void FromDom(const XmlNode& obj);
  // Reads a request aggregate into the settings.
  void FromDomString(const XmlNode& obj);

 private:
  void WriteLongBranch(xmlBldr& b, const rptDescriptor& d);
  void WriteSummaryOptions(xmlBldr& b, const rptDescriptor& d);
  void Indent();

  int32_t baseReport_ = 0;
  bool displayReport_ = false;
  int32_t dateMacro_ = 0;
  Date startDate_ = kNullDate, endDate_ = kNullDate;
  std::shared_ptr<rptFilters> filters_;
  int32_t detailLevel_ = 0, postingStatus_ = 0;
  int32_t summarizeColumnsBy_ = 0, summarizeRowsBy_ = 0;
  bool inUseAccountsOnly_ = false, balanceAsOfEnd_ = false, includeSubColumns_ = false;
  int32_t reportCalendar_ = 0, returnRows_ = 0, returnColumns_ = 0;
  std::string basis_;
  int16_t budgetFiscalYear_ = 0;
  int32_t budgetCriterion_ = 0, budgetColumnsBy_ = 0, budgetRowsBy_ = 0;

  std::string title_, subtitle_, responseName_;
  int32_t maxRows_ = 0, maxColumns_ = 0, columnTitleRows_ = 0;
  rptColumnHeaders columnHeaders_;
  rptRows reportRows_;
};

}  // namespace tessaron
