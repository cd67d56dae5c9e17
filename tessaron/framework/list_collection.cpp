#include "tessaron/framework/list_collection.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/query_mirror.h"
#include "tessaron/framework/response_status.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

namespace {

XmlNodeList Responses(const XmlDocument& doc) { return ResponsesOf(doc); }

constexpr std::string_view kQuickBooksPrefix = "QuickBooks error message: ";

}  // namespace

ListCollectionBase::ListCollectionBase(const ListCollectionInfo& info)
    : info_(info), mErrors_(std::make_shared<qcErrors>()) {}

ListCollectionBase::~ListCollectionBase() = default;

xmlBldr& ListCollectionBase::Bldr() {
  if (!mBldr_) mBldr_ = std::make_unique<xmlBldr>();
  return *mBldr_;
}

std::shared_ptr<qcErrors> ListCollectionBase::Errors() {
  if (!mErrors_) mErrors_ = std::make_shared<qcErrors>();
  return mErrors_;
}

std::vector<std::shared_ptr<qcListObject>> ListCollectionBase::NewEnum() const {
  std::vector<std::shared_ptr<qcListObject>> out;
  out.reserve(static_cast<size_t>(mCol_.Count()));
  for (const auto& obj : mCol_) out.push_back(obj);
  return out;
}

std::shared_ptr<ListObject> ListCollectionBase::ItemBase(const Variant& vKey) const {
  return const_cast<Collection<std::shared_ptr<ListObject>>&>(mCol_).Item(vKey);
}

bool ListCollectionBase::ItemExists(const Variant& vntIndexKey) const {
  try {
    (void)ItemBase(vntIndexKey);
    return true;
  } catch (const Error&) {
    return false;
  }
}

void ListCollectionBase::RequireMaster(const char* source) const {
  if (!mMaster_) throw Error(err::kMasterOnly, source, err::kMasterOnlyText);
}

void ListCollectionBase::Insert(const std::shared_ptr<ListObject>& obj) {
  mCol_.Add(obj, obj->CollectionKey());
  detail::ListObjectAccess::ResetToNew(*obj);
  const std::string parent = obj->Parent();
  if (parent.empty()) return;
  // A parent that is not loaded simply does not learn of its new child.
  try {
    if (auto children = ItemBase(Variant(parent))->Children()) children->Add(obj->FullName(), info_.listType, "");
  } catch (const Error&) {
  }
}

void ListCollectionBase::AddParsed(const std::shared_ptr<ListObject>& obj, long) {
  mCol_.Add(obj, obj->CollectionKey());
}

// ---- Queries -----------------------------------------------------------------------------

int32_t ListCollectionBase::ListGetAll(int32_t MaxReturned, const std::string& sMDBPath) {
  return StatusQuery(info_.queryRequest, info_.readOnly ? 0 : qbStatusAny, MaxReturned, sMDBPath);
}

int32_t ListCollectionBase::ListGetActive(int32_t MaxReturned, const std::string& sMDBPath) {
  return StatusQuery(info_.queryRequest, info_.readOnly ? 0 : qbStatusActive, MaxReturned, sMDBPath);
}

int32_t ListCollectionBase::StatusQuery(const std::string& request, int32_t status, int32_t MaxReturned,
                                        const std::string& sMDBPath) {
  if (info_.handBuiltStatusQuery) {
    // Like every hand-built query, it replaces the content only when records arrive.
    return RunQuery(request, MaxReturned, sMDBPath, [&](xmlBldr& b) {
      if (status != 0) b.CreateElement("ActiveStatus", EnumCodeToDescription(status, qoeActiveStatus));
    });
  }
  Clear();
  Errors()->Clear();
  Bldr().Clear();
  // The single-key query accepts MaxRows and drops it: these collections always return
  // every record.
  XmlDocument doc = status == 0 ? Bldr().QueryFullTableExecute(request, MaxReturned)
                                : Bldr().QuerySingleExecute(request, EnumCodeToDescription(status, qoeActiveStatus),
                                                            "ActiveStatus", MaxReturned, info_.queryObjectType, "",
                                                            mIncludeDataExt_);
  return AfterSend(doc, sMDBPath);
}

