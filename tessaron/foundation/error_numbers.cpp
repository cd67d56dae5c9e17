#include "tessaron/foundation/error_numbers.h"

#include "tessaron/platform/error.h"

namespace tessaron {

const char* ErrorText(uint32_t number) {
  switch (number) {
#define TESSARON_ERROR_TEXT_CASE(name, value, text) \
  case value:                                       \
    return err::k##name##Text;
    TESSARON_ERRORS_WITH_TEXT(TESSARON_ERROR_TEXT_CASE)
#undef TESSARON_ERROR_TEXT_CASE
    default:
      return "";
  }
}

void RaiseError(uint32_t number, const std::string& source) { throw Error(number, source, ErrorText(number)); }

}  // namespace tessaron
