// The figures of the reports that the processor sums from the ledger, and the shape every
// report answer takes before it is written: typed columns and rows of four kinds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qbsim/report_postings.h"

namespace tessaron::qbsim {

class RequestContext;

struct Column {
  std::string title;
  std::string colType;   // a report field ("Amount"), as ColType carries it
  std::string dataType;  // "AMTTYPE", ...
};

// One row as it is answered: the kind of row, what it is about, and its cells by column.
struct Row {
  const char* kind;  // "TextRow", "DataRow", "SubtotalRow", "TotalRow"
  std::string rowType, rowValue;
  std::vector<std::string> cells;  // by column, "" = no cell
};

struct Answer {
  std::string subtitle, basis;
  int titleRows = 1;
  std::vector<Column> columns;
  std::vector<Row> rows;
};

// The period asked for, as "yyyy-mm-dd" bounds (empty: none).
struct Period {
  std::string from, to;
};

// What a request asks of a report beyond its kind.
struct ReportOptions {
  Period period;
  bool cash = false;
  std::string columnsBy;               // SummarizeColumnsBy; empty: total only
  std::string returnRows, returnCols;  // "ActiveOnly", "NonZero", "All"; empty: the report's usual
  PostingFilters filters;
};

// The last day of the period; a period open at its end runs to today.
std::string EndOf(const Period& p);
// "December 31, 2024".
std::string LongDate(const std::string& ymd);
// The qbXML data type of a column of that report field.
const char* DataTypeOf(std::string_view colType);
// A column titled and typed by its report field.
Column Col(std::string title, std::string colType);

// Every account with a balance at the end of the period, on its debit or credit side, and
// the two totals.
void TrialBalance(RequestContext& ctx, const ReportOptions& o, Answer& a);
// Income less cost of sales and expenses over the period.
// Split into columns by period or by name as asked.
void ProfitAndLoss(RequestContext& ctx, const ReportOptions& o, Answer& a);
// Assets against liabilities and equity at the end of the period; split by period, the
// balances at each period's end (the last is the total); split by name, each name's share.
void BalanceSheet(RequestContext& ctx, const ReportOptions& o, Answer& a);
// What each customer (vendor with `payables`) owes, by thirty-day steps past due.
void AgingSummary(RequestContext& ctx, const ReportOptions& o, bool payables, Answer& a);
// The aging summary's totals alone.
void BalanceSummary(RequestContext& ctx, const ReportOptions& o, bool payables, Answer& a);
// The open documents under the step of lateness they are in.
void AgingDetail(RequestContext& ctx, const ReportOptions& o, bool payables, Answer& a);
// The open invoices under their customers.
void OpenInvoices(RequestContext& ctx, const ReportOptions& o, Answer& a);

}  // namespace tessaron::qbsim