int32_t ListCollectionBase::RunQuery(const std::string& request, int32_t MaxReturned, const std::string& sMDBPath,
                                     const std::function<void(xmlBldr&)>& filter) {
  Errors()->Clear();
  xmlBldr& b = Bldr();
  b.NewClear();
  b.OpenAggregateOnly(request);
  if (MaxReturned > 0) b.CreateElement("MaxReturned", std::to_string(MaxReturned));
  if (filter) filter(b);
  WriteQueryTail(b);
  b.AddDataExtTag(mIncludeDataExt_, info_.queryObjectType);
  b.EndAggregate(request);
  XmlDocument doc = b.NewSendRequest();
  return AfterSend(doc, sMDBPath);
}

int32_t ListCollectionBase::AfterSend(const XmlDocument& doc, const std::string& sMDBPath) {
  xmlBldr& b = Bldr();
  if (b.ErrNumber() != 0) {
    Errors()->Add(b.ErrNumber(), "", b.ErrMsg());
    return static_cast<int32_t>(Count());
  }
  XmlNode queryRs = Responses(doc).item(0);
  if (!sMDBPath.empty()) {
    HandToMirror(queryRs, sMDBPath, info_.mirrorObjectName);
    return static_cast<int32_t>(Count());
  }
  Parse(queryRs);
  return static_cast<int32_t>(Count());
}

void ListCollectionBase::Parse(const XmlNode& queryRs) {
  // The records replace what the collection held; uncommitted objects are forgotten.
  Clear();
  XmlNodeList records = queryRs.childNodes();
  const long count = records.length();
  mCol_.Reserve(static_cast<size_t>(count));
  for (long i = 0; i < count; ++i) {
    XmlNode record = records.item(i);
    std::shared_ptr<ListObject> obj = NewObject(record);
    obj->FromDom(record);
    AddParsed(obj, i + 1);
  }
  // The parent links, once the whole list is there.
  LinkChildren();
}

void ListCollectionBase::LinkChildren() {
  for (const auto& obj : mCol_) {
    const std::string parent = obj->Parent();
    if (parent.empty() || !mCol_.Exists(parent)) continue;
    if (auto children = mCol_.Item(std::string_view(parent))->Children())
      children->Add(obj->FullName(), info_.listType, "");
  }
}

namespace {

// The saved form names a stored parent by its ListID alone. A parent saved in the same file
// gives its full name back, so a record comes back under its key, with its FullName and
// its parent link; a parent not in the file leaves the reference as it was read.
void RestoreParentNames(const std::vector<std::shared_ptr<ListObject>>& loaded) {
  std::unordered_map<std::string, ListObject*> byId;
  for (const auto& obj : loaded)
    if (!obj->ListID().empty()) byId.emplace(obj->ListID(), obj.get());
  std::function<void(ListObject&, size_t)> restore = [&](ListObject& obj, size_t depth) {
    const auto& ref = obj.ParentRef();
    if (!ref || !ref->FullName().empty() || ref->ListID().empty() || depth > byId.size()) return;
    auto it = byId.find(ref->ListID());
    if (it == byId.end() || it->second == &obj) return;
    restore(*it->second, depth + 1);  // a parent's name needs its own parent's first
    detail::ListObjectAccess::SetFullName(*ref, it->second->FullName());
  };
  for (const auto& obj : loaded) restore(*obj, 0);
}

}  // namespace

void ListCollectionBase::LoadSavedRecords(const std::vector<XmlNode>& records, const std::string& FilePath) {
  // Every record is made and read before the content is touched, so a record the
  // collection cannot hold leaves it as it was.
  std::vector<std::shared_ptr<ListObject>> loaded;
  loaded.reserve(records.size());
  for (const XmlNode& record : records) {
    std::shared_ptr<ListObject> obj;
    try {
      obj = NewObject(record);
    } catch (const Error&) {
      // A kind of record the collection does not make: told below as a foreign record.
    }
    CheckSavedKind(record, obj.get(), FilePath);
    obj->FromDom(record);
    // Read from a file, not from QuickBooks: a commit sends it as an add.
    detail::ListObjectAccess::ResetToNew(*obj);
    loaded.push_back(std::move(obj));
  }
  RestoreParentNames(loaded);
  Collection<std::shared_ptr<ListObject>> before = std::move(mCol_);
  Clear();
  try {
    for (size_t i = 0; i < loaded.size(); ++i) AddParsed(loaded[i], static_cast<long>(i + 1));
  } catch (...) {
    // A duplicate key raises the collection's error, with the content as it was.
    mCol_ = std::move(before);
    throw;
  }
  LinkChildren();
}

