// Sending: status reading, routing, failures of the processor, the transcript.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/log_file.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/host_services.h"
#include "tessaron/version.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"

namespace tessaron {
namespace {

using testing::ScriptedProcessor;
using testing::ScriptedSession;

std::string ReadFile(const std::string& path) {
  std::ifstream in(path);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

void WriteCustomerQuery(xmlBldr& b, const std::string& name = "Acme") {
  b.NewClear();
  b.OpenAggregate("CustomerQueryRq", "requestID", "1");
  b.CreateElement("FullName", name);
  b.EndAggregate("CustomerQueryRq");
}

// ---- Status -----------------------------------------------------------------------------------

struct StatusCase {
  int statusCode;
  const char* message;
  int32_t errNumber;
};

class SendStatusOfTheResponse : public ::testing::TestWithParam<StatusCase> {};

TEST_P(SendStatusOfTheResponse, IsReportedNotRaisedWithStatus1CountingAsSuccess) {
  ScriptedSession qb;
  const std::string response = ScriptedProcessor::Response("ClassAddRs", "", GetParam().statusCode, GetParam().message);
  ASSERT_TRUE(testing::IsValidQbxml(response));
  qb.processor().QueueResponse(response);
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("ClassAddRq", "requestID", "1");
  b.OpenAggregateOnly("ClassAdd");
  b.CreateElement("Name", "West");
  b.EndAggregate("ClassAdd");
  b.EndAggregate("ClassAddRq");
  XmlDocument doc = b.NewSendRequest();
  EXPECT_EQ(b.ErrNumber(), GetParam().errNumber);
  EXPECT_EQ(b.ErrMsg(), GetParam().message);
  EXPECT_EQ(doc.childNodes().item(1).baseName(), "QBXML");
  EXPECT_EQ(b.PieceCount(), 0);  // cleared after sending; the text stays
  EXPECT_NE(b.AssembledText().find("ClassAddRq"), std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

INSTANTIATE_TEST_SUITE_P(Codes, SendStatusOfTheResponse,
                         ::testing::Values(StatusCase{0, "Status OK", 0}, StatusCase{1, "No match found", 0},
                                           StatusCase{530, "Warned", 530},
                                           StatusCase{3100, "The name is in use", 3100}));

TEST(SendStatus, OnlyTheFirstResponseOfABatchSetsTheStatus) {
  ScriptedSession qb;
  qb.processor().QueueResponse(
      "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>"
      "<ClassQueryRs requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\"/>"
      "<ClassQueryRs requestID=\"2\" statusCode=\"3120\" statusSeverity=\"Error\" statusMessage=\"bad\"/>"
      "</QBXMLMsgsRs></QBXML>");
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("ClassQueryRq", "requestID", "1");
  b.EndAggregate();
  b.OpenAggregate("ClassQueryRq", "requestID", "2");
  b.EndAggregate();
  b.NewSendRequest();
  EXPECT_EQ(b.ErrNumber(), 0);
  EXPECT_EQ(b.ErrMsg(), "Status OK");
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(SendStatus, ResponseWithoutAttributesKeepsThePreviousStatus) {
  ScriptedSession qb;
  qb.processor().QueueResponse(ScriptedProcessor::Response("CustomerQueryRs", "", 3200, "Stale"));
  qb.processor().QueueResponse(ScriptedProcessor::WithoutAttributes("CustomerQueryRs"));
  xmlBldr b;
  WriteCustomerQuery(b);
  b.NewSendRequest();
  WriteCustomerQuery(b);
  b.NewSendRequest();
  EXPECT_EQ(b.ErrNumber(), 3200);
  EXPECT_EQ(b.ErrMsg(), "Stale");
}

TEST(SendStatus, UnparsableResponseGivesAnEmptyDocumentAndNoError) {
  ScriptedSession qb;
  qb.processor().QueueResponse(ScriptedProcessor::Response("CustomerQueryRs", "", 500, "Warn"));
  qb.processor().QueueResponse(ScriptedProcessor::Unparsable());
  xmlBldr b;
  WriteCustomerQuery(b);
  b.NewSendRequest();
  WriteCustomerQuery(b);
  XmlDocument doc;
  EXPECT_NO_THROW(doc = b.NewSendRequest());
  ASSERT_FALSE(doc.IsNull());
  EXPECT_EQ(doc.childNodes().length(), 0);
  EXPECT_EQ(b.ErrNumber(), 500);
}

// ---- Routing ----------------------------------------------------------------------------------

TEST(SendRouting, AnyTextWithTheSubscriptionWordGoesToProcessSubscription) {
  ScriptedSession qb;
  xmlBldr b;
  WriteCustomerQuery(b, "QBXMLSubscriptionMsgsRq");  // a plain search, even inside a value
  b.NewSendRequest();
  b.NewClearSubscriptions();
  b.OpenAggregateOnly("DataEventSubscriptionQueryRq");
  b.CreateElement("SubscriberID", "{6B063959-81B0-4622-85D6-DD4F8E3C5C0E}");
  b.EndAggregate("DataEventSubscriptionQueryRq");
  b.NewSendSubscriptionRequest();
  EXPECT_EQ(qb.processor().CountCalls("ProcessSubscription"), 2);
  EXPECT_EQ(qb.processor().CountCalls("ProcessRequest"), 0);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(SendRouting, RawSendAlwaysUsesProcessRequestAndReadsNoStatus) {
  ScriptedSession qb;
  qb.processor().QueueResponse(ScriptedProcessor::Response("CustomerQueryRs", "", 3250, "Not this"));
  xmlBldr b;
  WriteCustomerQuery(b, "QBXMLSubscriptionMsgsRq");
  std::string text = b.XMLSendToQB();
  EXPECT_NE(text.find("3250"), std::string::npos);
  EXPECT_EQ(b.ErrNumber(), 0);
  EXPECT_EQ(b.ErrMsg(), "");
  EXPECT_EQ(qb.processor().CountCalls("ProcessRequest"), 1);
  EXPECT_GT(b.PieceCount(), 0);  // the pieces stay
  EXPECT_EQ(qb.processor().Calls().back().arguments.front(), "{ticket-1}");
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

// ---- Failures ---------------------------------------------------------------------------------

TEST(SendFailure, ProcessorFailurePassesNumberAndDescriptionWithSourceXMLBldr) {
  ScriptedSession qb;
  qb.processor().FailOn("ProcessRequest", Error(0x80040408u, "QBXMLRP2.RequestProcessor", "Session lost"));
  for (bool raw : {false, true}) {
    xmlBldr b;
    WriteCustomerQuery(b);
    try {
      if (raw) b.XMLSendToQB();
      else b.NewSendRequest();
      FAIL();
    } catch (const Error& e) {
      EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040408u));
      EXPECT_EQ(e.Source(), "XMLBldr");
      EXPECT_EQ(e.Description(), "Session lost");
    }
    EXPECT_EQ(b.ErrNumber(), static_cast<int32_t>(0x80040408u));
    EXPECT_EQ(b.ErrMsg(), "Session lost");
    EXPECT_GT(b.PieceCount(), 0);  // not cleared: the request did not go out
  }
}

TEST(SendFailure, WithoutAConnectionTheNullObjectErrorTakesTheSameWay) {
  ResetLibraryStateForTesting();
  xmlBldr b;
  WriteCustomerQuery(b);
  try {
    b.NewSendRequest();
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), platform_error::kObjectNotSet);
    EXPECT_EQ(e.Source(), "XMLBldr");
  }
  EXPECT_EQ(b.ErrNumber(), platform_error::kObjectNotSet);
}

TEST(SendFailure, MissingComponentTellsTheUserAndRaisesParserNotInstalled) {
  ScriptedSession qb;
  qb.processor().FailOn("ProcessRequest", Error(platform_error::kCannotCreateObject, "x", "Cannot create object"));
  std::string caption, text;
  SetNotifyHandler([&](const std::string& c, const std::string& t) {
    caption = c;
    text = t;
  });
  xmlBldr b;
  WriteCustomerQuery(b);
  try {
    b.NewSendRequest();
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(0x800407CFu));
    EXPECT_EQ(e.Source(), "tessaron");
    EXPECT_EQ(e.Description(), "Microsoft XML 4.0 parser not installed.");
  }
  SetNotifyHandler(nullptr);
  EXPECT_EQ(caption, "Upgrade installation of the Microsoft XML 4.0 Parser");
  EXPECT_EQ(text.rfind("The installation of the Microsoft XML Parser version 4.0 is either missing or corrupted.  ", 0),
            0u);
}

// ---- Trace and transcript -------------------------------------------------------------------------

TEST(SendTrace, TraceSendWritesTheOutgoingRequestToTheTrace) {
  testing::TempDir dir;
  SetTraceFilePath(dir.File("trace.log"));
  ScriptedSession qb;
  State().TraceSend = true;
  xmlBldr b;
  WriteCustomerQuery(b);
  b.NewSendRequest();
  SetTraceFilePath("");
  std::string trace = ReadFile(dir.File("trace.log"));
  EXPECT_NE(trace.find("SendToQB:  " + qb.processor().LastRequest() + "\n"), std::string::npos);
}

class Transcript : public ::testing::Test {
 protected:
  testing::TempDir dir;
};

TEST_F(Transcript, HoldsHeaderExchangesAndClosingTagWithProloguesRemoved) {
  const std::string path = dir.File("log.xml");
  std::string request, response;
  {
    ScriptedSession qb("2.0");
    qb.processor().QueueResponse(ScriptedProcessor::Response("CustomerQueryRs", "", 1, "none"));
    qb.connection().SetDebugLogPath(path);
    xmlBldr b;
    WriteCustomerQuery(b);
    b.NewSendRequest();
    request = qb.processor().LastRequest();
    response = ScriptedProcessor::Response("CustomerQueryRs", "", 1, "none");
    EXPECT_TRUE(qb.processor().AllRequestsValid());
    EXPECT_TRUE(testing::IsValidQbxml(response));
  }  // the end of the connection closes the transcript
  const std::string prologue =
      "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 2.0//EN' >";
  ASSERT_EQ(request.rfind(prologue, 0), 0u);
  const std::string expected =
      "<TessaronLog CompanyPath=\"C:\\Company Files\\Sample + Co.qbw\" qbXMLVersion=\"2.0\" "
      "ProductName=\"QuickBooks Pro 2013\" MajorVersion=\"23\" MinorVersion = \"0\" TessaronVersion=\"" +
      std::string(TESSARON_VERSION_TEXT) + "\">\n<OUTGOING>\n" + request.substr(prologue.size()) +
      "\n</OUTGOING>\n<RETURNS>\n" + response.substr(std::string("<?xml version=\"1.0\" ?>").size()) +
      "\n</RETURNS>\n</TessaronLog>\n";
  EXPECT_EQ(ReadFile(path), expected);
  XmlDocument whole = XmlDocument::Create();
  EXPECT_TRUE(whole.loadXML(ReadFile(path)));  // one well-formed document
}

TEST_F(Transcript, DocumentTypeOfAnUnlistedVersionStays) {
  const std::string path = dir.File("log.xml");
  ScriptedSession qb("5.0");
  qb.connection().SetDebugLogPath(path);
  xmlBldr b;
  WriteCustomerQuery(b);
  b.NewSendRequest();
  std::string text = ReadFile(path);
  EXPECT_NE(text.find("<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 5.0//EN' >"), std::string::npos);
  EXPECT_EQ(text.find("<?xml"), std::string::npos);
}

TEST_F(Transcript, ASecondPathClosesTheFirstAndStartsWithoutAHeader) {
  ScriptedSession qb;
  qb.connection().SetDebugLogPath(dir.File("one.xml"));
  qb.connection().SetDebugLogPath(dir.File("two.xml"));
  xmlBldr b;
  WriteCustomerQuery(b);
  b.NewSendRequest();
  std::string one = ReadFile(dir.File("one.xml"));
  EXPECT_EQ(one.substr(one.size() - 15), "</TessaronLog>\n");
  EXPECT_EQ(ReadFile(dir.File("two.xml")).rfind("<OUTGOING>\n", 0), 0u);
}

TEST_F(Transcript, NoPathTouchesNoFile) {
  ScriptedSession qb;
  xmlBldr b;
  WriteCustomerQuery(b);
  b.NewSendRequest();
  EXPECT_TRUE(std::filesystem::is_empty(dir.Path()));
}

TEST_F(Transcript, PathThatCannotBeCreatedRaisesAndIsCleared) {
  ScriptedSession qb;
  try {
    qb.connection().SetDebugLogPath(dir.File("missing/folder/log.xml"));
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), platform_error::kPathNotFound);
    EXPECT_EQ(e.Source(), "Tessaron");
    EXPECT_EQ(e.Description(), "Invalid path specified");
  }
  EXPECT_EQ(State().DebugLogPath, "");
}

}  // namespace
}  // namespace tessaron
