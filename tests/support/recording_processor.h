// A request processor that passes every call on to another one (the embedded company-file
// processor, usually) and keeps each request and its response, for end-to-end tests that
// check every message against the qbXML schema.
//
//   auto recorder = std::make_shared<RecordingProcessor>(qbsim::CreateProcessor(options));
//   RegisterRequestProcessor(kRequestProcessor2, [recorder] { return recorder; });
//   ... for (const auto& m : recorder->messages) EXPECT_TRUE(IsValidQbxml(m));
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessaron/platform/request_processor.h"

namespace tessaron::testing {

class RecordingProcessor : public RequestProcessor {
 public:
  explicit RecordingProcessor(std::shared_ptr<RequestProcessor> inner) : inner_(std::move(inner)) {}

  // Every request of ProcessRequest followed by its response, in order.
  std::vector<std::string> messages;

  void OpenConnection(const std::string& a, const std::string& b) override { inner_->OpenConnection(a, b); }
  std::string BeginSession(const std::string& f, int32_t m) override { return inner_->BeginSession(f, m); }
  void EndSession(const std::string& t) override { inner_->EndSession(t); }
  void CloseConnection() override { inner_->CloseConnection(); }
  std::string ProcessRequest(const std::string& t, const std::string& rq) override {
    std::string rs = inner_->ProcessRequest(t, rq);
    messages.push_back(rq);
    messages.push_back(rs);
    return rs;
  }
  std::string ProcessSubscription(const std::string& rq) override { return inner_->ProcessSubscription(rq); }
  std::vector<std::string> QBXMLVersionsForSession(const std::string& t) override {
    return inner_->QBXMLVersionsForSession(t);
  }
  std::string GetCurrentCompanyFileName(const std::string& t) override { return inner_->GetCurrentCompanyFileName(t); }
  int MajorVersion() override { return inner_->MajorVersion(); }
  int MinorVersion() override { return inner_->MinorVersion(); }

 private:
  std::shared_ptr<RequestProcessor> inner_;
};

}  // namespace tessaron::testing
