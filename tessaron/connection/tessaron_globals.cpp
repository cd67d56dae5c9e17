#include "tessaron/connection/tessaron_globals.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/platform/error.h"

namespace tessaron {

std::shared_ptr<tessaron::QBConnection> TessaronGlobals::QBConnection() {
  LibraryState& state = State();
  if (!state.GlobalConnection) state.GlobalConnection = std::make_shared<tessaron::QBConnection>();
  return state.GlobalConnection;
}

int32_t TessaronGlobals::QBConnect(const std::string& AppID, const std::string& AppName,
                                   qbEnumFileOpenMode ConnectionType, const std::string& QBWFilePath) {
  return QBConnection()->Connect(AppID, AppName, ConnectionType, QBWFilePath);
}

void TessaronGlobals::EnsureConnected() {
  if (State().SessionTicket.empty()) throw Error(err::kNotConnected, "Tessaron", err::kNotConnectedText);
}

std::shared_ptr<tessaron::Company> TessaronGlobals::Company() {
  EnsureConnected();
  return State().CurrentCompany;
}

tessaron::Company* TessaronGlobals::Open() {
  EnsureConnected();
  // A session whose company query failed has no company: using it is a null handle.
  tessaron::Company* company = State().CurrentCompany.get();
  if (!company) RaisePlatform(platform_error::kObjectNotSet);
  return company;
}

}  // namespace tessaron
