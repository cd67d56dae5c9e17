// The embedded processor's answer to a request message, strict or lenient (the lowest bit
// of the first byte), on a small sample company kept in memory-backed storage when there
// is some. A message is answered or raises tessaron::Error, nothing else.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>

#include "qbsim/qbsim.h"
#include "tessaron/platform/error.h"

using namespace tessaron;

namespace {

struct Sessions {
  std::shared_ptr<qbsim::Processor> processor[2];
  std::string ticket[2];
};

Sessions& Open() {
  static Sessions sessions = [] {
    namespace fs = std::filesystem;
    fs::path dir = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    dir /= "tessaron-fuzz-" + std::to_string(getpid());
    fs::create_directories(dir);
    std::string path = (dir / "company.qbw").string();
    qbsim::SampleOptions sample;
    sample.customers = 5;
    qbsim::CreateSampleCompany(path, sample);
    Sessions s;
    for (int strict = 0; strict < 2; ++strict) {
      qbsim::ProcessorOptions options;
      options.strict = strict == 1;
      s.processor[strict] = qbsim::CreateProcessor(options);
      s.processor[strict]->OpenConnection("", "fuzz");
      s.ticket[strict] = s.processor[strict]->BeginSession(path, 0);
    }
    std::atexit([] {
      std::error_code ec;
      fs::remove_all(fs::path(fs::exists("/dev/shm") ? "/dev/shm" : fs::temp_directory_path()) /
                         ("tessaron-fuzz-" + std::to_string(getpid())),
                     ec);
    });
    return s;
  }();
  return sessions;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  Sessions& s = Open();
  const int strict = data[0] & 1;
  const std::string message(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    s.processor[strict]->ProcessRequest(s.ticket[strict], message);
  } catch (const Error&) {
  }
  return 0;
}
