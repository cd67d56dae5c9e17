#include "tessaron/dataext/data_extensions.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/response_status.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron {

bool IsItemObjectType(int32_t objectType) {
  return (objectType >= qoObjectTypeItemService && objectType <= qoObjectTypeItemSalesTaxGroup) ||
         objectType == qoObjectTypeItemInventoryAssembly || objectType == qoObjectTypeItemFixedAsset ||
         objectType == qoObjectTypeItem;
}

std::string DataExtObjectTypeText(int32_t objectType) {
  return RemoveSpaces(EnumCodeToDescription(objectType, qoeObjectType));
}

int32_t DataExtObjectTypeOfText(std::string_view text) {
  for (int32_t code = 1; code <= qoObjectTypeUIEventSubscription; ++code) {
    try {
      if (EqualsIgnoreCase(DataExtObjectTypeText(code), text)) return code;
    } catch (const Error&) {
      // a code without a row in the table
    }
  }
  return 0;
}

namespace {

// The records whose values QuickBooks addresses as list records (ListDataExtType).
bool IsListTarget(int32_t ownerType) {
  switch (ownerType) {
    case qoObjectTypeAccount:
    case qoObjectTypeCustomer:
    case qoObjectTypeEmployee:
    case qoObjectTypeOtherName:
    case qoObjectTypeVendor: return true;
    default: return IsItemObjectType(ownerType);
  }
}

}  // namespace

DataExtensions::DataExtensions() = default;
DataExtensions::~DataExtensions() = default;

std::shared_ptr<qcErrors> DataExtensions::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

std::vector<std::shared_ptr<DataExtension>> DataExtensions::NewEnum() const {
  std::vector<std::shared_ptr<DataExtension>> out;
  for (const auto& v : col_) out.push_back(v);
  return out;
}

void DataExtensions::MarkModified() {
  if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
}

std::shared_ptr<DataExtension> DataExtensions::Insert(const std::string& Name) {
  auto value = std::make_shared<DataExtension>();
  value->name_ = Name;
  value->ownerType_ = ownerType_;
  value->ownerId_ = ownerId_;
  col_.Add(value, Name);
  return value;
}

std::shared_ptr<DataExtension> DataExtensions::Add(const std::string& Name) {
  MarkModified();
  return Insert(Name);
}

std::shared_ptr<DataExtensionDefinition> DataExtensions::DefinitionOf(const std::string& Name) const {
  const std::shared_ptr<Company>& company = State().CurrentCompany;
  if (!company) return nullptr;
  std::shared_ptr<DataExtensionDefinitions> definitions =
      ownerId_ == "0" ? company->CustomFields() : company->ApplicationFields();
  if (!definitions || !definitions->ItemExists(Variant(Name))) return nullptr;
  return definitions->Item(Variant(Name));
}

void DataExtensions::CheckAssignedTo(const DataExtensionDefinition& definition) const {
  if (static_cast<int32_t>(ownerType_) == -1) return;
  // Every kind of item shares the definitions made for Item.
  const int32_t wanted = IsItemObjectType(ownerType_) ? qoObjectTypeItem : ownerType_;
  if (definition.AssignedTos().Holds(wanted)) return;
  throw Error(err::kDataExtNotDefined, "DataExtensions", err::kDataExtNotDefinedText);
}

std::shared_ptr<DataExtension> DataExtensions::Item(const Variant& vntIndexKey) {
  if (vntIndexKey.IsString() ? col_.Exists(vntIndexKey.ToString())
                             : (vntIndexKey.IsNumeric() && vntIndexKey.ToInteger() >= 1 &&
                                vntIndexKey.ToInteger() <= col_.Count()))
    return col_.Item(vntIndexKey);
  if (!vntIndexKey.IsString()) throw Error(err::kInvalidDataExtIndex, "DataExt", err::kInvalidDataExtIndexText);
  const std::string name = vntIndexKey.ToString();
  std::shared_ptr<DataExtensionDefinition> definition = DefinitionOf(name);
  if (ownerId_ != "0") {
    if (!definition) throw Error(err::kDataExtNotDefined, "DataExtensions", err::kDataExtNotDefinedText);
    CheckAssignedTo(*definition);
  }
  auto value = Add(name);
  // A public field without a definition is addressed as text.
  value->dataType_ = definition ? definition->DataType() : qbDataExtTypeSTR255TYPE;
  return value;
}

