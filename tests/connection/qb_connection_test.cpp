// Opening and closing the session: processors, versions, countries, failures, trace, events.
#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <sstream>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/qb_connection.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/host_services.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"

namespace tessaron {
namespace {

using testing::ProcessorRegistration;
using testing::ScriptedProcessor;

constexpr uint32_t kProductTooOld = 0x800403EC;

std::vector<std::string> Lines(const std::string& path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> BeginSessionArguments(const ScriptedProcessor& qb) {
  for (const auto& call : qb.Calls())
    if (call.member == "BeginSession") return call.arguments;
  return {};
}

// A fresh state and one scripted processor; each test registers it as it needs.
class Connection : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetLibraryStateForTesting();
    UnregisterRequestProcessor(kRequestProcessor1);
    UnregisterRequestProcessor(kRequestProcessor2);
    SetTraceFilePath(dir.File("trace.log"));
  }
  void TearDown() override {
    SetTraceFilePath("");
    ResetLibraryStateForTesting();
  }
  Error Failure(const std::function<void()>& action) {
    try {
      action();
    } catch (const Error& e) {
      return e;
    }
    ADD_FAILURE() << "no error raised";
    return Error(0, "", "");
  }

  testing::TempDir dir;
  std::shared_ptr<ScriptedProcessor> qb = std::make_shared<ScriptedProcessor>();
};

// ---- Session and versions ---------------------------------------------------------------------

TEST_F(Connection, EmptyCompanyPathReportsTheFileOpenInQuickBooks) {
  ProcessorRegistration reg(qb);
  QBConnection c;
  EXPECT_EQ(c.Connect("App", "Application", qbFileOpenDoNotCare), 0);
  EXPECT_EQ(c.CompanyPath(), "C:\\Company Files\\Sample & Co.qbw");
  EXPECT_EQ(BeginSessionArguments(*qb), (std::vector<std::string>{"", "2"}));
  EXPECT_TRUE(State().IsConnected);
  EXPECT_EQ(State().AppID, "App");
  EXPECT_EQ(State().SessionTicket, "{ticket-1}");
  EXPECT_TRUE(qb->AllRequestsValid());
}

TEST_F(Connection, GivenCompanyPathOpensThatFile) {
  ProcessorRegistration reg(qb);
  QBConnection c;
  c.Connect("App", "Application", qbFileOpenSingleUser, "/data/books.qbw");
  EXPECT_EQ(c.CompanyPath(), "/data/books.qbw");
  EXPECT_EQ(qb->CountCalls("GetCurrentCompanyFileName"), 0);
  EXPECT_EQ(BeginSessionArguments(*qb), (std::vector<std::string>{"/data/books.qbw", "0"}));
}

TEST_F(Connection, TheNewestVersionOfTheSessionIsTakenAndGoesIntoTheDocumentType) {
  qb->SetVersions({"1.0", "1.1", "2.0"});
  ProcessorRegistration reg(qb);
  QBConnection c;
  c.Connect("App", "Application", qbFileOpenDoNotCare);
  EXPECT_EQ(State().QBXMLVersionText, "2.0");
  EXPECT_EQ(State().QBXMLVersionNumber, Currency(2));
  EXPECT_NE(qb->LastRequest().find("QBD 2.0//EN"), std::string::npos);
  EXPECT_EQ(qb->RequestNames(), (std::vector<std::string>{"HostQueryRq", "CompanyQueryRq", "PreferencesQueryRq"}));
}

TEST_F(Connection, HostRecordFillsTheProductFields) {
  qb->SetVersions({"1.0", "3.0"}).SetHost("QuickBooks Premier", "16", "2", "CA");
  ProcessorRegistration reg(qb);
  QBConnection c;
  std::vector<std::string> unknown;
  SetUnknownFieldHook([&](std::string_view message, std::string_view tag) {
    unknown.push_back(std::string(message) + "|" + std::string(tag));
  });
  qb->RespondTo("HostQueryRq",
                ScriptedProcessor::Response(
                    "HostQueryRs",
                    "<HostRet><ProductName>QuickBooks Premier</ProductName><MajorVersion>16</MajorVersion>"
                    "<MinorVersion>2</MinorVersion><Country>CA</Country><SupportedQBXMLVersion>1.0"
                    "</SupportedQBXMLVersion><SupportedQBXMLVersion>3.0</SupportedQBXMLVersion>"
                    "<IsAutomaticLogin>true</IsAutomaticLogin><QBFileMode>MultiUser</QBFileMode>"
                    "<ListOfSomething>x</ListOfSomething></HostRet>"));
  c.Connect("App", "Application", qbFileOpenDoNotCare);
  SetUnknownFieldHook(nullptr);
  EXPECT_EQ(c.ProductName(), "QuickBooks Premier");
  EXPECT_EQ(c.QBMajorVersion(), 16);
  EXPECT_EQ(c.QBMinorVersion(), 2);
  EXPECT_EQ(c.qbXMLVersion(), "3.0");  // the last supported version of the record wins
  EXPECT_EQ(c.Country().ToString(), "CA");
  EXPECT_TRUE(c.IsAutomaticLogin());
  EXPECT_EQ(c.QBFileMode().ToString(), "MultiUser");
  EXPECT_EQ(unknown, (std::vector<std::string>{"Unknown Field: ListOfSomething|HostQueryRS"}));
}

struct CountryCase {
  const char* versionText;
  bool nonUS, uk, australian;
  const char* number;
};

class CountryByPrefix : public Connection, public ::testing::WithParamInterface<CountryCase> {};

TEST_P(CountryByPrefix, DecidesCountryFlagsAndVersionNumber) {
  const CountryCase& c = GetParam();
  qb->SetVersions({c.versionText});
  ProcessorRegistration reg(qb);
  State().IsUKProduct = true;  // "CA" leaves both flags alone; every other row sets them
  State().IsAustralianProduct = true;
  QBConnection connection;
  connection.Connect("App", "Application", qbFileOpenDoNotCare);
  EXPECT_EQ(State().IsNonUSProduct, c.nonUS);
  EXPECT_EQ(connection.IsUSProduct(), !c.nonUS);
  EXPECT_EQ(State().IsUKProduct, c.uk);
  EXPECT_EQ(State().IsAustralianProduct, c.australian);
  EXPECT_EQ(State().QBXMLVersionNumber, Currency::Parse(c.number));
  EXPECT_EQ(State().QBXMLVersionText, c.versionText);
  EXPECT_NE(qb->LastRequest().find(std::string("QBD ") + c.versionText + "//EN"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Prefixes, CountryByPrefix,
                         ::testing::Values(CountryCase{"2.1", false, false, false, "2.1"},
                                           CountryCase{"CA2.0", true, true, true, "2.0"},
                                           CountryCase{"UK3.0", true, true, false, "3.0"},
                                           CountryCase{"OZ2.0", true, false, true, "2.0"},
                                           CountryCase{"AU4.0", true, false, true, "4.0"}));

TEST_F(Connection, ProductOlderThanTheLimitIsRefusedAndTheLinkClosed) {
  qb->SetHost("QuickBooks Pro 2001", "9", "0");
  ProcessorRegistration reg(qb);
  QBConnection c;
  Error e = Failure([&] { c.Connect("App", "Application", qbFileOpenDoNotCare); });
  EXPECT_EQ(e.Number(), static_cast<int32_t>(kProductTooOld));
  EXPECT_EQ(e.Source(), "Tessaron");
  EXPECT_EQ(e.Description(), "Tessaron must have QuickBooks Pro 2002 or higher installed");
  EXPECT_EQ(State().RequestProcessor, nullptr);
  EXPECT_EQ(qb->CountCalls("CloseConnection"), 1);
  EXPECT_EQ(qb->CountCalls("EndSession"), 0);
  EXPECT_EQ(c.CompanyPath(), "");
  EXPECT_FALSE(State().IsConnected);
}

// ---- Choice of the request processor -----------------------------------------------------------

struct ProcessorChoice {
  const char* name;
  bool olderRegistered, newerRegistered;
  int olderMajorVersion;
  bool olderVersionFails, useRequestProcessor1;
  int chosen;  // 1 the older processor, 2 the newer
  int olderCreations, newerCreations;
};

class ProcessorChoiceCase : public Connection, public ::testing::WithParamInterface<ProcessorChoice> {};

TEST_P(ProcessorChoiceCase, ChoosesAsTheOrderOfAttemptsSays) {
  const ProcessorChoice& c = GetParam();
  auto newer = std::make_shared<ScriptedProcessor>();
  qb->SetProcessorVersion(c.olderMajorVersion, 0);
  if (c.olderVersionFails) qb->FailOn("MajorVersion", Error(5, "QBXMLRP", "broken"));
  std::optional<ProcessorRegistration> reg1, reg2;
  if (c.olderRegistered) reg1.emplace(qb, kRequestProcessor1);
  if (c.newerRegistered) reg2.emplace(newer, kRequestProcessor2);
  QBConnection connection;
  connection.SetUseRequestProcessor1(c.useRequestProcessor1);
  connection.Connect("App", "Application", qbFileOpenDoNotCare);
  EXPECT_EQ(State().RequestProcessor, c.chosen == 1 ? qb : newer);
  EXPECT_EQ(reg1 ? reg1->Creations(kRequestProcessor1) : 0, c.olderCreations);
  EXPECT_EQ(reg2 ? reg2->Creations(kRequestProcessor2) : 0, c.newerCreations);
}

INSTANTIATE_TEST_SUITE_P(
    Fallbacks, ProcessorChoiceCase,
    ::testing::Values(ProcessorChoice{"NewerPreferred", true, true, 13, false, false, 2, 1, 1},
                      ProcessorChoice{"UseRequestProcessor1NeverCreatesTheNewer", true, true, 13, false, true, 1, 1, 0},
                      ProcessorChoice{"OlderBelow3UsedAsANewObject", true, true, 2, false, false, 1, 2, 0},
                      ProcessorChoice{"OlderMissing", false, true, 13, false, false, 2, 0, 1},
                      ProcessorChoice{"OlderMissingEvenWithUseRequestProcessor1", false, true, 13, false, true, 2, 0, 1},
                      ProcessorChoice{"OlderVersionUnreadable", true, true, 13, true, false, 1, 2, 0},
                      ProcessorChoice{"NewerMissing", true, false, 13, false, false, 1, 2, 0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(Connection, OlderProcessorIsAskedForItsVersionTwiceBeforeTheNewerIsTried) {
  auto newer = std::make_shared<ScriptedProcessor>();
  ProcessorRegistration reg1(qb, kRequestProcessor1), reg2(newer, kRequestProcessor2);
  QBConnection c;
  c.Connect("App", "Application", qbFileOpenDoNotCare);
  EXPECT_EQ(qb->CallNames(), (std::vector<std::string>{"MajorVersion", "MajorVersion"}));
}

TEST_F(Connection, NoProcessorAtAllRaisesCannotCreateObjectWithSourceTessaron) {
  QBConnection c;
  Error e = Failure([&] { c.Connect("App", "Application", qbFileOpenDoNotCare); });
  EXPECT_EQ(e.Number(), platform_error::kCannotCreateObject);
  EXPECT_EQ(e.Source(), "Tessaron");
}

// ---- Failures of Connect ------------------------------------------------------------------------

class ConnectStepFails : public Connection, public ::testing::WithParamInterface<const char*> {};

TEST_P(ConnectStepFails, LinkIsClosedAndTheFailureRaisedWithSourceTessaron) {
  qb->FailOn(GetParam(), Error(0x80040416u, "QBXMLRP2", "QuickBooks refused"));
  ProcessorRegistration reg(qb);
  QBConnection c;
  bool opened = false;
  c.OnConnectionOpened([&] { opened = true; });
  Error e = Failure([&] { c.Connect("App", "Application", qbFileOpenDoNotCare); });
  EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040416u));
  EXPECT_EQ(e.Description(), "QuickBooks refused");
  EXPECT_EQ(e.Source(), "Tessaron");
  EXPECT_EQ(qb->CallNames().back(), "CloseConnection");
  EXPECT_EQ(qb->CountCalls("EndSession"), 0);  // only the link is closed
  EXPECT_EQ(State().RequestProcessor, nullptr);
  EXPECT_EQ(c.CompanyPath(), "");
  EXPECT_FALSE(opened);
  EXPECT_FALSE(State().IsConnected);
}

INSTANTIATE_TEST_SUITE_P(Steps, ConnectStepFails,
                         ::testing::Values("OpenConnection", "BeginSession", "GetCurrentCompanyFileName",
                                           "QBXMLVersionsForSession", "ProcessRequest"));

TEST_F(Connection, BrokenHostAnswerFailsInTheWalkAndClosesTheLink) {
  qb->RespondTo("HostQueryRq", ScriptedProcessor::Response("HostQueryRs", "", 0));
  ProcessorRegistration reg(qb);
  QBConnection c;
  Error e = Failure([&] { c.Connect("App", "Application", qbFileOpenDoNotCare); });
  EXPECT_EQ(e.Number(), platform_error::kObjectNotSet);
  EXPECT_EQ(e.Source(), "Tessaron");
  EXPECT_EQ(State().RequestProcessor, nullptr);
}

TEST_F(Connection, CompanyThatCannotBeReadLeavesTheConnectionWorking) {
  qb->RespondTo("CompanyQueryRq", ScriptedProcessor::Unparsable());
  ProcessorRegistration reg(qb);
  QBConnection c;
  EXPECT_EQ(c.Connect("App", "Application", qbFileOpenDoNotCare), 0);
  EXPECT_TRUE(State().IsConnected);
  // The company was made before its record failed to parse: it stays, with an empty record.
  ASSERT_NE(c.Company(), nullptr);
  EXPECT_EQ(c.Company()->Name(), "");
}

TEST_F(Connection, CompanyQueryCarriesTheRegisteredOwnerAndPreferencesNeedVersionAbove1) {
  qb->SetVersions({"1.0"});
  ProcessorRegistration reg(qb);
  QBConnection c;
  c.RegisterDataExtensionsGUID("{6B063959-81B0-4622-85D6-DD4F8E3C5C0E}");
  c.Connect("App", "Application", qbFileOpenDoNotCare);
  EXPECT_EQ(qb->RequestNames(), (std::vector<std::string>{"HostQueryRq", "CompanyQueryRq"}));
  EXPECT_NE(qb->LastRequest().find("<CompanyQueryRq><OwnerID>{6B063959-81B0-4622-85D6-DD4F8E3C5C0E}</OwnerID>"
                                   "</CompanyQueryRq>"),
            std::string::npos);
  EXPECT_TRUE(qb->AllRequestsValid());
}

// ---- Other ways in ------------------------------------------------------------------------------

TEST_F(Connection, WebConnectionShowsOnlyInTheTrace) {
  ProcessorRegistration reg(qb);
  QBConnection c;
  c.ConnectForWeb("App", "Application", qbFileOpenDoNotCare);
  EXPECT_TRUE(State().IsWebConnection);
  std::vector<std::string> trace = Lines(dir.File("trace.log"));
  ASSERT_GE(trace.size(), 3u);
  EXPECT_EQ(trace[0], "ConnectForWeb: Begin");
  EXPECT_EQ(trace[2], "CreateRequestProcessor: Begin True");
}

TEST_F(Connection, DatabaseConnectionRaisesNoEventAndLeavesIsConnected) {
  ProcessorRegistration reg(qb);
  QBConnection c;
  bool opened = false;
  c.OnConnectionOpened([&] { opened = true; });
  EXPECT_EQ(c.ConnectForDB("App", "Application", qbFileOpenDoNotCare, "/data/books.qbw"), 0);
  EXPECT_FALSE(opened);
  EXPECT_FALSE(State().IsConnected);
  EXPECT_EQ(c.CompanyPath(), "/data/books.qbw");
  EXPECT_EQ(State().QBXMLVersionNumber, Currency(2));
  for (const std::string& line : Lines(dir.File("trace.log"))) EXPECT_EQ(line.find("Connect:"), std::string::npos);
  // CloseConnectionDB closes what ConnectForDB opened.
  c.CloseConnectionDB();
  EXPECT_EQ(qb->CountCalls("EndSession"), 1);
  EXPECT_EQ(State().RequestProcessor, nullptr);
}

TEST_F(Connection, DatabaseConnectionFailureKeepsTheLinkAndUsesSourceTessaronDB) {
  qb->FailOn("QBXMLVersionsForSession", Error(0x80040420u, "QBXMLRP2", "No versions"));
  ProcessorRegistration reg(qb);
  QBConnection c;
  Error e = Failure([&] { c.ConnectForDB("App", "Application", qbFileOpenDoNotCare, "/data/books.qbw"); });
  EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040420u));
  EXPECT_EQ(e.Source(), "TessaronDB");
  EXPECT_EQ(qb->CountCalls("CloseConnection"), 0);
  EXPECT_EQ(State().RequestProcessor, qb);
}

TEST_F(Connection, CloseConnectionDBAfterConnectLeavesTheSessionOpen) {
  ProcessorRegistration reg(qb);
  QBConnection c;
  c.Connect("App", "Application", qbFileOpenDoNotCare);
  c.CloseConnectionDB();
  EXPECT_EQ(qb->CountCalls("EndSession"), 0);
  EXPECT_EQ(State().RequestProcessor, qb);
}

TEST_F(Connection, SubscriptionLinkHasNoSessionAndCloseMakesNoEndSession) {
  qb->SetProcessorVersion(13, 0);
  ProcessorRegistration reg(qb);
  QBConnection c;
  c.ConnectForSubscriptions("App", "Application");
  EXPECT_EQ(qb->CountCalls("BeginSession"), 0);
  EXPECT_TRUE(qb->Requests().empty());
  EXPECT_EQ(State().QBXMLVersionText, "13.0");
  EXPECT_EQ(c.qbXMLVersion(), "13.0");
  EXPECT_EQ(State().QBXMLVersionNumber, Currency(0));
  EXPECT_EQ(State().AppID, "");
  c.CloseConnection();
  EXPECT_EQ(qb->CountCalls("EndSession"), 0);
  EXPECT_EQ(qb->CountCalls("CloseConnection"), 1);
  EXPECT_TRUE(State().IsSubscriptionConnection);  // stays set
}

// ---- Closing, events, the end of an instance ----------------------------------------------------

TEST_F(Connection, EventsRunInRegistrationOrder) {
  ProcessorRegistration reg(qb);
  QBConnection c;
  std::vector<std::string> events;
  c.OnConnectionOpened([&] { events.push_back("opened 1, connected=" + std::to_string(State().IsConnected)); });
  c.OnConnectionOpened([&] { events.push_back("opened 2"); });
  c.OnConnectionClosed([&] { events.push_back("closed, connected=" + std::to_string(State().IsConnected)); });
  c.Connect("App", "Application", qbFileOpenDoNotCare);
  c.CloseConnection();
  EXPECT_EQ(events, (std::vector<std::string>{"opened 1, connected=0", "opened 2", "closed, connected=1"}));
  EXPECT_FALSE(State().IsConnected);
  EXPECT_EQ(State().SessionTicket, "");
  EXPECT_EQ(c.CompanyPath(), "");
  std::vector<std::string> names = qb->CallNames();
  EXPECT_EQ(std::vector<std::string>(names.end() - 2, names.end()),
            (std::vector<std::string>{"EndSession", "CloseConnection"}));
}

TEST_F(Connection, RecordProcessed2HandlersCanCancel) {
  QBConnection c;
  std::vector<int32_t> seen;
  c.OnRecordProcessed([&](int32_t current, int32_t, bool) { seen.push_back(current); });
  c.OnRecordProcessed2([&](int32_t current, int32_t total, bool& cancel) { cancel = current == total; });
  bool cancel = false;
  c.RaiseRecordProcessed2(1, 3, cancel);
  EXPECT_FALSE(cancel);
  c.RaiseRecordProcessed2(3, 3, cancel);
  EXPECT_TRUE(cancel);
  c.RaiseRecordProcessed(7, 9, false);
  EXPECT_EQ(seen, std::vector<int32_t>{7});
}

TEST_F(Connection, EndOfAnInstanceEndsTheSessionAndClosesTheTranscript) {
  ProcessorRegistration reg(qb);
  {
    QBConnection c;
    c.Connect("App", "Application", qbFileOpenDoNotCare);
    c.SetDebugLogPath(dir.File("log.xml"));
  }
  std::vector<std::string> names = qb->CallNames();
  EXPECT_EQ(std::vector<std::string>(names.end() - 2, names.end()),
            (std::vector<std::string>{"EndSession", "CloseConnection"}));
  EXPECT_EQ(State().RequestProcessor, qb);  // neither processor nor ticket is cleared
  EXPECT_EQ(State().SessionTicket, "{ticket-1}");
  EXPECT_EQ(Lines(dir.File("log.xml")).back(), "</TessaronLog>");
}

TEST_F(Connection, TraceTellsEveryStepOfConnect) {
  auto rq2 = std::make_shared<ScriptedProcessor>();
  ProcessorRegistration reg1(qb, kRequestProcessor1), reg2(rq2, kRequestProcessor2);
  QBConnection c;
  c.Connect("App", "Application", qbFileOpenDoNotCare, "/data/books.qbw");
  std::vector<std::string> trace = Lines(dir.File("trace.log"));
  ASSERT_EQ(trace.size(), 12u);
  EXPECT_EQ(trace[0], "Connect: Begin, CompanyPath:  /data/books.qbw");
  EXPECT_EQ(trace[1], "CreateRequestProcessor: Begin False");
  EXPECT_EQ(trace[2], "CreateRequestProcessor: Got RQ1 Version: 13");
  EXPECT_EQ(trace[3], "TryRQ2:  Begin");
  EXPECT_EQ(trace[4], "TryRQ2:  Got RQ2");
  EXPECT_EQ(trace[5], "CreateRequestProcessor: Found RQ2");
  EXPECT_EQ(trace[6], "Connect: Got Requester");
  EXPECT_EQ(trace[7], "Connect: Got version:  2.0");
  EXPECT_EQ(trace[8], "GetProductInfo:  Begin");
  EXPECT_EQ(trace[9], "SendToQB:  " + rq2->Requests().front());  // only the host query is traced
  EXPECT_EQ(trace[10], "GetProductInfo:  Got HostInfo");
  EXPECT_EQ(trace[11], "GetProductInfo:  End False");
}

TEST_F(Connection, TraceTellsTheFallbackToTheOlderProcessor) {
  ProcessorRegistration reg1(qb, kRequestProcessor1);
  QBConnection c;
  c.ConnectForSubscriptions("App", "Application");
  EXPECT_EQ(Lines(dir.File("trace.log")),
            (std::vector<std::string>{"CreateRequestProcessor: Begin False",
                                      "CreateRequestProcessor: Got RQ1 Version: 13", "TryRQ2:  Begin",
                                      "TryRQ2:  Failed", "CreateRequestProcessor: CreateRq Done, using RQ1"}));
}

}  // namespace
}  // namespace tessaron
