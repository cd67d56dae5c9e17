// tessaron host --company FILE
#include <iostream>

#include "cli/session.h"

namespace tessaron::cli {

void AddHostCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* host = app.add_subcommand("host", "Connect to a company file and print the host record");
  auto file = std::make_shared<std::string>();
  host->add_option("--company", *file, "The company file")->required();
  host->callback([file, &global] {
    Session session(*file, global);
    QBConnection& qb = session.Connection();
    std::cout << "ProductName            " << qb.ProductName() << "\n"
              << "MajorVersion           " << qb.QBMajorVersion() << "\n"
              << "MinorVersion           " << qb.QBMinorVersion() << "\n"
              << "Country                " << qb.Country().ToString() << "\n"
              << "SupportedQBXMLVersion  " << qb.qbXMLVersion() << "\n"
              << "IsAutomaticLogin       " << (qb.IsAutomaticLogin() ? "true" : "false") << "\n"
              << "QBFileMode             " << qb.QBFileMode().ToString() << "\n"
              << "CompanyPath            " << qb.CompanyPath() << "\n";
  });
}

}  // namespace tessaron::cli