int32_t ListCollectionBase::GetByNameRange(const std::string& FromName, const std::string& ToName,
                                           int32_t MaxReturned, const std::string& sMDBPath) {
  return NameRangeQuery(info_.queryRequest, FromName, ToName, MaxReturned, sMDBPath);
}

int32_t ListCollectionBase::GetByNameMatch(const std::string& MatchString, int32_t MatchType, int32_t MaxReturned,
                                           const std::string& sMDBPath) {
  return NameMatchQuery(info_.queryRequest, MatchString, MatchType, MaxReturned, sMDBPath);
}

int32_t ListCollectionBase::GetByDateSpan(Date FromDate, Date ToDate, int32_t MaxReturned,
                                          const std::string& sMDBPath) {
  return DateSpanQuery(info_.queryRequest, FromDate, ToDate, MaxReturned, sMDBPath);
}

int32_t ListCollectionBase::NameRangeQuery(const std::string& request, const std::string& FromName,
                                           const std::string& ToName, int32_t MaxReturned,
                                           const std::string& sMDBPath) {
  return RunQuery(request, MaxReturned, sMDBPath, [&](xmlBldr& b) {
    b.OpenAggregateOnly("NameRangeFilter");
    b.CreateElement("FromName", FromName);
    b.CreateElement("ToName", ToName);
    b.EndAggregate("NameRangeFilter");
  });
}

int32_t ListCollectionBase::NameMatchQuery(const std::string& request, const std::string& MatchString,
                                           int32_t MatchType, int32_t MaxReturned, const std::string& sMDBPath) {
  const std::string& criterion = EnumCodeToXML(MatchType, qoeMatchType);
  return RunQuery(request, MaxReturned, sMDBPath, [&](xmlBldr& b) {
    b.OpenAggregateOnly("NameFilter");
    b.CreateElement("MatchCriterion", criterion);
    b.CreateElement("Name", MatchString);
    b.EndAggregate("NameFilter");
  });
}

int32_t ListCollectionBase::DateSpanQuery(const std::string& request, Date FromDate, Date ToDate,
                                          int32_t MaxReturned, const std::string& sMDBPath) {
  // An end of 0 is left open: "None" is no date-time QuickBooks would take.
  return RunQuery(request, MaxReturned, sMDBPath, [&](xmlBldr& b) {
    if (FromDate != 0) b.CreateElement("FromModifiedDate", DateTimeToText(FromDate));
    if (ToDate != 0) b.CreateElement("ToModifiedDate", DateTimeToText(ToDate));
  });
}

std::shared_ptr<ListObject> ListCollectionBase::FindByFullName(const std::string& sFullName,
                                                               const std::string& sMDBPath,
                                                               const std::string& request) {
  if (sFullName.empty()) return nullptr;
  Bldr().Clear();
  Errors()->Clear();
  const Variant key(sFullName);
  if (ItemExists(key)) return ItemBase(key);
  return QueryOne(request, "FullName", sFullName, sMDBPath);
}

std::shared_ptr<ListObject> ListCollectionBase::FindByListID(const std::string& sListID, const std::string& sMDBPath,
                                                             const std::string& request) {
  if (sListID.empty()) return nullptr;
  Bldr().Clear();
  Errors()->Clear();
  for (const auto& obj : mCol_)
    if (obj->ListID() == sListID) return obj;
  return QueryOne(request, "ListID", sListID, sMDBPath);
}

std::shared_ptr<ListObject> ListCollectionBase::QueryOne(const std::string& request, const std::string& identifier,
                                                         const std::string& value, const std::string& sMDBPath) {
  XmlDocument doc = Bldr().QuerySingleExecute(request.empty() ? info_.queryRequest : request, value, identifier, 0,
                                              info_.queryObjectType, "", mIncludeDataExt_);
  if (Bldr().ErrNumber() != 0) {
    Errors()->Add(Bldr().ErrNumber(), "", Bldr().ErrMsg());
    return nullptr;
  }
  XmlNode queryRs = Responses(doc).item(0);
  if (!sMDBPath.empty()) {
    HandToMirror(queryRs, sMDBPath, info_.mirrorObjectName);
    return nullptr;
  }
  XmlNode record = queryRs.childNodes().item(0);
  if (record.IsNull()) return nullptr;  // "no match" (status 1) counts as success and has no record
  std::shared_ptr<ListObject> obj = NewObject(record);
  obj->FromDom(record);
  AddParsed(obj, Count() + 1);  // a single get appends; the others stay
  return obj;
}

