// The library's connection against the embedded processor and a generated company file:
// the host query, the version and country decisions, the transcript.
#include <fstream>
#include <regex>
#include <sstream>

#include "tessaron/connection/library_state.h"
#include "tessaron/connection/qb_connection.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/host_services.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

class LibraryConnectionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetLibraryStateForTesting();
    SetTraceFilePath(dir_.File("trace.log"));
    path_ = dir_.File("company.qbw");
  }
  void TearDown() override {
    UnregisterProcessor();
    ResetLibraryStateForTesting();
    SetTraceFilePath("");
  }
  void Create(Edition edition = Edition::US, int version = 40) {
    SampleOptions s;
    s.edition = edition;
    s.newestVersion = version;
    CreateSampleCompany(path_, s);
  }
  static ProcessorOptions Strict() {
    ProcessorOptions o;
    o.strict = true;
    return o;
  }

  tessaron::testing::TempDir dir_;
  std::string path_;
};

TEST_F(LibraryConnectionTest, ConnectReadsTheHostRecordOfAUsFile) {
  Create();
  RegisterProcessor(Strict());
  QBConnection qb;
  EXPECT_EQ(qb.Connect("", "qbsim test", qbFileOpenDoNotCare, path_), 0);
  EXPECT_EQ(qb.ProductName(), "QuickBooks Pro");
  EXPECT_EQ(qb.QBMajorVersion(), 14);
  EXPECT_EQ(qb.qbXMLVersion(), "4.0");
  EXPECT_TRUE(qb.IsUSProduct());
  EXPECT_EQ(State().QBXMLVersionText, "4.0");
  EXPECT_EQ(State().QBXMLVersionNumber, Currency(4));
  EXPECT_EQ(qb.CompanyPath(), path_);
  qb.CloseConnection();
}

TEST_F(LibraryConnectionTest, EditionPrefixMakesTheLibraryANonUsOne) {
  Create(Edition::CA, 21);
  RegisterProcessor(Strict());
  QBConnection qb;
  qb.Connect("", "qbsim test", qbFileOpenDoNotCare, path_);
  EXPECT_FALSE(qb.IsUSProduct());
  EXPECT_EQ(qb.Country().ToString(), "CA");
  EXPECT_EQ(State().QBXMLVersionText, "CA2.1");
  EXPECT_EQ(State().QBXMLVersionNumber, Currency::Parse("2.1"));
  qb.CloseConnection();
}

TEST_F(LibraryConnectionTest, EmptyCompanyPathReportsTheFileCurrentlyOpen) {
  Create();
  ProcessorOptions o = Strict();
  o.currentCompanyFile = path_;
  RegisterProcessor(o);
  QBConnection qb;
  qb.Connect("", "qbsim test", qbFileOpenDoNotCare);
  EXPECT_EQ(qb.CompanyPath(), path_);
  qb.CloseConnection();
}

TEST_F(LibraryConnectionTest, AProductOlderThanTheLimitIsRefusedAndTheLinkClosed) {
  Create();
  ProcessorOptions o = Strict();
  o.productMajorVersion = 9;
  RegisterProcessor(o);
  QBConnection qb;
  try {
    qb.Connect("", "qbsim test", qbFileOpenDoNotCare, path_);
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(0x800403EC));
  }
  EXPECT_EQ(State().RequestProcessor, nullptr);
}

TEST_F(LibraryConnectionTest, MissingFileFailsConnectWithTheProcessorsError) {
  RegisterProcessor(Strict());
  QBConnection qb;
  try {
    qb.Connect("", "qbsim test", qbFileOpenDoNotCare, dir_.File("missing.qbw"));
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(processor_error::kCannotOpenFile));
  }
}

TEST_F(LibraryConnectionTest, WithoutTheNewerIdentifierTheOlderProcessorServes) {
  Create();
  Registration reg;
  reg.rq2 = false;
  RegisterProcessor(Strict(), reg);
  QBConnection qb;
  EXPECT_EQ(qb.Connect("", "qbsim test", qbFileOpenDoNotCare, path_), 0);
  qb.CloseConnection();
}

TEST_F(LibraryConnectionTest, AnOldFirstProcessorIsKept) {
  Create();
  Registration reg;
  reg.rq1MajorVersion = 2;
  RegisterProcessor(Strict(), reg);
  QBConnection qb;
  qb.Connect("", "qbsim test", qbFileOpenDoNotCare, path_);
  EXPECT_EQ(State().RequestProcessor->MajorVersion(), 2);
  qb.CloseConnection();
}

TEST_F(LibraryConnectionTest, TheTranscriptHoldsValidMessagesOfTheWholeConnection) {
  Create();
  RegisterProcessor(Strict());
  {
    QBConnection qb;
    qb.SetDebugLogPath(dir_.File("transcript.xml"));
    qb.Connect("", "qbsim test", qbFileOpenDoNotCare, path_);
    qb.CloseConnection();
  }
  std::ifstream in(dir_.File("transcript.xml"));
  std::stringstream text;
  text << in.rdbuf();
  std::string log = text.str();
  std::regex message("<(OUTGOING|RETURNS)>\n?(.*?)\n?</\\1>");
  int messages = 0;
  bool sawHost = false, sawCompany = false, sawPreferences = false;
  for (auto it = std::sregex_iterator(log.begin(), log.end(), message); it != std::sregex_iterator(); ++it) {
    std::string body = (*it)[2];
    if (body.find("<QBXML") == std::string::npos) continue;
    EXPECT_TRUE(tessaron::testing::IsValidQbxml(body));
    sawHost |= body.find("HostRet") != std::string::npos;
    sawCompany |= body.find("CompanyRet") != std::string::npos;
    sawPreferences |= body.find("PreferencesRet") != std::string::npos;
    ++messages;
  }
  EXPECT_GE(messages, 6);
  EXPECT_TRUE(sawHost && sawCompany && sawPreferences);
  EXPECT_NE(log.find("</TessaronLog>"), std::string::npos);
}

}  // namespace
}  // namespace tessaron::qbsim::testing
