// The names of the public custom fields defined for one object type, as the collections of
// customers, vendors, employees and items show them: positions 1 to 7 (index 0 to 6), in
// the order of Company.CustomFields, the rest empty. Read once, then kept: a definition
// made later is not seen.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessaron {

class CustomFieldNames {
 public:
  static constexpr size_t kPositions = 7;
  const std::vector<std::string>& Of(int32_t objectType);

 private:
  std::vector<std::string> names_;
  bool read_ = false;
};

}  // namespace tessaron
