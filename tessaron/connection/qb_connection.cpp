#include "tessaron/connection/qb_connection.h"

#include "tessaron/company/company.h"
#include "tessaron/company/preferences.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/events/subscriptions.h"
#include "tessaron/foundation/log_file.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/transcript.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/host_services.h"
#include "tessaron/reports/report_catalog.h"
#include "tessaron/version.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

constexpr uint32_t kProductTooOld = 0x800403EC;

const char* BoolText(bool value) { return value ? "True" : "False"; }

// The node of the first record of a response: QBXML (behind the declaration), the
// message set, the first response, its first child. A missing step raises error 91.
XmlNode FirstRecord(const XmlDocument& doc) {
  return doc.childNodes().item(1).childNodes().item(0).childNodes().item(0).childNodes().item(0);
}

// A leading number of a text, as the platform's Val reads it; 0 when there is none.
int16_t NumericValue(const std::string& text) {
  long value = 0;
  try {
    value = static_cast<long>(Variant(text).ToInteger());
  } catch (const Error&) {
    value = std::strtol(text.c_str(), nullptr, 10);
  }
  return static_cast<int16_t>(value);
}

// The response element of the first response (behind the declaration and the message set).
XmlNode FirstResponse(const XmlDocument& doc) { return doc.childNodes().item(1).childNodes().item(0).childNodes().item(0); }

// The types whose forms QuickBooks shows, by the request that asks for them.
bool IsListForm(qoEnumListObjectType type) {
  switch (type) {
    case qoObjectTypeCustomer: case qoObjectTypeVendor: case qoObjectTypeOtherName: case qoObjectTypeEmployee:
      return true;
    default:
      return false;
  }
}
bool IsTxnForm(qoEnumListObjectType type) {
  switch (type) {
    case qoObjectTypeJournalEntry: case qoObjectTypeBill: case qoObjectTypeCheck: case qoObjectTypePurchaseOrder:
    case qoObjectTypeVendorCredit: case qoObjectTypeCreditCardCharge: case qoObjectTypeCreditCardCredit:
    case qoObjectTypeInvoice: case qoObjectTypeSalesReceipt: case qoObjectTypeCreditMemo: case qoObjectTypeEstimate:
    case qoObjectTypeReceivePayment: case qoObjectTypeDeposit: case qoObjectTypeCharge:
    case qoObjectTypeInventoryAdjustment: case qoObjectTypeSalesTaxPaymentCheck: case qoObjectTypeSalesOrder:
    case qoObjectTypeItemReceipt:
      return true;
    default:
      return false;
  }
}

constexpr const char* kDisplayQBFormSource = "tessaron:QBConnection:DisplayQBForm";

}  // namespace

QBConnection::QBConnection() { State(); }

QBConnection::~QBConnection() {
  // Every step on its own: a failure of one (a null processor included) does not keep the
  // next from running.
  LibraryState& state = State();
  auto ignoring = [](auto&& step) {
    try {
      step();
    } catch (...) {
    }
  };
  auto endSession = [&](const std::shared_ptr<RequestProcessor>& processor, const std::string& ticket) {
    if (ticket.empty() || !processor) return;
    ignoring([&] { processor->EndSession(ticket); });
    ignoring([&] { processor->CloseConnection(); });
  };
  endSession(state.RequestProcessor, state.SessionTicket);
  endSession(state.SecondaryProcessor, state.SecondaryTicket);
  ignoring([] { CloseTranscript(); });
  SetCurrentCompany(nullptr);
}

// ---- Opening --------------------------------------------------------------------------------

int32_t QBConnection::Connect(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                              const std::string& CompanyPath) {
  LibraryState& state = State();
  try {
    WriteTraceLine("Connect: Begin, CompanyPath:  " + CompanyPath);
    OpenSession(AppID, AppName, OpenMode, CompanyPath, true);
    GetProductInfo();
    LoadCompany();
    LoadPreferences();
    for (const auto& callback : connectionOpened_) callback();
    state.IsConnected = true;
    return 0;
  } catch (const Error& e) {
    // Only the link is closed: an open session is not ended.
    companyPath_.clear();
    try {
      if (state.RequestProcessor) state.RequestProcessor->CloseConnection();
    } catch (...) {
    }
    state.RequestProcessor = nullptr;
    throw e.WithSource("Tessaron");
  }
}

