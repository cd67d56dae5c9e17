// The list collections by their names ("Classes", "Terms"), for code that picks a list at
// run time: the command line, tools, the company's registry.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessaron/framework/list_collection.h"

namespace tessaron {

// A new, non-master instance of the named collection (names compare without letter case);
// null for a name that is not a list collection.
std::shared_ptr<ListCollectionBase> CreateListCollection(const std::string& name);
// The names, in alphabetical order.
std::vector<std::string> ListCollectionNames();

}  // namespace tessaron
