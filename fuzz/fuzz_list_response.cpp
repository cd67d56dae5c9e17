// The response parsers of the list collections: a response text, as a query of the
// collection would get it back, is walked into objects. The first byte picks the
// collection. A response never raises anything but tessaron::Error.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/framework/qc_list.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/sales_rep.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/terms.h"
#include "tessaron/lists/to_do.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/request_processor.h"

using namespace tessaron;

namespace {

// Answers every request with the input of the current run.
class CannedProcessor : public RequestProcessor {
 public:
  std::string response;
  void OpenConnection(const std::string&, const std::string&) override {}
  std::string BeginSession(const std::string&, int32_t) override { return "t"; }
  void EndSession(const std::string&) override {}
  void CloseConnection() override {}
  std::string ProcessRequest(const std::string&, const std::string&) override { return response; }
  std::string ProcessSubscription(const std::string&) override { return response; }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override { return {"12.0"}; }
  std::string GetCurrentCompanyFileName(const std::string&) override { return {}; }
  int MajorVersion() override { return 12; }
  int MinorVersion() override { return 0; }
};

std::shared_ptr<CannedProcessor> Processor() {
  static auto processor = [] {
    auto p = std::make_shared<CannedProcessor>();
    State().RequestProcessor = p;
    State().SessionTicket = "t";
    State().QBXMLVersionText = "12.0";
    State().QBXMLVersionNumber = Currency(12);
    return p;
  }();
  return processor;
}

// Through the interface every collection shares: the query and the walk of its answer.
template <typename C>
void Walk() {
  C collection;
  static_cast<qcList&>(collection).GetAll(0, "");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  Processor()->response.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
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
