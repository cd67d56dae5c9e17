#include "qbsim/report_figures.h"

#include <algorithm>
#include <initializer_list>
#include <map>
#include <utility>

#include "qbsim/field_map.h"
#include "qbsim/ledger.h"
#include "qbsim/report_columns.h"
#include "qbsim/list_store.h"
#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/date.h"

namespace tessaron::qbsim {

std::string EndOf(const Period& p) { return p.to.empty() ? FormatDate(Today(), "yyyy-mm-dd") : p.to; }

std::string LongDate(const std::string& ymd) {
  static const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                 "July",    "August",   "September", "October", "November", "December"};
  const DateParts d = SplitDate(ParseDate(ymd));
  return std::string(months[d.month - 1]) + " " + std::to_string(d.day) + ", " + std::to_string(d.year);
}

const char* DataTypeOf(std::string_view colType) {
  for (const char* t : {"Amount", "Debit", "Credit", "OpenBalance", "RunningBalance", "OriginalAmount", "PaidAmount",
                        "Total", "UnitPrice", "CostPrice", "AverageCost", "ValueOnHand", "WageBase", "WageBaseTips",
                        "AmountDifference", "ProgressAmount", "RetailValueOnHand", "CalculatedAmount"})
    if (colType == t) return "AMTTYPE";
  for (const char* t : {"Quantity", "QuantityOnHand", "QuantityOnOrder", "QuantityOnSalesOrder", "QuantityAvailable",
                        "ReceivedQuantity", "SuggestedReorder", "ReorderPoint", "PhysicalCount", "SalesPerWeek"})
    if (colType == t) return "QUANTYPE";
  for (const char* t : {"Date", "DueDate", "DeliveryDate", "ShipDate", "BilledDate", "ReceiveDate",
                        "EarliestReceiptDate", "PaidThroughDate"})
    if (colType == t) return "DATETYPE";
  if (colType == "TxnNumber" || colType == "Aging") return "INTTYPE";
  if (colType == "Percent" || colType == "PercentChange" || colType == "ProgressPercent" ||
      colType == "PercentOfTotalValue" || colType == "PercentOfTotalRetail")
    return "PERCENTTYPE";
  if (colType == "Duration") return "TIMEINTERVALTYPE";
  if (colType == "ClearedStatus" || colType == "TxnType" || colType == "PaidStatus" || colType == "BillingStatus")
    return "ENUMTYPE";
  return "STRTYPE";
}

Column Col(std::string title, std::string colType) {
  const char* type = DataTypeOf(colType);
  return {std::move(title), std::move(colType), type};
}

