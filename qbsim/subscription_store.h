// The event subscriptions of one QuickBooks installation. They belong to the host, not to
// a company file: an application subscribes without opening a file, and its subscription
// holds for every file the host opens. Processors share a store when their options name
// the same one; processors given none share the store of the process.
//
// One subscription per subscriber and kind (Data, UI, UIExtension): a second add of the
// same kind is refused with 3100, a query answers the subscriber's one subscription of the
// kind, and SubscriptionDelRq removes it (3120 when there is none).
//
// The store also delivers: a data subscription receives the event of every change its
// ListEventSubscription and TxnEventSubscription name, a UI subscription the opening and
// closing of company files it names. QuickBooks calls the subscriber's COM object; here
// the application registers one handler per host, called with the subscriber's id and the
// event's text after the request that made the change has been answered.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "qbsim/event_delivery.h"
#include "qbsim/status.h"
#include "qbsim/xml_out.h"

namespace tessaron::qbsim {

class SubscriptionStore {
 public:
  // Carries out one request of a subscription message set, writing the ...Ret into body.
  Status Answer(const pugi::xml_node& request, XmlOut& body);
  // How many subscriptions the host holds.
  size_t Count() const;
  void Clear();

  // Receives every event delivered from now on; an empty handler stops delivery.
  using EventHandler = std::function<void(const std::string& subscriberId, const std::string& eventXml)>;
  void SetEventHandler(EventHandler handler);
  // Whether any data subscription and a handler are there (so changes are worth reading).
  bool WantsDataEvents() const;
  // Calls the handler once for each subscriber that tracks the change, in subscriber order.
  void DeliverDataEvents(const EventHost& host, const std::vector<DataChange>& changes);
  void DeliverCompanyFileEvent(const EventHost& host, bool opened);

 private:
  struct Entry {
    std::string ret;  // the children of the ...Ret element
    std::string subscriberId;
    std::set<std::pair<std::string, std::string>> tracked;  // (record type, operation)
    std::set<std::string> fileOperations;                   // "Open", "Close"
  };
  void Deliver(const std::vector<std::pair<std::string, std::string>>& events);

  // (kind, subscriber in upper case) -> the subscription.
  std::map<std::pair<std::string, std::string>, Entry> subscriptions_;
  EventHandler handler_;
  mutable std::mutex mutex_;
};

// Sets the handler of the process's store (see SubscriptionStore::SetEventHandler).
void SetEventHandler(SubscriptionStore::EventHandler handler);

// The store of the process, for processors whose options name none.
std::shared_ptr<SubscriptionStore> ProcessSubscriptionStore();

}  // namespace tessaron::qbsim
