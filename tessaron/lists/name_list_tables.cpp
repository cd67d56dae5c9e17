#include "tessaron/lists/name_list_tables.h"

#include "tessaron/foundation/error_numbers.h"

namespace tessaron::name_lists {

ListClassInfo TreeInfo(const char* className, qoEnumListObjectType objectType, qoEnumListType listType) {
  using C = ListObject::Common;
  ListClassInfo info = ClassOf(className, objectType, listType, ModifyRule::Raise, "XMLModify not allowed");
  info.supportsChildren = true;
  info.key = KeyRule::TreeFullName;
  info.fields = C::Rows({C::Name(Send::Always), C::FullName(), C::IsActive(), C::ParentRef(), C::Sublevel()});
  info.checks = {C::NameCheck(31, err::kNameTooLong, err::kNameTooLongText), C::ParentCheck()};
  return info;
}

ListClassInfo FlatInfo(const char* className, qoEnumListObjectType objectType, qoEnumListType listType, Send nameAdd,
                       CheckDef nameCheck) {
  using C = ListObject::Common;
  ListClassInfo info = ClassOf(className, objectType, listType, ModifyRule::Raise, "Modify not allowed");
  info.fields = C::Rows({C::Name(nameAdd), C::IsActive()});
  info.checks = {nameCheck};
  return info;
}

ListCollectionInfo CollectionInfo(const char* className, qoEnumListType listType, const char* queryRequest,
                                  qoEnumListObjectType objectType, const char* mirrorObjectName) {
  ListCollectionInfo info;
  info.className = className;
  info.listType = listType;
  info.queryRequest = queryRequest;
  info.queryObjectType = objectType;
  info.mirrorObjectName = mirrorObjectName;
  info.dirty = DirtyStep::Refuse;
  return info;
}

ListCollectionInfo ReadOnlyInfo(const char* className, qoEnumListType listType, const char* queryRequest,
                                qoEnumListObjectType objectType) {
  ListCollectionInfo info = CollectionInfo(className, listType, queryRequest, objectType, className);
  info.readOnly = true;
  return info;
}

}  // namespace tessaron::name_lists
