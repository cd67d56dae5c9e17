// tessaron demo [--company FILE]
#include <filesystem>
#include <iostream>
#include <unistd.h>

#include "cli/session.h"
#include "qbsim/qbsim.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/version.h"

namespace tessaron::cli {
namespace {

// Without a company file the demo makes a small sample of its own and removes it after.
class Scratch {
 public:
  Scratch() {
    path_ = (std::filesystem::temp_directory_path() / ("tessaron-demo-" + std::to_string(getpid()) + ".qbw")).string();
    qbsim::CreateSampleCompany(path_);
  }
  ~Scratch() {
    std::error_code ec;
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + suffix, ec);
  }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

void ShowConnection(QBConnection& qb) {
  std::cout << "Connected to " << qb.CompanyPath() << "\n"
            << "  host        " << qb.ProductName() << " " << qb.QBMajorVersion() << "." << qb.QBMinorVersion()
            << ", edition " << qb.Country().ToString() << (qb.IsUSProduct() ? "" : " (outside the US)") << "\n"
            << "  qbXML       " << qb.qbXMLVersion() << ", file mode " << qb.QBFileMode().ToString() << "\n";
}

void ShowWhatTheLibraryReads() {
  long values = 0;
  for (const auto& table : QBEnumerations().NewEnum()) values += table->Count();
  std::cout << "What the library reads so far:\n"
            << "  the host record: product, version, edition and qbXML versions\n"
            << "  " << QBEnumerations().Count() << " enumeration tables with " << values << " values\n";
}

}  // namespace

void AddDemoCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* demo = app.add_subcommand("demo", "Connect to a company file and show what the library reads");
  auto file = std::make_shared<std::string>();
  demo->add_option("--company", *file, "The company file (default: a new sample, removed afterwards)");
  demo->callback([file, &global] {
    std::cout << "Tessaron " << TESSARON_VERSION_TEXT << "\n";
    std::unique_ptr<Scratch> scratch;
    if (file->empty()) scratch = std::make_unique<Scratch>();
    {
      Session session(scratch ? scratch->Path() : *file, global);
      ShowConnection(session.Connection());
      ShowWhatTheLibraryReads();
    }
    std::cout << "Connection closed.\n";
  });
}

}  // namespace tessaron::cli