int32_t QBConnection::ConnectForWeb(const std::string& AppID, const std::string& AppName,
                                    qbEnumFileOpenMode OpenMode, const std::string& CompanyPath) {
  State().IsWebConnection = true;  // for the life of the process
  WriteTraceLine("ConnectForWeb: Begin");
  return Connect(AppID, AppName, OpenMode, CompanyPath);
}

int32_t QBConnection::ConnectForDB(const std::string& AppID, const std::string& AppName,
                                   qbEnumFileOpenMode OpenMode, const std::string& CompanyPath) {
  try {
    if (!CompanyPath.empty()) companyPath_ = CompanyPath;
    OpenSession(AppID, AppName, OpenMode, CompanyPath, false);
    GetProductInfo();
    LoadCompany();
    LoadPreferences();
    return 0;
  } catch (const Error& e) {
    throw e.WithSource("TessaronDB");
  }
}

void QBConnection::OpenSession(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                               const std::string& CompanyPath, bool trace) {
  LibraryState& state = State();
  state.AppID = AppID;
  state.AppName = AppName;
  state.RequestProcessor = CreateRequestProcessor();
  RequestProcessor& processor = *state.RequestProcessor;
  processor.OpenConnection(AppID, AppName);
  if (!CompanyPath.empty()) {
    state.SessionTicket = processor.BeginSession(CompanyPath, OpenMode);
    companyPath_ = CompanyPath;
  } else {
    state.SessionTicket = processor.BeginSession("", OpenMode);
    companyPath_ = processor.GetCurrentCompanyFileName(state.SessionTicket);
  }
  if (trace) WriteTraceLine("Connect: Got Requester");
  // Only the newest version of the session is used.
  std::vector<std::string> versions = processor.QBXMLVersionsForSession(state.SessionTicket);
  if (versions.empty()) RaisePlatform(platform_error::kSubscriptOutOfRange);
  state.QBXMLVersionText = versions.back();
  if (trace) WriteTraceLine("Connect: Got version:  " + state.QBXMLVersionText);
}

Variant QBConnection::ConnectForSubscriptions(const std::string& AppID, const std::string& AppName) {
  LibraryState& state = State();
  state.RequestProcessor = CreateRequestProcessor();
  state.RequestProcessor->OpenConnection(AppID, AppName);
  state.IsSubscriptionConnection = true;
  // No session and no host query: the processor's own version stands for the qbXML version
  // text, and the version number keeps its old value.
  std::string version = std::to_string(state.RequestProcessor->MajorVersion()) + "." +
                        std::to_string(state.RequestProcessor->MinorVersion());
  state.QBXMLVersionText = version;
  supportedVersion_ = version;
  return Variant();
}

// Only the older processor tells its version before it is used, hence this order.
std::shared_ptr<RequestProcessor> QBConnection::CreateRequestProcessor() {
  WriteTraceLine(std::string("CreateRequestProcessor: Begin ") + BoolText(State().IsWebConnection));
  bool tryNewer = true;
  std::shared_ptr<RequestProcessor> older;
  try {
    older = CreateRequestProcessorObject(kRequestProcessor1);
  } catch (const Error&) {
    older = nullptr;
  }
  if (older) {
    try {
      WriteTraceLine("CreateRequestProcessor: Got RQ1 Version: " + std::to_string(older->MajorVersion()));
      if (useRequestProcessor1_) return older;
      tryNewer = older->MajorVersion() >= 3;
    } catch (const Error&) {
      tryNewer = false;
    }
  }
  if (tryNewer) {
    std::shared_ptr<RequestProcessor> newer = TryRQ2();
    if (newer) {
      WriteTraceLine("CreateRequestProcessor: Found RQ2");
      return newer;
    }
  }
  std::shared_ptr<RequestProcessor> fallback = CreateRequestProcessorObject(kRequestProcessor1);
  WriteTraceLine("CreateRequestProcessor: CreateRq Done, using RQ1");
  return fallback;
}

std::shared_ptr<RequestProcessor> QBConnection::TryRQ2() {
  WriteTraceLine("TryRQ2:  Begin");
  try {
    std::shared_ptr<RequestProcessor> processor = CreateRequestProcessorObject(kRequestProcessor2);
    WriteTraceLine("TryRQ2:  Got RQ2");
    return processor;
  } catch (const Error&) {
    WriteTraceLine("TryRQ2:  Failed");
    return nullptr;
  }
}

