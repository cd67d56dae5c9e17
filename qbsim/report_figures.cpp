#include "qbsim/report_figures.h"

#include <algorithm>
#include <initializer_list>
#include <map>
#include <utility>

#include "qbsim/field_map.h"
#include "qbsim/ledger.h"
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

// Customer (or vendor) balance summary: the aging summary's totals alone.
void BalanceSummary(RequestContext& ctx, const Period& p, bool payables, Answer& a) {
  AgingSummary(ctx, p, payables, a);
  a.columns = {a.columns.front(), {"TOTAL", "Amount", "AMTTYPE"}};
  for (Row& row : a.rows) row.cells = {row.cells.front(), row.cells.back()};
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

}  // namespace tessaron::qbsim
