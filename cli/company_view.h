// The company record, its addresses and its preferences as the command prints them.
#pragma once

#include <ostream>

#include "tessaron/company/company.h"

namespace tessaron::cli {

// One "Name  value" line per field of the record, then the preferences.
void PrintCompany(Company& company, std::ostream& out);

}  // namespace tessaron::cli
