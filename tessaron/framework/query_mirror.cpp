#include "tessaron/framework/query_mirror.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/platform/error.h"

namespace tessaron {

namespace {
std::shared_ptr<QueryMirror>& Installed() {
  static std::shared_ptr<QueryMirror> mirror;
  return mirror;
}
}  // namespace

void SetQueryMirror(std::shared_ptr<QueryMirror> mirror) { Installed() = std::move(mirror); }

void HandToMirror(const XmlNode& queryRs, const std::string& databasePath, const std::string& objectName) {
  if (!Installed()) throw Error(err::kFeatureNotSupported, "Tessaron", err::kFeatureNotSupportedText);
  Installed()->UpdateDatabase(queryRs, databasePath, objectName);
}

}  // namespace tessaron
