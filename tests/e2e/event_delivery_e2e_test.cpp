// Events delivered by the embedded processor to a subscribed application: the library
// changes customers and invoices, the processor calls the host's handler with the text
// QuickBooks would send, and qbEvent reads it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <pugixml.hpp>

#include "qbsim/qbsim.h"
#include "tessaron/company/company.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/events/qb_event.h"
#include "tessaron/lists/customer.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/vendors.h"
#include "tessaron/transactions/invoice.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/e2e/e2e_session.h"

namespace tessaron::testing {
namespace {

const std::string kGuid = "{5D1C0B2A-7E6F-4A3B-9C8D-1E2F3A4B5C6D}";

struct Delivered {
  std::string subscriber;
  std::string xml;
  // What the event names, read from its text.
  std::string Field(const char* path) const {
    pugi::xml_document doc;
    doc.load_string(xml.c_str());
    return doc.first_element_by_path(path).text().as_string();
  }
};

class EventDelivery : public EditionTest {
 protected:
  void SetUp() override {
    qbsim::SetEventHandler([this](const std::string& subscriber, const std::string& xml) {
      events.push_back({subscriber, xml});
    });
    Subscribe(
        "<DataEventSubscriptionAddRq><DataEventSubscriptionAdd><SubscriberID>" + kGuid + "</SubscriberID>" + kCallback +
        "<DeliveryPolicy>DeliverAlways</DeliveryPolicy>"
        "<ListEventSubscription><ListEventType>Customer</ListEventType><ListEventOperation>Add</ListEventOperation>"
        "<ListEventOperation>Modify</ListEventOperation><ListEventOperation>Delete</ListEventOperation>"
        "</ListEventSubscription>"
        "<TxnEventSubscription><TxnEventType>Invoice</TxnEventType><TxnEventOperation>Add</TxnEventOperation>"
        "<TxnEventOperation>Modify</TxnEventOperation><TxnEventOperation>Delete</TxnEventOperation>"
        "</TxnEventSubscription></DataEventSubscriptionAdd></DataEventSubscriptionAddRq>"
        "<UIEventSubscriptionAddRq><UIEventSubscriptionAdd><SubscriberID>" + kGuid + "</SubscriberID>" + kCallback +
        "<DeliveryPolicy>DeliverAlways</DeliveryPolicy><CompanyFileEventSubscription>"
        "<CompanyFileEventOperation>Open</CompanyFileEventOperation>"
        "<CompanyFileEventOperation>Close</CompanyFileEventOperation>"
        "</CompanyFileEventSubscription></UIEventSubscriptionAdd></UIEventSubscriptionAddRq>");
    EditionTest::SetUp();  // opens the company file
  }
  void TearDown() override {
    EditionTest::TearDown();
    qbsim::SetEventHandler(nullptr);
    qbsim::ProcessSubscriptionStore()->Clear();
  }

  void Subscribe(const std::string& requests) {
    auto p = qbsim::CreateProcessor();
    p->OpenConnection("", "Acme events");
    const std::string rq = "<?xml version=\"1.0\"?><?qbxml version=\"8.0\"?><QBXML><QBXMLSubscriptionMsgsRq>" +
                           requests + "</QBXMLSubscriptionMsgsRq></QBXML>";
    ASSERT_TRUE(IsValidQbxml(rq)) << rq;
    const std::string rs = p->ProcessSubscription(rq);
    ASSERT_EQ(rs.find("statusSeverity=\"Error\""), std::string::npos) << rs;
  }

