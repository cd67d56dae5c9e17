#include "tessaron/framework/list_object.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/lists.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"
#include "tessaron/framework/detail/field_walker.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {


int16_t SublevelUnder(const std::string& parentFullName) {
  if (parentFullName.empty()) return 0;
  int16_t parts = 1;
  for (char c : parentFullName)
    if (c == ':') ++parts;
  return parts;
}

ListObject::ListObject(const ListClassInfo& info) : info_(info) {
  if (info_.supportsChildren) parentRef_ = std::make_shared<qcListObjectRef>(info_.listType, true);
}

ListObject::~ListObject() = default;

std::shared_ptr<qcErrors> ListObject::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

std::shared_ptr<qcListObjectRefs> ListObject::Children() {
  if (!info_.supportsChildren) return nullptr;
  if (!children_) children_ = std::make_shared<qcListObjectRefs>();
  return children_;
}

std::string ListObject::Parent() const { return parentRef_ ? parentRef_->FullName() : std::string(); }

std::string ListObject::FullName() const {
  if (info_.key == KeyRule::TreeFullName && parentRef_ && !parentRef_->FullName().empty())
    return parentRef_->FullName() + ":" + name_;
  return name_;
}

void ListObject::SetParentInternal(const std::string& parentFullName) {
  if (!parentRef_) parentRef_ = std::make_shared<qcListObjectRef>(info_.listType, true);
  detail::ListObjectAccess::SetFullName(*parentRef_, parentFullName);
}

// ---- The field rule --------------------------------------------------------------------

void ListObject::CheckField(bool readOnlyUnlessNew) {
  if (!readOnlyUnlessNew) {
    if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
    return;
  }
  if (state_ == qoObjectStateNew) return;
  throw Error(err::kFieldCannotBeModified, info_.className, err::kFieldCannotBeModifiedText);
}

void ListObject::CheckFieldFromVersion(Currency minVersion) {
  if (State().QBXMLVersionNumber >= minVersion) {
    if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
    return;
  }
  if (state_ == qoObjectStateNew) return;
  throw Error(err::kFieldCannotBeModified, info_.className, err::kFieldCannotBeModifiedText);
}

void ListObject::SetIfChanged(std::string& field, const std::string& value, Currency minVersion) {
  if (field == value) return;
  CheckFieldFromVersion(minVersion);
  field = value;
}

// ---- Reading ---------------------------------------------------------------------------

Variant ListObject::FromDom(const XmlNode& obj) {
  size_t next = 0;
  for (const XmlNode& child : obj.childNodes()) {
    std::string_view tag = child.baseName();
    if (tag == "DataExtRet") {
      if (auto* owner = dynamic_cast<DataExtOwner*>(this)) {
        owner->ReadDataExtRet(child);
        continue;
      }
    }
    if (const FieldDef* match = detail::FindRow(info_.fields, tag, next)) {
      detail::ReadRow(*match, *this, child);
    } else if (tag == "UserData") {
      userData_ = Variant(child.text());
    } else {
      NoteUnknownElement(tag, info_.className);
    }
  }
  AfterFromDom();
  state_ = qoObjectStateClean;
  return Variant();
}

// ---- Writing ---------------------------------------------------------------------------

int32_t ListObject::XMLInsert(xmlBldr& cxmlbldr) {
  WriteRows(cxmlbldr, WriteMode::Add);
  return 0;
}

int32_t ListObject::XMLModify(xmlBldr& cxmlbldr) {
  switch (info_.modify) {
    case ModifyRule::Raise: RaiseInternal(info_.className, info_.modifyMessage);
    case ModifyRule::Ignore: return 0;
    case ModifyRule::Write: break;
  }
  WriteRows(cxmlbldr, WriteMode::Modify);
  return 0;
}

int32_t ListObject::XMLQueryRs(xmlBldr& cxmlbldr) {
  WriteRows(cxmlbldr, WriteMode::QueryRs);
  if (!userData_.IsEmpty() && !userData_.IsObject()) cxmlbldr.CreateElement("UserData", userData_.ToString());
  return 0;
}

void ListObject::WriteRows(xmlBldr& b, WriteMode mode) {
  detail::WriteRows(info_.fields, *this, b, mode, info_.queryBooleans);
}

// ---- Display ---------------------------------------------------------------------------

std::vector<ListObject::PropertyText> ListObject::Properties() {
  const std::string fullName = FullName();
  return detail::Properties(info_.fields, *this, &fullName);
}

// ---- Validation ------------------------------------------------------------------------

bool ListObject::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (state_ == qoObjectStateClean) return true;
  for (const CheckDef& c : info_.checks) {
    if (c.custom) {
      c.custom(*this, *errors);
      continue;
    }
    const std::string& text = this->*c.member;
    if (c.emptyCode != 0 && text.empty()) {
      errors->Add(c.emptyCode, c.field, c.emptyMessage);
    } else if (c.longCode != 0 && Utf16Length(text) > c.maxLength) {
      errors->Add(c.longCode, c.field, c.longMessage);
    }
  }
  return errors->Count() == 0;
}

// ---- Common rows -----------------------------------------------------------------------

std::vector<FieldDef> ListObject::Common::Rows(std::initializer_list<FieldDef> own) {
  std::vector<FieldDef> rows{ListID(), TimeCreated(), TimeModified(), EditSequence()};
  rows.insert(rows.end(), own.begin(), own.end());
  return rows;
}

FieldDef ListObject::Common::ListID() { return field::Text("ListID", &ListObject::listID_).Mod(Send::Always); }
FieldDef ListObject::Common::TimeCreated() { return field::DateTime("TimeCreated", &ListObject::timeCreated_); }
FieldDef ListObject::Common::TimeModified() { return field::DateTime("TimeModified", &ListObject::timeModified_); }
FieldDef ListObject::Common::EditSequence() {
  return field::Text("EditSequence", &ListObject::editSequence_).Mod(Send::Always);
}
FieldDef ListObject::Common::Name(Send add, Send mod) {
  return field::Text("Name", &ListObject::name_).Add(add).Mod(mod);
}
FieldDef ListObject::Common::FullName() { return field::Text("FullName", &ListObject::fullName_); }
FieldDef ListObject::Common::IsActive(Send add, Send mod) {
  return field::Boolean("IsActive", &ListObject::isActive_).Add(add).Mod(mod);
}
FieldDef ListObject::Common::ParentRef() {
  return field::Ref("ParentRef", &ListObject::parentRef_, static_cast<qoEnumListType>(0)).Add(Send::IfSet).As("Parent");
}
FieldDef ListObject::Common::Sublevel() { return field::Int16("Sublevel", &ListObject::sublevel_); }

CheckDef ListObject::Common::NameCheck(size_t maxLength, uint32_t longCode, const char* longMessage) {
  return check::Required(&ListObject::name_, "Name", err::kNameNull, err::kNameNullText, maxLength, longCode,
                         longMessage);
}

std::shared_ptr<qcListObject> ListObject::Common::LookUpParent(ListObject& obj) {
  const std::string parent = obj.Parent();
  if (parent.empty()) return nullptr;
  std::shared_ptr<qcList> list = CurrentListFor(obj.ClassInfo().listType);
  return list->ItemExists(Variant(parent)) ? list->Item(Variant(parent)) : list->GetByFullName(parent);
}

CheckDef ListObject::Common::ParentCheck() {
  return check::Custom([](ListObject& obj, qcErrors& errors) {
    if (!obj.Parent().empty() && !LookUpParent(obj)) errors.Add(err::kInvalidParent, "Parent", err::kInvalidParentText);
  });
}

}  // namespace tessaron
