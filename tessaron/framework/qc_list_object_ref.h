// References to records of other lists. A record never holds another record as a handle
// from the start: it holds the target's full name and list id plus the list to look in,
// and the target is found only when asked for, through the list registry of the company.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

namespace detail {
class ListObjectAccess;
}
class qcListObject;
class qcListObjectRefs;
class qcListObjectRef;
std::shared_ptr<qcListObject> ResolveListRef(qcListObjectRef& ref);
class xmlBldr;

class qcListObjectRef {
 public:
  explicit qcListObjectRef(qoEnumListType list = static_cast<qoEnumListType>(0), bool isParent = false)
      : list_(list), isParent_(isParent) {}

  const std::string& ListID() const { return listID_; }
  qoEnumListType List() const { return list_; }
  // The default member: what lookups by key use.
  const std::string& FullName() const { return fullName_; }
  // The target record. Null when FullName is empty (a reference with only a ListID does
  // not resolve this way) or the record is not on file. Looks in the master collection
  // first and may send one query; a found record is cached until the text changes.
  std::shared_ptr<qcListObject> Object();
  Variant UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }

  bool IsParent() const { return isParent_; }
  // The cached target, without resolving.
  const std::shared_ptr<qcListObject>& CachedObject() const { return cached_; }

 private:
  // Library-internal, through detail::ListObjectAccess (and the list's own helpers). The
  // text setters drop the cached target, so a reference is never stale.
  friend class detail::ListObjectAccess;
  friend class qcListObjectRefs;
  friend std::shared_ptr<qcListObject> ResolveListRef(qcListObjectRef& ref);
  void SetListID(const std::string& value);
  void SetFullName(const std::string& value);
  void SetList(qoEnumListType list) { list_ = list; }
  void SetIsParent(bool value) { isParent_ = value; }
  // Reads a `...Ref` element: "ListID" and "FullName" children; others are skipped.
  void ReadFromNode(const XmlNode& node);
  // Writes the reference in query-response form: ListID when known, else FullName. An
  // empty tag means "ParentRef" for a parent reference, else the list's key + "Ref".
  void WriteQueryRs(xmlBldr& cxmlbldr, const std::string& tag = "");
  void SetCachedObject(std::shared_ptr<qcListObject> target) { cached_ = std::move(target); }

  qoEnumListType list_;
  std::string listID_;
  std::string fullName_;
  bool isParent_;
  Variant userData_;
  std::shared_ptr<qcListObject> cached_;
};

// An ordered set of references keyed by FullName: the Children of a record, the Jobs of a customer.
class qcListObjectRefs {
 public:
  // Creates a reference, stores it under FullName and returns it; a duplicate key raises
  // the collection's error (457).
  std::shared_ptr<qcListObjectRef> Add(const std::string& FullName, qoEnumListType ListType,
                                       const std::string& ListID = "");
  bool ItemExists(const Variant& vntIndexKey) const;
  std::shared_ptr<qcListObjectRef> Item(const Variant& vntIndexKey);
  void Clear() { col_ = Collection<std::shared_ptr<qcListObjectRef>>(); }
  // The record a reference points at (see qcListObjectRef::Object).
  std::shared_ptr<qcListObject> Object(const Variant& vKey);
  long Count() const { return col_.Count(); }
  void Remove(const Variant& vntIndexKey) { col_.Remove(vntIndexKey); }

  auto begin() { return col_.begin(); }
  auto end() { return col_.end(); }
  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  Collection<std::shared_ptr<qcListObjectRef>> col_;
};

// Writes a reference into an add or modify request: nothing below minVersion; FullName
// when it is set or `force` is true (an empty FullName under force is how a modify
// clears a reference); else ListID when set; else nothing.
void WriteListRef(const qcListObjectRef& ref, xmlBldr& cxmlbldr, const std::string& tag, bool force = false,
                  Currency minVersion = Currency());
inline void WriteListRef(const std::shared_ptr<qcListObjectRef>& ref, xmlBldr& cxmlbldr, const std::string& tag,
                         bool force = false, Currency minVersion = Currency()) {
  if (ref) WriteListRef(*ref, cxmlbldr, tag, force, minVersion);
}

// Finds the target of a reference: by key in the master collection, else by ListID,
// else by FullName (filling the reference's ListID from what it finds). May query.
std::shared_ptr<qcListObject> ResolveListRef(qcListObjectRef& ref);
// True when ResolveListRef finds a record.
bool IsListRefValid(qcListObjectRef& ref);

}  // namespace tessaron
