#include "tessaron/framework/list_object.h"

#include <charconv>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/lists.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

namespace {

int16_t Int16FromText(std::string_view text) {
  text = Trim(text);
  int value = 0;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc() || end != text.data() + text.size() || value < INT16_MIN || value > INT16_MAX) {
    RaisePlatform(ec == std::errc::result_out_of_range || (ec == std::errc() && end == text.data() + text.size())
                      ? platform_error::kOverflow
                      : platform_error::kTypeMismatch);
  }
  return static_cast<int16_t>(value);
}

template <class T>
T& At(ListObject& obj, const FieldMember& member) {
  return obj.*std::get<T ListObject::*>(member);
}

bool IsSet(const FieldDef& row, ListObject& obj) {
  switch (row.kind) {
    case FieldKind::Text: return !At<std::string>(obj, row.member).empty();
    case FieldKind::Int16: return At<int16_t>(obj, row.member) != 0;
    case FieldKind::DateTime:
    case FieldKind::Date: return At<Date>(obj, row.member) != 0;
    case FieldKind::Amount:
    case FieldKind::Quantity:
    case FieldKind::Percent: return At<Currency>(obj, row.member) != Currency();
    case FieldKind::Enum: return At<int32_t>(obj, row.member) != 0;
    default: return true;
  }
}

bool IsPositive(const FieldDef& row, ListObject& obj) {
  switch (row.kind) {
    case FieldKind::Int16: return At<int16_t>(obj, row.member) > 0;
    case FieldKind::Amount:
    case FieldKind::Quantity:
    case FieldKind::Percent: return At<Currency>(obj, row.member) > Currency();
    case FieldKind::Enum: return At<int32_t>(obj, row.member) > 0;
    default: return IsSet(row, obj);
  }
}

