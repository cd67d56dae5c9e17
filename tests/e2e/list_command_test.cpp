// The `tessaron list` command on a sample company file: the formats and the failures.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "qbsim/qbsim.h"
#include "tests/support/qbxml_check.h"

namespace tessaron {
namespace {

struct CommandRun {
  int status;
  std::string out;
};

CommandRun Tessaron(const std::string& arguments) {
  const std::string command = std::string(TESSARON_BINARY_DIR) + "/cli/tessaron " + arguments + " 2>&1";
  CommandRun run{0, {}};
  FILE* pipe = popen(command.c_str(), "r");
  char buffer[4096];
  size_t n;
  while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) run.out.append(buffer, n);
  run.status = pclose(pipe);
  return run;
}

class ListCommand : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    dir_ = new testing::TempDir();
    qbsim::SampleOptions sample;
    sample.customers = 20;
    qbsim::CreateSampleCompany(dir_->File("c.qbw"), sample);
  }
  static void TearDownTestSuite() { delete dir_; }
  static std::string Company() { return " --company " + dir_->File("c.qbw"); }
  static testing::TempDir* dir_;
};
testing::TempDir* ListCommand::dir_ = nullptr;

TEST_F(ListCommand, CsvHasAHeaderRowAndOneRowPerRecord) {
  CommandRun run = Tessaron("list Classes --format csv" + Company());
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_EQ(run.out.rfind("ListID,TimeCreated,TimeModified,EditSequence,Name,FullName,IsActive,Parent,Sublevel\r\n", 0), 0u)
      << run.out;
  EXPECT_NE(run.out.find(",Trade:Export,true,Trade,1\r\n"), std::string::npos) << run.out;
}

TEST_F(ListCommand, JsonIsOneArrayWithThePropertyNamesOfTheClass) {
  CommandRun run = Tessaron("list Terms --format json" + Company());
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_EQ(run.out.front(), '[');
  EXPECT_NE(run.out.find("\"Name\": \"Net 30\""), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("\"DueDays\": 30"), std::string::npos);
  EXPECT_NE(run.out.find("\"IsActive\": true"), std::string::npos);
}

TEST_F(ListCommand, TableAlignsColumnsAndFiltersByName) {
  CommandRun run = Tessaron("list Classes --name-match Tr --match starts" + Company());
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_NE(run.out.find("Trade:Export"), std::string::npos);
  EXPECT_EQ(run.out.find("Retail"), std::string::npos);
  const size_t header = run.out.find('\n');
  const size_t rule = run.out.find('\n', header + 1);
  EXPECT_EQ(header, rule - header - 1);  // the rule is as wide as the header
}

TEST_F(ListCommand, UnknownCollectionOrFileFails) {
  EXPECT_NE(Tessaron("list Nothing" + Company()).status, 0);
  CommandRun missing = Tessaron("list Classes --company " + dir_->File("missing.qbw"));
  EXPECT_NE(missing.status, 0);
  EXPECT_NE(missing.out.find("tessaron: "), std::string::npos) << missing.out;
}

// The first line of the output: the columns.
std::string Header(const std::string& out) { return out.substr(0, out.find_first_of("\r\n")); }

struct ColumnsCase {
  const char* name;
  const char* arguments;
  const char* header;  // the first line, spaces between table columns squeezed to one
};

