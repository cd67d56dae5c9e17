// The company file on disk: its format, its journal, and what a killed writer leaves.
#include <csignal>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

#include <sqlite3.h>

#include "tessaron/platform/error.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

void Exec(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
  sqlite3_close(db);
}

std::string OpenFailure(const std::string& path) {
  try {
    CompanyFile::Open(path);
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(processor_error::kCannotOpenFile));
    return e.Description();
  }
  return "opened";
}

TEST(CompanyFile, IsASqliteDatabaseInWalMode) {
  tessaron::testing::TempDir dir;
  CreateCompany(dir.File("c.qbw"));
  auto file = CompanyFile::Open(dir.File("c.qbw"));
  SqlStatement st = file->Db().Prepare("PRAGMA journal_mode");
  ASSERT_TRUE(st.Step());
  EXPECT_EQ(st.Text(0), "wal");
}

TEST(CompanyFile, AnotherSqliteDatabaseIsNotACompanyFile) {
  tessaron::testing::TempDir dir;
  Exec(dir.File("other.db"), "CREATE TABLE t(x)");
  EXPECT_NE(OpenFailure(dir.File("other.db")).find("not a company file"), std::string::npos);
}

TEST(CompanyFile, AFileOfANewerFormatIsRefused) {
  tessaron::testing::TempDir dir;
  CreateCompany(dir.File("new.qbw"));
  Exec(dir.File("new.qbw"), "PRAGMA user_version=" + std::to_string(CompanyFile::kFormatVersion + 1));
  EXPECT_NE(OpenFailure(dir.File("new.qbw")).find("newer format"), std::string::npos);
}

TEST(CompanyFile, CreatingOverAnExistingFileIsRefused) {
  tessaron::testing::TempDir dir;
  CreateCompany(dir.File("c.qbw"));
  EXPECT_THROW(CreateSampleCompany(dir.File("c.qbw")), Error);
}

// A child process changes the file as fast as it can and reports each answered change on a
// pipe; it is killed in the middle. The file must then hold every answered change, and no
// change by halves: a rename moves the full names of all jobs below, or none.
TEST(CompanyFile, AKilledWriterLosesNoAnsweredChangeAndLeavesNoHalfChange) {
  tessaron::testing::TempDir dir;
  const std::string path = dir.File("crash.qbw");
  SampleOptions s;
  s.customers = 10;
  CreateSampleCompany(path, s);
  {
    // A parent with many jobs, so that each rename rewrites many records in one transaction.
    auto p = CreateProcessor();
    p->OpenConnection("", "setup");
    std::string t = p->BeginSession(path, 0);
    std::string rq = "<CustomerAddRq requestID=\"1\"><CustomerAdd><Name>Crash Parent</Name></CustomerAdd></CustomerAddRq>";
    for (int i = 0; i < 150; ++i)
      rq += "<CustomerAddRq requestID=\"1\"><CustomerAdd><Name>Job " + std::to_string(i) +
            "</Name><ParentRef><FullName>Crash Parent</FullName></ParentRef></CustomerAdd></CustomerAddRq>";
    Response r(p->ProcessRequest(t, Message(rq)));
    ASSERT_EQ(r.Status(150), 0);
    p->CloseConnection();
  }
  int fds[2];
  ASSERT_EQ(pipe(fds), 0);
  pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    close(fds[0]);
    try {
      auto p = CreateProcessor();
      p->OpenConnection("", "writer");
      std::string t = p->BeginSession(path, 0);
      for (int i = 0;; ++i) {
        Response q(p->ProcessRequest(t, Message("<CustomerQueryRq><FullName>" +
                                                std::string(i % 2 ? "Crash Parent Renamed" : "Crash Parent") +
                                                "</FullName></CustomerQueryRq>")));
        std::string id = q.Value("CustomerRet/ListID"), seq = q.Value("CustomerRet/EditSequence");
        Response r(p->ProcessRequest(
            t, Message("<ClassAddRq requestID=\"1\"><ClassAdd><Name>Answered " + std::to_string(i) +
                       "</Name></ClassAdd></ClassAddRq><CustomerModRq requestID=\"2\"><CustomerMod><ListID>" + id +
                       "</ListID><EditSequence>" + seq + "</EditSequence><Name>" +
                       (i % 2 ? "Crash Parent" : "Crash Parent Renamed") + "</Name></CustomerMod></CustomerModRq>")));
        if (r.Status(0) != 0 || r.Status(1) != 0) _exit(2);
        if (write(fds[1], &i, sizeof i) != sizeof i) _exit(3);
      }
    } catch (const std::exception& e) {
      fprintf(stderr, "writer: %s\n", e.what());
      _exit(4);
    }
  }
  close(fds[1]);
  int answered = -1, n = 0;
  while (answered < 40 && read(fds[0], &n, sizeof n) == sizeof n) answered = n;
  // Let it get into the next change, then kill it without warning.
  usleep(1500);
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  while (read(fds[0], &n, sizeof n) == sizeof n) answered = n;
  close(fds[0]);
  ASSERT_TRUE(WIFSIGNALED(status)) << "the writer stopped by itself: " << WEXITSTATUS(status);
  ASSERT_GE(answered, 40);

  auto file = CompanyFile::Open(path);
  SqlStatement check = file->Db().Prepare("PRAGMA integrity_check");
  ASSERT_TRUE(check.Step());
  EXPECT_EQ(check.Text(0), "ok");
  auto p = CreateProcessor();
  p->OpenConnection("", "reader");
  std::string t = p->BeginSession(path, 0);
  for (int i = 0; i <= answered; ++i) {
    Response r(p->ProcessRequest(t, Message("<ClassQueryRq><FullName>Answered " + std::to_string(i) +
                                            "</FullName></ClassQueryRq>")));
    EXPECT_EQ(r.Status(), 0) << "answered change " << i << " was lost";
  }
  Response all(p->ProcessRequest(t, Message("<CustomerQueryRq><ActiveStatus>All</ActiveStatus></CustomerQueryRq>")));
  std::map<std::string, std::string> fullNames;
  for (pugi::xml_node c : all.Records()) fullNames[c.child_value("ListID")] = c.child_value("FullName");
  int jobs = 0;
  for (pugi::xml_node c : all.Records()) {
    std::string parent = c.child("ParentRef").child_value("ListID");
    if (parent.empty()) continue;
    EXPECT_EQ(std::string(c.child_value("FullName")), fullNames[parent] + ":" + c.child_value("Name"));
    ++jobs;
  }
  EXPECT_GE(jobs, 150);
}

}  // namespace
}  // namespace tessaron::qbsim::testing
