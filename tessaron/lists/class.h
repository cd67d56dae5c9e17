// The hierarchical name lists: Class, CustomerType, JobType and VendorType. One record is
// a name with an optional parent; its key is the full name ("Parent:Child"). QuickBooks
// offers no modify for them at these versions, so after the first commit their fields are
// fixed; the application writes nothing but UserData.
#pragma once

#include <memory>
#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

class Class final : public ListObject {
 public:
  Class();
};

class CustomerType final : public ListObject {
 public:
  CustomerType();
};

class JobType final : public ListObject {
 public:
  JobType();
};

class VendorType final : public ListObject {
 public:
  VendorType();
};

// The collection of one hierarchical name list.
template <class Obj>
class TreeNameCollection : public ListCollection<Obj> {
 public:
  // A New record, linked to its parent when the parent is loaded. Master only; nothing is
  // sent until Commit. A name already in the collection raises the collection's error.
  std::shared_ptr<Obj> Add(const std::string& Name = "", bool IsActive = true, const std::string& ParentFullName = "") {
    return this->AddNew([&](Obj& obj) {
      detail::ListObjectAccess::SetNameInternal(obj, Name);
      detail::ListObjectAccess::SetIsActiveInternal(obj, IsActive);
      detail::ListObjectAccess::SetParentInternal(obj, ParentFullName);
    });
  }

 protected:
  using ListCollection<Obj>::ListCollection;
};

class Classes final : public TreeNameCollection<Class> {
 public:
  Classes();
};

class CustomerTypes final : public TreeNameCollection<CustomerType> {
 public:
  CustomerTypes();
};

class JobTypes final : public TreeNameCollection<JobType> {
 public:
  JobTypes();
};

class VendorTypes final : public TreeNameCollection<VendorType> {
 public:
  VendorTypes();
};

}  // namespace tessaron
