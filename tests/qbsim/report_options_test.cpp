// The report options the processor honours: the basis, columns by period or by name, the
// filters and the rows and columns returned, on the sample company and on a payment
// written straight into its ledger.
#include <cmath>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "qbsim/report_columns.h"
#include "qbsim/sql.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

// A summary report as answered: its column titles and its rows, amounts in cents.
struct Sheet {
  std::vector<std::string> titles;
  struct Line {
    std::string kind, label;
    std::vector<int64_t> amounts;  // by amount column
  };
  std::vector<Line> lines;

  // The amounts of the first row whose label is `label`; none when there is no such row.
  std::vector<int64_t> Of(const std::string& label) const {
    for (const Line& l : lines)
      if (l.label == label) return l.amounts;
    return {};
  }
  int64_t Total(const std::string& label) const {
    auto a = Of(label);
    return a.empty() ? 0 : a.back();
  }
};

class ReportOptionsTest : public QbsimTest {
 protected:
  // Invoices and their payments only: the income of every test comes from invoices.
  void SetUp() override {
    QbsimTest::SetUp();
    SampleOptions sample;
    sample.salesDocuments = 0;
    Open(sample);
  }

  // A general summary report of that kind, with the options as elements in schema order.
  Sheet Ask(const std::string& type, const std::string& options, const std::string& basis = "") {
    const std::string rq = "<GeneralSummaryReportQueryRq><GeneralSummaryReportType>" + type +
                           "</GeneralSummaryReportType>" + options +
                           (basis.empty() ? "" : "<ReportBasis>" + basis + "</ReportBasis>") +
                           "</GeneralSummaryReportQueryRq>";
    Response r = Send(rq);
    EXPECT_EQ(r.Status(), 0) << r.Message();
    Sheet s;
    pugi::xml_node ret = r.Rs().child("ReportRet");
    for (pugi::xml_node c : ret.children("ColDesc"))
      for (pugi::xml_node t : c.children("ColTitle"))
        if (t.attribute("value")) s.titles.push_back(t.attribute("value").value());
    const size_t columns = ret.select_nodes("ColDesc").size();
    for (pugi::xml_node row : ret.child("ReportData").children()) {
      Sheet::Line l{row.name(), row.attribute("value").value(), std::vector<int64_t>(columns - 1, 0)};
      for (pugi::xml_node c : row.children("ColData")) {
        const int id = c.attribute("colID").as_int();
        if (id == 1)
          l.label = c.attribute("value").value();
        else
          l.amounts[id - 2] = std::llround(std::stod(c.attribute("value").value()) * 100);
      }
      s.lines.push_back(std::move(l));
    }
    return s;
  }

  static std::string Period(const std::string& from, const std::string& to) {
    return "<ReportPeriod><FromReportDate>" + from + "</FromReportDate><ToReportDate>" + to +
           "</ToReportDate></ReportPeriod>";
  }

  struct Invoice {
    std::string txnId, receivable, customer;
    int64_t owed = 0;  // cents
  };
  // The oldest invoice of the sample, with its receivable row.
  Invoice OldestInvoice() {
    SqlDatabase db(path_, SqlDatabase::Mode::ReadWrite);
    SqlStatement st = db.Prepare(
        "SELECT p.txn_id, p.account_id, p.amount, p.entity_id FROM posting p JOIN txn t ON t.txn_id = p.txn_id "
        "WHERE t.kind = 'Invoice' AND p.open_txn_id = p.txn_id ORDER BY t.txn_date, t.txn_number LIMIT 1");
    EXPECT_TRUE(st.Step());
    return {std::string(st.Text(0)), std::string(st.Text(1)), std::string(st.Text(3)), st.Int(2) / 100};
  }
  // Writes a payment of `cents` against the invoice straight into the ledger, as a payment
  // posts: the bank is debited and the receivable credited, naming the invoice.
  void Pay(const Invoice& inv, int64_t cents, const std::string& date, const std::string& paymentId) {
    SqlDatabase db(path_, SqlDatabase::Mode::ReadWrite);
    SqlStatement bank = db.Prepare("SELECT list_id FROM list_record WHERE kind = 'Account' AND name = 'Checking'");
    ASSERT_TRUE(bank.Step());
    const std::string checking(bank.Text(0));
    for (auto [account, amount, open] : {std::tuple{checking, cents * 100, std::string()},
                                         std::tuple{inv.receivable, -cents * 100, inv.txnId}})
      db.Prepare("INSERT INTO posting(txn_id, txn_date, account_id, amount, entity_id, open_txn_id) "
                 "VALUES(?, ?, ?, ?, ?, ?)")
          .Bind(1, paymentId).Bind(2, date).Bind(3, account).Bind(4, amount).Bind(5, inv.customer).Bind(6, open).Run();
  }
};

