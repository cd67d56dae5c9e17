// The event subscriptions of one QuickBooks installation. They belong to the host, not to
// a company file: an application subscribes without opening a file, and its subscription
// holds for every file the host opens. Processors share a store when their options name
// the same one; processors given none share the store of the process.
//
// One subscription per subscriber and kind (Data, UI, UIExtension): a second add of the
// same kind is refused with 3100, a query answers the subscriber's one subscription of the
// kind, and SubscriptionDelRq removes it (3120 when there is none).
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include <pugixml.hpp>

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

 private:
  // (kind, subscriber in upper case) -> the children of the ...Ret element.
  std::map<std::pair<std::string, std::string>, std::string> subscriptions_;
  mutable std::mutex mutex_;
};

// The store of the process, for processors whose options name none.
std::shared_ptr<SubscriptionStore> ProcessSubscriptionStore();

}  // namespace tessaron::qbsim
