// A request processor for the fuzz targets that answers every request with the input of
// the current run, installed as the library's processor of an open qbXML 12.0 session.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/connection/library_state.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/request_processor.h"

namespace tessaron::fuzz {

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

// The processor of every run, installed on first use.
inline CannedProcessor& Canned() {
  static std::shared_ptr<CannedProcessor> processor = [] {
    auto p = std::make_shared<CannedProcessor>();
    State().RequestProcessor = p;
    State().SessionTicket = "t";
    State().QBXMLVersionText = "12.0";
    State().QBXMLVersionNumber = Currency(12);
    return p;
  }();
  return *processor;
}

}  // namespace tessaron::fuzz