const std::string kAllTime = "<ReportPeriod><FromReportDate>1990-01-01</FromReportDate>"
                             "<ToReportDate>2099-12-31</ToReportDate></ReportPeriod>";

// ---- Basis ---------------------------------------------------------------------------

TEST_F(ReportOptionsTest, CashBasisCountsInvoicesOnlyOnceTheyArePaid) {
  // A third of the sample's older invoices were paid on the form: those count at once.
  const int64_t accrual = Ask("ProfitAndLossStandard", kAllTime, "Accrual").Total("Total Income");
  const int64_t before = Ask("ProfitAndLossStandard", kAllTime, "Cash").Total("Total Income");
  EXPECT_GT(before, 0);
  EXPECT_LT(before, accrual);
  // Every invoice paid in full: cash basis catches up with accrual to the cent.
  std::vector<std::pair<std::string, int64_t>> open;
  {
    SqlDatabase db(path_, SqlDatabase::Mode::ReadWrite);
    SqlStatement st = db.Prepare(
        "SELECT open_txn_id, sum(amount) FROM posting WHERE open_txn_id <> '' GROUP BY open_txn_id "
        "HAVING sum(amount) > 0");
    while (st.Step()) open.emplace_back(std::string(st.Text(0)), st.Int(1));
  }
  ASSERT_FALSE(open.empty());
  SqlDatabase db(path_, SqlDatabase::Mode::ReadWrite);
  SqlStatement ar = db.Prepare("SELECT account_id, entity_id FROM posting WHERE txn_id = ?1 AND open_txn_id = ?1");
  int n = 0;
  for (const auto& [doc, owed] : open) {
    ar.Bind(1, doc);
    ASSERT_TRUE(ar.Step());
    const std::string account(ar.Text(0)), customer(ar.Text(1));
    ar.Reset();
    db.Prepare("INSERT INTO posting(txn_id, txn_date, account_id, amount, entity_id, open_txn_id) "
               "VALUES(?, '2099-01-02', ?, ?, ?, ?)")
        .Bind(1, "PAID-" + std::to_string(++n)).Bind(2, account).Bind(3, -owed).Bind(4, customer).Bind(5, doc).Run();
  }
  EXPECT_EQ(Ask("ProfitAndLossStandard", kAllTime, "Cash").Total("Total Income"), accrual);
  EXPECT_EQ(Ask("ProfitAndLossStandard", Period("2099-01-02", "2099-01-02"), "Cash").Total("Total Income"),
            accrual - before);
}

