#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/raised.h"
#include "tessaron/foundation/log_file.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/host_services.h"
#include "tests/support/qbxml_check.h"

namespace tessaron {
namespace {

namespace fs = std::filesystem;

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

void WriteAll(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

class LogFileTest : public ::testing::Test {
 protected:
  void SetUp() override { SetClockForTesting(DateSerial(2024, 1, 2) + TimeSerial(3, 4, 5)); }
  void TearDown() override { SetClockForTesting(0); }
  testing::TempDir dir_;
};

TEST_F(LogFileTest, WithoutAPathAnEntryWritesNothing) {
  LogFile log;
  log.SetSource("ModAccess");
  log.LogEntry(1, "nothing");
  EXPECT_TRUE(fs::is_empty(dir_.Path()));
  EXPECT_TRUE(log.Clear().IsEmpty());
}

TEST_F(LogFileTest, SettingThePathCreatesAMissingFileAndKeepsAnExistingOne) {
  LogFile fresh;
  fresh.SetLogPath(dir_.File("new.log"));
  EXPECT_TRUE(fs::exists(dir_.File("new.log")));
  EXPECT_EQ(fs::file_size(dir_.File("new.log")), 0u);

  WriteAll(dir_.File("kept.log"), "earlier\n");
  LogFile kept;
  kept.SetLogPath(dir_.File("kept.log"));
  EXPECT_EQ(ReadAll(dir_.File("kept.log")), "earlier\n");
}

TEST_F(LogFileTest, EntryIsOneTabSeparatedLine) {
  LogFile log;
  log.SetMaxKB(100);
  log.SetSource("ModAccess");
  log.SetLogPath(dir_.File("db.log"));
  log.LogEntry(3100, "Name specified already exists on file");
  log.LogEntry(-1, "second");
  EXPECT_EQ(ReadAll(dir_.File("db.log")),
            "2024-01-02 03:04:05\t3100\tModAccess\tName specified already exists on file\n"
            "2024-01-02 03:04:05\t-1\tModAccess\tsecond\n");
}

TEST_F(LogFileTest, ALineThatPassesTheLimitMovesTheFileToOldReplacingAnOlderOne) {
  std::string path = dir_.File("db.log");
  WriteAll(path + "-old", "stale\n");
  LogFile log;
  log.SetMaxKB(1);
  log.SetSource("S");
  log.SetLogPath(path);
  std::string text(600, 'x');
  log.LogEntry(1, text);  // about 630 bytes: stays
  EXPECT_TRUE(fs::exists(path));
  EXPECT_EQ(ReadAll(path + "-old"), "stale\n");
  log.LogEntry(2, text);  // past 1000 bytes: moved
  EXPECT_FALSE(fs::exists(path));
  std::string old = ReadAll(path + "-old");
  EXPECT_EQ(old.find("stale"), std::string::npos);
  EXPECT_NE(old.find("\t1\tS\t"), std::string::npos);
  EXPECT_NE(old.find("\t2\tS\t"), std::string::npos);
  log.LogEntry(3, "next");  // starts a new live file
  EXPECT_EQ(ReadAll(path), "2024-01-02 03:04:05\t3\tS\tnext\n");
}

TEST_F(LogFileTest, ClearEmptiesTheFile) {
  LogFile log;
  log.SetMaxKB(100);
  log.SetLogPath(dir_.File("db.log"));
  log.LogEntry(1, "something");
  EXPECT_TRUE(log.Clear().IsEmpty());
  EXPECT_EQ(fs::file_size(dir_.File("db.log")), 0u);
}

TEST_F(LogFileTest, AnEntryThatCannotBeWrittenNeverFailsTheCaller) {
  LogFile log;
  log.SetMaxKB(1);
  log.SetLogPath(dir_.File("db.log"));
  std::filesystem::remove(dir_.File("db.log"));
  std::filesystem::create_directory(dir_.File("db.log"));  // a folder in the file's place
  EXPECT_NO_THROW(log.LogEntry(1, "lost"));
  EXPECT_EQ(testing::NumberRaised([&] { log.Clear(); }), 75u);
}

TEST_F(LogFileTest, APathThatCannotBeCreatedIsRefusedAndNotStored) {
  LogFile log;
  log.SetLogPath(dir_.File("db.log"));
  EXPECT_EQ(testing::NumberRaised([&] { log.SetLogPath(dir_.File("missing-folder/db.log")); }), 76u);
  EXPECT_EQ(log.LogPath(), dir_.File("db.log"));
}

class TraceFile : public ::testing::Test {
 protected:
  void SetUp() override {
    SetTraceFilePath(dir_.File("tessaron.log"));
    ResetTraceFileForTesting();
  }
  void TearDown() override {
    SetTraceFilePath("");
    ResetTraceFileForTesting();
  }
  testing::TempDir dir_;
};

TEST_F(TraceFile, HoldsOnlyTheLinesOfTheLastProcess) {
  WriteAll(dir_.File("tessaron.log"), "a line of an earlier process\n");
  WriteTraceLine("first");
  WriteTraceLine("second");
  EXPECT_EQ(ReadAll(dir_.File("tessaron.log")), "first\nsecond\n");
  ResetTraceFileForTesting();  // as a new process
  WriteTraceLine("next run");
  EXPECT_EQ(ReadAll(dir_.File("tessaron.log")), "next run\n");
}

TEST_F(TraceFile, FailuresAreIgnored) {
  SetTraceFilePath(dir_.File("missing-folder/tessaron.log"));
  EXPECT_NO_THROW(WriteTraceLine("lost"));
}

}  // namespace
}  // namespace tessaron
