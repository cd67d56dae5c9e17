// The request processor: the component that takes qbXML requests to a company file and
// answers them. Processors are created by programmatic identifier through a process-wide
// registry, so that an application or a test can plug in its own.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tessaron {

// Every member raises tessaron::Error on failure.
class RequestProcessor {
 public:
  virtual ~RequestProcessor() = default;

  virtual void OpenConnection(const std::string& appId, const std::string& appName) = 0;
  // Opens a session on a company file; an empty path means the file currently open.
  // Returns the session ticket.
  virtual std::string BeginSession(const std::string& companyFile, int32_t openMode) = 0;
  virtual void EndSession(const std::string& ticket) = 0;
  virtual void CloseConnection() = 0;
  // Answers an ordinary message set.
  virtual std::string ProcessRequest(const std::string& ticket, const std::string& request) = 0;
  // Answers a subscription message set; needs no session.
  virtual std::string ProcessSubscription(const std::string& request) = 0;
  // The qbXML versions the session supports, oldest first.
  virtual std::vector<std::string> QBXMLVersionsForSession(const std::string& ticket) = 0;
  virtual std::string GetCurrentCompanyFileName(const std::string& ticket) = 0;
  virtual int MajorVersion() = 0;
  virtual int MinorVersion() = 0;
};

using RequestProcessorFactory = std::function<std::shared_ptr<RequestProcessor>()>;

// The two identifiers under which the library looks for processors.
inline constexpr const char* kRequestProcessor1 = "QBXMLRP.RequestProcessor";
inline constexpr const char* kRequestProcessor2 = "QBXMLRP2.RequestProcessor";

// Registers (or replaces) the factory for an identifier; identifiers compare case-insensitively.
void RegisterRequestProcessor(const std::string& progId, RequestProcessorFactory factory);
void UnregisterRequestProcessor(const std::string& progId);
bool IsRequestProcessorRegistered(const std::string& progId);
// Creates a processor; an identifier that is not registered, or a factory that fails or
// returns nothing, raises the platform's "cannot create object" error (429).
std::shared_ptr<RequestProcessor> CreateRequestProcessorObject(const std::string& progId);

}  // namespace tessaron