TEST_F(ReportOptionsTest, CashBasisCountsTheSettledShareOfAnInvoiceOnThePaymentDay) {
  const Invoice inv = OldestInvoice();
  ASSERT_GT(inv.owed, 100);
  // What the invoice alone brings as income, on accrual.
  const int64_t invoiced = Ask("ProfitAndLossStandard", kAllTime + "<ReportEntityFilter><ListID>" + inv.customer +
                                                             "</ListID></ReportEntityFilter>",
                               "Accrual").Total("Total Income");
  const int64_t before = Ask("ProfitAndLossStandard", kAllTime, "Cash").Total("Total Income");
  const int64_t half = inv.owed / 2;
  Pay(inv, half, "2099-06-15", "PAYMENT-1");
  const std::string june = Period("2099-06-01", "2099-06-30");
  // Nothing was invoiced in June 2099: on accrual the month has no income.
  EXPECT_EQ(Ask("ProfitAndLossStandard", june, "Accrual").Total("Total Income"), 0);
  const int64_t first = Ask("ProfitAndLossStandard", june, "Cash").Total("Total Income");
  EXPECT_GT(first, 0);
  EXPECT_LE(first, half);  // the invoice's tax is no income
  // Paid in full in July, the rest of the income comes in then.
  Pay(inv, inv.owed - half, "2099-07-01", "PAYMENT-2");
  const int64_t second = Ask("ProfitAndLossStandard", Period("2099-07-01", "2099-07-31"), "Cash").Total("Total Income");
  EXPECT_NEAR(static_cast<double>(second), static_cast<double>(first), 1.0 + (inv.owed % 2));
  const int64_t cashAll = Ask("ProfitAndLossStandard", kAllTime, "Cash").Total("Total Income");
  EXPECT_EQ(cashAll, before + first + second);
  EXPECT_LE(cashAll - before, invoiced);  // the customer may have further invoices
  // The shares keep the kind of the document they come from, not the payment's.
  EXPECT_EQ(Ask("ProfitAndLossStandard", kAllTime + "<ReportTxnTypeFilter><TxnTypeFilter>Invoice</TxnTypeFilter>"
                                                    "</ReportTxnTypeFilter>", "Cash").Total("Total Income"),
            cashAll);
}

TEST_F(ReportOptionsTest, CashBasisSheetBalancesWithAPartlyPaidInvoice) {
  const int64_t before = Ask("ProfitAndLossStandard", kAllTime, "Cash").Total("Total Income");
  Pay(OldestInvoice(), 37, "2099-06-15", "PAYMENT-1");
  for (const char* basis : {"Accrual", "Cash"}) {
    const Sheet sheet = Ask("BalanceSheetStandard", Period("2099-01-01", "2099-12-31"), basis);
    EXPECT_EQ(sheet.Total("TOTAL ASSETS"), sheet.Total("TOTAL LIABILITIES & EQUITY")) << basis;
    const Sheet trial = Ask("TrialBalance", Period("2099-01-01", "2099-12-31"), basis);
    ASSERT_FALSE(trial.lines.empty());
    EXPECT_EQ(trial.lines.back().amounts[0], trial.lines.back().amounts[1]) << basis;
    const Sheet profit = Ask("ProfitAndLossStandard", kAllTime, basis);
    EXPECT_EQ(profit.Total("Net Income"), sheet.Total("Net Income")) << basis;
  }
  // Of the payment's 37.00, part is income and part is tax.
  const int64_t income = Ask("ProfitAndLossStandard", kAllTime, "Cash").Total("Total Income") - before;
  EXPECT_GT(income, 0);
  EXPECT_LE(income, 3700);
}

// ---- Columns -------------------------------------------------------------------------

struct TitleCase {
  const char *from, *to;
  bool whole;
  const char* title;
};

class PeriodTitleTest : public ::testing::TestWithParam<TitleCase> {};

TEST_P(PeriodTitleTest, NamesThePeriodAsTheColumnHeads) {
  const TitleCase& c = GetParam();
  EXPECT_EQ(AmountColumns::PeriodTitle(c.from, c.to, c.whole), c.title);
}

INSTANTIATE_TEST_SUITE_P(Periods, PeriodTitleTest,
                         ::testing::Values(TitleCase{"2024-02-01", "2024-02-29", true, "Feb 24"},
                                           TitleCase{"2024-01-01", "2024-03-31", true, "Jan - Mar 24"},
                                           TitleCase{"2024-01-01", "2024-12-31", true, "Jan - Dec 24"},
                                           TitleCase{"2024-01-15", "2024-01-31", false, "Jan 15 - 31, 24"},
                                           TitleCase{"2024-02-15", "2024-03-31", false, "Feb 15 - Mar 31, 24"},
                                           TitleCase{"2024-12-29", "2025-01-04", true, "Dec 29, 24 - Jan 4, 25"},
                                           TitleCase{"2009-03-01", "2009-03-07", false, "Mar 1 - 7, 09"}));

