// QBConnection: the class an application creates first. It opens the link to QuickBooks
// through the request processor, learns the product and the qbXML version, reads the
// company record and the preferences, and from then on every builder in the process
// sends through that one link.
//
// The link and what was learned about it live in the library state, not in the instance:
// the library serves one session per process, and a second QBConnection works on the same
// session. Events are registered callbacks, called synchronously in registration order.
//
//   QBConnection qb;
//   qb.OnConnectionOpened([] { ... });
//   qb.Connect("MyApp", "My application", qbFileOpenDoNotCare);   // the file open in QuickBooks
//   std::cout << qb.ProductName() << " " << qb.qbXMLVersion();
//   qb.CloseConnection();
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/platform/request_processor.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class Company;
class LogFile;
class DataEventSubcriptions;
class UIExtensionSubscriptions;
class UISubscriptions;

// How BeginSession opens the company file; handed to the request processor as it stands.
enum qbEnumFileOpenMode : int32_t {
  qbFileOpenSingleUser = 0,
  qbFileOpenMultiUser = 1,
  qbFileOpenDoNotCare = 2,
};

class QBConnection {
 public:
  QBConnection();
  // Ends an open session and its link, closes an open transcript, and drops the company;
  // failures are ignored. The processor and the ticket stay in the library state.
  ~QBConnection();
  QBConnection(const QBConnection&) = delete;
  QBConnection& operator=(const QBConnection&) = delete;

  // ---- Opening and closing ----------------------------------------------------------------
  // Opens the link and a session on CompanyPath (empty: the file open in QuickBooks), reads
  // the host record, the company and the preferences, raises ConnectionOpened. Returns 0.
  // Any failure closes the link and is raised again with source "Tessaron".
  int32_t Connect(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                  const std::string& CompanyPath = "");
  // Connect for a web application (the flag shows only in the trace).
  int32_t ConnectForWeb(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                        const std::string& CompanyPath = "");
  // The session for a process working on the database mirror: no trace, no event,
  // IsConnected left alone, failures raised with source "TessaronDB" without closing.
  int32_t ConnectForDB(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                       const std::string& CompanyPath = "");
  // Only the link, for subscription requests: no session, no host query.
  Variant ConnectForSubscriptions(const std::string& AppID, const std::string& AppName);
  // Ends the session (not for a subscription link) and the link, raises ConnectionClosed.
  void CloseConnection();
  // Closes a session that ConnectForDB opened; one that Connect opened survives.
  Variant CloseConnectionDB();

  // ---- Events -----------------------------------------------------------------------------
  void OnConnectionOpened(std::function<void()> callback);
  void OnConnectionClosed(std::function<void()> callback);
  void OnRecordProcessed(std::function<void(int32_t CurrentRecord, int32_t TotalRecord, bool bCancel)> callback);
  void OnRecordProcessed2(std::function<void(int32_t CurrentRecord, int32_t TotalRecord, bool& bCancel)> callback);
  // Library-internal: how the mirror reports progress (and learns of a cancel).
  void RaiseRecordProcessed(int32_t CurrentRecord, int32_t TotalRecord, bool bCancel);
  void RaiseRecordProcessed2(int32_t CurrentRecord, int32_t TotalRecord, bool& bCancel);

  // ---- Settings of the instance -----------------------------------------------------------
  // Never try the newer request processor.
  bool UseRequestProcessor1() const { return useRequestProcessor1_; }
  void SetUseRequestProcessor1(bool value) { useRequestProcessor1_ = value; }
  // The application's window, handed to the library; the connection does not use it.
  const ObjectHandle& MainForm() const { return mainForm_; }
  void SetMainForm(ObjectHandle value) { mainForm_ = std::move(value); }

