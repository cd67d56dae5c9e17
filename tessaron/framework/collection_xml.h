// Saving a collection to a file and reading it back, without QuickBooks: the part that
// every list and transaction collection shares. The file has the shape of a batch of query
// responses, one `NQueryRs` per record with its position as requestID and one `NRet`
// inside written by the object's XMLQueryRs, so the objects' own FromDom reads it again:
//
//   <Tessaron><QBXMLMsgsRq onError = "continueOnError">
//     <ClassQueryRs requestID = "1"><ClassRet>...</ClassRet></ClassQueryRs>...
//   </QBXMLMsgsRq></Tessaron>
//
// A collection base derives from CollectionXml and says how many objects it holds, which
// one is at a position, and how a list of checked records replaces its content; every
// collection class built on that base has SaveToXml and LoadFromXml with no code of its own.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcBase;

class CollectionXml {
 public:
  virtual ~CollectionXml() = default;

  // Writes the objects of the save range to the file, whatever their state, replacing any
  // old file; nothing is validated and no state changes. Returns 0; a file that cannot be
  // written raises the platform's file error.
  int32_t SaveToXml(const std::string& FilePath);
  // Replaces the content by the records of a file written by SaveToXml. Every loaded object
  // is New (its lines and addresses too), so a commit sends it as an add; ListID or TxnID
  // and EditSequence from the file stay in it and are not sent. A missing, unreadable,
  // malformed or foreign file raises and leaves the collection as it was. The result is
  // always null.
  std::shared_ptr<qcBase> LoadFromXml(const std::string& FilePath);

  // The range of positions SaveToXml takes, both 0 after construction and kept between
  // saves. With XMLSaveEnd above 0, positions XMLSaveStart to XMLSaveEnd; otherwise every
  // position from XMLSaveStart on (all of them when it is 0 or 1).
  int32_t XMLSaveStart() const { return mSaveStart_; }
  void SetXMLSaveStart(int32_t value) { mSaveStart_ = value; }
  int32_t XMLSaveEnd() const { return mSaveEnd_; }
  void SetXMLSaveEnd(int32_t value) { mSaveEnd_ = value; }

 protected:
  CollectionXml() = default;

  // The source of raised errors: the class name of the collection's objects ("Class", "Invoice").
  virtual const char* SavedSource() const = 0;
  virtual long SavedCount() const = 0;
  // The object at a position from 1.
  virtual qcBase& SavedAt(long position) = 0;
  // Makes, reads and keys in one object per record; raises (leaving the content as it was)
  // for a record the collection cannot hold. Each record is the element inside one
  // `...QueryRs` of the file; whether it is of the collection's kind is checked with
  // CheckSavedKind once the object for it is made.
  virtual void LoadSavedRecords(const std::vector<XmlNode>& records, const std::string& FilePath) = 0;

  // Raises unless `record` is the `NRet` element that `obj` writes (a file of another
  // collection, or another kind of record).
  void CheckSavedKind(const XmlNode& record, const qcBase* obj, const std::string& FilePath) const;

 private:
  // The records of the file, in order; raises for a file that is missing, unreadable, not
  // UTF-8, not well-formed or not a saved collection. Elements of the message list that are
  // not responses are noted as unknown and skipped.
  std::vector<XmlNode> ReadSavedRecords(const std::string& FilePath, XmlDocument& doc) const;
  [[noreturn]] void RaiseBadFile(const std::string& FilePath, const std::string& reason) const;

  int32_t mSaveStart_ = 0;
  int32_t mSaveEnd_ = 0;
};

}  // namespace tessaron
