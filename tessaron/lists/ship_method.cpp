#include "tessaron/lists/ship_method.h"

#include "tessaron/foundation/error_numbers.h"

namespace tessaron {

namespace {
template <class Obj>
const ListClassInfo& FlatClass(const char* name, qoEnumListObjectType objectType, qoEnumListType listType) {
  static const ListClassInfo info = name_lists::FlatInfo(
      name, objectType, listType, Send::Always,
      ListObject::Common::NameCheck(31, err::kNameTooLong, err::kNameTooLongText));
  return info;
}
ListCollectionInfo FlatList(const char* name, qoEnumListType listType, const char* request,
                            qoEnumListObjectType objectType) {
  return name_lists::CollectionInfo(name, listType, request, objectType, name);
}
}  // namespace

ShipMethod::ShipMethod()
    : ListObject(FlatClass<ShipMethod>("ShipMethod", qoObjectTypeShipMethod, qoListShipMethods)) {}
PaymentMethod::PaymentMethod()
    : ListObject(FlatClass<PaymentMethod>("PaymentMethod", qoObjectTypePaymentMethod, qoListPaymentMethods)) {}

ShipMethods::ShipMethods()
    : FlatNameCollection<ShipMethod>(
          FlatList("ShipMethod", qoListShipMethods, "ShipMethodQueryRq", qoObjectTypeShipMethod)) {}
PaymentMethods::PaymentMethods()
    : FlatNameCollection<PaymentMethod>(FlatList("PaymentMethod", qoListPaymentMethods,
                                                               "PaymentMethodQueryRq", qoObjectTypePaymentMethod)) {}

}  // namespace tessaron
