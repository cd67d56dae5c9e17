// Reading the messages QuickBooks calls a subscribed application back with.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/events/qb_event.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

using testing::NumberRaised;

const std::string kHead = "<?xml version=\"1.0\"?>\r\r\n<?qbxml version=\"7.0\"?>\r\r\n";

std::string Host(const std::string& product = "QuickBooks Premier Edition 2008", const std::string& major = "18",
                 const std::string& minor = "0") {
  return "<HostInfo><ProductName>" + product + "</ProductName><MajorVersion>" + major +
         "</MajorVersion><MinorVersion>" + minor + "</MinorVersion></HostInfo>";
}

std::string Message(const std::string& event, const std::string& head = kHead) {
  return head + "<QBXML>\r\r\n<QBXMLEvents>\r\r\n" + event + "\r\r\n</QBXMLEvents>\r\r\n</QBXML>\r\r\n";
}

std::string UiEvent(const std::string& fileEvent) {
  return Message("<UIEvent><CompanyFilePath>C:\\Company Files\\Rock Castle.qbw</CompanyFilePath>" + Host() +
                 fileEvent + "</UIEvent>");
}

// ---- The three kinds, with the common fields ----

TEST(EventKinds, DataEventSetsTypeAndCommonFieldsOnly) {
  qbEvent e;
  e.ParseXML(Message(
      "<DataEvent>\r\r\n<CompanyFilePath>\\\\server\\share\\Books\\acme.qbw</CompanyFilePath>\r\r\n" + Host() +
      "<ListEvent><ListEventType>Customer</ListEventType><ListEventOperation>Add</ListEventOperation>"
      "<ListID>80000001-1234567890</ListID></ListEvent>"
      "<DataEventRecoveryTime>2026-11-23T10:15:00-08:00</DataEventRecoveryTime></DataEvent>"));
  EXPECT_EQ(e.EventType, qbEventData);
  EXPECT_EQ(e.CompanyPath, "\\\\server\\share\\Books\\acme.qbw");
  EXPECT_EQ(e.ProductName, "QuickBooks Premier Edition 2008");
  EXPECT_EQ(e.MajorVersion, "18");
  EXPECT_EQ(e.MinorVersion, "0");
  // The record of the change and the times are the application's to read from the document.
  EXPECT_EQ(e.ListID, "");
  EXPECT_EQ(e.qbListEventOp, 0);
  EXPECT_EQ(e.DataEventRecoveryTime, 0.0);
  EXPECT_FALSE(e.Document().IsNull());
}

TEST(EventKinds, TransactionEventWithOffsetTimesReadsAsADataEvent) {
  qbEvent e;
  e.ParseXML(Message("<DataEvent><CompanyFilePath>C:\\Books\\acme.qbw</CompanyFilePath>" + Host() +
                     "<TxnEvent><TxnEventType>Invoice</TxnEventType><TxnEventOperation>Modify</TxnEventOperation>"
                     "<TxnID>1A2-1234567890</TxnID><RefNumber>1042</RefNumber></TxnEvent>"
                     "<LastRestoreTime>2026-01-05T08:00:00+05:30</LastRestoreTime>"
                     "<LastCondenseTime>2025-12-31T23:59:59-10:00</LastCondenseTime></DataEvent>"));
  EXPECT_EQ(e.EventType, qbEventData);
  EXPECT_EQ(e.CompanyPath, "C:\\Books\\acme.qbw");
  EXPECT_EQ(e.TxnId, "");
  EXPECT_EQ(e.LastRestoreTime, 0.0);
}

TEST(EventKinds, UiExtensionEventCarriesTheMenuItemsTag) {
  qbEvent e;
  e.ParseXML(Message("<UIExtensionEvent><CompanyFilePath>C:\\Books\\acme.qbw</CompanyFilePath>" + Host() +
                     "<EventTag>{5F8B3A52-1C2D-4E6F-8A9B-0C1D2E3F4A5B}:Export</EventTag>"
                     "<CurrentWindow><TxnType>Invoice</TxnType><TxnID>12-345</TxnID></CurrentWindow>"
                     "</UIExtensionEvent>"));
  EXPECT_EQ(e.EventType, qbEventUIExtension);
  EXPECT_EQ(e.EventTag, "{5F8B3A52-1C2D-4E6F-8A9B-0C1D2E3F4A5B}:Export");
  EXPECT_EQ(e.CompanyPath, "C:\\Books\\acme.qbw");
  EXPECT_EQ(e.MinorVersion, "0");
}

TEST(EventKinds, UnknownEventKindLeavesTypeAsItWasButReadsCommonFields) {
  qbEvent e;
  e.EventType = qbEventUI;
  e.ParseXML(Message("<LicenseEvent><CompanyFilePath>C:\\a.qbw</CompanyFilePath>" + Host("QuickBooks 2031", "41", "2") +
                     "</LicenseEvent>"));
  EXPECT_EQ(e.EventType, qbEventUI);
  EXPECT_EQ(e.ProductName, "QuickBooks 2031");
  EXPECT_EQ(e.MajorVersion, "41");
}

// ---- UI events: the company file event ----

struct FileEventCase {
  const char* name;
  std::string fileEvent;
  bool opened, newCompany, automaticLogin;
};

class CompanyFileEvents : public ::testing::TestWithParam<FileEventCase> {};

