// SalesRep: a sales representative, named by initials and pointing at the employee,
// vendor or other name who is the person. Its key is the initials, which is what other
// records' SalesRepRef names. QuickBooks offers no modify for it here.
#pragma once

#include <memory>
#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"

namespace tessaron {

class SalesRep final : public ListObject {
 public:
  SalesRep();

  // At most 5 characters; set by Add.
  const std::string& Initial() const { return initial_; }
  // Full name of the person. Writable only until the first commit.
  std::string Entity() const { return entityRef_ ? entityRef_->FullName() : std::string(); }
  void SetEntity(const std::string& value);
  const std::shared_ptr<qcListObjectRef>& EntityRef() const { return entityRef_; }

  std::string FullName() const override { return initial_; }

 private:
  friend class detail::ListObjectAccess;
  void SetInitialInternal(const std::string& value) { initial_ = value; }
  static const ListClassInfo& Info();
  // The person must be given, fit in 31 characters, and be on file (one query each time).
  static void CheckEntity(ListObject& obj, qcErrors& errors);

  std::string initial_;
  std::shared_ptr<qcListObjectRef> entityRef_;
};

class SalesReps final : public ListCollection<SalesRep> {
 public:
  SalesReps();
  // A New record; master only; nothing is sent until Commit.
  std::shared_ptr<SalesRep> Add(const std::string& Initial = "", bool IsActive = true,
                                const std::string& EntityFullName = "");
};

}  // namespace tessaron
