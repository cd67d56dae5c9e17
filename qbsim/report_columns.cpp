#include "qbsim/report_columns.h"

#include <algorithm>
#include <set>

#include "qbsim/list_store.h"
#include "qbsim/request_context.h"
#include "tessaron/platform/date.h"

namespace tessaron::qbsim {
namespace {

constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string Ymd(Date d) { return FormatDate(d, "yyyy-mm-dd"); }
std::string Yy(int year) { return (year % 100 < 10 ? "0" : "") + std::to_string(year % 100); }

// The first day of the period of that kind holding `d`.
Date PeriodStart(const std::string& by, Date d) {
  const DateParts p = SplitDate(d);
  if (by == "Week") return d - (Weekday(d) - 1);
  if (by == "Month") return DateSerial(p.year, p.month, 1);
  if (by == "Quarter") return DateSerial(p.year, (p.month - 1) / 3 * 3 + 1, 1);
  return DateSerial(p.year, 1, 1);
}

Date NextStart(const std::string& by, Date start) {
  if (by == "Week") return start + 7;
  return AddMonths(start, by == "Month" ? 1 : by == "Quarter" ? 3 : 12);
}

}  // namespace

std::string AmountColumns::PeriodTitle(const std::string& from, const std::string& to, bool whole) {
  const DateParts a = SplitDate(ParseDate(from)), b = SplitDate(ParseDate(to));
  if (whole && a.day == 1) {
    if (a.month == b.month && a.year == b.year) return std::string(kMonths[a.month - 1]) + " " + Yy(a.year);
    if (a.year == b.year) return std::string(kMonths[a.month - 1]) + " - " + kMonths[b.month - 1] + " " + Yy(b.year);
  }
  std::string first = std::string(kMonths[a.month - 1]) + " " + std::to_string(a.day);
  if (a.year != b.year) return first + ", " + Yy(a.year) + " - " + kMonths[b.month - 1] + " " +
                               std::to_string(b.day) + ", " + Yy(b.year);
  const std::string last = (a.month == b.month ? "" : std::string(kMonths[b.month - 1]) + " ") + std::to_string(b.day);
  return first + " - " + last + ", " + Yy(b.year);
}

AmountColumns::AmountColumns(RequestContext& ctx, const std::string& by, const std::string& from,
                             const std::string& to, const std::vector<ReportPosting>& postings) {
  if (by == "Week" || by == "Month" || by == "Quarter" || by == "Year") {
    // A period open at its start begins with the first posting in it.
    std::string first = from;
    if (first.empty())
      for (const ReportPosting& p : postings)
        if (first.empty() || p.date < first) first = p.date;
    if (first.empty() || first > to) return;
    kind_ = Kind::Period;
    const Date end = ParseDate(to);
    for (Date start = PeriodStart(by, ParseDate(first)); start <= end; start = NextStart(by, start)) {
      const Date last = NextStart(by, start) - 1;
      const std::string a = std::max(Ymd(start), first), b = std::min(Ymd(last), to);
      // Weeks are named by their days; months, quarters and years by their months when whole.
      titles_.push_back(PeriodTitle(a, b, by != "Week" && a == Ymd(start) && b == Ymd(last)));
      ends_.push_back(b);
    }
    return;
  }
  const bool entity = by == "Customer" || by == "Vendor" || by == "Employee" || by == "Payee";
  if (!entity && by != "Class") return;
  kind_ = entity ? Kind::Entity : Kind::Class;
  // Names in name order; what names nothing (or a name of another kind) goes last.
  const std::string kindName = by == "Payee" ? "" : by;
  std::set<std::pair<std::string, std::string>> names;  // name key, ListID
  bool unnamed = false;
  std::map<std::string, bool> ofKind;  // by ListID
  for (const ReportPosting& p : postings) {
    const std::string& id = entity ? p.entityId : p.classId;
    auto known = ofKind.find(id);
    if (known == ofKind.end()) {
      bool named = !id.empty();
      if (named && !kindName.empty()) {
        const std::optional<ListRecord> r = ctx.store.ByListId(id);
        named = r && r->kind == kindName;
      }
      known = ofKind.emplace(id, named).first;
      if (named) names.insert({NameKey(ctx.store.FullNameOf(id)), id});
    }
    if (!known->second) unnamed = true;
  }
  for (const auto& [key, id] : names) {
    byId_[id] = static_cast<int>(titles_.size());
    titles_.push_back(ctx.store.FullNameOf(id));
  }
  if (unnamed) titles_.push_back(entity ? "No name" : "Unclassified");
}

std::vector<std::string> AmountColumns::Titles() const {
  std::vector<std::string> t = titles_;
  t.push_back("TOTAL");
  return t;
}

int AmountColumns::IndexOf(const ReportPosting& p) const {
  switch (kind_) {
    case Kind::Total: return -1;
    case Kind::Period: {
      auto it = std::lower_bound(ends_.begin(), ends_.end(), p.date);
      return it == ends_.end() ? -1 : static_cast<int>(it - ends_.begin());
    }
    default: {
      auto it = byId_.find(kind_ == Kind::Entity ? p.entityId : p.classId);
      // Without a column of its own a posting is in the last one ("No name", "Unclassified").
      return it != byId_.end() ? it->second : static_cast<int>(titles_.size()) - 1;
    }
  }
}

void AmountColumns::Keep(const std::vector<bool>& kept) {
  std::vector<std::string> titles;
  for (size_t i = 0; i < titles_.size(); ++i)
    if (kept[i]) titles.push_back(titles_[i]);
  titles_ = std::move(titles);
}

AccountFigures SumByAccount(const AmountColumns& columns, const std::vector<ReportPosting>& postings) {
  AccountFigures f;
  const size_t n = columns.Split();
  f.active.assign(n, false);
  for (const ReportPosting& p : postings) {
    auto& sums = f.byAccount[p.accountId];
    if (sums.empty()) sums.assign(n + 1, 0);
    const int i = columns.IndexOf(p);
    if (i >= 0) {
      sums[i] += p.amount;
      f.active[i] = true;
    }
    sums[n] += p.amount;
  }
  return f;
}

}  // namespace tessaron::qbsim
