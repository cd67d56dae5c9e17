// The interface through which code treats every list collection alike: the registry
// Lists hands collections out as qcList, references resolve through it, and a company
// validates all its lists through it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

class qcErrors;
class qcListObject;

class qcList {
 public:
  virtual ~qcList() = default;

  virtual qoEnumListType ListType() const = 0;
  // The objects in collection order (a snapshot; the collection may change afterwards).
  virtual std::vector<std::shared_ptr<qcListObject>> NewEnum() const = 0;
  // By position from 1 or by key; raises the collection's error when absent.
  std::shared_ptr<qcListObject> Item(const Variant& vKey) const { return ListItem(vKey); }
  virtual std::shared_ptr<qcErrors> Errors() = 0;
  // Never raises: a missing key or position answers false.
  virtual bool ItemExists(const Variant& vntIndexKey) const = 0;
  virtual long Count() const = 0;
  virtual void Remove(const Variant& vntIndexKey) = 0;
  virtual void Clear() = 0;
  // Commits every New and Dirty object (the collection's own Commit with no member).
  virtual int32_t Commit() = 0;
  virtual bool Validate() = 0;
  // Replace the content by the active records, or by all records; return Count.
  int32_t GetActive(int32_t MaxReturned = 0, const std::string& sMDBPath = "") {
    return ListGetActive(MaxReturned, sMDBPath);
  }
  int32_t GetAll(int32_t MaxReturned = 0, const std::string& sMDBPath = "") { return ListGetAll(MaxReturned, sMDBPath); }
  // The record with that full name, from the collection or by one query; null when not on file.
  std::shared_ptr<qcListObject> GetByFullName(const std::string& sFullName) { return ListGetByFullName(sFullName); }
  std::shared_ptr<qcListObject> GetByListID(const std::string& sListID) { return ListGetByListID(sListID); }

 protected:
  // Typed collections hide Item, GetByFullName and GetByListID with their own object
  // types, and some queries with forms of their own; these are the forms behind the interface.
  virtual int32_t ListGetActive(int32_t MaxReturned, const std::string& sMDBPath) = 0;
  virtual int32_t ListGetAll(int32_t MaxReturned, const std::string& sMDBPath) = 0;
  virtual std::shared_ptr<qcListObject> ListItem(const Variant& vKey) const = 0;
  virtual std::shared_ptr<qcListObject> ListGetByFullName(const std::string& sFullName) = 0;
  virtual std::shared_ptr<qcListObject> ListGetByListID(const std::string& sListID) = 0;
};

}  // namespace tessaron
