// The tables the plain name lists share (Class and its like, ShipMethod, PaymentMethod,
// CustomerMessage): their records differ only in names, limits and messages.
#pragma once

#include <memory>
#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron::name_lists {

// A hierarchical name record: Name, IsActive, ParentRef in the add request; FullName and
// Sublevel besides in the query form; the name limited to 31; the parent must exist.
ListClassInfo TreeInfo(const char* className, qoEnumListObjectType objectType, qoEnumListType listType);

// A flat name record: Name (always, or only when set), IsActive; keyed by its name.
ListClassInfo FlatInfo(const char* className, qoEnumListObjectType objectType, qoEnumListType listType, Send nameAdd,
                       CheckDef nameCheck);

// The collection of a name list with no modify: a Dirty record raises "Modify not allowed".
ListCollectionInfo CollectionInfo(const char* className, qoEnumListType listType, const char* queryRequest,
                                  qoEnumListObjectType objectType, const char* mirrorObjectName);

// The collection of a list QuickBooks only reads out: no status in GetAll, no commit.
// `listType` is 0 for a list that has no list type (TaxCodes).
ListCollectionInfo ReadOnlyInfo(const char* className, qoEnumListType listType, const char* queryRequest,
                                qoEnumListObjectType objectType);

}  // namespace tessaron::name_lists

namespace tessaron {

// The collection of a flat name list: Add takes the name and the active flag.
template <class Obj>
class FlatNameCollection : public ListCollection<Obj> {
 public:
  // A New record; master only; nothing is sent until Commit.
  std::shared_ptr<Obj> Add(const std::string& Name = "", bool IsActive = true) {
    return this->AddNew([&](Obj& obj) {
      detail::ListObjectAccess::SetNameInternal(obj, Name);
      detail::ListObjectAccess::SetIsActiveInternal(obj, IsActive);
    });
  }

 protected:
  using ListCollection<Obj>::ListCollection;
};

}  // namespace tessaron
