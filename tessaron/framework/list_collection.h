// The one implementation of the master list collections: the objects of one list, keyed
// by their CollectionKey, with Add, Delete, Commit, Validate and the queries. A collection
// class is this plus its ListCollectionInfo and its own Add; see list_object.h for the
// steps of adding a list class.
//
// Commit sends one message: an add for each New object and a modify for each Dirty one,
// each with its position in the collection as requestID, so that each response finds its
// object again. A failure of one object never holds back the others; with ErrorMode on,
// the commit raises a summary afterwards.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/collection_xml.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/framework/qc_list.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcErrors;
class xmlBldr;

// What the commit does with a Dirty object.
enum class DirtyStep : uint8_t {
  Modify,  // a modify request, through the object's XMLModify
  Refuse,  // raises 0x800403EB "Modify not allowed": QuickBooks has no modify for the list
};

// Everything that differs between the members of the family of master collections.
struct ListCollectionInfo {
  // Source of raised errors and the field text of "not a member" ("Class", "Terms").
  const char* className = "";
  qoEnumListType listType = static_cast<qoEnumListType>(0);
  // The query request ("ClassQueryRq") and the object type the query passes on.
  const char* queryRequest = "";
  qoEnumListObjectType queryObjectType = static_cast<qoEnumListObjectType>(0);
  // The name the database mirror files the records under ("Class", "CustomerMsg").
  const char* mirrorObjectName = "";
  DirtyStep dirty = DirtyStep::Refuse;
  // A New object that QuickBooks accepted is re-keyed (it may come back under another name).
  bool rekeyNewOnResponse = false;
  // The field of a commit failure in the object's Errors. Collections that say
  // "QuickBooks: " cut the message down to what follows "QuickBooks error message: ";
  // the others keep it whole.
  const char* commitErrorField = "QuickBooks: ";
  // Items: status 3180 means the name is taken by another kind of item.
  bool status3180 = false;
  // GetAll and GetActive write MaxReturned (Customers, Employees); the others use the
  // single-key query, which drops it.
  bool handBuiltStatusQuery = false;
  // Templates and TaxCodes: GetAll sends no ActiveStatus, and nothing can be committed.
  bool readOnly = false;
};

// The constant part of a collection's info, the mirror filing the records under the class
// name; the caller sets what else differs.
inline ListCollectionInfo CollectionOf(const char* className, qoEnumListType listType, const char* queryRequest,
                                       qoEnumListObjectType queryObjectType, DirtyStep dirty = DirtyStep::Refuse) {
  ListCollectionInfo info;
  info.className = className;
  info.listType = listType;
  info.queryRequest = queryRequest;
  info.queryObjectType = queryObjectType;
  info.mirrorObjectName = className;
  info.dirty = dirty;
  return info;
}

// SaveToXml, LoadFromXml, XMLSaveStart and XMLSaveEnd come from CollectionXml.
class ListCollectionBase : public qcList, public CollectionXml {
 public:
  ~ListCollectionBase() override;

  // qcList.
  qoEnumListType ListType() const override { return info_.listType; }
  std::vector<std::shared_ptr<qcListObject>> NewEnum() const override;
  std::shared_ptr<qcErrors> Errors() override;
  bool ItemExists(const Variant& vntIndexKey) const override;
  long Count() const override { return mCol_.Count(); }
  // Local only: forgets the object, whatever its state; nothing is sent.
  void Remove(const Variant& vntIndexKey) override { mCol_.Remove(vntIndexKey); }
  // Local only: replaces the inner collection; objects taken out before stay valid.
  void Clear() override { mCol_ = Collection<std::shared_ptr<ListObject>>(); }
  int32_t Commit() override { return Commit(nullptr); }
  // Validates every object; each failure adds 0x800403F3 to Errors. Sends nothing unless
  // a parent check has to query.
  bool Validate() override;

  // Commits one member, or everything when Member is null. Master only. Returns the
  // number of entries in Errors.
  int32_t Commit(const std::shared_ptr<ListObject>& Member);
  int32_t Commit2() { return Commit(nullptr); }
  // Deletes the record in QuickBooks; raises 0x80040402 when QuickBooks refuses. With
  // bRemove the object also leaves the collection.
  int32_t Delete(const std::string& ListID, bool bRemove = true);

