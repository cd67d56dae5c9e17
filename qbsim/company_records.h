// The company record and the preferences: stored fields of the company file (see FieldMap),
// answered by CompanyQueryRq and PreferencesQueryRq through these tables.
#pragma once

#include <span>

#include "qbsim/record_kind.h"

namespace tessaron::qbsim {

// Keys of the company file's settings.
namespace meta {
inline constexpr const char* kCompany = "company";
inline constexpr const char* kPreferences = "preferences";
inline constexpr const char* kLastRestoreTime = "last_restore_time";
inline constexpr const char* kLastCondenseTime = "last_condense_time";
}  // namespace meta

// The fields of CompanyRet; paths as "Address/City".
std::span<const Field> CompanyFields();
// The fields of PreferencesRet, by group; paths as "AccountingPreferences/ClosingDate".
std::span<const Field> PreferencesFields();

}  // namespace tessaron::qbsim
