// The hand-over of a query response to the database mirror. A query whose database path
// is not empty gives its `...QueryRs` element to the mirror instead of making objects.
// The mirror installs its implementation here; until one is installed the hand-over
// raises 0x80040B5E "This version of tessaron does not support this feature.".
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class QueryMirror {
 public:
  virtual ~QueryMirror() = default;
  // Files the records of `queryRs` into the database at `databasePath`, under the
  // object name of the query ("Class", "CustomerMsg").
  virtual void UpdateDatabase(const XmlNode& queryRs, const std::string& databasePath,
                              const std::string& objectName) = 0;
};

// Installs the mirror (null removes it).
void SetQueryMirror(std::shared_ptr<QueryMirror> mirror);
// Hands a response to the installed mirror; raises 0x80040B5E, source "Tessaron", when none is.
void HandToMirror(const XmlNode& queryRs, const std::string& databasePath, const std::string& objectName);

}  // namespace tessaron