void QBConnection::GetProductInfo() {
  LibraryState& state = State();
  WriteTraceLine("GetProductInfo:  Begin");
  xmlBldr builder;
  XmlDocument doc;
  state.TraceSend = true;  // the host query is the one request the trace shows
  try {
    doc = builder.QueryFullTableExecute("HostQueryRq", 0);
  } catch (...) {
    state.TraceSend = false;
    throw;
  }
  state.TraceSend = false;
  WriteTraceLine("GetProductInfo:  Got HostInfo");
  // The status of the host query is not looked at; a broken answer fails in this walk.
  ParseHostRet(FirstRecord(doc));

  if (Variant(majorVersion_).ToInteger() < 10)
    throw Error(kProductTooOld, "Tessaron", "Tessaron must have QuickBooks Pro 2002 or higher installed");

  // The country comes from the prefix of the version text; "CA" leaves the UK and
  // Australian flags as they were.
  const std::string& text = state.QBXMLVersionText;
  const std::string prefix = text.substr(0, 2);
  const bool prefixed = prefix == "CA" || prefix == "UK" || prefix == "OZ" || prefix == "AU";
  if (prefix == "UK") {
    state.IsUKProduct = true;
    state.IsAustralianProduct = false;
  } else if (prefix == "OZ" || prefix == "AU") {
    state.IsUKProduct = false;
    state.IsAustralianProduct = true;
  } else if (!prefixed) {
    state.IsUKProduct = false;
    state.IsAustralianProduct = false;
  }
  state.IsNonUSProduct = prefixed;
  state.QBXMLVersionNumber = Currency::Parse(prefixed ? text.substr(2, 10) : text);
  WriteTraceLine(std::string("GetProductInfo:  End ") + BoolText(state.IsNonUSProduct));
}

void QBConnection::ParseHostRet(const XmlNode& hostRet) {
  for (const XmlNode& field : hostRet.childNodes()) {
    std::string text = field.text();
    std::string_view name = field.baseName();
    if (name == "ProductName") productName_ = std::move(text);
    else if (name == "MajorVersion") majorVersion_ = std::move(text);
    else if (name == "MinorVersion") minorVersion_ = std::move(text);
    else if (name == "SupportedQBXMLVersion") supportedVersion_ = std::move(text);  // the last one wins
    else if (name == "Country") country_ = std::move(text);
    else if (name == "IsAutomaticLogin") isAutomaticLogin_ = BooleanFromText(text);
    else if (name == "QBFileMode") fileMode_ = std::move(text);
    else NoteUnknownField("Unknown Field: " + std::string(name), "HostQueryRS");
  }
}

void QBConnection::LoadCompany() {
  // A company that cannot be read leaves the connection working, with whatever
  // CurrentCompany holds.
  try {
    xmlBldr builder;
    builder.NewClear();
    builder.OpenAggregateOnly("CompanyQueryRq");
    const std::string& guid = State().DataExtensionsGUID;
    if (!guid.empty()) builder.CreateElement("OwnerID", guid);
    builder.EndAggregate("CompanyQueryRq");
    XmlDocument doc = builder.NewSendRequest();
    if (builder.ErrNumber() == 0) {
      auto company = std::make_shared<tessaron::Company>();
      SetCurrentCompany(company);
      detail::ListObjectAccess::FromDom(*company, FirstResponse(doc));
    } else {
      SetCurrentCompany(nullptr);
    }
  } catch (...) {
  }
}

void QBConnection::LoadPreferences() {
  LibraryState& state = State();
  if (state.QBXMLVersionNumber <= Currency(1)) return;  // qbXML 1.0 has no preferences query
  xmlBldr builder;
  XmlDocument doc = builder.QueryFullTableExecute("PreferencesQueryRq", 0);
  if (state.CurrentCompany) {
    XmlNode preferences = FirstRecord(doc);
    if (!preferences.IsNull()) detail::ListObjectAccess::FromDom(*state.CurrentCompany->Preferences(), preferences);
  }
}

// ---- Closing --------------------------------------------------------------------------------

