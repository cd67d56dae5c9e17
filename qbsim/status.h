// Every status code and raised error number of the company-file processor, in one place.
//
// Two ways to fail exist, as with QuickBooks: a request that is understood but refused
// gets a status on its own response element (the batch goes on), while a message that
// cannot be taken at all (no session, text that does not parse, a refused schema) makes
// the processor call raise.
#pragma once

#include <cstdint>
#include <string>

namespace tessaron::qbsim {

inline constexpr const char* kSource = "qbsim";

// The outcome of one request: the three status attributes of its response element.
struct Status {
  int code = 0;
  std::string message = "Status OK";

  bool Ok() const { return code == 0; }
  // "Info" for success and "no match", "Warn" for a key that found nothing, else "Error".
  const char* Severity() const;
};

namespace status {
inline constexpr int kOk = 0;
// A filter query that matched nothing; the caller counts it as success.
inline constexpr int kNoMatch = 1;
// A ListID, FullName or TxnID given in a query that is not on file.
inline constexpr int kNotFoundByKey = 500;
// An identifier that cannot be one (blanks, too long).
inline constexpr int kInvalidId = 3000;
// A required element is missing from the request.
inline constexpr int kMissingElement = 3010;
// A value that does not convert to the element's type, or is not one of its values.
inline constexpr int kBadValue = 3020;
// Text longer than the field allows.
inline constexpr int kTooLong = 3070;
// The name is already used in the list's name space.
inline constexpr int kNameInUse = 3100;
// The record named by ListID in a modify or delete is not on file.
inline constexpr int kObjectNotFound = 3120;
// A reference (…Ref) to a record that is not on file.
inline constexpr int kInvalidReference = 3140;
// The record is in use (referenced, or has children) and cannot be deleted.
inline constexpr int kInUse = 3170;
// An item name used by an item of another kind; the message carries the text that
// the library strips up to.
inline constexpr int kItemNameInUse = 3180;
// The EditSequence of a modify is not the record's current one.
inline constexpr int kStaleEditSequence = 3200;
// A change QuickBooks refuses for a business reason (a parent below its own child, ...).
inline constexpr int kRefused = 3210;
// A request, or an element of one, that this processor does not answer (yet).
inline constexpr int kNotSupported = 3250;

Status Ok();
Status NoMatch();
Status NotFoundByKey(const std::string& element, const std::string& value);
Status InvalidId(const std::string& element, const std::string& value);
Status MissingElement(const std::string& element);
Status BadValue(const std::string& element, const std::string& value);
Status TooLong(const std::string& element, const std::string& value, int limit);
Status NameInUse(const std::string& name);
Status ObjectNotFound(const std::string& id);
Status InvalidReference(const std::string& element, const std::string& value);
Status InUse(const std::string& what, const std::string& why);
Status ItemNameInUse(const std::string& kind, const std::string& name);
Status StaleEditSequence(const std::string& editSequence);
// A sub-account whose account type is not its parent's (3020, as any value that does not fit).
Status AccountTypeOfParent(const std::string& type, const std::string& parentType, const std::string& parent);
Status Refused(const std::string& why);
Status NotSupported(const std::string& what);
}  // namespace status

// Numbers raised by the processor's members.
namespace processor_error {
// A message that is not well-formed, not valid against the schema (strict mode), or uses
// what its qbXML version or the edition does not have.
inline constexpr uint32_t kParse = 0x80040400;
inline constexpr const char* kParseText = "QuickBooks found an error when parsing the provided XML text stream.";
// BeginSession or a request before OpenConnection.
inline constexpr uint32_t kNotConnected = 0x80040401;
inline constexpr const char* kNotConnectedText = "Could not access QuickBooks: OpenConnection has not been called.";
// A company file that is missing, unreadable, not a company file, or of a newer format.
inline constexpr uint32_t kCannotOpenFile = 0x80040403;
inline constexpr const char* kCannotOpenFileText = "Could not open the specified QuickBooks company data file.";
// The default number of an injected failure.
inline constexpr uint32_t kInjected = 0x80040408;
inline constexpr const char* kInjectedText = "Could not start QuickBooks.";
// A ticket that was never issued or whose session has ended.
inline constexpr uint32_t kBadTicket = 0x8004040A;
inline constexpr const char* kBadTicketText = "BeginSession method has not been called or it did not succeed.";
// BeginSession("") while no company file is open.
inline constexpr uint32_t kNoFileOpen = 0x80040416;
inline constexpr const char* kNoFileOpenText = "If QuickBooks is not running, a company file name must be passed.";
// A message whose document type names a qbXML version above the newest supported.
inline constexpr uint32_t kVersionNotSupported = 0x80040418;
inline constexpr const char* kVersionNotSupportedText =
    "This version of QuickBooks does not support the qbXML version of the request.";
// OpenConnection of an application that the company file does not admit.
inline constexpr uint32_t kAppRefused = 0x8004041D;
inline constexpr const char* kAppRefusedText =
    "This application is not allowed to log into this QuickBooks company data file.";
// The company file's database failed (disk full, damaged file, ...).
inline constexpr uint32_t kDatabase = 0x80040420;
inline constexpr const char* kDatabaseText = "The company data file could not be read or written.";
}  // namespace processor_error

}  // namespace tessaron::qbsim
