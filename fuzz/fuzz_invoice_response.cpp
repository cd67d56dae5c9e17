// The reading of invoice queries: a response text, as InvoiceQueryRq would get it back,
// is walked into invoices, their lines and linked documents. The first byte picks the
// query (with or without lines). A response never raises anything but tessaron::Error.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "fuzz/canned_processor.h"
#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/invoices.h"

using namespace tessaron;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  fuzz::Canned().response.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
  // Invoices look up their customer, terms and preferences through the open company.
  static const bool opened = [] {
    State().CurrentCompany = std::make_shared<Company>();
    return true;
  }();
  (void)opened;
  try {
    Invoices invoices;
    switch (data[0] % 3) {
      case 0: invoices.GetAll(true); break;
      case 1: invoices.GetAll(false); break;
      case 2: invoices.GetByRefNumber("1", "9"); break;
    }
    for (long i = 1; i <= invoices.Count(); ++i) invoices.Item(Variant(static_cast<int32_t>(i)))->ItemLines();
  } catch (const Error&) {
  }
  return 0;
}