std::string Squeezed(std::string text) {
  std::string out;
  for (char ch : text)
    if (ch != ' ' || out.empty() || out.back() != ' ') out += ch;
  while (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}

class ListColumns : public ListCommand, public ::testing::WithParamInterface<ColumnsCase> {};

TEST_P(ListColumns, HeaderShowsTheChosenColumns) {
  CommandRun run = Tessaron(std::string("list ") + GetParam().arguments + Company());
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_EQ(Squeezed(Header(run.out)), GetParam().header) << run.out;
}

INSTANTIATE_TEST_SUITE_P(
    Columns, ListColumns,
    ::testing::Values(
        ColumnsCase{"CustomerTableDefault", "Customers", "FullName CompanyName Phone TotalBalance IsActive"},
        ColumnsCase{"TreeStartsWithTheIndentedName", "Customers --tree", "Name CompanyName Phone TotalBalance IsActive"},
        ColumnsCase{"ClassTableDefault", "Classes", "FullName IsActive"},
        ColumnsCase{"TermsOfTwoKindsShowBothSetsActiveLast", "Terms",
                    "Name Class DayOfMonthDue DueNextMonthDays DiscountDayOfMonth DiscountPercent DueDays DiscountDays "
                    "IsActive"},
        ColumnsCase{"ChosenInAnyCaseInTheGivenOrder", "Classes --columns isactive,NAME", "IsActive Name"},
        ColumnsCase{"ClassNamesTheRecordsClass", "Terms --columns Name,class --format csv", "Name,Class"},
        ColumnsCase{"CsvKeepsEveryProperty", "Classes --format csv",
                    "ListID,TimeCreated,TimeModified,EditSequence,Name,FullName,IsActive,Parent,Sublevel"},
        ColumnsCase{"ItemsOfEveryKindShowTheirPrice", "Items", "FullName Type Description Price IsActive"},
        ColumnsCase{"ChartTreeStartsWithTheNumberedName", "Accounts --tree",
                    "Name AccountType Number Balance TotalBalance IsActive"},
        ColumnsCase{"CsvTakesTheChosenColumns", "Customers --format csv --columns Name,TotalBalance",
                    "Name,TotalBalance"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ListCommand, TableShowsMoneyWithTwoDecimals) {
  CommandRun table = Tessaron("list Customers --columns Name,TotalBalance" + Company());
  CommandRun csv = Tessaron("list Customers --columns Name,TotalBalance --format csv" + Company());
  ASSERT_EQ(table.status, 0) << table.out;
  // Every balance cell of the table ends in a point and two digits; CSV keeps the plain text.
  size_t line = table.out.find('\n', table.out.find('\n') + 1);
  int rows = 0;
  while (line != std::string::npos && line + 1 < table.out.size()) {
    const size_t end = table.out.find('\n', line + 1);
    const std::string row = table.out.substr(line + 1, end - line - 1);
    ASSERT_GE(row.size(), 3u);
    EXPECT_EQ(row[row.size() - 3], '.') << row;
    ++rows;
    line = end;
  }
  EXPECT_GT(rows, 0);
  EXPECT_NE(csv.out.find(",0\r\n"), std::string::npos) << csv.out;
}

TEST_F(ListCommand, UnknownColumnFailsListingTheKnownNames) {
  CommandRun run = Tessaron("list Classes --columns Name,Colour" + Company());
  EXPECT_NE(run.status, 0);
  EXPECT_NE(run.out.find("Colour"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("FullName, IsActive"), std::string::npos) << run.out;
}

TEST_F(ListCommand, ItemsOfOneKindByType) {
  CommandRun run = Tessaron("list Items --type service --columns FullName,Type --format csv" + Company());
  ASSERT_EQ(run.status, 0) << run.out;
  EXPECT_NE(run.out.find("Labor:Installation,service\r\n"), std::string::npos) << run.out;
  EXPECT_EQ(run.out.find("inventory"), std::string::npos) << run.out;
  CommandRun wrong = Tessaron("list Classes --type service" + Company());
  EXPECT_NE(wrong.status, 0);
  EXPECT_NE(wrong.out.find("applies to Items only"), std::string::npos) << wrong.out;
}

TEST_F(ListCommand, ChartOfAccountsTreeRollsBalancesUpWithNumberedNames) {
  CommandRun run = Tessaron("list Accounts --tree --columns Name,Balance,TotalBalance --format table" + Company());
  ASSERT_EQ(run.status, 0) << run.out;
  // A sub-account sits indented under its parent, both with numbers; the parent's balance
  // is its own with its sub-accounts', which is what QuickBooks answers as TotalBalance.
  const size_t parent = run.out.find("\n1500\u00b7Furniture and Equipment");
  const size_t child = run.out.find("\n  1510\u00b7Accumulated Depreciation");
  ASSERT_NE(parent, std::string::npos) << run.out;
  EXPECT_GT(child, parent);
  size_t line = run.out.find('\n', run.out.find('\n') + 1);
  while (line != std::string::npos && line + 1 < run.out.size()) {
    const size_t end = run.out.find('\n', line + 1);
    std::string row = run.out.substr(line + 1, end - line - 1);
    while (!row.empty() && row.back() == ' ') row.pop_back();
    const size_t total = row.find_last_of(' ');
    const size_t balance = row.find_last_not_of(' ', total);
    const size_t balanceStart = row.find_last_of(' ', balance);
    EXPECT_EQ(row.substr(balanceStart + 1, balance - balanceStart), row.substr(total + 1)) << row;
    line = end;
  }
}

TEST_F(ListCommand, TransactionsListByCustomerAndOpenStatusWithReferenceColumnsNamedPlainly) {
  CommandRun all = Tessaron("list Invoices --format csv --columns RefNumber,Customer,BalanceRemaining" + Company());
  ASSERT_EQ(all.status, 0) << all.out;
  EXPECT_EQ(all.out.rfind("RefNumber,Customer,BalanceRemaining\r\n", 0), 0u) << all.out;
  // Every open invoice is in the full listing; the open listing has no settled one.
  CommandRun open = Tessaron("list invoices --open --format csv --columns RefNumber,BalanceRemaining" + Company());
  ASSERT_EQ(open.status, 0) << open.out;
  size_t rows = 0;
  for (size_t at = open.out.find("\r\n") + 2; at < open.out.size(); at = open.out.find("\r\n", at) + 2, ++rows)
    EXPECT_NE(open.out.substr(open.out.find(',', at) + 1, 2), "0\r") << open.out;
  EXPECT_GT(rows, 0u);
  const std::string customer = "Amber Bakery";
  CommandRun one = Tessaron("list Invoices --format csv --columns Customer --customer \"" + customer + "\"" + Company());
  ASSERT_EQ(one.status, 0) << one.out;
  for (size_t at = one.out.find("\r\n") + 2; at < one.out.size(); at = one.out.find("\r\n", at) + 2)
    EXPECT_EQ(one.out.compare(at, customer.size(), customer), 0) << one.out;
}

TEST_F(ListCommand, TransactionFiltersAreRefusedOnListsAndShowFindsADocumentByNumber) {
  CommandRun wrong = Tessaron("list Customers --open" + Company());
  EXPECT_NE(wrong.status, 0);
  EXPECT_NE(wrong.out.find("applies to transactions only"), std::string::npos) << wrong.out;
  CommandRun csv = Tessaron("list Invoices --format csv --columns RefNumber" + Company());
  const size_t first = csv.out.find("\r\n") + 2;
  const std::string number = csv.out.substr(first, csv.out.find("\r\n", first) - first);
  CommandRun show = Tessaron("show invoice " + number + Company());
  ASSERT_EQ(show.status, 0) << show.out;
  EXPECT_EQ(show.out.rfind("Invoice " + number, 0), 0u) << show.out;
  EXPECT_NE(show.out.find("Balance due"), std::string::npos) << show.out;
  CommandRun missing = Tessaron("show Invoice NOSUCH" + Company());
  EXPECT_NE(missing.status, 0);
  EXPECT_NE(missing.out.find("No Invoice numbered NOSUCH."), std::string::npos) << missing.out;
}

}  // namespace
}  // namespace tessaron
