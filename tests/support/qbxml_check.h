// Test helpers: schema validation of qbXML text, temporary folders.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tessaron::testing {

// Succeeds when the text is one valid qbXML message (request or response).
::testing::AssertionResult IsValidQbxml(std::string_view message);
// The same for a message of any national edition: those outside the US name the state of
// an address Province or County, which the (US) schema lacks, so the message is checked
// with State in their place.
::testing::AssertionResult IsValidQbxmlOfAnyEdition(std::string_view message);

// A fresh folder under the system's temporary folder, removed with the object.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  const std::string& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }
 private:
  std::string path_;
};

}  // namespace tessaron::testing
