// The list registry: list key -> master collection. References, parent checks and
// validation find a list's master collection here, by the key of the list type
// ("Class" for qoListClasses, "Terms" for qoListTerms).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/qc_list.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

class Lists {
 public:
  // Stores the collection under the key; a duplicate key raises the collection's error.
  void AddObject(std::shared_ptr<qcList> NewObject, const std::string& Key) { col_.Add(std::move(NewObject), Key); }
  // By key or position; an unregistered key raises the collection's error.
  std::shared_ptr<qcList> Item(const Variant& vntIndexKey) { return col_.Item(vntIndexKey); }
  long Count() const { return col_.Count(); }
  std::vector<std::shared_ptr<qcList>> NewEnum() const;

 private:
  Collection<std::shared_ptr<qcList>> col_;
};

// The registry key of a list type: the key of its row in the "ListType" table
// ("Customer", "CustomerType", "Terms"). Raises 0x800403EF for an unknown type.
std::string ListTypeKey(qoEnumListType list);

// The registry of the open company. The seam between the framework and Company: Company
// owns its Lists and installs it here for as long as it is the current company (and
// installs null when it ends); tests install a registry of their own. With none
// installed, CurrentLists raises error 91, as reading Lists of a missing company does.
std::shared_ptr<Lists> CurrentLists();
void SetCurrentLists(std::shared_ptr<Lists> lists);

// The master collection registered for a list type in the current registry.
std::shared_ptr<qcList> CurrentListFor(qoEnumListType list);

}  // namespace tessaron
