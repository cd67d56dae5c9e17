#include "tessaron/transactions/txn_collection.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/detail/lookup_scope.h"
#include "tessaron/framework/response_status.h"
#include "tessaron/framework/query_mirror.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/request_processor.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/txn_item_lines.h"

namespace tessaron {

namespace {

// The add of automatic numbering goes out in the last version whose add still lets
// QuickBooks number the document.
constexpr char kOlderVersionText[] = "2.1";

Currency OlderVersion() { return Currency::Parse(kOlderVersionText); }

}  // namespace

TxnCollectionBase::TxnCollectionBase(const TxnCollectionInfo& info)
    : info_(info), mErrors_(std::make_shared<qcErrors>()) {}

TxnCollectionBase::~TxnCollectionBase() = default;

xmlBldr& TxnCollectionBase::Bldr() {
  if (!mBldr_) mBldr_ = std::make_unique<xmlBldr>();
  return *mBldr_;
}

std::shared_ptr<qcErrors> TxnCollectionBase::Errors() {
  if (!mErrors_) mErrors_ = std::make_shared<qcErrors>();
  return mErrors_;
}

bool TxnCollectionBase::ItemExists(const Variant& vntIndexKey) const {
  try {
    (void)ItemBase(vntIndexKey);
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::shared_ptr<TxnObject> TxnCollectionBase::ItemBase(const Variant& vKey) const {
  return vKey.IsString() ? mCol_.Item(std::string_view(vKey.ToString())) : mCol_.Item(static_cast<long>(vKey.ToInteger()));
}

void TxnCollectionBase::RequireMaster() const {
  if (!mMaster_) throw Error(err::kMasterOnly, info_.className, err::kMasterOnlyText);
}

void TxnCollectionBase::Insert(const std::shared_ptr<TxnObject>& obj) {
  obj->SetObjectState(qoObjectStateNew);
  mCol_.Add(obj, obj->CollectionKey());
}

void TxnCollectionBase::AddParsed(const std::shared_ptr<TxnObject>& obj) {
  obj->SetCollectionKey(obj->TxnId());
  mCol_.Add(obj, obj->CollectionKey());
}

void TxnCollectionBase::LoadSavedRecords(const std::vector<XmlNode>& records, const std::string& FilePath) {
  // Every record is read before the content is touched, so a bad one changes nothing.
  Collection<std::shared_ptr<TxnObject>> loaded;
  loaded.Reserve(records.size());
  for (const XmlNode& record : records) {
    std::shared_ptr<TxnObject> obj = NewObject();
    CheckSavedKind(record, obj.get(), FilePath);
    obj->FromDom(record);
    obj->ResetToNew();
    loaded.Add(obj);
  }
  mCol_ = std::move(loaded);
}

long TxnCollectionBase::PositionOf(const TxnObject& obj) const {
  for (long i = 1; i <= mCol_.Count(); ++i)
    if (mCol_.Item(i).get() == &obj) return i;
  return 0;
}

// ---- Queries -------------------------------------------------------------------------------

void TxnCollectionBase::WriteOptions(xmlBldr& b, int32_t PaidStatus, bool IncludeLineItems) const {
  if (PaidStatus != kPaidStatusAll) b.CreateElement("PaidStatus", EnumCodeToXML(PaidStatus, qoePaidStatus));
  if (IncludeLineItems) b.CreateElement("IncludeLineItems", "true");
  if (mIncludeLinkedTxns_ && info_.linkedTxns) b.CreateElement("IncludeLinkedTxns", "true");
}

int32_t TxnCollectionBase::RunQuery(const std::function<void(xmlBldr&)>& filter, const std::string& sMDBPath) {
  Errors()->Clear();
  xmlBldr& b = Bldr();
  b.NewClear();
  b.OpenAggregateOnly(info_.queryRequest);
  filter(b);
  b.AddDataExtTag(mIncludeDataExt_, info_.objectType);
  b.EndAggregate(info_.queryRequest);
  XmlDocument doc = b.NewSendRequest();
  return AfterSend(doc, sMDBPath);
}

int32_t TxnCollectionBase::AfterSend(const XmlDocument& doc, const std::string& sMDBPath) {
  xmlBldr& b = Bldr();
  if (b.ErrNumber() != 0) {
    Errors()->Add(b.ErrNumber(), "", b.ErrMsg());
    return static_cast<int32_t>(Count());
  }
  XmlNode queryRs = ResponsesOf(doc).item(0);
  if (!sMDBPath.empty()) {
    HandToMirror(queryRs, sMDBPath, info_.mirrorObjectName);
    return static_cast<int32_t>(Count());
  }
  detail::LookupScope lookups;  // the lines of all documents ask for the same few items
  const XmlNodeList rets = queryRs.childNodes();
  mCol_.Reserve(static_cast<size_t>(Count() + rets.length()));
  for (const XmlNode& ret : rets) {
    std::shared_ptr<TxnObject> obj = NewObject();
    obj->FromDom(ret);
    AddParsed(obj);
  }
  return static_cast<int32_t>(Count());
}

int32_t TxnCollectionBase::GetByDateMacro(qbEnumDateMacro DateMacro, bool IncludeLineItems, int32_t MaxReturned,
                                          int32_t PaidStatus, const std::string& sMDBPath, const std::string& Entity,
                                          bool WithChildren) {
  return RunQuery(
      [&](xmlBldr& b) {
        if (MaxReturned != 0) b.CreateElement("MaxReturned", std::to_string(MaxReturned));
        b.InsertDateFilter("Txn", 0, 0, DateMacro);
        if (!Entity.empty()) b.InsertEntityFilter({Entity}, WithChildren);
        WriteOptions(b, PaidStatus, IncludeLineItems);
      },
      sMDBPath);
}

int32_t TxnCollectionBase::GetByDateSpan(Date FromDate, Date ToDate, bool UseModifiedDate, bool IncludeLineItems,
                                         int32_t MaxReturned, int32_t PaidStatus, const std::string& sMDBPath,
                                         const std::string& Entity, bool WithChildren) {
  return RunQuery(
      [&](xmlBldr& b) {
        if (MaxReturned != 0) b.CreateElement("MaxReturned", std::to_string(MaxReturned));
        b.InsertDateFilter(UseModifiedDate ? "Modified" : "Txn", FromDate, ToDate);
        if (!Entity.empty()) b.InsertEntityFilter({Entity}, WithChildren);
        WriteOptions(b, PaidStatus, IncludeLineItems);
      },
      sMDBPath);
}

void TxnCollectionBase::CheckNameList(size_t count, bool WithChildren, const char* source) const {
  if (count == 0) throw Error(err::kEmptyArray, source, err::kEmptyArrayText);
  if (WithChildren && count > 1)
    throw Error(err::kTxnCollection, info_.className, "If WithChildren is specified only one name is allowed");
}

int32_t TxnCollectionBase::GetByEntity(const std::vector<std::string>& EntityList, bool WithChildren,
                                       bool IncludeLineItems, int32_t MaxReturned, int32_t PaidStatus,
                                       const std::string& sMDBPath) {
  CheckNameList(EntityList.size(), WithChildren, "GetByEntity");
  return RunQuery(
      [&](xmlBldr& b) {
        if (MaxReturned != 0) b.CreateElement("MaxReturned", std::to_string(MaxReturned));
        b.InsertEntityFilter(EntityList, WithChildren);
        WriteOptions(b, PaidStatus, IncludeLineItems);
      },
      sMDBPath);
}

int32_t TxnCollectionBase::GetByEntityV(const std::vector<Variant>& EntityList, bool WithChildren,
                                        bool IncludeLineItems, int32_t MaxReturned, int32_t PaidStatus,
                                        const std::string& sMDBPath) {
  std::vector<std::string> names;
  names.reserve(EntityList.size());
  for (const Variant& v : EntityList) names.push_back(v.ToString());
  return GetByEntity(names, WithChildren, IncludeLineItems, MaxReturned, PaidStatus, sMDBPath);
}

int32_t TxnCollectionBase::GetByAccount(const std::vector<std::string>& AccountList, bool WithChildren,
                                        bool IncludeLineItems, int32_t MaxReturned, int32_t PaidStatus,
                                        const std::string& sMDBPath) {
  CheckNameList(AccountList.size(), WithChildren, "GetByAccount");
  return RunQuery(
      [&](xmlBldr& b) {
        if (MaxReturned != 0) b.CreateElement("MaxReturned", std::to_string(MaxReturned));
        b.InsertAccountFilter(AccountList, WithChildren);
        WriteOptions(b, PaidStatus, IncludeLineItems);
      },
      sMDBPath);
}

int32_t TxnCollectionBase::GetByRefNumber(const std::string& FromRefNumber, const std::string& ToRefNumber,
                                          bool IncludeLineItems, int32_t MaxReturned, int32_t PaidStatus,
                                          const std::string& sMDBPath) {
  return RunQuery(
      [&](xmlBldr& b) {
        if (MaxReturned != 0) b.CreateElement("MaxReturned", std::to_string(MaxReturned));
        b.OpenAggregateOnly("RefNumberRangeFilter");
        b.CreateElement("FromRefNumber", FromRefNumber);
        b.CreateElement("ToRefNumber", ToRefNumber);
        b.EndAggregate("RefNumberRangeFilter");
        WriteOptions(b, PaidStatus, IncludeLineItems);
      },
      sMDBPath);
}

int32_t TxnCollectionBase::GetByRefNumberMatch(const std::string& MatchString, int32_t MatchType,
                                               bool IncludeLineItems, int32_t MaxReturned, int32_t PaidStatus,
                                               const std::string& sMDBPath) {
  const std::string& criterion = EnumCodeToXML(MatchType, qoeMatchType);
  return RunQuery(
      [&](xmlBldr& b) {
        if (MaxReturned != 0) b.CreateElement("MaxReturned", std::to_string(MaxReturned));
        b.OpenAggregateOnly("RefNumberFilter");
        b.CreateElement("MatchCriterion", criterion);
        b.CreateElement("RefNumber", MatchString);
        b.EndAggregate("RefNumberFilter");
        WriteOptions(b, PaidStatus, IncludeLineItems);
      },
      sMDBPath);
}

int32_t TxnCollectionBase::GetAll(bool IncludeLineItems, int32_t MaxReturned, int32_t PaidStatus,
                                  const std::string& sMDBPath) {
  return RunQuery(
      [&](xmlBldr& b) {
        if (MaxReturned != 0) b.CreateElement("MaxReturned", std::to_string(MaxReturned));
        WriteOptions(b, PaidStatus, IncludeLineItems);
      },
      sMDBPath);
}

Variant TxnCollectionBase::GetMultiple(const std::vector<std::string>& TxnIds, bool IncludeLineItems,
                                       const std::string& sMDBPath) {
  return Variant(static_cast<int64_t>(RunQuery(
      [&](xmlBldr& b) {
        for (const std::string& id : TxnIds) b.CreateElement("TxnID", id);
        WriteOptions(b, kPaidStatusAll, IncludeLineItems);
      },
      sMDBPath)));
}

int32_t TxnCollectionBase::GetBySingleEntity(const std::string& Entity, bool WithChildren, bool IncludeLineItems,
                                             const std::string& sMDBPath) {
  return RunQuery(
      [&](xmlBldr& b) {
        b.InsertEntityFilter({Entity}, WithChildren);
        WriteOptions(b, kPaidStatusAll, IncludeLineItems);
      },
      sMDBPath);
}

int32_t TxnCollectionBase::GetBySingleAccount(const std::string& Account, bool WithChildren, bool IncludeLineItems,
                                              const std::string& sMDBPath) {
  return RunQuery(
      [&](xmlBldr& b) {
        b.InsertAccountFilter({Account}, WithChildren);
        WriteOptions(b, kPaidStatusAll, IncludeLineItems);
      },
      sMDBPath);
}

std::shared_ptr<TxnObject> TxnCollectionBase::FindByTxnID(const std::string& TxnId, bool IncludeLineItems,
                                                          const std::string& sMDBPath) {
  if (sMDBPath.empty()) {
    for (const auto& obj : mCol_)
      if (obj->TxnId() == TxnId) return obj;
  }
  const long before = Count();
  RunQuery(
      [&](xmlBldr& b) {
        b.CreateElement("TxnID", TxnId);
        WriteOptions(b, kPaidStatusAll, IncludeLineItems);
      },
      sMDBPath);
  if (!sMDBPath.empty() || Count() == before) return nullptr;
  return mCol_.Item(Count());
}

Variant TxnCollectionBase::GetMeBase(TxnObject& obj) {
  Errors()->Clear();
  xmlBldr& b = Bldr();
  b.NewClear();
  b.OpenAggregateOnly(info_.queryRequest);
  b.CreateElement("TxnID", obj.TxnId());
  b.CreateElement("IncludeLinkedTxns", "true");
  b.AddDataExtTag(mIncludeDataExt_, info_.objectType);
  b.EndAggregate(info_.queryRequest);
  XmlDocument doc = b.NewSendRequest();
  if (b.ErrNumber() != 0) {
    Errors()->Add(b.ErrNumber(), "", b.ErrMsg());
    return Variant();
  }
  XmlNode ret = ResponsesOf(doc).item(0).childNodes().item(0);
  if (ret.IsNull()) return Variant();
  return obj.FromDom(ret);
}

// ---- Delete and void -----------------------------------------------------------------------

int32_t TxnCollectionBase::Delete(const std::string& TxnId, bool bRemove) {
  return DeleteOrVoid("TxnDelRq", "TxnDelType", TxnId, bRemove);
}

int32_t TxnCollectionBase::Void(const std::string& TxnId, bool bRemove) {
  if (!info_.canVoid) RaiseInternal(info_.className, "Void not allowed");
  return DeleteOrVoid("TxnVoidRq", "TxnVoidType", TxnId, bRemove);
}

int32_t TxnCollectionBase::DeleteOrVoid(const char* request, const char* typeTag, const std::string& TxnId,
                                        bool bRemove) {
  long held = 0;
  for (long i = 1; i <= mCol_.Count() && held == 0; ++i)
    if (mCol_.Item(i)->TxnId() == TxnId) held = i;
  xmlBldr& b = Bldr();
  b.NewClear();
  b.OpenAggregate(request, "requestID", "1");
  b.CreateElement(typeTag, EnumCodeToDescription(info_.objectType, qoeObjectType));
  b.CreateElement("TxnID", TxnId);
  b.EndAggregate(request);
  b.NewSendRequest();
  if (b.ErrNumber() != 0) throw Error(err::kBuilderStatus, info_.className, b.ErrMsg());
  if (bRemove && held != 0) mCol_.Remove(held);
  return b.ErrNumber();
}

// ---- Validate and commit -------------------------------------------------------------------

bool TxnCollectionBase::Validate() {
  auto errors = Errors();
  errors->Clear();
  bool all = true;
  for (long i = 1; i <= mCol_.Count(); ++i) {
    if (mCol_.Item(i)->Validate()) continue;
    all = false;
    errors->Add(err::kValidateFailed, std::to_string(i), err::kValidateFailedText);
  }
  return all;
}

bool TxnCollectionBase::WriteMember(xmlBldr& b, TxnObject& obj, int16_t requestId) {
  switch (obj.state_) {
    case qoObjectStateNew: b.InsertAddRq(obj, requestId); return true;
    case qoObjectStateDirty: b.InsertModRq(obj, requestId); return true;
    case qoObjectStateClean:
      if (obj.ObjectState() != qoObjectStateDirty) return false;
      b.InsertModRq(obj, requestId);
      return true;
  }
  RaiseInternal(info_.className, "Unknown Object State");
}

int32_t TxnCollectionBase::Commit(const std::shared_ptr<TxnObject>& Member) {
  RequireMaster();
  auto errors = Errors();
  errors->Clear();
  // A builder of the commit's own: a check in Validate or a lazy read of lines may query
  // through the collection's builder while the message is being written.
  xmlBldr b;
  b.NewClear();
  bool anything = false;
  bool blocked = false;
  long position = 0;
  if (!Member) {
    for (long i = 1; i <= mCol_.Count(); ++i) {
      TxnObject& obj = *mCol_.Item(i);
      if (!obj.Validate()) {
        errors->Add(err::kValidateFailed, std::to_string(i), err::kValidateFailedText);
        blocked = true;
        continue;
      }
      anything |= WriteMember(b, obj, static_cast<int16_t>(i));
    }
  } else if (!Member->Validate()) {
    errors->Add(err::kValidateFailed, "0", err::kValidateFailedText);
    blocked = true;
  } else if ((position = PositionOf(*Member)) == 0) {
    errors->Add(err::kNotAMember, info_.className, err::kNotAMemberText);
  } else if (mAutoNumbering_) {
    // Step one: an add of the older version through the older session, which numbers it.
    WithOlderSession([&] {
      b.NewClear();
      b.InsertAddRq(*Member, static_cast<int16_t>(position));
      ReadCommitResponses(b.NewSendRequest());
    });
    // Step two: what the older add cannot carry goes as a modify in the session's version.
    if (!Member->TxnId().empty()) {
      Member->SetObjectState(qoObjectStateDirty);
      b.NewClear();
      b.InsertModRq(*Member, static_cast<int16_t>(position));
      anything = true;
    }
  } else {
    anything = WriteMember(b, *Member, static_cast<int16_t>(position));
  }

  if (anything && !blocked) ReadCommitResponses(b.NewSendRequest());
  SaveDataExtensionsAfterCommit(Member);

  if (State().ErrorMode) {
    if (errors->Count() > 0) throw Error(err::kCommitErrors, info_.className, err::kCommitErrorsText);
    if (b.ErrNumber() != 0) throw Error(b.ErrNumber(), info_.className, b.ErrMsg());
  }
  return static_cast<int32_t>(errors->Count());
}

// QuickBooks keeps extension values outside the record: they follow in requests of their
// own, from qbXML 2.0 on, for documents that are on file. A failed save is told in the
// values' Errors and counted here; it never touches the document.
void TxnCollectionBase::SaveDataExtensionsAfterCommit(const std::shared_ptr<TxnObject>& Member) {
  if (State().QBXMLVersionNumber < Currency(2)) return;
  auto save = [this](TxnObject& obj) {
    if (obj.TxnId().empty()) return;
    bool saved = false;
    try {
      saved = obj.SaveDataExtensions(obj.TxnId());
    } catch (const Error&) {
    }
    if (!saved) Errors()->Add(err::kCommitFailed, obj.CollectionKey(), err::kCommitFailedText);
  };
  if (Member) {
    save(*Member);
    return;
  }
  for (const auto& obj : mCol_) save(*obj);
}

void TxnCollectionBase::WithOlderSession(const std::function<void()>& step) {
  LibraryState& state = State();
  const auto processor = state.RequestProcessor;
  const std::string ticket = state.SessionTicket;
  const Currency version = state.QBXMLVersionNumber;
  const std::string versionText = state.QBXMLVersionText;
  auto restore = [&] {
    state.RequestProcessor = processor;
    state.SessionTicket = ticket;
    state.QBXMLVersionNumber = version;
    state.QBXMLVersionText = versionText;
  };
  state.RequestProcessor = state.SecondaryProcessor;
  state.SessionTicket = state.SecondaryTicket;
  state.QBXMLVersionNumber = OlderVersion();
  state.QBXMLVersionText = kOlderVersionText;
  try {
    step();
  } catch (...) {
    restore();
    throw;
  }
  restore();
}

void TxnCollectionBase::ReadCommitResponses(const XmlDocument& doc) {
  for (const XmlNode& node : ResponsesOf(doc)) ReadCommitResponse(node);
  KeyCommitted();
}

void TxnCollectionBase::ReadCommitResponse(const XmlNode& node) {
  const ResponseStatus status = ReadResponseStatus(node);
  if (status.requestId < 1 || status.requestId > mCol_.Count()) return;
  std::shared_ptr<TxnObject> obj = mCol_.Item(status.requestId);
  if (status.code != 0) {
    Errors()->Add(err::kCommitFailed, std::to_string(status.requestId), err::kCommitFailedText);
    if (status.code == 3100) obj->Errors()->Add(err::kDuplicateName, "Name", err::kDuplicateNameText);
    else obj->Errors()->Add(err::kDatabaseOpenFailed, "QuickBooks: ", status.message);
    return;
  }
  obj->FromDom(node.childNodes().item(0));
}

void TxnCollectionBase::KeyCommitted() {
  bool any = false;
  for (const auto& obj : mCol_) any |= obj->CollectionKey().empty() && !obj->TxnId().empty();
  if (!any) return;
  // A new document takes the TxnId QuickBooks gave it as its key, in its place.
  Collection<std::shared_ptr<TxnObject>> keyed;
  keyed.Reserve(static_cast<size_t>(mCol_.Count()));
  for (const auto& obj : mCol_) {
    if (obj->CollectionKey().empty()) obj->SetCollectionKey(obj->TxnId());
    keyed.Add(obj, obj->CollectionKey());
  }
  mCol_ = std::move(keyed);
}

void TxnCollectionBase::SetAutoNumbering(bool value) {
  if (!value) {
    mAutoNumbering_ = false;
    return;
  }
  LibraryState& state = State();
  if (state.QBXMLVersionNumber <= OlderVersion()) return;
  if (!state.SecondaryProcessor) {
    auto older = CreateRequestProcessorObject(kRequestProcessor1);
    older->OpenConnection(state.AppID, state.AppName);
    const std::string file =
        state.RequestProcessor ? state.RequestProcessor->GetCurrentCompanyFileName(state.SessionTicket) : std::string();
    state.SecondaryTicket = older->BeginSession(file, 2);
    state.SecondaryProcessor = older;
  }
  mAutoNumbering_ = true;
}

}  // namespace tessaron