  static inline const std::string kCallback =
      "<COMCallbackInfo><AppName>Acme</AppName><ProgID>Acme.Events</ProgID></COMCallbackInfo>";
  std::vector<Delivered> events;
};

TEST_P(EventDelivery, CompanyFileOpenAndCloseReachUiSubscribers) {
  ASSERT_EQ(events.size(), 1u);
  qbEvent opened;
  opened.ParseXML(events[0].xml);
  EXPECT_EQ(opened.EventType, qbEventUI);
  EXPECT_TRUE(opened.CompanyfileOpened);
  EXPECT_EQ(opened.CompanyPath, Path());
  EXPECT_EQ(events[0].subscriber, kGuid);
  TessaronGlobals::QBConnection()->CloseConnection();
  ASSERT_EQ(events.size(), 2u);
  qbEvent closed;
  closed.ParseXML(events[1].xml);
  EXPECT_EQ(closed.EventType, qbEventUI);
  EXPECT_FALSE(closed.CompanyfileOpened);
}

TEST_P(EventDelivery, CustomerAddModifyAndDeleteEachSendOneDataEvent) {
  events.clear();
  auto customers = TessaronGlobals::Customers();
  auto c = customers->Add("Event Harbour Traders");
  ASSERT_EQ(customers->Commit(), 0);
  c->SetPhone("555-0199");
  ASSERT_EQ(customers->Commit(), 0);
  ASSERT_EQ(customers->Delete(c->ListID()), 0);

  ASSERT_EQ(events.size(), 3u) << (events.empty() ? "" : events[0].xml);
  const char* operations[] = {"Add", "Modify", "Delete"};
  for (size_t i = 0; i < 3; ++i) {
    SCOPED_TRACE(operations[i]);
    qbEvent e;
    e.ParseXML(events[i].xml);
    EXPECT_EQ(e.EventType, qbEventData);
    EXPECT_EQ(e.CompanyPath, Path());
    EXPECT_EQ(events[i].Field("QBXML/QBXMLEvents/DataEvent/ListEvent/ListEventType"), "Customer");
    EXPECT_EQ(events[i].Field("QBXML/QBXMLEvents/DataEvent/ListEvent/ListEventOperation"), operations[i]);
    EXPECT_EQ(events[i].Field("QBXML/QBXMLEvents/DataEvent/ListEvent/ListID"), c->ListID());
  }
}

TEST_P(EventDelivery, InvoiceEventsCarryTheTxnIdAndNumberAndVoidIsAModify) {
  events.clear();
  auto invoices = TessaronGlobals::Invoices();
  auto inv = invoices->Add("", "EV-1");
  Customers any;
  ASSERT_GT(any.GetAll(), 0);
  inv->SetCustomer(any.Item(Variant(1))->FullName());
  inv->ItemLines()->Add("Labor", Currency(2));
  ASSERT_EQ(invoices->Commit(inv), 0);
  const std::string id = inv->TxnId();
  ASSERT_EQ(invoices->Void(id, false), 0);
  ASSERT_EQ(invoices->Delete(id), 0);

  ASSERT_EQ(events.size(), 3u) << (events.empty() ? "" : events[0].xml);
  const char* operations[] = {"Add", "Modify", "Delete"};
  for (size_t i = 0; i < 3; ++i) {
    SCOPED_TRACE(operations[i]);
    EXPECT_EQ(events[i].Field("QBXML/QBXMLEvents/DataEvent/TxnEvent/TxnEventType"), "Invoice");
    EXPECT_EQ(events[i].Field("QBXML/QBXMLEvents/DataEvent/TxnEvent/TxnEventOperation"), operations[i]);
    EXPECT_EQ(events[i].Field("QBXML/QBXMLEvents/DataEvent/TxnEvent/TxnID"), id);
  }
  EXPECT_EQ(events[0].Field("QBXML/QBXMLEvents/DataEvent/TxnEvent/RefNumber"), "EV-1");
}

TEST_P(EventDelivery, ChangesNobodyTracksAndRefusedRequestsSendNothing) {
  events.clear();
  auto vendors = TessaronGlobals::Vendors();
  vendors->Add("Untracked Supplies");
  ASSERT_EQ(vendors->Commit(), 0);
  Customers existing;
  ASSERT_GT(existing.GetAll(), 0);
  auto customers = TessaronGlobals::Customers();
  auto taken = customers->Add(existing.Item(Variant(1))->Name());  // the name is taken: refused
  try {
    customers->Commit();
  } catch (const Error&) {
  }
  EXPECT_TRUE(taken->ListID().empty());
  EXPECT_TRUE(events.empty()) << events.front().xml;
}

TEST_P(EventDelivery, ACustomFieldSetOnACustomerIsAModifyOfTheCustomer) {
  auto company = TessaronGlobals::Company();
  auto tier = company->CustomFields()->Add("Tier", qbDataExtTypeSTR255TYPE);
  tier->AssignedTos().Add(qoObjectTypeCustomer);
  ASSERT_EQ(company->CustomFields()->Commit(), 0);
  auto customers = TessaronGlobals::Customers();
  customers->SetIncludeDataExtensions(true);
  ASSERT_GT(customers->GetAll(), 0);
  auto first = customers->Item(Variant(1));
  events.clear();
  first->CustomFields()->Item(Variant("Tier"))->SetValue(Variant("Gold"));
  ASSERT_EQ(customers->Commit(), 0);
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].Field("QBXML/QBXMLEvents/DataEvent/ListEvent/ListEventOperation"), "Modify");
  EXPECT_EQ(events[0].Field("QBXML/QBXMLEvents/DataEvent/ListEvent/ListID"), first->ListID());
}

INSTANTIATE_TEST_SUITE_P(US, EventDelivery, ::testing::Values(qbsim::Edition::US), EditionName);

}  // namespace
}  // namespace tessaron::testing