void QBConnection::CloseConnection() {
  LibraryState& state = State();
  if (!state.IsSubscriptionConnection && state.RequestProcessor) state.RequestProcessor->EndSession(state.SessionTicket);
  if (state.RequestProcessor) state.RequestProcessor->CloseConnection();
  state.RequestProcessor = nullptr;
  state.SessionTicket.clear();
  // The second session of automatic numbering; neither value is cleared here.
  if (!state.SecondaryTicket.empty()) {
    if (!state.SecondaryProcessor) RaisePlatform(platform_error::kObjectNotSet);
    state.SecondaryProcessor->EndSession(state.SecondaryTicket);
    state.SecondaryProcessor->CloseConnection();
  }
  companyPath_.clear();
  // The company lives as long as the session: its masters and their objects go with it.
  SetCurrentCompany(nullptr);
  for (const auto& callback : connectionClosed_) callback();
  state.IsConnected = false;
}

Variant QBConnection::CloseConnectionDB() {
  if (!State().IsConnected) CloseConnection();
  return Variant();
}

// ---- Events ---------------------------------------------------------------------------------

void QBConnection::OnConnectionOpened(std::function<void()> callback) {
  connectionOpened_.push_back(std::move(callback));
}
void QBConnection::OnConnectionClosed(std::function<void()> callback) {
  connectionClosed_.push_back(std::move(callback));
}
void QBConnection::OnRecordProcessed(std::function<void(int32_t, int32_t, bool)> callback) {
  recordProcessed_.push_back(std::move(callback));
}
void QBConnection::OnRecordProcessed2(std::function<void(int32_t, int32_t, bool&)> callback) {
  recordProcessed2_.push_back(std::move(callback));
}
void QBConnection::RaiseRecordProcessed(int32_t CurrentRecord, int32_t TotalRecord, bool bCancel) {
  for (const auto& callback : recordProcessed_) callback(CurrentRecord, TotalRecord, bCancel);
}
void QBConnection::RaiseRecordProcessed2(int32_t CurrentRecord, int32_t TotalRecord, bool& bCancel) {
  for (const auto& callback : recordProcessed2_) callback(CurrentRecord, TotalRecord, bCancel);
}

// ---- Services -------------------------------------------------------------------------------

std::shared_ptr<LogFile> QBConnection::DBLog() const { return State().DBLog; }
bool QBConnection::DBLogDetail() const { return State().DBLogDetail; }
void QBConnection::SetDBLogDetail(bool value) { State().DBLogDetail = value; }
bool QBConnection::IsRemote() const { return State().IsRemote; }
void QBConnection::SetIsRemote(bool value) { State().IsRemote = value; }
std::string QBConnection::TessaronVersion() const { return TESSARON_VERSION_TEXT; }

int32_t QBConnection::RegisterEventGUID(const std::string& sGUID) {
  State().EventGUID = sGUID;
  return 0;
}

int32_t QBConnection::RegisterDataExtensionsGUID(const std::string& sGUID) {
  State().DataExtensionsGUID = sGUID;
  return 0;
}

void QBConnection::SetDebugLogPath(const std::string& path) {
  tessaron::SetDebugLogPath(path,
                            TranscriptHeader{companyPath_, supportedVersion_, productName_, majorVersion_, minorVersion_});
}

int16_t QBConnection::QBMajorVersion() const { return NumericValue(majorVersion_); }
int16_t QBConnection::QBMinorVersion() const { return NumericValue(minorVersion_); }
bool QBConnection::ErrorMode() const { return State().ErrorMode; }
void QBConnection::SetErrorMode(bool value) { State().ErrorMode = value; }
std::shared_ptr<tessaron::Company> QBConnection::Company() const { return State().CurrentCompany; }
bool QBConnection::IsUSProduct() const { return !State().IsNonUSProduct; }
bool QBConnection::DatabaseRecursiveUpdates() const { return !State().RecursiveUpdatesOff; }
void QBConnection::SetDatabaseRecursiveUpdates(bool value) { State().RecursiveUpdatesOff = !value; }

std::shared_ptr<UIExtensionSubscriptions> QBConnection::UIExtensionSubscriptions() {
  if (!uiExtensionSubscriptions_) uiExtensionSubscriptions_ = std::make_shared<tessaron::UIExtensionSubscriptions>();
  return uiExtensionSubscriptions_;
}

std::shared_ptr<UISubscriptions> QBConnection::UISubscriptions() {
  if (!uiSubscriptions_) uiSubscriptions_ = std::make_shared<tessaron::UISubscriptions>();
  return uiSubscriptions_;
}

std::string QBConnection::LastOpenCompanyFile() const {
  return ReadIniValue(QuickBooksIniPath(), "PREFS", "DataFile");
}

