#include "qbsim/subscription_store.h"

#include <sstream>
#include <string_view>

#include "qbsim/values.h"

namespace tessaron::qbsim {

namespace {

struct KindOfRequest {
  const char* request;  // the ...Rq element
  const char* kind;     // the SubscriptionType of the kind
  const char* add;      // the add aggregate inside the request; null for a query
  const char* ret;      // the record element of the response
};

constexpr KindOfRequest kRequests[] = {
    {"DataEventSubscriptionAddRq", "Data", "DataEventSubscriptionAdd", "DataEventSubscriptionRet"},
    {"DataEventSubscriptionQueryRq", "Data", nullptr, "DataEventSubscriptionRet"},
    {"UIEventSubscriptionAddRq", "UI", "UIEventSubscriptionAdd", "UIEventSubscriptionRet"},
    {"UIEventSubscriptionQueryRq", "UI", nullptr, "UIEventSubscriptionRet"},
    {"UIExtensionSubscriptionAddRq", "UIExtension", "UIExtensionSubscriptionAdd", "UIExtensionSubscriptionRet"},
    {"UIExtensionSubscriptionQueryRq", "UIExtension", nullptr, "UIExtensionSubscriptionRet"},
};

std::string Upper(std::string_view s) {
  std::string out(s);
  for (char& c : out)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return out;
}

std::string Raw(const pugi::xml_node& node) {
  std::ostringstream out;
  node.print(out, "", pugi::format_raw);
  return out.str();
}

// The record as QuickBooks keeps it: the add's elements with the time it was made after
// the subscriber, and a data subscription's TrackLostEvents (None unless asked for).
std::string RetBody(const pugi::xml_node& add, std::string_view kind) {
  std::string body;
  const bool data = kind == "Data";
  const bool tracksLost = static_cast<bool>(add.child("TrackLostEvents"));
  for (pugi::xml_node part = add.first_child(); part; part = part.next_sibling()) {
    if (part.type() != pugi::node_element) continue;
    body += Raw(part);
    const std::string_view name = part.name();
    if (name == "SubscriberID") body += "<TimeCreated>" + TimestampNow() + "</TimeCreated>";
    if (data && name == "DeliveryPolicy" && !tracksLost) body += "<TrackLostEvents>None</TrackLostEvents>";
  }
  return body;
}

// What a subscription asks to be told of: every record type of a ListEventSubscription or
// TxnEventSubscription with every operation of the same element, and the operations of a
// CompanyFileEventSubscription.
void ReadTracked(const pugi::xml_node& add, std::set<std::pair<std::string, std::string>>& tracked,
                 std::set<std::string>& fileOperations) {
  struct Part {
    const char* element;
    const char* type;
    const char* operation;
  };
  for (const Part& part : {Part{"ListEventSubscription", "ListEventType", "ListEventOperation"},
                           Part{"TxnEventSubscription", "TxnEventType", "TxnEventOperation"}})
    for (pugi::xml_node sub : add.children(part.element))
      for (pugi::xml_node type : sub.children(part.type))
        for (pugi::xml_node op : sub.children(part.operation))
          tracked.emplace(type.text().as_string(), op.text().as_string());
  for (pugi::xml_node op : add.child("CompanyFileEventSubscription").children("CompanyFileEventOperation"))
    fileOperations.insert(op.text().as_string());
}

Status Missing(const char* element) {
  return {status::kMissingElement, std::string("There is a missing element: \"") + element + "\"."};
}

}  // namespace

Status SubscriptionStore::Answer(const pugi::xml_node& request, XmlOut& body) {
  const std::string_view name = request.name();
  std::lock_guard lock(mutex_);
  if (name == "SubscriptionDelRq") {
    const std::string subscriber = request.child("SubscriberID").text().as_string();
    const std::string kind = request.child("SubscriptionType").text().as_string();
    if (subscriptions_.erase({kind, Upper(subscriber)}) == 0) return status::ObjectNotFound(subscriber);
    return status::Ok();
  }
  for (const KindOfRequest& k : kRequests) {
    if (name != k.request) continue;
    const pugi::xml_node source = k.add ? request.child(k.add) : request;
    const pugi::xml_node id = source.child("SubscriberID");
    if (!id) return Missing("SubscriberID");
    const auto key = std::make_pair(std::string(k.kind), Upper(id.text().as_string()));
    auto found = subscriptions_.find(key);
    if (k.add) {
      if (found != subscriptions_.end())
        return {status::kNameInUse, std::string("A subscription of type ") + k.kind + " for the subscriber \"" +
                                        id.text().as_string() + "\" already exists."};
      Entry entry{RetBody(source, k.kind), id.text().as_string(), {}, {}};
      ReadTracked(source, entry.tracked, entry.fileOperations);
      found = subscriptions_.emplace(key, std::move(entry)).first;
    } else if (found == subscriptions_.end()) {
      return status::NoMatch();
    }
    body.Open(k.ret);
    body.Raw(found->second.ret);
    body.Close(k.ret);
    return status::Ok();
  }
  return status::NotSupported(std::string(name));
}

size_t SubscriptionStore::Count() const {
  std::lock_guard lock(mutex_);
  return subscriptions_.size();
}

void SubscriptionStore::Clear() {
  std::lock_guard lock(mutex_);
  subscriptions_.clear();
}

void SubscriptionStore::SetEventHandler(EventHandler handler) {
  std::lock_guard lock(mutex_);
  handler_ = std::move(handler);
}

bool SubscriptionStore::WantsDataEvents() const {
  std::lock_guard lock(mutex_);
  if (!handler_) return false;
  for (const auto& [key, entry] : subscriptions_)
    if (!entry.tracked.empty()) return true;
  return false;
}

void SubscriptionStore::DeliverDataEvents(const EventHost& host, const std::vector<DataChange>& changes) {
  std::vector<std::pair<std::string, std::string>> events;
  {
    std::lock_guard lock(mutex_);
    if (!handler_) return;
    for (const DataChange& change : changes)
      for (const auto& [key, entry] : subscriptions_)
        if (key.first == "Data" && entry.tracked.count({change.type, change.operation}))
          events.emplace_back(entry.subscriberId, DataEventXml(host, change));
  }
  Deliver(events);
}

void SubscriptionStore::DeliverCompanyFileEvent(const EventHost& host, bool opened) {
  std::vector<std::pair<std::string, std::string>> events;
  {
    std::lock_guard lock(mutex_);
    if (!handler_) return;
    for (const auto& [key, entry] : subscriptions_)
      if (key.first == "UI" && entry.fileOperations.count(opened ? "Open" : "Close"))
        events.emplace_back(entry.subscriberId, CompanyFileEventXml(host, opened));
  }
  Deliver(events);
}

// Outside the lock: a handler may well subscribe or send requests of its own.
void SubscriptionStore::Deliver(const std::vector<std::pair<std::string, std::string>>& events) {
  if (events.empty()) return;
  EventHandler handler;
  {
    std::lock_guard lock(mutex_);
    handler = handler_;
  }
  if (!handler) return;
  for (const auto& [subscriber, xml] : events) handler(subscriber, xml);
}

std::shared_ptr<SubscriptionStore> ProcessSubscriptionStore() {
  static const auto store = std::make_shared<SubscriptionStore>();
  return store;
}

void SetEventHandler(SubscriptionStore::EventHandler handler) { ProcessSubscriptionStore()->SetEventHandler(std::move(handler)); }

}  // namespace tessaron::qbsim
