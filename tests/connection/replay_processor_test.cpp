// Replaying a session from its transcript: the same calls get the recorded answers without
// the company file, and the first request that leaves the recording fails clearly.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "qbsim/qbsim.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/replay_processor.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/messaging/transcript.h"
#include "tessaron/platform/error.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

class Replay : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetLibraryStateForTesting();
    company_ = dir_.File("company.qbw");
    transcript_ = dir_.File("session.xml");
    qbsim::SampleOptions sample;
    sample.customers = 5;
    qbsim::CreateSampleCompany(company_, sample);
  }
  void TearDown() override {
    Close();
    for (const char* id : {kRequestProcessor1, kRequestProcessor2}) UnregisterRequestProcessor(id);
    ResetLibraryStateForTesting();
  }

  // Records a session against the company file.
  std::vector<std::string> Record(const std::string& className) {
    qbsim::RegisterProcessor();
    TessaronGlobals::QBConnection()->SetDebugLogPath(transcript_);
    std::vector<std::string> names = Session(className);
    Close();
    ResetLibraryStateForTesting();
    return names;
  }
  // Connects, reads the classes, adds one and commits: the full names held at the end.
  std::vector<std::string> Session(const std::string& className) {
    TessaronGlobals::QBConnect("", "replay tests", qbFileOpenDoNotCare, company_);
    auto classes = TessaronGlobals::Classes();
    classes->GetAll();
    classes->Add(className);
    EXPECT_EQ(classes->Commit(), 0);
    std::vector<std::string> names;
    for (long i = 1; i <= classes->Count(); ++i) names.push_back(classes->Item(Variant(int32_t(i)))->FullName());
    return names;
  }
  void Close() {
    if (State().GlobalConnection) State().GlobalConnection->CloseConnection();
    State().GlobalConnection.reset();
  }
  size_t RecordedRequests() {
    std::ifstream in(transcript_);
    std::string text((std::istreambuf_iterator<char>(in)), {});
    return ReadTranscript(text).exchanges.size();
  }
  testing::TempDir dir_;
  std::string company_, transcript_;
};

TEST_F(Replay, ARecordedSessionRunsAgainWithoutTheCompanyFile) {
  std::vector<std::string> recorded = Record("Replayed");
  ASSERT_NE(std::find(recorded.begin(), recorded.end(), "Replayed"), recorded.end());
  std::filesystem::remove(company_);
  RegisterReplayProcessor(transcript_);
  EXPECT_EQ(Session("Replayed"), recorded);
  auto replay = std::dynamic_pointer_cast<ReplayProcessor>(State().RequestProcessor);
  ASSERT_TRUE(replay);
  EXPECT_EQ(replay->Position(), replay->Count());
  EXPECT_EQ(replay->Count(), RecordedRequests());
}

TEST_F(Replay, AChangedRequestRaisesNamingItsPositionAndTheElementThatDiffers) {
  Record("Recorded");
  RegisterReplayProcessor(transcript_);
  std::optional<Error> e = testing::Raised([&] { Session("Changed"); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Number(), static_cast<int32_t>(err::kReplayMismatch));
  // The commit is the last request of the session.
  const std::string& d = e->Description();
  EXPECT_NE(d.find("Request " + std::to_string(RecordedRequests()) + " differs"), std::string::npos) << d;
  EXPECT_NE(d.find("recorded: ...<Name>Recorded</Name>"), std::string::npos) << d;
  EXPECT_NE(d.find("sent:     ...<Name>Changed</Name>"), std::string::npos) << d;
}

TEST_F(Replay, ARequestPastTheEndOfTheRecordingRaises) {
  Record("Recorded");
  RegisterReplayProcessor(transcript_);
  Session("Recorded");
  std::optional<Error> e = testing::Raised([] { TessaronGlobals::Classes()->GetAll(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Number(), static_cast<int32_t>(err::kReplayMismatch));
  EXPECT_NE(e->Description().find("was not recorded"), std::string::npos) << e->Description();
}

TEST_F(Replay, ATranscriptWithoutRequestsIsRefusedWhenRegistered) {
  std::ofstream(transcript_) << "<TessaronLog CompanyPath=\"\" qbXMLVersion=\"\">\n</TessaronLog>\n";
  EXPECT_EQ(testing::NumberRaised([&] { RegisterReplayProcessor(transcript_); }), err::kReplayMismatch);
  EXPECT_EQ(testing::NumberRaised([&] { RegisterReplayProcessor(dir_.File("missing.xml")); }),
            static_cast<uint32_t>(platform_error::kFileNotFound));
}

TEST(TranscriptReading, KeepsMessagesOfSeveralLinesCallsThatFailedAndWindowsLineEnds) {
  TranscriptContent c = ReadTranscript(
      "<TessaronLog CompanyPath=\"c.qbw\" qbXMLVersion=\"CA3.0\" MinorVersion = \"0\">\n"
      "<OUTGOING>\n<QBXML>\n<HostQueryRq/>\n</QBXML>\n</OUTGOING>\n<RETURNS>\n\n</RETURNS>\n"
      "<OUTGOING>\n<QBXML/>\n</OUTGOING>\n</TessaronLog>\n");
  EXPECT_EQ(c.companyPath, "c.qbw");
  EXPECT_EQ(c.qbXMLVersion, "CA3.0");
  ASSERT_EQ(c.exchanges.size(), 2u);
  EXPECT_EQ(c.exchanges[0].request, "<QBXML>\n<HostQueryRq/>\n</QBXML>");
  EXPECT_TRUE(c.exchanges[0].answered);
  EXPECT_EQ(c.exchanges[0].response, "");
  EXPECT_FALSE(c.exchanges[1].answered);
  TranscriptContent windows = ReadTranscript("<OUTGOING>\r\n<QBXML/>\r\n</OUTGOING>\r\n<RETURNS>\r\n<QBXML/>\r\n</RETURNS>\r\n");
  ASSERT_EQ(windows.exchanges.size(), 1u);
  EXPECT_EQ(windows.exchanges[0].request, "<QBXML/>");
  EXPECT_EQ(windows.exchanges[0].response, "<QBXML/>");
}

}  // namespace
}  // namespace tessaron
