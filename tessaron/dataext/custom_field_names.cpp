#include "tessaron/dataext/custom_field_names.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extension_definitions.h"

namespace tessaron {

const std::vector<std::string>& CustomFieldNames::Of(int32_t objectType) {
  if (read_) return names_;
  read_ = true;
  names_.assign(kPositions, std::string());
  const std::shared_ptr<Company>& company = State().CurrentCompany;
  if (!company) return names_;
  size_t next = 0;
  for (const auto& definition : company->CustomFields()->NewEnum()) {
    if (next == kPositions) break;
    if (definition->AssignedTos().Holds(objectType)) names_[next++] = definition->Name();
  }
  return names_;
}

}  // namespace tessaron
