// The embedded request processor: QuickBooks' request processor interface, answered from
// company files on disk.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "qbsim/message.h"
#include "qbsim/processor_options.h"
#include "tessaron/platform/request_processor.h"

namespace tessaron::qbsim {

class Processor : public RequestProcessor {
 public:
  explicit Processor(ProcessorOptions options);
  ~Processor() override;

  // Opens the link. Refused applications (ProcessorOptions::refusedApplications) raise.
  void OpenConnection(const std::string& appId, const std::string& appName) override;
  // Opens a company file and returns a new ticket; "" opens the file currently open
  // (see ProcessorOptions::currentCompanyFile). The open mode is taken as it stands.
  std::string BeginSession(const std::string& companyFile, int32_t openMode) override;
  // Ends a session; a ticket that has ended already is let be.
  void EndSession(const std::string& ticket) override;
  // Ends every session of this processor and the link.
  void CloseConnection() override;
  std::string ProcessRequest(const std::string& ticket, const std::string& request) override;
  // Needs the link only, no session.
  std::string ProcessSubscription(const std::string& request) override;
  std::vector<std::string> QBXMLVersionsForSession(const std::string& ticket) override;
  std::string GetCurrentCompanyFileName(const std::string& ticket) override;
  int MajorVersion() override;
  int MinorVersion() override;

  const ProcessorOptions& Options() const { return options_; }

 private:
  const SessionInfo& SessionFor(const std::string& ticket) const;
  // The host's subscriptions: the options' store or the process's.
  SubscriptionStore& Subscriptions() const;
  int AnnouncedVersion() const;

  ProcessorOptions options_;
  bool connected_ = false;
  std::map<std::string, SessionInfo> sessions_;
};

}  // namespace tessaron::qbsim
