// The report queries: every kind of report request answered with the report's title, the
// period and basis it was asked for, its typed columns and its rows. The reports whose
// figures the processor sums from the ledger are in report_figures.h; the others answer
// their columns and no rows yet.
#include <string>
#include <string_view>
#include <vector>

#include "qbsim/company_records.h"
#include "qbsim/date_range.h"
#include "qbsim/field_map.h"
#include "qbsim/report_figures.h"
#include "qbsim/request_context.h"
#include "qbsim/request_table.h"
#include "tessaron/platform/date.h"
#include "tessaron/reports/report_catalog.h"

namespace tessaron::qbsim {
namespace {

// A report option the report does not take.
constexpr int kReportOptionRefused = 3151;

int FirstFiscalMonth(RequestContext& ctx) {
  static const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                 "July",    "August",   "September", "October", "November", "December"};
  const std::string m(FieldMap::Decode(ctx.file.Meta(meta::kCompany)).Get("FirstMonthFiscalYear"));
  for (int i = 0; i < 12; ++i)
    if (m == months[i]) return i + 1;
  return 1;
}

// Report macros name quarters and years of the fiscal calendar ("ThisYear" is the fiscal
// year), where transaction queries say so ("ThisFiscalYear").
std::string FiscalMacroName(std::string macro) {
  if (macro.find("Quarter") == std::string::npos && macro.find("Year") == std::string::npos) return macro;
  for (const char* when : {"This", "Last", "Next"})
    if (macro.rfind(when, 0) == 0) return std::string(when) + "Fiscal" + macro.substr(4);
  return macro;
}

// The period asked for. Without dates and without a macro a report covers the fiscal year
// to date.
Period PeriodOf(RequestContext& ctx, const pugi::xml_node& rq) {
  Period p;
  if (pugi::xml_node period = rq.child("ReportPeriod")) {
    p.from = period.child_value("FromReportDate");
    p.to = period.child_value("ToReportDate");
    return p;
  }
  pugi::xml_node macro = rq.child("ReportDateMacro");
  const std::string name = macro ? FiscalMacroName(macro.child_value()) : "ThisFiscalYearToDate";
  if (auto range = DateMacroRange(name, FirstFiscalMonth(ctx))) {
    p.from = range->first;
    p.to = range->second;
  }
  return p;
}

std::string Subtitle(const Period& p, bool asOf) {
  if (asOf) return "As of " + LongDate(p.to.empty() ? FormatDate(Today(), "yyyy-mm-dd") : p.to);
  if (p.from.empty() && p.to.empty()) return "All Transactions";
  if (p.from.empty()) return "Through " + LongDate(p.to);
  if (p.to.empty()) return "From " + LongDate(p.from);
  return LongDate(p.from) + " through " + LongDate(p.to);
}

// The columns of a detail report: those asked for with IncludeColumn, or the usual ones.
std::vector<Column> DetailColumns(const pugi::xml_node& rq) {
  std::vector<Column> cols{{"", "Blank", "STRTYPE"}};
  bool any = false;
  for (pugi::xml_node c = rq.child("IncludeColumn"); c; c = c.next_sibling("IncludeColumn")) {
    cols.push_back(Col(c.child_value(), c.child_value()));
    any = true;
  }
  if (!any)
    for (const char* t : {"TxnType", "Date", "RefNumber", "Name", "Memo", "Account", "Amount"}) cols.push_back(Col(t, t));
  return cols;
}

void Write(XmlOut& out, const std::string& title, const Answer& a) {
  out.Open("ReportRet");
  out.Element("ReportTitle", title);
  out.Element("ReportSubtitle", a.subtitle);
  if (!a.basis.empty()) out.Element("ReportBasis", a.basis);
  out.Element("NumRows", std::to_string(a.rows.size()));
  out.Element("NumColumns", std::to_string(a.columns.size()));
  out.Element("NumColTitleRows", std::to_string(a.titleRows));
  int id = 0;
  for (const Column& c : a.columns) {
    out.OpenWithAttributes("ColDesc");
    out.Attribute("colID", std::to_string(++id));
    out.Attribute("dataType", c.dataType);
    out.EndAttributes();
    // Titles on the last title row; a column without one still has its (empty) title row.
    for (int r = 1; r <= a.titleRows; ++r) {
      out.OpenWithAttributes("ColTitle");
      out.Attribute("titleRow", std::to_string(r));
      if (r == a.titleRows && !c.title.empty()) out.Attribute("value", c.title);
      out.Raw("/>");
    }
    out.Element("ColType", c.colType);
    out.Close("ColDesc");
  }
  if (!a.rows.empty()) {
    out.Open("ReportData");
    int number = 0;
    for (const Row& row : a.rows) {
      out.OpenWithAttributes(row.kind);
      out.Attribute("rowNumber", std::to_string(++number));
      // A heading carries its text itself; the other rows in their cells.
      if (std::string_view(row.kind) == "TextRow") {
        out.Attribute("value", row.rowValue);
        out.Raw("/>");
        continue;
      }
      out.EndAttributes();
      if (!row.rowType.empty()) {
        out.OpenWithAttributes("RowData");
        out.Attribute("rowType", row.rowType);
        out.Attribute("value", row.rowValue);
        out.Raw("/>");
      }
      for (size_t i = 0; i < row.cells.size(); ++i) {
        if (row.cells[i].empty()) continue;
        out.OpenWithAttributes("ColData");
        out.Attribute("colID", std::to_string(i + 1));
        out.Attribute("value", row.cells[i]);
        out.Raw("/>");
      }
      out.Close(row.kind);
    }
    out.Close("ReportData");
  }
  out.Close("ReportRet");
}

Status ReportQuery(RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
  const std::string_view name = rq.name();
  // Job and time reports have no basis; the request is refused as a whole.
  if ((name == "JobReportQueryRq" || name == "TimeReportQueryRq") && rq.child("ReportBasis"))
    return {kReportOptionRefused, "ReportBasis is not a valid option for this report."};
  const std::string prefix(name.substr(0, name.size() - std::string_view("ReportQueryRq").size()));
  const std::string requested = rq.child_value((prefix + "ReportType").c_str());
  const rptDescriptor* d = FindReportByRequestName(requested);
  if (!d) return {status::kBadValue, "The report \"" + requested + "\" is not known."};
  // QuickBooks shows the report on its own screen and answers nothing more.
  if (std::string_view(rq.child_value("DisplayReport")) == "true") return {};

  ReportOptions o;
  o.period = PeriodOf(ctx, rq);
  const Period& period = o.period;
  o.cash = std::string_view(rq.child_value("ReportBasis")) == "Cash";
  o.columnsBy = rq.child_value("SummarizeColumnsBy");
  o.returnRows = rq.child_value("ReturnRows");
  // The library writes "ReturnCols"; the schema names it "ReturnColumns".
  o.returnCols = rq.child("ReturnColumns") ? rq.child_value("ReturnColumns") : rq.child_value("ReturnCols");
  o.filters = ReadPostingFilters(rq);
  // The Profit and Loss by class and by job are the standard one split by class or customer.
  if (o.columnsBy.empty() && d->Code() == qbRptProfitAndLossByClass) o.columnsBy = "Class";
  if (o.columnsBy.empty() && d->Code() == qbRptProfitAndLossByJob) o.columnsBy = "Customer";
  Answer a;
  const auto type = d->ReportType();
  if (type == ReportTypeGeneralSummary || type == ReportTypeGeneralDetail || type == ReportTypeCustomSummary ||
      type == ReportTypeCustomDetail) {
    const std::string basis = rq.child_value("ReportBasis");
    a.basis = basis.empty() || basis == "None" ? "Accrual" : basis;
  }
  // The open-document reports and the name balances count what is owed: accrual always.
  if (d->Code() == qbRptTrialBalance) {
    TrialBalance(ctx, o, a);
  } else if (d->Code() == qbRptARAgingSummary || d->Code() == qbRptAPAgingSummary) {
    AgingSummary(ctx, o, d->Code() == qbRptAPAgingSummary, a);
  } else if (d->Code() == qbRptARAgingDetail || d->Code() == qbRptAPAgingDetail) {
    AgingDetail(ctx, o, d->Code() == qbRptAPAgingDetail, a);
  } else if (d->Code() == qbRptOpenInvoices) {
    OpenInvoices(ctx, o, a);
  } else if (d->Code() == qbRptCustomerBalanceSummary || d->Code() == qbRptVendorBalanceSummary) {
    BalanceSummary(ctx, o, d->Code() == qbRptVendorBalanceSummary, a);
  } else if (d->Code() == qbRptProfitAndLossStandard || d->Code() == qbRptProfitAndLossByClass ||
             d->Code() == qbRptProfitAndLossByJob) {
    ProfitAndLoss(ctx, o, a);
  } else if (d->Code() == qbRptBalanceSheetStandard) {
    BalanceSheet(ctx, o, a);
  } else if (d->HasTxns() || type == ReportTypePayrollDetail || type == ReportTypeCustomDetail) {
    a.columns = DetailColumns(rq);
  } else if (type == ReportTypeTime) {
    a.columns = {{"", "Label", "STRTYPE"}, {"Hours", "Duration", "TIMEINTERVALTYPE"}};
  } else {
    a.columns = {{"", "Label", "STRTYPE"}, {"TOTAL", "Amount", "AMTTYPE"}};
  }
  const bool asOf = d->Code() == qbRptTrialBalance || type == ReportTypeAging || d->Code() == qbRptOpenInvoices ||
                    d->Code() == qbRptCustomerBalanceSummary || d->Code() == qbRptVendorBalanceSummary ||
                    d->ReportGroup() == qbRptGrpInventory || d->Description().find("Balance Sheet") == 0;
  a.subtitle = d->NoDateAllowed() ? "" : Subtitle(period, asOf);
  Write(out, d->Description(), a);
  return {};
}

}  // namespace

void RegisterReportRequests(RequestTable& table) {
  for (const char* prefix : {"GeneralSummary", "GeneralDetail", "Aging", "CustomSummary", "CustomDetail", "Job",
                             "Time", "PayrollSummary", "PayrollDetail"})
    table.Add(std::string(prefix) + "ReportQueryRq", {ReportQuery, nullptr, 20});
  table.Add("BudgetSummaryReportQueryRq", {ReportQuery, nullptr, 20});
}

}  // namespace tessaron::qbsim
