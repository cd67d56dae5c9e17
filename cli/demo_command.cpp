// tessaron demo [--company FILE]
#include <iostream>

#include "cli/commands.h"
#include "qbsim/qbsim.h"
#include "tessaron/version.h"

namespace tessaron::cli {

void AddDemoCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* demo = app.add_subcommand("demo", "Show what the library reads from a company file");
  auto file = std::make_shared<std::string>();
  demo->add_option("--company", *file, "The company file (default: a new sample in the temporary folder)");
  demo->callback([file, &global] {
    std::cout << "Tessaron " << TESSARON_VERSION_TEXT << "\n";
    (void)global;
  });
}

}  // namespace tessaron::cli