// ---- Delete ------------------------------------------------------------------------------

int32_t ListCollectionBase::Delete(const std::string& ListID, bool bRemove) {
  const std::string& delType = EnumCodeToDescription(info_.queryObjectType, qoeObjectType);
  return DeleteRecord(ListID, bRemove, delType, info_.className);
}

int32_t ListCollectionBase::DeleteRecord(const std::string& ListID, bool bRemove, const std::string& delType,
                                         const char* source) {
  // A failed look-up does not stop the delete; it only means nothing is removed locally.
  std::shared_ptr<ListObject> obj = FindByListID(ListID, "");
  const std::string key = obj ? obj->CollectionKey() : std::string();
  const bool held = obj && ItemExists(Variant(key));
  xmlBldr& b = Bldr();
  b.NewClear();
  b.OpenAggregate("ListDelRq", "requestID", "1");
  b.CreateElement("ListDelType", delType);
  b.CreateElement("ListID", ListID);
  b.EndAggregate("ListDelRq");
  b.NewSendRequest();
  if (b.ErrNumber() != 0) throw Error(err::kBuilderStatus, source, b.ErrMsg());
  if (bRemove && held) Remove(Variant(key));
  return 0;
}

// ---- Commit ------------------------------------------------------------------------------

bool ListCollectionBase::ValidateMember(ListObject& obj) {
  const std::vector<std::shared_ptr<qcError>> gathered = Errors()->NewEnum();
  const bool ok = obj.Validate();
  auto errors = Errors();
  const std::vector<std::shared_ptr<qcError>> now = errors->NewEnum();
  if (now.size() >= gathered.size() && std::equal(gathered.begin(), gathered.end(), now.begin())) return ok;
  // A lookup cleared them: the pass's entries come back first, the lookup's own (a failed
  // query) after them.
  errors->Clear();
  for (const auto& e : gathered) errors->AddObject(e);
  for (const auto& e : now) errors->AddObject(e);
  return ok;
}

bool ListCollectionBase::Validate() {
  auto errors = Errors();
  errors->Clear();
  bool all = true;
  for (long i = 1; i <= mCol_.Count(); ++i) {
    std::shared_ptr<ListObject> obj = mCol_.Item(i);
    if (!ValidateMember(*obj)) {
      all = false;
      errors->Add(err::kValidateFailed, obj->CollectionKey(), err::kValidateFailedText);
    }
  }
  return all;
}

int32_t ListCollectionBase::Commit(const std::shared_ptr<ListObject>& Member) {
  RequireMaster(info_.className);
  auto errors = Errors();
  errors->Clear();
  // The commit writes into a builder of its own: a parent check in Validate may send a
  // query through the collection's builder while the message is being written.
  xmlBldr commitBldr;
  commitBldr.NewClear();
  int added = 0;
  if (!Member) {
    // Count is read on every step: a parent check may append the parent, which is Clean.
    for (long i = 1; i <= mCol_.Count(); ++i) {
      std::shared_ptr<ListObject> obj = mCol_.Item(i);
      if (ValidateMember(*obj)) {
        RequestStep(commitBldr, *obj, static_cast<int16_t>(i), added);
      } else {
        errors->Add(err::kValidateFailed, obj->CollectionKey(), err::kValidateFailedText);
      }
    }
  } else if (!ValidateMember(*Member)) {
    errors->Add(err::kValidateFailed, "0", err::kValidateFailedText);
  } else {
    long position = 0;
    for (long i = 1; i <= mCol_.Count() && position == 0; ++i)
      if (mCol_.Item(i) == Member) position = i;
    if (position == 0) errors->Add(err::kNotAMember, info_.className, err::kNotAMemberText);
    else RequestStep(commitBldr, *Member, static_cast<int16_t>(position), added);
  }

  if (added > 0) {
    XmlDocument doc = commitBldr.NewSendRequest();
    XmlNodeList responses = Responses(doc);
    // Every response finds its object by position before any of them is re-keyed, since
    // a re-key moves an object to the end of the collection.
    std::vector<std::pair<XmlNode, std::shared_ptr<ListObject>>> matched;
    const long count = responses.length();
    for (long i = 0; i < count; ++i) {
      XmlNode node = responses.item(i);
      matched.emplace_back(node, mCol_.Item(ReadResponseStatus(node).requestId));
    }
    for (auto& [node, obj] : matched) ResponseStep(node, obj);
  }
  OnCommitEnd(Member);
  SaveDataExtensionsAfterCommit(Member);

  if (State().ErrorMode) {
    if (errors->Count() > 0) throw Error(err::kCommitErrors, info_.className, err::kCommitErrorsText);
    if (commitBldr.ErrNumber() != 0) throw Error(commitBldr.ErrNumber(), info_.className, commitBldr.ErrMsg());
  }
  return static_cast<int32_t>(errors->Count());
}