  // Queries (GetAll and GetActive come from qcList). Each replaces the collection's
  // content and returns Count, except where a database path hands the records to the
  // mirror instead (Count is then 0). MaxReturned of GetAll and GetActive reaches
  // QuickBooks only in collections whose table says so; in the others it is accepted and
  // not sent.
  int32_t GetByNameRange(const std::string& FromName, const std::string& ToName, int32_t MaxReturned = 0,
                         const std::string& sMDBPath = "");
  // MatchType: qbEnumMatchType (1 starts with, 2 contains, 3 ends with).
  int32_t GetByNameMatch(const std::string& MatchString, int32_t MatchType, int32_t MaxReturned = 0,
                         const std::string& sMDBPath = "");
  // Records modified between the two dates (a date of 0 leaves that end open).
  int32_t GetByDateSpan(Date FromDate, Date ToDate, int32_t MaxReturned = 0, const std::string& sMDBPath = "");

  bool IsMaster() const { return mMaster_; }
  const ListCollectionInfo& CollectionInfo() const { return info_; }

 protected:
  explicit ListCollectionBase(const ListCollectionInfo& info);

  // Library-internal, through detail::ListObjectAccess: Company marks its own instances;
  // only those may Add and Commit.
  friend class detail::ListObjectAccess;
  void SetMaster(bool value) { mMaster_ = value; }

  // The object for one `...Ret` element of a response.
  virtual std::shared_ptr<ListObject> NewObject(const XmlNode& ret) = 0;
  // Puts a parsed object into the collection; `position` counts from 1 within the response.
  virtual void AddParsed(const std::shared_ptr<ListObject>& obj, long position);
  // Commit hooks for collections with more to do (Customers).
  virtual void OnResponseStart(ListObject& obj) {}
  virtual void OnCommitted(const std::shared_ptr<ListObject>& obj) {}
  virtual void OnCommitEnd(const std::shared_ptr<ListObject>& Member) {}

  // qcList forms.
  int32_t ListGetAll(int32_t MaxReturned, const std::string& sMDBPath) override;
  int32_t ListGetActive(int32_t MaxReturned, const std::string& sMDBPath) override;
  std::shared_ptr<qcListObject> ListItem(const Variant& vKey) const override { return ItemBase(vKey); }
  std::shared_ptr<qcListObject> ListGetByFullName(const std::string& sFullName) override {
    return FindByFullName(sFullName, "");
  }
  std::shared_ptr<qcListObject> ListGetByListID(const std::string& sListID) override {
    return FindByListID(sListID, "");
  }

  std::shared_ptr<ListObject> ItemBase(const Variant& vKey) const;
  std::shared_ptr<ListObject> FindByFullName(const std::string& sFullName, const std::string& sMDBPath,
                                             const std::string& request = "");
  std::shared_ptr<ListObject> FindByListID(const std::string& sListID, const std::string& sMDBPath,
                                           const std::string& request = "");

  // Raises 0x800403FD with `source` unless this is the master instance.
  void RequireMaster(const char* source) const;
  // Add, after the object was made and filled: key it in, make it New, link it to a
  // loaded parent.
  void Insert(const std::shared_ptr<ListObject>& obj);
  // The status query: `status` is a qbEnumActiveStatus, 0 for none.
  int32_t StatusQuery(const std::string& request, int32_t status, int32_t MaxReturned, const std::string& sMDBPath);
  // A query built element by element: MaxReturned when above 0, then what `filter`
  // writes, then the data-extension owner; sent, then parsed or handed to the mirror.
  int32_t RunQuery(const std::string& request, int32_t MaxReturned, const std::string& sMDBPath,
                   const std::function<void(xmlBldr&)>& filter);
  // The range, match and date queries under another request name (a kind of a list
  // that holds several: "ItemServiceQueryRq").
  int32_t NameRangeQuery(const std::string& request, const std::string& FromName, const std::string& ToName,
                         int32_t MaxReturned, const std::string& sMDBPath);
  int32_t NameMatchQuery(const std::string& request, const std::string& MatchString, int32_t MatchType,
                         int32_t MaxReturned, const std::string& sMDBPath);
  int32_t DateSpanQuery(const std::string& request, Date FromDate, Date ToDate, int32_t MaxReturned,
                        const std::string& sMDBPath);
  // CollectionXml: records loaded from a file are New, keyed as a query keys them, and
  // linked to their parents.
  const char* SavedSource() const override { return info_.className; }
  long SavedCount() const override { return Count(); }
  qcBase& SavedAt(long position) override { return *mCol_.Item(position); }
  void LoadSavedRecords(const std::vector<XmlNode>& records, const std::string& FilePath) override;

  // Written after the filter of every hand-built query (the balance filter of Vendors).
  virtual void WriteQueryTail(xmlBldr&) {}
  // Deletes by hand-built ListDelRq; `delType` is the ListDelType text. `source` names
  // the raiser of a refusal.
  int32_t DeleteRecord(const std::string& ListID, bool bRemove, const std::string& delType, const char* source);

