// The library state: one set of values for the process, shared by every class.
// The library serves one session per process; the connection writes these values and
// everything else reads them.
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/collection.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/request_processor.h"

namespace tessaron {

class Company;
class QBConnection;
class LogFile;

struct LibraryState {
  std::shared_ptr<tessaron::RequestProcessor> RequestProcessor;
  std::string SessionTicket;
  // The second session that automatic invoice numbering opens.
  std::shared_ptr<tessaron::RequestProcessor> SecondaryProcessor;
  std::string SecondaryTicket;
  std::string AppID;
  std::string AppName;
  std::shared_ptr<Company> CurrentCompany;
  std::shared_ptr<QBConnection> GlobalConnection;
  // Newest qbXML version of the session, with any country prefix ("CA2.0").
  std::string QBXMLVersionText;
  // The same as a number, without the prefix; 0 before any connection.
  Currency QBXMLVersionNumber;
  std::string DataExtensionsGUID;
  std::string EventGUID;
  // Path of the message transcript; empty when none is kept.
  std::string DebugLogPath;
  bool IsWebConnection = false;
  bool IsConnected = false;
  bool IsSubscriptionConnection = false;
  bool TraceSend = false;
  bool IsNonUSProduct = false;
  bool IsUKProduct = false;
  bool IsAustralianProduct = false;
  bool ErrorMode = true;
  bool RecursiveUpdatesOff = true;
  bool IsRemote = false;
  // Whether QuickBooks allows this application personal data, as the preferences said.
  bool IsPersonalDataAccessAllowed = false;
  bool DBLogDetail = false;
  int32_t DatabaseMode = 0;
  std::shared_ptr<LogFile> DBLog;
  // Address line name -> its number: Addr1..Addr4 = 1..4, City 5, State 6, PostalCode 7, Country 8.
  Collection<int> AddressFieldIndex;
};

// The process's state. The first call runs the load of the library (defaults, tables,
// address index, the mirror's log), once.
LibraryState& State();

// Puts every value back to its default at load; for tests that need a fresh process state.
void ResetLibraryStateForTesting();

}  // namespace tessaron
