// Fields that many record tables share: the columns of every list record and the address.
#pragma once

#include "qbsim/record_kind.h"

namespace tessaron::qbsim::fields {

inline constexpr Field kListID = H("ListID", FieldKind::ListID);
inline constexpr Field kTimeCreated = H("TimeCreated", FieldKind::TimeCreated);
inline constexpr Field kTimeModified = H("TimeModified", FieldKind::TimeModified);
inline constexpr Field kEditSequence = H("EditSequence", FieldKind::EditSequence);
inline constexpr Field kName = H("Name", FieldKind::Name, kAllForms | kRequired);
inline constexpr Field kFullName = H("FullName", FieldKind::FullName);
inline constexpr Field kIsActive = H("IsActive", FieldKind::IsActive, kAllForms);
inline constexpr Field kParentRef = H("ParentRef", FieldKind::ParentRef, kAllForms);
inline constexpr Field kSublevel = H("Sublevel", FieldKind::Sublevel);

// Addr4 came with qbXML 2.0. Outside the US the state arrives as Province or County and is
// kept, and answered, as State: the schema of the responses knows no other name.
inline constexpr Field kAddressFields[] = {
    V("Addr1").Max(41), V("Addr2").Max(41), V("Addr3").Max(41), V("Addr4").Max(41).From(20), V("Addr5").Max(41),
    V("City").Max(31), V("State").Max(21), V("PostalCode").Max(13), V("Country").Max(31), V("Note").Max(41)};
constexpr Field Address(const char* tag) { return G(tag, kAddressFields).With(kReplaceOnMod); }

// What the lines of journal entries and deposits point at.
inline constexpr const char* kAccountKinds[] = {"Account"};
inline constexpr const char* kEntityKinds[] = {"Customer", "Vendor", "Employee", "OtherName"};
inline constexpr const char* kClassKinds[] = {"Class"};
inline constexpr RefTarget kAccountTarget{"Account", kAccountKinds};
inline constexpr RefTarget kEntityTarget{"Entity", kEntityKinds};
inline constexpr RefTarget kClassTarget{"Class", kClassKinds};

}  // namespace tessaron::qbsim::fields
