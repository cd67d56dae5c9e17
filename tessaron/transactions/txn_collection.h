// The one implementation of the master transaction collections: the documents of one
// kind, keyed by TxnId, with Delete, Void, Commit, Validate and the queries. A collection
// class is this plus its TxnCollectionInfo and its own Add; see txn_object.h for the steps
// of adding a transaction class.
//
// Queries add to what the collection holds: members of an earlier query stay, and a
// document that comes back twice raises the collection's duplicate-key error (Clear first
// to read again). Commit sends one message, an add for each New member and a modify for
// each Dirty one (or a Clean one whose lines changed), each with its position as
// requestID; a member that fails validation holds the whole message back.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/collection_xml.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"
#include "tessaron/transactions/txn_object.h"

namespace tessaron {

class qcErrors;
class xmlBldr;

namespace detail {
class ListObjectAccess;
}

// The PaidStatus of a query that asks for paid and unpaid documents alike (nothing is sent).
inline constexpr int32_t kPaidStatusAll = 1;

// Everything that differs between the members of the family of transaction collections.
struct TxnCollectionInfo {
  // Source of raised errors and the field of "not a member" ("Invoice").
  const char* className = "";
  // The documents' object type: the TxnDelType and TxnVoidType text, the data-extension owner.
  qoEnumListObjectType objectType = static_cast<qoEnumListObjectType>(0);
  // "InvoiceQueryRq".
  const char* queryRequest = "";
  // The name the database mirror files the records under.
  const char* mirrorObjectName = "";
  // Whether the queries may ask for the linked documents (SalesReceipts may not).
  bool linkedTxns = true;
  // Whether QuickBooks can void the documents.
  bool canVoid = true;
};

// SaveToXml, LoadFromXml, XMLSaveStart and XMLSaveEnd come from CollectionXml.
class TxnCollectionBase : public CollectionXml {
 public:
  virtual ~TxnCollectionBase();

  long Count() const { return mCol_.Count(); }
  bool ItemExists(const Variant& vntIndexKey) const;
  // Item without the class: by position from 1 or by TxnId; raises when absent.
  std::shared_ptr<TxnObject> ItemObject(const Variant& vntIndexKey) const { return ItemBase(vntIndexKey); }
  // Local only: forgets the member; nothing is sent.
  void Remove(const Variant& vntIndexKey) { mCol_.Remove(vntIndexKey); }
  // Local only: forgets every member.
  void Clear() { mCol_ = Collection<std::shared_ptr<TxnObject>>(); }
  std::shared_ptr<qcErrors> Errors();
  bool IsMaster() const { return mMaster_; }

  // Whether the queries ask for the documents linked to each one.
  bool IncludeLinkedTxns() const { return mIncludeLinkedTxns_; }
  void SetIncludeLinkedTxns(bool value) { mIncludeLinkedTxns_ = value; }
  // Whether the queries ask for the custom fields of each document.
  bool IncludeDataExtensions() const { return mIncludeDataExt_; }
  void SetIncludeDataExtensions(bool value) { mIncludeDataExt_ = value; }

  // Deletes (or voids) the document in QuickBooks; raises 0x80040402 when QuickBooks
  // refuses. With bRemove a member of that TxnId also leaves the collection. Returns the
  // builder's error number, 0 when done.
  int32_t Delete(const std::string& TxnId, bool bRemove = true);
  int32_t Void(const std::string& TxnId, bool bRemove = true);

