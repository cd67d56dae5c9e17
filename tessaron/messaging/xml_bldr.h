// xmlBldr: the one class through which all qbXML text is made and sent.
//
// A request is written piece by piece (one piece per call, joined with nothing between
// them: no line breaks, no indentation), assembled once when it is sent, handed to the
// request processor of the library state, and the status of the first response is kept
// in ErrNumber/ErrMsg. A typical read:
//
//   xmlBldr b;
//   b.NewClear();
//   b.OpenAggregate("CustomerQueryRq", "requestID", "1");
//   b.CreateElement("FullName", name);
//   b.EndAggregate("CustomerQueryRq");
//   XmlDocument doc = b.NewSendRequest();
//   if (b.ErrNumber() != 0) ...   // a non-zero status is never raised here
//
// Only values are escaped; tags and attribute names are written as given. Nothing checks
// that tags balance: the builder remembers only the last opened tag (see EndAggregate).
// Tags and values are taken as views, so writing an element from literals allocates
// nothing beyond the growth of the request itself.
// Elements whose MinVersion lies above the connected qbXML version are left out silently,
// which is how every object stays valid against older versions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcBase;

// The name objects of a type carry in requests and responses ("ItemService" for the
// type "Item Service"): N of NAddRq, NModRq, NQueryRs and NRet.
std::string ObjectTypeName(qoEnumListObjectType type);

class xmlBldr {
 public:
  xmlBldr();

  // Appends the text unchanged as one piece. Returns an empty text.
  std::string InsertRawXML(const std::string& XMLString);
  // Status of the last SendToQB: the numeric value of the kept status text; 1 reads as 0.
  int32_t ErrNumber() const;
  // Status message of the last SendToQB (kept also when the status was 1).
  const std::string& ErrMsg() const { return errMsg_; }
  // Assembles and returns the text so far (a string Variant); the pieces stay.
  Variant GetXML();
  // Forgets the pieces. The assembled text and the status fields stay.
  void Clear();

  // The XML declaration alone, without Clear and without a document type (report requests).
  void CreateRptTop();
  // Clear, then the declaration and the document type of the session's qbXML version.
  void CreateTop();
  // Writes <Tag>value</Tag> when the value is not empty; an empty value is written as an
  // empty pair only when ForceNull is true. Nothing below MinVersion.
  void CreateElement2(std::string_view TagName, std::string_view Value, bool ForceNull, Currency MinVersion = 0);
  // Writes <Tag>value</Tag>, an empty value included. Nothing below MinVersion.
  void CreateElement(std::string_view TagName, std::string_view Value, Currency MinVersion = 0);
  // Nothing for the null date; otherwise the date as "yyyy-mm-dd".
  void CreateDateElement(std::string_view Tag, Date d, Currency MinVersion = 0);
  // <Tag/>
  void CreateBlankTag(std::string_view TagName);
  // <Tag Attrib = "value"> (the blanks around the equals sign are part of the format).
  void OpenAggregate(std::string_view TagName, std::string_view Attrib, std::string_view Value);
  // <Tag>
  void OpenAggregateOnly(std::string_view TagName);
  // </Tag>. An empty or absent name closes the last opened tag (again, if called twice),
  // and the by-reference form writes that name back into the caller's variable.
  void EndAggregate(std::string& TagName);
  void EndAggregate(std::string_view TagName);
  void EndAggregate() { EndAggregate(std::string_view()); }
  // Appends the escaped text without a tag.
  void EnterValueOnly(std::string_view TagName);

  // Sends a whole-list query (<QueryName requestID = "1"/>); MaxRows is ignored.
  XmlDocument QueryFullTableExecute(const std::string& QueryName, int32_t MaxRows);
  // Sends a query for one key: sIdentifier = sValue, inside sFilterType when that is not
  // empty, then the custom-field owners when asked for. MaxRows is ignored.
  XmlDocument QuerySingleExecute(const std::string& QueryType, const std::string& sValue,
                                 const std::string& sIdentifier, int32_t MaxRows, qoEnumListObjectType ObjType,
                                 const std::string& sFilterType = "", bool IncludeDataExtensions = false);

  // Filters inside a query the caller opened. An empty array raises subscript out of range (9).
  Variant InsertAccountFilter(const std::vector<std::string>& Accounts, bool WithChildren);
  Variant InsertEntityFilter(const std::vector<std::string>& Entities, bool WithChildren);
  // <FilterType>DateRangeFilter with From/To dates (times too for "Modified" from 2.0 on)
  // and the name of a date macro; 0 leaves a part out. The aggregate is always written.
  Variant InsertDateFilter(const std::string& FilterType, Date FromDate = 0, Date ToDate = 0,
                           qbEnumDateMacro DateMacro = qbEnumDateMacro(0));

