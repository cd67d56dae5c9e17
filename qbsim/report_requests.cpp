// The report queries: every kind of report request answered with the report's title, the
// period and basis it was asked for, its typed columns and its rows. The Trial Balance and
// the aging summaries are summed from the ledger's postings; most other reports answer
// their columns and no rows yet. The Profit and Loss, the Balance Sheet, the customer and
// vendor balance summaries, the aging details and the open invoices are summed from the
// postings too.
#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "qbsim/company_records.h"
#include "qbsim/date_range.h"
#include "qbsim/field_map.h"
#include "qbsim/ledger.h"
#include "qbsim/list_store.h"
#include "qbsim/request_context.h"
#include "qbsim/request_table.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/date.h"
#include "tessaron/reports/report_catalog.h"

namespace tessaron::qbsim {
namespace {

// A report option the report does not take.
constexpr int kReportOptionRefused = 3151;

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

int FirstFiscalMonth(RequestContext& ctx) {
  static const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                 "July",    "August",   "September", "October", "November", "December"};
  const std::string m(FieldMap::Decode(ctx.file.Meta(meta::kCompany)).Get("FirstMonthFiscalYear"));
  for (int i = 0; i < 12; ++i)
    if (m == months[i]) return i + 1;
  return 1;
}

// Report macros name quarters and years of the fiscal calendar ("ThisYear" is the fiscal
// year), where transaction queries say so ("ThisFiscalYear").
std::string FiscalMacroName(std::string macro) {
  if (macro.find("Quarter") == std::string::npos && macro.find("Year") == std::string::npos) return macro;
  for (const char* when : {"This", "Last", "Next"})
    if (macro.rfind(when, 0) == 0) return std::string(when) + "Fiscal" + macro.substr(4);
  return macro;
}

// The period asked for. Without dates and without a macro a report covers the fiscal year
// to date.
Period PeriodOf(RequestContext& ctx, const pugi::xml_node& rq) {
  Period p;
  if (pugi::xml_node period = rq.child("ReportPeriod")) {
    p.from = period.child_value("FromReportDate");
    p.to = period.child_value("ToReportDate");
    return p;
  }
  pugi::xml_node macro = rq.child("ReportDateMacro");
  const std::string name = macro ? FiscalMacroName(macro.child_value()) : "ThisFiscalYearToDate";
  if (auto range = DateMacroRange(name, FirstFiscalMonth(ctx))) {
    p.from = range->first;
    p.to = range->second;
  }
  return p;
}

// The last day of the period; a period open at its end runs to today.
std::string EndOf(const Period& p) { return p.to.empty() ? FormatDate(Today(), "yyyy-mm-dd") : p.to; }

std::string LongDate(const std::string& ymd) {
  static const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                 "July",    "August",   "September", "October", "November", "December"};
  const DateParts d = SplitDate(ParseDate(ymd));
  return std::string(months[d.month - 1]) + " " + std::to_string(d.day) + ", " + std::to_string(d.year);
}

