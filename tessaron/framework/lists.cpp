#include "tessaron/framework/lists.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/platform/error.h"

namespace tessaron {

namespace {
std::shared_ptr<Lists>& Installed() {
  static std::shared_ptr<Lists> lists;
  return lists;
}
}  // namespace

std::vector<std::shared_ptr<qcList>> Lists::NewEnum() const {
  std::vector<std::shared_ptr<qcList>> out;
  out.reserve(static_cast<size_t>(col_.Count()));
  for (const auto& list : col_) out.push_back(list);
  return out;
}

std::string ListTypeKey(qoEnumListType list) { return EnumCodeToXML(list, qoeListType); }

std::shared_ptr<Lists> CurrentLists() {
  if (!Installed()) RaisePlatform(platform_error::kObjectNotSet);
  return Installed();
}

void SetCurrentLists(std::shared_ptr<Lists> lists) { Installed() = std::move(lists); }

std::shared_ptr<qcList> CurrentListFor(qoEnumListType list) {
  return CurrentLists()->Item(Variant(ListTypeKey(list)));
}

}  // namespace tessaron
