#include "cli/report_render.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "cli/table_output.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/text.h"
#include "tessaron/reports/report.h"

namespace tessaron::cli {
namespace {

constexpr int32_t kAmountDataType = 6;

bool IsAmount(const std::string& text, Currency& value) { return !text.empty() && Currency::TryParse(text, value); }

const char* KindName(ReportView::Kind k) {
  switch (k) {
    case ReportView::Kind::Text: return "text";
    case ReportView::Kind::Subtotal: return "subtotal";
    case ReportView::Kind::Total: return "total";
    default: return "data";
  }
}

// Width as a person counts characters.
size_t Shown(const std::string& s) { return Utf16Length(s); }

std::string PadRight(std::string s, size_t width) {
  const size_t n = Shown(s);
  if (n < width) s.append(width - n, ' ');
  return s;
}
std::string PadLeft(const std::string& s, size_t width) {
  const size_t n = Shown(s);
  return n < width ? std::string(width - n, ' ') + s : s;
}

std::string Xml(const std::string& s) {
  std::string out;
  for (char c : s) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

// A plain number for the machine formats: "1234.5" stays, "" is nothing.
std::string PlainAmount(const std::string& text) {
  Currency c;
  return IsAmount(text, c) ? FormatCurrency(c, "0.00") : text;
}

// The SVG bar chart of the totals by period, with its zero line.
void WriteChart(const std::vector<Bar>& bars, std::ostream& out) {
  constexpr double kWidth = 640, kHeight = 260, kTop = 20, kBottom = 40, kLeft = 10;
  const double plot = kHeight - kTop - kBottom;
  double high = 0, low = 0;
  for (const Bar& b : bars) {
    high = std::max(high, b.value);
    low = std::min(low, b.value);
  }
  const double range = high - low > 0 ? high - low : 1;
  const double scale = plot / range;  // pixels per unit: every bar's height is |value| * scale
  const double zero = kTop + high * scale;
  const double slot = (kWidth - 2 * kLeft) / static_cast<double>(std::max<size_t>(bars.size(), 1));
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"chart\" width=\"" << kWidth << "\" height=\"" << kHeight
      << "\" viewBox=\"0 0 " << kWidth << " " << kHeight << "\" role=\"img\">\n";
  out << std::fixed << std::setprecision(2);
  for (size_t i = 0; i < bars.size(); ++i) {
    const Bar& b = bars[i];
    const double h = std::fabs(b.value) * scale;
    const double x = kLeft + slot * static_cast<double>(i) + slot * 0.15;
    const double y = b.value >= 0 ? zero - h : zero;
    out << "<rect class=\"bar" << (b.value < 0 ? " negative" : "") << "\" x=\"" << x << "\" y=\"" << y
        << "\" width=\"" << slot * 0.7 << "\" height=\"" << h << "\"><title>" << Xml(b.label) << ": "
        << Xml(AmountToDisplayText(Currency::FromDouble(b.value))) << "</title></rect>\n";
    out << "<text x=\"" << x + slot * 0.35 << "\" y=\"" << kHeight - kBottom / 2
        << "\" text-anchor=\"middle\">" << Xml(b.label) << "</text>\n";
  }
  out << "<line x1=\"" << kLeft << "\" y1=\"" << zero << "\" x2=\"" << kWidth - kLeft << "\" y2=\"" << zero
      << "\" class=\"axis\"/>\n</svg>\n";
  out.unsetf(std::ios::floatfield);
}

}  // namespace

std::string MoneyText(const std::string& amount) {
  Currency c;
  return IsAmount(amount, c) ? AmountToDisplayText(c) : amount;
}

ReportView ViewOf(Report& r, bool periodColumns) {
  ReportView v;
  v.title = r.Title();
  v.subtitle = r.Subtitle();
  v.basis = r.Basis();
  for (const auto& h : r.ColumnHeaders()) v.columns.push_back({h->Title(), h->DataType() == kAmountDataType});
  if (v.columns.empty()) v.columns.push_back({"", false});
  v.columns.front().money = false;
  // A heading opens a section that its subtotal closes; the rows between sit one deeper.
  int open = 0;
  for (const auto& row : r.ReportRows()) {
    ReportView::Row out;
    if (row->RowType() == qbRptRowTypeSubTotal && open > 0) --open;
    out.depth = open;
    if (row->RowType() == qbRptRowTypeText) ++open;
    out.cells.assign(v.columns.size(), "");
    switch (row->RowType()) {
      case qbRptRowTypeText: out.kind = ReportView::Kind::Text; break;
      case qbRptRowTypeSubTotal: out.kind = ReportView::Kind::Subtotal; break;
      case qbRptRowTypeTotal: out.kind = ReportView::Kind::Total; break;
      default: out.kind = ReportView::Kind::Data;
    }
    for (const auto& cell : row->Columns())
      if (cell->ID() >= 1 && static_cast<size_t>(cell->ID()) <= out.cells.size()) out.cells[cell->ID() - 1] = cell->Text();
    if (out.kind == ReportView::Kind::Text) out.cells[0] = row->Text();
    v.rows.push_back(std::move(out));
  }
  v.periodColumns = periodColumns && v.columns.size() > 2;
  return v;
}

std::vector<Bar> ChartBars(const ReportView& v) {
  std::vector<Bar> bars;
  if (!v.periodColumns) return bars;
  const ReportView::Row* total = nullptr;
  for (const ReportView::Row& r : v.rows)
    if (r.kind == ReportView::Kind::Total) total = &r;
  if (!total) return bars;
  // A Balance Sheet by period has no TOTAL column: its last period is its total.
  const size_t periods = v.columns.size() - (v.columns.back().title == "TOTAL" ? 1 : 0);
  for (size_t c = 1; c < periods; ++c) {
    Currency value;
    bars.push_back({v.columns[c].title, IsAmount(total->cells[c], value) ? value.ToDouble() : 0.0});
  }
  return bars;
}

void WriteTable(const ReportView& v, std::ostream& out) {
  out << v.title << "\n" << v.subtitle << "\n";
  if (!v.basis.empty()) out << v.basis << " basis\n";
  std::vector<size_t> widths(v.columns.size(), 0);
  for (size_t c = 0; c < v.columns.size(); ++c) widths[c] = Shown(v.columns[c].title);
  for (const ReportView::Row& r : v.rows)
    for (size_t c = 0; c < r.cells.size(); ++c) {
      const size_t n = c == 0 ? 2 * static_cast<size_t>(r.depth) + Shown(r.cells[0])
                              : Shown(v.columns[c].money ? MoneyText(r.cells[c]) : r.cells[c]);
      widths[c] = std::max(widths[c], n);
    }
  widths[0] = std::min<size_t>(std::max<size_t>(widths[0], 12), 56);
  // A rule under the amount columns: before a subtotal or a total, and doubled after a total.
  auto rule = [&](char ch) {
    std::string line = PadRight("", widths[0]);
    for (size_t c = 1; c < v.columns.size(); ++c)
      line += "  " + (v.columns[c].money ? std::string(widths[c], ch) : std::string(widths[c], ' '));
    while (!line.empty() && line.back() == ' ') line.pop_back();
    out << line << "\n";
  };
  std::string head = PadRight(v.columns[0].title, widths[0]);
  for (size_t c = 1; c < v.columns.size(); ++c)
    head += "  " + (v.columns[c].money ? PadLeft(v.columns[c].title, widths[c]) : PadRight(v.columns[c].title, widths[c]));
  while (!head.empty() && head.back() == ' ') head.pop_back();
  out << "\n" << head << "\n";
  for (const ReportView::Row& r : v.rows) {
    const bool closing = r.kind == ReportView::Kind::Subtotal || r.kind == ReportView::Kind::Total;
    if (closing) rule('-');
    std::string line = PadRight(std::string(2 * static_cast<size_t>(r.depth), ' ') + r.cells[0], widths[0]);
    for (size_t c = 1; c < r.cells.size(); ++c)
      line += "  " + (v.columns[c].money ? PadLeft(MoneyText(r.cells[c]), widths[c]) : PadRight(r.cells[c], widths[c]));
    while (!line.empty() && line.back() == ' ') line.pop_back();
    out << line << "\n";
    if (r.kind == ReportView::Kind::Total) rule('=');
  }
}

void WriteCsv(const ReportView& v, std::ostream& out) {
  out << "kind,depth";
  for (size_t c = 0; c < v.columns.size(); ++c) out << "," << CsvCell(c == 0 && v.columns[c].title.empty() ? "label" : v.columns[c].title);
  out << "\n";
  for (const ReportView::Row& r : v.rows) {
    out << KindName(r.kind) << "," << r.depth;
    for (size_t c = 0; c < r.cells.size(); ++c) out << "," << CsvCell(v.columns[c].money ? PlainAmount(r.cells[c]) : r.cells[c]);
    out << "\n";
  }
}

void WriteJson(const ReportView& v, std::ostream& out) {
  out << "{\n  \"title\": " << JsonString(v.title) << ",\n  \"subtitle\": " << JsonString(v.subtitle)
      << ",\n  \"basis\": " << JsonString(v.basis) << ",\n  \"columns\": [";
  for (size_t c = 0; c < v.columns.size(); ++c)
    out << (c ? ", " : "") << "{\"title\": " << JsonString(v.columns[c].title)
        << ", \"money\": " << (v.columns[c].money ? "true" : "false") << "}";
  out << "],\n  \"rows\": [";
  for (size_t i = 0; i < v.rows.size(); ++i) {
    const ReportView::Row& r = v.rows[i];
    out << (i ? "," : "") << "\n    {\"kind\": \"" << KindName(r.kind) << "\", \"depth\": " << r.depth << ", \"cells\": [";
    for (size_t c = 0; c < r.cells.size(); ++c) {
      out << (c ? ", " : "");
      Currency value;
      if (r.cells[c].empty()) out << "null";
      else if (v.columns[c].money && IsAmount(r.cells[c], value)) out << FormatCurrency(value, "0.00");
      else out << JsonString(r.cells[c]);
    }
    out << "]}";
  }
  out << "\n  ]\n}\n";
}

void WriteHtml(const ReportView& v, std::ostream& out) {
  out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n<title>" << Xml(v.title)
      << "</title>\n<style>\n"
         "body { font-family: sans-serif; margin: 2em; color: #222; }\n"
         "h1 { margin-bottom: 0.2em; } p { margin: 0.2em 0; color: #555; }\n"
         "table { border-collapse: collapse; margin-top: 1.5em; }\n"
         "th, td { padding: 0.2em 0.8em; } th { border-bottom: 1px solid #888; }\n"
         "td.money, th.money { text-align: right; font-variant-numeric: tabular-nums; }\n"
         "tr.text td { font-weight: bold; padding-top: 0.6em; }\n"
         "tr.subtotal td.money { border-top: 1px solid #888; font-weight: bold; }\n"
         "tr.total td { border-top: 1px solid #222; border-bottom: 3px double #222; font-weight: bold; }\n"
         ".chart .bar { fill: #4a7ab0; } .chart .negative { fill: #c0504d; }\n"
         ".chart .axis { stroke: #222; } .chart text { font-size: 11px; fill: #333; }\n"
         "</style>\n</head>\n<body>\n<h1>"
      << Xml(v.title) << "</h1>\n";
  if (!v.subtitle.empty()) out << "<p class=\"subtitle\">" << Xml(v.subtitle) << "</p>\n";
  if (!v.basis.empty()) out << "<p class=\"basis\">" << Xml(v.basis) << " basis</p>\n";
  const std::vector<Bar> bars = ChartBars(v);
  if (!bars.empty()) WriteChart(bars, out);
  out << "<table>\n<thead><tr>";
  for (const ReportView::Column& c : v.columns)
    out << "<th" << (c.money ? " class=\"money\"" : "") << ">" << Xml(c.title) << "</th>";
  out << "</tr></thead>\n<tbody>\n";
  for (const ReportView::Row& r : v.rows) {
    out << "<tr class=\"" << KindName(r.kind) << "\">";
    for (size_t c = 0; c < r.cells.size(); ++c) {
      if (c == 0) {
        out << "<td style=\"padding-left: " << 0.8 + 1.5 * r.depth << "em\"";
        if (r.kind == ReportView::Kind::Text) out << " colspan=\"" << r.cells.size() << "\"";
        out << ">" << Xml(r.cells[0]) << "</td>";
        if (r.kind == ReportView::Kind::Text) break;
        continue;
      }
      out << "<td" << (v.columns[c].money ? " class=\"money\"" : "") << ">"
          << Xml(v.columns[c].money ? MoneyText(r.cells[c]) : r.cells[c]) << "</td>";
    }
    out << "</tr>\n";
  }
  out << "</tbody>\n</table>\n</body>\n</html>\n";
}

}  // namespace tessaron::cli
