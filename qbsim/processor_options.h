// How an embedded processor presents itself, and the faults a test can make it produce.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "qbsim/edition.h"

namespace tessaron::qbsim {

// A failure to produce on purpose, for tests of the caller's error paths.
struct Fault {
  enum class Kind {
    Raise,           // the ProcessRequest call raises `number` with `description`
    UnparsableText,  // the call returns text that is not XML
    NoAttributes,    // the response element of the request carries no attributes
    DropResponse,    // the request gets no response element at all
  };
  Kind kind = Kind::Raise;
  // The request it applies to ("CustomerQueryRq"); empty: the next message, whatever it holds.
  std::string requestName;
  uint32_t number = 0x80040408;
  std::string description = "Could not start QuickBooks.";
  // How many times it strikes before it is used up.
  int times = 1;
};

// Faults waiting to strike; shared between a test and the processors it creates.
class FaultPlan {
 public:
  void Add(Fault fault);
  void Clear();
  bool Empty() const;
  // Takes one strike of the first fault of one of these kinds that matches a request of
  // the message; nothing when none does.
  std::optional<Fault> Take(const std::vector<std::string>& requestNames, std::initializer_list<Fault::Kind> kinds);

 private:
  mutable std::mutex mutex_;
  std::deque<Fault> faults_;
};

class SubscriptionStore;

struct ProcessorOptions {
  // Refuse, as QuickBooks does, messages that do not validate against the qbXML schema,
  // that use what their qbXML version or the edition lacks, and request elements the
  // processor does not answer (with a status). On by default, since QuickBooks always
  // checks; switch it off only to feed the processor what QuickBooks would refuse.
  bool strict = true;
  // The edition and the newest qbXML version (x10) announced; nothing = the company file's.
  std::optional<Edition> edition;
  std::optional<int> newestVersion;

  // The host record.
  std::string productName = "QuickBooks Pro";
  int productMajorVersion = 14;
  int productMinorVersion = 0;
  bool automaticLogin = false;
  std::string fileMode = "SingleUser";
  // The application's right to personal data (preferences, CurrentAppAccessRights).
  bool personalDataAccessAllowed = true;

  // The processor object's own MajorVersion/MinorVersion; nothing = the newest qbXML version.
  std::optional<int> processorMajorVersion;
  std::optional<int> processorMinorVersion;

  // The file that BeginSession("") opens: the file "currently open" in QuickBooks. When
  // empty, the file of the newest session still open in the process is taken; with none,
  // BeginSession("") raises.
  std::string currentCompanyFile;

  // Applications (by AppName or AppID) that OpenConnection refuses.
  std::vector<std::string> refusedApplications;

  // Called when a request asks QuickBooks to show a form (ListDisplayAddRq, ...): the
  // request name, the list or transaction type, and the ListID or TxnID (empty for a new one).
  std::function<void(const std::string& request, const std::string& type, const std::string& id)> onFormShown;

  std::shared_ptr<FaultPlan> faults;

  // The folder of qbxmlops120.xsd for strict mode; empty = the default (SchemaValidator).
  std::string schemaDir;

  // The SQLite VFS, registered under this name, that company files are opened with; empty
  // = SQLite's default. Tests put a VFS that fails on purpose under the processor. A file
  // already open in the process keeps the VFS it was opened with.
  std::string databaseVfs;

  // The event subscriptions of the host (see subscription_store.h); none = the process's.
  std::shared_ptr<SubscriptionStore> subscriptions;
};

// Which identifiers RegisterProcessor serves; tests leave one out to see the library fall back.
struct Registration {
  bool rq1 = true;  // QBXMLRP.RequestProcessor
  bool rq2 = true;  // QBXMLRP2.RequestProcessor
  // MajorVersion answered by processors created as QBXMLRP.RequestProcessor; nothing = as the options say.
  std::optional<int> rq1MajorVersion;
};

}  // namespace tessaron::qbsim
