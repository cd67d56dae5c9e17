// tessaron event parse, run as a user runs it on a message saved from a callback.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sys/wait.h>

#include "tests/support/qbxml_check.h"
#include "tests/support/text_match.h"

namespace {

struct CommandRun {
  int exitCode = -1;
  std::string out;
};

CommandRun EventParse(const std::string& file) {
  std::string command = std::string(TESSARON_BINARY_DIR) + "/cli/tessaron event parse '" + file + "' 2>&1";
  CommandRun r;
  FILE* p = popen(command.c_str(), "r");
  std::array<char, 4096> buf;
  while (size_t n = fread(buf.data(), 1, buf.size(), p)) r.out.append(buf.data(), n);
  int status = pclose(p);
  r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

std::string Saved(const tessaron::testing::TempDir& dir, const std::string& text) {
  std::string path = dir.File("event.xml");
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

const char* kHost =
    "<HostInfo><ProductName>QuickBooks Pro 2009</ProductName><MajorVersion>19</MajorVersion>"
    "<MinorVersion>0</MinorVersion></HostInfo>";

TEST(EventParseCommand, PrintsAUiExtensionEventAsJsonWithPathEscaped) {
  tessaron::testing::TempDir dir;
  CommandRun r = EventParse(Saved(dir, std::string("<?xml version=\"1.0\"?>\r\r\n<?qbxml version=\"8.0\"?>\r\r\n<QBXML>\r\r\n"
                                            "<QBXMLEvents><UIExtensionEvent><CompanyFilePath>C:\\Books\\acme.qbw"
                                            "</CompanyFilePath>") +
                                    kHost + "<EventTag>Export \"all\"</EventTag></UIExtensionEvent></QBXMLEvents></QBXML>"));
  ASSERT_EQ(r.exitCode, 0) << r.out;
  EXPECT_TRUE(tessaron::testing::Contains(r.out, "\"EventType\": 3")) << r.out;
  EXPECT_TRUE(tessaron::testing::Contains(r.out, "\"CompanyPath\": \"C:\\\\Books\\\\acme.qbw\"")) << r.out;
  EXPECT_TRUE(tessaron::testing::Contains(r.out, "\"EventTag\": \"Export \\\"all\\\"\"")) << r.out;
  EXPECT_TRUE(tessaron::testing::Contains(r.out, "\"MajorVersion\": \"19\"")) << r.out;
  EXPECT_FALSE(tessaron::testing::Contains(r.out, "CompanyfileOpened")) << r.out;
}

TEST(EventParseCommand, PrintsTheCompanyFileFlagsOfAUiEvent) {
  tessaron::testing::TempDir dir;
  CommandRun r = EventParse(Saved(dir, std::string("<?xml version=\"1.0\"?><?qbxml version=\"8.0\"?><QBXML><QBXMLEvents>"
                                            "<UIEvent><CompanyFilePath>C:\\a.qbw</CompanyFilePath>") +
                                    kHost + "<CompanyFileEvent><CompanyFileEventOperation>Close"
                                            "</CompanyFileEventOperation><IsNewCompany>true</IsNewCompany>"
                                            "</CompanyFileEvent></UIEvent></QBXMLEvents></QBXML>"));
  ASSERT_EQ(r.exitCode, 0) << r.out;
  EXPECT_TRUE(tessaron::testing::Contains(r.out, "\"CompanyfileOpened\": false")) << r.out;
  EXPECT_TRUE(tessaron::testing::Contains(r.out, "\"NewCompany\": true")) << r.out;
}

TEST(EventParseCommand, MessageOfAnotherShapeFailsWithTheErrorNumber) {
  tessaron::testing::TempDir dir;
  CommandRun r = EventParse(Saved(dir, "<QBXML><QBXMLEvents/></QBXML>"));
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(tessaron::testing::Contains(r.out, "0x0000005B")) << r.out;
}

TEST(EventParseCommand, MissingFileFails) {
  tessaron::testing::TempDir dir;
  CommandRun r = EventParse(dir.File("none.xml"));
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(tessaron::testing::Contains(r.out, "cannot read")) << r.out;
}

}  // namespace
