// A report as the command shows it, and its four renderings: a text table, CSV, JSON and a
// standalone HTML page (with, for reports split by period, a bar chart drawn in SVG).
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tessaron {
class Report;
}

namespace tessaron::cli {

struct ReportView {
  enum class Kind { Text, Data, Subtotal, Total };
  struct Column {
    std::string title;
    bool money = false;  // an amount: right-aligned, two decimals
  };
  struct Row {
    Kind kind = Kind::Data;
    int depth = 0;
    std::vector<std::string> cells;  // one per column; the first is the label
  };

  std::string title, subtitle, basis;
  std::vector<Column> columns;  // the first is the label column
  std::vector<Row> rows;
  // The amount columns are periods (months, quarters, ...), but for a last one titled
  // "TOTAL": the page then charts the totals by period.
  bool periodColumns = false;
};

// The view of a report after its Refresh; each row's depth is its IndentLevel.
ReportView ViewOf(Report& report, bool periodColumns);

// An amount as shown: "1,234.50", "-12.00"; text that is no amount stays as it is.
std::string MoneyText(const std::string& amount);

void WriteTable(const ReportView& v, std::ostream& out);
// One line per row: kind, depth, then the cells; amounts as plain numbers.
void WriteCsv(const ReportView& v, std::ostream& out);
// {"title", "subtitle", "basis", "columns": [{"title", "money"}], "rows": [{"kind", "depth", "cells"}]};
// amounts as numbers, empty cells as null.
void WriteJson(const ReportView& v, std::ostream& out);
// One page, well-formed as XML too: no script, nothing fetched.
void WriteHtml(const ReportView& v, std::ostream& out);

// The bars of the chart: per period, the figure of the report's last total row.
struct Bar {
  std::string label;
  double value = 0;
};
std::vector<Bar> ChartBars(const ReportView& v);

}  // namespace tessaron::cli
