#include "tessaron/dataext/data_extension_definitions.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/query_mirror.h"
#include "tessaron/framework/response_status.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"

namespace tessaron {

namespace {
constexpr const char* kSource = "DataExtDef";
}

DataExtensionDefinitions::DataExtensionDefinitions() : bldr_(std::make_unique<xmlBldr>()) {}
DataExtensionDefinitions::~DataExtensionDefinitions() = default;

std::shared_ptr<qcErrors> DataExtensionDefinitions::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

bool DataExtensionDefinitions::ItemExists(const Variant& vntIndexKey) const {
  try {
    (void)Item(vntIndexKey);
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::shared_ptr<DataExtensionDefinition> DataExtensionDefinitions::Item(const Variant& vntIndexKey) const {
  return const_cast<Collection<std::shared_ptr<DataExtensionDefinition>>&>(col_).Item(vntIndexKey);
}

std::vector<std::shared_ptr<DataExtensionDefinition>> DataExtensionDefinitions::NewEnum() const {
  std::vector<std::shared_ptr<DataExtensionDefinition>> out;
  for (const auto& d : col_) out.push_back(d);
  return out;
}

void DataExtensionDefinitions::CheckApplicationOwner() const {
  if (ownerId_ == "0") throw Error(err::kAppFieldsOnly, kSource, err::kAppFieldsOnlyText);
  if (State().DataExtensionsGUID.empty()) throw Error(err::kNoDataExtGuid, kSource, err::kNoDataExtGuidText);
}

std::shared_ptr<DataExtensionDefinition> DataExtensionDefinitions::Add(const std::string& Name,
                                                                       qbEnumDataExtDataType DataType) {
  if (State().QBXMLVersionNumber < Currency(3)) CheckApplicationOwner();
  if (Name.empty()) throw Error(err::kNameNull, "Name", err::kNameNullText);
  if (!master_) throw Error(err::kMasterOnly, kSource, err::kMasterOnlyText);
  auto definition = std::make_shared<DataExtensionDefinition>();
  definition->dataType_ = DataType;
  definition->name_ = Name;
  definition->ownerId_ = ownerId_;
  col_.Add(definition, Name);
  return definition;
}

void DataExtensionDefinitions::Rename(const std::shared_ptr<DataExtensionDefinition>& Definition,
                                      const std::string& NewName) {
  if (NewName.empty()) throw Error(err::kNameNull, "Name", err::kNameNullText);
  col_.Remove(std::string_view(Definition->name_));
  col_.Add(Definition, NewName);
  // A New definition is simply added under its new name.
  if (Definition->state_ == qoObjectStateNew) Definition->name_ = NewName;
  else Definition->newName_ = NewName;
}

int32_t DataExtensionDefinitions::Delete(const std::string& Name, bool bRemove) {
  CheckApplicationOwner();
  xmlBldr& b = *bldr_;
  b.NewClear();
  b.OpenAggregate("DataExtDefDelRq", "requestID", "1");
  b.CreateElement("OwnerID", ownerId_);
  b.CreateElement("DataExtName", Name);
  b.EndAggregate("DataExtDefDelRq");
  b.NewSendRequest();
  if (b.ErrNumber() != 0) throw Error(b.ErrNumber(), kSource, b.ErrMsg());
  if (bRemove && col_.Exists(Name)) col_.Remove(std::string_view(Name));
  return 0;
}

int32_t DataExtensionDefinitions::GetBy(int32_t AssignedToObject, const std::string& OwnerId,
                                        const std::string& sMDBPath) {
  Errors()->Clear();
  xmlBldr& b = *bldr_;
  b.NewClear();
  b.OpenAggregateOnly("DataExtDefQueryRq");
  if (!OwnerId.empty()) b.CreateElement("OwnerID", OwnerId);
  if (AssignedToObject != 0) b.CreateElement("AssignToObject", DataExtObjectTypeText(AssignedToObject));
  b.EndAggregate("DataExtDefQueryRq");
  XmlDocument doc = b.NewSendRequest();
  if (b.ErrNumber() != 0) {
    Errors()->Add(b.ErrNumber(), "", b.ErrMsg());
    return static_cast<int32_t>(Count());
  }
  XmlNode queryRs = ResponsesOf(doc).item(0);
  if (!sMDBPath.empty()) {
    HandToMirror(queryRs, sMDBPath, "DataExtDef");
    return static_cast<int32_t>(Count());
  }
  Parse(queryRs);
  return static_cast<int32_t>(Count());
}

void DataExtensionDefinitions::Parse(const XmlNode& queryRs) {
  Clear();
  for (const XmlNode& ret : queryRs.childNodes()) {
    auto definition = std::make_shared<DataExtensionDefinition>();
    definition->FromDom(ret);
    // Two owners may each define a field of one name; the first one read keeps the key.
    if (!col_.Exists(definition->Name())) col_.Add(definition, definition->Name());
  }
}

bool DataExtensionDefinitions::Validate() {
  auto errors = Errors();
  errors->Clear();
  bool all = true;
  for (const auto& d : col_) {
    if (!d->Validate()) {
      all = false;
      errors->Add(err::kValidateFailed, d->Name(), err::kValidateFailedText);
    }
  }
  return all;
}

int32_t DataExtensionDefinitions::Commit(const std::shared_ptr<DataExtensionDefinition>& Member) {
  if (!master_) throw Error(err::kMasterOnly, kSource, err::kMasterOnlyText);
  auto errors = Errors();
  errors->Clear();
  xmlBldr b;
  b.NewClear();
  int written = 0;
  bool valid = true;
  auto write = [&](DataExtensionDefinition& d, long position) {
    const auto id = static_cast<int16_t>(position);
    if (d.state_ == qoObjectStateNew) {
      b.InsertAddRq(d, id);
      ++written;
    } else if (d.NeedsModify()) {
      b.InsertModRq(d, id);
      ++written;
    }
  };
  if (!Member) {
    for (long i = 1; i <= col_.Count(); ++i) {
      auto& d = *col_.Item(i);
      if (!d.Validate()) {
        valid = false;
        errors->Add(err::kValidateFailed, std::to_string(i), err::kValidateFailedText);
      } else {
        write(d, i);
      }
    }
  } else if (!Member->Validate()) {
    valid = false;
    errors->Add(err::kValidateFailed, "0", err::kValidateFailedText);
  } else {
    long position = 0;
    for (long i = 1; i <= col_.Count() && position == 0; ++i)
      if (col_.Item(i) == Member) position = i;
    if (position == 0) errors->Add(err::kNotAMember, kSource, err::kNotAMemberText);
    else write(*Member, position);
  }

  if (valid && written > 0) {
    XmlDocument doc = b.NewSendRequest();
    // A refused definition sets the builder's error too; each response tells its own.
    {
      for (const XmlNode& node : ResponsesOf(doc)) {
        ResponseStatus status = ReadResponseStatus(node);
        if (status.requestId < 1 || status.requestId > col_.Count()) continue;
        auto d = col_.Item(status.requestId);
        if (status.code != 0) {
          NoteCommitFailure(*errors, std::to_string(status.requestId), *d->Errors(), status);
          continue;
        }
        if (XmlNode ret = node.childNodes().item(0); !ret.IsNull()) {
          d->FromDom(ret);
        } else {
          // Accepted without a record: what was sent is what QuickBooks now holds.
          if (!d->newName_.empty()) d->name_ = d->newName_;
          d->newName_.clear();
          d->originalAssignedTos_.types_ = d->assignedTos_.types_;
          d->assignedTos_.state_ = qoObjectStateClean;
          d->state_ = qoObjectStateClean;
        }
      }
    }
  }
  if (State().ErrorMode) {
    if (errors->Count() > 0) throw Error(err::kCommitErrors, kSource, err::kCommitErrorsText);
    if (b.ErrNumber() != 0) throw Error(b.ErrNumber(), kSource, b.ErrMsg());
  }
  return static_cast<int32_t>(errors->Count());
}

}  // namespace tessaron
