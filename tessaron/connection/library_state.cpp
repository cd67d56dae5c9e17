#include "tessaron/connection/library_state.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/log_file.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/host_services.h"
#include "tessaron/reports/report_catalog.h"

namespace tessaron {
namespace {

// The load of the library: everything the first object needs, once per process.
void Load(LibraryState& s) {
  // 1. Defaults (those of the fields) and the internal switches.
  s = LibraryState{};
  s.ErrorMode = true;
  s.RecursiveUpdatesOff = true;

  // 2. The enumeration tables (only when none exist yet), the report catalogue and the
  //    address index.
  LoadEnumerations();
  LoadReportCatalog();
  for (const auto& [name, number] : {std::pair<const char*, int>{"Addr1", 1}, {"Addr2", 2}, {"Addr3", 3},
                                     {"Addr4", 4}, {"City", 5}, {"State", 6}, {"PostalCode", 7}, {"Country", 8}})
    s.AddressFieldIndex.Add(number, name);

  // 3. The mirror's log, beside the library's own files.
  s.DBLog = std::make_shared<LogFile>();
  s.DBLog->SetMaxKB(100);
  s.DBLog->SetSource("ModAccess");
  try {
    s.DBLog->SetLogPath(LibraryFolder() + "/TessaronDB.Log");
  } catch (const Error&) {
    // Without its folder the mirror keeps no log; the load itself must not fail.
  }
}

LibraryState& Loaded() {
  static LibraryState state;
  return state;
}

}  // namespace

LibraryState& State() {
  static const bool loaded = (Load(Loaded()), true);
  (void)loaded;
  return Loaded();
}

void ResetLibraryStateForTesting() {
  LibraryState& s = State();
  Load(s);
  ResetPendingKeysForTesting();
  ResetTraceFileForTesting();
}

}  // namespace tessaron
