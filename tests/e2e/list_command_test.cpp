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

}  // namespace
}  // namespace tessaron
