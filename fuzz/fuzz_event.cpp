// The parsing of the messages QuickBooks calls a subscribed application back with. A
// message is parsed or raises tessaron::Error, nothing else.
#include <cstddef>
#include <cstdint>
#include <string>

#include "tessaron/events/qb_event.h"
#include "tessaron/platform/error.h"

using namespace tessaron;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    qbEvent event;
    event.ParseXML(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const Error&) {
  }
  return 0;
}