std::shared_ptr<DataExtension> DataExtensions::ItemForReading(const std::string& Name, const std::string& typeText) {
  if (col_.Exists(Name)) return col_.Item(std::string_view(Name));
  auto value = Insert(Name);
  const int32_t type = typeText.empty() ? 0 : EnumXMLToCode(typeText, qoeDataExtDataTypes);
  value->dataType_ = type > 0 ? static_cast<qbEnumDataExtDataType>(type) : qbDataExtTypeSTR255TYPE;
  return value;
}

bool DataExtensions::Validate() {
  Errors()->Clear();
  return true;
}

void DataExtensions::WriteTarget(xmlBldr& b, const DataExtension& member, bool withLine) {
  const int32_t type = member.ownerType_;
  if (IsListTarget(type)) {
    b.CreateElement("ListDataExtType", DataExtObjectTypeText(IsItemObjectType(type) ? qoObjectTypeItem : type));
    b.OpenAggregateOnly("ListObjRef");
    b.CreateElement("ListID", member.listOrTxnId_);
    b.EndAggregate("ListObjRef");
  } else if (type == qoObjectTypeCompany) {
    b.CreateElement("OtherDataExtType", "Company");
  } else {
    b.CreateElement("TxnDataExtType", DataExtObjectTypeText(type));
    b.CreateElement("TxnID", member.listOrTxnId_);
    if (withLine && !member.txnLineId_.empty()) b.CreateElement("TxnLineID", member.txnLineId_);
  }
}

void DataExtensions::WriteMember(xmlBldr& b, DataExtension& member, long position, int& written) {
  const char* op = nullptr;
  if (member.state_ == qoObjectStateNew) {
    // A name that was only looked at holds nothing to add.
    if (member.IsEmptyValue()) return;
    op = "Add";
  } else if (member.state_ == qoObjectStateDirty) {
    // QuickBooks clears a value only by deleting it.
    op = member.IsEmptyValue() ? "Del" : "Mod";
  } else {
    return;
  }
  const std::string request = std::string("DataExt") + op;
  const bool deleting = request == "DataExtDel";
  b.OpenAggregate(request + "Rq", "requestID", std::to_string(position));
  b.OpenAggregateOnly(request);
  // A delete names the application's owner id, whatever the value's own.
  b.CreateElement("OwnerID", deleting ? State().DataExtensionsGUID : member.ownerId_);
  b.CreateElement("DataExtName", member.name_);
  // Only a change of a value on file names the line.
  WriteTarget(b, member, request != "DataExtAdd");
  if (!deleting) b.CreateElement("DataExtValue", member.ValueText());
  b.EndAggregate(request);
  b.EndAggregate(request + "Rq");
  ++written;
}

int32_t DataExtensions::Commit(const std::string& ListOrTxnId, const std::string& TxnLineId) {
  auto errors = Errors();
  errors->Clear();
  listOrTxnId_ = ListOrTxnId;
  lastCommitSent_ = false;
  xmlBldr b;
  b.NewClear();
  int written = 0;
  for (long i = 1; i <= col_.Count(); ++i) {
    DataExtension& member = *col_.Item(i);
    member.listOrTxnId_ = ListOrTxnId;
    member.txnLineId_ = TxnLineId;
    member.ownerType_ = ownerType_;
    WriteMember(b, member, i, written);
  }
  if (written > 0) {
    XmlDocument doc = b.NewSendRequest();
    lastCommitSent_ = true;
    XmlNodeList responses = ResponsesOf(doc);
    // A message that failed as a whole has no responses to tell it.
    if (responses.length() == 0 && b.ErrNumber() != 0) {
      errors->Add(b.ErrNumber(), "", b.ErrMsg());
    } else {
      for (const XmlNode& node : responses) {
        ResponseStatus status = ReadResponseStatus(node);
        if (status.requestId < 1 || status.requestId > col_.Count()) continue;
        DataExtension& member = *col_.Item(status.requestId);
        if (status.code != 0) {
          NoteCommitFailure(*errors, member.name_, *member.Errors(), status);
          continue;
        }
        const std::string_view request = node.baseName();
        if (request == "DataExtDelRs") {
          // Deleted: the value is empty on file as here.
          member.oldValue_ = member.value_;
          member.state_ = qoObjectStateClean;
        } else if (XmlNode ret = node.childNodes().item(0); !ret.IsNull()) {
          member.FromDom(ret);
        } else {
          member.oldValue_ = member.value_;
          member.state_ = qoObjectStateClean;
        }
      }
    }
  }
  state_ = qoObjectStateClean;
  if (State().ErrorMode && errors->Count() > 0) throw Error(err::kCommitErrors, "DataExt", err::kCommitErrorsText);
  return static_cast<int32_t>(errors->Count());
}

}  // namespace tessaron