std::string Subtitle(const Period& p, bool asOf) {
  if (asOf) return "As of " + LongDate(p.to.empty() ? FormatDate(Today(), "yyyy-mm-dd") : p.to);
  if (p.from.empty() && p.to.empty()) return "All Transactions";
  if (p.from.empty()) return "Through " + LongDate(p.to);
  if (p.to.empty()) return "From " + LongDate(p.from);
  return LongDate(p.from) + " through " + LongDate(p.to);
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

// The columns of a detail report: those asked for with IncludeColumn, or the usual ones.
std::vector<Column> DetailColumns(const pugi::xml_node& rq) {
  std::vector<Column> cols{{"", "Blank", "STRTYPE"}};
  bool any = false;
  for (pugi::xml_node c = rq.child("IncludeColumn"); c; c = c.next_sibling("IncludeColumn")) {
    cols.push_back(Col(c.child_value(), c.child_value()));
    any = true;
  }
  if (!any)
    for (const char* t : {"TxnType", "Date", "RefNumber", "Name", "Memo", "Account", "Amount"}) cols.push_back(Col(t, t));
  return cols;
}

std::vector<std::string> AccountsOf(RequestContext& ctx, const char* type) { return AccountsOfType(ctx, type); }

std::string InClause(const std::vector<std::string>& ids) {
  std::string s;
  for (size_t i = 0; i < ids.size(); ++i) s += (i ? ",'" : "'") + ids[i] + "'";
  return s;
}

// Trial Balance: every account with a balance at the end of the period, on its debit or
// credit side, and the two totals, which are equal in a sound ledger.
void TrialBalance(RequestContext& ctx, const Period& p, Answer& a) {
  const std::string end = EndOf(p);
  a.titleRows = 2;
  a.columns = {{"", "Label", "STRTYPE"}, {LongDate(end) + " Debit", "Debit", "AMTTYPE"},
               {"Credit", "Credit", "AMTTYPE"}};
  std::map<std::string, int64_t, std::less<>> sums;
  SqlStatement st = ctx.file.Db().Prepare(
      "SELECT account_id, sum(amount) FROM posting WHERE txn_date <= ? GROUP BY account_id");
  st.Bind(1, end);
  while (st.Step()) sums[std::string(st.Text(0))] = st.Int(1);
  int64_t debits = 0, credits = 0;
  ListSelection accounts;
  accounts.kinds = {"Account"};
  ctx.store.Select(accounts, [&](const RecordRow& r) {
    auto it = sums.find(r.listId);
    if (it == sums.end() || it->second == 0) return true;
    const int64_t sum = it->second;
    Row row{"DataRow", "account", std::string(r.fullName), {std::string(r.fullName), "", ""}};
    if (sum > 0) {
      row.cells[1] = CentsText(sum);
      debits += sum;
    } else {
      row.cells[2] = CentsText(-sum);
      credits -= sum;
    }
    a.rows.push_back(std::move(row));
    return true;
  });
  a.rows.push_back({"TotalRow", "", "", {"TOTAL", CentsText(debits), CentsText(credits)}});
}

// The sum of each account's postings dated within the bounds (empty: open), with the
// account's full name and type, in chart order.
struct AccountSum {
  std::string fullName, type;
  int64_t sum = 0;
};

std::vector<AccountSum> AccountSums(RequestContext& ctx, const std::string& from, const std::string& to) {
  std::map<std::string, int64_t, std::less<>> sums;
  SqlStatement st = ctx.file.Db().Prepare(
      "SELECT account_id, sum(amount) FROM posting WHERE (?1 = '' OR txn_date >= ?1) AND (?2 = '' OR txn_date <= ?2) "
      "GROUP BY account_id");
  st.Bind(1, from);
  st.Bind(2, to);
  while (st.Step()) sums[std::string(st.Text(0))] = st.Int(1);
  std::vector<AccountSum> out;
  ListSelection accounts;
  accounts.kinds = {"Account"};
  ctx.store.Select(accounts, [&](const RecordRow& r) {
    auto it = sums.find(r.listId);
    if (it == sums.end() || it->second == 0) return true;
    FieldView fields;
    fields.Parse(r.body);
    const std::string_view* type = fields.Find("AccountType");
    out.push_back({std::string(r.fullName), type ? std::string(*type) : std::string(), it->second});
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

// A section of accounts: a heading, one row per account in its natural sign, a subtotal.
// Returns the section's total.
int64_t Section(Answer& a, const std::vector<AccountSum>& sums, std::initializer_list<const char*> types,
                bool creditNatured, const std::string& heading, const std::string& totalLabel) {
  int64_t total = 0;
  bool any = false;
  for (const AccountSum& s : sums) {
    if (!OneOf(s.type, types)) continue;
    if (!any) a.rows.push_back({"TextRow", "", heading, {}});
    any = true;
    const int64_t amount = creditNatured ? -s.sum : s.sum;
    total += amount;
    a.rows.push_back({"DataRow", "account", s.fullName, {s.fullName, CentsText(amount)}});
  }
  if (any) a.rows.push_back({"SubtotalRow", "", "", {totalLabel, CentsText(total)}});
  return total;
}

// Profit and Loss: income less cost of sales and expenses over the period.
void ProfitAndLoss(RequestContext& ctx, const Period& p, Answer& a) {
  a.columns = {{"", "Label", "STRTYPE"}, {"TOTAL", "Amount", "AMTTYPE"}};
  const auto sums = AccountSums(ctx, p.from, p.to);
  const int64_t income = Section(a, sums, {"Income"}, true, "Income", "Total Income");
  const int64_t cogs = Section(a, sums, {"CostOfGoodsSold"}, false, "Cost of Goods Sold", "Total COGS");
  a.rows.push_back({"SubtotalRow", "", "", {"Gross Profit", CentsText(income - cogs)}});
  const int64_t expense = Section(a, sums, {"Expense"}, false, "Expense", "Total Expense");
  const int64_t otherIncome = Section(a, sums, {"OtherIncome"}, true, "Other Income", "Total Other Income");
  const int64_t otherExpense = Section(a, sums, {"OtherExpense"}, false, "Other Expense", "Total Other Expense");
  a.rows.push_back(
      {"TotalRow", "", "", {"Net Income", CentsText(income - cogs - expense + otherIncome - otherExpense)}});
}

// Balance Sheet: assets against liabilities and equity at the end of the period; the
// income and expenses of all time up to then stand in equity as net income.
void BalanceSheet(RequestContext& ctx, const Period& p, Answer& a) {
  const std::string end = EndOf(p);
  a.columns = {{"", "Label", "STRTYPE"}, {LongDate(end), "Amount", "AMTTYPE"}};
  const auto sums = AccountSums(ctx, "", end);
  Section(a, sums, kAssetTypes, false, "ASSETS", "TOTAL ASSETS");
  const int64_t liabilities = Section(a, sums, kLiabilityTypes, true, "Liabilities", "Total Liabilities");
  const int64_t equity = Section(a, sums, {"Equity"}, true, "Equity", "Total Equity");
  int64_t netIncome = 0;
  for (const AccountSum& s : sums)
    if (OneOf(s.type, {"Income", "OtherIncome", "CostOfGoodsSold", "Expense", "OtherExpense"})) netIncome -= s.sum;
  a.rows.push_back({"DataRow", "label", "Net Income", {"Net Income", CentsText(netIncome)}});
  a.rows.push_back(
      {"TotalRow", "", "", {"TOTAL LIABILITIES & EQUITY", CentsText(liabilities + equity + netIncome)}});
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
std::vector<OpenDocument> OpenDocuments(RequestContext& ctx, const std::string& end, bool payables) {
  std::vector<OpenDocument> docs;
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
    d.open = payables ? -st.Int(1) : st.Int(1);
    d.entity = ctx.store.FullNameOf(st.Text(2));
    if (d.entity.empty()) d.entity = "No Name";
    d.date = d.due = std::string(st.Text(3));
    // An opening balance is kept open under the name's own ListID and has no document.
    d.kind = "Opening Balance";
    if (auto doc = ledger.ByTxnId(docId)) {
      d.kind = doc->kind;
      d.refNumber = doc->refNumber;
      std::string_view due = FieldMap::Decode(doc->body).Get("DueDate");
      if (!due.empty()) d.due = std::string(due);
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

// Aging summary: what each customer (or vendor) still owes at the end of the period, by
// how many days past its due date each open document is.
void AgingSummary(RequestContext& ctx, const Period& p, bool payables, Answer& a) {
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
  for (const OpenDocument& d : OpenDocuments(ctx, EndOf(p), payables)) {
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

// Aging detail: the open documents under the step of lateness they are in.
void AgingDetail(RequestContext& ctx, const Period& p, bool payables, Answer& a) {
  OpenDocumentGroups(a, OpenDocuments(ctx, EndOf(p), payables), 5, [](const OpenDocument& d, size_t g) {
    return d.bucket == g ? std::string(kBuckets[g]) : std::string();
  });
}

// Open invoices: the open documents under the customer they belong to.
void OpenInvoices(RequestContext& ctx, const Period& p, Answer& a) {
  const auto docs = OpenDocuments(ctx, EndOf(p), false);
  std::vector<std::string> customers;
  for (const OpenDocument& d : docs)
    if (customers.empty() || customers.back() != d.entity) customers.push_back(d.entity);
  OpenDocumentGroups(a, docs, customers.size(), [&](const OpenDocument& d, size_t g) {
    return d.entity == customers[g] ? d.entity : std::string();
  });
}

// Customer (or vendor) balance summary: the aging summary's totals alone.
void BalanceSummary(RequestContext& ctx, const Period& p, bool payables, Answer& a) {
  AgingSummary(ctx, p, payables, a);
  a.columns = {a.columns.front(), {"TOTAL", "Amount", "AMTTYPE"}};
  for (Row& row : a.rows) row.cells = {row.cells.front(), row.cells.back()};
}

void Write(XmlOut& out, const std::string& title, const Answer& a) {
  out.Open("ReportRet");
  out.Element("ReportTitle", title);
  out.Element("ReportSubtitle", a.subtitle);
  if (!a.basis.empty()) out.Element("ReportBasis", a.basis);
  out.Element("NumRows", std::to_string(a.rows.size()));
  out.Element("NumColumns", std::to_string(a.columns.size()));
  out.Element("NumColTitleRows", std::to_string(a.titleRows));
  int id = 0;
  for (const Column& c : a.columns) {
    out.OpenWithAttributes("ColDesc");
    out.Attribute("colID", std::to_string(++id));
    out.Attribute("dataType", c.dataType);
    out.EndAttributes();
    // Titles on the last title row; a column without one still has its (empty) title row.
    for (int r = 1; r <= a.titleRows; ++r) {
      out.OpenWithAttributes("ColTitle");
      out.Attribute("titleRow", std::to_string(r));
      if (r == a.titleRows && !c.title.empty()) out.Attribute("value", c.title);
      out.Raw("/>");
    }
    out.Element("ColType", c.colType);
    out.Close("ColDesc");
  }
  if (!a.rows.empty()) {
    out.Open("ReportData");
    int number = 0;
    for (const Row& row : a.rows) {
      out.OpenWithAttributes(row.kind);
      out.Attribute("rowNumber", std::to_string(++number));
      // A heading carries its text itself; the other rows in their cells.
      if (std::string_view(row.kind) == "TextRow") {
        out.Attribute("value", row.rowValue);
        out.Raw("/>");
        continue;
      }
      out.EndAttributes();
      if (!row.rowType.empty()) {
        out.OpenWithAttributes("RowData");
        out.Attribute("rowType", row.rowType);
        out.Attribute("value", row.rowValue);
        out.Raw("/>");
      }
      for (size_t i = 0; i < row.cells.size(); ++i) {
        if (row.cells[i].empty()) continue;
        out.OpenWithAttributes("ColData");
        out.Attribute("colID", std::to_string(i + 1));
        out.Attribute("value", row.cells[i]);
        out.Raw("/>");
      }
      out.Close(row.kind);
    }
    out.Close("ReportData");
  }
  out.Close("ReportRet");
}

Status ReportQuery(RequestContext& ctx, const pugi::xml_node& rq, XmlOut& out) {
  const std::string_view name = rq.name();
  // Job and time reports have no basis; the request is refused as a whole.
  if ((name == "JobReportQueryRq" || name == "TimeReportQueryRq") && rq.child("ReportBasis"))
    return {kReportOptionRefused, "ReportBasis is not a valid option for this report."};
  const std::string prefix(name.substr(0, name.size() - std::string_view("ReportQueryRq").size()));
  const std::string requested = rq.child_value((prefix + "ReportType").c_str());
  const rptDescriptor* d = FindReportByRequestName(requested);
  if (!d) return {status::kBadValue, "The report \"" + requested + "\" is not known."};
  // QuickBooks shows the report on its own screen and answers nothing more.
  if (std::string_view(rq.child_value("DisplayReport")) == "true") return {};

  const Period period = PeriodOf(ctx, rq);
  Answer a;
  const auto type = d->ReportType();
  if (type == ReportTypeGeneralSummary || type == ReportTypeGeneralDetail || type == ReportTypeCustomSummary ||
      type == ReportTypeCustomDetail) {
    const std::string basis = rq.child_value("ReportBasis");
    a.basis = basis.empty() || basis == "None" ? "Accrual" : basis;
  }
  if (d->Code() == qbRptTrialBalance) {
    TrialBalance(ctx, period, a);
  } else if (d->Code() == qbRptARAgingSummary || d->Code() == qbRptAPAgingSummary) {
    AgingSummary(ctx, period, d->Code() == qbRptAPAgingSummary, a);
  } else if (d->Code() == qbRptARAgingDetail || d->Code() == qbRptAPAgingDetail) {
    AgingDetail(ctx, period, d->Code() == qbRptAPAgingDetail, a);
  } else if (d->Code() == qbRptOpenInvoices) {
    OpenInvoices(ctx, period, a);
  } else if (d->Code() == qbRptCustomerBalanceSummary || d->Code() == qbRptVendorBalanceSummary) {
    BalanceSummary(ctx, period, d->Code() == qbRptVendorBalanceSummary, a);
  } else if (d->Code() == qbRptProfitAndLossStandard) {
    ProfitAndLoss(ctx, period, a);
  } else if (d->Code() == qbRptBalanceSheetStandard) {
    BalanceSheet(ctx, period, a);
  } else if (d->HasTxns() || type == ReportTypePayrollDetail || type == ReportTypeCustomDetail) {
    a.columns = DetailColumns(rq);
  } else if (type == ReportTypeTime) {
    a.columns = {{"", "Label", "STRTYPE"}, {"Hours", "Duration", "TIMEINTERVALTYPE"}};
  } else {
    a.columns = {{"", "Label", "STRTYPE"}, {"TOTAL", "Amount", "AMTTYPE"}};
  }
  const bool asOf = d->Code() == qbRptTrialBalance || type == ReportTypeAging || d->Code() == qbRptOpenInvoices ||
                    d->Code() == qbRptCustomerBalanceSummary || d->Code() == qbRptVendorBalanceSummary ||
                    d->ReportGroup() == qbRptGrpInventory || d->Description().find("Balance Sheet") == 0;
  a.subtitle = d->NoDateAllowed() ? "" : Subtitle(period, asOf);
  Write(out, d->Description(), a);
  return {};
}

}  // namespace

void RegisterReportRequests(RequestTable& table) {
  for (const char* prefix : {"GeneralSummary", "GeneralDetail", "Aging", "CustomSummary", "CustomDetail", "Job",
                             "Time", "PayrollSummary", "PayrollDetail"})
    table.Add(std::string(prefix) + "ReportQueryRq", {ReportQuery, nullptr, 20});
  table.Add("BudgetSummaryReportQueryRq", {ReportQuery, nullptr, 20});
}

}  // namespace tessaron::qbsim
