#include "tessaron/platform/error.h"

namespace tessaron {

Error::Error(int32_t number, std::string source, std::string description)
    : std::runtime_error(description),
      number_(number),
      source_(std::move(source)),
      description_(std::move(description)) {}

const char* PlatformErrorText(int32_t number) {
  using namespace platform_error;
  switch (number) {
    case kInvalidArgument: return "Invalid procedure call or argument";
    case kOverflow: return "Overflow";
    case kSubscriptOutOfRange: return "Subscript out of range";
    case kTypeMismatch: return "Type mismatch";
    case kFileNotFound: return "File not found";
    case kPathFileAccess: return "Path/File access error";
    case kPathNotFound: return "Path not found";
    case kObjectNotSet: return "Object variable or With block variable not set";
    case kCannotCreateObject: return "Cannot create object";
    case kDuplicateKey: return "This key is already associated with an element of this collection";
    default: return "Application-defined or object-defined error";
  }
}

void RaisePlatform(int32_t number, const std::string& source) {
  throw Error(number, source, PlatformErrorText(number));
}

}  // namespace tessaron
