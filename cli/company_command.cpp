// tessaron company create FILE [--edition US|CA|UK|AU] [--qbxml-version V] [--size N]
#include <iostream>

#include "cli/commands.h"
#include "qbsim/qbsim.h"

namespace tessaron::cli {

void AddCompanyCommand(CLI::App& app) {
  CLI::App* company = app.add_subcommand("company", "Company files of the embedded company-file processor");
  company->require_subcommand(1);
  CLI::App* create = company->add_subcommand("create", "Create a sample company file of invented records");
  struct Args {
    std::string file;
    std::string edition = "US";
    std::string version = qbsim::VersionText(qbsim::kDefaultNewestVersion);
    int size = 60;
  };
  auto args = std::make_shared<Args>();
  create->add_option("FILE", args->file, "The company file to create (it must not exist)")->required();
  create->add_option("--edition", args->edition, "National edition: US, CA, UK or AU")->capture_default_str();
  create->add_option("--qbxml-version", args->version, "Newest qbXML version the file's sessions offer")
      ->capture_default_str();
  create->add_option("--size", args->size, "Number of customers and jobs, from a few dozen to 100000")
      ->capture_default_str()
      ->check(CLI::Range(1, 1000000));
  create->callback([args] {
    qbsim::SampleOptions o;
    auto edition = qbsim::ParseEdition(args->edition);
    if (!edition) throw CLI::ValidationError("--edition", "must be one of US, CA, UK, AU");
    o.edition = *edition;
    auto version = qbsim::ParseVersion(args->version);
    if (!version || !qbsim::IsKnownVersion(*version))
      throw CLI::ValidationError("--qbxml-version", "is not a qbXML version this processor knows");
    o.newestVersion = *version;
    o.customers = args->size;
    qbsim::CreateSampleCompany(args->file, o);
    std::cout << "Created " << args->file << ": " << qbsim::EditionName(o.edition) << " edition, qbXML "
              << qbsim::VersionPrefix(o.edition) << qbsim::VersionText(o.newestVersion) << ", " << o.customers
              << " customers and jobs\n";
  });
}

}  // namespace tessaron::cli
