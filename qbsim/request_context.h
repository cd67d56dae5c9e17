// What a request handler works with: the company file of the session, the message's
// qbXML version and edition, and the processor's options.
#pragma once

#include <string>

#include "qbsim/company_file.h"
#include "qbsim/edition.h"
#include "qbsim/list_store.h"
#include "qbsim/processor_options.h"

namespace tessaron::qbsim {

class RequestContext {
 public:
  RequestContext(CompanyFile& file, const ProcessorOptions& options, Edition edition, int version, int newestVersion)
      : file(file), store(file), options(options), edition(edition), version(version), newestVersion(newestVersion) {}

  bool Strict() const { return options.strict; }
  bool IsUS() const { return edition == Edition::US; }

  CompanyFile& file;
  ListStore store;
  const ProcessorOptions& options;
  Edition edition;
  int version;        // of the message's document type, x10
  int newestVersion;  // of the session, x10
};

}  // namespace tessaron::qbsim
