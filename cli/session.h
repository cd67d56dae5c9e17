// Opening the library's connection on a company file through the embedded processor.
#pragma once

#include <memory>
#include <string>

#include "cli/commands.h"
#include "tessaron/connection/qb_connection.h"

namespace tessaron::cli {

// Registers the embedded processor with the options of the command line (--lenient).
void RegisterEmbeddedProcessor(const GlobalOptions& global);

// Registers the embedded processor, starts the transcript when one was asked for, and
// connects to the company file. The connection closes with the object.
class Session {
 public:
  Session(const std::string& companyFile, const GlobalOptions& global);
  ~Session();
  QBConnection& Connection() { return connection_; }

 private:
  QBConnection connection_;
};

}  // namespace tessaron::cli
