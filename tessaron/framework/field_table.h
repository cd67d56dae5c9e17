// The tables a list class is made of: one row per field (its tag, its kind, where it
// lives, and how it travels in the add request, the modify request and the query-response
// form), and one row per check of Validate. ListObject walks these tables; a class
// writes them. See list_object.h for how to add a list class.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class ListObject;
class qcErrors;
class qcListObjectRef;
class xmlBldr;

// How a field travels in one kind of request.
enum class Send : uint8_t {
  Never,       // not written
  IfSet,       // skipped when empty text, zero number or date, or an empty reference
  IfPositive,  // numbers written only when above 0
  Always,      // written even when empty: in a modify, an empty element clears the field
  Forced,      // references: an empty reference is written with an empty FullName
};

enum class FieldKind : uint8_t {
  Text,      // std::string, as it stands
  Boolean,   // bool: "1"/"0" in requests; the class's style in the query form
  Int16,     // int16_t, decimal text
  DateTime,  // Date, date-time text ("yyyy-mm-ddThh:mm:ss" from qbXML 2.0)
  Date,      // Date, "yyyy-mm-dd"
  Amount,    // Currency, "#######0.00"
  Quantity,  // Currency, "0000000.0000"
  Percent,   // Currency, "0000000.0000"; a trailing "%" is cut on reading
  Ref,       // std::shared_ptr<qcListObjectRef>, created on reading when absent
  Enum,      // int32_t code of an enumeration table, sent as the row's qbXML text
  Dropped,   // read and thrown away without a word (tags a class knows but keeps nothing of)
  Custom,    // read and written by the row's own functions (addresses, sub-records)
};

// The kind of write a Custom row is asked for.
enum class WriteMode : uint8_t { Add, Modify, QueryRs };

using FieldMember = std::variant<std::monostate, std::string ListObject::*, bool ListObject::*,
                                 int16_t ListObject::*, Date ListObject::*, Currency ListObject::*,
                                 int32_t ListObject::*, std::shared_ptr<qcListObjectRef> ListObject::*>;

struct FieldDef {
  std::string_view tag;
  FieldKind kind = FieldKind::Text;
  FieldMember member;
  Send add = Send::Never;
  Currency addMinVersion;
  Send mod = Send::Never;
  Currency modMinVersion;
  bool inQuery = true;
  // The enumeration table of an Enum row (qoEnumerationType); the list type of a Ref row.
  int32_t aux = 0;
  // A further condition for add and modify (for example, a field only the US edition knows).
  bool (*when)(const ListObject&) = nullptr;
  void (*read)(ListObject&, const XmlNode&) = nullptr;
  void (*write)(ListObject&, xmlBldr&, WriteMode) = nullptr;
  // The public property the row backs, where its name is not the tag ("Desc" is
  // "Description"); the display text of a Custom row.
  std::string_view property;
  std::string (*text)(const ListObject&) = nullptr;

  FieldDef Add(Send how, Currency minVersion = Currency()) const {
    FieldDef f = *this; f.add = how; f.addMinVersion = minVersion; return f;
  }
  FieldDef Mod(Send how, Currency minVersion = Currency()) const {
    FieldDef f = *this; f.mod = how; f.modMinVersion = minVersion; return f;
  }
  FieldDef As(std::string_view propertyName) const { FieldDef f = *this; f.property = propertyName; return f; }
  FieldDef NotInQuery() const { FieldDef f = *this; f.inQuery = false; return f; }
  FieldDef When(bool (*condition)(const ListObject&)) const { FieldDef f = *this; f.when = condition; return f; }
};

