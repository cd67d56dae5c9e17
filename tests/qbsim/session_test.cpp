// The request processor's members: links, sessions, tickets, versions, several instances.
#include <fstream>

#include "tessaron/platform/error.h"
#include "tests/qbsim/qbsim_fixture.h"
#include "tests/support/raised.h"

namespace tessaron::qbsim::testing {
namespace {

const std::string kHost = "<HostQueryRq requestID=\"1\"/>";

class SessionTest : public QbsimTest {};

TEST_F(SessionTest, BeginSessionBeforeOpenConnectionRaises) {
  CreateSampleCompany(path_);
  auto p = CreateProcessor();
  EXPECT_EQ(tessaron::testing::NumberRaised([&] { p->BeginSession(path_, 0); }), processor_error::kNotConnected);
}

TEST_F(SessionTest, RefusedApplicationCannotOpenTheLink) {
  ProcessorOptions o;
  o.refusedApplications = {"Nosy App"};
  auto p = CreateProcessor(o);
  EXPECT_EQ(tessaron::testing::NumberRaised([&] { p->OpenConnection("", "Nosy App"); }), processor_error::kAppRefused);
  EXPECT_EQ(tessaron::testing::NumberRaised([&] { p->OpenConnection("", "Polite App"); }), 0u);
}

TEST_F(SessionTest, EndedTicketIsRefusedAndEndingItAgainIsHarmless) {
  Open();
  processor_->EndSession(ticket_);
  EXPECT_NO_THROW(processor_->EndSession(ticket_));
  EXPECT_EQ(tessaron::testing::NumberRaised([&] { processor_->ProcessRequest(ticket_, Message(kHost)); }),
            processor_error::kBadTicket);
}

TEST_F(SessionTest, CloseConnectionEndsTheSessionsOfTheProcessor) {
  Open();
  processor_->CloseConnection();
  EXPECT_EQ(tessaron::testing::NumberRaised([&] { processor_->ProcessRequest(ticket_, Message(kHost)); }),
            processor_error::kBadTicket);
}

TEST_F(SessionTest, EmptyFileNameOpensTheConfiguredCurrentFile) {
  CreateSampleCompany(path_);
  ProcessorOptions o;
  o.currentCompanyFile = path_;
  auto p = CreateProcessor(o);
  p->OpenConnection("", "test");
  std::string ticket = p->BeginSession("", 2);
  EXPECT_EQ(p->GetCurrentCompanyFileName(ticket), path_);
}

TEST_F(SessionTest, EmptyFileNameOpensTheFileOfAnOpenSessionOrRaisesWhenNoneIsOpen) {
  auto lonely = CreateProcessor();
  lonely->OpenConnection("", "test");
  EXPECT_EQ(tessaron::testing::NumberRaised([&] { lonely->BeginSession("", 0); }), processor_error::kNoFileOpen);
  Open();
  std::string ticket = lonely->BeginSession("", 0);
  EXPECT_EQ(lonely->GetCurrentCompanyFileName(ticket), processor_->GetCurrentCompanyFileName(ticket_));
}

TEST_F(SessionTest, FileThatCannotBeACompanyFileRaisesAClearError) {
  auto p = CreateProcessor();
  p->OpenConnection("", "test");
  std::ofstream(dir_.File("notes.txt")) << "This is a shopping list, not a company file.\n";
  std::ofstream(dir_.File("empty.qbw"));
  for (const std::string& path : {dir_.File("missing.qbw"), dir_.File("notes.txt"), dir_.File("empty.qbw"), dir_.Path()}) {
    try {
      p->BeginSession(path, 0);
      ADD_FAILURE() << path;
    } catch (const Error& e) {
      EXPECT_EQ(e.Number(), processor_error::kCannotOpenFile) << path;
      EXPECT_NE(e.Description().find(path), std::string::npos) << e.Description();
    }
  }
  // The refused file is left as it was.
  std::ifstream in(dir_.File("notes.txt"));
  std::string line;
  std::getline(in, line);
  EXPECT_EQ(line, "This is a shopping list, not a company file.");
}

TEST_F(SessionTest, VersionsRunUpToTheNewestWithTheEditionPrefix) {
  SampleOptions s;
  s.edition = Edition::CA;
  s.newestVersion = 21;
  Open(s);
  EXPECT_EQ(processor_->QBXMLVersionsForSession(ticket_),
            (std::vector<std::string>{"CA1.0", "CA1.1", "CA2.0", "CA2.1"}));
}

TEST_F(SessionTest, OptionsOverrideTheEditionAndVersionOfTheFile) {
  ProcessorOptions o = StrictOptions();
  o.edition = Edition::UK;
  o.newestVersion = 30;
  Open({}, o);
  EXPECT_EQ(processor_->QBXMLVersionsForSession(ticket_).back(), "UK3.0");
  EXPECT_EQ(processor_->MajorVersion(), 3);
  EXPECT_EQ(processor_->MinorVersion(), 0);
}

TEST_F(SessionTest, TwoSessionsOnOneFileSeeEachOthersChanges) {
  Open();
  auto second = CreateProcessor(StrictOptions());
  second->OpenConnection("", "second");
  std::string ticket = second->BeginSession(path_, 2);
  Response added = Send("<ClassAddRq requestID=\"1\"><ClassAdd><Name>Seen Twice</Name></ClassAdd></ClassAddRq>");
  ASSERT_EQ(added.Status(), 0);
  Response seen(second->ProcessRequest(
      ticket, Message("<ClassQueryRq requestID=\"1\"><FullName>Seen Twice</FullName></ClassQueryRq>")));
  EXPECT_EQ(seen.Status(), 0);
  EXPECT_EQ(seen.Value("ClassRet/ListID"), added.Value("ClassRet/ListID"));
}

TEST_F(SessionTest, ReleasedProcessorWithAnOpenSessionDoesNotBlockTheFile) {
  Open();
  processor_.reset();  // released without EndSession or CloseConnection
  auto next = CreateProcessor(StrictOptions());
  next->OpenConnection("", "next");
  std::string ticket = next->BeginSession(path_, 0);
  Response r(next->ProcessRequest(ticket, Message("<ClassAddRq requestID=\"1\"><ClassAdd><Name>After</Name></ClassAdd></ClassAddRq>")));
  EXPECT_EQ(r.Status(), 0);
}

TEST_F(SessionTest, ChangesSurviveClosingAndReopeningTheFile) {
  Open();
  Response added = Send("<VendorAddRq requestID=\"1\"><VendorAdd><Name>Durable Goods</Name>"
                        "<CompanyName>Durable Goods</CompanyName></VendorAdd></VendorAddRq>");
  ASSERT_EQ(added.Status(), 0);
  processor_->CloseConnection();
  processor_ = CreateProcessor(StrictOptions());
  processor_->OpenConnection("", "again");
  ticket_ = processor_->BeginSession(path_, 0);
  Response r = Send("<VendorQueryRq requestID=\"1\"><FullName>Durable Goods</FullName></VendorQueryRq>");
  EXPECT_EQ(r.Value("VendorRet/ListID"), added.Value("VendorRet/ListID"));
  EXPECT_EQ(r.Value("VendorRet/EditSequence"), added.Value("VendorRet/EditSequence"));
  EXPECT_EQ(r.Value("VendorRet/CompanyName"), "Durable Goods");
}

TEST_F(SessionTest, SubscriptionMessagesNeedOnlyTheLink) {
  auto p = CreateProcessor(StrictOptions());
  p->OpenConnection("", "subscriber");
  std::string rq = Prologue("4.0") +
                   "<QBXML><QBXMLSubscriptionMsgsRq><SubscriptionDelRq requestID=\"1\">"
                   "<SubscriberID>{8A0E3A5D-1C0B-4E7A-9D47-3E1F2A9B7C10}</SubscriberID>"
                   "<SubscriptionType>UIExtension</SubscriptionType></SubscriptionDelRq>"
                   "</QBXMLSubscriptionMsgsRq></QBXML>";
  ASSERT_TRUE(tessaron::testing::IsValidQbxml(rq));
  std::string text = p->ProcessSubscription(rq);
  EXPECT_TRUE(tessaron::testing::IsValidQbxml(text));
  Response r(text);
  // Answered without a session: nothing of that subscriber is on the host.
  EXPECT_EQ(r.Status(), status::kObjectNotFound);
}

}  // namespace
}  // namespace tessaron::qbsim::testing
