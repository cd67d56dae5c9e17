#include "cli/session.h"

#include <filesystem>

#include "qbsim/qbsim.h"
#include "tessaron/platform/error.h"

namespace tessaron::cli {

void RegisterEmbeddedProcessor(const GlobalOptions& global) {
  qbsim::ProcessorOptions options;
  options.strict = !global.lenient;
  qbsim::RegisterProcessor(options);
}

Session::Session(const std::string& companyFile, const GlobalOptions& global) {
  RegisterEmbeddedProcessor(global);
  // The transcript starts before the connection, so that it holds every message of the run.
  if (!global.transcript.empty()) connection_.SetDebugLogPath(global.transcript);
  std::error_code ec;
  std::string path = std::filesystem::absolute(companyFile, ec).string();
  connection_.Connect("", "tessaron command", qbFileOpenDoNotCare, ec ? companyFile : path);
}

Session::~Session() {
  try {
    connection_.CloseConnection();
  } catch (...) {
    // Closing a session that failed half-way has nothing left to report.
  }
}

}  // namespace tessaron::cli
