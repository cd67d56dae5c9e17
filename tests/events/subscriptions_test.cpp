// Subscription requests as they go out in a subscription message set, and the collections
// that commit and list them.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/events/subscriptions.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/raised.h"
#include "tests/support/scripted_processor.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::IsValidQbxml;
using testing::NumberRaised;
using testing::Raised;
using testing::ScriptedProcessor;
using testing::ScriptedSession;
using testing::Contains;

const std::string kGuid = "{5F8B3A52-1C2D-4E6F-8A9B-0C1D2E3F4A5B}";

// A subscription link with the event GUID registered; no company file is opened.
class SubscriptionLink : public ::testing::Test {
 protected:
  SubscriptionLink() : qb_("") {
    qb_.connection().ConnectForSubscriptions("", "Acme Export");
    qb_.connection().RegisterEventGUID(kGuid);
    qb_.processor().ClearRecords();
  }
  std::string LastSent() { return qb_.processor().LastRequest(); }
  // A response to the first request of the set, with the requestID QuickBooks echoes.
  static std::string Answer(const std::string& rsName, const std::string& body, int status = 0,
                            const std::string& message = "Status OK") {
    return "<?xml version=\"1.0\" ?><QBXML><QBXMLSubscriptionMsgsRs><" + rsName +
           " requestID=\"1\" statusCode=\"" + std::to_string(status) + "\" statusSeverity=\"" +
           (status ? "Error" : "Info") + "\" statusMessage=\"" + message + "\">" + body + "</" + rsName +
           "></QBXMLSubscriptionMsgsRs></QBXML>";
  }
  ScriptedSession qb_;
};

// ---- UI event subscriptions ----

TEST_F(SubscriptionLink, UiSubscriptionAddIsValidAndSentAsASubscription) {
  auto subs = qb_.connection().UISubscriptions();
  auto sub = subs->Add("Acme Export", "Acme.Events");
  sub->DeliveryAlways = true;
  sub->CompanyFileOpenEvent = true;
  sub->CompanyFileCloseEvent = true;
  subs->Commit(sub);
  ASSERT_EQ(qb_.processor().CountCalls("ProcessSubscription"), 1);
  EXPECT_EQ(qb_.processor().CountCalls("ProcessRequest"), 0);
  const std::string rq = LastSent();
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_TRUE(Contains(rq, "<SubscriberID>" + kGuid + "</SubscriberID>")) << rq;
  EXPECT_TRUE(Contains(rq, "<ProgID>Acme.Events</ProgID>")) << rq;
  EXPECT_FALSE(Contains(rq, "<CLSID>")) << rq;
  EXPECT_TRUE(Contains(rq, "<DeliveryPolicy>DeliverAlways</DeliveryPolicy>")) << rq;
  EXPECT_TRUE(Contains(rq, "<CompanyFileEventOperation>Close</CompanyFileEventOperation>"
                      "<CompanyFileEventOperation>Open</CompanyFileEventOperation>"))
      << rq;
}

TEST_F(SubscriptionLink, UiSubscriptionWithoutProgIdWritesTheClassId) {
  auto subs = qb_.connection().UISubscriptions();
  auto sub = subs->Add("Acme Export", "");
  sub->CLSID = "{11111111-2222-3333-4444-555555555555}";
  sub->CompanyFileOpenEvent = true;
  subs->Commit2();
  const std::string rq = LastSent();
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_TRUE(Contains(rq, "<CLSID>{11111111-2222-3333-4444-555555555555}</CLSID>")) << rq;
  EXPECT_TRUE(Contains(rq, "<DeliveryPolicy>DeliverOnlyIfRunning</DeliveryPolicy>")) << rq;
}

TEST_F(SubscriptionLink, AcceptedUiSubscriptionIsReadBackAndStaysNew) {
  auto subs = qb_.connection().UISubscriptions();
  auto sub = subs->Add("Acme Export", "Acme.Events");
  sub->CompanyFileOpenEvent = true;
  qb_.processor().QueueResponse(Answer(
      "UIEventSubscriptionAddRs",
      "<UIEventSubscriptionRet><SubscriberID>" + kGuid + "</SubscriberID><TimeCreated>2026-11-23T09:00:00-05:00"
      "</TimeCreated><COMCallbackInfo><AppName>Acme Export (QB)</AppName><ProgID>Acme.Events</ProgID>"
      "</COMCallbackInfo><DeliveryPolicy>DeliverAlways</DeliveryPolicy><CompanyFileEventSubscription>"
      "<CompanyFileEventOperation>Close</CompanyFileEventOperation></CompanyFileEventSubscription>"
      "</UIEventSubscriptionRet>"));
  EXPECT_EQ(subs->Commit(sub), 1);
  EXPECT_EQ(subs->Errors()->Count(), 0);
  EXPECT_EQ(sub->AppName, "Acme Export (QB)");
  EXPECT_TRUE(sub->DeliveryAlways);
  EXPECT_TRUE(sub->CompanyFileCloseEvent);
  EXPECT_FALSE(sub->CompanyFileOpenEvent);
  // Still New: committing again sends the add again.
  EXPECT_EQ(sub->ObjectState(), qoObjectStateNew);
  subs->Commit(sub);
  EXPECT_EQ(qb_.processor().CountCalls("ProcessSubscription"), 2);
}

