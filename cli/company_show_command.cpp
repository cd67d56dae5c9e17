// tessaron company show --company FILE
#include <iostream>

#include "cli/company_view.h"
#include "cli/session.h"
#include "tessaron/platform/error.h"

namespace tessaron::cli {

void AddCompanyShowCommand(CLI::App& company, const GlobalOptions& global) {
  CLI::App* show = company.add_subcommand("show", "Connect to a company file and print its record and preferences");
  auto file = std::make_shared<std::string>();
  show->add_option("--company", *file, "The company file")->required();
  show->callback([file, &global] {
    Session session(*file, global);
    auto c = session.Connection().Company();
    if (!c) throw Error(platform_error::kObjectNotSet, "tessaron company show", "The company record could not be read.");
    PrintCompany(*c, std::cout);
  });
}

}  // namespace tessaron::cli
