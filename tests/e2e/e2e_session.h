// End to end: the library, connected through TessaronGlobals to the embedded company-file
// processor in strict mode (it refuses what QuickBooks would refuse), on a sample company
// of one national edition. Every request and response of a test is kept and checked
// against the qbXML schema when the test ends.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "qbsim/qbsim.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/platform/request_processor.h"
#include "tessaron/platform/text.h"
#include "tests/support/qbxml_check.h"

namespace tessaron::testing {

// The editions of the national products use Province or County for the state of an
// address, which the (US) schema lacks; messages are checked with the tag it replaces.
inline ::testing::AssertionResult ValidInEdition(const std::string& message) {
  std::string us = message;
  for (const char* tag : {"Province", "County"}) {
    us = ReplaceAll(us, std::string("<") + tag + ">", "<State>");
    us = ReplaceAll(us, std::string("</") + tag + ">", "</State>");
  }
  return IsValidQbxml(us);
}

// Passes every call on to the embedded processor and keeps the messages.
class RecordingProcessor : public RequestProcessor {
 public:
  RecordingProcessor(std::shared_ptr<RequestProcessor> inner, std::shared_ptr<std::vector<std::string>> messages)
      : inner_(std::move(inner)), messages_(std::move(messages)) {}
  void OpenConnection(const std::string& a, const std::string& b) override { inner_->OpenConnection(a, b); }
  std::string BeginSession(const std::string& f, int32_t m) override { return inner_->BeginSession(f, m); }
  void EndSession(const std::string& t) override { inner_->EndSession(t); }
  void CloseConnection() override { inner_->CloseConnection(); }
  std::string ProcessRequest(const std::string& ticket, const std::string& request) override {
    messages_->push_back(request);
    messages_->push_back(inner_->ProcessRequest(ticket, request));
    return messages_->back();
  }
  std::string ProcessSubscription(const std::string& request) override { return inner_->ProcessSubscription(request); }
  std::vector<std::string> QBXMLVersionsForSession(const std::string& t) override {
    return inner_->QBXMLVersionsForSession(t);
  }
  std::string GetCurrentCompanyFileName(const std::string& t) override { return inner_->GetCurrentCompanyFileName(t); }
  int MajorVersion() override { return inner_->MajorVersion(); }
  int MinorVersion() override { return inner_->MinorVersion(); }

 private:
  std::shared_ptr<RequestProcessor> inner_;
  std::shared_ptr<std::vector<std::string>> messages_;
};

class EditionTest : public ::testing::TestWithParam<qbsim::Edition> {
 protected:
  static constexpr int kCustomers = 40;

  void SetUp() override {
    ResetLibraryStateForTesting();
    path_ = dir_.File("company.qbw");
    qbsim::SampleOptions sample;
    sample.edition = GetParam();
    sample.customers = kCustomers;
    qbsim::CreateSampleCompany(path_, sample);
    Register();
    TessaronGlobals::QBConnect("", "Tessaron end-to-end tests", qbFileOpenDoNotCare, path_);
  }

  void TearDown() override {
    State().ErrorMode = true;
    if (State().GlobalConnection) State().GlobalConnection->CloseConnection();
    State().GlobalConnection.reset();
    for (const char* id : {kRequestProcessor1, kRequestProcessor2}) UnregisterRequestProcessor(id);
    for (const std::string& m : *messages_) EXPECT_TRUE(ValidInEdition(m));
    ResetLibraryStateForTesting();
  }

  // Requests sent since the last call (responses left out).
  std::vector<std::string> TakeRequests() {
    std::vector<std::string> out;
    for (size_t i = taken_; i < messages_->size(); i += 2) out.push_back((*messages_)[i]);
    taken_ = messages_->size();
    return out;
  }
  bool IsUS() const { return GetParam() == qbsim::Edition::US; }
  const std::string& Path() const { return path_; }

 private:
  void Register() {
    qbsim::ProcessorOptions options;
    options.strict = true;
    auto messages = messages_;
    for (const char* id : {kRequestProcessor1, kRequestProcessor2})
      RegisterRequestProcessor(id, [options, messages] {
        return std::make_shared<RecordingProcessor>(qbsim::CreateProcessor(options), messages);
      });
  }

  TempDir dir_;
  std::string path_;
  std::shared_ptr<std::vector<std::string>> messages_ = std::make_shared<std::vector<std::string>>();
  size_t taken_ = 0;
};

inline std::string EditionName(const ::testing::TestParamInfo<qbsim::Edition>& info) {
  return qbsim::EditionName(info.param);
}

#define TESSARON_ALL_EDITIONS(Suite)                                                                            \
  INSTANTIATE_TEST_SUITE_P(Editions, Suite,                                                                     \
                           ::testing::Values(qbsim::Edition::US, qbsim::Edition::CA, qbsim::Edition::UK,       \
                                             qbsim::Edition::AU),                                               \
                           ::tessaron::testing::EditionName)

}  // namespace tessaron::testing
