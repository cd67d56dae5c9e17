#include "tessaron/lists/class.h"

#include "tessaron/lists/name_list_tables.h"

namespace tessaron {

namespace {
// One table per class, made on first use (the arguments of later calls are the same).
template <class Obj>
const ListClassInfo& TreeClass(const char* name, qoEnumListObjectType objectType, qoEnumListType listType) {
  static const ListClassInfo info = name_lists::TreeInfo(name, objectType, listType);
  return info;
}
ListCollectionInfo TreeList(const char* name, qoEnumListType listType, const char* request,
                            qoEnumListObjectType objectType) {
  return name_lists::CollectionInfo(name, listType, request, objectType, name);
}
}  // namespace

Class::Class() : ListObject(TreeClass<Class>("Class", qoObjectTypeClass, qoListClasses)) {}
CustomerType::CustomerType()
    : ListObject(TreeClass<CustomerType>("CustomerType", qoObjectTypeCustomerType, qoListCustomerTypes)) {}
JobType::JobType() : ListObject(TreeClass<JobType>("JobType", qoObjectTypeJobType, qoListJobTypes)) {}
VendorType::VendorType()
    : ListObject(TreeClass<VendorType>("VendorType", qoObjectTypeVendorType, qoListVendorTypes)) {}

Classes::Classes()
    : TreeNameCollection<Class>(TreeList("Class", qoListClasses, "ClassQueryRq", qoObjectTypeClass)) {}
CustomerTypes::CustomerTypes()
    : TreeNameCollection<CustomerType>(TreeList("CustomerType", qoListCustomerTypes,
                                                              "CustomerTypeQueryRq", qoObjectTypeCustomerType)) {}
JobTypes::JobTypes()
    : TreeNameCollection<JobType>(TreeList("JobType", qoListJobTypes, "JobTypeQueryRq", qoObjectTypeJobType)) {}
VendorTypes::VendorTypes()
    : TreeNameCollection<VendorType>(
          TreeList("VendorType", qoListVendorTypes, "VendorTypeQueryRq", qoObjectTypeVendorType)) {}

}  // namespace tessaron
