#include "tessaron/foundation/qc_enum_value.h"

#include "tessaron/foundation/values.h"

namespace tessaron {

void qcEnumValue::SetDescription(const std::string& description) {
  description_ = description;
  key_ = RemoveSpaces(std::string_view(description));
}

}  // namespace tessaron
