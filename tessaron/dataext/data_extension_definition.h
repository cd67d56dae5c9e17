// DataExtensionDefinition: the definition of one custom field (owner "0") or application
// field (owner: the application's GUID): its name, its data type and the object types it
// applies to. DataExtensionDefinitions holds and commits them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/dataext/data_ext_assigned_tos.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/framework/qc_base.h"

namespace tessaron {

class qcErrors;

class DataExtensionDefinition final : public qcBase {
 public:
  DataExtensionDefinition();

  qoEnumObjectState ObjectState() const;
  // The name, under which the collection keeps the definition.
  const std::string& CollectionKey() const { return name_; }
  std::shared_ptr<qcErrors> Errors();
  // "0" for a custom field, else the owning application's GUID.
  const std::string& OwnerId() const { return ownerId_; }
  // Changed only through DataExtensionDefinitions.Rename.
  const std::string& Name() const { return name_; }
  // QuickBooks cannot change the type of a stored definition: only a New one takes a type
  // (0x800403EA otherwise).
  qbEnumDataExtDataType DataType() const { return dataType_; }
  void SetDataType(qbEnumDataExtDataType value);
  // The object types the definition applies to. A stored definition's list changes only
  // from qbXML 3.0 on; the change is sent as the difference to what QuickBooks holds.
  dataExtAssignedTos& AssignedTos() { return assignedTos_; }
  const dataExtAssignedTos& AssignedTos() const { return assignedTos_; }

  // Name empty (0x800403F4) or of 32 characters or more (0x800403F5).
  bool Validate();

  // qcBase.
  int32_t XMLInsert(xmlBldr& cxmlbldr) override;
  int32_t XMLQueryRs(xmlBldr& cxmlbldr) override;
  int32_t XMLModify(xmlBldr& cxmlbldr) override;
  qoEnumListObjectType ObjectType() const override { return qoObjectTypeDataExtDef; }
  Variant FromDom(const XmlNode& obj) override;

 private:
  friend class DataExtensionDefinitions;
  // Whether a commit has anything to send for this definition.
  bool NeedsModify() const;

  std::string ownerId_;
  std::string name_;
  std::string newName_;  // pending rename
  qbEnumDataExtDataType dataType_ = qbDataExtTypeSTR255TYPE;
  dataExtAssignedTos assignedTos_;
  dataExtAssignedTos originalAssignedTos_;  // as QuickBooks last reported it
  qoEnumObjectState state_ = qoObjectStateNew;
  std::shared_ptr<qcErrors> errors_;
};

}  // namespace tessaron
