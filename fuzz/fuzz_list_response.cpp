// The response parsers of the list collections: a response text, as a query of the
// collection would get it back, is walked into objects. The first byte picks the
// collection. A response never raises anything but tessaron::Error.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/canned_processor.h"
#include "tessaron/framework/qc_list.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/sales_rep.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/terms.h"
#include "tessaron/lists/to_do.h"
#include "tessaron/platform/error.h"

using namespace tessaron;

namespace {

// Through the interface every collection shares: the query and the walk of its answer.
template <typename C>
void Walk() {
  C collection;
  static_cast<qcList&>(collection).GetAll(0, "");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  fuzz::Canned().response.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    switch (data[0] % 6) {
      case 0: Walk<Classes>(); break;
      case 1: Walk<Customers>(); break;
      case 2: Walk<Terms>(); break;
      case 3: Walk<SalesReps>(); break;
      case 4: Walk<SalesTaxCodes>(); break;
      case 5: Walk<ToDoList>(); break;
    }
  } catch (const Error&) {
  }
  return 0;
}
