// The collections of event subscriptions: what an application has added, listed back from
// QuickBooks by GetAll, and committed as one subscription message set.
//
//   conn.ConnectForSubscriptions("", "Acme Export");
//   conn.RegisterEventGUID("{5F8B3A52-1C2D-4E6F-8A9B-0C1D2E3F4A5B}");
//   auto menus = conn.UIExtensionSubscriptions();
//   auto sub = menus->Add("Acme Export", qbMnuCustomers, "Acme.Export");
//   sub->MenuItems()->Add()->Text = "Export customers";
//   menus->Commit(sub);
//
// Commit writes an add for each New member (its position in the collection as requestID),
// sends once, and reads each response back by that position: success reads the member
// from its ...Ret, a failure is recorded in Errors. With ErrorMode on, a commit with
// errors raises 0x800403FF afterwards.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/events/subscription.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/collection.h"

namespace tessaron {

// What is shared by the three collections; T is the subscription class.
template <class T>
class SubscriptionList {
 public:
  std::shared_ptr<qcErrors> Errors() const { return mErrors_; }
  bool ItemExists(const Variant& vntIndexKey) const;
  std::shared_ptr<T> Item(const Variant& vntIndexKey) { return mCol_.Item(vntIndexKey); }
  long Count() const { return mCol_.Count(); }
  std::vector<std::shared_ptr<T>> NewEnum() const { return mCol_.Values(); }
  void Remove(const Variant& vntIndexKey) { mCol_.Remove(vntIndexKey); }
  void Clear() { mCol_ = Collection<std::shared_ptr<T>>(); }
  // Commit of every member.
  int32_t Commit2() { return Commit(nullptr); }
  virtual int32_t Commit(const std::shared_ptr<T>& Member) = 0;
  // Runs each member's Validate; 0x800403F3 in Errors for each that fails.
  bool Validate();

  // The builder of the last request, for its text and status.
  const xmlBldr& Builder() const { return mBldr_; }

 protected:
  SubscriptionList() = default;
  ~SubscriptionList() = default;
  // A new member with the callback and the registered event GUID as its subscriber.
  std::shared_ptr<T> AddMember(const std::string& AppName, const std::string& ProgId);
  // Sends the query the caller wrote and makes one member per child of the first response.
  int32_t ReadAll(bool subscriptionSet);
  // How a commit treats a failed response besides recording it.
  struct CommitRules {
    const char* className;
    // Statuses other than 3100 raise "QuickBooks: " + the message at once.
    bool raiseOtherStatus;
  };
  int32_t CommitMembers(const std::shared_ptr<T>& Member, const CommitRules& rules);

  Collection<std::shared_ptr<T>> mCol_;
  std::shared_ptr<qcErrors> mErrors_ = std::make_shared<qcErrors>();
  xmlBldr mBldr_;
};

class DataEventSubcriptions : public SubscriptionList<DataEventSubcription> {
 public:
  // Only the master collection adds: any other instance raises 0x800403FD, and the
  // library makes no master of this collection.
  std::shared_ptr<DataEventSubcription> Add(const std::string& AppName, const std::string& ProgId);
  // Does nothing; returns 0.
  int32_t Delete() { return 0; }
  // Lists the data event subscriptions; returns Count.
  int32_t GetAll();
  int32_t Commit(const std::shared_ptr<DataEventSubcription>& Member) override;

 private:
  bool mMaster_ = false;
};

class UISubscriptions : public SubscriptionList<UISubscription> {
 public:
  std::shared_ptr<UISubscription> Add(const std::string& AppName, const std::string& ProgId);
  // Does nothing; returns 0.
  int32_t Delete() { return 0; }
  // Lists the UI event subscriptions; returns Count.
  int32_t GetAll();
  // A failed response other than 3100 raises "QuickBooks: " + message, source "Tessaron".
  int32_t Commit(const std::shared_ptr<UISubscription>& Member) override;
};

class UIExtensionSubscriptions : public SubscriptionList<UIExtensionSubscription> {
 public:
  std::shared_ptr<UIExtensionSubscription> Add(const std::string& AppName, qbMnuNames Menu, const std::string& ProgId);
  // Removes the application's menu extension from QuickBooks and the entry at Index from
  // the collection, whatever QuickBooks answered.
  void Delete(const Variant& Index);
  // Lists the menu extensions of the registered event GUID; returns Count. Without a
  // registered GUID raises 0x80040B36 before anything is sent.
  int32_t GetAll();
  int32_t Commit(const std::shared_ptr<UIExtensionSubscription>& Member) override;
};

}  // namespace tessaron
