#include "tessaron/events/subscription.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/text.h"

namespace tessaron {

// ---- SubscriptionBase ----------------------------------------------------------------

void SubscriptionBase::WriteCallback(xmlBldr& bldr) const {
  bldr.OpenAggregateOnly("COMCallbackInfo");
  bldr.CreateElement("AppName", AppName);
  if (ProgId.empty()) bldr.CreateElement("CLSID", CLSID);
  else bldr.CreateElement("ProgID", ProgId);
  bldr.EndAggregate("COMCallbackInfo");
}

void SubscriptionBase::WriteDeliveryPolicy(xmlBldr& bldr, bool always) {
  bldr.CreateElement("DeliveryPolicy", always ? "DeliverAlways" : "DeliverOnlyIfRunning");
}

void SubscriptionBase::ReadCallback(const XmlNode& info) {
  for (const XmlNode& part : info.childNodes()) {
    const std::string_view name = part.baseName();
    if (name == "AppName") AppName = part.text();
    else if (name == "ProgID") ProgId = part.text();
    else if (name == "CLSID") CLSID = part.text();
  }
}

template <class Handler>
void SubscriptionBase::ReadRet(const XmlNode& obj, const char* tag, Handler&& handle) {
  for (const XmlNode& child : obj.childNodes()) {
    const std::string_view name = child.baseName();
    if (name == "SubscriberID" || name == "COMCallbackInfo" || name == "DeliveryPolicy" ||
        name == "CompanyFileEventSubscription")
      handle(name, child);
    else
      NoteUnknownElement(name, tag);
  }
}

namespace {

bool DeliversAlways(const XmlNode& policy) { return policy.text() == "DeliverAlways"; }

}  // namespace

// ---- dataEventDescriptors ------------------------------------------------------------

void dataEventDescriptors::Guard() const {
  // The source keeps the name of the list these descriptors were modelled on.
  if (ObjectState() != qoObjectStateNew) RaiseError(err::kFieldCannotBeModified, "dataExtAssingedTos");
}

void dataEventDescriptors::Clear() {
  Guard();
  col_.Clear();
}

std::shared_ptr<dataEventDescriptor> dataEventDescriptors::Add(qoEnumListObjectType ObjectType, bool TrackAdd,
                                                               bool TrackModify, bool TrackDelete, bool TrackMerge) {
  Guard();
  auto d = std::make_shared<dataEventDescriptor>(
      dataEventDescriptor{ObjectType, TrackAdd, TrackModify, TrackDelete, TrackMerge});
  col_.Add(d);
  return d;
}

void dataEventDescriptors::Remove(const Variant& vntIndexKey) {
  Guard();
  col_.Remove(vntIndexKey);
}

// ---- DataEventSubcription ------------------------------------------------------------

int32_t DataEventSubcription::XMLInsert(xmlBldr& b) {
  b.CreateElement("SubscriberID", SubscriberId);
  WriteCallback(b);
  WriteDeliveryPolicy(b, DeliveryAlways);
  return 0;
}

int32_t DataEventSubcription::XMLModify(xmlBldr&) { RaiseInternal("DataEventSubscription", "XMLModify not supported"); }

Variant DataEventSubcription::FromDom(const XmlNode& obj) {
  ReadRet(obj, "DataEventSubscription", [&](std::string_view name, const XmlNode& child) {
    if (name == "SubscriberID") SubscriberId = child.text();
    else if (name == "COMCallbackInfo") ReadCallback(child);
    else if (name == "DeliveryPolicy") DeliveryAlways = DeliversAlways(child);
  });
  return Variant();
}

// ---- UISubscription ------------------------------------------------------------------

int32_t UISubscription::XMLInsert(xmlBldr& b) {
  b.CreateElement("SubscriberID", SubscriberId);
  WriteCallback(b);
  WriteDeliveryPolicy(b, DeliveryAlways);
  b.OpenAggregateOnly("CompanyFileEventSubscription");
  if (CompanyFileCloseEvent) b.CreateElement("CompanyFileEventOperation", "Close");
  if (CompanyFileOpenEvent) b.CreateElement("CompanyFileEventOperation", "Open");
  b.EndAggregate("CompanyFileEventSubscription");
  return 0;
}

int32_t UISubscription::XMLModify(xmlBldr&) { RaiseInternal("UIEventSubscription", "XMLModify not supported"); }

Variant UISubscription::FromDom(const XmlNode& obj) {
  ReadRet(obj, "UIEventSubscription", [&](std::string_view name, const XmlNode& child) {
    if (name == "SubscriberID") {
      SubscriberId = child.text();
    } else if (name == "COMCallbackInfo") {
      ReadCallback(child);
    } else if (name == "DeliveryPolicy") {
      DeliveryAlways = DeliversAlways(child);
    } else {
      CompanyFileOpenEvent = CompanyFileCloseEvent = false;
      for (const XmlNode& op : child.childNodes()) {
        if (EqualsIgnoreCase(op.text(), "Open")) CompanyFileOpenEvent = true;
        else if (EqualsIgnoreCase(op.text(), "Close")) CompanyFileCloseEvent = true;
      }
    }
  });
  return Variant();
}

// ---- UIExtensionSubscription ---------------------------------------------------------

std::shared_ptr<mnuDisplayCondition> UIExtensionSubscription::DisplayConditions() {
  if (!conditions_) conditions_ = std::make_shared<mnuDisplayCondition>();
  return conditions_;
}

std::shared_ptr<mnuItems> UIExtensionSubscription::MenuItems() {
  if (!items_) items_ = std::make_shared<mnuItems>();
  return items_;
}

std::string UIExtensionSubscription::SubscriberId() const { return State().EventGUID; }

int32_t UIExtensionSubscription::XMLInsert(xmlBldr& b) {
  b.CreateElement("SubscriberID", SubscriberId());
  WriteCallback(b);
  b.OpenAggregateOnly("MenuExtensionSubscription");
  b.CreateElement("AddToMenu", EnumCodeToXML(AddToMenu, qoeMenuNames));
  if (MenuItems()->Count() < 2) {
    MenuItems()->Item(Variant(1))->ToXML(b);
  } else {
    b.OpenAggregateOnly("Submenu");
    DisplayConditions()->ToXML(b);
    MenuItems()->ToXML(b);
    b.EndAggregate("Submenu");
  }
  b.EndAggregate("MenuExtensionSubscription");
  return 0;
}

int32_t UIExtensionSubscription::XMLModify(xmlBldr&) {
  RaiseInternal("UIExtensionSubscription", "XMLModify not supported");
}

Variant UIExtensionSubscription::FromDom(const XmlNode& obj) {
  ReadRet(obj, "UIExtensionSubscription", [&](std::string_view name, const XmlNode& child) {
    if (name == "COMCallbackInfo") ReadCallback(child);
  });
  return Variant();
}

}  // namespace tessaron
