// Reading report answers: headers and their types, the four kinds of rows, cells that are
// missing, titles without a value, and the depth the indentation step gives each row.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tessaron/reports/report.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

XmlNode Parse(XmlDocument& doc, const std::string& reportRet) {
  doc = XmlDocument::Create();
  EXPECT_TRUE(doc.loadXML("<GeneralSummaryReportQueryRs statusCode=\"0\" statusSeverity=\"Info\" "
                          "statusMessage=\"Status OK\">" + reportRet + "</GeneralSummaryReportQueryRs>"));
  return doc.documentElement();
}

const char* kProfitAndLoss = R"(<ReportRet>
  <ReportTitle>Profit &amp; Loss</ReportTitle><ReportSubtitle>January through May 2024</ReportSubtitle>
  <ReportBasis>Accrual</ReportBasis><NumRows>9</NumRows><NumColumns>3</NumColumns><NumColTitleRows>2</NumColTitleRows>
  <ColDesc colID="1" dataType="STRTYPE"><ColTitle titleRow="1"/><ColType>Label</ColType></ColDesc>
  <ColDesc colID="2" dataType="AMTTYPE"><ColTitle titleRow="1" value="Jan - May 24"/><ColTitle titleRow="2" value="Amount"/><ColType>Amount</ColType></ColDesc>
  <ColDesc colID="3" dataType="ENUMTYPE" extra="x"><ColTitle titleRow="1" value="Kind"/><ColType>Unsupported</ColType><Unknown/></ColDesc>
  <ReportData>
    <TextRow rowNumber="1" value="Ordinary Income/Expense"/>
    <TextRow rowNumber="2" value="Income"/>
    <DataRow rowNumber="3"><RowData rowType="account" value="Sales"/><ColData colID="1" value="Sales"/><ColData colID="2" value="120.00" dataType="AMTTYPE"/></DataRow>
    <DataRow rowNumber="4"><RowData rowType="account" value="Consulting"/><ColData colID="1" value="Consulting"/></DataRow>
    <SubtotalRow rowNumber="5"><ColData colID="1" value="Total Income"/><ColData colID="2" value="120.00"/></SubtotalRow>
    <SubtotalRow rowNumber="6"><ColData colID="1" value="Gross Profit"/><ColData colID="2" value="120.00"/></SubtotalRow>
    <SubtotalRow rowNumber="7"><ColData colID="1" value="Net Ordinary Income"/><ColData colID="2" value="120.00"/></SubtotalRow>
    <TotalRow rowNumber="8"><ColData colID="1" value="Net Income"/><ColData colID="2" value="120.00"/></TotalRow>
  </ReportData>
</ReportRet>)";

TEST(ReportResult, ReadsTitleCountsAndBasis) {
  XmlDocument doc;
  Report r;
  r.FromDom(Parse(doc, kProfitAndLoss));
  EXPECT_EQ(r.ResponseName(), "GeneralSummaryReportQueryRs");
  EXPECT_EQ(r.Title(), "Profit & Loss");
  EXPECT_EQ(r.Subtitle(), "January through May 2024");
  EXPECT_EQ(r.Basis(), "Accrual");
  EXPECT_EQ(r.MaxRows(), 9);
  EXPECT_EQ(r.MaxColumns(), 3);
  EXPECT_EQ(r.ColumnTitleRows(), 2);
}

TEST(ReportResult, HeadersKeepTypesTitlesAndFields) {
  XmlDocument doc;
  Report r;
  r.FromDom(Parse(doc, kProfitAndLoss));
  auto& h = r.ColumnHeaders();
  ASSERT_EQ(h.Count(), 3);
  // A title row without a value is a blank line of the heading.
  EXPECT_EQ(h.Item(1)->DataType(), 8);
  EXPECT_EQ(h.Item(1)->TitleLines(), 1);
  EXPECT_EQ(h.Item(1)->TitleText(1), "");
  EXPECT_EQ(h.Item(1)->Field(), qbRptFieldLabel);
  EXPECT_EQ(h.Item(2)->ID(), 2);
  EXPECT_EQ(h.Item(2)->DataType(), 6);
  EXPECT_EQ(h.Item(2)->TitleRow(), 2);
  EXPECT_EQ(h.Item(2)->Title(), "Amount");
  EXPECT_EQ(h.Item(2)->TitleLines(), 2);
  EXPECT_EQ(h.Item(2)->TitleText(1), "Jan - May 24");
  EXPECT_EQ(h.Item(2)->Field(), qbRptFieldAmount);
  // An enumerated column reads as text; an unsupported one has no field.
  EXPECT_EQ(h.Item(3)->DataType(), 8);
  EXPECT_EQ(h.Item(3)->Field(), 0);
}

