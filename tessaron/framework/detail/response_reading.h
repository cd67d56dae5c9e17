// How collections read a response message: the response elements of the message set, and
// the status of one response as the commit reads it (by position in the element's text,
// not through the attributes).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron::detail {

// The responses of a message: the children of QBXMLMsgsRs (document child 1 is QBXML,
// child 0 the XML declaration).
inline XmlNodeList Responses(const XmlDocument& doc) {
  return doc.childNodes().item(1).childNodes().item(0).childNodes();
}

// The response attributes as the commit reads them: the element's text form split at
// every double quote, relying on QuickBooks' attribute order (requestID, statusCode,
// statusSeverity, statusMessage): part 1 is the request id, part 3 the status code, part 7
// the message.
struct ResponseStatus {
  long requestId = 0;
  int32_t code = 0;
  std::string message;
};

inline ResponseStatus ReadResponseStatus(const XmlNode& node) {
  const std::string text = node.xml();
  std::vector<std::string_view> tokens;
  size_t start = 0;
  for (;;) {
    size_t quote = text.find('"', start);
    tokens.emplace_back(std::string_view(text).substr(start, quote == std::string::npos ? std::string::npos : quote - start));
    if (quote == std::string::npos) break;
    start = quote + 1;
  }
  auto token = [&](size_t i) { return i < tokens.size() ? std::string(tokens[i]) : std::string(); };
  ResponseStatus status;
  status.requestId = static_cast<long>(Variant(token(1)).ToInteger());
  status.code = static_cast<int32_t>(Variant(token(3)).ToInteger());
  status.message = token(7);
  return status;
}

}  // namespace tessaron::detail
