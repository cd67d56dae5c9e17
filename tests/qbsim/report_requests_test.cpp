// The report queries of the company-file processor: the shape of each kind of answer, the
// figures summed from the ledger, and the report requests it takes although the schema
// does not.
#include <cmath>
#include <map>
#include <string>

#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

class ReportRequestsTest : public QbsimTest {
 protected:
  // The ColType of each column, in order, joined by blanks.
  static std::string ColTypes(const Response& r) {
    std::string s;
    for (pugi::xml_node c : r.Rs().child("ReportRet").children("ColDesc"))
      s += (s.empty() ? "" : " ") + std::string(c.child_value("ColType"));
    return s;
  }
  // The value of a row's cell by column.
  static std::string Cell(pugi::xml_node row, int colID) {
    for (pugi::xml_node c : row.children("ColData"))
      if (c.attribute("colID").as_int() == colID) return c.attribute("value").value();
    return "";
  }
  // Sends a message the schema refuses on purpose; only the answer is checked.
  Response SendTolerated(const std::string& requests) {
    const std::string text = Message(requests);
    EXPECT_FALSE(tessaron::testing::IsValidQbxml(text)) << "no longer a deviation";
    Response r(processor_->ProcessRequest(ticket_, text));
    EXPECT_TRUE(tessaron::testing::IsValidQbxml(r.Text()));
    return r;
  }
  static int64_t Cents(const std::string& amount) {
    return amount.empty() ? 0 : static_cast<int64_t>(std::llround(std::stod(amount) * 100));
  }
};

TEST_F(ReportRequestsTest, TrialBalanceListsAccountsOnTheirSideAndBalances) {
  Open();
  Response r = Send("<GeneralSummaryReportQueryRq><GeneralSummaryReportType>TrialBalance</GeneralSummaryReportType>"
                    "<ReportPeriod><FromReportDate>2000-01-01</FromReportDate><ToReportDate>2099-12-31"
                    "</ToReportDate></ReportPeriod></GeneralSummaryReportQueryRq>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  pugi::xml_node ret = r.Rs().child("ReportRet");
  EXPECT_STREQ(ret.child_value("ReportTitle"), "Trial Balance");
  EXPECT_STREQ(ret.child_value("ReportSubtitle"), "As of December 31, 2099");
  EXPECT_STREQ(ret.child_value("ReportBasis"), "Accrual");
  EXPECT_EQ(ColTypes(r), "Label Debit Credit");
  int64_t debits = 0, credits = 0, rows = 0;
  pugi::xml_node total;
  for (pugi::xml_node row : ret.child("ReportData").children()) {
    ++rows;
    if (std::string_view(row.name()) == "TotalRow") {
      total = row;
      continue;
    }
    // A row carries a debit or a credit, never both.
    EXPECT_NE(Cell(row, 2).empty(), Cell(row, 3).empty()) << Cell(row, 1);
    debits += Cents(Cell(row, 2));
    credits += Cents(Cell(row, 3));
  }
  ASSERT_TRUE(total);
  EXPECT_EQ(Cents(Cell(total, 2)), debits);
  EXPECT_EQ(Cents(Cell(total, 3)), credits);
  EXPECT_EQ(debits, credits);
  EXPECT_EQ(std::to_string(rows), ret.child_value("NumRows"));
}

TEST_F(ReportRequestsTest, TrialBalanceBeforeAnyPostingHasOnlyItsTotal) {
  Open();
  Response r = Send("<GeneralSummaryReportQueryRq><GeneralSummaryReportType>TrialBalance</GeneralSummaryReportType>"
                    "<ReportPeriod><FromReportDate>1901-01-01</FromReportDate><ToReportDate>1901-01-31"
                    "</ToReportDate></ReportPeriod></GeneralSummaryReportQueryRq>");
  pugi::xml_node data = r.Rs().child("ReportRet").child("ReportData");
  ASSERT_TRUE(data.child("TotalRow"));
  EXPECT_FALSE(data.child("DataRow"));
  EXPECT_EQ(Cell(data.child("TotalRow"), 2), "0.00");
}

TEST_F(ReportRequestsTest, AgingSummaryBucketsAddUpPerCustomer) {
  Open();
  Response r = Send("<AgingReportQueryRq><AgingReportType>ARAgingSummary</AgingReportType></AgingReportQueryRq>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(ColTypes(r), "Label Amount Amount Amount Amount Amount Total");
  pugi::xml_node ret = r.Rs().child("ReportRet");
  EXPECT_FALSE(ret.child("ReportBasis"));  // aging reports have none
  int customers = 0;
  for (pugi::xml_node row : ret.child("ReportData").children("DataRow")) {
    ++customers;
    EXPECT_STREQ(row.child("RowData").attribute("rowType").value(), "customer");
    int64_t buckets = 0;
    for (int c = 2; c <= 6; ++c) buckets += Cents(Cell(row, c));
    EXPECT_EQ(buckets, Cents(Cell(row, 7)));
  }
  EXPECT_GT(customers, 0);
}

TEST_F(ReportRequestsTest, CustomDetailAnswersTheColumnsAskedFor) {
  Open();
  Response r = Send("<CustomDetailReportQueryRq><CustomDetailReportType>CustomTxnDetail</CustomDetailReportType>"
                    "<SummarizeRowsBy>Account</SummarizeRowsBy><IncludeColumn>Date</IncludeColumn>"
                    "<IncludeColumn>Debit</IncludeColumn></CustomDetailReportQueryRq>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(ColTypes(r), "Blank Date Debit");
  pugi::xml_node date = r.Rs().child("ReportRet").find_child_by_attribute("ColDesc", "colID", "2");
  EXPECT_STREQ(date.attribute("dataType").value(), "DATETYPE");
}

TEST_F(ReportRequestsTest, DisplayedReportAnswersNoData) {
  Open();
  Response r = Send("<GeneralSummaryReportQueryRq><GeneralSummaryReportType>BalanceSheetStandard"
                    "</GeneralSummaryReportType><DisplayReport>true</DisplayReport></GeneralSummaryReportQueryRq>");
  EXPECT_EQ(r.Status(), 0);
  EXPECT_FALSE(r.Rs().child("ReportRet"));
}

// ---- Requests the schema refuses, taken on purpose ----------------------------------

TEST_F(ReportRequestsTest, ReturnColsIsTakenForReturnColumns) {
  Open();
  Response r = SendTolerated(
      "<GeneralSummaryReportQueryRq><GeneralSummaryReportType>ProfitAndLossStandard</GeneralSummaryReportType>"
      "<ReturnCols>NonZero</ReturnCols></GeneralSummaryReportQueryRq>");
  EXPECT_EQ(r.Status(), 0) << r.Message();
}

TEST_F(ReportRequestsTest, BasisOfAJobOrTimeReportIsRefusedAsAnOptionNotAsAMessage) {
  Open();
  for (const char* rq : {"<JobReportQueryRq><JobReportType>ItemProfitability</JobReportType>"
                         "<ReportBasis>Cash</ReportBasis></JobReportQueryRq>",
                         "<TimeReportQueryRq><TimeReportType>TimeByName</TimeReportType>"
                         "<ReportBasis>Accrual</ReportBasis></TimeReportQueryRq>"}) {
    Response r = SendTolerated(rq);
    EXPECT_EQ(r.Status(), 3151);
    EXPECT_NE(r.Message().find("ReportBasis"), std::string::npos);
  }
}

}  // namespace
}  // namespace tessaron::qbsim::testing
