// The amount columns of a summary report: one TOTAL column, or one column per period or per
// name ("SummarizeColumnsBy") followed by the TOTAL column.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "qbsim/report_postings.h"

namespace tessaron::qbsim {

class RequestContext;

class AmountColumns {
 public:
  // `by` is the SummarizeColumnsBy text; periods split [from, to] (calendar weeks from
  // Sunday, months, quarters, years); names are those the postings carry. Anything else,
  // "TotalOnly" included, gives the one TOTAL column.
  AmountColumns(RequestContext& ctx, const std::string& by, const std::string& from, const std::string& to,
                const std::vector<ReportPosting>& postings);

  // Columns before the TOTAL one; 0 for a total-only report.
  size_t Split() const { return titles_.size(); }
  // The split columns are periods, in date order.
  bool ByPeriod() const { return kind_ == Kind::Period; }
  // The column titles, TOTAL last.
  std::vector<std::string> Titles() const;
  // Where a posting is summed among the split columns; -1 when it is in none. By period, a
  // posting dated before the first period is in the first one.
  int IndexOf(const ReportPosting& p) const;
  // Keeps the split columns marked in `kept` (one mark per split column), drops the others.
  void Keep(const std::vector<bool>& kept);

  // The title of a period column: "Jan 24", "Jan - Mar 24" for whole months, otherwise by
  // days: "Jan 15 - 31, 24", "Dec 29, 24 - Jan 4, 25".
  static std::string PeriodTitle(const std::string& from, const std::string& to, bool whole);

 private:
  enum class Kind { Total, Period, Entity, Class } kind_ = Kind::Total;
  std::vector<std::string> titles_;
  std::vector<std::string> ends_;                 // periods: last day of each, in order
  std::map<std::string, int> byId_;               // names: ListID to column
};

// Sums of postings by account, one figure per split column and the total last.
struct AccountFigures {
  std::map<std::string, std::vector<int64_t>> byAccount;
  std::vector<bool> active;  // per split column: a posting fell in it
};
AccountFigures SumByAccount(const AmountColumns& columns, const std::vector<ReportPosting>& postings);

}  // namespace tessaron::qbsim
