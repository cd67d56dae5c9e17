#include "qbsim/status.h"

namespace tessaron::qbsim {

const char* Status::Severity() const {
  if (code == status::kOk || code == status::kNoMatch) return "Info";
  if (code == status::kNotFoundByKey) return "Warn";
  return "Error";
}

namespace status {
namespace {
// The library splits a response element's text at double quotes to find its attributes,
// so a value quoted in a message is set off by single quotes.
std::string Quote(const std::string& s) {
  std::string out = "'";
  for (char c : s) out += c == '"' ? '\'' : c;
  return out + "'";
}
}  // namespace

Status Ok() { return {kOk, "Status OK"}; }
Status NoMatch() { return {kNoMatch, "A query request did not find a matching object in QuickBooks"}; }
Status NotFoundByKey(const std::string& element, const std::string& value) {
  return {kNotFoundByKey, "The query request has not been fully completed. There was a required element (" +
                              Quote(value) + " in " + element + ") that could not be found in QuickBooks."};
}
Status InvalidId(const std::string& element, const std::string& value) {
  return {kInvalidId, "The given object ID " + Quote(value) + " in the field " + Quote(element) + " is invalid."};
}
Status MissingElement(const std::string& element) {
  return {kMissingElement, "The request is missing the required element " + Quote(element) + "."};
}
Status BadValue(const std::string& element, const std::string& value) {
  return {kBadValue, "There was an error when converting the value " + Quote(value) + " in the field " +
                         Quote(element) + "."};
}
Status TooLong(const std::string& element, const std::string& value, int limit) {
  return {kTooLong, "The string " + Quote(value) + " in the field " + Quote(element) + " is too long (at most " +
                        std::to_string(limit) + " characters)."};
}
Status NameInUse(const std::string& name) {
  return {kNameInUse, "The name " + Quote(name) + " of the list element is already in use."};
}
Status ObjectNotFound(const std::string& id) {
  return {kObjectNotFound, "Object " + Quote(id) + " specified in the request cannot be found."};
}
Status InvalidReference(const std::string& element, const std::string& value) {
  return {kInvalidReference, "There is an invalid reference to QuickBooks " + element + " " + Quote(value) +
                                 ". QuickBooks error message: Invalid argument.  The specified record does not "
                                 "exist in the list."};
}
Status InUse(const std::string& what, const std::string& why) {
  return {kInUse, "The list element " + Quote(what) + " cannot be deleted: " + why};
}
Status ItemNameInUse(const std::string& kind, const std::string& name) {
  return {kItemNameInUse, "There was an error when saving a " + kind + " list, element " + Quote(name) +
                              ".  QuickBooks error message: The name of this list element is already in use."};
}
Status AccountTypeOfParent(const std::string& type, const std::string& parentType, const std::string& parent) {
  return {kBadValue, "The account type " + Quote(type) + " in the field 'AccountType' is not the type of the parent account " +
                         Quote(parent) + " (" + Quote(parentType) + "): a sub-account has the type of its parent."};
}
Status StaleEditSequence(const std::string& editSequence) {
  return {kStaleEditSequence, "The provided edit sequence " + Quote(editSequence) + " is out-of-date."};
}
Status Refused(const std::string& why) { return {kRefused, "The change cannot be saved: " + why}; }
Status NotSupported(const std::string& what) {
  return {kNotSupported, what + " is not supported by this company file processor."};
}
}  // namespace status

}  // namespace tessaron::qbsim
