// The text forms of values read from qbXML: amounts, percentages, dates, booleans,
// entities and blanks. Every text either converts or raises tessaron::Error; what
// converts writes back as text without failing.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"

using namespace tessaron;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    std::string amount = text;
    Currency c = CurrencyFromText(amount);
    AmountToText(c);
    AmountToDisplayText(c);
    QuantityToText(c);
    PercentRateToText(c);
  } catch (const Error&) {
  }
  try {
    CurrencyFromText(std::string_view(text));
  } catch (const Error&) {
  }
  try {
    Date d = DateFromText(text);
    DateToText(d);
    DateTimeToText(d);
  } catch (const Error&) {
  }
  try {
    BooleanToText(BooleanFromText(text));
  } catch (const Error&) {
  }
  DecodeEntities(text);
  RemoveSpaces(text);
  return 0;
}
