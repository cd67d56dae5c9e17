// The stored fields of a record: paths to texts. A path is a tag ("CompanyName"), a tag
// inside an aggregate ("BillAddress/Addr1"), or a position in a repeated aggregate
// ("ItemGroupLine#2/Quantity"). A record keeps its fields as one text in the company file.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessaron::qbsim {

class FieldMap {
 public:
  FieldMap() = default;
  // Reads the stored text form; the inverse of Encode.
  static FieldMap Decode(std::string_view text);
  std::string Encode() const;

  // The value at a path, or null when the path is absent.
  const std::string* Find(std::string_view path) const;
  std::string_view Get(std::string_view path) const;
  bool Has(std::string_view path) const { return Find(path) != nullptr; }
  void Set(std::string_view path, std::string_view value);
  void Erase(std::string_view path);
  // Removes the path and everything below it ("BillAddress" removes "BillAddress/Addr1").
  void EraseTree(std::string_view path);
  bool HasTree(std::string_view path) const;
  bool Empty() const { return fields_.empty(); }
  const std::vector<std::pair<std::string, std::string>>& Items() const { return fields_; }

 private:
  std::vector<std::pair<std::string, std::string>> fields_;
};

// A read-only view of a stored text, decoded without copying; for answering queries,
// where thousands of records pass through.
class FieldView {
 public:
  void Parse(std::string_view text);
  // Null when the path is absent.
  const std::string_view* Find(std::string_view path) const;
  bool HasTree(std::string_view path) const;

 private:
  std::vector<std::pair<std::string_view, std::string_view>> fields_;
};

// True when `path` is `tree` itself or lies below it.
bool PathInTree(std::string_view path, std::string_view tree);

}  // namespace tessaron::qbsim
