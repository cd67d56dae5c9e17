#include "qbsim/qbsim.h"

#include "tessaron/platform/request_processor.h"

namespace tessaron::qbsim {

void RegisterProcessor(const ProcessorOptions& options, const Registration& registration) {
  UnregisterProcessor();
  if (registration.rq1) {
    ProcessorOptions rq1 = options;
    if (registration.rq1MajorVersion) rq1.processorMajorVersion = registration.rq1MajorVersion;
    RegisterRequestProcessor(kRequestProcessor1, [rq1] { return std::make_shared<Processor>(rq1); });
  }
  if (registration.rq2)
    RegisterRequestProcessor(kRequestProcessor2, [options] { return std::make_shared<Processor>(options); });
}

void UnregisterProcessor() {
  UnregisterRequestProcessor(kRequestProcessor1);
  UnregisterRequestProcessor(kRequestProcessor2);
}

std::shared_ptr<Processor> CreateProcessor(const ProcessorOptions& options) {
  return std::make_shared<Processor>(options);
}

void CreateCompany(const std::string& path, const CompanySetup& setup) { CompanyFile::Create(path, setup); }

}  // namespace tessaron::qbsim