namespace {

std::vector<std::string> AccountsOf(RequestContext& ctx, const char* type) { return AccountsOfType(ctx, type); }

std::string InClause(const std::vector<std::string>& ids) {
  std::string s;
  for (size_t i = 0; i < ids.size(); ++i) s += (i ? ",'" : "'") + ids[i] + "'";
  return s;
}


// An account of the chart, in chart order.
struct ChartAccount {
  std::string listId, fullName, type;
};

std::vector<ChartAccount> Chart(RequestContext& ctx) {
  std::vector<ChartAccount> out;
  ListSelection accounts;
  accounts.kinds = {"Account"};
  ctx.store.Select(accounts, [&](const RecordRow& r) {
    FieldView fields;
    fields.Parse(r.body);
    const std::string_view* type = fields.Find("AccountType");
    out.push_back({std::string(r.listId), std::string(r.fullName), type ? std::string(*type) : std::string()});
    return true;
  });
  return out;
}

bool OneOf(std::string_view type, std::initializer_list<const char*> types) {
  for (const char* t : types)
    if (type == t) return true;
  return false;
}

constexpr std::initializer_list<const char*> kAssetTypes = {"Bank", "AccountsReceivable", "OtherCurrentAsset",
                                                           "FixedAsset", "OtherAsset"};
constexpr std::initializer_list<const char*> kLiabilityTypes = {"AccountsPayable", "CreditCard",
                                                               "OtherCurrentLiability", "LongTermLiability"};

// The figures of an account report: one per amount column, the total last.
using Figures = std::vector<int64_t>;

void AddTo(Figures& into, const Figures& f, int sign = 1) {
  for (size_t i = 0; i < into.size(); ++i) into[i] += sign * f[i];
}

std::vector<std::string> Cells(const std::string& label, const Figures& f) {
  std::vector<std::string> cells{label};
  for (int64_t v : f) cells.push_back(CentsText(v));
  return cells;
}

// The account figures of a report with the rows it returns.
struct AccountReport {
  std::vector<ChartAccount> chart;
  AccountFigures sums;
  size_t width = 1;        // amount columns
  std::string returnRows;  // "All", "NonZero"; otherwise the accounts that have postings
};

// A section of accounts: a heading, one row per account in its natural sign, a subtotal.
// Returns the section's figures.
Figures Section(Answer& a, const AccountReport& r, std::initializer_list<const char*> types, bool creditNatured,
                const std::string& heading, const std::string& totalLabel) {
  Figures total(r.width, 0);
  bool any = false;
  const Figures none(r.width, 0);
  for (const ChartAccount& account : r.chart) {
    if (!OneOf(account.type, types)) continue;
    auto it = r.sums.byAccount.find(account.listId);
    const Figures& f = it == r.sums.byAccount.end() ? none : it->second;
    const bool shown = r.returnRows == "All" ? true
                       : r.returnRows == "NonZero"
                           ? std::any_of(f.begin(), f.end(), [](int64_t v) { return v != 0; })
                           : it != r.sums.byAccount.end();
    if (!shown) continue;
    if (!any) a.rows.push_back({"TextRow", "", heading, {}});
    any = true;
    Figures amount(r.width, 0);
    AddTo(amount, f, creditNatured ? -1 : 1);
    AddTo(total, amount);
    a.rows.push_back({"DataRow", "account", account.fullName, Cells(account.fullName, amount)});
  }
  if (any) a.rows.push_back({"SubtotalRow", "", "", Cells(totalLabel, total)});
  return total;
}

// Sums the postings into the columns asked for and drops the columns the request does not
// want returned: "NonZero" keeps a column with a figure other than zero, "ActiveOnly" one
// that a posting fell in; "All" and no value keep every period.
// With `balances`, a period column holds the balance at the period's end instead of what
// moved in it.
AccountReport SumAccounts(RequestContext& ctx, const ReportOptions& o, AmountColumns& columns,
                          const std::vector<ReportPosting>& postings, bool balances = false) {
  AccountReport r;
  r.chart = Chart(ctx);
  r.sums = SumByAccount(columns, postings);
  if (balances && columns.ByPeriod())
    for (auto& [id, f] : r.sums.byAccount)
      for (size_t i = 1; i < columns.Split(); ++i) f[i] += f[i - 1];
  r.returnRows = o.returnRows;
  const size_t split = columns.Split();
  std::vector<bool> kept(split, true);
  for (size_t i = 0; i < split; ++i) {
    bool nonZero = false;
    for (const auto& [id, f] : r.sums.byAccount) nonZero = nonZero || f[i] != 0;
    if (o.returnCols == "NonZero") kept[i] = nonZero;
    if (o.returnCols == "ActiveOnly") kept[i] = r.sums.active[i];
  }
  if (std::find(kept.begin(), kept.end(), false) != kept.end()) {
    columns.Keep(kept);
    for (auto& [id, f] : r.sums.byAccount) {
      Figures k;
      for (size_t i = 0; i <= split; ++i)
        if (i == split || kept[i]) k.push_back(f[i]);
      f = std::move(k);
    }
  }
  r.width = columns.Split() + 1;
  return r;
}

// The label column and the amount columns: a lone "TOTAL", or the split columns and then
// the total.
void AmountColumnsOf(Answer& a, const AmountColumns& columns) {
  a.columns = {{"", "Label", "STRTYPE"}};
  for (const std::string& title : columns.Titles()) a.columns.push_back({title, "Amount", "AMTTYPE"});
  if (columns.Split()) a.columns.back().colType = "Total";
}

// A document still open at the end of the period: an invoice, a bill, an opening balance.
struct OpenDocument {
  std::string kind, date, due, refNumber, entity;
  int64_t open = 0;
  int daysLate = 0;
  size_t bucket = 0;  // 0 current, 1 to 4 the thirty-day steps past due
};

constexpr const char* kBuckets[] = {"Current", "1 - 30", "31 - 60", "61 - 90", "> 90"};

// The open documents of the receivables (or payables), by name and date. What is open is
// what the document posted to those accounts less what was applied to it, up to `end`.
std::vector<OpenDocument> OpenDocuments(RequestContext& ctx, const ReportOptions& o, bool payables) {
  std::vector<OpenDocument> docs;
  const std::string end = EndOf(o.period);
  const auto entities = PassingEntities(ctx, o.filters);
  const std::vector<std::string> accounts = AccountsOf(ctx, payables ? "AccountsPayable" : "AccountsReceivable");
  if (accounts.empty()) return docs;
  const Date asOf = ParseDate(end);
  SqlStatement st = ctx.file.Db().Prepare(
      "SELECT open_txn_id, sum(amount), max(CASE WHEN txn_id = open_txn_id THEN entity_id ELSE '' END), "
      "max(CASE WHEN txn_id = open_txn_id THEN txn_date ELSE '' END) FROM posting WHERE account_id IN (" +
      InClause(accounts) + ") AND open_txn_id <> '' AND txn_date <= ? GROUP BY open_txn_id HAVING sum(amount) <> 0");
  st.Bind(1, end);
  LedgerStore ledger(ctx.file);
  while (st.Step()) {
    OpenDocument d;
    const std::string docId(st.Text(0));
    if (entities && !entities->count(std::string(st.Text(2)))) continue;
    d.open = payables ? -st.Int(1) : st.Int(1);
    d.entity = ctx.store.FullNameOf(st.Text(2));
    if (d.entity.empty()) d.entity = "No Name";
    d.date = d.due = std::string(st.Text(3));
    // A vendor's opening balance is kept open under the vendor's own ListID and has no document.
    d.kind = "Opening Balance";
    if (auto doc = ledger.ByTxnId(docId)) {
      d.kind = doc->kind;
      d.refNumber = doc->refNumber;
      const FieldMap fields = FieldMap::Decode(doc->body);  // the due date is a view into it
      if (std::string_view due = fields.Get("DueDate"); !due.empty()) d.due = std::string(due);
    }
    d.daysLate = d.due.empty() ? 0 : static_cast<int>(asOf - ParseDate(d.due));
    d.bucket = d.daysLate <= 0 ? 0 : d.daysLate <= 30 ? 1 : d.daysLate <= 60 ? 2 : d.daysLate <= 90 ? 3 : 4;
    docs.push_back(std::move(d));
  }
  std::stable_sort(docs.begin(), docs.end(), [](const OpenDocument& x, const OpenDocument& y) {
    return std::pair(NameKey(x.entity), x.date) < std::pair(NameKey(y.entity), y.date);
  });
  return docs;
}


// The columns of the open-document reports.
std::vector<Column> OpenDocumentColumns() {
  return {{"", "Blank", "STRTYPE"}, Col("Type", "TxnType"), Col("Date", "Date"), Col("Num", "RefNumber"),
          Col("Name", "Name"),       Col("Due Date", "DueDate"), Col("Aging", "Aging"), Col("Open Balance", "OpenBalance")};
}

Row DocumentRow(const OpenDocument& d) {
  return {"DataRow", "", "",
          {"", d.kind, d.date, d.refNumber, d.entity, d.due, d.daysLate > 0 ? std::to_string(d.daysLate) : "",
           CentsText(d.open)}};
}

// Groups of open documents, each under its heading with its subtotal, then the total.
template <class KeyOf>
void OpenDocumentGroups(Answer& a, const std::vector<OpenDocument>& docs, size_t groups, KeyOf keyOf) {
  a.columns = OpenDocumentColumns();
  int64_t total = 0;
  for (size_t g = 0; g < groups; ++g) {
    std::string heading;
    int64_t sum = 0;
    for (const OpenDocument& d : docs) {
      const std::string key = keyOf(d, g);
      if (key.empty()) continue;
      if (heading.empty()) a.rows.push_back({"TextRow", "", heading = key, {}});
      a.rows.push_back(DocumentRow(d));
      sum += d.open;
    }
    if (heading.empty()) continue;
    Row sub{"SubtotalRow", "", "", std::vector<std::string>(8)};
    sub.cells[0] = "Total " + heading;
    sub.cells[7] = CentsText(sum);
    a.rows.push_back(std::move(sub));
    total += sum;
  }
  Row row{"TotalRow", "", "", std::vector<std::string>(8)};
  row.cells[0] = "TOTAL";
  row.cells[7] = CentsText(total);
  a.rows.push_back(std::move(row));
}




}  // namespace