void ListCollectionBase::SaveDataExtensionsAfterCommit(const std::shared_ptr<ListObject>& Member) {
  // QuickBooks keeps extension values outside the record: they follow in requests of their
  // own, from qbXML 2.0 on, for records that are on file. A failed save is told in the
  // values' Errors and counted here; it never touches the record.
  if (State().QBXMLVersionNumber < Currency(2)) return;
  auto save = [this](ListObject& obj) {
    auto* owner = dynamic_cast<DataExtOwner*>(&obj);
    if (!owner || obj.ListID().empty()) return;
    try {
      owner->SaveDataExtensions(obj.ListID());
    } catch (const Error&) {
    }
    // Either save may have failed, whatever the result of the last one says.
    if (owner->CustomFields()->Errors()->Count() + owner->ApplicationFields()->Errors()->Count() > 0)
      Errors()->Add(err::kCommitFailed, obj.CollectionKey(), err::kCommitFailedText);
  };
  if (Member) {
    save(*Member);
    return;
  }
  for (long i = 1; i <= mCol_.Count(); ++i) save(*mCol_.Item(i));
}

void ListCollectionBase::RequestStep(xmlBldr& b, ListObject& obj, int16_t requestId, int& added) {
  switch (obj.ObjectState()) {
    case qoObjectStateNew:
      b.InsertAddRq(obj, requestId);
      ++added;
      return;
    case qoObjectStateClean:
      if (detail::ListObjectAccess::ModifyWhileClean(obj)) {
        b.InsertModRq(obj, requestId);
        ++added;
      }
      return;
    case qoObjectStateDirty:
      if (info_.dirty == DirtyStep::Refuse) RaiseInternal(info_.className, "Modify not allowed");
      b.InsertModRq(obj, requestId);
      ++added;
      return;
  }
  RaiseInternal(info_.className, "Unknown Object State");
}

int32_t ListCollectionBase::ResponseStep(const XmlNode& node, const std::shared_ptr<ListObject>& obj) {
  ResponseStatus status = ReadResponseStatus(node);
  const bool strip = std::string_view(info_.commitErrorField) == "QuickBooks: ";
  if (size_t at = status.message.find(kQuickBooksPrefix); strip && at != std::string::npos)
    status.message.erase(0, at + kQuickBooksPrefix.size());
  OnResponseStart(*obj);
  if (status.code != 0) {
    Errors()->Add(err::kCommitFailed, obj->CollectionKey(), err::kCommitFailedText);
    if (status.code == 3100) {
      obj->Errors()->Add(err::kDuplicateName, "Name", err::kDuplicateNameText);
    } else if (status.code == 3180 && info_.status3180) {
      obj->Errors()->Add(err::kDuplicateInItemList, "QuickBooks",
                         "There was an error when saving this Items list.  The name of this list element is already "
                         "in use.");
    } else {
      obj->Errors()->Add(err::kDatabaseOpenFailed, info_.commitErrorField, status.message);
    }
    return status.code;
  }
  const bool wasNew = obj->ObjectState() == qoObjectStateNew;
  obj->FromDom(node.childNodes().item(0));
  if (wasNew && info_.rekeyNewOnResponse) {
    // Found by identity, not by its present name: a New record renamed before its first
    // commit still sits under the key it was added with.
    for (long i = 1; i <= mCol_.Count(); ++i) {
      if (mCol_.Item(i) == obj) {
        mCol_.Remove(i);
        break;
      }
    }
    mCol_.Add(obj, obj->CollectionKey());
  }
  OnCommitted(obj);
  return status.code;
}

}  // namespace tessaron
