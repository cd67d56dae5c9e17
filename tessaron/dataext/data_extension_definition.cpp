#include "tessaron/dataext/data_extension_definition.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron {

namespace {
constexpr size_t kMaxNameLength = 31;
}  // namespace

DataExtensionDefinition::DataExtensionDefinition() {
  // A stored definition's types change only where QuickBooks can modify definitions.
  assignedTos_.mayChange_ = [this] { return state_ == qoObjectStateNew || State().QBXMLVersionNumber >= Currency(3); };
}

std::shared_ptr<qcErrors> DataExtensionDefinition::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

qoEnumObjectState DataExtensionDefinition::ObjectState() const {
  if (state_ == qoObjectStateClean && NeedsModify()) return qoObjectStateDirty;
  return state_;
}

bool DataExtensionDefinition::NeedsModify() const {
  return state_ == qoObjectStateDirty || !newName_.empty() || assignedTos_.Types() != originalAssignedTos_.Types();
}

void DataExtensionDefinition::SetDataType(qbEnumDataExtDataType value) {
  if (state_ != qoObjectStateNew) throw Error(err::kFieldCannotBeModified, "DataExtDef", err::kFieldCannotBeModifiedText);
  dataType_ = value;
}

bool DataExtensionDefinition::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (ObjectState() == qoObjectStateClean) return true;
  if (name_.empty()) errors->Add(err::kNameNull, "Name", err::kNameNullText);
  else if (Utf16Length(name_) > kMaxNameLength) errors->Add(err::kNameTooLong, "Name", err::kNameTooLongText);
  return errors->Count() == 0;
}

int32_t DataExtensionDefinition::XMLInsert(xmlBldr& b) {
  b.CreateElement("OwnerID", ownerId_);
  b.CreateElement("DataExtName", name_);
  b.CreateElement("DataExtType", EnumCodeToXML(dataType_, qoeDataExtDataTypes));
  for (int32_t type : assignedTos_.Types()) b.CreateElement("AssignToObject", DataExtObjectTypeText(type));
  return 0;
}

int32_t DataExtensionDefinition::XMLModify(xmlBldr& b) {
  b.CreateElement("OwnerID", ownerId_);
  b.CreateElement("DataExtName", name_);
  if (!newName_.empty()) b.CreateElement("DataExtNewName", newName_);
  for (int32_t type : assignedTos_.Types())
    if (!originalAssignedTos_.Holds(type)) b.CreateElement("AssignToObject", DataExtObjectTypeText(type));
  for (int32_t type : originalAssignedTos_.Types())
    if (!assignedTos_.Holds(type)) b.CreateElement("RemoveFromObject", DataExtObjectTypeText(type));
  return 0;
}

int32_t DataExtensionDefinition::XMLQueryRs(xmlBldr& b) { return XMLInsert(b); }

Variant DataExtensionDefinition::FromDom(const XmlNode& obj) {
  std::vector<int32_t> types;
  for (const XmlNode& child : obj.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "OwnerID") ownerId_ = child.text();
    else if (tag == "DataExtName") name_ = child.text();
    else if (tag == "DataExtType")
      dataType_ = static_cast<qbEnumDataExtDataType>(EnumXMLToCode(child.text(), qoeDataExtDataTypes));
    else if (tag == "AssignToObject") {
      if (int32_t type = DataExtObjectTypeOfText(child.text())) types.push_back(type);
    } else NoteUnknownField("Unknown Field: " + std::string(tag), "DataExtDef");
  }
  assignedTos_.types_ = types;
  originalAssignedTos_.types_ = std::move(types);
  assignedTos_.state_ = qoObjectStateClean;
  originalAssignedTos_.state_ = qoObjectStateClean;
  newName_.clear();
  state_ = qoObjectStateClean;
  return Variant();
}

}  // namespace tessaron