std::string ValueText(const FieldDef& row, ListObject& obj, WriteMode mode) {
  switch (row.kind) {
    case FieldKind::Text: return At<std::string>(obj, row.member);
    case FieldKind::Boolean: {
      bool b = At<bool>(obj, row.member);
      if (mode == WriteMode::QueryRs && obj.ClassInfo().queryBooleans == QueryBooleans::Words) return b ? "true" : "false";
      return BooleanToText(b);
    }
    case FieldKind::Int16: return std::to_string(At<int16_t>(obj, row.member));
    case FieldKind::DateTime: return DateTimeToText(At<Date>(obj, row.member));
    case FieldKind::Date: return DateToText(At<Date>(obj, row.member));
    case FieldKind::Amount: return AmountToText(At<Currency>(obj, row.member));
    case FieldKind::Quantity: return QuantityToText(At<Currency>(obj, row.member));
    case FieldKind::Percent: return PercentRateToText(At<Currency>(obj, row.member));
    case FieldKind::Enum:
      return EnumCodeToXML(At<int32_t>(obj, row.member), static_cast<qoEnumerationType>(row.aux));
    default: return {};
  }
}

}  // namespace

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
  const std::vector<FieldDef>& rows = info_.fields;
  // Elements arrive in the order of the rows, so the search starts behind the last match
  // and goes round once: a record costs one comparison per element, not one per row.
  size_t next = 0;
  for (const XmlNode& child : obj.childNodes()) {
    std::string_view tag = child.baseName();
    const FieldDef* match = nullptr;
    for (size_t k = 0, n = rows.size(); k < n; ++k) {
      const size_t at = next + k < n ? next + k : next + k - n;
      if (rows[at].tag == tag) {
        match = &rows[at];
        next = at + 1;
        break;
      }
    }
    if (match) {
      ReadRow(*match, child);
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

void ListObject::ReadRow(const FieldDef& row, const XmlNode& node) {
  std::string scratch;
  switch (row.kind) {
    case FieldKind::Text: At<std::string>(*this, row.member).assign(node.textView(scratch)); break;
    case FieldKind::Boolean: At<bool>(*this, row.member) = BooleanFromText(node.textView(scratch)); break;
    case FieldKind::Int16: At<int16_t>(*this, row.member) = Int16FromText(node.textView(scratch)); break;
    case FieldKind::DateTime:
    case FieldKind::Date: At<Date>(*this, row.member) = DateFromText(node.textView(scratch)); break;
    case FieldKind::Amount:
    case FieldKind::Quantity:
    case FieldKind::Percent: At<Currency>(*this, row.member) = CurrencyFromText(node.textView(scratch)); break;
    case FieldKind::Ref: {
      auto& ref = At<std::shared_ptr<qcListObjectRef>>(*this, row.member);
      if (!ref) ref = std::make_shared<qcListObjectRef>(static_cast<qoEnumListType>(row.aux));
      detail::ListObjectAccess::ReadFromNode(*ref, node);
      break;
    }
    case FieldKind::Enum:
      At<int32_t>(*this, row.member) = EnumXMLToCode(node.textView(scratch), static_cast<qoEnumerationType>(row.aux));
      break;
    case FieldKind::Dropped: break;
    case FieldKind::Custom:
      if (row.read) row.read(*this, node);
      break;
  }
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
  for (const FieldDef& row : info_.fields) {
    Send how = Send::Always;
    Currency minVersion;
    if (mode == WriteMode::Add) {
      how = row.add;
      minVersion = row.addMinVersion;
    } else if (mode == WriteMode::Modify) {
      how = row.mod;
      minVersion = row.modMinVersion;
    } else if (!row.inQuery) {
      how = Send::Never;
    }
    if (how == Send::Never) continue;
    if (mode != WriteMode::QueryRs && row.when && !row.when(*this)) continue;

    const std::string tag(row.tag);
    if (row.kind == FieldKind::Custom) {
      if (row.write && State().QBXMLVersionNumber >= minVersion) row.write(*this, b, mode);
      continue;
    }
    if (row.kind == FieldKind::Ref) {
      auto& ref = At<std::shared_ptr<qcListObjectRef>>(*this, row.member);
      if (!ref) continue;
      if (mode == WriteMode::QueryRs) detail::ListObjectAccess::WriteQueryRs(*ref, b, ref->IsParent() ? std::string() : tag);
      else WriteListRef(*ref, b, tag, how == Send::Forced, minVersion);
      continue;
    }
    if (row.kind == FieldKind::Dropped) continue;
    if (how == Send::IfSet && !IsSet(row, *this)) continue;
    if (how == Send::IfPositive && !IsPositive(row, *this)) continue;
    b.CreateElement(tag, ValueText(row, *this, mode), minVersion);
  }
}

// ---- Display ---------------------------------------------------------------------------

std::vector<ListObject::PropertyText> ListObject::Properties() {
  std::vector<PropertyText> out;
  out.reserve(info_.fields.size());
  for (const FieldDef& row : info_.fields) {
    if (!row.inQuery) continue;
    std::string_view name = row.property.empty() ? row.tag : row.property;
    if (row.kind == FieldKind::Custom) {
      out.push_back({name, row.text ? row.text(*this) : std::string(), row.kind});
    } else if (row.kind == FieldKind::Ref) {
      const auto& ref = At<std::shared_ptr<qcListObjectRef>>(*this, row.member);
      out.push_back({name, ref ? ref->FullName() : std::string(), row.kind});
    } else if (row.tag == "FullName") {
      out.push_back({name, FullName(), row.kind});
    } else if (row.kind == FieldKind::Boolean) {
      out.push_back({name, At<bool>(*this, row.member) ? "true" : "false", row.kind});
    } else if ((row.kind == FieldKind::Date || row.kind == FieldKind::DateTime) && At<Date>(*this, row.member) == 0) {
      out.push_back({name, std::string(), row.kind});
    } else if (row.kind == FieldKind::Amount || row.kind == FieldKind::Quantity || row.kind == FieldKind::Percent) {
      out.push_back({name, At<Currency>(*this, row.member).ToString(), row.kind});
    } else if (row.kind == FieldKind::Enum) {
      const int32_t code = At<int32_t>(*this, row.member);
      out.push_back({name, code == 0 ? std::string() : ValueText(row, *this, WriteMode::QueryRs), row.kind});
    } else {
      out.push_back({name, ValueText(row, *this, WriteMode::QueryRs), row.kind});
    }
  }
  return out;
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