void QBConnection::DisplayQBForm(qoEnumListObjectType FormType, const std::string& ListOrTxnId) {
  RequireVersion(3);
  xmlBldr builder;
  builder.NewClear();
  const bool existing = !ListOrTxnId.empty();
  if (IsListForm(FormType)) {
    const std::string type = EnumCodeToXML(FormType, qoeObjectType);
    builder.OpenAggregateOnly(existing ? "ListDisplayModRq" : "ListDisplayAddRq");
    builder.CreateElement(existing ? "ListDisplayModType" : "ListDisplayAddType", type);
    if (existing) builder.CreateElement("ListID", ListOrTxnId);
    builder.EndAggregate();
  } else if (IsTxnForm(FormType) || (FormType == qoObjectTypeBillPayment && !existing)) {
    const std::string type =
        FormType == qoObjectTypeBillPayment ? std::string("BillPaymentCheck") : EnumCodeToXML(FormType, qoeObjectType);
    builder.OpenAggregateOnly(existing ? "TxnDisplayModRq" : "TxnDisplayAddRq");
    builder.CreateElement(existing ? "TxnDisplayModType" : "TxnDisplayAddType", type);
    if (existing) builder.CreateElement("TxnID", ListOrTxnId);
    builder.EndAggregate();
  } else if (FormType == qoObjectTypeBillPayment) {
    // An existing bill payment is shown as a check or a credit card payment, which only a
    // query of the payment tells; the payments are not part of the library yet.
    throw Error(0x80040406u, kDisplayQBFormSource,
                "This operation is not supported for the indicated object type. Showing an existing BillPayment is "
                "not supported yet.");
  } else {
    throw Error(0x80040406u, kDisplayQBFormSource, "This operation is not supported for the indicated object type.");
  }
  builder.NewSendRequest();  // the status is not looked at
}

// ---- Enumeration tables ---------------------------------------------------------------------

namespace {
std::shared_ptr<QCEnum> Table(qoEnumerationType type) { return QBEnumerations().Item(type); }
}  // namespace

std::shared_ptr<QCEnum> QBConnection::MatchTypes() const { return Table(qoeMatchType); }
std::shared_ptr<QCEnum> QBConnection::Operators() const { return Table(qoeOperator); }
std::shared_ptr<QCEnum> QBConnection::FieldNames() const { return Table(qoeField); }
std::shared_ptr<QCEnum> QBConnection::ItemTypes() const { return Table(qoeItemType); }
std::shared_ptr<QCEnum> QBConnection::AccountTypes() const { return Table(qoeAccountType); }
std::shared_ptr<QCEnum> QBConnection::Months() const { return Table(qoeMonth); }
std::shared_ptr<QCEnum> QBConnection::ListTypes() const { return Table(qoeListType); }
Variant QBConnection::TxnTypes() const { return Variant::FromObject(Table(qoeTxnType)); }
std::shared_ptr<QCEnum> QBConnection::DateMacros() const { return Table(qoeDateMacro); }
std::shared_ptr<QCEnum> QBConnection::AvailableFields() const { return Table(qoeReportField); }
std::shared_ptr<QCEnum> QBConnection::AvailableReports() const { return ReportCatalog(); }
std::shared_ptr<QCEnum> QBConnection::ReportGroups() const { return Table(qoeReportGroup); }
std::shared_ptr<QCEnum> QBConnection::ReportDateMacros() const { return Table(qoeReportDateMacro); }
std::shared_ptr<QCEnum> QBConnection::ReportColumnSortFields() const { return Table(qoeReportColSortFields); }
std::shared_ptr<QCEnum> QBConnection::EmployeeTypes() const { return Table(qoeEmployeeType); }
std::shared_ptr<QCEnum> QBConnection::GenderTypes() const { return Table(qoeGenderType); }
std::shared_ptr<QCEnum> QBConnection::EntityTypes() const { return Table(qoeEntityType); }
std::shared_ptr<QCEnum> QBConnection::DataExtensionDataTypes() const { return Table(qoeDataExtDataTypes); }
std::shared_ptr<QCEnum> QBConnection::ObjectTypes() const { return Table(qoeObjectType); }
std::shared_ptr<QCEnum> QBConnection::ReportAccountFilters() const { return Table(qoeReportAccountFilters); }

}  // namespace tessaron