// Trial Balance: every account with a balance at the end of the period, on its debit or
// credit side, and the two totals, which are equal in a sound ledger.
void TrialBalance(RequestContext& ctx, const ReportOptions& o, Answer& a) {
  const std::string end = EndOf(o.period);
  a.titleRows = 2;
  a.columns = {{"", "Label", "STRTYPE"}, {LongDate(end) + " Debit", "Debit", "AMTTYPE"},
               {"Credit", "Credit", "AMTTYPE"}};
  std::map<std::string, int64_t, std::less<>> sums;
  for (const ReportPosting& p : SelectPostings(ctx, "", end, o.cash, o.filters)) sums[p.accountId] += p.amount;
  int64_t debits = 0, credits = 0;
  for (const ChartAccount& account : Chart(ctx)) {
    auto it = sums.find(account.listId);
    const int64_t sum = it == sums.end() ? 0 : RoundToCents(it->second);
    if (sum == 0 && o.returnRows != "All") continue;
    Row row{"DataRow", "account", account.fullName, {account.fullName, "", ""}};
    if (sum >= 0) {
      row.cells[1] = CentsText(sum);
      debits += sum;
    } else {
      row.cells[2] = CentsText(-sum);
      credits -= sum;
    }
    a.rows.push_back(std::move(row));
  }
  a.rows.push_back({"TotalRow", "", "", {"TOTAL", CentsText(debits), CentsText(credits)}});
}

