// The three kinds of event subscription an application can ask QuickBooks for. They live
// in QuickBooks, not in a company file, so they go out in a subscription message set over
// a connection made by QBConnection::ConnectForSubscriptions.
//
//   DataEventSubcription     calls the application back when records change
//   UISubscription           ... when a company file opens or closes
//   UIExtensionSubscription  adds the application's items to a QuickBooks menu
//
// Each is written as the body of its add request and read back from a ...Ret element.
// There is no modify of a subscription: XMLModify raises. A subscription stays New until
// QuickBooks accepts it and reading it back does not change its state, so a second commit
// sends the add again.
#pragma once

#include <memory>
#include <string>

#include "tessaron/events/menu_extension.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/qc_base.h"
#include "tessaron/platform/collection.h"

namespace tessaron {

// What a subscription has in common: how QuickBooks reaches the application, the state
// and the validation record, and the collection key.
class SubscriptionBase : public qcBase {
 public:
  std::string AppName;
  // The class id of the callback object, written only when ProgId is empty.
  std::string CLSID;
  std::string ProgId;

  qoEnumObjectState ObjectState() const { return state_; }
  const std::string& CollectionKey() const { return collectionKey_; }
  void SetCollectionKey(const std::string& key) { collectionKey_ = key; }
  std::shared_ptr<qcErrors> Errors() const { return errors_; }
  virtual bool Validate() = 0;

  int32_t XMLQueryRs(xmlBldr& cxmlbldr) override { return XMLInsert(cxmlbldr); }

 protected:
  // <COMCallbackInfo> with AppName and the ProgID, or the CLSID when there is no ProgID.
  void WriteCallback(xmlBldr& bldr) const;
  // <DeliveryPolicy>DeliverAlways</DeliveryPolicy> or DeliverOnlyIfRunning.
  static void WriteDeliveryPolicy(xmlBldr& bldr, bool always);
  // Reads the parts of a ...Ret element every kind shares; the known elements go to the
  // handler (SubscriberID, COMCallbackInfo, DeliveryPolicy, CompanyFileEventSubscription),
  // anything else is noted under `tag` and skipped.
  template <class Handler>
  void ReadRet(const XmlNode& obj, const char* tag, Handler&& handle);
  void ReadCallback(const XmlNode& info);

 private:
  qoEnumObjectState state_ = qoObjectStateNew;
  std::string collectionKey_;
  std::shared_ptr<qcErrors> errors_ = std::make_shared<qcErrors>();
};

// One kind of record whose changes a data event subscription tracks.
struct dataEventDescriptor {
  qoEnumListObjectType ObjectType = static_cast<qoEnumListObjectType>(0);
  bool TrackAdd = false;
  bool TrackModify = false;
  bool TrackDelete = false;
  bool TrackMerge = false;
};

class dataEventDescriptors {
 public:
  qoEnumObjectState ObjectState() const { return qoObjectStateNew; }
  void Clear();
  std::shared_ptr<dataEventDescriptor> Add(qoEnumListObjectType ObjectType, bool TrackAdd, bool TrackModify,
                                           bool TrackDelete, bool TrackMerge);
  std::shared_ptr<dataEventDescriptor> Item(const Variant& vntIndexKey) { return col_.Item(vntIndexKey); }
  long Count() const { return col_.Count(); }
  void Remove(const Variant& vntIndexKey);

 private:
  // Changes are allowed only while the list is New (0x800403EA otherwise).
  void Guard() const;
  Collection<std::shared_ptr<dataEventDescriptor>> col_;
};

class DataEventSubcription : public SubscriptionBase {
 public:
  std::string SubscriberId;
  bool DeliveryAlways = false;
  // Held for the application; the add request does not carry them.
  bool TrackLostEvents = false;
  std::shared_ptr<dataEventDescriptors> EventDescriptors = std::make_shared<dataEventDescriptors>();

  // Always false: a data event subscription never passes a commit's validation.
  bool Validate() override { return false; }

  int32_t XMLInsert(xmlBldr& cxmlbldr) override;
  int32_t XMLModify(xmlBldr& cxmlbldr) override;
  qoEnumListObjectType ObjectType() const override { return static_cast<qoEnumListObjectType>(0); }
  Variant FromDom(const XmlNode& obj) override;
};

class UISubscription : public SubscriptionBase {
 public:
  std::string SubscriberId;
  bool DeliveryAlways = false;
  bool CompanyFileOpenEvent = false;
  bool CompanyFileCloseEvent = false;

  bool Validate() override { return true; }

  int32_t XMLInsert(xmlBldr& cxmlbldr) override;
  int32_t XMLModify(xmlBldr& cxmlbldr) override;
  qoEnumListObjectType ObjectType() const override { return qoObjectTypeUIEventSubscription; }
  Variant FromDom(const XmlNode& obj) override;
};

class UIExtensionSubscription : public SubscriptionBase {
 public:
  qbMnuNames AddToMenu = qbMnuFile;
  // The conditions of the submenu, written only when there are two items or more.
  std::shared_ptr<mnuDisplayCondition> DisplayConditions();
  std::shared_ptr<mnuItems> MenuItems();
  // The registered event GUID of the library (QBConnection::RegisterEventGUID).
  std::string SubscriberId() const;

  bool Validate() override { return true; }

  // One item goes out as a MenuItem; two or more inside a Submenu headed by the
  // subscription's own DisplayConditions. No item raises subscript out of range (9).
  int32_t XMLInsert(xmlBldr& cxmlbldr) override;
  int32_t XMLModify(xmlBldr& cxmlbldr) override;
  qoEnumListObjectType ObjectType() const override { return qoObjectTypeUIExtensionSubscription; }
  // Reads the callback; the menu of the response is not stored.
  Variant FromDom(const XmlNode& obj) override;

 private:
  std::shared_ptr<mnuDisplayCondition> conditions_;
  std::shared_ptr<mnuItems> items_;
};

}  // namespace tessaron