  // ---- Queries: each returns Count, or hands the answer to the mirror when sMDBPath is
  // not empty. PaidStatus is a qbEnumPaidStatus (1 all, 2 paid, 3 not paid); MaxReturned
  // 0 is no limit.
  int32_t GetByDateMacro(qbEnumDateMacro DateMacro, bool IncludeLineItems = true, int32_t MaxReturned = 0,
                         int32_t PaidStatus = 1, const std::string& sMDBPath = "", const std::string& Entity = "",
                         bool WithChildren = false);
  // Transaction dates, or modification dates with UseModifiedDate; 0 leaves an end open.
  int32_t GetByDateSpan(Date FromDate, Date ToDate, bool UseModifiedDate = false, bool IncludeLineItems = true,
                        int32_t MaxReturned = 0, int32_t PaidStatus = 1, const std::string& sMDBPath = "",
                        const std::string& Entity = "", bool WithChildren = false);
  // An empty list raises; WithChildren takes one name only.
  int32_t GetByEntity(const std::vector<std::string>& EntityList, bool WithChildren = false,
                      bool IncludeLineItems = true, int32_t MaxReturned = 0, int32_t PaidStatus = 1,
                      const std::string& sMDBPath = "");
  int32_t GetByEntityV(const std::vector<Variant>& EntityList, bool WithChildren = false, bool IncludeLineItems = true,
                       int32_t MaxReturned = 0, int32_t PaidStatus = 1, const std::string& sMDBPath = "");
  int32_t GetByAccount(const std::vector<std::string>& AccountList, bool WithChildren = false,
                       bool IncludeLineItems = true, int32_t MaxReturned = 0, int32_t PaidStatus = 1,
                       const std::string& sMDBPath = "");
  int32_t GetByRefNumber(const std::string& FromRefNumber, const std::string& ToRefNumber, bool IncludeLineItems = true,
                         int32_t MaxReturned = 0, int32_t PaidStatus = 1, const std::string& sMDBPath = "");
  // MatchType: qbEnumMatchType (1 starts with, 2 contains, 3 ends with).
  int32_t GetByRefNumberMatch(const std::string& MatchString, int32_t MatchType, bool IncludeLineItems = true,
                              int32_t MaxReturned = 0, int32_t PaidStatus = 1, const std::string& sMDBPath = "");
  int32_t GetAll(bool IncludeLineItems = true, int32_t MaxReturned = 0, int32_t PaidStatus = 1,
                 const std::string& sMDBPath = "");
  // The documents of these ids; the result holds the count.
  Variant GetMultiple(const std::vector<std::string>& TxnIds, bool IncludeLineItems = true,
                      const std::string& sMDBPath = "");
  int32_t GetBySingleEntity(const std::string& Entity, bool WithChildren = false, bool IncludeLineItems = true,
                            const std::string& sMDBPath = "");
  int32_t GetBySingleAccount(const std::string& Account, bool WithChildren = false, bool IncludeLineItems = true,
                             const std::string& sMDBPath = "");

  // Commits one member, or every member when Member is null. Master only. Returns the
  // number of entries in Errors.
  int32_t Commit(const std::shared_ptr<TxnObject>& Member);
  int32_t Commit2() { return Commit(nullptr); }
  // Each member's Validate; each failure adds 0x800403F3. Sends nothing.
  bool Validate();

  const TxnCollectionInfo& CollectionInfo() const { return info_; }

 protected:
  explicit TxnCollectionBase(const TxnCollectionInfo& info);

  friend class detail::ListObjectAccess;  // Company marks its own instances
  friend class TxnObject;                 // lazy lines
  void SetMaster(bool value) { mMaster_ = value; }

  virtual std::shared_ptr<TxnObject> NewObject() = 0;

  // CollectionXml: documents loaded from a file are New with all their lines, and held
  // without a key, as documents made by Add are, until a commit gives them their TxnId.
  const char* SavedSource() const override { return info_.className; }
  long SavedCount() const override { return Count(); }
  qcBase& SavedAt(long position) override { return *mCol_.Item(position); }
  void LoadSavedRecords(const std::vector<XmlNode>& records, const std::string& FilePath) override;

  std::shared_ptr<TxnObject> ItemBase(const Variant& vKey) const;
  std::shared_ptr<TxnObject> FindByTxnID(const std::string& TxnId, bool IncludeLineItems, const std::string& sMDBPath);
  // Re-reads the member from QuickBooks (TxnID and its links only).
  Variant GetMeBase(TxnObject& obj);
  // Raises 0x800403FD unless this is the master instance.
  void RequireMaster() const;
  // Add, after the object was made and filled: the object is New and joins the members.
  void Insert(const std::shared_ptr<TxnObject>& obj);

