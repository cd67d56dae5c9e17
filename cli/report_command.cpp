// tessaron report list [--group NAME]: the reports the library can ask for, by group.
// tessaron report run REPORT --company FILE [--from DATE --to DATE] [--basis Cash|Accrual]:
//   asks for one report (by code, name or request name) and prints it as QuickBooks lays it out.
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>
#include <algorithm>

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
  for (const auto& row : ReportCatalog()->NewEnum()) {
    auto d = std::static_pointer_cast<const rptDescriptor>(row);
    if (EqualsIgnoreCase(d->Description(), name) || EqualsIgnoreCase(d->RequestName(), name)) return d->Code();
  }
  throw Error(platform_error::kInvalidArgument, "tessaron", "No report named \"" + name + "\"");
}

struct RunOptions {
  std::string report, company, from, to, basis;
};

// The title, the subtitle, the column titles, then each row indented by its depth with its
// cells in their columns.
void RunReport(const RunOptions& o, const GlobalOptions& global) {
  Session session(o.company, global);
  Report r;
  r.SetBaseReport(ReportCode(o.report));
  if (!o.from.empty() || !o.to.empty()) {
    r.SetDateMacro(qbRptDateMacroCustom);
    r.SetStartDate(o.from.empty() ? kNullDate : DateFromText(o.from));
    r.SetEndDate(o.to.empty() ? Today() : DateFromText(o.to));
  }
  r.SetBasis(o.basis);
  r.Refresh();
  std::cout << r.Title() << "\n" << r.Subtitle() << "\n";
  if (!r.Basis().empty()) std::cout << r.Basis() << " basis\n";
  constexpr int kLabel = 44, kCell = 16;
  std::cout << "\n" << std::left << std::setw(kLabel) << "" << std::right;
  for (long c = 2; c <= r.ColumnHeaders().Count(); ++c)
    std::cout << std::setw(kCell) << r.ColumnHeaders().Item(c)->Title();
  std::cout << "\n";
  for (const auto& row : r.ReportRows()) {
    std::string label = row->RowType() == qbRptRowTypeText ? row->Text() : "";
    std::vector<std::string> cells(static_cast<size_t>(std::max<long>(r.ColumnHeaders().Count(), 1)));
    for (const auto& cell : row->Columns())
      if (cell->ID() >= 1 && cell->ID() <= static_cast<int32_t>(cells.size())) cells[cell->ID() - 1] = cell->Text();
    if (label.empty()) label = cells[0];
    std::cout << std::left << std::setw(kLabel) << (std::string(2 * row->IndentLevel(), ' ') + label) << std::right;
    for (size_t c = 1; c < cells.size(); ++c) std::cout << std::setw(kCell) << cells[c];
    std::cout << "\n";
  }
}

}  // namespace

void AddReportCommand(CLI::App& app, const GlobalOptions& global) {
  auto* report = app.add_subcommand("report", "Reports the library can run");
  report->require_subcommand(1);
  auto* list = report->add_subcommand("list", "List the reports by group: code, name, request name and kind");
  auto group = std::make_shared<std::string>();
  list->add_option("--group", *group, "Only the reports of this group (\"Banking\", \"Vendors & Payables\")");
  list->callback([group] { ListReports(*group); });

  auto* run = report->add_subcommand("run", "Run one report on a company file and print it");
  auto o = std::make_shared<RunOptions>();
  run->add_option("report", o->report, "The report: its code, its name (\"Trial Balance\") or request name")
      ->required();
  run->add_option("--company", o->company, "The company file")->required();
  run->add_option("--from", o->from, "First day of the period (yyyy-mm-dd)");
  run->add_option("--to", o->to, "Last day of the period (yyyy-mm-dd); the default is today");
  run->add_option("--basis", o->basis, "Cash or Accrual");
  run->callback([o, &global] { RunReport(*o, global); });
}

}  // namespace tessaron::cli
