// One row of an enumeration table: a code, its display text and, where it differs from the
// key, its qbXML text.
#pragma once

#include <cstdint>
#include <string>

namespace tessaron {

class qcEnumValue {
 public:
  // The value of the typed enumeration.
  int16_t Code() const { return code_; }
  // Display text ("Item Service").
  const std::string& Description() const { return description_; }
  // qbXML text where it differs from the key; usually empty.
  const std::string& XMLTag() const { return xmlTag_; }
  // The description without its blanks ("ItemService"): the row's key in its table.
  const std::string& CollectionKey() const { return key_; }
  // What qbXML carries for this row: the tag when there is one, otherwise the key.
  const std::string& XMLText() const { return xmlTag_.empty() ? key_ : xmlTag_; }

  // Library-internal: rows are filled only by the library.
  void SetCode(int16_t code) { code_ = code; }
  void SetDescription(const std::string& description);
  void SetXMLTag(const std::string& xmlTag) { xmlTag_ = xmlTag; }

 private:
  int16_t code_ = 0;
  std::string description_;
  std::string xmlTag_;
  std::string key_;  // kept with the description, so lookups never build it
};

}  // namespace tessaron
