// The columns of `tessaron list`: which properties a table shows by default for each class,
// and the choice the user makes with --columns.
#pragma once

#include <string>
#include <vector>

namespace tessaron::cli {

// The properties a person looks for first in a record of `className`, in display order.
// Names a class does not have are skipped when the table is made, so a row may name
// properties of classes still to come. Classes without a row show Name, FullName and IsActive.
const std::vector<std::string>& DefaultColumns(const std::string& className);

// Splits "A,B , c" into names; empty parts are dropped.
std::vector<std::string> SplitColumnList(const std::string& text);

}  // namespace tessaron::cli