TEST_F(ReportOptionsTest, ProfitAndLossByMonthHasOneColumnPerMonthAndATotal) {
  const Sheet s = Ask("ProfitAndLossStandard",
                      Period("2024-01-15", "2024-04-10") + "<SummarizeColumnsBy>Month</SummarizeColumnsBy>"
                      "<ReturnRows>All</ReturnRows><ReturnColumns>All</ReturnColumns>");
  EXPECT_EQ(s.titles, (std::vector<std::string>{"Jan 15 - 31, 24", "Feb 24", "Mar 24", "Apr 1 - 10, 24", "TOTAL"}));
}

// How the report is split, and the fewest columns the sample gives (the total included):
// its invoices carry no class, so by class there is "Unclassified" and the total.
struct Split {
  const char* by;
  size_t columns;
};

class ColumnsSumTest : public ReportOptionsTest, public ::testing::WithParamInterface<Split> {};

TEST_P(ColumnsSumTest, EveryRowsColumnsAddUpToItsTotal) {
  const Sheet total = Ask("ProfitAndLossStandard", kAllTime);
  const Sheet s = Ask("ProfitAndLossStandard",
                      kAllTime + "<SummarizeColumnsBy>" + GetParam().by + "</SummarizeColumnsBy>");
  ASSERT_GE(s.titles.size(), GetParam().columns);
  EXPECT_EQ(s.titles.back(), "TOTAL");
  for (const Sheet::Line& l : s.lines) {
    if (l.amounts.empty() || l.kind == "TextRow") continue;
    int64_t sum = 0;
    for (size_t i = 0; i + 1 < l.amounts.size(); ++i) sum += l.amounts[i];
    EXPECT_EQ(sum, l.amounts.back()) << l.label;
  }
  // Splitting changes no total.
  EXPECT_EQ(s.Total("Net Income"), total.Total("Net Income"));
  EXPECT_EQ(s.Total("Total Income"), total.Total("Total Income"));
}

INSTANTIATE_TEST_SUITE_P(By, ColumnsSumTest, ::testing::Values(Split{"Month", 13}, Split{"Quarter", 5}, Split{"Year", 3},
                                                     Split{"Customer", 3}, Split{"Class", 2}));

TEST_F(ReportOptionsTest, BalanceSheetByQuarterBalancesAtEachQuarterEnd) {
  const std::string end = "<ToReportDate>2039-12-31</ToReportDate></ReportPeriod>";
  for (const char* basis : {"Accrual", "Cash"}) {
    const Sheet s = Ask("BalanceSheetStandard",
                        "<ReportPeriod><FromReportDate>2020-01-01</FromReportDate>" + end +
                            "<SummarizeColumnsBy>Quarter</SummarizeColumnsBy>",
                        basis);
    ASSERT_EQ(s.titles.size(), 80u) << "twenty years of quarters, no total column";
    EXPECT_EQ(s.titles.front(), "Jan - Mar 20");
    const auto assets = s.Of("TOTAL ASSETS"), right = s.Of("TOTAL LIABILITIES & EQUITY");
    ASSERT_EQ(assets.size(), 80u);
    EXPECT_EQ(assets, right) << basis;
    EXPECT_GT(assets.back(), 0);
    EXPECT_EQ(assets.back(), Ask("BalanceSheetStandard", Period("2039-01-01", "2039-12-31"), basis).Total("TOTAL ASSETS"));
  }
  // A period after every posting starts from the balances brought forward.
  const Sheet late =
      Ask("BalanceSheetStandard", Period("2099-01-01", "2099-12-31") + "<SummarizeColumnsBy>Quarter</SummarizeColumnsBy>");
  EXPECT_EQ(late.titles, (std::vector<std::string>{"Jan - Mar 99", "Apr - Jun 99", "Jul - Sep 99", "Oct - Dec 99"}));
  EXPECT_GT(late.Of("TOTAL ASSETS").front(), 0);
  EXPECT_EQ(late.Of("TOTAL ASSETS").front(), late.Of("TOTAL ASSETS").back());
}