  // A query written element by element: what `filter` writes, then the data-extension
  // owner; sent, then parsed or handed to the mirror.
  int32_t RunQuery(const std::function<void(xmlBldr&)>& filter, const std::string& sMDBPath);
  // The tail most queries share: PaidStatus when not All, IncludeLineItems when asked,
  // IncludeLinkedTxns when the collection's flag is on.
  void WriteOptions(xmlBldr& b, int32_t PaidStatus, bool IncludeLineItems) const;

  // The other session that AutoGenerateInvoiceNumbers opens; while it is on, a commit of
  // one member goes first as an add of qbXML 2.1 through it, then as a modify.
  bool AutoNumbering() const { return mAutoNumbering_; }
  void SetAutoNumbering(bool value);

  xmlBldr& Bldr();
  Collection<std::shared_ptr<TxnObject>>& Objects() { return mCol_; }
  const Collection<std::shared_ptr<TxnObject>>& Objects() const { return mCol_; }

 private:
  int32_t AfterSend(const XmlDocument& doc, const std::string& sMDBPath);
  void AddParsed(const std::shared_ptr<TxnObject>& obj);
  long PositionOf(const TxnObject& obj) const;
  // Writes an add, a modify or nothing; false when the member is passed over.
  bool WriteMember(xmlBldr& b, TxnObject& obj, int16_t requestId);
  void ReadCommitResponses(const XmlDocument& doc);
  void ReadCommitResponse(const XmlNode& node);
  // Runs `step` with the older session and version in the library's place, and puts
  // the session's back afterwards, also when the step raises.
  void WithOlderSession(const std::function<void()>& step);
  // Members committed for the first time join the keys under their TxnId.
  void KeyCommitted();
  // Saves the data extensions of the member, or of every member, that is on file.
  void SaveDataExtensionsAfterCommit(const std::shared_ptr<TxnObject>& Member);
  void CheckNameList(size_t count, bool WithChildren, const char* source) const;
  int32_t DeleteOrVoid(const char* request, const char* typeTag, const std::string& TxnId, bool bRemove);

  const TxnCollectionInfo info_;
  Collection<std::shared_ptr<TxnObject>> mCol_;
  bool mMaster_ = false;
  bool mIncludeLinkedTxns_ = false;
  bool mIncludeDataExt_ = false;
  bool mAutoNumbering_ = false;
  std::unique_ptr<xmlBldr> mBldr_;
  std::shared_ptr<qcErrors> mErrors_;
};

// The typed face of a collection of `Obj`.
template <class Obj>
class TxnCollection : public TxnCollectionBase {
 public:
  // By position from 1 or by TxnId; raises the collection's error when absent.
  std::shared_ptr<Obj> Item(const Variant& vntIndexKey) const {
    return std::static_pointer_cast<Obj>(ItemBase(vntIndexKey));
  }
  // A member of that TxnId without any request (unless sMDBPath is given); else one
  // query, whose document joins the members. Null when QuickBooks has none or refuses.
  std::shared_ptr<Obj> GetByTxnID(const std::string& TxnId, bool IncludeLineItems = true,
                                  const std::string& sMDBPath = "") {
    return std::static_pointer_cast<Obj>(FindByTxnID(TxnId, IncludeLineItems, sMDBPath));
  }
  // Reads the member again from QuickBooks, with its links.
  Variant GetMe(Obj& obj) { return GetMeBase(obj); }

  class iterator {
   public:
    using Inner = typename Collection<std::shared_ptr<TxnObject>>::const_iterator;
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
  using TxnCollectionBase::TxnCollectionBase;

  std::shared_ptr<TxnObject> NewObject() override { return std::make_shared<Obj>(); }
  // Add: refuses on a non-master instance, makes the object, fills it while it is New and
  // adds it to the members.
  template <class Fill>
  std::shared_ptr<Obj> AddNew(Fill&& fill) {
    auto obj = std::make_shared<Obj>();
    RequireMaster();
    fill(*obj);
    Insert(obj);
    return obj;
  }
};

}  // namespace tessaron
