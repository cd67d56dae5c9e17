// The reading of report answers: a response text, as a report query would get it back, is
// read into titles, column headers and rows, and the rows are indented as the report's
// layout says. The first byte picks the report. An answer never raises anything but
// tessaron::Error.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/canned_processor.h"
#include "tessaron/platform/error.h"
#include "tessaron/reports/report.h"
#include "tessaron/reports/report_catalog.h"

using namespace tessaron;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  fuzz::Canned().response.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    Report report;
    report.SetBaseReport(1 + data[0] % kReportCount);
    report.Refresh();
    const rptRows& rows = report.ReportRows();
    for (long r = 1; r <= rows.Count(); ++r) rows.Item(r);
  } catch (const Error&) {
  }
  return 0;
}
