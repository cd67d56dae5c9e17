// The renderings of a report, on a hand-made report split by month: the text table's
// indentation, alignment and rules, the page's well-formedness and its chart, the CSV's
// quoting and the JSON's numbers.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "cli/report_render.h"

namespace tessaron::cli {
namespace {

using Kind = ReportView::Kind;

ReportView MonthlyProfit() {
  ReportView v;
  v.title = "Profit & Loss <Trial>";
  v.subtitle = "January through March 2024";
  v.basis = "Cash";
  v.columns = {{"", false}, {"Jan 24", true}, {"Feb 24", true}, {"Mar 24", true}, {"TOTAL", true}};
  v.rows = {{Kind::Text, 0, {"Income", "", "", "", ""}},
            {Kind::Data, 1, {"Sales, \"retail\"", "1000", "2000.5", "-500", "2500.5"}},
            {Kind::Data, 1, {"Services", "", "", "12", "12"}},
            {Kind::Subtotal, 0, {"Total Income", "1000", "2000.5", "-488", "2512.5"}},
            {Kind::Total, 0, {"Net Income", "100", "300", "-50", "350"}}};
  v.periodColumns = true;
  return v;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> out;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

const std::string* LineStarting(const std::vector<std::string>& lines, const std::string& start) {
  for (const std::string& l : lines)
    if (l.rfind(start, 0) == 0) return &l;
  return nullptr;
}

// ---- Text table ----------------------------------------------------------------------

TEST(ReportTable, IndentsRowsByDepthAndRightAlignsAmountsUnderTheirTitles) {
  std::ostringstream out;
  WriteTable(MonthlyProfit(), out);
  const auto lines = Lines(out.str());
  ASSERT_GE(lines.size(), 4u);
  EXPECT_EQ(lines[0], "Profit & Loss <Trial>");
  EXPECT_EQ(lines[2], "Cash basis");
  const std::string* head = LineStarting(lines, "   ");
  const std::string* sales = LineStarting(lines, "  Sales");
  const std::string* total = LineStarting(lines, "Net Income");
  ASSERT_TRUE(head && sales && total) << out.str();
  EXPECT_TRUE(LineStarting(lines, "Income"));  // a heading stays at its depth
  // Each amount ends where its column title ends.
  EXPECT_EQ(head->size(), sales->size());
  EXPECT_EQ(head->find("Jan 24") + 6, sales->find("1,000.00") + 8);
  EXPECT_EQ(head->find("Feb 24") + 6, sales->find("2,000.50") + 8);
  EXPECT_NE(sales->find("-500.00"), std::string::npos);
  EXPECT_EQ(head->size(), total->size());
}

TEST(ReportTable, SetsSubtotalsAndTotalsOffWithRules) {
  std::ostringstream out;
  WriteTable(MonthlyProfit(), out);
  const auto lines = Lines(out.str());
  for (size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].rfind("Total Income", 0) == 0) {
      ASSERT_GT(i, 0u);
      EXPECT_NE(lines[i - 1].find("--------"), std::string::npos) << lines[i - 1];
    }
    if (lines[i].rfind("Net Income", 0) == 0) {
      ASSERT_LT(i + 1, lines.size());
      EXPECT_NE(lines[i - 1].find("--------"), std::string::npos);
      EXPECT_NE(lines[i + 1].find("========"), std::string::npos);
    }
  }
}

struct MoneyCase {
  const char *raw, *shown;
};

class MoneyTextTest : public ::testing::TestWithParam<MoneyCase> {};

TEST_P(MoneyTextTest, ShowsTwoDecimalsWithGroupsAndLeavesTextAlone) {
  EXPECT_EQ(MoneyText(GetParam().raw), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Amounts, MoneyTextTest,
                         ::testing::Values(MoneyCase{"1234.5", "1,234.50"}, MoneyCase{"-12", "-12.00"},
                                           MoneyCase{"0.00", "0.00"}, MoneyCase{"1234567.891", "1,234,567.89"},
                                           MoneyCase{"", ""}, MoneyCase{"n/a", "n/a"}));

// ---- Page ----------------------------------------------------------------------------

pugi::xml_document ParsePage(const ReportView& v, std::string* text = nullptr) {
  std::ostringstream out;
  WriteHtml(v, out);
  if (text) *text = out.str();
  pugi::xml_document doc;
  const pugi::xml_parse_result r = doc.load_string(out.str().c_str(), pugi::parse_default | pugi::parse_doctype);
  EXPECT_TRUE(r) << r.description() << " at " << r.offset << "\n" << out.str();
  return doc;
}

TEST(ReportPage, IsOneWellFormedPageWithoutScriptOrFetches) {
  std::string text;
  pugi::xml_document doc = ParsePage(MonthlyProfit(), &text);
  EXPECT_EQ(text.rfind("<!DOCTYPE html>", 0), 0u);
  EXPECT_STREQ(doc.select_node("/html/head/title").node().child_value(), "Profit & Loss <Trial>");
  EXPECT_STREQ(doc.select_node("/html/body/h1").node().child_value(), "Profit & Loss <Trial>");
  EXPECT_FALSE(doc.select_node("//script"));
  EXPECT_FALSE(doc.select_node("//link"));
  EXPECT_FALSE(doc.select_node("//img"));
  // The one address in the page is the SVG namespace.
  size_t addresses = 0;
  for (size_t at = text.find("http"); at != std::string::npos; at = text.find("http", at + 1)) ++addresses;
  EXPECT_EQ(addresses, 1u);
}

TEST(ReportPage, HoldsEveryRowWithItsKindAndAmountsShown) {
  pugi::xml_document doc = ParsePage(MonthlyProfit());
  const auto rows = doc.select_nodes("/html/body/table/tbody/tr");
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_STREQ(rows[0].node().attribute("class").value(), "text");
  EXPECT_STREQ(rows[3].node().attribute("class").value(), "subtotal");
  EXPECT_STREQ(rows[4].node().attribute("class").value(), "total");
  EXPECT_STREQ(rows[1].node().first_child().child_value(), "Sales, \"retail\"");
  EXPECT_STREQ(rows[1].node().child("td").next_sibling().next_sibling().child_value(), "2,000.50");
  EXPECT_EQ(doc.select_nodes("/html/body/table/thead/tr/th").size(), 5u);
}

TEST(ReportPage, ChartsTheTotalsByPeriodWithBarsInProportion) {
  pugi::xml_document doc = ParsePage(MonthlyProfit());
  const auto bars = doc.select_nodes("//svg/rect");
  ASSERT_EQ(bars.size(), 3u);  // the months, not the TOTAL column
  const double jan = bars[0].node().attribute("height").as_double();
  const double feb = bars[1].node().attribute("height").as_double();
  const double mar = bars[2].node().attribute("height").as_double();
  ASSERT_GT(jan, 0);
  EXPECT_NEAR(feb / jan, 3.0, 0.01);  // 300 against 100
  EXPECT_NEAR(mar / jan, 0.5, 0.01);  // 50 below the line against 100 above it
  // A loss hangs from the zero line that the gains stand on.
  const double zero = doc.select_node("//svg/line").node().attribute("y1").as_double();
  EXPECT_NEAR(bars[0].node().attribute("y").as_double() + jan, zero, 0.01);
  EXPECT_NEAR(bars[2].node().attribute("y").as_double(), zero, 0.01);
  EXPECT_STREQ(bars[2].node().attribute("class").value(), "bar negative");
}

TEST(ReportPage, ChartsEveryPeriodOfABalanceSheetWhichHasNoTotalColumn) {
  ReportView v = MonthlyProfit();
  v.columns.pop_back();
  for (auto& row : v.rows) row.cells.pop_back();
  const auto bars = ChartBars(v);
  ASSERT_EQ(bars.size(), 3u);
  EXPECT_EQ(bars.back().label, "Mar 24");
  EXPECT_DOUBLE_EQ(bars.back().value, -50);
}

TEST(ReportPage, HasNoChartWithoutPeriodColumns) {
  ReportView v = MonthlyProfit();
  v.periodColumns = false;
  EXPECT_FALSE(ParsePage(v).select_node("//svg"));
  EXPECT_TRUE(ChartBars(v).empty());
}

// ---- CSV and JSON --------------------------------------------------------------------

TEST(ReportCsv, QuotesWhatNeedsItAndWritesPlainAmounts) {
  std::ostringstream out;
  WriteCsv(MonthlyProfit(), out);
  const auto lines = Lines(out.str());
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0], "kind,depth,label,Jan 24,Feb 24,Mar 24,TOTAL");
  EXPECT_EQ(lines[2], "data,1,\"Sales, \"\"retail\"\"\",1000.00,2000.50,-500.00,2500.50");
  EXPECT_EQ(lines[3], "data,1,Services,,,12.00,12.00");
}

TEST(ReportJson, WritesAmountsAsNumbersAndEmptyCellsAsNull) {
  std::ostringstream out;
  WriteJson(MonthlyProfit(), out);
  const std::string json = out.str();
  EXPECT_NE(json.find("\"title\": \"Profit & Loss <Trial>\""), std::string::npos);
  EXPECT_NE(json.find("[\"Sales, \\\"retail\\\"\", 1000.00, 2000.50, -500.00, 2500.50]"), std::string::npos) << json;
  EXPECT_NE(json.find("[\"Services\", null, null, 12.00, 12.00]"), std::string::npos);
  EXPECT_NE(json.find("{\"kind\": \"subtotal\", \"depth\": 0"), std::string::npos);
}

}  // namespace
}  // namespace tessaron::cli
