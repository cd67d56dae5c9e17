#include "tests/support/qbxml_check.h"

#include <cstdlib>
#include <cstring>
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
  // Delete and void requests may name the type as its description, with blanks
  // ("Sales Order"); the processor takes either, as the strict mode does.
  for (const char* tag : {"<TxnDelType>", "<TxnVoidType>", "<ListDelType>"}) {
    for (size_t at = us.find(tag); at != std::string::npos; at = us.find(tag, at + 1)) {
      size_t end = us.find('<', at + 1);
      std::string text = us.substr(at + std::strlen(tag), end - at - std::strlen(tag));
      std::erase(text, ' ');
      us.replace(at + std::strlen(tag), end - at - std::strlen(tag), text);
    }
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