TEST_P(CompanyFileEvents, ReadOperationAndFlags) {
  const FileEventCase& c = GetParam();
  qbEvent e;
  e.ParseXML(UiEvent(c.fileEvent));
  EXPECT_EQ(e.EventType, qbEventUI);
  EXPECT_EQ(e.CompanyPath, "C:\\Company Files\\Rock Castle.qbw");
  EXPECT_EQ(e.CompanyfileOpened, c.opened);
  EXPECT_EQ(e.NewCompany, c.newCompany);
  EXPECT_EQ(e.AutomaticLogin, c.automaticLogin);
}

INSTANTIATE_TEST_SUITE_P(
    Messages, CompanyFileEvents,
    ::testing::Values(
        FileEventCase{"OpenSetsOpened", "<CompanyFileEvent><CompanyFileEventOperation>Open</CompanyFileEventOperation>"
                                        "</CompanyFileEvent>", true, false, false},
        FileEventCase{"OpenInAnyLetterCase", "<CompanyFileEvent><CompanyFileEventOperation>oPEN"
                                             "</CompanyFileEventOperation></CompanyFileEvent>", true, false, false},
        FileEventCase{"CloseClearsOpened", "<CompanyFileEvent><CompanyFileEventOperation>Close"
                                           "</CompanyFileEventOperation></CompanyFileEvent>", false, false, false},
        FileEventCase{"FlagsAsTrue", "<CompanyFileEvent><CompanyFileEventOperation>Open</CompanyFileEventOperation>"
                                     "<IsNewCompany>true</IsNewCompany><IsAutomaticLogin>true</IsAutomaticLogin>"
                                     "</CompanyFileEvent>", true, true, true},
        FileEventCase{"NamesInAnyLetterCase", "<companyfileevent><COMPANYFILEEVENTOPERATION>Open"
                                              "</COMPANYFILEEVENTOPERATION><isnewcompany>1</isnewcompany>"
                                              "</companyfileevent>", true, true, false},
        FileEventCase{"NewerElementsAreSkipped",
                      "<CompanyFileEvent><CompanyFileEventOperation>Open</CompanyFileEventOperation>"
                      "<IsMultiUser>true</IsMultiUser><IsAutomaticLogin>false</IsAutomaticLogin>"
                      "<UserName>Admin</UserName></CompanyFileEvent>", true, false, false},
        FileEventCase{"OtherThirdChildSetsOnlyCommonFields",
                      "<WindowEvent><CompanyFileEventOperation>Open</CompanyFileEventOperation></WindowEvent>",
                      false, false, false}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- What QuickBooks really sends ----

TEST(EventMessages, NewerQbxmlVersionWithUnknownElementsReadsKnownFields) {
  qbEvent e;
  e.ParseXML(Message("<UIEvent><CompanyFilePath>C:\\Users\\Public\\Documents\\x.qbw</CompanyFilePath>"
                     "<HostInfo><ProductName>QuickBooks Enterprise 2035</ProductName><MajorVersion>45"
                     "</MajorVersion><MinorVersion>1</MinorVersion><Edition>Manufacturing</Edition></HostInfo>"
                     "<CompanyFileEvent><CompanyFileEventOperation>Open</CompanyFileEventOperation>"
                     "<IsAutomaticLogin>true</IsAutomaticLogin></CompanyFileEvent>"
                     "<SessionInfo><Region>EU</Region></SessionInfo></UIEvent>",
                     "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<?qbxml version=\"99.0\"?>\n"));
  EXPECT_EQ(e.ProductName, "QuickBooks Enterprise 2035");
  EXPECT_EQ(e.MajorVersion, "45");
  EXPECT_TRUE(e.CompanyfileOpened);
  EXPECT_TRUE(e.AutomaticLogin);
}

TEST(EventMessages, CrCrLfLineEndsDoNotShiftPositions) {
  qbEvent e;
  e.ParseXML(Message("<UIExtensionEvent>\r\r\n  <CompanyFilePath>C:\\a.qbw</CompanyFilePath>\r\r\n  " + Host() +
                     "\r\r\n  <EventTag>Export</EventTag>\r\r\n</UIExtensionEvent>"));
  EXPECT_EQ(e.EventTag, "Export");
  EXPECT_EQ(e.CompanyPath, "C:\\a.qbw");
}

TEST(EventMessages, EscapedCharactersInThePathAreRead) {
  qbEvent f;
  f.ParseXML(Message("<DataEvent><CompanyFilePath>C:\\Smith &amp; Sons\\books.qbw</CompanyFilePath>" + Host() +
                     "</DataEvent>"));
  EXPECT_EQ(f.CompanyPath, "C:\\Smith & Sons\\books.qbw");
}

// ---- Messages of another shape ----

TEST(EventFailures, MessageWithoutTheQbxmlInstructionFails) {
  qbEvent e;
  EXPECT_EQ(NumberRaised([&] {
              e.ParseXML(Message("<DataEvent><CompanyFilePath>C:\\a.qbw</CompanyFilePath>" + Host() + "</DataEvent>",
                                 "<?xml version=\"1.0\"?>"));
            }),
            91u);
}

TEST(EventFailures, TextThatDoesNotParseFails) {
  qbEvent e;
  EXPECT_EQ(NumberRaised([&] { e.ParseXML("<QBXML><QBXMLEvents><DataEvent>"); }), 91u);
}

TEST(EventFailures, FieldsSetBeforeAMissingHostStay) {
  qbEvent e;
  EXPECT_EQ(NumberRaised([&] {
              e.ParseXML(Message("<UIExtensionEvent><CompanyFilePath>C:\\a.qbw</CompanyFilePath></UIExtensionEvent>"));
            }),
            91u);
  EXPECT_EQ(e.EventType, qbEventUIExtension);
}

}  // namespace
}  // namespace tessaron
