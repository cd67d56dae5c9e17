// Data extensions in a company file: the definitions of custom fields (owner "0") and of
// applications' private fields (owner: a GUID), and their values on any record. A value is
// filed under its definition and the id of its record (a ListID, a TxnID, or "" for the
// company) with the line's TxnLineID, so every kind of record has them alike.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qbsim/company_file.h"
#include "qbsim/xml_out.h"

namespace tessaron::qbsim {

struct DataExtDef {
  int64_t id = 0;
  std::string ownerId;  // "0" or an upper-case GUID
  std::string name;
  std::string type;                   // "STR255TYPE", ...
  std::vector<std::string> assigned;  // AssignToObject texts, in the order given
};

struct DataExtValue {
  std::string ownerId, name, type, value;
};

// The owner as QuickBooks keeps it: "0", or the GUID in upper case.
std::string CanonicalOwner(std::string_view ownerId);

// Creates the tables in a file that has none yet.
void CreateDataExtTables(SqlDatabase& db);

class DataExtStore {
 public:
  explicit DataExtStore(CompanyFile& file) : file_(file) {}

  // By owner and name (names compare without regard to case).
  std::optional<DataExtDef> FindDef(std::string_view ownerId, std::string_view name);
  // Every definition in the order made, of those owners (all when empty) and assigned to
  // one of those types (any when empty).
  std::vector<DataExtDef> Defs(std::span<const std::string> owners, std::span<const std::string> assignedTo);
  // How many public definitions are assigned to a type.
  int CountPublicAssigned(std::string_view type);

  // Writing, inside a WriteScope.
  void InsertDef(DataExtDef& def);
  void UpdateDef(const DataExtDef& def);
  // Removes the definition and every value of it.
  void DeleteDef(const DataExtDef& def);

  std::optional<std::string> Value(const DataExtDef& def, std::string_view recordId, std::string_view lineId);
  void PutValue(const DataExtDef& def, std::string_view recordId, std::string_view lineId, std::string_view value);
  void DeleteValue(const DataExtDef& def, std::string_view recordId, std::string_view lineId);
  // The bytes of private values a record holds, without those of one definition.
  int64_t PrivateBytes(std::string_view recordId, int64_t exceptDefId);
  // The values of a record (or line) of those owners, in the order of their definitions.
  std::vector<DataExtValue> Values(std::string_view recordId, std::string_view lineId,
                                   std::span<const std::string> owners);

 private:
  CompanyFile& file_;
};

// Writes one DataExtRet per value of the record for the owners a query asked for; nothing
// when it asked for none.
void WriteDataExtRets(CompanyFile& file, XmlOut& out, std::string_view recordId, std::span<const std::string> owners,
                      std::string_view lineId = {});

}  // namespace tessaron::qbsim
