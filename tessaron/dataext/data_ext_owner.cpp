#include "tessaron/dataext/data_ext_owner.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/text.h"

namespace tessaron {

DataExtOwner::~DataExtOwner() = default;

std::shared_ptr<DataExtensions> DataExtOwner::CustomFields() {
  if (!customFields_) customFields_ = std::make_shared<DataExtensions>();
  customFields_->SetOwnerId("0");
  customFields_->SetOwnerType(ownerType_);
  return customFields_;
}

std::shared_ptr<DataExtensions> DataExtOwner::ApplicationFields() {
  if (!applicationFields_) applicationFields_ = std::make_shared<DataExtensions>();
  applicationFields_->SetOwnerId(State().DataExtensionsGUID);
  applicationFields_->SetOwnerType(ownerType_);
  return applicationFields_;
}

bool DataExtOwner::SaveDataExtensions(const std::string& ListOrTxnId) {
  bool ok = CustomFields()->Commit(ListOrTxnId, DataExtLineId()) == 0;
  if (State().QBXMLVersionNumber >= Currency(3) && !State().DataExtensionsGUID.empty())
    ok = ApplicationFields()->Commit(ListOrTxnId, DataExtLineId()) == 0;
  return ok;
}

int32_t DataExtOwner::CommitCustomFields() { return CustomFields()->Commit(DataExtRecordId(), DataExtLineId()); }

void DataExtOwner::ReadDataExtRet(const XmlNode& node) {
  tessaron::ReadDataExtRet(node, CustomFields().get(), ApplicationFields().get());
}

void ReadDataExtRet(const XmlNode& node, DataExtensions* customFields, DataExtensions* applicationFields) {
  // The answer's order is relied on: the owner comes before the name, the type and the value.
  DataExtensions* target = customFields;  // an answer without OwnerID holds a public field
  std::string name, type;
  for (const XmlNode& child : node.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "OwnerID") {
      const std::string owner = child.text();
      if (owner == "0") target = customFields;
      else if (EqualsIgnoreCase(owner, State().DataExtensionsGUID)) target = applicationFields;
      else target = nullptr;
    } else if (tag == "DataExtName") {
      name = child.text();
    } else if (tag == "DataExtType") {
      type = child.text();
    } else if (tag == "DataExtValue") {
      if (!target || name.empty()) continue;
      auto value = target->ItemForReading(name, type);
      value->FromDom(node);
    } else {
      NoteUnknownField("Unknown Field: " + std::string(tag), "DataExtRet");
    }
  }
}

}  // namespace tessaron
