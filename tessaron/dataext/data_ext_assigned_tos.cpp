#include "tessaron/dataext/data_ext_assigned_tos.h"

#include <algorithm>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/platform/error.h"

namespace tessaron {

void dataExtAssignedTos::Change() {
  // The source is spelled as the class was once misspelled; callers match on it.
  if (mayChange_ && !mayChange_()) throw Error(err::kFieldCannotBeModified, "dataExtAssingedTos", err::kFieldCannotBeModifiedText);
  state_ = qoObjectStateDirty;
}

void dataExtAssignedTos::Clear() {
  Change();
  types_.clear();
}

void dataExtAssignedTos::Add(int32_t ObjectType) {
  Change();
  if (!Holds(ObjectType)) types_.push_back(ObjectType);
}

size_t dataExtAssignedTos::Slot(const Variant& vntIndexKey) const {
  if (vntIndexKey.IsString()) {
    const std::string key = vntIndexKey.ToString();
    for (size_t i = 0; i < types_.size(); ++i)
      if (std::to_string(types_[i]) == key) return i;
    RaisePlatform(platform_error::kSubscriptOutOfRange);
  }
  const int64_t position = vntIndexKey.ToInteger();
  if (position < 1 || position > static_cast<int64_t>(types_.size())) RaisePlatform(platform_error::kSubscriptOutOfRange);
  return static_cast<size_t>(position - 1);
}

int32_t dataExtAssignedTos::Item(const Variant& vntIndexKey) const { return types_[Slot(vntIndexKey)]; }

void dataExtAssignedTos::Remove(const Variant& vntIndexKey) {
  const size_t slot = Slot(vntIndexKey);
  Change();
  types_.erase(types_.begin() + static_cast<long>(slot));
}

bool dataExtAssignedTos::Holds(int32_t objectType) const {
  return std::find(types_.begin(), types_.end(), objectType) != types_.end();
}

}  // namespace tessaron