TEST_F(SubscriptionLink, UiSubscriptionFailureOtherThan3100RaisesWithTheQuickBooksMessage) {
  auto subs = qb_.connection().UISubscriptions();
  auto sub = subs->Add("Acme Export", "Acme.Events");
  sub->CompanyFileOpenEvent = true;
  qb_.processor().QueueResponse(Answer("UIEventSubscriptionAddRs", "", 3250, "Subscriptions are turned off"));
  auto e = Raised([&] { subs->Commit(sub); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Source(), "Tessaron");
  EXPECT_EQ(e->Description(), "QuickBooks: Subscriptions are turned off");
  EXPECT_EQ(subs->Errors()->Count(), 1);
}

TEST_F(SubscriptionLink, Status3100RecordsTheDuplicateAndKeepsTheSubscriptionNew) {
  State().ErrorMode = false;
  auto subs = qb_.connection().UISubscriptions();
  auto sub = subs->Add("Acme Export", "Acme.Events");
  sub->CompanyFileOpenEvent = true;
  qb_.processor().QueueResponse(Answer("UIEventSubscriptionAddRs", "", 3100, "The subscription already exists"));
  subs->Commit(sub);
  ASSERT_EQ(subs->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(subs->Errors()->Item(Variant(1))->Number()), err::kCommitFailed);
  ASSERT_EQ(sub->Errors()->Count(), 1);
  EXPECT_EQ(sub->Errors()->Item(Variant(1))->Description(), "Name specified already exists on file");
  EXPECT_EQ(sub->ObjectState(), qoObjectStateNew);
}

TEST_F(SubscriptionLink, CommitOfAnObjectFromElsewhereSendsNothing) {
  State().ErrorMode = false;
  auto subs = qb_.connection().UISubscriptions();
  subs->Add("Acme Export", "Acme.Events");
  EXPECT_EQ(subs->Commit(std::make_shared<UISubscription>()), 0);
  EXPECT_EQ(qb_.processor().CountCalls("ProcessSubscription"), 0);
  ASSERT_EQ(subs->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(subs->Errors()->Item(Variant(1))->Number()), err::kNotAMember);
}

TEST_F(SubscriptionLink, UiSubscriptionsDeleteSendsNothing) {
  auto subs = qb_.connection().UISubscriptions();
  subs->Add("Acme Export", "Acme.Events");
  EXPECT_EQ(subs->Delete(), 0);
  EXPECT_EQ(subs->Count(), 1);
  EXPECT_TRUE(qb_.processor().Requests().empty());
}

TEST_F(SubscriptionLink, ModifyOfASubscriptionIsRefused) {
  xmlBldr b;
  UISubscription ui;
  UIExtensionSubscription ext;
  auto e = Raised([&] { ui.XMLModify(b); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Source(), "Tessaron: UIEventSubscription");
  EXPECT_EQ(e->Description(), "XMLModify not supported");
  EXPECT_EQ(Raised([&] { ext.XMLModify(b); })->Source(), "Tessaron: UIExtensionSubscription");
}

// ---- UI extension subscriptions ----

TEST_F(SubscriptionLink, OneMenuItemGoesOutWithoutSubmenuOrTheSubscriptionsConditions) {
  auto menus = qb_.connection().UIExtensionSubscriptions();
  auto sub = menus->Add("Acme Export", qbMnuCustomers, "Acme.Menu");
  sub->DisplayConditions()->VisibleIfs()->Add(qbMnuHasCustomers);
  auto item = sub->MenuItems()->Add();
  item->Text = "Export customers";
  item->EventTag = "export";
  menus->Commit(sub);
  const std::string rq = LastSent();
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_TRUE(Contains(rq, "<UIExtensionSubscriptionAddRq requestID = \"1\"><UIExtensionSubscriptionAdd><SubscriberID>" +
                          kGuid))
      << rq;
  EXPECT_TRUE(Contains(rq, "<AddToMenu>Customers</AddToMenu><MenuItem><MenuText>Export customers</MenuText>"
                      "<EventTag>export</EventTag><DisplayCondition></DisplayCondition></MenuItem>"))
      << rq;
  EXPECT_FALSE(Contains(rq, "Submenu")) << rq;
  EXPECT_FALSE(Contains(rq, "VisibleIf")) << rq;
}

TEST_F(SubscriptionLink, TwoMenuItemsGoOutInASubmenuHeadedByItsConditions) {
  auto menus = qb_.connection().UIExtensionSubscriptions();
  auto sub = menus->Add("Acme Export", qbMnuBanking, "Acme.Menu");
  auto conditions = sub->DisplayConditions();
  conditions->EnabledIfNots()->Add(qbMnuIsAccountantCopy);
  conditions->VisibleIfs()->Add(qbMnuMultiUserMode);
  conditions->EnabledIfs()->Add(qbMnuSalesTaxEnabled);
  conditions->VisibleIfNots()->Add(qbMnuAccountantCopyExists);
  for (const char* text : {"Send", "Receive"}) {
    auto item = sub->MenuItems()->Add();
    item->Text = text;
    item->EventTag = text;
  }
  sub->MenuItems()->Item(Variant(2))->DisplayConditions()->EnabledIfs()->Add(qbMnuPayrollEnabled);
  menus->Commit(sub);
  const std::string rq = LastSent();
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_TRUE(Contains(rq, "<AddToMenu>Banking</AddToMenu><Submenu><DisplayCondition><VisibleIf>MultiUserMode</VisibleIf>"
                      "<VisibleIfNot>AccountantCopyExists</VisibleIfNot><EnabledIf>SalesTaxEnabled</EnabledIf>"
                      "<EnabledIfNot>IsAccountantCopy</EnabledIfNot></DisplayCondition><MenuItem>"
                      "<MenuText>Send</MenuText>"))
      << rq;
  EXPECT_TRUE(Contains(rq, "<MenuText>Receive</MenuText><EventTag>Receive</EventTag><DisplayCondition>"
                      "<EnabledIf>PayrollEnabled</EnabledIf></DisplayCondition></MenuItem></Submenu>"))
      << rq;
}

TEST_F(SubscriptionLink, SubscriptionWithoutMenuItemsFailsBeforeSending) {
  auto menus = qb_.connection().UIExtensionSubscriptions();
  auto sub = menus->Add("Acme Export", qbMnuFile, "Acme.Menu");
  EXPECT_EQ(NumberRaised([&] { menus->Commit(sub); }), 9u);
  EXPECT_TRUE(qb_.processor().Requests().empty());
}

TEST_F(SubscriptionLink, ExtensionFailureIsRecordedWithoutRaisingWhenErrorModeIsOff) {
  State().ErrorMode = false;
  auto menus = qb_.connection().UIExtensionSubscriptions();
  auto sub = menus->Add("Acme Export", qbMnuFile, "Acme.Menu");
  sub->MenuItems()->Add()->Text = "Export";
  qb_.processor().QueueResponse(Answer("UIExtensionSubscriptionAddRs", "", 3250, "Not allowed"));
  EXPECT_EQ(NumberRaised([&] { menus->Commit(sub); }), 0u);
  EXPECT_EQ(menus->Errors()->Count(), 1);
  EXPECT_EQ(sub->Errors()->Item(Variant(1))->Description(), "Not allowed");
}

TEST_F(SubscriptionLink, ExtensionFailureRaisesTheSummaryWhenErrorModeIsOn) {
  auto menus = qb_.connection().UIExtensionSubscriptions();
  auto sub = menus->Add("Acme Export", qbMnuFile, "Acme.Menu");
  sub->MenuItems()->Add()->Text = "Export";
  qb_.processor().QueueResponse(Answer("UIExtensionSubscriptionAddRs", "", 3250, "Not allowed"));
  auto e = Raised([&] { menus->Commit(sub); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kCommitErrors);
  EXPECT_EQ(e->Source(), "UIExtensionSubscription");
}

TEST_F(SubscriptionLink, GetAllListsTheExtensionsOfTheRegisteredGuid) {
  auto menus = qb_.connection().UIExtensionSubscriptions();
  menus->Add("stale", qbMnuFile, "x");
  const std::string ret = "<UIExtensionSubscriptionRet><SubscriberID>" + kGuid + "</SubscriberID><TimeCreated>"
                          "2026-11-23T09:00:00+01:00</TimeCreated><COMCallbackInfo><AppName>";
  const std::string rest = "</AppName><ProgID>Acme.Menu</ProgID></COMCallbackInfo><MenuExtensionSubscription>"
                           "<AddToMenu>File</AddToMenu><MenuItem><MenuText>A</MenuText><EventTag>a</EventTag>"
                           "</MenuItem></MenuExtensionSubscription><FutureElement>1</FutureElement>"
                           "</UIExtensionSubscriptionRet>";
  qb_.processor().QueueResponse(Answer("UIExtensionSubscriptionQueryRs", ret + "First" + rest + ret + "Second" + rest));
  EXPECT_EQ(menus->GetAll(), 2);
  const std::string rq = LastSent();
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_TRUE(Contains(rq, "<UIExtensionSubscriptionQueryRq><SubscriberID>" + kGuid + "</SubscriberID>")) << rq;
  EXPECT_EQ(menus->Item(Variant(1))->AppName, "First");
  EXPECT_EQ(menus->Item(Variant(2))->AppName, "Second");
  EXPECT_EQ(menus->Item(Variant(2))->ProgId, "Acme.Menu");
}

TEST_F(SubscriptionLink, GetAllWithoutARegisteredGuidRaisesBeforeSending) {
  qb_.connection().RegisterEventGUID("");
  auto e = Raised([&] { qb_.connection().UIExtensionSubscriptions()->GetAll(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kNoEventGuid);
  EXPECT_EQ(e->Source(), "UIExtensionSubscription");
  EXPECT_TRUE(qb_.processor().Requests().empty());
}

TEST_F(SubscriptionLink, DeleteRemovesTheEntryWhateverQuickBooksAnswered) {
  auto menus = qb_.connection().UIExtensionSubscriptions();
  menus->Add("First", qbMnuFile, "a");
  menus->Add("Second", qbMnuFile, "b");
  qb_.processor().QueueResponse(Answer("SubscriptionDelRs", "", 3120, "No such subscription"));
  menus->Delete(Variant(1));
  const std::string rq = LastSent();
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_TRUE(Contains(rq, "<SubscriptionDelRq><SubscriberID>" + kGuid +
                          "</SubscriberID><SubscriptionType>UIExtension</SubscriptionType></SubscriptionDelRq>"))
      << rq;
  ASSERT_EQ(menus->Count(), 1);
  EXPECT_EQ(menus->Item(Variant(1))->AppName, "Second");
}

// ---- Data event subscriptions ----

TEST_F(SubscriptionLink, DataEventCollectionOfTheConnectionIsTheNullHandle) {
  EXPECT_EQ(qb_.connection().DataEventSubscriptions(), nullptr);
}

TEST_F(SubscriptionLink, DataEventAddOnAnApplicationsInstanceRaisesMasterOnly) {
  DataEventSubcriptions subs;
  auto e = Raised([&] { subs.Add("Acme Export", "Acme.Events"); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kMasterOnly);
  EXPECT_EQ(e->Source(), "DataEventSubscription");
  EXPECT_EQ(subs.Count(), 0);
  EXPECT_EQ(subs.Delete(), 0);
  EXPECT_TRUE(qb_.processor().Requests().empty());
}

TEST_F(SubscriptionLink, DataEventSubscriptionBodyIsValidAndNeverPassesValidation) {
  DataEventSubcription sub;
  sub.SubscriberId = kGuid;
  sub.AppName = "Acme Export";
  sub.CLSID = "{11111111-2222-3333-4444-555555555555}";
  sub.ProgId = "Acme.Events";
  sub.TrackLostEvents = true;
  sub.EventDescriptors->Add(qoObjectTypeCustomer, true, true, false, false);
  xmlBldr b;
  b.NewClearSubscriptions();
  b.OpenAggregateOnly("DataEventSubscriptionAddRq");
  b.OpenAggregateOnly("DataEventSubscriptionAdd");
  sub.XMLInsert(b);
  b.EndAggregate("DataEventSubscriptionAdd");
  b.EndAggregate("DataEventSubscriptionAddRq");
  b.EndAggregate("QBXMLSubscriptionMsgsRq");
  b.EndAggregate("QBXML");
  const std::string rq = b.GetXML().ToString();
  EXPECT_TRUE(IsValidQbxml(rq)) << rq;
  EXPECT_FALSE(Contains(rq, "CLSID")) << rq;
  EXPECT_FALSE(Contains(rq, "TrackLostEvents")) << rq;
  EXPECT_FALSE(sub.Validate());
  auto e = Raised([&] { sub.XMLModify(b); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kInternal);
  EXPECT_EQ(e->Source(), "Tessaron: DataEventSubscription");
}

TEST(SubscriptionCollections, UiCollectionsNeedNoSessionAndAreMadeOnce) {
  ScriptedSession qb("");
  auto ui = qb.connection().UISubscriptions();
  ASSERT_NE(ui, nullptr);
  EXPECT_EQ(qb.connection().UISubscriptions(), ui);
  EXPECT_NE(qb.connection().UIExtensionSubscriptions(), nullptr);
  EXPECT_EQ(ui->Add("Acme", "Acme.Events")->SubscriberId, "");
}

}  // namespace
}  // namespace tessaron
