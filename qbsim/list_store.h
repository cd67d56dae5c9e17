// Reading and writing list records in a company file.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "qbsim/company_file.h"
#include "qbsim/record_row.h"

namespace tessaron::qbsim {

class WriteScope;

// The sort and comparison key of a full name: case folded, with the colon between levels
// sorting before every character, so that a parent is followed by its own children.
std::string NameKey(std::string_view fullName);

// What a list query selects, before the per-kind filters that look into the fields.
struct ListSelection {
  std::vector<std::string> kinds;
  std::optional<bool> active;          // nothing = active and inactive
  std::optional<double> modifiedFrom;  // day counts, inclusive
  std::optional<double> modifiedTo;    // exclusive
  std::optional<std::string> fromName;  // name range, by full name, inclusive
  std::optional<std::string> toName;    // inclusive, and every name that begins with it
  int limit = 0;                        // 0 = all
};

// An entry of the deleted-items log, as views valid during the callback.
struct DeletedRow {
  std::string_view kind, id, timeCreated, timeDeleted, fullName;
};

class ListStore {
 public:
  explicit ListStore(CompanyFile& file) : file_(file) {}

  std::optional<ListRecord> ByListId(std::string_view listId);
  // Every record of those kinds with that full name (case-insensitive); a damaged file can hold two.
  std::vector<ListRecord> ByFullName(std::span<const char* const> kinds, std::string_view fullName);
  std::vector<ListRecord> ByFullName(std::span<const std::string> kinds, std::string_view fullName);
  // A record in the name space with that full name, other than the one excepted.
  std::optional<ListRecord> NameHolder(std::string_view nameSpace, std::string_view fullName,
                                       std::string_view exceptListId = {});
  std::vector<ListRecord> Children(std::string_view listId);
  // How many records refer to this one.
  int64_t ReferenceCount(std::string_view listId);
  // The full name of a record, cached for the life of the store; empty when not on file.
  const std::string& FullNameOf(std::string_view listId);

  // Calls `onRow` for each selected record in name order; stops when it returns false.
  void Select(const ListSelection& selection, const std::function<bool(const RecordRow&)>& onRow);

  // Writing, inside a WriteScope. Insert sets rowid; `refs` are the ListIDs the record names.
  void Insert(ListRecord& record, std::span<const std::string> refs);
  void Update(const ListRecord& record, std::span<const std::string> refs);
  // Rewrites the full names and sublevels below a record after a rename or a move.
  void RenameDescendants(const ListRecord& parent, WriteScope& scope);
  // Adds to a record's balance, and to the total balance of it and every record above it.
  void AddToBalance(std::string_view listId, int64_t delta);
  // Adds to the total balance of a record and every record above it.
  void AddToTotal(std::string_view listId, int64_t delta);
  // Removes the record and notes it in the deleted-items log.
  void Delete(const ListRecord& record, WriteScope& scope);
  // The deleted-items log for those kinds, oldest first; bounds are day counts (to: exclusive).
  void SelectDeleted(std::span<const std::string> kinds, std::optional<double> from, std::optional<double> to,
                     const std::function<void(const DeletedRow&)>& onRow);

 private:
  // A statement prepared once per store: bulk writes and per-record lookups reuse it.
  SqlStatement& Cached(const char* sql);
  void WriteRefs(std::string_view owner, std::span<const std::string> refs);

  // Looked up by views, so answering a reference allocates nothing once its name is known.
  struct ViewHash {
    using is_transparent = void;
    size_t operator()(std::string_view s) const noexcept { return std::hash<std::string_view>{}(s); }
  };
  CompanyFile& file_;
  std::unordered_map<std::string, std::string, ViewHash, std::equal_to<>> fullNames_;
  std::map<const char*, SqlStatement> statements_;
};

}  // namespace tessaron::qbsim
