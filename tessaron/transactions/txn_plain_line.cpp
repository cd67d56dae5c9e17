#include "tessaron/transactions/txn_plain_line.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"

namespace tessaron {

const std::string& RefName(const std::shared_ptr<qcListObjectRef>& ref) {
  static const std::string none;
  return ref ? ref->FullName() : none;
}

std::shared_ptr<qcListObject> LookupRecord(qoEnumListType list, const std::string& name,
                                           std::shared_ptr<qcListObjectRef>* refOut) {
  auto ref = std::make_shared<qcListObjectRef>(list);
  detail::ListObjectAccess::SetFullName(*ref, name);
  if (refOut) *refOut = ref;
  if (name.empty() || !State().CurrentCompany) return nullptr;
  return ResolveListRef(*ref);
}

void SetCheckedRef(std::shared_ptr<qcListObjectRef>& target, qoEnumListType list, const std::string& value,
                   uint32_t number, const char* text, const char* source) {
  std::shared_ptr<qcListObjectRef> ref;
  if (!LookupRecord(list, value, &ref) && !value.empty()) throw Error(number, source, text);
  target = ref;
}

}  // namespace tessaron
