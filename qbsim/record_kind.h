// The tables that describe each kind of list record: its fields in the order of its
// …Ret element, which of them an add or a modify request may carry, their value types,
// the lists a reference points into. Reading requests, writing responses and keeping
// records are all driven by these tables, so a new kind is a new table.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "qbsim/values.h"

namespace tessaron::qbsim {

struct RecordRow;
class RequestContext;

enum class FieldKind : uint8_t {
  // The columns every list record has; where they stand in a …Ret differs by kind.
  ListID, TimeCreated, TimeModified, EditSequence, Name, FullName, IsActive, ParentRef, Sublevel,
  Value,          // a stored text
  Ref,            // a reference to another record: stored as its ListID, answered with ListID and FullName
  Group,          // an aggregate of child fields (an address, a price block)
  RepeatedRef,    // a reference that may occur many times (the members of a tax group)
  RepeatedGroup,  // an aggregate that may occur many times (the lines of an item group)
  Computed,       // derived when answering (balances); never read from requests
};

enum FieldFlag : uint16_t {
  kInAdd = 1 << 0,         // an add request may carry it
  kInMod = 1 << 1,         // a modify request may carry it
  kInRet = 1 << 2,         // the …Ret carries it
  kUsOnly = 1 << 3,        // only in the US edition (sales tax, 1099)
  kReplaceOnMod = 1 << 4,  // a modify that carries this aggregate replaces it whole (addresses)
  kRequired = 1 << 5,      // an add request must carry it
};
inline constexpr uint16_t kAllForms = kInAdd | kInMod | kInRet;

// The lists that a reference may point into, by kind name.
struct RefTarget {
  const char* description;  // for messages: "Account", "Customer:Job", ...
  std::span<const char* const> kinds;
};

// The value of a Computed field, or an empty text to leave the element out.
using ComputeFn = std::string (*)(const RecordRow& row, RequestContext& ctx);

struct Field {
  const char* tag = "";
  FieldKind kind = FieldKind::Value;
  ValueType type = ValueType::Text;
  uint16_t flags = kAllForms;
  const RefTarget* target = nullptr;            // Ref, RepeatedRef
  std::span<const Field> children = {};         // Group, RepeatedGroup
  std::span<const char* const> enumValues = {}; // ValueType::Enum
  int maxLength = 0;                            // text limit in characters; 0 = none
  int addMinVersion = 0;                        // qbXML version x10 at which an add may carry it
  int modMinVersion = 0;                        // the same for a modify
  const char* modTag = nullptr;                 // its tag in a modify request, when another
  int choice = 0;                               // fields with one non-zero choice exclude each other
  ComputeFn compute = nullptr;                  // Computed

  // Modifiers that read as the field tables read: V("Phone").Max(21).ModFrom(30)
  constexpr Field Only(uint16_t f) const { Field c = *this; c.flags = f; return c; }
  constexpr Field With(uint16_t f) const { Field c = *this; c.flags |= f; return c; }
  constexpr Field Max(int n) const { Field c = *this; c.maxLength = n; return c; }
  constexpr Field AddFrom(int v) const { Field c = *this; c.addMinVersion = v; return c; }
  constexpr Field ModFrom(int v) const { Field c = *this; c.modMinVersion = v; return c; }
  constexpr Field From(int v) const { return AddFrom(v).ModFrom(v); }
  constexpr Field ModTag(const char* t) const { Field c = *this; c.modTag = t; return c; }
  constexpr Field Choice(int n) const { Field c = *this; c.choice = n; return c; }
  constexpr Field Required() const { return With(kRequired); }
};

constexpr Field V(const char* tag, ValueType type = ValueType::Text) {
  Field f;
  f.tag = tag;
  f.type = type;
  return f;
}
constexpr Field E(const char* tag, std::span<const char* const> values) {
  Field f = V(tag, ValueType::Enum);
  f.enumValues = values;
  return f;
}
constexpr Field R(const char* tag, const RefTarget& target) {
  Field f;
  f.tag = tag;
  f.kind = FieldKind::Ref;
  f.target = &target;
  return f;
}
constexpr Field RR(const char* tag, const RefTarget& target) {
  Field f = R(tag, target);
  f.kind = FieldKind::RepeatedRef;
  return f;
}
constexpr Field G(const char* tag, std::span<const Field> children) {
  Field f;
  f.tag = tag;
  f.kind = FieldKind::Group;
  f.children = children;
  return f;
}
constexpr Field RG(const char* tag, std::span<const Field> children) {
  Field f = G(tag, children);
  f.kind = FieldKind::RepeatedGroup;
  return f;
}
constexpr Field C(const char* tag, ComputeFn fn) {
  Field f;
  f.tag = tag;
  f.kind = FieldKind::Computed;
  f.flags = kInRet;
  f.compute = fn;
  return f;
}
constexpr Field H(const char* tag, FieldKind kind, uint16_t flags = kInRet) {
  Field f;
  f.tag = tag;
  f.kind = kind;
  f.flags = flags;
  if (kind == FieldKind::IsActive) f.type = ValueType::Bool;
  return f;
}

// One kind of list record.
struct ListKind {
  const char* name = "";       // "Customer": XxxAddRq, XxxModRq, XxxQueryRq, ListDelType
  const char* retTag = "";     // "CustomerRet"
  const char* nameSpace = "";  // names are unique within a name space ("Entity", "Item", ...)
  std::span<const Field> fields;  // in the order of the …Ret
  const char* nameTag = "Name";   // the element that names a record ("Initial" for sales reps)
  int nameMaxLength = 31;
  bool hierarchical = false;
  bool uniqueNames = true;
  bool canAdd = true;
  bool canMod = true;
  bool canDelete = true;
  bool usOnly = false;         // the list exists only in the US edition
  bool nonUsOnly = false;      // the list exists only outside it
  int minVersion = 10;         // the first qbXML version (x10) that has the list
};

// All kinds known to the processor; later subsystems add theirs here.
std::span<const ListKind> ListKinds();
// The kind of that name, or null.
const ListKind* FindListKind(std::string_view name);
// The field of a kind (or of a group's children) with that tag in the form given
// (kInAdd or kInMod), matching modTag in modify requests; null when none. "Province" and
// "County" find "State".
const Field* FindRequestField(std::span<const Field> fields, std::string_view tag, uint16_t form);

// Queries that span several kinds: "Entity", "Item", "Terms".
struct QueryFamily {
  const char* name;                          // request prefix: "Entity" for EntityQueryRq
  std::span<const char* const> kinds;
};
std::span<const QueryFamily> QueryFamilies();

}  // namespace tessaron::qbsim