  // ---- Services ---------------------------------------------------------------------------
  // The log of the database mirror.
  std::shared_ptr<LogFile> DBLog() const;
  bool DBLogDetail() const;
  void SetDBLogDetail(bool value);
  // A plain setting for the application; nothing in the library reads it.
  bool IsRemote() const;
  void SetIsRemote(bool value);
  // Fields of the host record.
  Variant Country() const { return Variant(country_); }
  bool IsAutomaticLogin() const { return isAutomaticLogin_; }
  Variant QBFileMode() const { return Variant(fileMode_); }
  // The library's own version, major.minor.revision.
  std::string TessaronVersion() const;
  std::string version() const { return TessaronVersion(); }
  // The owner of event subscriptions. Returns 0.
  int32_t RegisterEventGUID(const std::string& sGUID);
  // The owner ID of the application's own custom fields. Returns 0.
  int32_t RegisterDataExtensionsGUID(const std::string& sGUID);
  // Starts a transcript of every request and response (see messaging/transcript.h);
  // a path that cannot be created raises "Invalid path specified".
  void SetDebugLogPath(const std::string& path);
  // The open company file; empty when closed.
  const std::string& CompanyPath() const { return companyPath_; }
  // The company of the session (null before a connection, after its close, or when the
  // company query failed).
  std::shared_ptr<tessaron::Company> Company() const;
  // The supported version of the host record (not the session's version text).
  const std::string& qbXMLVersion() const { return supportedVersion_; }
  const std::string& ProductName() const { return productName_; }
  int16_t QBMajorVersion() const;
  int16_t QBMinorVersion() const;
  // Whether a commit raises what went wrong (true from the load on).
  bool ErrorMode() const;
  void SetErrorMode(bool value);
  // The data file named in the accounting program's settings file; empty when missing.
  std::string LastOpenCompanyFile() const;
  bool IsUSProduct() const;
  // Makes QuickBooks show its own form for a new record, or for the record with that ID.
  void DisplayQBForm(qoEnumListObjectType FormType, const std::string& ListOrTxnId = "");
  // Stored inverted in the library state; false on a fresh load.
  bool DatabaseRecursiveUpdates() const;
  void SetDatabaseRecursiveUpdates(bool value);
  // The event subscription collections. The first two are made on first use and need no
  // session; nothing makes the data event collection, so it is the null handle.
  std::shared_ptr<tessaron::UIExtensionSubscriptions> UIExtensionSubscriptions();
  std::shared_ptr<tessaron::UISubscriptions> UISubscriptions();
  std::shared_ptr<DataEventSubcriptions> DataEventSubscriptions() const { return dataEventSubscriptions_; }

  // ---- Enumeration tables -----------------------------------------------------------------
  std::shared_ptr<QCEnum> MatchTypes() const;
  std::shared_ptr<QCEnum> Operators() const;
  // The table "Field", which is empty (not "Field Names").
  std::shared_ptr<QCEnum> FieldNames() const;
  std::shared_ptr<QCEnum> ItemTypes() const;
  std::shared_ptr<QCEnum> AccountTypes() const;
  std::shared_ptr<QCEnum> Months() const;
  std::shared_ptr<QCEnum> ListTypes() const;
  Variant TxnTypes() const;
  std::shared_ptr<QCEnum> DateMacros() const;
  std::shared_ptr<QCEnum> AvailableFields() const;
  std::shared_ptr<QCEnum> AvailableReports() const;
  std::shared_ptr<QCEnum> ReportGroups() const;
  std::shared_ptr<QCEnum> ReportDateMacros() const;
  std::shared_ptr<QCEnum> ReportColumnSortFields() const;
  std::shared_ptr<QCEnum> EmployeeTypes() const;
  std::shared_ptr<QCEnum> GenderTypes() const;
  std::shared_ptr<QCEnum> EntityTypes() const;
  std::shared_ptr<QCEnum> DataExtensionDataTypes() const;
  std::shared_ptr<QCEnum> ObjectTypes() const;
  std::shared_ptr<QCEnum> ReportAccountFilters() const;

 private:
  std::shared_ptr<RequestProcessor> CreateRequestProcessor();
  std::shared_ptr<RequestProcessor> TryRQ2();
  void OpenSession(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                   const std::string& CompanyPath, bool trace);
  void GetProductInfo();
  void ParseHostRet(const XmlNode& hostRet);
  void LoadCompany();
  void LoadPreferences();

  bool useRequestProcessor1_ = false;
  ObjectHandle mainForm_;
  std::string companyPath_;
  std::string productName_;
  std::string majorVersion_;
  std::string minorVersion_;
  std::string supportedVersion_;
  std::string country_;
  bool isAutomaticLogin_ = false;
  std::string fileMode_;
  std::vector<std::function<void()>> connectionOpened_;
  std::vector<std::function<void()>> connectionClosed_;
  std::vector<std::function<void(int32_t, int32_t, bool)>> recordProcessed_;
  std::vector<std::function<void(int32_t, int32_t, bool&)>> recordProcessed2_;
  std::shared_ptr<tessaron::UIExtensionSubscriptions> uiExtensionSubscriptions_;
  std::shared_ptr<tessaron::UISubscriptions> uiSubscriptions_;
  std::shared_ptr<DataEventSubcriptions> dataEventSubscriptions_;
};

}  // namespace tessaron
