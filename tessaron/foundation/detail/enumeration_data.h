// The contents of the enumeration tables, as constant data that the load turns into
// QCEnum objects.
#pragma once

#include <cstdint>
#include <span>

namespace tessaron::detail {

struct EnumRowData {
  int16_t code;
  const char* description;
  const char* xmlTag = "";
};

struct EnumTableData {
  const char* name;  // the key in Enumerations
  std::span<const EnumRowData> rows;
};

// The 56 tables, in the order of qoEnumerationType.
std::span<const EnumTableData> EnumerationTableData();
// The two tables outside Enumerations.
std::span<const EnumRowData> TermsKindData();
std::span<const EnumRowData> DoneStatusData();

}  // namespace tessaron::detail
