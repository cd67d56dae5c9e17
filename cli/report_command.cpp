// tessaron report list [--group NAME]: the reports the library can ask for, by group.
#include <iomanip>
#include <iostream>
#include <string>

#include "cli/commands.h"
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

}  // namespace

void AddReportCommand(CLI::App& app) {
  auto* report = app.add_subcommand("report", "Reports the library can run");
  report->require_subcommand(1);
  auto* list = report->add_subcommand("list", "List the reports by group: code, name, request name and kind");
  auto group = std::make_shared<std::string>();
  list->add_option("--group", *group, "Only the reports of this group (\"Banking\", \"Vendors & Payables\")");
  list->callback([group] { ListReports(*group); });
}

}  // namespace tessaron::cli
