// tessaron version
#include <iostream>

#include "cli/commands.h"
#include "tessaron/version.h"

namespace tessaron::cli {

void AddVersionCommand(CLI::App& app) {
  app.add_subcommand("version", "Print the library's version")->callback([] {
    std::cout << "Tessaron " << TESSARON_VERSION_TEXT << "\n";
  });
}

}  // namespace tessaron::cli
