#include "tessaron/lists/entities.h"

#include <map>

#include "tessaron/foundation/values.h"

namespace tessaron {

namespace {
const ListClassInfo& RecordClass() {
  static const ListClassInfo info = [] {
    using C = ListObject::Common;
    ListClassInfo i = ClassOf("Entity", qoObjectTypeEntity, qoListEntity, ModifyRule::Raise, "Insert not allowed");
    i.supportsChildren = true;
    i.key = KeyRule::TreeFullName;
    i.fields = C::Rows({C::Name(Send::Never), C::FullName(), C::IsActive(Send::Never), C::ParentRef(), C::Sublevel()});
    return i;
  }();
  return info;
}

ListCollectionInfo EntityList() {
  ListCollectionInfo i;
  i.className = "Entity";
  i.listType = qoListEntity;
  i.queryRequest = "EntityQueryRq";
  i.queryObjectType = qoObjectTypeEntity;
  i.mirrorObjectName = "Entity";
  return i;
}

std::map<std::string, Entities::Factory, std::less<>>& Kinds() {
  static std::map<std::string, Entities::Factory, std::less<>> kinds;
  return kinds;
}
}  // namespace

EntityRecord::EntityRecord() : ListObject(RecordClass()) {}

Entities::Entities() : ListCollection<ListObject>(EntityList()) {}

void Entities::RegisterEntityKind(std::string_view retTag, Factory factory) {
  Kinds()[std::string(retTag)] = std::move(factory);
}

std::shared_ptr<ListObject> Entities::NewObject(const XmlNode& ret) {
  auto it = Kinds().find(ret.baseName());
  if (it != Kinds().end()) return it->second();
  return std::make_shared<EntityRecord>();
}

}  // namespace tessaron
