#include "tests/support/scripted_processor.h"

#include <algorithm>

#include "tessaron/connection/library_state.h"
#include "tessaron/platform/xml_dom.h"
#include "tests/support/qbxml_check.h"

namespace tessaron::testing {
namespace {

const char* Severity(int statusCode) {
  if (statusCode == 0 || statusCode == 1) return "Info";
  return statusCode < 1000 ? "Warn" : "Error";
}

std::string Attr(const std::string& value) {
  std::string out;
  for (char c : value) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

std::string Wrap(const char* set, const std::string& rsName, const std::string& body, int statusCode,
                 const std::string& statusMessage, const std::string& requestID) {
  std::string out = "<?xml version=\"1.0\" ?><QBXML><";
  out += set;
  out += "><" + rsName;
  if (!requestID.empty()) out += " requestID=\"" + Attr(requestID) + "\"";
  out += " statusCode=\"" + std::to_string(statusCode) + "\" statusSeverity=\"" + Severity(statusCode) +
         "\" statusMessage=\"" + Attr(statusMessage) + "\">" + body + "</" + rsName + "></" + set + "></QBXML>";
  return out;
}

// The request elements of a message set, with their requestIDs; and whether it is a
// subscription set.
struct RequestOutline {
  bool subscription = false;
  std::vector<std::pair<std::string, std::string>> requests;  // name, requestID
};

RequestOutline Outline(const std::string& request) {
  RequestOutline outline;
  XmlDocument doc = XmlDocument::Create();
  if (!doc.loadXML(request)) return outline;
  XmlNode root = doc.documentElement();
  if (root.IsNull()) return outline;
  XmlNode set = root.firstChild();
  if (set.IsNull()) return outline;
  outline.subscription = set.baseName() == "QBXMLSubscriptionMsgsRq";
  for (XmlNode rq = set.firstChild(); !rq.IsNull(); rq = rq.nextSibling()) {
    if (rq.nodeType() != XmlNodeType::Element) continue;
    XmlNode id = rq.attributes().getNamedItem("requestID");
    outline.requests.emplace_back(std::string(rq.baseName()), id.IsNull() ? std::string() : id.text());
  }
  return outline;
}

std::string ResponseName(const std::string& requestName) {
  if (requestName.size() > 2 && requestName.compare(requestName.size() - 2, 2, "Rq") == 0)
    return requestName.substr(0, requestName.size() - 2) + "Rs";
  return requestName + "Rs";
}

}  // namespace

ScriptedProcessor::ScriptedProcessor() = default;

// ---- Configuration ----------------------------------------------------------------------------

ScriptedProcessor& ScriptedProcessor::SetVersions(std::vector<std::string> versions) {
  versions_ = std::move(versions);
  return *this;
}
ScriptedProcessor& ScriptedProcessor::SetProcessorVersion(int major, int minor) {
  major_ = major;
  minor_ = minor;
  return *this;
}
ScriptedProcessor& ScriptedProcessor::SetCurrentCompanyFile(std::string path) {
  companyFile_ = std::move(path);
  return *this;
}
ScriptedProcessor& ScriptedProcessor::SetTicket(std::string ticket) {
  ticket_ = std::move(ticket);
  return *this;
}
ScriptedProcessor& ScriptedProcessor::SetHost(std::string productName, std::string majorVersion,
                                              std::string minorVersion, std::string country) {
  hostProduct_ = std::move(productName);
  hostMajor_ = std::move(majorVersion);
  hostMinor_ = std::move(minorVersion);
  hostCountry_ = std::move(country);
  return *this;
}

void ScriptedProcessor::QueueResponse(std::string response) { queued_.push_back(std::move(response)); }
void ScriptedProcessor::RespondTo(const std::string& requestName, std::string response) {
  byName_[requestName] = std::move(response);
}
void ScriptedProcessor::FailOn(const std::string& member, Error error) {
  faults_.insert_or_assign(member, std::move(error));
}
void ScriptedProcessor::ClearFault(const std::string& member) { faults_.erase(member); }

// ---- Records ----------------------------------------------------------------------------------

std::vector<std::string> ScriptedProcessor::CallNames() const {
  std::vector<std::string> names;
  names.reserve(calls_.size());
  for (const Call& call : calls_) names.push_back(call.member);
  return names;
}

int ScriptedProcessor::CountCalls(const std::string& member) const {
  return static_cast<int>(std::count_if(calls_.begin(), calls_.end(), [&](const Call& c) { return c.member == member; }));
}

const std::string& ScriptedProcessor::LastRequest() const {
  static const std::string none;
  return requests_.empty() ? none : requests_.back();
}

std::vector<std::string> ScriptedProcessor::RequestNames() const {
  std::vector<std::string> names;
  for (const std::string& request : requests_) {
    RequestOutline outline = Outline(request);
    names.push_back(outline.requests.empty() ? std::string() : outline.requests.front().first);
  }
  return names;
}

void ScriptedProcessor::ClearRecords() {
  calls_.clear();
  requests_.clear();
}

::testing::AssertionResult ScriptedProcessor::AllRequestsValid() const {
  for (size_t i = 0; i < requests_.size(); ++i) {
    ::testing::AssertionResult valid = IsValidQbxml(requests_[i]);
    if (!valid) return ::testing::AssertionFailure() << "request " << i + 1 << " of " << requests_.size() << ": "
                                                     << valid.message();
  }
  return ::testing::AssertionSuccess();
}

void ScriptedProcessor::Record(const char* member, std::vector<std::string> arguments) {
  calls_.push_back(Call{member, std::move(arguments)});
  auto fault = faults_.find(member);
  if (fault != faults_.end()) throw fault->second;
}

// ---- Response texts ---------------------------------------------------------------------------

std::string ScriptedProcessor::Response(const std::string& rsName, const std::string& body, int statusCode,
                                        const std::string& statusMessage, const std::string& requestID) {
  return Wrap("QBXMLMsgsRs", rsName, body, statusCode, statusMessage, requestID);
}

std::string ScriptedProcessor::SubscriptionResponse(const std::string& rsName, const std::string& body,
                                                    int statusCode, const std::string& statusMessage) {
  return Wrap("QBXMLSubscriptionMsgsRs", rsName, body, statusCode, statusMessage, "");
}

std::string ScriptedProcessor::HostResponse(const std::string& productName, const std::string& majorVersion,
                                            const std::string& minorVersion, const std::vector<std::string>& versions,
                                            const std::string& country) {
  std::string body = "<HostRet><ProductName>" + Attr(productName) + "</ProductName><MajorVersion>" + majorVersion +
                     "</MajorVersion><MinorVersion>" + minorVersion + "</MinorVersion><Country>" + country +
                     "</Country>";
  // The host record lists the versions without a country prefix.
  for (const std::string& v : versions) {
    size_t digit = v.find_first_of("0123456789");
    body += "<SupportedQBXMLVersion>" + (digit == std::string::npos ? v : v.substr(digit)) + "</SupportedQBXMLVersion>";
  }
  body += "<IsAutomaticLogin>false</IsAutomaticLogin><QBFileMode>SingleUser</QBFileMode></HostRet>";
  return Response("HostQueryRs", body);
}

std::string ScriptedProcessor::Unparsable() { return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><Broken"; }

std::string ScriptedProcessor::WithoutAttributes(const std::string& rsName) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><" + rsName + "/></QBXMLMsgsRs></QBXML>";
}

// ---- The processor ----------------------------------------------------------------------------

void ScriptedProcessor::OpenConnection(const std::string& appId, const std::string& appName) {
  Record("OpenConnection", {appId, appName});
}

std::string ScriptedProcessor::BeginSession(const std::string& companyFile, int32_t openMode) {
  Record("BeginSession", {companyFile, std::to_string(openMode)});
  return ticket_;
}

void ScriptedProcessor::EndSession(const std::string& ticket) { Record("EndSession", {ticket}); }

void ScriptedProcessor::CloseConnection() { Record("CloseConnection", {}); }

std::string ScriptedProcessor::ProcessRequest(const std::string& ticket, const std::string& request) {
  requests_.push_back(request);
  Record("ProcessRequest", {ticket, request});
  return Answer(request);
}

std::string ScriptedProcessor::ProcessSubscription(const std::string& request) {
  requests_.push_back(request);
  Record("ProcessSubscription", {request});
  return Answer(request);
}

std::vector<std::string> ScriptedProcessor::QBXMLVersionsForSession(const std::string& ticket) {
  Record("QBXMLVersionsForSession", {ticket});
  return versions_;
}

std::string ScriptedProcessor::GetCurrentCompanyFileName(const std::string& ticket) {
  Record("GetCurrentCompanyFileName", {ticket});
  return companyFile_;
}

int ScriptedProcessor::MajorVersion() {
  Record("MajorVersion", {});
  return major_;
}

int ScriptedProcessor::MinorVersion() {
  Record("MinorVersion", {});
  return minor_;
}

std::string ScriptedProcessor::Answer(const std::string& request) {
  if (!queued_.empty()) {
    std::string response = std::move(queued_.front());
    queued_.pop_front();
    return response;
  }
  RequestOutline outline = Outline(request);
  const std::string first = outline.requests.empty() ? std::string() : outline.requests.front().first;
  auto named = byName_.find(first);
  if (named != byName_.end()) return named->second;
  if (first == "HostQueryRq") return HostResponse(hostProduct_, hostMajor_, hostMinor_, versions_, hostCountry_);
  // Generated: every request answered with success and no records.
  const char* set = outline.subscription ? "QBXMLSubscriptionMsgsRs" : "QBXMLMsgsRs";
  std::string out = "<?xml version=\"1.0\" ?><QBXML><" + std::string(set) + ">";
  for (const auto& [name, id] : outline.requests) {
    std::string rs = ResponseName(name);
    out += "<" + rs;
    if (!id.empty()) out += " requestID=\"" + Attr(id) + "\"";
    out += " statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\"/>";
  }
  out += "</" + std::string(set) + "></QBXML>";
  return out;
}

// ---- Registration -----------------------------------------------------------------------------

ProcessorRegistration::ProcessorRegistration(std::shared_ptr<ScriptedProcessor> processor)
    : processor_(std::move(processor)), creations_(std::make_shared<std::map<std::string, int>>()) {
  Register(kRequestProcessor1);
  Register(kRequestProcessor2);
}

ProcessorRegistration::ProcessorRegistration(std::shared_ptr<ScriptedProcessor> processor, const std::string& progId)
    : processor_(std::move(processor)), creations_(std::make_shared<std::map<std::string, int>>()) {
  Register(progId);
}

void ProcessorRegistration::Register(const std::string& progId) {
  progIds_.push_back(progId);
  auto processor = processor_;
  auto creations = creations_;
  RegisterRequestProcessor(progId, [processor, creations, progId]() -> std::shared_ptr<RequestProcessor> {
    ++(*creations)[progId];
    return processor;
  });
}

ProcessorRegistration::~ProcessorRegistration() {
  for (const std::string& progId : progIds_) UnregisterRequestProcessor(progId);
}

int ProcessorRegistration::Creations(const std::string& progId) const {
  auto it = creations_->find(progId);
  return it == creations_->end() ? 0 : it->second;
}

// ---- Session ----------------------------------------------------------------------------------

ScriptedSession::ScriptedSession(const std::string& qbxmlVersion)
    : processor_(std::make_shared<ScriptedProcessor>()) {
  ResetLibraryStateForTesting();
  UnregisterRequestProcessor(kRequestProcessor1);
  UnregisterRequestProcessor(kRequestProcessor2);
  registration_ = std::make_unique<ProcessorRegistration>(processor_);
  connection_ = std::make_unique<QBConnection>();
  if (qbxmlVersion.empty()) return;
  processor_->SetVersions({qbxmlVersion});
  connection_->Connect("TessaronTests", "Tessaron tests", qbFileOpenDoNotCare);
  processor_->ClearRecords();
}

ScriptedSession::~ScriptedSession() {
  connection_.reset();
  registration_.reset();
  ResetLibraryStateForTesting();
}

}  // namespace tessaron::testing
