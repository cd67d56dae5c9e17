// References of transaction headers: made by name, resolved to the record's own class,
// read back as a name. Shared by every document class.
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

// The record behind a reference as its own class; null for an empty name or a record
// not on file.
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
