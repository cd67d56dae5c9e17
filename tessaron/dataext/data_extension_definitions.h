// DataExtensionDefinitions: the definitions of one owner's data extensions, keyed by name.
// Company holds two masters: CustomFields (owner "0") and ApplicationFields (owner: the
// GUID registered with RegisterDataExtensionsGUID).
//
//   auto fields = company->CustomFields();
//   auto colour = fields->Add("Colour", qbDataExtTypeSTR255TYPE);
//   colour->AssignedTos().Add(qoObjectTypeCustomer);
//   fields->Commit();
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/dataext/data_extension_definition.h"
#include "tessaron/platform/collection.h"

namespace tessaron {

class qcErrors;
class xmlBldr;

class DataExtensionDefinitions {
 public:
  DataExtensionDefinitions();
  ~DataExtensionDefinitions();

  std::shared_ptr<qcErrors> Errors();
  bool ItemExists(const Variant& vntIndexKey) const;
  // By name or by position from 1; raises when absent.
  std::shared_ptr<DataExtensionDefinition> Item(const Variant& vntIndexKey) const;
  long Count() const { return col_.Count(); }
  std::vector<std::shared_ptr<DataExtensionDefinition>> NewEnum() const;
  // Local only: nothing is sent.
  void Remove(const Variant& vntIndexKey) { col_.Remove(vntIndexKey); }
  void Clear() { col_.Clear(); }

  // A New definition of this collection's owner, kept under its name; nothing is sent.
  // Master only (0x800403FD); an empty name raises 0x800403F4. Below qbXML 3.0 only
  // application fields can be defined (0x80040AF1, or 0x80040AF2 without a GUID).
  std::shared_ptr<DataExtensionDefinition> Add(const std::string& Name, qbEnumDataExtDataType DataType);
  // Moves the definition to its new name at once; the rename is sent by the next Commit.
  void Rename(const std::shared_ptr<DataExtensionDefinition>& Definition, const std::string& NewName);
  // Deletes the definition in QuickBooks at once (application fields only). A refusal
  // raises with QuickBooks' message. With bRemove it also leaves the collection.
  int32_t Delete(const std::string& Name, bool bRemove = true);

  // Queries: replace the content with what QuickBooks holds for that object type (0 for
  // any) and owner (empty for any); return Count. A failure lands in Errors.
  int32_t GetBy(int32_t AssignedToObject, const std::string& OwnerId, const std::string& sMDBPath = "");
  int32_t GetByOwner(const std::string& OwnerId, const std::string& sMDBPath = "") { return GetBy(0, OwnerId, sMDBPath); }
  int32_t GetByAssignedToObject(int32_t AssignedToObject, const std::string& sMDBPath = "") {
    return GetBy(AssignedToObject, "", sMDBPath);
  }
  int32_t GetAll(const std::string& sMDBPath = "") { return GetBy(0, "", sMDBPath); }

  // Sends an add for each New definition and a modify for each changed one, in one
  // message (or only Member's). Nothing is sent when one fails Validate. Returns the
  // number of entries in Errors; with ErrorMode on, failures raise 0x800403FF afterwards.
  int32_t Commit(const std::shared_ptr<DataExtensionDefinition>& Member = nullptr);
  int32_t Commit2() { return Commit(nullptr); }
  bool Validate();

  // The owner of the definitions: "0" or an application's GUID.
  const std::string& OwnerId() const { return ownerId_; }
  bool IsMaster() const { return master_; }
  // Library-internal: Company makes its two instances masters of their owners.
  void SetMasterOf(const std::string& ownerId) {
    master_ = true;
    ownerId_ = ownerId;
  }

 private:
  // The definitions of owner "0" are QuickBooks' own; application fields need a GUID.
  void CheckApplicationOwner() const;
  void Parse(const XmlNode& queryRs);

  Collection<std::shared_ptr<DataExtensionDefinition>> col_;
  std::string ownerId_;
  bool master_ = false;
  std::unique_ptr<xmlBldr> bldr_;
  std::shared_ptr<qcErrors> errors_;
};

}  // namespace tessaron
