// A scripted request processor for unit tests: it records every call and every request
// text, and answers canned responses.
//
//   auto qb = std::make_shared<ScriptedProcessor>();
//   ProcessorRegistration reg(qb);                  // under both identifiers, until scope end
//   qb->RespondTo("CustomerQueryRq", ScriptedProcessor::Response("CustomerQueryRs", "<CustomerRet>...</CustomerRet>"));
//   ... code under test ...
//   EXPECT_EQ(qb->Requests().size(), 1u);
//   EXPECT_TRUE(qb->AllRequestsValid());            // every request against the qbXML schema
//
// How a request is answered, first match wins:
//   1. a fault set with FailOn("ProcessRequest" / "ProcessSubscription", error) raises;
//   2. the oldest response queued with QueueResponse (used once);
//   3. the response set with RespondTo for the name of the first request of the message
//      set ("HostQueryRq"), answered every time;
//   4. otherwise a generated answer: for each request of the set, its "...Rs" with the same
//      requestID, statusCode 0 and no records.
// Out of the box it answers the host query with a "QuickBooks Pro 2013" record (major
// version 23) whose supported versions are the version list (default "1.0", "1.1", "2.0"),
// so a connection succeeds; SetVersions and SetHost change that. The processor itself
// reports MajorVersion 13 (SetProcessorVersion). Responses it generates validate against
// the qbXML schema; WithoutAttributes and Unparsable deliberately do not.
//
// ScriptedSession bundles the usual arrangement: a fresh library state, a processor under
// both identifiers, and a connected QBConnection at a chosen qbXML version.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tessaron/connection/qb_connection.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/request_processor.h"

namespace tessaron::testing {

class ScriptedProcessor : public RequestProcessor {
 public:
  // One recorded call: the member's name and its arguments as text.
  struct Call {
    std::string member;
    std::vector<std::string> arguments;
  };

  ScriptedProcessor();

  // ---- What it reports ------------------------------------------------------------------
  // QBXMLVersionsForSession, oldest first; also the supported versions of the host record.
  ScriptedProcessor& SetVersions(std::vector<std::string> versions);
  // MajorVersion / MinorVersion of the processor itself.
  ScriptedProcessor& SetProcessorVersion(int major, int minor);
  // What GetCurrentCompanyFileName answers (the file "open in QuickBooks").
  ScriptedProcessor& SetCurrentCompanyFile(std::string path);
  // The ticket BeginSession returns.
  ScriptedProcessor& SetTicket(std::string ticket);
  // The host record answered to "HostQueryRq".
  ScriptedProcessor& SetHost(std::string productName, std::string majorVersion, std::string minorVersion,
                             std::string country = "US");

  // ---- Answers ---------------------------------------------------------------------------
  void QueueResponse(std::string response);
  void RespondTo(const std::string& requestName, std::string response);

  // ---- Faults ----------------------------------------------------------------------------
  // Every later call of `member` ("OpenConnection", "BeginSession", "MajorVersion", ...)
  // raises `error`, until ClearFault.
  void FailOn(const std::string& member, Error error);
  void ClearFault(const std::string& member);

  // ---- Records ---------------------------------------------------------------------------
  const std::vector<Call>& Calls() const { return calls_; }
  // The member names of all calls, in order.
  std::vector<std::string> CallNames() const;
  int CountCalls(const std::string& member) const;
  // Every text given to ProcessRequest or ProcessSubscription, in order.
  const std::vector<std::string>& Requests() const { return requests_; }
  const std::string& LastRequest() const;
  // The name of the first request element of each recorded message ("CustomerQueryRq").
  std::vector<std::string> RequestNames() const;
  void ClearRecords();
  // Every recorded request validates against the qbXML schema.
  ::testing::AssertionResult AllRequestsValid() const;

