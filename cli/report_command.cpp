// tessaron report list [--group NAME]: the reports the library can ask for, by group.
// tessaron report REPORT --company FILE [--from DATE --to DATE | --period this-month|...]
//   [--basis cash|accrual] [--columns total|month|...] [--format table|csv|json|html] [--output FILE]:
//   asks for one report (by code, name or request name) and shows it; "report run REPORT" is the
//   same command under its older name.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/report_render.h"

#include "cli/commands.h"
#include "cli/session.h"
#include "tessaron/foundation/values.h"
#include "tessaron/reports/report.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"
#include "tessaron/reports/report_catalog.h"

namespace tessaron::cli {
namespace {

const char* KindName(int32_t type) {
  switch (type) {
    case ReportTypeAging: return "aging";
    case ReportTypeBudget: return "budget";
    case ReportTypeCustomSummary: return "custom summary";
    case ReportTypeCustomDetail: return "custom detail";
    case ReportTypeGeneralSummary: return "summary";
    case ReportTypeGeneralDetail: return "detail";
    case ReportTypeJob: return "job";
    case ReportTypeTime: return "time";
    case ReportTypePayrollDetail: return "payroll detail";
    case ReportTypePayrollSummary: return "payroll summary";
    default: return "";
  }
}

// Groups in their own order, each with its reports in catalogue order; a group without
// reports (Lists) is left out. `only` keeps one group, matched by its name with or without
// blanks, or with "And" for "&" ("VendorsAndPayables").
void ListReports(const std::string& only) {
  auto groups = QBEnumerations().Item(qoeReportGroup);
  auto reports = ReportCatalog();
  bool anyGroup = false;
  for (const auto& group : groups->NewEnum()) {
    if (!only.empty() && !EqualsIgnoreCase(group->Description(), only) &&
        !EqualsIgnoreCase(group->CollectionKey(), only) &&
        !EqualsIgnoreCase(ReplaceAll(group->CollectionKey(), "&", "And"), only))
      continue;
    bool heading = false;
    for (const auto& row : reports->NewEnum()) {
      auto d = std::static_pointer_cast<const rptDescriptor>(row);
      if (d->ReportGroup() != group->Code()) continue;
      if (!heading) {
        std::cout << (anyGroup ? "\n" : "") << group->Description() << "\n";
        heading = anyGroup = true;
      }
      std::cout << "  " << std::setw(2) << d->Code() << "  " << std::left << std::setw(36) << d->Description()
                << std::setw(32) << d->RequestName() << KindName(d->ReportType()) << std::right << "\n";
    }
  }
  if (!anyGroup) throw Error(platform_error::kInvalidArgument, "tessaron", "No report group named \"" + only + "\"");
}

// A report by its code ("61"), its name ("Trial Balance") or its request name ("TrialBalance").
int32_t ReportCode(const std::string& name) {
  if (!name.empty() && name.find_first_not_of("0123456789") == std::string::npos) return std::stoi(name);
  const std::string spelled = ReplaceAll(name, "&", "And");
  for (const auto& row : ReportCatalog()->NewEnum()) {
    auto d = std::static_pointer_cast<const rptDescriptor>(row);
    // "Profit & Loss" names the standard one of a family ("Profit & Loss Standard").
    if (EqualsIgnoreCase(d->Description(), spelled) || EqualsIgnoreCase(d->RequestName(), name) ||
        EqualsIgnoreCase(d->Description(), spelled + " Standard"))
      return d->Code();
  }
  throw Error(platform_error::kInvalidArgument, "tessaron", "No report named \"" + name + "\"");
}

struct RunOptions {
  std::string report, company, from, to, period, basis, columns = "total", format = "table", output;
};

// The period names of --period, as the date macros they stand for.
constexpr std::pair<const char*, int32_t> kPeriods[] = {
    {"all", qbRptDateMacroAll},
    {"today", qbRptDateMacroToday},
    {"yesterday", qbRptDateMacroYesterday},
    {"this-week", qbRptDateMacroThisWeek},
    {"this-week-to-date", qbRptDateMacroThisWeekToDate},
    {"last-week", qbRptDateMacroLastWeek},
    {"last-week-to-date", qbRptDateMacroLastWeekToDate},
    {"next-week", qbRptDateMacroNextWeek},
    {"next-four-weeks", qbRptDateMacroNextFourWeeks},
    {"this-month", qbRptDateMacroThisMonth},
    {"this-month-to-date", qbRptDateMacroThisMonthToDate},
    {"last-month", qbRptDateMacroLastMonth},
    {"last-month-to-date", qbRptDateMacroLastMonthToDate},
    {"next-month", qbRptDateMacroNextMonth},
    {"this-quarter", qbRptDateMacroThisQuarter},
    {"this-quarter-to-date", qbRptDateMacroThisQuarterToDate},
    {"last-quarter", qbRptDateMacroLastQuarter},
    {"last-quarter-to-date", qbRptDateMacroLastQuarterToDate},
    {"next-quarter", qbRptDateMacroNextQuarter},
    {"this-year", qbRptDateMacroThisYear},
    {"this-year-to-date", qbRptDateMacroThisYearToDate},
    {"last-year", qbRptDateMacroLastYear},
    {"last-year-to-date", qbRptDateMacroLastYearToDate},
    {"next-year", qbRptDateMacroNextYear},
};

// The --columns names, as the column sort fields they ask for; "total" asks for one column.
constexpr std::pair<const char*, int32_t> kColumns[] = {
    {"total", qbRptColSortTotalOnly}, {"day", qbRptColSortDay},     {"week", qbRptColSortWeek},
    {"month", qbRptColSortMonth},     {"quarter", qbRptColSortQuarter}, {"year", qbRptColSortYear},
    {"customer", qbRptColSortCustomer}, {"vendor", qbRptColSortVendor}, {"class", qbRptColSortClass},
};

template <size_t N>
int32_t Lookup(const std::pair<const char*, int32_t> (&table)[N], const std::string& name, const char* what) {
  for (const auto& [text, code] : table)
    if (EqualsIgnoreCase(text, name)) return code;
  std::string known;
  for (const auto& [text, code] : table) known += (known.empty() ? "" : ", ") + std::string(text);
  throw Error(platform_error::kInvalidArgument, "tessaron", "No " + std::string(what) + " \"" + name + "\" (" + known + ")");
}

bool IsPeriodColumns(int32_t columns) {
  return columns == qbRptColSortDay || columns == qbRptColSortWeek || columns == qbRptColSortMonth ||
         columns == qbRptColSortQuarter || columns == qbRptColSortYear;
}

// A file name made of the report's name: "Profit & Loss" gives "profit-loss.html".
std::string PageName(const std::string& title) {
  std::string name;
  for (char c : title) {
    if (std::isalnum(static_cast<unsigned char>(c))) name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    else if (!name.empty() && name.back() != '-') name += '-';
  }
  while (!name.empty() && name.back() == '-') name.pop_back();
  return (name.empty() ? "report" : name) + ".html";
}

void Render(const ReportView& view, const std::string& format, std::ostream& out) {
  if (format == "table") WriteTable(view, out);
  else if (format == "csv") WriteCsv(view, out);
  else if (format == "json") WriteJson(view, out);
  else WriteHtml(view, out);
}

void RunReport(const RunOptions& o, const GlobalOptions& global) {
  const std::string format = [&] {
    for (const char* f : {"table", "csv", "json", "html"})
      if (EqualsIgnoreCase(o.format, f)) return std::string(f);
    throw Error(platform_error::kInvalidArgument, "tessaron", "No format \"" + o.format + "\" (table, csv, json, html)");
  }();
  if (!o.period.empty() && (!o.from.empty() || !o.to.empty()))
    throw Error(platform_error::kInvalidArgument, "tessaron", "Give either --period or --from and --to");
  const int32_t columns = Lookup(kColumns, o.columns, "columns");
  const int32_t macro = o.period.empty() ? 0 : Lookup(kPeriods, o.period, "period");
  Session session(o.company, global);
  Report r;
  r.SetBaseReport(ReportCode(o.report));
  if (macro) r.SetDateMacro(macro);
  if (!o.from.empty() || !o.to.empty()) {
    r.SetDateMacro(qbRptDateMacroCustom);
    r.SetStartDate(o.from.empty() ? kNullDate : DateFromText(o.from));
    r.SetEndDate(o.to.empty() ? Today() : DateFromText(o.to));
  }
  r.SetBasis(o.basis);
  if (columns != qbRptColSortTotalOnly) r.SetSummarizeColumnsBy(columns);
  r.Refresh();
  const ReportView view = ViewOf(r, IsPeriodColumns(columns));
  // A page is always a file; the other formats go to the terminal unless told otherwise.
  std::string path = o.output;
  if (path.empty() && format == "html") path = PageName(r.Title());
  if (path.empty()) {
    Render(view, format, std::cout);
    return;
  }
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (!file) throw Error(platform_error::kInvalidArgument, "tessaron", "Cannot write " + path);
  Render(view, format, file);
  file.close();
  std::error_code ec;
  const auto absolute = std::filesystem::absolute(path, ec);
  std::cout << (ec ? path : absolute.string()) << "\n";
}

// The options of a report run, on `report` itself and on its older `report run`.
void AddRunOptions(CLI::App* cmd, const std::shared_ptr<RunOptions>& o, bool required) {
  auto* name = cmd->add_option("report", o->report, "The report: its code, its name (\"Profit & Loss\") or request name");
  auto* company = cmd->add_option("--company", o->company, "The company file");
  if (required) {
    name->required();
    company->required();
  }
  cmd->add_option("--from", o->from, "First day of the period (yyyy-mm-dd)");
  cmd->add_option("--to", o->to, "Last day of the period (yyyy-mm-dd); the default is today");
  cmd->add_option("--period", o->period, "A named period: this-month, last-month, this-quarter, last-quarter, "
                                         "this-year, last-year, ...-to-date, today, all, ...");
  cmd->add_option("--basis", o->basis, "cash or accrual");
  cmd->add_option("--columns", o->columns, "total, month, quarter, year, week, day, customer, vendor or class");
  cmd->add_option("--format", o->format, "table (the default), csv, json or html");
  cmd->add_option("--output", o->output, "Write to this file and print its path (html: default NAME.html)");
}

}  // namespace

void AddReportCommand(CLI::App& app, const GlobalOptions& global) {
  auto* report = app.add_subcommand("report", "Reports the library can run");
  report->require_subcommand(0, 1);
  auto* list = report->add_subcommand("list", "List the reports by group: code, name, request name and kind");
  auto group = std::make_shared<std::string>();
  list->add_option("--group", *group, "Only the reports of this group (\"Banking\", \"Vendors & Payables\")");
  list->callback([group] { ListReports(*group); });

  auto* run = report->add_subcommand("run", "Run one report on a company file and show it (as \"report REPORT\")");
  auto o = std::make_shared<RunOptions>();
  AddRunOptions(run, o, true);
  run->callback([o, &global] { RunReport(*o, global); });

  // "report REPORT ...": the report named on the command itself.
  auto direct = std::make_shared<RunOptions>();
  AddRunOptions(report, direct, false);
  report->callback([report, direct, &global] {
    if (report->get_subcommands().empty()) {
      if (direct->report.empty() || direct->company.empty())
        throw CLI::ValidationError("report", "name a report and --company FILE, or use report list");
      RunReport(*direct, global);
    }
  });
}

}  // namespace tessaron::cli
