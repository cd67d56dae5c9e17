// A connected session with a company, for tests of data extensions: the company record,
// the preferences and the definitions of custom and application fields are answered by
// name; the application's GUID is registered before the connection when one is given.
#pragma once

#include <memory>
#include <string>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"

namespace tessaron::testing {

inline constexpr const char* kAppGuid = "{6B063959-81B0-4622-85D6-F548C8CCB517}";

// A DataExtDefRet of one definition.
inline std::string DefRet(const std::string& owner, const std::string& name, const std::string& type,
                          const std::string& assignedTo) {
  std::string body = "<DataExtDefRet><OwnerID>" + owner + "</OwnerID><DataExtID>1</DataExtID><DataExtName>" + name +
                     "</DataExtName><DataExtType>" + type + "</DataExtType>";
  for (size_t start = 0; start < assignedTo.size();) {
    size_t comma = assignedTo.find(',', start);
    if (comma == std::string::npos) comma = assignedTo.size();
    body += "<AssignToObject>" + assignedTo.substr(start, comma - start) + "</AssignToObject>";
    start = comma + 1;
  }
  return body + "<DataExtListRequire>false</DataExtListRequire><DataExtTxnRequire>false</DataExtTxnRequire>"
                "<DataExtFormatString></DataExtFormatString></DataExtDefRet>";
}

// A DataExtRet of one value.
inline std::string ExtRet(const std::string& owner, const std::string& name, const std::string& type,
                          const std::string& value) {
  return "<DataExtRet><OwnerID>" + owner + "</OwnerID><DataExtName>" + name + "</DataExtName><DataExtType>" + type +
         "</DataExtType><DataExtValue>" + value + "</DataExtValue></DataExtRet>";
}

class DataExtSession : public ScriptedSession {
 public:
  // `customDefs` and `appDefs` are DataExtDefRet elements answered to the definition query
  // of each owner.
  explicit DataExtSession(const std::string& version = "3.0", const std::string& guid = kAppGuid,
                          const std::string& customDefs = "", const std::string& appDefs = "")
      : ScriptedSession("") {
    processor().RespondTo("CompanyQueryRq",
                          ScriptedProcessor::Response("CompanyQueryRs", "<CompanyRet><CompanyName>Castle</CompanyName></CompanyRet>"));
    processor().SetVersions({version});
    State().DataExtensionsGUID = guid;
    TessaronGlobals::QBConnect("Tests", "Tessaron tests", qbFileOpenDoNotCare);
    customDefs_ = customDefs;
    appDefs_ = appDefs;
    processor().ClearRecords();
  }
  ~DataExtSession() { State().GlobalConnection.reset(); }

  std::shared_ptr<Company> company() { return TessaronGlobals::Company(); }
  // Reads both definition collections, each answering its owner's definitions.
  void LoadDefinitions() {
    processor().QueueResponse(ScriptedProcessor::Response("DataExtDefQueryRs", customDefs_, customDefs_.empty() ? 1 : 0));
    company()->CustomFields();
    if (!State().DataExtensionsGUID.empty()) {
      processor().QueueResponse(ScriptedProcessor::Response("DataExtDefQueryRs", appDefs_, appDefs_.empty() ? 1 : 0));
      company()->ApplicationFields();
    }
    processor().ClearRecords();
  }

 private:
  std::string customDefs_;
  std::string appDefs_;
};

}  // namespace tessaron::testing