  xmlBldr& Bldr();
  Collection<std::shared_ptr<ListObject>>& Objects() { return mCol_; }
  const Collection<std::shared_ptr<ListObject>>& Objects() const { return mCol_; }
  bool IncludeDataExt() const { return mIncludeDataExt_; }
  void SetIncludeDataExt(bool value) { mIncludeDataExt_ = value; }

 private:
  int32_t AfterSend(const XmlDocument& doc, const std::string& sMDBPath);
  // The single-key query of GetByFullName and GetByListID; appends what it finds.
  std::shared_ptr<ListObject> QueryOne(const std::string& request, const std::string& identifier,
                                       const std::string& value, const std::string& sMDBPath);
  void Parse(const XmlNode& queryRs);
  // Tells each parent in the collection of its children; a parent not held gets none.
  void LinkChildren();
  // The object's Validate, keeping what this pass gathered in Errors: a parent check may
  // look the parent up through this very collection, and a lookup clears Errors first.
  bool ValidateMember(ListObject& obj);
  void RequestStep(xmlBldr& b, ListObject& obj, int16_t requestId, int& added);
  // The data extension values of Member, or of every record, after the records went out.
  void SaveDataExtensionsAfterCommit(const std::shared_ptr<ListObject>& Member);
  int32_t ResponseStep(const XmlNode& node, const std::shared_ptr<ListObject>& obj);

  const ListCollectionInfo info_;  // a few words; each instance keeps its copy
  Collection<std::shared_ptr<ListObject>> mCol_;
  bool mMaster_ = false;
  std::unique_ptr<xmlBldr> mBldr_;
  std::shared_ptr<qcErrors> mErrors_;
  bool mIncludeDataExt_ = false;
};

// The typed face of a collection of `Obj`: Item, GetByFullName, GetByListID and iteration
// give `Obj` handles.
template <class Obj>
class ListCollection : public ListCollectionBase {
 public:
  // By position from 1 or by key; raises the collection's error when absent.
  std::shared_ptr<Obj> Item(const Variant& vntIndexKey) const {
    return std::static_pointer_cast<Obj>(ItemBase(vntIndexKey));
  }
  // From the collection when loaded (no request, whatever the path), else by one query
  // that adds the record; null for an empty name or a record not on file.
  std::shared_ptr<Obj> GetByFullName(const std::string& sFullName, const std::string& sMDBPath = "") {
    return std::static_pointer_cast<Obj>(FindByFullName(sFullName, sMDBPath));
  }
  std::shared_ptr<Obj> GetByListID(const std::string& sListID, const std::string& sMDBPath = "") {
    return std::static_pointer_cast<Obj>(FindByListID(sListID, sMDBPath));
  }

  class iterator {
   public:
    using Inner = typename Collection<std::shared_ptr<ListObject>>::const_iterator;
    explicit iterator(Inner it) : it_(it) {}
    std::shared_ptr<Obj> operator*() const { return std::static_pointer_cast<Obj>(*it_); }
    iterator& operator++() { ++it_; return *this; }
    bool operator==(const iterator& o) const { return it_ == o.it_; }
   private:
    Inner it_;
  };
  iterator begin() const { return iterator(Objects().begin()); }
  iterator end() const { return iterator(Objects().end()); }

 protected:
  using ListCollectionBase::ListCollectionBase;

  std::shared_ptr<ListObject> NewObject(const XmlNode&) override {
    if constexpr (!std::is_default_constructible_v<Obj>) {
      return nullptr;  // collections of several kinds choose by the element's name
    } else {
      return std::make_shared<Obj>();
    }
  }
  // Add: makes the object, refuses on a non-master instance, fills it while it is New,
  // keys it in and links it to a loaded parent.
  template <class T = Obj, class Fill>
  std::shared_ptr<T> AddNew(Fill&& fill) {
    auto obj = std::make_shared<T>();
    RequireMaster(CollectionInfo().className);
    fill(*obj);
    Insert(obj);
    return obj;
  }
};

// A list QuickBooks only reads out (Templates, TaxCodes): GetAll is the only query, and
// nothing can be added or committed.
template <class Obj>
class ReadOnlyListCollection : public ListCollection<Obj> {
 public:
  int32_t GetAll(const std::string& sMDBPath = "") { return this->ListGetAll(0, sMDBPath); }
  int32_t GetActive(int32_t, const std::string& = "") = delete;
  int32_t GetByNameRange(const std::string&, const std::string&, int32_t = 0, const std::string& = "") = delete;
  int32_t GetByNameMatch(const std::string&, int32_t, int32_t = 0, const std::string& = "") = delete;
  int32_t GetByDateSpan(Date, Date, int32_t = 0, const std::string& = "") = delete;
  int32_t Commit(const std::shared_ptr<ListObject>&) = delete;

 protected:
  using ListCollection<Obj>::ListCollection;
};

}  // namespace tessaron
