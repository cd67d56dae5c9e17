// The host's event subscriptions: added, queried and deleted in subscription message sets,
// without any company file, and shared by the processors of one host.
#include <gtest/gtest.h>

#include "qbsim/subscription_store.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

const std::string kGuid = "{8A0E3A5D-1C0B-4E7A-9D47-3E1F2A9B7C10}";

std::string Set(const std::string& requests) {
  return Prologue("8.0") + "<QBXML><QBXMLSubscriptionMsgsRq>" + requests + "</QBXMLSubscriptionMsgsRq></QBXML>";
}

const std::string kCallback = "<COMCallbackInfo><AppName>Acme</AppName><ProgID>Acme.Events</ProgID></COMCallbackInfo>";

std::string UiAdd(const std::string& guid = kGuid) {
  return "<UIEventSubscriptionAddRq requestID=\"1\"><UIEventSubscriptionAdd><SubscriberID>" + guid +
         "</SubscriberID>" + kCallback +
         "<DeliveryPolicy>DeliverAlways</DeliveryPolicy><CompanyFileEventSubscription>"
         "<CompanyFileEventOperation>Open</CompanyFileEventOperation></CompanyFileEventSubscription>"
         "</UIEventSubscriptionAdd></UIEventSubscriptionAddRq>";
}

std::string Query(const std::string& kind, const std::string& guid = kGuid) {
  return "<" + kind + "SubscriptionQueryRq requestID=\"2\"><SubscriberID>" + guid + "</SubscriberID></" + kind +
         "SubscriptionQueryRq>";
}

std::string Delete(const std::string& type, const std::string& guid = kGuid) {
  return "<SubscriptionDelRq requestID=\"3\"><SubscriberID>" + guid + "</SubscriberID><SubscriptionType>" + type +
         "</SubscriptionType></SubscriptionDelRq>";
}

class SubscriptionStoreTest : public QbsimTest {
 protected:
  SubscriptionStoreTest() {
    options_ = StrictOptions();
    options_.subscriptions = store_;
  }
  Response Subscribe(const std::string& requests) {
    auto p = CreateProcessor(options_);
    p->OpenConnection("", "Acme");
    const std::string rq = Set(requests);
    EXPECT_TRUE(tessaron::testing::IsValidQbxml(rq)) << rq;
    std::string text = p->ProcessSubscription(rq);
    EXPECT_TRUE(tessaron::testing::IsValidQbxml(text)) << text;
    return Response(text);
  }
  std::shared_ptr<SubscriptionStore> store_ = std::make_shared<SubscriptionStore>();
  ProcessorOptions options_;
};

TEST_F(SubscriptionStoreTest, AddAnswersTheRecordWithItsTimeAndAQueryFindsIt) {
  Response added = Subscribe(UiAdd());
  ASSERT_EQ(added.Status(), 0) << added.Text();
  EXPECT_EQ(added.Value("UIEventSubscriptionRet/SubscriberID"), kGuid);
  EXPECT_FALSE(added.Value("UIEventSubscriptionRet/TimeCreated").empty());
  // Another processor of the same host sees it: subscriptions are not a processor's.
  Response found = Subscribe(Query("UIEvent"));
  ASSERT_EQ(found.Status(), 0) << found.Text();
  EXPECT_EQ(found.Value("UIEventSubscriptionRet/COMCallbackInfo/ProgID"), "Acme.Events");
  EXPECT_EQ(found.Value("UIEventSubscriptionRet/CompanyFileEventSubscription/CompanyFileEventOperation"), "Open");
}

TEST_F(SubscriptionStoreTest, SecondAddOfTheSameKindIsRefusedWith3100) {
  ASSERT_EQ(Subscribe(UiAdd()).Status(), 0);
  Response again = Subscribe(UiAdd());
  EXPECT_EQ(again.Status(), status::kNameInUse);
  EXPECT_EQ(store_->Count(), 1u);
}

TEST_F(SubscriptionStoreTest, KindsAndSubscribersAreKeptApart) {
  ASSERT_EQ(Subscribe(UiAdd()).Status(), 0);
  EXPECT_EQ(Subscribe(Query("UIExtension")).Status(), status::kNoMatch);
  EXPECT_EQ(Subscribe(Query("UIEvent", "{00000000-0000-0000-0000-000000000001}")).Status(), status::kNoMatch);
  // The identifier is a GUID: its letter case does not make another subscriber.
  EXPECT_EQ(Subscribe(Query("UIEvent", "{8a0e3a5d-1c0b-4e7a-9d47-3e1f2a9b7c10}")).Status(), 0);
}

TEST_F(SubscriptionStoreTest, DataSubscriptionRecordCarriesTrackLostEvents) {
  Response added = Subscribe("<DataEventSubscriptionAddRq><DataEventSubscriptionAdd><SubscriberID>" + kGuid +
                             "</SubscriberID>" + kCallback +
                             "<DeliveryPolicy>DeliverOnlyIfRunning</DeliveryPolicy><ListEventSubscription>"
                             "<ListEventType>Customer</ListEventType><ListEventOperation>Add</ListEventOperation>"
                             "</ListEventSubscription></DataEventSubscriptionAdd></DataEventSubscriptionAddRq>");
  ASSERT_EQ(added.Status(), 0) << added.Text();
  EXPECT_EQ(added.Value("DataEventSubscriptionRet/TrackLostEvents"), "None");
  EXPECT_EQ(added.Value("DataEventSubscriptionRet/ListEventSubscription/ListEventType"), "Customer");
}

TEST_F(SubscriptionStoreTest, DeleteRemovesOnlyTheNamedKind) {
  ASSERT_EQ(Subscribe(UiAdd()).Status(), 0);
  EXPECT_EQ(Subscribe(Delete("UIExtension")).Status(), status::kObjectNotFound);
  EXPECT_EQ(Subscribe(Delete("UI")).Status(), 0);
  EXPECT_EQ(Subscribe(Query("UIEvent")).Status(), status::kNoMatch);
  EXPECT_EQ(store_->Count(), 0u);
}

}  // namespace
}  // namespace tessaron::qbsim::testing
