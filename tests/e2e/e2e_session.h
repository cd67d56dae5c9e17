// End to end: the library, connected through TessaronGlobals to the embedded company-file
// processor in strict mode (it refuses what QuickBooks would refuse), on a sample company
// of one national edition. Every request and response of a test is kept and checked
// against the qbXML schema when the test ends.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "qbsim/qbsim.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/platform/request_processor.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/recording_processor.h"

namespace tessaron::testing {

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
    for (const std::string& m : recorder_->messages) EXPECT_TRUE(IsValidQbxmlOfAnyEdition(m));
    ResetLibraryStateForTesting();
  }

  // Requests sent since the last call (responses left out).
  std::vector<std::string> TakeRequests() {
    std::vector<std::string> out;
    for (size_t i = taken_; i < recorder_->messages.size(); i += 2) out.push_back(recorder_->messages[i]);
    taken_ = recorder_->messages.size();
    return out;
  }
  bool IsUS() const { return GetParam() == qbsim::Edition::US; }
  const std::string& Path() const { return path_; }

 private:
  void Register() {
    qbsim::ProcessorOptions options;
    options.strict = true;
    recorder_ = std::make_shared<RecordingProcessor>(qbsim::CreateProcessor(options));
    for (const char* id : {kRequestProcessor1, kRequestProcessor2})
      RegisterRequestProcessor(id, [r = recorder_] { return r; });
  }

  TempDir dir_;
  std::string path_;
  std::shared_ptr<RecordingProcessor> recorder_;
  size_t taken_ = 0;
};

inline std::string EditionName(const ::testing::TestParamInfo<qbsim::Edition>& info) {
  return qbsim::EditionName(info.param);
}

}  // namespace tessaron::testing

namespace tessaron::qbsim {
// Test names and failure messages show the edition by name.
inline void PrintTo(Edition e, std::ostream* os) { *os << EditionName(e); }
}  // namespace tessaron::qbsim

namespace tessaron::testing {

#define TESSARON_ALL_EDITIONS(Suite)                                                                            \
  INSTANTIATE_TEST_SUITE_P(Editions, Suite,                                                                     \
                           ::testing::Values(qbsim::Edition::US, qbsim::Edition::CA, qbsim::Edition::UK,       \
                                             qbsim::Edition::AU),                                               \
                           ::tessaron::testing::EditionName)

}  // namespace tessaron::testing
