// The validation record and its collection. A validation pass gathers one qcError per bad
// field in the object's Errors, so that one pass reports every problem; the commit then
// raises one summary (or, with ErrorMode off, leaves the application to read them).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/platform/collection.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

class qcError {
 public:
  // The collection key; empty unless the library gave one.
  const std::string& Key() const { return key_; }
  // The error number, as the 32-bit value given (0x800403F3 reads as its negative Int32).
  int32_t Number() const { return number_; }
  // The offending field, for people: "Name", "Alt Phone", "TermsRef: Full Name".
  const std::string& Field() const { return field_; }
  const std::string& Description() const { return description_; }
  const std::string& CollectionKey() const { return key_; }

  // Library-internal: records are filled only by the library.
  void SetKey(const std::string& key) { key_ = key; }
  void SetNumber(int32_t number) { number_ = number; }
  void SetField(const std::string& field) { field_ = field; }
  void SetDescription(const std::string& description) { description_ = description; }

 private:
  std::string key_;
  int32_t number_ = 0;
  std::string field_;
  std::string description_;
};

class qcErrors {
 public:
  // Replaces the records by an empty set.
  void Clear();
  // Makes a record and adds it without a key, so it cannot fail; returns it.
  std::shared_ptr<qcError> Add(int32_t Code, const std::string& sField, const std::string& sMsg);
  std::shared_ptr<qcError> Add(uint32_t Code, const std::string& sField, const std::string& sMsg) {
    return Add(static_cast<int32_t>(Code), sField, sMsg);
  }
  // By 1-based position or by key; a missing one raises subscript out of range (9) or
  // invalid argument (5).
  std::shared_ptr<qcError> Item(const Variant& vntIndexKey) const;
  long Count() const { return col_.Count(); }
  // The records in insertion order (a snapshot, safe to keep while the set changes).
  std::vector<std::shared_ptr<qcError>> NewEnum() const;
  // Adds an existing record under its CollectionKey and returns the new Count; a second
  // record with the same non-empty key raises the duplicate-key error (457).
  int32_t AddObject(std::shared_ptr<qcError> oNew);
  // Removes one by position or key; a missing one raises as Item does.
  void Remove(const Variant& vntIndexKey);

  // Range-for over the records, in insertion order.
  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  Collection<std::shared_ptr<qcError>> col_;
};

}  // namespace tessaron
