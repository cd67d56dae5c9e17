// Subscriptions made, listed and removed by the library against the embedded processor in
// strict mode, over a subscription link with no company file open. Every subscription
// message and its answer is checked against the qbXML schema.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "qbsim/qbsim.h"
#include "qbsim/subscription_store.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/qb_connection.h"
#include "tessaron/events/subscriptions.h"
#include "tessaron/platform/request_processor.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/recording_processor.h"

namespace tessaron::testing {
namespace {

const std::string kGuid = "{3C2B1A09-8F7E-4D6C-B5A4-938271605F4E}";

// Keeps the subscription messages too.
class SubscriptionRecorder : public RecordingProcessor {
 public:
  using RecordingProcessor::RecordingProcessor;
  std::string ProcessSubscription(const std::string& rq) override {
    std::string rs = RecordingProcessor::ProcessSubscription(rq);
    messages.push_back(rq);
    messages.push_back(rs);
    return rs;
  }
};

class SubscriptionsE2E : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetLibraryStateForTesting();
    qbsim::ProcessorOptions options;
    options.strict = true;
    options.subscriptions = store_;
    recorder_ = std::make_shared<SubscriptionRecorder>(qbsim::CreateProcessor(options));
    for (const char* id : {kRequestProcessor1, kRequestProcessor2})
      RegisterRequestProcessor(id, [r = recorder_] { return r; });
    connection_ = std::make_unique<QBConnection>();
    connection_->ConnectForSubscriptions("", "Tessaron subscription tests");
    connection_->RegisterEventGUID(kGuid);
  }
  void TearDown() override {
    connection_->CloseConnection();
    for (const char* id : {kRequestProcessor1, kRequestProcessor2}) UnregisterRequestProcessor(id);
    for (const std::string& m : recorder_->messages) EXPECT_TRUE(IsValidQbxml(m)) << m;
    ResetLibraryStateForTesting();
  }

  std::shared_ptr<qbsim::SubscriptionStore> store_ = std::make_shared<qbsim::SubscriptionStore>();
  std::shared_ptr<SubscriptionRecorder> recorder_;
  std::unique_ptr<QBConnection> connection_;
};

TEST_F(SubscriptionsE2E, MenuExtensionIsCommittedListedAndDeleted) {
  auto menus = connection_->UIExtensionSubscriptions();
  auto sub = menus->Add("Acme Export", qbMnuCustomers, "Acme.Menu");
  sub->DisplayConditions()->VisibleIfs()->Add(qbMnuHasCustomers);
  for (const char* text : {"Export customers", "Export invoices"}) {
    auto item = sub->MenuItems()->Add();
    item->Text = text;
    item->EventTag = text;
  }
  EXPECT_EQ(menus->Commit(sub), 1);
  EXPECT_EQ(menus->Errors()->Count(), 0);
  EXPECT_EQ(store_->Count(), 1u);

  EXPECT_EQ(menus->GetAll(), 1);
  EXPECT_EQ(menus->Item(Variant(1))->AppName, "Acme Export");
  EXPECT_EQ(menus->Item(Variant(1))->ProgId, "Acme.Menu");

  menus->Delete(Variant(1));
  EXPECT_EQ(menus->Count(), 0);
  EXPECT_EQ(store_->Count(), 0u);
  EXPECT_EQ(menus->GetAll(), 0);
}

TEST_F(SubscriptionsE2E, SecondUiSubscriptionOfTheSubscriberIsRefusedAndRecorded) {
  State().ErrorMode = false;
  auto subs = connection_->UISubscriptions();
  auto first = subs->Add("Acme Export", "Acme.Events");
  first->CompanyFileOpenEvent = true;
  first->CompanyFileCloseEvent = true;
  EXPECT_EQ(subs->Commit(first), 1);
  EXPECT_EQ(subs->Errors()->Count(), 0);
  EXPECT_TRUE(first->CompanyFileOpenEvent);
  EXPECT_TRUE(first->CompanyFileCloseEvent);

  auto second = subs->Add("Acme Export", "Acme.Events");
  second->CompanyFileOpenEvent = true;
  subs->Commit(second);
  ASSERT_EQ(second->Errors()->Count(), 1);
  EXPECT_EQ(second->Errors()->Item(Variant(1))->Description(), "Name specified already exists on file");
  EXPECT_EQ(store_->Count(), 1u);
}

TEST_F(SubscriptionsE2E, SubscriptionsOutliveTheLinkTheyWereMadeOn) {
  auto menus = connection_->UIExtensionSubscriptions();
  auto sub = menus->Add("Acme Export", qbMnuFile, "Acme.Menu");
  sub->MenuItems()->Add()->Text = "Export";
  menus->Commit(sub);
  connection_->CloseConnection();
  connection_ = std::make_unique<QBConnection>();
  connection_->ConnectForSubscriptions("", "Tessaron subscription tests");
  connection_->RegisterEventGUID(kGuid);
  EXPECT_EQ(connection_->UIExtensionSubscriptions()->GetAll(), 1);
}

}  // namespace
}  // namespace tessaron::testing