// Profit and Loss: income less cost of sales and expenses over the period, in columns by
// period or by name when asked.
void ProfitAndLoss(RequestContext& ctx, const ReportOptions& o, Answer& a) {
  const auto postings = SelectPostings(ctx, o.period.from, EndOf(o.period), o.cash, o.filters);
  AmountColumns columns(ctx, o.columnsBy, o.period.from, EndOf(o.period), postings);
  const AccountReport r = SumAccounts(ctx, o, columns, postings);
  AmountColumnsOf(a, columns);
  Figures net = Section(a, r, {"Income"}, true, "Income", "Total Income");
  AddTo(net, Section(a, r, {"CostOfGoodsSold"}, false, "Cost of Goods Sold", "Total COGS"), -1);
  a.rows.push_back({"SubtotalRow", "", "", Cells("Gross Profit", net)});
  AddTo(net, Section(a, r, {"Expense"}, false, "Expense", "Total Expense"), -1);
  AddTo(net, Section(a, r, {"OtherIncome"}, true, "Other Income", "Total Other Income"));
  AddTo(net, Section(a, r, {"OtherExpense"}, false, "Other Expense", "Total Other Expense"), -1);
  a.rows.push_back({"TotalRow", "", "", Cells("Net Income", net)});
}

// Balance Sheet: assets against liabilities and equity at the end of the period; the
// income and expenses of all time up to then stand in equity as net income.
void BalanceSheet(RequestContext& ctx, const ReportOptions& o, Answer& a) {
  const std::string end = EndOf(o.period);
  const auto postings = SelectPostings(ctx, "", end, o.cash, o.filters);
  AmountColumns columns(ctx, o.columnsBy, o.period.from, end, postings);
  AccountReport r = SumAccounts(ctx, o, columns, postings, true);
  if (columns.Split() == 0) {
    a.columns = {{"", "Label", "STRTYPE"}, {LongDate(end), "Amount", "AMTTYPE"}};
  } else {
    AmountColumnsOf(a, columns);
    // Balances by period end: the last period's balance is the total, shown once.
    if (columns.ByPeriod()) {
      a.columns.pop_back();
      for (auto& [id, f] : r.sums.byAccount) f.pop_back();
      --r.width;
    }
  }
  Section(a, r, kAssetTypes, false, "ASSETS", "TOTAL ASSETS");
  Figures right = Section(a, r, kLiabilityTypes, true, "Liabilities", "Total Liabilities");
  AddTo(right, Section(a, r, {"Equity"}, true, "Equity", "Total Equity"));
  Figures netIncome(r.width, 0);
  for (const ChartAccount& account : r.chart)
    if (OneOf(account.type, {"Income", "OtherIncome", "CostOfGoodsSold", "Expense", "OtherExpense"}))
      if (auto it = r.sums.byAccount.find(account.listId); it != r.sums.byAccount.end()) AddTo(netIncome, it->second, -1);
  AddTo(right, netIncome);
  a.rows.push_back({"DataRow", "label", "Net Income", Cells("Net Income", netIncome)});
  a.rows.push_back({"TotalRow", "", "", Cells("TOTAL LIABILITIES & EQUITY", right)});
}