  // ---- Response texts --------------------------------------------------------------------
  // A whole response message with one response element:
  // <?xml version="1.0" ?><QBXML><QBXMLMsgsRs><rsName requestID=".." statusCode=".."
  // statusSeverity=".." statusMessage="..">body</rsName></QBXMLMsgsRs></QBXML>
  static std::string Response(const std::string& rsName, const std::string& body = "", int statusCode = 0,
                              const std::string& statusMessage = "Status OK", const std::string& requestID = "1");
  // The same inside <QBXMLSubscriptionMsgsRs>.
  static std::string SubscriptionResponse(const std::string& rsName, const std::string& body = "",
                                          int statusCode = 0, const std::string& statusMessage = "Status OK");
  // A HostQueryRs holding one HostRet.
  static std::string HostResponse(const std::string& productName, const std::string& majorVersion,
                                  const std::string& minorVersion, const std::vector<std::string>& versions,
                                  const std::string& country = "US");
  // Text that is not well-formed XML.
  static std::string Unparsable();
  // A well-formed response whose response element carries no attributes at all.
  static std::string WithoutAttributes(const std::string& rsName);

  // ---- RequestProcessor --------------------------------------------------------------------
  void OpenConnection(const std::string& appId, const std::string& appName) override;
  std::string BeginSession(const std::string& companyFile, int32_t openMode) override;
  void EndSession(const std::string& ticket) override;
  void CloseConnection() override;
  std::string ProcessRequest(const std::string& ticket, const std::string& request) override;
  std::string ProcessSubscription(const std::string& request) override;
  std::vector<std::string> QBXMLVersionsForSession(const std::string& ticket) override;
  std::string GetCurrentCompanyFileName(const std::string& ticket) override;
  int MajorVersion() override;
  int MinorVersion() override;

 private:
  void Record(const char* member, std::vector<std::string> arguments);
  std::string Answer(const std::string& request);

  std::vector<std::string> versions_{"1.0", "1.1", "2.0"};
  int major_ = 13;
  int minor_ = 0;
  std::string companyFile_ = "C:\\Company Files\\Sample & Co.qbw";
  std::string ticket_ = "{ticket-1}";
  std::optional<std::string> host_;  // the host answer once SetHost was called
  std::string hostProduct_ = "QuickBooks Pro 2013";
  std::string hostMajor_ = "23";
  std::string hostMinor_ = "0";
  std::string hostCountry_ = "US";
  std::deque<std::string> queued_;
  std::map<std::string, std::string> byName_;
  std::map<std::string, Error> faults_;
  std::vector<Call> calls_;
  std::vector<std::string> requests_;
};

// Registers a processor under one identifier, or both, for the life of the object (the
// identifiers are unregistered at its end), and counts how often each was created. Every
// creation hands out the same processor, so a test can inspect what it recorded.
class ProcessorRegistration {
 public:
  explicit ProcessorRegistration(std::shared_ptr<ScriptedProcessor> processor);  // both identifiers
  ProcessorRegistration(std::shared_ptr<ScriptedProcessor> processor, const std::string& progId);
  ~ProcessorRegistration();
  ProcessorRegistration(const ProcessorRegistration&) = delete;
  ProcessorRegistration& operator=(const ProcessorRegistration&) = delete;

  // How many objects were created under the identifier.
  int Creations(const std::string& progId) const;

 private:
  void Register(const std::string& progId);
  std::shared_ptr<ScriptedProcessor> processor_;
  std::vector<std::string> progIds_;
  std::shared_ptr<std::map<std::string, int>> creations_;
};

// A fresh library state, a scripted processor under both identifiers, and a connection.
//
//   ScriptedSession qb("2.0");          // Connect() already done at qbXML 2.0
//   qb.processor().RespondTo(...);
//   xmlBldr b; ...
class ScriptedSession {
 public:
  // Connects with a version list that ends in `qbxmlVersion` ("2.0", "CA3.0", ...).
  // An empty version leaves the session unconnected (the state is still fresh).
  explicit ScriptedSession(const std::string& qbxmlVersion = "2.0");
  ~ScriptedSession();

  ScriptedProcessor& processor() { return *processor_; }
  QBConnection& connection() { return *connection_; }

 private:
  std::shared_ptr<ScriptedProcessor> processor_;
  std::unique_ptr<ProcessorRegistration> registration_;
  std::unique_ptr<QBConnection> connection_;
};

}  // namespace tessaron::testing