  // Write an object as <N>QueryRs/<N>Ret, <N>AddRq/<N>Add or <N>ModRq/<N>Mod, where N is
  // the key of its object type ("ItemService"), calling back XMLQueryRs/XMLInsert/XMLModify.
  void InsertQueryRs(qcBase& o, int16_t iRequestId);
  void InsertAddRq(qcBase& o, int16_t iRequestId);
  void InsertModRq(qcBase& o, int16_t iRequestId);

  // Starts a subscription message set: declaration, <QBXML><QBXMLSubscriptionMsgsRq>.
  void NewClearSubscriptions();
  // Starts an ordinary message set: declaration, <QBXML><QBXMLMsgsRq onError = "continueOnError">.
  void NewClear();
  // Starts a persistence document: <Tessaron><QBXMLMsgsRq ...>, no declaration.
  void IOClear();
  // Reads a whole file into a new document; a missing file gives an empty document.
  XmlDocument ReadXml(const std::string& sFile);
  // Closes a persistence document and writes it as one line, replacing the file.
  int32_t SaveToFile(const std::string& Path);

  // The envelope around one add or modify request (requestID "2"). Failures of either are
  // caught into ErrNumber/ErrMsg: Begin then returns "", Finish a null document.
  std::string XMLInsertBegin(const std::string& QueryType, const std::string& InsertCmd);
  XmlDocument XMLInsertFinish(const std::string& QueryType, const std::string& InsertCmd);

  // Sends what the builder holds and reads the status of the first response. An
  // unparsable response gives an empty document and no error; a failure of the request
  // processor is raised again with source "XMLBldr". The pieces are cleared after sending.
  XmlDocument SendToQB();
  // Closes "QBXMLMsgsRq" and "QBXML", then SendToQB.
  XmlDocument NewSendRequest();
  // Closes "QBXMLSubscriptionMsgsRq" and "QBXML", then SendToQB.
  XmlDocument NewSendSubscriptionRequest();

  // Asks a query for the public custom fields (OwnerID 0), and for the application's own
  // fields when a GUID is registered and the object type has some. From qbXML 2.0 on.
  void AddDataExtTag(bool bAdd, qoEnumListObjectType mObjectType);
  // As QuerySingleExecute, with MaxReturned (when MaxRows is not 0), returning the raw
  // response text.
  std::string XMLQuerySingleExecute(const std::string& QueryType, const std::string& sValue,
                                    const std::string& sIdentifier, int32_t MaxRows, qoEnumListObjectType ObjType,
                                    const std::string& sFilterType = "", bool IncludeDataExtensions = false);
  // Closes the envelope, sends through ProcessRequest (never a subscription), returns the
  // raw text. The pieces stay and no status is read.
  std::string XMLSendToQB();

  // Beyond the builder's documented members; for tests and diagnostics.
  long PieceCount() const { return static_cast<long>(pieceEnds_.size()); }
  // The text assembled by the last GetXML or send.
  const std::string& AssembledText() const { return buffer_; }

 private:
  // Piece storage: the pieces lie back to back in one text, and pieceEnds_ holds where each
  // one ends, so appending a piece never allocates beyond the growth of the request itself
  // and assembly is one copy into a buffer of the exact length.
  void ClosePiece() { pieceEnds_.push_back(pieces_.size()); }
  void AppendPiece(std::string_view text);
  void AssemblePieces();
  void AppendEscaped(std::string_view value);
  void AppendElement(std::string_view tag, std::string_view value);
  void OpenMessageSet();
  void InsertObject(qcBase& o, int16_t iRequestId, const char* outerSuffix, const char* innerSuffix, int which);
  void WriteNameFilter(const char* tag, const std::vector<std::string>& names, bool withChildren);
  void WriteSingleQuery(const std::string& QueryType, const std::string& sValue, const std::string& sIdentifier,
                        int32_t MaxReturned, qoEnumListObjectType ObjType, const std::string& sFilterType,
                        bool IncludeDataExtensions);
  std::string Exchange(bool asSendToQB);
  [[noreturn]] void PassOnFailure(const Error& e);
  void ReadStatus(const XmlDocument& doc);

  std::string buffer_;
  std::string errNumberText_;
  std::string errMsg_;
  std::string pieces_;
  std::vector<size_t> pieceEnds_;
  std::string lastTag_;
};

// The escaped form of a value as it goes into a request (the library's table, not a full
// one: see the source for the three rows kept as they are).
std::string EscapeValue(std::string_view value);

// Whether the company's application-defined fields cover an object type. The definitions
// come with the company record; until they are loaded the answer is false.
bool ObjectTypeHasAppFields(qoEnumListObjectType objectType);

}  // namespace tessaron
