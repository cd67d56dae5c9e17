#include "tests/support/qbxml_check.h"

#include <cstdlib>
#include <filesystem>

#include "qbsim/schema_validator.h"
#include "tessaron/platform/text.h"

namespace tessaron::testing {

::testing::AssertionResult IsValidQbxml(std::string_view message) {
  static qbsim::SchemaValidator validator(TESSARON_SHARED_DIR "/qbxml-schema");
  std::string error = validator.Validate(message);
  if (error.empty()) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << error << "\n  message: " << message.substr(0, 800);
}

::testing::AssertionResult IsValidQbxmlOfAnyEdition(std::string_view message) {
  std::string us(message);
  for (const char* tag : {"Province", "County"}) {
    us = ReplaceAll(us, std::string("<") + tag + ">", "<State>");
    us = ReplaceAll(us, std::string("</") + tag + ">", "</State>");
  }
  return IsValidQbxml(us);
}

TempDir::TempDir() {
  std::string tmpl = (std::filesystem::temp_directory_path() / "tessaron-test-XXXXXX").string();
  char* p = mkdtemp(tmpl.data());
  path_ = p ? p : tmpl;
}

TempDir::~TempDir() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

}  // namespace tessaron::testing
