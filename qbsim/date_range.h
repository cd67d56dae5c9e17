// The dates a DateMacro of a transaction query stands for, from today.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tessaron::qbsim {

// First and last day ("yyyy-mm-dd", inclusive) of the period a macro names; "All" gives two
// empty texts (no bound). Weeks start on Sunday; fiscal periods start in `firstFiscalMonth`.
// Nothing for a name that is no macro.
std::optional<std::pair<std::string, std::string>> DateMacroRange(std::string_view macro, int firstFiscalMonth);

}  // namespace tessaron::qbsim
