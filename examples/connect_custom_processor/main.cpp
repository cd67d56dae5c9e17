// Registers a small request processor of its own under the identifier the library looks
// for, connects through QBConnection, and prints what the connection learned.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <tessaron/connection/qb_connection.h>
#include <tessaron/platform/error.h>
#include <tessaron/platform/request_processor.h>

namespace {

// Answers the three requests a connection sends: the host query, the company query and the
// preferences query. A real processor would hand the text to the accounting program.
class DemoProcessor : public tessaron::RequestProcessor {
 public:
  void OpenConnection(const std::string& appId, const std::string& appName) override {
    std::cout << "processor: link opened for " << appName << "\n";
  }
  std::string BeginSession(const std::string& companyFile, int32_t) override { return "demo-ticket"; }
  void EndSession(const std::string&) override { std::cout << "processor: session ended\n"; }
  void CloseConnection() override { std::cout << "processor: link closed\n"; }
  std::string ProcessRequest(const std::string&, const std::string& request) override {
    if (request.find("<HostQueryRq") != std::string::npos)
      return Wrap("<HostQueryRs requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\">"
                  "<HostRet><ProductName>Demo Books 2024</ProductName><MajorVersion>34</MajorVersion>"
                  "<MinorVersion>1</MinorVersion><Country>US</Country>"
                  "<SupportedQBXMLVersion>2.0</SupportedQBXMLVersion><SupportedQBXMLVersion>3.0"
                  "</SupportedQBXMLVersion></HostRet></HostQueryRs>");
    if (request.find("<CompanyQueryRq") != std::string::npos)
      return Wrap("<CompanyQueryRs statusCode=\"1\" statusSeverity=\"Info\" statusMessage=\"No company\"/>");
    return Wrap("<PreferencesQueryRs requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\"/>");
  }
  std::string ProcessSubscription(const std::string&) override { return Wrap(""); }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override { return {"1.0", "2.0", "3.0"}; }
  std::string GetCurrentCompanyFileName(const std::string&) override { return "/books/demo.qbw"; }
  int MajorVersion() override { return 34; }
  int MinorVersion() override { return 1; }

 private:
  static std::string Wrap(const std::string& response) {
    return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>" + response + "</QBXMLMsgsRs></QBXML>";
  }
};

}  // namespace

int main() {
  tessaron::RegisterRequestProcessor(tessaron::kRequestProcessor2,
                                     [] { return std::make_shared<DemoProcessor>(); });
  try {
    tessaron::QBConnection connection;
    connection.OnConnectionOpened([] { std::cout << "event: connection opened\n"; });
    connection.Connect("DemoApp", "Demo application", tessaron::qbFileOpenDoNotCare);
    std::cout << "product: " << connection.ProductName() << " " << connection.QBMajorVersion() << "."
              << connection.QBMinorVersion() << "\n"
              << "qbXML version: " << connection.qbXMLVersion() << "\n"
              << "company file: " << connection.CompanyPath() << "\n"
              << "library version: " << connection.TessaronVersion() << "\n";
    connection.CloseConnection();
  } catch (const tessaron::Error& e) {
    std::cerr << "error " << e.Number() << " (" << e.Source() << "): " << e.Description() << "\n";
    return 1;
  }
  return 0;
}
