// Validation of qbXML messages against the qbXML schema (XML Schema, via libxml2).
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tessaron::qbsim {

class SchemaValidator {
 public:
  // Loads qbxmlops120.xsd from the folder. Raises tessaron::Error when it cannot be read.
  explicit SchemaValidator(const std::string& schemaDir);
  ~SchemaValidator();
  SchemaValidator(const SchemaValidator&) = delete;
  SchemaValidator& operator=(const SchemaValidator&) = delete;

  // One validator per process for the default schema folder: TESSARON_QBXML_SCHEMA_DIR,
  // else the folder the build was configured with, else share/tessaron/qbxml-schema of
  // the installation prefix.
  static SchemaValidator& Default();
  static std::string DefaultSchemaDir();

  // Validates one message. The document type declaration and processing instructions
  // (which the schema cannot describe) are removed first. Returns an empty text when the
  // message is valid, otherwise the validator's first message.
  std::string Validate(std::string_view message) const;
  bool IsValid(std::string_view message) const { return Validate(message).empty(); }

  // The message with its document type declaration and processing instructions removed.
  static std::string StripPrologue(std::string_view message);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tessaron::qbsim
