// The one exception type of the library: a number, a source and a description.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace tessaron {

// Numbers of the platform's own runtime errors. Callers test these, so every
// part of the library raises exactly these numbers for these situations.
namespace platform_error {
inline constexpr int32_t kInvalidArgument = 5;      // "Invalid procedure call or argument": missing key
inline constexpr int32_t kOverflow = 6;             // "Overflow"
inline constexpr int32_t kSubscriptOutOfRange = 9;  // position outside a collection or array
inline constexpr int32_t kTypeMismatch = 13;        // text that does not convert
inline constexpr int32_t kFileNotFound = 53;        // "File not found"
inline constexpr int32_t kPathFileAccess = 75;      // "Path/File access error"
inline constexpr int32_t kPathNotFound = 76;        // "Path not found"
inline constexpr int32_t kObjectNotSet = 91;        // use of a null handle
inline constexpr int32_t kCannotCreateObject = 429; // programmatic identifier not registered
inline constexpr int32_t kDuplicateKey = 457;       // key already in a collection
}  // namespace platform_error

class Error : public std::runtime_error {
 public:
  Error(int32_t number, std::string source, std::string description);
  // Accepts the library's numbers as written in hex (0x800403EA): the 32-bit pattern is kept.
  Error(uint32_t number, std::string source, std::string description)
      : Error(static_cast<int32_t>(number), std::move(source), std::move(description)) {}

  int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }

  // A handler that passes an error on keeps number and description and replaces the source.
  Error WithSource(std::string source) const { return Error(number_, std::move(source), description_); }

 private:
  int32_t number_;
  std::string source_;
  std::string description_;
};

// Raises one of the platform errors above with its standard description.
[[noreturn]] void RaisePlatform(int32_t number, const std::string& source = "Tessaron");
// The standard description of a platform error number ("Subscript out of range", ...).
const char* PlatformErrorText(int32_t number);

}  // namespace tessaron
