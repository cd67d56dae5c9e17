#include "tessaron/events/subscriptions.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"

namespace tessaron {

namespace {

// The responses of a message: the children of the message set inside <QBXML>.
XmlNode ResponseSet(const XmlDocument& doc) {
  const XmlNode root = doc.IsNull() ? XmlNode() : doc.documentElement();
  return root.IsNull() ? XmlNode() : root.firstChild();
}

// The first element child, or the null node (responses carry one ...Ret each).
XmlNode FirstElement(const XmlNode& node) {
  for (const XmlNode& child : node.childNodes())
    if (child.nodeType() == XmlNodeType::Element) return child;
  return XmlNode();
}

std::string Attribute(const XmlNode& node, std::string_view name) {
  const XmlNode a = node.attributes().getNamedItem(name);
  return a.IsNull() ? std::string() : a.text();
}

}  // namespace

// ---- SubscriptionList ----------------------------------------------------------------

template <class T>
bool SubscriptionList<T>::ItemExists(const Variant& vntIndexKey) const {
  if (vntIndexKey.IsString()) return mCol_.Exists(vntIndexKey.ToString());
  const long position = static_cast<long>(vntIndexKey.ToInteger());
  return position >= 1 && position <= mCol_.Count();
}

template <class T>
bool SubscriptionList<T>::Validate() {
  mErrors_->Clear();
  bool all = true;
  for (const auto& member : mCol_) {
    if (member->Validate()) continue;
    all = false;
    mErrors_->Add(err::kValidateFailed, member->CollectionKey(), err::kValidateFailedText);
  }
  return all;
}

template <class T>
std::shared_ptr<T> SubscriptionList<T>::AddMember(const std::string& AppName, const std::string& ProgId) {
  auto member = std::make_shared<T>();
  member->AppName = AppName;
  member->ProgId = ProgId;
  mCol_.Add(member);
  return member;
}

template <class T>
int32_t SubscriptionList<T>::ReadAll(bool subscriptionSet) {
  XmlDocument doc = subscriptionSet ? mBldr_.NewSendSubscriptionRequest() : mBldr_.NewSendRequest();
  Clear();
  const XmlNode response = FirstElement(ResponseSet(doc));
  if (response.IsNull()) return 0;
  for (const XmlNode& ret : response.childNodes()) {
    if (ret.nodeType() != XmlNodeType::Element) continue;
    auto member = std::make_shared<T>();
    member->FromDom(ret);
    mCol_.Add(member);
  }
  return static_cast<int32_t>(mCol_.Count());
}

template <class T>
int32_t SubscriptionList<T>::CommitMembers(const std::shared_ptr<T>& Member, const CommitRules& rules) {
  mErrors_->Clear();
  mBldr_.NewClearSubscriptions();
  long requests = 0;
  const auto request = [&](T& member, long position) {
    switch (member.ObjectState()) {
      case qoObjectStateNew: mBldr_.InsertAddRq(member, static_cast<int16_t>(position)); ++requests; break;
      case qoObjectStateClean: break;
      case qoObjectStateDirty: mBldr_.InsertModRq(member, static_cast<int16_t>(position)); ++requests; break;
      default: RaiseInternal(rules.className, "Unknown Object State");
    }
  };
  if (!Member) {
    long position = 0;
    for (const auto& member : mCol_.Values()) {
      ++position;
      if (member->Validate()) request(*member, position);
      else mErrors_->Add(err::kValidateFailed, member->CollectionKey(), err::kValidateFailedText);
    }
  } else if (!Member->Validate()) {
    mErrors_->Add(err::kValidateFailed, "0", err::kValidateFailedText);
  } else {
    long found = 0;
    for (long i = 1; i <= mCol_.Count() && !found; ++i)
      if (mCol_.Item(i) == Member) found = i;
    if (!found) mErrors_->Add(err::kNotAMember, rules.className, err::kNotAMemberText);
    else request(*Member, found);
  }

  if (requests > 0) {
    const XmlDocument doc = mBldr_.NewSendSubscriptionRequest();
    const XmlNode set = ResponseSet(doc);
    for (const XmlNode& response : set.IsNull() ? XmlNodeList() : set.childNodes()) {
      if (response.nodeType() != XmlNodeType::Element) continue;
      const long position = static_cast<long>(Variant(Attribute(response, "requestID")).ToInteger());
      if (position < 1 || position > mCol_.Count()) continue;
      T& member = *mCol_.Item(position);
      const int32_t status = static_cast<int32_t>(Variant(Attribute(response, "statusCode")).ToInteger());
      const std::string message = Attribute(response, "statusMessage");
      if (status == 0 || status == 1) {
        const XmlNode ret = FirstElement(response);
        if (!ret.IsNull()) member.FromDom(ret);
        continue;
      }
      mErrors_->Add(err::kCommitFailed, member.CollectionKey(), err::kCommitFailedText);
      if (status == 3100) {
        member.Errors()->Add(err::kDuplicateName, "Name", err::kDuplicateNameText);
      } else {
        member.Errors()->Add(err::kDatabaseOpenFailed, "QuickBooks: ", message);
        if (rules.raiseOtherStatus) throw Error(err::kBuilderStatus, "Tessaron", "QuickBooks: " + message);
      }
    }
  }
  if (State().ErrorMode && mErrors_->Count() > 0) RaiseError(err::kCommitErrors, rules.className);
  return static_cast<int32_t>(requests);
}

template class SubscriptionList<DataEventSubcription>;
template class SubscriptionList<UISubscription>;
template class SubscriptionList<UIExtensionSubscription>;

// ---- DataEventSubcriptions -----------------------------------------------------------

std::shared_ptr<DataEventSubcription> DataEventSubcriptions::Add(const std::string& AppName,
                                                                 const std::string& ProgId) {
  mErrors_->Clear();
  if (!mMaster_) RaiseError(err::kMasterOnly, "DataEventSubscription");
  auto member = AddMember(AppName, ProgId);
  member->SubscriberId = State().EventGUID;
  return member;
}

int32_t DataEventSubcriptions::GetAll() {
  mErrors_->Clear();
  mBldr_.NewClear();
  mBldr_.OpenAggregateOnly("DataEventSubscriptionQueryRq");
  mBldr_.EndAggregate("DataEventSubscriptionQueryRq");
  return ReadAll(false);
}

int32_t DataEventSubcriptions::Commit(const std::shared_ptr<DataEventSubcription>& Member) {
  if (!mMaster_) RaiseError(err::kMasterOnly, "DataEventSubscription");
  return CommitMembers(Member, {"DataEventSubscription", false});
}

// ---- UISubscriptions -----------------------------------------------------------------

std::shared_ptr<UISubscription> UISubscriptions::Add(const std::string& AppName, const std::string& ProgId) {
  mErrors_->Clear();
  auto member = AddMember(AppName, ProgId);
  member->SubscriberId = State().EventGUID;
  return member;
}

int32_t UISubscriptions::GetAll() {
  mErrors_->Clear();
  mBldr_.NewClear();
  mBldr_.OpenAggregateOnly("UISubscriptionQueryRq");
  mBldr_.EndAggregate("UISubscriptionQueryRq");
  return ReadAll(false);
}

int32_t UISubscriptions::Commit(const std::shared_ptr<UISubscription>& Member) {
  return CommitMembers(Member, {"UIEventSubscription", true});
}

// ---- UIExtensionSubscriptions --------------------------------------------------------

std::shared_ptr<UIExtensionSubscription> UIExtensionSubscriptions::Add(const std::string& AppName, qbMnuNames Menu,
                                                                       const std::string& ProgId) {
  mErrors_->Clear();
  auto member = AddMember(AppName, ProgId);
  member->AddToMenu = Menu;
  return member;
}

void UIExtensionSubscriptions::Delete(const Variant& Index) {
  mBldr_.NewClearSubscriptions();
  mBldr_.OpenAggregateOnly("SubscriptionDelRq");
  mBldr_.CreateElement("SubscriberID", State().EventGUID);
  mBldr_.CreateElement("SubscriptionType", "UIExtension");
  mBldr_.EndAggregate("SubscriptionDelRq");
  mBldr_.NewSendSubscriptionRequest();
  mCol_.Remove(Index);
}

int32_t UIExtensionSubscriptions::GetAll() {
  if (State().EventGUID.empty()) RaiseError(err::kNoEventGuid, "UIExtensionSubscription");
  mErrors_->Clear();
  mBldr_.NewClearSubscriptions();
  mBldr_.OpenAggregateOnly("UIExtensionSubscriptionQueryRq");
  mBldr_.CreateElement("SubscriberID", State().EventGUID);
  mBldr_.EndAggregate("UIExtensionSubscriptionQueryRq");
  return ReadAll(true);
}

int32_t UIExtensionSubscriptions::Commit(const std::shared_ptr<UIExtensionSubscription>& Member) {
  return CommitMembers(Member, {"UIExtensionSubscription", false});
}

}  // namespace tessaron
