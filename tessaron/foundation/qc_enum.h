// One enumeration table: rows in the order they were added (so Item(n) follows the table,
// not the codes), keyed by each row's description without blanks.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tessaron/foundation/qc_enum_value.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

class QCEnum {
 public:
  // Adds a row under its CollectionKey; a key already present raises the duplicate-key
  // error (457).
  void AddObject(std::shared_ptr<qcEnumValue> o);
  // Makes a row, adds it, returns it.
  std::shared_ptr<qcEnumValue> Add(int16_t iCode, const std::string& sDesc, const std::string& XMLTag = "");
  // Whether Item would find the row; never raises.
  bool ItemExists(const Variant& vColKey) const;
  // By 1-based position, or by key: a text key is stripped of its blanks first, so
  // "Sales Tax Payment Check" and "SalesTaxPaymentCheck" find the same row. A missing one
  // raises subscript out of range (9) or invalid argument (5).
  std::shared_ptr<qcEnumValue> Item(const Variant& vntIndexKey) const;
  // The first row with the code; none raises 0x800403EB (source "Tessaron: TypeCodes",
  // "Unknown Code").
  std::shared_ptr<qcEnumValue> ItemByCode(int16_t iCode) const;
  // The rows in order (a snapshot).
  std::vector<std::shared_ptr<qcEnumValue>> NewEnum() const;
  long Count() const { return col_.Count(); }

  // Library-internal lookups for the parsers and writers; they answer nullptr instead of
  // raising and allocate nothing.
  const qcEnumValue* FindByCode(int32_t code) const noexcept;
  // The first row whose qbXML text (tag, or key when there is no tag) equals `xml` exactly.
  const qcEnumValue* FindByXML(std::string_view xml) const noexcept;
  // The row of a key, blanks in `key` ignored, letter case ignored.
  const qcEnumValue* FindByKey(std::string_view key) const;

  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  Collection<std::shared_ptr<qcEnumValue>> col_;
};

}  // namespace tessaron
