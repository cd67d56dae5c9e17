// dataExtAssignedTos: the object types (qoEnumListObjectType numbers) a data extension
// definition applies to. Keyed by the decimal text of the type ("14").
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

class dataExtAssignedTos {
 public:
  qoEnumObjectState ObjectState() const { return state_; }
  // Each change marks the list Dirty; a change the definition refuses raises 0x800403EA.
  void Clear();
  void Add(int32_t ObjectType);
  // By position from 1, or by the type's decimal text.
  int32_t Item(const Variant& vntIndexKey) const;
  long Count() const { return static_cast<long>(types_.size()); }
  void Remove(const Variant& vntIndexKey);

  bool Holds(int32_t objectType) const;
  const std::vector<int32_t>& Types() const { return types_; }

 private:
  friend class DataExtensionDefinition;
  friend class DataExtensionDefinitions;
  size_t Slot(const Variant& vntIndexKey) const;
  void Change();

  std::vector<int32_t> types_;
  qoEnumObjectState state_ = qoObjectStateNew;
  std::function<bool()> mayChange_;  // set by the definition
};

}  // namespace tessaron