// Aging summary: what each customer (or vendor) still owes at the end of the period, by
// how many days past its due date each open document is.
void AgingSummary(RequestContext& ctx, const ReportOptions& o, bool payables, Answer& a) {
  a.columns = {{"", "Label", "STRTYPE"}};
  for (const char* bucket : kBuckets) a.columns.push_back({bucket, "Amount", "AMTTYPE"});
  a.columns.push_back({"TOTAL", "Total", "AMTTYPE"});
  std::vector<int64_t> totals(6);
  std::vector<int64_t> sums;
  std::string entity;
  auto flush = [&] {
    if (entity.empty()) return;
    Row row{"DataRow", payables ? "vendor" : "customer", entity, {entity}};
    for (size_t i = 0; i < 6; ++i) {
      row.cells.push_back(CentsText(sums[i]));
      totals[i] += sums[i];
    }
    a.rows.push_back(std::move(row));
  };
  for (const OpenDocument& d : OpenDocuments(ctx, o, payables)) {
    if (d.entity != entity) {
      flush();
      entity = d.entity;
      sums.assign(6, 0);
    }
    sums[d.bucket] += d.open;
    sums[5] += d.open;
  }
  flush();
  Row total{"TotalRow", "", "", {"TOTAL"}};
  for (int64_t t : totals) total.cells.push_back(CentsText(t));
  a.rows.push_back(std::move(total));
}

// Customer (or vendor) balance summary: the aging summary's totals alone.
void BalanceSummary(RequestContext& ctx, const ReportOptions& o, bool payables, Answer& a) {
  AgingSummary(ctx, o, payables, a);
  a.columns = {a.columns.front(), {"TOTAL", "Amount", "AMTTYPE"}};
  for (Row& row : a.rows) row.cells = {row.cells.front(), row.cells.back()};
}

// Aging detail: the open documents under the step of lateness they are in.
void AgingDetail(RequestContext& ctx, const ReportOptions& o, bool payables, Answer& a) {
  OpenDocumentGroups(a, OpenDocuments(ctx, o, payables), 5, [](const OpenDocument& d, size_t g) {
    return d.bucket == g ? std::string(kBuckets[g]) : std::string();
  });
}

// Open invoices: the open documents under the customer they belong to.
void OpenInvoices(RequestContext& ctx, const ReportOptions& o, Answer& a) {
  const auto docs = OpenDocuments(ctx, o, false);
  std::vector<std::string> customers;
  for (const OpenDocument& d : docs)
    if (customers.empty() || customers.back() != d.entity) customers.push_back(d.entity);
  OpenDocumentGroups(a, docs, customers.size(), [&](const OpenDocument& d, size_t g) {
    return d.entity == customers[g] ? d.entity : std::string();
  });
}

}  // namespace tessaron::qbsim
