// tessaron report list, run as a user runs it.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sstream>
#include <string>
#include <sys/wait.h>

#include <fstream>

#include <pugixml.hpp>

#include "tests/support/qbxml_check.h"

namespace {

std::string RunTessaron(const std::string& args, int& exitCode) {
  const std::string command = std::string(TESSARON_BINARY_DIR) + "/cli/tessaron " + args + " 2>&1";
  std::string out;
  FILE* p = popen(command.c_str(), "r");
  std::array<char, 4096> buf;
  while (size_t n = fread(buf.data(), 1, buf.size(), p)) out.append(buf.data(), n);
  const int status = pclose(p);
  exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return out;
}

TEST(ReportListCommand, ListsEveryReportUnderItsGroup) {
  int code = 0;
  const std::string out = RunTessaron("report list", code);
  ASSERT_EQ(code, 0) << out;
  // Trial Balance belongs to the accountant's group, which comes after banking.
  const size_t banking = out.find("Banking\n"), accountant = out.find("Accountant & Taxes\n");
  const size_t trial = out.find("61  Trial Balance");
  ASSERT_NE(trial, std::string::npos) << out;
  EXPECT_LT(banking, accountant);
  EXPECT_GT(trial, accountant);
  EXPECT_EQ(out.find("Lists\n"), std::string::npos);  // a group without reports is left out
  size_t rows = 0;
  for (size_t at = out.find("\n  "); at != std::string::npos; at = out.find("\n  ", at + 1)) ++rows;
  EXPECT_EQ(rows, 89u);
}

TEST(ReportListCommand, OneGroupByNameWithOrWithoutBlanks) {
  int code = 0;
  const std::string out = RunTessaron("report list --group VendorsAndPayables", code);
  ASSERT_EQ(code, 0) << out;
  EXPECT_NE(out.find("APAgingSummary"), std::string::npos);
  EXPECT_EQ(out.find("OpenPOs"), std::string::npos);  // a purchases report
  EXPECT_NE(RunTessaron("report list --group Nothing", code).find("No report group"), std::string::npos);
  EXPECT_NE(code, 0);
}

TEST(ReportRunCommand, PrintsTheTrialBalanceWithEqualTotals) {
  tessaron::testing::TempDir dir;
  const std::string company = dir.File("books.qbw");
  int code = 0;
  ASSERT_EQ((RunTessaron("company create " + company + " --size 20", code), code), 0);
  const std::string out = RunTessaron("report run \"Trial Balance\" --company " + company, code);
  ASSERT_EQ(code, 0) << out;
  EXPECT_EQ(out.rfind("Trial Balance\nAs of ", 0), 0u) << out;
  const size_t total = out.find("\nTOTAL ");
  ASSERT_NE(total, std::string::npos) << out;
  std::istringstream line(out.substr(total + 7));
  std::string debits, credits;
  line >> debits >> credits;
  EXPECT_EQ(debits, credits);
  EXPECT_NE(RunTessaron("report run \"No Such Report\" --company " + company, code).find("No report named"),
            std::string::npos);
  EXPECT_NE(code, 0);
}

TEST(ReportCommand, WritesAPageSplitByMonthAndPrintsItsPath) {
  tessaron::testing::TempDir dir;
  const std::string company = dir.File("books.qbw"), page = dir.File("profit.html");
  int code = 0;
  ASSERT_EQ((RunTessaron("company create " + company + " --size 20", code), code), 0);
  const std::string out = RunTessaron("report \"Profit & Loss\" --company " + company +
                                          " --from 2020-01-01 --to 2030-12-31 --columns month --basis cash"
                                          " --format html --output " + page, code);
  ASSERT_EQ(code, 0) << out;
  EXPECT_EQ(out, page + "\n");
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_file(page.c_str(), pugi::parse_default | pugi::parse_doctype));
  EXPECT_STREQ(doc.select_node("/html/body/p[@class='basis']").node().child_value(), "Cash basis");
  EXPECT_GT(doc.select_nodes("//svg/rect").size(), 12u);  // eleven years of months
}

TEST(ReportCommand, TakesANamedPeriodButNotWithDates) {
  tessaron::testing::TempDir dir;
  const std::string company = dir.File("books.qbw");
  int code = 0;
  ASSERT_EQ((RunTessaron("company create " + company + " --size 20", code), code), 0);
  std::string out = RunTessaron("report \"Balance Sheet\" --company " + company + " --period last-month --format csv", code);
  ASSERT_EQ(code, 0) << out;
  EXPECT_EQ(out.rfind("kind,depth,label,", 0), 0u) << out;
  out = RunTessaron("report \"Balance Sheet\" --company " + company + " --period last-month --from 2024-01-01", code);
  EXPECT_NE(code, 0);
  EXPECT_NE(out.find("either --period or --from"), std::string::npos) << out;
  out = RunTessaron("report \"Balance Sheet\" --company " + company + " --period fortnight", code);
  EXPECT_NE(code, 0);
  EXPECT_NE(out.find("last-quarter"), std::string::npos) << out;  // the known names are listed
}

}  // namespace
