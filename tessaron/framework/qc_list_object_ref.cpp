#include "tessaron/framework/qc_list_object_ref.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/framework/detail/lookup_scope.h"
#include "tessaron/framework/lists.h"
#include "tessaron/framework/qc_list.h"
#include "tessaron/framework/qc_list_object.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

void qcListObjectRef::SetListID(const std::string& value) {
  listID_ = value;
  cached_.reset();
}

void qcListObjectRef::SetFullName(const std::string& value) {
  fullName_ = value;
  cached_.reset();
}

void qcListObjectRef::ReadFromNode(const XmlNode& node) {
  // Stored directly: reading a response does not drop the cached target.
  std::string scratch;
  for (const XmlNode& child : node.childNodes()) {
    std::string_view tag = child.baseName();
    if (tag == "ListID") listID_.assign(child.textView(scratch));
    else if (tag == "FullName") fullName_.assign(child.textView(scratch));
  }
}

std::shared_ptr<qcListObject> qcListObjectRef::Object() {
  if (fullName_.empty()) return nullptr;
  if (cached_) return cached_;
  std::shared_ptr<qcListObject> found;
  if (!detail::LookupScope::Find(list_, fullName_, found)) {
    std::shared_ptr<qcList> list = CurrentListFor(list_);
    const Variant key(fullName_);
    found = list->ItemExists(key) ? list->Item(key) : list->GetByFullName(fullName_);
    detail::LookupScope::Remember(list_, fullName_, found);
  }
  if (found) cached_ = found;
  return found;
}

void qcListObjectRef::WriteQueryRs(xmlBldr& cxmlbldr, const std::string& tag) {
  std::string element = tag;
  if (element.empty()) {
    if (isParent_) {
      element = "ParentRef";
      if (std::shared_ptr<qcListObject> target = Object()) listID_ = target->ListID();
    } else {
      element = ListTypeKey(list_) + "Ref";
    }
  }
  const char* child = !listID_.empty() ? "ListID" : !fullName_.empty() ? "FullName" : nullptr;
  if (!child) return;
  cxmlbldr.OpenAggregateOnly(element);
  cxmlbldr.CreateElement(child, !listID_.empty() ? listID_ : fullName_);
  cxmlbldr.EndAggregate(element);
}

void WriteListRef(const qcListObjectRef& ref, xmlBldr& cxmlbldr, const std::string& tag, bool force,
                  Currency minVersion) {
  if (State().QBXMLVersionNumber < minVersion) return;
  const char* child = nullptr;
  const std::string* value = nullptr;
  if (!ref.FullName().empty() || force) {
    child = "FullName";
    value = &ref.FullName();
  } else if (!ref.ListID().empty()) {
    child = "ListID";
    value = &ref.ListID();
  } else {
    return;
  }
  cxmlbldr.OpenAggregateOnly(tag);
  cxmlbldr.CreateElement(child, *value);
  cxmlbldr.EndAggregate(tag);
}

std::shared_ptr<qcListObject> ResolveListRef(qcListObjectRef& ref) {
  std::shared_ptr<qcList> list = CurrentListFor(ref.List());
  const Variant key(ref.FullName());
  if (list->ItemExists(key)) return list->Item(key);
  if (!ref.ListID().empty()) return list->GetByListID(ref.ListID());
  std::shared_ptr<qcListObject> found = list->GetByFullName(ref.FullName());
  if (found) ref.SetListID(found->ListID());
  return found;
}

bool IsListRefValid(qcListObjectRef& ref) { return ResolveListRef(ref) != nullptr; }

// ---- qcListObjectRefs --------------------------------------------------------------------

std::shared_ptr<qcListObjectRef> qcListObjectRefs::Add(const std::string& FullName, qoEnumListType ListType,
                                                       const std::string& ListID) {
  auto ref = std::make_shared<qcListObjectRef>(ListType);
  ref->SetFullName(FullName);
  ref->SetListID(ListID);
  col_.Add(ref, FullName);
  return ref;
}

bool qcListObjectRefs::ItemExists(const Variant& vntIndexKey) const {
  try {
    (void)const_cast<Collection<std::shared_ptr<qcListObjectRef>>&>(col_).Item(vntIndexKey);
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::shared_ptr<qcListObjectRef> qcListObjectRefs::Item(const Variant& vntIndexKey) { return col_.Item(vntIndexKey); }

std::shared_ptr<qcListObject> qcListObjectRefs::Object(const Variant& vKey) { return Item(vKey)->Object(); }

}  // namespace tessaron