// Row builders. Members of the class itself are passed as `&MyClass::field_`; they are
// kept as members of ListObject, which every list class derives from.
namespace field {

namespace detail {
inline FieldDef Row(std::string_view tag, FieldKind kind, FieldMember member) {
  FieldDef f;
  f.tag = tag;
  f.kind = kind;
  f.member = member;
  return f;
}
template <class T, class O>
FieldMember Member(T O::*m) {
  static_assert(std::is_base_of_v<ListObject, O>, "fields belong to list classes");
  return static_cast<T ListObject::*>(m);
}
}  // namespace detail

template <class O>
FieldDef Text(std::string_view tag, std::string O::*m) { return detail::Row(tag, FieldKind::Text, detail::Member(m)); }
template <class O>
FieldDef Boolean(std::string_view tag, bool O::*m) { return detail::Row(tag, FieldKind::Boolean, detail::Member(m)); }
template <class O>
FieldDef Int16(std::string_view tag, int16_t O::*m) { return detail::Row(tag, FieldKind::Int16, detail::Member(m)); }
template <class O>
FieldDef DateTime(std::string_view tag, Date O::*m) { return detail::Row(tag, FieldKind::DateTime, detail::Member(m)); }
template <class O>
FieldDef DateOnly(std::string_view tag, Date O::*m) { return detail::Row(tag, FieldKind::Date, detail::Member(m)); }
template <class O>
FieldDef Amount(std::string_view tag, Currency O::*m) { return detail::Row(tag, FieldKind::Amount, detail::Member(m)); }
template <class O>
FieldDef Quantity(std::string_view tag, Currency O::*m) { return detail::Row(tag, FieldKind::Quantity, detail::Member(m)); }
template <class O>
FieldDef Percent(std::string_view tag, Currency O::*m) { return detail::Row(tag, FieldKind::Percent, detail::Member(m)); }
template <class O>
FieldDef Ref(std::string_view tag, std::shared_ptr<qcListObjectRef> O::*m, qoEnumListType list) {
  FieldDef f = detail::Row(tag, FieldKind::Ref, detail::Member(m));
  f.aux = list;
  return f;
}
// `table` is the qoEnumerationType of the enumeration.
template <class O>
FieldDef Enum(std::string_view tag, int32_t O::*m, int32_t table) {
  FieldDef f = detail::Row(tag, FieldKind::Enum, detail::Member(m));
  f.aux = table;
  return f;
}
inline FieldDef Dropped(std::string_view tag) {
  FieldDef f = detail::Row(tag, FieldKind::Dropped, {});
  f.inQuery = false;
  return f;
}
inline FieldDef Custom(std::string_view tag, void (*read)(ListObject&, const XmlNode&),
                       void (*write)(ListObject&, xmlBldr&, WriteMode),
                       std::string (*text)(const ListObject&) = nullptr) {
  FieldDef f = detail::Row(tag, FieldKind::Custom, {});
  f.read = read;
  f.write = write;
  f.text = text;
  return f;
}

}  // namespace field

// One check of Validate. A text check adds `emptyCode` when the text is empty (if the row
// has one), else `longCode` when it is longer than `maxLength` UTF-16 units. A custom check
// runs its function. Checks run in table order and never stop at the first problem.
struct CheckDef {
  std::string ListObject::* member = nullptr;
  const char* field = "";
  uint32_t emptyCode = 0;
  const char* emptyMessage = "";
  size_t maxLength = 0;
  uint32_t longCode = 0;
  const char* longMessage = "";
  void (*custom)(ListObject&, qcErrors&) = nullptr;
};

namespace check {

template <class O>
CheckDef Required(std::string O::*m, const char* field, uint32_t emptyCode, const char* emptyMessage,
                  size_t maxLength, uint32_t longCode, const char* longMessage) {
  CheckDef c;
  c.member = static_cast<std::string ListObject::*>(m);
  c.field = field;
  c.emptyCode = emptyCode;
  c.emptyMessage = emptyMessage;
  c.maxLength = maxLength;
  c.longCode = longCode;
  c.longMessage = longMessage;
  return c;
}
template <class O>
CheckDef MaxLength(std::string O::*m, const char* field, size_t maxLength, uint32_t longCode, const char* longMessage) {
  return Required(m, field, 0, "", maxLength, longCode, longMessage);
}
inline CheckDef Custom(void (*fn)(ListObject&, qcErrors&)) {
  CheckDef c;
  c.custom = fn;
  return c;
}

}  // namespace check

// What the collection and the object do with a Dirty object of this class.
enum class ModifyRule : uint8_t {
  Write,   // XMLModify writes ListID, EditSequence and the Mod column
  Raise,   // XMLModify raises 0x800403EB with the class's message
  Ignore,  // XMLModify writes nothing and returns 0
};

// How FullName and the collection key are made.
enum class KeyRule : uint8_t {
  TreeFullName,  // parent's full name + ":" + Name, or Name at the top
  Name,          // the own name
};

// How booleans appear in the query-response form.
enum class QueryBooleans : uint8_t { Words, Digits };  // "true"/"false" or "1"/"0"

// Everything that is constant per list class.
struct ListClassInfo {
  // Source of raised errors ("Class"), and what unknown tags are reported under.
  const char* className = "";
  qoEnumListObjectType objectType = static_cast<qoEnumListObjectType>(0);
  // The list the class's records belong to: the list type of ParentRef and Children.
  qoEnumListType listType = static_cast<qoEnumListType>(0);
  bool supportsChildren = false;
  KeyRule key = KeyRule::Name;
  QueryBooleans queryBooleans = QueryBooleans::Words;
  ModifyRule modify = ModifyRule::Raise;
  const char* modifyMessage = "XMLModify not supported";
  std::vector<FieldDef> fields;
  std::vector<CheckDef> checks;
};

// The constant part of a class's info; the caller adds the key rule, fields and checks.
inline ListClassInfo ClassOf(const char* className, qoEnumListObjectType objectType, qoEnumListType listType,
                             ModifyRule modify = ModifyRule::Raise,
                             const char* modifyMessage = "XMLModify not supported") {
  ListClassInfo info;
  info.className = className;
  info.objectType = objectType;
  info.listType = listType;
  info.modify = modify;
  info.modifyMessage = modifyMessage;
  return info;
}

}  // namespace tessaron
