// Small helpers of transaction classes for their list references: a fresh reference
// holding a name, the record behind a reference as its own class, and the name a
// reference holds.
#pragma once

#include <memory>
#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"

namespace tessaron::detail {

inline std::shared_ptr<qcListObjectRef> NamedRef(qoEnumListType list, const std::string& name) {
  auto ref = std::make_shared<qcListObjectRef>(list);
  ListObjectAccess::SetFullName(*ref, name);
  return ref;
}

// Null for an empty name, a record not on file, or no open company.
template <class T>
std::shared_ptr<T> Target(const std::shared_ptr<qcListObjectRef>& ref) {
  if (!ref || ref->FullName().empty() || !State().CurrentCompany) return nullptr;
  return std::dynamic_pointer_cast<T>(ResolveListRef(*ref));
}

inline const std::string& NameOf(const std::shared_ptr<qcListObjectRef>& ref) {
  static const std::string none;
  return ref ? ref->FullName() : none;
}

}  // namespace tessaron::detail