TEST(ReportResult, RowsOfEveryKindWithTheirCells) {
  XmlDocument doc;
  Report r;
  r.FromDom(Parse(doc, kProfitAndLoss));
  auto& rows = r.ReportRows();
  ASSERT_EQ(rows.Count(), 8);
  EXPECT_EQ(rows.Item(1)->RowType(), qbRptRowTypeText);
  EXPECT_EQ(rows.Item(1)->Text(), "Ordinary Income/Expense");
  EXPECT_EQ(rows.Item(1)->Columns().Count(), 0);
  auto sales = rows.Item(3);
  EXPECT_EQ(sales->RowType(), qbrptRowTypeData);
  EXPECT_EQ(sales->RowNumber(), 3);
  EXPECT_EQ(sales->CollectionIndex(), 3);
  EXPECT_EQ(sales->RowDataType(), "account");
  EXPECT_EQ(sales->RowDataValue(), "Sales");
  ASSERT_EQ(sales->Columns().Count(), 2);
  EXPECT_EQ(sales->Columns().Item(2)->ID(), 2);
  EXPECT_EQ(sales->Columns().Item(2)->Text(), "120.00");
  EXPECT_EQ(sales->Columns().Item(2)->DataType(), "AMTTYPE");
  // A row that leaves a cell out simply has fewer cells.
  EXPECT_EQ(rows.Item(4)->Columns().Count(), 1);
  EXPECT_EQ(rows.Item(5)->RowType(), qbRptRowTypeSubTotal);
  EXPECT_EQ(rows.Item(8)->RowType(), qbRptRowTypeTotal);
}

TEST(ReportResult, AnswerWithoutAReportEmptiesHeadersAndKeepsTheTitle) {
  XmlDocument doc;
  Report r;
  r.FromDom(Parse(doc, kProfitAndLoss));
  r.FromDom(Parse(doc, ""));
  EXPECT_EQ(r.ColumnHeaders().Count(), 0);
  EXPECT_EQ(r.Title(), "Profit & Loss");
}

TEST(ReportResult, UnexpectedBasisIsRefused) {
  XmlDocument doc;
  Report r;
  EXPECT_EQ(testing::NumberRaised([&] { r.FromDom(Parse(doc, "<ReportRet><ReportBasis>Modified</ReportBasis></ReportRet>")); }),
            0x80040A2Au);
}

// ---- Indentation ------------------------------------------------------------------------

std::shared_ptr<rptRow> AddRow(rptRows& rows, qbEnumRptRowType type, const std::string& text,
                               const std::string& rowData = "") {
  auto row = rows.Add();
  row->SetRowType(type);
  if (type == qbRptRowTypeText) row->SetText(text);
  else row->Columns().Add()->SetText(text);
  if (!rowData.empty()) {
    XmlDocument doc = XmlDocument::Create();
    doc.loadXML("<DataRow><RowData rowType=\"customer\" value=\"" + rowData + "\"/></DataRow>");
    row->FromDom(doc.documentElement());
    row->Columns().Add()->SetText(text);
  }
  return row;
}

std::vector<int> Indents(const rptRows& rows) {
  std::vector<int> v;
  for (const auto& row : rows) v.push_back(row->IndentLevel());
  return v;
}

TEST(ReportIndent, NestedSubtotalsOpenLevelsAndTotalsCloseThem) {
  rptRows rows;
  AddRow(rows, qbRptRowTypeSubTotal, "Assets");          // opens level 0 -> 1
  AddRow(rows, qbRptRowTypeSubTotal, "Current Assets");  // opens 1 -> 2
  AddRow(rows, qbrptRowTypeData, "Checking");
  AddRow(rows, qbRptRowTypeTotal, "Total Current Assets");
  AddRow(rows, qbRptRowTypeTotal, "Total Assets");
  AddRow(rows, qbRptRowTypeText, "Assets and more");  // starts with a known label
  IndentRows(rows, false);
  EXPECT_EQ(Indents(rows), (std::vector<int>{0, 1, 2, 1, 0, 0}));
}

TEST(ReportIndent, GrossProfitStepsBackAndCostOfGoodsSoldFindsCogs) {
  rptRows rows;
  AddRow(rows, qbRptRowTypeSubTotal, "Income");
  AddRow(rows, qbRptRowTypeSubTotal, "COGS");
  AddRow(rows, qbRptRowTypeSubTotal, "Gross Profit");
  AddRow(rows, qbRptRowTypeText, "Cost of Goods Sold");
  IndentRows(rows, false);
  EXPECT_EQ(Indents(rows), (std::vector<int>{0, 1, 1, 1}));
}

TEST(ReportIndent, NeverGoesBelowZero) {
  rptRows rows;
  AddRow(rows, qbRptRowTypeSubTotal, "Gross Profit");
  AddRow(rows, qbRptRowTypeTotal, "Total Nothing");
  IndentRows(rows, false);
  EXPECT_EQ(Indents(rows), (std::vector<int>{0, 0}));
}

TEST(ReportIndent, MoreThanThirtyOneLevelsIsOutOfRange) {
  rptRows rows;
  for (int i = 0; i < 32; ++i) AddRow(rows, qbRptRowTypeSubTotal, "Level " + std::to_string(i));
  EXPECT_EQ(testing::NumberRaised([&] { IndentRows(rows, false); }), 9u);
}

TEST(ReportIndent, NameListsIndentByTheirFullNames) {
  rptRows rows;
  AddRow(rows, qbrptRowTypeData, "x", "Acme:Kitchen:Phase 1");
  AddRow(rows, qbRptRowTypeText, "Kitchen");
  AddRow(rows, qbRptRowTypeTotal, "Total Kitchen");
  AddRow(rows, qbrptRowTypeData, "y", "Baker");
  IndentRows(rows, true);
  EXPECT_EQ(Indents(rows), (std::vector<int>{3, 1, 1, 1}));
}

}  // namespace
}  // namespace tessaron
