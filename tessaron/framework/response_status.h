// The status of one response element as the commits read it: the element's text form split
// at every double quote, relying on QuickBooks' attribute order (requestID, statusCode,
// statusSeverity, statusMessage) and on no attribute value holding a quote.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcErrors;

struct ResponseStatus {
  long requestId = 0;
  int32_t code = 0;
  std::string message;
};

ResponseStatus ReadResponseStatus(const XmlNode& node);

// What a message holding "QuickBooks error message: " says behind that marker; other
// messages as they stand.
std::string CutQuickBooksMessage(const std::string& message);

// Tells a commit that QuickBooks refused: 0x800403FA "failed commit" in the collection's
// errors under `key`, and in the object's 0x800403F9 for status 3100 (the name is taken),
// else 0x800403E9 with QuickBooks' message cut to its own words.
void NoteCommitFailure(qcErrors& collection, const std::string& key, qcErrors& object, const ResponseStatus& status);

// The responses of a message: the children of QBXMLMsgsRs (document child 1 is QBXML,
// child 0 the XML declaration).
XmlNodeList ResponsesOf(const XmlDocument& doc);

}  // namespace tessaron