TEST_F(ReportOptionsTest, ColumnsWithoutPostingsAreDroppedOnlyWhenAsked) {
  // The sample's invoices are of the last two years: 1990 has no postings.
  const std::string period = Period("1990-01-01", "1990-12-31") + "<SummarizeColumnsBy>Quarter</SummarizeColumnsBy>";
  EXPECT_EQ(Ask("ProfitAndLossStandard", period + "<ReturnColumns>All</ReturnColumns>").titles.size(), 5u);
  EXPECT_EQ(Ask("ProfitAndLossStandard", period + "<ReturnColumns>ActiveOnly</ReturnColumns>").titles,
            std::vector<std::string>{"TOTAL"});
}

// ---- Filters -------------------------------------------------------------------------

TEST_F(ReportOptionsTest, EntityFilterKeepsOneCustomersShare) {
  const Sheet byCustomer = Ask("ProfitAndLossStandard", kAllTime + "<SummarizeColumnsBy>Customer</SummarizeColumnsBy>");
  ASSERT_GE(byCustomer.titles.size(), 2u);
  const std::string customer = byCustomer.titles.front();
  const Sheet one = Ask("ProfitAndLossStandard", kAllTime + "<ReportEntityFilter><FullName>" + customer +
                                                     "</FullName></ReportEntityFilter>");
  EXPECT_EQ(one.Total("Total Income"), byCustomer.Of("Total Income").front());
  EXPECT_LT(one.Total("Total Income"), byCustomer.Total("Total Income"));
}

TEST_F(ReportOptionsTest, AccountTypeFilterLeavesOnlyThoseSections) {
  const Sheet s = Ask("ProfitAndLossStandard",
                      kAllTime + "<ReportAccountFilter><AccountTypeFilter>OrdinaryIncome</AccountTypeFilter>"
                                 "</ReportAccountFilter>");
  EXPECT_GT(s.Total("Total Income"), 0);
  EXPECT_TRUE(s.Of("Total Expense").empty());
  EXPECT_TRUE(s.Of("Total COGS").empty());
  EXPECT_EQ(s.Total("Net Income"), s.Total("Total Income"));
}

TEST_F(ReportOptionsTest, TxnTypeFilterKeepsOnlyThoseKinds) {
  const Sheet all = Ask("ProfitAndLossStandard", kAllTime);
  const Sheet invoices = Ask("ProfitAndLossStandard",
                             kAllTime + "<ReportTxnTypeFilter><TxnTypeFilter>Invoice</TxnTypeFilter>"
                                        "</ReportTxnTypeFilter>");
  EXPECT_EQ(invoices.Total("Total Income"), all.Total("Total Income"));
  const Sheet bills = Ask("ProfitAndLossStandard",
                          kAllTime + "<ReportTxnTypeFilter><TxnTypeFilter>Bill</TxnTypeFilter></ReportTxnTypeFilter>");
  EXPECT_EQ(bills.Total("Total Income"), 0);
}

TEST_F(ReportOptionsTest, ClassFilterWithChildrenTakesTheSubclasses) {
  const Sheet byClass = Ask("ProfitAndLossStandard", kAllTime + "<SummarizeColumnsBy>Class</SummarizeColumnsBy>");
  const auto income = byClass.Of("Total Income");
  int64_t trade = 0;
  for (size_t i = 0; i < byClass.titles.size(); ++i)
    if (byClass.titles[i].rfind("Trade", 0) == 0) trade += income[i];
  const Sheet s = Ask("ProfitAndLossStandard", kAllTime + "<ReportClassFilter><FullNameWithChildren>Trade"
                                                          "</FullNameWithChildren></ReportClassFilter>");
  EXPECT_EQ(s.Total("Total Income"), trade);
}

// ---- Rows returned -------------------------------------------------------------------

TEST_F(ReportOptionsTest, AllRowsShowsAccountsWithoutPostings) {
  const std::string period = Period("1990-01-01", "1990-12-31");
  EXPECT_TRUE(Ask("ProfitAndLossStandard", period).Of("Total Income").empty());
  const Sheet all = Ask("ProfitAndLossStandard", period + "<ReturnRows>All</ReturnRows>");
  const auto income = all.Of("Total Income");
  ASSERT_FALSE(income.empty());
  EXPECT_EQ(income.back(), 0);
}

}  // namespace
}  // namespace tessaron::qbsim::testing
