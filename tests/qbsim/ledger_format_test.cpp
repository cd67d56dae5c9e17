// Company files written before the ledger existed open with an empty ledger.
#include <sqlite3.h>

#include "qbsim/company_file.h"
#include "qbsim/ledger.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

void Exec(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
  sqlite3_close(db);
}

TEST(LedgerFormat, AFileOfTheFirstFormatGetsAnEmptyLedgerAndTheCurrentFormat) {
  tessaron::testing::TempDir dir;
  std::string path = dir.File("old.qbw");
  CreateCompany(path);
  Exec(path, "DROP TABLE txn; DROP TABLE txn_line; DROP TABLE posting; DROP TABLE deleted_txn; PRAGMA user_version=1");
  auto file = CompanyFile::Open(path);
  EXPECT_EQ(LedgerStore(*file).Imbalance(), 0);
  EXPECT_FALSE(LedgerStore(*file).ByTxnId("1-1"));
  SqlStatement st = file->Db().Prepare("PRAGMA user_version");
  ASSERT_TRUE(st.Step());
  EXPECT_EQ(st.Int(0), CompanyFile::kFormatVersion);
}

TEST(LedgerMoney, RoundsToCentsHalvesAwayFromZero) {
  EXPECT_EQ(RoundToCents(10050), 10100);    // 1.005 -> 1.01
  EXPECT_EQ(RoundToCents(-10050), -10100);  // -1.005 -> -1.01
  EXPECT_EQ(RoundToCents(10049), 10000);
  EXPECT_EQ(CentsText(6281), "0.63");
}

}  // namespace
}  // namespace tessaron::qbsim::testing
