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
  Int32,     // int32_t, decimal text
};

// The kind of write a Custom row is asked for.
enum class WriteMode : uint8_t { Add, Modify, QueryRs };

// A row's member: a pointer to a field of the owner class (ListObject for lists, the
// transaction base for transactions); every class of a family keeps its fields there.
template <class Owner>
using BasicFieldMember = std::variant<std::monostate, std::string Owner::*, bool Owner::*, int16_t Owner::*,
                                      Date Owner::*, Currency Owner::*, int32_t Owner::*,
                                      std::shared_ptr<qcListObjectRef> Owner::*>;

template <class Owner>
struct BasicFieldDef {
  std::string_view tag;
  FieldKind kind = FieldKind::Text;
  BasicFieldMember<Owner> member;
  Send add = Send::Never;
  Currency addMinVersion;
  Send mod = Send::Never;
  Currency modMinVersion;
  bool inQuery = true;
  // The enumeration table of an Enum row (qoEnumerationType); the list type of a Ref row.
  int32_t aux = 0;
  // A further condition for add and modify (for example, a field only the US edition knows).
  bool (*when)(const Owner&) = nullptr;
  void (*read)(Owner&, const XmlNode&) = nullptr;
  void (*write)(Owner&, xmlBldr&, WriteMode) = nullptr;
  // The public property the row backs, where its name is not the tag ("Desc" is
  // "Description"); the display text of a Custom row.
  std::string_view property;
  std::string (*text)(const Owner&) = nullptr;

  BasicFieldDef Add(Send how, Currency minVersion = Currency()) const {
    BasicFieldDef f = *this; f.add = how; f.addMinVersion = minVersion; return f;
  }
  BasicFieldDef Mod(Send how, Currency minVersion = Currency()) const {
    BasicFieldDef f = *this; f.mod = how; f.modMinVersion = minVersion; return f;
  }
  BasicFieldDef As(std::string_view propertyName) const { BasicFieldDef f = *this; f.property = propertyName; return f; }
  BasicFieldDef NotInQuery() const { BasicFieldDef f = *this; f.inQuery = false; return f; }
  BasicFieldDef When(bool (*condition)(const Owner&)) const { BasicFieldDef f = *this; f.when = condition; return f; }
};

using FieldMember = BasicFieldMember<ListObject>;
using FieldDef = BasicFieldDef<ListObject>;

// A field as a listing shows it: property name, display text, kind.
struct FieldText {
  std::string_view name;
  std::string text;
  FieldKind kind;
};

// Row builders. Members of the class itself are passed as `&MyClass::field_`; they are
// kept as members of ListObject, which every list class derives from.
namespace field {

// Row builders. Members of the class itself are passed as `&MyClass::field_`; they are
// kept as members of the family's owner class (`MyClass::FieldOwner`: ListObject for
// lists), which the row then belongs to.
namespace detail {
template <class Owner>
BasicFieldDef<Owner> Row(std::string_view tag, FieldKind kind, BasicFieldMember<Owner> member) {
  BasicFieldDef<Owner> f;
  f.tag = tag;
  f.kind = kind;
  f.member = member;
  return f;
}
template <class O>
using OwnerOf = typename O::FieldOwner;
template <class T, class O>
BasicFieldMember<OwnerOf<O>> Member(T O::*m) {
  return static_cast<T OwnerOf<O>::*>(m);
}
template <class T, class O>
BasicFieldDef<OwnerOf<O>> Row(std::string_view tag, FieldKind kind, T O::*m) {
  return Row<OwnerOf<O>>(tag, kind, Member(m));
}
}  // namespace detail

template <class O>
auto Text(std::string_view tag, std::string O::*m) { return detail::Row(tag, FieldKind::Text, m); }
template <class O>
auto Boolean(std::string_view tag, bool O::*m) { return detail::Row(tag, FieldKind::Boolean, m); }
template <class O>
auto Int16(std::string_view tag, int16_t O::*m) { return detail::Row(tag, FieldKind::Int16, m); }
template <class O>
auto Int32(std::string_view tag, int32_t O::*m) { return detail::Row(tag, FieldKind::Int32, m); }
template <class O>
auto DateTime(std::string_view tag, Date O::*m) { return detail::Row(tag, FieldKind::DateTime, m); }
template <class O>
auto DateOnly(std::string_view tag, Date O::*m) { return detail::Row(tag, FieldKind::Date, m); }
template <class O>
auto Amount(std::string_view tag, Currency O::*m) { return detail::Row(tag, FieldKind::Amount, m); }
template <class O>
auto Quantity(std::string_view tag, Currency O::*m) { return detail::Row(tag, FieldKind::Quantity, m); }
template <class O>
auto Percent(std::string_view tag, Currency O::*m) { return detail::Row(tag, FieldKind::Percent, m); }
template <class O>
auto Ref(std::string_view tag, std::shared_ptr<qcListObjectRef> O::*m, qoEnumListType list) {
  auto f = detail::Row(tag, FieldKind::Ref, m);
  f.aux = list;
  return f;
}
// `table` is the qoEnumerationType of the enumeration.
template <class O>
auto Enum(std::string_view tag, int32_t O::*m, int32_t table) {
  auto f = detail::Row(tag, FieldKind::Enum, m);
  f.aux = table;
  return f;
}
template <class Owner = ListObject>
BasicFieldDef<Owner> Dropped(std::string_view tag) {
  BasicFieldDef<Owner> f = detail::Row<Owner>(tag, FieldKind::Dropped, {});
  f.inQuery = false;
  return f;
}
// A Custom row of another owner than ListObject names it: `field::CustomOf<TxnObject>(...)`.
template <class Owner>
BasicFieldDef<Owner> CustomOf(std::string_view tag, void (*read)(Owner&, const XmlNode&),
                              void (*write)(Owner&, xmlBldr&, WriteMode),
                              std::string (*text)(const Owner&) = nullptr) {
  BasicFieldDef<Owner> f = detail::Row<Owner>(tag, FieldKind::Custom, {});
  f.read = read;
  f.write = write;
  f.text = text;
  return f;
}
inline FieldDef Custom(std::string_view tag, void (*read)(ListObject&, const XmlNode&),
                       void (*write)(ListObject&, xmlBldr&, WriteMode),
                       std::string (*text)(const ListObject&) = nullptr) {
  return CustomOf<ListObject>(tag, read, write, text);
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
