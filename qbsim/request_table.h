// The requests the processor answers, by name. Each subsystem adds its requests with one
// registration function; a request that is not in the table is answered "not supported".
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "qbsim/status.h"
#include "qbsim/xml_out.h"

namespace tessaron::qbsim {

class RequestContext;

// Answers one request: writes the records of its response into `out` and returns the status.
using RequestHandler = std::function<Status(RequestContext& ctx, const pugi::xml_node& request, XmlOut& out)>;
// Strict mode's look at one request before anything of the message is done: the first
// element that the message's qbXML version or the edition does not have, or an empty text.
using RequestCheck = std::function<std::string(RequestContext& ctx, const pugi::xml_node& request)>;

struct RequestEntry {
  RequestHandler handle;
  RequestCheck check;
  int minVersion = 10;  // qbXML version x10 that introduced the request
};

class RequestTable {
 public:
  // The table of every request the processor answers.
  static const RequestTable& Instance();

  void Add(const std::string& name, RequestEntry entry);
  const RequestEntry* Find(std::string_view name) const;

 private:
  std::map<std::string, RequestEntry, std::less<>> entries_;
};

void RegisterListRequests(RequestTable& table);
void RegisterCompanyRequests(RequestTable& table);
void RegisterTxnRequests(RequestTable& table);
void RegisterReportRequests(RequestTable& table);
void RegisterDataExtRequests(RequestTable& table);

}  // namespace tessaron::qbsim
